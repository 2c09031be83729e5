// Field values as text (see field_text.h).
#include <persona/io/field_text.h>

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include <persona/core/set.h>
#include <persona/framework/codepage.h>
#include <persona/framework/fields.h>
#include <persona/options/option_report.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

std::string_view Trim(std::string_view s) {
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.front()))) s.remove_prefix(1);
  while (!s.empty() && std::isspace(static_cast<unsigned char>(s.back()))) s.remove_suffix(1);
  return s;
}

bool EqualFolded(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::tolower(static_cast<unsigned char>(a[i])) !=
        std::tolower(static_cast<unsigned char>(b[i]))) {
      return false;
    }
  }
  return true;
}

std::string Shown(std::string_view text) { return "\"" + std::string(text) + "\""; }

std::vector<std::string_view> SplitList(std::string_view text) {
  std::vector<std::string_view> out;
  if (Trim(text).empty()) return out;
  while (true) {
    const std::size_t comma = text.find(',');
    out.push_back(Trim(text.substr(0, comma)));
    if (comma == std::string_view::npos) break;
    text.remove_prefix(comma + 1);
  }
  return out;
}

// The number in text (decimal, or hexadecimal after "0x"), or throws.
long long ParseInteger(std::string_view text) {
  std::string_view t = Trim(text);
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
  unsigned long long v = 0;
  const auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), v, base);
  if (t.empty() || ec == std::errc::invalid_argument || end != t.data() + t.size()) {
    throw FieldTextError(Shown(text) + " is not a whole number");
  }
  if (ec == std::errc::result_out_of_range || v > (1ULL << 62)) {
    throw FieldTextError(Shown(text) + " is far too large");
  }
  const auto s = static_cast<long long>(v);
  return negative ? -s : s;
}

template <class T>
T FitInteger(std::string_view text, long long v) {
  const auto lo = static_cast<long long>(std::numeric_limits<T>::min());
  const auto hi = static_cast<long long>(std::numeric_limits<T>::max());
  if (v < lo || v > hi) {
    throw FieldTextError(Shown(Trim(text)) + " does not fit: the field holds " +
                         std::to_string(lo) + " to " + std::to_string(hi));
  }
  return static_cast<T>(v);
}

bool ParseSwitch(std::string_view text, bool* on) {
  const std::string_view t = Trim(text);
  for (const char* w : {"on", "true", "yes", "1"}) {
    if (EqualFolded(t, w)) {
      *on = true;
      return true;
    }
  }
  for (const char* w : {"off", "false", "no", "0"}) {
    if (EqualFolded(t, w)) {
      *on = false;
      return true;
    }
  }
  return false;
}

std::string DoubleText(double v) {
  char buf[64];
  const auto r = std::to_chars(buf, buf + sizeof buf, v);
  return std::string(buf, r.ptr);
}

double ParseDouble(std::string_view text) {
  const std::string_view t = Trim(text);
  double v = 0;
  const char* first = t.data() + (!t.empty() && t.front() == '+' ? 1 : 0);
  const auto [end, ec] = std::from_chars(first, t.data() + t.size(), v);
  if (t.empty() || ec != std::errc() || end != t.data() + t.size() || !std::isfinite(v)) {
    throw FieldTextError(Shown(text) + " is not a number");
  }
  return v;
}

CString ParseString(std::string_view text) {
  std::string bytes;
  if (!Utf8ToWindows1252(text, &bytes)) {
    throw FieldTextError(Shown(text) +
                         " is not UTF-8 or holds a character outside the radio's code page "
                         "(Windows-1252)");
  }
  return CString(bytes);
}

bool IsFixedField(const CObject& record, std::string_view name) {
  return (name == "SetType" && record.IsKindOf(RUNTIME_CLASS(CSet))) ||
         (name == "SysType" && record.IsKindOf(RUNTIME_CLASS(CSystem)));
}

// Field names with a text form, in order.
class NameScan : public CFieldVisitor {
 public:
  std::vector<std::string> names;
  void Field(const FieldInfo& f, bool&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, BYTE&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, WORD&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, short&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, DWORD&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, LONG&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, double&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, CString&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, CStringArray&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, CWordArray&) override { names.emplace_back(f.name); }
  void Field(const FieldInfo& f, WORD*, std::size_t) override { names.emplace_back(f.name); }
  void Field(const FieldInfo&, COwnedObList&) override {}
  void Field(const FieldInfo&, CObList&) override {}
};

std::vector<std::string> TextFields(const CObject& record) {
  NameScan scan;
  const_cast<CObject&>(record).VisitFields(scan);
  return scan.names;
}

// The field spelled name (exactly, or ignoring case when that finds one), or "".
std::string MatchField(const CObject& record, std::string_view name) {
  std::string folded;
  int foldedCount = 0;
  for (std::string& n : TextFields(record)) {
    if (n == name) return n;
    if (EqualFolded(n, name)) {
      folded = n;
      ++foldedCount;
    }
  }
  return foldedCount == 1 ? folded : std::string();
}

// Gets or sets one named field (entry: -1 for the whole field).
class FieldOp : public CFieldVisitor {
 public:
  FieldOp(std::string name, int entry, bool words)
      : m_name(std::move(name)), m_entry(entry), m_words(words) {}
  bool found = false;
  bool setting = false;
  std::string text;  // the value read, or the text to set

  void Field(const FieldInfo& f, bool& v) override {
    if (!Mine(f)) return;
    if (!setting) {
      text = m_words ? (v ? "On" : "Off") : (v ? "true" : "false");
    } else if (!ParseSwitch(text, &v)) {
      throw FieldTextError(Shown(text) + " is not a switch: give On or Off");
    }
  }
  void Field(const FieldInfo& f, BYTE& v) override { Integer(f, v); }
  void Field(const FieldInfo& f, WORD& v) override { Integer(f, v); }
  void Field(const FieldInfo& f, short& v) override { Integer(f, v); }
  void Field(const FieldInfo& f, DWORD& v) override { Integer(f, v); }
  void Field(const FieldInfo& f, LONG& v) override { Integer(f, v); }
  void Field(const FieldInfo& f, double& v) override {
    if (!Mine(f)) return;
    if (setting) {
      v = ParseDouble(text);
    } else {
      text = DoubleText(v);
    }
  }
  void Field(const FieldInfo& f, CString& v) override {
    if (!Mine(f)) return;
    if (setting) {
      v = ParseString(text);
    } else {
      text = Windows1252ToUtf8(v.str());
    }
  }
  void Field(const FieldInfo& f, CStringArray& v) override {
    if (!Mine(f, true)) return;
    List(
        v.GetSize(), [&](int i) { return Windows1252ToUtf8(v.GetAt(i).str()); },
        [&](std::string_view t) { return ParseString(t); },
        [&](int i, const CString& s) { i < v.GetSize() ? v.SetAt(i, s) : (void)v.Add(s); },
        [&](const std::vector<CString>& all) {
          v.RemoveAll();
          for (const CString& s : all) v.Add(s);
        },
        true);
  }
  void Field(const FieldInfo& f, CWordArray& v) override {
    if (!Mine(f, true)) return;
    List(
        v.GetSize(), [&](int i) { return std::to_string(v.GetAt(i)); },
        [&](std::string_view t) { return FitInteger<WORD>(t, ParseInteger(t)); },
        [&](int i, WORD w) { i < v.GetSize() ? v.SetAt(i, w) : (void)v.Add(w); },
        [&](const std::vector<WORD>& all) {
          v.RemoveAll();
          for (WORD w : all) v.Add(w);
        },
        true);
  }
  void Field(const FieldInfo& f, WORD* values, std::size_t count) override {
    if (!Mine(f, true)) return;
    const int n = static_cast<int>(count);
    List(
        n, [&](int i) { return std::to_string(values[i]); },
        [&](std::string_view t) { return FitInteger<WORD>(t, ParseInteger(t)); },
        [&](int i, WORD w) { values[i] = w; },
        [&](const std::vector<WORD>& all) {
          if (all.size() != count) {
            throw FieldTextError(std::string(f.name) + " holds exactly " + std::to_string(count) +
                                 " numbers, not " + std::to_string(all.size()));
          }
          std::copy(all.begin(), all.end(), values);
        },
        false);
  }
  void Field(const FieldInfo& f, COwnedObList&) override { NoText(f); }
  void Field(const FieldInfo& f, CObList&) override { NoText(f); }

 private:
  // True when f is the field sought and the op applies to it (an entry only to lists).
  bool Mine(const FieldInfo& f, bool list = false) {
    if (found || m_name != f.name) return false;
    found = true;
    if (m_entry < 0 || list) return true;
    if (setting) throw FieldTextError(m_name + " is not a list: it has no entries");
    found = false;
    return false;
  }
  void NoText(const FieldInfo& f) {
    if (found || m_name != f.name) return;
    throw FieldTextError(std::string(f.name) + " is a list of records; give the path of one");
  }

  template <class T>
  void Integer(const FieldInfo& f, T& v) {
    if (!Mine(f)) return;
    if (!setting) {
      text = IntegerText(f, v);
      return;
    }
    v = ParseCoded<T>(f, text);
  }

  template <class T>
  std::string IntegerText(const FieldInfo& f, T v) const {
    if (m_words && f.words != nullptr) return WordOf(*f.words, static_cast<unsigned>(v));
    if (m_words && f.onOff && (v == 0 || v == 1)) return v ? "On" : "Off";  // else the number
    if (m_words && f.hex) {
      char buf[24];
      const auto r = std::to_chars(
          buf, buf + sizeof buf,
          static_cast<unsigned long long>(static_cast<std::make_unsigned_t<T>>(v)), 16);
      std::string hex(buf, r.ptr);
      for (char& c : hex) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      return "0x" + hex;
    }
    return std::to_string(v);
  }

  template <class T>
  static T ParseCoded(const FieldInfo& f, std::string_view text) {
    const std::string_view t = Trim(text);
    if (f.words != nullptr) {
      for (std::size_t i = 0; i < f.words->count; ++i) {
        const char* w = f.words->words[i];
        if (w != nullptr && *w != '\0' && EqualFolded(t, w)) return static_cast<T>(i);
      }
      if (t.empty() || !(std::isdigit(static_cast<unsigned char>(t.front())) || t.front() == '-' ||
                         t.front() == '+')) {
        throw FieldTextError(Shown(text) + " is not one of " + WordList(*f.words) +
                             " (or their numbers 0 to " + std::to_string(f.words->count - 1) + ")");
      }
      const long long v = ParseInteger(text);
      if (v < 0 || v >= static_cast<long long>(f.words->count)) {
        throw FieldTextError(Shown(text) + " is not a code of " + WordList(*f.words) +
                             ": give a word or a number from 0 to " +
                             std::to_string(f.words->count - 1));
      }
      return static_cast<T>(v);
    }
    bool on = false;
    if (f.onOff && !t.empty() && std::isalpha(static_cast<unsigned char>(t.front()))) {
      if (!ParseSwitch(t, &on))
        throw FieldTextError(Shown(text) + " is not a switch: give On or Off");
      return static_cast<T>(on ? 1 : 0);
    }
    return FitInteger<T>(text, ParseInteger(text));
  }

  static std::string WordList(const Words& words) {
    std::string out;
    for (std::size_t i = 0; i < words.count; ++i) {
      if (words.words[i] == nullptr || *words.words[i] == '\0') continue;
      out += (out.empty() ? "" : ", ") + std::string(words.words[i]);
    }
    return out;
  }

  // A list field: reads or sets the whole list or one entry. growable: entry count+1 appends.
  template <class Show, class Parse, class Put, class Assign>
  void List(int count, Show show, Parse parse, Put put, Assign assign, bool growable) {
    if (!setting) {
      if (m_entry >= 0) {
        if (m_entry >= count) return Missing();
        text = show(m_entry);
        return;
      }
      text.clear();
      for (int i = 0; i < count; ++i) text += (i ? ", " : "") + show(i);
      return;
    }
    if (m_entry >= 0) {
      if (m_entry > count || (m_entry == count && !growable)) {
        throw FieldTextError(m_name + " has " + std::to_string(count) + " entries; entry " +
                             std::to_string(m_entry + 1) + " cannot be set");
      }
      put(m_entry, parse(text));
      return;
    }
    std::vector<decltype(parse(text))> all;
    for (std::string_view item : SplitList(text)) all.push_back(parse(item));
    assign(all);
  }
  void Missing() { found = false; }

  std::string m_name;
  int m_entry;
  bool m_words;
};

// Splits "Name/3" into the field and the entry (from 0; -1 when none).
std::pair<std::string_view, int> SplitEntry(std::string_view field) {
  const std::size_t slash = field.rfind('/');
  if (slash == std::string_view::npos) return {field, -1};
  const std::string_view number = field.substr(slash + 1);
  int n = 0;
  const auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), n);
  if (number.empty() || ec != std::errc() || end != number.data() + number.size() || n < 1) {
    return {field, -2};
  }
  return {field.substr(0, slash), n - 1};
}

}  // namespace

std::vector<std::string> FieldNames(const CObject& record) {
  std::vector<std::string> out;
  for (std::string& n : TextFields(record)) {
    if (!IsFixedField(record, n)) out.push_back(std::move(n));
  }
  return out;
}

bool GetFieldText(const CObject& record, std::string_view field, std::string& out, bool words) {
  const auto [name, entry] = SplitEntry(field);
  if (entry < -1) return false;
  const std::string matched = MatchField(record, name);
  if (matched.empty()) return false;
  FieldOp op(matched, entry, words);
  const_cast<CObject&>(record).VisitFields(op);
  if (!op.found) return false;
  out = std::move(op.text);
  return true;
}

void SetFieldText(CObject& record, std::string_view field, std::string_view text) {
  const auto [name, entry] = SplitEntry(field);
  if (entry < -1) throw FieldTextError(Shown(field) + " is not a field name or <field>/<entry>");
  const std::string matched = MatchField(record, name);
  if (matched.empty()) {
    throw FieldTextError(std::string(record.GetClassName()) + " has no field " + Shown(name) +
                         " with a value");
  }
  if (IsFixedField(record, matched)) {
    throw FieldTextError(matched + " is fixed by the record's class (" + record.GetClassName() +
                         ")");
  }
  FieldOp op(matched, entry, false);
  op.setting = true;
  op.text = std::string(text);
  record.VisitFields(op);
}

}  // namespace persona
