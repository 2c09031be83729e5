// Serializable classes of the calls folder.
#include "core/class_registry.h"

namespace persona {

void RegisterCallsClasses() {}

}  // namespace persona
