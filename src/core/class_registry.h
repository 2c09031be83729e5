// Registration of the record classes, folder by folder. EnsureClassesRegistered (declared with
// CRuntimeClass) calls every function below once; each lists the serializable classes of its
// folder, so that no registration depends on static initialisers surviving the linker.
#pragma once

namespace persona {

void RegisterCoreClasses();
void RegisterSystemsClasses();
void RegisterConventionalClasses();
void RegisterCallsClasses();
void RegisterOptionsClasses();
void RegisterPersonalityClasses();

}  // namespace persona
