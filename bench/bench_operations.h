// The benchmarked operations. Each runs one operation on the case of a size (bench_cases.h) for
// as many iterations as Google Benchmark asks, and reports the bytes (of the personality's file)
// and records (of its object graph) that one iteration moves, from which the run's summary
// works out bytes/s and records/s. Loads, copies and the
// operations that change a personality time only the operation itself: making the fresh copy
// it works on and destroying what it made are left out of the clock.
#pragma once

#include <benchmark/benchmark.h>

#include <vector>

namespace persona::bench {

struct Operation {
  const char* name;
  void (*run)(benchmark::State& state, int channels);
  bool (*available)();  // null, or whether the reference it runs was built (left out if not)
  bool refresh;         // runs on the refresh cases (sizes of the scaling series only)
  int iterations = 0;   // iterations per repetition; 0: as many as the minimum time takes
};

// Every operation, in the order of the run.
const std::vector<Operation>& Operations();

}  // namespace persona::bench
