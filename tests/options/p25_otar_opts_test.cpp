// CP25OtarOpts: defaults, stored bytes, the switch byte on load, copies and the report block.
#include <persona/options/p25_otar_opts.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

TEST(P25OtarOpts, FreshRecordReport) {
  CStringArray out;
  CP25OtarOpts().printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "P25 OTAR Options",
      "----------------",
      "OTAR Options Enabled: FALSE    ",
      "",
      "Individual RSI: 0         ",
      "KMF RSI: 9999999   ",
      "MNP: 1680      ",
      "Retry Timer: 1         ",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));
}

TEST(P25OtarOpts, StoredBytesAndAnyNonZeroSwitchByte) {
  CP25OtarOpts otar;
  otar.SetMnp(500);
  otar.SetRetryTimer(9);
  otar.SetKmfRsi(0xABCDEF);
  otar.SetIndividualRsi(1234567);
  otar.EnableOtar(true);
  test::Bytes b;
  b.NewClass("CP25OtarOpts", 1).U16(500).U8(9).U32(0xABCDEF).U32(1234567).U8(1);
  EXPECT_EQ(test::Hex(b.bytes()), test::Hex(test::StoreObject(&otar)));

  b.bytes().back() = 0x7F;
  const auto loaded = test::LoadWhole<CP25OtarOpts>(b.bytes());
  EXPECT_TRUE(loaded->IsOtarEnabled());
  CStringArray out;
  loaded->printOptToBuffer(out, nullptr);
  EXPECT_EQ("OTAR Options Enabled: TRUE     ", out.GetAt(2).str());
  EXPECT_EQ("Individual RSI: 1234567   ", out.GetAt(4).str());
}

}  // namespace
}  // namespace persona
