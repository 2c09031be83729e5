// The personality's load repairs that reach into option records: the emergency latch and the
// tone encoding triggers of old files.
#include <persona/personality/load_fixups.h>

#include <gtest/gtest.h>

#include <persona/options/gen_radio_opts.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/personality/personality.h>
#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

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
