// Which set lists a system consults by kind, and which system kinds a radio type keeps: the
// tables the pruning and reference checks rely on.
#include <persona/integrity/set_use.h>

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

namespace persona {
namespace {

// One character per set type 0 to 10: 'x' where the system names a set of that list.
std::string ListsNamed(const CSystem& system) {
  std::string out;
  for (int t = 0; t < kNumSetTypes; ++t) {
    CString name("unchanged");
    const bool named = SystemSetNameFor(system, static_cast<SetType>(t), &name);
    EXPECT_EQ(named, name != "unchanged") << t;
    out += named ? 'x' : '.';
  }
  return out;
}

TEST(SetUse, EachSystemKindNamesExactlyItsOwnLists) {
  //                      set type: 0123456789A
  struct Case {
    std::unique_ptr<CSystem> system;
    SystemType kind;  // set by the system's creator
    const char* lists;
  };
  Case cases[] = {
      {std::make_unique<CTrunkSystem>(), TrunkedSystemType, "x.xxxx....."},
      {std::make_unique<CExtAddSystem>(), EaSystemType, "x..xx.....x"},
      {std::make_unique<CP25TrkSystem>(), P25TrkSystemType, "x.xxx....x."},
      {std::make_unique<CPlmSystem>(), PlmSystemType, "x.....xx..."},
      {std::make_unique<CConvSystem>(), ConvSystemType, ".x.x......."},
      {std::make_unique<CP25ConvSystem>(), P25ConvSystemType, "....x...x.."},
  };
  for (Case& c : cases) {
    test::FillFields(*c.system, 4);  // every name field holds a distinctive name
    c.system->SetSysType(c.kind);
    EXPECT_EQ(c.lists, ListsNamed(*c.system)) << c.system->GetClassName();
  }
  // A system whose stored kind does not match its class names nothing.
  CTrunkSystem odd;
  odd.SetSysType(PlmSystemType);
  EXPECT_EQ("...........", ListsNamed(odd));
}

TEST(SetUse, RadioTypesKeepTheSystemKindsTheyRun) {
  // The radio types from 0 to 110 that refuse each kind, or (for the narrower kinds) run it.
  auto which = [](int kind, bool supported) {
    std::string out;
    for (int r = 0; r <= 110; ++r) {
      if (RadioTypeSupportsSystemKind(static_cast<WORD>(r), kind) == supported) {
        out += std::to_string(r) + " ";
      }
    }
    return out;
  };
  EXPECT_EQ("27 28 29 30 33 52 ", which(TrunkedSystemType, false));
  EXPECT_EQ("72 73 74 75 ", which(ConvSystemType, false));
  EXPECT_EQ("65 66 67 85 86 ", which(PlmSystemType, true));
  EXPECT_EQ("101 102 103 104 105 106 ", which(P25TrkSystemType, true));
  EXPECT_EQ("88 89 92 101 102 103 104 105 106 ", which(P25ConvSystemType, true));
  EXPECT_EQ(which(P25ConvSystemType, true), which(EaSystemType, true));
  EXPECT_TRUE(RadioTypeSupportsSystemKind(72, 9));  // an unknown kind is never pruned
}

}  // namespace
}  // namespace persona
