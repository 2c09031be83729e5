// P25 conventional channels and sets: stored bytes, older schemas, the 1 Hz equality,
// set equality, references, the frequency check and report lines.
#include <persona/conventional/p25_conv_set.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::ExpectFields;
using test::Hex;

TEST(P25ConvSet, LoadsOlderChannelSchemas) {
  auto setWith = [](unsigned schema) {
    Bytes b;
    b.NewClass("CP25ConvSet", 1).Count(1).NewClass("CP25ConvChannel", schema);
    b.Str("A").F64(851.0).F64(806.0).Str("").Str("").U32(5).U16(1).U16(2);
    for (int i = 0; i < 8; ++i) b.U8(0);
    b.U8(1).U8(1).U8(0).U8(0);
    if (schema >= 2) b.U8(1);
    if (schema >= 3) b.U8(0).U8(0);
    b.Str("S").U8(8).U8(0).F64(0.0).F64(0.0).F64(0.0).F64(0.0).Str("");
    return b;
  };
  std::vector<std::unique_ptr<CObject>> pool;
  auto s1 = test::LoadSharing<CP25ConvSet>(setWith(1), pool);
  ExpectFields(*s1->GetChannelAt(0),
               {"PreAmp=0", "CgSel=1", "Talkaround=1", "Backlight=0", "Power=0", "RxNac=2"});
  auto s2 = test::LoadSharing<CP25ConvSet>(setWith(2), pool);
  ExpectFields(*s2->GetChannelAt(0), {"PreAmp=1", "Talkaround=1"});
  auto s3 = test::LoadSharing<CP25ConvSet>(setWith(3), pool);
  ExpectFields(*s3->GetChannelAt(0), {"CgSel=0", "Talkaround=0"});
  EXPECT_EQ(Hex(setWith(3)), Hex(test::StoreObject(s3.get())));
}

TEST(P25ConvSet, EqualityRules) {
  CP25ConvChannel a, b;
  a.SetTxFreq(851.0125);
  b.SetTxFreq(851.0125005);
  EXPECT_TRUE(a == b);
  b.SetTxFreq(851.01251);
  EXPECT_FALSE(a == b);
  b.SetTxFreq(851.0125);
  b.SetRxFreq(0.0000009);
  EXPECT_TRUE(a == b);
  b.SetEmer(1);  // not printed, still compared
  EXPECT_FALSE(a == b);

  CP25ConvSet x, y;
  x.Add(test::Channel<CP25ConvChannel>("A", 851.0, 806.0));
  y.Add(test::Channel<CP25ConvChannel>("A", 851.0, 806.0));
  EXPECT_TRUE(x == y);
  y.SetName("OTHER");  // unlike conventional sets, the name counts
  EXPECT_FALSE(x == y);
  y.SetName("");
  y.SetScope(1);
  EXPECT_FALSE(x == y);
  y.SetScope(0);
  y.SetRxMaxFreq(0.0000001);  // limits compare exactly
  EXPECT_FALSE(x == y);

  CP25ConvSet copy(x), assigned;
  EXPECT_TRUE(copy == x);
  assigned.Add(test::Channel<CP25ConvChannel>("OLD", 1.0, 1.0));
  assigned = &x;
  EXPECT_TRUE(assigned == x);
  EXPECT_EQ(1, assigned.GetSize());
}

TEST(P25ConvSet, ReferencesLookupsAndFrequencyCheck) {
  CP25ConvSet set;
  set.SetP25GroupSet("OPS");
  set.Add(test::Channel<CP25ConvChannel>("OPS", 851.0, 806.0));
  set.Add(test::Channel<CP25ConvChannel>("TAC", 852.0, 807.0));
  EXPECT_EQ(-1, set.FindChannelIndex(""));
  EXPECT_EQ(1, set.FindChannelIndex("TAC"));
  set.DeleteSetReferencesToChan("TAC");
  EXPECT_EQ("OPS", set.GetP25GroupSet());
  set.DeleteAt(0);  // a channel named like the group set clears the group set name
  EXPECT_EQ("", set.GetP25GroupSet());
  EXPECT_EQ(1, set.GetSize());

  auto check = [](double tx, double rx, double first) {
    CP25ConvSet s;
    s.Add(test::Channel<CP25ConvChannel>("C", tx, rx));
    return s.CheckFrequencyRange(first, 0.0, 851.0, 870.0);
  };
  EXPECT_EQ(1, check(820.0, 870.0000005, 806.0));  // tolerance above 800 MHz too
  EXPECT_EQ(0, check(820.0, 870.00001, 806.0));
  EXPECT_EQ(0, check(820.0, 850.0, 806.0));
  EXPECT_EQ(1, check(820.0, 850.0, 800.0));
  EXPECT_EQ(0, check(805.0, 860.0, 806.0));
  EXPECT_EQ(1, check(0.0, 860.0, 806.0));
}

}  // namespace
}  // namespace persona
