// CPersonality system list: systems by position, by kind and by name, and the name lists that
// the application shows for a system.
#include <string>

#include <persona/framework/exceptions.h>
#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>

namespace persona {

namespace {

// The system list may hold a record of another class (a file may put any registered record
// there): it is no system, has no name and is never found.
const CSystem* AsSystem(const CObject* record) { return dynamic_cast<const CSystem*>(record); }

bool ExactKey(const CObject& record, CString* key) {
  const CSystem* system = AsSystem(&record);
  if (system != nullptr) *key = system->Name();
  return system != nullptr;
}

bool TrimmedKey(const CObject& record, CString* key) {
  if (!ExactKey(record, key)) return false;
  key->TrimRight();
  return true;
}

// Appends the "Name" of every element of set that has one.
void AppendElementNames(const CSet* set, CStringArray& names) {
  if (set == nullptr) return;
  for (CObject* element : set->Elements()) {
    if (element == nullptr) continue;
    if (const CString* name = FindNameField(*element)) names.Add(*name);
  }
}

}  // namespace

void CPersonality::AddSystem(CSystem* system) {
  if (system == nullptr) return;
  m_systems.Add(system);
  m_systemIndex.NoteAppended(m_systems, CSystem::NameEpoch(), &ExactKey);
  m_systemTrimmedIndex.NoteAppended(m_systems, CSystem::NameEpoch(), &TrimmedKey);
}

bool CPersonality::InsertSystemAt(int i, CSystem* system) {
  if (system == nullptr || i >= m_systems.GetCount()) return false;
  m_systems.InsertAt(i < 0 ? 0 : i, system);
  m_systemIndex.Invalidate();
  m_systemTrimmedIndex.Invalidate();
  return true;
}

void CPersonality::DeleteSystemAt(int i) {
  if (i < 0) throw CInvalidArgException("system position " + std::to_string(i));
  if (i >= m_systems.GetCount()) return;
  m_systems.DeleteAt(i);
  m_systemIndex.Invalidate();
  m_systemTrimmedIndex.Invalidate();
}

CObject* CPersonality::GetSystemRecordAt(int i) const {
  return i < 0 || i >= m_systems.GetCount() ? nullptr : m_systems.GetAt(i);
}

CSystem* CPersonality::GetSystemAt(int i) const {
  return dynamic_cast<CSystem*>(GetSystemRecordAt(i));
}

CSystem* CPersonality::GetSystemAt(int i, SystemType type) const {
  if (i < 0) return nullptr;
  for (CObject* record : m_systems) {
    auto* system = dynamic_cast<CSystem*>(record);
    if (system != nullptr && system->GetSysType() == type && i-- == 0) return system;
  }
  return nullptr;
}

WORD CPersonality::GetNumSystems(SystemType type) const {
  WORD count = 0;
  for (const CObject* record : m_systems) {
    const CSystem* system = AsSystem(record);
    if (system != nullptr && system->GetSysType() == type) ++count;
  }
  return count;
}

CSystem* CPersonality::GetSystem(const CString& name) const {
  const int k = m_systemIndex.Find(m_systems, name, CSystem::NameEpoch(), &ExactKey);
  return k < 0 ? nullptr : dynamic_cast<CSystem*>(m_systems.GetAt(k));
}

int CPersonality::FindSystemIndex(const CString& name) const {
  CString key = name;
  key.TrimRight();
  return m_systemTrimmedIndex.Find(m_systems, key, CSystem::NameEpoch(), &TrimmedKey);
}

void CPersonality::GetSystemNames(CStringArray& names) const {
  names.RemoveAll();
  names.Reserve(static_cast<std::size_t>(m_systems.GetCount()));
  for (const CObject* record : m_systems) {
    const CSystem* system = AsSystem(record);
    names.Add(system != nullptr ? system->GetName() : CString());
  }
}

void CPersonality::GetSystemGroupNames(const CString& systemName, CStringArray& names) const {
  names.RemoveAll();
  const CSystem* system = GetSystem(systemName);
  if (system == nullptr) return;
  if (dynamic_cast<const CExtAddSystem*>(system) != nullptr) {
    AppendElementNames(
        GetSet(static_cast<const CTrunkSystem*>(system)->GetGroupSetName(), EaGroupSetType), names);
  } else if (dynamic_cast<const CP25TrkSystem*>(system) != nullptr) {
    AppendElementNames(
        GetSet(static_cast<const CTrunkSystem*>(system)->GetGroupSetName(), P25GroupSetType),
        names);
  } else if (const auto* trunked = dynamic_cast<const CTrunkSystem*>(system)) {
    AppendElementNames(GetSet(trunked->GetGroupSetName(), GroupSetType), names);
  } else if (const auto* plm = dynamic_cast<const CPlmSystem*>(system)) {
    AppendElementNames(GetSet(plm->GetGroupSetName(), PlmGroupSetType), names);
  }
}

void CPersonality::GetSystemChannelNames(const CString& systemName, CStringArray& names) const {
  names.RemoveAll();
  const CSystem* system = GetSystem(systemName);
  if (const auto* conv = dynamic_cast<const CConvSystem*>(system)) {
    AppendElementNames(GetSet(conv->GetConvSetName(), ConvSetType), names);
  } else if (const auto* p25 = dynamic_cast<const CP25ConvSystem*>(system)) {
    AppendElementNames(GetSet(p25->GetP25ConvSetName(), P25ConvSetType), names);
  }
}

}  // namespace persona
