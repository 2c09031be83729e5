// CP25TrkSystem: constructors and archive form.
#include <persona/systems/p25_trk_system.h>

namespace persona {

IMPLEMENT_SERIAL(CP25TrkSystem, CTrunkSystem, VERSIONABLE_SCHEMA | 13)

CP25TrkSystem::CP25TrkSystem() { SetSysType(P25TrkSystemType); }

CP25TrkSystem::CP25TrkSystem(unsigned short radioType, int reducedDefaults)
    : CTrunkSystem(radioType, reducedDefaults) {
  SetSysType(P25TrkSystemType);
}

void CP25TrkSystem::Serialize(CArchive& ar) {
  const BYTE schema = LatchSchema(ar);
  CTrunkSystem::Serialize(ar);
  SerializeFields(ar, *this, schema);
}

}  // namespace persona
