// CStatusMessage: one status or message entry (name and number), held by the status and
// message option records.
#pragma once

#include <persona/export.h>

#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/framework/object.h>

namespace persona {

class PERSONA_EXPORT CStatusMessage : public CObject {
  DECLARE_SERIAL(CStatusMessage)
 public:
  CStatusMessage() = default;
  // The radio type and the model-defaults flag are not used.
  CStatusMessage(unsigned short radioType, int reducedDefaults);
  CStatusMessage(const CStatusMessage&) = default;
  // Copies both fields from src; returns this record.
  CStatusMessage& operator=(const CStatusMessage* src);
  ~CStatusMessage() override = default;

  CString GetName() const { return m_Name; }
  void SetName(CString name) { m_Name = std::move(name); }
  WORD GetId() const { return m_Id; }
  void SetId(WORD id) { m_Id = id; }

  // Name, Id (16 bits); the stored schema is not asked for.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("Id", m_Id);
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  WORD m_Id = 0;
};

}  // namespace persona
