// Whole-personality operations behind the command-line tool.
#include <persona/report/personality_ops.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include <persona/options/option_report.h>
#include <persona/personality/radio_models.h>
#include <persona/report/personality_report.h>
#include <persona/report/record_lines.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

const char* const kSetKindKeys[kNumSetTypes] = {"trunk",   "conv",     "group",    "phone",
                                                "icall",   "spcall",   "plmgroup", "plmspcall",
                                                "p25conv", "p25group", "eagroup"};

std::string Lower(std::string s) {
  for (char& c : s) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return s;
}

std::string ModelText(unsigned radioType) {
  const RadioModel* model = FindRadioModel(radioType);
  return std::to_string(radioType) + " - " + (model ? model->displayName : "Unknown model");
}

// A personality whose protected merge steps are reachable: a copy of a, then b's records.
class MergedPersonality : public CPersonality {
 public:
  MergedPersonality(const CPersonality& a, const CPersonality& b) : CPersonality(a) {
    for (int i = 0; i < b.GetNumRadioTypes(); ++i) AddRadioType(b.GetRadioTypeAt(i));
    AddSystems(&b);
    AddSets(&b);
    AddOptions(&b);
  }
};

void ListSystemClashes(const CPersonality& a, const CPersonality& b,
                       std::vector<MergeClash>& clashes) {
  std::set<std::string> inA;
  for (int i = 0; i < a.GetNumSystems(); ++i) {
    if (const CSystem* system = a.GetSystemAt(i)) inA.insert(system->GetName().str());
  }
  for (int i = 0; i < b.GetNumSystems(); ++i) {
    const CSystem* system = b.GetSystemAt(i);  // null for a record of another class
    if (system != nullptr && inA.count(system->GetName().str())) {
      clashes.push_back({"system", system->GetName().str()});
    }
  }
}

void ListSetClashes(const CPersonality& a, const CPersonality& b,
                    std::vector<MergeClash>& clashes) {
  for (int t = 0; t < kNumSetTypes; ++t) {
    const SetType type = static_cast<SetType>(t);
    for (int i = 0; i < b.GetNumSets(type); ++i) {
      const CSet* set = b.GetSetAt(i, type);  // null for a record that is not a set
      if (set != nullptr && a.FindSetIndex(set->GetName(), type) >= 0) {
        clashes.push_back({std::string("set ") + kSetKindKeys[t], set->GetName().str()});
      }
    }
  }
}

void ListOptionClashes(const CPersonality& merged, std::vector<MergeClash>& clashes) {
  std::map<std::string, int> seen;
  for (int i = 0; i < merged.GetNumOptions(); ++i) {
    const CObject* option = merged.GetOptionAt(i);
    if (option == nullptr) continue;
    const std::string name = option->GetClassName();
    if (++seen[name] == 2) clashes.push_back({"option", name});
  }
}

// Elements of the sets of list type (records that are not sets hold none).
std::size_t SetListElements(const CPersonality& p, SetType type) {
  std::size_t n = 0;
  for (int i = 0; i < p.GetNumSets(type); ++i) {
    if (const CSet* set = p.GetSetAt(i, type)) n += static_cast<std::size_t>(set->GetCount());
  }
  return n;
}

}  // namespace

const char* SetKindKey(SetType type) { return IsValidSetType(type) ? kSetKindKeys[type] : nullptr; }

bool ParseSetKind(const std::string& text, SetType* type) {
  const std::string key = Lower(text);
  for (int t = 0; t < kNumSetTypes; ++t) {
    if (key == kSetKindKeys[t] || key == std::to_string(t)) {
      *type = static_cast<SetType>(t);
      return true;
    }
  }
  return false;
}

void PrintPersonalitySummary(const CPersonality& p, std::size_t fileSize, std::size_t trailingBytes,
                             CStringArray& out) {
  OptionBlock block(out, "PERSONALITY FILE:");
  block.Value("Name", p.GetName().str());
  block.Value("Stored Schema", p.GetStoredSchema() == 255 ? std::string("None")
                                                          : std::to_string(p.GetStoredSchema()));
  block.Value("Version", std::to_string(p.GetVersion()));
  for (int i = 0; i < p.GetNumRadioTypes(); ++i) {
    block.Value(i == 0 ? "Radio Types" : "", ModelText(p.GetRadioTypeAt(i)));
  }
  if (p.GetNumRadioTypes() == 0) block.Value("Radio Types", "None");
  block.Value("Last Radio", ModelText(p.GetLastRadio()));
  block.Value("Systems", std::to_string(p.GetNumSystems()));
  for (int t = 0; t < kNumSystemTypes; ++t) {
    const WORD n = p.GetNumSystems(static_cast<SystemType>(t));
    if (n) block.Value("   " + SystemKindLabel(static_cast<unsigned>(t)), std::to_string(n));
  }
  std::size_t sets = 0, elements = 0;
  for (int t = 0; t < kNumSetTypes; ++t) {
    sets += p.GetNumSets(static_cast<SetType>(t));
    elements += SetListElements(p, static_cast<SetType>(t));
  }
  block.Pair("Sets", std::to_string(sets), "Elements", std::to_string(elements));
  for (int t = 0; t < kNumSetTypes; ++t) {
    const SetType type = static_cast<SetType>(t);
    const std::size_t n = SetListElements(p, type);
    block.Pair(std::string("   ") + kSetKindKeys[t] + " sets", std::to_string(p.GetNumSets(type)),
               "Elements", std::to_string(n));
  }
  block.Value("Option Records", std::to_string(p.GetNumOptions()));
  block.Value("File Size", std::to_string(fileSize) + " bytes");
  block.Value("Unread Trailing Bytes", std::to_string(trailingBytes));
  block.End();
}

void AddModelDefaultOptions(CPersonality& personality, unsigned short radioType) {
  std::size_t count = 0;
  const char* const* names = ReportOptionOrder(&count);
  for (std::size_t i = 0; i < count; ++i) {
    const CRuntimeClass* cls = CRuntimeClass::FromName(names[i]);
    if (cls && personality.FindOption(cls)) continue;
    personality.PutOption(NewReportOption(i, radioType));
  }
}

std::unique_ptr<CPersonality> NewModelPersonality(unsigned short radioType) {
  auto p = std::make_unique<CPersonality>(radioType, 0);
  p->SetTxMinFreq(806.0);
  p->SetTxMaxFreq(825.0);
  p->SetRxMinFreq(851.0);
  p->SetRxMaxFreq(870.0);
  AddModelDefaultOptions(*p, radioType);
  return p;
}

MergeResult MergePersonalities(const CPersonality& a, const CPersonality& b) {
  MergeResult result;
  ListSystemClashes(a, b, result.clashes);
  ListSetClashes(a, b, result.clashes);
  result.merged = std::make_unique<MergedPersonality>(a, b);
  ListOptionClashes(*result.merged, result.clashes);
  return result;
}

}  // namespace persona
