// Which systems use which sets, as pruning sees it: for every set list, the system kinds that
// are consulted and the one set-name field of each that names a set of that list; and which
// system kinds each radio type can use.
#pragma once

#include <persona/export.h>

#include <persona/core/set_types.h>
#include <persona/framework/cstring.h>
#include <persona/framework/types.h>

namespace persona {

class CSystem;

// When system is of a kind consulted for list type, stores the set name it gives for that list
// in *name and returns true; otherwise returns false (name unchanged).
PERSONA_EXPORT bool SystemSetNameFor(const CSystem& system, SetType type, CString* name);

// False for the system kinds that pruning removes for radioType.
PERSONA_EXPORT bool RadioTypeSupportsSystemKind(WORD radioType, int systemType);

}  // namespace persona
