// The kind of a file told from its first bytes.
#include <gtest/gtest.h>

#include <persona/io/personality_file.h>
#include "support/test_data.h"

namespace persona {
namespace {

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
