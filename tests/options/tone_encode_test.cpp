// CToneEncode and CToneSeq: sequences handed out and taken back as copies, the schema-1 layouts,
// the stored bytes and the report block.
#include <persona/options/tone_encode.h>

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;

CToneSeq* Seq(const char* name, BYTE type, BYTE trigger, std::initializer_list<WORD> tones) {
  auto* seq = new CToneSeq;
  seq->SetName(name);
  seq->SetEncodeType(type);
  seq->SetEncodingTrigger(trigger);
  CWordArray t;
  for (WORD tone : tones) t.Add(tone);
  seq->SetTones(t);
  return seq;
}

TEST(ToneEncode, SeqsAreCopiesInBothDirections) {
  CToneEncode enc;
  enc.AddSeq(Seq("FIRE", 2, 3, {15000, 12000}));
  enc.AddSeq(Seq("EMS", 1, 0, {9000}));
  std::vector<CToneSeq> seqs = enc.GetSeqs();
  ASSERT_EQ(2u, seqs.size());
  seqs[0].SetEncodingTrigger(0);
  EXPECT_EQ(3, enc.GetSeqAt(0)->GetEncodingTrigger());  // the record's own is untouched

  seqs.pop_back();
  enc.SetSeqs(seqs);
  ASSERT_EQ(1, enc.GetNumSeqs());
  EXPECT_EQ(0, enc.GetSeqAt(0)->GetEncodingTrigger());
  EXPECT_EQ(2, enc.GetSeqAt(0)->GetNumTones());
  EXPECT_EQ(nullptr, enc.GetSeqAt(1));
  EXPECT_FALSE(enc.DeleteSeqAt(1));
  EXPECT_TRUE(enc.DeleteSeqAt(0));
  EXPECT_EQ(0, enc.GetNumSeqs());
}

TEST(ToneEncode, CopiesAreDeep) {
  CToneEncode src;
  src.SetToneLevel(2500);
  src.AddSeq(Seq("A", 2, 1, {1000}));
  CToneEncode copy(src);
  copy.GetSeqAt(0)->SetName("B");
  EXPECT_EQ(CString("A"), src.GetSeqAt(0)->GetName());
  EXPECT_EQ(2500, copy.GetToneLevel());

  CToneEncode target;
  target.AddSeq(Seq("OLD", 0, 0, {}));
  target.operator=(&src);
  ASSERT_EQ(1, target.GetNumSeqs());
  EXPECT_EQ(CString("A"), target.GetSeqAt(0)->GetName());
}

TEST(ToneEncode, SchemaOneRecordsAndTheCurrentLayout) {
  Bytes old;
  old.NewClass("CToneEncode", 1).U16(1);
  old.NewClass("CToneSeq", 1).Str("FIRE").U8(2).U8(3).U16(2).U16(15000).U16(12000).U16(250);
  old.U8(0);  // side tone
  const auto enc = test::LoadWhole<CToneEncode>(old.bytes());
  ASSERT_EQ(1, enc->GetNumSeqs());
  const CToneSeq* seq = enc->GetSeqAt(0);
  EXPECT_EQ(3, seq->GetEncodingTrigger());
  EXPECT_EQ(250, seq->GetToneDuration());
  EXPECT_EQ(0, seq->GetPreDelay());
  EXPECT_EQ(12000, seq->GetTones().GetAt(1));
  EXPECT_EQ(0, enc->GetSideTone());
  EXPECT_EQ(3000, enc->GetToneLevel());

  Bytes now;
  now.NewClass("CToneEncode", 2).U16(1);
  now.NewClass("CToneSeq", 2).Str("FIRE").U8(2).U8(3).U16(2).U16(15000).U16(12000).U16(250);
  now.U16(0);           // pre-delay
  now.U8(0).U16(3000);  // side tone, tone level
  EXPECT_EQ(test::Hex(now.bytes()), test::Hex(test::StoreObject(enc.get())));
}

TEST(ToneEncode, ReportBlock) {
  CToneEncode enc;
  enc.AddSeq(Seq("FIRE", 2, 1, {15000, 12005}));
  CStringArray out;
  enc.printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "TONE ENCODE OPTIONS:",
      "--------------------",
      "   Side Tone                  - On             Tone Level (Hz)             - 3000",
      "   Sequence FIRE              - Sequential     Encoding Trigger            - PTT Press",
      "   Tone Duration (ms)         - 100            Pre-Delay (ms)              - 0",
      "   Tones (Hz)                 - 1500.0 1200.5",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));
}

}  // namespace
}  // namespace persona
