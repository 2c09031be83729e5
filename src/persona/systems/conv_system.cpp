// CConvSystem: constructors, assignment and archive form.
#include <persona/systems/conv_system.h>

namespace persona {

IMPLEMENT_SERIAL(CConvSystem, CSystem, VERSIONABLE_SCHEMA | 13)

CConvSystem::CConvSystem(unsigned short radioType, int reducedDefaults)
    : CSystem(radioType, reducedDefaults) {}

CConvSystem& CConvSystem::operator=(const CConvSystem* src) {
  if (src != nullptr && src != this) *this = *src;
  return *this;
}

void CConvSystem::Serialize(CArchive& ar) {
  const BYTE schema = LatchSchema(ar);
  CSystem::Serialize(ar);
  SerializeFields(ar, *this, schema);
}

}  // namespace persona
