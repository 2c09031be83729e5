// FirstMatchIndex: rebuild and lookup.
#include <persona/personality/personality_name_index.h>

#include <utility>

namespace persona {

int FirstMatchIndex::Find(const COwnedObList& list, const CString& key, std::uint64_t epoch,
                          KeyOf keyOf) const {
  if (!m_valid || m_epoch != epoch || m_count != list.GetCount()) Rebuild(list, epoch, keyOf);
  const auto it = m_first.find(key);
  return it == m_first.end() ? -1 : it->second;
}

void FirstMatchIndex::NoteAppended(const COwnedObList& list, std::uint64_t epoch, KeyOf keyOf) {
  const int last = list.GetCount() - 1;
  if (!m_valid || m_epoch != epoch || m_count != last || last < 0) {
    m_valid = false;
    return;
  }
  CString key;
  const CObject* record = list.GetAt(last);
  if (record != nullptr && keyOf(*record, &key)) m_first.emplace(std::move(key), last);
  m_count = last + 1;
}

void FirstMatchIndex::Rebuild(const COwnedObList& list, std::uint64_t epoch, KeyOf keyOf) const {
  m_first.clear();
  m_first.reserve(static_cast<std::size_t>(list.GetCount()));
  int position = 0;
  CString key;
  for (const CObject* record : list) {
    if (record != nullptr && keyOf(*record, &key)) m_first.emplace(key, position);  // the first
    ++position;
  }
  m_count = position;
  m_epoch = epoch;
  m_valid = true;
}

}  // namespace persona
