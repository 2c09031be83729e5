// Serializable classes of the conventional folder.
#include "core/class_registry.h"

namespace persona {

void RegisterConventionalClasses() {}

}  // namespace persona
