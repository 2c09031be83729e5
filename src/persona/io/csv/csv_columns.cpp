#include <persona/io/csv/csv_columns.h>

#include <cctype>
#include <unordered_map>
#include <unordered_set>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/framework/codepage.h>
#include <persona/framework/exceptions.h>
#include <persona/framework/fields.h>
#include <persona/integrity/name_refs.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_group_set.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/trunk_set.h>

namespace persona::csv_detail {

std::unique_ptr<CSet> NewSet(int type, unsigned short t, double band) {
  switch (type) {
    case TrunkSetType:
      return std::make_unique<CTrunkSet>(t, 0, band);
    case ConvSetType:
      return std::make_unique<CConvSet>(t, 0);
    case GroupSetType:
      return std::make_unique<CGroupSet>(t, 0, GroupSetType);
    case PhoneSetType:
      return std::make_unique<CPhoneSet>(t, 0);
    case ICallSetType:
      return std::make_unique<CICallSet>(t, 0);
    case SpCallSetType:
      return std::make_unique<CSpCallSet>(t, 0);
    case PlmGroupSetType:
      return std::make_unique<CPlmGroupSet>(t, 0);
    case PlmSpCallSetType:
      return std::make_unique<CPlmSpCallSet>(t, 0);
    case P25ConvSetType:
      return std::make_unique<CP25ConvSet>(t, 0);
    case P25GroupSetType:
      return std::make_unique<CP25GroupSet>(t, 0);
    case EaGroupSetType:
      return std::make_unique<CExtAddGroupSet>(t, 0);
    default:
      break;
  }
  throw CInvalidArgException("set type " + std::to_string(type));
}

std::unique_ptr<CObject> NewElement(int type, unsigned short t) {
  switch (type) {
    case TrunkSetType:
      return std::make_unique<CTrunkChannel>(t, 0);
    case ConvSetType:
      return std::make_unique<CConvChannel>(t, 0);
    case GroupSetType:
      return std::make_unique<CGroup>(t, 0, GroupSetType);
    case PhoneSetType:
      return std::make_unique<CPhoneCall>(t, 0);
    case ICallSetType:
      return std::make_unique<CICall>(t, 0);
    case SpCallSetType:
      return std::make_unique<CSpCall>(t, 0);
    case PlmGroupSetType:
      return std::make_unique<CPlmGroup>(t, 0);
    case PlmSpCallSetType:
      return std::make_unique<CPlmSpCall>(t, 0);
    case P25ConvSetType:
      return std::make_unique<CP25ConvChannel>(t, 0);
    case P25GroupSetType:
      return std::make_unique<CP25Group>(t, 0);
    case EaGroupSetType:
      return std::make_unique<CExtAddGroup>(t, 0);
    default:
      break;
  }
  throw CInvalidArgException("set type " + std::to_string(type));
}

namespace {

// Lists the single-value fields with the kind of value each holds.
class ColumnLister : public CFieldSkipper {
 public:
  using CFieldSkipper::Field;
  explicit ColumnLister(Columns& c) : m_c(c) {}
  void Field(const FieldInfo& f, bool&) override { Add(f, ValueKind::Number); }
  void Field(const FieldInfo& f, BYTE&) override { Add(f, ValueKind::Number); }
  void Field(const FieldInfo& f, WORD&) override { Add(f, ValueKind::Number); }
  void Field(const FieldInfo& f, short&) override { Add(f, ValueKind::Number); }
  void Field(const FieldInfo& f, DWORD&) override { Add(f, ValueKind::Number); }
  void Field(const FieldInfo& f, LONG&) override { Add(f, ValueKind::Number); }
  void Field(const FieldInfo& f, double&) override { Add(f, ValueKind::Double); }
  void Field(const FieldInfo& f, CString&) override { Add(f, ValueKind::Text); }

 private:
  void Add(const FieldInfo& f, ValueKind kind) {
    if (std::string(f.name) == "Name") m_c.nameColumn = m_c.fields.size();
    m_c.fields.emplace_back(f.name);
    m_c.kinds.push_back(kind);
  }
  Columns& m_c;
};

std::string Folded(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  std::string out = first == std::string::npos
                        ? std::string()
                        : text.substr(first, text.find_last_not_of(' ') - first + 1);
  for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return out;
}

std::string Joined(const std::vector<std::string>& names) {
  std::string out;
  for (const std::string& n : names) out += (out.empty() ? "" : ", ") + n;
  return out;
}

// Why UTF-8 text has no code page form: the first byte that is not UTF-8, or the first
// character that the code page lacks.
std::string CodePageFault(const std::string& utf8) {
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    std::size_t n = lead < 0x80           ? 1
                    : (lead >> 5) == 0x6  ? 2
                    : (lead >> 4) == 0xE  ? 3
                    : (lead >> 3) == 0x1E ? 4
                                          : 0;
    if (i + n > utf8.size()) n = 0;
    for (std::size_t k = 1; k < n; ++k) {
      if ((static_cast<unsigned char>(utf8[i + k]) & 0xC0) != 0x80) n = 0;
    }
    if (n == 0) return "byte " + std::to_string(i + 1) + " of the cell is not UTF-8";
    std::string one;
    if (!Utf8ToWindows1252(utf8.substr(i, n), &one)) {
      return "the character \"" + utf8.substr(i, n) +
             "\" is not in the personality's code page (Windows-1252)";
    }
    i += n;
  }
  return "the cell is not UTF-8";
}

}  // namespace

Columns AllColumns(const CObject& element) {
  Columns columns;
  ColumnLister lister(columns);
  const_cast<CObject&>(element).VisitFields(lister);  // the lister only reads
  return columns;
}

Columns ReadHeader(CsvReader& reader, const CObject& element) {
  const Columns all = AllColumns(element);
  std::vector<std::string> header;
  if (!reader.Next(header)) throw CCsvException(reader.Source(), 1, 1, "no header row");
  std::unordered_map<std::string, std::size_t> byFolded;
  for (std::size_t i = 0; i < all.fields.size(); ++i) byFolded.emplace(Folded(all.fields[i]), i);
  std::unordered_set<std::size_t> seen;
  Columns columns;
  for (std::size_t c = 0; c < header.size(); ++c) {
    auto it = byFolded.find(Folded(header[c]));
    if (it == byFolded.end()) {
      throw CCsvException(
          reader.Source(), reader.Row(), c + 1,
          "unknown column \"" + header[c] + "\" (the columns are " + Joined(all.fields) + ")");
    }
    if (!seen.insert(it->second).second) {
      throw CCsvException(reader.Source(), reader.Row(), c + 1,
                          "the column " + all.fields[it->second] + " appears twice");
    }
    if (it->second == all.nameColumn) columns.nameColumn = c;
    columns.fields.push_back(all.fields[it->second]);
    columns.kinds.push_back(all.kinds[it->second]);
  }
  if (all.nameColumn != Columns::kNoName && columns.nameColumn == Columns::kNoName) {
    throw CCsvException(reader.Source(), reader.Row(), header.size() + 1,
                        "no Name column (rows are matched to the elements by name)");
  }
  return columns;
}

std::vector<std::string> RowToCodePage(std::vector<std::string>& cells, std::size_t columns,
                                       const CsvReader& reader) {
  if (cells.size() < columns) {
    throw CCsvException(reader.Source(), reader.Row(), cells.size() + 1,
                        "the row ends after " + std::to_string(cells.size()) +
                            " cells; the header has " + std::to_string(columns));
  }
  for (std::size_t c = columns; c < cells.size(); ++c) {
    if (!cells[c].empty()) {
      throw CCsvException(reader.Source(), reader.Row(), c + 1,
                          "a value beyond the last column of the header");
    }
  }
  std::vector<std::string> out(columns);
  for (std::size_t c = 0; c < columns; ++c) {
    if (!Utf8ToWindows1252(cells[c], &out[c])) {
      throw CCsvException(reader.Source(), reader.Row(), c + 1, CodePageFault(cells[c]));
    }
  }
  return out;
}

const std::string& ElementName(CObject& element) {
  static const std::string kNone;
  const CString* name = FindNameField(element);
  return name != nullptr ? name->str() : kNone;
}

}  // namespace persona::csv_detail
