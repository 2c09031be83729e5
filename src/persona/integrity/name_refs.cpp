// Collecting and resolving the name references of a personality.
#include <persona/integrity/name_refs.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <unordered_set>
#include <utility>

#include <persona/integrity/record_path.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_system.h>

namespace persona {

namespace {

// Visits one record: gathers its name fields, its string fields (to read scope fields) and the
// owned lists below it. Sub-records are walked by the caller, after the visit.
class RecordScan : public CFieldSkipper {
 public:
  using CFieldSkipper::Field;
  struct Pending {
    const char* field;
    RefersTo ref;
    CString* value;
    CStringArray* list;
  };
  std::vector<Pending> pending;
  std::vector<std::pair<const char*, CString*>> strings;
  std::vector<std::pair<const char*, COwnedObList*>> owned;

  void Clear() {
    pending.clear();
    strings.clear();
    owned.clear();
  }

  void Field(const FieldInfo& f, CString& v) override {
    strings.emplace_back(f.name, &v);
    if (f.refersTo != nullptr) pending.push_back({f.name, *f.refersTo, &v, nullptr});
  }
  void Field(const FieldInfo& f, CStringArray& v) override {
    if (f.refersTo != nullptr) pending.push_back({f.name, *f.refersTo, nullptr, &v});
  }
  void Field(const FieldInfo& f, COwnedObList& v) override { owned.emplace_back(f.name, &v); }

  CString* StringField(const char* name) const {
    for (const auto& [n, v] : strings) {
      if (std::strcmp(n, name) == 0) return v;
    }
    return nullptr;
  }
};

// The paths below one owned list, made when a record of the list first needs its own (most
// elements hold no name reference and never do).
class ListPaths {
 public:
  ListPaths(CObject& owner, const COwnedObList& list, std::string base)
      : m_owner(owner), m_list(list), m_base(std::move(base)) {}

  std::string PathOf(std::size_t k) {
    if (m_segments.empty()) m_segments = ElementSegments(m_owner, m_list);
    return m_base + "/" + m_segments[k];
  }

 private:
  CObject& m_owner;
  const COwnedObList& m_list;
  std::string m_base;
  std::vector<std::string> m_segments;
};

class Collector {
 public:
  Collector(std::vector<NameRef>& out, const NameRefQuery& query)
      : m_out(out), m_paths(query.paths), m_keep(query.keep) {}

  // Walks record and everything it owns. holder: the set the record is or belongs to. path:
  // the record's, empty when paths are left out.
  void Walk(CObject& record, const std::string& path, CSet* holder, int systemType) {
    if (!IsInert(record)) WalkAt(record, {&path, nullptr, 0}, holder, systemType, 0);
  }

 private:
  // A record's path: given, or the at-th of a list's, made when first asked for.
  struct PathOf {
    const std::string* given;
    ListPaths* list;
    std::size_t at;
    std::string operator()() const { return given != nullptr ? *given : list->PathOf(at); }
  };

  // The record's path is made only when the record holds a reference or owns records. A record
  // of a class seen to hold neither is passed over without a visit, by the caller: record is
  // not of a class known to be inert.
  void WalkAt(CObject& record, const PathOf& pathOf, CSet* holder, int systemType,
              std::size_t depth) {
    if (m_scans.size() <= depth) m_scans.emplace_back(std::make_unique<RecordScan>());
    RecordScan& scan = *m_scans[depth];
    scan.Clear();
    record.VisitFields(scan);
    if (scan.pending.empty() && scan.owned.empty()) {
      m_inert.insert(record.GetRuntimeClass());
      return;
    }
    const std::string path = m_paths ? pathOf() : std::string();
    for (const RecordScan::Pending& p : scan.pending)
      Add(record, scan, p, path, holder, systemType);
    auto* asSet = dynamic_cast<CSet*>(&record);
    for (const auto& [name, list] : scan.owned) {
      if (IsInertClass(list->GetOneClass())) continue;  // not a record read
      ListPaths paths(record, *list, asSet != nullptr || !m_paths ? path : path + "/" + name);
      std::size_t at = 0;
      for (CObject* child : *list) {
        // Most lists hold records of one inert class (channels, groups): they are passed over
        // here, without a call per record.
        if (child != nullptr && !IsInert(*child))
          WalkAt(*child, {nullptr, &paths, at}, asSet != nullptr ? asSet : holder, -1, depth + 1);
        ++at;
      }
    }
  }

  // True when record's class was seen to hold no name field and own no list.
  bool IsInert(const CObject& record) { return IsInertClass(record.GetRuntimeClass()); }
  // The same of a class (false of null). The last inert class is kept aside: records of a list
  // are mostly of one class.
  bool IsInertClass(const CRuntimeClass* cls) {
    if (cls == nullptr) return false;
    if (cls == m_lastInert) return true;
    if (m_inert.count(cls) == 0) return false;
    m_lastInert = cls;
    return true;
  }

  void Add(CObject& record, const RecordScan& scan, const RecordScan::Pending& p,
           const std::string& path, CSet* holder, int systemType) {
    NameRef ref;
    if (m_paths) ref.field = p.field;
    ref.kind = p.ref.kind;
    ref.record = &record;
    ref.holder = holder;
    if (ref.kind == RefKind::Set) {
      ref.setType =
          p.ref.setType == kGroupSetOfSystem ? GroupSetTypeOfSystem(systemType) : p.ref.setType;
    }
    if ((ref.kind == RefKind::Channel || ref.kind == RefKind::Group) &&
        p.ref.scopeField != nullptr) {
      ref.scoped = true;
      if (const CString* scope = scan.StringField(p.ref.scopeField)) ref.scopeName = *scope;
    }
    const std::string base = m_paths ? path + "/" + p.field : std::string();
    if (p.value != nullptr) {
      ref.value = p.value;
      if (m_keep && !m_keep(ref)) return;
      ref.path = base;
      m_out.push_back(std::move(ref));
      return;
    }
    for (int i = 0; i < p.list->GetSize(); ++i) {
      NameRef entry = ref;
      entry.list = p.list;
      entry.index = i;
      if (m_keep && !m_keep(entry)) continue;
      if (m_paths) entry.path = base + "/" + std::to_string(i + 1);
      m_out.push_back(std::move(entry));
    }
  }

  std::vector<NameRef>& m_out;
  const bool m_paths;
  const std::function<bool(const NameRef&)>& m_keep;
  std::vector<std::unique_ptr<RecordScan>> m_scans;  // one per depth, reused
  std::unordered_set<const CRuntimeClass*> m_inert;  // classes with no name field, no list
  const CRuntimeClass* m_lastInert = nullptr;        // the last inert class met
};

void Resolve(const CPersonality& p, NameRef& ref) {
  const CString& name = ref.Name();
  switch (ref.kind) {
    case RefKind::System:
      if (!name.IsEmpty()) ref.system = p.GetSystem(name);
      break;
    case RefKind::Set:
      if (!name.IsEmpty() && IsValidSetType(ref.setType)) {
        ref.set = p.GetSet(name, static_cast<SetType>(ref.setType));
      }
      break;
    case RefKind::Channel:
    case RefKind::Group:
      if (!ref.scoped) {
        ref.set = ref.holder;
      } else if (!ref.scopeName.IsEmpty()) {
        ref.scopeSystem = p.GetSystem(ref.scopeName);
        if (ref.scopeSystem != nullptr) ref.set = ElementSetOfSystem(p, *ref.scopeSystem, ref.kind);
      }
      break;
    case RefKind::Wan:
      break;
  }
}

}  // namespace

void NameRef::Set(const CString& name) const {
  if (value != nullptr) {
    *value = name;
  } else {
    list->SetAt(index, name);
  }
}

const char* SetListPathName(int type) { return SetListWord(type); }

int GroupSetTypeOfSystem(int systemType) {
  switch (systemType) {
    case TrunkedSystemType:
      return GroupSetType;
    case PlmSystemType:
      return PlmGroupSetType;
    case EaSystemType:
      return EaGroupSetType;
    case P25TrkSystemType:
      return P25GroupSetType;
    default:
      return -1;
  }
}

CSet* ElementSetOfSystem(const CPersonality& p, const CSystem& system, RefKind kind) {
  if (kind == RefKind::Channel) {
    if (const auto* conv = dynamic_cast<const CConvSystem*>(&system)) {
      return p.GetSet(conv->GetConvSetName(), ConvSetType);
    }
    if (const auto* p25 = dynamic_cast<const CP25ConvSystem*>(&system)) {
      return p.GetSet(p25->GetP25ConvSetName(), P25ConvSetType);
    }
    return nullptr;
  }
  if (kind != RefKind::Group) return nullptr;
  const int type = GroupSetTypeOfSystem(system.GetSysType());
  if (type < 0) return nullptr;
  if (const auto* trunked = dynamic_cast<const CTrunkSystem*>(&system)) {
    return p.GetSet(trunked->GetGroupSetName(), static_cast<SetType>(type));
  }
  if (const auto* plm = dynamic_cast<const CPlmSystem*>(&system)) {
    return p.GetSet(plm->GetGroupSetName(), static_cast<SetType>(type));
  }
  return nullptr;
}

namespace {

// IsElementOfSet with the set's element class (CPersonality::ElementClassOf) already taken.
bool IsOfElementClass(const CObject& element, const CRuntimeClass* elementClass) {
  return elementClass == nullptr || element.IsKindOf(elementClass);
}

}  // namespace

bool IsElementOfSet(const CObject& element, const CSet& set) {
  return IsOfElementClass(element, CPersonality::ElementClassOf(set));
}

void ElementNames::Expect(const CSet& set, const CString& name) {
  Names& names = m_names[&set];
  if (!names.searched && !names.listed) names.expected.push_back(name.str());
}

bool ElementNames::Has(CSet& set, const CString& name) {
  Names& names = m_names[&set];
  const std::string_view wanted = name.str();
  const auto expected = [&names](std::string_view n) {
    return std::find(names.expected.begin(), names.expected.end(), n) != names.expected.end();
  };
  if (!names.listed && !(names.searched && expected(wanted))) {
    // Past a few expected names, one listing costs less than comparing each name with each.
    constexpr std::size_t kSearchedNames = 8;
    const bool search =
        !names.searched && names.expected.size() <= kSearchedNames && expected(wanted);
    names.held.clear();
    if (!search) names.held.reserve(static_cast<std::size_t>(set.Elements().GetCount()));
    const CRuntimeClass* cls = CPersonality::ElementClassOf(set);
    for (CObject* element : set.Elements()) {
      if (element == nullptr || !IsOfElementClass(*element, cls)) continue;
      const CString* n = FindNameField(*element);
      if (n != nullptr && (!search || expected(n->str()))) names.held.insert(n->str());
    }
    names.searched = search;
    names.listed = !search;
  }
  return names.held.count(wanted) != 0;
}

std::vector<NameRef> CollectNameRefs(CPersonality& p) { return CollectNameRefs(p, {}); }

std::vector<NameRef> CollectNameRefs(CPersonality& p, const NameRefQuery& query) {
  std::vector<NameRef> refs;
  const bool withPaths = query.paths;
  Collector collector(refs, query);
  const std::string none;
  for (int i = 0; i < p.GetNumSystems(); ++i) {
    CSystem* system = p.GetSystemAt(i);
    if (system == nullptr) continue;
    collector.Walk(*system, withPaths ? SystemPath(*system) : none, nullptr, system->GetSysType());
  }
  for (int type = 0; type < kNumSetTypes; ++type) {
    const auto t = static_cast<SetType>(type);
    for (int i = 0; i < p.GetNumSets(t); ++i) {
      CSet* set = p.GetSetAt(i, t);
      if (set == nullptr) continue;
      collector.Walk(*set, withPaths ? SetPath(type, *set) : none, set, -1);
    }
  }
  for (int i = 0; i < p.GetNumOptions(); ++i) {
    CObject* option = p.GetOptionAt(i);
    if (option == nullptr) continue;
    collector.Walk(*option, withPaths ? OptionPath(*option) : none, nullptr, -1);
  }
  // Visiting records may move the name epochs; resolve once everything has been visited, so
  // the lookup indexes are rebuilt once.
  for (NameRef& ref : refs) Resolve(p, ref);
  return refs;
}

}  // namespace persona
