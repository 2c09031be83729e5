// Rename and delete propagation: the personality operations that rename or delete a system, a
// set, a channel of a channel set or a group of a group set, and carry the change into every
// record that names the target.
//
// What names what is described once, in the records' field descriptions (the RefersTo field
// option): systems name their sets, scanned systems, priority system, conventional priority
// system and channel, and P25 WANs; sets name their own home, priority, wide-scan and
// alternate-PTT channels or groups, and a P25 conventional set names its P25 group set; option
// records name systems, sets, and channels or groups of the set of a system that another of
// their fields names. A channel or group name always means an element of one particular set.
//
// Matching follows the lookups: a name field refers to the record that the personality's own
// lookup of that name finds (sets ignoring case, systems exactly; channels and groups exactly,
// inside their set). A rename writes the new name into every field that referred to the
// target; a delete empties those fields, removes the entries of scanned-system lists, and also
// empties the channel and group names that reached their set through the deleted record (the
// conventional priority channel of a deleted conventional system, for instance).
//
// Every operation returns the number of name fields it changed (a list entry counts as one;
// the target's own name is not counted), or -1 when the target does not exist, the new name is
// empty or already taken by another record of the same kind, or the set type is not one that
// holds such elements; then nothing changes. Cost: one pass over the personality.
#pragma once

#include <persona/export.h>

#include <vector>

#include <persona/core/set_types.h>
#include <persona/framework/cstring.h>
#include <persona/personality/personality.h>

namespace persona {

class CSystem;

PERSONA_EXPORT int RenameSystem(CPersonality& p, const CString& oldName, const CString& newName);
PERSONA_EXPORT int RenameSet(CPersonality& p, SetType type, const CString& oldName,
                             const CString& newName);
PERSONA_EXPORT int DeleteSystem(CPersonality& p, const CString& name);
PERSONA_EXPORT int DeleteSet(CPersonality& p, SetType type, const CString& name);
// Channels of conventional (1) and P25 conventional (8) sets. A deleted element leaves its set
// through CSet::DeleteAt, so the set's own clearing applies as well (a P25 conventional set
// also empties its P25 group set name when that equals the channel's name).
PERSONA_EXPORT int RenameChannel(CPersonality& p, SetType type, const CString& setName,
                                 const CString& oldName, const CString& newName);
PERSONA_EXPORT int DeleteChannel(CPersonality& p, SetType type, const CString& setName,
                                 const CString& name);
// Groups of group (2), messaging group (6), P25 group (9) and extended-addressing group (10)
// sets.
PERSONA_EXPORT int RenameGroup(CPersonality& p, SetType type, const CString& setName,
                               const CString& oldName, const CString& newName);
PERSONA_EXPORT int DeleteGroup(CPersonality& p, SetType type, const CString& setName,
                               const CString& name);

// Empties every name field that refers to one of systems (which stay in the personality: the
// caller removes them) in one pass, as DeleteSystem does for one. Returns the number of fields
// changed.
PERSONA_EXPORT int ClearReferencesToSystems(CPersonality& p,
                                            const std::vector<const CSystem*>& systems);

}  // namespace persona
