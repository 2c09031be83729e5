// CSonvraOpts: the option group of system selection by audio quality.
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
inline constexpr const char* kSensitivityWords[] = {"Low", "Medium", "High"};

// CSonvraOpts: selection of the best system by audio quality: minimum and transition levels for
// priority and non-priority systems, sensitivity and sample time; schema 2 added the switch delta,
// the count override and tone suppression.
class PERSONA_EXPORT CSonvraOpts : public CFieldOption<CSonvraOpts> {
  PERSONA_OPTION_RECORD(CSonvraOpts, CSerial)
 public:
  // Neutral defaults.
  CSonvraOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CSonvraOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CSonvraOpts(const CSonvraOpts&) = default;
  CSonvraOpts& operator=(const CSonvraOpts&) = default;
  ~CSonvraOpts() override = default;

  WORD GetPriMinLevel() const { return m_PriMinLevel; }
  void SetPriMinLevel(WORD v) { m_PriMinLevel = v; }
  WORD GetPriTransLevel() const { return m_PriTransLevel; }
  void SetPriTransLevel(WORD v) { m_PriTransLevel = v; }
  WORD GetNonPriMinLevel() const { return m_NonPriMinLevel; }
  void SetNonPriMinLevel(WORD v) { m_NonPriMinLevel = v; }
  WORD GetNonPriTransLevel() const { return m_NonPriTransLevel; }
  void SetNonPriTransLevel(WORD v) { m_NonPriTransLevel = v; }
  BYTE GetSensitivity() const { return m_Sensitivity; }
  void SetSensitivity(BYTE v) { m_Sensitivity = v; }
  WORD GetSampleTime() const { return m_SampleTime; }
  void SetSampleTime(WORD v) { m_SampleTime = v; }
  WORD GetSwitchDelta() const { return m_SwitchDelta; }
  void SetSwitchDelta(WORD v) { m_SwitchDelta = v; }
  WORD GetCountOverride() const { return m_CountOverride; }
  void SetCountOverride(WORD v) { m_CountOverride = v; }
  BYTE GetToneSuppress() const { return m_ToneSuppress; }
  void SetToneSuppress(BYTE v) { m_ToneSuppress = v; }

  // Appends the "SONVRA/TREVIX OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("PriMinLevel", m_PriMinLevel, Label{"Priority Minimum Level"});
    v("PriTransLevel", m_PriTransLevel, Label{"Priority Transition Level"});
    v("NonPriMinLevel", m_NonPriMinLevel, Label{"Non-Priority Minimum Level"});
    v("NonPriTransLevel", m_NonPriTransLevel, Label{"Non-Priority Trans. Level"});
    v("Sensitivity", m_Sensitivity, Label{"Sensitivity"}, WordsOf(kSensitivityWords));
    v("SampleTime", m_SampleTime, Label{"Sample Time (ms)"});
    v("SwitchDelta", m_SwitchDelta, Since{2}, Label{"Switch Delta"});
    v("CountOverride", m_CountOverride, Since{2}, Label{"Count Override"});
    v("ToneSuppress", m_ToneSuppress, Since{2}, Label{"Tone Suppression"}, OnOff{});
  }

 private:
  WORD m_PriMinLevel = 0;
  WORD m_PriTransLevel = 0;
  WORD m_NonPriMinLevel = 0;
  WORD m_NonPriTransLevel = 0;
  BYTE m_Sensitivity = 0;
  WORD m_SampleTime = 0;
  WORD m_SwitchDelta = 0;
  WORD m_CountOverride = 0;
  BYTE m_ToneSuppress = 0;
};

}  // namespace persona
