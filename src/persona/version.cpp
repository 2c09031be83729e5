// The library's run-time version.
#include <persona/version.h>

namespace persona {

const char* Version() noexcept { return PERSONA_VERSION_STRING; }

}  // namespace persona
