// Record-level differences: systems and sets matched by name (sets ignoring case), options by
// class, elements by position with equal ends set aside; renames found; records of another
// class compared field by field.
#include <gtest/gtest.h>

#include <memory>

#include <persona/conventional/conv_set.h>
#include <persona/core/set.h>
#include <persona/io/json/record_diff.h>
#include <persona/options/lumo_opts.h>
#include <persona/options/macro.h>
#include <persona/options/mosaic_opts.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/options/status_message.h>
#include <persona/options/status_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/trunk_set.h>
#include "sample/sample_personality.h"
#include "support/record_testing.h"

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
  // Streamed to a sink, the diff answers how many it handed over (the tool's exit code).
  struct Ignore : DiffSink {
    void Difference(const RecordDifference&) override {}
  } ignore;
  EXPECT_EQ(DiffRecords(*a, *b, ignore), 8U);
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
  AddConvSets(a, {{"Alpha", "X"}, {"ALPHA", "Y"}, {"Beta", "Z"}, {"Old", "W"}, {"aLpHa", "R"}});
  AddConvSets(b, {{"New", "W"}, {"alpha", "X"}, {"Gamma", "Z"}, {"ALPHA", "Y2"}});
  // "New" differs from "Old" in more than its name (the power of its channel): no rename.
  static_cast<CConvChannel*>(b.GetSet("New", ConvSetType)->GetAt(0))->SetPower(2);
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
                // A third set of a name that b holds twice has no partner.
                R"(removed sets/conv/#5 /ConvSets/4 {"$class":"CConvSet","Elements":[{"$clas -> )"
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
  // Lists of unequal length set aside their equal ends first: a record whose own list differs
  // only after its first entry is not one of them.
  CSet c;
  CSet d;
  for (CSet* set : {&c, &d}) {
    auto* messages = new CMessage;
    for (const char* name : {"ONE", set == &c ? "TWO" : "2"}) {
      auto* m = new CStatusMessage;
      m->SetName(name);
      messages->AddMessage(m);
    }
    set->Add(messages);
  }
  d.Add(new CMacro);
  EXPECT_EQ(
      Lines(c, d),
      (std::vector<std::string>{
          R"(changed sets/trunk//#1/Messages/#2/Name /Elements/0/Messages/1/Name "TWO" -> "2")"
          R"( [trunk elements f])",
          R"(added sets/trunk//#2 /Elements/1  -> {"$class":"CMacro","Activate":0,"Stroke")"
          R"( [trunk elements w])",
      }));
  // Two classes whose fields have the same types in the same order but other names: paired by
  // name, never by position.
  CMosaicOpts mosaic;
  CFennOpts fenn;
  mosaic.SetUdpPort(7);
  fenn.SetRefOsc(7);
  EXPECT_EQ(Lines(mosaic, fenn),
            (std::vector<std::string>{
                R"(changed $class /$class "CMosaicOpts" -> "CFennOpts" [records f])",
                "removed UdpPort /UdpPort 7 ->  [records]",
                "removed PowerUpState /PowerUpState 0 ->  [records]",
                "added RefOsc /RefOsc  -> 7 [records]",
                "added PowerButton /PowerButton  -> 0 [records]",
            }));
  // A field both classes hold, of one type and one value, is no difference.
  CStatusMessage message;
  CToneSeq tones;
  message.SetName("N");
  test::SetFields(tones, {"Name=N"});
  for (const std::string& line : Lines(message, tones))
    EXPECT_NE(line.rfind("changed Name", 0), 0u);
}

// Elements of one set (trunk set T) holding status messages of the given names.
void AddMessages(CSet& set, std::initializer_list<const char*> names) {
  set.SetName("T");
  for (const char* name : names) {
    auto* m = new CStatusMessage;
    m->SetName(name);
    set.Add(m);
  }
}

// The first 40 characters of a status message's JSON form, as Lines cuts it.
std::string Whole(const char* name) {
  return (R"({"$class":"CStatusMessage","Name":")" + std::string(name) + R"(","Id":0})")
      .substr(0, 40);
}

TEST(RecordDiff, EqualEndsSetAsideNeverOverlapTheEqualStart) {
  const struct {
    std::initializer_list<const char*> a, b;
    std::vector<std::string> lines;
  } cases[] = {
      // The second X is the one added: the first pairs with a's X at the start, and the end
      // trimming stops there. A name held twice names its element by position.
      {{"X"},
       {"X", "X"},
       {"added sets/trunk/T/#2 /Elements/1  -> " + Whole("X") + " [trunk elements w]"}},
      {{"X", "X"},
       {"X"},
       {"removed sets/trunk/T/#2 /Elements/1 " + Whole("X") + " ->  [trunk elements w]"}},
      {{}, {"Y"}, {"added sets/trunk/T/Y /Elements/0  -> " + Whole("Y") + " [trunk elements w]"}},
      {{"Y"}, {}, {"removed sets/trunk/T/Y /Elements/0 " + Whole("Y") + " ->  [trunk elements w]"}},
      {{"A", "X", "B"},
       {"A", "X", "X", "B"},
       {"added sets/trunk/T/#3 /Elements/2  -> " + Whole("X") + " [trunk elements w]"}},
  };
  for (const auto& c : cases) {
    CSet a;
    CSet b;
    AddMessages(a, c.a);
    AddMessages(b, c.b);
    EXPECT_EQ(Lines(a, b), c.lines) << c.a.size() << " -> " << c.b.size();
  }
}

// A record whose fields live outside the object, in a block it holds by pointer: the diff cannot
// reach them by their offsets in the object and goes through the record's own field table.
class CHeldFields : public CObject {
  DECLARE_SERIAL(CHeldFields)
 public:
  struct Data {
    CString name;
    WORD code = 0;
    CObList keys{RUNTIME_CLASS(CEskData)};
  };
  CHeldFields() : m_data(std::make_unique<Data>()) {}
  CHeldFields(const CHeldFields& o) : CObject(o), m_data(std::make_unique<Data>(*o.m_data)) {}
  Data& data() { return *m_data; }
  void Serialize(CArchive& ar) override { SerializeFields(ar, *this); }
  template <class V>
  void Fields(V& v) {
    v("Name", m_data->name);
    v("Code", m_data->code);
    v("Keys", m_data->keys);
  }
  PERSONA_FIELDS(CObject)

 private:
  std::unique_ptr<Data> m_data;
};
IMPLEMENT_SERIAL(CHeldFields, CObject, 1)

TEST(RecordDiff, RecordsWhoseFieldsLiveOutsideTheObjectCompareThroughTheirFieldTable) {
  CEskData k1;
  CEskData k2;
  const auto add = [](CSet& set, WORD code, std::initializer_list<CEskData*> keys) {
    auto* rec = new CHeldFields;
    rec->data().name = "P";
    rec->data().code = code;
    for (CEskData* k : keys) rec->data().keys.AddTail(k);
    set.SetName("T");
    set.Add(rec);
  };
  // b's first record holds a's keys and one more: a different record, added in front.
  CSet a;
  CSet b;
  add(a, 0, {&k1});
  add(b, 0, {&k1, &k2});
  add(b, 0, {&k1});
  // A field of the one record changed.
  CSet c;
  CSet d;
  add(c, 1, {&k1});
  add(d, 2, {&k1});
  EXPECT_EQ(Lines(a, b), (std::vector<std::string>{
                             R"(added sets/trunk/T/#1 /Elements/0  -> {"$class":"CHeldFields",)"
                             R"("Name":"P","Code [trunk elements w])"}));
  EXPECT_EQ(Lines(c, d),
            (std::vector<std::string>{
                "changed sets/trunk/T/P/Code /Elements/0/Code 1 -> 2 [trunk elements f]"}));
}

TEST(RecordDiff, ListsAndTablesOfValuesDifferByAnyValueOrTheirLength) {
  CPlmGroup a;
  CPlmGroup b;
  for (int i = 0; i < 4; ++i) {
    a.SetTone(i, static_cast<WORD>(i + 1));
    b.SetTone(i, static_cast<WORD>(i + 1));
  }
  EXPECT_TRUE(Lines(a, b).empty());
  b.SetTone(3, 9);
  EXPECT_EQ(Lines(a, b),
            (std::vector<std::string>{"changed Tone /Tone [1,2,3,4] -> [1,2,3,9] [records f]"}));
  // A list of numbers and a list of strings one entry longer.
  CPersonality c;
  CPersonality d;
  c.AddRadioType(101);
  d.AddRadioType(101);
  d.AddRadioType(102);
  CScratchPadOpts e;
  CScratchPadOpts f;
  e.AddPhoneNumber("911");
  f.AddPhoneNumber("911");
  f.AddPhoneNumber("");
  EXPECT_EQ(
      Lines(c, d),
      (std::vector<std::string>{"changed RadioTypes /RadioTypes [101] -> [101,102] [header f]"}));
  EXPECT_EQ(Lines(e, f),
            (std::vector<std::string>{
                R"(changed PhoneNumbers /PhoneNumbers ["911"] -> ["911",""] [records f])"}));
}

// A message list record holding one status message of the given name.
CMessage* Messages(const char* name) {
  auto* messages = new CMessage;
  auto* m = new CStatusMessage;
  m->SetName(name);
  messages->AddMessage(m);
  return messages;
}

TEST(RecordDiff, PositionalListsCompareRecordsWithListsOfTheirOwnAndEmptyPlaces) {
  // A record inserted in front of an equal one that holds a list: the equal ends are set aside.
  CSet a;
  CSet b;
  a.Add(Messages("ONE"));
  b.Add(Messages("TWO"));
  b.Add(Messages("ONE"));
  const std::string messages = R"({"$class":"CMessage","Messages":[{"$clas)";
  EXPECT_EQ(Lines(a, b), (std::vector<std::string>{"added sets/trunk//#1 /Elements/0  -> " +
                                                   messages + " [trunk elements w]"}));
  // An empty place against a record, and a record against an empty place.
  CSet c;
  CSet d;
  c.Add(Messages("ONE"));
  c.Add(nullptr);
  d.Add(nullptr);
  d.Add(Messages("ONE"));
  EXPECT_EQ(Lines(c, d),
            (std::vector<std::string>{
                "changed sets/trunk//#1 /Elements/0 " + messages + " -> null [trunk elements w]",
                "changed sets/trunk//#2 /Elements/1 null -> " + messages + " [trunk elements w]"}));
}

}  // namespace
}  // namespace persona
