// Report blocks drawn from a record's described fields: every field the record describes is
// printed, under the label a table gives it (or its field name when the table has none), in
// the layout of the option blocks (heading, underline, "   <label>- <value>" lines, empty
// line). Used for the system blocks of the personality report and for option records that
// have no report block of their own.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <string>
#include <vector>

#include <persona/framework/collections.h>
#include <persona/framework/object.h>
#include <persona/systems/system.h>  // SystemKindLabel

namespace persona {

// How a field's value is printed.
enum class FieldFormat {
  Plain,       // numbers in decimal (hexadecimal when the field is described as Hex), text as is
  Hex,         // "%X"
  OnOff,       // "Off" / "On"
  IpAddress,   // a 32-bit value as "%03d.%03d.%03d.%03d", most significant byte first
  SystemKind,  // a system type byte through SystemKindLabel
  NotSetFFFF,  // a 16-bit code where 0xFFFF means "Not Set"
};

struct PERSONA_EXPORT FieldLabel {
  const char* field;  // the field name of the record's Fields table
  const char* label;  // at most 27 characters
  FieldFormat format;
};

// One printed field.
struct PERSONA_EXPORT FieldLine {
  std::string label;
  std::string value;
  bool wide;  // text and lists: a line of its own; numbers go two per line
};

// The printed fields of rec in field order, labelled through labels (count entries). Owned
// sub-records are printed field by field with the list name and position in the label.
PERSONA_EXPORT std::vector<FieldLine> CollectFieldLines(CObject& rec, const FieldLabel* labels,
                                                        std::size_t count);

// Appends heading, underline, the lines (wide ones alone, others paired in two columns) and
// the closing empty line.
PERSONA_EXPORT void PrintFieldBlock(CStringArray& out, const std::string& heading,
                                    const std::vector<FieldLine>& lines);

}  // namespace persona
