// The two enumerations that name the kinds of sets and systems throughout the library. Their
// values are stored in files (the set type byte of every set, the system type byte of every
// system) and must not change.
#pragma once

namespace persona {

// The eleven set lists of a personality; also the set type byte of every set.
enum SetType : int {
  TrunkSetType = 0,      // CTrunkSet of CTrunkChannel
  ConvSetType = 1,       // CConvSet of CConvChannel
  GroupSetType = 2,      // CGroupSet of CGroup
  PhoneSetType = 3,      // CPhoneSet of CPhoneCall
  ICallSetType = 4,      // CICallSet of CICall
  SpCallSetType = 5,     // CSpCallSet of CSpCall
  PlmGroupSetType = 6,   // CPlmGroupSet of CPlmGroup (messaging system)
  PlmSpCallSetType = 7,  // CPlmSpCallSet of CPlmSpCall (messaging system)
  P25ConvSetType = 8,    // CP25ConvSet of CP25ConvChannel
  P25GroupSetType = 9,   // CP25GroupSet of CP25Group
  EaGroupSetType = 10,   // CExtAddGroupSet of CExtAddGroup (extended addressing)
};
constexpr int kNumSetTypes = 11;

// True for the values 0 to 10.
constexpr bool IsValidSetType(int t) { return t >= 0 && t < kNumSetTypes; }

// The kind of a system; also the system type byte of every system.
enum SystemType : int {
  TrunkedSystemType = 0,  // CTrunkSystem
  ConvSystemType = 1,     // CConvSystem
  PlmSystemType = 2,      // CPlmSystem (messaging)
  P25ConvSystemType = 3,  // CP25ConvSystem
  EaSystemType = 4,       // CExtAddSystem (extended addressing)
  P25TrkSystemType = 5,   // CP25TrkSystem
};
constexpr int kNumSystemTypes = 6;

}  // namespace persona
