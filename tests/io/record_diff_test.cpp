// Record-level differences: members of named lists are matched by name, option records by
// class and everything else by position; equal records give no difference at all.
#include <gtest/gtest.h>

#include "core/set.h"
#include "io/json/record_diff.h"
#include "options/macro.h"
#include "options/status_message.h"

namespace persona {
namespace {

// A root with the three kinds of list that personalities hold.
class CDiffRoot : public CObject {
  DECLARE_SERIAL(CDiffRoot)
 public:
  CDiffRoot() = default;
  CDiffRoot(const CDiffRoot&) : CObject() {}
  CString m_Name;
  COwnedObList m_Systems{RUNTIME_CLASS(CSet)};
  COwnedObList m_Options;
  template <class V>
  void Fields(V& v) {
    v("Name", m_Name);
    v("Systems", m_Systems);
    v("Options", m_Options);
  }
  PERSONA_FIELDS(CObject)
};
IMPLEMENT_SERIAL(CDiffRoot, CObject, 1)

CSet* NamedSet(const char* name, std::initializer_list<WORD> ids) {
  auto* set = new CSet;
  set->SetName(name);
  for (WORD id : ids) {
    auto* m = new CStatusMessage;
    m->SetName("M");
    m->SetId(id);
    set->Add(m);
  }
  return set;
}

void Fill(CDiffRoot& r, bool changed) {
  r.m_Name = "Demo";
  r.m_Systems.Add(NamedSet("North", {1, 2}));
  r.m_Systems.Add(NamedSet("South", {3}));
  auto* macro = new CMacro;
  macro->SetStroke(changed ? 9 : 4);
  r.m_Options.Add(new CStatusMessage);
  r.m_Options.Add(macro);
  if (changed) {
    // South leaves, West arrives, North's second element changes, and the options swap places.
    r.m_Systems.DeleteAt(1);
    r.m_Systems.Add(NamedSet("West", {}));
    static_cast<CStatusMessage*>(static_cast<CSet*>(r.m_Systems.GetAt(0))->GetAt(1))->SetId(7);
    CObject* first = r.m_Options.Release(0);
    r.m_Options.Add(first);
  }
}

TEST(RecordDiff, EqualRecordsHaveNoDifferences) {
  CRuntimeClass::Register(RUNTIME_CLASS(CDiffRoot));
  CDiffRoot a;
  CDiffRoot b;
  Fill(a, false);
  Fill(b, false);
  EXPECT_TRUE(DiffRecords(a, b).empty());
}

TEST(RecordDiff, MatchesByNameClassAndPosition) {
  CRuntimeClass::Register(RUNTIME_CLASS(CDiffRoot));
  CDiffRoot a;
  CDiffRoot b;
  Fill(a, false);
  Fill(b, true);
  std::vector<std::string> lines;
  for (const RecordDifference& d : DiffRecords(a, b)) {
    const char* kind = d.kind == RecordDifference::Changed ? "changed"
                       : d.kind == RecordDifference::Added ? "added"
                                                           : "removed";
    lines.push_back(std::string(kind) + " " + d.path + " " + d.before + " -> " + d.after);
  }
  EXPECT_EQ(
      lines,
      (std::vector<std::string>{
          "changed Systems/North/Elements/1/Id 2 -> 7",
          "removed Systems/South " +
              std::string(R"({"$class":"CSet","Elements":[{"$class":"CStatusMessage",)"
                          R"("Name":"M","Id":3}],"Name":"South","SetType":0,"Scope":0})") +
              " -> ",
          R"(added Systems/West  -> {"$class":"CSet","Elements":[],"Name":"West","SetType":0,"Scope":0})",
          "changed Options/CMacro/Stroke 4 -> 9",
      }));
}

}  // namespace
}  // namespace persona
