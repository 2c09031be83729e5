// CPersonality set registry: the eleven set lists, found by type and by name ignoring case.
#include <cstring>
#include <memory>
#include <string>

#include <persona/framework/exceptions.h>
#include <persona/personality/personality.h>

namespace persona {

namespace {

// Index key of a set: its name upper-cased.
CString UpperName(const CString& name) {
  CString key = name;
  key.MakeUpper();
  return key;
}

// A list may hold a record that is not a set (a file may put any registered record there): it
// has no key and is never found by name.
bool SetKey(const CObject& record, CString* key) {
  const auto* set = dynamic_cast<const CSet*>(&record);
  if (set != nullptr) *key = UpperName(set->Name());
  return set != nullptr;
}

// Empties record with CSet::Delete when it is a set (the caller deletes it).
void EmptyIfSet(CObject* record) {
  if (auto* set = dynamic_cast<CSet*>(record)) set->CSet::Delete();
}

const char* const kSetClassNames[kNumSetTypes] = {
    "CTrunkSet",    "CConvSet",      "CGroupSet",   "CPhoneSet",    "CICallSet",      "CSpCallSet",
    "CPlmGroupSet", "CPlmSpCallSet", "CP25ConvSet", "CP25GroupSet", "CExtAddGroupSet"};

const char* const kElementClassNames[kNumSetTypes] = {
    "CTrunkChannel", "CConvChannel", "CGroup",          "CPhoneCall", "CICall",      "CSpCall",
    "CPlmGroup",     "CPlmSpCall",   "CP25ConvChannel", "CP25Group",  "CExtAddGroup"};

// Empties set element by element from the front, as a replaced set is emptied (one pass). A
// set whose DeleteAt does nothing (type byte 11 and above) keeps its elements for the set's own
// deletion.
void EmptyFromFront(CSet& set) { set.DeleteAllFromFront(); }

}  // namespace

const char* CPersonality::SetClassName(SetType type) {
  return IsValidSetType(type) ? kSetClassNames[type] : nullptr;
}

const char* CPersonality::ElementClassName(SetType type) {
  return IsValidSetType(type) ? kElementClassNames[type] : nullptr;
}

const CRuntimeClass* CPersonality::ElementClassOf(const CSet& set) {
  for (int t = 0; t < kNumSetTypes; ++t) {
    if (std::strcmp(kSetClassNames[t], set.GetClassName()) == 0) {
      return CRuntimeClass::FromName(kElementClassNames[t]);
    }
  }
  return nullptr;
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
  auto* old = dynamic_cast<CSet*>(m_sets[type].GetAt(k));  // found by name: a set
  if (old == set) return;
  if (old != nullptr) EmptyFromFront(*old);
  // The new set has the same key as the old one: the index stays as it is.
  std::unique_ptr<CObject> released(m_sets[type].Replace(k, set));
}

CSet* CPersonality::PutSetAt(int i, CSet* set, SetType type) {
  if (set == nullptr || !IsValidSetType(type) || m_sets[type].IsEmpty()) return nullptr;
  if (m_sets[type].GetAt(i) == set) return nullptr;  // GetAt raises for an invalid i
  std::unique_ptr<CObject> old(m_sets[type].Replace(i, set));
  m_setIndex[type].Invalidate();
  auto* oldSet = dynamic_cast<CSet*>(old.get());
  if (oldSet != nullptr)
    old.release();  // handed to the caller; a record of another class dies here
  return oldSet;
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
  EmptyIfSet(old.get());
  if (UpperName(set->Name()) != UpperName(name)) m_setIndex[type].Invalidate();
}

CSet* CPersonality::GetSet(const CString& name, SetType type) const {
  if (name.IsEmpty()) return nullptr;
  const int k = FirstSetMatch(name, type);
  return k < 0 ? nullptr : dynamic_cast<CSet*>(m_sets[type].GetAt(k));
}

CObject* CPersonality::GetSetRecordAt(int i, SetType type) const {
  if (!IsValidSetType(type) || i < 0 || i >= m_sets[type].GetCount()) return nullptr;
  return m_sets[type].GetAt(i);
}

CSet* CPersonality::GetSetAt(int i, SetType type) const {
  return dynamic_cast<CSet*>(GetSetRecordAt(i, type));
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
  EmptyIfSet(old.get());
}

WORD CPersonality::GetNumSets(SetType type) const {
  return IsValidSetType(type) ? static_cast<WORD>(m_sets[type].GetCount()) : 0;
}

WORD CPersonality::GetNumElements(SetType type) const {
  if (!IsValidSetType(type)) return 0;
  WORD total = 0;
  for (const CObject* record : m_sets[type]) {
    if (const auto* set = dynamic_cast<const CSet*>(record)) {
      total = static_cast<WORD>(total + set->GetSize());
    }
  }
  return total;
}

void CPersonality::GetSetNames(SetType type, CStringArray& names) const {
  names.RemoveAll();
  if (!IsValidSetType(type)) return;
  names.Reserve(static_cast<std::size_t>(m_sets[type].GetCount()));
  for (const CObject* record : m_sets[type]) {
    const auto* set = dynamic_cast<const CSet*>(record);
    names.Add(set != nullptr ? set->GetName() : CString());
  }
}

}  // namespace persona
