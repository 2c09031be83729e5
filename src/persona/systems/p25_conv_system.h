// CP25ConvSystem: the P25 conventional system record: DTMF, unit ID, encryption type and key ID,
// display group, Channel Guard selection, and the P25 channel and individual-call sets it uses.
#pragma once

#include <persona/export.h>

#include <persona/systems/system.h>

namespace persona {

class PERSONA_EXPORT CP25ConvSystem : public CSystem {
  DECLARE_SERIAL(CP25ConvSystem)
 public:
  // Display group 1, every other field 0 or empty (the system type too: the creator sets 3).
  CP25ConvSystem() = default;
  // The CSystem model defaults; this class's own fields as the default constructor.
  CP25ConvSystem(unsigned short radioType, int reducedDefaults);
  CP25ConvSystem(const CP25ConvSystem& src) = default;
  // Copies every field except the schema latch; returns this. A null src copies nothing.
  CP25ConvSystem& operator=(const CP25ConvSystem* src);
  CP25ConvSystem& operator=(const CP25ConvSystem& src) = default;
  ~CP25ConvSystem() override = default;

  BYTE GetDTMF() const { return m_DTMF; }
  void SetDTMF(BYTE v) { m_DTMF = v; }
  DWORD GetUnit() const { return m_Unit; }
  void SetUnit(DWORD v) { m_Unit = v; }
  CString GetP25ConvSetName() const { return m_P25ConvSetName; }
  void SetP25ConvSetName(CString v) { m_P25ConvSetName = std::move(v); }
  CString GetIcallSetName() const { return m_IcallSetName; }
  void SetIcallSetName(CString v) { m_IcallSetName = std::move(v); }
  BYTE GetEncryptType() const { return m_EncryptType; }
  void SetEncryptType(BYTE v) { m_EncryptType = v; }
  DWORD GetKeyId() const { return m_KeyId; }
  void SetKeyId(DWORD v) { m_KeyId = v; }
  LONG GetDisplayGroup() const { return m_DisplayGroup; }
  void SetDisplayGroup(LONG v) { m_DisplayGroup = v; }
  BYTE GetCgSel() const { return m_CgSel; }
  void SetCgSel(BYTE v) { m_CgSel = v; }

  // After the CSystem part: DTMF, unit ID, the two set names, then by schema the encryption
  // type and key ID (5), the display group (7) and the Channel Guard selection (8).
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("DTMF", m_DTMF);
    v("Unit", m_Unit);
    v("P25ConvSetName", m_P25ConvSetName, RefersTo{RefKind::Set, P25ConvSetType});
    v("IcallSetName", m_IcallSetName, RefersTo{RefKind::Set, ICallSetType});
    v("EncryptType", m_EncryptType, Since{5});
    v("KeyId", m_KeyId, Since{5});
    v("DisplayGroup", m_DisplayGroup, Since{7});
    v("CgSel", m_CgSel, Since{8});
  }
  PERSONA_FIELDS(CSystem)

 private:
  BYTE m_DTMF = 0;
  DWORD m_Unit = 0;
  CString m_P25ConvSetName;
  CString m_IcallSetName;
  BYTE m_EncryptType = 0;
  DWORD m_KeyId = 0;
  LONG m_DisplayGroup = 1;
  BYTE m_CgSel = 0;
};

}  // namespace persona
