// EnsureClassesRegistered: registers every folder's record classes once.
#include <persona/core/class_registry.h>

#include <mutex>

#include <persona/framework/object.h>

namespace persona {

void EnsureClassesRegistered() {
  static std::once_flag once;
  std::call_once(once, [] {
    RegisterCoreClasses();
    RegisterSystemsClasses();
    RegisterConventionalClasses();
    RegisterCallsClasses();
    RegisterOptionsClasses();
    RegisterPersonalityClasses();
  });
}

}  // namespace persona
