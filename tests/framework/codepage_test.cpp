// UTF-8 to Windows-1252 conversion of JSON import: valid text converts byte for byte, and every
// malformed or unmappable form is refused rather than turned into a character.
#include <persona/framework/codepage.h>

#include <gtest/gtest.h>

#include <string>

namespace persona {
namespace {

TEST(Codepage, EveryByteSurvivesATripThroughUtf8) {
  std::string all;
  for (int b = 0; b < 256; ++b) all.push_back(static_cast<char>(b));
  std::string back;
  ASSERT_TRUE(Utf8ToWindows1252(Windows1252ToUtf8(all), &back));
  EXPECT_EQ(all, back);
}

TEST(Codepage, MalformedOrUnmappableUtf8IsRefused) {
  struct Case {
    const char* what;
    std::string utf8;
  };
  const Case refused[] = {
      {"overlong two-byte NUL", "\xC0\x80"},
      {"overlong two-byte DEL", "\xC1\xBF"},
      {"overlong three-byte", "\xE0\x80\x80"},
      {"overlong three-byte, highest", "\xE0\x9F\xBF"},
      {"overlong four-byte", "\xF0\x80\x80\x80"},
      {"four-byte form of an emoji", "A\xF0\x9F\x98\x80"},
      {"four-byte form, lowest", "\xF0\x90\x80\x80"},
      {"encoded surrogate", "\xED\xA0\x80"},
      {"beyond U+10FFFF", "\xF4\x90\x80\x80"},
      {"five-byte lead", "\xF8\x88\x80\x80\x80"},
      {"lone continuation", "\x80"},
      {"cut-short three-byte", "\xE2\x82"},
      {"lead then ASCII",
       "\xC3"
       "A"},
      {"no Windows-1252 byte", "\xE4\xB8\xAD"},
  };
  for (const Case& c : refused) {
    std::string out;
    EXPECT_FALSE(Utf8ToWindows1252(c.utf8, &out)) << c.what;
  }
  std::string out;
  ASSERT_TRUE(Utf8ToWindows1252("A\xE2\x82\xAC\xC3\xA9\xC2\x81", &out));  // A, euro, e acute, 0x81
  EXPECT_EQ("A\x80\xE9\x81", out);
}

}  // namespace
}  // namespace persona
