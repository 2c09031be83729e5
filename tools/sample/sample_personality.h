// The sample personality generator: a realistic, deterministic personality with every system
// kind, every set kind and every option record of the library, at a size chosen by the caller.
// The bundled examples/sample.pers is BuildSamplePersonality(SampleSpec{}); benchmarks build
// the same shape at 10,000 or 65,000 conventional channels.
#pragma once

#include <memory>

#include <persona/personality/personality.h>

namespace persona {

struct SampleSpec {
  // Radio type of every record's model defaults (103: a P25 trunked model, which runs every
  // system kind and keys its trunked systems).
  unsigned short radioType = 103;
  // Conventional channels in all, spread over conventional sets of channelsPerSet channels
  // (the last set takes the rest). The number of conventional sets is the number of sets of
  // every other kind as well.
  int conventionalChannels = 48;
  int channelsPerSet = 16;  // clamped to 1 .. 4096
  // Elements of each set of the other kinds.
  int trunkChannelsPerSet = 8;
  int groupsPerSet = 6;
  int callsPerSet = 4;
  // One system of each kind for every setsPerSystem sets of a kind (at least one).
  int setsPerSystem = 2;
};

// Builds the sample personality described by shape. The same shape gives the same personality
// (and the same file bytes) every time. The caller owns the result; nothing throws except
// std::bad_alloc.
std::unique_ptr<CPersonality> BuildSamplePersonality(const SampleSpec& shape = SampleSpec());

}  // namespace persona
