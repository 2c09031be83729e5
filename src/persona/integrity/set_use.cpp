// The pruning table: set lists, the system kinds consulted and their set-name fields.
#include <persona/integrity/set_use.h>

#include <algorithm>
#include <initializer_list>

#include <persona/systems/conv_system.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_system.h>

namespace persona {

namespace {

bool OneOf(int v, std::initializer_list<int> list) {
  return std::find(list.begin(), list.end(), v) != list.end();
}

// The set name a trunked-family system (kinds 0, 4, 5) gives for list type.
bool TrunkedName(const CTrunkSystem& s, SetType type, CString* name) {
  const int kind = s.GetSysType();
  switch (type) {
    case TrunkSetType:
      *name = s.GetTrunkSetName();
      return true;
    case GroupSetType:
      if (!OneOf(kind, {TrunkedSystemType, P25TrkSystemType})) return false;
      *name = s.GetGroupSetName();
      return true;
    case EaGroupSetType:
      if (kind != EaSystemType) return false;
      *name = s.GetGroupSetName();
      return true;
    case P25GroupSetType:
      if (kind != P25TrkSystemType) return false;
      *name = s.GetGroupSetName();
      return true;
    case PhoneSetType:
      *name = s.GetPhoneSetName();
      return true;
    case ICallSetType:
      *name = s.GetiCallSetName();
      return true;
    case SpCallSetType:
      if (kind != TrunkedSystemType) return false;
      *name = s.GetSpCallSetName();
      return true;
    default:
      return false;
  }
}

bool PlmName(const CPlmSystem& s, SetType type, CString* name) {
  switch (type) {
    case TrunkSetType:
      *name = s.GetTrunkSetName();
      return true;
    case PlmGroupSetType:
      *name = s.GetGroupSetName();
      return true;
    case PlmSpCallSetType:
      *name = s.GetSpCallSetName();
      return true;
    default:
      return false;
  }
}

}  // namespace

bool SystemSetNameFor(const CSystem& system, SetType type, CString* name) {
  switch (system.GetSysType()) {
    case TrunkedSystemType:
    case EaSystemType:
    case P25TrkSystemType:
      if (const auto* s = dynamic_cast<const CTrunkSystem*>(&system)) {
        return TrunkedName(*s, type, name);
      }
      return false;
    case PlmSystemType:
      if (const auto* s = dynamic_cast<const CPlmSystem*>(&system)) return PlmName(*s, type, name);
      return false;
    case ConvSystemType:
      if (const auto* s = dynamic_cast<const CConvSystem*>(&system)) {
        if (type == ConvSetType) *name = s->GetConvSetName();
        if (type == PhoneSetType) *name = s->GetPhoneSetName();
        return type == ConvSetType || type == PhoneSetType;
      }
      return false;
    case P25ConvSystemType:
      if (const auto* s = dynamic_cast<const CP25ConvSystem*>(&system)) {
        if (type == P25ConvSetType) *name = s->GetP25ConvSetName();
        if (type == ICallSetType) *name = s->GetIcallSetName();
        return type == P25ConvSetType || type == ICallSetType;
      }
      return false;
    default:
      return false;
  }
}

bool RadioTypeSupportsSystemKind(WORD radioType, int systemType) {
  const int r = radioType;
  switch (systemType) {
    case PlmSystemType:
      return OneOf(r, {65, 66, 67, 85, 86});
    case TrunkedSystemType:
      return !OneOf(r, {30, 29, 33, 52, 27, 28});
    case P25TrkSystemType:
      return OneOf(r, {101, 102, 103, 104, 105, 106});
    case P25ConvSystemType:
    case EaSystemType:
      return OneOf(r, {88, 89, 92, 101, 102, 103, 104, 105, 106});
    case ConvSystemType:
      return !OneOf(r, {72, 73, 74, 75});
    default:
      return true;
  }
}

}  // namespace persona
