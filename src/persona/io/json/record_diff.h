// Record-level differences between two records (two personalities or two set files, usually),
// found by walking both records' described fields side by side, the way the archive does:
// nothing is converted to another form unless it differs, and each difference is handed to a
// sink as soon as it is found, so that a caller can stream its output.
//
// Lists of records are matched by what identifies their members: systems by name, sets by name
// ignoring case (the n-th set of a name pairs with the n-th of that name), option records by
// class, everything else (channels, groups, calls, keys, option sub-records) by position. A
// record left over on one side that equals one left over on the other in everything but its
// name is reported once, as renamed. Shared records (security keys) are compared by content.
// Two records of different classes are compared field by field by field name and type: no
// record is ever taken for a class it is not.
#pragma once

#include <persona/json_export.h>

#include <string>
#include <vector>

#include <persona/framework/object.h>

namespace persona {

struct PERSONA_JSON_EXPORT RecordDifference {
  enum Kind { Changed, Added, Removed, Renamed };
  Kind kind = Changed;
  // Where, in the path syntax of the tool ("Name", "systems/CNV METRO/ConvSetName",
  // "sets/conv/METRO/FIRE 1/RxFreq", "sets/conv/METRO/#3", "options/CToneEncode/Seqs/#2/Name"):
  // the place in a for changes, removals and renames, in b for additions.
  std::string path;
  // The JSON pointer of the same place in the JSON form of a (of b for additions), e.g.
  // "/ConvSets/0/Elements/2/RxFreq".
  std::string pointer;
  // JSON text of the old and the new value ("" for the side that has none). A renamed record
  // gives its old and new name.
  std::string before;
  std::string after;
  // What kind of record the difference concerns, for summaries: "header", "systems",
  // "<kind> sets" and "<kind> elements" with the set kind words ("conv sets", "conv
  // elements"), "options"; "records" for anything else. Sub-records count with the record
  // that holds them.
  std::string group;
  // True when the difference is a whole record of its group (a system, set, element or option
  // record added, removed, renamed, or put in or taken out of an empty slot).
  bool wholeRecord = false;
  // Otherwise: true for the first difference found inside a record of its group that both
  // sides hold, so that a record with several differences is counted once.
  bool firstOfRecord = false;
};

// Receives differences as they are found.
class PERSONA_JSON_EXPORT DiffSink {
 public:
  virtual ~DiffSink() = default;
  // d is valid during the call only. An exception thrown here stops the diff and propagates.
  virtual void Difference(const RecordDifference& d) = 0;
};

// Hands sink the differences that turn a into b, in the order of a's fields (additions after the
// members they follow, renames where the old record stood). Returns the number of differences
// (0 when a and b are equal in every described field). Neither record is changed; the memory
// used beyond the two records is proportional to the largest list, never to the output.
PERSONA_JSON_EXPORT std::size_t DiffRecords(CObject& a, CObject& b, DiffSink& sink);

// The same, collected (for small records and tests).
PERSONA_JSON_EXPORT std::vector<RecordDifference> DiffRecords(CObject& a, CObject& b);

}  // namespace persona
