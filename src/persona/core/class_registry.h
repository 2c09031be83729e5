// Registration of the record classes, folder by folder. EnsureClassesRegistered (declared with
// CRuntimeClass) calls every function below once; each lists the serializable classes of its
// folder, so that no registration depends on static initialisers surviving the linker.
#pragma once

#include <persona/export.h>

namespace persona {

PERSONA_EXPORT void RegisterCoreClasses();
PERSONA_EXPORT void RegisterSystemsClasses();
PERSONA_EXPORT void RegisterConventionalClasses();
PERSONA_EXPORT void RegisterCallsClasses();
PERSONA_EXPORT void RegisterOptionsClasses();
PERSONA_EXPORT void RegisterPersonalityClasses();

}  // namespace persona
