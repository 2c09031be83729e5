// The checker: a clean personality has no findings; a personality broken in one way reports
// exactly that, once, with its code, severity and path.
#include <persona/integrity/checker.h>

#include <gtest/gtest.h>

#include <functional>
#include <sstream>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/options/scan_opts.h>
#include <persona/options/vantor_opts.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/group_set.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>
#include "integrity/sample_personality.h"

namespace persona {
namespace {

using test::SamplePersonality;
using test::SetText;

std::string Describe(const std::vector<Finding>& findings) {
  std::ostringstream out;
  for (const Finding& f : findings) {
    out << f.code << " " << f.severity << " " << f.path << ": " << f.message << "\n";
  }
  return out.str();
}

std::unique_ptr<CPersonality> Clean() { return SamplePersonality(/*withMessaging=*/false); }

void AddPhoneSet(CPersonality& p, const char* name) {
  auto* set = new CPhoneSet;
  set->SetName(name);
  p.AddSet(set, PhoneSetType);
}

struct Break {
  const char* what;
  std::function<void(CPersonality&)> apply;
  // "CODE severity path" of every expected finding.
  std::vector<std::string> expected;
};

std::vector<Break> Breaks() {
  return {
      {"nothing broken", [](CPersonality&) {}, {}},
      {"priority system missing",
       [](CPersonality& p) { SetText(*p.GetSystem("T1"), "PriSys", "Nowhere"); },
       {"REF_SYSTEM_MISSING 0 systems/T1/PriSys"}},
      {"scanned system missing",
       [](CPersonality& p) { SetText(*p.GetSystem("T1"), "ScannedSystems", "C1,Ghost"); },
       {"SCAN_SYSTEM_MISSING 0 systems/T1/ScannedSystems/2"}},
      {"phone set missing",
       [](CPersonality& p) { SetText(*p.GetSystem("C1"), "PhoneSetName", "Nope"); },
       {"REF_SET_MISSING 0 systems/C1/PhoneSetName"}},
      {"home channel missing",
       [](CPersonality& p) { SetText(*p.GetSet("CONV", ConvSetType), "HomeChan", "CH9"); },
       {"REF_CHANNEL_MISSING 0 sets/conv/CONV/HomeChan"}},
      {"priority group missing",
       [](CPersonality& p) { SetText(*p.GetSet("GRP", GroupSetType), "Priority2Grp", "G9"); },
       {"REF_GROUP_MISSING 0 sets/group/GRP/Priority2Grp"}},
      {"option channel without system",
       [](CPersonality& p) { SetText(*p.GetOption<CConvScanOpts>(), "HomeSystem", ""); },
       {"REF_SCOPE_MISSING 1 options/CConvScanOpts/HomeChan"}},
      {"option group of a system without group set",
       [](CPersonality& p) { SetText(*p.GetOption<CVantorOpts>(), "TrkSystem", "C1"); },
       {"REF_SCOPE_MISSING 1 options/CVantorOpts/Group"}},
      {"channel through a missing system is reported at the system",
       [](CPersonality& p) { SetText(*p.GetOption<CVantorOpts>(), "System", "Ghost"); },
       {"REF_SYSTEM_MISSING 0 options/CVantorOpts/System"}},
      {"WAN missing",
       [](CPersonality& p) { SetText(*p.GetSystem("P1"), "WaNetName", "WAN9"); },
       {"REF_WAN_MISSING 0 systems/P1/WaNetName"}},
      {"WAN missing at set elements: a unique name, then two of one name by position",
       [](CPersonality& p) {
         CSet* ic = p.GetSet("IC", ICallSetType);
         for (const char* name : {"Desk2", "Twin", "Twin"}) {
           auto* call = new CICall;
           call->SetName(name);
           call->SetWaNetName("WAN9");
           ic->Add(call);
         }
       },
       {"REF_WAN_MISSING 0 sets/icall/IC/Desk2/WaNetName",
        "REF_WAN_MISSING 0 sets/icall/IC/#3/WaNetName",
        "REF_WAN_MISSING 0 sets/icall/IC/#4/WaNetName"}},
      {"channel out of band",
       [](CPersonality& p) {
         static_cast<CConvChannel*>(p.GetSet("CONV", ConvSetType)->GetAt(2))->SetTxFreq(900.0);
       },
       {"FREQ_OUT_OF_RANGE 0 sets/conv/CONV/#3/TxFreq"}},
      {"key missing from the group set's key list",
       [](CPersonality& p) {
         auto* t1 = static_cast<CTrunkSystem*>(p.GetSystem("T1"));
         t1->SetESK(5);
         t1->SetEskName("K5");
         auto key = std::make_unique<CEskData>();
         key->SetEsk(5);
         key->SetEskId("K5");
         static_cast<CTrunkSet*>(p.GetSet("TRK", TrunkSetType))->AddEsk(key.get());
         std::vector<std::unique_ptr<CObject>> keys;
         keys.push_back(std::move(key));
         p.AdoptSharedRecords(std::move(keys));
       },
       {"KEY_MISSING 0 sets/group/GRP/Esks"}},
      {"set names differing in case",
       [](CPersonality& p) { AddPhoneSet(p, "ph"); },
       {"SET_NAME_DUPLICATE 1 sets/phone/ph"}},
      {"unused set",
       [](CPersonality& p) { AddPhoneSet(p, "Spare"); },
       {"SET_UNUSED 2 sets/phone/Spare"}},
      {"an empty reference does not use a set without a name",
       [](CPersonality& p) {
         AddPhoneSet(p, "");
         SetText(*p.GetSystem("C1"), "PhoneSetName", "");
       },
       {R"(SET_UNUSED 2 sets/phone/"")"}},
      {"system kind and WAN record the model does not take",
       [](CPersonality& p) { p.SetLastRadio(88); },
       {"SYSTEM_UNSUPPORTED 1 systems/P1", "OPTION_UNSUPPORTED 1 options/CP25tWanOpts"}},
      {"a key on a model without key lists, not again at the set",
       [](CPersonality& p) {
         p.SetLastRadio(101);  // keyed: the set's empty key list lacks the key
         static_cast<CTrunkSystem*>(p.GetSystem("T1"))->SetESK(5);
         EXPECT_EQ(CheckPersonality(p).size(), 2u);  // the group set's and the trunk set's
         p.SetLastRadio(77);
       },
       {"KEY_UNSUPPORTED 1 systems/T1/TrunkESK", "SYSTEM_UNSUPPORTED 1 systems/P1",
        "SYSTEM_UNSUPPORTED 1 systems/PC", "SYSTEM_UNSUPPORTED 1 systems/E1",
        "OPTION_UNSUPPORTED 1 options/CP25tWanOpts"}},
      {"conventional sets on a trunked-only model",
       [](CPersonality& p) { p.SetLastRadio(75); },
       {"SET_UNSUPPORTED 1 sets/conv/CONV", "SYSTEM_UNSUPPORTED 1 systems/C1",
        "SYSTEM_UNSUPPORTED 1 systems/P1", "SYSTEM_UNSUPPORTED 1 systems/PC",
        "SYSTEM_UNSUPPORTED 1 systems/E1", "OPTION_UNSUPPORTED 1 options/CP25tWanOpts"}},
  };
}

// The band edges: a channel exactly at a limit passes, one 10 Hz step outside fails, at the
// field named. Above 800 MHz the receive minimum applies too, transmit may exceed the receive
// maximum by 1 Hz, and only the P25 conventional set allows that on receive as well.
TEST(Checker, BandEdgesPassAtTheLimitAndFailOneStepOutside) {
  struct Row {
    double txMin, rxMin, rxMax, tx, rx;
    const char* conv;  // the finding's field in the conventional set ("" for none)
    const char* p25;   // in the P25 conventional set
  };
  const Row rows[] = {
      {150.0, 160.0, 174.0, 150.0, 174.0, "", ""},
      {150.0, 160.0, 174.0, 149.99999, 174.0, "TxFreq", "TxFreq"},
      {150.0, 160.0, 174.0, 0.0, 174.00001, "RxFreq", "RxFreq"},
      {150.0, 160.0, 174.0, 0.0, 100.0, "", ""},  // no receive minimum below 800 MHz
      {800.0, 851.0, 870.0, 0.0, 100.0, "", ""},
      {806.0, 851.0, 870.0, 870.000001, 851.0, "", ""},
      {806.0, 851.0, 870.0, 870.00001, 851.0, "TxFreq", "TxFreq"},
      {806.0, 851.0, 870.0, 806.0, 850.99999, "RxFreq", "RxFreq"},
      {806.0, 851.0, 870.0, 806.0, 870.0000005, "RxFreq", ""},
  };
  for (const Row& r : rows) {
    SCOPED_TRACE(std::to_string(r.tx) + " / " + std::to_string(r.rx));
    auto p = Clean();
    p->SetTxMinFreq(r.txMin);
    p->SetRxMinFreq(r.rxMin);
    p->SetRxMaxFreq(r.rxMax);
    auto* conv = static_cast<CConvChannel*>(p->GetSet("CONV", ConvSetType)->GetAt(0));
    auto* p25 = static_cast<CP25ConvChannel*>(p->GetSet("P25C", P25ConvSetType)->GetAt(0));
    conv->SetTxFreq(r.tx);
    conv->SetRxFreq(r.rx);
    p25->SetTxFreq(r.tx);
    p25->SetRxFreq(r.rx);
    std::string got;
    for (const Finding& f : CheckPersonality(*p)) {
      if (f.code == "FREQ_OUT_OF_RANGE" && f.path.find("/#1/") != std::string::npos) {
        got += f.path + " ";
      }
    }
    std::string want;
    if (*r.conv) want += std::string("sets/conv/CONV/#1/") + r.conv + " ";
    if (*r.p25) want += std::string("sets/p25conv/P25C/#1/") + r.p25 + " ";
    EXPECT_EQ(got, want);
  }
}

TEST(Checker, EachBreakIsReportedOnceWithItsCodeAndPath) {
  for (const Break& b : Breaks()) {
    SCOPED_TRACE(b.what);
    auto p = Clean();
    b.apply(*p);
    const std::vector<Finding> findings = CheckPersonality(*p);
    std::vector<std::string> got;
    for (const Finding& f : findings) {
      got.push_back(f.code + " " + std::to_string(f.severity) + " " + f.path);
      EXPECT_FALSE(f.message.empty());
    }
    EXPECT_EQ(got, b.expected) << Describe(findings);
  }
}

// Each message names what is wrong: a channel out of band with its frequency and the limit it
// breaks, at the field that is wrong.
TEST(Checker, MessagesNameWhatIsWrong) {
  auto p = Clean();
  SetText(*p->GetSet("CONV", ConvSetType), "HomeChan", "CH9");
  SetText(*p->GetSystem("T1"), "GroupSetName", "Missing");  // GRP becomes unused too
  p->SetTxMinFreq(806.0);
  p->SetRxMinFreq(851.0);
  p->SetRxMaxFreq(870.0);
  SetText(*p->GetSet("CONV", ConvSetType)->GetAt(0), "RxFreq", "874.2");
  SetText(*p->GetSet("CONV", ConvSetType)->GetAt(1), "TxFreq", "700");
  EXPECT_EQ(Describe(CheckPersonality(*p)),
            "REF_SET_MISSING 0 systems/T1/GroupSetName: names group set \"Missing\", which does "
            "not exist\n"
            "REF_CHANNEL_MISSING 0 sets/conv/CONV/HomeChan: names channel \"CH9\", which set "
            "\"CONV\" does not hold\n"
            "FREQ_OUT_OF_RANGE 0 sets/conv/CONV/#1/RxFreq: channel CH1 receives on 874.20000 MHz, "
            "outside 851.00000 - 870.00000 MHz\n"
            "FREQ_OUT_OF_RANGE 0 sets/conv/CONV/#2/TxFreq: channel CH2 transmits on 700.00000 MHz, "
            "below the transmit minimum 806.00000 MHz\n"
            "SET_UNUSED 2 sets/group/GRP: is not used by any system, set or option\n");
  // A trunked-only model: the message says which models take the system, the short way.
  auto q = Clean();
  q->SetLastRadio(75);
  const std::string all = Describe(CheckPersonality(*q));
  const std::size_t at = all.find("SYSTEM_UNSUPPORTED 1 systems/C1");
  ASSERT_NE(at, std::string::npos) << all;
  EXPECT_EQ(all.substr(at, all.find('\n', at) - at),
            "SYSTEM_UNSUPPORTED 1 systems/C1: system C1 is a Conventional system, which the Model "
            "75 trunked (radio type 75) does not take; every radio type but 72-75 takes it (prune "
            "removes it)");
}

}  // namespace
}  // namespace persona
