// Pruning a personality for its radio model: the system kinds each model keeps, the sets that
// stay because something names them, and the counts the steps return.
#include <gtest/gtest.h>

#include <persona/calls/phone_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/vantor_opts.h>
#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_system.h>
#include "integrity/sample_personality.h"

namespace persona {
namespace {

using test::GetText;
using test::SamplePersonality;
using test::SetText;

std::unique_ptr<CPersonality> ForRadio(WORD radio) {
  auto p = SamplePersonality();
  p->SetLastRadio(radio);
  return p;
}

int Count(const CPersonality& p, SystemType t) { return p.GetNumSystems(t); }

TEST(Prune, MessagingSystemsStayOnlyForMessagingRadios) {
  auto keep = ForRadio(65);
  ASSERT_TRUE(keep->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(Count(*keep, PlmSystemType), 1);
  EXPECT_EQ(keep->GetNumSets(PlmGroupSetType), 1);

  auto lose = ForRadio(1);
  ASSERT_TRUE(lose->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(Count(*lose, PlmSystemType), 0);
  EXPECT_EQ(lose->GetNumSets(PlmGroupSetType), 0);  // nothing names it any more
  EXPECT_EQ(lose->GetNumSets(PlmSpCallSetType), 0);
  // Radio 1: trunked and conventional systems stay, P25 and extended addressing go.
  EXPECT_EQ(Count(*lose, TrunkedSystemType), 1);
  EXPECT_EQ(Count(*lose, ConvSystemType), 1);
  EXPECT_EQ(Count(*lose, P25TrkSystemType), 0);
  EXPECT_EQ(Count(*lose, P25ConvSystemType), 0);
  EXPECT_EQ(Count(*lose, EaSystemType), 0);
  EXPECT_EQ(lose->GetOption<CP25tWanOpts>(), nullptr);
  // The removed P25 system left T1's scan list; the P25 group set went with P1 and PC.
  EXPECT_EQ(GetText(*lose->GetSystem("T1"), "ScannedSystems"), "C1");
  EXPECT_EQ(lose->GetNumSets(P25GroupSetType), 0);
  EXPECT_EQ(lose->GetNumSets(P25ConvSetType), 0);
  EXPECT_EQ(lose->GetNumSets(EaGroupSetType), 0);
  EXPECT_EQ(lose->GetNumSets(GroupSetType), 1);
}

TEST(Prune, ConventionalOnlyModelsLoseEveryConventionalSet) {
  auto p = ForRadio(74);
  auto* spare = new CConvSet;
  spare->SetName("SPARE");
  p->AddSet(spare, ConvSetType);
  ASSERT_TRUE(p->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(Count(*p, ConvSystemType), 0);
  EXPECT_EQ(p->GetNumSets(ConvSetType), 0);  // used or not
  // The conventional system's name is gone from the records that named it.
  EXPECT_EQ(GetText(*p->GetOption<CVantorOpts>(), "System"), "");
  EXPECT_EQ(GetText(*p->GetOption<CVantorOpts>(), "Channel"), "");
  EXPECT_EQ(GetText(*p->GetSystem("T1"), "PriSys"), "");
}

TEST(Prune, P25TrunkedModelsKeepTheirSystemsAndWanRecord) {
  auto keep = ForRadio(101);
  ASSERT_TRUE(keep->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(Count(*keep, P25TrkSystemType), 1);
  EXPECT_NE(keep->GetOption<CP25tWanOpts>(), nullptr);
  EXPECT_EQ(Count(*keep, PlmSystemType), 0);

  auto conv = ForRadio(88);
  ASSERT_TRUE(conv->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(Count(*conv, P25TrkSystemType), 0);
  EXPECT_EQ(conv->GetOption<CP25tWanOpts>(), nullptr);
  EXPECT_EQ(Count(*conv, P25ConvSystemType), 1);
  EXPECT_EQ(Count(*conv, EaSystemType), 1);
  // The P25 group set is no longer named by a P25 trunked system, but the P25 conventional
  // set still names it.
  EXPECT_EQ(conv->GetNumSets(P25GroupSetType), 1);
  EXPECT_EQ(GetText(*conv->GetOption<CPowerUpOpts>(), "SystemName"), "");
}

TEST(Prune, TrunkedSystemsGoForTheirShortList) {
  for (WORD radio : {27, 28, 29, 30, 33, 52}) {
    auto p = ForRadio(radio);
    EXPECT_EQ(p->RemoveSystems(TrunkedSystemType), 1);
    ASSERT_TRUE(p->RemoveUnusedSystemsAndSets());
    EXPECT_EQ(Count(*p, TrunkedSystemType), 0) << radio;
  }
  auto p = ForRadio(31);
  ASSERT_TRUE(p->RemoveUnusedSystemsAndSets());
  EXPECT_EQ(Count(*p, TrunkedSystemType), 1);
}

TEST(Prune, SetNamesCompareIgnoringCaseAndOnlyConsultedKindsCount) {
  CPersonality p;
  auto* trunked = new CTrunkSystem;
  trunked->SetName("North");
  trunked->SetPhoneSetName("CITY");
  p.AddSystem(trunked);
  auto* p25 = new CP25ConvSystem;
  p25->SetSysType(P25ConvSystemType);
  p25->SetName("Ops");
  SetText(*p25, "P25ConvSetName", "Harbor");  // P25 conventional systems do not name phone sets
  p.AddSystem(p25);
  for (const char* name : {"City", "Harbor", "A", "B", "county"}) {
    auto* set = new CPhoneSet;
    set->SetName(name);
    p.AddSet(set, PhoneSetType);
  }
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
  CPersonality p;
  for (const char* name : {"USED", "X1", "X2", "TEST"}) {
    auto* set = new CConvSet;
    set->SetName(name);
    p.AddSet(set, ConvSetType);
  }
  auto* conv = new CTrunkSystem;  // a trunked system naming a conventional set does not count
  conv->SetName("T");
  p.AddSystem(conv);
  auto* c = new CConvSystem;
  c->SetSysType(ConvSystemType);
  c->SetName("C");
  SetText(*c, "ConvSetName", "used");
  p.AddSystem(c);
  auto* general = new CGenRadioOpts;
  SetText(*general, "CnvTestSet", "Test");
  p.PutOption(general);
  EXPECT_EQ(p.RemoveUnusedConvSets(), 2);
  ASSERT_EQ(p.GetNumSets(ConvSetType), 2);
  EXPECT_EQ(p.GetSetAt(0, ConvSetType)->GetName(), "USED");
  EXPECT_EQ(p.GetSetAt(1, ConvSetType)->GetName(), "TEST");
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

}  // namespace
}  // namespace persona
