// CPersonality: the stored vectors, the file layout by schema, the load repairs (band edges,
// versions, the emergency latch, tone triggers), a rich round trip, copy, assignment and the
// merge steps (appends against replacement, shared keys).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include <persona/options/gen_radio_opts.h>
#include <persona/options/macro.h>
#include <persona/options/status_message.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/personality/load_fixups.h>
#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>
#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Hex;
using test::LoadAs;
using test::ReadTestFile;
using test::StoreObject;

// Offset of the schema word in the class tag of a root personality.
constexpr std::size_t kSchemaOffset = 2;

TEST(PersonalityVectors, EmptyPersonalityLoadsAndStoresBackByteForByte) {
  const std::vector<BYTE> bytes = ReadTestFile("vectors/personality_empty.bin");
  auto p = LoadAs<CPersonality>(bytes, "personality_empty.bin");
  const std::string header = p->GetName().str() + "|" + p->GetDescription().str() + "|" +
                             p->GetSavedOn().str() + "|" + p->GetSavedBy().str();
  EXPECT_EQ(header, "Demo|bench sample|2026-11-21 10:00|tech");
  const double band[] = {p->GetTxMinFreq(), p->GetTxMaxFreq(), p->GetRxMinFreq(),
                         p->GetRxMaxFreq()};
  EXPECT_EQ(std::vector<double>(band, band + 4), (std::vector<double>{806, 825, 851, 870}));
  const int numbers[] = {p->GetVersion(),    p->GetNumRadioTypes(), p->GetRadioTypeAt(0),
                         p->GetLastRadio(),  p->GetStoredSchema(),  p->GetNumSystems(),
                         p->GetNumOptions(), p->IsLoaded()};
  EXPECT_EQ(std::vector<int>(numbers, numbers + 8), (std::vector<int>{20, 1, 68, 68, 4, 0, 0, 1}));
  EXPECT_EQ(Hex(StoreObject(p.get())), Hex(bytes));
}

TEST(PersonalityVectors, SchemaOneFileHasNoLaterListsAndGetsTheNewBandEdge) {
  const std::vector<BYTE> bytes = ReadTestFile("vectors/personality_schema1.bin");
  CArchive ar(bytes.data(), bytes.size(), "personality_schema1.bin");
  std::unique_ptr<CObject> obj = ar.ReadOwnedObject(RUNTIME_CLASS(CPersonality));
  EXPECT_EQ(ar.GetRemaining(), 0u);  // no P25 or extended-addressing lists were read
  auto* p = static_cast<CPersonality*>(obj.get());
  EXPECT_EQ(p->GetStoredSchema(), 1);
  EXPECT_EQ(p->GetTxMaxFreq(), 901.9875);
  EXPECT_EQ(p->GetName(), "Demo");
  EXPECT_EQ(p->GetLastRadio(), 68);
}

// A personality with one set in each of the lists that later schemas added.
std::vector<BYTE> StoredWithLaterLists() {
  CPersonality p;
  for (SetType t : {P25GroupSetType, P25ConvSetType, EaGroupSetType}) {
    auto* set = static_cast<CSet*>(CPersonality::SetClassOf(t)->CreateObject());
    set->SetName(CString::Formatted("SET%d", static_cast<int>(t)));
    p.AddSet(set, t);
  }
  return StoreObject(&p);
}

TEST(PersonalityLayout, LaterSetListsAreReadByStoredSchema) {
  std::vector<BYTE> bytes = StoredWithLaterLists();
  EXPECT_EQ(bytes[kSchemaOffset], 4);
  for (BYTE schema : {1, 2, 3, 4}) {
    bytes[kSchemaOffset] = schema;
    auto p = LoadAs<CPersonality>(bytes);
    const int p25 = schema >= 2 ? 1 : 0;
    EXPECT_EQ(p->GetNumP25GrpSets(), p25) << int{schema};
    EXPECT_EQ(p->GetNumP25CnvSets(), p25) << int{schema};
    EXPECT_EQ(p->GetNumEaGrpSets(), schema >= 3 ? 1 : 0) << int{schema};
  }
}

TEST(PersonalityLayout, HeaderTextNamesTheFileAndDoublesFollowArchiveOrder) {
  CPersonality p(68, 0);
  p.SetName("N");
  p.SetSavedOn("D");
  p.SetSavedBy("B");
  p.SetVersion(7);
  p.SetTxMinFreq(1.0);
  p.SetRxMinFreq(2.0);
  p.SetTxMaxFreq(3.0);
  p.SetRxMaxFreq(4.0);
  const std::vector<BYTE> bytes = StoreObject(&p);
  const std::string text(bytes.begin(), bytes.end());
  EXPECT_NE(text.find("Name\bN\bLastSaved\bD\bSavedBy\bB\bVersion\b0007\b"), std::string::npos);
  // Tx minimum, Tx maximum, Rx minimum, Rx maximum, then the last radio, then three empty lists.
  double limits[4];
  const std::size_t at = bytes.size() - 6 - 2 - sizeof limits;
  std::memcpy(limits, bytes.data() + at, sizeof limits);
  EXPECT_EQ(limits[0], 1.0);
  EXPECT_EQ(limits[1], 3.0);
  EXPECT_EQ(limits[2], 2.0);
  EXPECT_EQ(limits[3], 4.0);
}

// Old band edges are corrected on an exact match only; versions below 17 become 20.
TEST(PersonalityLoadRepairs, OldBandEdgesAndVersionsBelowSeventeen) {
  const struct {
    WORD version;
    double stored[4];  // tx min, tx max, rx min, rx max
    WORD loadedVersion;
    double loaded[4];
  } rows[] = {
      {20, {895.0, 902.0, 895.0, 902.0}, 20, {896.0125, 901.9875, 935.0125, 940.9875}},
      {20, {895.0000001, 902.0000001, 806, 870}, 20, {895.0000001, 902.0000001, 806, 870}},
      {16, {1, 2, 3, 4}, 20, {1, 2, 3, 4}},
      {0, {1, 2, 3, 4}, 20, {1, 2, 3, 4}},
      {17, {1, 2, 3, 4}, 17, {1, 2, 3, 4}},
  };
  for (const auto& r : rows) {
    CPersonality p;
    p.SetVersion(r.version);
    p.SetTxMinFreq(r.stored[0]);
    p.SetTxMaxFreq(r.stored[1]);
    p.SetRxMinFreq(r.stored[2]);
    p.SetRxMaxFreq(r.stored[3]);
    auto q = LoadAs<CPersonality>(StoreObject(&p));
    EXPECT_EQ(q->GetVersion(), r.loadedVersion);
    const double got[4] = {q->GetTxMinFreq(), q->GetTxMaxFreq(), q->GetRxMinFreq(),
                           q->GetRxMaxFreq()};
    EXPECT_TRUE(std::equal(got, got + 4, r.loaded)) << r.stored[0] << " " << r.version;
  }
}

// One system of each kind, every described field set to a distinctive value.
void AddOneSystemOfEachKind(CPersonality& p) {
  CSystem* systems[] = {new CTrunkSystem(68, 0),  new CConvSystem(68, 0),
                        new CPlmSystem(68, 0),    new CP25ConvSystem(68, 0),
                        new CExtAddSystem(68, 0), new CP25TrkSystem(68, 0)};
  const SystemType kinds[] = {TrunkedSystemType, ConvSystemType, PlmSystemType,
                              P25ConvSystemType, EaSystemType,   P25TrkSystemType};
  for (int i = 0; i < 6; ++i) {
    test::FillFields(*systems[i], i + 1);
    systems[i]->SetSysType(kinds[i]);
    p.AddSystem(systems[i]);
  }
}

// An option record that refers to key records without owning them, as set key lists do.
class KeyHolder : public CSerial {
  DECLARE_SERIAL(KeyHolder)
 public:
  CObList keys{RUNTIME_CLASS(CEskData)};
  void Serialize(CArchive& ar) override { keys.Serialize(ar); }
};
IMPLEMENT_SERIAL(KeyHolder, CSerial, 1)

TEST(PersonalityLoad, SharedKeyRecordsLiveAsLongAsThePersonality) {
  CRuntimeClass::Register(RUNTIME_CLASS(KeyHolder));
  CEskData key;
  key.SetEskId("Shared");
  CPersonality p;
  auto* holder = new KeyHolder;
  holder->keys.AddTail(&key);
  holder->keys.AddTail(&key);
  p.PutOption(holder);
  const std::vector<BYTE> bytes = StoreObject(&p);

  std::unique_ptr<CPersonality> loaded;
  {
    CArchive ar(bytes.data(), bytes.size(), "shared.pers");
    loaded.reset(static_cast<CPersonality*>(ar.ReadObject(RUNTIME_CLASS(CPersonality))));
  }  // the archive is gone; the personality keeps the key record alive
  const auto* loadedHolder = static_cast<KeyHolder*>(loaded->FindOption(RUNTIME_CLASS(KeyHolder)));
  ASSERT_EQ(loadedHolder->keys.GetCount(), 2);
  EXPECT_EQ(loadedHolder->keys.GetAt(0), loadedHolder->keys.GetAt(1));
  EXPECT_EQ(static_cast<CEskData*>(loadedHolder->keys.GetAt(1))->GetEskId(), "Shared");
}

TEST(PersonalityOptions, OneRecordPerClassName) {
  CPersonality p;
  auto* first = new CStatusMessage;
  first->SetId(1);
  p.PutOption(first);
  CStatusMessage second;  // refused: the caller keeps it
  p.PutOption(&second);
  EXPECT_EQ(p.GetNumOptions(), 1);
  EXPECT_EQ(p.FindOption(RUNTIME_CLASS(CStatusMessage)), first);
  EXPECT_EQ(p.GetOption(RUNTIME_CLASS(CStatusMessage)), first);  // answered by class name
  EXPECT_EQ(p.GetOption<CStatusMessage>(), first);
  p.PutOption(new CSerial);
  EXPECT_NE(p.GetOption<CSerial>(), nullptr);
  p.DeleteOption(RUNTIME_CLASS(CStatusMessage));
  EXPECT_EQ(p.FindOption(RUNTIME_CLASS(CStatusMessage)), nullptr);
  p.DeleteOption(RUNTIME_CLASS(CStatusMessage));  // nothing left: nothing happens
  EXPECT_EQ(p.GetNumOptions(), 1);
}

TEST(PersonalityCopy, CopiesKnownClassesOnlyAndAppendsRadioTypes) {
  CPersonality src(68, 0);
  src.AddRadioType(68);  // already there: one entry
  src.AddRadioType(90);
  EXPECT_EQ(src.GetNumRadioTypes(), 2);
  src.SetStateString("busy");
  src.SetNumGrpNames(9);
  AddOneSystemOfEachKind(src);
  auto* base = new CSystem;  // not one of the six system classes
  base->SetName("plain");
  src.AddSystem(base);
  auto* conv = static_cast<CConvSystem*>(src.GetSystemAt(1));
  conv->SetAltPttIndex(7);
  src.PutOption(new CMacro);
  src.PutOption(new CSerial);  // not an option class known to the merge

  CPersonality copy(src);
  EXPECT_EQ(copy.GetNumSystems(), 6);
  EXPECT_EQ(copy.GetSystem("plain"), nullptr);
  EXPECT_EQ(static_cast<CConvSystem*>(copy.GetSystemAt(1))->GetAltPttIndex(), 0);
  EXPECT_EQ(copy.GetNumOptions(), 1);
  EXPECT_NE(copy.FindOption(RUNTIME_CLASS(CMacro)), src.FindOption(RUNTIME_CLASS(CMacro)));
  EXPECT_EQ(copy.GetStateString(), "");
  EXPECT_EQ(copy.GetNumGrpNames(), 0);
  EXPECT_EQ(copy.GetNumRadioTypes(), 2);
  EXPECT_EQ(test::DumpFields(*copy.GetSystemAt(5)), test::DumpFields(*src.GetSystemAt(5)));

  CPersonality target(90, 0);
  target.AddSystem(new CTrunkSystem);
  target = &src;
  EXPECT_EQ(target.GetNumSystems(), 6);  // emptied first
  ASSERT_EQ(target.GetNumRadioTypes(), 3);
  EXPECT_EQ(target.GetRadioTypeAt(0), 90);
  EXPECT_EQ(target.GetRadioTypeAt(1), 68);
  EXPECT_EQ(target.GetRadioTypeAt(2), 90);
  target = &target;  // self-assignment: nothing happens
  EXPECT_EQ(target.GetNumSystems(), 6);
}

// Exposes the merge operations.
class MergingPersonality : public CPersonality {
 public:
  using CPersonality::AddOptions;
  using CPersonality::AddSets;
  using CPersonality::AddSystems;
  using CPersonality::operator=;
};

TEST(PersonalityMerge, AssignmentReplacesSetsWhileAddSetsAppends) {
  CPersonality src;
  for (const char* name : {"A", "B", "C"}) src.AddSet(test::Named<CTrunkSet>(name), TrunkSetType);
  auto* stray = new CSet(TrunkSetType);  // not of the list's class: copied as one, set part only
  stray->SetName("STRAY");
  src.AddSet(stray, TrunkSetType);

  MergingPersonality target;
  target.AddSet(test::Named<CTrunkSet>("X"), TrunkSetType);
  target.AddSet(test::Named<CTrunkSet>("Y"), TrunkSetType);
  target = &src;
  ASSERT_EQ(target.GetNumTrkSets(), 4);
  EXPECT_EQ(target.GetSetAt(0, TrunkSetType)->GetName(), "A");
  EXPECT_STREQ(target.GetSetAt(3, TrunkSetType)->GetClassName(), "CTrunkSet");
  EXPECT_EQ(target.GetSetAt(3, TrunkSetType)->GetName(), "STRAY");
  EXPECT_NE(target.GetSetAt(0, TrunkSetType), src.GetSetAt(0, TrunkSetType));
  target.AddSets(&src);
  EXPECT_EQ(target.GetNumTrkSets(), 8);
  EXPECT_EQ(target.FindSetIndex("a", TrunkSetType), 0);  // the first of two A's
  target.AddSystems(&src);
  target.AddOptions(&src);
  EXPECT_EQ(target.GetNumSystems(), 0);
}

TEST(PersonalityMerge, SharedKeyRecordsOutliveTheSourceInItsCopy) {
  CObList keys;
  auto copy = std::make_unique<CPersonality>();
  {
    CPersonality src(68, 0);
    std::vector<std::unique_ptr<CObject>> records;
    records.push_back(std::make_unique<CEskData>());
    static_cast<CEskData*>(records[0].get())->SetEskId("K");
    keys.AddTail(records[0].get());
    src.AdoptSharedRecords(std::move(records));
    *copy = src;
  }
  // Under AddressSanitizer a freed key record would fail here.
  EXPECT_EQ(static_cast<CEskData*>(keys.GetAt(0))->GetEskId(), "K");
}

// The load repairs that reach into option records: the emergency latch and the tone encoding
// triggers of old files.
// A latched emergency (any latch above 1) becomes 1 and switches the emergency ID on in a new
// supervisory record with the last radio's full defaults; an existing supervisory record, an
// unlatched or missing general options record change nothing.
TEST(GeneralOptionsFixup, LatchBecomesOneAndEmergencyIdIsSwitchedOn) {
  const struct {
    int latch;  // -1: no general options record
    bool supervisory;
    int latchAfter;
    const char* emergencyId;  // "none": no supervisory record afterwards
  } rows[] = {{3, false, 1, "1"},
              {1, false, 1, "1"},
              {1, true, 1, "0"},
              {0, false, 0, "none"},
              {-1, false, -1, "none"}};
  for (const auto& r : rows) {
    CPersonality personality(68, 0);
    auto* general = r.latch < 0 ? nullptr : new CGenRadioOpts(68, 0);
    if (general != nullptr) general->SetEmerLatch(static_cast<BYTE>(r.latch));
    if (general != nullptr) personality.PutOption(general);
    if (r.supervisory) personality.PutOption(new CSupervisoryOpts);
    ApplyGeneralOptionsFixup(personality);
    if (general != nullptr) {
      EXPECT_EQ(general->GetEmerLatch(), r.latchAfter) << r.latch;
    }
    const CSupervisoryOpts* supervisory = personality.GetOption<CSupervisoryOpts>();
    EXPECT_EQ(supervisory ? std::to_string(supervisory->GetEmerLID()) : "none", r.emergencyId);
    if (supervisory != nullptr && !r.supervisory) {
      EXPECT_EQ(supervisory->GetLastSysGrpRecall(), CSupervisoryOpts(68, 0).GetLastSysGrpRecall());
      EXPECT_EQ(supervisory->GetLastSysGrpRecall(), 1);
    }
  }
}

// A tone encode record as a version-16 file holds it: sequences of each encode type.
std::unique_ptr<CToneEncode> OldToneEncode() {
  test::Bytes b;
  b.NewClass("CToneEncode", 1).U16(4);
  b.NewClass("CToneSeq", 1).Str("S0").U8(2).U8(3).U16(0).U16(100);
  b.U16(0x8003).Str("S1").U8(2).U8(0).U16(0).U16(100);
  b.U16(0x8003).Str("S2").U8(1).U8(3).U16(0).U16(100);
  b.U16(0x8003).Str("S3").U8(2).U8(2).U16(0).U16(100);
  b.U8(1);
  return test::LoadWhole<CToneEncode>(b.bytes());
}

TEST(ToneTriggerFixup, SequentialTriggersAdvanceAndThreeWraps) {
  CPersonality personality(100, 0);
  CToneEncode* encode = OldToneEncode().release();
  personality.PutOption(encode);

  EXPECT_TRUE(RemapToneEncodeTriggers(personality));
  ASSERT_EQ(encode, personality.GetOption<CToneEncode>());
  ASSERT_EQ(4, encode->GetNumSeqs());
  EXPECT_EQ(0, encode->GetSeqAt(0)->GetEncodingTrigger());  // 3 wraps to 0
  EXPECT_EQ(1, encode->GetSeqAt(1)->GetEncodingTrigger());
  EXPECT_EQ(3, encode->GetSeqAt(2)->GetEncodingTrigger());  // other encode types stay
  EXPECT_EQ(3, encode->GetSeqAt(3)->GetEncodingTrigger());
  EXPECT_EQ(CString("S3"), encode->GetSeqAt(3)->GetName());
}

TEST(ToneTriggerFixup, NothingToRemap) {
  CPersonality bare(100, 0);
  EXPECT_FALSE(RemapToneEncodeTriggers(bare));

  CPersonality personality(100, 0);
  auto* encode = new CToneEncode;
  auto* seq = new CToneSeq;
  seq->SetEncodeType(1);
  seq->SetEncodingTrigger(3);
  encode->AddSeq(seq);
  personality.PutOption(encode);
  EXPECT_FALSE(RemapToneEncodeTriggers(personality));
  EXPECT_EQ(3, encode->GetSeqAt(0)->GetEncodingTrigger());
}

}  // namespace
}  // namespace persona
