// Helpers of the set tests. ArchiveBytes spells out an archive byte by byte (class tags,
// strings, numbers), so that expectations of stored records and hand-made old-schema files read
// like the layout; LoadSharing loads the root record of a lone set and keeps its shared key
// records alive; ExpectLines compares report lines.
#pragma once

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "framework/archive.h"
#include "framework/collections.h"
#include "framework/types.h"

namespace persona::test {

class ArchiveBytes {
 public:
  ArchiveBytes& u8(unsigned v) { return Put(static_cast<BYTE>(v)); }
  ArchiveBytes& u16(unsigned v) { return Put(static_cast<WORD>(v)); }
  ArchiveBytes& u32(unsigned v) { return Put(static_cast<DWORD>(v)); }
  ArchiveBytes& f64(double v) { return Put(v); }
  // A short string: length byte, then the characters.
  ArchiveBytes& str(const std::string& s) {
    u8(static_cast<unsigned>(s.size()));
    m_bytes.insert(m_bytes.end(), s.begin(), s.end());
    return *this;
  }
  // A class seen for the first time: FF FF, schema, name length, name.
  ArchiveBytes& newClass(unsigned schema, const std::string& name) {
    u16(0xFFFF).u16(schema).u16(static_cast<unsigned>(name.size()));
    m_bytes.insert(m_bytes.end(), name.begin(), name.end());
    return *this;
  }
  // A class already written, with its index.
  ArchiveBytes& oldClass(unsigned index) { return u16(0x8000 | index); }
  // A back-reference to an object already written, with its index.
  ArchiveBytes& objectRef(unsigned index) { return u16(index); }
  // A list count (below 0xFFFF).
  ArchiveBytes& count(unsigned n) { return u16(n); }

  const std::vector<BYTE>& bytes() const { return m_bytes; }
  operator const std::vector<BYTE>&() const { return m_bytes; }  // NOLINT: reads naturally

 private:
  template <class T>
  ArchiveBytes& Put(T v) {
    const std::size_t at = m_bytes.size();
    m_bytes.resize(at + sizeof(T));
    std::memcpy(m_bytes.data() + at, &v, sizeof(T));
    return *this;
  }
  std::vector<BYTE> m_bytes;
};

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
