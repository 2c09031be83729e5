// Conventional channels and channel sets: the archive layout of every schema, stored bytes,
// equality, the frequency check, copy rules, references, model defaults and report lines.
#include <persona/conventional/conv_set.h>

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>
#include <type_traits>

#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::ExpectLines;
using test::Hex;

// The channel's archive layout as the format gives it: each field, its width in bytes (0 for a
// string, 8 for a double) and the schema that added it.
struct LayoutField {
  std::string name;
  int width;
  unsigned since;
};
std::vector<LayoutField> ChannelLayout() {
  const struct {
    unsigned since;
    int width;
    const char* names;  // a run of fields of one width and schema, in order
  } runs[] = {
      {1, 0, "Name"},
      {1, 8, "TxFreq RxFreq"},
      {1, 0, "TxCg RxCg"},
      {1, 2, "TxAddr RxAddr"},
      {1, 1, "CCT Scan Backlight AlertTone Power TxBusy FixPower PreAmp Ste T99"},
      {1, 2, "T99Table"},
      {1, 1, "Vantor VantorSte VantorCg"},
      {1, 2, "VantorSend"},
      {1, 1, "T99SuperGrp T99Grp T99QuickCall T99Indv Os"},
      {1, 2, "OscShift KwKey"},
      {1, 1, "T99WithCg BandWidth ToneEncode"},
      {3, 1,
       "CtrlUnitOscShift Dtmf MultiTone MessType ICall GroupCall AllCall InterCall "
       "RadioDis RadioEn ResetCall Repeater TxInvDcg RxInvDcg"},
      {4, 1, "TxOs"},
      {5, 1, "SteRx"},
      {6, 1, "SignallingOrCG"},
      {7, 1, "T99AndRxCg TxOscShift RxOscShift UsaPower EuroPower CgBusyLockout 2ndLoInj Squelch"},
      {8, 1, "Npspac"},
      {9, 1, "DataEnable"},
      {10, 1, "CgSel Talkaround"}};
  std::vector<LayoutField> layout;
  for (const auto& run : runs) {
    std::istringstream names(run.names);
    for (std::string name; names >> name;) layout.push_back({name, run.width, run.since});
  }
  return layout;
}

// The described fields of a record by name: numbers as integers, doubles and strings as text.
struct FieldMap {
  std::map<std::string, long long> numbers;
  std::map<std::string, double> reals;
  std::map<std::string, std::string> texts;
};

FieldMap MapOf(CObject& rec) {
  FieldMap map;
  test::ForEachField(rec, [&map](const FieldInfo& f, auto&& v) {
    using T = std::decay_t<decltype(v)>;
    if constexpr (std::is_same_v<T, double>) {
      map.reals[f.name] = v;
    } else if constexpr (std::is_same_v<T, CString>) {
      map.texts[f.name] = v.str();
    } else if constexpr (std::is_arithmetic_v<T>) {
      map.numbers[f.name] = v;
    }
  });
  return map;
}

// The bytes of a channel stored with schema (up to 10), in the layout above, from the values
// of the record's fields.
Bytes& AppendChannel(Bytes& b, CConvChannel& c, unsigned schema = 10) {
  const FieldMap map = MapOf(c);
  for (const LayoutField& f : ChannelLayout()) {
    if (f.since > schema) continue;
    if (f.width == 0) b.Str(map.texts.at(f.name));
    if (f.width == 8) b.F64(map.reals.at(f.name));
    if (f.width == 2) b.U16(static_cast<unsigned>(map.numbers.at(f.name)));
    if (f.width == 1) b.U8(static_cast<unsigned>(map.numbers.at(f.name)));
  }
  return b;
}

TEST(ConvChannel, LoadsEveryOlderSchemaWithLaterFieldsAtTheirDefaults) {
  CConvChannel defaults;
  const FieldMap initial = MapOf(defaults);
  for (unsigned schema = 1; schema <= 10; ++schema) {
    CConvChannel source;
    test::FillFields(source, static_cast<int>(schema));
    Bytes bytes;
    bytes.NewClass("CConvChannel", schema);
    AppendChannel(bytes, source, schema);
    std::vector<std::unique_ptr<CObject>> pool;
    auto loaded = test::LoadSharing<CConvChannel>(bytes, pool);
    const FieldMap written = MapOf(source);
    const FieldMap read = MapOf(*loaded);
    for (const LayoutField& f : ChannelLayout()) {
      if (f.width != 1 && f.width != 2) continue;
      const long long want =
          f.since <= schema ? written.numbers.at(f.name) : initial.numbers.at(f.name);
      EXPECT_EQ(want, read.numbers.at(f.name)) << f.name << " at schema " << schema;
    }
    EXPECT_EQ(written.texts.at("RxCg"), read.texts.at("RxCg"));
    Bytes current;  // stored again: schema 10, every field
    current.NewClass("CConvChannel", 10);
    EXPECT_EQ(Hex(AppendChannel(current, *loaded)), Hex(test::StoreObject(loaded.get())));
  }
}

void FillSet(CConvSet& set) {
  test::SetFields(
      set, {"Name=CITY", "TxMinFreq=150", "TxMaxFreq=174", "RxMinFreq=136", "RxMaxFreq=174",
            "HomeChan=CH1", "P1Chan=CH2", "P2Chan=CH1", "WideScanChan=CH3", "AltPttChan=CH2",
            "Dtmf=1", "T99wcg=0", "T99Super=1", "T99Group=2", "T99IndvDec=3", "T99QuickCall=4",
            "T99ToneSet=1286", "DataCCT=600"});
  set.Add(test::Channel<CConvChannel>("CH1", 154.25, 154.25));
  set.Add(test::Channel<CConvChannel>("CH2", 0.0, 155.5));
}

TEST(ConvSet, LoadsOlderSchemas) {
  auto setBytes = [](unsigned schema) {
    Bytes b;
    b.NewClass("CConvSet", schema).Count(0).Str("OLD").U8(1).U8(0);
    b.F64(150.0).F64(136.0).F64(174.0).F64(174.0).Str("H").Str("P1").Str("P2").Str("W").U8(0);
    if (schema >= 2) b.U8(1).U8(1).U8(1).U8(1).U8(1).U16(7);
    if (schema >= 3) b.U16(30);
    if (schema >= 4) b.Str("ALT");
    return b;
  };
  std::vector<std::unique_ptr<CObject>> pool;
  auto s1 = test::LoadSharing<CConvSet>(setBytes(1), pool);
  test::ExpectFields(*s1, {"Dtmf=0", "T99Super=0", "T99ToneSet=0", "DataCCT=0",
                           "AltPttChan=", "RxMinFreq=136", "TxMaxFreq=174", "WideScanChan=W"});
  auto s2 = test::LoadSharing<CConvSet>(setBytes(2), pool);
  test::ExpectFields(*s2, {"T99wcg=1", "T99ToneSet=7", "DataCCT=0"});
  auto s3 = test::LoadSharing<CConvSet>(setBytes(3), pool);
  test::ExpectFields(*s3, {"DataCCT=30", "AltPttChan="});
  auto s4 = test::LoadSharing<CConvSet>(setBytes(4), pool);
  test::ExpectFields(*s4, {"AltPttChan=ALT"});
  EXPECT_EQ(Hex(setBytes(4)), Hex(test::StoreObject(s4.get())));
}

TEST(ConvSet, EqualityRules) {
  CConvChannel a, b;
  a.SetTxFreq(154.250001);
  b.SetTxFreq(154.250009);  // less than 10 Hz apart, same step
  EXPECT_TRUE(a == b);
  b.SetTxFreq(154.24999);  // less than 10 Hz apart, the step below
  EXPECT_FALSE(a == b);
  b.SetTxFreq(a.GetTxFreq());
  a.SetName("CH1");
  b.SetName("ch1");
  EXPECT_FALSE(a == b);
  b.SetName("CH1");
  b.SetTalkaround(0);  // the last field takes part too
  EXPECT_FALSE(a == b);
  b.SetTalkaround(1);
  b.SetRxCg("D023");
  EXPECT_FALSE(a == b);

  CConvSet x, y;
  FillSet(x);
  FillSet(y);
  y.SetName("OTHER");
  y.SetTxMinFreq(450.0);
  y.SetRxMaxFreq(470.0);
  EXPECT_TRUE(x == y);
  y.SetAltPttChan("CH1");
  EXPECT_FALSE(x == y);
  y.SetAltPttChan(x.GetAltPttChan());
  y.GetChannelAt(1)->SetScan(1);
  EXPECT_FALSE(x == y);
}

TEST(ConvSet, CopyConstructorCarriesDtmfIntoT99wcgWhileAssignmentDoesNot) {
  CConvSet source;
  FillSet(source);
  source.SetDtmf(1);
  source.SetT99wcg(0);
  CConvSet copy(source);
  EXPECT_EQ(1, copy.GetT99wcg());
  EXPECT_FALSE(copy == source);
  EXPECT_EQ(2, copy.GetSize());
  EXPECT_EQ("CH3", copy.GetWideScanChan());

  CConvSet assigned;
  assigned.Add(test::Channel<CConvChannel>("GONE", 1.0, 1.0));
  assigned = &source;
  EXPECT_EQ(0, assigned.GetT99wcg());
  EXPECT_TRUE(assigned == source);
  EXPECT_EQ(-1, assigned.FindChannelIndex("GONE"));
  EXPECT_DOUBLE_EQ(150.0, assigned.GetTxMinFreq());
}

TEST(ConvSet, LookupsAndReferences) {
  CConvSet set;
  EXPECT_EQ(-1, set.FindChannelIndex("CH1"));
  FillSet(set);
  set.Add(test::Channel<CConvChannel>("", 0.0, 160.0));
  EXPECT_EQ(-1, set.FindChannelIndex(""));
  EXPECT_EQ(1, set.FindChannelIndex("CH2"));
  EXPECT_EQ(nullptr, set.GetChannelAt(3));
  CStringArray names;
  set.GetNames(names);
  ASSERT_EQ(3, names.GetSize());
  EXPECT_EQ("CH2", names[1]);

  set.DeleteSetReferencesToChan("CH1");  // both the home and the priority 2 channel
  EXPECT_EQ("", set.GetHomeChan());
  EXPECT_EQ("", set.GetP2Chan());
  EXPECT_EQ("CH2", set.GetP1Chan());
  EXPECT_EQ(3, set.GetSize());

  set.DeleteAt(1);  // CH2 is the priority 1 and alternate-PTT channel
  EXPECT_EQ("", set.GetP1Chan());
  EXPECT_EQ("", set.GetAltPttChan());
  EXPECT_EQ("CH3", set.GetWideScanChan());
  EXPECT_EQ(2, set.GetSize());
}

TEST(ConvSet, FrequencyCheckEdges) {
  auto check = [](double tx, double rx, double first) {
    CConvSet set;
    set.Add(test::Channel<CConvChannel>("C", tx, rx));
    return set.CheckFrequencyRange(first, -1.0, 851.0, 870.0);
  };
  // Above 800 MHz: tolerance on the transmit upper test, none on the receive upper test.
  EXPECT_EQ(1, check(870.0000005, 860.0, 806.0));
  EXPECT_EQ(0, check(820.0, 870.0000005, 806.0));
  EXPECT_EQ(1, check(820.0, 870.0, 806.0));
  EXPECT_EQ(0, check(820.0, 850.0, 806.0));
  EXPECT_EQ(1, check(0.0, 860.0, 806.0));
  EXPECT_EQ(0, check(805.0, 860.0, 806.0));
  // At 800 MHz and below: no receive lower test, tolerance on the receive upper test.
  EXPECT_EQ(1, check(820.0, 850.0, 800.0));
  EXPECT_EQ(1, check(900.0, 870.0000005, 800.0));
  EXPECT_EQ(0, check(820.0, 870.00001, 800.0));
  EXPECT_EQ(0, check(799.0, 850.0, 800.0));
  EXPECT_EQ(1, CConvSet().CheckFrequencyRange(806.0, 0.0, 851.0, 870.0));
}

}  // namespace
}  // namespace persona

namespace persona {
namespace {

// Each channel's report block ends with the lines of its model family: LUMO options (30), DTMF
// and transmit oscillator (29, 33), Coyle 300 options (27, 28), nothing more for the others.
TEST(ConvSet, ChannelReportAddsTheLinesOfTheModelFamily) {
  CConvSet set;
  set.Add(test::Channel<CConvChannel>("C", 851.0, 851.0));
  auto firstExtra = [&](unsigned short radioType) {
    CStringArray plain;
    CStringArray out;
    set.printToBuffer(plain, 1, 68, 806.0);
    set.printToBuffer(out, 1, radioType, 806.0);
    const int extra = out.GetSize() - plain.GetSize();
    return std::to_string(extra) + (extra > 0 ? " " + out[plain.GetSize() - 2].str() : "");
  };
  const std::pair<unsigned short, const char*> families[] = {{30, "LUMO Channel Options"},
                                                             {29, "DTMF"},
                                                             {33, "DTMF"},
                                                             {27, "Coyle 300 Channel Options"},
                                                             {28, "Coyle 300 Channel Options"}};
  for (const auto& [radioType, heading] : families) {
    EXPECT_NE(firstExtra(radioType).find(heading), std::string::npos)
        << radioType << ": " << firstExtra(radioType);
  }
  for (unsigned short other : {31, 32, 34, 26, 54, 103}) EXPECT_EQ(firstExtra(other), "0");
}

}  // namespace
}  // namespace persona
