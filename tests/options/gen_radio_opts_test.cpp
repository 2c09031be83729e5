// CGenRadioOpts: constructor defaults, the archive layout of every schema with its two load
// clamps, the emergency latch that copies leave behind, and the report block.
#include <persona/options/gen_radio_opts.h>

#include <gtest/gtest.h>

#include <persona/options/scratch_pad_opts.h>
#include <persona/personality/personality.h>
#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Lines;
using test::LoadWhole;

// The fields that every constructor leaves at the neutral defaults unless told otherwise.
void ExpectNeutralRanges(const CGenRadioOpts& g) {
  EXPECT_EQ(1, g.GetMinLid());
  EXPECT_EQ(16382, g.GetMaxLid());
  EXPECT_EQ(1, g.GetMinEaLid());
  EXPECT_EQ(1048575, g.GetMaxEaLid());
  EXPECT_EQ(1, g.GetMinP25Lid());
  EXPECT_EQ(9999999, g.GetMaxP25Lid());
  EXPECT_EQ(10, g.GetMaxVolume());
  EXPECT_EQ(0, g.GetEmerLatch());
}

TEST(GenRadioOpts, NarrowBandConstructor) {
  const CGenRadioOpts narrow(1, 68, 1);
  EXPECT_EQ(1, narrow.GetLowMicAudio());
  EXPECT_EQ(1, narrow.GetBandWidth());
  EXPECT_EQ(0, narrow.GetBaudRate());
  EXPECT_EQ(0, narrow.GetDynamicRegroup());  // the model's reduced defaults still apply
  ExpectNeutralRanges(narrow);

  const CGenRadioOpts wide(0, 103, 0);
  EXPECT_EQ(1, wide.GetLowMicAudio());
  EXPECT_EQ(0, wide.GetBandWidth());
  EXPECT_EQ(1, wide.GetBaudRate());
  EXPECT_EQ(1, wide.GetRxPolarity());
}

// A schema-1 record: the first five steps of the layout, with values that older versions let
// through (radio operation 5, emergency latch 3).
Bytes SchemaOne(WORD schema = 1) {
  Bytes b;
  b.NewClass("CGenRadioOpts", schema);
  for (BYTE v : {1, 0, 1, 0, 1, 1, 1, 1, 0, 1, 1}) b.U8(v);
  for (WORD v : {5, 2, 1000, 255, 100, 4}) b.U16(v);
  b.U8(2).U8(3);
  b.Str("TS").Str("HS").Str("CB").Str("TX").Str("CT");
  b.U8(1).U8(1);
  return b;
}

TEST(GenRadioOpts, SchemaOneLoadKeepsDefaultsAndClampsRadioOperation) {
  const auto g = LoadWhole<CGenRadioOpts>(SchemaOne().bytes());
  EXPECT_EQ(1, g->GetLowMicAudio());
  EXPECT_EQ(0, g->GetDynamicRegroup());
  EXPECT_EQ(1, g->GetOverAirChanExp());
  EXPECT_EQ(1, g->GetRadioOperation());  // 5 clamped
  EXPECT_EQ(1000, g->GetMaxLid());
  EXPECT_EQ(255, g->GetICallMinVol());
  EXPECT_EQ(4, g->GetMinVol());
  EXPECT_EQ(2, g->GetOffsetIF());
  EXPECT_EQ(3, g->GetEmerLatch());  // the personality repairs the latch, not the record
  EXPECT_EQ(CString("CT"), g->GetCnvTestSet());
  EXPECT_EQ(1, g->GetVoterMonitor());
  // Not in schema 1: the default constructor's values.
  EXPECT_EQ(0, g->GetBandWidth());
  EXPECT_EQ(0, g->GetAgcLevel());
  EXPECT_EQ(0, g->GetRxPolarity());
  EXPECT_EQ(0, g->GetFastPtt());
  EXPECT_EQ(10, g->GetMaxVolume());
  EXPECT_EQ(1048575, g->GetMaxEaLid());
  EXPECT_EQ(9999999, g->GetMaxP25Lid());

  CStringArray out;
  g->printOptToBuffer(out, nullptr, 100);
  EXPECT_EQ("   Radio Operation            - CC Monitor     Base Mobile Operation       - On ",
            out.GetAt(4).str());
}

TEST(GenRadioOpts, MaxVolumeClampedOnLoad) {
  for (BYTE stored : {200, 12}) {
    Bytes b = SchemaOne(3);
    b.U8(1).U8(stored);
    const auto g = LoadWhole<CGenRadioOpts>(b.bytes());
    EXPECT_EQ(1, g->GetBandWidth());
    EXPECT_EQ(11, g->GetMaxVolume()) << int(stored);
  }
  Bytes b = SchemaOne(3);
  b.U8(0).U8(11);
  EXPECT_EQ(11, LoadWhole<CGenRadioOpts>(b.bytes())->GetMaxVolume());
}

TEST(GenRadioOpts, StoresTheSchemaNineLayout) {
  CGenRadioOpts g(103, 0);
  g.SetHomeSystem("HOME");
  g.SetEmerLatch(1);
  Bytes b;
  b.NewClass("CGenRadioOpts", 9);
  for (BYTE v : {0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0}) b.U8(v);
  for (WORD v : {0, 1, 16382, 0, 160, 0}) b.U16(v);
  b.U8(0).U8(1);
  b.Str("").Str("HOME").Str("").Str("").Str("");
  b.U8(1).U8(0);                     // baud rate 9600, voter monitor
  b.U8(0).U8(10).U8(0).U8(0).U8(0);  // bandwidth .. fast PTT
  b.I32(1).I32(1048575).I32(1).I32(9999999);
  b.U8(0).I32(1);  // AGC level, receive polarity
  EXPECT_EQ(test::Hex(b.bytes()), test::Hex(test::StoreObject(&g)));
}

TEST(GenRadioOpts, CopiesLeaveTheEmergencyLatchBehind) {
  CGenRadioOpts src(103, 0);
  test::FillFields(src, 3);
  src.SetEmerLatch(1);

  const CGenRadioOpts copy(src);
  EXPECT_EQ(0, copy.GetEmerLatch());

  CGenRadioOpts target;
  target.operator=(&src);
  EXPECT_EQ(0, target.GetEmerLatch());
  // Every other field was copied: with the latches made equal the dumps agree.
  target.SetEmerLatch(1);
  EXPECT_EQ(test::DumpFields(src), test::DumpFields(target));

  CGenRadioOpts latched;
  latched.SetEmerLatch(1);
  CGenRadioOpts unlatched;
  latched.operator=(&unlatched);
  EXPECT_EQ(1, latched.GetEmerLatch());
}

TEST(GenRadioOpts, ReportBlock) {
  CGenRadioOpts g(103, 0);
  g.SetTxLockoutType(1);
  g.SetLowMicAudio(1);
  g.SetInterconnectState(1);
  g.SetRadioOperation(1);
  g.SetTestUnitSystem("TESTSYS");
  g.SetHomeSystem("HOME");
  g.SetCnvTestSet("CNVTEST");
  g.SetTxRelay(1);
  g.SetBandWidth(1);
  g.SetMinVol(3);
  g.SetFastPtt(1);
  g.SetMinLid(2);
  g.SetMaxLid(16000);
  g.SetMinEaLid(5);
  CPersonality personality(103, 0);
  auto* pad = new CScratchPadOpts();
  pad->SetNumScratchPad(7);
  personality.PutOption(pad);

  CStringArray out;
  g.printOptToBuffer(out, &personality, 103);
  const std::vector<std::string> expected = {
      "GENERAL RADIO OPTIONS:",
      "----------------------",
      "   Transmit Lockout Type      - Signal         Low Mic Audio               - On ",
      "   Interconnect State         - Duplex         Dynamic Regroup             - On ",
      "   Radio Operation            - CC Monitor     Base Mobile Operation       - Off",
      "   Test Unit System           - TESTSYS        Transmit Busy               - On ",
      "   Home System                - HOME           Home Decode                 - Off",
      "   Conventional Test Set      - CNVTEST        Transmit Relay              - On ",
      "   Trunked Bandwidth          - 12.5",
      "   Signalling Baud Rate       - 9600           Test Mode                   - Off",
      "   Minimum Volume             - 3              WEX Max Storage Location    - 7 ",
      "   Fast Ptt                   - On ",
      "   Minimum LID                - 2              Over Air Channel Expansion  - Off",
      "   Maximum LID                - 16000",
      "   Minimum KORVEX IP LID       - 5      ",
      "   Maximum KORVEX IP LID       - 1048575",
      "   Minimum P25 LID            - 1      ",
      "   Maximum P25 LID            - 9999999",
      "   Squelch                    - 160",
      "   Override Default NPSPAC Chan Assignments - Off",
      "   RX Low Speed Data Polarity:  YES",
      "",
  };
  EXPECT_EQ(expected, Lines(out));
}

TEST(GenRadioOpts, PolarityLineOnlyForItsModels) {
  CGenRadioOpts g;
  CStringArray for100;
  g.printOptToBuffer(for100, nullptr, 100);
  CStringArray for103;
  g.printOptToBuffer(for103, nullptr, 103);
  ASSERT_EQ(for100.GetSize() + 1, for103.GetSize());
  EXPECT_EQ("   RX Low Speed Data Polarity:  NO", for103.GetAt(for103.GetSize() - 2).str());
  for (const CString& line : for100) EXPECT_EQ(-1, line.Find("Polarity"));
}

TEST(GenRadioOpts, ScratchPadCountFromATemporaryRecordWhenMissing) {
  // Without a scratch pad record the model's own count is printed; the personality is kept.
  CPersonality personality(68, 0);
  CStringArray out;
  CGenRadioOpts().printOptToBuffer(out, &personality, 68);
  EXPECT_EQ("   Minimum Volume             - 0              WEX Max Storage Location    - 16",
            out.GetAt(10).str());
  EXPECT_EQ(nullptr, personality.GetOption<CScratchPadOpts>());
}

}  // namespace
}  // namespace persona
