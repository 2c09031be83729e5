// Load repairs that reach into option records (see core/load_fixups.h).
// The records they touch arrive with the option and set records; until then they change
// nothing.
#include "core/load_fixups.h"

namespace persona {

void ApplyGeneralOptionsFixup(CPersonality&) {}

bool RemapToneEncodeTriggers(CPersonality&) { return false; }

}  // namespace persona
