// Record-level differences between two records (two personalities, usually), field by field.
// Both are compared through their JSON form (record_json.h), so every described field takes
// part. Lists of records are matched by what identifies their members: systems and sets by
// name (sets of one list whose names differ only in case are the same set), option records by
// class, everything else (channels, groups, calls, keys) by position. Shared records are
// compared by content.
#pragma once

#include <string>
#include <vector>

#include "framework/object.h"
#include "io/json/record_json.h"

namespace persona {

struct RecordDifference {
  enum Kind { Changed, Added, Removed };
  Kind kind;
  // Where: list names, member keys and field names joined by '/', e.g.
  // "Systems/North/GroupSetName", "ConvSets/FIRE/Elements/3/TxFreq",
  // "Options/CGenRadioOpts/MaxVolume".
  std::string path;
  std::string before;  // JSON text of the old value ("" when added)
  std::string after;   // JSON text of the new value ("" when removed)
};

// The differences that turn a into b, in the order of a's fields (additions after the members
// they follow). Empty when a and b are equal in every described field.
std::vector<RecordDifference> DiffRecords(CObject& a, CObject& b);

// The same over two JSON documents of records.
std::vector<RecordDifference> DiffRecordJson(const Json& a, const Json& b);

}  // namespace persona
