// Status and message lists: ownership and deep copies of the entries, the element class check
// on load, and the report block that quotes the personality's messages.
#include <gtest/gtest.h>

#include <persona/framework/exceptions.h>
#include <persona/options/status_opts.h>
#include <persona/personality/personality.h>
#include "support/bytes.h"
#include "support/record_testing.h"

namespace persona {
namespace {

CStatusMessage* Entry(const char* name, WORD id) {
  auto* e = new CStatusMessage;
  e->SetName(name);
  e->SetId(id);
  return e;
}

TEST(StatusOpts, OwnsAndDeepCopiesItsStatuses) {
  CStatus status;
  status.AddStatus(Entry("EN ROUTE", 1));
  status.AddStatus(Entry("AT SCENE", 2));
  ASSERT_TRUE(status.InsertStatusAt(0, Entry("AVAILABLE", 0)));
  CStatusMessage* stray = Entry("STRAY", 9);
  EXPECT_FALSE(status.InsertStatusAt(4, stray));  // refused: the caller keeps it
  delete stray;

  CStatus copy(status);
  ASSERT_EQ(copy.GetNumStatuses(), 3);
  EXPECT_NE(copy.GetStatusAt(0), status.GetStatusAt(0));
  EXPECT_EQ(copy.GetStatusAt(0)->GetName(), "AVAILABLE");
  status.GetStatusAt(0)->SetName("CHANGED");
  EXPECT_EQ(copy.GetStatusAt(0)->GetName(), "AVAILABLE");

  // Assignment replaces the target's entries with copies.
  CStatus target;
  target.AddStatus(Entry("OLD", 7));
  target = &status;
  ASSERT_EQ(target.GetNumStatuses(), 3);
  EXPECT_EQ(target.GetStatusAt(0)->GetName(), "CHANGED");
  EXPECT_NE(target.GetStatusAt(2), status.GetStatusAt(2));
  target = &target;  // self-assignment keeps everything
  EXPECT_EQ(target.GetNumStatuses(), 3);

  std::unique_ptr<CStatusMessage> removed(target.RemoveStatusAt(1));
  ASSERT_TRUE(removed);
  EXPECT_EQ(removed->GetName(), "EN ROUTE");
  EXPECT_EQ(target.RemoveStatusAt(5), nullptr);
  EXPECT_TRUE(target.DeleteStatusAt(0));
  EXPECT_FALSE(target.DeleteStatusAt(3));
  EXPECT_EQ(target.GetNumStatuses(), 1);
  EXPECT_EQ(target.GetStatusAt(1), nullptr);

  // Delete empties the list and leaves the record usable.
  status.SetSelectTime(9);
  status.Delete();
  EXPECT_EQ(status.GetNumStatuses(), 0);
  EXPECT_EQ(status.GetSelectTime(), 9);
  status.AddStatus(Entry("AGAIN", 3));
  test::ExpectRoundTrip(status);
}

TEST(StatusOpts, LoadRefusesAnEntryOfAnotherClass) {
  // One entry of class CMacro, which a status list cannot hold.
  const auto bytes = test::Bytes("CStatus", 2)
                         .Put<WORD>(1)
                         .NewClass("CMacro", 1)
                         .Put<DWORD>(5)
                         .Put<WORD>(6)
                         .Put<BYTE>(0)
                         .Put<WORD>(0)
                         .Put<WORD>(0)
                         .Put<BYTE>(0)
                         .bytes();
  try {
    test::LoadWhole<CStatus>(bytes);
    ADD_FAILURE() << "a CMacro entry was accepted";
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::badClass) << e.what();
  }
}

TEST(StatusOpts, SchemaOneLoadsListAndTransmitSettingsOnly) {
  const auto bytes = test::Bytes("CStatus", 1)
                         .Put<WORD>(1)
                         .NewClass("CStatusMessage", 1)
                         .Str("BUSY")
                         .Put<WORD>(4)
                         .Put<BYTE>(1)
                         .Put<WORD>(6)
                         .bytes();
  auto status = test::LoadWhole<CStatus>(bytes);
  ASSERT_EQ(status->GetNumStatuses(), 1);
  EXPECT_EQ(status->GetStatusAt(0)->GetName(), "BUSY");
  EXPECT_EQ(status->GetStatusAt(0)->GetId(), 4);
  EXPECT_EQ(status->GetTxType(), 1);
  EXPECT_EQ(status->GetSelectTime(), 6);
  EXPECT_EQ(status->GetModeHangTime(), 0);
  EXPECT_EQ(status->GetResetOnSysChange(), 0);
}

TEST(StatusOpts, ReportListsStatusesAndThePersonalitysMessages) {
  CStatus status;
  status.AddStatus(Entry("AT SCENE", 2));
  CPersonality personality(54, 0);
  auto* messages = new CMessage;
  messages->AddMessage(Entry("CALL ME", 12));
  personality.PutOption(messages);

  CStringArray out;
  status.printOptToBuffer(out, &personality, 54);
  ASSERT_EQ(out.GetSize(), 7);
  EXPECT_EQ(out[0], "STATUS / MESSAGE OPTIONS:");
  EXPECT_EQ(out[1], "-------------------------");
  EXPECT_EQ(out[2].str(),
            "   Status Transmit Type       - On PTT         Select Time (sec)           - 0");
  EXPECT_EQ(out[3].str(),
            "   Mode Hang Time (sec)       - 0              Reset On System Change      - Off");
  EXPECT_EQ(out[4].str(),
            "   Status 1                   - AT SCENE       Number                      - 2");
  EXPECT_EQ(out[5].str(),
            "   Message 1                  - CALL ME        Number                      - 12");
  EXPECT_EQ(out[6], "");

  // Without a CMessage the block has no message lines, and the personality stays as it was.
  CPersonality bare(54, 0);
  CStringArray lines;
  status.printOptToBuffer(lines, &bare, 54);
  EXPECT_EQ(lines.GetSize(), 6);
  EXPECT_EQ(bare.GetOption(CMessage::GetThisClass()), nullptr);
}

}  // namespace
}  // namespace persona
