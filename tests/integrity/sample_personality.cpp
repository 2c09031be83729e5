// The sample personality of the reference maintenance tests.
#include "integrity/sample_personality.h"

#include <gtest/gtest.h>

#include <cstring>

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

template <class T>
T* Named(T* rec, const char* name) {
  SetText(*rec, "Name", name);
  return rec;
}

template <class S>
S* NamedSet(const char* name) {
  auto* set = new S;
  set->SetName(name);
  return set;
}

template <class E>
void AddElements(CSet* set, std::initializer_list<const char*> names) {
  for (const char* n : names) set->Add(Named(new E, n));
}

template <class C>
void AddChannels(CSet* set, std::initializer_list<const char*> names) {
  for (const char* n : names) {
    auto* ch = Named(new C, n);
    ch->SetTxFreq(810.0);
    ch->SetRxFreq(855.0);
    set->Add(ch);
  }
}

void AddSystems(CPersonality& p, bool withMessaging) {
  auto* t1 = Named(new CTrunkSystem, "T1");
  SetText(*t1, "TrunkSetName", "TRK");
  SetText(*t1, "GroupSetName", "GRP");
  SetText(*t1, "PhoneSetName", "PH");
  SetText(*t1, "iCallSetName", "IC");
  SetText(*t1, "SpCallSetName", "SP");
  SetTexts(*t1, "ScannedSystems", {"C1", "P1"});
  SetText(*t1, "PriSys", "C1");
  SetText(*t1, "CnvPriSystem", "C1");
  SetText(*t1, "CnvPriChannel", "CH2");
  p.AddSystem(t1);

  auto* c1 = Named(new CConvSystem, "C1");
  c1->SetSysType(ConvSystemType);
  SetText(*c1, "ConvSetName", "CONV");
  SetText(*c1, "PhoneSetName", "PH");
  p.AddSystem(c1);

  auto* p1 = Named(new CP25TrkSystem, "P1");
  SetText(*p1, "TrunkSetName", "trk");  // set names ignore case
  SetText(*p1, "GroupSetName", "P25G");
  SetText(*p1, "PhoneSetName", "PH");
  SetText(*p1, "iCallSetName", "IC");
  SetText(*p1, "WaNetName", "WAN1");
  SetText(*p1, "HomeWanName", "WAN1");
  SetTexts(*p1, "ScannedSystems", {"T1"});
  p.AddSystem(p1);

  auto* pc = Named(new CP25ConvSystem, "PC");
  pc->SetSysType(P25ConvSystemType);
  SetText(*pc, "P25ConvSetName", "P25C");
  SetText(*pc, "IcallSetName", "IC");
  p.AddSystem(pc);

  auto* e1 = Named(new CExtAddSystem, "E1");
  SetText(*e1, "TrunkSetName", "TRK");
  SetText(*e1, "GroupSetName", "EAG");
  p.AddSystem(e1);

  if (withMessaging) {
    auto* m1 = Named(new CPlmSystem, "M1");
    m1->SetSysType(PlmSystemType);
    SetText(*m1, "TrunkSetName", "TRK");
    SetText(*m1, "GroupSetName", "PLMG");
    SetText(*m1, "SpCallSetName", "PLMSP");
    SetTexts(*m1, "ScannedSystems", {"T1", "C1"});
    p.AddSystem(m1);
  }
}

void AddSets(CPersonality& p, bool withMessaging) {
  p.AddSet(NamedSet<CTrunkSet>("TRK"), TrunkSetType);

  auto* grp = NamedSet<CGroupSet>("GRP");
  AddElements<CGroup>(grp, {"G1", "G2", "G3"});
  SetText(*grp, "HomeGrp", "G1");
  SetText(*grp, "Priority1Grp", "G2");
  SetText(*grp, "Priority2Grp", "G3");
  SetText(*grp, "PriorityTalkGrp", "G2");
  p.AddSet(grp, GroupSetType);

  auto* p25g = NamedSet<CP25GroupSet>("P25G");
  AddElements<CP25Group>(p25g, {"PG1", "PG2"});
  SetText(*p25g, "HomeGrp", "PG1");
  SetText(*p25g, "Priority1Grp", "PG2");
  SetText(*p25g, "Priority2Grp", "PG1");
  p.AddSet(p25g, P25GroupSetType);

  auto* eag = NamedSet<CExtAddGroupSet>("EAG");
  AddElements<CExtAddGroup>(eag, {"EG1"});
  SetText(*eag, "HomeGrp", "EG1");
  p.AddSet(eag, EaGroupSetType);

  auto* conv = NamedSet<CConvSet>("CONV");
  AddChannels<CConvChannel>(conv, {"CH1", "CH2", "CH3"});
  SetText(*conv, "HomeChan", "CH1");
  SetText(*conv, "P1Chan", "CH2");
  SetText(*conv, "P2Chan", "CH3");
  SetText(*conv, "WideScanChan", "CH1");
  SetText(*conv, "AltPttChan", "CH2");
  p.AddSet(conv, ConvSetType);

  auto* p25c = NamedSet<CP25ConvSet>("P25C");
  AddChannels<CP25ConvChannel>(p25c, {"PCH1", "PCH2"});
  SetText(*p25c, "P25GroupSet", "P25G");
  p.AddSet(p25c, P25ConvSetType);

  p.AddSet(NamedSet<CPhoneSet>("PH"), PhoneSetType);
  auto* ic = NamedSet<CICallSet>("IC");
  AddElements<CICall>(ic, {"Desk"});
  SetText(*ic->GetAt(0), "WaNetName", "WAN1");
  p.AddSet(ic, ICallSetType);
  p.AddSet(NamedSet<CSpCallSet>("SP"), SpCallSetType);
  if (withMessaging) {
    auto* plmg = NamedSet<CPlmGroupSet>("PLMG");
    AddElements<CPlmGroup>(plmg, {"MG1"});
    p.AddSet(plmg, PlmGroupSetType);
    p.AddSet(NamedSet<CPlmSpCallSet>("PLMSP"), PlmSpCallSetType);
  }
}

void AddOptions(CPersonality& p) {
  auto* general = new CGenRadioOpts;
  SetText(*general, "TestUnitSystem", "T1");
  SetText(*general, "HomeSystem", "C1");
  SetText(*general, "CallBackMess", "T1");  // a message text, not a name
  SetText(*general, "CnvTestSet", "conv");
  p.PutOption(general);

  auto* vantor = new CVantorOpts;
  SetText(*vantor, "System", "C1");
  SetText(*vantor, "Channel", "CH3");
  SetText(*vantor, "TrkSystem", "T1");
  SetText(*vantor, "Group", "G3");
  p.PutOption(vantor);

  auto* scan = new CConvScanOpts;
  SetText(*scan, "HomeSystem", "C1");
  SetText(*scan, "HomeChan", "CH1");
  p.PutOption(scan);

  auto* lumo = new CLumoConvScanOpts;
  SetText(*lumo, "P1System", "C1");
  SetText(*lumo, "P1Chan", "CH2");
  SetText(*lumo, "P2System", "PC");
  SetText(*lumo, "P2Chan", "PCH2");
  p.PutOption(lumo);

  auto* power = new CPowerUpOpts;
  SetText(*power, "SystemName", "P1");
  SetText(*power, "GroupName", "PG2");
  p.PutOption(power);

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
  ASSERT_NE(f.text, nullptr) << rec.GetClassName() << " has no string field " << field;
  *f.text = value;
}

void SetTexts(CObject& rec, const char* field, std::initializer_list<const char*> values) {
  TextField f(field);
  rec.VisitFields(f);
  ASSERT_NE(f.list, nullptr) << rec.GetClassName() << " has no list field " << field;
  f.list->RemoveAll();
  for (const char* v : values) f.list->Add(v);
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
