// The registries of CPersonality: the system list (positions, kinds, the deliberate asymmetry
// of the name lookups, the name lists shown for a system), the set lists (replacement in place
// by name ignoring case, ownership, first-match lookups, wrapping counters, index freshness),
// the security key index, and the radio model catalogue.
#include <gtest/gtest.h>

#include <cstring>

#include <persona/options/status_message.h>
#include <persona/personality/personality.h>
#include <persona/personality/radio_models.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>
#include "support/record_testing.h"

namespace persona {
namespace {

template <class S>
S* Named(const char* name, SystemType type) {
  S* sys = test::Named<S>(name);
  sys->SetSysType(type);
  return sys;
}

TEST(PersonalitySystems, PositionsAndKinds) {
  CPersonality p;
  p.AddSystem(Named<CTrunkSystem>("T", TrunkedSystemType));
  p.AddSystem(Named<CSystem>("P1", P25ConvSystemType));
  p.AddSystem(Named<CConvSystem>("C", ConvSystemType));
  p.AddSystem(Named<CSystem>("P2", P25ConvSystemType));
  EXPECT_EQ(p.GetSystemAt(1, P25ConvSystemType)->GetName(), "P2");
  EXPECT_EQ(p.GetSystemAt(2, P25ConvSystemType), nullptr);
  EXPECT_EQ(p.GetNumP25CnvSystems(), 2);
  EXPECT_EQ(p.GetNumTrkSystems(), 1);
  EXPECT_EQ(p.GetNumEaSystems(), 0);

  CSystem* late = Named<CSystem>("LATE", PlmSystemType);
  EXPECT_FALSE(p.InsertSystemAt(4, late));  // at the count: not taken
  EXPECT_TRUE(p.InsertSystemAt(-3, late));  // negative: at the front
  EXPECT_EQ(p.GetSystemAt(0), late);
  EXPECT_EQ(p.FindSystemIndex("T"), 1);
  EXPECT_THROW(p.DeleteSystemAt(-1), CInvalidArgException);
  p.DeleteSystemAt(9);
  p.DeleteSystemAt(0);
  EXPECT_EQ(p.GetNumSystems(), 4);
  EXPECT_EQ(p.GetSystemAt(4), nullptr);
  EXPECT_EQ(p.GetSystemAt(-1), nullptr);
}

TEST(PersonalitySystems, GetSystemIsExactWhileFindSystemIndexTrimsTrailingBlanks) {
  CPersonality p;
  p.AddSystem(Named<CTrunkSystem>("North", TrunkedSystemType));
  p.AddSystem(Named<CTrunkSystem>("South \t", TrunkedSystemType));
  EXPECT_EQ(p.GetSystem("North "), nullptr);
  EXPECT_EQ(p.FindSystemIndex("North "), 0);
  EXPECT_EQ(p.GetSystem("north"), nullptr);
  EXPECT_EQ(p.FindSystemIndex("north"), -1);
  EXPECT_EQ(p.FindSystemIndex("South"), 1);
  EXPECT_NE(p.GetSystem("South \t"), nullptr);

  p.GetSystemAt(0)->SetName("East");  // the index follows renames
  EXPECT_EQ(p.GetSystem("North"), nullptr);
  EXPECT_EQ(p.FindSystemIndex("East  "), 0);
  *static_cast<CTrunkSystem*>(p.GetSystemAt(1)) = CTrunkSystem();  // and assignments
  EXPECT_EQ(p.FindSystemIndex(""), 1);
}

TEST(PersonalitySystems, NameListsFollowTheSetsASystemUses) {
  CPersonality p;
  auto* trunked = Named<CTrunkSystem>("T", TrunkedSystemType);
  trunked->SetGroupSetName("grp");  // set lookups ignore case
  p.AddSystem(trunked);
  auto* ea = Named<CExtAddSystem>("EA", EaSystemType);
  ea->SetGroupSetName("GRP");
  p.AddSystem(ea);
  auto* conv = Named<CConvSystem>("C", ConvSystemType);
  conv->SetConvSetName("CHANS");
  p.AddSystem(conv);
  p.AddSystem(Named<CPlmSystem>("PLM", PlmSystemType));

  // Elements expose their names through their field description; CStatusMessage has one.
  auto makeSet = [](const char* name, SetType type, std::initializer_list<const char*> members) {
    auto* set = new CSet(type);
    set->SetName(name);
    for (const char* member : members) {
      auto* element = new CStatusMessage;
      element->SetName(member);
      set->Add(element);
    }
    return set;
  };
  p.AddSet(makeSet("GRP", GroupSetType, {"Fire", "Police"}), GroupSetType);
  p.AddSet(makeSet("GRP", EaGroupSetType, {"Wide"}), EaGroupSetType);
  p.AddSet(makeSet("CHANS", ConvSetType, {"Ch1", "Ch2", "Ch3"}), ConvSetType);

  CStringArray names;
  p.GetSystemNames(names);
  ASSERT_EQ(names.GetSize(), 4);
  EXPECT_EQ(names[3], "PLM");
  p.GetSystemGroupNames("T", names);
  ASSERT_EQ(names.GetSize(), 2);
  EXPECT_EQ(names[1], "Police");
  p.GetSystemGroupNames("EA", names);
  ASSERT_EQ(names.GetSize(), 1);
  EXPECT_EQ(names[0], "Wide");
  p.GetSystemChannelNames("C", names);
  EXPECT_EQ(names.GetSize(), 3);
  p.GetSystemChannelNames("T", names);
  EXPECT_EQ(names.GetSize(), 0);
  p.GetSystemGroupNames("PLM", names);  // names no set
  EXPECT_EQ(names.GetSize(), 0);
  p.GetSystemGroupNames("missing", names);
  EXPECT_EQ(names.GetSize(), 0);
}

// The radio model catalogue: ordered, names within 24 characters, each model of its class. (Which
// codes it holds: the model defaults file, which lists every model of the catalogue.)
TEST(RadioModels, CatalogueIsOrderedAndComplete) {
  std::size_t count = 0;
  const RadioModel* rows = RadioModelCatalogue(&count);
  ASSERT_GT(count, 0u);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_LE(std::strlen(rows[i].displayName), 24u) << rows[i].displayName;
    if (i > 0) {
      EXPECT_LT(rows[i - 1].radioType, rows[i].radioType);
    }
    EXPECT_EQ(FindRadioModel(rows[i].radioType), &rows[i]);
  }
  EXPECT_EQ(FindRadioModel(2), nullptr);
  EXPECT_EQ(FindRadioModel(103)->modelClass, kP25TrunkedModel);
  EXPECT_EQ(FindRadioModel(74)->modelClass, kTrunkedOnlyModel);
  EXPECT_EQ(FindRadioModel(65)->modelClass, kMessagingModel);
  EXPECT_EQ(FindRadioModel(88)->modelClass, kP25ConvModel);
}

// The security key index: key lists by radio type, matching, and the tests of systems and sets.
template <class S>
S* Keyed(SystemType type, WORD esk, const char* eskName, const char* setName = "") {
  auto* sys = new S;
  sys->SetSysType(type);
  sys->SetESK(esk);
  sys->SetEskName(eskName);
  if constexpr (std::is_base_of_v<CTrunkSystem, S>) {
    sys->SetTrunkSetName(setName);
    sys->SetGroupSetName(setName);
  } else if constexpr (std::is_same_v<S, CConvSystem>) {
    sys->SetConvSetName(setName);
  } else if constexpr (std::is_same_v<S, CP25ConvSystem>) {
    sys->SetP25ConvSetName(setName);
  } else if constexpr (std::is_same_v<S, CPlmSystem>) {
    sys->SetTrunkSetName(setName);
  }
  return sys;
}

TEST(PersonalityKeys, KeyListDependsOnTheLastRadioAndSecurityKeysOnNames) {
  CPersonality p(54, 0);
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 5, ""));
  p.AddSystem(Keyed<CExtAddSystem>(EaSystemType, 7, "Ea"));
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 0, "ZeroKey"));
  p.AddSystem(Keyed<CP25TrkSystem>(P25TrkSystemType, 9, "P25"));
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 7, "Ea"));  // the same key again

  CObList list;
  p.GetEskList(list);
  EXPECT_TRUE(list.IsEmpty());  // radio type 54 has no key lists
  CStringArray names;
  CWordArray numbers;
  p.GetSecurityKeys(names, numbers);
  ASSERT_EQ(names.GetSize(), 3);  // by non-empty name, whatever the radio type
  EXPECT_EQ(names[0], "Ea");
  EXPECT_EQ(names[1], "ZeroKey");
  EXPECT_EQ(numbers[1], 0);

  p.SetLastRadio(68);
  const auto keys = p.MakeEskList();  // owned by the vector
  ASSERT_EQ(keys.size(), 3u);         // by non-zero number: 5, 7, 7
  EXPECT_EQ(keys[0]->GetEsk(), 5);
  EXPECT_EQ(keys[0]->GetEskId(), "");
  EXPECT_EQ(keys[2]->GetEskId(), "Ea");

  p.GetSharedEskList(list);  // the personality keeps these records
  ASSERT_EQ(list.GetCount(), 3);
  EXPECT_EQ(CPersonality::matchEsk(7, "Ea", list), 1);
  EXPECT_EQ(CPersonality::matchEsk(7, "ea", list), -1);
  EXPECT_EQ(CPersonality::matchEsk(8, "Ea", list), -1);

  CObList mine;
  p.GetEskList(mine);  // the caller owns these
  EXPECT_EQ(mine.GetCount(), 3);
  for (CObject* key : mine) delete key;
}

TEST(PersonalityKeys, SetTestsConsultOnlyTheSystemKindsThatUseTheSet) {
  CPersonality p(68, 0);
  p.AddSystem(Keyed<CPlmSystem>(PlmSystemType, 3, "Plm", "TRS"));
  p.AddSystem(Keyed<CP25TrkSystem>(P25TrkSystemType, 4, "P25", "TRS"));
  p.AddSystem(Keyed<CConvSystem>(ConvSystemType, 6, "Conv", "CVS"));
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 0, "", "trs"));  // other case, no key

  CSet trs(TrunkSetType);
  trs.SetName("TRS");
  CSet cvs(ConvSetType);
  cvs.SetName("CVS");
  CObList empty;
  EXPECT_TRUE(p.IsEskPresentInTrkSet(&trs, empty));   // neither messaging nor P25 consulted
  EXPECT_FALSE(p.IsEskPresentInGrpSet(&trs, empty));  // P25 trunked is consulted here
  EXPECT_FALSE(p.IsEskPresentInConvSet(&cvs, empty));

  CEskData p25Key;
  p25Key.SetEsk(4);
  p25Key.SetEskId("P25");
  CEskData convKey;
  convKey.SetEsk(6);
  convKey.SetEskId("Conv");
  CObList keys;
  keys.AddTail(&p25Key);
  keys.AddTail(&convKey);
  EXPECT_TRUE(p.IsEskPresentInGrpSet(&trs, keys));
  EXPECT_TRUE(p.IsEskPresentInConvSet(&cvs, keys));

  const CTrunkSystem keyless;
  EXPECT_TRUE(p.IsEskPresentInSystem(&keyless, empty));
  EXPECT_FALSE(p.IsEskPresentInSystem(p.GetSystemAt(0), keys));
  EXPECT_TRUE(p.IsEskPresentInSystem(static_cast<CExtAddSystem*>(nullptr), empty));
}

// The set registry: replacement in place by name ignoring case, ownership of replaced sets,
// first-match lookups, wrapping element counters, and index freshness after renames.
// A plain set of the given type with n elements.
CSet* MakeSet(const char* name, SetType type, int n = 0) {
  auto* set = new CSet(type);
  set->SetName(name);
  for (int i = 0; i < n; ++i) set->Add(new CEskData);
  return set;
}

TEST(PersonalitySets, PutSetReplacesTheFirstCaseInsensitiveMatchInPlace) {
  CPersonality p;
  for (const char* name : {"A", "B", "FIRE", "C"})
    p.AddSet(MakeSet(name, ConvSetType, 3), ConvSetType);
  CSet* fire = MakeSet("Fire", ConvSetType, 1);
  p.PutSet(fire, ConvSetType);
  EXPECT_EQ(p.GetNumCnvSets(), 4);
  EXPECT_EQ(p.GetSetAt(2, ConvSetType), fire);
  EXPECT_EQ(p.GetSet("fIrE", ConvSetType), fire);
  p.PutSet(fire, ConvSetType);  // the very set held there: nothing changes, nothing is freed
  EXPECT_EQ(p.GetSetAt(2, ConvSetType), fire);
  p.PutSet(MakeSet("D", ConvSetType), ConvSetType);  // no match: appended
  EXPECT_EQ(p.FindSetIndex("d", ConvSetType), 4);

  // A set whose DeleteAt refuses (type byte 11) is still released when replaced.
  auto* odd = new CSet(static_cast<SetType>(11));
  odd->SetName("ODD");
  odd->Add(new CEskData);
  p.AddSet(odd, GroupSetType);
  p.PutSet(MakeSet("odd", GroupSetType), GroupSetType);
  EXPECT_EQ(p.GetNumGrpSets(), 1);
}

TEST(PersonalitySets, PutSetAtHandsBackAndReplaceSetDeletes) {
  CPersonality p;
  CSet* x = MakeSet("X", TrunkSetType);
  EXPECT_EQ(p.PutSetAt(0, x, TrunkSetType), nullptr);  // empty list: not taken
  p.AddSet(x, TrunkSetType);
  CSet* y = MakeSet("Y", TrunkSetType);
  EXPECT_THROW(p.PutSetAt(3, y, TrunkSetType), CInvalidArgException);  // y stays ours
  std::unique_ptr<CSet> old(p.PutSetAt(0, y, TrunkSetType));
  EXPECT_EQ(old.get(), x);
  EXPECT_EQ(p.GetSet("x", TrunkSetType), nullptr);
  EXPECT_EQ(p.GetSet("y", TrunkSetType), y);

  p.ReplaceSet("Y", TrunkSetType, MakeSet("Z", TrunkSetType, 2));
  EXPECT_EQ(p.GetNumTrkSets(), 1);
  EXPECT_EQ(p.GetSet("Y", TrunkSetType), nullptr);
  EXPECT_EQ(p.GetSet("z", TrunkSetType)->GetSize(), 2);
  p.ReplaceSet("nothing", TrunkSetType, MakeSet("W", TrunkSetType));
  EXPECT_EQ(p.GetNumTrkSets(), 2);

  CSet invalid;  // types outside 0 .. 10 are not taken
  p.AddSet(&invalid, static_cast<SetType>(11));
  p.PutSet(&invalid, static_cast<SetType>(-1));
  EXPECT_EQ(p.GetSetAt(0, static_cast<SetType>(11)), nullptr);
  EXPECT_EQ(p.FindSetNum("W", static_cast<SetType>(12)), 0);

  EXPECT_THROW(p.DeleteSetAt(-1, TrunkSetType), CInvalidArgException);
  p.DeleteSetAt(2, TrunkSetType);  // beyond the count: nothing
  p.DeleteSetAt(0, TrunkSetType);
  EXPECT_EQ(p.GetSetAt(0, TrunkSetType)->GetName(), "W");
}

TEST(PersonalitySets, LookupsFindTheFirstMatchAndTreatEmptyNamesAsTheyDiffer) {
  CPersonality p;
  p.AddSet(MakeSet("X", PhoneSetType), PhoneSetType);
  p.AddSet(MakeSet("x", PhoneSetType), PhoneSetType);
  CSet* unnamed = MakeSet("", PhoneSetType);
  unnamed->SetScope(1);
  p.AddSet(unnamed, PhoneSetType);
  EXPECT_EQ(p.FindSetNum("x", PhoneSetType), 1);
  EXPECT_EQ(p.FindSetIndex("x", PhoneSetType), 0);
  EXPECT_EQ(p.GetSetAt(-1, PhoneSetType), nullptr);
  EXPECT_EQ(p.GetSetScope("", PhoneSetType), -1);
  EXPECT_EQ(p.FindSetIndex("", PhoneSetType), -1);
  EXPECT_EQ(p.GetSet("", PhoneSetType), nullptr);
  EXPECT_EQ(p.FindSetNum("", PhoneSetType), 3);
  CStringArray names;
  names.Add("stale");
  p.GetPhoneSetNames(names);
  ASSERT_EQ(names.GetSize(), 3);
  EXPECT_EQ(names[1], "x");
}

TEST(PersonalitySets, ElementCountersWrapInSixteenBits) {
  CPersonality p;
  p.AddSet(MakeSet("A", ConvSetType, 40000), ConvSetType);
  p.AddSet(MakeSet("B", ConvSetType, 40000), ConvSetType);
  EXPECT_EQ(p.GetNumConvChans(), 14464);
  EXPECT_EQ(p.GetNumTrunkChans(), 0);
  for (int invalid : {-1, kNumSetTypes}) {  // no list: nothing counted
    EXPECT_EQ(p.GetNumElements(static_cast<SetType>(invalid)), 0);
    EXPECT_EQ(p.GetNumSets(static_cast<SetType>(invalid)), 0);
  }
}

TEST(PersonalitySets, LookupsFollowRenamesAndEveryChangeOfTheList) {
  CPersonality p;
  for (int i = 0; i < 1000; ++i) {
    p.AddSet(MakeSet(CString::Formatted("S%d", i).c_str(), GroupSetType), GroupSetType);
  }
  EXPECT_EQ(p.FindSetIndex("s999", GroupSetType), 999);
  p.GetSetAt(999, GroupSetType)->SetName("Renamed");
  EXPECT_EQ(p.FindSetIndex("S999", GroupSetType), -1);
  EXPECT_EQ(p.FindSetIndex("RENAMED", GroupSetType), 999);
  p.DeleteSetAt(0, GroupSetType);
  EXPECT_EQ(p.FindSetIndex("renamed", GroupSetType), 998);
  p.AddSet(MakeSet("S1", GroupSetType), GroupSetType);  // a second S1: the first still wins
  EXPECT_EQ(p.FindSetIndex("S1", GroupSetType), 0);
  std::unique_ptr<CSet> old(p.PutSetAt(0, MakeSet("NEW", GroupSetType), GroupSetType));
  EXPECT_EQ(p.FindSetIndex("S1", GroupSetType), 999);
  EXPECT_EQ(p.FindSetIndex("new", GroupSetType), 0);
  p.Delete();
  EXPECT_EQ(p.FindSetIndex("new", GroupSetType), -1);
}

}  // namespace
}  // namespace persona
