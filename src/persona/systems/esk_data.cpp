// CEskData archive form.
#include <persona/systems/esk_data.h>

namespace persona {

IMPLEMENT_SERIAL(CEskData, CObject, VERSIONABLE_SCHEMA | 1)

CEskData& CEskData::operator=(const CEskData* src) {
  if (src != nullptr && src != this) {
    m_EskId = src->m_EskId;
    m_Esk = src->m_Esk;
  }
  return *this;
}

void CEskData::Serialize(CArchive& ar) {
  if (ar.IsLoading()) ar.GetObjectSchema();  // asked for, not used: one layout so far
  SerializeFields(ar, *this);
}

}  // namespace persona
