// The list editing rules of the option records (positions, ownership, lookups, deep copies), the
// few behaviours of single records that no field table shows, and report lines at the values
// where rounding or a special text takes over.
#include <gtest/gtest.h>

#include <memory>

#include <persona/framework/exceptions.h>
#include <persona/persona.h>
#include "support/expect.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Named;

TEST(OptionLists, StatusEntriesAreOwnedInsertedRemovedAndCopiedDeep) {
  CStatus status;
  status.AddStatus(Named<CStatusMessage>("EN ROUTE"));
  status.AddStatus(Named<CStatusMessage>("AT SCENE"));
  ASSERT_TRUE(status.InsertStatusAt(0, Named<CStatusMessage>("AVAILABLE")));
  std::unique_ptr<CStatusMessage> stray(Named<CStatusMessage>("STRAY"));
  EXPECT_FALSE(status.InsertStatusAt(4, stray.get()));  // refused: the caller keeps it
  CStatus copy(status);
  EXPECT_NE(copy.GetStatusAt(0), status.GetStatusAt(0));
  CStatus target;
  target.AddStatus(Named<CStatusMessage>("OLD"));
  target = &status;
  target = &target;  // self-assignment keeps everything
  ASSERT_EQ(target.GetNumStatuses(), 3);
  EXPECT_NE(target.GetStatusAt(2), status.GetStatusAt(2));
  std::unique_ptr<CStatusMessage> removed(target.RemoveStatusAt(1));
  ASSERT_TRUE(removed);
  EXPECT_EQ(removed->GetName(), "EN ROUTE");
  EXPECT_EQ(target.RemoveStatusAt(5), nullptr);
  EXPECT_TRUE(target.DeleteStatusAt(0));
  EXPECT_FALSE(target.DeleteStatusAt(3));
  EXPECT_EQ(target.GetNumStatuses(), 1);
  EXPECT_EQ(target.GetStatusAt(1), nullptr);
}

std::string MessageTexts(const CMmsOpts& opts) {
  std::string texts;
  for (int i = 0; i < opts.GetNumMessages(); ++i) texts += opts.GetMessageAt(i)->GetText().str();
  return texts;
}

TEST(OptionLists, MessagesInsertBeforeAndAfterAndIdsAreFoundByNumber) {
  CMmsOpts opts;
  auto msg = [](const char* text) {
    auto* m = new CMmsMsg;
    m->SetText(text);
    return m;
  };
  opts.AddMessage(msg("B"));
  EXPECT_TRUE(opts.InsertMessageBefore(0, msg("A")));
  EXPECT_TRUE(opts.InsertMessageAfter(1, msg("D")));
  EXPECT_TRUE(opts.InsertMessageAfter(1, msg("C")));
  EXPECT_EQ(MessageTexts(opts), "ABCD");
  std::unique_ptr<CMmsMsg> spare(msg("X"));  // refused insertions leave it with the caller
  EXPECT_FALSE(opts.InsertMessageAfter(4, spare.get()));
  EXPECT_FALSE(opts.InsertMessageAfter(-1, spare.get()));
  EXPECT_FALSE(opts.InsertMessageBefore(5, spare.get()));
  std::unique_ptr<CMmsMsg> removed(opts.RemoveMessageAt(1));
  ASSERT_TRUE(removed);
  EXPECT_EQ(removed->GetText(), "B");
  EXPECT_TRUE(opts.DeleteMessageAt(0));
  EXPECT_FALSE(opts.DeleteMessageAt(2));
  EXPECT_EQ(MessageTexts(opts), "CD");

  EXPECT_EQ(opts.AddMmsId(100), 0);
  EXPECT_EQ(opts.AddMmsId(300), 1);
  EXPECT_TRUE(opts.InsertMmsIdAt(1, 200));
  EXPECT_FALSE(opts.InsertMmsIdAt(4, 400));
  EXPECT_EQ(opts.FindMidNum(100), 1);  // numbers count from 1; 0 is "none"
  EXPECT_EQ(opts.FindMidNum(200), 2);
  EXPECT_EQ(opts.FindMidNum(999), 0);
  EXPECT_EQ(opts.FindNthId(1), 100);
  EXPECT_EQ(opts.FindNthId(3), 300);
  EXPECT_EQ(opts.FindNthId(0), 0);
  EXPECT_EQ(opts.FindNthId(4), 0);
  EXPECT_TRUE(opts.DeleteMmsIdAt(0));
  EXPECT_FALSE(opts.DeleteMmsIdAt(2));
  EXPECT_EQ(opts.FindMidNum(300), 2);
}

std::string WanNames(const CP25tWanOpts& opts) {
  std::string names;
  for (int i = 0; i < opts.GetNumWans(); ++i) names += opts.GetWanAt(i)->GetNetworkName().str();
  return names;
}

TEST(OptionLists, WideAreaNetworksInsertReplaceDeleteAndFindByExactName) {
  CP25tWanOpts opts;
  auto wan = [](const char* name) {
    auto* w = new CP25TrkWan;
    w->SetNetworkName(name);
    return w;
  };
  for (const char* n : {"A", "B", "C"}) opts.AddWan(wan(n));
  EXPECT_EQ(1, opts.getWanIndex("B"));
  EXPECT_EQ(65535, opts.getWanIndex("b"));  // case-sensitive
  opts.InsertWanBefore(7, wan("D"));        // no such position: appended
  opts.InsertWanBefore(0, wan("E"));
  opts.InsertWanAfter(1, wan("F"));
  opts.InsertWanAfter(-1, wan("G"));
  EXPECT_EQ("EAFBCDG", WanNames(opts));
  std::unique_ptr<CP25TrkWan> old(opts.SetWanAt(2, wan("H")));
  ASSERT_NE(nullptr, old);
  EXPECT_EQ(CString("F"), old->GetNetworkName());
  std::unique_ptr<CP25TrkWan> kept(wan("I"));
  EXPECT_EQ(nullptr, opts.SetWanAt(7, kept.get()));  // the caller keeps it
  opts.DeleteWanAt(0);
  opts.DeleteWanAt(6);
  opts.DeleteWanAt(-1);
  EXPECT_EQ("AHBCDG", WanNames(opts));
  EXPECT_EQ(nullptr, opts.GetWanAt(6));
  EXPECT_EQ(nullptr, opts.GetWanAt(-1));
}

TEST(OptionLists, ToneSequencesAreHandedOutAndTakenBackAsCopies) {
  CToneEncode enc;
  for (BYTE trigger : {3, 0}) {
    auto* seq = new CToneSeq;
    seq->SetEncodingTrigger(trigger);
    enc.AddSeq(seq);
  }
  std::vector<CToneSeq> seqs = enc.GetSeqs();
  ASSERT_EQ(2u, seqs.size());
  seqs[0].SetEncodingTrigger(1);
  EXPECT_EQ(3, enc.GetSeqAt(0)->GetEncodingTrigger());  // the record's own is untouched
  seqs.pop_back();
  enc.SetSeqs(seqs);
  ASSERT_EQ(1, enc.GetNumSeqs());
  EXPECT_EQ(1, enc.GetSeqAt(0)->GetEncodingTrigger());
  EXPECT_EQ(nullptr, enc.GetSeqAt(1));
  EXPECT_FALSE(enc.DeleteSeqAt(1));
  EXPECT_TRUE(enc.DeleteSeqAt(0));
}

TEST(OptionLists, IndexedValuesOfScratchPadAgencySirenAndVantor) {
  CScratchPadOpts pad;
  pad.AddLid(1048575);
  pad.AddLid(12);
  EXPECT_EQ(0u, pad.GetLidAt(2));
  EXPECT_TRUE(pad.SetLidAt(1, 99));
  EXPECT_FALSE(pad.SetLidAt(2, 99));
  EXPECT_FALSE(pad.RemoveLidAt(-1));
  EXPECT_EQ(1048575u, pad.GetLidAt(0));  // the first entry is index 0
  EXPECT_TRUE(pad.SetLidAt(0, 7));
  EXPECT_TRUE(pad.RemoveLidAt(0));
  EXPECT_EQ(99u, pad.GetLidAt(0));
  EXPECT_EQ(1, pad.GetNumLids());
  EXPECT_EQ(CString(""), pad.GetPhoneNumberAt(0));
  EXPECT_FALSE(pad.SetPhoneNumberAt(0, "1"));
  pad.AddPhoneNumber("5550100");
  pad.AddPhoneNumber("5550199");
  EXPECT_TRUE(pad.SetPhoneNumberAt(1, "911"));
  EXPECT_FALSE(pad.SetPhoneNumberAt(2, "1"));
  for (const int outside : {-1, 2}) EXPECT_FALSE(pad.RemovePhoneNumberAt(outside)) << outside;
  EXPECT_TRUE(pad.RemovePhoneNumberAt(0));
  ASSERT_EQ(pad.GetNumPhoneNumbers(), 1);
  EXPECT_EQ(pad.GetPhoneNumberAt(0), CString("911"));
  pad.Delete();
  EXPECT_EQ(pad.GetNumPhoneNumbers(), 0);
  EXPECT_EQ(0, pad.GetNumLids());

  CExtAddAgencyData data;
  data.SetFleetsAt(2, 9);  // grows the list with zeros
  EXPECT_EQ(data.GetNumFleetEntries(), 3);
  EXPECT_EQ(data.GetFleetsAt(0), 0);
  EXPECT_STREQ(test::Caught<CInvalidArgException>([&] { data.GetFleetsAt(3); }).what(),
               "invalid argument: array position 3 outside 0..2");
  EXPECT_THROW(data.SetFleetsAt(-1, 1), CInvalidArgException);

  CSirenLights entry;
  EXPECT_THROW(entry.GetControlAt(9), CInvalidArgException);
  EXPECT_THROW(entry.SetControlAt(-1, 1), CInvalidArgException);
  EXPECT_EQ(CSirenLightsOpts(3).GetNumEntries(), 3);  // the count constructor: neutral entries
  EXPECT_EQ(CSirenLightsOpts(-2).GetNumEntries(), 0);

  CVantorOpts vantor;  // the identity sent follows the extended ID switch
  vantor.SetId(77);
  vantor.SetExtendedId(123456);
  EXPECT_EQ(77, vantor.GetVantorId());
  vantor.SetEnExtendedId(1);
  EXPECT_EQ(123456, vantor.GetVantorId());
}

TEST(OptionLists, GeneralOptionsBandConstructorAndCopiesThatLeaveTheEmergencyLatch) {
  const CGenRadioOpts narrow(1, 68, 1);  // narrow band, model, reduced defaults
  const CGenRadioOpts wide(0, 103, 0);
  EXPECT_EQ(1, narrow.GetLowMicAudio());
  EXPECT_EQ(1, wide.GetLowMicAudio());
  EXPECT_EQ(1, narrow.GetBandWidth());
  EXPECT_EQ(0, narrow.GetBaudRate());
  EXPECT_EQ(1, wide.GetBaudRate());
  EXPECT_EQ(0, narrow.GetDynamicRegroup());  // the model's reduced defaults still apply
  EXPECT_EQ(1, wide.GetRxPolarity());

  CGenRadioOpts src(103, 0);
  test::FillFields(src, 3);
  src.SetEmerLatch(1);
  EXPECT_EQ(0, CGenRadioOpts(src).GetEmerLatch());
  CGenRadioOpts target;
  target = &src;
  EXPECT_EQ(0, target.GetEmerLatch());
  target.SetEmerLatch(1);  // every other field was copied
  EXPECT_EQ(test::DumpFields(src), test::DumpFields(target));
  CGenRadioOpts unlatched;
  target = &unlatched;
  EXPECT_EQ(1, target.GetEmerLatch());  // a latched target stays latched
}

// Report lines at values the golden reports do not reach.
TEST(OptionLists, ReportLinesAtRoundingAndSpecialValues) {
  CVantorOpts vantor;  // at one half every delay window rounds up
  vantor.SetStartDelayPercent(50);
  CDisplayOpts display;
  display.SetBacklightTimeout(7.25);
  display.SetToggleAlertMsg(-1);
  CPersonality personality(100, 0);
  auto* general = new CGenRadioOpts(100, 0);
  general->SetICallMinVol(255);
  personality.PutOption(general);
  CP25OtarOpts otar;
  otar.SetIndividualRsi(1234567);
  otar.EnableOtar(true);
  CStringArray v, d, a, o;
  vantor.printOptToBuffer(v, nullptr);
  display.printOptToBuffer(d, nullptr, 100);
  CAlertOpts().printOptToBuffer(a, &personality, 100);
  otar.printOptToBuffer(o, nullptr);
  EXPECT_EQ(0, v[8].str().find("   Start Delay                - |125 250 375 500 50.000000|"));
  EXPECT_EQ("   Backlight Timeout          - 7.2 ", d[d.GetSize() - 3].str());
  EXPECT_EQ("   Toggle Alert Message         - TRUE", d[d.GetSize() - 2].str());
  EXPECT_EQ("   ICALL Minimum Ring Volume  - OFF            PELLAM Receive Alert Tone   - On ",
            a[10].str());
  EXPECT_EQ("OTAR Options Enabled: TRUE     ", o[2].str());
  EXPECT_EQ("Individual RSI: 1234567   ", o[4].str());
}

TEST(OptionLists, OtarOptionsAssignEveryFieldAndIgnoreThemselves) {
  CP25OtarOpts a;
  test::FillFields(a, 3);
  CP25OtarOpts b;
  b = a;
  EXPECT_EQ(test::DumpFields(b), test::DumpFields(a));
  CP25OtarOpts& same = b;
  b = same;
  EXPECT_EQ(test::DumpFields(b), test::DumpFields(a));
}

}  // namespace
}  // namespace persona
