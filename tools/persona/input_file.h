// The input of the commands that look at a file: a personality file, or a global set file
// (NAME.TRS, NAME.CVS, ... by extension, any letter case), which is treated as one set.
#pragma once

#include <string>

#include <persona/personality/global_sets.h>
#include "command.h"

namespace persona::cli {

struct OpenedFile {
  // The personality; for a set file, a personality named after the set that holds only the set
  // (no band limits, no systems, no options).
  LoadedPersonality loaded;
  const GlobalSetKind* setKind = nullptr;  // the kind of a set file, null for a personality
  CSet* set = nullptr;                     // the set of a set file (owned by loaded.personality)
};

// The global set kind that path's extension names, or null.
const GlobalSetKind* SetKindOfPath(const std::string& path);

// Reads the set of the global set file at path, whose kind its extension gives (kind must be
// SetKindOfPath(path), not null). The caller owns the set. InputError as for OpenPersonalityOrSet.
std::unique_ptr<CSet> ReadGlobalSetFile(const std::string& path, const GlobalSetKind& kind);

// Opens path as a global set file when its extension names a set kind, else as a personality
// file (LoadInput). InputError when the file cannot be read, is damaged (the message names the
// byte offset) or holds another class than its extension says.
OpenedFile OpenPersonalityOrSet(const std::string& path);

// The words of a set kind the tool prints everywhere: "conv set", "p25group set", ...
std::string SetWords(SetType type);
// The words of a system kind: "Conventional system", "Project 25 Trunked system", ...
std::string SystemWords(int systemType);

// The set kind that text names (a kind key or type number); UsageError listing the kinds.
SetType KindArg(const std::string& text);

// The set of list type named name (ignoring case) in the personality of file; NotHeldError
// naming the file and the nearest set names of that kind when there is none.
CSet* NamedSet(CPersonality& p, SetType type, const std::string& name, const std::string& file);

// Where a command that changes a personality writes it: OUT, or FILE itself with --in-place
// (UsageError when neither or both are given).
std::string OutputPath(const std::string& file, const std::string& output, bool inPlace);

}  // namespace persona::cli
