// Serializable classes of the options folder.
#include "core/class_registry.h"
#include "options/macro.h"
#include "options/status_message.h"

namespace persona {

void RegisterOptionsClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CStatusMessage));
  CRuntimeClass::Register(RUNTIME_CLASS(CMacro));
}

}  // namespace persona
