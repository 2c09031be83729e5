// The sample personality generator: systems, sets and option records with realistic names and
// values derived from their positions (no randomness, so the output never changes).
#include "sample/sample_personality.h"

#include <algorithm>
#include <string>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/options/mms_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/prgrm_calls.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/options/siren_lights.h>
#include <persona/options/status_message.h>
#include <persona/options/status_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/report/personality_ops.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/esk_data.h>
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

namespace persona {

namespace {

// Regions: set i of every kind is named after kRegions[i % n], with a number past the list.
const char* const kRegions[] = {"METRO", "NORTH", "SOUTH", "EAST",  "WEST",  "HARBOR",
                                "AIRPT", "RIVER", "HILLS", "VALLY", "COAST", "LAKES"};
constexpr int kNumRegions = sizeof kRegions / sizeof kRegions[0];
// Services: element j of a set is named after kServices[j % n] and a number.
const char* const kServices[] = {"FIRE", "PD", "EMS", "PW", "DOT", "SCHL", "UTIL", "MUTL"};
constexpr int kNumServices = sizeof kServices / sizeof kServices[0];
const char* const kPeople[] = {"DISPATCH", "CHIEF", "CAPTAIN", "MEDIC 1", "SGT DESK",
                               "FLEET",    "ROADS", "WATER",   "EOC",     "ANIMAL CT"};
constexpr int kNumPeople = sizeof kPeople / sizeof kPeople[0];

CString RegionName(int i) {
  if (i < kNumRegions) return CString(kRegions[i]);
  return CString::Formatted("%s%d", kRegions[i % kNumRegions], i / kNumRegions + 1);
}

CString ElementName(int j) {
  return CString::Formatted("%s %d", kServices[j % kNumServices], j / kNumServices + 1);
}

CString PersonName(int j) {
  if (j < kNumPeople) return CString(kPeople[j]);
  return CString::Formatted("UNIT %d", j + 1);
}

// 800 MHz band plan: receive 851.0125 MHz up in 12.5 kHz steps (wrapping inside the band),
// transmit 45 MHz below.
double RxFrequency(int k) { return 851.0125 + 0.0125 * (k % 1500); }

struct Builder {
  const SampleSpec& shape;
  CPersonality& p;
  unsigned short rt;
  int sets;     // sets of every kind
  int systems;  // systems of every kind

  CString SetName(const char* prefix, int i) const {
    return CString::Formatted("%s%s", prefix, RegionName(i).c_str());
  }
  // The set that system s of a kind uses.
  int SetOfSystem(int s) const { return std::min(s * shape.setsPerSystem, sets - 1); }

  template <class S>
  S* NewSet(S* set, const CString& name, SetType type) {
    set->SetName(name);
    p.AddSet(set, type);
    return set;
  }

  void AddConventionalSets() {
    const int perSet = std::clamp(shape.channelsPerSet, 1, 4096);
    int left = std::max(shape.conventionalChannels, 0);
    for (int i = 0; i < sets; ++i) {
      auto* set = NewSet(new CConvSet(rt, 0), SetName("", i), ConvSetType);
      set->SetTxMinFreq(806.0);
      set->SetTxMaxFreq(825.0);
      set->SetRxMinFreq(851.0);
      set->SetRxMaxFreq(870.0);
      const int count = i == sets - 1 ? left : std::min(perSet, left);
      for (int j = 0; j < count; ++j) {
        auto* ch = new CConvChannel(rt, 0);
        const int k = i * perSet + j;
        ch->SetName(ElementName(j));
        ch->SetRxFreq(RxFrequency(k));
        ch->SetTxFreq(j % 5 == 4 ? RxFrequency(k) : RxFrequency(k) - 45.0);
        ch->SetTxCg(CString::Formatted("%d.%d", 67 + (k * 7) % 180, k % 10));
        ch->SetRxCg(ch->GetTxCg());
        ch->SetScan(j % 3 != 2);
        ch->SetBandWidth(j % 2);
        ch->SetPower(j % 4 == 0 ? 0 : 1);
        ch->SetTalkaround(j % 5 == 4);
        set->Add(ch);
      }
      left -= count;
      if (count > 0) set->SetHomeChan(ElementName(0));
      if (count > 1) set->SetP1Chan(ElementName(1));
      if (count > 2) set->SetP2Chan(ElementName(2));
    }
  }

  void AddP25ConventionalSets() {
    for (int i = 0; i < sets; ++i) {
      auto* set = NewSet(new CP25ConvSet(rt, 0), SetName("P25", i), P25ConvSetType);
      set->SetTxMinFreq(806.0);
      set->SetTxMaxFreq(825.0);
      set->SetRxMinFreq(851.0);
      set->SetRxMaxFreq(870.0);
      set->SetP25GroupSet(SetName("P", i));
      for (int j = 0; j < shape.groupsPerSet; ++j) {
        auto* ch = new CP25ConvChannel(rt, 0);
        const int k = 1000 + i * shape.groupsPerSet + j;
        ch->SetName(ElementName(j));
        ch->SetRxFreq(RxFrequency(k));
        ch->SetTxFreq(RxFrequency(k) - 45.0);
        ch->SetTgid(static_cast<DWORD>(100 + i * 100 + j));
        ch->SetTxNac(static_cast<WORD>(0x293 + i));
        ch->SetRxNac(static_cast<WORD>(0x293 + i));
        ch->SetScan(1);
        set->Add(ch);
      }
    }
  }

  void AddTrunkSets(const CObList& keys) {
    for (int i = 0; i < sets; ++i) {
      auto* set = NewSet(new CTrunkSet(rt, 0, 851.0), SetName("T-", i), TrunkSetType);
      set->SetTxMinFreq(806.0);
      set->SetTxMaxFreq(825.0);
      set->SetRxMinFreq(851.0);
      set->SetRxMaxFreq(870.0);
      set->SetSiteId(static_cast<WORD>(i + 1));
      set->SetMaxChan(static_cast<WORD>(shape.trunkChannelsPerSet));
      for (int j = 0; j < shape.trunkChannelsPerSet; ++j) {
        auto* ch = new CTrunkChannel(rt, 0);
        const int k = 600 + i * 40 + j * 3;
        ch->SetRxFreq(RxFrequency(k));
        ch->SetTxFreq(RxFrequency(k) - 45.0);
        ch->SetType(j == 0 ? 1 : 0);
        set->Add(ch);
      }
      for (CObject* key : keys) set->AddEsk(static_cast<CEskData*>(key));
    }
  }

  template <class G>
  void FillGroup(G* g, int i, int j) {
    g->SetName(ElementName(j));
    g->SetGrpId(static_cast<WORD>(16 * (i * shape.groupsPerSet + j + 1)));
    g->SetTx(1);
    g->SetRx(1);
    g->SetScan(j % 4 != 3);
    g->SetCallTime(static_cast<WORD>(j % 4));
  }

  template <class S>
  void NameGroups(S* set) {
    if (set->GetSize() > 0) set->SetHomeGrp(ElementName(0));
    if (set->GetSize() > 1) set->SetPriority1Grp(ElementName(1));
    if (set->GetSize() > 2) set->SetPriority2Grp(ElementName(2));
  }

  void AddGroupSets(const CObList& keys) {
    for (int i = 0; i < sets; ++i) {
      auto* set = NewSet(new CGroupSet(rt, 0, GroupSetType), SetName("G-", i), GroupSetType);
      for (int j = 0; j < shape.groupsPerSet; ++j) {
        auto* g = new CGroup(rt, 0);
        FillGroup(g, i, j);
        set->Add(g);
      }
      NameGroups(set);
      for (CObject* key : keys) set->AddEsk(static_cast<CEskData*>(key));

      auto* ea = NewSet(new CExtAddGroupSet(rt, 0), SetName("E-", i), EaGroupSetType);
      for (int j = 0; j < shape.groupsPerSet; ++j) {
        auto* g = new CExtAddGroup(rt, 0);
        FillGroup(g, i, j);
        g->SetEaGrpId(static_cast<DWORD>(0x10000 + 256 * i + j));
        g->SetKeyBank(static_cast<WORD>(j % 2));
        ea->Add(g);
      }
      NameGroups(ea);
      for (CObject* key : keys) ea->AddEsk(static_cast<CEskData*>(key));

      auto* p25 = NewSet(new CP25GroupSet(rt, 0), SetName("P", i), P25GroupSetType);
      for (int j = 0; j < shape.groupsPerSet; ++j) {
        auto* g = new CP25Group(rt, 0);
        g->SetName(ElementName(j));
        g->SetGrpId(static_cast<DWORD>(100 + i * 100 + j));
        g->SetEncrypt(j % 3 == 0);
        g->SetKeyId(j % 3 == 0 ? 0x0101 + i : 0);
        g->SetTx(1);
        g->SetRx(1);
        g->SetScan(1);
        p25->Add(g);
      }
      NameGroups(p25);

      auto* plm = NewSet(new CPlmGroupSet(rt, 0), SetName("M-", i), PlmGroupSetType);
      for (int j = 0; j < shape.groupsPerSet; ++j) {
        auto* g = new CPlmGroup(rt, 0);
        g->SetName(ElementName(j));
        g->SetTone(0, static_cast<WORD>(1 + (i + j) % 30));
        g->SetTone(1, static_cast<WORD>(1 + (i + 2 * j) % 30));
        plm->Add(g);
      }
    }
  }

  void AddCallSets() {
    for (int i = 0; i < sets; ++i) {
      auto* phones = NewSet(new CPhoneSet(rt, 0), SetName("PH-", i), PhoneSetType);
      auto* icalls = NewSet(new CICallSet(rt, 0), SetName("IC-", i), ICallSetType);
      auto* spcalls = NewSet(new CSpCallSet(rt, 0), SetName("SC-", i), SpCallSetType);
      auto* plmcalls = NewSet(new CPlmSpCallSet(rt, 0), SetName("MS-", i), PlmSpCallSetType);
      spcalls->SetLidLow(static_cast<WORD>(1000 * (i + 1)));
      spcalls->SetLidHigh(static_cast<WORD>(1000 * (i + 1) + 999));
      for (int j = 0; j < shape.callsPerSet; ++j) {
        auto* phone = new CPhoneCall(rt, 0);
        phone->SetName(PersonName(j));
        phone->SetNumber(CString::Formatted("555%04d", 100 * (i + 1) + j));
        phone->SetDisplay(1);
        phones->Add(phone);
        auto* icall = new CICall(rt, 0);
        icall->SetName(PersonName(j));
        icall->SetLid(static_cast<WORD>(1000 * (i + 1) + 10 * j + 1));
        icall->SetDisplay(1);
        icall->SetDLid(static_cast<DWORD>(0x100000 + 1000 * i + j));
        icalls->Add(icall);
        auto* sp = new CSpCall(rt, 0);
        sp->SetName(CString::Formatted("SPCL %d", j + 1));
        sp->SetNumber(CString::Formatted("%d", 1000 * (i + 1) + 100 + j));
        sp->SetType(static_cast<BYTE>(j % 3));
        spcalls->Add(sp);
        auto* plm = new CPlmSpCall(rt, 0);
        plm->SetName(CString::Formatted("PAGE %d", j + 1));
        plm->SetNumber(CString::Formatted("%03d", 200 + 10 * i + j));
        plm->SetType(static_cast<BYTE>(j % 2));
        plmcalls->Add(plm);
      }
    }
  }

  template <class S>
  S* NewSystem(S* system, SystemType type, const char* prefix, int s) {
    system->SetName(CString::Formatted("%s %s", prefix, RegionName(s).c_str()));
    system->SetSysType(type);
    p.AddSystem(system);
    return system;
  }

  template <class S>
  void FillTrunked(S* sys, int s, const char* groupPrefix) {
    const int i = SetOfSystem(s);
    sys->SetUnit(static_cast<WORD>(2001 + s));
    sys->SetSite(static_cast<WORD>(s + 1));
    sys->SetFsChan(static_cast<WORD>(1 + s % 8));
    sys->SetTrunkSetName(SetName("T-", i));
    sys->SetGroupSetName(SetName(groupPrefix, i));
    sys->SetPhoneSetName(SetName("PH-", i));
    sys->SetiCallSetName(SetName("IC-", i));
    sys->SetSpCallSetName(SetName("SC-", i));
    sys->SetVeskaHostLid(static_cast<DWORD>(16777000 + s));
    sys->SetVeskaHostIpAddr(0xC0A80A00u + static_cast<DWORD>(10 + s));  // 192.168.10.x
  }

  void AddSystems() {
    for (int s = 0; s < systems; ++s) {
      const int i = SetOfSystem(s);
      auto* trk = NewSystem(new CTrunkSystem(rt, 0), TrunkedSystemType, "KVX", s);
      FillTrunked(trk, s, "G-");
      trk->SetESK(static_cast<WORD>(11 + s));
      trk->SetEskName(CString::Formatted("KEY %s", RegionName(s).c_str()));
      trk->SetKwMode(1);
      trk->SetSonvra(static_cast<BYTE>(s % 3));

      auto* cnv = NewSystem(new CConvSystem(rt, 0), ConvSystemType, "CNV", s);
      cnv->SetConvSetName(SetName("", i));
      cnv->SetPhoneSetName(SetName("PH-", i));
      cnv->SetToneSet(static_cast<WORD>(1 + s % 4));
      cnv->SetCgSel(1);

      auto* plm = NewSystem(new CPlmSystem(rt, 0), PlmSystemType, "MSG", s);
      plm->SetTrunkSetName(SetName("T-", i));
      plm->SetGroupSetName(SetName("M-", i));
      plm->SetSpCallSetName(SetName("MS-", i));
      for (int t = 0; t < 4; ++t) {
        plm->SetSpCallTone(t, static_cast<WORD>(300 + 50 * t + s));
        plm->SetIndvDecTone(t, static_cast<WORD>(600 + 50 * t + s));
      }

      auto* p25c = NewSystem(new CP25ConvSystem(rt, 0), P25ConvSystemType, "P25C", s);
      p25c->SetUnit(static_cast<DWORD>(0x200000 + s));
      p25c->SetP25ConvSetName(SetName("P25", i));
      p25c->SetIcallSetName(SetName("IC-", i));
      p25c->SetEncryptType(1);
      p25c->SetKeyId(static_cast<DWORD>(0x0101 + s));

      auto* ea = NewSystem(new CExtAddSystem(rt, 0), EaSystemType, "KIP", s);
      FillTrunked(ea, s, "E-");
      ea->SetESK(static_cast<WORD>(31 + s));
      ea->SetEskName(CString::Formatted("EAKEY %d", s + 1));
      ea->SetEaUnit(static_cast<DWORD>(0x300000 + s));
      ea->SetEaSite(static_cast<DWORD>(s + 1));

      auto* p25t = NewSystem(new CP25TrkSystem(rt, 0), P25TrkSystemType, "P25T", s);
      FillTrunked(p25t, s, "P");
      p25t->SetWaNetName(CString::Formatted("WAN %d", s % 2 + 1));
      p25t->SetHomeWanName("WAN 1");
      p25t->SetSystemNac(static_cast<WORD>(0x293 + s));
      p25t->SetHomeUnitId(static_cast<DWORD>(0x400000 + s));
      p25t->SetUnitReg(static_cast<CP25TrkSystem::UnitRegType>(1));
      p25t->SetRegTimer(30);
      p25t->SetAlgorithmId(0x84);
      p25t->SetDefaultKeyId(static_cast<WORD>(0x0101 + s));
      p25t->SetRfssId(static_cast<WORD>(1 + s));
      p25t->SetSiteId(static_cast<WORD>(0x10 + s));
      p25t->SetDefaultChnlSpacing(125);
      p25t->SetDefaultBaseFreq(851006250u);
      p25t->SetDefaultTxOffset(-45);

      trk->SetScannedSystemAt(ea->GetName(), 0);
      trk->SetScannedSystemAt(p25t->GetName(), 1);
      trk->SetPriSys(p25t->GetName());
      trk->SetCnvPriSystem(cnv->GetName());
      trk->SetCnvPriChannel(ElementName(0));
    }
  }

  template <class T>
  T* Option() {
    return p.GetOption<T>();
  }

  // Every option record with the model defaults, then the lists filled in.
  void AddOptions() {
    AddModelDefaultOptions(p, rt);
    auto* pad = Option<CScratchPadOpts>();
    pad->AddLid(1201);
    pad->AddLid(1202);
    pad->AddPhoneNumber("5550100");
    auto* siren = Option<CSirenLightsOpts>();
    for (int i = 0; i < 3; ++i) {
      auto* e = new CSirenLights(rt, 0);
      e->SetMode(static_cast<BYTE>(i));
      e->SetSiren(static_cast<BYTE>(i % 2));
      siren->AddEntry(e);
    }
    auto* status = Option<CStatus>();
    const char* const statuses[] = {"AVAILABLE", "ENROUTE", "ON SCENE", "TRANSPORT"};
    for (int i = 0; i < 4; ++i) {
      auto* e = new CStatusMessage(rt, 0);
      e->SetName(statuses[i]);
      e->SetId(static_cast<WORD>(i + 1));
      status->AddStatus(e);
    }
    auto* message = Option<CMessage>();
    const char* const messages[] = {"CALL DISPATCH", "NEED BACKUP", "RETURNING"};
    for (int i = 0; i < 3; ++i) {
      auto* e = new CStatusMessage(rt, 0);
      e->SetName(messages[i]);
      e->SetId(static_cast<WORD>(i + 1));
      message->AddMessage(e);
    }
    auto* mms = Option<CMmsOpts>();
    mms->SetIpAddress("10.20.30.40");
    for (int i = 0; i < 2; ++i) {
      auto* m = new CMmsMsg(rt, 0);
      m->SetText(i == 0 ? "PLATE CHECK" : "WELFARE CHECK");
      m->SetDestId(static_cast<DWORD>(1200 + i));
      mms->AddMessage(m);
    }
    mms->AddMmsId(7);
    auto* icalls = Option<CPrgrmICall>();
    icalls->AddCall(PersonName(0));
    icalls->AddCall(PersonName(1));
    auto* phones = Option<CPrgrmPhoneCall>();
    phones->AddCall(PersonName(2));
    auto* tones = Option<CToneEncode>();
    for (int i = 0; i < 2; ++i) {
      auto* seq = new CToneSeq(rt, 0);
      seq->SetName(i == 0 ? "ALERT 1" : "PAGE ALL");
      seq->SetEncodeType(static_cast<BYTE>(i + 1));
      seq->SetEncodingTrigger(1);
      CWordArray codes;
      codes.Add(static_cast<WORD>(10000 + 1000 * i));
      codes.Add(static_cast<WORD>(12000 + 1000 * i));
      seq->SetTones(codes);
      tones->AddSeq(seq);
    }
    auto* wans = Option<CP25tWanOpts>();
    for (int i = 0; i < 2; ++i) {
      auto* wan = new CP25TrkWan(rt, 0);
      wan->SetNetworkName(CString::Formatted("WAN %d", i + 1));
      wan->SetNetworkAddr(static_cast<DWORD>(0xBEE00 + i));
      wan->SetSystemId(static_cast<WORD>(0x3A1 + i));
      wans->AddWan(wan);
    }
  }
};

}  // namespace

std::unique_ptr<CPersonality> BuildSamplePersonality(const SampleSpec& shape) {
  auto p = std::make_unique<CPersonality>(shape.radioType, 0);
  p->SetName("SAMPLE COUNTY");
  p->SetDescription("County public safety fleet: trunked, conventional and P25 systems");
  p->SetSavedOn("2026-03-14 09:30");
  p->SetSavedBy("persona sample generator");
  p->AddRadioType(static_cast<unsigned short>(shape.radioType + 1));
  p->SetTxMinFreq(806.0);
  p->SetTxMaxFreq(825.0);
  p->SetRxMinFreq(851.0);
  p->SetRxMaxFreq(870.0);

  const int perSet = std::clamp(shape.channelsPerSet, 1, 4096);
  const int sets = std::max(1, (std::max(shape.conventionalChannels, 0) + perSet - 1) / perSet);
  const int perSystem = std::max(shape.setsPerSystem, 1);
  Builder b{shape, *p, shape.radioType, sets, (sets + perSystem - 1) / perSystem};
  b.AddSystems();
  CObList keys;
  p->GetSharedEskList(keys);  // the keys of the trunked systems, kept by the personality
  b.AddTrunkSets(keys);
  b.AddGroupSets(keys);
  b.AddConventionalSets();
  b.AddP25ConventionalSets();
  b.AddCallSets();
  b.AddOptions();
  return p;
}

}  // namespace persona
