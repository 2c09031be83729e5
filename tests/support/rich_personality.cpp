// The personality with something of everything, built from the class registry.
#include "support/rich_personality.h"

#include <algorithm>
#include <string>
#include <vector>

#include <persona/systems/esk_data.h>
#include <persona/systems/group_set.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_set.h>
#include "support/record_testing.h"

namespace persona::test {

namespace {

// Points the key list of a trunk or group set at keys (shared, not owned).
void UseKeys(CSet& set, const std::vector<CEskData*>& keys) {
  CSetKeyList* list = nullptr;
  if (auto* trunk = dynamic_cast<CTrunkSet*>(&set)) list = trunk;
  if (auto* group = dynamic_cast<CGroupSet*>(&set)) list = group;
  if (list == nullptr) return;
  for (CEskData* key : keys) list->AddEsk(key);
}

// The registered classes, sorted by name so that the result does not depend on the registry.
std::vector<const CRuntimeClass*> Registered() {
  std::vector<const CRuntimeClass*> out = CRuntimeClass::RegisteredClasses();
  std::sort(out.begin(), out.end(), [](const CRuntimeClass* a, const CRuntimeClass* b) {
    return std::string(a->m_lpszClassName) < b->m_lpszClassName;
  });
  return out;
}

// Every registered class that is a CSerial record of its own: not the personality, a set, a
// system, a set element or a key.
bool IsOptionRecord(const CRuntimeClass* cls) {
  if (!cls->IsDerivedFrom(RUNTIME_CLASS(CSerial)) || cls->m_pfnCreateObject == nullptr)
    return false;
  if (cls == RUNTIME_CLASS(CPersonality) || cls->IsDerivedFrom(RUNTIME_CLASS(CSet))) return false;
  if (CSet::IsCopiedElementClass(cls->m_lpszClassName)) return false;
  return !cls->IsDerivedFrom(RUNTIME_CLASS(CSystem)) && cls != RUNTIME_CLASS(CEskData);
}

}  // namespace

std::unique_ptr<CSet> FilledSet(SetType t, const char* name, int n, int seed) {
  std::unique_ptr<CSet> set(static_cast<CSet*>(CPersonality::SetClassOf(t)->CreateObject()));
  for (int i = 0; i < n; ++i) {
    CObject* element = CRuntimeClass::FromName(CPersonality::ElementClassName(t))->CreateObject();
    FillFields(*element, seed + i);
    set->Add(element);
  }
  set->SetName(name);
  set->SetScope(static_cast<BYTE>(seed % 2));
  return set;
}

std::unique_ptr<CPersonality> RichPersonality(int seed, bool options) {
  auto p = std::make_unique<CPersonality>(68, 0);
  FillFields(*p, seed);
  p->SetVersion(20);
  std::vector<std::unique_ptr<CObject>> keys;
  std::vector<CEskData*> keyPointers;
  for (int i = 0; i < 2; ++i) {
    auto key = std::make_unique<CEskData>();
    FillFields(*key, seed + 10 + i);
    keyPointers.push_back(key.get());
    keys.push_back(std::move(key));
  }
  for (const CRuntimeClass* cls : Registered()) {
    if (!cls->IsDerivedFrom(RUNTIME_CLASS(CSystem)) || cls->m_pfnCreateObject == nullptr) continue;
    std::unique_ptr<CObject> obj(cls->CreateObject());
    auto* system = static_cast<CSystem*>(obj.get());
    const BYTE type = system->GetSysType();
    FillFields(*system, seed + 20);
    system->SetSysType(static_cast<SystemType>(type));
    p->AddSystem(static_cast<CSystem*>(obj.release()));
  }
  for (int t = 0; t < kNumSetTypes; ++t) {
    std::unique_ptr<CSet> set =
        FilledSet(static_cast<SetType>(t), CString::Formatted("S%d", t).c_str(), 2, seed + t);
    UseKeys(*set, keyPointers);
    p->AddSet(set.release(), static_cast<SetType>(t));
  }
  p->AdoptSharedRecords(std::move(keys));
  if (options) {
    for (const CRuntimeClass* cls : Registered()) {
      if (!IsOptionRecord(cls)) continue;
      CObject* option = cls->CreateObject();
      FillFields(*option, seed + 30);
      p->PutOption(option);
    }
  }
  return p;
}

}  // namespace persona::test
