// Documents written and read as they are produced: the streamed JSON document is byte for byte
// the dump of the whole document (escapes, code page, non-finite numbers, empty lists, shared
// keys), in bounded pieces; the streamed report is the whole report, block by block; the
// streaming reader gives back the same bytes, hands any other form to the whole-document
// reader, and faults keep their JSON pointer. Also the kind of a file told from its first bytes.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>

#include <unistd.h>

#include <persona/io/json/json_reader.h>
#include <persona/io/json/json_writer.h>
#include <persona/io/json/personality_json.h>
#include <persona/io/personality_file.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/report/personality_report.h>
#include <persona/report/report_text.h>
#include <persona/systems/trunk_set.h>
#include "sample/sample_personality.h"
#include "support/expect.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

TEST(StreamedOutput, JsonIsTheDumpOfTheWholeDocumentInBoundedPieces) {
  SampleSpec shape;
  shape.conventionalChannels = 3000;
  shape.channelsPerSet = 1000;
  std::unique_ptr<CPersonality> p = BuildSamplePersonality(shape);
  // Every escape, a byte of each UTF-8 length, a text longer than a piece, a non-finite number.
  p->SetDescription(CString(std::string("q\"b\\s/\b\f\n\r\t\x01\x1F\x7F \xE9\x80\x9F\0", 19) +
                            std::string(100000, 'y') + "\xE9\""));
  p->SetTxMaxFreq(-std::numeric_limits<double>::infinity());
  p->SetRxMinFreq(1e-7);
  p->SetRxMaxFreq(12345678.125);
  std::string text;
  std::size_t pieces = 0, largest = 0;
  WritePersonalityJson(*p, [&](std::string_view piece) {
    EXPECT_FALSE(piece.empty());
    text.append(piece);
    ++pieces;
    largest = std::max(largest, piece.size());
  });
  EXPECT_EQ(text, ExportPersonalityJson(*p).dump(2));
  EXPECT_GT(pieces, 10u);
  EXPECT_LT(largest, 80u * 1024);
  EXPECT_THAT(text, test::HasSubstr(R"("Description": "q\"b\\s/\b\f\n\r\t\u0001\u001f)"
                                    "\x7F \xC3\xA9\xE2\x82\xAC\xC5\xB8\\u0000yyy"));
}

TEST(StreamedOutput, ReportPiecesMakeTheWholeReportAndNoSetIsHeldWhole) {
  SampleSpec shape;
  shape.conventionalChannels = 3000;  // sets of 1,000 channels: 19,000 lines each
  shape.channelsPerSet = 1000;
  std::unique_ptr<CPersonality> p = BuildSamplePersonality(shape);
  CStringArray whole;
  PrintPersonalityReport(*p, whole);
  std::vector<std::string> streamed;
  int pieces = 0, largest = 0;
  StreamPersonalityReport(*p, [&](const CStringArray& lines) {
    if (++pieces == 1) {
      EXPECT_EQ(lines[0].str(), "PERSONALITY:");
    }
    largest = std::max(largest, lines.GetSize());
    for (const CString& line : lines) streamed.push_back(line.str());
  });
  ASSERT_EQ(streamed.size(), static_cast<std::size_t>(whole.GetSize()));
  for (int i = 0; i < whole.GetSize(); ++i) EXPECT_EQ(streamed[i], whole[i].str()) << i;
  // Pieces of a few hundred lines: one ends at the first block or element end past 255 lines.
  EXPECT_LT(largest, 400);
  EXPECT_GT(pieces, whole.GetSize() / 400);
}

// Runs write with `workers` workers, each holding a single piece ahead, into a sink that fails
// at its fifth piece: the failure comes back, and nothing more is handed to the sink.
template <class Write>
void ExpectFailingSinkStops(unsigned workers, const Write& write) {
  OrderedTextOptions options;
  options.workers = workers;
  options.partBytes = 1;
  int calls = 0;
  const TextSink failing = [&calls](std::string_view) {
    if (++calls == 5) throw std::runtime_error("disk full");
  };
  EXPECT_THROW(write(failing, options), std::runtime_error);
  EXPECT_EQ(calls, 5);
}

// The text of the report made by one thread or several, with room for a whole set ahead or
// for a single piece (every part then waits for its turn): always the whole report's lines,
// in order, in pieces of whole lines. A sink that fails stops the threads and its failure
// comes back.
TEST(StreamedOutput, ReportTextIsTheWholeReportWhateverTheThreads) {
  SampleSpec shape;
  shape.conventionalChannels = 3000;
  shape.channelsPerSet = 500;
  std::unique_ptr<CPersonality> p = BuildSamplePersonality(shape);
  // A list record that is not a set is a part of its own, printed where it stands.
  test::OwnedList(*p, "PhoneSets").Add(new CGenRadioOpts);
  CStringArray whole;
  PrintPersonalityReport(*p, whole);
  std::string expected;
  for (const CString& line : whole) expected += line.str() + "\n";
  ASSERT_GT(expected.size(), 1000000u);
  struct Run {
    unsigned workers;
    std::size_t partBytes;
  };
  for (const Run run : {Run{0, 1}, Run{1, 1}, Run{2, 8u << 20}, Run{8, 100000}, Run{~0u, 1}}) {
    SCOPED_TRACE(std::to_string(run.workers) + " workers, " + std::to_string(run.partBytes));
    ReportTextOptions options;
    options.workers = run.workers;
    options.partBytes = run.partBytes;
    std::string text;
    std::size_t pieces = 0;
    StreamPersonalityReportText(
        *p,
        [&](std::string_view piece) {
          ASSERT_FALSE(piece.empty());
          EXPECT_EQ(piece.back(), '\n');
          text.append(piece);
          ++pieces;
        },
        options);
    EXPECT_TRUE(test::SameText(text, expected));
    EXPECT_GT(pieces, expected.size() / (128u << 10));
  }
  for (unsigned workers : {0u, 3u}) {
    ExpectFailingSinkStops(workers, [&p](const TextSink& sink, const OrderedTextOptions& options) {
      StreamPersonalityReportText(*p, sink, options);
    });
  }
}

// A record that owns records of any class: what lets a shared record sit below a part's own
// fields.
class CRecordHolder : public CObject {
  DECLARE_SERIAL(CRecordHolder)
  PERSONA_FIELDS(CObject)
 public:
  CRecordHolder() = default;
  CRecordHolder(const CRecordHolder& o) : CObject(o) {
    for (CObject* e : o.inner)
      inner.Add(e != nullptr ? e->GetRuntimeClass()->CopyObject(*e) : nullptr);
  }
  COwnedObList inner;
  template <class V>
  void Fields(V& v) {
    v("Inner", inner);
  }
};
IMPLEMENT_SERIAL(CRecordHolder, CObject, 1)

// The JSON document written by one thread or several, with room for a whole set ahead or for
// a single piece: always the bytes of the whole document's dump. The shared key records are
// first met in the second set, not the first, and one is met twice in that set's list (written
// whole the first time, a reference the second); another is first met in a set owned by an
// option record. A sink that fails stops the threads and its
// failure comes back.
TEST(StreamedOutput, JsonIsTheSameWhateverTheThreads) {
  SampleSpec shape;
  shape.conventionalChannels = 3000;
  shape.channelsPerSet = 500;
  std::unique_ptr<CPersonality> p = BuildSamplePersonality(shape);
  COwnedObList& trunkSets = test::OwnedList(*p, "TrunkSets");
  ASSERT_GE(trunkSets.GetCount(), 2);
  auto* first = static_cast<CTrunkSet*>(trunkSets.GetAt(0));
  auto* second = static_cast<CTrunkSet*>(trunkSets.GetAt(1));
  CEskData* key = first->GetEskAt(0);
  ASSERT_NE(key, nullptr);
  ASSERT_EQ(second->GetEskAt(0), key);
  while (first->GetNumEsks() > 0) first->DeleteEskAt(0);
  second->AddEsk(nullptr);
  second->AddEsk(key);
  // A key met first two lists down in an option record, in a set owned by it.
  auto* nestedKey = new CEskData;
  std::vector<std::unique_ptr<CObject>> adopted;
  adopted.emplace_back(nestedKey);
  p->AdoptSharedRecords(std::move(adopted));
  auto* holder = new CRecordHolder;
  auto* nestedSet = new CTrunkSet;
  nestedSet->AddEsk(nestedKey);
  holder->inner.Add(nestedSet);
  test::OwnedList(*p, "Options").Add(holder);
  const std::string expected = ExportPersonalityJson(*p).dump(2);
  ASSERT_THAT(expected, test::HasSubstr(R"("$ref": )"));
  struct Run {
    unsigned workers;
    std::size_t partBytes;
  };
  for (const Run run : {Run{0, 1}, Run{1, 1}, Run{2, 8u << 20}, Run{8, 100000}}) {
    SCOPED_TRACE(std::to_string(run.workers) + " workers, " + std::to_string(run.partBytes));
    OrderedTextOptions options;
    options.workers = run.workers;
    options.partBytes = run.partBytes;
    std::string text;
    WritePersonalityJson(
        *p,
        [&](std::string_view piece) {
          ASSERT_FALSE(piece.empty());
          text.append(piece);
        },
        options);
    EXPECT_TRUE(test::SameText(text, expected));
  }
  ExpectFailingSinkStops(3, [&p](const TextSink& sink, const OrderedTextOptions& options) {
    WritePersonalityJson(*p, sink, options);
  });
}

std::string StreamedJson(CPersonality& p) {
  std::string text;
  WritePersonalityJson(p, [&text](std::string_view piece) { text.append(piece); });
  return text;
}

// A file of this process in the temporary folder (other test runs may share the folder).
std::string WriteTemp(const std::string& name, const std::string& text) {
  const std::string path = ::testing::TempDir() + "/" + std::to_string(::getpid()) + "-" + name;
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

TEST(StreamedJson, ReadsBackTheSameBytesAndHandsOtherFormsToTheWholeReader) {
  std::unique_ptr<CPersonality> p = BuildSamplePersonality();
  p->SetTxMaxFreq(test::NanOfEveryHexDigit());
  p->GetOption<CGenRadioOpts>()->SetMinEaLid(-5);  // a negative number
  const std::vector<BYTE> bytes = StorePersonalityBytes(*p);
  const std::string text = StreamedJson(*p);
  std::istringstream in(text);
  std::unique_ptr<CPersonality> back = StreamPersonalityJson(in);
  ASSERT_NE(back, nullptr);
  EXPECT_EQ(StorePersonalityBytes(*back), bytes);
  // "$class" after the fields: valid, but read whole.
  Json doc = Json::parse(text);
  Json& personality = doc["personality"];
  personality.erase("$class");
  personality["$class"] = "CPersonality";
  const std::string moved = doc.dump();
  std::istringstream movedIn(moved);
  EXPECT_EQ(StreamPersonalityJson(movedIn), nullptr);
  const std::string path = WriteTemp("moved_class.json", moved);
  EXPECT_EQ(StorePersonalityBytes(*ReadPersonalityJsonFile(path)), bytes);
  std::remove(path.c_str());
  // A field given twice: valid JSON, the last value holds, but read whole.
  const std::string name = "\"Name\": \"SAMPLE COUNTY\",";
  std::string twice = text;
  twice.insert(twice.find(name), "\"Name\": \"FIRST\", ");
  std::istringstream twiceIn(twice);
  EXPECT_EQ(StreamPersonalityJson(twiceIn), nullptr);
  const std::string twicePath = WriteTemp("twice.json", twice);
  EXPECT_EQ(StorePersonalityBytes(*ReadPersonalityJsonFile(twicePath)), bytes);
  std::remove(twicePath.c_str());
}

TEST(StreamedJson, FaultsAreNamedByTheirPointer) {
  std::unique_ptr<CPersonality> p = BuildSamplePersonality();
  const Json good = Json::parse(StreamedJson(*p));
  const std::string elements = "/personality/ConvSets/0/Elements";
  const std::string channel = "sets/conv/METRO/PD 1/";
  const struct {
    std::string pointer;  // where the fault is planted
    Json value;
    std::string reported;  // the pointer of the fault (the message may leave out /personality)
    std::string record;    // the record path of the fault, as the tool prints it
  } faults[] = {
      {"/format", "persona-set", "/format", ""},
      {"/format", Json::object(), "/format", ""},
      {"/formatVersion", 2, "/formatVersion", ""},
      {"/formatVersion", "1", "/formatVersion", ""},
      {elements + "/1/RxFreq", "450", elements + "/1/RxFreq", channel + "RxFreq"},
      {elements + "/1/NoSuchField", 1, elements + "/1/NoSuchField", channel + "NoSuchField"},
      {elements + "/1/TxAddr", 70000, elements + "/1/TxAddr", channel + "TxAddr"},
      {elements + "/1/Scan", -1, elements + "/1/Scan", channel + "Scan"},
      {elements + "/1/Backlight", true, elements + "/1/Backlight", channel + "Backlight"},
      {elements + "/1/Name", 5, elements + "/1/Name", "sets/conv/METRO/#2/Name"},
      {elements + "/2", Json{{"$class", "CNoSuchRecord"}}, elements + "/2", "sets/conv/METRO/#3"},
      {elements + "/0/$class", 7, elements + "/0", "sets/conv/METRO/FIRE 1"},
      {"/personality/Systems/0/ScannedSystems", Json{"A", 3}, "/Systems/0/ScannedSystems/1",
       "systems/KVX METRO/ScannedSystems/2"},
      {"/personality/Systems/0/ScannedSystems", Json{"A", nullptr}, "/Systems/0/ScannedSystems/1",
       "systems/KVX METRO/ScannedSystems/2"},
  };
  for (const auto& fault : faults) {
    Json doc = good;
    doc[Json::json_pointer(fault.pointer)] = fault.value;
    std::istringstream in(doc.dump());
    EXPECT_EQ(StreamPersonalityJson(in), nullptr) << fault.pointer;
    const std::string path = WriteTemp("fault.json", doc.dump());
    const auto e = test::Caught<CJsonImportException>([&] { ReadPersonalityJsonFile(path); });
    const std::string& got = e.m_pointer;
    EXPECT_TRUE(got.size() >= 7 && fault.reported.size() >= got.size() &&
                fault.reported.compare(fault.reported.size() - got.size(), got.size(), got) == 0)
        << got << " for " << fault.reported;
    EXPECT_EQ(e.m_path, fault.record) << e.what();
    const std::string place = e.m_path.empty() ? got : e.m_path + " (" + got + ")";
    EXPECT_THAT(e.what(), test::StartsWith(path + ": " + place + ": "));
    std::remove(path.c_str());
  }
  std::istringstream truncated(good.dump().substr(0, 5000));
  EXPECT_EQ(StreamPersonalityJson(truncated), nullptr);
  // Without its format or its version, a document is no personality document.
  for (const char* key : {"format", "formatVersion"}) {
    Json doc = good;
    doc.erase(key);
    std::istringstream in(doc.dump());
    EXPECT_EQ(StreamPersonalityJson(in), nullptr) << key;
    const std::string path = WriteTemp("unmarked.json", doc.dump());
    EXPECT_THROW(ReadPersonalityJsonFile(path), CJsonImportException) << key;
    std::remove(path.c_str());
  }
}

// A personality document whose personality holds another in its option list, levels deep.
std::string NestedPersonalityJson(const Json& good, int levels) {
  Json inner = {{"$class", "CPersonality"}};
  for (int i = 1; i < levels; ++i) {
    inner = Json{{"$class", "CPersonality"}, {"Options", Json::array({inner})}};
  }
  Json doc = good;
  doc["personality"] = inner;
  return doc.dump();
}

TEST(StreamedJson, RecordsNestedThirtyTwoDeepAreReadAndDeeperOnesRefused) {
  std::unique_ptr<CPersonality> p = BuildSamplePersonality();
  const Json good = Json::parse(StreamedJson(*p));
  const std::string deepest = NestedPersonalityJson(good, 32);
  std::istringstream in(deepest);
  std::unique_ptr<CPersonality> back = StreamPersonalityJson(in);
  ASSERT_NE(back, nullptr);
  int levels = 1;
  for (CPersonality* at = back.get(); at->GetNumOptions() == 1; ++levels) {
    at = static_cast<CPersonality*>(at->GetOptionAt(0));
  }
  EXPECT_EQ(levels, 32);

  const std::string deeper = NestedPersonalityJson(good, 33);
  std::istringstream deeperIn(deeper);
  EXPECT_EQ(StreamPersonalityJson(deeperIn), nullptr);
  const std::string path = WriteTemp("deep.json", deeper);
  EXPECT_THAT(test::Caught<CJsonImportException>([&] { ReadPersonalityJsonFile(path); }).what(),
              test::HasSubstr("nested more than 32 levels"));
  std::remove(path.c_str());
}

// A record with a field held outside the object: the reader may not take its field table from
// another record of the class.
class CBoxedName : public CObject {
  DECLARE_SERIAL(CBoxedName)
  PERSONA_FIELDS(CObject)
 public:
  CBoxedName() = default;
  CBoxedName(const CBoxedName& o) : CObject(o), name(std::make_unique<CString>(*o.name)) {}
  std::unique_ptr<CString> name = std::make_unique<CString>();
  WORD number = 0;
  template <class V>
  void Fields(V& v) {
    v("Name", *name);
    v("Number", number);
  }
};
IMPLEMENT_SERIAL(CBoxedName, CObject, 1)

TEST(StreamedJson, EachRecordsFieldsAreItsOwnWhereverTheyAreHeld) {
  CRuntimeClass::Register(RUNTIME_CLASS(CBoxedName));
  Json doc = Json::parse(StreamedJson(*BuildSamplePersonality()));
  Json options = Json::array();
  for (int i = 0; i < 3; ++i) {
    options.push_back({{"$class", "CBoxedName"}, {"Name", "N" + std::to_string(i)}, {"Number", i}});
  }
  doc["personality"]["Options"] = options;
  std::istringstream in(doc.dump());
  std::unique_ptr<CPersonality> back = StreamPersonalityJson(in);
  ASSERT_NE(back, nullptr);
  ASSERT_EQ(back->GetNumOptions(), 3);
  for (int i = 0; i < 3; ++i) {
    const auto* boxed = dynamic_cast<const CBoxedName*>(back->GetOptionAt(i));
    ASSERT_NE(boxed, nullptr);
    EXPECT_EQ(boxed->name->str(), "N" + std::to_string(i));
    EXPECT_EQ(boxed->number, i);
  }
}

// A record class whose fields are not the same from one record to the next, one of them
// named with a quote: the writer learns each class's keys from its first record, and must
// still write the others as they come.
class CShapeShifter : public CObject {
  DECLARE_SERIAL(CShapeShifter)
  PERSONA_FIELDS(CObject)
 public:
  bool extra = false;
  WORD number = 7;
  template <class V>
  void Fields(V& v) {
    v("Number", number);
    if (extra) v("Extra", number);
    v("Last", number);
    v("Quote\"d", number);
  }
};
IMPLEMENT_SERIAL(CShapeShifter, CObject, 1)

TEST(StreamedOutput, JsonKeysOfRecordsWhoseFieldsDiffer) {
  std::unique_ptr<CPersonality> p = BuildSamplePersonality();
  COwnedObList& options = test::OwnedList(*p, "Options");
  for (bool extra : {false, true, false}) {
    auto* shifter = new CShapeShifter;
    shifter->extra = extra;
    options.Add(shifter);
  }
  EXPECT_EQ(StreamedJson(*p), ExportPersonalityJson(*p).dump(2));
}

// The kind of a file told from its first bytes.
TEST(PersonalityIo, TheKindOfAFileIsToldFromItsFirstBytes) {
  const auto kind = [](const std::vector<BYTE>& bytes) {
    return SniffFileKind(bytes.data(), bytes.size());
  };
  const std::vector<BYTE> personality = test::ReadTestFile("vectors/personality_empty.bin");
  EXPECT_EQ(kind(personality), FileKind::Personality);
  EXPECT_EQ(kind(test::ReadTestFile("vectors/phoneset.bin")), FileKind::SetFile);
  EXPECT_EQ(kind(test::ReadTestFile("vectors/unknown_class.bin")), FileKind::Unknown);
  const std::string json = "\xEF\xBB\xBF \r\n\t{\"format\": 1}";
  EXPECT_EQ(kind(std::vector<BYTE>(json.begin(), json.end())), FileKind::Json);
  // A name cut short, an empty file, blanks alone and NUL bytes tell nothing.
  EXPECT_EQ(kind(std::vector<BYTE>(personality.begin(), personality.begin() + 12)),
            FileKind::Unknown);
  EXPECT_EQ(kind({}), FileKind::Unknown);
  EXPECT_EQ(kind({' ', '\n'}), FileKind::Unknown);
  EXPECT_EQ(kind({0, '{'}), FileKind::Unknown);
  EXPECT_STREQ(FileKindName(FileKind::SetFile), "a global set file");
}

}  // namespace
}  // namespace persona
