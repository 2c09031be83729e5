// Scan options: an old conventional scan schema, and the scan block quoting the conventional
// scan records of the personality.
#include <gtest/gtest.h>

#include <persona/options/scan_opts.h>
#include <persona/personality/personality.h>
#include "support/bytes.h"

namespace persona {
namespace {

bool HasLine(const CStringArray& out, const std::string& start) {
  for (const CString& l : out) {
    if (l.str().compare(0, start.size(), start) == 0) return true;
  }
  return false;
}

TEST(ScanOpts, ConvScanSchemaTwoLoadsUpToTheScanCount) {
  const auto bytes = test::Bytes("CConvScanOpts", 2)
                         .Put<BYTE>(1)
                         .Str("HOME")
                         .Str("COUNTY")
                         .Put<BYTE>(1)
                         .Put<BYTE>(0)
                         .Put<BYTE>(1)
                         .Put<BYTE>(1)
                         .Put<BYTE>(1)
                         .Put<WORD>(4)
                         .bytes();
  auto scan = test::LoadWhole<CConvScanOpts>(bytes);
  EXPECT_EQ(scan->GetHomeChan(), "HOME");
  EXPECT_EQ(scan->GetHomeSystem(), "COUNTY");
  EXPECT_EQ(scan->GetScanCount(), 4);
  EXPECT_EQ(scan->GetHangTime(), 0);
  EXPECT_EQ(scan->GetAlwaysSelChan(), 0);
}

TEST(ScanOpts, LumoPrioritySystemsArrivedOneSchemaAtATime) {
  const auto bytes = test::Bytes("CLumoConvScanOpts", 2).Str("P1").Str("P2").Str("SYS1").bytes();
  auto lumo = test::LoadWhole<CLumoConvScanOpts>(bytes);
  EXPECT_EQ(lumo->GetP1System(), "SYS1");
  EXPECT_EQ(lumo->GetP2System(), "");
}

TEST(ScanOpts, BlockQuotesConventionalScanAndLumoPrioritiesWhenHeld) {
  const CScanOpts scan(54, 0);
  // Without the personality's records: the conventional scan lines come from a temporary record
  // with the model defaults; no Lumo priority lines.
  CPersonality bare(54, 0);
  CStringArray plain;
  scan.printOptToBuffer(plain, &bare, 54);
  EXPECT_TRUE(HasLine(plain, "   Conventional Scan          - On "));
  EXPECT_FALSE(HasLine(plain, "   Priority 1 Channel"));
  EXPECT_EQ(bare.GetOption(CConvScanOpts::GetThisClass()), nullptr);

  CPersonality personality(54, 0);
  auto* conv = new CConvScanOpts;
  conv->SetHomeChan("DISPATCH");
  personality.PutOption(conv);
  auto* lumo = new CLumoConvScanOpts;
  lumo->SetP1Chan("FIRE 1");
  personality.PutOption(lumo);
  CStringArray out;
  scan.printOptToBuffer(out, &personality, 54);
  EXPECT_TRUE(HasLine(out,
                      "   Conventional Scan          - Off            Home Channel"
                      "                - DISPATCH"));
  EXPECT_TRUE(HasLine(out, "   Priority 1 Channel         - FIRE 1"));
  EXPECT_EQ(out[0], "SCAN OPTIONS:");
  EXPECT_EQ(out[out.GetSize() - 1], "");
}

}  // namespace
}  // namespace persona
