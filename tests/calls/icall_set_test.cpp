// Individual calls and their sets: the schema-1 vector, the ID moving into the 32-bit field,
// the stored layout, equality without Digital and report lines.
#include <persona/calls/icall_set.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Hex;

TEST(ICallSet, LoadsTheSchema1VectorAndStoresTheCurrentLayout) {
  std::vector<std::unique_ptr<CObject>> pool;
  auto set = test::LoadSharing<CICallSet>(test::ReadTestFile("vectors/icallset_schema1.bin"), pool);
  EXPECT_EQ("UNITS", set->GetName());
  EXPECT_EQ(ICallSetType, set->GetSetType());
  EXPECT_EQ(0, set->GetScope());
  ASSERT_EQ(2, set->GetSize());
  const CICall* dispatch = set->GetCallAt(0);
  EXPECT_EQ("Dispatch", dispatch->GetName());
  EXPECT_EQ(300u, dispatch->GetDLid());
  EXPECT_EQ(0, dispatch->GetLid());
  EXPECT_EQ(1, dispatch->GetDisplay());
  EXPECT_EQ(0, dispatch->GetType());
  EXPECT_EQ(1, dispatch->GetDigital());
  EXPECT_EQ("", dispatch->GetWaNetName());
  EXPECT_EQ(0, dispatch->GetEncrypted());
  EXPECT_EQ(0, dispatch->GetAllCall());
  const CICall* all = set->GetCallAt(1);
  EXPECT_EQ(0u, all->GetDLid());
  EXPECT_EQ(0, all->GetLid());
  EXPECT_EQ(1, all->GetType());

  // clang-format off
  const auto current = Bytes()
      .NewClass("CICallSet", 2).Count(2)
      .NewClass("CICall", 3)
      .Str("Dispatch").U16(0).U16(1).U16(0).U8(1).U32(300).Str("").U32(0).U32(0)
      .OldClass(3)
      .Str("All").U16(0).U16(0).U16(1).U8(0).U32(0).Str("").U32(0).U32(0)
      .Str("UNITS").U8(4).U8(0)
      .bytes();
  // clang-format on
  EXPECT_EQ(Hex(current), Hex(test::StoreObject(set.get())));
}

TEST(ICallSet, LoadsSchema2AndStoresLidAsZero) {
  // Schema 2: a 32-bit ID, no network name or switches; a stale 16-bit ID still wins.
  // clang-format off
  const auto bytes = Bytes()
      .NewClass("CICallSet", 2).Count(2)
      .NewClass("CICall", 2).Str("A").U16(0).U16(2).U16(0).U8(0).U32(100000)
      .OldClass(3).Str("B").U16(12).U16(0).U16(0).U8(0).U32(7)
      .Str("S").U8(4).U8(0);
  // clang-format on
  std::vector<std::unique_ptr<CObject>> pool;
  auto set = test::LoadSharing<CICallSet>(bytes, pool);
  EXPECT_EQ(100000u, set->GetCallAt(0)->GetDLid());
  EXPECT_EQ(12u, set->GetCallAt(1)->GetDLid());
  EXPECT_EQ(0, set->GetCallAt(1)->GetLid());

  CICall call;
  call.SetName("X");
  call.SetLid(55);
  call.SetDLid(9);
  call.SetWaNetName("WAN1");
  call.SetEncrypted(1);
  call.SetAllCall(1);
  // clang-format off
  const auto stored = Bytes()
      .NewClass("CICall", 3).Str("X").U16(0).U16(0).U16(0).U8(0).U32(9).Str("WAN1").U32(1).U32(1)
      .bytes();
  // clang-format on
  EXPECT_EQ(Hex(stored), Hex(test::StoreObject(&call)));
  EXPECT_EQ(0, call.GetLid());  // storing clears it in the record too
}

TEST(ICallSet, EqualityIgnoresDigital) {
  CICall a, b;
  a.SetName("U");
  b.SetName("U");
  b.SetDigital(1);
  EXPECT_TRUE(a == b);
  b.SetLid(1);
  EXPECT_FALSE(a == b);
  b.SetLid(0);
  b.SetWaNetName("W");
  EXPECT_FALSE(a == b);

  CICallSet x, y;
  x.Add(new CICall(a));
  y.Add(new CICall(b));
  EXPECT_FALSE(x == y);
  y = &x;
  EXPECT_TRUE(x == y);
  EXPECT_EQ(0, x.FindCallIndex("U"));
  EXPECT_EQ(-1, x.FindCallIndex(""));
}

TEST(ICallSet, ReportLines) {
  CICallSet set;
  set.SetName("UNITS");
  auto* a = new CICall;
  a->SetName("Dispatch");
  a->SetDLid(70000);
  a->SetDisplay(1);
  a->SetDigital(1);
  a->SetWaNetName("NORTH");
  set.Add(a);
  auto* b = new CICall;
  b->SetName("All");
  b->SetType(1);
  b->SetDisplay(2);
  b->SetEncrypted(1);
  set.Add(b);
  CStringArray out;
  set.printToBuffer(out, 1, 0);
  const std::vector<std::string> expected = {
      "   1   - UNITS       ",
      "     Call Name            Type      Display     LID   Digital Encrypted   WAN",
      "     ---- ------------  --------  ----------  ------- ------- --------- --------",
      "      1   Dispatch      Ind Call  Alpha       70000     On      Off     NORTH   ",
      "      2   All           All Call  Num         0         Off     On              ",
      "",
  };
  test::ExpectLines(expected, out);
}

}  // namespace
}  // namespace persona
