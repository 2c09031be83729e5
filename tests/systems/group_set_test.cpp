// Talk groups and group sets of trunked, extended-addressing and messaging systems: stored
// bytes, old schemas, lookups, reference clearing, the conversion to an extended-addressing
// set, equality and report lines.
#include <persona/systems/group_set.h>

#include <gtest/gtest.h>

#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/plm_group_set.h>
#include "support/bytes.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Bytes;
using test::Hex;

TEST(GroupSet, LoadsOlderSchemas) {
  auto setBytes = [](unsigned schema) {
    Bytes b;
    b.NewClass("CGroupSet", schema).Count(1).NewClass("CGroup", 1).Str("A").U16(7);
    b.U8(1).U8(0).U8(1).U8(0).U8(1).U8(0).U8(1).U16(3).U16(1);
    b.Str("S").U8(2).U8(1).Str("A").Str("").Str("B");
    if (schema >= 2) b.Str("TALK");
    if (schema >= 3) b.Count(1).NewClass("CEskData", 1).Str("K").U32(9);
    return b;
  };
  std::vector<std::unique_ptr<CObject>> pool;
  auto s1 = test::LoadSharing<CGroupSet>(setBytes(1), pool);
  EXPECT_EQ("", s1->GetPriorityTalkGrp());
  EXPECT_EQ(0, s1->GetNumEsks());
  EXPECT_EQ("B", s1->GetPriority2Grp());
  EXPECT_EQ(3, s1->GetGroupAt(0)->GetKwKey());
  auto s2 = test::LoadSharing<CGroupSet>(setBytes(2), pool);
  EXPECT_EQ("TALK", s2->GetPriorityTalkGrp());
  EXPECT_EQ(0, s2->GetNumEsks());
  auto s3 = test::LoadSharing<CGroupSet>(setBytes(3), pool);
  ASSERT_EQ(1, s3->GetNumEsks());
  EXPECT_EQ(9, s3->GetEskAt(0)->GetEsk());
  EXPECT_EQ(1u, pool.size());
  // Stored again, a schema-1 set writes the current layout with the later fields empty.
  Bytes current;
  current.NewClass("CGroupSet", 3).Count(1).NewClass("CGroup", 1).Str("A").U16(7);
  current.U8(1).U8(0).U8(1).U8(0).U8(1).U8(0).U8(1).U16(3).U16(1);
  current.Str("S").U8(2).U8(1).Str("A").Str("").Str("B").Str("").Count(0);
  EXPECT_EQ(Hex(current), Hex(test::StoreObject(s1.get())));

  // An extended-addressing set carries the same layout under its own class.
  Bytes ea;
  ea.NewClass("CExtAddGroupSet", 1).Count(1).NewClass("CExtAddGroup", 1).Str("E").U16(7);
  ea.U8(1).U8(1).U8(1).U8(1).U8(0).U8(0).U8(1).U16(0).U16(0).U32(70000).U16(2);
  ea.Str("EA").U8(10).U8(0).Str("").Str("").Str("");
  auto eaSet = test::LoadSharing<CExtAddGroupSet>(ea, pool);
  EXPECT_EQ(70000u, eaSet->GetGroupAt(0)->GetEaGrpId());
  EXPECT_EQ(2, eaSet->GetGroupAt(0)->GetKeyBank());
  EXPECT_EQ("", eaSet->GetPriorityTalkGrp());
}

TEST(GroupSet, Lookups) {
  CGroupSet set;
  EXPECT_EQ(nullptr, set.GetGroup(1));
  EXPECT_EQ(-1, set.FindGroupIndex("A"));
  set.Add(test::Group<CGroup>("", 0));
  set.Add(test::Group<CGroup>("A", 300));
  set.Add(test::Group<CGroup>("B", 300));
  EXPECT_EQ(nullptr, set.GetGroup(0));  // even though the first group has ID 0
  EXPECT_EQ("A", set.GetGroup(300)->GetName());
  EXPECT_EQ(nullptr, set.GetGroup(300 + 65536));
  EXPECT_EQ(-1, set.FindGroupIndex(""));
  EXPECT_EQ(2, set.FindGroupIndex("B"));
  EXPECT_EQ(-1, set.FindGroupIndex("b"));
  EXPECT_EQ(nullptr, set.GetGroupAt(3));
  CStringArray names;
  names.Add("stale");
  set.GetNames(names);
  ASSERT_EQ(3, names.GetSize());
  EXPECT_EQ("B", names[2]);

  CExtAddGroupSet ea;
  auto* big = test::Group<CExtAddGroup>("BIG", 1);
  big->SetEaGrpId(100000);
  ea.Add(big);
  EXPECT_EQ(big, ea.GetGroup(100000));
  EXPECT_EQ(nullptr, ea.GetGroup(1));

  CPlmGroupSet plm;
  auto* unnamed = new CPlmGroup;
  plm.Add(unnamed);
  EXPECT_EQ(0, plm.FindGroupIndex(""));
  EXPECT_EQ(unnamed, plm.GetGroupAt(0));
}

TEST(GroupSet, DeletingAGroupClearsTheNamesThatReferToIt) {
  CGroupSet set;
  set.Add(test::Group<CGroup>("A", 1));
  set.Add(test::Group<CGroup>("B", 2));
  set.SetHomeGrp("A");
  set.SetPriority1Grp("B");
  set.SetPriority2Grp("A");
  set.SetPriorityTalkGrp("A");
  set.DeleteAt(0);
  EXPECT_EQ("", set.GetHomeGrp());
  EXPECT_EQ("B", set.GetPriority1Grp());
  EXPECT_EQ("", set.GetPriority2Grp());
  EXPECT_EQ("", set.GetPriorityTalkGrp());
  set.DeleteSetReferencesToGroup("");
  EXPECT_EQ("B", set.GetPriority1Grp());

  CGroupSet otherType(PlmGroupSetType);  // a type that keeps its references
  otherType.Add(test::Group<CGroup>("A", 1));
  otherType.SetHomeGrp("A");
  otherType.DeleteAt(0);
  EXPECT_EQ("A", otherType.GetHomeGrp());
  EXPECT_EQ(0, otherType.GetSize());
}

TEST(GroupSet, KorvexConversionAndCopyRules) {
  CEskData key, eaKey;
  CGroupSet src(ICallSetType);
  src.SetName("TRK");
  src.SetScope(1);
  src.SetHomeGrp("H");
  src.SetPriorityTalkGrp("T");
  src.AddEsk(&key);
  CGroup* g = test::Group<CGroup>("H", 300);
  g->SetCallTime(3);
  src.Add(g);

  CExtAddGroupSet ea;
  ea.Add(new CExtAddGroup);
  ea.AddEsk(&eaKey);
  ea.copyKorvexGrpSet(&src);
  EXPECT_EQ("TRK", ea.GetName());
  EXPECT_EQ(EaGroupSetType, ea.GetSetType());
  EXPECT_EQ(0, ea.GetScope());
  ASSERT_EQ(1, ea.GetSize());
  EXPECT_EQ(300u, ea.GetGroupAt(0)->GetEaGrpId());
  EXPECT_EQ(300, ea.GetGroupAt(0)->GetGrpId());
  EXPECT_EQ(3, ea.GetGroupAt(0)->GetCallTime());
  EXPECT_EQ(0, ea.GetGroupAt(0)->GetKeyBank());
  EXPECT_EQ("T", ea.GetPriorityTalkGrp());
  ASSERT_EQ(1, ea.GetNumEsks());
  EXPECT_EQ(&eaKey, ea.GetEskAt(0));

  CGroupSet copy(src);
  EXPECT_EQ(&key, copy.GetEskAt(0));
  EXPECT_EQ(ICallSetType, copy.GetSetType());
  EXPECT_EQ("T", copy.GetPriorityTalkGrp());
  CGroupSet assigned;
  assigned.Add(test::Group<CGroup>("OLD", 1));
  assigned = &src;
  EXPECT_EQ(0, assigned.GetNumEsks());
  EXPECT_EQ(1, assigned.GetSize());
  EXPECT_EQ(1, assigned.GetScope());
  EXPECT_TRUE(assigned == src);
}

TEST(GroupSet, EqualityRules) {
  CGroup a, b;
  a.SetName("X");
  b.SetName("x");
  EXPECT_FALSE(a == b);
  b.SetName("X");
  EXPECT_TRUE(a == b);
  b.SetCallTime(1);
  EXPECT_FALSE(a == b);

  CGroupSet s, t;
  s.Add(test::Group<CGroup>("A", 1));
  t.Add(test::Group<CGroup>("A", 1));
  t.SetName("ELSEWHERE");
  t.SetPriorityTalkGrp("A");
  EXPECT_TRUE(s == t);
  t.SetHomeGrp("A");
  EXPECT_FALSE(s == t);

  CExtAddGroupSet e, f;
  e.Add(test::Group<CExtAddGroup>("A", 1));
  f.Add(test::Group<CExtAddGroup>("A", 1));
  EXPECT_TRUE(e == f);
  f.GetGroupAt(0)->SetKeyBank(1);
  EXPECT_FALSE(e == f);

  CPlmGroupSet p, q;
  auto* pg = new CPlmGroup;
  pg->SetTone(3, 12);
  p.Add(pg);
  q.Add(new CPlmGroup);
  EXPECT_FALSE(p == q);
  q.GetGroupAt(0)->SetTone(3, 12);
  q.SetName("OTHER");
  EXPECT_TRUE(p == q);
}

TEST(PlmGroupSet, TonesOutsideZeroToThreeAreIgnored) {
  CPlmGroup g;
  for (int i = 0; i < 4; ++i) g.SetTone(i, static_cast<WORD>(10 + i));
  g.SetTone(-1, 99);
  g.SetTone(4, 99);
  EXPECT_EQ(g.GetTone(-1), 0);
  EXPECT_EQ(g.GetTone(4), 0);
  EXPECT_EQ(g.GetTone(0), 10);
  EXPECT_EQ(g.GetTone(3), 13);
}

}  // namespace
}  // namespace persona
