// CPersonality copy and merge: deep copies of another personality's systems, sets and options,
// appended to this one's lists. Only the classes listed here are copied.
#include <memory>
#include <string_view>
#include <unordered_set>

#include <persona/personality/personality.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

// System classes copied by a merge.
constexpr std::string_view kSystemClasses[] = {"CTrunkSystem",   "CConvSystem",   "CPlmSystem",
                                               "CP25ConvSystem", "CExtAddSystem", "CP25TrkSystem"};

// Set lists in the order in which a merge copies them.
constexpr SetType kMergeOrder[] = {
    TrunkSetType, GroupSetType,    EaGroupSetType,   PhoneSetType,   ICallSetType,   SpCallSetType,
    ConvSetType,  PlmGroupSetType, PlmSpCallSetType, P25ConvSetType, P25GroupSetType};

// Option classes copied by a merge.
const std::unordered_set<std::string_view>& OptionClasses() {
  static const std::unordered_set<std::string_view> kNames = {"CAlarmOpts",
                                                              "CExtSpkrOpts",
                                                              "CPubAddOpts",
                                                              "CDualCtrlOpts",
                                                              "CNetworkOpts",
                                                              "CMultipleRadioSonvraOpts",
                                                              "CAlertOpts",
                                                              "CKeypadCtrlOpts",
                                                              "CKeypadCtrlOpts_E1",
                                                              "CKeypadCtrlOpts_E2",
                                                              "CDisplayOpts",
                                                              "CIgnitionOpts",
                                                              "CDataOpts",
                                                              "CAgencyData",
                                                              "CExtAddAgencyData",
                                                              "CSysGrp",
                                                              "CSystemGroupKeys",
                                                              "CStatusMessage",
                                                              "CStatus",
                                                              "CMessage",
                                                              "CScratchPadOpts",
                                                              "CPowerUpOpts",
                                                              "CKwOpts",
                                                              "CDTMFOpts",
                                                              "CLumoDTMF",
                                                              "CLumoDTMFOpts",
                                                              "CMacro",
                                                              "CMacroKeys",
                                                              "CMacroSet",
                                                              "CSupervisoryOpts",
                                                              "CFlashLights",
                                                              "CTimerOpts",
                                                              "CSystemScanOpts",
                                                              "CSonvraOpts",
                                                              "CConvScanOpts",
                                                              "CLumoConvScanOpts",
                                                              "CScanOpts",
                                                              "CTones",
                                                              "CPellamOpts",
                                                              "CT99",
                                                              "CType99Opts",
                                                              "CVantorOpts",
                                                              "CLumoVantorOpts",
                                                              "CToneEncode",
                                                              "CToneSeq",
                                                              "CEncTones",
                                                              "CSirenLights",
                                                              "CSirenLightsOpts",
                                                              "CPrgrmICall",
                                                              "CPrgrmPhoneCall",
                                                              "CKnobOpts",
                                                              "CZemoKnobOpts",
                                                              "CFlexKeys",
                                                              "CWexFlexKeys",
                                                              "CPimMenu",
                                                              "CRciSysGrp",
                                                              "CRciSystemGroup",
                                                              "CRciKeypad",
                                                              "CTulMenu",
                                                              "CPrgrmMenu",
                                                              "CR917Keys",
                                                              "CR917Opts",
                                                              "CNyxKeys",
                                                              "CAlphaKeys",
                                                              "CZemoKeys",
                                                              "CQuenbyKeys",
                                                              "CVeltroKeys",
                                                              "CZemoOpts",
                                                              "CDiagnosticOpts",
                                                              "CSilCustomOpts",
                                                              "COstrelCustomOpts",
                                                              "CKorvex2CustomOpts",
                                                              "CGenRadioOpts",
                                                              "CLumoOpts",
                                                              "CFennOpts",
                                                              "CMosaicOpts",
                                                              "CMultiToneOpts",
                                                              "CCallId",
                                                              "CVantorCalls",
                                                              "CMultiToneCalls",
                                                              "CDaxKeys",
                                                              "CHovKeys",
                                                              "CCoyle300Opts",
                                                              "CMmsOpts",
                                                              "CP25tWanOpts",
                                                              "CP25OtarOpts"};
  return kNames;
}

bool IsCopiedSystemClass(std::string_view name) {
  for (std::string_view known : kSystemClasses) {
    if (known == name) return true;
  }
  return false;
}

// A copy of record made with its own class's copy constructor (the caller owns it), or null.
CObject* CopyOf(const CObject& record) { return record.GetRuntimeClass()->CopyObject(record); }

// A set of another class than its list's (a CGroupSet in the extended-addressing list, say):
// a new set of the list's class that receives the set part of it (name, copies of the elements,
// set type and scope) as CSet's assignment gives them. Null when record is no set.
std::unique_ptr<CObject> CopySetPartAs(const CRuntimeClass& listClass, const CObject& record) {
  const auto* src = dynamic_cast<const CSet*>(&record);
  if (src == nullptr) return nullptr;
  std::unique_ptr<CObject> made(listClass.CreateObject());
  auto* set = dynamic_cast<CSet*>(made.get());
  if (set == nullptr) return nullptr;
  set->CSet::operator=(const_cast<CSet&>(*src));  // the assignment only reads its source
  return made;
}

}  // namespace

void CPersonality::AddSystems(const CPersonality* src) {
  if (src == nullptr) return;
  const int count = src->m_systems.GetCount();  // fixed first: src may be this personality
  for (int i = 0; i < count; ++i) {
    const CObject* record = src->m_systems.GetAt(i);
    if (record == nullptr || !IsCopiedSystemClass(record->GetClassName())) continue;
    AddSystem(dynamic_cast<CSystem*>(CopyOf(*record)));  // one of the six: always a system
  }
}

void CPersonality::AddSets(const CPersonality* src) {
  if (src == nullptr) return;
  for (SetType type : kMergeOrder) {
    const CRuntimeClass* cls = CRuntimeClass::FromName(SetClassName(type));
    if (cls == nullptr) continue;
    const int count = src->m_sets[type].GetCount();
    for (int i = 0; i < count; ++i) {
      const CObject* record = src->m_sets[type].GetAt(i);
      if (record == nullptr) continue;
      std::unique_ptr<CObject> copy(cls->CopyObject(*record));
      if (copy == nullptr) copy = CopySetPartAs(*cls, *record);
      if (auto* set = dynamic_cast<CSet*>(copy.get())) {
        copy.release();
        AddSet(set, type);
      }
    }
  }
  ShareRecordsOf(*src);
}

void CPersonality::AddOptions(const CPersonality* src) {
  if (src == nullptr) return;
  const int count = src->m_options.GetCount();
  for (int i = 0; i < count; ++i) {
    const CObject* option = src->m_options.GetAt(i);
    if (OptionClasses().count(option->GetClassName()) == 0) continue;
    if (CObject* copy = CopyOf(*option)) m_options.Add(copy);
  }
}

void CPersonality::ShareRecordsOf(const CPersonality& src) {
  if (&src == this || src.m_sharedRecords.empty()) return;
  std::unordered_set<const CObject*> held;
  held.reserve(m_sharedRecords.size());
  for (const auto& record : m_sharedRecords) held.insert(record.get());
  for (const auto& record : src.m_sharedRecords) {
    if (held.insert(record.get()).second) m_sharedRecords.push_back(record);
  }
}

}  // namespace persona
