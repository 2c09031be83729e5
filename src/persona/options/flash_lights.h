// CFlashLights: the option group of the flash lights output.
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
inline constexpr const char* kFlashPriorityWords[] = {"Normal", "High"};

// CFlashLights: the flash lights output: its channel and priority. It has no model defaults.
class PERSONA_EXPORT CFlashLights : public CFieldOption<CFlashLights> {
  PERSONA_OPTION_RECORD(CFlashLights, CSerial)
 public:
  // Neutral defaults.
  CFlashLights() = default;
  // Copies every field.
  CFlashLights(const CFlashLights&) = default;
  CFlashLights& operator=(const CFlashLights&) = default;
  ~CFlashLights() override = default;

  // Output channel that drives the lights.
  WORD GetChannel() const { return m_Channel; }
  void SetChannel(WORD v) { m_Channel = v; }
  // 0 normal, 1 over other outputs.
  BYTE GetPriority() const { return m_Priority; }
  void SetPriority(BYTE v) { m_Priority = v; }

  // Appends the "FLASH LIGHTS OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Channel", m_Channel, Label{"Flash Lights Channel"});
    v("Priority", m_Priority, Label{"Flash Lights Priority"}, WordsOf(kFlashPriorityWords));
  }

 private:
  WORD m_Channel = 0;
  BYTE m_Priority = 0;
};

}  // namespace persona
