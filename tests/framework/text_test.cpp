// Text: CString behaviours the records rely on (code-page casing, trimming, comparisons,
// formatting), the UTF-8 conversion of JSON import, and the prompt handler that stands in for
// the message box.
#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cstdio>
#include <random>
#include <string>

#include <persona/framework/codepage.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/exceptions.h>
#include <persona/framework/prompt.h>
#include <persona/framework/short_copy.h>

namespace persona {
namespace {

TEST(CStringTest, CasingFollowsTheCodePage) {
  CString s("fire \xE9quipe \x9A\xFF ok");
  s.MakeUpper();
  EXPECT_EQ(s.str(), "FIRE \xC9QUIPE \x8A\x9F OK");
  EXPECT_EQ(CString("North").CompareNoCase("NORTH"), 0);
  EXPECT_LT(CString("Alpha").CompareNoCase("beta"), 0);
  EXPECT_GT(CString("\xE9").Compare("z"), 0);  // bytes compare unsigned
  EXPECT_EQ(CString("b").Compare("a"), 1);     // -1, 0 or 1, whatever the bytes' difference
  EXPECT_EQ(CString("a").Compare("c"), -1);
  EXPECT_EQ(CString("ab").CompareNoCase("ABC"), -1);
}

TEST(CStringTest, TrimFindFormatAndIndexing) {
  CString s(" North \t\r\n");
  s.TrimRight();
  EXPECT_EQ(s, " North");
  s.TrimLeft();
  EXPECT_EQ(s, "North");
  EXPECT_EQ(s.TrimLeft(), "North");  // nothing to trim: nothing lost
  EXPECT_EQ(s.Find('r'), 2);
  EXPECT_EQ(s.Find("th"), 3);
  EXPECT_EQ(s.Find('z'), -1);
  EXPECT_EQ(s.Find("zz"), -1);
  EXPECT_EQ(s.Find('N', -4), 0);  // a start before the text starts at its first character
  EXPECT_EQ(s.Find("No", -1), 0);
  EXPECT_EQ(s.Find('r', 3), -1);
  EXPECT_EQ(s.Left(2), "No");
  EXPECT_EQ(s.Right(2), "th");
  EXPECT_EQ(s.Mid(1, 3), "ort");
  EXPECT_THROW(s.GetAt(5), CInvalidArgException);
  CString f;
  f.Format("%-8s|%04d|%8.4f|%03x", "CH1", 20, 851.0125, 0x2F);
  EXPECT_EQ(f, "CH1     |0020|851.0125|02f");
  const std::string big(1000, 'w');
  EXPECT_EQ(CString::Formatted("%s!", big.c_str()).GetLength(), 1001);
}

template <class... Args>
void ExpectAsPrintf(const char* fmt, Args... args) {
  char want[512];
  std::snprintf(want, sizeof want, fmt, args...);
  EXPECT_EQ(CString::Formatted(fmt, args...).str(), want) << fmt;
}

TEST(CStringTest, FormatWritesWhatPrintfWrites) {
  ExpectAsPrintf("[%d|%d|%05d|%-5d|%2d|%i]", INT_MIN, INT_MAX, -42, -7, 12345, 0);
  ExpectAsPrintf("[%u|%X|%-3x|%04x|%lX|%016llx|%ld]", UINT_MAX, 0xBEEFu, 0xAu, 0u, 0xDEADBEEFUL,
                 0x1234ABCDULL, LONG_MIN);
  ExpectAsPrintf("[%.5f|%-8.4f|%8.4f|%08.3f|%f|%.0f|%.0f|%.2f]", 851.0125, -0.0, 1e20, -3.14159,
                 1.0 / 3, 0.5, 2.5, 0.125);
  ExpectAsPrintf("[%.1f|%.64f|%-4.1f|%.65f]", DBL_MAX, DBL_MIN, 9.96, 0.1);
  ExpectAsPrintf("[%-12s|%8s|%.3s|%s|%c|%-3c|%%|%%d]", "North", "CH1", "Southern", "", 'Z', 'a');
  const char unterminated[3] = {'A', 'B', 'C'};  // a precision reads no further
  ExpectAsPrintf("[%.3s|%-4.2s]", unterminated, unterminated);
  // Conversions the formatter leaves to the C library still come out right.
  ExpectAsPrintf("[%+d|% d|%e|%g|%*d|%5.3d|%#x|%hd|%s]", 5, 5, 1.5, 0.0001, 6, 7, 8, 9, 10,
                 "after");
  ExpectAsPrintf("[%.0d|%.0x|%3.0u]", 0, 0u, 0u);  // a zero precision prints no digit of 0
  ExpectAsPrintf("[%f|%-6.2f]", HUGE_VAL, -NAN);
  std::mt19937_64 random(7);
  std::uniform_real_distribution<double> frequency(-1000.0, 1000.0);
  for (int i = 0; i < 2000; ++i)
    ExpectAsPrintf("%-8.4f|%.5f|%.1f", frequency(random), i / 64.0, i / 20.0);
  CString self("ab");
  self.Format("%s-%s", self.c_str(), self.c_str());  // arguments inside the string itself
  EXPECT_EQ(self, "ab-ab");
  // Lines given back lend their memory to the next formatting, and nothing of their text.
  CStringArray lines;
  for (int i = 0; i < 3; ++i) lines.Add(CString(std::string(40 + i, 'x')));
  lines.Add(CString(std::string(100000, 'y')));
  lines.RemoveAll();
  EXPECT_TRUE(lines.IsEmpty());
  for (const char* want : {"7", "", "a much longer line than any given back, of sixty bytes or so"})
    EXPECT_EQ(CString::Formatted("%s", want), want);
  CString given(std::string(50, 'z'));
  CString::GiveBack(given);
  EXPECT_TRUE(given.IsEmpty());
  EXPECT_EQ(CString::Formatted("%d|%-3s|", 42, "On"), "42|On |");
}

TEST(ShortCopy, EverySizeComparesItsBytesAndNoOther) {
  const std::string a = "the quick brown fox jumps over the lazy dog, twice over";
  for (std::size_t size = 0; size <= 40; ++size) {
    std::string b = a;
    b[size] = '#';  // a difference just past the bytes compared
    EXPECT_TRUE(SameShort(a.data(), b.data(), size)) << size;
    for (std::size_t at = 0; at < size; ++at) {
      std::string c = a;
      c[at] = static_cast<char>(c[at] ^ 0x20);
      EXPECT_FALSE(SameShort(a.data(), c.data(), size)) << size << " " << at;
    }
  }
}

TEST(ShortCopy, EverySizeCopiesItsBytesAndNoOther) {
  std::string from(160, '\0');
  for (std::size_t i = 0; i < from.size(); ++i) from[i] = static_cast<char>('!' + i % 90);
  for (std::size_t size = 0; size <= 130; ++size) {
    std::string to(from.size() + 2, '#');
    CopyShort(&to[1], from.data() + 3, size);  // neither end aligned
    EXPECT_EQ(to, '#' + from.substr(3, size) + std::string(to.size() - 1 - size, '#')) << size;
  }
}

TEST(Prompt, DefaultAnswersNoAndInstalledHandlerDecides) {
  EXPECT_EQ(AfxMessageBox("Overwrite?", MB_YESNO), IDNO);
  EXPECT_EQ(AfxMessageBox("Saved."), IDOK);
  CString seen;
  UINT seenType = 99;
  PromptHandler old = SetPromptHandler([&](const CString& text, UINT type) {
    seen = text;
    seenType = type;
    return IDYES;
  });
  EXPECT_EQ(AfxMessageBox("File already exists", MB_YESNO), IDYES);
  EXPECT_EQ(seen, "File already exists");
  EXPECT_EQ(seenType, static_cast<UINT>(MB_YESNO));
  SetPromptHandler(old);
  EXPECT_EQ(AfxMessageBox("again?", MB_YESNO), IDNO);
}

// UTF-8 to Windows-1252 conversion of JSON import: valid text converts byte for byte, and every
// malformed or unmappable form is refused rather than turned into a character.
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
