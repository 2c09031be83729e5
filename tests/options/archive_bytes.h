// Test helper: builds archive bytes by hand (a record stored by an older schema, or the exact
// bytes a store must produce) and loads a record while checking that every byte was read.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "framework/archive.h"
#include "framework/types.h"

namespace persona::test {

class ArchiveBytes {
 public:
  // Starts with the tag of a new class: 0xFFFF, schema, name length, name.
  ArchiveBytes& NewClass(const std::string& name, WORD schema) {
    U16(0xFFFF).U16(schema).U16(static_cast<WORD>(name.size()));
    bytes.insert(bytes.end(), name.begin(), name.end());
    return *this;
  }
  ArchiveBytes& U8(BYTE v) { return Raw(&v, 1); }
  ArchiveBytes& U16(WORD v) { return Raw(&v, 2); }
  ArchiveBytes& U32(DWORD v) { return Raw(&v, 4); }
  ArchiveBytes& I32(LONG v) { return Raw(&v, 4); }
  ArchiveBytes& F64(double v) { return Raw(&v, 8); }
  // A short string: one length byte, then the characters.
  ArchiveBytes& Str(const std::string& s) {
    U8(static_cast<BYTE>(s.size()));
    bytes.insert(bytes.end(), s.begin(), s.end());
    return *this;
  }
  ArchiveBytes& Raw(const void* p, std::size_t n) {
    const auto* b = static_cast<const BYTE*>(p);
    bytes.insert(bytes.end(), b, b + n);
    return *this;
  }

  std::vector<BYTE> bytes;
};

// Loads the root object of bytes as a T and checks that the load read every byte.
template <class T>
std::unique_ptr<T> LoadWhole(const std::vector<BYTE>& bytes) {
  CArchive ar(bytes.data(), bytes.size(), "test.bin");
  std::unique_ptr<CObject> obj = ar.ReadOwnedObject(T().GetRuntimeClass());
  EXPECT_EQ(0u, ar.GetRemaining()) << "bytes left unread";
  return std::unique_ptr<T>(static_cast<T*>(obj.release()));
}

// The lines of a report block, for comparison with an expected list.
inline std::vector<std::string> Lines(const CStringArray& out) {
  std::vector<std::string> lines;
  for (const CString& s : out) lines.push_back(s.str());
  return lines;
}

}  // namespace persona::test
