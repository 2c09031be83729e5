// CZemoOpts: the option group of one portable family.
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
inline constexpr const char* kMicGainWords[] = {"Normal", "High"};
inline constexpr const char* kChargerSwitchWords[] = {"Manual", "Automatic"};
inline constexpr const char* kEqualizerWords[] = {"Flat", "Low Boost", "High Boost"};

// CZemoOpts: options of one portable family: battery alarm and its repeat time, external
// microphone gain; schema 2 added the vehicular charger and its switch mode, 3 the analog voice
// equaliser.
class PERSONA_EXPORT CZemoOpts : public CFieldOption<CZemoOpts> {
  PERSONA_OPTION_RECORD(CZemoOpts, CSerial)
 public:
  // Neutral defaults.
  CZemoOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CZemoOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CZemoOpts(const CZemoOpts&) = default;
  CZemoOpts& operator=(const CZemoOpts&) = default;
  ~CZemoOpts() override = default;

  BYTE GetBattAlarm() const { return m_BattAlarm; }
  void SetBattAlarm(BYTE v) { m_BattAlarm = v; }
  WORD GetBattRepeatTime() const { return m_BattRepeatTime; }
  void SetBattRepeatTime(WORD v) { m_BattRepeatTime = v; }
  BYTE GetMicGain() const { return m_MicGain; }
  void SetMicGain(BYTE v) { m_MicGain = v; }
  BYTE GetVehCharger() const { return m_VehCharger; }
  void SetVehCharger(BYTE v) { m_VehCharger = v; }
  // 0 manual, 1 automatic.
  BYTE GetChargerSwitchMode() const { return m_ChargerSwitchMode; }
  void SetChargerSwitchMode(BYTE v) { m_ChargerSwitchMode = v; }
  // 0 flat, 1 low boost, 2 high boost.
  BYTE GetVoiceEqualizer() const { return m_VoiceEqualizer; }
  void SetVoiceEqualizer(BYTE v) { m_VoiceEqualizer = v; }

  // Appends the "Tarsk Z40A/ZQ400/ZEMO/Quenby XR/LRA OPTIONS:" block; nothing else is read from the
  // personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("BattAlarm", m_BattAlarm, Label{"Battery Alarm"}, OnOff{});
    v("BattRepeatTime", m_BattRepeatTime, Label{"Battery Repeat Time (sec)"});
    v("MicGain", m_MicGain, Label{"External Mic Gain"}, WordsOf(kMicGainWords));
    v("VehCharger", m_VehCharger, Since{2}, Label{"Vehicular Charger"}, OnOff{});
    v("ChargerSwitchMode", m_ChargerSwitchMode, Since{2}, Label{"Charger Switch Mode"},
      WordsOf(kChargerSwitchWords));
    v("VoiceEqualizer", m_VoiceEqualizer, Since{3}, Label{"Analog Voice Equaliser"},
      WordsOf(kEqualizerWords));
  }

 private:
  BYTE m_BattAlarm = 0;
  WORD m_BattRepeatTime = 0;
  BYTE m_MicGain = 0;
  BYTE m_VehCharger = 0;
  BYTE m_ChargerSwitchMode = 0;
  BYTE m_VoiceEqualizer = 0;
};

}  // namespace persona
