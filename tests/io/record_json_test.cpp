// JSON form of records: exact document of a small record, lossless round trips in both
// directions (shared records stay shared, every byte value of a string survives, non-finite
// doubles), clear failures for documents that describe no valid records; and record-level
// differences (systems and sets by name, options by class, elements by position, renames).
#include <gtest/gtest.h>

#include <cmath>

#include <persona/conventional/conv_set.h>
#include <persona/core/set.h>
#include <persona/io/json/record_diff.h>
#include <persona/io/json/record_json.h>
#include <persona/options/lumo_opts.h>
#include <persona/options/macro.h>
#include <persona/options/mosaic_opts.h>
#include <persona/options/status_message.h>
#include <persona/options/status_opts.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/trunk_set.h>
#include "sample/sample_personality.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

// A record that refers to key records it does not own, as trunk and group sets do.
class CKeyHolder : public CObject {
  DECLARE_SERIAL(CKeyHolder)
 public:
  CKeyHolder() = default;
  CKeyHolder(const CKeyHolder&) = default;
  CString m_Name;
  double m_Freq = 0.0;
  WORD m_Tone[2] = {0, 0};
  CObList m_Keys{RUNTIME_CLASS(CEskData)};
  void Serialize(CArchive& ar) override { SerializeFields(ar, *this); }
  template <class V>
  void Fields(V& v) {
    v("Name", m_Name);
    v("Freq", m_Freq);
    v("Tone", m_Tone);
    v("Keys", m_Keys);
  }
  PERSONA_FIELDS(CObject)
};
IMPLEMENT_SERIAL(CKeyHolder, CObject, 1)

class RecordJson : public ::testing::Test {
 protected:
  void SetUp() override { CRuntimeClass::Register(RUNTIME_CLASS(CKeyHolder)); }
};

TEST_F(RecordJson, ExactDocumentOfASmallSet) {
  CSet set(PhoneSetType);
  set.SetName("Caf\xE9");
  auto* msg = new CStatusMessage;
  msg->SetName("At Scene");
  msg->SetId(12);
  set.Add(msg);
  JsonExporter exporter;
  EXPECT_EQ(exporter.Export(set).dump(),
            R"({"$class":"CSet","Elements":[{"$class":"CStatusMessage","Name":"At Scene",)"
            R"("Id":12}],"Name":"Café","SetType":3,"Scope":0})");
}

TEST_F(RecordJson, SharedRecordsStaySharedAndBytesSurvive) {
  CEskData key;
  key.SetEskId("Key \x80 one");
  key.SetEsk(-9);
  CSet set;
  set.SetName(std::string("\x01\x7F\x81\x9D\xFF", 5));
  auto* a = new CKeyHolder;
  a->m_Name = "A";
  a->m_Freq = test::NanOfEveryHexDigit();
  a->m_Tone[1] = 7;
  a->m_Keys.AddTail(&key);
  a->m_Keys.AddTail(nullptr);
  auto* b = new CKeyHolder;
  b->m_Name = "B";
  b->m_Freq = 851.0125;
  b->m_Keys.AddTail(&key);
  set.Add(a);
  set.Add(b);
  const std::vector<BYTE> bytes = test::StoreObject(&set);

  JsonExporter exporter;
  const Json doc = exporter.Export(set);
  const std::string text = doc.dump();
  EXPECT_NE(text.find(R"("Keys":[{"$class":"CEskData","$id":1,)"), std::string::npos) << text;
  EXPECT_NE(text.find(R"("Keys":[{"$ref":1}])"), std::string::npos) << text;
  EXPECT_NE(text.find(R"("Freq":{"$f64":"7ffabcdef0123456"})"), std::string::npos) << text;

  ImportedRecords back = ImportRecords(Json::parse(text), RUNTIME_CLASS(CSet), "set.json");
  ASSERT_EQ(back.shared.size(), 1u);
  auto* set2 = static_cast<CSet*>(back.root.get());
  auto* a2 = static_cast<CKeyHolder*>(set2->GetAt(0));
  auto* b2 = static_cast<CKeyHolder*>(set2->GetAt(1));
  EXPECT_EQ(a2->m_Keys.GetAt(0), b2->m_Keys.GetAt(0));
  EXPECT_TRUE(std::isnan(a2->m_Freq));
  EXPECT_EQ(test::Hex(test::StoreObject(set2)), test::Hex(bytes));
  JsonExporter again;
  EXPECT_EQ(again.Export(*set2).dump(), text);
}

struct BadDoc {
  std::string json;
  const char* pointer;
  const char* words;
};

TEST_F(RecordJson, DocumentsThatDescribeNoValidRecordsFailWithTheirPointer) {
  std::string deep = R"({"$class":"CSet"})";  // sets in sets, 41 levels: refused at the 33rd
  std::string deepPointer;
  for (int i = 0; i < 40; ++i) deep = R"({"$class":"CSet","Elements":[)" + deep + "]}";
  for (int i = 0; i < 32; ++i) deepPointer += "/Elements/0";
  const BadDoc cases[] = {
      {deep, deepPointer.c_str(), "nested"},
      {R"({"Name":"x"})", "/", "\"$class\""},
      {R"({"$class":"CNoSuch"})", "/", "unknown record class \"CNoSuch\""},
      {R"({"$class":"CEskData"})", "/", "a CEskData where a CSet is expected"},
      {R"({"$class":"CSet","Colour":1})", "/Colour", "no field \"Colour\""},
      {R"({"$class":"CSet","Scope":256})", "/Scope", "256 is above 255"},
      {R"({"$class":"CSet","Scope":-1})", "/Scope", "outside 0..255"},
      {R"({"$class":"CSet","Name":7})", "/Name", "expected a string"},
      {R"({"$class":"CSet","Name":"\u4e2d"})", "/Name", "Windows-1252"},
      {R"({"$class":"CSet","Elements":[{"$class":"CKeyHolder","Keys":[{"$ref":4}]}]})",
       "/Elements/0/Keys/0", "names no record"},
      {R"({"$class":"CSet","Elements":[{"$class":"CKeyHolder","Keys":[{"$class":"CMacro"}]}]})",
       "/Elements/0/Keys/0", "a CMacro where a CEskData is expected"},
      {R"({"$class":"CSet","Elements":[{"$class":"CKeyHolder","Tone":[1]}]})", "/Elements/0/Tone",
       "expected 2 values"},
      {R"({"$class":"CSet","Elements":[{"$class":"CKeyHolder","Freq":{"$f64":"xyz"}}]})",
       "/Elements/0/Freq", "16 hexadecimal digits"},
      {R"({"$class":"CSet","Elements":[{"$class":"CEskData","$id":1}]})", "/Elements/0",
       "a shared record where a record of its own is expected"},
  };
  for (const BadDoc& c : cases) {
    try {
      ImportRecords(Json::parse(c.json), RUNTIME_CLASS(CSet), "bad.json");
      ADD_FAILURE() << c.json << " was accepted";
    } catch (const CJsonImportException& e) {
      EXPECT_EQ(e.m_pointer == "" ? std::string("/") : e.m_pointer, c.pointer) << c.json;
      EXPECT_NE(std::string(e.what()).find(c.words), std::string::npos) << e.what();
      EXPECT_EQ(std::string(e.what()).rfind("bad.json: ", 0), 0u) << e.what();
    }
  }
}

TEST_F(RecordJson, EveryDescribedFieldOfTheSmallRecordsTravels) {
  for (CObject* rec :
       std::initializer_list<CObject*>{new CEskData, new CMacro, new CStatusMessage}) {
    std::unique_ptr<CObject> owned(rec);
    test::FillFields(*rec, 5);
    JsonExporter exporter;
    ImportedRecords back = ImportRecords(exporter.Export(*rec), rec->GetRuntimeClass());
    EXPECT_EQ(test::DumpFields(*back.root), test::DumpFields(*rec));
  }
}

// Record-level differences: systems and sets matched by name, option records by class,
// elements by position; renames found; records of unexpected classes compared field by field.
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
}

}  // namespace
}  // namespace persona
