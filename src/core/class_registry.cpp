// EnsureClassesRegistered: registers every folder's record classes once.
#include "core/class_registry.h"

#include "framework/object.h"

namespace persona {

void EnsureClassesRegistered() {
  static const bool registered = [] {
    RegisterCoreClasses();
    RegisterSystemsClasses();
    RegisterConventionalClasses();
    RegisterCallsClasses();
    RegisterOptionsClasses();
    RegisterPersonalityClasses();
    return true;
  }();
  (void)registered;
}

}  // namespace persona
