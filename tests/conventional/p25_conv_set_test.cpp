// P25 conventional channels and sets: stored bytes, older schemas, the 1 Hz equality,
// set equality, references, the frequency check and report lines.
#include <persona/conventional/p25_conv_set.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Hex;

CP25ConvChannel* MakeChannel(const char* name, double tx, double rx) {
  auto* c = new CP25ConvChannel;
  c->SetName(name);
  c->SetTxFreq(tx);
  c->SetRxFreq(rx);
  return c;
}

TEST(P25ConvSet, StoresTheDocumentedLayout) {
  CP25ConvSet set;
  set.SetName("P25C");
  set.SetTxMinFreq(136.0);
  set.SetTxMaxFreq(174.0);
  set.SetRxMinFreq(137.0);
  set.SetRxMaxFreq(173.0);
  set.SetP25GroupSet("GRPS");
  CP25ConvChannel* c = MakeChannel("OPS", 155.1, 155.7);
  c->SetTxCg("C");
  c->SetTgid(0x00010203);
  c->SetTxNac(0x123);
  c->SetSte(1);
  c->SetEmer(1);
  c->SetSqMode(2);
  c->SetPreAmp(1);
  c->SetTalkaround(0);
  set.Add(c);
  // clang-format off
  const auto expected = Bytes()
      .NewClass("CP25ConvSet", 1).Count(1)
      .NewClass("CP25ConvChannel", 3)
      .Str("OPS").F64(155.1).F64(155.7).Str("C").Str("")
      .U32(0x00010203).U16(0x123).U16(659)
      .U8(1).U8(1).U8(0).U8(0).U8(0).U8(1).U8(1).U8(0)  // Ste, Backlight, Scan, CCT, TxBusy,
                                                        // Emer, AlertTone, FixPower
      .U8(2).U8(2).U8(1).U8(1)                          // BandWidth, SqMode, VoiceMode, Power
      .U8(1)                                            // schema 2: PreAmp, after Power
      .U8(1).U8(0)                                      // schema 3: CgSel, Talkaround
      .Str("P25C").U8(8).U8(0)
      .F64(136.0).F64(137.0).F64(174.0).F64(173.0).Str("GRPS")
      .bytes();
  // clang-format on
  EXPECT_EQ(Hex(expected), Hex(test::StoreObject(&set)));
  test::ExpectRoundTrip(set);
}

TEST(P25ConvSet, LoadsOlderChannelSchemas) {
  auto setWith = [](unsigned schema) {
    Bytes b;
    b.NewClass("CP25ConvSet", 1).Count(1).NewClass("CP25ConvChannel", schema);
    b.Str("A").F64(851.0).F64(806.0).Str("").Str("").U32(5).U16(1).U16(2);
    for (int i = 0; i < 8; ++i) b.U8(0);
    b.U8(1).U8(1).U8(0).U8(0);
    if (schema >= 2) b.U8(1);
    if (schema >= 3) b.U8(0).U8(0);
    b.Str("S").U8(8).U8(0).F64(0.0).F64(0.0).F64(0.0).F64(0.0).Str("");
    return b;
  };
  std::vector<std::unique_ptr<CObject>> pool;
  auto s1 = test::LoadSharing<CP25ConvSet>(setWith(1), pool);
  const CP25ConvChannel* c1 = s1->GetChannelAt(0);
  EXPECT_EQ(0, c1->GetPreAmp());
  EXPECT_EQ(1, c1->GetCgSel());
  EXPECT_EQ(1, c1->GetTalkaround());
  EXPECT_EQ(0, c1->GetBacklight());
  EXPECT_EQ(0, c1->GetPower());
  EXPECT_EQ(2, c1->GetRxNac());
  auto s2 = test::LoadSharing<CP25ConvSet>(setWith(2), pool);
  EXPECT_EQ(1, s2->GetChannelAt(0)->GetPreAmp());
  EXPECT_EQ(1, s2->GetChannelAt(0)->GetTalkaround());
  auto s3 = test::LoadSharing<CP25ConvSet>(setWith(3), pool);
  EXPECT_EQ(0, s3->GetChannelAt(0)->GetCgSel());
  EXPECT_EQ(0, s3->GetChannelAt(0)->GetTalkaround());
  EXPECT_EQ(Hex(setWith(3)), Hex(test::StoreObject(s3.get())));
}

TEST(P25ConvSet, EqualityRules) {
  CP25ConvChannel a, b;
  a.SetTxFreq(851.0125);
  b.SetTxFreq(851.0125005);
  EXPECT_TRUE(a == b);
  b.SetTxFreq(851.01251);
  EXPECT_FALSE(a == b);
  b.SetTxFreq(851.0125);
  b.SetRxFreq(0.0000009);
  EXPECT_TRUE(a == b);
  b.SetEmer(1);  // not printed, still compared
  EXPECT_FALSE(a == b);

  CP25ConvSet x, y;
  x.Add(MakeChannel("A", 851.0, 806.0));
  y.Add(MakeChannel("A", 851.0, 806.0));
  EXPECT_TRUE(x == y);
  y.SetName("OTHER");  // unlike conventional sets, the name counts
  EXPECT_FALSE(x == y);
  y.SetName("");
  y.SetScope(1);
  EXPECT_FALSE(x == y);
  y.SetScope(0);
  y.SetRxMaxFreq(0.0000001);  // limits compare exactly
  EXPECT_FALSE(x == y);

  CP25ConvSet copy(x), assigned;
  EXPECT_TRUE(copy == x);
  assigned.Add(MakeChannel("OLD", 1.0, 1.0));
  assigned = &x;
  EXPECT_TRUE(assigned == x);
  EXPECT_EQ(1, assigned.GetSize());
}

TEST(P25ConvSet, ReferencesLookupsAndFrequencyCheck) {
  CP25ConvSet set;
  set.SetP25GroupSet("OPS");
  set.Add(MakeChannel("OPS", 851.0, 806.0));
  set.Add(MakeChannel("TAC", 852.0, 807.0));
  EXPECT_EQ(-1, set.FindChannelIndex(""));
  EXPECT_EQ(1, set.FindChannelIndex("TAC"));
  set.DeleteSetReferencesToChan("TAC");
  EXPECT_EQ("OPS", set.GetP25GroupSet());
  set.DeleteAt(0);  // a channel named like the group set clears the group set name
  EXPECT_EQ("", set.GetP25GroupSet());
  EXPECT_EQ(1, set.GetSize());

  auto check = [](double tx, double rx, double first) {
    CP25ConvSet s;
    s.Add(MakeChannel("C", tx, rx));
    return s.CheckFrequencyRange(first, 0.0, 851.0, 870.0);
  };
  EXPECT_EQ(1, check(820.0, 870.0000005, 806.0));  // tolerance above 800 MHz too
  EXPECT_EQ(0, check(820.0, 870.00001, 806.0));
  EXPECT_EQ(0, check(820.0, 850.0, 806.0));
  EXPECT_EQ(1, check(820.0, 850.0, 800.0));
  EXPECT_EQ(0, check(805.0, 860.0, 806.0));
  EXPECT_EQ(1, check(0.0, 860.0, 806.0));
}

TEST(P25ConvSet, DefaultsAndReportLines) {
  const CP25ConvChannel reduced(68, 1);
  EXPECT_EQ(0, reduced.GetBacklight());
  EXPECT_EQ(0, reduced.GetAlertTone());
  EXPECT_EQ(0, reduced.GetVoiceMode());
  EXPECT_EQ(1, CP25ConvChannel(68, 0).GetVoiceMode());
  EXPECT_EQ(P25ConvSetType, CP25ConvSet(68, 1).GetSetType());

  CP25ConvSet set;
  set.SetName("P25C");
  set.SetP25GroupSet("GRPS");
  CP25ConvChannel* c = MakeChannel("OPS", 155.1, 155.7);
  c->SetTxCg("156.7");
  c->SetTgid(65535);
  c->SetSqMode(1);
  c->SetScan(1);
  c->SetPreAmp(1);
  set.Add(c);
  CStringArray out;
  set.printToBuffer(out, 4, 68, 900.0);
  const std::vector<std::string> expected = {
      "   4   - P25C        ",
      "                  P25 Group Set     - GRPS        ",
      "            Ch  1 OPS         ",
      "                  Tx Frequency      - 155.1000     Tx Chan Guard   - 156.7",
      "                  Rx Frequency      - 155.7000     Rx Chan Guard   -      ",
      "                  Talk Group ID     - 65535        Sq Mode         - SEL ",
      "                  Tx NAC            - 293          Rx NAC          - 293",
      "                  Band Width        - C4FM         Voice Mode      - P25  ",
      "                  Power             - High         PreAmp          - On ",
      "                  CCT               - Off          Scan            - On ",
      "                  Backlight         - On           Tx Busy         - Off",
      "                  STE               - Off          Alert Tone      - On ",
      "                  Fix Power         - Off",
      "",
  };
  test::ExpectLines(expected, out);
}

}  // namespace
}  // namespace persona
