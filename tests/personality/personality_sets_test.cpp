// The set registry: replacement in place by name ignoring case, ownership of replaced sets,
// first-match lookups, wrapping element counters, and index freshness after renames.
#include <gtest/gtest.h>

#include <persona/personality/personality.h>
#include <persona/systems/esk_data.h>

namespace persona {
namespace {

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
