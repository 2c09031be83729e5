// The JSON benchmarks. Every parser reads the text as the import would, in pieces of 64 KB
// (RapidJSON through its FileReadStream over the text in memory), never the text whole.
#include "bench_json.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <string_view>

#include <persona/io/json/json_reader.h>
#include <persona/io/json/json_scanner.h>
#include <persona/io/json/json_writer.h>
#include <persona/io/json/personality_json.h>
#include "bench_cases.h"

#if PERSONA_BENCH_RAPIDJSON
#include <rapidjson/filereadstream.h>
#include <rapidjson/reader.h>
#endif

namespace persona::bench {
namespace {

using Clock = std::chrono::steady_clock;
constexpr std::size_t kPiece = 1 << 16;

// The exported document of a case, made on first use and kept.
const std::string& JsonText(int channels) {
  static std::map<int, std::string> texts;
  std::string& text = texts[channels];
  if (text.empty()) {
    WritePersonalityJson(*Case(channels).personality,
                         [&text](std::string_view piece) { text.append(piece); });
  }
  return text;
}

// Runs parse() once per iteration with the clock on it; counts what one iteration reads.
template <class Parse>
void TimeParse(benchmark::State& state, int channels, Parse parse) {
  const std::string& text = JsonText(channels);
  for (auto _ : state) {
    const auto start = Clock::now();
    const std::size_t events = parse(text);
    const auto stop = Clock::now();
    if (events == 0) state.SkipWithError("the parser refused the exported document");
    benchmark::DoNotOptimize(events);
    state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
  }
  // Bytes and records of the personality, as for every other benchmark; the text's own size
  // apart.
  state.counters["bytes"] = static_cast<double>(Case(channels).bytes.size());
  state.counters["records"] = static_cast<double>(Case(channels).records);
  state.counters["text_bytes"] = static_cast<double>(text.size());
}

// A pull that hands text out in pieces of 64 KB.
JsonPull PiecesOf(const std::string& text, std::size_t& at) {
  return [&text, &at](char* dst, std::size_t n) {
    n = std::min({n, kPiece, text.size() - at});
    std::memcpy(dst, text.data() + at, n);
    at += n;
    return n;
  };
}

struct CountingHandler {
  std::size_t events = 0;
  void StartObject() { ++events; }
  void EndObject() { ++events; }
  void StartArray() { ++events; }
  void EndArray() { ++events; }
  void Key(std::string_view) { ++events; }
  void String(std::string_view) { ++events; }
  void Integer(long long) { ++events; }
  void Unsigned(unsigned long long) { ++events; }
  void Float(double) { ++events; }
  void Bool(bool) { ++events; }
  void Null() { ++events; }
};

class CountingSax : public nlohmann::json_sax<Json> {
 public:
  std::size_t events = 0;
  bool null() override { return ++events; }
  bool boolean(bool) override { return ++events; }
  bool number_integer(number_integer_t) override { return ++events; }
  bool number_unsigned(number_unsigned_t) override { return ++events; }
  bool number_float(number_float_t, const string_t&) override { return ++events; }
  bool string(string_t&) override { return ++events; }
  bool binary(binary_t&) override { return ++events; }
  bool start_object(std::size_t) override { return ++events; }
  bool key(string_t&) override { return ++events; }
  bool end_object() override { return ++events; }
  bool start_array(std::size_t) override { return ++events; }
  bool end_array() override { return ++events; }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    return false;
  }
};

}  // namespace

void JsonExport(benchmark::State& state, int channels) {
  const BenchCase& c = Case(channels);
  for (auto _ : state) {
    std::size_t written = 0;
    const auto start = Clock::now();
    WritePersonalityJson(*c.personality, [&written](std::string_view piece) {
      written += piece.size();
      benchmark::DoNotOptimize(piece.data());
    });
    const auto stop = Clock::now();
    benchmark::DoNotOptimize(written);
    state.SetIterationTime(std::chrono::duration<double>(stop - start).count());
  }
  state.counters["bytes"] = static_cast<double>(c.bytes.size());
  state.counters["records"] = static_cast<double>(c.records);
}

void JsonImport(benchmark::State& state, int channels) {
  TimeParse(state, channels, [](const std::string& text) -> std::size_t {
    return StreamPersonalityJson(text.data(), text.size()) != nullptr ? 1 : 0;
  });
}

void JsonScanOnly(benchmark::State& state, int channels) {
  TimeParse(state, channels, [](const std::string& text) -> std::size_t {
    std::size_t at = 0;
    CountingHandler handler;
    return JsonScanner(PiecesOf(text, at)).Parse(handler) ? handler.events : 0;
  });
}

void JsonNlohmannSaxOnly(benchmark::State& state, int channels) {
  // The iterator form, nlohmann-json's fastest: the text is read in place.
  TimeParse(state, channels, [](const std::string& text) -> std::size_t {
    CountingSax sax;
    return Json::sax_parse(text.begin(), text.end(), &sax) ? sax.events : 0;
  });
}

#if PERSONA_BENCH_RAPIDJSON
namespace {
struct RapidjsonCounter : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RapidjsonCounter> {
  std::size_t events = 0;
  bool Default() { return ++events; }
  bool RawNumber(const char*, rapidjson::SizeType, bool) { return ++events; }
};
}  // namespace

void JsonRapidjsonSaxOnly(benchmark::State& state, int channels) {
  TimeParse(state, channels, [](const std::string& text) -> std::size_t {
    std::FILE* file = fmemopen(const_cast<char*>(text.data()), text.size(), "rb");
    if (file == nullptr) return 0;
    char buffer[kPiece];
    rapidjson::FileReadStream in(file, buffer, sizeof buffer);
    rapidjson::Reader reader;
    RapidjsonCounter counter;
    // Numbers as text, as the import would read them (std::from_chars, exact).
    constexpr unsigned kFlags = rapidjson::kParseNumbersAsStringsFlag |
                                rapidjson::kParseIterativeFlag |
                                rapidjson::kParseValidateEncodingFlag;
    const bool ok = !reader.Parse<kFlags>(in, counter).IsError();
    std::fclose(file);
    return ok ? counter.events : 0;
  });
}

bool RapidjsonAvailable() { return true; }
#else
void JsonRapidjsonSaxOnly(benchmark::State& state, int) {
  state.SkipWithError("RapidJSON was not found");
}
bool RapidjsonAvailable() { return false; }
#endif

}  // namespace persona::bench
