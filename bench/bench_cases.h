// The personalities the benchmarks work on, built once per size by the sample generator and
// kept for the whole run: the personality, its file bytes, the file on disk and the number of
// records in it. Size 0 is the bundled sample; any other size is that many conventional
// channels in the benchmark shape (sets of 1,000 channels, 256 groups per group set, trunk,
// P25 and call sets, one system of each kind per two sets, every option record).
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <persona/framework/types.h>
#include <persona/personality/personality.h>

namespace persona::bench {

struct BenchCase {
  int channels = 0;  // 0: the bundled sample
  std::unique_ptr<CPersonality> personality;
  std::vector<BYTE> bytes;  // its file
  std::string path;         // the same bytes as a file in the scratch folder
  std::size_t records = 0;  // records in the object graph, the personality included
};

// The case of a size, built on first use and kept until the program ends. Throws what the
// library throws (std::bad_alloc, file failures).
const BenchCase& Case(int channels);

// Global set files for the refresh benchmark: a personality of `channels` conventional channels
// in sets of 64, every conventional set marked global and written to its file (1,000 files at
// 64,000 channels).
struct RefreshCase {
  int channels = 0;
  std::unique_ptr<CPersonality> personality;
  std::string directory;
  std::size_t files = 0;
  std::size_t fileBytes = 0;
};
const RefreshCase& RefreshCaseFor(int channels);

// Records in a personality's object graph: the personality, and every record held in an
// owned list, recursively.
std::size_t CountRecords(CPersonality& personality);

// A folder of this run for files (created on first use, removed when the program ends).
const std::string& ScratchFolder();

}  // namespace persona::bench
