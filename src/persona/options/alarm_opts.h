// CAlarmOpts: the external input/output option group of a radio.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// CAlarmOpts: the external alarm and auxiliary outputs (each: on, active level, output number,
// repeat count and a custom on/off pattern, one bit per step), the external alarm type, the
// external mute line and the two auxiliary inputs.
class PERSONA_EXPORT CAlarmOpts : public CFieldOption<CAlarmOpts> {
  PERSONA_OPTION_RECORD(CAlarmOpts, CSerial)
 public:
  // Neutral defaults.
  CAlarmOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CAlarmOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CAlarmOpts(const CAlarmOpts&) = default;
  CAlarmOpts& operator=(const CAlarmOpts&) = default;
  ~CAlarmOpts() override = default;

  BYTE GetAlarm1On() const { return m_Alarm1On; }
  void SetAlarm1On(BYTE v) { m_Alarm1On = v; }
  BYTE GetAlarm1Active() const { return m_Alarm1Active; }
  void SetAlarm1Active(BYTE v) { m_Alarm1Active = v; }
  BYTE GetAlarm1Output() const { return m_Alarm1Output; }
  void SetAlarm1Output(BYTE v) { m_Alarm1Output = v; }
  WORD GetAlarm1Repeat() const { return m_Alarm1Repeat; }
  void SetAlarm1Repeat(WORD v) { m_Alarm1Repeat = v; }
  WORD GetAlarm1Pattern() const { return m_Alarm1Pattern; }
  void SetAlarm1Pattern(WORD v) { m_Alarm1Pattern = v; }
  BYTE GetAlarm2On() const { return m_Alarm2On; }
  void SetAlarm2On(BYTE v) { m_Alarm2On = v; }
  BYTE GetAlarm2Active() const { return m_Alarm2Active; }
  void SetAlarm2Active(BYTE v) { m_Alarm2Active = v; }
  BYTE GetAlarm2Output() const { return m_Alarm2Output; }
  void SetAlarm2Output(BYTE v) { m_Alarm2Output = v; }
  WORD GetAlarm2Repeat() const { return m_Alarm2Repeat; }
  void SetAlarm2Repeat(WORD v) { m_Alarm2Repeat = v; }
  WORD GetAlarm2Pattern() const { return m_Alarm2Pattern; }
  void SetAlarm2Pattern(WORD v) { m_Alarm2Pattern = v; }
  BYTE GetAux1On() const { return m_Aux1On; }
  void SetAux1On(BYTE v) { m_Aux1On = v; }
  BYTE GetAux1Active() const { return m_Aux1Active; }
  void SetAux1Active(BYTE v) { m_Aux1Active = v; }
  BYTE GetAux1Output() const { return m_Aux1Output; }
  void SetAux1Output(BYTE v) { m_Aux1Output = v; }
  WORD GetAux1Repeat() const { return m_Aux1Repeat; }
  void SetAux1Repeat(WORD v) { m_Aux1Repeat = v; }
  WORD GetAux1Pattern() const { return m_Aux1Pattern; }
  void SetAux1Pattern(WORD v) { m_Aux1Pattern = v; }
  BYTE GetAux2On() const { return m_Aux2On; }
  void SetAux2On(BYTE v) { m_Aux2On = v; }
  BYTE GetAux2Active() const { return m_Aux2Active; }
  void SetAux2Active(BYTE v) { m_Aux2Active = v; }
  BYTE GetAux2Output() const { return m_Aux2Output; }
  void SetAux2Output(BYTE v) { m_Aux2Output = v; }
  WORD GetAux2Repeat() const { return m_Aux2Repeat; }
  void SetAux2Repeat(WORD v) { m_Aux2Repeat = v; }
  WORD GetAux2Pattern() const { return m_Aux2Pattern; }
  void SetAux2Pattern(WORD v) { m_Aux2Pattern = v; }
  BYTE GetExtAlarmType() const { return m_ExtAlarmType; }
  void SetExtAlarmType(BYTE v) { m_ExtAlarmType = v; }
  BYTE GetExtMuteActive() const { return m_ExtMuteActive; }
  void SetExtMuteActive(BYTE v) { m_ExtMuteActive = v; }
  BYTE GetExtMuteOutput() const { return m_ExtMuteOutput; }
  void SetExtMuteOutput(BYTE v) { m_ExtMuteOutput = v; }
  BYTE GetAuxInput1() const { return m_AuxInput1; }
  void SetAuxInput1(BYTE v) { m_AuxInput1 = v; }
  BYTE GetAuxInput2() const { return m_AuxInput2; }
  void SetAuxInput2(BYTE v) { m_AuxInput2 = v; }

  // Appends the "EXTERNAL I/O OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Alarm1On", m_Alarm1On, Label{"Alarm 1 Output"}, OnOff{});
    v("Alarm1Active", m_Alarm1Active, Label{"Alarm 1 Active Level"}, WordsOf(kActiveLevelWords));
    v("Alarm1Output", m_Alarm1Output, Label{"Alarm 1 Output Number"});
    v("Alarm1Repeat", m_Alarm1Repeat, Label{"Alarm 1 Repeat Count"});
    v("Alarm1Pattern", m_Alarm1Pattern, Label{"Alarm 1 Custom Pattern"}, Hex{});
    v("Alarm2On", m_Alarm2On, Label{"Alarm 2 Output"}, OnOff{});
    v("Alarm2Active", m_Alarm2Active, Label{"Alarm 2 Active Level"}, WordsOf(kActiveLevelWords));
    v("Alarm2Output", m_Alarm2Output, Label{"Alarm 2 Output Number"});
    v("Alarm2Repeat", m_Alarm2Repeat, Label{"Alarm 2 Repeat Count"});
    v("Alarm2Pattern", m_Alarm2Pattern, Label{"Alarm 2 Custom Pattern"}, Hex{});
    v("Aux1On", m_Aux1On, Label{"Aux 1 Output"}, OnOff{});
    v("Aux1Active", m_Aux1Active, Label{"Aux 1 Active Level"}, WordsOf(kActiveLevelWords));
    v("Aux1Output", m_Aux1Output, Label{"Aux 1 Output Number"});
    v("Aux1Repeat", m_Aux1Repeat, Label{"Aux 1 Repeat Count"});
    v("Aux1Pattern", m_Aux1Pattern, Label{"Aux 1 Custom Pattern"}, Hex{});
    v("Aux2On", m_Aux2On, Label{"Aux 2 Output"}, OnOff{});
    v("Aux2Active", m_Aux2Active, Label{"Aux 2 Active Level"}, WordsOf(kActiveLevelWords));
    v("Aux2Output", m_Aux2Output, Label{"Aux 2 Output Number"});
    v("Aux2Repeat", m_Aux2Repeat, Label{"Aux 2 Repeat Count"});
    v("Aux2Pattern", m_Aux2Pattern, Label{"Aux 2 Custom Pattern"}, Hex{});
    v("ExtAlarmType", m_ExtAlarmType, Label{"External Alarm Type"}, WordsOf(kAlarmPatternWords));
    v("ExtMuteActive", m_ExtMuteActive, Label{"External Mute Active"}, WordsOf(kActiveLevelWords));
    v("ExtMuteOutput", m_ExtMuteOutput, Label{"External Mute Output"});
    v("AuxInput1", m_AuxInput1, Label{"Aux Input 1"}, OnOff{});
    v("AuxInput2", m_AuxInput2, Label{"Aux Input 2"}, OnOff{});
  }

 private:
  BYTE m_Alarm1On = 0;
  BYTE m_Alarm1Active = 0;
  BYTE m_Alarm1Output = 0;
  WORD m_Alarm1Repeat = 0;
  WORD m_Alarm1Pattern = 0;
  BYTE m_Alarm2On = 0;
  BYTE m_Alarm2Active = 0;
  BYTE m_Alarm2Output = 0;
  WORD m_Alarm2Repeat = 0;
  WORD m_Alarm2Pattern = 0;
  BYTE m_Aux1On = 0;
  BYTE m_Aux1Active = 0;
  BYTE m_Aux1Output = 0;
  WORD m_Aux1Repeat = 0;
  WORD m_Aux1Pattern = 0;
  BYTE m_Aux2On = 0;
  BYTE m_Aux2Active = 0;
  BYTE m_Aux2Output = 0;
  WORD m_Aux2Repeat = 0;
  WORD m_Aux2Pattern = 0;
  BYTE m_ExtAlarmType = 0;
  BYTE m_ExtMuteActive = 0;
  BYTE m_ExtMuteOutput = 0;
  BYTE m_AuxInput1 = 0;
  BYTE m_AuxInput2 = 0;
};

}  // namespace persona
