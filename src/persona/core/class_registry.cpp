// EnsureClassesRegistered: registers every folder's record classes once.
#include <persona/core/class_registry.h>

#include <persona/framework/object.h>

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
