// Siren and lights entries: the stored bytes of a record with nested entries, the count
// constructor and model entries, control indexes.
#include <gtest/gtest.h>

#include <persona/framework/exceptions.h>
#include <persona/options/siren_lights.h>
#include "support/bytes.h"

namespace persona {
namespace {

using test::Bytes;

TEST(SirenLights, StoresEntriesAsNestedObjectsWithOneClassTag) {
  CSirenLightsOpts opts(2);
  opts.SetTimeout(30);
  CSirenLights* first = opts.GetEntryAt(0);
  first->SetMode(1);
  first->SetSiren(2);
  for (int i = 0; i < CSirenLights::kNumControls; ++i) first->SetControlAt(i, WORD(i + 1));
  opts.GetEntryAt(1)->SetCancel(1);

  Bytes expected("CSirenLightsOpts", 1);
  expected.Put<WORD>(2).NewClass("CSirenLights", 1).Put<BYTE>(1).Put<BYTE>(2).Put<BYTE>(0);
  for (WORD c = 1; c <= 9; ++c) expected.Put<WORD>(c);
  // The second entry refers back to class index 3 (CSirenLightsOpts 1, its object 2).
  expected.Put<WORD>(0x8003).Put<BYTE>(0).Put<BYTE>(0).Put<BYTE>(1);
  for (int c = 0; c < 9; ++c) expected.Put<WORD>(0);
  expected.Put<WORD>(30);
  const auto bytes = test::StoreObject(&opts);
  EXPECT_EQ(test::Hex(bytes), test::Hex(expected.bytes()));

  auto loaded = test::LoadWhole<CSirenLightsOpts>(bytes);
  ASSERT_EQ(loaded->GetNumEntries(), 2);
  EXPECT_EQ(loaded->GetEntryAt(0)->GetControlAt(8), 9);
  EXPECT_EQ(loaded->GetEntryAt(1)->GetCancel(), 1);
}

TEST(SirenLights, ControlIndexOutsideTheNineRaises) {
  CSirenLights e;
  EXPECT_THROW(e.GetControlAt(9), CInvalidArgException);
  EXPECT_THROW(e.SetControlAt(-1, 1), CInvalidArgException);
}

TEST(SirenLights, ReportLineOfAnEntry) {
  CSirenLightsOpts opts(1);
  opts.GetEntryAt(0)->SetSiren(1);
  opts.GetEntryAt(0)->SetControlAt(0, 5);
  CStringArray out;
  opts.printOptToBuffer(out, nullptr);
  ASSERT_EQ(out.GetSize(), 5);
  EXPECT_EQ(out[0], "SIREN AND LIGHTS OPTIONS:");
  EXPECT_EQ(out[2].str(), "   Time-out (sec)             - 0");
  EXPECT_EQ(
      out[3].str(),
      "   Entry 1   Mode - Toggle     Siren - Wail      Cancel - Off  Controls - 5 0 0 0 0 0 0 "
      "0 0");
}

}  // namespace
}  // namespace persona
