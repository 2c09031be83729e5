// The benchmarked operations on the library and on the references.
#include "bench_operations.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <vector>

#include <persona/core/set_types.h>
#include <persona/framework/collections.h>
#include <persona/integrity/checker.h>
#include <persona/integrity/references.h>
#include <persona/io/personality_file.h>
#include <persona/personality/global_sets.h>
#include <persona/report/personality_report.h>
#include "bench_cases.h"
#include "bench_diff.h"
#include "bench_json.h"
#include "references.h"

namespace persona::bench {
namespace {

using Clock = std::chrono::steady_clock;

// Records what one iteration moves: the bytes of the personality's file and the records of its
// object graph. The throughput is worked out from the timed part alone (bench_main.cpp):
// Google Benchmark's own rates divide by the processor time of the whole loop, which here
// includes the untimed setup and teardown of every iteration.
void Account(benchmark::State& state, std::size_t bytes, std::size_t records) {
  state.counters["bytes"] = static_cast<double>(bytes);
  state.counters["records"] = static_cast<double>(records);
}

// Runs make() once per iteration with the clock on make() only; what it returns is destroyed
// after the clock stops.
template <class Make>
void TimeMaking(benchmark::State& state, Make make) {
  for (auto _ : state) {
    const auto start = Clock::now();
    auto made = make();
    const auto stop = Clock::now();
    benchmark::DoNotOptimize(made);
    state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
  }
}

// Writes to every line of a buffer twice the size of the machine's largest cache, so that
// whatever was cached before (a copy just made, for one) has gone back to memory.
void EvictCaches() {
  static std::vector<unsigned char> buffer = [] {
    long largest = 0;
    for (const auto& cache : benchmark::CPUInfo::Get().caches) {
      largest = std::max<long>(largest, cache.size);
    }
    return std::vector<unsigned char>(static_cast<std::size_t>(std::max(2 * largest, 8L << 20)));
  }();
  for (std::size_t i = 0; i < buffer.size(); i += 64) buffer[i] = static_cast<unsigned char>(i);
  benchmark::ClobberMemory();
}

enum class Cache { AsLeft, Evicted };

// Runs work(copy) once per iteration on a fresh copy of personality, with the clock on work only.
// Cache::Evicted pushes the copy out of the caches first: work then starts from memory at every
// size, where otherwise the copy is cached whole at the small sizes and only in part at the
// large ones.
template <class Work>
void TimeOnCopy(benchmark::State& state, const CPersonality& personality, Work work,
                Cache cache = Cache::AsLeft) {
  for (auto _ : state) {
    auto copy = std::make_unique<CPersonality>(personality);
    if (cache == Cache::Evicted) EvictCaches();
    const auto start = Clock::now();
    work(*copy);
    const auto stop = Clock::now();
    state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
  }
}

void Load(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  TimeMaking(state, [&] { return LoadPersonalityBytes(c.bytes.data(), c.bytes.size(), "bench"); });
  Account(state, c.bytes.size(), c.records);
}

void Save(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  TimeMaking(state, [&] { return StorePersonalityBytes(*c.personality); });
  Account(state, c.bytes.size(), c.records);
}

void FileLoad(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  TimeMaking(state, [&] { return LoadPersonalityFile(c.path); });
  Account(state, c.bytes.size(), c.records);
}

void FileSave(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  const std::string path = ScratchFolder() + "/saved-" + std::to_string(channels) + ".pers";
  TimeMaking(state, [&] {
    SavePersonalityFile(path, *c.personality);
    return 0;
  });
  Account(state, c.bytes.size(), c.records);
}

void Copy(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  TimeMaking(state, [&] { return std::make_unique<CPersonality>(*c.personality); });
  Account(state, c.bytes.size(), c.records);
}

// The report as the tool writes it: block by block into an output buffer of 64 KB that is
// emptied when full (the writes themselves left out), so the time grows with the report and
// not with the memory a whole report would take.
void Report(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  CPersonality copy(*c.personality);
  std::string buffer;
  buffer.reserve(1 << 17);
  TimeMaking(state, [&] {
    std::size_t written = 0;
    StreamPersonalityReport(copy, [&](const CStringArray& lines) {
      for (const CString& line : lines) {
        buffer.append(line.str());
        buffer.push_back('\n');
      }
      if (buffer.size() >= (1 << 16)) {
        written += buffer.size();
        buffer.clear();
      }
    });
    written += buffer.size();
    buffer.clear();
    return written;
  });
  Account(state, c.bytes.size(), c.records);
}

// A conventional-only model: every trunked, messaging and P25 trunked system goes, and the sets
// that only they used (nine sets in ten of the benchmark's personality).
void PruneFor(benchmark::State& state, int channels, Cache cache) {
  const BenchCase& c = Case(channels);
  TimeOnCopy(
      state, *c.personality,
      [](CPersonality& p) {
        p.SetLastRadio(29);
        p.RemoveUnusedSystemsAndSets();
      },
      cache);
  Account(state, c.bytes.size(), c.records);
}

void Prune(benchmark::State& state, int channels) { PruneFor(state, channels, Cache::AsLeft); }

// The prune with its copy pushed out of the caches first, so that every size starts from
// memory: its steps are those of the work alone. The steps of prune also hold the share of the
// copy that the caches kept, the whole of it at 16,000 channels and a part at 64,000.
void PruneCold(benchmark::State& state, int channels) { PruneFor(state, channels, Cache::Evicted); }

// Renames back and forth, so that every iteration does the same work.
template <class Rename>
void RenameBackAndForth(benchmark::State& state, int channels, Rename rename) {
  const BenchCase& c = Case(channels);
  CPersonality copy(*c.personality);
  bool there = false;
  TimeMaking(state, [&] {
    const int changed = rename(copy, there);
    there = !there;
    return changed;
  });
  Account(state, c.bytes.size(), c.records);
}

void RenameSetEverywhere(benchmark::State& state, int channels) {
  RenameBackAndForth(state, channels, [](CPersonality& p, bool there) {
    const CString a("METRO"), b("METRO CENTRAL");
    return RenameSet(p, ConvSetType, there ? b : a, there ? a : b);
  });
}

void RenameChannelEverywhere(benchmark::State& state, int channels) {
  RenameBackAndForth(state, channels, [](CPersonality& p, bool there) {
    const CString a("FIRE 1"), b("FIRE DISPATCH");
    return RenameChannel(p, ConvSetType, CString("METRO"), there ? b : a, there ? a : b);
  });
}

void Check(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  CPersonality copy(*c.personality);
  TimeMaking(state, [&] { return CheckPersonality(copy); });
  Account(state, c.bytes.size(), c.records);
}

void Refresh(benchmark::State& state, int channels) {
  const RefreshCase& c = RefreshCaseFor(channels);
  TimeOnCopy(state, *c.personality, [&](CPersonality& p) {
    CPersonality* target = &p;
    ReadPersonalityGlobalSets(target, CString(c.directory));
  });
  state.counters["files"] = static_cast<double>(c.files);
  Account(state, c.fileBytes, static_cast<std::size_t>(c.channels));
}

// A reference's load of its own archive of the case, and its save.
template <std::size_t kReference>
void ReferenceLoad(benchmark::State& state, int channels) {
  const Reference& ref = References()[kReference];
  const BenchCase& c = Case(channels);
  std::vector<char> bytes;
  ref.save(*c.personality, bytes);
  TimeMaking(state, [&] { return ref.load(bytes); });
  state.counters["archive_bytes"] = static_cast<double>(bytes.size());
  Account(state, c.bytes.size(), c.records);
}

template <std::size_t kReference>
void ReferenceSave(benchmark::State& state, int channels) {
  const Reference& ref = References()[kReference];
  const BenchCase& c = Case(channels);
  TimeMaking(state, [&] {
    auto bytes = std::make_unique<std::vector<char>>();
    ref.save(*c.personality, *bytes);
    return bytes;
  });
  Account(state, c.bytes.size(), c.records);
}

void Memcpy(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  std::vector<BYTE> target(c.bytes.size(), 1);
  for (auto _ : state) {
    const auto start = Clock::now();
    std::memcpy(target.data(), c.bytes.data(), c.bytes.size());
    benchmark::ClobberMemory();
    const auto stop = Clock::now();
    state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
  }
  Account(state, c.bytes.size(), c.records);
}

}  // namespace

const std::vector<Operation>& Operations() {
  static const std::vector<Operation> operations = {
      {"load", Load, nullptr, false},
      {"boost_load", ReferenceLoad<0>, BoostReferenceAvailable, false},
      {"cereal_load", ReferenceLoad<1>, CerealReferenceAvailable, false},
      {"save", Save, nullptr, false},
      {"boost_save", ReferenceSave<0>, BoostReferenceAvailable, false},
      {"cereal_save", ReferenceSave<1>, CerealReferenceAvailable, false},
      {"memcpy", Memcpy, nullptr, false},
      {"file_load", FileLoad, nullptr, false},
      {"file_save", FileSave, nullptr, false},
      {"copy", Copy, nullptr, false},
      {"report", Report, nullptr, false},
      {"prune", Prune, nullptr, false},
      // A fixed count: each iteration also writes a buffer of twice the largest cache.
      {"prune_cold", PruneCold, nullptr, false, 20},
      {"rename_set", RenameSetEverywhere, nullptr, false},
      {"rename_channel", RenameChannelEverywhere, nullptr, false},
      {"check", Check, nullptr, false},
      {"diff", Diff, nullptr, false},
      {"refresh", Refresh, nullptr, true},
      {"json_export", JsonExport, nullptr, false},
      {"json_import", JsonImport, nullptr, false},
      {"json_scan", JsonScanOnly, nullptr, false},
      {"nlohmann_sax", JsonNlohmannSaxOnly, nullptr, false},
      {"rapidjson_sax", JsonRapidjsonSaxOnly, RapidjsonAvailable, false},
  };
  return operations;
}

}  // namespace persona::bench
