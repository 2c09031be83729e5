// CDualCtrlOpts: the option group of a radio run from two control heads.
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
inline constexpr const char* kDualDisplayWords[] = {"Independent", "Slaved"};
inline constexpr const char* kDualAudioWords[] = {"Parallel", "Switched"};
inline constexpr const char* kDualSpeakerWords[] = {"Front", "Rear", "Both"};

// CDualCtrlOpts: a radio with two control heads: display and audio mode, which head's speaker
// sounds, and the output that signals the active head.
class PERSONA_EXPORT CDualCtrlOpts : public CFieldOption<CDualCtrlOpts> {
  PERSONA_OPTION_RECORD(CDualCtrlOpts, CSerial)
 public:
  // Neutral defaults.
  CDualCtrlOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CDualCtrlOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CDualCtrlOpts(const CDualCtrlOpts&) = default;
  CDualCtrlOpts& operator=(const CDualCtrlOpts&) = default;
  ~CDualCtrlOpts() override = default;

  // 0 independent, 1 slaved.
  BYTE GetDisplayMode() const { return m_DisplayMode; }
  void SetDisplayMode(BYTE v) { m_DisplayMode = v; }
  // 0 parallel, 1 switched.
  BYTE GetAudioMode() const { return m_AudioMode; }
  void SetAudioMode(BYTE v) { m_AudioMode = v; }
  // 0 front head, 1 rear head, 2 both.
  BYTE GetSpeaker() const { return m_Speaker; }
  void SetSpeaker(BYTE v) { m_Speaker = v; }
  BYTE GetOutput() const { return m_Output; }
  void SetOutput(BYTE v) { m_Output = v; }
  BYTE GetActive() const { return m_Active; }
  void SetActive(BYTE v) { m_Active = v; }

  // Appends the "DUAL CONTROL OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("DisplayMode", m_DisplayMode, Label{"Display Mode"}, WordsOf(kDualDisplayWords));
    v("AudioMode", m_AudioMode, Label{"Audio Mode"}, WordsOf(kDualAudioWords));
    v("Speaker", m_Speaker, Label{"Speaker"}, WordsOf(kDualSpeakerWords));
    v("Output", m_Output, Label{"Output Number"});
    v("Active", m_Active, Label{"Active Level"}, WordsOf(kActiveLevelWords));
  }

 private:
  BYTE m_DisplayMode = 0;
  BYTE m_AudioMode = 0;
  BYTE m_Speaker = 0;
  BYTE m_Output = 0;
  BYTE m_Active = 0;
};

}  // namespace persona
