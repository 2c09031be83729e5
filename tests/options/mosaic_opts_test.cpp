// The Mosaic block, whose two lines are fixed.
#include <gtest/gtest.h>

#include <persona/options/mosaic_opts.h>

namespace persona {
namespace {

TEST(MosaicOpts, BlockLines) {
  CMosaicOpts opts;
  opts.SetUdpPort(4001);
  CStringArray out;
  opts.printOptToBuffer(out, nullptr);
  ASSERT_EQ(out.GetSize(), 5);
  EXPECT_EQ(out[0], "Mosaic Options:");
  EXPECT_EQ(out[1], "---------------");
  EXPECT_EQ(out[2].str(), "   UDP Port Address       - 4001 ");
  EXPECT_EQ(out[3].str(), "   Power Up State On      - Off");
  EXPECT_EQ(out[4], "");
  opts.SetPowerUpState(1);
  out.RemoveAll();
  opts.printOptToBuffer(out, nullptr);
  EXPECT_EQ(out[3].str(), "   Power Up State On      - On ");
}

}  // namespace
}  // namespace persona
