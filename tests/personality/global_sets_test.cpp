// Global set files with real files in a temporary folder: paths and hostile names, the
// overwrite question, write failures and their message, and what a read hands over.
#include <gtest/gtest.h>

#include <cstdlib>

#include <persona/calls/phone_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/framework/file_io.h>
#include <persona/framework/prompt.h>
#include <persona/options/status_message.h>
#include <persona/personality/global_sets.h>
#include <persona/personality/personality.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/group_set.h>
#include <persona/systems/trunk_set.h>
#include "support/test_data.h"

namespace persona {
namespace {

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
  const std::string dir = test::FreshDir("gs_write");
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
  const std::string dir = test::FreshDir("gs_read");
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

// A group set of scope 1 (global) unless told otherwise, in list type.
CGroupSet* Groups(const char* name, std::initializer_list<const char*> groups, BYTE scope = 1,
                  SetType type = GroupSetType) {
  auto* set = new CGroupSet(0, 0, type);
  set->SetName(name);
  set->SetScope(scope);
  for (const char* g : groups) {
    auto* group = new CGroup;
    group->SetName(g);
    set->Add(group);
  }
  return set;
}

CConvSet* Channels(const char* name, double txFreq) {
  auto* set = new CConvSet;
  set->SetName(name);
  set->SetScope(1);
  auto* ch = new CConvChannel;
  ch->SetName("CH1");
  ch->SetTxFreq(txFreq);
  ch->SetRxFreq(855.0);
  set->Add(ch);
  return set;
}

TEST(GlobalSets, ReadSetOverloadsCheckClassAndType) {
  const std::string dir = test::FreshDir("gs_overloads");
  std::unique_ptr<CGroupSet> plain(Groups("east", {"G1"}, 1, EaGroupSetType));
  ASSERT_TRUE(WriteSet(plain.get(), CString(dir) + "/East.GRS", false));

  CGroupSet* group = nullptr;
  EXPECT_FALSE(ReadSet(group, CString(dir) + "/east.grs"));  // right class, type byte 10
  ASSERT_NE(group, nullptr);
  std::unique_ptr<CGroupSet> owned(group);
  EXPECT_EQ(group->GetName(), "EAST");
  EXPECT_EQ(group->GetSize(), 1);

  CConvSet* conv = nullptr;
  EXPECT_FALSE(ReadSet(conv, CString(dir) + "/East.GRS"));  // another class: nothing handed over
  EXPECT_EQ(conv, nullptr);
  CExtAddGroupSet* ea = nullptr;
  EXPECT_FALSE(ReadSet(ea, CString(dir) + "/Missing.EGR"));
  EXPECT_EQ(ea, nullptr);

  std::unique_ptr<CConvSet> fire(Channels("Fire", 810.0));
  ASSERT_TRUE(WriteSet(fire.get(), CString(dir) + "/Fire.CVS", false));
  EXPECT_TRUE(ReadSet(conv, CString(dir) + "/Fire.CVS"));
  std::unique_ptr<CConvSet> read(conv);
  EXPECT_EQ(read->GetName(), "FIRE");
  EXPECT_EQ(SetFitsBand(*read, 806.0, 825.0, 850.0, 870.0), 1);
  EXPECT_EQ(SetFitsBand(*read, 811.0, 825.0, 850.0, 870.0), 0);        // below the Tx minimum
  EXPECT_EQ(SetFitsBand(CPhoneSet(), 811.0, 825.0, 850.0, 870.0), 1);  // no frequencies: fits
}

// A refresh takes each global set's file (found in any letter case, the folder listed once
// for many sets) with its scope byte and the keys that came with it, keeps the local name,
// and leaves local sets alone; the refreshed personality copies with its keys.
TEST(GlobalSets, RefreshTakesTheFileKeepsTheLocalNameAndTheKeys) {
  const std::string dir = test::FreshDir("gs_refresh");
  std::unique_ptr<CGroupSet> global(Groups("whatever", {"G1", "G2", "G3"}));
  ASSERT_TRUE(WriteSet(global.get(), CString(dir) + "/EAST.grs", false));  // another case
  CEskData key;
  key.SetEsk(7);
  key.SetEskId("K7");
  CTrunkSet trunk;
  trunk.SetScope(1);
  trunk.AddEsk(&key);
  ASSERT_TRUE(WriteSet(&trunk, CString(dir) + "/Metro.TRS", false));

  auto* p = new CPersonality;
  std::unique_ptr<CPersonality> owner(p);
  p->AddSet(Groups("Local", {"L1"}, 0), GroupSetType);
  p->AddSet(Groups("East", {"Old"}), GroupSetType);
  auto* local = new CTrunkSet;
  local->SetName("Metro");
  local->SetScope(1);
  p->AddSet(local, TrunkSetType);
  for (int i = 0; i < 60; ++i) {
    CPhoneSet set;
    set.SetName(CString::Formatted("S%d", i));
    set.SetScope(1);
    ASSERT_TRUE(WriteSet(&set, CString(dir) + CString::Formatted("/S%d.phs", i), false));
    p->AddSet(new CPhoneSet(set), PhoneSetType);
  }
  PromptRecorder ok(IDOK);
  EXPECT_TRUE(ReadPersonalityGlobalSets(p, CString(dir)));
  EXPECT_TRUE(ok.said.empty());
  ASSERT_EQ(p->GetNumSets(GroupSetType), 2);
  CSet* east = p->GetSetAt(1, GroupSetType);
  EXPECT_EQ(east->GetName(), "East");
  EXPECT_EQ(east->GetScope(), 1);  // the file's scope byte
  EXPECT_EQ(east->GetSize(), 3);
  EXPECT_EQ(p->GetSet("east", GroupSetType), east);
  EXPECT_EQ(p->GetSetAt(0, GroupSetType)->GetSize(), 1);  // local sets are left alone
  EXPECT_EQ(p->GetNumSets(PhoneSetType), 60);
  EXPECT_EQ(p->GetSetAt(59, PhoneSetType)->GetName(), "S59");
  CPersonality copy(*p);
  for (const CPersonality* q : {owner.get(), &copy}) {
    auto* refreshed = static_cast<CTrunkSet*>(q->GetSetAt(0, TrunkSetType));
    EXPECT_EQ(refreshed->GetName(), "Metro");
    ASSERT_EQ(refreshed->GetNumEsks(), 1);
    EXPECT_EQ(refreshed->GetEskAt(0)->GetEskId(), "K7");
    EXPECT_EQ(refreshed->GetEskAt(0)->GetEsk(), 7);
  }
}

TEST(GlobalSets, RefreshKeepsTheLocalCopyWhenTheFileCannotBeUsed) {
  const std::string dir = test::FreshDir("gs_failures");
  std::unique_ptr<CConvSet> hot(Channels("Hot", 900.0));
  ASSERT_TRUE(WriteSet(hot.get(), CString(dir) + "/Hot.CVS", false));
  CPhoneSet phones;
  phones.SetName("Wrong");
  ASSERT_TRUE(WriteSet(&phones, CString(dir) + "/Wrong.GRS", false));
  std::unique_ptr<CGroupSet> typed(Groups("Typed", {"G"}, 1, EaGroupSetType));
  ASSERT_TRUE(WriteSet(typed.get(), CString(dir) + "/Typed.GRS", false));
  WriteFileAtomically(dir + "/Broken.GRS", std::vector<BYTE>{0xFF, 0xFF, 0x01});
  WriteFileAtomically(dir + "/Null.GRS", std::vector<BYTE>{0x00, 0x00});  // a null record
  ASSERT_EQ(std::system(("mkdir -p '" + dir + "/sub' && touch '" + dir + "/sub/x.GRS'").c_str()),
            0);

  auto* p = new CPersonality;
  std::unique_ptr<CPersonality> owner(p);
  p->AddSet(Channels("Hot", 810.0), ConvSetType);
  p->AddSet(Channels("Gone", 810.0), ConvSetType);
  for (const char* name : {"Wrong", "Typed", "Broken", "Null", "../failures/sub/x", "sub/x"}) {
    p->AddSet(Groups(name, {"Mine"}), GroupSetType);
  }
  PromptRecorder ok(IDOK);
  EXPECT_TRUE(ReadPersonalityGlobalSets(p, CString(dir)));
  ASSERT_EQ(ok.said.size(), 8u);
  // Group sets come before conventional sets.
  EXPECT_EQ(ok.said[0], "Global Group set Wrong not found, using local copy");
  EXPECT_EQ(ok.said[1], "Global Group set Typed not found, using local copy");
  EXPECT_EQ(ok.said[2].rfind("Global Group set Broken could not be read (", 0), 0u) << ok.said[2];
  EXPECT_EQ(ok.said[3], "Global Group set Null not found, using local copy");
  EXPECT_EQ(ok.said[4],
            "Global Group set ../failures/sub/x is not a usable file name, using local copy");
  EXPECT_EQ(ok.said[5], "Global Group set sub/x is not a usable file name, using local copy");
  EXPECT_EQ(ok.said[6], "Global Conv set Hot contains out of range frequencies, using local copy");
  EXPECT_EQ(ok.said[7], "Global Conv set Gone not found, using local copy");
  for (SetType type : {GroupSetType, ConvSetType}) {
    for (int i = 0; i < p->GetNumSets(type); ++i) {
      const CSet* set = p->GetSetAt(i, type);
      EXPECT_EQ(set->GetScope(), 0) << set->GetName().str();
      EXPECT_EQ(set->GetSize(), 1) << set->GetName().str();
    }
  }
  EXPECT_EQ(static_cast<CConvChannel*>(p->GetSetAt(0, ConvSetType)->GetAt(0))->GetTxFreq(), 810.0);
  // A second refresh has nothing left to do.
  EXPECT_TRUE(ReadPersonalityGlobalSets(p, CString(dir)));
  EXPECT_EQ(ok.said.size(), 8u);
}

}  // namespace
}  // namespace persona
