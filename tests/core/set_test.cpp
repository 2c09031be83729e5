// CSet: the element list rules, deep copy by element class, appending assignment and the
// archive form (element order, name, type and scope).
#include <gtest/gtest.h>

#include <memory>

#include <persona/core/set.h>
#include <persona/framework/exceptions.h>
#include <persona/options/macro.h>
#include <persona/options/status_message.h>
#include <persona/systems/esk_data.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

CStatusMessage* Msg(const char* name, WORD id) {
  auto* m = new CStatusMessage;
  m->SetName(name);
  m->SetId(id);
  return m;
}

CString NameAt(const CSet& set, int i) {
  return static_cast<CStatusMessage*>(set.GetAt(i))->GetName();
}

TEST(Set, PositionRules) {
  CSet set;
  set.Add(Msg("A", 1));
  set.Add(Msg("B", 2));
  set.InsertAt(2, Msg("C", 3));   // the end is not a position: goes to the front
  set.InsertAt(-1, Msg("D", 4));  // likewise
  set.InsertAt(2, Msg("E", 5));   // before the element at 2
  ASSERT_EQ(set.GetSize(), 5);
  EXPECT_EQ(NameAt(set, 0), "D");
  EXPECT_EQ(NameAt(set, 1), "C");
  EXPECT_EQ(NameAt(set, 2), "E");
  EXPECT_EQ(NameAt(set, 3), "A");
  EXPECT_EQ(NameAt(set, 4), "B");

  EXPECT_EQ(set.GetAt(5), nullptr);
  EXPECT_THROW(set.GetAt(-1), CInvalidArgException);

  std::unique_ptr<CObject> old(set.SetAt(0, Msg("F", 6)));  // the caller gets the old one back
  EXPECT_EQ(static_cast<CStatusMessage*>(old.get())->GetName(), "D");
  std::unique_ptr<CStatusMessage> spare(Msg("G", 7));
  EXPECT_THROW(set.SetAt(5, spare.get()), CInvalidArgException);
  EXPECT_THROW(set.SetAt(-1, spare.get()), CInvalidArgException);

  // The list under the set inserts before 0 .. count and refuses any other position.
  COwnedObList list;
  list.InsertAt(0, Msg("H", 8));
  list.InsertAt(1, Msg("I", 9));  // at the end
  EXPECT_THROW(list.InsertAt(3, spare.get()), CInvalidArgException);
  EXPECT_THROW(list.InsertAt(-1, spare.get()), CInvalidArgException);
  EXPECT_EQ(list.GetCount(), 2);
  EXPECT_EQ(static_cast<CStatusMessage*>(list.GetAt(1))->GetName(), "I");

  set.DeleteAt(9);  // beyond the end: nothing
  EXPECT_EQ(set.GetSize(), 5);
  EXPECT_THROW(set.DeleteAt(-1), CInvalidArgException);
  set.DeleteAt(1);
  EXPECT_EQ(set.GetSize(), 4);
  EXPECT_EQ(NameAt(set, 1), "E");

  set.Delete();
  EXPECT_EQ(set.GetSize(), 0);
  set.Delete();  // an empty set stays empty
  EXPECT_EQ(set.GetSize(), 0);
}

// The list keeps the one class of its records, which lets walks pass over lists of classes
// they have no use for; a second class, or a record put in place of another, ends that until
// the list is emptied. Loading fills it in as adding does.
TEST(Set, TheListKnowsWhenOneClassHoldsAllItsRecords) {
  const CRuntimeClass* message = RUNTIME_CLASS(CStatusMessage);
  COwnedObList list;
  EXPECT_EQ(list.GetOneClass(), nullptr);
  list.Add(nullptr);  // an empty slot is no record
  EXPECT_EQ(list.GetOneClass(), nullptr);
  list.Add(Msg("A", 1));
  list.InsertAt(0, Msg("B", 2));
  EXPECT_EQ(list.GetOneClass(), message);
  list.Add(std::make_unique<CEskData>());
  EXPECT_EQ(list.GetOneClass(), nullptr);
  std::unique_ptr<CObject>(list.Release(3)).reset();  // the only other one goes: still mixed
  EXPECT_EQ(list.GetOneClass(), nullptr);
  list.DeleteAll();
  list.InsertAt(0, new CEskData);
  EXPECT_EQ(list.GetOneClass(), RUNTIME_CLASS(CEskData));
  std::unique_ptr<CObject> old(list.Replace(0, Msg("C", 3)));
  EXPECT_EQ(list.GetOneClass(), nullptr);

  CSet set(SpCallSetType);
  set.Add(Msg("One", 1));
  set.Add(Msg("Two", 2));
  EXPECT_EQ(test::LoadAs<CSet>(test::StoreObject(&set))->Elements().GetOneClass(), message);
  set.Add(new CEskData);
  EXPECT_EQ(test::LoadAs<CSet>(test::StoreObject(&set))->Elements().GetOneClass(), nullptr);
}

// A set whose type byte is 11 or more is outside every list: DeleteAt leaves it alone.
class TypedSet : public CSet {
 public:
  explicit TypedSet(BYTE type) { SetSetType(type); }
  int cleared = 0;

 protected:
  void DeleteSetReferencesToElement(const CObject&) override { ++cleared; }
};

TEST(Set, DeleteAtClearsReferencesOnlyForChannelAndGroupSets) {
  for (int type = 0; type <= 12; ++type) {
    TypedSet set(static_cast<BYTE>(type));
    set.Add(Msg("A", 1));
    set.DeleteAt(0);
    const bool clears = type == 1 || type == 2 || type == 8 || type == 9 || type == 10;
    EXPECT_EQ(set.cleared, clears ? 1 : 0) << "type " << type;
    EXPECT_EQ(set.GetSize(), type >= 11 ? 1 : 0) << "type " << type;
  }
}

TEST(Set, DeleteAllFromFrontActsAsRepeatedDeleteAt) {
  for (int type : {0, 1, 2, 9, 11}) {
    TypedSet set(static_cast<BYTE>(type));
    for (int i = 0; i < 3; ++i) set.Add(Msg("A", 1));
    set.DeleteAllFromFront();
    EXPECT_EQ(set.cleared, (type == 1 || type == 2 || type == 9) ? 3 : 0) << type;
    EXPECT_EQ(set.GetSize(), type >= 11 ? 3 : 0) << type;
  }
}

TEST(Set, CopiesCarryOnlyTheElevenElementClasses) {
  CSet src(PhoneSetType);
  src.SetName("Src");
  src.SetScope(1);
  src.Add(Msg("Status", 1));  // a status message is not one of the set element classes
  src.Add(new CEskData);
  CSet copy(src);
  EXPECT_EQ(copy.GetName(), "Src");
  EXPECT_EQ(copy.GetSetType(), 3);
  EXPECT_EQ(copy.GetScope(), 1);
  EXPECT_EQ(copy.GetSize(), 0);
  EXPECT_TRUE(CSet::IsCopiedElementClass("CExtAddGroup"));
  EXPECT_TRUE(CSet::IsCopiedElementClass("CPlmSpCall"));
  EXPECT_FALSE(CSet::IsCopiedElementClass("cgroup"));
  EXPECT_FALSE(CSet::IsCopiedElementClass("CEskData"));
}

TEST(Set, AssignmentAppendsAndCopiesNameTypeScope) {
  CSet target;
  target.Add(Msg("Kept", 1));
  CSet src(ConvSetType);
  src.SetName("Other");
  src.SetScope(1);
  target = src;
  EXPECT_EQ(target.GetName(), "Other");
  EXPECT_EQ(target.GetSetType(), 1);
  EXPECT_EQ(target.GetScope(), 1);
  ASSERT_EQ(target.GetSize(), 1);  // the old element stays in front
  EXPECT_EQ(NameAt(target, 0), "Kept");
  CSet& self = target;
  target = self;  // appending to itself copies nothing it cannot copy, and does not loop
  EXPECT_EQ(target.GetSize(), 1);
}

TEST(Set, RenamesMoveTheNameEpoch) {
  const auto before = CSet::NameEpoch();
  CSet set;
  set.SetName("X");
  EXPECT_GT(CSet::NameEpoch(), before);
}

TEST(Set, ArchiveKeepsOrderNameTypeAndScope) {
  CSet set(SpCallSetType);
  set.SetName("Field Units");
  set.SetScope(1);
  set.Add(Msg("One", 1));
  set.Add(Msg("Two", 2));
  const std::vector<BYTE> bytes = test::StoreObject(&set);
  EXPECT_EQ(test::Hex(bytes),
            "ff ff 01 00 04 00 43 53 65 74 02 00 ff ff 01 00 0e 00 43 53 74 61 74 75 73 4d 65 73 "
            "73 61 67 65 03 4f 6e 65 01 00 03 80 03 54 77 6f 02 00 0b 46 69 65 6c 64 20 55 6e 69 "
            "74 73 05 01");
  test::ExpectRoundTrip(set);  // loads back with every field and element, and stores the same
}

}  // namespace
}  // namespace persona
