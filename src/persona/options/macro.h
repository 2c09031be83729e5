// CMacro: one macro key entry: the activating key and the key stroke it sends. Activate is
// held and archived in 32 bits although its accessors take and return 16 bits.
#pragma once

#include <persona/export.h>

#include <persona/framework/fields.h>
#include <persona/framework/object.h>

namespace persona {

class PERSONA_EXPORT CMacro : public CObject {
  DECLARE_SERIAL(CMacro)
 public:
  CMacro() = default;
  // The radio type and the model-defaults flag are not used.
  CMacro(unsigned short radioType, int reducedDefaults);
  CMacro(const CMacro&) = default;
  // Copies both fields from src; returns this record.
  CMacro& operator=(const CMacro* src);
  ~CMacro() override = default;

  WORD GetActivate() const { return static_cast<WORD>(m_Activate); }
  void SetActivate(WORD key) { m_Activate = key; }
  WORD GetStroke() const { return m_Stroke; }
  void SetStroke(WORD stroke) { m_Stroke = stroke; }

  // Activate (32 bits), Stroke (16 bits). Not versionable: another stored schema is refused.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Activate", m_Activate);
    v("Stroke", m_Stroke);
  }
  PERSONA_FIELDS(CObject)

 private:
  DWORD m_Activate = 0;
  WORD m_Stroke = 0;
};

}  // namespace persona
