// CStatusMessage archive form.
#include <persona/options/status_message.h>

namespace persona {

IMPLEMENT_SERIAL(CStatusMessage, CObject, VERSIONABLE_SCHEMA | 1)

CStatusMessage::CStatusMessage(unsigned short, int) {}

CStatusMessage& CStatusMessage::operator=(const CStatusMessage* src) {
  if (src != nullptr && src != this) {
    m_Name = src->m_Name;
    m_Id = src->m_Id;
  }
  return *this;
}

void CStatusMessage::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

}  // namespace persona
