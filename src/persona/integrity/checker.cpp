// The integrity checker (see checker.h).
#include <persona/integrity/checker.h>

#include <cstdio>
#include <functional>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/core/set_helpers.h>
#include <persona/integrity/name_refs.h>
#include <persona/integrity/record_path.h>
#include <persona/integrity/set_use.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/personality/radio_models.h>
#include <persona/systems/esk_key_list.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>

namespace persona {

namespace {

std::string Quoted(const CString& name) { return "\"" + name.str() + "\""; }

std::string Fixed5(double frequency) {
  char text[32];
  std::snprintf(text, sizeof text, "%.5f", frequency);
  return text;
}
std::string Mhz(double frequency) { return Fixed5(frequency) + " MHz"; }

// What is wrong with a channel that fails the band limits: the field and the words after the
// channel's name. The tests are the order of set_helpers::ChannelWithinLimits.
std::pair<const char*, std::string> BandFault(double tx, double rx,
                                              const set_helpers::FrequencyLimits& l) {
  const double tolerance = 0.000001;
  const std::string rxRange = ", outside " + Fixed5(l.rxMin) + " - " + Mhz(l.rxMax);
  if (tx > 0.0 && tx < l.txMin) {
    return {"TxFreq", "transmits on " + Mhz(tx) + ", below the transmit minimum " + Mhz(l.txMin)};
  }
  if (l.txMin > 800.0 && tx > l.rxMax + tolerance) {
    return {"TxFreq", "transmits on " + Mhz(tx) + ", above the receive maximum " + Mhz(l.rxMax) +
                          " that bounds both directions above 800 MHz"};
  }
  return {"RxFreq", "receives on " + Mhz(rx) + rxRange};
}

std::string ChannelLabel(const CTrunkChannel&, int position) {
  return "channel #" + std::to_string(position);
}
template <class E>
std::string ChannelLabel(const E& channel, int position) {
  const CString name = channel.GetName();
  return name.IsEmpty() ? "channel #" + std::to_string(position) : "channel " + name.str();
}

// "the <model> (radio type <n>)", or "radio type <n>" for a code outside the catalogue.
std::string ModelText(WORD radio) {
  const RadioModel* model = FindRadioModel(radio);
  const std::string code = "radio type " + std::to_string(radio);
  return model == nullptr ? code : std::string("the ") + model->displayName + " (" + code + ")";
}

// Codes as a list with runs of consecutive codes joined: "65-67, 85, 86".
std::string CodeRuns(const std::vector<DWORD>& codes) {
  std::string out;
  for (std::size_t i = 0; i < codes.size();) {
    std::size_t j = i;
    while (j + 1 < codes.size() && codes[j + 1] == codes[j] + 1) ++j;
    out += (out.empty() ? "" : ", ") + std::to_string(codes[i]);
    if (j > i) out += (j == i + 1 ? ", " : "-") + std::to_string(codes[j]);
    i = j + 1;
  }
  return out;
}

// The catalogue's radio types for which takes() holds, said the short way: the list of those
// that take it, or the few that do not.
std::string Takers(const std::function<bool(WORD)>& takes, const char* what = "it") {
  std::size_t count = 0;
  const RadioModel* rows = RadioModelCatalogue(&count);
  std::vector<DWORD> yes, no;
  for (std::size_t i = 0; i < count; ++i) {
    (takes(static_cast<WORD>(rows[i].radioType)) ? yes : no).push_back(rows[i].radioType);
  }
  if (yes.empty()) return std::string("no radio type takes ") + what;
  if (no.size() < yes.size()) return "every radio type but " + CodeRuns(no) + " takes " + what;
  return "radio types " + CodeRuns(yes) + " take " + what;
}

class Checker {
 public:
  // The name references are collected as writable slots (rename and delete use the same
  // collector); the checker only reads them.
  explicit Checker(const CPersonality& p)
      : m_p(p), m_radio(p.GetLastRadio()), m_refs(CollectNameRefs(const_cast<CPersonality&>(p))) {}

  std::vector<Finding> Run() {
    CollectWans();
    for (const NameRef& ref : m_refs) {
      const bool element = ref.kind == RefKind::Channel || ref.kind == RefKind::Group;
      if (element && ref.set != nullptr) m_elements.Expect(*ref.set, ref.Name());
    }
    for (const NameRef& ref : m_refs) CheckRef(ref);
    for (int type = 0; type < kNumSetTypes; ++type) CheckList(static_cast<SetType>(type));
    CheckKeys();
    CheckSystemKinds();
    CheckWanRecord();
    return std::move(m_findings);
  }

 private:
  void Add(const char* code, Finding::Severity severity, std::string path, std::string message) {
    m_findings.push_back({code, severity, std::move(path), std::move(message)});
  }

  void CollectWans() {
    const auto* wans = m_p.GetOption<CP25tWanOpts>();
    for (int i = 0; wans != nullptr && i < wans->GetNumWans(); ++i) {
      if (const CP25TrkWan* wan = wans->GetWanAt(i)) m_wans.insert(wan->GetNetworkName().str());
    }
  }

  void CheckRef(const NameRef& ref) {
    const CString& name = ref.Name();
    if (ref.kind == RefKind::Set && ref.set != nullptr) m_usedSets.insert(ref.set);
    if (name.IsEmpty()) return;
    switch (ref.kind) {
      case RefKind::System:
        if (ref.system != nullptr) return;
        if (ref.list != nullptr) {
          Add("SCAN_SYSTEM_MISSING", Finding::Error, ref.path,
              "scans system " + Quoted(name) + ", which does not exist");
        } else {
          Add("REF_SYSTEM_MISSING", Finding::Error, ref.path,
              "names system " + Quoted(name) + ", which does not exist");
        }
        return;
      case RefKind::Set:
        if (ref.set == nullptr) {
          Add("REF_SET_MISSING", Finding::Error, ref.path,
              std::string("names ") + SetListPathName(ref.setType) + " set " + Quoted(name) +
                  ", which does not exist");
        }
        return;
      case RefKind::Channel:
      case RefKind::Group:
        CheckElementRef(ref, name);
        return;
      case RefKind::Wan:
        if (m_wans.count(name.str()) == 0) {
          Add("REF_WAN_MISSING", Finding::Error, ref.path,
              "names P25 wide-area network " + Quoted(name) + ", which is not in the WAN list");
        }
        return;
    }
  }

  void CheckElementRef(const NameRef& ref, const CString& name) {
    const bool channel = ref.kind == RefKind::Channel;
    const char* what = channel ? "channel " : "group ";
    if (ref.set == nullptr) {
      // A missing system is reported at its own field; an empty one or one without such a set
      // leaves the element name without a set to look in.
      if (ref.scoped && ref.scopeSystem == nullptr && !ref.scopeName.IsEmpty()) return;
      if (ref.scopeSystem != nullptr && ElementSetNamed(*ref.scopeSystem, ref.kind)) return;
      Add("REF_SCOPE_MISSING", Finding::Warning, ref.path,
          std::string("names ") + what + Quoted(name) +
              (ref.scopeName.IsEmpty() ? std::string(" but no system")
                                       : " of system " + Quoted(ref.scopeName) + ", which has no " +
                                             (channel ? "channel" : "group") + " set"));
      return;
    }
    if (m_elements.Has(*ref.set, name)) return;
    Add(channel ? "REF_CHANNEL_MISSING" : "REF_GROUP_MISSING", Finding::Error, ref.path,
        std::string("names ") + what + Quoted(name) + ", which set " + Quoted(ref.set->Name()) +
            " does not hold");
  }

  // True when system names a channel or group set (which then does not exist: reported there).
  bool ElementSetNamed(const CSystem& system, RefKind kind) const {
    CString name;
    const SetType type =
        kind == RefKind::Channel
            ? (system.GetSysType() == P25ConvSystemType ? P25ConvSetType : ConvSetType)
            : static_cast<SetType>(GroupSetTypeOfSystem(system.GetSysType()));
    if (!IsValidSetType(type)) return false;
    return SystemSetNameFor(system, type, &name) && !name.IsEmpty();
  }

  void CheckList(SetType type) {
    std::unordered_map<std::string, const CSet*> first;
    for (int i = 0; i < m_p.GetNumSets(type); ++i) {
      CSet* set = m_p.GetSetAt(i, type);
      if (set == nullptr) {
        NoteNotASet(type, i);
        continue;
      }
      const std::string path = SetPath(type, *set);
      CheckClasses(type, *set, path);
      auto [it, added] = first.emplace(set->Name().UpperText(), set);
      if (!added) {
        Add("SET_NAME_DUPLICATE", Finding::Warning, path,
            "has the name of the earlier set " + Quoted(it->second->Name()) +
                " (letter case aside); lookups find only that one, so this one is never used");
      }
      if (type == TrunkSetType) CheckFrequencies<CTrunkChannel>(path, *set, true);
      if (type == ConvSetType) CheckFrequencies<CConvChannel>(path, *set, false);
      if (type == P25ConvSetType) CheckFrequencies<CP25ConvChannel>(path, *set, true);
      if (type == ConvSetType && !RadioTypeSupportsSystemKind(m_radio, ConvSystemType)) {
        Add("SET_UNSUPPORTED", Finding::Warning, path,
            "conv set " + set->Name().str() + " is a conventional channel set, which " +
                ModelText(m_radio) + " does not take, as it takes no " +
                SystemKindLabel(ConvSystemType) + " system; " +
                Takers([](WORD r) { return RadioTypeSupportsSystemKind(r, ConvSystemType); }) +
                " (prune removes every conventional set)");
        continue;
      }
      if (added && m_usedSets.count(set) == 0) {
        Add("SET_UNUSED", Finding::Info, path, "is not used by any system, set or option");
      }
    }
  }

  // Records of a class that their place does not use: the format lets a file hold any record
  // in any list, and the library keeps them, but the radio has no use for them.
  void NoteNotASet(SetType type, int i) {
    const CObject* record = m_p.GetSetRecordAt(i, type);
    if (record == nullptr) return;
    Add("RECORD_MISPLACED", Finding::Warning,
        std::string("sets/") + SetListPathName(type) + "/#" + std::to_string(i + 1),
        std::string("is a ") + record->GetClassName() + " record, not a set; nothing can name it");
  }

  void CheckClasses(SetType type, const CSet& set, const std::string& path) {
    const CRuntimeClass* listClass = CRuntimeClass::FromName(CPersonality::SetClassName(type));
    if (listClass != nullptr && !set.IsKindOf(listClass)) {
      Add("RECORD_MISPLACED", Finding::Warning, path,
          std::string("is a ") + set.GetClassName() + " in the list of " +
              listClass->m_lpszClassName + " sets; a copy of the personality keeps its set part");
    }
    const CRuntimeClass* elementClass = CPersonality::ElementClassOf(set);
    if (elementClass == nullptr) return;
    int n = 0;
    for (const CObject* element : set.Elements()) {
      ++n;
      if (element == nullptr || element->IsKindOf(elementClass)) continue;
      Add("RECORD_MISPLACED", Finding::Warning, path + "/#" + std::to_string(n),
          std::string("is a ") + element->GetClassName() + " record where a " + set.GetClassName() +
              " holds " + elementClass->m_lpszClassName + " records");
    }
  }

  // One finding per channel outside the personality's band limits, as the set's
  // CheckFrequencyRange judges them (tolerance above 800 MHz as the set class applies it).
  template <class E>
  void CheckFrequencies(const std::string& path, const CSet& set, bool tolerance) {
    const set_helpers::FrequencyLimits limits{m_p.GetTxMinFreq(), m_p.GetRxMinFreq(),
                                              m_p.GetRxMaxFreq(), tolerance};
    int position = 0;
    for (CObject* obj : set.Elements()) {
      ++position;
      const auto* channel = dynamic_cast<const E*>(obj);
      if (channel == nullptr) continue;
      const double tx = channel->GetTxFreq(), rx = channel->GetRxFreq();
      if (set_helpers::ChannelWithinLimits(tx, rx, limits)) continue;
      const auto [field, what] = BandFault(tx, rx, limits);
      Add("FREQ_OUT_OF_RANGE", Finding::Error, path + "/#" + std::to_string(position) + "/" + field,
          ChannelLabel(*channel, position) + " " + what);
    }
  }

  // Systems that use a set with a key list need their key in it; a model without key lists
  // takes no key at all (reported once, at the system).
  void CheckKeys() {
    if (!IsKeyedRadioType(m_radio)) {
      for (int i = 0; i < m_p.GetNumSystems(); ++i) CheckKeyTaken(m_p.GetSystemAt(i));
      return;
    }
    for (const NameRef& ref : m_refs) {
      if (ref.kind != RefKind::Set || ref.set == nullptr) continue;
      const auto* system = dynamic_cast<const CSystem*>(ref.record);
      const auto* keys = dynamic_cast<const CSetKeyList*>(ref.set);
      if (system == nullptr || keys == nullptr) continue;
      if (m_p.IsEskPresentInSystem(system, keys->GetEskList())) continue;
      Add("KEY_MISSING", Finding::Error,
          SetPath(static_cast<SetType>(ref.setType), *ref.set) + "/Esks",
          "lacks key " + Quoted(system->GetEskName()) + " (" + std::to_string(system->GetESK()) +
              ") that system " + Quoted(system->Name()) + " uses");
    }
  }

  // The key lists of the sets hold the keys of the trunked and extended-addressing systems, and
  // only for the models that have key lists.
  void CheckKeyTaken(const CSystem* system) {
    if (system == nullptr || system->GetESK() == 0) return;
    const int kind = system->GetSysType();
    if (kind != TrunkedSystemType && kind != EaSystemType) return;
    if (!RadioTypeSupportsSystemKind(m_radio, kind)) return;  // the system itself is reported
    Add("KEY_UNSUPPORTED", Finding::Warning,
        SystemPath(*system) +
            (dynamic_cast<const CTrunkSystem*>(system) != nullptr ? "/TrunkESK" : "/ESK"),
        "system " + system->Name().str() + " has security key " + Quoted(system->GetEskName()) +
            " (" + std::to_string(system->GetESK()) + "), which " + ModelText(m_radio) +
            " does not take: its sets get no key list (key 0 is none); " +
            Takers([](WORD r) { return IsKeyedRadioType(r); }, "keys"));
  }

  void CheckSystemKinds() {
    for (int i = 0; i < m_p.GetNumSystems(); ++i) {
      const CSystem* system = m_p.GetSystemAt(i);
      const CObject* record = m_p.GetSystemRecordAt(i);
      if (system == nullptr && record != nullptr) {
        Add("RECORD_MISPLACED", Finding::Warning, "systems/#" + std::to_string(i + 1),
            std::string("is a ") + record->GetClassName() +
                " record, not a system; nothing can name it");
      }
      if (system == nullptr) continue;
      const int kind = system->GetSysType();
      if (RadioTypeSupportsSystemKind(m_radio, kind)) continue;
      Add("SYSTEM_UNSUPPORTED", Finding::Warning, SystemPath(*system),
          "system " + system->Name().str() + " is a " + SystemKindLabel(kind) + " system, which " +
              ModelText(m_radio) + " does not take; " +
              Takers([kind](WORD r) { return RadioTypeSupportsSystemKind(r, kind); }) +
              " (prune removes it)");
    }
  }

  // The wide-area networks serve P25 trunked systems only; pruning deletes the record for the
  // other models. An empty record is left alone.
  void CheckWanRecord() {
    const auto* wans = m_p.GetOption<CP25tWanOpts>();
    if (wans == nullptr || wans->GetNumWans() == 0 ||
        RadioTypeSupportsSystemKind(m_radio, P25TrkSystemType)) {
      return;
    }
    Add("OPTION_UNSUPPORTED", Finding::Warning, OptionPath(*wans),
        "holds " + std::to_string(wans->GetNumWans()) + " P25 wide-area network(s), which " +
            ModelText(m_radio) + " does not take, as it takes no " +
            SystemKindLabel(P25TrkSystemType) + " system; " +
            Takers([](WORD r) { return RadioTypeSupportsSystemKind(r, P25TrkSystemType); }) +
            " (prune deletes the record)");
  }

  const CPersonality& m_p;
  const WORD m_radio;  // the model the rules are checked for: the last radio
  std::vector<NameRef> m_refs;
  std::vector<Finding> m_findings;
  std::unordered_set<std::string> m_wans;
  std::unordered_set<const CSet*> m_usedSets;
  ElementNames m_elements;
};

}  // namespace

std::vector<Finding> CheckPersonality(const CPersonality& p) { return Checker(p).Run(); }

}  // namespace persona
