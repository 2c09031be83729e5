// The sample personality generator: every system, set and option kind, consistent name
// references, stable bytes, and the size parameter that the benchmarks use.
#include <gtest/gtest.h>

#include <persona/integrity/checker.h>
#include <persona/io/personality_file.h>
#include <persona/report/personality_report.h>
#include "sample/sample_personality.h"

namespace persona {
namespace {

TEST(SamplePersonality, HoldsEveryKindWithConsistentReferences) {
  std::unique_ptr<CPersonality> p = BuildSamplePersonality();
  for (int t = 0; t < kNumSystemTypes; ++t) {
    EXPECT_GE(p->GetNumSystems(static_cast<SystemType>(t)), 1) << t;
  }
  for (int t = 0; t < kNumSetTypes; ++t) {
    const SetType type = static_cast<SetType>(t);
    ASSERT_GE(p->GetNumSets(type), 2) << t;
    for (int i = 0; i < p->GetNumSets(type); ++i) EXPECT_GE(p->GetSetAt(i, type)->GetSize(), 3);
  }
  std::size_t count = 0;
  const char* const* names = ReportOptionOrder(&count);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_NE(p->FindOption(CRuntimeClass::FromName(names[i])), nullptr) << names[i];
  }
  // Every name names something that exists: the checker finds nothing.
  for (const Finding& f : CheckPersonality(*p))
    EXPECT_NE(f.severity, 0) << f.path << ": " << f.message;
  // The trunked systems' keys are in the key lists of the trunk sets.
  CObList keys;
  p->GetSharedEskList(keys);
  EXPECT_EQ(keys.GetCount(), 4);
}

TEST(SamplePersonality, SameSpecSameBytesThroughALoad) {
  const std::vector<BYTE> bytes = StorePersonalityBytes(*BuildSamplePersonality());
  EXPECT_EQ(StorePersonalityBytes(*BuildSamplePersonality()), bytes);
  LoadedPersonality loaded = LoadPersonalityBytes(bytes.data(), bytes.size(), "sample.pers");
  EXPECT_EQ(loaded.trailingBytes, 0u);
  EXPECT_EQ(StorePersonalityBytes(*loaded.personality), bytes);
}

TEST(SamplePersonality, ChannelsSpreadOverSetsOfAtMost4096) {
  SampleSpec shape;
  shape.conventionalChannels = 10000;
  shape.channelsPerSet = 5000;  // clamped to 4096
  std::unique_ptr<CPersonality> p = BuildSamplePersonality(shape);
  ASSERT_EQ(p->GetNumSets(ConvSetType), 3);
  EXPECT_EQ(p->GetSetAt(0, ConvSetType)->GetSize(), 4096);
  EXPECT_EQ(p->GetSetAt(1, ConvSetType)->GetSize(), 4096);
  EXPECT_EQ(p->GetSetAt(2, ConvSetType)->GetSize(), 1808);
  EXPECT_EQ(p->GetNumConvChans(), 10000);
  EXPECT_EQ(p->GetNumSets(GroupSetType), 3);
  EXPECT_EQ(p->GetNumSystems(TrunkedSystemType), 2);  // one per two sets
}

}  // namespace
}  // namespace persona
