// Serializable classes of the conventional folder.
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/core/class_registry.h>

namespace persona {

void RegisterConventionalClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CConvChannel));
  CRuntimeClass::Register(RUNTIME_CLASS(CConvSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25ConvChannel));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25ConvSet));
}

}  // namespace persona
