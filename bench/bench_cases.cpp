// Building and caching the benchmark personalities and their files.
#include "bench_cases.h"

#include <cstdlib>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <system_error>

#include <persona/conventional/conv_set.h>
#include <persona/core/set.h>
#include <persona/framework/fields.h>
#include <persona/framework/prompt.h>
#include <persona/io/personality_file.h>
#include <persona/personality/global_sets.h>
#include "sample/sample_personality.h"

namespace persona::bench {
namespace {

namespace fs = std::filesystem;

// Counts the records of owned lists, recursively; ignores every other field.
class RecordCounter : public CFieldSkipper {
 public:
  using CFieldSkipper::Field;
  std::size_t count = 0;
  void Field(const FieldInfo&, COwnedObList& list) override {
    for (int i = 0; i < list.GetCount(); ++i) {
      CObject* record = list.GetAt(i);
      if (record == nullptr) continue;
      ++count;
      record->VisitFields(*this);
    }
  }
};

SampleSpec BenchShape(int channels) {
  SampleSpec shape;
  if (channels == 0) return shape;  // the bundled sample
  shape.conventionalChannels = channels;
  shape.channelsPerSet = 1000;
  shape.trunkChannelsPerSet = 16;
  shape.groupsPerSet = 256;
  shape.callsPerSet = 32;
  shape.setsPerSystem = 2;
  return shape;
}

struct Scratch {
  std::string path;
  Scratch() {
    std::error_code ec;
    fs::path base = fs::temp_directory_path(ec);
    if (ec) base = ".";
    std::string pattern = (base / "persona-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("cannot create " + pattern);
    path = pattern;
  }
  ~Scratch() {
    std::error_code ec;
    fs::remove_all(path, ec);
  }
};

}  // namespace

const std::string& ScratchFolder() {
  static Scratch scratch;
  return scratch.path;
}

std::size_t CountRecords(CPersonality& personality) {
  RecordCounter counter;
  personality.VisitFields(counter);
  return counter.count + 1;
}

const BenchCase& Case(int channels) {
  static std::map<int, BenchCase> cases;
  auto it = cases.find(channels);
  if (it != cases.end()) return it->second;
  BenchCase c;
  c.channels = channels;
  c.personality = BuildSamplePersonality(BenchShape(channels));
  c.bytes = StorePersonalityBytes(*c.personality);
  c.path = ScratchFolder() + "/case-" + std::to_string(channels) + ".pers";
  SavePersonalityFile(c.path, *c.personality);
  c.records = CountRecords(*c.personality);
  return cases.emplace(channels, std::move(c)).first->second;
}

const RefreshCase& RefreshCaseFor(int channels) {
  static std::map<int, RefreshCase> cases;
  auto it = cases.find(channels);
  if (it != cases.end()) return it->second;
  SampleSpec shape;
  shape.conventionalChannels = channels;
  shape.channelsPerSet = 64;
  shape.trunkChannelsPerSet = 2;
  shape.groupsPerSet = 4;
  shape.callsPerSet = 2;
  shape.setsPerSystem = 8;
  RefreshCase c;
  c.channels = channels;
  c.personality = BuildSamplePersonality(shape);
  c.directory = ScratchFolder() + "/sets-" + std::to_string(channels);
  fs::create_directories(c.directory);
  const int sets = c.personality->GetNumSets(ConvSetType);
  for (int i = 0; i < sets; ++i) {
    CSet* set = c.personality->GetSetAt(i, ConvSetType);
    set->SetScope(1);
    CString path;
    if (!GlobalSetPath(CString(c.directory), set->GetName(), ConvSetType, &path) ||
        !WriteSet(set, path, false)) {
      throw std::runtime_error("cannot write the global set file of " + set->GetName().str());
    }
    c.fileBytes += static_cast<std::size_t>(fs::file_size(path.str()));
    ++c.files;
  }
  return cases.emplace(channels, std::move(c)).first->second;
}

}  // namespace persona::bench
