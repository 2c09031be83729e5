// Pruning of a personality for its radio model: system kinds the model cannot use, and sets
// that no system names. Every step is one pass over the systems and one over the list pruned.
#include <algorithm>
#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include <persona/conventional/p25_conv_set.h>
#include <persona/integrity/references.h>
#include <persona/integrity/set_use.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/personality/personality.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

// Keeps the records of list for which keep(record) holds, in order, deleting the others in
// one pass; returns how many were deleted.
template <class Keep>
int Filter(COwnedObList& list, Keep keep) {
  const int n = list.GetCount();
  std::vector<bool> kept(static_cast<std::size_t>(n));
  int removed = 0;
  for (int i = 0; i < n; ++i) {
    kept[static_cast<std::size_t>(i)] = keep(list.GetAt(i));
    if (!kept[static_cast<std::size_t>(i)]) ++removed;
  }
  if (removed == 0) return 0;
  std::vector<std::unique_ptr<CObject>> records(static_cast<std::size_t>(n));
  for (int i = n - 1; i >= 0; --i) records[static_cast<std::size_t>(i)].reset(list.Release(i));
  list.Reserve(static_cast<std::size_t>(n - removed));
  for (int i = 0; i < n; ++i) {
    if (kept[static_cast<std::size_t>(i)])
      list.Add(std::move(records[static_cast<std::size_t>(i)]));
  }
  return removed;  // the others are deleted with records
}

}  // namespace

bool CPersonality::RemoveUnusedSystemsAndSets() {
  const WORD r = m_LastRadio;
  // The kinds go together: clearing the references to them walks the whole personality.
  std::vector<int> kinds;
  for (const int kind : {PlmSystemType, TrunkedSystemType, P25TrkSystemType, P25ConvSystemType,
                         EaSystemType, ConvSystemType}) {
    if (!RadioTypeSupportsSystemKind(r, kind)) kinds.push_back(kind);
  }
  RemoveSystemsOfKinds(kinds);
  if (!RadioTypeSupportsSystemKind(r, P25TrkSystemType)) DeleteOption(RUNTIME_CLASS(CP25tWanOpts));
  if (!RadioTypeSupportsSystemKind(r, ConvSystemType)) {
    RemoveAllConventionalSets();
  } else {
    RemoveUnusedConvSets();
  }
  RemoveUnusedTrunkedSets();
  RemoveUnusedP25ConvSets();
  RemoveUnusedGroupSets();
  RemoveUnusedEaGroupSets();
  RemoveUnusedP25GroupSets();
  RemoveUnusedPhoneSets();
  RemoveUnusedIcallSets();
  RemoveUnusedSpcallSets();
  RemoveUnusedPlmGroupSets();
  RemoveUnusedPlmSpcallSets();
  return true;
}

int CPersonality::RemoveSystems(int systemType) { return RemoveSystemsOfKinds({systemType}); }

int CPersonality::RemoveSystemsOfKinds(const std::vector<int>& systemTypes) {
  const auto doomedKind = [&systemTypes](const CObject* record) {
    const auto* system = dynamic_cast<const CSystem*>(record);
    return system != nullptr && std::find(systemTypes.begin(), systemTypes.end(),
                                          system->GetSysType()) != systemTypes.end();
  };
  std::vector<const CSystem*> doomed;
  for (const CObject* record : m_systems) {
    if (doomedKind(record)) doomed.push_back(static_cast<const CSystem*>(record));
  }
  if (doomed.empty()) return 0;
  ClearReferencesToSystems(*this, doomed);
  // Records of the list that are not systems stay, as do the systems of other kinds.
  const int removed =
      Filter(m_systems, [&doomedKind](const CObject* record) { return !doomedKind(record); });
  InvalidateIndexes();
  return removed;
}

int CPersonality::RemoveUnusedSets(SetType type) {
  std::unordered_set<std::string> used;
  CString name;
  for (const CObject* record : m_systems) {
    const auto* system = dynamic_cast<const CSystem*>(record);
    if (system != nullptr && SystemSetNameFor(*system, type, &name)) used.insert(name.UpperText());
  }
  if (type == ConvSetType) {
    if (const auto* general = GetOption<CGenRadioOpts>())
      used.insert(general->GetCnvTestSet().UpperText());
  }
  if (type == P25GroupSetType) {
    for (const CObject* record : m_sets[P25ConvSetType]) {
      if (const auto* conv = dynamic_cast<const CP25ConvSet*>(record)) {
        used.insert(conv->GetP25GroupSet().UpperText());
      }
    }
  }
  // A record that is not a set cannot be named by a system: it is unused like any unnamed set.
  const int removed = Filter(m_sets[type], [&used](const CObject* record) {
    const auto* set = dynamic_cast<const CSet*>(record);
    return set != nullptr && used.count(set->Name().UpperText()) != 0;
  });
  if (removed != 0) InvalidateIndexes();
  return removed;
}

int CPersonality::RemoveUnusedConvSets() { return RemoveUnusedSets(ConvSetType); }
int CPersonality::RemoveUnusedTrunkedSets() { return RemoveUnusedSets(TrunkSetType); }
int CPersonality::RemoveUnusedP25ConvSets() { return RemoveUnusedSets(P25ConvSetType); }
int CPersonality::RemoveUnusedGroupSets() { return RemoveUnusedSets(GroupSetType); }
int CPersonality::RemoveUnusedEaGroupSets() { return RemoveUnusedSets(EaGroupSetType); }
int CPersonality::RemoveUnusedP25GroupSets() { return RemoveUnusedSets(P25GroupSetType); }
int CPersonality::RemoveUnusedPhoneSets() { return RemoveUnusedSets(PhoneSetType); }
int CPersonality::RemoveUnusedIcallSets() { return RemoveUnusedSets(ICallSetType); }
int CPersonality::RemoveUnusedSpcallSets() { return RemoveUnusedSets(SpCallSetType); }
int CPersonality::RemoveUnusedPlmGroupSets() { return RemoveUnusedSets(PlmGroupSetType); }
int CPersonality::RemoveUnusedPlmSpcallSets() { return RemoveUnusedSets(PlmSpCallSetType); }

int CPersonality::RemoveAllConventionalSets() {
  const int count = m_sets[ConvSetType].GetCount();
  EmptySetList(ConvSetType);
  InvalidateIndexes();
  return count;
}

int CPersonality::checkForSystemReferencesToSet(const CString& name, SetType type) {
  if (name.IsEmpty() || !IsValidSetType(type)) return 0;
  const std::string wanted = name.UpperText();
  CString field;
  for (const CObject* record : m_systems) {
    const auto* system = dynamic_cast<const CSystem*>(record);
    if (system != nullptr && SystemSetNameFor(*system, type, &field) &&
        field.UpperText() == wanted) {
      return 1;
    }
  }
  return 0;
}

}  // namespace persona
