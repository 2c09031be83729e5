// CP25tWanOpts and CP25TrkWan: the list operations and their ownership, deep copies, and the
// report lines.
#include <persona/options/p25_wan_opts.h>

#include <gtest/gtest.h>

#include <memory>

#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

CP25TrkWan* Wan(const char* name, DWORD addr = 0, WORD systemId = 0) {
  auto* wan = new CP25TrkWan;
  wan->SetNetworkName(name);
  wan->SetNetworkAddr(addr);
  wan->SetSystemId(systemId);
  return wan;
}

std::string Names(const CP25tWanOpts& opts) {
  std::string names;
  for (int i = 0; i < opts.GetNumWans(); ++i)
    names += opts.GetWanAt(i)->GetNetworkName().str() + " ";
  return names;
}

TEST(P25tWanOpts, ListOperations) {
  CP25tWanOpts opts;
  opts.AddWan(Wan("A"));
  opts.AddWan(Wan("B"));
  opts.AddWan(Wan("C"));
  EXPECT_EQ(1, opts.getWanIndex("B"));
  EXPECT_EQ(65535, opts.getWanIndex("b"));  // case-sensitive
  EXPECT_EQ(65535, opts.getWanIndex("Z"));

  opts.InsertWanBefore(7, Wan("D"));  // no such position: appended
  opts.InsertWanBefore(0, Wan("E"));
  opts.InsertWanAfter(1, Wan("F"));
  opts.InsertWanAfter(-1, Wan("G"));
  EXPECT_EQ("E A F B C D G ", Names(opts));
  EXPECT_EQ(7, opts.GetNumWans());

  std::unique_ptr<CP25TrkWan> old(opts.SetWanAt(2, Wan("H")));
  ASSERT_NE(nullptr, old);
  EXPECT_EQ(CString("F"), old->GetNetworkName());
  std::unique_ptr<CP25TrkWan> kept(Wan("I"));
  EXPECT_EQ(nullptr, opts.SetWanAt(7, kept.get()));  // the caller keeps it
  EXPECT_EQ("E A H B C D G ", Names(opts));

  opts.DeleteWanAt(0);
  opts.DeleteWanAt(6);
  opts.DeleteWanAt(-1);
  EXPECT_EQ("A H B C D G ", Names(opts));
  EXPECT_EQ(nullptr, opts.GetWanAt(6));
  EXPECT_EQ(nullptr, opts.GetWanAt(-1));
  opts.Delete();
  EXPECT_EQ(0, opts.GetNumWans());
}

TEST(P25tWanOpts, CopiesAreDeep) {
  CP25tWanOpts src;
  src.AddWan(Wan("A", 1, 2));
  src.AddWan(Wan("B", 3, 4));
  CP25tWanOpts copy(src);
  copy.GetWanAt(0)->SetNetworkName("X");
  EXPECT_EQ(CString("A"), src.GetWanAt(0)->GetNetworkName());

  CP25tWanOpts target;
  target.AddWan(Wan("OLD"));
  target.operator=(&src);
  EXPECT_EQ("A B ", Names(target));
  EXPECT_NE(src.GetWanAt(1), target.GetWanAt(1));
  EXPECT_EQ(3u, target.GetWanAt(1)->GetNetworkAddr());
}

TEST(P25tWanOpts, ReportLines) {
  CP25tWanOpts opts;
  opts.AddWan(Wan("NET1", 0x1A2B, 0x2F));
  opts.AddWan(Wan("LONGNAME99", 0xFFFFF, 0xFFF));
  CStringArray out;
  opts.printOptToBuffer(out, nullptr);
  const std::vector<std::string> expected = {
      "P25 TRUNKED WIDE AREA NETWORKS:",
      "-------------------------------",
      "  Name:     NET1  NW Addr: 01a2b  System ID: 02f",
      "  Name: LONGNAME99  NW Addr: fffff  System ID: fff",
      "",
  };
  EXPECT_EQ(expected, test::Lines(out));
}

TEST(P25tWanOpts, StoredBytes) {
  CP25tWanOpts opts;
  opts.AddWan(Wan("N1", 0x12345, 0x2F));
  opts.AddWan(Wan("N2", 7, 8));
  test::Bytes b;
  b.NewClass("CP25tWanOpts", 1).U16(2);
  b.NewClass("CP25TrkWan", 2).Str("N1").U32(0x12345).U16(0x2F);
  b.U16(0x8003).Str("N2").U32(7).U16(8);  // the class again, by its index
  EXPECT_EQ(test::Hex(b.bytes()), test::Hex(test::StoreObject(&opts)));
  const auto loaded = test::LoadWhole<CP25tWanOpts>(b.bytes());
  EXPECT_EQ("N1 N2 ", Names(*loaded));
}

}  // namespace
}  // namespace persona
