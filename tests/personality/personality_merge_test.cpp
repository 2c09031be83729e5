// Copy and merge of personalities: set lists copied with their list's class, appends against
// replacement, and key records that stay alive in the copy.
#include <gtest/gtest.h>

#include <persona/personality/personality.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/trunk_set.h>
#include "support/test_data.h"

namespace persona {
namespace {

// Exposes the merge operations.
class MergingPersonality : public CPersonality {
 public:
  using CPersonality::AddOptions;
  using CPersonality::AddSets;
  using CPersonality::AddSystems;
  using CPersonality::operator=;
};

CSet* NewTrunkSet(const char* name) {
  auto* set = new CTrunkSet;
  set->SetName(name);
  return set;
}

TEST(PersonalityMerge, AssignmentReplacesSetsWhileAddSetsAppends) {
  CPersonality src;
  for (const char* name : {"A", "B", "C"}) src.AddSet(NewTrunkSet(name), TrunkSetType);
  auto* stray = new CSet(TrunkSetType);  // not of the list's class: copied as one, set part only
  stray->SetName("STRAY");
  src.AddSet(stray, TrunkSetType);

  MergingPersonality target;
  target.AddSet(NewTrunkSet("X"), TrunkSetType);
  target.AddSet(NewTrunkSet("Y"), TrunkSetType);
  target = &src;
  ASSERT_EQ(target.GetNumTrkSets(), 4);
  EXPECT_EQ(target.GetSetAt(0, TrunkSetType)->GetName(), "A");
  EXPECT_STREQ(target.GetSetAt(3, TrunkSetType)->GetClassName(), "CTrunkSet");
  EXPECT_EQ(target.GetSetAt(3, TrunkSetType)->GetName(), "STRAY");
  EXPECT_NE(target.GetSetAt(0, TrunkSetType), src.GetSetAt(0, TrunkSetType));
  target.AddSets(&src);
  EXPECT_EQ(target.GetNumTrkSets(), 8);
  EXPECT_EQ(target.FindSetIndex("a", TrunkSetType), 0);  // the first of two A's
  target.AddSystems(&src);
  target.AddOptions(&src);
  EXPECT_EQ(target.GetNumSystems(), 0);
}

TEST(PersonalityMerge, SharedKeyRecordsOutliveTheSourceInItsCopy) {
  CObList keys;
  auto copy = std::make_unique<CPersonality>();
  {
    CPersonality src(68, 0);
    std::vector<std::unique_ptr<CObject>> records;
    records.push_back(std::make_unique<CEskData>());
    static_cast<CEskData*>(records[0].get())->SetEskId("K");
    keys.AddTail(records[0].get());
    src.AdoptSharedRecords(std::move(records));
    *copy = src;
  }
  // Under AddressSanitizer a freed key record would fail here.
  EXPECT_EQ(static_cast<CEskData*>(keys.GetAt(0))->GetEskId(), "K");
}

}  // namespace
}  // namespace persona
