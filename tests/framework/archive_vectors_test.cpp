// The archive against the vectors of an independent encoder: strings, counts, objects with
// back-references and 32-bit tags, and every failure vector with its cause and offset.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include <persona/framework/archive.h>
#include <persona/framework/collections.h>
#include <persona/options/status_message.h>
#include <persona/systems/esk_data.h>
#include "support/test_data.h"

namespace persona {
namespace {

using test::Hex;
using test::ReadTestFile;

std::vector<BYTE> Store(const std::function<void(CArchive&)>& body) {
  CArchive ar(nullptr, CArchive::store);
  body(ar);
  return ar.TakeStoredBytes();
}

TEST(ArchiveVectors, StringsLoadAndTheSingleByteOnesStoreBack) {
  const std::vector<BYTE> bytes = ReadTestFile("vectors/strings.bin");
  const std::vector<std::string> expected = {
      "",
      "A",
      std::string(254, 'x'),
      std::string(255, 'y'),
      std::string(256, 'z'),
      std::string(65533, 'q'),
      std::string(65534, 'r'),
      std::string(65535, 's'),
      std::string(70000, 't'),
      "Gr\xFC\xDF"
      "e",
      std::string(300, 'u'),
  };
  CArchive ar(bytes.data(), bytes.size(), "strings.bin");
  std::size_t endOfSingleByte = 0;
  for (std::size_t i = 0; i < expected.size(); ++i) {
    CString s;
    ar >> s;
    EXPECT_EQ(s.str(), expected[i]) << "string " << i;
    if (i == 8) endOfSingleByte = ar.GetPosition();
  }
  EXPECT_EQ(ar.GetRemaining(), 0u);

  const std::vector<BYTE> stored = Store([&](CArchive& out) {
    for (std::size_t i = 0; i < 9; ++i) out << CString(expected[i]);
  });
  ASSERT_EQ(stored.size(), endOfSingleByte);
  EXPECT_TRUE(std::equal(stored.begin(), stored.end(), bytes.begin()));
}

TEST(ArchiveVectors, CountsInAllThreeForms) {
  const std::vector<BYTE> bytes = ReadTestFile("vectors/counts.bin");
  const std::vector<ULONGLONG> expected = {0, 1, 0xFFFE, 0xFFFF, 0x10000, 0xFFFFFFFE};
  CArchive ar(bytes.data(), bytes.size(), "counts.bin");
  for (ULONGLONG n : expected) EXPECT_EQ(ar.ReadCount(), n);
  EXPECT_EQ(ar.GetRemaining(), 0u);
  const std::vector<BYTE> stored = Store([&](CArchive& out) {
    for (ULONGLONG n : expected) out.WriteCount(n);
  });
  EXPECT_EQ(Hex(stored), Hex(bytes));
}

TEST(ArchiveVectors, EskRecordLoadsAndStoresBack) {
  const std::vector<BYTE> bytes = ReadTestFile("vectors/esk.bin");
  auto esk = test::LoadAs<CEskData>(bytes, "esk.bin");
  EXPECT_EQ(esk->GetEskId(), "Key A");
  EXPECT_EQ(esk->GetEsk(), -5);
  EXPECT_EQ(Hex(test::StoreObject(esk.get())), Hex(bytes));
}

TEST(ArchiveVectors, BackReferencesGiveTheSameObjectAgain) {
  const std::vector<BYTE> bytes = ReadTestFile("vectors/backref_list.bin");
  CArchive ar(bytes.data(), bytes.size(), "backref_list.bin");
  CObList list(RUNTIME_CLASS(CEskData));
  list.Serialize(ar);
  auto pool = ar.TakeSharedObjects();
  ASSERT_EQ(list.GetCount(), 5);
  EXPECT_EQ(pool.size(), 2u);
  EXPECT_EQ(list.GetAt(0), list.GetAt(1));
  EXPECT_EQ(list.GetAt(2), list.GetAt(4));
  EXPECT_EQ(list.GetAt(3), nullptr);
  EXPECT_EQ(static_cast<CEskData*>(list.GetAt(0))->GetEskId(), "Alpha");
  EXPECT_EQ(static_cast<CEskData*>(list.GetAt(2))->GetEskId(), "Bravo");

  const std::vector<BYTE> stored = Store([&](CArchive& out) { list.Serialize(out); });
  EXPECT_EQ(Hex(stored), Hex(bytes));
}

TEST(ArchiveVectors, BigTagsUseThe32BitForms) {
  const std::vector<BYTE> bytes = ReadTestFile("vectors/bigtags_list.bin");
  CArchive ar(bytes.data(), bytes.size(), "bigtags_list.bin");
  CObList list;
  list.Serialize(ar);
  auto pool = ar.TakeSharedObjects();
  ASSERT_EQ(list.GetCount(), 40004);
  auto* last = dynamic_cast<CStatusMessage*>(list.GetAt(39999));
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->GetName(), "S39999");
  EXPECT_EQ(last->GetId(), 39999);
  EXPECT_EQ(list.GetAt(40000), list.GetAt(39999));
  EXPECT_EQ(list.GetAt(40003), list.GetAt(40001));
  EXPECT_EQ(static_cast<CEskData*>(list.GetAt(40002))->GetEsk(), 20);

  const std::vector<BYTE> stored = Store([&](CArchive& out) { list.Serialize(out); });
  EXPECT_TRUE(stored == bytes);
}

// Loads the first size bytes as one root object (or an object list) and returns the failure.
CArchiveException Failure(const std::vector<BYTE>& bytes, std::size_t size, const char* file,
                          bool asList) {
  CArchive ar(bytes.data(), size, file);
  try {
    CObList list;
    if (asList) list.Serialize(ar);
    if (!asList) ar.ReadOwnedObject(nullptr);
  } catch (const CArchiveException& e) {
    return e;
  }
  ADD_FAILURE() << file << " loaded from " << size << " bytes";
  return CArchiveException(CArchiveException::none, file, 0, "");
}

TEST(ArchiveVectors, FailureVectorsRaiseTheirCauseWithFileAndOffset) {
  const struct {
    const char* file;
    CArchiveException::Cause cause;
    bool asList;  // the vector holds an object list instead of one root object
  } vectors[] = {{"bad_schema_macro.bin", CArchiveException::badSchema, false},
                 {"truncated_esk.bin", CArchiveException::endOfFile, false},
                 {"unknown_class.bin", CArchiveException::badClass, false},
                 {"bad_index_list.bin", CArchiveException::badIndex, true},
                 {"class_as_object_list.bin", CArchiveException::badIndex, true}};
  for (const auto& v : vectors) {
    const std::vector<BYTE> bytes = ReadTestFile(std::string("vectors/") + v.file);
    const CArchiveException e = Failure(bytes, bytes.size(), v.file, v.asList);
    EXPECT_EQ(e.m_cause, v.cause) << e.what();
    EXPECT_EQ(e.m_strFileName, v.file);
    EXPECT_LE(e.m_offset, bytes.size());
    const std::string message = e.what();
    EXPECT_EQ(message.rfind(std::string(v.file) + ": byte " + std::to_string(e.m_offset) + ": ", 0),
              0u)
        << message;
    EXPECT_NE(message.find(CArchiveException::CauseName(v.cause)), std::string::npos) << message;
  }
  const std::vector<BYTE> unknown = ReadTestFile("vectors/unknown_class.bin");
  EXPECT_STREQ(Failure(unknown, unknown.size(), "demo.pers", false).what(),
               "demo.pers: byte 0: unknown record class \"CNoSuchRecord\" (badClass)");
}

// Every prefix of every valid vector fails cleanly (never crashes, hangs or leaks).
TEST(ArchiveVectors, EveryTruncationFailsCleanly) {
  for (const char* file : {"esk.bin", "backref_list.bin", "phoneset.bin", "icallset_schema1.bin",
                           "personality_empty.bin", "personality_schema1.bin"}) {
    const std::vector<BYTE> bytes = ReadTestFile(std::string("vectors/") + file);
    const bool isList = std::string(file) == "backref_list.bin";
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
      EXPECT_LE(Failure(bytes, cut, file, isList).m_offset, cut) << file;
    }
  }
}

}  // namespace
}  // namespace persona
