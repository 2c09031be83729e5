// CString operations.
#include <persona/framework/cstring.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

#include <persona/framework/exceptions.h>

namespace persona {

namespace {

bool IsSpace(char ch) {
  return ch == ' ' || ch == '\t' || ch == '\n' || ch == '\r' || ch == '\v' || ch == '\f';
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
  char small[256];
  va_list copy;
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

CString CString::Formatted(const char* fmt, ...) {
  CString s;
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
