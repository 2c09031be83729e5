// The fields of one record as typed references to its members, in field order: what the
// streamed JSON reader fills and what the record diff compares, without a visitor call per
// value once the table is taken.
#pragma once

#include <cstddef>
#include <vector>

#include <persona/framework/object.h>
#include <persona/json_export.h>

namespace persona {

// The type of a field's member.
enum class FieldKind : unsigned char {
  Bool,
  Byte,
  Word,
  Short,
  Dword,
  Long,
  Double,
  String,
  Strings,    // CStringArray
  Words,      // CWordArray
  WordTable,  // a fixed table of WORD values
  Owned,      // COwnedObList
  Shared      // CObList of shared records
};

struct FieldRef {
  const char* name;  // the accessor name (static text of the record's field table)
  FieldKind kind;
  void* member;       // the member of the record it was taken from
  std::size_t count;  // WordTable: the number of values
};

// Replaces out with the fields of rec, in field order. The references point into rec and are
// valid while rec lives; nothing is owned. Does not fail.
PERSONA_JSON_EXPORT void CollectFieldRefs(CObject& rec, std::vector<FieldRef>& out);

}  // namespace persona
