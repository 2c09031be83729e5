// CString operations.
#include <persona/framework/cstring.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <vector>

#include <persona/framework/exceptions.h>
#include <persona/framework/short_copy.h>

namespace persona {

namespace {

bool IsSpace(char ch) {
  return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r' || ch == '\v' || ch == '\f';
}

// One conversion of a format: the flags '-' and '0', a width, a precision, the count of 'l's.
struct Conversion {
  bool left = false;
  bool zero = false;
  std::size_t width = 0;
  int precision = -1;
  int longs = 0;
  char type = 0;
};

constexpr std::size_t kMaxWidth = 4096;
constexpr int kMaxPrecision = 64;

// The text of one formatting, gathered on the stack: a text longer than the buffer is marked
// over, and the caller formats it again with vsnprintf.
class FormatText {
 public:
  void Append(const char* text, std::size_t size) {
    if (size > sizeof m_text - m_size) {
      m_over = true;
      return;
    }
    CopyShort(m_text + m_size, text, size);  // most pieces are a few bytes
    m_size += size;
  }
  void Append(std::string_view text) { Append(text.data(), text.size()); }
  void Fill(char c, std::size_t count) {
    constexpr std::size_t kRun = 16;
    if (count <= kRun && kRun <= sizeof m_text - m_size) {  // a short run: one fixed-size copy
      char run[kRun];
      std::memset(run, c, kRun);
      std::memcpy(m_text + m_size, run, kRun);
      m_size += count;
      return;
    }
    if (count > sizeof m_text - m_size) {
      m_over = true;
      return;
    }
    std::memset(m_text + m_size, c, count);
    m_size += count;
  }
  bool Over() const { return m_over; }
  const char* Data() const { return m_text; }
  std::size_t Size() const { return m_size; }

 private:
  char m_text[1024];
  std::size_t m_size = 0;
  bool m_over = false;
};

bool IsDigit(char ch) { return ch >= '0' && ch <= '9'; }

// Reads the conversion that starts after a '%' and moves p past it. False for anything the
// formatter below leaves to vsnprintf: other flags, '*', other lengths and types, a precision
// on an integer or a character, the '0' flag on text.
bool ReadConversion(const char*& p, Conversion& c) {
  for (;; ++p) {
    if (*p == '-') {
      c.left = true;
    } else if (*p == '0') {
      c.zero = true;
    } else {
      break;
    }
  }
  for (; IsDigit(*p); ++p) {
    c.width = c.width * 10 + static_cast<std::size_t>(*p - '0');
    if (c.width > kMaxWidth) return false;
  }
  if (*p == '.') {
    c.precision = 0;
    for (++p; IsDigit(*p); ++p) {
      c.precision = c.precision * 10 + (*p - '0');
      if (c.precision > kMaxPrecision) return false;
    }
  }
  for (; *p == 'l' && c.longs < 2; ++p) ++c.longs;
  c.type = *p;
  if (c.type == '\0' || std::strchr("diuxXcsf", c.type) == nullptr) return false;
  ++p;
  const bool text = c.type == 's' || c.type == 'c';
  if (text && (c.zero || c.longs > 0)) return false;
  return c.precision < 0 || c.type == 's' || c.type == 'f';
}

// Appends sign and digits padded to the conversion's width: blanks on the right or the left,
// or zeros between the sign and the digits.
inline void AppendPadded(FormatText& out, const Conversion& c, std::string_view sign,
                         std::string_view body) {
  const std::size_t length = sign.size() + body.size();
  const std::size_t pad = c.width > length ? c.width - length : 0;
  if (!c.left && !c.zero) out.Fill(' ', pad);
  out.Append(sign);
  if (!c.left && c.zero) out.Fill('0', pad);
  out.Append(body);
  if (c.left) out.Fill(' ', pad);
}

void AppendInteger(FormatText& out, const Conversion& c, va_list* args) {
  unsigned long long magnitude = 0;
  bool negative = false;
  if (c.type == 'd' || c.type == 'i') {
    const long long v = c.longs == 0   ? va_arg(*args, int)
                        : c.longs == 1 ? va_arg(*args, long)
                                       : va_arg(*args, long long);
    negative = v < 0;
    magnitude =
        negative ? 0ULL - static_cast<unsigned long long>(v) : static_cast<unsigned long long>(v);
  } else {
    magnitude = c.longs == 0   ? va_arg(*args, unsigned)
                : c.longs == 1 ? va_arg(*args, unsigned long)
                               : va_arg(*args, unsigned long long);
  }
  char digits[24];
  const int base = c.type == 'x' || c.type == 'X' ? 16 : 10;
  char* end = std::to_chars(digits, digits + sizeof digits, magnitude, base).ptr;
  if (c.type == 'X') {
    std::transform(digits, end, digits,
                   [](char ch) { return ch >= 'a' ? static_cast<char>(ch - 'a' + 'A') : ch; });
  }
  AppendPadded(out, c, negative ? "-" : "", std::string_view(digits, end - digits));
}

// False for a value that is not finite (vsnprintf spells those).
bool AppendFixed(FormatText& out, const Conversion& c, va_list* args) {
  const double v = va_arg(*args, double);
  if (!std::isfinite(v)) return false;
  char digits[320 + kMaxPrecision];
  const auto [end, error] =
      std::to_chars(digits, digits + sizeof digits, v, std::chars_format::fixed,
                    c.precision < 0 ? 6 : c.precision);
  if (error != std::errc()) return false;
  const bool negative = digits[0] == '-';
  AppendPadded(out, c, negative ? "-" : "",
               std::string_view(digits + negative, end - digits - negative));
  return true;
}

// With a precision, reads at most that many bytes, as printf does (the text need not end there).
void AppendText(FormatText& out, const Conversion& c, const char* text) {
  std::size_t length = 0;
  if (c.precision < 0) {
    length = std::strlen(text);
  } else {
    const auto* end = static_cast<const char*>(std::memchr(text, '\0', c.precision));
    length = end != nullptr ? static_cast<std::size_t>(end - text) : c.precision;
  }
  AppendPadded(out, c, "", std::string_view(text, length));
}

// Formats the conversions the report's lines use (flags '-' and '0', width, precision, 'l' and
// 'll'; d i u x X c s f and %%) as printf does, without the cost of vsnprintf. Returns false at
// anything else or a text longer than out holds, with out half written and args consumed: the
// caller formats afresh.
bool FormatCommon(FormatText& out, const char* fmt, va_list* args) {
  for (const char* p = fmt; *p != '\0';) {
    const char* percent = std::strchr(p, '%');
    if (percent == nullptr) {
      out.Append(p, std::strlen(p));
      break;
    }
    out.Append(p, static_cast<std::size_t>(percent - p));
    p = percent + 1;
    if (*p == '%') {
      out.Append("%", 1);
      ++p;
      continue;
    }
    Conversion c;
    if (!ReadConversion(p, c)) return false;
    if (c.type == 's') {
      const char* text = va_arg(*args, const char*);
      if (text == nullptr) return false;
      AppendText(out, c, text);
    } else if (c.type == 'c') {
      const char ch = static_cast<char>(va_arg(*args, int));
      AppendPadded(out, c, "", std::string_view(&ch, 1));
    } else if (c.type == 'f') {
      if (!AppendFixed(out, c, args)) return false;
    } else {
      AppendInteger(out, c, args);
    }
  }
  return !out.Over();
}

}  // namespace

unsigned char CString::UpperChar(unsigned char ch) {
  if (ch >= 'a' && ch <= 'z') return static_cast<unsigned char>(ch - 32);
  if (ch >= 0xE0 && ch <= 0xFE && ch != 0xF7) return static_cast<unsigned char>(ch - 32);
  switch (ch) {
    case 0x9A:
      return 0x8A;  // s caron
    case 0x9C:
      return 0x8C;  // oe
    case 0x9E:
      return 0x8E;  // z caron
    case 0xFF:
      return 0x9F;  // y diaeresis
    default:
      return ch;
  }
}

char CString::GetAt(int i) const {
  if (i < 0 || i >= GetLength()) {
    throw CInvalidArgException("string position " + std::to_string(i) + " outside length " +
                               std::to_string(GetLength()));
  }
  return m_str[static_cast<std::size_t>(i)];
}

void CString::SetAt(int i, char ch) {
  GetAt(i);
  m_str[static_cast<std::size_t>(i)] = ch;
}

CString& CString::MakeUpper() {
  for (char& ch : m_str) ch = static_cast<char>(UpperChar(static_cast<unsigned char>(ch)));
  return *this;
}

std::string CString::UpperText() const {
  CString copy = *this;
  return copy.MakeUpper().str();
}

CString& CString::TrimRight() {
  std::size_t n = m_str.size();
  while (n > 0 && IsSpace(m_str[n - 1])) --n;
  m_str.resize(n);
  return *this;
}

CString& CString::TrimLeft() {
  std::size_t n = 0;
  while (n < m_str.size() && IsSpace(m_str[n])) ++n;
  m_str.erase(0, n);
  return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }

int CString::Compare(const CString& other) const {
  int r = m_str.compare(other.m_str);  // char_traits<char>::compare is unsigned (memcmp)
  return r < 0 ? -1 : (r > 0 ? 1 : 0);
}

int CString::CompareNoCase(const CString& other) const {
  const std::size_t n = std::min(m_str.size(), other.m_str.size());
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned char a = UpperChar(static_cast<unsigned char>(m_str[i]));
    const unsigned char b = UpperChar(static_cast<unsigned char>(other.m_str[i]));
    if (a != b) return a < b ? -1 : 1;
  }
  if (m_str.size() == other.m_str.size()) return 0;
  return m_str.size() < other.m_str.size() ? -1 : 1;
}

void CString::FormatV(const char* fmt, va_list args) {
  va_list copy;
  va_copy(copy, args);
  // The format and the arguments may point into this string: write elsewhere first.
  FormatText text;
  const bool done = FormatCommon(text, fmt, &copy);
  va_end(copy);
  if (done) {
    m_str.assign(text.Data(), text.Size());
    return;
  }
  char small[256];
  va_copy(copy, args);
  const int n = std::vsnprintf(small, sizeof small, fmt, copy);
  va_end(copy);
  if (n < 0) {
    m_str.clear();
    return;
  }
  if (static_cast<std::size_t>(n) < sizeof small) {
    m_str.assign(small, static_cast<std::size_t>(n));
    return;
  }
  std::vector<char> big(static_cast<std::size_t>(n) + 1);
  std::vsnprintf(big.data(), big.size(), fmt, args);
  m_str.assign(big.data(), static_cast<std::size_t>(n));
}

void CString::Format(const char* fmt, ...) {
  va_list args;
  va_start(args, fmt);
  FormatV(fmt, args);
  va_end(args);
}

namespace {

// Memory of strings given back on this thread, taken again by Formatted. The list is reached
// through a plain pointer (one load on each use); an owner made with it frees it when the
// thread ends.
struct SpareStrings {
  static constexpr std::size_t kMost = 1024;
  static constexpr std::size_t kLargest = 512;  // capacity in bytes
  std::vector<std::string> strings;
};
thread_local SpareStrings* t_spares = nullptr;

SpareStrings& Spares() {
  if (t_spares == nullptr) {
    struct Owner {
      std::unique_ptr<SpareStrings> spares = std::make_unique<SpareStrings>();
      Owner() { spares->strings.reserve(SpareStrings::kMost); }
      ~Owner() { t_spares = nullptr; }
    };
    thread_local Owner owner;
    t_spares = owner.spares.get();
  }
  return *t_spares;
}

}  // namespace

void CString::GiveBack(CString& s) noexcept {
  const std::size_t capacity = s.m_str.capacity();
  if (capacity > std::string().capacity() && capacity <= SpareStrings::kLargest) {
    try {
      std::vector<std::string>& spares = Spares().strings;
      if (spares.size() < spares.capacity()) spares.push_back(std::move(s.m_str));
    } catch (const std::bad_alloc&) {
      // no spares on this thread: the string is simply emptied
    }
  }
  s.m_str.clear();
}

CString CString::Formatted(const char* fmt, ...) {
  std::vector<std::string>& spares = Spares().strings;
  CString s;
  if (!spares.empty()) {
    s.m_str = std::move(spares.back());
    spares.pop_back();
  }
  va_list args;
  va_start(args, fmt);
  s.FormatV(fmt, args);
  va_end(args);
  return s;
}

CString CString::Left(int count) const {
  if (count <= 0) return CString();
  return CString(m_str.substr(0, static_cast<std::size_t>(count)));
}

CString CString::Right(int count) const {
  if (count <= 0) return CString();
  const std::size_t n = std::min(m_str.size(), static_cast<std::size_t>(count));
  return CString(m_str.substr(m_str.size() - n));
}

CString CString::Mid(int first, int count) const {
  if (first < 0) first = 0;
  if (static_cast<std::size_t>(first) >= m_str.size()) return CString();
  if (count < 0) return CString(m_str.substr(static_cast<std::size_t>(first)));
  return CString(m_str.substr(static_cast<std::size_t>(first), static_cast<std::size_t>(count)));
}

int CString::Find(char ch, int start) const {
  if (start < 0) start = 0;
  const std::size_t p = m_str.find(ch, static_cast<std::size_t>(start));
  return p == std::string::npos ? -1 : static_cast<int>(p);
}

int CString::Find(const char* sub, int start) const {
  if (start < 0) start = 0;
  const std::size_t p = m_str.find(sub, static_cast<std::size_t>(start));
  return p == std::string::npos ? -1 : static_cast<int>(p);
}

}  // namespace persona
