// Serializable classes of the systems folder.
#include "core/class_registry.h"
#include "systems/esk_data.h"

namespace persona {

void RegisterSystemsClasses() { CRuntimeClass::Register(RUNTIME_CLASS(CEskData)); }

}  // namespace persona
