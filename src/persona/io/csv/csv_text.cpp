#include <persona/io/csv/csv_text.h>

#include <utility>

namespace persona {

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";

bool IsLineBreak(char c) { return c == '\r' || c == '\n'; }

}  // namespace

CCsvException::CCsvException(const std::string& source, std::size_t row, std::size_t column,
                             const std::string& detail)
    : CException((source.empty() ? std::string("<csv>") : source) + ": row " + std::to_string(row) +
                 ", column " + std::to_string(column) + ": " + detail),
      m_row(row),
      m_column(column) {}

CsvReader::CsvReader(std::string_view text, char delimiter, std::string source)
    : m_text(text), m_delimiter(delimiter), m_source(std::move(source)) {
  if (delimiter == '"' || IsLineBreak(delimiter)) {
    throw CInvalidArgException("a quote or a line break cannot be the CSV delimiter");
  }
  if (m_text.substr(0, kBom.size()) == kBom) m_pos = kBom.size();
}

bool CsvReader::EndOfLine() {
  if (m_pos >= m_text.size()) return false;
  if (m_text[m_pos] == '\r') {
    ++m_pos;
    if (m_pos < m_text.size() && m_text[m_pos] == '\n') ++m_pos;
    return true;
  }
  if (m_text[m_pos] == '\n') {
    ++m_pos;
    return true;
  }
  return false;
}

bool CsvReader::Next(std::vector<std::string>& cells) {
  while (m_pos < m_text.size()) {
    ++m_row;
    if (EndOfLine()) continue;  // a blank line
    cells.clear();
    bool more = true;
    while (more) {
      cells.emplace_back();
      more = ReadCell(cells.back(), cells.size());
    }
    EndOfLine();
    return true;
  }
  return false;
}

bool CsvReader::ReadCell(std::string& cell, std::size_t column) {
  if (m_pos < m_text.size() && m_text[m_pos] == '"') return ReadQuoted(cell, column);
  const std::size_t start = m_pos;
  while (m_pos < m_text.size() && m_text[m_pos] != m_delimiter && !IsLineBreak(m_text[m_pos])) {
    ++m_pos;
  }
  cell.assign(m_text.substr(start, m_pos - start));
  if (m_pos < m_text.size() && m_text[m_pos] == m_delimiter) {
    ++m_pos;
    return true;
  }
  return false;
}

bool CsvReader::ReadQuoted(std::string& cell, std::size_t column) {
  ++m_pos;  // the opening quote
  for (;;) {
    const std::size_t quote = m_text.find('"', m_pos);
    if (quote == std::string_view::npos) {
      throw CCsvException(m_source, m_row, column, "the quoted cell is never closed");
    }
    cell.append(m_text.substr(m_pos, quote - m_pos));
    m_pos = quote + 1;
    if (m_pos < m_text.size() && m_text[m_pos] == '"') {  // a doubled quote
      cell.push_back('"');
      ++m_pos;
      continue;
    }
    break;
  }
  if (m_pos >= m_text.size() || IsLineBreak(m_text[m_pos])) return false;
  if (m_text[m_pos] == m_delimiter) {
    ++m_pos;
    return true;
  }
  throw CCsvException(m_source, m_row, column,
                      "text after the closing quote of a quoted cell (a quote inside a quoted "
                      "cell is written twice)");
}

void AppendCsvRow(const std::vector<std::string>& cells, const CsvStyle& style, std::string& out,
                  const std::vector<bool>* quoted) {
  if (out.empty() && style.bom) out.append(kBom);
  const char specials[] = {style.delimiter, '"', '\r', '\n', '\0'};
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::string& cell = cells[i];
    if (i != 0) out.push_back(style.delimiter);
    const bool quote = (quoted != nullptr && i < quoted->size() && (*quoted)[i]) ||
                       cell.find_first_of(specials) != std::string::npos ||
                       (!cell.empty() && (cell.front() == ' ' || cell.back() == ' '));
    if (!quote) {
      out.append(cell);
      continue;
    }
    out.push_back('"');
    for (char c : cell) {
      if (c == '"') out.push_back('"');
      out.push_back(c);
    }
    out.push_back('"');
  }
  out.append(style.crlf ? "\r\n" : "\n");
}

}  // namespace persona
