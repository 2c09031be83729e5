// The diff benchmark (bench_diff.h).
#include "bench_diff.h"

#include <chrono>
#include <memory>
#include <string>

#include <persona/conventional/conv_set.h>
#include <persona/io/json/record_diff.h>
#include "bench_cases.h"

namespace persona::bench {
namespace {

// Formats every difference as a line of the tool's text output into one reused buffer.
class LineSink : public DiffSink {
 public:
  void Difference(const RecordDifference& d) override {
    m_line.clear();
    m_line += d.path;
    m_line += ": ";
    m_line += d.before;
    m_line += " -> ";
    m_line += d.after;
    bytes += m_line.size();
  }
  std::size_t bytes = 0;

 private:
  std::string m_line;
};

std::unique_ptr<CPersonality> Edited(const CPersonality& original) {
  auto p = std::make_unique<CPersonality>(original);
  p->SetName("EDITED");
  for (int i = 0; i < p->GetNumSets(ConvSetType); ++i) {
    auto* set = static_cast<CConvSet*>(p->GetSetAt(i, ConvSetType));
    if (set->GetSize() > 0) static_cast<CConvChannel*>(set->GetAt(0))->SetRxFreq(155.5);
  }
  if (CSet* set = p->GetSetAt(0, ConvSetType)) set->SetName("RENAMED");
  return p;
}

}  // namespace

void Diff(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  const std::unique_ptr<CPersonality> edited = Edited(*c.personality);
  std::size_t differences = 0;
  for (auto _ : state) {
    LineSink sink;
    const auto start = std::chrono::steady_clock::now();
    differences = DiffRecords(*c.personality, *edited, sink);
    const auto stop = std::chrono::steady_clock::now();
    benchmark::DoNotOptimize(sink.bytes);
    state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
  }
  state.counters["differences"] = static_cast<double>(differences);
  state.counters["bytes"] = static_cast<double>(c.bytes.size());
  state.counters["records"] = static_cast<double>(c.records);
}

}  // namespace persona::bench
