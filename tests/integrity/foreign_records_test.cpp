// Records of another class than their place usually holds (an element of another class in a
// set, a set of another class in a set list, a record that is no set or no system in the
// personality's lists, a non-option record in the option list): they store and load back byte
// for byte, and every operation over the personality treats them by their class.
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/integrity/checker.h>
#include <persona/integrity/references.h>
#include <persona/io/json/personality_json.h>
#include <persona/io/json/record_diff.h>
#include <persona/io/personality_file.h>
#include <persona/options/macro.h>
#include <persona/options/status_message.h>
#include <persona/personality/global_sets.h>
#include <persona/report/personality_ops.h>
#include <persona/report/personality_report.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_group_set.h>
#include "integrity/sample_personality.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

CObject* Make(const char* className) { return CRuntimeClass::FromName(className)->CreateObject(); }

// Hands out one of the personality's lists by field name, to put there records that the typed
// operations do not take (a file may hold them all the same).
std::string AlienName(int t) { return "ALIEN" + std::to_string(t); }

// The sample personality, and in each set list: an element of the next list's class appended
// to the first set, and a set of the next list's class (a CGroupSet of type 10 in the
// extended-addressing list) named ALIEN<type> holding an element of the list's own class.
// Also a CPhoneCall in the group set list, a CStatusMessage in the system list, and a CGroup
// and a CMacro in the option list.
std::unique_ptr<CPersonality> Mixed() {
  auto p = test::SamplePersonality(true);
  for (int t = 0; t < kNumSetTypes; ++t) {
    const auto type = static_cast<SetType>(t);
    const auto next = static_cast<SetType>((t + 1) % kNumSetTypes);
    p->GetSetAt(0, type)->Add(Make(CPersonality::ElementClassName(next)));
    CSet* alien = type == EaGroupSetType
                      ? new CGroupSet(EaGroupSetType)
                      : dynamic_cast<CSet*>(Make(CPersonality::SetClassName(next)));
    alien->SetName(CString(AlienName(t).c_str()));
    alien->Add(Make(CPersonality::ElementClassName(type)));
    p->AddSet(alien, type);
  }
  test::OwnedList(*p, "GroupSets").Add(new CPhoneCall);
  test::OwnedList(*p, "Systems").Add(new CStatusMessage);
  p->PutOption(new CGroup);
  p->PutOption(new CMacro);
  return p;
}

std::unique_ptr<CPersonality> Reload(const std::vector<BYTE>& bytes) {
  return LoadPersonalityBytes(bytes.data(), bytes.size(), "mixed.pers").personality;
}

bool Holds(const CStringArray& lines, const std::string& line) {
  return std::any_of(lines.begin(), lines.end(), [&](const CString& l) { return l.str() == line; });
}

TEST(ForeignRecords, StoreAndLoadByteForByte) {
  auto p = Mixed();
  const std::vector<BYTE> bytes = StorePersonalityBytes(*p);
  auto q = Reload(bytes);
  EXPECT_EQ(test::Hex(bytes), test::Hex(StorePersonalityBytes(*q)));

  const int eaSets = q->GetNumSets(EaGroupSetType);
  const CSet* alien = q->GetSet(AlienName(EaGroupSetType).c_str(), EaGroupSetType);
  ASSERT_NE(alien, nullptr);
  EXPECT_STREQ(alien->GetClassName(), "CGroupSet");
  EXPECT_EQ(alien->GetSetType(), EaGroupSetType);
  EXPECT_STREQ(q->GetSetAt(0, GroupSetType)
                   ->Elements()
                   .GetAt(q->GetSetAt(0, GroupSetType)->GetCount() - 1)
                   ->GetClassName(),
               "CPhoneCall");
  const int last = q->GetNumSets(GroupSetType) - 1;
  EXPECT_EQ(q->GetSetAt(last, GroupSetType), nullptr);  // no set: not answered as one
  EXPECT_STREQ(q->GetSetRecordAt(last, GroupSetType)->GetClassName(), "CPhoneCall");
  EXPECT_EQ(q->GetSystemAt(q->GetNumSystems() - 1), nullptr);
  EXPECT_NE(q->GetOption(RUNTIME_CLASS(CMacro)), nullptr);
  EXPECT_NE(q->GetOption<CGroup>(), nullptr);

  // A copy takes each set as its list's class: the group set of the extended-addressing list
  // becomes an extended-addressing group set with its element; what is no set, no system or
  // no known option class is left out.
  const CPersonality copy(*q);
  const CSet* copied = copy.GetSet(AlienName(EaGroupSetType).c_str(), EaGroupSetType);
  ASSERT_NE(copied, nullptr);
  EXPECT_STREQ(copied->GetClassName(), "CExtAddGroupSet");
  EXPECT_EQ(copied->GetCount(), 1);
  EXPECT_EQ(copy.GetNumSets(EaGroupSetType), eaSets);
  EXPECT_EQ(copy.GetNumSets(GroupSetType), q->GetNumSets(GroupSetType) - 1);
  EXPECT_EQ(copy.GetNumSystems(), q->GetNumSystems() - 1);
  EXPECT_NE(copy.GetOption(RUNTIME_CLASS(CMacro)), nullptr);
  EXPECT_EQ(copy.GetOption(RUNTIME_CLASS(CGroup)), nullptr);
}

TEST(ForeignRecords, EveryOperationTreatsThemByClass) {
  auto p = Reload(StorePersonalityBytes(*Mixed()));

  CStringArray report;
  PrintPersonalityReport(*p, report);
  EXPECT_TRUE(Holds(report, "CSTATUSMESSAGE RECORD:"));
  EXPECT_TRUE(Holds(report, "CPHONECALL RECORD:"));
  const CSet* trunk = p->GetSetAt(0, TrunkSetType);
  EXPECT_TRUE(Holds(report, "   " + std::to_string(trunk->GetCount()) + " - CCONVCHANNEL RECORD:"));

  const std::vector<Finding> findings = CheckPersonality(*p);
  std::vector<std::string> misplaced;
  for (const Finding& f : findings) {
    if (f.code == "RECORD_MISPLACED") misplaced.push_back(f.path + ": " + f.message);
  }
  // An element in the first set of each list (11), each ALIEN set (11) and its element (10: the
  // extended-addressing group in the group set is a group), a record in two lists.
  EXPECT_EQ(misplaced.size(), 34u);
  const auto has = [&](const std::string& s) {
    return std::find(misplaced.begin(), misplaced.end(), s) != misplaced.end();
  };
  EXPECT_TRUE(
      has("sets/eagroup/ALIEN10: is a CGroupSet in the list of CExtAddGroupSet sets; a "
          "copy of the personality keeps its set part"));
  EXPECT_TRUE(has("sets/group/#" + std::to_string(p->GetNumSets(GroupSetType)) +
                  ": is a CPhoneCall record, not a set; nothing can name it"));
  EXPECT_TRUE(has("systems/#" + std::to_string(p->GetNumSystems()) +
                  ": is a CStatusMessage record, not a system; nothing can name it"));
  EXPECT_TRUE(has("sets/trunk/TRK/#" + std::to_string(trunk->GetCount()) +
                  ": is a CConvChannel record where a CTrunkSet holds CTrunkChannel records"));

  const std::vector<BYTE> before = StorePersonalityBytes(*p);
  const Json doc = ExportPersonalityJson(*p);
  auto imported = ImportPersonalityJson(Json::parse(doc.dump()), "mixed.json");
  EXPECT_EQ(test::Hex(before), test::Hex(StorePersonalityBytes(*imported)));
  EXPECT_TRUE(DiffRecords(*p, *imported).empty());

  const MergeResult merged = MergePersonalities(*p, *imported);
  EXPECT_EQ(merged.merged->GetNumSets(EaGroupSetType), 2 * p->GetNumSets(EaGroupSetType));

  EXPECT_GT(RenameSet(*p, GroupSetType, "GRP", "GRP2"), 0);
  EXPECT_GT(RenameSystem(*p, "T1", "T9"), 0);
  CSet* groups = p->GetSet("GRP2", GroupSetType);
  groups->DeleteAt(groups->GetCount() - 1);  // the call in the group set
  EXPECT_EQ(DeleteSet(*p, EaGroupSetType, "ALIEN10"), 0);

  EXPECT_TRUE(p->RemoveUnusedSystemsAndSets());
  for (int t = 0; t < kNumSetTypes; ++t) {
    const auto type = static_cast<SetType>(t);
    for (int i = 0; i < p->GetNumSets(type); ++i) {
      ASSERT_NE(p->GetSetAt(i, type), nullptr) << "list " << t << " #" << i;
      EXPECT_NE(p->GetSetAt(i, type)->GetName().str().rfind("ALIEN", 0), 0u);
    }
  }
  EXPECT_EQ(p->GetSystemAt(p->GetNumSystems() - 1), nullptr);  // not a kind pruning removes
}

TEST(ForeignRecords, RefreshReplacesASetOfAnotherClassByTheFile) {
  const std::string dir = test::FreshDir("foreign_refresh");
  auto* p = Mixed().release();
  std::unique_ptr<CPersonality> owner(p);
  const CString name(AlienName(EaGroupSetType).c_str());
  p->GetSet(name, EaGroupSetType)->SetScope(1);
  CExtAddGroupSet global;
  global.SetName(name);
  global.Add(new CExtAddGroup);
  global.Add(new CExtAddGroup);
  CString path;
  ASSERT_TRUE(GlobalSetPath(CString(dir.c_str()), name, EaGroupSetType, &path));
  ASSERT_TRUE(WriteSet(&global, path, false));
  EXPECT_TRUE(ReadPersonalityGlobalSets(p, CString(dir.c_str())));
  const CSet* refreshed = p->GetSet(name, EaGroupSetType);
  EXPECT_STREQ(refreshed->GetClassName(), "CExtAddGroupSet");
  EXPECT_EQ(refreshed->GetCount(), 2);
}

// Identities of 32 bits print as signed numbers in the report lines.
TEST(ForeignRecords, ReportLinesPrintIdentitiesSigned) {
  CExtAddGroupSet ea;
  auto* group = new CExtAddGroup;
  group->SetEaGrpId(0x80000000u);
  ea.Add(group);
  CP25GroupSet p25;
  auto* p25Group = new CP25Group;
  p25Group->SetGrpId(0xFFFFFFFFu);
  p25Group->SetKeyId(0xFFFFFFFEu);
  p25.Add(p25Group);
  CP25ConvSet conv;
  auto* channel = new CP25ConvChannel;
  channel->SetTgid(4294967295u);
  conv.Add(channel);
  CICallSet calls;
  auto* call = new CICall;
  call->SetDLid(3000000000u);
  calls.Add(call);
  CStringArray out;
  ea.printToBuffer(out);
  p25.printToBuffer(out);
  conv.printToBuffer(out, 1);
  calls.printToBuffer(out, 1, 0);
  EXPECT_TRUE(Holds(out,
                    "                  Group ID          - -2147483648       Calls           "
                    "- On "));
  EXPECT_TRUE(Holds(out, "                  Group ID          - -1   "));
  EXPECT_TRUE(Holds(out,
                    "                  Key ID            - -2          Suppress Key      - "
                    "Off   "));
  EXPECT_TRUE(Holds(out,
                    "                  Talk Group ID     - -1           Sq Mode         - "
                    "NORM"));
  EXPECT_TRUE(std::any_of(out.begin(), out.end(), [](const CString& l) {
    return l.str().find("  -1294967296   ") != std::string::npos;
  }));
}

}  // namespace
}  // namespace persona
