// The system list: positions, kinds, the deliberate asymmetry of the name lookups, and the name
// lists shown for a system.
#include <gtest/gtest.h>

#include <persona/options/status_message.h>
#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>

namespace persona {
namespace {

template <class S>
S* Named(const char* name, SystemType type) {
  auto* sys = new S;
  sys->SetName(name);
  sys->SetSysType(type);
  return sys;
}

TEST(PersonalitySystems, PositionsAndKinds) {
  CPersonality p;
  p.AddSystem(Named<CTrunkSystem>("T", TrunkedSystemType));
  p.AddSystem(Named<CSystem>("P1", P25ConvSystemType));
  p.AddSystem(Named<CConvSystem>("C", ConvSystemType));
  p.AddSystem(Named<CSystem>("P2", P25ConvSystemType));
  EXPECT_EQ(p.GetSystemAt(1, P25ConvSystemType)->GetName(), "P2");
  EXPECT_EQ(p.GetSystemAt(2, P25ConvSystemType), nullptr);
  EXPECT_EQ(p.GetNumP25CnvSystems(), 2);
  EXPECT_EQ(p.GetNumTrkSystems(), 1);
  EXPECT_EQ(p.GetNumEaSystems(), 0);

  CSystem* late = Named<CSystem>("LATE", PlmSystemType);
  EXPECT_FALSE(p.InsertSystemAt(4, late));  // at the count: not taken
  EXPECT_TRUE(p.InsertSystemAt(-3, late));  // negative: at the front
  EXPECT_EQ(p.GetSystemAt(0), late);
  EXPECT_EQ(p.FindSystemIndex("T"), 1);
  EXPECT_THROW(p.DeleteSystemAt(-1), CInvalidArgException);
  p.DeleteSystemAt(9);
  p.DeleteSystemAt(0);
  EXPECT_EQ(p.GetNumSystems(), 4);
  EXPECT_EQ(p.GetSystemAt(4), nullptr);
  EXPECT_EQ(p.GetSystemAt(-1), nullptr);
}

TEST(PersonalitySystems, GetSystemIsExactWhileFindSystemIndexTrimsTrailingBlanks) {
  CPersonality p;
  p.AddSystem(Named<CTrunkSystem>("North", TrunkedSystemType));
  p.AddSystem(Named<CTrunkSystem>("South \t", TrunkedSystemType));
  EXPECT_EQ(p.GetSystem("North "), nullptr);
  EXPECT_EQ(p.FindSystemIndex("North "), 0);
  EXPECT_EQ(p.GetSystem("north"), nullptr);
  EXPECT_EQ(p.FindSystemIndex("north"), -1);
  EXPECT_EQ(p.FindSystemIndex("South"), 1);
  EXPECT_NE(p.GetSystem("South \t"), nullptr);

  p.GetSystemAt(0)->SetName("East");  // the index follows renames
  EXPECT_EQ(p.GetSystem("North"), nullptr);
  EXPECT_EQ(p.FindSystemIndex("East  "), 0);
  *static_cast<CTrunkSystem*>(p.GetSystemAt(1)) = CTrunkSystem();  // and assignments
  EXPECT_EQ(p.FindSystemIndex(""), 1);
}

TEST(PersonalitySystems, NameListsFollowTheSetsASystemUses) {
  CPersonality p;
  auto* trunked = Named<CTrunkSystem>("T", TrunkedSystemType);
  trunked->SetGroupSetName("grp");  // set lookups ignore case
  p.AddSystem(trunked);
  auto* ea = Named<CExtAddSystem>("EA", EaSystemType);
  ea->SetGroupSetName("GRP");
  p.AddSystem(ea);
  auto* conv = Named<CConvSystem>("C", ConvSystemType);
  conv->SetConvSetName("CHANS");
  p.AddSystem(conv);
  p.AddSystem(Named<CPlmSystem>("PLM", PlmSystemType));

  // Elements expose their names through their field description; CStatusMessage has one.
  auto makeSet = [](const char* name, SetType type, std::initializer_list<const char*> members) {
    auto* set = new CSet(type);
    set->SetName(name);
    for (const char* member : members) {
      auto* element = new CStatusMessage;
      element->SetName(member);
      set->Add(element);
    }
    return set;
  };
  p.AddSet(makeSet("GRP", GroupSetType, {"Fire", "Police"}), GroupSetType);
  p.AddSet(makeSet("GRP", EaGroupSetType, {"Wide"}), EaGroupSetType);
  p.AddSet(makeSet("CHANS", ConvSetType, {"Ch1", "Ch2", "Ch3"}), ConvSetType);

  CStringArray names;
  p.GetSystemNames(names);
  ASSERT_EQ(names.GetSize(), 4);
  EXPECT_EQ(names[3], "PLM");
  p.GetSystemGroupNames("T", names);
  ASSERT_EQ(names.GetSize(), 2);
  EXPECT_EQ(names[1], "Police");
  p.GetSystemGroupNames("EA", names);
  ASSERT_EQ(names.GetSize(), 1);
  EXPECT_EQ(names[0], "Wide");
  p.GetSystemChannelNames("C", names);
  EXPECT_EQ(names.GetSize(), 3);
  p.GetSystemChannelNames("T", names);
  EXPECT_EQ(names.GetSize(), 0);
  p.GetSystemGroupNames("PLM", names);  // names no set
  EXPECT_EQ(names.GetSize(), 0);
  p.GetSystemGroupNames("missing", names);
  EXPECT_EQ(names.GetSize(), 0);
}

}  // namespace
}  // namespace persona
