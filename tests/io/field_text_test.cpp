// Field values as text: each field type reads and writes its own forms, refuses what does not
// fit with a message naming the accepted values, and leaves the record alone when it refuses.
#include <persona/io/field_text.h>

#include <gtest/gtest.h>

#include <persona/conventional/conv_set.h>
#include <persona/options/alarm_opts.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/p25_otar_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/personality/personality.h>
#include <persona/systems/plm_group_set.h>
#include "support/expect.h"

namespace persona {
namespace {

std::string Get(const CObject& rec, const char* field, bool words = false) {
  std::string out = "<none>";
  GetFieldText(rec, field, out, words);
  return out;
}

std::string Refusal(CObject& rec, const char* field, const char* text) {
  return test::Caught<FieldTextError>([&] { SetFieldText(rec, field, text); }).what();
}

TEST(FieldText, CodedSwitchAndHexFieldsTakeWordsOrNumbers) {
  CAlarmOpts alarm;
  SetFieldText(alarm, "Alarm1Active", "high");
  EXPECT_EQ(Get(alarm, "Alarm1Active", true), "High");
  EXPECT_EQ(Get(alarm, "Alarm1Active"), "1");
  SetFieldText(alarm, "Alarm1Active", "0");
  EXPECT_EQ(Get(alarm, "Alarm1Active", true), "Low");
  EXPECT_EQ(Refusal(alarm, "Alarm1Active", "Medium"),
            "\"Medium\" is not one of Low, High (or their numbers 0 to 1)");
  EXPECT_EQ(Refusal(alarm, "Alarm1Active", "2"),
            "\"2\" is not a code of Low, High: give a word or a number from 0 to 1");
  SetFieldText(alarm, "Alarm1On", "On");
  EXPECT_EQ(Get(alarm, "Alarm1On", true), "On");
  EXPECT_EQ(Get(alarm, "Alarm1On"), "1");
  EXPECT_EQ(Refusal(alarm, "Alarm1On", "maybe"), "\"maybe\" is not a switch: give On or Off");
  SetFieldText(alarm, "Alarm1Pattern", "0x1f");
  EXPECT_EQ(Get(alarm, "Alarm1Pattern", true), "0x1F");
  EXPECT_EQ(Get(alarm, "Alarm1Pattern"), "31");
  EXPECT_EQ(Get(alarm, "Alarm1Active"), "0");  // refusals changed nothing
  EXPECT_EQ(Get(alarm, "alarm1on"), "1");      // field names: any case when unambiguous
  CP25TrkWan wan;                              // a 16-bit hexadecimal code
  SetFieldText(wan, "SystemId", "0xABC");
  EXPECT_EQ(Get(wan, "SystemId", true), "0xABC");
  EXPECT_EQ(Get(wan, "SystemId"), "2748");
}

// A coded field whose word table has a gap: code 1 has no word of its own.
const char* const kGappedWords[] = {"Low", "", "High"};
struct Gapped : CObject {
  BYTE level = 0;
  template <class V>
  void Fields(V& v) {
    v("Level", level, WordsOf(kGappedWords));
  }
  PERSONA_FIELDS(CObject)
};

TEST(FieldText, RefusalsListTheWordsOfACodeWithoutItsGaps) {
  Gapped rec;
  EXPECT_EQ(Refusal(rec, "Level", "Medium"),
            "\"Medium\" is not one of Low, High (or their numbers 0 to 2)");
  SetFieldText(rec, "Level", "high");
  EXPECT_EQ(rec.level, 2);
}

TEST(FieldText, NumbersMustFitTheirField) {
  CConvChannel ch;
  SetFieldText(ch, "RxFreq", " 851.0125 ");
  EXPECT_EQ(ch.GetRxFreq(), 851.0125);
  EXPECT_EQ(Get(ch, "RxFreq"), "851.0125");
  for (const char* bad : {"851.0125MHz", "nan", "inf", "", "1e999"}) {
    EXPECT_EQ(Refusal(ch, "RxFreq", bad), "\"" + std::string(bad) + "\" is not a number");
  }
  EXPECT_EQ(ch.GetRxFreq(), 851.0125);
  CGenRadioOpts general;
  SetFieldText(general, "Squelch", "0xFFFF");
  EXPECT_EQ(general.GetSquelch(), 0xFFFF);
  EXPECT_EQ(Refusal(general, "Squelch", "65536"),
            "\"65536\" does not fit: the field holds 0 to 65535");
  EXPECT_EQ(Refusal(general, "Squelch", "-1"), "\"-1\" does not fit: the field holds 0 to 65535");
  EXPECT_EQ(Refusal(general, "Squelch", "12a"), "\"12a\" is not a whole number");
  EXPECT_EQ(general.GetSquelch(), 0xFFFF);
  CP25OtarOpts otar;
  SetFieldText(otar, "OtarEnabled", "yes");
  EXPECT_TRUE(otar.IsOtarEnabled());
  EXPECT_EQ(Get(otar, "OtarEnabled"), "true");
}

TEST(FieldText, StringsKeepTheCodePageAndListsTheirEntries) {
  CPersonality p;
  SetFieldText(p, "Name", "Caf\xC3\xA9 North");
  EXPECT_EQ(p.GetName().str(), "Caf\xE9 North");
  EXPECT_EQ(Get(p, "Name"), "Caf\xC3\xA9 North");
  EXPECT_EQ(Refusal(p, "Name", "\xE6\x97\xA5"),
            "\"\xE6\x97\xA5\" is not UTF-8 or holds a character outside the radio's code page "
            "(Windows-1252)");
  SetFieldText(p, "RadioTypes", "101, 102");
  SetFieldText(p, "RadioTypes/3", "7");  // one past the end appends
  EXPECT_EQ(Get(p, "RadioTypes"), "101, 102, 7");
  SetFieldText(p, "RadioTypes/1", "88");
  EXPECT_EQ(Get(p, "RadioTypes/1"), "88");
  EXPECT_EQ(Refusal(p, "RadioTypes/5", "1"), "RadioTypes has 3 entries; entry 5 cannot be set");
  EXPECT_EQ(Refusal(p, "RadioTypes", "1, x"), "\"x\" is not a whole number");
  EXPECT_EQ(Get(p, "RadioTypes/4"), "<none>");
  for (const char* malformed : {"RadioTypes/0", "RadioTypes/x", "RadioTypes/", "RadioTypes/1x"}) {
    EXPECT_EQ(Get(p, malformed), "<none>") << malformed;
  }
  EXPECT_EQ(Refusal(p, "Name/1", "x"), "Name is not a list: it has no entries");
  EXPECT_EQ(Get(p, "Name/1"), "<none>");
  CScratchPadOpts pad;  // a list of strings: entries replaced or appended one past the end
  SetFieldText(pad, "PhoneNumbers/1", "5550100");
  SetFieldText(pad, "PhoneNumbers/2", "911");
  SetFieldText(pad, "PhoneNumbers/1", "5550199");
  EXPECT_EQ(Get(pad, "PhoneNumbers"), "5550199, 911");

  CPlmGroup group;
  SetFieldText(group, "Tone", "1,2,3,4");
  SetFieldText(group, "Tone/2", "9");
  EXPECT_EQ(group.GetTone(1), 9);
  EXPECT_EQ(group.GetTone(3), 4);
  EXPECT_EQ(Refusal(group, "Tone", "1,2"), "Tone holds exactly 4 numbers, not 2");
  EXPECT_EQ(Refusal(group, "Tone/5", "1"), "Tone has 4 entries; entry 5 cannot be set");
  CPlmGroupSet set;
  EXPECT_EQ(Refusal(set, "SetType", "3"), "SetType is fixed by the record's class (CPlmGroupSet)");
  EXPECT_EQ(Refusal(set, "Elements", "x"), "CPlmGroupSet has no field \"Elements\" with a value");
  const std::vector<std::string> names = FieldNames(set);
  EXPECT_EQ(names.front(), "Name");
  EXPECT_EQ(std::count(names.begin(), names.end(), "SetType"), 0);
  const std::vector<std::string> groupNames = FieldNames(group);
  EXPECT_EQ(std::count(groupNames.begin(), groupNames.end(), "Tone"), 1);
}

}  // namespace
}  // namespace persona
