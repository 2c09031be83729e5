// The integrity checker: one call that examines a whole personality and reports what is
// inconsistent in it, each finding with a stable code, a severity, the path of the field or
// record concerned and a message a person can act on.
//
// Paths are record paths (integrity/record_path.h), which the tool accepts back: for example
// "systems/North/GroupSetName", "sets/conv/METRO/FIRE 1/TxFreq" (an element by its name, or
// "#<position from 1>" when its name is not unique in its set), "options/CGenRadioOpts/CnvTestSet"
// and "systems/North/ScannedSystems/2" for an entry of a list of names.
//
// Codes (stable; tools may match on them):
//   REF_SYSTEM_MISSING   error    a field names a system that does not exist
//   SCAN_SYSTEM_MISSING  error    a scanned-system list names a system that does not exist
//   REF_SET_MISSING      error    a field names a set that its list does not hold
//   REF_CHANNEL_MISSING  error    a channel name (home, priority, wide scan, alternate PTT,
//                                 priority channel of an option) is not a channel of its set
//   REF_GROUP_MISSING    error    a group name is not a group of its group set
//   REF_SCOPE_MISSING    warning  a channel or group is named, but the system field next to it
//                                 is empty or names a system without such a set
//   REF_WAN_MISSING      error    a field names a P25 wide-area network that CP25tWanOpts lacks
//   FREQ_OUT_OF_RANGE    error    a channel of a trunk, conventional or P25 conventional set
//                                 is outside the personality's band limits (one finding per
//                                 channel, at its TxFreq or RxFreq, with frequency and limits)
//   KEY_MISSING          error    a system that uses a trunk or group set has a security key
//                                 that the set's key list lacks
//   SET_NAME_DUPLICATE   warning  a set's name equals, ignoring case, an earlier set's of the
//                                 same list (lookups only ever find the first)
//   SET_UNUSED           info     no record names the set
// The rules of the model are those of its radio type (the personality's last radio), as pruning
// and the key lists apply them; a message names the model and the radio types that would do:
//   SYSTEM_UNSUPPORTED   warning  the model takes no system of this kind (pruning removes it)
//   SET_UNSUPPORTED      warning  a conventional set of a model that takes no conventional
//                                 system (pruning removes every conventional set)
//   OPTION_UNSUPPORTED   warning  CP25tWanOpts holds networks, and the model takes no P25
//                                 trunked system (pruning deletes the record)
//   KEY_UNSUPPORTED      warning  a trunked or extended-addressing system has a security key,
//                                 and the model has no key lists (its sets get none); such a
//                                 model reports no KEY_MISSING
//   RECORD_MISPLACED     warning  a record of a class that its place does not use: a record
//                                 that is not a system in the system list ("systems/#<n>"), not
//                                 a set in a set list ("sets/<list>/#<n>"), a set of another
//                                 class than its list's, or an element of another class than
//                                 its set's class holds ("sets/<list>/<set>/#<n>")
// A name reached through a name that is already reported (a channel of a missing system, say)
// is not reported again, nor is a duplicate set reported as unused. The cost is linear in the size
// of the personality.
#pragma once

#include <persona/export.h>

#include <string>
#include <vector>

#include <persona/personality/personality.h>

namespace persona {

struct PERSONA_EXPORT Finding {
  std::string code;
  enum Severity { Error, Warning, Info } severity;
  std::string path;
  std::string message;
};

// The findings for p: the name references (systems, sets, options), then the sets list by list,
// the key lists, the system kinds, the WAN record; empty for a consistent personality. p is not
// changed (it is visited through its field descriptions).
PERSONA_EXPORT std::vector<Finding> CheckPersonality(const CPersonality& p);

}  // namespace persona
