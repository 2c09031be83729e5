// The option records whose layouts only this library defines: scratch pad, Pellam and
// supervisory options, their stored bytes, schema-1 loads and report lines.
#include <gtest/gtest.h>

#include <persona/framework/exceptions.h>
#include <persona/options/pellam_opts.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/options/supervisory_opts.h>
#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

TEST(ScratchPadOpts, EntriesCountsAndReport) {
  CScratchPadOpts pad;
  pad.AddLid(1048575);
  pad.AddLid(12);
  pad.AddPhoneNumber("5551234");
  EXPECT_EQ(2, pad.GetNumLids());
  EXPECT_EQ(1048575u, pad.GetLidAt(0));
  EXPECT_EQ(0u, pad.GetLidAt(2));
  EXPECT_TRUE(pad.SetLidAt(1, 99));
  EXPECT_FALSE(pad.SetLidAt(2, 99));
  EXPECT_FALSE(pad.RemoveLidAt(-1));
  EXPECT_EQ(CString(""), pad.GetPhoneNumberAt(1));
  EXPECT_FALSE(pad.SetPhoneNumberAt(1, "1"));
  EXPECT_EQ(10, pad.GetNumScratchPad());
  EXPECT_EQ(16, CScratchPadOpts(101, 0).GetNumScratchPad());

  CStringArray out;
  pad.printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "KORVEX SCRATCH PAD OPTIONS:",
      "---------------------------",
      "   Storage Locations          - 10             Logical IDs                 - 1048575, 99",
      "   Phone Numbers              - 5551234        Interconnect                - On",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));

  test::Bytes b;
  b.NewClass("CScratchPadOpts", 1).U16(10).U16(2).Str("1048575").Str("99").U16(1).Str("5551234");
  b.U8(1);
  EXPECT_EQ(test::Hex(b.bytes()), test::Hex(test::StoreObject(&pad)));
  pad.Delete();
  EXPECT_EQ(0, pad.GetNumLids());
  EXPECT_EQ(0, pad.GetNumPhoneNumbers());
}

TEST(ScratchPadOpts, AnotherStoredSchemaIsRefused) {
  test::Bytes b;
  b.NewClass("CScratchPadOpts", 2).U16(10).U16(0).U16(0).U8(1);
  EXPECT_THROW(test::LoadWhole<CScratchPadOpts>(b.bytes()), CArchiveException);
}

TEST(PellamOpts, SchemaOneLoadLeavesPopUpDisplayOn) {
  test::Bytes b;
  b.NewClass("CPellamOpts", 1).U8(0).U8(0).U16(40).U16(300);
  const auto pellam = test::LoadWhole<CPellamOpts>(b.bytes());
  EXPECT_EQ(0, pellam->GetPlmRxAlertTone());
  EXPECT_EQ(40, pellam->GetMaxStoredMsgs());
  EXPECT_EQ(300, pellam->GetMsgReminder());
  EXPECT_EQ(1, pellam->GetPopUpDisplay());
}

TEST(SupervisoryOpts, SchemaOneLoadAndReport) {
  test::Bytes b;
  b.NewClass("CSupervisoryOpts", 1).U8(0).U8(1).U8(1).U16(20).U16(40).U16(3).U8(1).U8(1);
  const auto sup = test::LoadWhole<CSupervisoryOpts>(b.bytes());
  EXPECT_EQ(1, sup->GetEmerLID());
  EXPECT_EQ(40, sup->GetAutoKeyOffTime());
  EXPECT_EQ(0, sup->GetDropGroupCall());
  EXPECT_EQ(1, sup->GetEmerDisplay());

  CStringArray out;
  sup->printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "SUPERVISORY OPTIONS:",
      "--------------------",
      "   Emergency Declare          - Off            Emergency Clear             - On",
      "   Emergency ID               - On             Emergency Auto-Key Time     - 20",
      "   Auto-Key Off Time          - 40             Auto-Key Delay              - 3",
      "   Emergency Lock             - On             Authentication Request      - On",
      "   Drop Group Call            - Off            Last System/Group Recall    - Off",
      "   Emergency Display          - On",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));
}

}  // namespace
}  // namespace persona
