// The CSV form of sets: the reader and writer on awkward text, export -> import round trips of
// every set kind, imports that edit, and the faults that must name their row and column.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>

#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/io/csv/set_csv.h>
#include <persona/io/personality_file.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/group_set.h>
#include <persona/systems/trunk_set.h>
#include "sample/sample_personality.h"
#include "support/expect.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

std::vector<std::vector<std::string>> ReadAll(std::string_view text, char delimiter = ',') {
  CsvReader reader(text, delimiter, "t.csv");
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> cells;
  while (reader.Next(cells)) rows.push_back(cells);
  return rows;
}

std::string CsvError(std::string_view text) {
  return test::Caught<CCsvException>([&] { ReadAll(text); }).what();
}

TEST(CsvText, ReadsWhatSpreadsheetsWrite) {
  const std::string text =
      "\xEF\xBB\xBF"
      "a,\"b,c\",\"say \"\"hi\"\"\"\r\n"
      "\r\n"
      "\"two\nlines\",,x\n"
      "\n"
      "last;cell\r"
      "\"\"";
  CsvReader reader(text, ',', "t.csv");
  std::vector<std::string> cells;
  ASSERT_TRUE(reader.Next(cells));
  EXPECT_EQ(cells, (std::vector<std::string>{"a", "b,c", "say \"hi\""}));
  ASSERT_TRUE(reader.Next(cells));
  EXPECT_EQ(reader.Row(), 3u);  // the blank line is a row of the spreadsheet too
  EXPECT_EQ(cells, (std::vector<std::string>{"two\nlines", "", "x"}));
  ASSERT_TRUE(reader.Next(cells));
  EXPECT_EQ(reader.Row(), 5u);  // after a blank line that ends in a line feed alone
  EXPECT_EQ(cells, (std::vector<std::string>{"last;cell"}));
  ASSERT_TRUE(reader.Next(cells));
  EXPECT_EQ(cells, (std::vector<std::string>{""}));
  EXPECT_FALSE(reader.Next(cells));
  EXPECT_EQ(ReadAll("x;\"y;z\"\n", ';'), (std::vector<std::vector<std::string>>{{"x", "y;z"}}));

  EXPECT_EQ(CsvError("a,b\nc,\"open\n"), "t.csv: row 2, column 2: the quoted cell is never closed");
  EXPECT_EQ(CsvError("a,\"b\"c\n"),
            "t.csv: row 1, column 2: text after the closing quote of a quoted cell (a quote "
            "inside a quoted cell is written twice)");
  EXPECT_THROW(CsvReader("", '"', ""), CInvalidArgException);
}

TEST(CsvText, QuotesOnlyWhereNeededOrAsked) {
  std::string out;
  CsvStyle style;
  style.bom = true;
  std::vector<bool> quoted{false, true, true};
  quoted.pop_back();  // fewer flags than cells: a flag's bit left in the storage must not count
  AppendCsvRow({"plain", "12", "x", "a,b", " pad", "q\"", ""}, style, out, &quoted);
  style.delimiter = ';';
  style.crlf = false;
  AppendCsvRow({"a,b", "c;d"}, style, out);
  EXPECT_EQ(out, "\xEF\xBB\xBFplain,\"12\",x,\"a,b\",\" pad\",\"q\"\"\",\r\na,b;\"c;d\"\n");
}

class SetCsv : public ::testing::Test {
 protected:
  void SetUp() override {
    p = BuildSamplePersonality();
    bytes = StorePersonalityBytes(*p);
  }
  CsvImportResult Import(const std::string& csv, bool force = false, SetType type = ConvSetType,
                         const std::string& set = "METRO") {
    CsvImportOptions options;
    options.force = force;
    options.source = "edit.csv";
    return ImportSetCsv(*p, type, set, csv, options);
  }
  std::string ImportError(const std::string& csv) {
    return test::Caught<CCsvException>([&] { Import(csv); }).what();
  }
  CConvChannel* Channel(int i) {
    return static_cast<CConvChannel*>(p->GetSet(CString("METRO"), ConvSetType)->GetAt(i));
  }
  std::unique_ptr<CPersonality> p;
  std::vector<BYTE> bytes;
};

TEST_F(SetCsv, EverySetKindRoundTripsByteForByte) {
  CsvExportOptions styles[2];
  styles[1].words = true;
  styles[1].style = CsvStyle{';', false, true};
  for (const CsvExportOptions& options : styles) {
    for (int type = 0; type < kNumSetTypes; ++type) {
      for (int i = 0; CSet* set = p->GetSetAt(i, static_cast<SetType>(type)); ++i) {
        CsvImportOptions in;
        in.delimiter = options.style.delimiter;
        CsvExportOptions numbers = options;
        numbers.words = false;
        if (options.words && set->GetCount() > 0) {  // every element class has coded fields
          EXPECT_NE(ExportSetCsv(*set, options), ExportSetCsv(*set, numbers)) << type;
        }
        const CsvImportResult r = ImportSetCsv(*p, static_cast<SetType>(type), set->GetName().str(),
                                               ExportSetCsv(*set, options), in);
        EXPECT_EQ(r.rows, static_cast<std::size_t>(set->GetCount()));
        EXPECT_EQ(r.added + r.changed + r.removed, 0u) << set->GetName().str();
      }
    }
    ASSERT_EQ(test::Hex(StorePersonalityBytes(*p)), test::Hex(bytes));
  }
}

TEST_F(SetCsv, AnEditImportsExactlyItsChanges) {
  // Columns reordered and in other letter case, most left out; PD 1 dropped, a channel added
  // at the front, FIRE 1 retuned, a spreadsheet's 15 digits of EMS 1 kept as they were.
  const double ems = std::nextafter(Channel(2)->GetRxFreq(), 1000.0);  // 17 digits to print
  Channel(2)->SetRxFreq(ems);
  bytes = StorePersonalityBytes(*p);
  char ems15[32];
  std::snprintf(ems15, sizeof ems15, "%.15g", ems);
  const std::string csv = std::string("rxfreq, NAME \r\n") + "155.55,NEW 1\r\n" +
                          "851.0375,FIRE 1\r\n" + ems15 + ",EMS 1\r\n";
  CsvImportResult r = Import(csv);
  ASSERT_TRUE(r.blocked);
  ASSERT_EQ(r.references.size(), 1u);
  EXPECT_EQ(r.references[0].path, "sets/conv/METRO/P1Chan");
  EXPECT_EQ(r.references[0].name, "PD 1");
  EXPECT_EQ(test::Hex(StorePersonalityBytes(*p)), test::Hex(bytes)) << "blocked, yet changed";

  const double fire1Tx = Channel(0)->GetTxFreq();
  r = Import(csv, true);
  EXPECT_FALSE(r.blocked);
  EXPECT_EQ(r.rows, 3u);
  EXPECT_EQ(r.added, 1u);
  EXPECT_EQ(r.changed, 1u);
  EXPECT_EQ(r.removed, 14u);
  const CConvSet* set = static_cast<CConvSet*>(p->GetSet(CString("metro"), ConvSetType));
  ASSERT_EQ(set->GetCount(), 3);
  EXPECT_EQ(set->GetP1Chan(), CString());
  EXPECT_EQ(set->GetHomeChan(), CString("FIRE 1"));
  EXPECT_EQ(Channel(0)->GetName(), CString("NEW 1"));
  EXPECT_EQ(Channel(0)->GetSquelch(), CConvChannel(p->GetLastRadio(), 0).GetSquelch());
  EXPECT_EQ(Channel(0)->GetRxFreq(), 155.55);
  EXPECT_EQ(Channel(1)->GetRxFreq(), 851.0375);
  EXPECT_EQ(Channel(1)->GetTxFreq(), fire1Tx);  // a column left out keeps its value
  EXPECT_EQ(Channel(2)->GetRxFreq(), ems);
  // 155.55 MHz is outside the set's band: the one finding the import added.
  ASSERT_EQ(r.addedFindings.size(), 1u);
  EXPECT_EQ(r.addedFindings[0].code, "FREQ_OUT_OF_RANGE");
}

TEST_F(SetCsv, RowsOfOneNameMatchInOrderAndMayMove) {
  // Two elements named DUP: the first row of that name is the first element.
  Channel(1)->SetName(CString("DUP"));
  Channel(3)->SetName(CString("DUP"));
  // A third DUP no row holds goes without touching what names DUP: the name is still there.
  Channel(5)->SetName(CString("DUP"));
  static_cast<CConvSet*>(p->GetSet(CString("METRO"), ConvSetType))->SetHomeChan("DUP");
  const CsvImportResult r = Import("Name,Squelch\nDUP,7\nDUP,8\nFIRE 1,0\n", true);
  EXPECT_TRUE(r.reordered);
  EXPECT_EQ(r.removed, 13u);
  ASSERT_EQ(p->GetSet(CString("METRO"), ConvSetType)->GetCount(), 3);
  EXPECT_EQ(Channel(0)->GetSquelch(), 7);
  EXPECT_EQ(Channel(0)->GetTxCg(), CString("74.1"));  // PD 1's tone: the first DUP
  EXPECT_EQ(Channel(1)->GetSquelch(), 8);
  EXPECT_EQ(Channel(2)->GetName(), CString("FIRE 1"));
  EXPECT_EQ(static_cast<CConvSet*>(p->GetSet(CString("METRO"), ConvSetType))->GetHomeChan(),
            CString("DUP"));
}

TEST_F(SetCsv, FaultsNameRowAndColumnAndChangeNothing) {
  EXPECT_EQ(ImportError("Name,Colour\nA,red\n").substr(0, 88),
            "edit.csv: row 1, column 2: unknown column \"Colour\" (the columns are Name, TxFreq, "
            "RxFreq");
  EXPECT_EQ(ImportError("Name,Squelch\nA,1\nB,300\n"),
            "edit.csv: row 3, column 2: Squelch: \"300\" does not fit: the field holds 0 to 255");
  EXPECT_EQ(ImportError("Name,name\n"), "edit.csv: row 1, column 2: the column Name appears twice");
  EXPECT_EQ(ImportError("RxFreq\n851\n"),
            "edit.csv: row 1, column 2: no Name column (rows are matched to the elements by name)");
  EXPECT_EQ(ImportError("Name,TxCg\n\"A\",\"\xE4\xB8\xAD\"\n"),
            "edit.csv: row 2, column 2: the character \"\xE4\xB8\xAD\" is not in the "
            "personality's code page (Windows-1252)");
  EXPECT_EQ(ImportError("Name,TxCg\n\"A\",\"\xF0\x9F\x93\xBB \xC4\x80\"\n"),  // 4 bytes, 2 bytes
            "edit.csv: row 2, column 2: the character \"\xF0\x9F\x93\xBB\" is not in the "
            "personality's code page (Windows-1252)");
  EXPECT_EQ(ImportError("Name,TxCg\n\"A\",\"\xC4\x80\"\n"),
            "edit.csv: row 2, column 2: the character \"\xC4\x80\" is not in the "
            "personality's code page (Windows-1252)");
  EXPECT_EQ(ImportError("Name\nA\xFF\n"),
            "edit.csv: row 2, column 1: byte 2 of the cell is not UTF-8");
  EXPECT_EQ(ImportError("Name\nA\x80\n"),  // a continuation byte where a character starts
            "edit.csv: row 2, column 1: byte 2 of the cell is not UTF-8");
  EXPECT_EQ(ImportError("Name\nAB\xE4\xB8\n"),  // a sequence cut by the end of the cell
            "edit.csv: row 2, column 1: byte 3 of the cell is not UTF-8");
  EXPECT_EQ(ImportError("Name,RxFreq\nA\n"),
            "edit.csv: row 2, column 2: the row ends after 1 cells; the header has 2");
  EXPECT_EQ(ImportError("Name\nA,,x\n"),
            "edit.csv: row 2, column 3: a value beyond the last column of the header");
  EXPECT_EQ(test::Hex(StorePersonalityBytes(*p)), test::Hex(bytes));
  // Characters of the code page come through; a decimal comma is a decimal point.
  Import("Name,TxCg,RxFreq\n\"FIRE 1\",\"Caf\xC3\xA9\",\"851,5\"\n", true);
  EXPECT_EQ(Channel(0)->GetTxCg(), CString("Caf\xE9"));
  EXPECT_EQ(Channel(0)->GetRxFreq(), 851.5);
}

TEST_F(SetCsv, CountsEveryElementNoRowNamesAsRemovedTheFirstIncluded) {
  const int before = p->GetSet(CString("METRO"), ConvSetType)->GetCount();
  const std::string last = Channel(before - 1)->GetName().str();
  const CsvImportResult r = Import("Name\n" + last + "\n", true);
  EXPECT_EQ(r.removed, static_cast<std::size_t>(before - 1));
  EXPECT_EQ(Channel(0)->GetName().str(), last);
}

TEST_F(SetCsv, MakesMissingSetsAndMatchesNamelessElementsByPosition) {
  CsvImportResult r = Import("Name,RxFreq\nA,851.5\n", false, ConvSetType, "NEWSET");
  EXPECT_TRUE(r.createdSet);
  const CSet* made = p->GetSet(CString("NEWSET"), ConvSetType);
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(made->GetCount(), 1);
  EXPECT_EQ(made->GetSetType(), ConvSetType);

  CSet* trunk = p->GetSetAt(0, TrunkSetType);
  const int before = trunk->GetCount();
  const double txBefore = static_cast<CTrunkChannel*>(trunk->GetAt(0))->GetTxFreq();
  r = Import("RxFreq\n860.5\n", false, TrunkSetType, trunk->GetName().str());
  EXPECT_EQ(r.changed, 1u);
  EXPECT_EQ(r.removed, static_cast<std::size_t>(before - 1));
  ASSERT_EQ(trunk->GetCount(), 1);
  EXPECT_EQ(static_cast<CTrunkChannel*>(trunk->GetAt(0))->GetRxFreq(), 860.5);
  EXPECT_EQ(static_cast<CTrunkChannel*>(trunk->GetAt(0))->GetTxFreq(), txBefore);
}

// A set and element that an import makes take the full defaults of the personality's model
// (flag 0), never the reduced ones; each case is at a model where the two differ. The one cell
// of each row holds the default value of its column, so the element must equal the default one.
TEST_F(SetCsv, MadeSetsAndElementsTakeTheModelsFullDefaults) {
  using Make = std::function<std::unique_ptr<CObject>(unsigned short, int)>;
  const struct {
    SetType type;
    unsigned short model;
    const char* csv;
    Make make;  // the element (or, with no csv row, the set) of a model and flag
  } cases[] = {
      {TrunkSetType, 96, "RxFreq\n0\n",
       [](unsigned short t, int f) { return std::make_unique<CTrunkChannel>(t, f); }},
      {ConvSetType, 1, "Name,RxFreq\n,0\n",
       [](unsigned short t, int f) { return std::make_unique<CConvChannel>(t, f); }},
      {P25ConvSetType, 1, "Name,RxFreq\n,0\n",
       [](unsigned short t, int f) { return std::make_unique<CP25ConvChannel>(t, f); }},
      {GroupSetType, 1, "Name,GrpId\n,0\n",
       [](unsigned short t, int f) { return std::make_unique<CGroup>(t, f); }},
      {EaGroupSetType, 1, "Name,GrpId\n,0\n",
       [](unsigned short t, int f) { return std::make_unique<CExtAddGroup>(t, f); }},
      {TrunkSetType, 77, "RxFreq\n", nullptr},
      {ConvSetType, 54, "Name\n", nullptr},
      {SpCallSetType, 1, "Name\n", nullptr},
  };
  const std::function<std::unique_ptr<CSet>(SetType, unsigned short, int)> madeSet =
      [&](SetType type, unsigned short t, int f) -> std::unique_ptr<CSet> {
    if (type == TrunkSetType) return std::make_unique<CTrunkSet>(t, f, p->GetRxMinFreq());
    if (type == ConvSetType) return std::make_unique<CConvSet>(t, f);
    return std::make_unique<CSpCallSet>(t, f);
  };
  int made = 0;
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "set kind " << c.type << ", model " << c.model);
    const std::string name = "MADE" + std::to_string(++made);
    p->SetLastRadio(c.model);
    ASSERT_TRUE(Import(c.csv, false, c.type, name).createdSet);
    CSet* set = p->GetSet(CString(name), c.type);
    ASSERT_NE(set, nullptr);
    if (c.make) {
      ASSERT_EQ(set->GetCount(), 1);
      ASSERT_NE(test::DumpFields(*c.make(c.model, 0)), test::DumpFields(*c.make(c.model, 1)));
      EXPECT_EQ(test::DumpFields(*set->GetAt(0)), test::DumpFields(*c.make(c.model, 0)));
      continue;
    }
    std::unique_ptr<CSet> full = madeSet(c.type, c.model, 0);
    std::unique_ptr<CSet> reduced = madeSet(c.type, c.model, 1);
    full->SetName(CString(name));
    reduced->SetName(CString(name));
    ASSERT_NE(test::DumpFields(*full), test::DumpFields(*reduced));
    EXPECT_EQ(test::DumpFields(*set), test::DumpFields(*full));
  }
}

}  // namespace
}  // namespace persona
