// The sample personality of the reference maintenance tests.
#include "integrity/sample_personality.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <type_traits>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/scan_opts.h>
#include <persona/options/vantor_opts.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_group_set.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>

namespace persona::test {

namespace {

// Finds the string field or list called name.
class TextField : public CFieldSkipper {
 public:
  using CFieldSkipper::Field;
  explicit TextField(const char* name) : m_name(name) {}
  CString* text = nullptr;
  CStringArray* list = nullptr;

  void Field(const FieldInfo& f, CString& v) override {
    if (text == nullptr && std::strcmp(f.name, m_name) == 0) text = &v;
  }
  void Field(const FieldInfo& f, CStringArray& v) override {
    if (list == nullptr && std::strcmp(f.name, m_name) == 0) list = &v;
  }

 private:
  const char* m_name;
};

using Fields = std::initializer_list<std::pair<const char*, const char*>>;

// Sets each named field of rec as SetText does.
template <class T>
T* With(T* rec, Fields fields) {
  for (const auto& [field, value] : fields) SetText(*rec, field, value);
  return rec;
}

// A set named name holding elements of class E with the given names (channels inside the
// default band limits), and fields set as With does.
template <class S, class E = void>
S* NamedSet(const char* name, std::initializer_list<const char*> elements = {},
            Fields fields = {}) {
  auto* set = With(new S, {{"Name", name}});
  if constexpr (!std::is_void_v<E>) {
    for (const char* n : elements) {
      auto* e = With(new E, {{"Name", n}});
      if constexpr (std::is_same_v<E, CConvChannel> || std::is_same_v<E, CP25ConvChannel>) {
        e->SetTxFreq(810.0);
        e->SetRxFreq(855.0);
      }
      set->Add(e);
    }
  }
  return With(set, fields);
}

void AddSystems(CPersonality& p, bool withMessaging) {
  p.AddSystem(With(new CTrunkSystem, {{"Name", "T1"},
                                      {"TrunkSetName", "TRK"},
                                      {"GroupSetName", "GRP"},
                                      {"PhoneSetName", "PH"},
                                      {"iCallSetName", "IC"},
                                      {"SpCallSetName", "SP"},
                                      {"ScannedSystems", "C1,P1"},
                                      {"PriSys", "C1"},
                                      {"CnvPriSystem", "C1"},
                                      {"CnvPriChannel", "CH2"}}));
  auto* c1 =
      With(new CConvSystem, {{"Name", "C1"}, {"ConvSetName", "CONV"}, {"PhoneSetName", "PH"}});
  c1->SetSysType(ConvSystemType);
  p.AddSystem(c1);
  p.AddSystem(With(new CP25TrkSystem,  // set names ignore case: "trk"
                   {{"Name", "P1"},
                    {"TrunkSetName", "trk"},
                    {"GroupSetName", "P25G"},
                    {"PhoneSetName", "PH"},
                    {"iCallSetName", "IC"},
                    {"WaNetName", "WAN1"},
                    {"HomeWanName", "WAN1"},
                    {"ScannedSystems", "T1"}}));
  auto* pc = With(new CP25ConvSystem,
                  {{"Name", "PC"}, {"P25ConvSetName", "P25C"}, {"IcallSetName", "IC"}});
  pc->SetSysType(P25ConvSystemType);
  p.AddSystem(pc);
  p.AddSystem(
      With(new CExtAddSystem, {{"Name", "E1"}, {"TrunkSetName", "TRK"}, {"GroupSetName", "EAG"}}));
  if (withMessaging) {
    auto* m1 = With(new CPlmSystem, {{"Name", "M1"},
                                     {"TrunkSetName", "TRK"},
                                     {"GroupSetName", "PLMG"},
                                     {"SpCallSetName", "PLMSP"},
                                     {"ScannedSystems", "T1,C1"}});
    m1->SetSysType(PlmSystemType);
    p.AddSystem(m1);
  }
}

void AddSets(CPersonality& p, bool withMessaging) {
  p.AddSet(NamedSet<CTrunkSet>("TRK"), TrunkSetType);
  p.AddSet(NamedSet<CGroupSet, CGroup>("GRP", {"G1", "G2", "G3"},
                                       {{"HomeGrp", "G1"},
                                        {"Priority1Grp", "G2"},
                                        {"Priority2Grp", "G3"},
                                        {"PriorityTalkGrp", "G2"}}),
           GroupSetType);
  p.AddSet(NamedSet<CP25GroupSet, CP25Group>(
               "P25G", {"PG1", "PG2"},
               {{"HomeGrp", "PG1"}, {"Priority1Grp", "PG2"}, {"Priority2Grp", "PG1"}}),
           P25GroupSetType);
  p.AddSet(NamedSet<CExtAddGroupSet, CExtAddGroup>("EAG", {"EG1"}, {{"HomeGrp", "EG1"}}),
           EaGroupSetType);
  p.AddSet(NamedSet<CConvSet, CConvChannel>("CONV", {"CH1", "CH2", "CH3"},
                                            {{"HomeChan", "CH1"},
                                             {"P1Chan", "CH2"},
                                             {"P2Chan", "CH3"},
                                             {"WideScanChan", "CH1"},
                                             {"AltPttChan", "CH2"}}),
           ConvSetType);
  p.AddSet(
      NamedSet<CP25ConvSet, CP25ConvChannel>("P25C", {"PCH1", "PCH2"}, {{"P25GroupSet", "P25G"}}),
      P25ConvSetType);
  p.AddSet(NamedSet<CPhoneSet>("PH"), PhoneSetType);
  auto* ic = NamedSet<CICallSet, CICall>("IC", {"Desk"});
  SetText(*ic->GetAt(0), "WaNetName", "WAN1");
  p.AddSet(ic, ICallSetType);
  p.AddSet(NamedSet<CSpCallSet>("SP"), SpCallSetType);
  if (withMessaging) {
    p.AddSet(NamedSet<CPlmGroupSet, CPlmGroup>("PLMG", {"MG1"}), PlmGroupSetType);
    p.AddSet(NamedSet<CPlmSpCallSet>("PLMSP"), PlmSpCallSetType);
  }
}

void AddOptions(CPersonality& p) {
  // CallBackMess is a message text that happens to spell a system name, not a reference.
  p.PutOption(With(new CGenRadioOpts, {{"TestUnitSystem", "T1"},
                                       {"HomeSystem", "C1"},
                                       {"CallBackMess", "T1"},
                                       {"CnvTestSet", "conv"}}));
  p.PutOption(With(new CVantorOpts,
                   {{"System", "C1"}, {"Channel", "CH3"}, {"TrkSystem", "T1"}, {"Group", "G3"}}));
  p.PutOption(With(new CConvScanOpts, {{"HomeSystem", "C1"}, {"HomeChan", "CH1"}}));
  p.PutOption(
      With(new CLumoConvScanOpts,
           {{"P1System", "C1"}, {"P1Chan", "CH2"}, {"P2System", "PC"}, {"P2Chan", "PCH2"}}));
  p.PutOption(With(new CPowerUpOpts, {{"SystemName", "P1"}, {"GroupName", "PG2"}}));
  auto* wans = new CP25tWanOpts;
  auto* wan = new CP25TrkWan;
  wan->SetNetworkName("WAN1");
  wans->AddWan(wan);
  p.PutOption(wans);
}

}  // namespace

void SetText(CObject& rec, const char* field, const char* value) {
  TextField f(field);
  rec.VisitFields(f);
  ASSERT_TRUE(f.text != nullptr || f.list != nullptr) << rec.GetClassName() << " has no " << field;
  if (f.text != nullptr) {
    *f.text = value;
    return;
  }
  f.list->RemoveAll();
  for (std::string rest = value; !rest.empty();) {
    const std::size_t comma = std::min(rest.find(','), rest.size());
    f.list->Add(rest.substr(0, comma));
    rest.erase(0, comma + 1);
  }
}

std::string GetText(CObject& rec, const char* field) {
  TextField f(field);
  rec.VisitFields(f);
  if (f.text != nullptr) return f.text->str();
  if (f.list == nullptr) {
    ADD_FAILURE() << rec.GetClassName() << " has no field " << field;
    return "";
  }
  std::string joined;
  for (const CString& s : *f.list) joined += (joined.empty() ? "" : ",") + s.str();
  return joined;
}

std::unique_ptr<CPersonality> SamplePersonality(bool withMessaging) {
  auto p = std::make_unique<CPersonality>();
  p->SetLastRadio(101);
  AddSystems(*p, withMessaging);
  AddSets(*p, withMessaging);
  AddOptions(*p);
  return p;
}

}  // namespace persona::test
