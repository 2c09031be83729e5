// CExtAddSystem: the extended-addressing ("KORVEX IP") trunked system: a trunked system with a
// 32-bit unit ID and site and one spare byte that is kept as it is.
#pragma once

#include <persona/export.h>

#include <persona/systems/trunk_system.h>

namespace persona {

class PERSONA_EXPORT CExtAddSystem : public CTrunkSystem {
  DECLARE_SERIAL(CExtAddSystem)
 public:
  // Trunked defaults with system type 4; unit ID, site and spare byte 0.
  CExtAddSystem();
  // The trunked model defaults (see CTrunkSystem) with system type 4.
  CExtAddSystem(unsigned short radioType, int reducedDefaults);
  CExtAddSystem(const CExtAddSystem& src) = default;
  // Copies every field, the spare byte included, except the schema latch; returns this.
  CExtAddSystem& operator=(const CExtAddSystem& src) = default;
  ~CExtAddSystem() override = default;

  DWORD GetEaUnit() const { return m_EaUnit; }
  void SetEaUnit(DWORD v) { m_EaUnit = v; }
  DWORD GetEaSite() const { return m_EaSite; }
  void SetEaSite(DWORD v) { m_EaSite = v; }

  // After the whole trunked part, in every schema: unit ID, site (32 bits each), spare byte.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("EaUnit", m_EaUnit);
    v("EaSite", m_EaSite);
    v("eaSpare", m_eaSpare);
  }
  PERSONA_FIELDS(CTrunkSystem)

 private:
  DWORD m_EaUnit = 0;
  DWORD m_EaSite = 0;
  BYTE m_eaSpare = 0;
};

}  // namespace persona
