// P25 talk groups and group sets: stored bytes, every older schema, lookups, equality,
// reference clearing and report lines.
#include <persona/systems/p25_group_set.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::ExpectFields;
using test::Hex;

TEST(P25GroupSet, LoadsEveryOlderSchemaOfItsGroups) {
  auto setWith = [](unsigned schema) {
    Bytes b;
    b.NewClass("CP25GroupSet", 1).Count(1).NewClass("CP25Group", schema);
    b.Str("G").U32(77).U8(5);
    if (schema >= 2) b.U8(1).U8(1).U32(99).U8(1);
    if (schema >= 3) b.U8(1);
    if (schema >= 4) b.U8(0).U8(0).U8(0).U8(0).U8(1).U8(0);
    b.Str("S").U8(9).U8(0).Str("G").Str("").Str("");
    return b;
  };
  std::vector<std::unique_ptr<CObject>> pool;  // stays empty: P25 sets have no keys
  auto s1 = test::LoadSharing<CP25GroupSet>(setWith(1), pool);
  ExpectFields(*s1->GetGroupAt(0), {"GrpId=77", "EncryptMode=5", "Encrypt=0", "KeyId=0", "Tx=1",
                                    "Backlight=1", "Scan=0"});
  EXPECT_EQ("G", s1->GetHomeGrp());

  auto s2 = test::LoadSharing<CP25GroupSet>(setWith(2), pool);
  ExpectFields(*s2->GetGroupAt(0),
               {"Encrypt=1", "EncType=1", "KeyId=99", "Suppress=1", "Sf=0", "Calls=1"});

  auto s3 = test::LoadSharing<CP25GroupSet>(setWith(3), pool);
  ExpectFields(*s3->GetGroupAt(0), {"Sf=1", "Alert=1"});

  auto s4 = test::LoadSharing<CP25GroupSet>(setWith(4), pool);
  ExpectFields(*s4->GetGroupAt(0), {"Tx=0", "Alert=0", "Scan=1", "Backlight=0"});
}

TEST(P25GroupSet, LookupsEqualityAndReferences) {
  CP25GroupSet set;
  set.Add(test::Group<CP25Group>("ZERO", 0));
  set.Add(test::Group<CP25Group>("WIDE", 16777215));
  EXPECT_EQ(nullptr, set.GetGroup(0));
  EXPECT_EQ("WIDE", set.GetGroup(16777215)->GetName());
  EXPECT_EQ(-1, set.FindGroupIndex(""));
  EXPECT_EQ(1, set.FindGroupIndex("WIDE"));
  EXPECT_EQ(nullptr, set.GetGroupAt(2));

  CP25GroupSet other(set);
  other.SetName("DIFFERENT");
  EXPECT_TRUE(set == other);
  other.GetGroupAt(1)->SetSf(1);  // printed nowhere, but part of equality
  EXPECT_FALSE(set == other);
  other = set;
  EXPECT_TRUE(set == other);
  EXPECT_EQ(2, other.GetSize());
  other.SetPriority1Grp("WIDE");
  EXPECT_FALSE(set == other);

  other.SetHomeGrp("WIDE");
  other.DeleteAt(1);
  EXPECT_EQ("", other.GetHomeGrp());
  EXPECT_EQ("", other.GetPriority1Grp());
  EXPECT_EQ(1, other.GetSize());
}

}  // namespace
}  // namespace persona
