// CPowerUpOpts: the option group of the state a radio takes at power-up.
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
inline constexpr const char* kPrivacyModeWords[] = {"Last", "Clear", "Secure"};

// CPowerUpOpts: the state a radio takes at power-up: volume and squelch, system and group, scan;
// schema 2 added the keypad lock, signalling and privacy modes, 3 the power-up tone, backlight and
// display contrast (normal and inverted), 4 the external speaker and alarms and automatic login.
// SystemName and GroupName refer to a system and a group by name.
class PERSONA_EXPORT CPowerUpOpts : public CFieldOption<CPowerUpOpts> {
  PERSONA_OPTION_RECORD(CPowerUpOpts, CSerial)
 public:
  // Neutral defaults.
  CPowerUpOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CPowerUpOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CPowerUpOpts(const CPowerUpOpts&) = default;
  CPowerUpOpts& operator=(const CPowerUpOpts&) = default;
  ~CPowerUpOpts() override = default;

  // 0 last volume, 1 the fixed Volume.
  BYTE GetVolumeMode() const { return m_VolumeMode; }
  void SetVolumeMode(BYTE v) { m_VolumeMode = v; }
  WORD GetVolume() const { return m_Volume; }
  void SetVolume(WORD v) { m_Volume = v; }
  BYTE GetSquelchMode() const { return m_SquelchMode; }
  void SetSquelchMode(BYTE v) { m_SquelchMode = v; }
  WORD GetSquelchLevel() const { return m_SquelchLevel; }
  void SetSquelchLevel(WORD v) { m_SquelchLevel = v; }
  // 0 last selected, 1 the fixed SystemName and GroupName.
  BYTE GetSysGroupMode() const { return m_SysGroupMode; }
  void SetSysGroupMode(BYTE v) { m_SysGroupMode = v; }
  CString GetGroupName() const { return m_GroupName; }
  void SetGroupName(CString v) { m_GroupName = std::move(v); }
  CString GetSystemName() const { return m_SystemName; }
  void SetSystemName(CString v) { m_SystemName = std::move(v); }
  BYTE GetScan() const { return m_Scan; }
  void SetScan(BYTE v) { m_Scan = v; }
  BYTE GetKeypadLockMode() const { return m_KeypadLockMode; }
  void SetKeypadLockMode(BYTE v) { m_KeypadLockMode = v; }
  BYTE GetKeypadLockState() const { return m_KeypadLockState; }
  void SetKeypadLockState(BYTE v) { m_KeypadLockState = v; }
  BYTE GetSignallingMode() const { return m_SignallingMode; }
  void SetSignallingMode(BYTE v) { m_SignallingMode = v; }
  // 0 last, 1 clear, 2 secure.
  BYTE GetPrivacyMode() const { return m_PrivacyMode; }
  void SetPrivacyMode(BYTE v) { m_PrivacyMode = v; }
  BYTE GetTone() const { return m_Tone; }
  void SetTone(BYTE v) { m_Tone = v; }
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }
  WORD GetContrast() const { return m_Contrast; }
  void SetContrast(WORD v) { m_Contrast = v; }
  WORD GetContrastInverted() const { return m_ContrastInverted; }
  void SetContrastInverted(WORD v) { m_ContrastInverted = v; }
  BYTE GetExtSpeaker() const { return m_ExtSpeaker; }
  void SetExtSpeaker(BYTE v) { m_ExtSpeaker = v; }
  BYTE GetExtAlarms() const { return m_ExtAlarms; }
  void SetExtAlarms(BYTE v) { m_ExtAlarms = v; }
  BYTE GetAutoLogin() const { return m_AutoLogin; }
  void SetAutoLogin(BYTE v) { m_AutoLogin = v; }

  // Appends the "POWER UP OPTIONS:" block; every model prints the same lines.
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("VolumeMode", m_VolumeMode, Label{"Volume"}, WordsOf(kLastFixedWords));
    v("Volume", m_Volume, Label{"Volume Level"});
    v("SquelchMode", m_SquelchMode, Label{"Squelch"}, WordsOf(kLastFixedWords));
    v("SquelchLevel", m_SquelchLevel, Label{"Squelch Level"});
    v("SysGroupMode", m_SysGroupMode, Label{"System/Group"}, WordsOf(kLastFixedWords));
    v("GroupName", m_GroupName, Label{"Group Name"}, RefersTo{RefKind::Group, 0, "SystemName"});
    v("SystemName", m_SystemName, Label{"System Name"}, RefersTo{RefKind::System});
    v("Scan", m_Scan, Label{"Scan"}, WordsOf(kLastOffOnWords));
    v("KeypadLockMode", m_KeypadLockMode, Since{2}, Label{"Keypad Lock"}, WordsOf(kLastFixedWords));
    v("KeypadLockState", m_KeypadLockState, Since{2}, Label{"Keypad Lock State"}, OnOff{});
    v("SignallingMode", m_SignallingMode, Since{2}, Label{"Signalling Mode"},
      WordsOf(kLastFixedWords));
    v("PrivacyMode", m_PrivacyMode, Since{2}, Label{"Privacy Mode"}, WordsOf(kPrivacyModeWords));
    v("Tone", m_Tone, Since{3}, Label{"Power Up Tone"}, OnOff{});
    v("Backlight", m_Backlight, Since{3}, Label{"Backlight"}, WordsOf(kLastOffOnWords));
    v("Contrast", m_Contrast, Since{3}, Label{"Contrast"});
    v("ContrastInverted", m_ContrastInverted, Since{3}, Label{"Contrast Inverted"});
    v("ExtSpeaker", m_ExtSpeaker, Since{4}, Label{"External Speaker"}, WordsOf(kLastOffOnWords));
    v("ExtAlarms", m_ExtAlarms, Since{4}, Label{"External Alarms"}, WordsOf(kLastOffOnWords));
    v("AutoLogin", m_AutoLogin, Since{4}, Label{"Automatic Login"}, OnOff{});
  }

 private:
  BYTE m_VolumeMode = 0;
  WORD m_Volume = 0;
  BYTE m_SquelchMode = 0;
  WORD m_SquelchLevel = 0;
  BYTE m_SysGroupMode = 0;
  CString m_GroupName;
  CString m_SystemName;
  BYTE m_Scan = 0;
  BYTE m_KeypadLockMode = 0;
  BYTE m_KeypadLockState = 0;
  BYTE m_SignallingMode = 0;
  BYTE m_PrivacyMode = 0;
  BYTE m_Tone = 0;
  BYTE m_Backlight = 0;
  WORD m_Contrast = 0;
  WORD m_ContrastInverted = 0;
  BYTE m_ExtSpeaker = 0;
  BYTE m_ExtAlarms = 0;
  BYTE m_AutoLogin = 0;
};

}  // namespace persona
