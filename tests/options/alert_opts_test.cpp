// CAlertOpts: the schema-1 load, the stored schema-4 bytes, the model overrides and the report
// block with the values it quotes from the general radio and Pellam options.
#include <persona/options/alert_opts.h>

#include <gtest/gtest.h>

#include <persona/options/gen_radio_opts.h>
#include <persona/options/pellam_opts.h>
#include <persona/personality/personality.h>
#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Lines;
using test::LoadWhole;

TEST(AlertOpts, SchemaOneLoadsTwoWordsAndSixBytes) {
  Bytes old;
  old.NewClass("CAlertOpts", 1).U16(2).U16(20);
  for (BYTE v : {1, 2, 0, 1, 0, 0}) old.U8(v);
  const auto a = LoadWhole<CAlertOpts>(old.bytes());
  EXPECT_EQ(2, a->GetMinAlertTone());
  EXPECT_EQ(20, a->GetMaxAlertTone());
  EXPECT_EQ(1, a->GetRxAlertTone());
  EXPECT_EQ(2, a->GetAlertTones());
  EXPECT_EQ(0, a->GetChanAccessTones());
  EXPECT_EQ(1, a->GetIcallRingAlert());
  EXPECT_EQ(0, a->GetTrkTxBeep());
  EXPECT_EQ(0, a->GetCnvTxBeep());

  // Stored again: the full schema-4 layout, later fields at the neutral defaults.
  Bytes now;
  now.NewClass("CAlertOpts", 4).U16(2).U16(20);
  for (BYTE v : {1, 2, 0, 1, 0, 0, /*schema 2*/ 0, 0, /*3*/ 1, 0, 1, /*4*/ 0, 0}) now.U8(v);
  EXPECT_EQ(test::Hex(now.bytes()), test::Hex(test::StoreObject(a.get())));
}

TEST(AlertOpts, SchemaThreeStopsBeforeTheLowBatteryFields) {
  Bytes old;
  old.NewClass("CAlertOpts", 3).U16(0).U16(31);
  for (BYTE v : {0, 0, 1, 0, 1, 1, 1, 1, 0, 2, 0}) old.U8(v);
  const auto a = LoadWhole<CAlertOpts>(old.bytes());
  EXPECT_EQ(1, a->GetP1ScanAlert());
  EXPECT_EQ(1, a->GetOutOfRangeAlert());
  EXPECT_EQ(0, a->GetAudibleAlert());
  EXPECT_EQ(2, a->GetAlertToneVol());
  EXPECT_EQ(0, a->GetAlertToneEn());
  EXPECT_EQ(0, a->GetMultLowBattAlerts());
}

TEST(AlertOpts, ReportBlockWithTemporaryQuotedRecords) {
  CAlertOpts a;
  a.SetRxAlertTone(1);
  a.SetAlertTones(2);
  a.SetChanAccessTones(0);
  a.SetMinAlertTone(3);
  a.SetIcallRingAlert(1);
  a.SetP1ScanAlert(1);
  a.SetTrkTxBeep(0);
  a.SetOutOfRangeAlert(1);
  a.SetAlertToneVol(1);
  a.SetMultLowBattAlerts(1);
  a.SetLowBattAlertVol(2);
  CPersonality empty(100, 0);

  CStringArray out;
  a.printOptToBuffer(out, &empty, 100);
  const std::vector<std::string> expected = {
      "ALERT OPTIONS:",
      "--------------",
      "   Receive Alert Tone         - On             Alert Tones                 - Adjustable",
      "   Ready To Talk Tone         - Off            Minimum Alert Tone          - 3 ",
      "   ICALL Ring Alert           - On             Maximum Alert Tone          - 31",
      "   Conv. Ready To Talk Tone   - On             P1 Scan Alert Tone          - On ",
      "   Trunked Ready To Talk Tone - Off            Out Of Range Alert Tone     - On ",
      "   Audible Alert Beeps        - On ",
      "   Type99/Vantor/MultiTone Alert Tone        - On ",
      "   Type99/Vantor/MultiTone Alert Tone Volume - Mid       ",
      "   ICALL Minimum Ring Volume  - 0              PELLAM Receive Alert Tone   - On ",
      "   Multiple Low Battery Alerts               - On ",
      "   Low Battery Alert Tone Volume             - High      ",
      "",
  };
  EXPECT_EQ(expected, Lines(out));
  EXPECT_EQ(nullptr, empty.GetOption<CGenRadioOpts>());
  EXPECT_EQ(nullptr, empty.GetOption<CPellamOpts>());
}

TEST(AlertOpts, QuotesThePersonalitysGeneralAndPellamOptions) {
  CPersonality personality(100, 0);
  auto* general = new CGenRadioOpts(100, 0);
  general->SetICallMinVol(255);
  personality.PutOption(general);
  auto* pellam = new CPellamOpts(100, 0);
  pellam->SetPlmRxAlertTone(0);
  personality.PutOption(pellam);

  CStringArray out;
  CAlertOpts().printOptToBuffer(out, &personality, 100);
  EXPECT_EQ("   ICALL Minimum Ring Volume  - OFF            PELLAM Receive Alert Tone   - Off",
            out.GetAt(10).str());

  general->SetICallMinVol(7);
  out.RemoveAll();
  CAlertOpts().printOptToBuffer(out, &personality, 100);
  EXPECT_EQ("   ICALL Minimum Ring Volume  - 7              PELLAM Receive Alert Tone   - Off",
            out.GetAt(10).str());
}

}  // namespace
}  // namespace persona
