// Global set files: one set per file, shared by many personalities. A set whose scope byte is 1
// is the local copy of a global set; refreshing a personality replaces each such copy with the
// content of its file, or keeps the local copy (scope 0) and tells the user why.
//
// Files are named by the set's name and an extension per set kind (".TRS", ".GRS", ...). On
// this platform the folder separator is '/', a file whose name differs only in letter case is
// found (files copied from case-insensitive systems keep working), and a set name that holds a
// folder separator or ".." never leads outside the folder. Writes are atomic: a failed write
// leaves the global file that was there intact.
#pragma once

#include <persona/export.h>

#include <memory>
#include <string>
#include <vector>

#include <persona/core/set.h>
#include <persona/core/set_types.h>
#include <persona/framework/cstring.h>

namespace persona {

class CPersonality;
class CTrunkSet;
class CGroupSet;
class CExtAddGroupSet;
class CP25GroupSet;
class CConvSet;
class CP25ConvSet;
class CPhoneSet;
class CICallSet;
class CSpCallSet;
class CPlmGroupSet;
class CPlmSpCallSet;

// One row of the global set table, in the order in which a refresh processes the set lists.
struct PERSONA_EXPORT GlobalSetKind {
  SetType type;
  const char* className;    // the set class that files of this kind hold
  const char* extension;    // with the dot, in capitals
  const char* messageName;  // leads the user messages, ends with a blank
  bool checkFrequencies;    // refreshed sets must fit the personality's band limits
};

// The eleven rows in refresh order; *count receives 11.
PERSONA_EXPORT const GlobalSetKind* GlobalSetKinds(std::size_t* count);
// The row of a set type, or null for a type outside 0 to 10.
PERSONA_EXPORT const GlobalSetKind* GlobalSetKindOf(int type);

// True when name can be a file name inside a folder: not empty, no '/' or '\\', not "." or
// ".." and without "..".
PERSONA_EXPORT bool IsSafeSetFileName(const CString& name);

// The path of the global file of a set named name of the given type in directory (empty: the
// current folder), e.g. "dir/East.GRS" for a group set named East. Returns false (path unchanged)
// when the name is not safe or the type is invalid.
PERSONA_EXPORT bool GlobalSetPath(const CString& directory, const CString& name, int type,
                                  CString* path);

// Finds the file at path, or, when there is none, a file in the same folder whose name differs
// only in letter case; returns the path found, or path itself when there is none.
PERSONA_EXPORT CString ResolveGlobalSetFile(const CString& path);

// Writes set to the file at path as its one object. When a file is there and confirmOverwrite
// is true, the user is asked "File already exists, Overwrite existing global set?" and any
// answer but Yes returns false. When the file cannot be written the user is told "Your set
// could not be saved because <reason>." and false is returned; the old file stays intact.
// Returns true when the file was written.
PERSONA_EXPORT bool WriteSet(CSet* set, CString path, bool confirmOverwrite);

// Reads the set stored at path. Returns false (out untouched) when the file cannot be opened;
// otherwise, when the stored object is of class className exactly, hands it over through out
// (the caller owns it; its name upper-cased; the key records that came with it adopted by the
// set) and returns true when its set type byte is setType as well. Archive faults of a
// damaged file propagate as CArchiveException.
PERSONA_EXPORT bool ReadSetFile(const CString& path, const char* className, BYTE setType,
                                std::unique_ptr<CSet>* out);

// Reads the set stored at path (or at a file of that name in another letter case) as
// ReadSetFile does for the overload's class and set type. Returns false, set untouched, when
// the file cannot be opened or holds another class; a set of the right class is handed over
// (the caller owns it and must delete it) even when its type byte is wrong, with false.
// Archive faults of a damaged file propagate as CArchiveException.
PERSONA_EXPORT bool ReadSet(CTrunkSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CGroupSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CExtAddGroupSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CP25GroupSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CConvSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CP25ConvSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CPhoneSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CICallSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CSpCallSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CPlmGroupSet*& set, CString path);
PERSONA_EXPORT bool ReadSet(CPlmSpCallSet*& set, CString path);

// 1 unless set is a trunk, conventional or P25 conventional set whose CheckFrequencyRange with
// these limits (in this order) answers 0; other sets have no frequencies and always fit.
PERSONA_EXPORT int SetFitsBand(const CSet& set, double txMin, double txMax, double rxMin,
                               double rxMax);

// Refreshes every set of personality whose scope is 1 from its global file in directory (the
// folder is listed once; a file whose name differs only in letter case is found), list by list
// in the order of GlobalSetKinds. A set that is read, of the right class and type, and (for
// trunk, conventional and P25 conventional sets) inside the personality's band limits takes the
// local set's name and place; the local copy is deleted. Otherwise the local copy stays, its
// scope becomes 0 and the user is told "<kind name><set name> not found, using local copy",
// "<kind name><set name> contains out of range frequencies, using local copy", "<kind
// name><set name> could not be read (<cause>), using local copy" for a damaged file, or
// "<kind name><set name> is not a usable file name, using local copy" for a name that holds a
// folder separator or "..". Never fails; always returns true (also for a null personality).
PERSONA_EXPORT bool ReadPersonalityGlobalSets(CPersonality*& personality, CString directory);

}  // namespace persona
