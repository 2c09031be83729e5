// The merge that settles name clashes by a policy (see merge_policy.h).
#include <persona/report/merge_policy.h>

#include <algorithm>
#include <future>
#include <set>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

#include <persona/integrity/name_refs.h>
#include <persona/integrity/references.h>
#include <persona/report/personality_ops.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

// A working copy of A that becomes the result: b's records are appended to it in place through
// the personality's own copy steps (a copy of a copy holds what the copy holds, so the result
// is the one a fresh copy with b appended would be, without copying A's records twice).
class MergedPersonality : public CPersonality {
 public:
  explicit MergedPersonality(const CPersonality& a) : CPersonality(a) {}

  void Append(const CPersonality& b) {
    for (int i = 0; i < b.GetNumRadioTypes(); ++i) AddRadioType(b.GetRadioTypeAt(i));
    AddSystems(&b);
    AddSets(&b);
    AddOptions(&b);
  }
};

const char* ClassOf(const CObject* option) { return option->GetRuntimeClass()->m_lpszClassName; }

std::set<std::string> SystemNames(const CPersonality& p) {
  std::set<std::string> names;
  for (int i = 0; i < p.GetNumSystems(); ++i) names.insert(p.GetSystemAt(i)->GetName().str());
  return names;
}

std::set<std::string> OptionClasses(const CPersonality& p) {
  std::set<std::string> names;
  for (int i = 0; i < p.GetNumOptions(); ++i) names.insert(ClassOf(p.GetOptionAt(i)));
  return names;
}

// Deletes from p the systems whose names are in names.
void DropSystems(CPersonality& p, const std::set<std::string>& names) {
  for (int i = p.GetNumSystems() - 1; i >= 0; --i) {
    if (names.count(p.GetSystemAt(i)->GetName().str())) p.DeleteSystemAt(i);
  }
}

// Deletes from p's list type the sets that other's list holds by name (ignoring case).
void DropSets(CPersonality& p, const CPersonality& other, SetType type) {
  for (int i = p.GetNumSets(type) - 1; i >= 0; --i) {
    if (other.FindSetIndex(p.GetSetAt(i, type)->GetName(), type) >= 0) p.DeleteSetAt(i, type);
  }
}

void DropOptions(CPersonality& p, const std::set<std::string>& classes) {
  for (const std::string& name : classes) {
    const CRuntimeClass* cls = CRuntimeClass::FromName(name.c_str());
    while (cls != nullptr && p.FindOption(cls) != nullptr) p.DeleteOption(cls);
  }
}

// name + suffix, with 2, 3, ... after it while taken says the name is held.
template <class Taken>
CString FreeName(const std::string& name, const std::string& suffix, Taken taken) {
  CString candidate(name + suffix);
  for (int n = 2; taken(candidate); ++n) candidate = CString(name + suffix + std::to_string(n));
  return candidate;
}

// The merge works on copies of A and B (the policy trims and renames in them); the caller may
// free each input as soon as its copy is taken. What the checker finds in the copies, as they
// came in, is known; the result reports only what it adds.
class PolicyMerge {
 public:
  PolicyMerge(ClashPolicy policy, const std::string& suffix) : m_policy(policy), m_suffix(suffix) {}

  void TakeA(const CPersonality& a) { m_aCopy = std::make_unique<MergedPersonality>(a); }
  void TakeB(const CPersonality& b) { m_bCopy = std::make_unique<CPersonality>(b); }

  PolicyMergeResult Run() {
    KnowInputs();
    SettleSystems();
    for (int t = 0; t < kNumSetTypes; ++t) SettleSets(static_cast<SetType>(t));
    SettleOptions();
    ApplyRenames();
    m_aCopy->Append(*m_bCopy);
    m_bCopy.reset();
    PolicyMergeResult result;
    result.merged = std::move(m_aCopy);
    result.clashes = std::move(m_clashes);
    result.addedErrors = AddedErrors(*result.merged);
    return result;
  }

 private:
  CPersonality& A() { return *m_aCopy; }
  CPersonality& B() { return *m_bCopy; }

  void Decide(std::string what, std::string name, std::string outcome) {
    m_clashes.push_back({std::move(what), std::move(name), std::move(outcome)});
  }

  const char* Outcome() const {
    switch (m_policy) {
      case ClashPolicy::PreferA:
        return "kept A's";
      case ClashPolicy::PreferB:
        return "took B's";
      default:
        return "kept both";
    }
  }

  void SettleSystems() {
    const std::set<std::string> inA = SystemNames(A());
    std::vector<std::string> clashes;
    for (int i = 0; i < B().GetNumSystems(); ++i) {
      const std::string name = B().GetSystemAt(i)->GetName().str();
      if (inA.count(name)) clashes.push_back(name);
    }
    const std::set<std::string> clashing(clashes.begin(), clashes.end());
    if (m_policy == ClashPolicy::PreferA) DropSystems(B(), clashing);
    if (m_policy == ClashPolicy::PreferB) DropSystems(A(), clashing);
    if (m_policy != ClashPolicy::Rename) {
      for (const std::string& name : clashes) Decide("system", name, Outcome());
      return;
    }
    for (int i = 0; i < B().GetNumSystems(); ++i) {
      CSystem* system = B().GetSystemAt(i);
      const std::string name = system->GetName().str();
      if (inA.count(name) == 0) continue;
      const CString to = FreeName(name, m_suffix, [this](const CString& n) {
        return A().GetSystem(n) != nullptr || B().GetSystem(n) != nullptr ||
               m_newSystemNames.count(n.str()) != 0;
      });
      m_newSystemNames.insert(to.str());
      m_renames.push_back({system, to});
      Decide("system", name, "B's renamed to " + to.str());
    }
  }

  void SettleSets(SetType type) {
    const std::string what = std::string(SetKindKey(type)) + " set";
    std::vector<CString> clashes;
    for (int i = 0; i < B().GetNumSets(type); ++i) {
      const CString name = B().GetSetAt(i, type)->GetName();
      if (A().FindSetIndex(name, type) >= 0) clashes.push_back(name);
    }
    if (clashes.empty()) return;
    if (m_policy == ClashPolicy::PreferA) DropSets(B(), A(), type);
    if (m_policy == ClashPolicy::PreferB) DropSets(A(), B(), type);
    if (m_policy != ClashPolicy::Rename) {
      for (const CString& name : clashes) Decide(what, name.str(), Outcome());
      return;
    }
    std::vector<CString> newNames;
    for (int i = 0; i < B().GetNumSets(type); ++i) {
      CSet* set = B().GetSetAt(i, type);
      const CString name = set->GetName();
      if (A().FindSetIndex(name, type) < 0) continue;
      const CString to = FreeName(name.str(), m_suffix, [&](const CString& n) {
        return A().FindSetIndex(n, type) >= 0 || B().FindSetIndex(n, type) >= 0 ||
               std::any_of(newNames.begin(), newNames.end(),
                           [&n](const CString& m) { return m.CompareNoCase(n) == 0; });
      });
      newNames.push_back(to);
      m_renames.push_back({set, to});
      Decide(what, name.str(), "B's renamed to " + to.str());
    }
  }

  // Carries the renames into B in one pass over its name references: every field that named a
  // renamed system or set gets the new name, then the records themselves.
  void ApplyRenames() {
    if (m_renames.empty()) return;
    std::unordered_map<const CObject*, const CString*> to;
    for (const Rename& r : m_renames) to.emplace(r.record, &r.to);
    for (const NameRef& ref : CollectNameRefs(B())) {
      const CObject* target = ref.kind == RefKind::System ? static_cast<const CObject*>(ref.system)
                              : ref.kind == RefKind::Set  ? ref.set
                                                          : nullptr;
      const auto it = target == nullptr ? to.end() : to.find(target);
      if (it != to.end()) ref.Set(*it->second);
    }
    for (const Rename& r : m_renames) {
      if (auto* system = dynamic_cast<CSystem*>(r.record)) system->SetName(r.to);
      if (auto* set = dynamic_cast<CSet*>(r.record)) set->SetName(r.to);
    }
  }

  void SettleOptions() {
    const std::set<std::string> inA = OptionClasses(A());
    std::set<std::string> clashing;
    for (const std::string& name : OptionClasses(B())) {
      if (inA.count(name)) clashing.insert(name);
    }
    if (m_policy == ClashPolicy::PreferB) {
      DropOptions(A(), clashing);
    } else if (m_policy != ClashPolicy::KeepBoth) {
      DropOptions(B(), clashing);
    }
    const char* outcome = m_policy == ClashPolicy::Rename ? "kept A's" : Outcome();
    for (const std::string& name : clashing) Decide("option", name, outcome);
  }

  static std::string Key(const Finding& f) { return f.code + '\n' + f.path + '\n' + f.message; }

  // Learns what the checker finds in the two copies as they came in: B's check runs on a
  // thread of its own beside A's (the checker only reads, and each copy is its own), or after
  // it when no thread can be had.
  void KnowInputs() {
    const CPersonality& b = B();
    std::future<std::vector<Finding>> inB = std::async(std::launch::async | std::launch::deferred,
                                                       [&b] { return CheckPersonality(b); });
    for (const Finding& f : CheckPersonality(A())) m_known.insert(Key(f));
    for (const Finding& f : inB.get()) m_known.insert(Key(f));
  }

  // The errors of merged that neither input has.
  std::vector<Finding> AddedErrors(const CPersonality& merged) const {
    std::vector<Finding> added;
    for (Finding& f : CheckPersonality(merged)) {
      if (f.severity == Finding::Error && m_known.count(Key(f)) == 0) added.push_back(std::move(f));
    }
    return added;
  }

  // The copies that the policy trims or renames in.
  std::unique_ptr<MergedPersonality> m_aCopy;
  std::unique_ptr<CPersonality> m_bCopy;
  struct Rename {
    CObject* record;  // a system or set of B
    CString to;
  };
  std::vector<Rename> m_renames;            // in the order they were decided
  std::set<std::string> m_newSystemNames;   // the new names among them
  std::unordered_set<std::string> m_known;  // keys of the findings of the copies as taken
  ClashPolicy m_policy;
  std::string m_suffix;
  std::vector<ClashDecision> m_clashes;
};

}  // namespace

PolicyMergeResult MergeWithPolicy(const CPersonality& a, const CPersonality& b, ClashPolicy policy,
                                  const std::string& suffix) {
  PolicyMerge merge(policy, suffix);
  merge.TakeA(a);
  merge.TakeB(b);
  return merge.Run();
}

PolicyMergeResult MergeWithPolicy(std::unique_ptr<CPersonality> a, std::unique_ptr<CPersonality> b,
                                  ClashPolicy policy, const std::string& suffix) {
  if (a == nullptr || b == nullptr) throw std::invalid_argument("MergeWithPolicy: a null input");
  PolicyMerge merge(policy, suffix);
  merge.TakeA(*a);
  a.reset();
  merge.TakeB(*b);
  b.reset();
  return merge.Run();
}

bool IsDanglingReference(const Finding& f) {
  return f.code.rfind("REF_", 0) == 0 || f.code.rfind("SCAN_", 0) == 0;
}

}  // namespace persona
