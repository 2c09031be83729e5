// Serializable classes of the record bases.
#include "core/class_registry.h"
#include "core/serial.h"
#include "core/set.h"

namespace persona {

void RegisterCoreClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CSerial));
  CRuntimeClass::Register(RUNTIME_CLASS(CSet));
}

}  // namespace persona
