// CVantorOpts: loads of schemas 1 and 5, the identity it sends, and the report block with its
// conventional/trunked and numeric/alphanumeric variants.
#include <persona/options/vantor_opts.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Lines;
using test::LoadWhole;

// The eight fields of schema 1, then what each later schema appended, up to `schema`.
std::vector<BYTE> StoredVantor(WORD schema) {
  Bytes b;
  b.NewClass("CVantorOpts", schema);
  b.U8(1).U8(1).U16(2).U16(1).Str("CONV1").Str("CH-A").U16(77).F64(12.5);
  if (schema > 1) b.U8(2).U8(9);
  if (schema > 2) b.U8(1).U8('Q').U8('7').U16(42);
  if (schema > 3) b.U8(1).I32(123456);
  if (schema > 4) b.U8(1);
  if (schema > 5) b.Str("TRK").Str("FIRE");
  if (schema > 6) b.U8(1);
  return b.bytes();
}

TEST(VantorOpts, SchemaOneLoadsTheFirstEightFields) {
  const auto v = LoadWhole<CVantorOpts>(StoredVantor(1));
  EXPECT_EQ(1, v->GetEnVantor());
  EXPECT_EQ(1, v->GetEnEmer());
  EXPECT_EQ(2, v->GetEmer());
  EXPECT_EQ(1, v->GetVantor());
  EXPECT_EQ(CString("CH-A"), v->GetChannel());
  EXPECT_EQ(77, v->GetId());
  EXPECT_DOUBLE_EQ(12.5, v->GetStartDelayPercent());
  EXPECT_EQ(5, v->GetEmerRepeat());
  EXPECT_EQ(0, v->GetSilentEmer());
  // What the old file does not hold stays at the default constructor's values, all 0 but the
  // repeat count, and is stored so.
  Bytes stored;
  stored.NewClass("CVantorOpts", 7);
  stored.U8(1).U8(1).U16(2).U16(1).Str("CONV1").Str("CH-A").U16(77).F64(12.5);
  stored.U8(0).U8(5).U8(0).U8(0).U8(0).U16(0).U8(0).I32(0).U8(0).Str("").Str("").U8(0);
  EXPECT_EQ(test::Hex(stored.bytes()), test::Hex(test::StoreObject(v.get())));
  CStringArray out;
  v->printOptToBuffer(out, nullptr);
  EXPECT_EQ("   ID                         - 77   ", Lines(out).at(5));
  EXPECT_EQ("   VANTOR Extended Id Enable  - Off            Extended Id                 - 0     ",
            Lines(out).at(6));
}

TEST(VantorOpts, SchemaFiveLoadsConvKorvexEmerButNotTheTrunkedNames) {
  const auto v = LoadWhole<CVantorOpts>(StoredVantor(5));
  EXPECT_EQ(9, v->GetEmerRepeat());
  EXPECT_EQ('Q', v->GetZone());
  EXPECT_EQ(42, v->GetVehicleId());
  EXPECT_EQ(123456, v->GetExtendedId());
  EXPECT_EQ(1, v->GetConvKorvexEmer());
  EXPECT_TRUE(v->GetTrkSystem().IsEmpty());
  EXPECT_TRUE(v->GetGroup().IsEmpty());
  EXPECT_EQ(0, v->GetRepeatETone());

  const auto seven = LoadWhole<CVantorOpts>(StoredVantor(7));
  EXPECT_EQ(CString("FIRE"), seven->GetGroup());
  EXPECT_EQ(1, seven->GetRepeatETone());
  EXPECT_EQ(test::Hex(StoredVantor(7)), test::Hex(test::StoreObject(seven.get())));
}

TEST(VantorOpts, IdentityFollowsTheExtendedIdSwitch) {
  CVantorOpts v;
  v.SetId(77);
  v.SetExtendedId(123456);
  EXPECT_EQ(77, v.GetVantorId());
  v.SetEnExtendedId(1);
  EXPECT_EQ(123456, v.GetVantorId());
}

TEST(VantorOpts, ReportBlockConventionalWithNumericId) {
  auto v = LoadWhole<CVantorOpts>(StoredVantor(7));
  v->SetConvKorvexEmer(0);
  v->SetAlphaNumeric(0);
  v->SetSilentEmer(2);
  v->SetEmerRepeat(5);
  CStringArray out;
  v->printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "Conventional Emergency/Home Chan Options:",
      "----------------------------------------",
      "Conv_Korvex Emer             - Off    ",
      "Emergency VANTOR            - Both   ",
      "   System                     - CONV1          Channel                     - CH-A        ",
      "   ID                         - 123456",
      "   VANTOR Extended Id Enable  - On             Extended Id                 - 123456",
      "   VANTOR                     - Unkey          VANTOR Enable               - On ",
      "   Start Delay                - |31 63 94 125 12.500000|           Emergency                "
      "   "
      "- On ",
      "   Silent VANTOR Emergency    - Select         VANTOR Emergency Repeat     - 5 ",
      "   P25C Repeat Emer Tone      - Program",
      "",
  };
  EXPECT_EQ(expected, Lines(out));
  // At one half every delay window rounds up, so each window's length shows in its figure.
  v->SetStartDelayPercent(50);
  out.RemoveAll();
  v->printOptToBuffer(out, nullptr);
  EXPECT_EQ(0,
            out.GetAt(8).str().find("   Start Delay                - |125 250 375 500 50.000000|"));
}

TEST(VantorOpts, ReportBlockTrunkedWithZoneTroopAndVehicle) {
  auto v = LoadWhole<CVantorOpts>(StoredVantor(7));
  CStringArray out;
  v->printOptToBuffer(out, nullptr);
  EXPECT_EQ("Conv_Korvex Emer             - On     ", out.GetAt(2).str());
  EXPECT_EQ(
      "   System                     - TRK            Group                       - FIRE        ",
      out.GetAt(4).str());
  EXPECT_EQ("    Zone   -Q     Troop   - 7      Vehicle Id                  -42 ",
            out.GetAt(5).str());

  v->SetAlphaNumeric(0);
  v->SetEnExtendedId(0);
  out.RemoveAll();
  v->printOptToBuffer(out, nullptr);
  EXPECT_EQ("   ID                         - 77   ", out.GetAt(5).str());
}

}  // namespace
}  // namespace persona
