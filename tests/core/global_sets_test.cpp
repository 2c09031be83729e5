// Global set files with real files in a temporary folder: paths and hostile names, the
// overwrite question, write failures and their message, and what a read hands over.
#include <gtest/gtest.h>

#include <cstdlib>

#include "core/global_sets.h"
#include "framework/file_io.h"
#include "framework/prompt.h"
#include "options/status_message.h"

namespace persona {
namespace {

std::string FreshDir(const std::string& name) {
  const std::string dir = ::testing::TempDir() + "/persona_gs_" + name;
  EXPECT_EQ(std::system(("rm -rf '" + dir + "' && mkdir -p '" + dir + "'").c_str()), 0);
  return dir;
}

// Records what the prompts said and answers with a fixed button.
struct PromptRecorder {
  explicit PromptRecorder(int answer) {
    old = SetPromptHandler([this, answer](const CString& text, UINT) {
      said.push_back(text.str());
      return answer;
    });
  }
  ~PromptRecorder() { SetPromptHandler(old); }
  std::vector<std::string> said;
  PromptHandler old;
};

TEST(GlobalSets, PathsAndHostileNames) {
  CString path;
  ASSERT_TRUE(GlobalSetPath("/data/sets", "East", GroupSetType, &path));
  EXPECT_EQ(path, "/data/sets/East.GRS");
  ASSERT_TRUE(GlobalSetPath("/data/sets/", "City", PhoneSetType, &path));
  EXPECT_EQ(path, "/data/sets/City.PHS");
  ASSERT_TRUE(GlobalSetPath("", "Fire", ConvSetType, &path));
  EXPECT_EQ(path, "Fire.CVS");
  for (const char* bad : {"../etc/passwd", "a/b", "a\\b", "..", ".", "", "x..y"}) {
    EXPECT_FALSE(GlobalSetPath("/data", bad, GroupSetType, &path)) << bad;
  }
  EXPECT_FALSE(GlobalSetPath("/data", "East", 11, &path));
  std::size_t count = 0;
  const GlobalSetKind* kinds = GlobalSetKinds(&count);
  ASSERT_EQ(count, 11u);
  EXPECT_STREQ(kinds[2].extension, ".EGR");
  EXPECT_STREQ(GlobalSetKindOf(PlmSpCallSetType)->messageName, "Global Pellam Spec Call set ");
}

TEST(GlobalSets, WriteAsksBeforeOverwritingAndReportsFailures) {
  const std::string dir = FreshDir("write");
  const CString path = CString(dir) + "/City.PHS";
  CSet first(PhoneSetType);
  first.SetName("City");
  ASSERT_TRUE(WriteSet(&first, path, true));
  const std::vector<BYTE> before = ReadWholeFile(path.str());

  CSet second(PhoneSetType);
  second.SetName("Other");
  {
    PromptRecorder no(IDNO);
    EXPECT_FALSE(WriteSet(&second, path, true));
    EXPECT_EQ(no.said,
              std::vector<std::string>{"File already exists, Overwrite existing global set?"});
  }
  EXPECT_EQ(ReadWholeFile(path.str()), before);
  {
    PromptRecorder yes(IDYES);
    EXPECT_TRUE(WriteSet(&second, path, true));
  }
  EXPECT_NE(ReadWholeFile(path.str()), before);
  EXPECT_TRUE(WriteSet(&first, path, false));  // no question without confirmation
  EXPECT_EQ(ReadWholeFile(path.str()), before);

  PromptRecorder ok(IDOK);
  EXPECT_FALSE(WriteSet(&first, CString(dir) + "/missing/City.PHS", false));
  EXPECT_EQ(ok.said, std::vector<std::string>{
                         "Your set could not be saved because No such file or directory."});
}

TEST(GlobalSets, ReadHandsOverTheSetByClassAndTellsTheType) {
  const std::string dir = FreshDir("read");
  CSet set(PhoneSetType);
  set.SetName("Mixed Case");
  auto* msg = new CStatusMessage;
  msg->SetName("kept");
  set.Add(msg);
  ASSERT_TRUE(WriteSet(&set, CString(dir) + "/east.phs", false));

  const CString asked = CString(dir) + "/EAST.PHS";
  const CString found = ResolveGlobalSetFile(asked);
  EXPECT_EQ(found, CString(dir) + "/east.phs");
  EXPECT_EQ(ResolveGlobalSetFile(CString(dir) + "/none.PHS"), CString(dir) + "/none.PHS");

  std::unique_ptr<CSet> out;
  EXPECT_FALSE(ReadSetFile(CString(dir) + "/none.PHS", "CSet", PhoneSetType, &out));
  EXPECT_EQ(out, nullptr);
  EXPECT_FALSE(ReadSetFile(found, "CPhoneSet", PhoneSetType, &out));  // another class
  EXPECT_EQ(out, nullptr);
  EXPECT_FALSE(ReadSetFile(found, "CSet", ICallSetType, &out));  // right class, other type
  ASSERT_NE(out, nullptr);
  EXPECT_TRUE(ReadSetFile(found, "CSet", PhoneSetType, &out));
  EXPECT_EQ(out->GetName(), "MIXED CASE");
  EXPECT_EQ(out->GetSize(), 1);
}

}  // namespace
}  // namespace persona
