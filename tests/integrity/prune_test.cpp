// Pruning a personality for its radio model: the system kinds each model keeps, the sets that
// stay because something names them, the counts the steps return, and the tables behind them.
#include <gtest/gtest.h>

#include <persona/conventional/conv_set.h>
#include <persona/integrity/set_use.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/vantor_opts.h>
#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_system.h>
#include "integrity/sample_personality.h"
#include "support/record_testing.h"

namespace persona {
namespace {

using test::GetText;
using test::SamplePersonality;

std::unique_ptr<CPersonality> ForRadio(WORD radio) {
  auto p = SamplePersonality();
  p->SetLastRadio(radio);
  return p;
}

// Systems per kind and sets per list (in type order), and "wan" while the WAN record stays.
std::string Shape(const CPersonality& p) {
  std::string s;
  for (int t = 0; t < kNumSystemTypes; ++t) s += std::to_string(p.GetNumSystems(SystemType(t)));
  s += " ";
  for (int t = 0; t < kNumSetTypes; ++t) s += std::to_string(p.GetNumSets(SetType(t)));
  return s + (p.GetOption<CP25tWanOpts>() != nullptr ? " wan" : "");
}

// Pruning the sample (one system of every kind, one set in every list) for each model: the
// system kinds the model does not run go, then the sets nothing names any more (a
// conventional-only model loses every conventional set, used or not), and the names of
// removed systems leave the records that named them.
TEST(Prune, EachModelKeepsTheSystemKindsItRunsAndTheSetsStillNamed) {
  // Systems: trunked, conventional, messaging, P25 conventional, extended addressing, P25
  // trunked; then the sets of types 0 to 10.
  // 65 messaging, 74 trunked only, 88 P25 conventional (its P25 group set is still named by
  // the P25 conventional set), 101 P25 trunked, 27 to 52 conventional only.
  const std::pair<WORD, const char*> rows[] = {
      {65, "111000 11111111000"},      {1, "110000 11111100000"},  {74, "100000 10111100000"},
      {101, "110111 11111100111 wan"}, {88, "110110 11111100111"}, {27, "010000 01010000000"},
      {28, "010000 01010000000"},      {29, "010000 01010000000"}, {30, "010000 01010000000"},
      {33, "010000 01010000000"},      {52, "010000 01010000000"}, {31, "110000 11111100000"}};
  for (const auto& [radio, shape] : rows) {
    auto p = ForRadio(radio);
    auto* spare = new CConvSet;
    spare->SetName("SPARE");
    p->AddSet(spare, ConvSetType);
    ASSERT_TRUE(p->RemoveUnusedSystemsAndSets());
    EXPECT_EQ(Shape(*p), shape) << radio;
  }
  auto lose = ForRadio(1);
  ASSERT_TRUE(lose->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(GetText(*lose->GetSystem("T1"), "ScannedSystems"), "C1");  // P1 left the scan list
  auto trunkedOnly = ForRadio(74);
  ASSERT_TRUE(trunkedOnly->RemoveUnusedSystemsAndSets());
  for (const char* field : {"System", "Channel"}) {
    EXPECT_EQ(GetText(*trunkedOnly->GetOption<CVantorOpts>(), field), "") << field;
  }
  EXPECT_EQ(GetText(*trunkedOnly->GetSystem("T1"), "PriSys"), "");
  auto conv = ForRadio(88);
  ASSERT_TRUE(conv->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(GetText(*conv->GetOption<CPowerUpOpts>(), "SystemName"), "");
}

TEST(Prune, SetNamesCompareIgnoringCaseAndOnlyConsultedKindsCount) {
  // P25 conventional systems do not name phone sets: Harbor is named only as a P25 set.
  CPersonality p;
  test::AddRecords(p, R"(
system CTrunkSystem 0 Name=North PhoneSetName=CITY
system CP25ConvSystem 3 Name=Ops P25ConvSetName=Harbor
set CPhoneSet 3 Name=City
set CPhoneSet 3 Name=Harbor
set CPhoneSet 3 Name=A
set CPhoneSet 3 Name=B
set CPhoneSet 3 Name=county
)");
  EXPECT_EQ(p.checkForSystemReferencesToSet("city", PhoneSetType), 1);
  EXPECT_EQ(p.checkForSystemReferencesToSet("Harbor", PhoneSetType), 0);
  EXPECT_EQ(p.checkForSystemReferencesToSet("Harbor", P25ConvSetType), 1);
  EXPECT_EQ(p.checkForSystemReferencesToSet("", PhoneSetType), 0);
  // Harbor, A, B (adjacent) and county go; City stays.
  EXPECT_EQ(p.RemoveUnusedPhoneSets(), 4);
  ASSERT_EQ(p.GetNumSets(PhoneSetType), 1);
  EXPECT_EQ(p.GetSetAt(0, PhoneSetType)->GetName(), "City");
  EXPECT_EQ(p.GetSet("county", PhoneSetType), nullptr);  // lookups see the new list
  EXPECT_EQ(p.RemoveUnusedPhoneSets(), 0);
}

TEST(Prune, TwoAdjacentUnusedSetsAndTheKeepRules) {
  // A trunked system does not name conventional sets; the general options' test set counts.
  CPersonality p;
  test::AddRecords(p, R"(
set CConvSet 1 Name=USED
set CConvSet 1 Name=X1
set CConvSet 1 Name=X2
set CConvSet 1 Name=TEST
system CTrunkSystem 0 Name=T
system CConvSystem 1 Name=C ConvSetName=used
option CGenRadioOpts CnvTestSet=Test
)");
  EXPECT_EQ(p.RemoveUnusedConvSets(), 2);
  ASSERT_EQ(p.GetNumSets(ConvSetType), 2);
  EXPECT_EQ(p.GetSetAt(0, ConvSetType)->GetName(), "USED");
  EXPECT_EQ(p.GetSetAt(1, ConvSetType)->GetName(), "TEST");
  EXPECT_EQ(p.GetSet("test", ConvSetType), p.GetSetAt(1, ConvSetType));  // found where it went
  EXPECT_EQ(p.GetSet("X2", ConvSetType), nullptr);
  EXPECT_EQ(p.RemoveAllConventionalSets(), 2);
  EXPECT_EQ(p.GetSet("USED", ConvSetType), nullptr);
  // Empty lists: nothing removed; no systems: every set is unused.
  CPersonality empty;
  EXPECT_EQ(empty.RemoveUnusedTrunkedSets(), 0);
  auto sample = SamplePersonality();
  for (int i = sample->GetNumSystems() - 1; i >= 0; --i) sample->DeleteSystemAt(i);
  EXPECT_EQ(sample->RemoveUnusedGroupSets(), 1);
  EXPECT_EQ(sample->RemoveUnusedP25GroupSets(), 0);  // still named by the P25 conventional set
  EXPECT_EQ(sample->RemoveUnusedP25ConvSets(), 1);
  EXPECT_EQ(sample->RemoveUnusedP25GroupSets(), 1);
}

TEST(Prune, RemoveSystemsKeepsTheOrderOfTheOthers) {
  auto p = SamplePersonality();
  EXPECT_EQ(p->RemoveSystems(EaSystemType), 1);
  EXPECT_EQ(p->RemoveSystems(EaSystemType), 0);
  EXPECT_EQ(p->RemoveSystems(ConvSystemType), 1);
  CStringArray names;
  p->GetSystemNames(names);
  ASSERT_EQ(names.GetSize(), 4);
  EXPECT_EQ(names[0], "T1");
  EXPECT_EQ(names[1], "P1");
  EXPECT_EQ(names[2], "PC");
  EXPECT_EQ(names[3], "M1");
  EXPECT_EQ(p->GetSystem("C1"), nullptr);
  EXPECT_EQ(GetText(*p->GetSystem("M1"), "ScannedSystems"), "T1");
  EXPECT_EQ(GetText(*p->GetOption<CGenRadioOpts>(), "HomeSystem"), "");
}

// The tables pruning relies on: which set lists a system consults by kind, which system kinds a
// radio type keeps.
// One character per set type 0 to 10: 'x' where the system names a set of that list.
std::string ListsNamed(const CSystem& system) {
  std::string out;
  for (int t = 0; t < kNumSetTypes; ++t) {
    CString name("unchanged");
    const bool named = SystemSetNameFor(system, static_cast<SetType>(t), &name);
    EXPECT_EQ(named, name != "unchanged") << t;
    out += named ? 'x' : '.';
  }
  return out;
}

TEST(SetUse, EachSystemKindNamesExactlyItsOwnLists) {
  //                      set type: 0123456789A
  struct Case {
    std::unique_ptr<CSystem> system;
    SystemType kind;  // set by the system's creator
    const char* lists;
  };
  Case cases[] = {
      {std::make_unique<CTrunkSystem>(), TrunkedSystemType, "x.xxxx....."},
      {std::make_unique<CExtAddSystem>(), EaSystemType, "x..xx.....x"},
      {std::make_unique<CP25TrkSystem>(), P25TrkSystemType, "x.xxx....x."},
      {std::make_unique<CPlmSystem>(), PlmSystemType, "x.....xx..."},
      {std::make_unique<CConvSystem>(), ConvSystemType, ".x.x......."},
      {std::make_unique<CP25ConvSystem>(), P25ConvSystemType, "....x...x.."},
  };
  for (Case& c : cases) {
    test::FillFields(*c.system, 4);  // every name field holds a distinctive name
    c.system->SetSysType(c.kind);
    EXPECT_EQ(c.lists, ListsNamed(*c.system)) << c.system->GetClassName();
  }
  // A system whose stored kind does not match its class names nothing, whatever the kind.
  CConvSystem conv;
  CTrunkSystem trunk;
  test::FillFields(conv, 4);
  test::FillFields(trunk, 4);
  for (SystemType kind : {TrunkedSystemType, EaSystemType, P25TrkSystemType, PlmSystemType,
                          ConvSystemType, P25ConvSystemType}) {
    CSystem& odd = kind == ConvSystemType || kind == P25ConvSystemType
                       ? static_cast<CSystem&>(trunk)
                       : static_cast<CSystem&>(conv);
    odd.SetSysType(kind);
    EXPECT_EQ("...........", ListsNamed(odd)) << odd.GetClassName() << " as kind " << kind;
  }
  conv.SetSysType(static_cast<SystemType>(9));  // no kind of system
  EXPECT_EQ("...........", ListsNamed(conv));
}

TEST(SetUse, RadioTypesKeepTheSystemKindsTheyRun) {
  // The radio types from 0 to 110 that refuse each kind, or (for the narrower kinds) run it.
  auto which = [](int kind, bool supported) {
    std::string out;
    for (int r = 0; r <= 110; ++r) {
      if (RadioTypeSupportsSystemKind(static_cast<WORD>(r), kind) == supported) {
        out += std::to_string(r) + " ";
      }
    }
    return out;
  };
  EXPECT_EQ("27 28 29 30 33 52 ", which(TrunkedSystemType, false));
  EXPECT_EQ("72 73 74 75 ", which(ConvSystemType, false));
  EXPECT_EQ("65 66 67 85 86 ", which(PlmSystemType, true));
  EXPECT_EQ("101 102 103 104 105 106 ", which(P25TrkSystemType, true));
  EXPECT_EQ("88 89 92 101 102 103 104 105 106 ", which(P25ConvSystemType, true));
  EXPECT_EQ(which(P25ConvSystemType, true), which(EaSystemType, true));
  EXPECT_TRUE(RadioTypeSupportsSystemKind(72, 9));  // an unknown kind is never pruned
}

}  // namespace
}  // namespace persona
