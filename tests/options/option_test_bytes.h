// Hand-built archive bytes for the option record tests (a new-class tag and little-endian values,
// so that a test can spell out what an older schema stored) and a typed load of an option record.
#pragma once

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "framework/types.h"
#include "support/test_data.h"

namespace persona::test {

class Bytes {
 public:
  // Starts with the tag of a new class.
  Bytes(const char* className, WORD schema) { Tag(className, schema); }
  // Appends the tag of a new class: 0xFFFF, schema, name length, name.
  Bytes& Tag(const char* className, WORD schema) {
    Put<WORD>(0xFFFF);
    Put<WORD>(schema);
    Put<WORD>(static_cast<WORD>(std::strlen(className)));
    for (const char* p = className; *p; ++p) m_bytes.push_back(static_cast<BYTE>(*p));
    return *this;
  }
  // Appends v little-endian.
  template <class T>
  Bytes& Put(T v) {
    BYTE raw[sizeof(T)];
    std::memcpy(raw, &v, sizeof(T));
    m_bytes.insert(m_bytes.end(), raw, raw + sizeof(T));
    return *this;
  }
  // Appends a short string: length byte, then the characters.
  Bytes& Str(const std::string& s) {
    Put<BYTE>(static_cast<BYTE>(s.size()));
    m_bytes.insert(m_bytes.end(), s.begin(), s.end());
    return *this;
  }
  const std::vector<BYTE>& get() const { return m_bytes; }

 private:
  std::vector<BYTE> m_bytes;
};

// Loads the root record of bytes, which must be a T (a record with ThisClass()).
template <class T>
std::unique_ptr<T> LoadOption(const std::vector<BYTE>& bytes) {
  return std::unique_ptr<T>(static_cast<T*>(LoadObject(bytes, T::GetThisClass()).release()));
}

}  // namespace persona::test
