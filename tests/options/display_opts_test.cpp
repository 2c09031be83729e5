// CDisplayOpts: the backlight level conversion of schemas 1 and 2, the later fields of each
// schema, the model overrides and the exact lines of the report block.
#include <persona/options/display_opts.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::LoadWhole;

// A display record of the given schema with backlight level 2 and every field that schema has.
std::vector<BYTE> StoredDisplay(WORD schema) {
  Bytes b;
  b.NewClass("CDisplayOpts", schema);
  for (BYTE v : {0, 1, 1, 0, 0, 1, 0, 1, 0, 1, 2, 1}) b.U8(v);
  b.U16(2).U8(1);
  if (schema >= 2) b.F64(12.5);
  if (schema >= 4) b.U8(1).U8(1);
  if (schema >= 5) b.I32(1);
  return b.bytes();
}

TEST(DisplayOpts, BacklightLevelOfOldSchemasIsMultipliedBySix) {
  const auto one = LoadWhole<CDisplayOpts>(StoredDisplay(1));
  EXPECT_EQ(12, one->GetBacklightLevel());
  EXPECT_DOUBLE_EQ(5.0, one->GetBacklightTimeout());  // not in schema 1
  EXPECT_EQ(2, one->GetSysGrpDisplay());
  EXPECT_EQ(1, one->GetDisplayDelimiter());

  const auto two = LoadWhole<CDisplayOpts>(StoredDisplay(2));
  EXPECT_EQ(12, two->GetBacklightLevel());
  EXPECT_DOUBLE_EQ(12.5, two->GetBacklightTimeout());
  EXPECT_EQ(0, two->GetGrpBankDisplay());

  const auto three = LoadWhole<CDisplayOpts>(StoredDisplay(3));
  EXPECT_EQ(2, three->GetBacklightLevel());
  EXPECT_EQ(0, three->GetGrpBankDisplayType());

  const auto four = LoadWhole<CDisplayOpts>(StoredDisplay(4));
  EXPECT_EQ(2, four->GetBacklightLevel());
  EXPECT_EQ(1, four->GetGrpBankDisplayType());
  EXPECT_EQ(0, four->GetToggleAlertMsg());

  const auto five = LoadWhole<CDisplayOpts>(StoredDisplay(5));
  EXPECT_EQ(2, five->GetBacklightLevel());
  EXPECT_EQ(1, five->GetToggleAlertMsg());
  // A current record stores exactly what it was loaded from.
  EXPECT_EQ(test::Hex(StoredDisplay(5)), test::Hex(test::StoreObject(five.get())));
}

TEST(DisplayOpts, ReportBlock) {
  CDisplayOpts d;
  d.SetBacklightTimeout(7.25);
  d.SetSysGrpDisplay(1);
  CStringArray out;
  d.printOptToBuffer(out, nullptr, 100);
  const std::vector<std::string> expected = {
      "DISPLAY OPTIONS:",
      "----------------",
      "   Alias Mapping              - On             Display Group ID            - Off",
      "   Display Individual ID      - Off            ICALL Indicator             - On",
      "   Display Icons              - On             Combined Display            - Off",
      "   Volume Display             - On             Transmit Backlight          - Off",
      "   ICALL Store                - On             Vehicular Charge Back       - Off",
      "   System/Group Display       - System         Unit Display                - Off",
      "   Backlight Level            - 6              Display Delimiter           - Off",
      "   Group Bank Display         - Off            Group Bank Display Type     - Name",
      "   Backlight Timeout          - 7.2 ",
      "   Toggle Alert Message         - FALSE",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));
  d.SetToggleAlertMsg(-1);
  out.RemoveAll();
  d.printOptToBuffer(out, nullptr, 100);
  EXPECT_EQ("   Toggle Alert Message         - TRUE", out.GetAt(out.GetSize() - 2).str());
}

}  // namespace
}  // namespace persona
