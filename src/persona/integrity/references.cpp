// Rename and delete propagation over the name references of a personality.
#include <persona/integrity/references.h>

#include <algorithm>
#include <functional>
#include <string>
#include <unordered_set>
#include <utility>

#include <persona/integrity/name_refs.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

// Writes name into every hit, or empties them (removing list entries) when name is null.
int Apply(std::vector<const NameRef*>& hits, const CString* name) {
  if (name != nullptr) {
    for (const NameRef* ref : hits) ref->Set(*name);
    return static_cast<int>(hits.size());
  }
  // Remove list entries from the back of each list so that positions stay valid.
  std::sort(hits.begin(), hits.end(), [](const NameRef* a, const NameRef* b) {
    return a->list != b->list ? a->list < b->list : a->index > b->index;
  });
  for (const NameRef* ref : hits) {
    if (ref->list != nullptr) {
      ref->list->RemoveAt(ref->index);
    } else {
      ref->value->Empty();
    }
  }
  return static_cast<int>(hits.size());
}

bool IsElementRef(const NameRef& ref) {
  return ref.kind == RefKind::Channel || ref.kind == RefKind::Group;
}

// The references of p that keep finds could be hits, seen before they are resolved: a change
// looks for the few references to one record and need not keep (nor resolve) the others. No
// paths: nothing shows them.
std::vector<NameRef> Candidates(CPersonality& p, std::function<bool(const NameRef&)> keep) {
  NameRefQuery query;
  query.paths = false;
  query.keep = std::move(keep);
  return CollectNameRefs(p, query);
}

// True when a reference named name could resolve to a record named target. Systems are looked
// up by exact name, sets ignoring case: a match ignoring case lets every such reference by.
bool CouldName(const CString& name, const CString& target) {
  return name.CompareNoCase(target) == 0;
}

// The names of a group of records, for CouldName against any of them (upper case keys).
class NameGroup {
 public:
  void Add(const CString& name) { m_upper.insert(name.UpperText()); }
  bool CouldName(const CString& name) const { return m_upper.count(name.UpperText()) != 0; }

 private:
  std::unordered_set<std::string> m_upper;
};

int SystemIndex(const CPersonality& p, const CSystem* system) {
  for (int i = 0; i < p.GetNumSystems(); ++i) {
    if (p.GetSystemAt(i) == system) return i;
  }
  return -1;
}

int SetIndex(const CPersonality& p, SetType type, const CSet* set) {
  for (int i = 0; i < p.GetNumSets(type); ++i) {
    if (p.GetSetAt(i, type) == set) return i;
  }
  return -1;
}

bool HoldsElements(SetType type, RefKind kind) {
  if (kind == RefKind::Channel) return type == ConvSetType || type == P25ConvSetType;
  return type == GroupSetType || type == PlmGroupSetType || type == P25GroupSetType ||
         type == EaGroupSetType;
}

// Position of the element of set's own element class named name (exact) in set, or -1.
// Records of other classes in the set are passed by.
int ElementIndex(const CSet& set, const CString& name) {
  int i = 0;
  for (CObject* element : set.Elements()) {
    if (element != nullptr && IsElementOfSet(*element, set)) {
      const CString* n = FindNameField(*element);
      if (n != nullptr && *n == name) return i;
    }
    ++i;
  }
  return -1;
}

// Renames (newName non-null) or deletes an element of a set, carrying the change along.
int ChangeElement(CPersonality& p, SetType type, RefKind kind, const CString& setName,
                  const CString& oldName, const CString* newName) {
  if (!IsValidSetType(type) || !HoldsElements(type, kind) || oldName.IsEmpty()) return -1;
  CSet* set = p.GetSet(setName, type);
  if (set == nullptr) return -1;
  const int index = ElementIndex(*set, oldName);
  if (index < 0) return -1;
  if (newName != nullptr) {
    if (newName->IsEmpty()) return -1;
    if (*newName == oldName) return 0;
    if (ElementIndex(*set, *newName) >= 0) return -1;
  }
  const std::vector<NameRef> refs =
      Candidates(p, [&](const NameRef& ref) { return ref.kind == kind && ref.Name() == oldName; });
  std::vector<const NameRef*> hits;
  for (const NameRef& ref : refs) {
    if (ref.kind == kind && ref.set == set && ref.Name() == oldName) hits.push_back(&ref);
  }
  const int changed = Apply(hits, newName);
  if (newName != nullptr) {
    *FindNameField(*set->GetAt(index)) = *newName;
  } else {
    set->DeleteAt(index);
  }
  return changed;
}

}  // namespace

int RenameSystem(CPersonality& p, const CString& oldName, const CString& newName) {
  CSystem* system = p.GetSystem(oldName);
  if (system == nullptr || newName.IsEmpty()) return -1;
  if (newName == oldName) return 0;
  if (p.GetSystem(newName) != nullptr) return -1;
  const std::vector<NameRef> refs = Candidates(p, [&](const NameRef& ref) {
    return ref.kind == RefKind::System && CouldName(ref.Name(), oldName);
  });
  std::vector<const NameRef*> hits;
  for (const NameRef& ref : refs) {
    if (ref.kind == RefKind::System && ref.system == system) hits.push_back(&ref);
  }
  const int changed = Apply(hits, &newName);
  system->SetName(newName);
  return changed;
}

int ClearReferencesToSystems(CPersonality& p, const std::vector<const CSystem*>& systems) {
  if (systems.empty()) return 0;
  const std::unordered_set<const CObject*> gone(systems.begin(), systems.end());
  NameGroup names;
  for (const CSystem* system : systems) names.Add(system->GetName());
  const std::vector<NameRef> refs = Candidates(p, [&](const NameRef& ref) {
    if (ref.kind == RefKind::System) return names.CouldName(ref.Name());
    return IsElementRef(ref) && ref.scoped && names.CouldName(ref.scopeName);
  });
  std::vector<const NameRef*> hits;
  for (const NameRef& ref : refs) {
    if (gone.count(ref.record) != 0) continue;  // goes with its system
    if ((ref.kind == RefKind::System && gone.count(ref.system) != 0) ||
        (IsElementRef(ref) && ref.scoped && gone.count(ref.scopeSystem) != 0 &&
         !ref.Name().IsEmpty())) {
      hits.push_back(&ref);
    }
  }
  return Apply(hits, nullptr);
}

int DeleteSystem(CPersonality& p, const CString& name) {
  CSystem* system = p.GetSystem(name);
  if (system == nullptr) return -1;
  const int changed = ClearReferencesToSystems(p, {system});
  p.DeleteSystemAt(SystemIndex(p, system));
  return changed;
}

int RenameSet(CPersonality& p, SetType type, const CString& oldName, const CString& newName) {
  if (!IsValidSetType(type) || newName.IsEmpty()) return -1;
  CSet* set = p.GetSet(oldName, type);
  if (set == nullptr) return -1;
  const CSet* taken = p.GetSet(newName, type);
  if (taken != nullptr && taken != set) return -1;
  if (newName == set->Name()) return 0;
  const std::vector<NameRef> refs = Candidates(p, [&](const NameRef& ref) {
    return ref.kind == RefKind::Set && CouldName(ref.Name(), set->Name());
  });
  std::vector<const NameRef*> hits;
  for (const NameRef& ref : refs) {
    if (ref.kind == RefKind::Set && ref.set == set) hits.push_back(&ref);
  }
  const int changed = Apply(hits, &newName);
  set->SetName(newName);
  return changed;
}

int DeleteSet(CPersonality& p, SetType type, const CString& name) {
  if (!IsValidSetType(type)) return -1;
  CSet* set = p.GetSet(name, type);
  if (set == nullptr) return -1;
  // Element references resolve to their holder, or through the system their scope names.
  const std::vector<NameRef> refs = Candidates(p, [&](const NameRef& ref) {
    if (ref.kind == RefKind::Set) return CouldName(ref.Name(), set->Name());
    return IsElementRef(ref) && (ref.scoped || ref.holder == set);
  });
  std::vector<const NameRef*> hits;
  for (const NameRef& ref : refs) {
    if (ref.holder == set) continue;  // goes with the set
    const bool named = ref.kind == RefKind::Set && ref.set == set;
    const bool inside = IsElementRef(ref) && ref.set == set && !ref.Name().IsEmpty();
    if (named || inside) hits.push_back(&ref);
  }
  const int changed = Apply(hits, nullptr);
  p.DeleteSetAt(SetIndex(p, type, set), type);
  return changed;
}

int RenameChannel(CPersonality& p, SetType type, const CString& setName, const CString& oldName,
                  const CString& newName) {
  return ChangeElement(p, type, RefKind::Channel, setName, oldName, &newName);
}

int DeleteChannel(CPersonality& p, SetType type, const CString& setName, const CString& name) {
  return ChangeElement(p, type, RefKind::Channel, setName, name, nullptr);
}

int RenameGroup(CPersonality& p, SetType type, const CString& setName, const CString& oldName,
                const CString& newName) {
  return ChangeElement(p, type, RefKind::Group, setName, oldName, &newName);
}

int DeleteGroup(CPersonality& p, SetType type, const CString& setName, const CString& name) {
  return ChangeElement(p, type, RefKind::Group, setName, name, nullptr);
}

}  // namespace persona
