// External speaker and public address options: the stored bytes, an old schema, the report.
#include <gtest/gtest.h>

#include <persona/options/speaker_opts.h>
#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Hex;

TEST(SpeakerOpts, PublicAddressStoresItsFieldsInOrder) {
  CPubAddOpts pa;
  pa.SetEnable(1);
  pa.SetActive(0);
  pa.SetOutput(7);
  pa.SetLevel(0x0102);
  const auto expected =
      Bytes("CPubAddOpts", 1).Put<BYTE>(1).Put<BYTE>(0).Put<BYTE>(7).Put<WORD>(0x0102).bytes();
  EXPECT_EQ(Hex(test::StoreObject(&pa)), Hex(expected));
}

TEST(SpeakerOpts, ExternalSpeakerSchemaOneLeavesLaterFieldsAtNeutralDefaults) {
  // Schema 1 stored five fields; the model defaults that a new record would have (horn alert
  // reset on) must not appear in a loaded old record.
  const auto bytes = Bytes("CExtSpkrOpts", 1)
                         .Put<BYTE>(1)
                         .Put<BYTE>(1)
                         .Put<BYTE>(6)
                         .Put<BYTE>(1)
                         .Put<WORD>(9)
                         .bytes();
  auto spk = test::LoadWhole<CExtSpkrOpts>(bytes);
  EXPECT_EQ(spk->GetEnable(), 1);
  EXPECT_EQ(spk->GetOutput(), 6);
  EXPECT_EQ(spk->GetLevel(), 9);
  EXPECT_EQ(spk->GetExtCtrl(), 0);
  EXPECT_EQ(spk->GetInitiate(), 0);
  EXPECT_EQ(spk->GetHornAlertReset(), 0);
  EXPECT_EQ(spk->GetAlarmType(), 0);
  // Storing it again writes the whole current layout.
  const auto stored = test::StoreObject(spk.get());
  EXPECT_EQ(stored.size(), bytes.size() + 4);
  EXPECT_EQ(stored[2], 4);
}

TEST(SpeakerOpts, PublicAddressReportLines) {
  CPubAddOpts pa(54, 0);
  CStringArray out;
  pa.printOptToBuffer(out, nullptr);
  ASSERT_EQ(out.GetSize(), 5);
  EXPECT_EQ(out[0], "PUBLIC ADDRESS OPTIONS:");
  EXPECT_EQ(out[1], "-----------------------");
  EXPECT_EQ(out[2].str(),
            "   Public Address             - Off            Active Level                - High");
  EXPECT_EQ(out[3].str(),
            "   Output Number              - 7              Level                       - 8");
  EXPECT_EQ(out[4], "");
}

}  // namespace
}  // namespace persona
