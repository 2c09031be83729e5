// CExtSpkrOpts and CPubAddOpts: the option groups of the two audio outputs beside the radio's own
// speaker (external speaker, public address).
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
inline constexpr const char* kSpeakerVolumeWords[] = {"Fixed", "Radio Volume"};
inline constexpr const char* kSpeakerInitiateWords[] = {"Manual", "Any Call", "Individual Call"};

// CExtSpkrOpts: the external speaker output: enable, active level, output number, volume control
// and level, external control, what switches it on, horn alert reset and alarm pattern. Schema 2
// added the external control, 3 the initiation and horn alert reset, 4 the alarm type.
class PERSONA_EXPORT CExtSpkrOpts : public CFieldOption<CExtSpkrOpts> {
  PERSONA_OPTION_RECORD(CExtSpkrOpts, CSerial)
 public:
  // Neutral defaults.
  CExtSpkrOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CExtSpkrOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CExtSpkrOpts(const CExtSpkrOpts&) = default;
  CExtSpkrOpts& operator=(const CExtSpkrOpts&) = default;
  ~CExtSpkrOpts() override = default;

  BYTE GetEnable() const { return m_Enable; }
  void SetEnable(BYTE v) { m_Enable = v; }
  BYTE GetActive() const { return m_Active; }
  void SetActive(BYTE v) { m_Active = v; }
  BYTE GetOutput() const { return m_Output; }
  void SetOutput(BYTE v) { m_Output = v; }
  // 0 fixed level, 1 follows the radio volume.
  BYTE GetVolumeCtrl() const { return m_VolumeCtrl; }
  void SetVolumeCtrl(BYTE v) { m_VolumeCtrl = v; }
  WORD GetLevel() const { return m_Level; }
  void SetLevel(WORD v) { m_Level = v; }
  BYTE GetExtCtrl() const { return m_ExtCtrl; }
  void SetExtCtrl(BYTE v) { m_ExtCtrl = v; }
  // 0 manual, 1 any call, 2 individual call.
  BYTE GetInitiate() const { return m_Initiate; }
  void SetInitiate(BYTE v) { m_Initiate = v; }
  BYTE GetHornAlertReset() const { return m_HornAlertReset; }
  void SetHornAlertReset(BYTE v) { m_HornAlertReset = v; }
  BYTE GetAlarmType() const { return m_AlarmType; }
  void SetAlarmType(BYTE v) { m_AlarmType = v; }

  // Appends the "EXTERNAL SPEAKER OPTIONS:" block; every model prints the same lines.
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Enable", m_Enable, Label{"External Speaker"}, OnOff{});
    v("Active", m_Active, Label{"Active Level"}, WordsOf(kActiveLevelWords));
    v("Output", m_Output, Label{"Output Number"});
    v("VolumeCtrl", m_VolumeCtrl, Label{"Volume Control"}, WordsOf(kSpeakerVolumeWords));
    v("Level", m_Level, Label{"Volume Level"});
    v("ExtCtrl", m_ExtCtrl, Since{2}, Label{"External Control"}, OnOff{});
    v("Initiate", m_Initiate, Since{3}, Label{"Initiated By"}, WordsOf(kSpeakerInitiateWords));
    v("HornAlertReset", m_HornAlertReset, Since{3}, Label{"Horn Alert Reset"}, OnOff{});
    v("AlarmType", m_AlarmType, Since{4}, Label{"Alarm Type"}, WordsOf(kAlarmPatternWords));
  }

 private:
  BYTE m_Enable = 0;
  BYTE m_Active = 0;
  BYTE m_Output = 0;
  BYTE m_VolumeCtrl = 0;
  WORD m_Level = 0;
  BYTE m_ExtCtrl = 0;
  BYTE m_Initiate = 0;
  BYTE m_HornAlertReset = 0;
  BYTE m_AlarmType = 0;
};

// CPubAddOpts: the public address output: enable, active level, output number and audio level.
class PERSONA_EXPORT CPubAddOpts : public CFieldOption<CPubAddOpts> {
  PERSONA_OPTION_RECORD(CPubAddOpts, CSerial)
 public:
  // Neutral defaults.
  CPubAddOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CPubAddOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CPubAddOpts(const CPubAddOpts&) = default;
  CPubAddOpts& operator=(const CPubAddOpts&) = default;
  ~CPubAddOpts() override = default;

  BYTE GetEnable() const { return m_Enable; }
  void SetEnable(BYTE v) { m_Enable = v; }
  BYTE GetActive() const { return m_Active; }
  void SetActive(BYTE v) { m_Active = v; }
  BYTE GetOutput() const { return m_Output; }
  void SetOutput(BYTE v) { m_Output = v; }
  WORD GetLevel() const { return m_Level; }
  void SetLevel(WORD v) { m_Level = v; }

  // Appends the "PUBLIC ADDRESS OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Enable", m_Enable, Label{"Public Address"}, OnOff{});
    v("Active", m_Active, Label{"Active Level"}, WordsOf(kActiveLevelWords));
    v("Output", m_Output, Label{"Output Number"});
    v("Level", m_Level, Label{"Level"});
  }

 private:
  BYTE m_Enable = 0;
  BYTE m_Active = 0;
  BYTE m_Output = 0;
  WORD m_Level = 0;
};

}  // namespace persona
