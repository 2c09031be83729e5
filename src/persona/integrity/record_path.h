// Record paths: one text that names any record or field of a personality, printed by the
// checker, the diff, import errors and the tool, and accepted back by the tool's show, get and
// edit. A path is a list of segments separated by "/":
//
//   Name                                    a header field of the personality
//   systems/KVX METRO                       a system, by its exact name
//   systems/KVX METRO/GroupSetName          a field of a system
//   sets/conv/METRO                         a set, by list and name (letter case ignored, the
//   sets/conv/METRO/Scope                   first of that name, as the personality's lookups)
//   sets/conv/METRO/FIRE 1/RxFreq           an element by its name, where no other element
//   sets/conv/METRO/#3/RxFreq               of the set has it; otherwise by position from 1
//   options/CGenRadioOpts/Squelch           an option record, by class
//   options/CP25tWanOpts/Wans/#1/NetworkName  records owned by a record that is not a set
//   systems/North/ScannedSystems/2          entry 2 (from 1) of a list of names or numbers
//
// Set lists: trunk, conv, group, phone, icall, spcall, plmgroup, plmspcall, p25conv, p25group,
// eagroup. A name is written as it is unless it is empty, begins with '#' or '"', has a blank at
// either end, holds '/', '=', '"', '\' or a control character, or is spelled like a field of
// the record that holds it; then it is quoted, "like this", with '"' and '\' escaped by '\'. A
// quoted segment is always a name, never a field or a position. Field names are the accessor
// names of the records' field descriptions (matched exactly, or ignoring case when that finds
// one field only).
#pragma once

#include <persona/export.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <persona/personality/personality.h>

namespace persona {

class CSystem;

// A path that does not parse or names nothing; what() says why, naming the segment concerned.
class PERSONA_EXPORT PathError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// ---- formatting ------------------------------------------------------------------------------

// The segment for a name: the name itself, or quoted (see the file comment).
PERSONA_EXPORT std::string PathName(std::string_view name);
// The word of set list type in paths ("trunk", "conv", ...); "" for an invalid type.
PERSONA_EXPORT const char* SetListWord(int type);
// The field of set list type in the personality's records and JSON form ("TrunkSets",
// "ConvSets", ...); "" for an invalid type.
PERSONA_EXPORT const char* SetListField(int type);
// The list of a word (exact, lower case), or -1.
PERSONA_EXPORT int SetListOfWord(std::string_view word);
// "systems/<name>".
PERSONA_EXPORT std::string SystemPath(const CSystem& system);
// "sets/<list>/<name>".
PERSONA_EXPORT std::string SetPath(int type, const CSet& set);
// "options/<class>".
PERSONA_EXPORT std::string OptionPath(const CObject& option);
// record + "/" + field, or the field alone for the header (record "").
PERSONA_EXPORT std::string FieldPath(std::string_view record, std::string_view field);

// The last segment of the path of every record of list, in order: the record's name when it
// has a non-empty "Name" field that no other record of the list has (quoted where it would
// read as a field of owner), else "#<position from 1>". One pass over the list.
PERSONA_EXPORT std::vector<std::string> ElementSegments(CObject& owner, const COwnedObList& list);

// ---- parsing and resolving -------------------------------------------------------------------

struct PERSONA_EXPORT PathSegment {
  std::string text;        // the name (unquoted), the field name, or "#3" for a position
  bool quoted = false;     // written in quotes: a name only
  std::size_t column = 0;  // offset of the segment in the path text, from 0
};

// The segments of path; throws PathError for an empty path, an empty segment or an unclosed
// quote (the message gives the column).
PERSONA_EXPORT std::vector<PathSegment> ParsePath(std::string_view path);

// What a path names in a personality.
struct PERSONA_EXPORT PathTarget {
  enum Kind { Header, System, Set, Element, Option, SubRecord };
  Kind kind = Header;
  CObject* record = nullptr;  // the record named or holding the field (owned by the personality)
  std::string field;          // the field as the record spells it; "" when the path names a record
  int entry = -1;             // entry of a list field, from 0; -1 for the whole field
  CSet* set = nullptr;        // Set: the set; Element: the set that holds the element
  int setType = -1;           // Set and Element: the set's list
  int index = -1;             // System, Set, Element, SubRecord: position in its list from 0
  std::string recordPath;     // canonical path of the record ("" for the header)
  // JSON pointer of the target in the personality's JSON form ("/ConvSets/0/Elements/2/RxFreq",
  // "" for the header record).
  std::string pointer;
  // Canonical path of the target: recordPath, the field and the entry (from 1).
  std::string Path() const;
};

// Resolves path against p. Returns the target (pointers valid until p changes); throws
// PathError naming the first segment that finds nothing. p is not changed.
PERSONA_EXPORT PathTarget ResolvePath(CPersonality& p, std::string_view path);

}  // namespace persona
