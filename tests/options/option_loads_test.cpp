// Loads of older schemas of the option records that lay out their own bytes, and the repairs a
// load makes: what each schema held, what later fields default to, the clamps and conversions,
// and the current layout that a loaded record is stored with again.
#include <gtest/gtest.h>

#include <persona/framework/exceptions.h>
#include <persona/persona.h>
#include "support/bytes.h"
#include "support/expect.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::ExpectFields;
using test::Hex;
using test::LoadWhole;

// A display record of the given schema with backlight level 2 and every field that schema has.
std::vector<BYTE> StoredDisplay(WORD schema) {
  Bytes b("CDisplayOpts", schema);
  for (BYTE v : {0, 1, 1, 0, 0, 1, 0, 1, 0, 1, 2, 1}) b.U8(v);
  b.U16(2).U8(1);
  if (schema >= 2) b.F64(12.5);
  if (schema >= 4) b.U8(1).U8(1);
  if (schema >= 5) b.I32(1);
  return b.bytes();
}

TEST(OptionLoads, DisplayBacklightLevelOfSchemasOneAndTwoIsMultipliedBySix) {
  // schema: backlight level, backlight timeout, group bank display type, toggle alert message
  const struct {
    WORD schema;
    int level;
    double timeout;
    int bankType, toggle;
  } rows[] = {{1, 12, 5.0, 0, 0},
              {2, 12, 12.5, 0, 0},
              {3, 2, 12.5, 0, 0},
              {4, 2, 12.5, 1, 0},
              {5, 2, 12.5, 1, 1}};
  for (const auto& r : rows) {
    const auto d = LoadWhole<CDisplayOpts>(StoredDisplay(r.schema));
    EXPECT_EQ(r.level, d->GetBacklightLevel()) << r.schema;
    EXPECT_DOUBLE_EQ(r.timeout, d->GetBacklightTimeout()) << r.schema;
    EXPECT_EQ(r.bankType, d->GetGrpBankDisplayType()) << r.schema;
    EXPECT_EQ(r.toggle, d->GetToggleAlertMsg()) << r.schema;
    EXPECT_EQ(2, d->GetSysGrpDisplay());
  }
  EXPECT_EQ(Hex(StoredDisplay(5)),
            Hex(test::StoreObject(LoadWhole<CDisplayOpts>(StoredDisplay(5)).get())));
}

TEST(OptionLoads, AlertSchemasOneAndThreeLeaveLaterFieldsNeutral) {
  Bytes old("CAlertOpts", 1);
  old.U16(2).U16(20);
  for (BYTE v : {1, 2, 0, 1, 0, 0}) old.U8(v);
  const auto a = LoadWhole<CAlertOpts>(old.bytes());
  EXPECT_EQ(20, a->GetMaxAlertTone());
  EXPECT_EQ(1, a->GetIcallRingAlert());
  // Stored again: the full schema-4 layout, later fields at the neutral defaults.
  Bytes now("CAlertOpts", 4);
  now.U16(2).U16(20);
  for (BYTE v : {1, 2, 0, 1, 0, 0, /*schema 2*/ 0, 0, /*3*/ 1, 0, 1, /*4*/ 0, 0}) now.U8(v);
  EXPECT_EQ(Hex(now.bytes()), Hex(test::StoreObject(a.get())));

  Bytes three("CAlertOpts", 3);
  three.U16(0).U16(31);
  for (BYTE v : {0, 0, 1, 0, 1, 1, 1, 1, 0, 2, 0}) three.U8(v);
  const auto b = LoadWhole<CAlertOpts>(three.bytes());
  ExpectFields(*b, {"OutOfRangeAlert=1", "AlertToneVol=2", "AlertToneEn=0", "MultLowBattAlerts=0"});
}

// The eight fields of Vantor schema 1, then what each later schema appended, up to `schema`.
std::vector<BYTE> StoredVantor(WORD schema) {
  Bytes b("CVantorOpts", schema);
  b.U8(1).U8(1).U16(2).U16(1).Str("CONV1").Str("CH-A").U16(77).F64(12.5);
  if (schema > 1) b.U8(2).U8(9);
  if (schema > 2) b.U8(1).U8('Q').U8('7').U16(42);
  if (schema > 3) b.U8(1).I32(123456);
  if (schema > 4) b.U8(1);
  if (schema > 5) b.Str("TRK").Str("FIRE");
  if (schema > 6) b.U8(1);
  return b.bytes();
}

TEST(OptionLoads, VantorSchemasOneFiveAndSeven) {
  const auto one = LoadWhole<CVantorOpts>(StoredVantor(1));
  EXPECT_EQ(77, one->GetId());
  EXPECT_DOUBLE_EQ(12.5, one->GetStartDelayPercent());
  EXPECT_EQ(5, one->GetEmerRepeat());
  Bytes stored("CVantorOpts", 7);
  stored.U8(1).U8(1).U16(2).U16(1).Str("CONV1").Str("CH-A").U16(77).F64(12.5);
  stored.U8(0).U8(5).U8(0).U8(0).U8(0).U16(0).U8(0).I32(0).U8(0).Str("").Str("").U8(0);
  EXPECT_EQ(Hex(stored.bytes()), Hex(test::StoreObject(one.get())));

  const auto five = LoadWhole<CVantorOpts>(StoredVantor(5));
  ExpectFields(*five, {"EmerRepeat=9", "Zone=81", "VehicleId=42", "ExtendedId=123456",
                       "ConvKorvexEmer=1", "Group=", "RepeatETone=0"});
  const auto seven = LoadWhole<CVantorOpts>(StoredVantor(7));
  EXPECT_EQ(CString("FIRE"), seven->GetGroup());
  EXPECT_EQ(Hex(StoredVantor(7)), Hex(test::StoreObject(seven.get())));
}

// General options of schema 1 (or the first steps of a later one), with values that older
// versions let through: radio operation 5, emergency latch 3.
Bytes GeneralSchemaOne(WORD schema = 1) {
  Bytes b("CGenRadioOpts", schema);
  for (BYTE v : {1, 0, 1, 0, 1, 1, 1, 1, 0, 1, 1}) b.U8(v);
  for (WORD v : {5, 2, 1000, 255, 100, 4}) b.U16(v);
  b.U8(2).U8(3);
  b.Str("TS").Str("HS").Str("CB").Str("TX").Str("CT");
  b.U8(1).U8(1);
  return b;
}

TEST(OptionLoads, GeneralClampsRadioOperationAndMaxVolume) {
  const auto g = LoadWhole<CGenRadioOpts>(GeneralSchemaOne().bytes());
  // Radio operation 5 is clamped; the personality repairs the latch, not the record; band width
  // and the maximum volume are not in schema 1.
  ExpectFields(*g, {"RadioOperation=1", "MaxLid=1000", "EmerLatch=3", "CnvTestSet=CT",
                    "VoterMonitor=1", "BandWidth=0", "MaxVolume=10", "MaxP25Lid=9999999"});
  for (BYTE stored : {200, 12, 11}) {  // schema 3 adds bandwidth and max volume
    Bytes b = GeneralSchemaOne(3);
    b.U8(1).U8(stored);
    EXPECT_EQ(11, LoadWhole<CGenRadioOpts>(b.bytes())->GetMaxVolume()) << int(stored);
  }
}

TEST(OptionLoads, ToneEncodeSchemaOneHasNoPreDelayAndNoToneLevel) {
  Bytes old("CToneEncode", 1);
  old.U16(1).NewClass("CToneSeq", 1).Str("FIRE").U8(2).U8(3).U16(2).U16(15000).U16(12000);
  old.U16(250).U8(0);  // tone duration; side tone
  const auto enc = LoadWhole<CToneEncode>(old.bytes());
  ASSERT_EQ(1, enc->GetNumSeqs());
  EXPECT_EQ(250, enc->GetSeqAt(0)->GetToneDuration());
  EXPECT_EQ(12000, enc->GetSeqAt(0)->GetTones().GetAt(1));
  EXPECT_EQ(3000, enc->GetToneLevel());
  Bytes now("CToneEncode", 2);
  now.U16(1).NewClass("CToneSeq", 2).Str("FIRE").U8(2).U8(3).U16(2).U16(15000).U16(12000);
  now.U16(250).U16(0).U8(0).U16(3000);  // duration, pre-delay; side tone, tone level
  EXPECT_EQ(Hex(now.bytes()), Hex(test::StoreObject(enc.get())));
}

TEST(OptionLoads, PellamSupervisoryAgencyAndOtarOlderBytes) {
  const auto pellam = LoadWhole<CPellamOpts>(Bytes("CPellamOpts", 1).U8(0).U8(0).U16(40).U16(300));
  EXPECT_EQ(300, pellam->GetMsgReminder());
  EXPECT_EQ(1, pellam->GetPopUpDisplay());  // not in schema 1

  Bytes sup("CSupervisoryOpts", 1);
  sup.U8(0).U8(1).U8(1).U16(20).U16(40).U16(3).U8(1).U8(1);
  const auto s = LoadWhole<CSupervisoryOpts>(sup.bytes());
  ExpectFields(*s, {"AutoKeyOffTime=40", "DropGroupCall=0", "EmerDisplay=1"});

  const auto agency = LoadWhole<CAgencyData>(Bytes("CAgencyData", 1).U16(2).U16(2).U16(16).U16(4));
  EXPECT_EQ(4, agency->GetFleetsAt(1));
  EXPECT_EQ(0, agency->GetAgencyNames().GetSize());  // no names before schema 2

  // Any non-zero switch byte turns OTAR on.
  Bytes otar("CP25OtarOpts", 1);
  otar.U16(500).U8(9).U32(0xABCDEF).U32(1234567).U8(0x7F);
  EXPECT_TRUE(LoadWhole<CP25OtarOpts>(otar.bytes())->IsOtarEnabled());
}

TEST(OptionLoads, UnknownSchemasAndForeignElementsAreRefused) {
  EXPECT_THROW(LoadWhole<CScratchPadOpts>(Bytes("CScratchPadOpts", 2).U16(10).U16(0).U16(0).U8(1)),
               CArchiveException);
  // A status list holding a CMacro.
  Bytes status("CStatus", 2);
  status.U16(1).NewClass("CMacro", 1).U32(5).U16(6).U8(0).U16(0).U16(0).U8(0);
  EXPECT_EQ(test::Caught<CArchiveException>([&] { LoadWhole<CStatus>(status.bytes()); }).m_cause,
            CArchiveException::badClass);
}

}  // namespace
}  // namespace persona
