// CTrunkSystem: model defaults and archive form.
#include <persona/systems/trunk_system.h>

namespace persona {

IMPLEMENT_SERIAL(CTrunkSystem, CSystem, VERSIONABLE_SCHEMA | 13)

CTrunkSystem::CTrunkSystem() = default;

CTrunkSystem::CTrunkSystem(unsigned short radioType, int reducedDefaults)
    : CSystem(radioType, reducedDefaults) {
  const BYTE on = reducedDefaults != 0 ? 0 : 1;
  m_EmerAudio = on;
  m_EmerDisplay = on;
  m_Power = on;
  m_Site = on;
}

void CTrunkSystem::Serialize(CArchive& ar) {
  const BYTE schema = LatchSchema(ar);
  CSystem::Serialize(ar);
  SerializeFields(ar, *this, schema);
}

}  // namespace persona
