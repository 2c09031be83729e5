// Record-level differences: systems and sets matched by name, option records by class,
// elements by position; renames found; records of unexpected classes compared field by field.
#include <gtest/gtest.h>

#include <persona/conventional/conv_set.h>
#include <persona/core/set.h>
#include <persona/io/json/record_diff.h>
#include <persona/options/macro.h>
#include <persona/options/status_message.h>
#include <persona/systems/trunk_set.h>
#include "sample/sample_personality.h"

namespace persona {
namespace {

const char* const kKinds[] = {"changed", "added", "removed", "renamed"};

// "KIND PATH POINTER BEFORE -> AFTER [GROUP w(hole) f(irst)]" per difference, values cut at 40.
std::vector<std::string> Lines(CObject& a, CObject& b) {
  std::vector<std::string> lines;
  for (const RecordDifference& d : DiffRecords(a, b)) {
    lines.push_back(std::string(kKinds[d.kind]) + " " + d.path + " " + d.pointer + " " +
                    d.before.substr(0, 40) + " -> " + d.after.substr(0, 40) + " [" + d.group +
                    (d.wholeRecord ? " w" : "") + (d.firstOfRecord ? " f" : "") + "]");
  }
  return lines;
}

CConvSet& Conv(CPersonality& p, const char* name) {
  return *static_cast<CConvSet*>(p.GetSet(name, ConvSetType));
}

TEST(RecordDiff, PersonalitiesByNameClassAndPositionWithRenames) {
  auto a = BuildSamplePersonality();
  auto b = BuildSamplePersonality();
  EXPECT_TRUE(DiffRecords(*a, *b).empty());

  b->SetName("EDITED");
  Conv(*b, "METRO").SetName("DOWNTOWN");  // only the name: a rename
  auto& north = Conv(*b, "NORTH");
  static_cast<CConvChannel*>(north.GetAt(0))->SetRxFreq(155.5);
  static_cast<CConvChannel*>(north.GetAt(0))->SetName("NEW 1");
  static_cast<CConvChannel*>(north.GetAt(1))
      ->SetName(static_cast<CConvChannel*>(north.GetAt(2))->GetName());
  north.Add(new CConvChannel);
  Conv(*b, "SOUTH").InsertAt(1, new CConvChannel);  // an insertion shifts nothing after it
  b->DeleteOption(a->GetOptionAt(0)->GetRuntimeClass());
  EXPECT_EQ(Lines(*a, *b),
            (std::vector<std::string>{
                R"(changed Name /Name "SAMPLE COUNTY" -> "EDITED" [header f])",
                R"(renamed sets/conv/METRO /ConvSets/0 "METRO" -> "DOWNTOWN" [conv sets w])",
                // Elements are named as in a: by name where the name is unique in the set.
                R"(changed sets/conv/NORTH/FIRE 1/Name /ConvSets/1/Elements/0/Name "FIRE 1" -> )"
                R"("NEW 1" [conv elements f])",
                "changed sets/conv/NORTH/FIRE 1/RxFreq /ConvSets/1/Elements/0/RxFreq "
                "851.2125000000001 -> 155.5 [conv elements]",
                R"(changed sets/conv/NORTH/PD 1/Name /ConvSets/1/Elements/1/Name "PD 1" -> )"
                R"("EMS 1" [conv elements f])",
                R"(added sets/conv/NORTH/#17 /ConvSets/1/Elements/16  -> {"$class":"CConvChannel",)"
                R"("Name":"","TxFr [conv elements w])",
                R"(added sets/conv/SOUTH/#2 /ConvSets/2/Elements/1  -> {"$class":"CConvChannel",)"
                R"("Name":"","TxFr [conv elements w])",
                R"(removed options/CGenRadioOpts /Options/0 {"$class":"CGenRadioOpts","LowMicAudio)"
                R"(": ->  [options w])",
            }));
}

// Conventional sets of the given names, each holding one channel of the paired name.
void AddConvSets(CPersonality& p, std::initializer_list<std::pair<const char*, const char*>> sets) {
  for (const auto& [name, channel] : sets) {
    auto* set = new CConvSet;
    set->SetName(name);
    auto* c = new CConvChannel;
    c->SetName(channel);
    set->Add(c);
    p.AddSet(set, ConvSetType);
  }
}

TEST(RecordDiff, SetsPairByNameIgnoringCaseInTurnAndLeftOversAreRenames) {
  CPersonality a;
  CPersonality b;
  AddConvSets(a, {{"Alpha", "X"}, {"ALPHA", "Y"}, {"Beta", "Z"}, {"Old", "W"}});
  AddConvSets(b, {{"New", "V"}, {"alpha", "X"}, {"Gamma", "Z"}, {"ALPHA", "Y2"}});
  // Trunk sets, the first list, pair by name as well: "B" moved in front is no change.
  for (auto [p, names] : {std::pair{&a, "AB"}, std::pair{&b, "BA"}}) {
    for (const char* n = names; *n != 0; ++n) {
      auto* trunk = new CTrunkSet;
      trunk->SetName(std::string(n, 1).c_str());
      p->AddSet(trunk, TrunkSetType);
    }
  }
  EXPECT_EQ(Lines(a, b),
            (std::vector<std::string>{
                R"(changed sets/conv/Alpha/Name /ConvSets/0/Name "Alpha" -> "alpha" [conv sets f])",
                // The second set of a name is named by its position.
                R"(changed sets/conv/#2/Y/Name /ConvSets/1/Elements/0/Name "Y" -> "Y2" )"
                "[conv elements f]",
                R"(renamed sets/conv/Beta /ConvSets/2 "Beta" -> "Gamma" [conv sets w])",
                R"(removed sets/conv/Old /ConvSets/3 {"$class":"CConvSet","Elements":[{"$clas -> )"
                " [conv sets w]",
                R"(added sets/conv/New /ConvSets/0  -> {"$class":"CConvSet","Elements":[{"$clas )"
                "[conv sets w]",
            }));
}

TEST(RecordDiff, RecordsOfAnotherClassAreComparedFieldByField) {
  CSet a;
  CSet b;
  a.SetName("T");
  b.SetName("t");
  for (CSet* set : {&a, &b}) {
    auto* m = new CStatusMessage;
    m->SetName("M");
    m->SetId(1);
    set->Add(m);
  }
  auto* n = new CStatusMessage;
  n->SetName("N");
  n->SetId(2);
  a.Add(n);
  auto* macro = new CMacro;
  macro->SetStroke(9);
  b.Add(macro);
  // The element of another class: its class, then the fields by name (added ones named as in b).
  EXPECT_EQ(Lines(a, b),
            (std::vector<std::string>{
                R"(changed sets/trunk/T/N/$class /Elements/1/$class "CStatusMessage")"
                R"( -> "CMacro" [trunk elements f])",
                R"(removed sets/trunk/T/N/Name /Elements/1/Name "N" ->  [trunk elements])",
                "removed sets/trunk/T/N/Id /Elements/1/Id 2 ->  [trunk elements]",
                "added sets/trunk/T/#2/Activate /Elements/1/Activate  -> 0 [trunk elements]",
                "added sets/trunk/T/#2/Stroke /Elements/1/Stroke  -> 9 [trunk elements]",
                R"(changed sets/trunk/T/Name /Name "T" -> "t" [trunk sets f])",
            }));
}

}  // namespace
}  // namespace persona
