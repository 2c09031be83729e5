// The personality with real sets and option records together: a rich personality with sets of
// all eleven kinds, systems of every kind and shared key records round-trips byte for byte; the
// load repairs that reach into options and trunk sets work end to end through the archive; copies
// and merges carry every set class; the key checks run over real sets.
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
#include <persona/systems/esk_data.h>
#include <persona/systems/group_set.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

const char* const kElementClasses[kNumSetTypes] = {
    "CTrunkChannel", "CConvChannel", "CGroup",          "CPhoneCall", "CICall",      "CSpCall",
    "CPlmGroup",     "CPlmSpCall",   "CP25ConvChannel", "CP25Group",  "CExtAddGroup"};

// A set of list type t made by the list's class, named and holding two filled elements.
CSet* MakeSet(SetType t, const char* name, int seed) {
  auto* set = static_cast<CSet*>(CPersonality::SetClassOf(t)->CreateObject());
  set->SetName(name);
  for (int i = 0; i < 2; ++i) {
    CObject* element = CRuntimeClass::FromName(kElementClasses[t])->CreateObject();
    test::FillFields(*element, seed * 10 + i);
    set->Add(element);
  }
  return set;
}

std::unique_ptr<CPersonality> RichPersonality(CEskData** sharedKey) {
  auto p = std::make_unique<CPersonality>(101, 0);
  p->SetName("Rich");
  p->SetTxMinFreq(806.0);
  p->SetTxMaxFreq(869.0);
  p->SetRxMinFreq(851.0);
  p->SetRxMaxFreq(870.0);
  for (int t = 0; t < kNumSetTypes; ++t) {
    p->AddSet(MakeSet(static_cast<SetType>(t), "FIRE", t + 1), static_cast<SetType>(t));
    p->AddSet(MakeSet(static_cast<SetType>(t), "Police", t + 20), static_cast<SetType>(t));
  }
  for (const char* cls : {"CTrunkSystem", "CConvSystem", "CPlmSystem", "CP25ConvSystem",
                          "CExtAddSystem", "CP25TrkSystem"}) {
    CObject* system = CRuntimeClass::FromName(cls)->CreateObject();
    test::FillFields(*system, 3);
    p->AddSystem(static_cast<CSystem*>(system));
  }
  auto* general = new CGenRadioOpts(101, 0);
  general->SetHomeSystem("North");
  p->PutOption(general);
  p->PutOption(new CSupervisoryOpts(101, 0));
  // One key record named by a trunk set and a group set.
  CObList keys;
  p->GetSharedEskList(keys);  // none yet: systems hold filled, arbitrary keys
  std::vector<std::unique_ptr<CObject>> own;
  auto key = std::make_unique<CEskData>();
  key->SetEskId("K1");
  key->SetEsk(42);
  *sharedKey = key.get();
  own.push_back(std::move(key));
  p->AdoptSharedRecords(std::move(own));
  static_cast<CTrunkSet*>(p->GetSetAt(0, TrunkSetType))->AddEsk(*sharedKey);
  static_cast<CGroupSet*>(p->GetSetAt(1, GroupSetType))->AddEsk(*sharedKey);
  return p;
}

TEST(PersonalityIntegration, RichPersonalityRoundTripsByteForByte) {
  CEskData* key = nullptr;
  std::unique_ptr<CPersonality> p = RichPersonality(&key);
  const std::vector<BYTE> first = StorePersonalityBytes(*p);
  LoadedPersonality loaded = LoadPersonalityBytes(first.data(), first.size(), "rich.pers");
  EXPECT_EQ(loaded.trailingBytes, 0u);
  EXPECT_EQ(test::Hex(StorePersonalityBytes(*loaded.personality)), test::Hex(first));
  EXPECT_EQ(test::DumpFields(*loaded.personality), test::DumpFields(*p));
  for (int t = 0; t < kNumSetTypes; ++t) {
    ASSERT_EQ(loaded.personality->GetNumSets(static_cast<SetType>(t)), 2) << t;
    EXPECT_EQ(loaded.personality->GetSetAt(1, static_cast<SetType>(t))->GetSize(), 2) << t;
  }
  auto* trunk = static_cast<CTrunkSet*>(loaded.personality->GetSetAt(0, TrunkSetType));
  auto* group = static_cast<CGroupSet*>(loaded.personality->GetSetAt(1, GroupSetType));
  ASSERT_EQ(trunk->GetNumEsks(), 1);
  EXPECT_EQ(trunk->GetEskAt(0), group->GetEskAt(0));  // one record, shared again
  EXPECT_EQ(trunk->GetEskAt(0)->GetEsk(), 42);
  // The loaded personality outlives the archive: the shared key is still valid after a delete
  // of one of the sets that names it.
  loaded.personality->DeleteSetAt(0, TrunkSetType);
  EXPECT_EQ(group->GetEskAt(0)->GetEskId(), "K1");
  // Every truncation of the file fails with an archive fault (no crash, no leak).
  for (std::size_t size = 0; size < first.size(); ++size) {
    EXPECT_THROW(LoadPersonalityBytes(first.data(), size, "cut.pers"), CArchiveException) << size;
  }
}

TEST(PersonalityIntegration, CopiesCarryEverySetClass) {
  CEskData* key = nullptr;
  std::unique_ptr<CPersonality> p = RichPersonality(&key);
  auto* special = static_cast<CSpCallSet*>(p->GetSetAt(0, SpCallSetType));
  special->SetLidLow(100);
  special->SetLidHigh(200);
  // A conventional set's copy takes its Type 99 with-CG switch from the source's DTMF switch;
  // make them agree so that the copy equals the source everywhere.
  for (int i = 0; i < p->GetNumCnvSets(); ++i) {
    auto* conv = static_cast<CConvSet*>(p->GetSetAt(i, ConvSetType));
    conv->SetT99wcg(conv->GetDtmf());
  }
  CPersonality copy(*p);
  EXPECT_EQ(test::DumpFields(copy), test::DumpFields(*p));
  auto* copied = static_cast<CSpCallSet*>(copy.GetSetAt(0, SpCallSetType));
  EXPECT_NE(copied, special);
  EXPECT_EQ(copied->GetLidLow(), 100);
  EXPECT_EQ(copied->GetLidHigh(), 200);
  EXPECT_EQ(test::Hex(StorePersonalityBytes(copy)), test::Hex(StorePersonalityBytes(*p)));

  CPersonality target;
  target.AddSet(MakeSet(TrunkSetType, "Old1", 1), TrunkSetType);
  target.AddSet(MakeSet(TrunkSetType, "Old2", 2), TrunkSetType);
  target = p.get();
  EXPECT_EQ(target.GetNumTrkSets(), 2);  // emptied first, then the two copies
  EXPECT_EQ(target.GetSetAt(0, TrunkSetType)->GetName(), "FIRE");
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

TEST(PersonalityIntegration, KeyChecksRunOverRealSets) {
  CPersonality p(68, 0);
  auto* system = new CTrunkSystem(68, 0);
  system->SetName("North");
  system->SetSysType(TrunkedSystemType);
  system->SetTrunkSetName("SITE1");
  system->SetGroupSetName("TALK");
  system->SetESK(7);
  system->SetEskName("Seven");
  p.AddSystem(system);
  auto* trunk = new CTrunkSet(68, 0, 851.0);
  trunk->SetName("SITE1");
  p.AddSet(trunk, TrunkSetType);
  auto* groups = new CGroupSet(GroupSetType);
  groups->SetName("TALK");
  p.AddSet(groups, GroupSetType);

  CObList empty;
  EXPECT_FALSE(p.IsEskPresentInTrkSet(trunk, empty));
  EXPECT_FALSE(p.IsEskPresentInGrpSet(groups, empty));
  CObList keys;
  p.GetSharedEskList(keys);
  ASSERT_EQ(keys.GetCount(), 1);
  EXPECT_TRUE(p.IsEskPresentInTrkSet(trunk, keys));
  EXPECT_TRUE(p.IsEskPresentInGrpSet(groups, keys));
  trunk->AddEsk(static_cast<CEskData*>(keys.GetAt(0)));
  EXPECT_EQ(trunk->GetEskAt(0)->GetEskId(), "Seven");
}

}  // namespace
}  // namespace persona
