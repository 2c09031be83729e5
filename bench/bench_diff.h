// The diff benchmark: two personalities of a size that differ in a handful of records.
#pragma once

#include <benchmark/benchmark.h>

namespace persona::bench {

// Times the record diff of the case of a size (bench_cases.h) against a copy with its name, one
// channel of every conventional set and one set name changed, the difference lines formatted as
// the tool prints them and dropped. Reports the bytes and records of one personality.
void Diff(benchmark::State& state, int channels);

}  // namespace persona::bench
