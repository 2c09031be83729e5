// Every option record of this folder: a store, load and store again with distinctive values in
// every field gives the same bytes, and its report starts with its heading and underline. Also
// the records whose layouts only this library defines: scratch pad, Pellam and supervisory.
#include "options/option_record.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "core/personality.h"
#include "framework/exceptions.h"
#include "options/alert_opts.h"
#include "options/archive_bytes.h"
#include "options/display_opts.h"
#include "options/gen_radio_opts.h"
#include "options/p25_otar_opts.h"
#include "options/p25_wan_opts.h"
#include "options/pellam_opts.h"
#include "options/scratch_pad_opts.h"
#include "options/supervisory_opts.h"
#include "options/tone_encode.h"
#include "options/vantor_opts.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

struct Member {
  std::function<std::unique_ptr<CObject>()> make;  // a record with distinctive values
  const char* heading;
  const char* underline;
  std::function<void(CObject&, CStringArray&, CPersonality*)> print;
};

template <class T>
std::unique_ptr<CObject> Filled(int seed) {
  auto rec = std::make_unique<T>();
  test::FillFields(*rec, seed);
  return rec;
}

template <class T>
std::function<void(CObject&, CStringArray&, CPersonality*)> Printer() {
  return [](CObject& rec, CStringArray& out, CPersonality* p) {
    if constexpr (std::is_invocable_v<decltype(&T::printOptToBuffer), T&, CStringArray&,
                                      const CPersonality*, unsigned short>) {
      static_cast<T&>(rec).printOptToBuffer(out, p, 103);
    } else {
      static_cast<T&>(rec).printOptToBuffer(out, p);
    }
  };
}

std::unique_ptr<CObject> FilledWans() {
  auto opts = std::make_unique<CP25tWanOpts>();
  for (int seed : {4, 5}) {
    auto* wan = new CP25TrkWan;
    test::FillFields(*wan, seed);
    opts->AddWan(wan);
  }
  return opts;
}

std::unique_ptr<CObject> FilledToneEncode() {
  auto encode = std::make_unique<CToneEncode>();
  test::FillFields(*encode, 6);
  for (int seed : {7, 8}) {
    auto* seq = new CToneSeq;
    test::FillFields(*seq, seed);
    encode->AddSeq(seq);
  }
  return encode;
}

// Distinctive values within the two ranges that a load clamps.
std::unique_ptr<CObject> FilledGeneral() {
  auto general = std::make_unique<CGenRadioOpts>();
  test::FillFields(*general, 3);
  general->SetRadioOperation(1);
  general->SetMaxVolume(7);
  return general;
}

std::vector<Member> Members() {
  return {
      {[] { return Filled<CAlertOpts>(1); }, "ALERT OPTIONS:", "--------------",
       Printer<CAlertOpts>()},
      {[] { return Filled<CDisplayOpts>(2); }, "DISPLAY OPTIONS:", "----------------",
       Printer<CDisplayOpts>()},
      {FilledGeneral, "GENERAL RADIO OPTIONS:", "----------------------", Printer<CGenRadioOpts>()},
      {[] { return Filled<CVantorOpts>(4); }, "Conventional Emergency/Home Chan Options:",
       "----------------------------------------", Printer<CVantorOpts>()},
      {FilledWans, "P25 TRUNKED WIDE AREA NETWORKS:", "-------------------------------",
       Printer<CP25tWanOpts>()},
      {[] { return Filled<CP25OtarOpts>(5); }, "P25 OTAR Options", "----------------",
       Printer<CP25OtarOpts>()},
      {FilledToneEncode, "TONE ENCODE OPTIONS:", "--------------------", Printer<CToneEncode>()},
      {[] { return Filled<CPellamOpts>(6); }, "PELLAM OPTIONS:", "---------------",
       Printer<CPellamOpts>()},
      {[] { return Filled<CScratchPadOpts>(7); },
       "KORVEX SCRATCH PAD OPTIONS:", "---------------------------", Printer<CScratchPadOpts>()},
      {[] { return Filled<CSupervisoryOpts>(8); }, "SUPERVISORY OPTIONS:", "--------------------",
       Printer<CSupervisoryOpts>()},
  };
}

TEST(OptionRecords, StoreLoadStoreGivesTheSameBytes) {
  for (const Member& m : Members()) {
    std::unique_ptr<CObject> rec = m.make();
    SCOPED_TRACE(rec->GetClassName());
    test::ExpectRoundTrip(*rec);
  }
  CToneSeq seq;
  test::FillFields(seq, 9);
  test::ExpectRoundTrip(seq);
  CP25TrkWan wan;
  test::FillFields(wan, 10);
  test::ExpectRoundTrip(wan);
}

TEST(OptionRecords, TruncatedRecordsFailWithAnArchiveException) {
  for (const Member& m : Members()) {
    std::unique_ptr<CObject> rec = m.make();
    SCOPED_TRACE(rec->GetClassName());
    const std::vector<BYTE> bytes = test::StoreObject(rec.get());
    for (std::size_t n = 0; n < bytes.size(); ++n) {
      const std::vector<BYTE> cut(bytes.begin(), bytes.begin() + static_cast<long>(n));
      EXPECT_THROW(test::LoadObject(cut, rec->GetRuntimeClass()), CArchiveException) << n;
    }
  }
}

TEST(OptionRecords, ReportStartsWithHeadingAndUnderlineAndEndsEmpty) {
  CPersonality personality(103, 0);
  for (const Member& m : Members()) {
    std::unique_ptr<CObject> rec = m.make();
    SCOPED_TRACE(rec->GetClassName());
    CStringArray out;
    out.Add("previous line");
    m.print(*rec, out, &personality);
    ASSERT_GE(out.GetSize(), 4);
    EXPECT_EQ("previous line", out.GetAt(0).str());  // appended, not replaced
    EXPECT_EQ(m.heading, out.GetAt(1).str());
    EXPECT_EQ(m.underline, out.GetAt(2).str());
    EXPECT_TRUE(out.GetAt(out.GetSize() - 1).IsEmpty());
  }
}

TEST(OptionRecords, CopiesAndPointerAssignmentCopyEveryField) {
  for (const Member& m : Members()) {
    std::unique_ptr<CObject> rec = m.make();
    SCOPED_TRACE(rec->GetClassName());
    std::unique_ptr<CObject> copy(rec->GetRuntimeClass()->CopyObject(*rec));
    ASSERT_NE(nullptr, copy);
    if (rec->GetRuntimeClass() == RUNTIME_CLASS(CGenRadioOpts)) {
      static_cast<CGenRadioOpts&>(*copy).SetEmerLatch(
          static_cast<CGenRadioOpts&>(*rec).GetEmerLatch());
    }
    EXPECT_EQ(test::DumpFields(*rec), test::DumpFields(*copy));
  }
  CSupervisoryOpts src;
  test::FillFields(src, 11);
  CSupervisoryOpts target;
  target.operator=(&src);
  EXPECT_EQ(test::DumpFields(src), test::DumpFields(target));
  target.operator=(nullptr);
  EXPECT_EQ(test::DumpFields(src), test::DumpFields(target));
}

TEST(ScratchPadOpts, EntriesCountsAndReport) {
  CScratchPadOpts pad;
  pad.AddLid(1048575);
  pad.AddLid(12);
  pad.AddPhoneNumber("5551234");
  EXPECT_EQ(2, pad.GetNumLids());
  EXPECT_EQ(1048575u, pad.GetLidAt(0));
  EXPECT_EQ(0u, pad.GetLidAt(2));
  EXPECT_TRUE(pad.SetLidAt(1, 99));
  EXPECT_FALSE(pad.SetLidAt(2, 99));
  EXPECT_FALSE(pad.RemoveLidAt(-1));
  EXPECT_EQ(CString(""), pad.GetPhoneNumberAt(1));
  EXPECT_FALSE(pad.SetPhoneNumberAt(1, "1"));
  EXPECT_EQ(10, pad.GetNumScratchPad());
  EXPECT_EQ(16, CScratchPadOpts(101, 0).GetNumScratchPad());

  CStringArray out;
  pad.printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "KORVEX SCRATCH PAD OPTIONS:",
      "---------------------------",
      "   Storage Locations          - 10             Logical IDs                 - 1048575, 99",
      "   Phone Numbers              - 5551234        Interconnect                - On",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));

  test::ArchiveBytes b;
  b.NewClass("CScratchPadOpts", 1).U16(10).U16(2).Str("1048575").Str("99").U16(1).Str("5551234");
  b.U8(1);
  EXPECT_EQ(test::Hex(b.bytes), test::Hex(test::StoreObject(&pad)));
  pad.Delete();
  EXPECT_EQ(0, pad.GetNumLids());
  EXPECT_EQ(0, pad.GetNumPhoneNumbers());
}

TEST(ScratchPadOpts, AnotherStoredSchemaIsRefused) {
  test::ArchiveBytes b;
  b.NewClass("CScratchPadOpts", 2).U16(10).U16(0).U16(0).U8(1);
  EXPECT_THROW(test::LoadWhole<CScratchPadOpts>(b.bytes), CArchiveException);
}

TEST(PellamOpts, SchemaOneLoadAndModelDefaults) {
  test::ArchiveBytes b;
  b.NewClass("CPellamOpts", 1).U8(0).U8(0).U16(40).U16(300);
  const auto pellam = test::LoadWhole<CPellamOpts>(b.bytes);
  EXPECT_EQ(0, pellam->GetPlmRxAlertTone());
  EXPECT_EQ(40, pellam->GetMaxStoredMsgs());
  EXPECT_EQ(300, pellam->GetMsgReminder());
  EXPECT_EQ(1, pellam->GetPopUpDisplay());
  EXPECT_EQ(1, CPellamOpts(100, 0).GetPlmRxAlertTone());
  EXPECT_EQ(0, CPellamOpts(100, 1).GetPlmRxAlertTone());
  EXPECT_EQ(20, CPellamOpts(105, 0).GetMaxStoredMsgs());
}

TEST(SupervisoryOpts, SchemaOneLoadAndReport) {
  test::ArchiveBytes b;
  b.NewClass("CSupervisoryOpts", 1).U8(0).U8(1).U8(1).U16(20).U16(40).U16(3).U8(1).U8(1);
  const auto sup = test::LoadWhole<CSupervisoryOpts>(b.bytes);
  EXPECT_EQ(1, sup->GetEmerLID());
  EXPECT_EQ(40, sup->GetAutoKeyOffTime());
  EXPECT_EQ(0, sup->GetDropGroupCall());
  EXPECT_EQ(1, sup->GetEmerDisplay());

  CStringArray out;
  sup->printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "SUPERVISORY OPTIONS:",
      "--------------------",
      "   Emergency Declare          - Off            Emergency Clear             - On",
      "   Emergency ID               - On             Emergency Auto-Key Time     - 20",
      "   Auto-Key Off Time          - 40             Auto-Key Delay              - 3",
      "   Emergency Lock             - On             Authentication Request      - On",
      "   Drop Group Call            - Off            Last System/Group Recall    - Off",
      "   Emergency Display          - On",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));
}

}  // namespace
}  // namespace persona
