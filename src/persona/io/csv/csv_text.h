// Comma-separated text as spreadsheet programs read and write it: quoted cells with doubled
// quotes inside, line breaks inside quoted cells, CRLF or LF (or a lone CR) between rows, an
// optional UTF-8 byte-order mark in front, and a delimiter of the caller's choice (',' by
// default; ';' where a locale's spreadsheets use the comma as the decimal mark).
#pragma once

#include <persona/json_export.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <persona/framework/exceptions.h>

namespace persona {

// CSV text that cannot be taken: names the source, the row and column (both counted from 1,
// the header being row 1, as a spreadsheet numbers them) and what is wrong there.
class PERSONA_JSON_EXPORT CCsvException : public CException {
 public:
  CCsvException(const std::string& source, std::size_t row, std::size_t column,
                const std::string& detail);
  std::size_t m_row;
  std::size_t m_column;
};

// Reads the rows of CSV text in one pass, without copying the text (the caller keeps it alive
// while reading).
class PERSONA_JSON_EXPORT CsvReader {
 public:
  // text: the whole CSV text (a leading UTF-8 byte-order mark is skipped); source: the name in
  // failure messages. The delimiter may not be a quote, CR or LF (CInvalidArgException).
  CsvReader(std::string_view text, char delimiter, std::string source);
  // Fills cells with the next row and returns true; returns false at the end of the text.
  // Rows that are wholly empty (a blank line) are skipped. Throws CCsvException for a quoted
  // cell that is never closed or is followed by other text before the delimiter.
  bool Next(std::vector<std::string>& cells);
  // The row number of the row the last Next returned (rows counted as records, blank lines
  // included, so that it matches the spreadsheet's row number).
  std::size_t Row() const { return m_row; }
  const std::string& Source() const { return m_source; }

 private:
  // Reads one cell starting at m_pos into cell; returns true when the row goes on after it.
  bool ReadCell(std::string& cell, std::size_t column);
  bool ReadQuoted(std::string& cell, std::size_t column);
  // Consumes a line end at m_pos (CRLF, LF or CR); false when there is none.
  bool EndOfLine();

  std::string_view m_text;
  std::size_t m_pos = 0;
  std::size_t m_row = 0;
  char m_delimiter;
  std::string m_source;
};

// Formatting of CSV rows.
struct PERSONA_JSON_EXPORT CsvStyle {
  char delimiter = ',';
  bool crlf = true;  // CRLF between rows (RFC 4180); LF when false
  bool bom = false;  // a UTF-8 byte-order mark in front of the first row
};

// Appends one row of cells to out, followed by the line end. A cell is quoted when it must be
// (it holds the delimiter, a quote, a line break, or a blank at either end that a spreadsheet
// would trim) or when quoted[i] is true (text that a spreadsheet should not take for a number;
// quoted may be null or shorter than cells). The first row appended to an empty out gets the
// byte-order mark if asked.
PERSONA_JSON_EXPORT void AppendCsvRow(const std::vector<std::string>& cells, const CsvStyle& style,
                                      std::string& out, const std::vector<bool>* quoted = nullptr);

}  // namespace persona
