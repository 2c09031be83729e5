// The elements of one set as CSV, for editing in a spreadsheet, and back. The header row holds
// the field names of the set's element class (the accessor names of its field description);
// each further row is one element, in the set's order. Frequencies are written in MHz with as
// many digits as reading them back to the same value needs; coded fields as numbers or, when
// asked, as their report words (a read accepts both). Text is UTF-8; the records hold it in
// their code page, and a character the code page lacks is refused with its row and column.
#pragma once

#include <persona/json_export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <persona/core/set_types.h>
#include <persona/integrity/checker.h>
#include <persona/io/csv/csv_text.h>
#include <persona/personality/personality.h>

namespace persona {

struct PERSONA_JSON_EXPORT CsvExportOptions {
  CsvStyle style;
  bool words = false;  // coded fields as their report words instead of numbers
};

// The CSV text of the elements of set (of its element class; a set without elements still
// gets its header). Fails only for a set type outside 0 to 10 (CInvalidArgException).
PERSONA_JSON_EXPORT std::string ExportSetCsv(const CSet& set,
                                             const CsvExportOptions& options = CsvExportOptions());

struct PERSONA_JSON_EXPORT CsvImportOptions {
  char delimiter = ',';
  bool force = false;            // clear references to elements whose rows disappeared
  std::string source = "<csv>";  // the name of the CSV text in failure messages
};

// A name field elsewhere in the personality (or in the set itself) that names an element whose
// row disappeared: the import empties it only when forced.
struct PERSONA_JSON_EXPORT CsvDroppedReference {
  std::string path;  // the field's path, as the checker prints it
  std::string name;  // the element name it holds
};

// What an import did (or, when blocked, would have done).
struct PERSONA_JSON_EXPORT CsvImportResult {
  bool createdSet = false;  // the set did not exist and was made with the model's defaults
  std::size_t rows = 0;     // element rows read
  std::size_t added = 0;    // rows that matched no element by name: new elements
  std::size_t changed = 0;  // matched elements with a field that changed
  std::size_t removed = 0;  // elements whose names no row holds
  bool reordered = false;   // the kept elements are in another order than before
  // References to removed elements; cleared when forced, else the import is blocked.
  std::vector<CsvDroppedReference> references;
  bool blocked = false;  // references to removed elements and not forced: nothing changed
  // Findings of the checker after the import that it did not report before.
  std::vector<Finding> addedFindings;
};

// Makes the elements of the set of type and name in p (found ignoring case; made with the
// radio type's defaults when p has none) the rows of csv, in their order. The header row names
// the columns (field names of the element class, any letter case, any order, each at most
// once; a Name column is required); a column left out keeps an existing element's value and
// gives a new element the model default. Rows are matched to elements by name (the k-th row of
// a name to the k-th element of that name). Elements whose names no row holds are deleted
// through the set (which clears the references inside it); references to them from elsewhere
// are reported and emptied only with options.force.
//
// Returns what changed. Throws CCsvException (row and column) for malformed CSV, an unknown,
// repeated or missing column, a row with more cells than the header or fewer, text that is not
// UTF-8, a character outside the code page, or a value that does not fit its field;
// CInvalidArgException for an invalid type, an empty set name or a bad delimiter. When it
// throws or is blocked, p is unchanged.
PERSONA_JSON_EXPORT CsvImportResult
ImportSetCsv(CPersonality& p, SetType type, const std::string& setName, std::string_view csv,
             const CsvImportOptions& options = CsvImportOptions());

}  // namespace persona
