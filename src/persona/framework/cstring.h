// CString: the framework's byte string. Characters are bytes of the Windows-1252 code page;
// short strings live inside the object (no allocation), longer ones on the heap.
#pragma once

#include <persona/export.h>

#include <cstdarg>
#include <string>
#include <string_view>

#include <persona/framework/types.h>

namespace persona {

class PERSONA_EXPORT CString {
 public:
  CString() = default;
  CString(const char* text) : m_str(text ? text : "") {}   // NOLINT: implicit like the framework's
  CString(const std::string& text) : m_str(text) {}        // NOLINT
  CString(std::string&& text) : m_str(std::move(text)) {}  // NOLINT
  CString(std::string_view text) : m_str(text) {}          // NOLINT
  CString(char ch, int count) : m_str(count > 0 ? static_cast<std::size_t>(count) : 0, ch) {}

  // Length in bytes.
  int GetLength() const { return static_cast<int>(m_str.size()); }
  bool IsEmpty() const { return m_str.empty(); }
  void Empty() { m_str.clear(); }

  // Returns the byte at i; i outside 0 .. length-1 raises CInvalidArgException.
  char GetAt(int i) const;
  void SetAt(int i, char ch);
  char operator[](int i) const { return GetAt(i); }

  // Windows-1252 upper casing (ASCII and the accented letters of the code page).
  CString& MakeUpper();
  // The bytes upper-cased as MakeUpper does, in a new std::string: the key under which names
  // that compare ignoring case are the same.
  std::string UpperText() const;
  // Remove trailing / leading white space (blank, tab, CR, LF, VT, FF).
  CString& TrimRight();
  CString& TrimLeft();
  CString& Trim();

  // <0, 0, >0 like strcmp (bytes compared unsigned).
  int Compare(const CString& other) const;
  // Compares the upper-cased forms of both strings.
  int CompareNoCase(const CString& other) const;

  // Replaces the content with printf-style formatted text.
  void Format(const char* fmt, ...) __attribute__((format(printf, 2, 3)));
  void FormatV(const char* fmt, va_list args);
  // Returns a new string with printf-style formatted text, in the memory of a string this
  // thread gave back (GiveBack) when it has one.
  static CString Formatted(const char* fmt, ...) __attribute__((format(printf, 1, 2)));
  // Takes the memory of s (left empty) into this thread's few spare strings, for Formatted to
  // format into again: a report makes and drops millions of lines of about the same length.
  // Short strings, and long ones past a few hundred bytes, are simply emptied.
  static void GiveBack(CString& s) noexcept;

  CString Left(int count) const;
  CString Right(int count) const;
  CString Mid(int first, int count = -1) const;
  // Position of the first occurrence at or after start, or -1.
  int Find(char ch, int start = 0) const;
  int Find(const char* sub, int start = 0) const;

  const char* c_str() const { return m_str.c_str(); }
  const char* GetString() const { return m_str.c_str(); }
  const std::string& str() const { return m_str; }
  std::string& str() { return m_str; }

  CString& operator+=(const CString& other) {
    m_str += other.m_str;
    return *this;
  }
  CString& operator+=(const char* other) {
    m_str += other;
    return *this;
  }
  CString& operator+=(char ch) {
    m_str += ch;
    return *this;
  }

  friend CString operator+(const CString& a, const CString& b) {
    return CString(a.m_str + b.m_str);
  }
  friend CString operator+(const CString& a, const char* b) { return CString(a.m_str + b); }
  friend CString operator+(const char* a, const CString& b) { return CString(a + b.m_str); }
  friend CString operator+(const CString& a, char b) { return CString(a.m_str + b); }
  friend bool operator==(const CString& a, const CString& b) { return a.m_str == b.m_str; }
  friend bool operator==(const CString& a, const char* b) { return a.m_str == b; }
  friend bool operator==(const char* a, const CString& b) { return b.m_str == a; }
  friend bool operator!=(const CString& a, const CString& b) { return a.m_str != b.m_str; }
  friend bool operator!=(const CString& a, const char* b) { return a.m_str != b; }
  friend bool operator!=(const char* a, const CString& b) { return b.m_str != a; }
  friend bool operator<(const CString& a, const CString& b) { return a.m_str < b.m_str; }

  // Upper-cases one Windows-1252 byte.
  static unsigned char UpperChar(unsigned char ch);

 private:
  std::string m_str;
};

}  // namespace persona

template <>
struct std::hash<persona::CString> {
  std::size_t operator()(const persona::CString& s) const noexcept {
    return std::hash<std::string>()(s.str());
  }
};
