// CExtAddSystem: constructors and archive form.
#include <persona/systems/ext_add_system.h>

namespace persona {

IMPLEMENT_SERIAL(CExtAddSystem, CTrunkSystem, VERSIONABLE_SCHEMA | 13)

CExtAddSystem::CExtAddSystem() { SetSysType(EaSystemType); }

CExtAddSystem::CExtAddSystem(unsigned short radioType, int reducedDefaults)
    : CTrunkSystem(radioType, reducedDefaults) {
  SetSysType(EaSystemType);
}

void CExtAddSystem::Serialize(CArchive& ar) {
  const BYTE schema = LatchSchema(ar);
  CTrunkSystem::Serialize(ar);
  SerializeFields(ar, *this, schema);
}

}  // namespace persona
