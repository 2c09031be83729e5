// The checked-in fuzzing inputs stay current: the dictionaries name every registered record
// class, and every seed is a valid file that loads and stores back byte for byte (a seed the
// library refuses would only teach the fuzzers the refusal).
#include <gtest/gtest.h>

#include <dirent.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <persona/core/set.h>
#include <persona/framework/file_io.h>
#include <persona/io/json/personality_json.h>
#include <persona/io/personality_file.h>
#include "support/test_data.h"

namespace persona {
namespace {

const std::string kFuzzDir = std::string(PERSONA_TEST_DATA_DIR) + "/../../fuzz";

std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

std::vector<std::string> FilesIn(const std::string& dir) {
  std::vector<std::string> out;
  if (DIR* d = opendir(dir.c_str())) {
    while (dirent* e = readdir(d)) {
      if (e->d_name[0] != '.') out.push_back(dir + "/" + e->d_name);
    }
    closedir(d);
  }
  return out;
}

// The library's classes, taken before any test registers helper classes of its own.
const std::vector<const CRuntimeClass*> kLibraryClasses = CRuntimeClass::RegisteredClasses();

TEST(FuzzInputs, DictionariesNameEveryRegisteredClass) {
  const std::string archive = ReadText(kFuzzDir + "/archive.dict");
  const std::string json = ReadText(kFuzzDir + "/json.dict");
  const std::vector<const CRuntimeClass*>& classes = kLibraryClasses;
  EXPECT_GT(classes.size(), 50u);
  for (const CRuntimeClass* cls : classes) {
    const std::string name = cls->m_lpszClassName;
    EXPECT_EQ(CRuntimeClass::FromName(name.c_str()), cls);
    EXPECT_NE(archive.find("\n\"" + name + "\"\n"), std::string::npos)
        << name << " is missing: regenerate with make_seeds";
    EXPECT_NE(json.find("\"\\x22" + name + "\\x22\"\n"), std::string::npos) << name;
  }
}

TEST(FuzzInputs, EverySeedLoadsAndStoresBackByteForByte) {
  const std::vector<std::string> personalities = FilesIn(kFuzzDir + "/seeds/personality");
  const std::vector<std::string> sets = FilesIn(kFuzzDir + "/seeds/set");
  const std::vector<std::string> documents = FilesIn(kFuzzDir + "/seeds/json");
  EXPECT_GE(personalities.size(), 3u);
  EXPECT_EQ(sets.size(), static_cast<std::size_t>(kNumSetTypes));
  EXPECT_GE(documents.size(), 3u);
  for (const std::string& path : personalities) {
    const std::vector<BYTE> bytes = ReadWholeFile(path);
    const LoadedPersonality loaded = LoadPersonalityFile(path);
    EXPECT_EQ(loaded.trailingBytes, 0u) << path;
    EXPECT_EQ(test::Hex(StorePersonalityBytes(*loaded.personality)), test::Hex(bytes)) << path;
  }
  for (const std::string& path : sets) {
    const std::vector<BYTE> bytes = ReadWholeFile(path);
    CArchive ar(bytes.data(), bytes.size(), path);
    std::unique_ptr<CObject> set = ar.ReadOwnedObject(RUNTIME_CLASS(CSet));
    auto pool = ar.TakeSharedObjects();
    ASSERT_NE(set, nullptr) << path;
    EXPECT_EQ(ar.GetRemaining(), 0u) << path;
    EXPECT_EQ(test::Hex(test::StoreObject(set.get())), test::Hex(bytes)) << path;
  }
  for (const std::string& path : documents) {
    const Json doc = Json::parse(ReadText(path));
    std::unique_ptr<CPersonality> p = ImportPersonalityJson(doc, path);
    EXPECT_EQ(ExportPersonalityJson(*p).dump(1), doc.dump(1)) << path;
  }
}

}  // namespace
}  // namespace persona
