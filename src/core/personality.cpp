// CPersonality (stand-in): option list and set lists.
#include "core/personality.h"

#include <cstring>

namespace persona {

CPersonality::CPersonality() = default;

CPersonality::CPersonality(unsigned short radioType, int) : m_lastRadio(radioType) {}

CPersonality::~CPersonality() = default;

int CPersonality::FindOption(const char* className) const {
  for (int i = 0; i < m_options.GetCount(); ++i) {
    const CObject* option = m_options.GetAt(i);
    if (option != nullptr && std::strcmp(option->GetClassName(), className) == 0) return i;
  }
  return -1;
}

void CPersonality::PutOption(CObject* option) {
  if (option == nullptr || FindOption(option->GetClassName()) >= 0) return;
  m_options.Add(option);
}

CSerial* CPersonality::GetOption(const CRuntimeClass* cls) const {
  if (cls == nullptr) return nullptr;
  const int i = FindOption(cls->m_lpszClassName);
  return i < 0 ? nullptr : dynamic_cast<CSerial*>(m_options.GetAt(i));
}

void CPersonality::DeleteOption(const CRuntimeClass* cls) {
  if (cls == nullptr) return;
  const int i = FindOption(cls->m_lpszClassName);
  if (i >= 0) m_options.DeleteAt(i);
}

CSet* CPersonality::GetSetAt(int i, SetType t) const {
  if (!IsValidSetType(t) || i < 0 || i >= m_sets[t].GetCount()) return nullptr;
  return static_cast<CSet*>(m_sets[t].GetAt(i));
}

unsigned short CPersonality::GetNumTrkSets() const {
  return static_cast<unsigned short>(m_sets[TrunkSetType].GetCount());
}

void CPersonality::AddSet(CSet* set, SetType t) {
  if (!IsValidSetType(t)) {
    delete set;
    return;
  }
  m_sets[t].Add(set);
}

}  // namespace persona
