// Test helper: spells out archive bytes by hand (class tags, back-references, little-endian
// numbers, short strings), so that the exact bytes a store must produce and files written by
// an older schema read like the layout; and loads a root record from such bytes.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <persona/framework/archive.h>
#include <persona/framework/collections.h>
#include <persona/framework/types.h>
#include "support/test_data.h"

namespace persona::test {

class Bytes {
 public:
  Bytes() = default;
  // Starts with the tag of a new class.
  Bytes(const std::string& className, WORD schema) { NewClass(className, schema); }

  // A class seen for the first time: FF FF, schema, name length, name.
  Bytes& NewClass(const std::string& name, WORD schema) {
    U16(0xFFFF).U16(schema).U16(static_cast<WORD>(name.size()));
    return Raw(name.data(), name.size());
  }
  // A class already written, by its index; an object already written, by its index.
  Bytes& OldClass(unsigned index) { return U16(0x8000 | index); }
  Bytes& ObjectRef(unsigned index) { return U16(index); }
  // A list count (below 0xFFFF).
  Bytes& Count(unsigned n) { return U16(n); }
  Bytes& U8(unsigned v) { return Put(static_cast<BYTE>(v)); }
  Bytes& U16(unsigned v) { return Put(static_cast<WORD>(v)); }
  Bytes& U32(DWORD v) { return Put(v); }
  Bytes& I32(LONG v) { return Put(v); }
  Bytes& F64(double v) { return Put(v); }
  // A short string: one length byte, then the characters.
  Bytes& Str(const std::string& s) {
    U8(static_cast<unsigned>(s.size()));
    return Raw(s.data(), s.size());
  }
  Bytes& Raw(const void* p, std::size_t n) {
    const auto* b = static_cast<const BYTE*>(p);
    m_bytes.insert(m_bytes.end(), b, b + n);
    return *this;
  }
  // Appends v little-endian, as it lies in memory.
  template <class T>
  Bytes& Put(T v) {
    return Raw(&v, sizeof(T));
  }

  const std::vector<BYTE>& bytes() const { return m_bytes; }
  std::vector<BYTE>& bytes() { return m_bytes; }  // for patching a byte after the fact
  operator const std::vector<BYTE>&() const { return m_bytes; }  // NOLINT: reads naturally

 private:
  std::vector<BYTE> m_bytes;
};

// Loads the root object of bytes as a T and checks that the load read every byte.
template <class T>
std::unique_ptr<T> LoadWhole(const std::vector<BYTE>& bytes) {
  CArchive ar(bytes.data(), bytes.size(), "test.bin");
  std::unique_ptr<CObject> obj = ar.ReadOwnedObject(T::GetThisClass());
  EXPECT_EQ(0u, ar.GetRemaining()) << "bytes left unread";
  return std::unique_ptr<T>(static_cast<T*>(obj.release()));
}

// Loads the root object of bytes as a T and adopts the archive's shared records (security keys
// of trunk and group sets) into pool, which must outlive the returned record.
template <class T>
std::unique_ptr<T> LoadSharing(const std::vector<BYTE>& bytes,
                               std::vector<std::unique_ptr<CObject>>& pool) {
  CArchive ar(bytes.data(), bytes.size(), "test.bin");
  std::unique_ptr<CObject> obj = ar.ReadOwnedObject(nullptr);
  for (auto& shared : ar.TakeSharedObjects()) pool.push_back(std::move(shared));
  if (dynamic_cast<T*>(obj.get()) == nullptr) throw std::runtime_error("unexpected root class");
  return std::unique_ptr<T>(static_cast<T*>(obj.release()));
}

// The lines of a report block, for comparison with an expected list.
inline std::vector<std::string> Lines(const CStringArray& out) {
  std::vector<std::string> lines;
  for (const CString& s : out) lines.push_back(s.str());
  return lines;
}

// Expects lines from..from+n-1 of out to be the n expected lines and, with exact set, out to
// hold nothing else.
inline void ExpectLines(const std::vector<std::string>& expected, const CStringArray& out,
                        int from = 0, bool exact = true) {
  if (exact) {
    EXPECT_EQ(from + static_cast<int>(expected.size()), out.GetSize());
  }
  ASSERT_LE(from + static_cast<int>(expected.size()), out.GetSize());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(expected[i], out[from + static_cast<int>(i)].str()) << "line " << from + i;
  }
}

}  // namespace persona::test
