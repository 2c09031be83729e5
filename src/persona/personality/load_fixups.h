// The load repairs that the personality applies after reading a file and that reach into
// option records and trunk sets. The personality calls them from its Serialize; the option and
// set records that they touch implement them.
#pragma once

#include <persona/export.h>

namespace persona {

class CPersonality;

// Emergency latch and trunk-set baud rates: when the options hold a CGenRadioOpts, a latch
// that is not 0 becomes exactly 1 and a CSupervisoryOpts (with its emergency LID switch on) is
// made sure to exist; every trunk set whose baud rate byte is 255 takes the general options'
// baud rate and band width.
PERSONA_EXPORT void ApplyGeneralOptionsFixup(CPersonality& personality);

// Tone encoding triggers of files older than version 17: every sequence of the CToneEncode
// record with encode type 2 advances its trigger by one, 3 wrapping to 0. Returns true when a
// sequence changed.
PERSONA_EXPORT bool RemapToneEncodeTriggers(CPersonality& personality);

}  // namespace persona
