// persona_bench: registers every operation at every size, checks that the Boost reference
// moves the same personality, runs Google Benchmark and then prints, from the same run, the
// ratios against the references, the scaling table and the memory figures.
//
//   persona_bench [Google Benchmark options]   e.g. --benchmark_filter=load
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <persona/framework/prompt.h>
#include <persona/io/personality_file.h>
#include "bench_cases.h"
#include "bench_operations.h"
#include "heap_meter.h"
#include "references.h"

namespace persona::bench {
namespace {

// The headline sizes (0: the bundled sample) and the doubling series of the scaling check.
const int kHeadline[] = {0, 10000, 65000};
const int kSeries[] = {1000, 2000, 4000, 8000, 16000, 32000, 64000};

std::string Label(int channels) { return channels == 0 ? "sample" : std::to_string(channels); }

// Every benchmark runs kRepetitions times, the repetitions of all benchmarks shuffled together
// (so that a slow stretch of the machine does not land on all repetitions of one size); a
// figure is the fastest repetition, printed as Google Benchmark's "min" aggregate.
constexpr int kRepetitions = 5;

double Fastest(const std::vector<double>& values) {
  return *std::min_element(values.begin(), values.end());
}

// Prints the fastest repetition of every benchmark and keeps its time per iteration by name.
class CollectingReporter : public benchmark::ConsoleReporter {
 public:
  struct Figure {
    double seconds = 0;  // per iteration, fastest repetition
    double bytes = 0;    // per iteration
    double records = 0;  // per iteration
  };
  std::map<std::string, Figure> figures;

  void ReportRuns(const std::vector<Run>& runs) override {
    std::vector<Run> fastest;
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Aggregate || run.aggregate_name != "min") continue;
      if (run.error_occurred || run.iterations == 0) continue;
      Figure& f = figures[run.run_name.function_name];
      f.seconds = run.real_accumulated_time / static_cast<double>(run.iterations);
      const auto bytes = run.counters.find("bytes");
      const auto records = run.counters.find("records");
      if (bytes != run.counters.end()) f.bytes = bytes->second.value;
      if (records != run.counters.end()) f.records = records->second.value;
      fastest.push_back(run);
    }
    if (!fastest.empty()) ConsoleReporter::ReportRuns(fastest);
  }

  // The figure of op at channels (all zero when it did not run).
  Figure Of(const char* op, int channels) const {
    const auto it = figures.find(std::string(op) + "/" + Label(channels));
    return it == figures.end() ? Figure() : it->second;
  }
  // Seconds per iteration of op at channels, or 0 when it did not run.
  double Time(const char* op, int channels) const { return Of(op, channels).seconds; }
};

void Register() {
  std::vector<int> sizes(std::begin(kHeadline), std::end(kHeadline));
  sizes.insert(sizes.end(), std::begin(kSeries), std::end(kSeries));
  std::sort(sizes.begin(), sizes.end());
  for (const Operation& op : Operations()) {
    if (op.available != nullptr && !op.available()) continue;
    for (int channels : sizes) {
      const bool inSeries =
          std::find(std::begin(kSeries), std::end(kSeries), channels) != std::end(kSeries);
      if (op.refresh && !inSeries) continue;
      const std::string name = std::string(op.name) + "/" + Label(channels);
      auto* b = benchmark::RegisterBenchmark(name.c_str(), op.run, channels)
                    ->UseManualTime()
                    ->Unit(benchmark::kMicrosecond)
                    ->Repetitions(kRepetitions)
                    ->ComputeStatistics("min", Fastest)
                    ->ReportAggregatesOnly(true);
      if (op.iterations > 0) {
        b->Iterations(op.iterations);
      } else {
        b->MinTime(0.15);
      }
    }
  }
}

// Builds every case before the first benchmark, smallest first, so that no case is built in
// the middle of the shuffled runs (its records would land wherever the heap happens to be).
void PrepareCases() {
  for (int channels : kHeadline) Case(channels);
  for (int channels : kSeries) {
    Case(channels);
    RefreshCaseFor(channels);
  }
}

// The library's round trip, and the reference's, must give back the very bytes of the file.
bool CheckSameGraph(int channels) {
  const BenchCase& c = Case(channels);
  const LoadedPersonality loaded = LoadPersonalityBytes(c.bytes.data(), c.bytes.size(), "check");
  bool same = StorePersonalityBytes(*loaded.personality) == c.bytes;
  std::printf("round trip of the %s case through the library: %s\n", Label(channels).c_str(),
              same ? "same bytes" : "DIFFERENT BYTES");
  for (const Reference& ref : References()) {
    if (!ref.available()) {
      std::printf(
          "%s was not found when this was built: its reference is left out "
          "(scripts/install-deps.sh bench installs it)\n",
          ref.name);
      continue;
    }
    std::vector<char> archive;
    ref.save(*c.personality, archive);
    const ReferenceLoaded back = ref.load(archive);
    const bool refSame = StorePersonalityBytes(*back.personality) == c.bytes;
    std::printf(
        "round trip of the %s case through the %s reference: %s (%zu bytes against the "
        "library's %zu)\n",
        Label(channels).c_str(), ref.name, refSame ? "same personality" : "DIFFERENT PERSONALITY",
        archive.size(), c.bytes.size());
    same = same && refSame;
  }
  return same;
}

struct MemoryFigures {
  std::size_t fileBytes = 0;
  long long modelHeap = 0;  // heap held by the loaded personality
  long long peakHeap = 0;   // highest heap during the file load
  std::size_t residentGrowth = 0;
};

// Loads the 65,000-channel file once with the heap metered.
MemoryFigures MeasureMemory() {
  MemoryFigures m;
  const BenchCase& c = Case(65000);
  m.fileBytes = c.bytes.size();
  const std::size_t residentBefore = ResidentBytes();
  LoadedPersonality loaded;
  {
    HeapMeter meter;
    loaded = LoadPersonalityFile(c.path);
    m.modelHeap = meter.Current();
    m.peakHeap = meter.Peak();
  }
  const std::size_t residentAfter = ResidentBytes();
  m.residentGrowth = residentAfter > residentBefore ? residentAfter - residentBefore : 0;
  return m;
}

const char* Verdict(bool met) { return met ? "met" : "MISSED"; }

void PrintRatios(const CollectingReporter& r) {
  std::printf("\nRatios at 65,000 channels (%zu records, %zu file bytes), one run:\n",
              Case(65000).records, Case(65000).bytes.size());
  const double copy = r.Time("memcpy", 65000);
  for (const char* op : {"load", "save"}) {
    const double ours = r.Time(op, 65000);
    if (ours <= 0) continue;
    for (const Reference& ref : References()) {
      const double theirs = r.Time((std::string(ref.name) + "_" + op).c_str(), 65000);
      if (theirs <= 0) continue;
      std::printf("  %-5s persona / %-7s = %6.2f x   (goal at least %.0f x: %s)\n", op, ref.name,
                  theirs / ours, ref.goal, Verdict(theirs / ours >= ref.goal));
    }
    // The goal is the load's; a save against memcpy is shown for comparison.
    if (std::string(op) == "load") {
      std::printf("  %-5s persona / memcpy  = 1 / %5.1f  (goal at least 1 / 25: %s)\n", op,
                  ours / copy, Verdict(ours / copy <= 25.0));
    } else {
      std::printf("  %-5s persona / memcpy  = 1 / %5.1f\n", op, ours / copy);
    }
  }
}

void PrintThroughput(const CollectingReporter& r) {
  std::printf(
      "\nThroughput (fastest of %d repetitions; refresh: its 1,000 global set files at "
      "64,000):\n  %-15s",
      kRepetitions, "operation");
  for (int channels : kHeadline) std::printf(" %35s", (Label(channels) + " channels").c_str());
  std::printf("\n");
  for (const Operation& op : Operations()) {
    std::printf("  %-15s", op.name);
    for (int channels : kHeadline) {
      const int size = op.refresh ? (channels == 65000 ? 64000 : -1) : channels;
      const CollectingReporter::Figure f = r.Of(op.name, size);
      if (f.seconds <= 0) {
        std::printf(" %35s", "-");
        continue;
      }
      std::printf(" %10.1f us %7.0f MB/s %6.2f Mrec/s", f.seconds * 1e6, f.bytes / f.seconds / 1e6,
                  f.records / f.seconds / 1e6);
    }
    std::printf("\n");
  }
}

void PrintScaling(const CollectingReporter& r) {
  std::printf("\nScaling, time(2N) / time(N) (goal at most 2.3):\n  %-15s", "operation");
  for (std::size_t i = 1; i < std::size(kSeries); ++i) std::printf(" %5dk", kSeries[i] / 1000);
  std::printf("    max  whole range\n");
  for (const Operation& op : Operations()) {
    if (r.Time(op.name, kSeries[0]) <= 0) continue;
    std::printf("  %-15s", op.name);
    double worst = 0;
    for (std::size_t i = 1; i < std::size(kSeries); ++i) {
      const double ratio = r.Time(op.name, kSeries[i]) / r.Time(op.name, kSeries[i - 1]);
      worst = std::max(worst, ratio);
      std::printf(" %6.2f", ratio);
    }
    // The whole series as one figure: the mean ratio per doubling from the first size to the
    // last, which one slow measurement cannot move much.
    const double whole =
        std::pow(r.Time(op.name, kSeries[std::size(kSeries) - 1]) / r.Time(op.name, kSeries[0]),
                 1.0 / static_cast<double>(std::size(kSeries) - 1));
    std::printf("  %5.2f %-6s %5.2f %s\n", worst, Verdict(worst <= 2.3), whole,
                Verdict(whole <= 2.3));
  }
}

void PrintMemory(const MemoryFigures& m) {
  const double mb = 1024.0 * 1024.0;
  const double modelRatio = static_cast<double>(m.modelHeap) / static_cast<double>(m.fileBytes);
  const double residentRatio =
      static_cast<double>(m.residentGrowth) / static_cast<double>(m.fileBytes);
  const double peakLimit =
      1.1 * static_cast<double>(m.modelHeap + static_cast<long long>(m.fileBytes));
  std::printf("\nMemory of a load of the 65,000-channel file (%.1f MB):\n", m.fileBytes / mb);
  std::printf(
      "  loaded personality, heap      %7.1f MB = %.2f x the file (goal at most 2.5 x: %s)\n",
      m.modelHeap / mb, modelRatio, Verdict(modelRatio <= 2.5));
  std::printf(
      "  loaded personality, resident  %7.1f MB = %.2f x the file (goal at most 2.5 x: %s)\n",
      m.residentGrowth / mb, residentRatio, Verdict(residentRatio <= 2.5));
  std::printf("  peak during the load          %7.1f MB; model + file + 10%% = %.1f MB (%s)\n",
              m.peakHeap / mb, peakLimit / mb,
              Verdict(static_cast<double>(m.peakHeap) <= peakLimit));
}

}  // namespace
}  // namespace persona::bench

int main(int argc, char** argv) {
  using namespace persona::bench;
  std::vector<char*> args(argv, argv + argc);
  char interleave[] = "--benchmark_enable_random_interleaving=true";
  args.insert(args.begin() + 1, interleave);  // a later option of the caller's wins
  argc = static_cast<int>(args.size());
  argv = args.data();
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 64;
  // Refreshes and checks may want to tell the user something; nobody is there to answer.
  persona::SetPromptHandler([](const persona::CString&, persona::UINT) { return persona::IDOK; });
  try {
    const MemoryFigures memory = MeasureMemory();
    if (!CheckSameGraph(0) || !CheckSameGraph(10000)) {
      std::fprintf(stderr,
                   "persona_bench: the round trips differ; the figures would mean nothing\n");
      return 1;
    }
    // From here on the heap keeps what it gets (no trimming, no separate mappings for large
    // blocks): every repetition then starts from the same warm heap, and no operation is
    // charged for page faults that another one caused.
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    PrepareCases();
    Register();
    CollectingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintRatios(reporter);
    PrintThroughput(reporter);
    PrintScaling(reporter);
    PrintMemory(memory);
  } catch (const std::exception& e) {
    std::fprintf(stderr, "persona_bench: %s\n", e.what());
    return 1;
  }
  benchmark::Shutdown();
  return 0;
}
