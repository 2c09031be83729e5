// Whole-file personality loads and saves, and the personality JSON document: the vector goes
// archive -> JSON -> archive unchanged, trailing bytes are counted, damage is reported.
#include <gtest/gtest.h>

#include <persona/framework/file_io.h>
#include <persona/io/json/personality_json.h>
#include <persona/io/personality_file.h>
#include "support/test_data.h"

namespace persona {
namespace {

TEST(PersonalityIo, VectorTravelsThroughJsonUnchanged) {
  const std::vector<BYTE> bytes = test::ReadTestFile("vectors/personality_empty.bin");
  LoadedPersonality loaded = LoadPersonalityBytes(bytes.data(), bytes.size(), "empty.pers");
  EXPECT_EQ(loaded.trailingBytes, 0u);
  EXPECT_EQ(loaded.fileSize, bytes.size());
  const Json doc = ExportPersonalityJson(*loaded.personality);
  EXPECT_EQ(doc["format"], "persona-personality");
  EXPECT_EQ(doc["personality"]["Name"], "Demo");
  std::unique_ptr<CPersonality> back = ImportPersonalityJson(Json::parse(doc.dump()), "p.json");
  EXPECT_EQ(test::Hex(StorePersonalityBytes(*back)), test::Hex(bytes));
  EXPECT_EQ(ExportPersonalityJson(*back).dump(), doc.dump());
}

TEST(PersonalityIo, TrailingBytesAreCountedAndDamageIsReported) {
  std::vector<BYTE> bytes = test::ReadTestFile("vectors/personality_empty.bin");
  bytes.push_back(0xAA);
  bytes.push_back(0xBB);
  EXPECT_EQ(LoadPersonalityBytes(bytes.data(), bytes.size(), "t.pers").trailingBytes, 2u);
  try {
    LoadPersonalityBytes(bytes.data(), 40, "cut.pers");
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::endOfFile);
    EXPECT_EQ(std::string(e.what()).rfind("cut.pers: byte ", 0), 0u) << e.what();
  }
  EXPECT_THROW(ImportPersonalityJson(Json::parse(R"({"format":"other"})"), "x.json"),
               CJsonImportException);
}

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

TEST(PersonalityIo, SaveIsAtomicAndKeepsABackup) {
  const std::string path = ::testing::TempDir() + "/persona_io_save.pers";
  std::remove(path.c_str());
  std::remove((path + ".bak").c_str());
  CPersonality first;
  first.SetName("First");
  SavePersonalityFile(path, first);
  CPersonality second;
  second.SetName("Second");
  SavePersonalityFile(path, second, true);
  EXPECT_EQ(LoadPersonalityFile(path).personality->GetName(), "Second");
  EXPECT_EQ(LoadPersonalityFile(path + ".bak").personality->GetName(), "First");
  EXPECT_THROW(LoadPersonalityFile(path + ".missing"), CFileException);
}

}  // namespace
}  // namespace persona
