// Serializable classes of the core folder.
#include "core/class_registry.h"
#include "core/personality.h"
#include "core/serial.h"
#include "core/set.h"

namespace persona {

void RegisterCoreClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CSerial));
  CRuntimeClass::Register(RUNTIME_CLASS(CSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CPersonality));
}

}  // namespace persona
