// CString behaviours the records rely on (code-page casing, trimming, comparisons, formatting)
// and the prompt handler that stands in for the message box.
#include <gtest/gtest.h>

#include <persona/framework/cstring.h>
#include <persona/framework/exceptions.h>
#include <persona/framework/prompt.h>

namespace persona {
namespace {

TEST(CStringTest, CasingFollowsTheCodePage) {
  CString s("fire \xE9quipe \x9A\xFF ok");
  s.MakeUpper();
  EXPECT_EQ(s.str(), "FIRE \xC9QUIPE \x8A\x9F OK");
  EXPECT_EQ(CString("North").CompareNoCase("NORTH"), 0);
  EXPECT_LT(CString("Alpha").CompareNoCase("beta"), 0);
  EXPECT_GT(CString("\xE9").Compare("z"), 0);  // bytes compare unsigned
  EXPECT_EQ(CString("ab").CompareNoCase("ABC"), -1);
}

TEST(CStringTest, TrimFindFormatAndIndexing) {
  CString s(" North \t\r\n");
  s.TrimRight();
  EXPECT_EQ(s, " North");
  s.TrimLeft();
  EXPECT_EQ(s, "North");
  EXPECT_EQ(s.Find('r'), 2);
  EXPECT_EQ(s.Find("th"), 3);
  EXPECT_EQ(s.Find('z'), -1);
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

}  // namespace
}  // namespace persona
