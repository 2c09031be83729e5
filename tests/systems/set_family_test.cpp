// The eleven set classes together: the generic deep copy of a set carries every element class,
// and sets of all eleven types, with several elements each and two sets naming one key,
// store, load and store again byte for byte.
#include <gtest/gtest.h>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/options/macro.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/p25_group_set.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/trunk_set.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Hex;

// One element of each of the eleven element classes, each filled with distinctive values.
std::vector<std::unique_ptr<CObject>> OneOfEachElement(int seed) {
  std::vector<std::unique_ptr<CObject>> out;
  out.emplace_back(new CTrunkChannel);
  out.emplace_back(new CConvChannel);
  out.emplace_back(new CP25ConvChannel);
  out.emplace_back(new CExtAddGroup);
  out.emplace_back(new CGroup);
  out.emplace_back(new CP25Group);
  out.emplace_back(new CPhoneCall);
  out.emplace_back(new CICall);
  out.emplace_back(new CSpCall);
  out.emplace_back(new CPlmGroup);
  out.emplace_back(new CPlmSpCall);
  for (auto& e : out) test::FillFields(*e, seed++);
  return out;
}

TEST(SetFamily, CopyingASetCopiesEveryElementClassAndDropsOthers) {
  CSet mixed;
  for (auto& e : OneOfEachElement(1)) mixed.Add(e.release());
  mixed.Add(new CMacro);  // not a set element: left out of copies
  const CSet copy(mixed);
  ASSERT_EQ(11, copy.GetSize());
  for (int i = 0; i < 11; ++i) {
    CObject* original = mixed.GetAt(i);
    CObject* copied = copy.GetAt(i);
    EXPECT_NE(original, copied);
    EXPECT_STREQ(original->GetClassName(), copied->GetClassName());
    EXPECT_EQ(test::DumpFields(*original), test::DumpFields(*copied)) << copied->GetClassName();
  }
}

template <class Set, class Elem>
Set* FilledSet(int seed, int elements) {
  auto* set = new Set;
  test::FillFields(*set, seed);
  for (int i = 0; i < elements; ++i) {
    auto* e = new Elem;
    test::FillFields(*e, seed * 10 + i);
    set->Add(e);
  }
  return set;
}

TEST(SetFamily, AllElevenSetTypesRoundTripSharingOneKey) {
  CEskData shared, own;
  test::FillFields(shared, 1);
  test::FillFields(own, 2);
  std::vector<std::unique_ptr<CSet>> sets;
  auto* trunk = FilledSet<CTrunkSet, CTrunkChannel>(1, 3);
  trunk->SetBandWidth(1);  // loads repair values above 1
  trunk->AddEsk(&shared);
  trunk->AddEsk(&own);
  sets.emplace_back(trunk);
  auto* groups = FilledSet<CGroupSet, CGroup>(2, 3);
  groups->AddEsk(&shared);
  sets.emplace_back(groups);
  auto* ea = FilledSet<CExtAddGroupSet, CExtAddGroup>(3, 2);
  ea->AddEsk(&own);
  sets.emplace_back(ea);
  sets.emplace_back(FilledSet<CPlmGroupSet, CPlmGroup>(4, 2));
  sets.emplace_back(FilledSet<CP25GroupSet, CP25Group>(5, 3));
  sets.emplace_back(FilledSet<CConvSet, CConvChannel>(6, 3));
  sets.emplace_back(FilledSet<CP25ConvSet, CP25ConvChannel>(7, 2));
  sets.emplace_back(FilledSet<CPhoneSet, CPhoneCall>(8, 2));
  auto* icalls = FilledSet<CICallSet, CICall>(9, 2);
  for (int i = 0; i < 2; ++i) static_cast<CICall*>(icalls->GetAt(i))->SetLid(0);
  sets.emplace_back(icalls);
  sets.emplace_back(FilledSet<CSpCallSet, CSpCall>(10, 2));
  sets.emplace_back(FilledSet<CPlmSpCallSet, CPlmSpCall>(11, 2));

  CArchive out(nullptr, CArchive::store);
  for (const auto& set : sets) out.WriteObject(set.get());
  const std::vector<BYTE> bytes = out.TakeStoredBytes();

  CArchive in(bytes.data(), bytes.size(), "all_sets.bin");
  std::vector<std::unique_ptr<CObject>> loaded;
  for (const auto& set : sets) loaded.push_back(in.ReadOwnedObject(set->GetRuntimeClass()));
  const auto pool = in.TakeSharedObjects();
  EXPECT_EQ(0u, in.GetRemaining());
  ASSERT_EQ(2u, pool.size());  // each key record read once

  CArchive again(nullptr, CArchive::store);
  for (const auto& set : loaded) again.WriteObject(set.get());
  EXPECT_EQ(Hex(bytes), Hex(again.TakeStoredBytes()));
  for (std::size_t i = 0; i < sets.size(); ++i) {
    EXPECT_EQ(test::DumpFields(*sets[i]), test::DumpFields(*loaded[i])) << i;
  }
  const auto* trunkBack = static_cast<const CTrunkSet*>(loaded[0].get());
  const auto* groupsBack = static_cast<const CGroupSet*>(loaded[1].get());
  const auto* eaBack = static_cast<const CExtAddGroupSet*>(loaded[2].get());
  EXPECT_EQ(trunkBack->GetEskAt(0), groupsBack->GetEskAt(0));
  EXPECT_EQ(trunkBack->GetEskAt(1), eaBack->GetEskAt(0));
  EXPECT_NE(trunkBack->GetEskAt(0), trunkBack->GetEskAt(1));
  EXPECT_TRUE(*static_cast<const CConvSet*>(loaded[5].get()) ==
              *static_cast<const CConvSet*>(sets[5].get()));

  // Every truncation of the stream fails with an archive fault (no crash, no leak).
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    CArchive cut(bytes.data(), size, "cut.bin");
    EXPECT_THROW(
        {
          for (const auto& set : sets) cut.ReadOwnedObject(set->GetRuntimeClass());
        },
        CArchiveException)
        << size;
  }
}

}  // namespace
}  // namespace persona
