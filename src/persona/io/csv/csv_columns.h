// The pieces of the set CSV form below the import and export: new sets and elements of a set
// kind with a model's defaults, the columns of a header row (fields of the element class and
// what kind of value each holds), and row cells turned into the records' code page with the row
// and column of any fault.
#pragma once

#include <persona/json_export.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <persona/core/set.h>
#include <persona/io/csv/csv_text.h>

namespace persona::csv_detail {

// A new, empty set of type with the defaults of radio type t (band: the frequency in MHz that
// picks a trunk set's band defaults). The caller owns it. CInvalidArgException for an invalid
// type.
PERSONA_JSON_EXPORT std::unique_ptr<CSet> NewSet(int type, unsigned short t, double band);
// A new element of a set of type with the defaults of radio type t; the caller owns it.
// CInvalidArgException for an invalid type.
PERSONA_JSON_EXPORT std::unique_ptr<CObject> NewElement(int type, unsigned short t);

enum class ValueKind { Number, Double, Text };

// The fields of an element class as columns.
struct PERSONA_JSON_EXPORT Columns {
  std::vector<std::string> fields;   // field names, in column order
  std::vector<ValueKind> kinds;      // what each column holds
  std::size_t nameColumn = kNoName;  // the Name column, or kNoName when the class has no names
  static constexpr std::size_t kNoName = static_cast<std::size_t>(-1);
};

// Every single-value field of element, in the order of its field description.
PERSONA_JSON_EXPORT Columns AllColumns(const CObject& element);

// The columns that the header row read from reader names, out of the fields of element
// (matched ignoring letter case and blanks around). Throws CCsvException at the header cell
// for a missing header, an unknown or repeated column, or a missing Name column of a class
// whose elements have names (at the column after the last).
PERSONA_JSON_EXPORT Columns ReadHeader(CsvReader& reader, const CObject& element);

// The cells of the row just read, in the records' code page, exactly one per column: cells
// beyond the last column must be empty (trailing delimiters) and the row may not stop short.
// Throws CCsvException with the row and column of the fault (text that is not UTF-8, a
// character the code page lacks, a missing or surplus cell).
PERSONA_JSON_EXPORT std::vector<std::string> RowToCodePage(std::vector<std::string>& cells,
                                                           std::size_t columns,
                                                           const CsvReader& reader);

// The name of element ("" when it has no Name field).
PERSONA_JSON_EXPORT const std::string& ElementName(CObject& element);

}  // namespace persona::csv_detail
