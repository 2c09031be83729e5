// The security key index: key lists by radio type, matching, and the tests of systems and sets.
#include <gtest/gtest.h>

#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>

namespace persona {
namespace {

template <class S>
S* Keyed(SystemType type, WORD esk, const char* eskName, const char* setName = "") {
  auto* sys = new S;
  sys->SetSysType(type);
  sys->SetESK(esk);
  sys->SetEskName(eskName);
  if constexpr (std::is_base_of_v<CTrunkSystem, S>) {
    sys->SetTrunkSetName(setName);
    sys->SetGroupSetName(setName);
  } else if constexpr (std::is_same_v<S, CConvSystem>) {
    sys->SetConvSetName(setName);
  } else if constexpr (std::is_same_v<S, CP25ConvSystem>) {
    sys->SetP25ConvSetName(setName);
  } else if constexpr (std::is_same_v<S, CPlmSystem>) {
    sys->SetTrunkSetName(setName);
  }
  return sys;
}

TEST(PersonalityKeys, KeyListDependsOnTheLastRadioAndSecurityKeysOnNames) {
  CPersonality p(54, 0);
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 5, ""));
  p.AddSystem(Keyed<CExtAddSystem>(EaSystemType, 7, "Ea"));
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 0, "ZeroKey"));
  p.AddSystem(Keyed<CP25TrkSystem>(P25TrkSystemType, 9, "P25"));
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 7, "Ea"));  // the same key again

  CObList list;
  p.GetEskList(list);
  EXPECT_TRUE(list.IsEmpty());  // radio type 54 has no key lists
  CStringArray names;
  CWordArray numbers;
  p.GetSecurityKeys(names, numbers);
  ASSERT_EQ(names.GetSize(), 3);  // by non-empty name, whatever the radio type
  EXPECT_EQ(names[0], "Ea");
  EXPECT_EQ(names[1], "ZeroKey");
  EXPECT_EQ(numbers[1], 0);

  p.SetLastRadio(68);
  const auto keys = p.MakeEskList();  // owned by the vector
  ASSERT_EQ(keys.size(), 3u);         // by non-zero number: 5, 7, 7
  EXPECT_EQ(keys[0]->GetEsk(), 5);
  EXPECT_EQ(keys[0]->GetEskId(), "");
  EXPECT_EQ(keys[2]->GetEskId(), "Ea");

  p.GetSharedEskList(list);  // the personality keeps these records
  ASSERT_EQ(list.GetCount(), 3);
  EXPECT_EQ(CPersonality::matchEsk(7, "Ea", list), 1);
  EXPECT_EQ(CPersonality::matchEsk(7, "ea", list), -1);
  EXPECT_EQ(CPersonality::matchEsk(8, "Ea", list), -1);

  CObList mine;
  p.GetEskList(mine);  // the caller owns these
  EXPECT_EQ(mine.GetCount(), 3);
  for (CObject* key : mine) delete key;
}

TEST(PersonalityKeys, SetTestsConsultOnlyTheSystemKindsThatUseTheSet) {
  CPersonality p(68, 0);
  p.AddSystem(Keyed<CPlmSystem>(PlmSystemType, 3, "Plm", "TRS"));
  p.AddSystem(Keyed<CP25TrkSystem>(P25TrkSystemType, 4, "P25", "TRS"));
  p.AddSystem(Keyed<CConvSystem>(ConvSystemType, 6, "Conv", "CVS"));
  p.AddSystem(Keyed<CTrunkSystem>(TrunkedSystemType, 0, "", "trs"));  // other case, no key

  CSet trs(TrunkSetType);
  trs.SetName("TRS");
  CSet cvs(ConvSetType);
  cvs.SetName("CVS");
  CObList empty;
  EXPECT_TRUE(p.IsEskPresentInTrkSet(&trs, empty));   // neither messaging nor P25 consulted
  EXPECT_FALSE(p.IsEskPresentInGrpSet(&trs, empty));  // P25 trunked is consulted here
  EXPECT_FALSE(p.IsEskPresentInConvSet(&cvs, empty));

  CEskData p25Key;
  p25Key.SetEsk(4);
  p25Key.SetEskId("P25");
  CEskData convKey;
  convKey.SetEsk(6);
  convKey.SetEskId("Conv");
  CObList keys;
  keys.AddTail(&p25Key);
  keys.AddTail(&convKey);
  EXPECT_TRUE(p.IsEskPresentInGrpSet(&trs, keys));
  EXPECT_TRUE(p.IsEskPresentInConvSet(&cvs, keys));

  const CTrunkSystem keyless;
  EXPECT_TRUE(p.IsEskPresentInSystem(&keyless, empty));
  EXPECT_FALSE(p.IsEskPresentInSystem(p.GetSystemAt(0), keys));
  EXPECT_TRUE(p.IsEskPresentInSystem(static_cast<CExtAddSystem*>(nullptr), empty));
}

}  // namespace
}  // namespace persona
