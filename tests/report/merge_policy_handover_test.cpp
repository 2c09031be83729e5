// The merge that takes its inputs gives what the merge of const inputs gives, for every policy.
#include <gtest/gtest.h>

#include <persona/io/personality_file.h>
#include <persona/report/merge_policy.h>
#include "sample/sample_personality.h"

namespace persona {
namespace {

std::string Clashes(const PolicyMergeResult& r) {
  std::string text;
  for (const ClashDecision& c : r.clashes) text += c.what + "|" + c.name + "|" + c.outcome + "\n";
  return text + std::to_string(r.addedErrors.size()) + " added\n";
}

TEST(MergeWithPolicy, TakingTheInputsGivesTheSameResultForEveryPolicy) {
  SampleSpec other;
  other.conventionalChannels = 40;  // fewer sets: some of B's names are A's, some not
  other.setsPerSystem = 1;
  const auto a = BuildSamplePersonality();
  const auto b = BuildSamplePersonality(other);
  for (ClashPolicy policy :
       {ClashPolicy::KeepBoth, ClashPolicy::PreferA, ClashPolicy::PreferB, ClashPolicy::Rename}) {
    SCOPED_TRACE(static_cast<int>(policy));
    const std::string suffix = policy == ClashPolicy::Rename ? "-B" : "";
    const PolicyMergeResult kept = MergeWithPolicy(*a, *b, policy, suffix);
    const PolicyMergeResult taken = MergeWithPolicy(
        std::make_unique<CPersonality>(*a), std::make_unique<CPersonality>(*b), policy, suffix);
    EXPECT_FALSE(kept.clashes.empty());
    EXPECT_EQ(Clashes(taken), Clashes(kept));
    EXPECT_EQ(StorePersonalityBytes(*taken.merged), StorePersonalityBytes(*kept.merged));
  }
  EXPECT_THROW(MergeWithPolicy(nullptr, std::make_unique<CPersonality>(), ClashPolicy::PreferA, ""),
               std::invalid_argument);
}

}  // namespace
}  // namespace persona
