// CP25ConvSystem: constructors, assignment and archive form.
#include <persona/systems/p25_conv_system.h>

namespace persona {

IMPLEMENT_SERIAL(CP25ConvSystem, CSystem, VERSIONABLE_SCHEMA | 13)

CP25ConvSystem::CP25ConvSystem(unsigned short radioType, int reducedDefaults)
    : CSystem(radioType, reducedDefaults) {}

CP25ConvSystem& CP25ConvSystem::operator=(const CP25ConvSystem* src) {
  if (src != nullptr && src != this) *this = *src;
  return *this;
}

void CP25ConvSystem::Serialize(CArchive& ar) {
  const BYTE schema = LatchSchema(ar);
  CSystem::Serialize(ar);
  SerializeFields(ar, *this, schema);
}

}  // namespace persona
