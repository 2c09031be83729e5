// Timer options: the model-computed priority call time-out and a schema-1 load that keeps the
// later timers at their neutral defaults.
#include <gtest/gtest.h>

#include "options/option_test_bytes.h"
#include "options/timer_opts.h"

namespace persona {
namespace {

TEST(TimerOpts, PriorityCallTimeoutFollowsTheModelUnlessReduced) {
  EXPECT_DOUBLE_EQ(CTimerOpts().GetPriorityCallTimeout(), 3.0);
  EXPECT_DOUBLE_EQ(CTimerOpts(101, 0).GetPriorityCallTimeout(), 1.5);
  EXPECT_DOUBLE_EQ(CTimerOpts(101, 1).GetPriorityCallTimeout(), 3.0);
  EXPECT_DOUBLE_EQ(CTimerOpts(54, 0).GetPriorityCallTimeout(), 3.0);
}

TEST(TimerOpts, SchemaOneKeepsLaterTimersAtTheirDefaults) {
  const auto bytes = test::Bytes("CTimerOpts", 1)
                         .Put<WORD>(25)
                         .Put<WORD>(50)
                         .Put<WORD>(75)
                         .Put<WORD>(90)
                         .Put<WORD>(120)
                         .get();
  auto timers = test::LoadOption<CTimerOpts>(bytes);
  EXPECT_EQ(timers->GetICallTimeout(), 25);
  EXPECT_EQ(timers->GetCallTime(), 120);
  EXPECT_DOUBLE_EQ(timers->GetPriorityCallTimeout(), 3.0);
  EXPECT_EQ(timers->GetUnitMonitorTime(), 30);
  EXPECT_EQ(timers->GetScanLockout(), 0);
  EXPECT_EQ(timers->GetICallEntryMode(), 0);
}

TEST(TimerOpts, SchemaTwoAddsThePriorityAndMonitorTimes) {
  const auto bytes = test::Bytes("CTimerOpts", 2)
                         .Put<WORD>(25)
                         .Put<WORD>(50)
                         .Put<WORD>(75)
                         .Put<WORD>(90)
                         .Put<WORD>(120)
                         .Put<double>(2.25)
                         .Put<WORD>(45)
                         .get();
  auto timers = test::LoadOption<CTimerOpts>(bytes);
  EXPECT_DOUBLE_EQ(timers->GetPriorityCallTimeout(), 2.25);
  EXPECT_EQ(timers->GetUnitMonitorTime(), 45);
  EXPECT_EQ(timers->GetDataLockout(), 0);
}

}  // namespace
}  // namespace persona
