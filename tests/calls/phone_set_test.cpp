// Phone calls and phone sets: the archive vectors, the one-blank repair, an older schema,
// equality, lookups and report lines.
#include <persona/calls/phone_set.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Hex;

CPhoneCall* MakeCall(const char* name, const char* number, WORD display, BYTE digital,
                     BYTE encrypted) {
  auto* c = new CPhoneCall;
  c->SetName(name);
  c->SetNumber(number);
  c->SetDisplay(display);
  c->SetDigital(digital);
  c->SetEncrypted(encrypted);
  return c;
}

TEST(PhoneSet, LoadsTheVectorAndStoresItResaved) {
  const std::vector<BYTE> original = test::ReadTestFile("vectors/phoneset.bin");
  std::vector<std::unique_ptr<CObject>> pool;
  auto set = test::LoadSharing<CPhoneSet>(original, pool);
  EXPECT_EQ("CITY", set->GetName());
  EXPECT_EQ(PhoneSetType, set->GetSetType());
  EXPECT_EQ(1, set->GetScope());
  ASSERT_EQ(2, set->GetSize());
  const CPhoneCall* home = set->GetCallAt(0);
  EXPECT_EQ("Home", home->GetName());
  EXPECT_EQ("5551234", home->GetNumber());
  EXPECT_EQ(1, home->GetDisplay());
  EXPECT_EQ(0, home->GetDigital());
  EXPECT_EQ(1, home->GetEncrypted());
  const CPhoneCall* desk = set->GetCallAt(1);
  EXPECT_EQ("", desk->GetNumber());  // one blank loads as empty
  EXPECT_EQ(2, desk->GetDisplay());
  EXPECT_EQ(1, desk->GetDigital());

  const std::vector<BYTE> resaved = test::ReadTestFile("vectors/phoneset_resaved.bin");
  EXPECT_EQ(Hex(resaved), Hex(test::StoreObject(set.get())));
  auto again = test::LoadSharing<CPhoneSet>(resaved, pool);
  EXPECT_EQ(Hex(resaved), Hex(test::StoreObject(again.get())));
  EXPECT_TRUE(*again == *set);
}

TEST(PhoneSet, Schema1CallsAndTheBlankRepair) {
  // clang-format off
  const auto bytes = Bytes()
      .NewClass("CPhoneSet", 1).Count(2)
      .NewClass("CPhoneCall", 1).Str("A").Str("  ").U16(2).U8(1)
      .OldClass(3).Str("B").Str(" ").U16(0).U8(0)
      .Str("OLD").U8(3).U8(0);
  // clang-format on
  std::vector<std::unique_ptr<CObject>> pool;
  auto set = test::LoadSharing<CPhoneSet>(bytes, pool);
  EXPECT_EQ("  ", set->GetCallAt(0)->GetNumber());  // two blanks are kept
  EXPECT_EQ(0, set->GetCallAt(0)->GetEncrypted());
  EXPECT_EQ(1, set->GetCallAt(0)->GetDigital());
  EXPECT_EQ("", set->GetCallAt(1)->GetNumber());
  test::ExpectRoundTrip(*set);
}

TEST(PhoneSet, EqualityLookupsAndCopies) {
  CPhoneSet a;
  a.SetName("A");
  a.Add(MakeCall("Home", "555", 0, 0, 0));
  a.Add(MakeCall("Desk", "556", 1, 1, 1));
  CPhoneSet b(a);
  b.SetName("B");
  EXPECT_TRUE(a == b);
  b.GetCallAt(1)->SetEncrypted(0);
  EXPECT_FALSE(a == b);
  b = &a;
  EXPECT_TRUE(a == b);
  EXPECT_EQ("A", b.GetName());
  EXPECT_EQ(2, b.GetSize());
  EXPECT_EQ(1, a.FindCallIndex("Desk"));
  EXPECT_EQ(-1, a.FindCallIndex("desk"));
  EXPECT_EQ(-1, a.FindCallIndex(""));
  EXPECT_EQ(nullptr, a.GetCallAt(2));
  CPhoneCall x, y;
  x.SetNumber("555");
  y.SetNumber("555 ");
  EXPECT_FALSE(x == y);
}

TEST(PhoneSet, ReportLines) {
  CPhoneSet set;
  set.SetName("CITY");
  set.Add(MakeCall("Home", "5551234", 1, 0, 1));
  set.Add(MakeCall("Desk", "", 2, 1, 0));
  CStringArray out;
  set.printToBuffer(out, 3, 10);
  const std::vector<std::string> expected = {
      "   3   - CITY        ",
      "Call    Name           Number                             Display          Dig  Encrypt",
      std::string(87, '-'),
      "11      Home           5551234                            Alpha            Off   On  ",
      "12      Desk                                              Numeric          On    Off ",
      "",
  };
  test::ExpectLines(expected, out);
}

}  // namespace
}  // namespace persona
