#include <persona/io/csv/set_csv.h>

#include <charconv>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include <persona/framework/codepage.h>
#include <persona/integrity/name_refs.h>
#include <persona/io/csv/csv_columns.h>
#include <persona/io/field_text.h>

namespace persona {

using csv_detail::Columns;
using csv_detail::ElementName;
using csv_detail::NewElement;
using csv_detail::ValueKind;

namespace {

// One element row: its cells (field texts in the records' code page) and where it goes.
struct Row {
  // The row number in the CSV, the cells (one per column, in UTF-8) and the Name cell in the
  // records' code page.
  std::size_t number = 0;
  std::vector<std::string> cells;
  std::string name;
  // The matched element's position, or -1 for a new element, held in fresh.
  int existing = -1;
  std::unique_ptr<CObject> fresh;
};

// Sets every cell of row on element; a value that does not fit is refused with its position.
void ApplyRow(CObject& element, const Row& row, const Columns& columns, const std::string& source) {
  for (std::size_t c = 0; c < columns.fields.size(); ++c) {
    try {
      SetFieldText(element, columns.fields[c], row.cells[c]);
    } catch (const FieldTextError& e) {
      throw CCsvException(source, row.number, c + 1, columns.fields[c] + ": " + e.what());
    }
  }
}

// A decimal comma, as spreadsheets of many locales write numbers, becomes a decimal point.
void DecimalPoint(std::string& cell) {
  const std::size_t comma = cell.find(',');
  if (comma != std::string::npos && cell.find_first_of(".,", comma + 1) == std::string::npos &&
      cell.find('.') == std::string::npos) {
    cell[comma] = '.';
  }
}

double ReadDouble(const std::string& text) {
  double v = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), v);
  return v;
}

// True when edited is stored, rounded to the 15 significant digits that spreadsheet programs
// keep of a number: such a cell is the stored value come back from a spreadsheet.
bool SpreadsheetRounded(const std::string& edited, const std::string& stored) {
  char buf[32];
  const auto r =
      std::to_chars(buf, buf + sizeof buf, ReadDouble(stored), std::chars_format::general, 15);
  return ReadDouble(std::string(buf, r.ptr)) == ReadDouble(edited);
}

// Compares the fields of the matched element with the row's values (held by edited); a double
// that only lost digits in a spreadsheet keeps the element's value (the row's cell takes it).
// Returns true when a field changes.
bool Settle(const CObject& element, const CObject& edited, const Columns& columns, Row& row) {
  bool changed = false;
  std::string before;
  std::string after;
  for (std::size_t c = 0; c < columns.fields.size(); ++c) {
    GetFieldText(element, columns.fields[c], before);
    GetFieldText(edited, columns.fields[c], after);
    if (before == after) continue;
    if (columns.kinds[c] == ValueKind::Double && SpreadsheetRounded(after, before)) {
      row.cells[c] = before;
    } else {
      changed = true;
    }
  }
  return changed;
}

// Matches rows to the elements of a set: by name (the k-th row of a name takes the k-th element
// of that name), or by position for elements without names.
class Matcher {
 public:
  Matcher(const CSet* set, const Columns& columns)
      : m_set(set), m_named(columns.nameColumn != Columns::kNoName) {
    if (set == nullptr || !m_named) return;
    for (int i = set->GetCount() - 1; i >= 0; --i) {
      if (CObject* e = set->GetAt(i)) m_byName[ElementName(*e)].push_back(i);
    }
  }
  // The position of the element of row, or -1.
  int Match(const Row& row) {
    const int position = m_rows++;
    if (m_set == nullptr) return -1;
    if (!m_named) return position < m_set->GetCount() ? position : -1;
    auto it = m_byName.find(row.name);
    if (it == m_byName.end() || it->second.empty()) return -1;
    const int found = it->second.back();
    it->second.pop_back();
    return found;
  }

 private:
  const CSet* m_set;
  bool m_named;
  int m_rows = 0;
  std::unordered_map<std::string, std::vector<int>> m_byName;  // positions, last first
};

// Reads the element rows, checks every value on a scratch element of the model's defaults and
// matches the rows to the elements of set (null: a set to be made).
std::vector<Row> ReadRows(CsvReader& reader, const Columns& columns, const CSet* set, int type,
                          unsigned short radio, CsvImportResult& result) {
  Matcher matcher(set, columns);
  std::vector<Row> rows;
  std::vector<std::string> cells;
  while (reader.Next(cells)) {
    Row row;
    row.number = reader.Row();
    std::vector<std::string> bytes =
        csv_detail::RowToCodePage(cells, columns.fields.size(), reader);
    if (columns.nameColumn != Columns::kNoName) row.name = std::move(bytes[columns.nameColumn]);
    cells.resize(columns.fields.size());
    for (std::size_t c = 0; c < cells.size(); ++c) {
      if (columns.kinds[c] == ValueKind::Double) DecimalPoint(cells[c]);
    }
    row.cells = cells;
    std::unique_ptr<CObject> scratch = NewElement(type, radio);
    ApplyRow(*scratch, row, columns, reader.Source());
    row.existing = matcher.Match(row);
    if (row.existing >= 0) {
      if (Settle(*set->GetAt(row.existing), *scratch, columns, row)) ++result.changed;
    } else {
      row.fresh = std::move(scratch);
      ++result.added;
    }
    rows.push_back(std::move(row));
  }
  result.rows = rows.size();
  return rows;
}

std::string FindingKey(const Finding& f) { return f.code + '\n' + f.path + '\n' + f.message; }

// The findings of after that before does not have (as many times as it has them).
std::vector<Finding> AddedFindings(const std::vector<Finding>& before, std::vector<Finding> after) {
  std::unordered_map<std::string, int> old;
  for (const Finding& f : before) ++old[FindingKey(f)];
  std::vector<Finding> added;
  for (Finding& f : after) {
    auto it = old.find(FindingKey(f));
    if (it != old.end() && it->second > 0) {
      --it->second;
    } else {
      added.push_back(std::move(f));
    }
  }
  return added;
}

// The name fields that name an element of set whose name is in gone (fields of the elements
// that go away themselves left out).
std::vector<NameRef> RefsToGone(CPersonality& p, const CSet& set,
                                const std::unordered_set<std::string>& gone,
                                const std::unordered_set<const CObject*>& goneElements) {
  std::vector<NameRef> out;
  if (gone.empty()) return out;
  for (NameRef& ref : CollectNameRefs(p)) {
    if (ref.kind != RefKind::Channel && ref.kind != RefKind::Group) continue;
    if (ref.set != &set || goneElements.count(ref.record) != 0) continue;
    if (gone.count(ref.Name().str()) != 0) out.push_back(std::move(ref));
  }
  return out;
}

// Puts the rows' elements into set in row order: matched elements take their rows' values,
// elements that no row matched are deleted (through the set, clearing its references to them,
// when their name is gone).
void Rebuild(CSet& set, std::vector<Row>& rows, const Columns& columns,
             const std::unordered_set<const CObject*>& gone, const std::string& source) {
  for (const Row& row : rows) {
    if (row.existing >= 0) ApplyRow(*set.GetAt(row.existing), row, columns, source);
  }
  // The kept elements leave empty slots behind, so that positions stay put while others go.
  std::vector<std::unique_ptr<CObject>> held(static_cast<std::size_t>(set.GetCount()));
  for (const Row& row : rows) {
    if (row.existing < 0) continue;
    held[static_cast<std::size_t>(row.existing)].reset(set.SetAt(row.existing, nullptr));
  }
  for (int i = set.GetCount() - 1; i >= 0; --i) {
    if (gone.count(set.GetAt(i)) != 0) set.DeleteAt(i);
  }
  set.Delete();  // the empty slots, and surplus elements of a name that rows still hold
  for (Row& row : rows) {
    set.Add(row.existing >= 0 ? held[static_cast<std::size_t>(row.existing)].release()
                              : row.fresh.release());
  }
}

// What the rows leave out of set: counts the removed elements and collects those whose names
// no row holds (gone: deleted through the set, and references to them dropped).
void FindRemoved(CSet* set, const std::vector<Row>& rows, const Columns& columns,
                 CsvImportResult& result, std::unordered_set<std::string>& goneNames,
                 std::unordered_set<const CObject*>& gone) {
  if (set == nullptr) return;
  std::vector<bool> matched(static_cast<std::size_t>(set->GetCount()), false);
  std::unordered_set<std::string> rowNames;
  int last = -1;
  for (const Row& row : rows) {
    if (columns.nameColumn != Columns::kNoName) rowNames.insert(row.name);
    if (row.existing < 0) continue;
    matched[static_cast<std::size_t>(row.existing)] = true;
    if (row.existing < last) result.reordered = true;
    last = row.existing;
  }
  for (std::size_t i = 0; i < matched.size(); ++i) {
    if (matched[i]) continue;
    ++result.removed;
    CObject* e = set->GetAt(static_cast<int>(i));
    if (e == nullptr || columns.nameColumn == Columns::kNoName) continue;
    if (rowNames.count(ElementName(*e)) != 0) continue;
    goneNames.insert(ElementName(*e));
    gone.insert(e);
  }
}

}  // namespace

std::string ExportSetCsv(const CSet& set, const CsvExportOptions& options) {
  const std::unique_ptr<CObject> prototype = NewElement(set.GetSetType(), 0);
  const Columns columns = csv_detail::AllColumns(*prototype);
  std::vector<bool> quoted;  // text cells, so that a spreadsheet keeps them text
  for (ValueKind kind : columns.kinds) quoted.push_back(kind == ValueKind::Text);
  std::string out;
  AppendCsvRow(columns.fields, options.style, out);
  std::vector<std::string> cells(columns.fields.size());
  for (CObject* element : set.Elements()) {
    if (element == nullptr) continue;
    for (std::size_t c = 0; c < cells.size(); ++c) {
      GetFieldText(*element, columns.fields[c], cells[c], options.words);
    }
    AppendCsvRow(cells, options.style, out, &quoted);
  }
  return out;
}

CsvImportResult ImportSetCsv(CPersonality& p, SetType type, const std::string& setName,
                             std::string_view csv, const CsvImportOptions& options) {
  if (!IsValidSetType(type)) throw CInvalidArgException("set type " + std::to_string(type));
  if (setName.empty()) throw CInvalidArgException("an empty set name");
  CsvImportResult result;
  CSet* set = p.GetSet(CString(setName), type);
  const unsigned short radio = p.GetLastRadio();
  CsvReader reader(csv, options.delimiter, options.source);
  const Columns columns = csv_detail::ReadHeader(reader, *NewElement(type, radio));
  std::vector<Row> rows = ReadRows(reader, columns, set, type, radio, result);

  std::unordered_set<std::string> goneNames;
  std::unordered_set<const CObject*> gone;
  FindRemoved(set, rows, columns, result, goneNames, gone);
  std::vector<NameRef> refs;
  if (set != nullptr) refs = RefsToGone(p, *set, goneNames, gone);
  for (const NameRef& ref : refs) {
    result.references.push_back({ref.path, Windows1252ToUtf8(ref.Name().str())});
  }
  if (!refs.empty() && !options.force) {
    result.blocked = true;
    return result;
  }

  const std::vector<Finding> before = CheckPersonality(p);
  for (const NameRef& ref : refs) ref.Set(CString());
  if (set == nullptr) {
    std::unique_ptr<CSet> made = csv_detail::NewSet(type, radio, p.GetRxMinFreq());
    made->SetName(CString(setName));
    set = made.get();
    p.AddSet(made.release(), type);
    result.createdSet = true;
  }
  Rebuild(*set, rows, columns, gone, options.source);
  result.addedFindings = AddedFindings(before, CheckPersonality(p));
  return result;
}

}  // namespace persona
