// Text messaging options: message and ID list editing, deep copies, the three report blocks.
#include <gtest/gtest.h>

#include <persona/options/mms_opts.h>
#include "support/record_testing.h"

namespace persona {
namespace {

CMmsMsg* Msg(const char* text) {
  auto* m = new CMmsMsg;
  m->SetText(text);
  return m;
}

std::vector<std::string> Texts(const CMmsOpts& opts) {
  std::vector<std::string> texts;
  for (int i = 0; i < opts.GetNumMessages(); ++i)
    texts.push_back(opts.GetMessageAt(i)->GetText().str());
  return texts;
}

TEST(MmsOpts, MessageListEditing) {
  CMmsOpts opts;
  opts.AddMessage(Msg("B"));
  EXPECT_TRUE(opts.InsertMessageBefore(0, Msg("A")));
  EXPECT_TRUE(opts.InsertMessageAfter(1, Msg("D")));
  EXPECT_TRUE(opts.InsertMessageAfter(1, Msg("C")));
  EXPECT_EQ(Texts(opts), (std::vector<std::string>{"A", "B", "C", "D"}));

  // Refused insertions leave the message with the caller.
  std::unique_ptr<CMmsMsg> spare(Msg("X"));
  EXPECT_FALSE(opts.InsertMessageAfter(4, spare.get()));
  EXPECT_FALSE(opts.InsertMessageAfter(-1, spare.get()));
  EXPECT_FALSE(opts.InsertMessageBefore(5, spare.get()));

  std::unique_ptr<CMmsMsg> removed(opts.RemoveMessageAt(1));
  ASSERT_TRUE(removed);
  EXPECT_EQ(removed->GetText(), "B");
  EXPECT_TRUE(opts.DeleteMessageAt(0));
  EXPECT_FALSE(opts.DeleteMessageAt(2));
  EXPECT_EQ(Texts(opts), (std::vector<std::string>{"C", "D"}));

  CMmsOpts copy;
  copy = &opts;
  copy.GetMessageAt(0)->SetText("changed");
  EXPECT_EQ(opts.GetMessageAt(0)->GetText(), "C");
  test::ExpectRoundTrip(copy);
}

TEST(MmsOpts, IdListLookups) {
  CMmsOpts opts;
  EXPECT_EQ(opts.AddMmsId(100), 0);
  EXPECT_EQ(opts.AddMmsId(300), 1);
  EXPECT_TRUE(opts.InsertMmsIdAt(1, 200));
  EXPECT_FALSE(opts.InsertMmsIdAt(4, 400));
  EXPECT_EQ(opts.FindMidNum(200), 2);
  EXPECT_EQ(opts.FindMidNum(999), 0);
  EXPECT_EQ(opts.FindNthId(1), 100);
  EXPECT_EQ(opts.FindNthId(3), 300);
  EXPECT_EQ(opts.FindNthId(0), 0);
  EXPECT_EQ(opts.FindNthId(4), 0);
  EXPECT_TRUE(opts.DeleteMmsIdAt(0));
  EXPECT_FALSE(opts.DeleteMmsIdAt(2));
  EXPECT_EQ(opts.FindMidNum(300), 2);
  opts.DeleteAllMmsIds();
  EXPECT_EQ(opts.GetNumMmsIds(), 0);
}

TEST(MmsOpts, ReportHasSettingsMessagesAndIdBlocks) {
  CMmsOpts opts(54, 0);
  CMmsMsg* msg = Msg("ON MY WAY");
  msg->SetReplyExpected(1);
  msg->SetDestId(4242);
  opts.AddMessage(msg);
  opts.AddMmsId(17);
  CStringArray out;
  opts.printOptToBuffer(out, nullptr);
  std::vector<std::string> lines;
  for (const CString& l : out) lines.push_back(l.str());
  const std::vector<std::string> expected = {
      "RADIO VESKA OPTIONS:",
      "--------------------",
      "   Local ID                   - 0              IP Address                  - 0.0.0.0",
      "   Port                       - 5000           Time-out (sec)              - 30",
      "   Retries                    - 3              Maximum Replies             - 4",
      "   Total Size (bytes)         - 4096",
      "",
      "RADIO VESKA:",
      "------------",
      "   Message 1                  - ON MY WAY",
      "   Type                       - Text           Prompt                      - ",
      "   Maximum Digits             - 0              Reply Expected              - On",
      "   Destination ID             - 4242           Destination Type            - Individual",
      "   Forced Default Destination - Off",
      "",
      "MIDS:",
      "-----",
      "   MID 1                      - 17",
      "",
  };
  EXPECT_EQ(lines, expected);
}

}  // namespace
}  // namespace persona
