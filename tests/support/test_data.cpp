// Test helpers over tests/data and memory archives.
#include "support/test_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace persona::test {

std::vector<BYTE> ReadTestFile(const std::string& relative) {
  const std::string path = std::string(PERSONA_TEST_DATA_DIR) + "/" + relative;
  std::ifstream in(path, std::ios::binary);
  if (!in) throw std::runtime_error("missing test file " + path);
  return std::vector<BYTE>(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::vector<BYTE> StoreObject(const CObject* obj) {
  CArchive ar(nullptr, CArchive::store);
  ar.WriteObject(obj);
  return ar.TakeStoredBytes();
}

std::unique_ptr<CObject> LoadObject(const std::vector<BYTE>& bytes, const CRuntimeClass* cls,
                                    const std::string& name) {
  CArchive ar(bytes.data(), bytes.size(), name);
  return ar.ReadOwnedObject(cls);
}

namespace {
const std::vector<const CRuntimeClass*> kLibraryClasses = CRuntimeClass::RegisteredClasses();
}  // namespace

const std::vector<const CRuntimeClass*>& LibraryClasses() { return kLibraryClasses; }

std::string FreshDir(const std::string& name) {
  const std::string dir = ::testing::TempDir() + "/persona_" + name;
  std::filesystem::remove_all(dir);
  std::filesystem::create_directories(dir);
  return dir;
}

std::vector<std::string> Entries(const std::string& dir) {
  std::vector<std::string> out;
  for (const auto& e : std::filesystem::directory_iterator(dir)) {
    out.push_back(e.path().filename().string());
  }
  std::sort(out.begin(), out.end());
  return out;
}

std::string Hex(const std::vector<BYTE>& bytes) {
  std::string out;
  char buf[4];
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    std::snprintf(buf, sizeof buf, "%02x", bytes[i]);
    out += buf;
    if (i + 1 < bytes.size()) out += ' ';
  }
  return out;
}

double NanOfEveryHexDigit() {
  const std::uint64_t bits = 0x7ffabcdef0123456ull;
  double v;
  std::memcpy(&v, &bits, sizeof v);
  return v;
}

}  // namespace persona::test
