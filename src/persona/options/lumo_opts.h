// CLumoOpts and CFennOpts: the option groups of one model family.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// Report words of the coded fields below, indexed by the stored code.
inline constexpr const char* kLumoSignallingWords[] = {"None", "DTMF", "Vantor"};
inline constexpr const char* kLumoBacklightWords[] = {"Off", "On", "Timed"};
inline constexpr const char* kPowerButtonWords[] = {"Power", "Programmable"};

// CLumoOpts: options of one model family: signalling and backlight; schema 2 added the backlight
// time, 3 the CG reset and hook switch, 4 the output number.
class PERSONA_EXPORT CLumoOpts : public CFieldOption<CLumoOpts> {
  PERSONA_OPTION_RECORD(CLumoOpts, CSerial)
 public:
  // Neutral defaults.
  CLumoOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CLumoOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CLumoOpts(const CLumoOpts&) = default;
  CLumoOpts& operator=(const CLumoOpts&) = default;
  ~CLumoOpts() override = default;

  // 0 none, 1 DTMF, 2 Vantor.
  BYTE GetSignalling() const { return m_Signalling; }
  void SetSignalling(BYTE v) { m_Signalling = v; }
  // 0 off, 1 on, 2 timed.
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }
  WORD GetBacklightTime() const { return m_BacklightTime; }
  void SetBacklightTime(WORD v) { m_BacklightTime = v; }
  BYTE GetCgReset() const { return m_CgReset; }
  void SetCgReset(BYTE v) { m_CgReset = v; }
  BYTE GetHookSwitch() const { return m_HookSwitch; }
  void SetHookSwitch(BYTE v) { m_HookSwitch = v; }
  BYTE GetOutput() const { return m_Output; }
  void SetOutput(BYTE v) { m_Output = v; }

  // Appends the "LUMO/FENN/COYLE Q9P OPTIONS:" block, followed in the same block by the lines
  // of the personality's CFennOpts when it holds one.
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Signalling", m_Signalling, Label{"Signalling"}, WordsOf(kLumoSignallingWords));
    v("Backlight", m_Backlight, Label{"Backlight"}, WordsOf(kLumoBacklightWords));
    v("BacklightTime", m_BacklightTime, Since{2}, Label{"Backlight Time (sec)"});
    v("CgReset", m_CgReset, Since{3}, Label{"CG Reset"}, OnOff{});
    v("HookSwitch", m_HookSwitch, Since{3}, Label{"Hook Switch"}, OnOff{});
    v("Output", m_Output, Since{4}, Label{"Output Number"});
  }

 private:
  BYTE m_Signalling = 0;
  BYTE m_Backlight = 0;
  WORD m_BacklightTime = 0;
  BYTE m_CgReset = 0;
  BYTE m_HookSwitch = 0;
  BYTE m_Output = 0;
};

// CFennOpts: reference oscillator tuning and the power button function. Printed inside the Lumo
// family block.
class PERSONA_EXPORT CFennOpts : public CFieldOption<CFennOpts> {
  PERSONA_OPTION_RECORD(CFennOpts, CSerial)
 public:
  // Neutral defaults.
  CFennOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CFennOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CFennOpts(const CFennOpts&) = default;
  CFennOpts& operator=(const CFennOpts&) = default;
  ~CFennOpts() override = default;

  // Reference oscillator tuning value.
  WORD GetRefOsc() const { return m_RefOsc; }
  void SetRefOsc(WORD v) { m_RefOsc = v; }
  // 0 switches power, 1 programmable.
  BYTE GetPowerButton() const { return m_PowerButton; }
  void SetPowerButton(BYTE v) { m_PowerButton = v; }

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("RefOsc", m_RefOsc, Label{"Reference Oscillator"});
    v("PowerButton", m_PowerButton, Label{"Power Button"}, WordsOf(kPowerButtonWords));
  }

 private:
  WORD m_RefOsc = 0;
  BYTE m_PowerButton = 0;
};

}  // namespace persona
