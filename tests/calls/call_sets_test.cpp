// Call lists: the archive vectors of individual and phone calls, the older call schemas and
// their repairs, and what each kind's equality does and does not compare.
#include <gtest/gtest.h>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
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
  ASSERT_EQ(2, set->GetSize());
  const CICall* dispatch = set->GetCallAt(0);
  EXPECT_EQ(300u, dispatch->GetDLid());  // the 16-bit ID moves into the 32-bit field
  EXPECT_EQ(0, dispatch->GetLid());
  EXPECT_EQ(1, dispatch->GetDigital());
  EXPECT_EQ(1, set->GetCallAt(1)->GetType());
  // clang-format off
  const auto current = Bytes()
      .NewClass("CICallSet", 2).Count(2)
      .NewClass("CICall", 3)
      .Str("Dispatch").U16(0).U16(1).U16(0).U8(1).U32(300).Str("").U32(0).U32(0)
      .OldClass(3)
      .Str("All").U16(0).U16(0).U16(1).U8(0).U32(0).Str("").U32(0).U32(0)
      .Str("UNITS").U8(4).U8(0);
  // clang-format on
  EXPECT_EQ(Hex(current), Hex(test::StoreObject(set.get())));
}

TEST(ICallSet, Schema2KeepsAStale16BitIdAndStoringClearsIt) {
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
  call.SetLid(55);
  test::StoreObject(&call);
  EXPECT_EQ(0, call.GetLid());  // storing clears it in the record too
}

TEST(PhoneSet, LoadsTheVectorAndStoresItResaved) {
  const std::vector<BYTE> original = test::ReadTestFile("vectors/phoneset.bin");
  std::vector<std::unique_ptr<CObject>> pool;
  auto set = test::LoadSharing<CPhoneSet>(original, pool);
  EXPECT_EQ(1, set->GetScope());
  ASSERT_EQ(2, set->GetSize());
  EXPECT_EQ("5551234", set->GetCallAt(0)->GetNumber());
  EXPECT_EQ(1, set->GetCallAt(0)->GetEncrypted());
  EXPECT_EQ("", set->GetCallAt(1)->GetNumber());  // one blank loads as empty
  const std::vector<BYTE> resaved = test::ReadTestFile("vectors/phoneset_resaved.bin");
  EXPECT_EQ(Hex(resaved), Hex(test::StoreObject(set.get())));
}

TEST(PhoneSet, Schema1CallsAndTheOneBlankRepair) {
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
}

// Each kind's equality: the set name never counts; a changed call field does, except Digital
// of an individual call; the lookup by name ignores the empty name.
TEST(CallSets, EqualityAndLookupsOfEveryKind) {
  CICallSet icalls;
  auto* unit = new CICall;
  unit->SetName("U");
  icalls.Add(unit);
  CICallSet icallCopy(icalls);
  icallCopy.SetName("OTHER");
  icallCopy.GetCallAt(0)->SetDigital(1);
  EXPECT_TRUE(icalls == icallCopy);
  icallCopy.GetCallAt(0)->SetWaNetName("W");
  EXPECT_FALSE(icalls == icallCopy);
  EXPECT_EQ(0, icalls.FindCallIndex("U"));
  EXPECT_EQ(-1, icalls.FindCallIndex(""));

  CPhoneSet phones;
  auto* desk = new CPhoneCall;
  desk->SetName("Desk");
  desk->SetNumber("555");
  phones.Add(desk);
  CPhoneSet phoneCopy(phones);
  phoneCopy.SetName("B");
  EXPECT_TRUE(phones == phoneCopy);
  phoneCopy.GetCallAt(0)->SetNumber("555 ");
  EXPECT_FALSE(phones == phoneCopy);
  EXPECT_EQ(-1, phones.FindCallIndex("desk"));
  EXPECT_EQ(nullptr, phones.GetCallAt(1));

  CSpCallSet special;
  special.SetLidLow(100);
  special.Add(new CSpCall);
  CSpCallSet assigned;
  assigned = &special;
  EXPECT_EQ(100, assigned.GetLidLow());
  EXPECT_TRUE(assigned == special);
  assigned.SetLidHigh(1);
  EXPECT_FALSE(assigned == special);
  assigned.SetLidHigh(special.GetLidHigh());
  assigned.GetCallAt(0)->SetDigital(1);
  EXPECT_FALSE(assigned == special);

  CPlmSpCallSet paging;
  paging.Add(new CPlmSpCall);
  CPlmSpCallSet pagingCopy(paging);
  EXPECT_TRUE(pagingCopy == paging);
  pagingCopy.GetCallAt(0)->SetTone(3, 9);
  EXPECT_FALSE(pagingCopy == paging);
  pagingCopy = &paging;
  EXPECT_TRUE(pagingCopy == paging);
}

}  // namespace
}  // namespace persona
