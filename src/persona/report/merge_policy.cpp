// The merge that settles name clashes by a policy (see merge_policy.h).
#include <persona/report/merge_policy.h>

#include <set>
#include <unordered_set>

#include <persona/integrity/references.h>
#include <persona/report/personality_ops.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

// A copy of a with b's records appended through the personality's own copy steps.
class AppendedPersonality : public CPersonality {
 public:
  AppendedPersonality(const CPersonality& a, const CPersonality& b) : CPersonality(a) {
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

class PolicyMerge {
 public:
  PolicyMerge(const CPersonality& a, const CPersonality& b, ClashPolicy policy,
              const std::string& suffix)
      : m_inputA(a), m_inputB(b), m_a(a), m_b(b), m_policy(policy), m_suffix(suffix) {}

  PolicyMergeResult Run() {
    SettleSystems();
    for (int t = 0; t < kNumSetTypes; ++t) SettleSets(static_cast<SetType>(t));
    SettleOptions();
    PolicyMergeResult result;
    result.merged = std::make_unique<AppendedPersonality>(m_a, m_b);
    result.clashes = std::move(m_clashes);
    result.addedErrors = AddedErrors(*result.merged);
    return result;
  }

 private:
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
    const std::set<std::string> inA = SystemNames(m_a);
    std::vector<std::string> clashes;
    for (int i = 0; i < m_b.GetNumSystems(); ++i) {
      const std::string name = m_b.GetSystemAt(i)->GetName().str();
      if (inA.count(name)) clashes.push_back(name);
    }
    const std::set<std::string> clashing(clashes.begin(), clashes.end());
    if (m_policy == ClashPolicy::PreferA) DropSystems(m_b, clashing);
    if (m_policy == ClashPolicy::PreferB) DropSystems(m_a, clashing);
    for (const std::string& name : clashes) {
      if (m_policy != ClashPolicy::Rename) {
        Decide("system", name, Outcome());
        continue;
      }
      const CString to = FreeName(name, m_suffix, [this](const CString& n) {
        return m_a.GetSystem(n) != nullptr || m_b.GetSystem(n) != nullptr;
      });
      RenameSystem(m_b, CString(name), to);
      Decide("system", name, "B's renamed to " + to.str());
    }
  }

  void SettleSets(SetType type) {
    const std::string what = std::string(SetKindKey(type)) + " set";
    std::vector<CString> clashes;
    for (int i = 0; i < m_b.GetNumSets(type); ++i) {
      const CString name = m_b.GetSetAt(i, type)->GetName();
      if (m_a.FindSetIndex(name, type) >= 0) clashes.push_back(name);
    }
    if (clashes.empty()) return;
    if (m_policy == ClashPolicy::PreferA) DropSets(m_b, m_a, type);
    if (m_policy == ClashPolicy::PreferB) DropSets(m_a, m_b, type);
    for (const CString& name : clashes) {
      if (m_policy != ClashPolicy::Rename) {
        Decide(what, name.str(), Outcome());
        continue;
      }
      const CString to = FreeName(name.str(), m_suffix, [this, type](const CString& n) {
        return m_a.FindSetIndex(n, type) >= 0 || m_b.FindSetIndex(n, type) >= 0;
      });
      RenameSet(m_b, type, name, to);
      Decide(what, name.str(), "B's renamed to " + to.str());
    }
  }

  void SettleOptions() {
    const std::set<std::string> inA = OptionClasses(m_a);
    std::set<std::string> clashing;
    for (const std::string& name : OptionClasses(m_b)) {
      if (inA.count(name)) clashing.insert(name);
    }
    if (m_policy == ClashPolicy::PreferB) {
      DropOptions(m_a, clashing);
    } else if (m_policy != ClashPolicy::KeepBoth) {
      DropOptions(m_b, clashing);
    }
    const char* outcome = m_policy == ClashPolicy::Rename ? "kept A's" : Outcome();
    for (const std::string& name : clashing) Decide("option", name, outcome);
  }

  static std::string Key(const Finding& f) { return f.code + '\n' + f.path + '\n' + f.message; }

  // The errors of merged that neither input has; the inputs are checked as they came in.
  std::vector<Finding> AddedErrors(CPersonality& merged) const {
    std::unordered_set<std::string> known;
    for (const CPersonality* input : {&m_inputA, &m_inputB}) {
      CPersonality copy(*input);
      for (const Finding& f : CheckPersonality(copy)) known.insert(Key(f));
    }
    std::vector<Finding> added;
    for (Finding& f : CheckPersonality(merged)) {
      if (f.severity == Finding::Error && known.count(Key(f)) == 0) added.push_back(std::move(f));
    }
    return added;
  }

  const CPersonality& m_inputA;
  const CPersonality& m_inputB;
  CPersonality m_a;  // the copies that the policy trims or renames in
  CPersonality m_b;
  ClashPolicy m_policy;
  std::string m_suffix;
  std::vector<ClashDecision> m_clashes;
};

}  // namespace

PolicyMergeResult MergeWithPolicy(const CPersonality& a, const CPersonality& b, ClashPolicy policy,
                                  const std::string& suffix) {
  return PolicyMerge(a, b, policy, suffix).Run();
}

bool IsDanglingReference(const Finding& f) {
  return f.code.rfind("REF_", 0) == 0 || f.code.rfind("SCAN_", 0) == 0;
}

}  // namespace persona
