// CPersonality set registry: the eleven set lists, found by type and by name ignoring case.
#include <string>

#include "core/personality.h"
#include "framework/exceptions.h"

namespace persona {

namespace {

// Index key of a set: its name upper-cased.
CString UpperName(const CString& name) {
  CString key = name;
  key.MakeUpper();
  return key;
}

CString SetKey(const CObject& set) { return UpperName(static_cast<const CSet&>(set).Name()); }

const char* const kSetClassNames[kNumSetTypes] = {
    "CTrunkSet",    "CConvSet",      "CGroupSet",   "CPhoneSet",    "CICallSet",      "CSpCallSet",
    "CPlmGroupSet", "CPlmSpCallSet", "CP25ConvSet", "CP25GroupSet", "CExtAddGroupSet"};

// Empties set element by element from the front, as a replaced set is emptied (one pass). A
// set whose DeleteAt does nothing (type byte 11 and above) keeps its elements for the set's own
// deletion.
void EmptyFromFront(CSet& set) { set.DeleteAllFromFront(); }

}  // namespace

const char* CPersonality::SetClassName(SetType type) {
  return IsValidSetType(type) ? kSetClassNames[type] : nullptr;
}

const CRuntimeClass* CPersonality::SetClassOf(SetType type) {
  if (!IsValidSetType(type)) return nullptr;
  const CRuntimeClass* cls = CRuntimeClass::FromName(kSetClassNames[type]);
  return cls != nullptr ? cls : RUNTIME_CLASS(CSet);
}

int CPersonality::FirstSetMatch(const CString& name, SetType type) const {
  if (!IsValidSetType(type)) return -1;
  return m_setIndex[type].Find(m_sets[type], UpperName(name), CSet::NameEpoch(), &SetKey);
}

void CPersonality::AddSet(CSet* set, SetType type) {
  if (set == nullptr || !IsValidSetType(type)) return;
  m_sets[type].Add(set);
  m_setIndex[type].NoteAppended(m_sets[type], CSet::NameEpoch(), &SetKey);
}

void CPersonality::PutSet(CSet* set, SetType type) {
  if (set == nullptr || !IsValidSetType(type)) return;
  const int k = FirstSetMatch(set->Name(), type);
  if (k < 0) {
    AddSet(set, type);
    return;
  }
  CSet* old = static_cast<CSet*>(m_sets[type].GetAt(k));
  if (old == set) return;
  EmptyFromFront(*old);
  // The new set has the same key as the old one: the index stays as it is.
  std::unique_ptr<CObject> released(m_sets[type].Replace(k, set));
}

CSet* CPersonality::PutSetAt(int i, CSet* set, SetType type) {
  if (set == nullptr || !IsValidSetType(type) || m_sets[type].IsEmpty()) return nullptr;
  if (m_sets[type].GetAt(i) == set) return nullptr;  // GetAt raises for an invalid i
  CSet* old = static_cast<CSet*>(m_sets[type].Replace(i, set));
  m_setIndex[type].Invalidate();
  return old;
}

void CPersonality::ReplaceSet(const CString& name, SetType type, CSet* set) {
  if (set == nullptr || !IsValidSetType(type)) return;
  const int k = FirstSetMatch(name, type);
  if (k < 0) {
    AddSet(set, type);
    return;
  }
  if (m_sets[type].GetAt(k) == set) return;
  std::unique_ptr<CObject> old(m_sets[type].Replace(k, set));
  static_cast<CSet*>(old.get())->CSet::Delete();
  if (UpperName(set->Name()) != UpperName(name)) m_setIndex[type].Invalidate();
}

CSet* CPersonality::GetSet(const CString& name, SetType type) const {
  if (name.IsEmpty()) return nullptr;
  const int k = FirstSetMatch(name, type);
  return k < 0 ? nullptr : static_cast<CSet*>(m_sets[type].GetAt(k));
}

CSet* CPersonality::GetSetAt(int i, SetType type) const {
  if (!IsValidSetType(type) || i < 0 || i >= m_sets[type].GetCount()) return nullptr;
  return static_cast<CSet*>(m_sets[type].GetAt(i));
}

int CPersonality::FindSetIndex(const CString& name, SetType type) const {
  return name.IsEmpty() ? -1 : FirstSetMatch(name, type);
}

int CPersonality::FindSetNum(const CString& name, SetType type) const {
  return FirstSetMatch(name, type) + 1;
}

int CPersonality::GetSetScope(const CString& name, SetType type) const {
  const CSet* set = GetSet(name, type);
  return set == nullptr ? -1 : set->GetScope();
}

void CPersonality::DeleteSetAt(int i, SetType type) {
  if (!IsValidSetType(type)) return;
  if (i < 0) throw CInvalidArgException("set position " + std::to_string(i));
  if (i >= m_sets[type].GetCount()) return;
  std::unique_ptr<CObject> old(m_sets[type].Release(i));
  m_setIndex[type].Invalidate();
  static_cast<CSet*>(old.get())->CSet::Delete();
}

WORD CPersonality::GetNumSets(SetType type) const {
  return IsValidSetType(type) ? static_cast<WORD>(m_sets[type].GetCount()) : 0;
}

WORD CPersonality::GetNumElements(SetType type) const {
  if (!IsValidSetType(type)) return 0;
  WORD total = 0;
  for (const CObject* set : m_sets[type]) {
    total = static_cast<WORD>(total + static_cast<const CSet*>(set)->GetSize());
  }
  return total;
}

void CPersonality::GetSetNames(SetType type, CStringArray& names) const {
  names.RemoveAll();
  if (!IsValidSetType(type)) return;
  names.Reserve(static_cast<std::size_t>(m_sets[type].GetCount()));
  for (const CObject* set : m_sets[type]) names.Add(static_cast<const CSet*>(set)->GetName());
}

}  // namespace persona
