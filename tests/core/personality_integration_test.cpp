// The personality with real sets and option records together: a rich personality with sets of
// all eleven kinds, systems of every kind and shared key records round-trips byte for byte; the
// load repairs that reach into options and trunk sets work end to end through the archive; copies
// and merges carry every set class.
#include <gtest/gtest.h>

#include <memory>

#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/framework/exceptions.h>
#include <persona/io/personality_file.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/personality/personality.h>
#include <persona/systems/group_set.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_set.h>
#include "support/record_testing.h"
#include "support/rich_personality.h"
#include "support/test_data.h"

namespace persona {
namespace {

TEST(PersonalityIntegration, RichPersonalityRoundTripsByteForByte) {
  std::unique_ptr<CPersonality> p = test::RichPersonality(3, false);
  const std::vector<BYTE> first = StorePersonalityBytes(*p);
  LoadedPersonality loaded = LoadPersonalityBytes(first.data(), first.size(), "rich.pers");
  EXPECT_EQ(loaded.trailingBytes, 0u);
  EXPECT_EQ(test::Hex(StorePersonalityBytes(*loaded.personality)), test::Hex(first));
  EXPECT_EQ(test::DumpFields(*loaded.personality), test::DumpFields(*p));
  for (int t = 0; t < kNumSetTypes; ++t) {
    ASSERT_EQ(loaded.personality->GetNumSets(static_cast<SetType>(t)), 1) << t;
    EXPECT_EQ(loaded.personality->GetSetAt(0, static_cast<SetType>(t))->GetSize(), 2) << t;
  }
  auto* trunk = static_cast<CTrunkSet*>(loaded.personality->GetSetAt(0, TrunkSetType));
  auto* group = static_cast<CGroupSet*>(loaded.personality->GetSetAt(0, GroupSetType));
  const CString keyId =
      static_cast<CTrunkSet*>(p->GetSetAt(0, TrunkSetType))->GetEskAt(1)->GetEskId();
  ASSERT_EQ(trunk->GetNumEsks(), 2);
  EXPECT_EQ(trunk->GetEskAt(1), group->GetEskAt(1));  // one record, shared again
  EXPECT_EQ(trunk->GetEskAt(1)->GetEskId(), keyId);
  // The loaded personality outlives the archive: the shared key is still valid after a delete
  // of one of the sets that names it.
  loaded.personality->DeleteSetAt(0, TrunkSetType);
  EXPECT_EQ(group->GetEskAt(1)->GetEskId(), keyId);
  // Every truncation of the file fails with an archive fault (no crash, no leak).
  for (std::size_t size = 0; size < first.size(); ++size) {
    EXPECT_THROW(LoadPersonalityBytes(first.data(), size, "cut.pers"), CArchiveException) << size;
  }
}

// A store makes room for the size the personality's archive had: the bytes are those of a
// store without that room when the personality grew since (the room grows) or shrank (the
// rest is not stored), and the size noted is the new one.
TEST(PersonalityIntegration, StoresSizedFromTheLastArchiveGiveTheSameBytes) {
  std::unique_ptr<CPersonality> p = test::RichPersonality(3, false);
  EXPECT_EQ(p->GetArchiveSizeHint(), 0u);
  const std::vector<BYTE> first = StorePersonalityBytes(*p);
  EXPECT_EQ(p->GetArchiveSizeHint(), first.size());
  LoadedPersonality loaded = LoadPersonalityBytes(first.data(), first.size(), "rich.pers");
  CPersonality& q = *loaded.personality;
  EXPECT_EQ(q.GetArchiveSizeHint(), first.size());
  const auto without = [&q] {
    q.NoteArchiveSize(0);
    return StorePersonalityBytes(q);
  };
  q.SetDescription(CString(std::string(5000, 'd')));  // grown past the room made
  q.NoteArchiveSize(first.size());
  const std::vector<BYTE> grown = StorePersonalityBytes(q);
  EXPECT_EQ(q.GetArchiveSizeHint(), grown.size());
  EXPECT_TRUE(grown == without());
  q.SetDescription(CString());  // shrunk below it
  q.NoteArchiveSize(1 << 20);
  const std::vector<BYTE> shrunk = StorePersonalityBytes(q);
  EXPECT_EQ(q.GetArchiveSizeHint(), shrunk.size());
  EXPECT_LT(shrunk.size(), first.size());
  EXPECT_TRUE(shrunk == without());
}

TEST(PersonalityIntegration, CopiesCarryEverySetClass) {
  std::unique_ptr<CPersonality> p = test::RichPersonality(3, false);
  for (int i = p->GetNumSystems() - 1; i >= 0; --i) {  // a copy leaves plain systems behind
    if (p->GetSystemAt(i)->GetRuntimeClass() == RUNTIME_CLASS(CSystem)) p->DeleteSystemAt(i);
  }
  auto* special = static_cast<CSpCallSet*>(p->GetSetAt(0, SpCallSetType));
  special->SetLidLow(100);
  special->SetLidHigh(200);
  // A conventional set's copy takes its Type 99 with-CG switch from the source's DTMF switch;
  // make them agree so that the copy equals the source everywhere.
  auto* conv = static_cast<CConvSet*>(p->GetSetAt(0, ConvSetType));
  conv->SetT99wcg(conv->GetDtmf());
  CPersonality copy(*p);
  EXPECT_EQ(test::DumpFields(copy), test::DumpFields(*p));
  auto* copied = static_cast<CSpCallSet*>(copy.GetSetAt(0, SpCallSetType));
  EXPECT_NE(copied, special);
  EXPECT_EQ(copied->GetLidLow(), 100);
  EXPECT_EQ(copied->GetLidHigh(), 200);
  EXPECT_EQ(test::Hex(StorePersonalityBytes(copy)), test::Hex(StorePersonalityBytes(*p)));

  CPersonality target;
  target.AddSet(test::FilledSet(TrunkSetType, "Old1", 2, 1).release(), TrunkSetType);
  target.AddSet(test::FilledSet(TrunkSetType, "Old2", 2, 2).release(), TrunkSetType);
  target = p.get();
  EXPECT_EQ(target.GetNumTrkSets(), 1);  // emptied first, then the copy
  EXPECT_EQ(target.GetSetAt(0, TrunkSetType)->GetName(), "S0");
}

TEST(PersonalityIntegration, LoadRepairsReachOptionsAndTrunkSets) {
  CPersonality p(68, 0);
  auto* general = new CGenRadioOpts(68, 0);
  general->SetEmerLatch(3);
  general->SetBaudRate(0);
  general->SetBandWidth(1);
  p.PutOption(general);
  auto* unset = new CTrunkSet(68, 0, 851.0);
  unset->SetName("Unset");
  unset->SetBaudRate(0xFF);
  auto* kept = new CTrunkSet(68, 0, 851.0);
  kept->SetName("Kept");
  kept->SetBaudRate(1);
  p.AddSet(unset, TrunkSetType);
  p.AddSet(kept, TrunkSetType);
  const std::vector<BYTE> bytes = StorePersonalityBytes(p);

  LoadedPersonality loaded = LoadPersonalityBytes(bytes.data(), bytes.size(), "old.pers");
  CPersonality& q = *loaded.personality;
  EXPECT_EQ(q.GetOption<CGenRadioOpts>()->GetEmerLatch(), 1);
  ASSERT_NE(q.GetOption<CSupervisoryOpts>(), nullptr);
  EXPECT_EQ(q.GetOption<CSupervisoryOpts>()->GetEmerLID(), 1);
  auto* repaired = static_cast<CTrunkSet*>(q.GetSetAt(0, TrunkSetType));
  EXPECT_EQ(repaired->GetBaudRate(), 0);
  EXPECT_EQ(repaired->GetBandWidth(), 1);
  auto* untouched = static_cast<CTrunkSet*>(q.GetSetAt(1, TrunkSetType));
  EXPECT_EQ(untouched->GetBaudRate(), 1);
  EXPECT_EQ(untouched->GetBandWidth(), 0);
}

TEST(PersonalityIntegration, OldVersionsRemapToneTriggers) {
  for (WORD version : {WORD{16}, WORD{17}}) {
    CPersonality p(68, 0);
    p.SetVersion(version);
    auto* encode = new CToneEncode;
    auto* sequential = new CToneSeq;
    sequential->SetEncodeType(2);
    sequential->SetEncodingTrigger(3);
    auto* single = new CToneSeq;
    single->SetEncodeType(1);
    single->SetEncodingTrigger(1);
    encode->AddSeq(sequential);
    encode->AddSeq(single);
    p.PutOption(encode);
    const std::vector<BYTE> bytes = StorePersonalityBytes(p);
    LoadedPersonality loaded = LoadPersonalityBytes(bytes.data(), bytes.size(), "tones.pers");
    const CToneEncode* back = loaded.personality->GetOption<CToneEncode>();
    ASSERT_NE(back, nullptr);
    if (version == 16) {
      EXPECT_EQ(loaded.personality->GetVersion(), 20);
      EXPECT_EQ(back->GetSeqAt(0)->GetEncodingTrigger(), 0);
    } else {
      EXPECT_EQ(loaded.personality->GetVersion(), 17);
      EXPECT_EQ(back->GetSeqAt(0)->GetEncodingTrigger(), 3);
    }
    EXPECT_EQ(back->GetSeqAt(1)->GetEncodingTrigger(), 1);  // not sequential: never remapped
  }
}

}  // namespace
}  // namespace persona
