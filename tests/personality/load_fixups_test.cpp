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

TEST(GeneralOptionsFixup, LatchBecomesOneAndEmergencyIdIsSwitchedOn) {
  CPersonality personality(68, 0);
  auto* general = new CGenRadioOpts(68, 0);
  general->SetEmerLatch(3);
  personality.PutOption(general);

  ApplyGeneralOptionsFixup(personality);
  EXPECT_EQ(1, general->GetEmerLatch());
  const CSupervisoryOpts* supervisory = personality.GetOption<CSupervisoryOpts>();
  ASSERT_NE(nullptr, supervisory);
  EXPECT_EQ(1, supervisory->GetEmerLID());
  // Built with the last radio's full defaults.
  EXPECT_EQ(CSupervisoryOpts(68, 0).GetLastSysGrpRecall(), supervisory->GetLastSysGrpRecall());
  EXPECT_EQ(1, supervisory->GetLastSysGrpRecall());
}

TEST(GeneralOptionsFixup, ExistingSupervisoryRecordIsLeftAsItIs) {
  CPersonality personality(100, 0);
  auto* general = new CGenRadioOpts;
  general->SetEmerLatch(1);
  personality.PutOption(general);
  auto* supervisory = new CSupervisoryOpts;
  personality.PutOption(supervisory);

  ApplyGeneralOptionsFixup(personality);
  EXPECT_EQ(supervisory, personality.GetOption<CSupervisoryOpts>());
  EXPECT_EQ(0, supervisory->GetEmerLID());
}

TEST(GeneralOptionsFixup, NoLatchOrNoGeneralOptionsChangesNothing) {
  CPersonality unlatched(100, 0);
  unlatched.PutOption(new CGenRadioOpts);
  ApplyGeneralOptionsFixup(unlatched);
  EXPECT_EQ(nullptr, unlatched.GetOption<CSupervisoryOpts>());

  CPersonality bare(100, 0);
  ApplyGeneralOptionsFixup(bare);
  EXPECT_EQ(nullptr, bare.GetOption<CSupervisoryOpts>());
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
