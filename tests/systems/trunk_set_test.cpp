// Trunk channels and trunk sets: stored bytes, old schemas, shared keys, equality, frequency
// check, copy rules, model defaults and report lines.
#include <persona/systems/trunk_set.h>

#include <gtest/gtest.h>

#include <tuple>

#include <persona/systems/esk_data.h>
#include <persona/systems/group_set.h>
#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Hex;

CTrunkChannel* MakeChannel(double tx, double rx, WORD osc, BYTE osOpt, WORD type, BYTE npspac) {
  auto* ch = new CTrunkChannel;
  ch->SetTxFreq(tx);
  ch->SetRxFreq(rx);
  ch->SetOscShift(osc);
  ch->SetOsOpt(osOpt);
  ch->SetType(type);
  ch->SetNpspac(npspac);
  return ch;
}

// A site with distinctive values in every field.
void FillSite(CTrunkSet& set) {
  test::SetFields(set, {"Name=SITE1", "TxMinFreq=806", "TxMaxFreq=825", "RxMinFreq=851",
                        "RxMaxFreq=870", "Power=1", "SiteId=258", "CCLimit=10", "MaxChan=20",
                        "BaudRate=0", "BandWidth=1", "PreAmp=1", "UnkeyMess=1"});
}

TEST(TrunkSet, LoadsOlderSchemasWithLaterFieldsAtTheirDefaults) {
  // Schema 1: channels without 4800Baud and Npspac, no key list, no baud rate; a band width
  // of 5 is repaired to 0.
  // clang-format off
  const auto schema1 = Bytes()
      .NewClass("CTrunkSet", 1)
      .Count(1)
      .NewClass("CTrunkChannel", 1).F64(851.5).F64(806.5).U16(1).U8(1).U16(1)
      .Str("OLD").U8(0).U8(0)
      .F64(806.0).F64(825.0).F64(851.0).F64(870.0)
      .U8(1).U16(9).U16(15).U16(28)
      .U8(5).U8(1).U8(0);
  // clang-format on
  std::vector<std::unique_ptr<CObject>> pool;
  auto set = test::LoadSharing<CTrunkSet>(schema1, pool);
  test::ExpectFields(*set, {"Name=OLD", "BaudRate=255", "BandWidth=0", "MaxChan=28"});
  EXPECT_EQ(0, set->GetNumEsks());
  ASSERT_NE(nullptr, set->GetChannelAt(0));
  test::ExpectFields(*set->GetChannelAt(0), {"4800Baud=0", "Npspac=0", "RxFreq=806.5"});
  EXPECT_TRUE(pool.empty());

  // Schema 2: channels with 4800Baud, a key list, still no baud rate.
  // clang-format off
  const auto schema2 = Bytes()
      .NewClass("CTrunkSet", 2)
      .Count(1)
      .NewClass("CTrunkChannel", 2).F64(851.5).F64(806.5).U16(1).U8(1).U16(1).U8(1)
      .Str("MID").U8(0).U8(1)
      .F64(806.0).F64(825.0).F64(851.0).F64(870.0)
      .U8(1).U16(9).U16(15).U16(28)
      .U8(1).U8(1).U8(0)
      .Count(1)
      .NewClass("CEskData", 1).Str("KEY").U32(3);
  // clang-format on
  set = test::LoadSharing<CTrunkSet>(schema2, pool);
  test::ExpectFields(*set, {"BaudRate=255", "BandWidth=1", "Scope=1"});
  test::ExpectFields(*set->GetChannelAt(0), {"4800Baud=1", "Npspac=0"});
  ASSERT_EQ(1, set->GetNumEsks());
  EXPECT_EQ("KEY", set->GetEskAt(0)->GetEskId());
  ASSERT_EQ(1u, pool.size());
  EXPECT_EQ(pool[0].get(), set->GetEskAt(0));
}

TEST(TrunkSet, TwoSetsNamingOneKeyStoreItOnceAndLoadSharingIt) {
  CEskData key;
  key.SetEskId("SHARED");
  key.SetEsk(42);
  CTrunkSet trunk;
  trunk.SetName("T");
  trunk.AddEsk(&key);
  CGroupSet groups;
  groups.SetName("G");
  groups.AddEsk(&key);

  CArchive out(nullptr, CArchive::store);
  out.WriteObject(&trunk);
  out.WriteObject(&groups);
  const std::vector<BYTE> bytes = out.TakeStoredBytes();
  // Indexes: CTrunkSet 1, the trunk set 2, CEskData 3, the key 4, CGroupSet 5, the group set 6.
  // The group set's key list is one back-reference to object 4.
  // clang-format off
  const auto groupPart = Bytes()
      .NewClass("CGroupSet", 3)
      .Count(0).Str("G").U8(2).U8(0).Str("").Str("").Str("").Str("")
      .Count(1)
      .ObjectRef(4)
      .bytes();
  // clang-format on
  ASSERT_GE(bytes.size(), groupPart.size());
  EXPECT_EQ(Hex(groupPart),
            Hex(std::vector<BYTE>(bytes.end() - static_cast<long>(groupPart.size()), bytes.end())));

  CArchive in(bytes.data(), bytes.size(), "shared.bin");
  auto t = std::unique_ptr<CObject>(in.ReadObject(RUNTIME_CLASS(CTrunkSet)));
  auto g = std::unique_ptr<CObject>(in.ReadObject(RUNTIME_CLASS(CGroupSet)));
  auto pool = in.TakeSharedObjects();
  ASSERT_EQ(1u, pool.size());
  CEskData* fromTrunk = static_cast<CTrunkSet*>(t.get())->GetEskAt(0);
  CEskData* fromGroups = static_cast<CGroupSet*>(g.get())->GetEskAt(0);
  EXPECT_EQ(pool[0].get(), fromTrunk);
  EXPECT_EQ(fromTrunk, fromGroups);
  EXPECT_EQ(42, fromGroups->GetEsk());
}

TEST(TrunkSet, KeyListIndexRules) {
  CEskData a, b, c;
  CTrunkSet set;
  set.AddEsk(&a);
  set.AddEsk(&b);
  EXPECT_EQ(nullptr, set.GetEskAt(2));
  EXPECT_THROW(set.GetEskAt(-1), CInvalidArgException);
  EXPECT_THROW(set.SetEskAt(2, &c), CInvalidArgException);
  set.SetEskAt(1, &c);
  EXPECT_EQ(&c, set.GetEskAt(1));
  set.DeleteEskAt(5);
  set.DeleteEskAt(-1);
  EXPECT_EQ(2, set.GetNumEsks());
  set.DeleteEskAt(0);
  ASSERT_EQ(1, set.GetNumEsks());
  EXPECT_EQ(&c, set.GetEskAt(0));
}

TEST(TrunkSet, CopyingSharesKeysWhileAssignmentKeepsTheTargetsOwn) {
  CEskData sourceKey, targetKey;
  CTrunkSet source;
  FillSite(source);
  source.Add(MakeChannel(851.0125, 806.0125, 2, 0, 0, 0));
  source.Add(MakeChannel(852.0125, 807.0125, 2, 0, 1, 0));
  source.AddEsk(&sourceKey);

  CTrunkSet copy(source);
  ASSERT_EQ(1, copy.GetNumEsks());
  EXPECT_EQ(&sourceKey, copy.GetEskAt(0));
  EXPECT_EQ(2, copy.GetSize());
  EXPECT_NE(source.GetChannelAt(0), copy.GetChannelAt(0));
  EXPECT_TRUE(copy == source);

  CTrunkSet target;
  target.Add(MakeChannel(860.0, 815.0, 2, 0, 0, 0));
  target.AddEsk(&targetKey);
  target.SetScope(1);
  target = &source;
  EXPECT_EQ("SITE1", target.GetName());
  EXPECT_EQ(2, target.GetSize());  // the target's own channel is gone, not kept in front
  EXPECT_EQ(0, target.GetScope());
  EXPECT_DOUBLE_EQ(825.0, target.GetTxMaxFreq());
  ASSERT_EQ(1, target.GetNumEsks());
  EXPECT_EQ(&targetKey, target.GetEskAt(0));
  EXPECT_TRUE(target == source);
  target = &target;  // self-assignment leaves the set whole
  EXPECT_EQ(2, target.GetSize());
}

TEST(TrunkSet, EqualityWorksInWhole10HzSteps) {
  CTrunkChannel a, b;
  a.SetTxFreq(851.01250);
  b.SetTxFreq(851.012504);
  EXPECT_TRUE(a == b);
  b.SetTxFreq(851.0126);
  EXPECT_FALSE(a == b);
  b.SetTxFreq(851.01250);
  b.Set4800Baud(1);  // takes no part
  EXPECT_TRUE(a == b);
  b.SetNpspac(1);
  EXPECT_FALSE(a == b);

  CEskData key;
  CTrunkSet x, y;
  FillSite(x);
  FillSite(y);
  x.Add(new CTrunkChannel(a));
  y.Add(new CTrunkChannel(a));
  y.SetName("OTHER");
  y.SetTxMinFreq(136.0);
  y.SetRxMaxFreq(174.0);
  y.AddEsk(&key);
  EXPECT_TRUE(x == y);
  y.SetBaudRate(1);
  EXPECT_FALSE(x == y);
  y.SetBaudRate(x.GetBaudRate());
  y.Add(new CTrunkChannel(a));
  EXPECT_FALSE(x == y);
}

TEST(TrunkSet, FrequencyCheckEdges) {
  auto check = [](double tx, double rx, double a, double c, double d) {
    CTrunkSet set;
    set.Add(MakeChannel(tx, rx, 2, 0, 0, 0));
    return set.CheckFrequencyRange(a, 9999.0, c, d);
  };
  // Above 800 MHz: the transmit upper test, the receive lower test and the tolerance.
  EXPECT_EQ(0, check(880.0, 860.0, 806.0, 851.0, 870.0));
  EXPECT_EQ(1, check(0.0, 860.0, 806.0, 851.0, 870.0));
  EXPECT_EQ(0, check(0.0, 850.9, 806.0, 851.0, 870.0));
  EXPECT_EQ(1, check(820.0, 870.0000005, 806.0, 851.0, 870.0));
  EXPECT_EQ(0, check(820.0, 870.00001, 806.0, 851.0, 870.0));
  EXPECT_EQ(0, check(805.9, 860.0, 806.0, 851.0, 870.0));
  // At or below 800 MHz only the transmit lower and the receive upper tests apply.
  EXPECT_EQ(1, check(880.0, 100.0, 800.0, 851.0, 870.0));
  EXPECT_EQ(0, check(799.0, 100.0, 800.0, 851.0, 870.0));
  EXPECT_EQ(0, check(820.0, 871.0, 800.0, 851.0, 870.0));

  CTrunkSet empty;
  EXPECT_EQ(1, empty.CheckFrequencyRange(806.0, 0.0, 851.0, 870.0));
  CTrunkSet two;
  two.Add(MakeChannel(820.0, 860.0, 2, 0, 0, 0));
  two.Add(MakeChannel(820.0, 880.0, 2, 0, 0, 0));
  EXPECT_EQ(0, two.CheckFrequencyRange(806.0, 0.0, 851.0, 870.0));
}

TEST(TrunkSet, ReportNamesControlChannelLimitsByTheirStepAndLargerOnesByNumber) {
  CTrunkSet set;
  const std::pair<WORD, std::string> limits[] = {{0, "All     "},  {7, "First 5 "},
                                                 {19, "First 15"}, {20, "20      "},
                                                 {24, "24      "}, {300, "300     "}};
  for (const auto& [limit, word] : limits) {
    set.SetCCLimit(limit);
    CStringArray out;
    set.printToBuffer(out, 1);
    ASSERT_GE(out.GetSize(), 2);
    EXPECT_EQ(out[1].str(), std::string(18, ' ') + "CC Limits         - " + word +
                                "     Send NB Unkey Mess - Off")
        << limit;
  }
}

}  // namespace
}  // namespace persona
