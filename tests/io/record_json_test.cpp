// JSON form of records: exact document of a small record, lossless round trips in both
// directions (shared records stay shared, every byte value of a string survives, non-finite
// doubles), clear failures for documents that describe no valid records.
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
#include "support/expect.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::HasSubstr;
using test::StartsWith;
using ::testing::AllOf;

// A record that refers to key records it does not own, as trunk and group sets do, and to
// shared records of any class.
class CKeyHolder : public CObject {
  DECLARE_SERIAL(CKeyHolder)
 public:
  CKeyHolder() = default;
  CKeyHolder(const CKeyHolder&) = default;
  CString m_Name;
  double m_Freq = 0.0;
  WORD m_Tone[2] = {0, 0};
  CObList m_Any{RUNTIME_CLASS(CObject)};
  CObList m_Keys{RUNTIME_CLASS(CEskData)};
  void Serialize(CArchive& ar) override { SerializeFields(ar, *this); }
  template <class V>
  void Fields(V& v) {
    v("Name", m_Name);
    v("Freq", m_Freq);
    v("Tone", m_Tone);
    v("Any", m_Any);
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
  EXPECT_THAT(text, AllOf(HasSubstr(R"("Keys":[{"$class":"CEskData","$id":1,)"),
                          HasSubstr(R"("Keys":[{"$ref":1}])"),
                          HasSubstr(R"("Freq":{"$f64":"7ffabcdef0123456"})")));

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
      {R"({"$class":"CSet","Elements":[{"$class":"CKeyHolder","Any":[{"$class":"CMacro","$id":1}],)"
       R"("Keys":[{"$ref":1}]}]})",
       "/Elements/0/Keys/0", "a reference to a CMacro where a CEskData is expected"},
      {R"({"$class":"CSet","Elements":[{"$class":"CKeyHolder","Tone":[1]}]})", "/Elements/0/Tone",
       "expected 2 values"},
      {R"({"$class":"CSet","Elements":[{"$class":"CKeyHolder","Freq":{"$f64":"xyz"}}]})",
       "/Elements/0/Freq", "16 hexadecimal digits"},
      {R"({"$class":"CSet","Elements":[{"$class":"CEskData","$id":1}]})", "/Elements/0",
       "a shared record where a record of its own is expected"},
  };
  for (const BadDoc& c : cases) {
    SCOPED_TRACE(c.json);
    const auto e = test::Caught<CJsonImportException>(
        [&] { ImportRecords(Json::parse(c.json), RUNTIME_CLASS(CSet), "bad.json"); });
    EXPECT_EQ(e.m_pointer == "" ? std::string("/") : e.m_pointer, c.pointer);
    EXPECT_THAT(e.what(), AllOf(StartsWith("bad.json: "), HasSubstr(c.words)));
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

TEST_F(RecordJson, IntegersOfADocumentBuiltInCodeKeepTheFieldsRange) {
  // Parsed text holds non-negative integers as unsigned values; a document built in code holds
  // them as signed ones, and the same range applies.
  Json doc = {{"$class", "CSet"}, {"Scope", 255}};
  ASSERT_TRUE(doc["Scope"].is_number_integer() && !doc["Scope"].is_number_unsigned());
  ImportedRecords ok = ImportRecords(doc, RUNTIME_CLASS(CSet), "built.json");
  EXPECT_EQ(static_cast<CSet*>(ok.root.get())->GetScope(), 255);
  for (const int scope : {256, -1}) {
    doc["Scope"] = scope;
    const auto e = test::Caught<CJsonImportException>(
        [&] { ImportRecords(doc, RUNTIME_CLASS(CSet), "built.json"); });
    EXPECT_EQ(e.m_pointer, "/Scope");
    EXPECT_THAT(e.what(), HasSubstr(std::to_string(scope) + " is outside 0..255"));
  }
}

}  // namespace
}  // namespace persona
