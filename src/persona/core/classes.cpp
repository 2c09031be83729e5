// Serializable classes of the record bases.
#include <persona/core/class_registry.h>
#include <persona/core/serial.h>
#include <persona/core/set.h>

namespace persona {

void RegisterCoreClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CSerial));
  CRuntimeClass::Register(RUNTIME_CLASS(CSet));
}

}  // namespace persona
