#include "io/field_text.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "framework/fields.h"

namespace persona {

namespace {

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) text.remove_suffix(1);
  return text;
}

bool EqualsNoCase(std::string_view a, const char* b) {
  const std::size_t n = std::strlen(b);
  if (a.size() != n) return false;
  for (std::size_t i = 0; i < n; ++i) {
    if (std::tolower(static_cast<unsigned char>(a[i])) != b[i]) return false;
  }
  return true;
}

std::string DoubleText(double v) {
  char buf[64];
  // Five decimals (10 Hz in MHz) when they give back the same bits: the form people write.
  auto r = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, 5);
  if (r.ec == std::errc()) {
    double back = 0.0;
    std::from_chars(buf, r.ptr, back);
    if (std::memcmp(&back, &v, sizeof v) == 0) return std::string(buf, r.ptr);
  }
  r = std::to_chars(buf, buf + sizeof buf, v);  // the shortest text that reads back exactly
  return std::string(buf, r.ptr);
}

double ParseDouble(std::string_view text) {
  std::string t(TrimBlanks(text));
  // A decimal comma, as spreadsheets of many locales write it.
  if (t.find('.') == std::string::npos && t.find(',') == t.rfind(',')) {
    const std::size_t comma = t.find(',');
    if (comma != std::string::npos) t[comma] = '.';
  }
  double v = 0.0;
  const char* begin = t.data() + (!t.empty() && t[0] == '+' ? 1 : 0);
  const auto r = std::from_chars(begin, t.data() + t.size(), v);
  if (t.empty() || r.ec != std::errc() || r.ptr != t.data() + t.size()) {
    throw FieldTextError("\"" + std::string(text) + "\" is not a number");
  }
  return v;
}

template <class T>
T ParseInteger(std::string_view text) {
  std::string_view t = TrimBlanks(text);
  bool negative = false;
  if (!t.empty() && (t.front() == '-' || t.front() == '+')) {
    negative = t.front() == '-';
    t.remove_prefix(1);
  }
  int base = 10;
  if (t.size() > 2 && t[0] == '0' && (t[1] == 'x' || t[1] == 'X')) {
    base = 16;
    t.remove_prefix(2);
  }
  unsigned long long magnitude = 0;
  const auto r = std::from_chars(t.data(), t.data() + t.size(), magnitude, base);
  if (t.empty() || r.ptr != t.data() + t.size() ||
      (r.ec != std::errc() && r.ec != std::errc::result_out_of_range)) {
    throw FieldTextError("\"" + std::string(text) + "\" is not a whole number");
  }
  using Limits = std::numeric_limits<T>;
  const long double value = negative ? -static_cast<long double>(magnitude) : magnitude;
  if (r.ec == std::errc::result_out_of_range || value < static_cast<long double>(Limits::min()) ||
      value > static_cast<long double>(Limits::max())) {
    throw FieldTextError("\"" + std::string(text) + "\" is outside " +
                         std::to_string(static_cast<long long>(Limits::min())) + " to " +
                         std::to_string(static_cast<unsigned long long>(Limits::max())));
  }
  return static_cast<T>(negative ? -static_cast<long long>(magnitude)
                                 : static_cast<long long>(magnitude));
}

bool ParseSwitch(std::string_view text) {
  const std::string_view t = TrimBlanks(text);
  for (const char* on : {"1", "on", "yes", "true"}) {
    if (EqualsNoCase(t, on)) return true;
  }
  for (const char* off : {"0", "off", "no", "false"}) {
    if (EqualsNoCase(t, off)) return false;
  }
  throw FieldTextError("\"" + std::string(text) + "\" is not a switch (0/1, Off/On, No/Yes)");
}

// Finds one field by name and reads or writes it as text; other fields are passed over.
class FieldTexter : public CFieldSkipper {
 public:
  using CFieldSkipper::Field;
  FieldTexter(std::string_view name, std::string* out, const std::string_view* in, bool words)
      : m_name(name), m_out(out), m_in(in), m_words(words) {}
  bool Found() const { return m_found; }

  void Field(const FieldInfo& f, bool& v) override {
    if (!Mine(f)) return;
    if (m_in != nullptr) v = ParseSwitch(*m_in);
    if (m_out != nullptr) *m_out = m_words ? (v ? "On" : "Off") : (v ? "1" : "0");
  }
  void Field(const FieldInfo& f, BYTE& v) override { Number(f, v); }
  void Field(const FieldInfo& f, WORD& v) override { Number(f, v); }
  void Field(const FieldInfo& f, short& v) override { Number(f, v); }
  void Field(const FieldInfo& f, DWORD& v) override { Number(f, v); }
  void Field(const FieldInfo& f, LONG& v) override { Number(f, v); }
  void Field(const FieldInfo& f, double& v) override {
    if (!Mine(f)) return;
    if (m_in != nullptr) v = ParseDouble(*m_in);
    if (m_out != nullptr) *m_out = DoubleText(v);
  }
  void Field(const FieldInfo& f, CString& v) override {
    if (!Mine(f)) return;
    if (m_in != nullptr) v = CString(std::string(*m_in));
    if (m_out != nullptr) *m_out = v.str();
  }

 private:
  bool Mine(const FieldInfo& f) {
    if (m_found || m_name != f.name) return false;
    m_found = true;
    return true;
  }
  template <class T>
  void Number(const FieldInfo& f, T& v) {
    if (!Mine(f)) return;
    if (m_in != nullptr) v = ParseInteger<T>(*m_in);
    if (m_out != nullptr) *m_out = std::to_string(v);
  }

  std::string_view m_name;
  std::string* m_out;
  const std::string_view* m_in;
  bool m_words;
  bool m_found = false;
};

// Collects the names of the single-value fields.
class NameLister : public CFieldSkipper {
 public:
  using CFieldSkipper::Field;
  explicit NameLister(std::vector<std::string>& names) : m_names(names) {}
  void Field(const FieldInfo& f, bool&) override { m_names.emplace_back(f.name); }
  void Field(const FieldInfo& f, BYTE&) override { m_names.emplace_back(f.name); }
  void Field(const FieldInfo& f, WORD&) override { m_names.emplace_back(f.name); }
  void Field(const FieldInfo& f, short&) override { m_names.emplace_back(f.name); }
  void Field(const FieldInfo& f, DWORD&) override { m_names.emplace_back(f.name); }
  void Field(const FieldInfo& f, LONG&) override { m_names.emplace_back(f.name); }
  void Field(const FieldInfo& f, double&) override { m_names.emplace_back(f.name); }
  void Field(const FieldInfo& f, CString&) override { m_names.emplace_back(f.name); }

 private:
  std::vector<std::string>& m_names;
};

}  // namespace

std::vector<std::string> FieldNames(const CObject& rec) {
  std::vector<std::string> names;
  NameLister lister(names);
  const_cast<CObject&>(rec).VisitFields(lister);  // the lister only reads
  return names;
}

bool GetFieldText(const CObject& rec, std::string_view field, std::string& out, bool words) {
  std::string text;
  FieldTexter texter(field, &text, nullptr, words);
  const_cast<CObject&>(rec).VisitFields(texter);  // reads only: no text to set is given
  if (texter.Found()) out = std::move(text);
  return texter.Found();
}

void SetFieldText(CObject& rec, std::string_view field, std::string_view text) {
  FieldTexter texter(field, nullptr, &text, false);
  rec.VisitFields(texter);
  if (!texter.Found()) {
    throw FieldTextError(std::string(rec.GetRuntimeClass()->m_lpszClassName) + " has no field " +
                         std::string(field));
  }
}

}  // namespace persona
