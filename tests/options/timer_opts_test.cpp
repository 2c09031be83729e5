// Timer options: the model-computed priority call time-out and a schema-1 load that keeps the
// later timers at their neutral defaults.
#include <gtest/gtest.h>

#include <persona/options/timer_opts.h>
#include "support/bytes.h"

namespace persona {
namespace {

TEST(TimerOpts, SchemaOneKeepsLaterTimersAtTheirDefaults) {
  const auto bytes = test::Bytes("CTimerOpts", 1)
                         .Put<WORD>(25)
                         .Put<WORD>(50)
                         .Put<WORD>(75)
                         .Put<WORD>(90)
                         .Put<WORD>(120)
                         .bytes();
  auto timers = test::LoadWhole<CTimerOpts>(bytes);
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
                         .bytes();
  auto timers = test::LoadWhole<CTimerOpts>(bytes);
  EXPECT_DOUBLE_EQ(timers->GetPriorityCallTimeout(), 2.25);
  EXPECT_EQ(timers->GetUnitMonitorTime(), 45);
  EXPECT_EQ(timers->GetDataLockout(), 0);
}

}  // namespace
}  // namespace persona
