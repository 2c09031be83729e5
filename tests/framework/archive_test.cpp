// The archive's own rules: primitive and string encodings at every length boundary, random
// round trips, the object table (null, back-references, ownership, class checks, schema
// answers), nesting limits and hostile counts.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <persona/core/set.h>
#include <persona/framework/archive.h>
#include <persona/framework/collections.h>
#include <persona/framework/file.h>
#include <persona/options/macro.h>
#include <persona/systems/esk_data.h>
#include "support/test_data.h"

namespace persona {
namespace {

using test::Hex;

std::vector<BYTE> Store(const std::function<void(CArchive&)>& body) {
  CArchive ar(nullptr, CArchive::store);
  body(ar);
  return ar.TakeStoredBytes();
}

// A record that reports what GetObjectSchema answered, twice, to check the once-per-object rule.
class CSchemaProbe : public CObject {
  DECLARE_SERIAL(CSchemaProbe)
 public:
  UINT first = 0;
  UINT second = 0;
  CSchemaProbe* child = nullptr;
  UINT afterChild = 0;
  void Serialize(CArchive& ar) override {
    if (ar.IsStoring()) {
      ar.WriteObject(child);
      return;
    }
    child = static_cast<CSchemaProbe*>(ar.ReadSharedObject(RUNTIME_CLASS(CSchemaProbe)));
    first = ar.GetObjectSchema();
    second = ar.GetObjectSchema();
    (void)afterChild;
  }
};
IMPLEMENT_SERIAL(CSchemaProbe, CObject, VERSIONABLE_SCHEMA | 3)

TEST(ArchiveEncoding, StringPrefixAtEveryBoundary) {
  struct Case {
    std::size_t length;
    std::vector<BYTE> prefix;
  };
  const std::vector<Case> cases = {
      {0, {0x00}},
      {0xFE, {0xFE}},
      {0xFF, {0xFF, 0xFF, 0x00}},
      {0xFFFD, {0xFF, 0xFD, 0xFF}},
      {0xFFFE, {0xFF, 0xFF, 0xFF, 0xFE, 0xFF, 0x00, 0x00}},
      {0x10000, {0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x01, 0x00}},
  };
  for (const Case& c : cases) {
    const CString s(std::string(c.length, 'k'));
    const std::vector<BYTE> bytes = Store([&](CArchive& ar) { ar << s; });
    ASSERT_EQ(bytes.size(), c.prefix.size() + c.length) << c.length;
    EXPECT_TRUE(std::equal(c.prefix.begin(), c.prefix.end(), bytes.begin())) << c.length;
    CArchive in(bytes.data(), bytes.size());
    CString back;
    in >> back;
    EXPECT_TRUE(back == s) << c.length;
  }
}

TEST(ArchiveEncoding, WideStringsBecomeWindows1252) {
  // marker, length 4, then "€é" + U+4E2D (not in the code page) + a surrogate pair.
  const std::vector<BYTE> bytes = {0xFF, 0xFE, 0xFF, 0x05, 0xAC, 0x20, 0xE9,
                                   0x00, 0x2D, 0x4E, 0x3D, 0xD8, 0x00, 0xDE};
  CArchive ar(bytes.data(), bytes.size());
  CString s;
  ar >> s;
  EXPECT_EQ(s.str(), "\x80\xE9??");
  EXPECT_EQ(ar.GetRemaining(), 0u);
}

TEST(ArchiveEncoding, ALoneHighSurrogateEndingAWideStringIsOneUnknownCharacter) {
  // marker, length 2, "A" and a high surrogate in the last two bytes of an exact allocation:
  // nothing after the string may be read as its low half.
  const BYTE layout[] = {0xFF, 0xFE, 0xFF, 0x02, 0x41, 0x00, 0x00, 0xD8};
  const auto exact = std::make_unique<BYTE[]>(sizeof layout);
  std::copy(layout, layout + sizeof layout, exact.get());
  CArchive ar(exact.get(), sizeof layout);
  CString s;
  ar >> s;
  EXPECT_EQ(s.str(), "A?");
  EXPECT_EQ(ar.GetRemaining(), 0u);
}

TEST(ArchiveEncoding, PrimitivesAreLittleEndianWithoutPadding) {
  const std::vector<BYTE> bytes = Store([](CArchive& ar) {
    ar << BYTE{0x12} << WORD{0x3456} << DWORD{0x789ABCDE} << LONG{-2} << short{-3} << true << 1.5
       << ULONGLONG{0x0102030405060708ull};
  });
  EXPECT_EQ(Hex(bytes),
            "12 56 34 de bc 9a 78 fe ff ff ff fd ff 01 00 00 00 00 00 00 f8 3f "
            "08 07 06 05 04 03 02 01");
}

// Random sequences of values, strings (biased to the prefix boundaries) and counts come back
// unchanged, and storing what was read gives the same bytes.
TEST(ArchiveEncoding, RandomRoundTrips) {
  std::mt19937 rng(20261121);
  const std::size_t lengths[] = {0, 1, 0xFE, 0xFF, 0x100, 0xFFFD, 0xFFFE, 0xFFFF, 0x10000};
  const ULONGLONG counts[] = {
      0, 1, 0xFFFE, 0xFFFF, 0x10000, 0xFFFFFFFEull, 0xFFFFFFFFull, 0x123456789ull};
  for (int round = 0; round < 20; ++round) {
    std::vector<int> kinds;
    std::vector<ULONGLONG> values;
    std::vector<CString> strings;
    for (int i = 0; i < 30; ++i) {
      const int kind = static_cast<int>(rng() % 6);
      kinds.push_back(kind);
      values.push_back((static_cast<ULONGLONG>(rng()) << 32) | rng());
      if (kind == 4) {
        const std::size_t n = (rng() % 2) ? lengths[rng() % 9] : rng() % 600;
        strings.emplace_back(std::string(n, static_cast<char>('a' + rng() % 26)));
      } else {
        strings.emplace_back();
      }
      if (kind == 5) values.back() = counts[rng() % 8];
    }
    auto write = [&](CArchive& ar, const std::vector<ULONGLONG>& v, const std::vector<CString>& s) {
      for (std::size_t i = 0; i < kinds.size(); ++i) {
        switch (kinds[i]) {
          case 0:
            ar << static_cast<BYTE>(v[i]);
            break;
          case 1:
            ar << static_cast<WORD>(v[i]);
            break;
          case 2:
            ar << static_cast<DWORD>(v[i]);
            break;
          case 3:
            ar << static_cast<double>(static_cast<LONG>(v[i])) / 8.0;
            break;
          case 4:
            ar << s[i];
            break;
          default:
            ar.WriteCount(v[i]);
            break;
        }
      }
    };
    const std::vector<BYTE> bytes = Store([&](CArchive& ar) { write(ar, values, strings); });
    CArchive in(bytes.data(), bytes.size());
    std::vector<ULONGLONG> readValues(kinds.size());
    std::vector<CString> readStrings(kinds.size());
    for (std::size_t i = 0; i < kinds.size(); ++i) {
      switch (kinds[i]) {
        case 0: {
          BYTE b;
          in >> b;
          readValues[i] = b;
          EXPECT_EQ(b, static_cast<BYTE>(values[i]));
          break;
        }
        case 1: {
          WORD w;
          in >> w;
          readValues[i] = w;
          EXPECT_EQ(w, static_cast<WORD>(values[i]));
          break;
        }
        case 2: {
          DWORD d;
          in >> d;
          readValues[i] = d;
          EXPECT_EQ(d, static_cast<DWORD>(values[i]));
          break;
        }
        case 3: {
          double d;
          in >> d;
          readValues[i] = values[i];
          EXPECT_EQ(d, static_cast<double>(static_cast<LONG>(values[i])) / 8.0);
          break;
        }
        case 4:
          in >> readStrings[i];
          EXPECT_TRUE(readStrings[i] == strings[i]);
          break;
        default:
          readValues[i] = in.ReadCount();
          EXPECT_EQ(readValues[i], values[i]);
          break;
      }
    }
    EXPECT_EQ(in.GetRemaining(), 0u);
    EXPECT_TRUE(Store([&](CArchive& ar) { write(ar, readValues, readStrings); }) == bytes);
  }
}

TEST(ArchiveObjects, NullAndClassTagsAndBackReferences) {
  CEskData a;
  a.SetEskId("A");
  CEskData b;
  const std::vector<BYTE> bytes = Store([&](CArchive& ar) {
    ar.WriteObject(nullptr);
    ar.WriteObject(&a);
    ar.WriteObject(&b);
    ar.WriteObject(&a);
  });
  EXPECT_EQ(Hex(bytes),
            "00 00 ff ff 01 00 08 00 43 45 73 6b 44 61 74 61 01 41 00 00 00 00 "
            "01 80 00 00 00 00 00 02 00");
}

TEST(ArchiveObjects, OwnedRecordsTakeIndexesButAreNeverReferencedBack) {
  CEskData a;
  a.SetEskId("A");
  CEskData k;
  k.SetEskId("K");
  const std::vector<BYTE> bytes = Store([&](CArchive& ar) {
    ar.WriteOwnedObject(&a);  // class #1, record #2
    ar.WriteOwnedObject(&a);  // stored in full again: record #3
    ar.WriteObject(&k);       // record #4
    ar.WriteObject(&k);       // a back-reference to #4
  });
  EXPECT_EQ(Hex(bytes),
            "ff ff 01 00 08 00 43 45 73 6b 44 61 74 61 01 41 00 00 00 00 "
            "01 80 01 41 00 00 00 00 01 80 01 4b 00 00 00 00 04 00");
  CArchive in(bytes.data(), bytes.size(), "owned.bin");
  auto first = in.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  auto second = in.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  CObject* shared = in.ReadSharedObject(RUNTIME_CLASS(CEskData));
  EXPECT_EQ(in.ReadSharedObject(RUNTIME_CLASS(CEskData)), shared);
  EXPECT_NE(first.get(), second.get());
  EXPECT_EQ(static_cast<CEskData*>(second.get())->GetEskId(), "A");
  EXPECT_EQ(static_cast<CEskData*>(shared)->GetEskId(), "K");
  EXPECT_EQ(in.GetRemaining(), 0u);
}

TEST(ArchiveObjects, AValueCutShortInsideARecordIsReportedWhereTheValueBegins) {
  CEskData a;
  a.SetEskId("A");
  a.SetEsk(7);
  std::vector<BYTE> bytes = Store([&](CArchive& ar) { ar.WriteObject(&a); });
  ASSERT_EQ(bytes.size(), 20u);  // tag 14, the name 2, the key 4
  bytes.resize(18);
  CArchive in(bytes.data(), bytes.size(), "cut.bin");
  try {
    in.ReadOwnedObject(RUNTIME_CLASS(CEskData));
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::endOfFile);
    EXPECT_EQ(e.m_offset, 16u);
    EXPECT_NE(std::string(e.what()).find("4 bytes needed, 2 left"), std::string::npos) << e.what();
  }
}

TEST(ArchiveObjects, RecordStringsAtEveryPrefixBoundaryRoundTrip) {
  // Record fields take a short path for one-byte length prefixes; longer strings go through
  // the archive's own string code. Both must give the same bytes as the plain string form.
  for (const std::size_t n : {0u, 1u, 15u, 16u, 254u, 255u, 300u, 70000u}) {
    CEskData a;
    a.SetEskId(CString(std::string(n, static_cast<char>('a' + n % 26))));
    a.SetEsk(static_cast<LONG>(n));
    const std::vector<BYTE> record = Store([&](CArchive& ar) { ar.WriteObject(&a); });
    const std::vector<BYTE> plain = Store([&](CArchive& ar) {
      ar << a.GetEskId();
      ar << static_cast<LONG>(n);
    });
    ASSERT_EQ(record.size(), 14 + plain.size()) << n;
    EXPECT_TRUE(std::equal(plain.begin(), plain.end(), record.begin() + 14)) << n;
    CArchive in(record.data(), record.size(), "strings.bin");
    auto back = in.ReadOwnedObject(RUNTIME_CLASS(CEskData));
    EXPECT_EQ(static_cast<CEskData*>(back.get())->GetEskId(), a.GetEskId()) << n;
    EXPECT_EQ(static_cast<CEskData*>(back.get())->GetEsk(), static_cast<LONG>(n)) << n;
    // Cut inside the string: the failure names the string, at its length prefix.
    if (n > 1) {
      CArchive cut(record.data(), 14 + plain.size() - 4 - n / 2, "cut.bin");
      try {
        cut.ReadOwnedObject(RUNTIME_CLASS(CEskData));
        ADD_FAILURE() << n;
      } catch (const CArchiveException& e) {
        EXPECT_EQ(e.m_cause, CArchiveException::endOfFile) << n;
        EXPECT_NE(std::string(e.what()).find("a string of " + std::to_string(n)), std::string::npos)
            << e.what();
      }
    }
  }
}

TEST(ArchiveObjects, ClassNamesOfSixtyFourBytesOrMoreAreRefusedAtTheirTag) {
  for (std::size_t length : {63u, 64u, 65u, 300u}) {
    std::vector<BYTE> bytes = {0xFF, 0xFF, 0x01, 0x00};  // a new class of schema 1
    bytes.push_back(static_cast<BYTE>(length & 0xFF));
    bytes.push_back(static_cast<BYTE>(length >> 8));
    bytes.insert(bytes.end(), length, 'C');
    CArchive ar(bytes.data(), bytes.size(), "long.bin");
    try {
      ar.ReadOwnedObject(nullptr);
      ADD_FAILURE() << length;
    } catch (const CArchiveException& e) {
      EXPECT_EQ(e.m_cause, CArchiveException::badClass) << length;
      const std::string what = e.what();
      if (length < 64) {
        EXPECT_NE(what.find("unknown record class"), std::string::npos) << what;
      } else {
        EXPECT_NE(what.find("class name of " + std::to_string(length) + " bytes (at most 63)"),
                  std::string::npos)
            << what;
        EXPECT_NE(what.find("long.bin"), std::string::npos) << what;
      }
    }
  }
}

TEST(ArchiveObjects, OwnedReadsRefuseBackReferences) {
  CEskData a;
  const std::vector<BYTE> bytes = Store([&](CArchive& ar) {
    ar.WriteObject(&a);
    ar.WriteObject(&a);
  });
  CArchive in(bytes.data(), bytes.size(), "owned.bin");
  auto first = in.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  ASSERT_TRUE(first);
  try {
    in.ReadOwnedObject(RUNTIME_CLASS(CEskData));
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::badIndex);
    EXPECT_EQ(e.m_offset, 19u);
  }
  // A shared read may not take over a record that another record owns either.
  CArchive again(bytes.data(), bytes.size(), "owned.bin");
  auto owned = again.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  EXPECT_THROW(again.ReadSharedObject(RUNTIME_CLASS(CEskData)), CArchiveException);
}

TEST(ArchiveObjects, WrongClassIsRefusedBeforeAnythingIsBuilt) {
  CEskData key;
  CMacro macro;
  const std::vector<BYTE> bytes = Store([&](CArchive& ar) {
    ar.WriteObject(&key);
    ar.WriteObject(&macro);
    ar.WriteObject(&key);
  });
  CArchive in(bytes.data(), bytes.size(), "mixed.bin");
  auto k = in.ReadSharedObject(RUNTIME_CLASS(CEskData));
  ASSERT_NE(k, nullptr);
  try {
    in.ReadOwnedObject(RUNTIME_CLASS(CEskData));
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::badClass);
    EXPECT_NE(std::string(e.what()).find("a CMacro where a CEskData is expected"),
              std::string::npos);
  }
  // A back-reference to a record of another class is refused too.
  CArchive again(bytes.data(), bytes.size(), "mixed.bin");
  again.ReadSharedObject(RUNTIME_CLASS(CEskData));
  again.ReadSharedObject(RUNTIME_CLASS(CMacro));
  EXPECT_THROW(again.ReadSharedObject(RUNTIME_CLASS(CMacro)), CArchiveException);
}

TEST(ArchiveObjects, SchemaIsAnsweredOncePerObjectAndRestoredAroundChildren) {
  CRuntimeClass::Register(RUNTIME_CLASS(CSchemaProbe));
  CSchemaProbe inner;
  CSchemaProbe outer;
  outer.child = &inner;
  std::vector<BYTE> bytes = Store([&](CArchive& ar) { ar.WriteObject(&outer); });
  bytes[2] = 2;  // the stored schema of the class: 2, older than the registered 3
  CArchive in(bytes.data(), bytes.size());
  EXPECT_EQ(in.GetObjectSchema(), CArchive::kNoSchema);
  auto root = in.ReadOwnedObject(RUNTIME_CLASS(CSchemaProbe));
  auto pool = in.TakeSharedObjects();
  auto* probe = static_cast<CSchemaProbe*>(root.get());
  EXPECT_EQ(probe->first, 2u);  // asked after reading the child: the outer schema is back
  EXPECT_EQ(probe->second, CArchive::kNoSchema);
  ASSERT_NE(probe->child, nullptr);
  EXPECT_EQ(probe->child->first, 2u);  // the versionable class remembers its stored schema
  EXPECT_EQ(static_cast<BYTE>(probe->second), 255);
}

TEST(ArchiveObjects, NestingDeeperThanTheLimitFails) {
  // A set holding a set holding a set ... stored by hand: each level is a class reference to
  // CSet (index 1) followed by a one-element list.
  std::vector<BYTE> bytes = {0xFF, 0xFF, 0x01, 0x00, 0x04, 0x00, 'C', 'S', 'e', 't', 0x01, 0x00};
  for (int i = 0; i < 100; ++i) {
    bytes.insert(bytes.end(), {0x01, 0x80, 0x01, 0x00});
  }
  CArchive ar(bytes.data(), bytes.size(), "deep.bin");
  try {
    ar.ReadOwnedObject(RUNTIME_CLASS(CSet));
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::genericException);
    EXPECT_NE(std::string(e.what()).find("nested"), std::string::npos);
  }
}

TEST(ArchiveObjects, CountsLargerThanTheBytesLeftAreRefusedBeforeAllocating) {
  const std::vector<BYTE> list = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 0x00, 0x00};
  CArchive a(list.data(), list.size(), "count.bin");
  CObList objects;
  EXPECT_THROW(objects.Serialize(a), CArchiveException);
  const std::vector<BYTE> str = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'a'};
  CArchive b(str.data(), str.size(), "string.bin");
  CString s;
  try {
    b >> s;
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::endOfFile);
  }
}

TEST(ArchiveObjects, WritingToALoadingArchiveAndReadingFromAStoringOneFail) {
  const std::vector<BYTE> bytes = {0x01};
  CArchive in(bytes.data(), bytes.size());
  try {
    in << BYTE{1};
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::readOnly);
  }
  CArchive out(nullptr, CArchive::store);
  try {
    BYTE b;
    out >> b;
    FAIL();
  } catch (const CArchiveException& e) {
    EXPECT_EQ(e.m_cause, CArchiveException::writeOnly);
  }
}

TEST(ArchiveFiles, DiskAndMemoryFilesCarryTheSameBytes) {
  CEskData key;
  key.SetEskId("Disk");
  key.SetEsk(77);
  const std::string path = ::testing::TempDir() + "/persona_archive_file.bin";
  {
    CFile file(path, CFile::modeCreate | CFile::modeWrite);
    CArchive ar(&file, CArchive::store);
    ar.WriteObject(&key);
    ar.Close();
    file.Close();
  }
  CMemFile mem;
  {
    CArchive ar(&mem, CArchive::store);
    ar.WriteObject(&key);
    ar.Close();
  }
  CFile file(path, CFile::modeRead);
  CArchive ar(&file, CArchive::load);
  auto loaded = ar.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  EXPECT_EQ(static_cast<CEskData*>(loaded.get())->GetEsk(), 77);
  EXPECT_EQ(file.GetLength(), mem.GetSize());
  ar.Close();
  EXPECT_EQ(file.GetPosition(), file.GetLength());

  mem.SeekToBegin();
  CArchive fromMemory(&mem, CArchive::load);
  auto again = fromMemory.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  EXPECT_EQ(static_cast<CEskData*>(again.get())->GetEskId(), "Disk");
  std::remove(path.c_str());
}

TEST(ArchiveFiles, MissingFileRaisesAFileFailureWithThePath) {
  try {
    CFile file("/nonexistent/dir/x.pers", CFile::modeRead);
    FAIL();
  } catch (const CFileException& e) {
    EXPECT_EQ(e.m_cause, CFileException::fileNotFound);
    EXPECT_NE(std::string(e.what()).find("/nonexistent/dir/x.pers"), std::string::npos);
  }
}

}  // namespace
}  // namespace persona
