// Test helpers: reading the archive vectors and other files of tests/data, running a store or
// a load over memory, fresh temporary folders, and the library's own record classes.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include <persona/framework/archive.h>
#include <persona/framework/file.h>
#include <persona/framework/object.h>

namespace persona::test {

// Bytes of tests/data/<relative>; fails the test (throws) when the file is missing.
std::vector<BYTE> ReadTestFile(const std::string& relative);

// Stores obj as the root object of a fresh archive and returns the bytes.
std::vector<BYTE> StoreObject(const CObject* obj);

// Loads the root object of bytes, which must be of cls; name is used in failure messages.
std::unique_ptr<CObject> LoadObject(const std::vector<BYTE>& bytes, const CRuntimeClass* cls,
                                    const std::string& name = "test.bin");

template <class T>
std::unique_ptr<T> LoadAs(const std::vector<BYTE>& bytes, const std::string& name = "test.bin") {
  return std::unique_ptr<T>(static_cast<T*>(LoadObject(bytes, T::GetThisClass(), name).release()));
}

// The library's registered record classes, taken before any test registers helper classes of
// its own.
const std::vector<const CRuntimeClass*>& LibraryClasses();

// A new, empty folder persona_<name> in the tests' temporary folder (an old one is removed).
std::string FreshDir(const std::string& name);

// The names of the entries of folder dir, sorted.
std::vector<std::string> Entries(const std::string& dir);

// Hex dump of bytes, for readable failure messages.
std::string Hex(const std::vector<BYTE>& bytes);

// A NaN whose bits, 7ffabcdef0123456, hold every hexadecimal digit: its "$f64" form must carry
// each one through.
double NanOfEveryHexDigit();

}  // namespace persona::test
