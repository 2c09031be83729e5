// CPersonality option and set lists.
#include "core/personality.h"

#include <cstring>

namespace persona {

CPersonality::CPersonality() = default;

CPersonality::CPersonality(unsigned short radioType, int) : m_lastRadio(radioType) {}

CPersonality::~CPersonality() = default;

int CPersonality::FindOption(const CRuntimeClass* cls) const {
  if (cls == nullptr) return -1;
  for (std::size_t i = 0; i < m_options.size(); ++i) {
    if (std::strcmp(m_options[i]->GetClassName(), cls->m_lpszClassName) == 0) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

void CPersonality::PutOption(CObject* option) {
  if (option == nullptr || FindOption(option->GetRuntimeClass()) >= 0) return;
  m_options.emplace_back(option);
}

CSerial* CPersonality::GetOption(const CRuntimeClass* cls) const {
  const int i = FindOption(cls);
  return i < 0 ? nullptr : static_cast<CSerial*>(m_options[static_cast<std::size_t>(i)].get());
}

void CPersonality::DeleteOption(const CRuntimeClass* cls) {
  const int i = FindOption(cls);
  if (i >= 0) m_options.erase(m_options.begin() + i);
}

CSet* CPersonality::GetSetAt(int i, SetType t) const {
  if (!IsValidSetType(t) || i < 0) return nullptr;
  const auto& list = m_sets[t];
  return static_cast<std::size_t>(i) < list.size() ? list[static_cast<std::size_t>(i)].get()
                                                   : nullptr;
}

unsigned short CPersonality::GetNumTrkSets() const {
  return static_cast<unsigned short>(m_sets[TrunkSetType].size());
}

void CPersonality::AddSet(CSet* set, SetType t) {
  std::unique_ptr<CSet> owned(set);
  if (IsValidSetType(t) && owned) m_sets[t].push_back(std::move(owned));
}

}  // namespace persona
