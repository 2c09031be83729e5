// CPersonality security key index: the keys of the systems as CEskData lists, and the tests of
// systems and sets against such a list.
#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/trunk_system.h>

namespace persona {

namespace {

bool IsTrunkedKind(BYTE type) { return type == TrunkedSystemType || type == EaSystemType; }

// The trunk set name of a trunked system of type 0 or 4, or null for any other system.
const CString* TrunkSetNameOf(const CSystem& system, CString& buffer) {
  const auto* trunked = dynamic_cast<const CTrunkSystem*>(&system);
  if (trunked == nullptr || !IsTrunkedKind(system.GetSysType())) return nullptr;
  buffer = trunked->GetTrunkSetName();
  return &buffer;
}

// The group set name of a trunked system of type 0, 4 or 5, or null.
const CString* GroupSetNameOf(const CSystem& system, CString& buffer) {
  const auto* trunked = dynamic_cast<const CTrunkSystem*>(&system);
  const BYTE type = system.GetSysType();
  if (trunked == nullptr || !(IsTrunkedKind(type) || type == P25TrkSystemType)) return nullptr;
  buffer = trunked->GetGroupSetName();
  return &buffer;
}

// The channel set name of a conventional (type 1) or P25 conventional (type 3) system, or null.
const CString* ConvSetNameOf(const CSystem& system, CString& buffer) {
  const BYTE type = system.GetSysType();
  if (type == ConvSystemType) {
    if (const auto* conv = dynamic_cast<const CConvSystem*>(&system)) {
      buffer = conv->GetConvSetName();
      return &buffer;
    }
  } else if (type == P25ConvSystemType) {
    if (const auto* p25 = dynamic_cast<const CP25ConvSystem*>(&system)) {
      buffer = p25->GetP25ConvSetName();
      return &buffer;
    }
  }
  return nullptr;
}

using SetNameOf = const CString* (*)(const CSystem&, CString&);

}  // namespace

std::vector<std::unique_ptr<CEskData>> CPersonality::MakeEskList() const {
  std::vector<std::unique_ptr<CEskData>> keys;
  if (!IsKeyedRadioType(m_LastRadio)) return keys;
  for (const CObject* record : m_systems) {
    const auto* system = dynamic_cast<const CSystem*>(record);
    if (system == nullptr) continue;  // a record of another class in the list
    const WORD esk = system->GetESK();
    if (!IsTrunkedKind(system->GetSysType()) || esk == 0) continue;
    auto key = std::make_unique<CEskData>();
    key->SetEsk(esk);
    key->SetEskId(system->GetEskName());
    keys.push_back(std::move(key));
  }
  return keys;
}

void CPersonality::GetEskList(CObList& list) const {
  list.RemoveAll();
  for (std::unique_ptr<CEskData>& key : MakeEskList()) list.AddTail(key.release());
}

void CPersonality::GetSharedEskList(CObList& list) {
  list.RemoveAll();
  for (std::unique_ptr<CEskData>& key : MakeEskList()) {
    list.AddTail(key.get());
    m_sharedRecords.emplace_back(std::move(key));
  }
}

int CPersonality::matchEsk(LONG esk, const CString& eskId, const CObList& list) {
  int position = 0;
  for (const CObject* record : list) {
    const auto* key = dynamic_cast<const CEskData*>(record);
    if (key != nullptr && key->GetEsk() == esk && key->GetEskId() == eskId) return position;
    ++position;
  }
  return -1;
}

bool CPersonality::IsEskPresentInSystem(const CSystem* system, const CObList& list) const {
  if (system == nullptr) return true;
  const WORD esk = system->GetESK();
  return esk == 0 || matchEsk(esk, system->GetEskName(), list) != -1;
}

bool CPersonality::IsEskPresentInSystem(const CTrunkSystem* system, const CObList& list) const {
  return IsEskPresentInSystem(static_cast<const CSystem*>(system), list);
}

bool CPersonality::IsEskPresentInSystem(const CExtAddSystem* system, const CObList& list) const {
  return IsEskPresentInSystem(static_cast<const CSystem*>(system), list);
}

namespace {

// False when a system that uses the set (as setNameOf reads it) has a key missing from list.
bool KeysOfUsersPresent(const CPersonality& personality, const COwnedObList& systems,
                        const CSet* set, const CObList& list, SetNameOf setNameOf) {
  if (set == nullptr) return true;
  CString buffer;
  for (const CObject* record : systems) {
    const auto* system = dynamic_cast<const CSystem*>(record);
    if (system == nullptr) continue;
    const CString* used = setNameOf(*system, buffer);
    if (used != nullptr && *used == set->Name() &&
        !personality.IsEskPresentInSystem(system, list)) {
      return false;
    }
  }
  return true;
}

}  // namespace

bool CPersonality::IsEskPresentInTrkSet(const CSet* set, const CObList& list) const {
  return KeysOfUsersPresent(*this, m_systems, set, list, &TrunkSetNameOf);
}

bool CPersonality::IsEskPresentInGrpSet(const CSet* set, const CObList& list) const {
  return KeysOfUsersPresent(*this, m_systems, set, list, &GroupSetNameOf);
}

bool CPersonality::IsEskPresentInConvSet(const CSet* set, const CObList& list) const {
  return KeysOfUsersPresent(*this, m_systems, set, list, &ConvSetNameOf);
}

void CPersonality::GetSecurityKeys(CStringArray& names, CWordArray& numbers) const {
  names.RemoveAll();
  numbers.RemoveAll();
  for (const CObject* record : m_systems) {
    const auto* system = dynamic_cast<const CSystem*>(record);
    if (system == nullptr || !IsTrunkedKind(system->GetSysType())) continue;
    CString name = system->GetEskName();
    if (name.IsEmpty()) continue;
    names.Add(name);
    numbers.Add(system->GetESK());
  }
}

}  // namespace persona
