// Systems stored with older schemas, from hand-built bytes: the fields a schema lacks keep their
// constructor defaults and the load reads every byte of the object, no more and no fewer.
#include <gtest/gtest.h>

#include <persona/systems/conv_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>
#include "support/bytes.h"
#include "support/record_testing.h"

namespace persona {
namespace {

using test::Bytes;
using test::ExpectFields;
using test::LoadWhole;

// The class tag and the CSystem part as a system of the class and schema stores them.
Bytes System(const char* cls, WORD schema, const char* name, BYTE type) {
  Bytes b(cls, schema);
  b.Str(name).U8(type).U16(3).U8(0).U8(0).U16(11).U16(12).U16(13);
  for (BYTE v = 0xC0; v < 0xC7; ++v) b.U8(v);
  if (schema >= 12 && schema != 255) b.U16(44).Str("BaseKey");
  return b;
}

// The CTrunkSystem part up to the conventional priority transmit switch.
Bytes& TrunkHead(Bytes& b) {
  b.U16(1).Str("SCAN1").U8(0).U8(0).U8(0).U16(21).U16(22).U16(23);
  for (const char* set : {"TRS", "GRS", "PHS", "ICS", "SPS"}) b.Str(set);
  return b.Str("PRI").U8(1).U8(2).Str("CNVSYS").Str("CNVCH").U8(1);
}

TEST(SystemOldSchemas, TrunkedSchemaOneHasNoKeyNoHostNoDataLid) {
  Bytes bytes = System("CTrunkSystem", 1, "NORTH", 0);
  auto sys = LoadWhole<CTrunkSystem>(TrunkHead(bytes));
  ExpectFields(
      *sys, {"Name=NORTH", "PowerLevel=3", "QuenbyButton2=198", "ScannedSystems=SCAN1", "Site=23",
             "SpCallSetName=SPS", "CnvPriChannel=CNVCH", "CnvPriTx=1", "TrunkESK=0",
             "TrunkEskName=", "ESK=0", "VeskaHostUdpPortNum=1027", "DataLid=1"});
}

TEST(SystemOldSchemas, MessagingSchemaOneHasNoScanListAndSchemaTwoHasOne) {
  for (WORD schema : {1, 2}) {
    Bytes bytes = System("CPlmSystem", schema, "PELLAM", 2);
    for (BYTE b = 1; b <= 8; ++b) bytes.U8(b);
    bytes.U16(30).U16(40);
    for (WORD w = 1; w <= 8; ++w) bytes.U16(w);
    bytes.Str("T").Str("G").Str("S");
    if (schema >= 2) bytes.U16(2).Str("A").Str("B");
    auto sys = LoadWhole<CPlmSystem>(bytes);
    EXPECT_EQ(sys->GetDblDiscnct(), 8);
    EXPECT_EQ(sys->GetBusyToneLen(), 40);
    EXPECT_EQ(sys->GetSpCallTone(1), 3);  // interleaved: 1,2 / 3,4 / ...
    EXPECT_EQ(sys->GetIndvDecTone(1), 4);
    EXPECT_EQ(sys->GetSpCallSetName(), "S");
    EXPECT_EQ(sys->GetNumScannedSystems(), schema >= 2 ? 2 : 0);
  }
}

TEST(SystemOldSchemas, P25ConventionalFieldsArriveWithSchemasFiveSevenAndEight) {
  struct Case {
    WORD schema;
    BYTE encrypt;
    DWORD keyId;
    LONG displayGroup;
    BYTE cgSel;
  };
  for (const Case& c : {Case{4, 0, 0, 1, 0}, Case{5, 2, 77, 1, 0}, Case{7, 2, 77, -3, 0},
                        Case{8, 2, 77, -3, 9}, Case{255, 0, 0, 1, 0}}) {
    Bytes bytes = System("CP25ConvSystem", c.schema, "P25C", 3);
    bytes.U8(1).U32(123456).Str("PCV").Str("ICS");
    if (c.schema >= 5 && c.schema != 255) bytes.U8(2).U32(77);
    if (c.schema >= 7 && c.schema != 255) bytes.I32(-3);
    if (c.schema >= 8 && c.schema != 255) bytes.U8(9);
    auto sys = LoadWhole<CP25ConvSystem>(bytes);
    EXPECT_EQ(sys->GetUnit(), 123456u) << c.schema;
    EXPECT_EQ(sys->GetIcallSetName(), "ICS") << c.schema;
    EXPECT_EQ(sys->GetEncryptType(), c.encrypt) << c.schema;
    EXPECT_EQ(sys->GetKeyId(), c.keyId) << c.schema;
    EXPECT_EQ(sys->GetDisplayGroup(), c.displayGroup) << c.schema;
    EXPECT_EQ(sys->GetCgSel(), c.cgSel) << c.schema;
  }
}

TEST(SystemOldSchemas, P25TrunkedSchemaElevenSkipsBaseKeyAndDataLids) {
  Bytes bytes = System("CP25TrkSystem", 11, "P25T", 5);
  TrunkHead(bytes).U16(5).Str("TrunkKey");   // schema 3
  bytes.U32(900).U16(5000).U32(0x0A000001);  // schema 8
  bytes.Str("WAN").U16(0x293).U32(1).U16(2).U32(3).U8(4).I32(1).I32(2).U8(5).U8(0x84);
  for (WORD w = 10; w <= 14; ++w) bytes.U16(w);
  bytes.U8(6).U16(15).Put<short>(-16).U16(17).U32(851000000).Str("HOME").U32(4242);
  bytes.U16(0x1A).U16(0x2B).U8(1);  // schemas 10 and 11
  auto sys = LoadWhole<CP25TrkSystem>(bytes);
  ExpectFields(*sys, {"ESK=0", "EskName=", "TrunkESK=5", "TrunkEskName=TrunkKey",
                      "VeskaHostIpAddr=167772161", "DataLid=1", "SystemNac=659", "AlgorithmId=132",
                      "AllCallKeyId=14", "DefaultTxOffset=-16", "HomeWanName=HOME",
                      "HomeUnitId=4242", "SiteId=43", "CcTxReq=1", "FneDataLid=16777213"});
}

TEST(SystemOldSchemas, ConventionalSchemaTwelveReadsBaseKeyOnce) {
  // Every level tests the schema read once by the most derived class: a second request would
  // answer "no schema" and the base key pair would be missed.
  Bytes bytes = System("CConvSystem", 12, "CONV", 1);
  for (BYTE b = 1; b <= 6; ++b) bytes.U8(b);
  auto sys = LoadWhole<CConvSystem>(bytes.U16(7).Str("CVS").Str("PHS").U8(8).U8(9));
  ExpectFields(*sys, {"ESK=44", "EskName=BaseKey", "ToneSeq=8", "CgSel=9"});
}

}  // namespace
}  // namespace persona
