// Container operations and their archive forms.
#include <persona/framework/collections.h>

#include <string>

#include <persona/framework/archive.h>
#include <persona/framework/exceptions.h>

namespace persona {

namespace {

[[noreturn]] void ThrowListIndex(int i, int count) {
  throw CInvalidArgException("list position " + std::to_string(i) + " outside 0.." +
                             std::to_string(count - 1));
}

}  // namespace

template <class T>
void CValueArray<T>::ThrowIndex(int i) const {
  throw CInvalidArgException("array position " + std::to_string(i) + " outside 0.." +
                             std::to_string(GetSize() - 1));
}

template class CValueArray<CString>;
template class CValueArray<WORD>;

// ---- CObList --------------------------------------------------------------------------------

CObject* CObList::GetAt(int i) const {
  if (i < 0 || i >= GetCount()) ThrowListIndex(i, GetCount());
  return m_items[static_cast<std::size_t>(i)];
}

void CObList::SetAt(int i, CObject* p) {
  if (i < 0 || i >= GetCount()) ThrowListIndex(i, GetCount());
  m_items[static_cast<std::size_t>(i)] = p;
}

void CObList::RemoveAt(int i) {
  if (i < 0 || i >= GetCount()) ThrowListIndex(i, GetCount());
  m_items.erase(m_items.begin() + i);
}

void CObList::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    ar.WriteCount(m_items.size());
    for (CObject* p : m_items) ar.WriteObject(p);
    return;
  }
  const ULONGLONG n = ar.ReadCount();
  ar.CheckCount(n, 2, "object list");
  m_items.reserve(m_items.size() + static_cast<std::size_t>(n));
  for (ULONGLONG i = 0; i < n; ++i) m_items.push_back(ar.ReadSharedObject(m_elementClass));
}

// ---- COwnedObList ---------------------------------------------------------------------------

void COwnedObList::CheckIndex(int i, bool allowEnd) const {
  const int limit = allowEnd ? GetCount() + 1 : GetCount();
  if (i < 0 || i >= limit) ThrowListIndex(i, GetCount());
}

CObject* COwnedObList::GetAt(int i) const {
  CheckIndex(i, false);
  return m_items[static_cast<std::size_t>(i)].get();
}

void COwnedObList::InsertAt(int i, CObject* p) {
  CheckIndex(i, true);
  Note(p);
  m_items.emplace(m_items.begin() + i, p);
}

CObject* COwnedObList::Replace(int i, CObject* p) {
  CheckIndex(i, false);
  Note(p);
  CObject* old = m_items[static_cast<std::size_t>(i)].release();
  m_items[static_cast<std::size_t>(i)].reset(p);
  return old;
}

CObject* COwnedObList::Release(int i) {
  CheckIndex(i, false);
  CObject* old = m_items[static_cast<std::size_t>(i)].release();
  m_items.erase(m_items.begin() + i);
  return old;
}

void COwnedObList::DeleteAt(int i) {
  CheckIndex(i, false);
  m_items.erase(m_items.begin() + i);
}

void COwnedObList::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    ar.WriteCount(m_items.size());
    for (const auto& p : m_items) ar.WriteOwnedObject(p.get());
    return;
  }
  const ULONGLONG n = ar.ReadCount();
  ar.CheckCount(n, 2, "object list");
  m_items.reserve(m_items.size() + static_cast<std::size_t>(n));
  for (ULONGLONG i = 0; i < n; ++i) Add(ar.ReadOwnedObject(m_elementClass));
}

// ---- arrays ---------------------------------------------------------------------------------

void CStringArray::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    ar.WriteCount(m_items.size());
    for (const CString& s : m_items) ar << s;
    return;
  }
  const ULONGLONG n = ar.ReadCount();
  ar.CheckCount(n, 1, "string array");
  m_items.resize(static_cast<std::size_t>(n));
  for (CString& s : m_items) ar >> s;
}

void CWordArray::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    ar.WriteCount(m_items.size());
    for (WORD w : m_items) ar << w;
    return;
  }
  const ULONGLONG n = ar.ReadCount();
  ar.CheckCount(n, 2, "word array");
  m_items.resize(static_cast<std::size_t>(n));
  for (WORD& w : m_items) ar >> w;
}

}  // namespace persona
