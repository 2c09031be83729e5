// CEskData: one security key record (key name and key number). The personality builds lists of
// them from its systems; trunk and group sets refer to them without owning them.
#pragma once

#include <persona/export.h>

#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/framework/object.h>

namespace persona {

class PERSONA_EXPORT CEskData : public CObject {
  DECLARE_SERIAL(CEskData)
 public:
  CEskData() = default;
  CEskData(const CEskData&) = default;
  // Copies both fields from src; returns this record.
  CEskData& operator=(const CEskData* src);
  ~CEskData() override = default;

  CString GetEskId() const { return m_EskId; }
  void SetEskId(CString id) { m_EskId = std::move(id); }
  LONG GetEsk() const { return m_Esk; }
  void SetEsk(LONG esk) { m_Esk = esk; }

  // Loading asks for the stored schema and ignores it; then EskId, Esk (32 bits).
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("EskId", m_EskId);
    v("Esk", m_Esk);
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_EskId;
  LONG m_Esk = 0;
};

}  // namespace persona
