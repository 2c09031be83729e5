// Special calls and messaging special calls: defaults, stored bytes, equality, lookups and
// report lines.
#include <persona/calls/sp_call_set.h>

#include <gtest/gtest.h>

#include <persona/calls/plm_sp_call_set.h>
#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Hex;

CSpCall* MakeSpCall(const char* name, const char* number, BYTE type, WORD digital) {
  auto* c = new CSpCall;
  c->SetName(name);
  c->SetNumber(number);
  c->SetType(type);
  c->SetDigital(digital);
  return c;
}

TEST(SpCallSet, DefaultsBytesAndCopies) {
  EXPECT_EQ(1, CSpCallSet().GetLidLow());
  EXPECT_EQ(16382, CSpCallSet().GetLidHigh());
  EXPECT_EQ(16382, CSpCallSet(68, 0).GetLidHigh());
  EXPECT_EQ(0, CSpCallSet(68, 1).GetLidLow());
  EXPECT_EQ(0, CSpCallSet(68, 1).GetLidHigh());

  CSpCallSet set;
  set.SetName("SPEC");
  set.SetLidLow(100);
  set.SetLidHigh(0x1234);
  set.Add(MakeSpCall("Tel", "5551234", 0, 1));
  // clang-format off
  const auto expected = Bytes()
      .NewClass("CSpCallSet", 1).Count(1)
      .NewClass("CSpCall", 1).Str("Tel").Str("5551234").U8(0).U16(1)
      .Str("SPEC").U8(5).U8(0).U16(100).U16(0x1234)
      .bytes();
  // clang-format on
  EXPECT_EQ(Hex(expected), Hex(test::StoreObject(&set)));
  test::ExpectRoundTrip(set);

  CSpCallSet copy(set);
  EXPECT_EQ(100, copy.GetLidLow());
  EXPECT_TRUE(copy == set);
  CSpCallSet assigned;
  assigned = &set;
  EXPECT_EQ(0x1234, assigned.GetLidHigh());
  EXPECT_TRUE(assigned == set);
  assigned.SetLidHigh(1);
  EXPECT_FALSE(assigned == set);
  assigned.SetLidHigh(set.GetLidHigh());
  assigned.GetCallAt(0)->SetDigital(0);
  EXPECT_FALSE(assigned == set);
  EXPECT_EQ(-1, set.FindCallIndex(""));
  EXPECT_EQ(0, set.FindCallIndex("Tel"));
}

TEST(SpCallSet, ReportLines) {
  CSpCallSet set;
  set.SetName("SPEC");
  set.Add(MakeSpCall("Tel", "5551234", 0, 1));
  set.Add(MakeSpCall("Everyone", "*", 4, 0));
  CStringArray out;
  set.printToBuffer(out, 12);
  const std::vector<std::string> expected = {
      "   12  - SPEC        ",
      "     LID Low  - 1    ",
      "     LID High - 16382",
      "     Call     Name         Type         Number                      Digital",
      "     " + std::string(69, '-'),
      "      1       Tel          Telephone    5551234                       On ",
      "      2       Everyone     All Call     *                             Off",
      "",
  };
  test::ExpectLines(expected, out);
}

TEST(PlmSpCallSet, BytesEqualityAndReport) {
  CPlmSpCallSet set;
  set.SetName("PAGING");
  auto* c = new CPlmSpCall;
  c->SetName("Over");
  c->SetNumber("12#");
  c->SetType(2);
  for (int i = 0; i < 4; ++i) c->SetTone(i, static_cast<WORD>(i * 7 + 1));
  set.Add(c);
  // clang-format off
  const auto bytes = Bytes()
      .NewClass("CPlmSpCallSet", 1).Count(1)
      .NewClass("CPlmSpCall", 1).Str("Over").Str("12#").U8(2).U16(1).U16(8).U16(15).U16(22)
      .Str("PAGING").U8(7).U8(0)
      .bytes();
  // clang-format on
  EXPECT_EQ(Hex(bytes), Hex(test::StoreObject(&set)));
  test::ExpectRoundTrip(set);

  CPlmSpCallSet other(set);
  EXPECT_TRUE(other == set);
  other.GetCallAt(0)->SetTone(3, 0);
  EXPECT_FALSE(other == set);
  other = &set;
  EXPECT_TRUE(other == set);

  CStringArray out;
  set.printToBuffer(out, 1);
  const std::vector<std::string> expected = {
      "   1   - PAGING      ",
      "     Call     Name         Type         Number                        Tones",
      std::string(67, ' ') + "1  2  3  4",
      "     " + std::string(75, '-'),
      "      1       Over         Overdial     12#                        1  8  15 22",
      "",
  };
  test::ExpectLines(expected, out);
}

}  // namespace
}  // namespace persona
