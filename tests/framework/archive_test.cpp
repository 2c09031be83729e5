// The archive's own rules: primitive, string and count encodings at every length boundary, the
// object table (null, back-references, ownership, class checks, schema answers), nesting limits
// and hostile counts, each failure at its offset; and the vectors of an independent encoder:
// strings, counts, objects with back-references and 32-bit tags, every failure vector.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

#include <unistd.h>

#include <persona/core/set.h>
#include <persona/framework/archive.h>
#include <persona/framework/collections.h>
#include <persona/framework/file.h>
#include <persona/options/macro.h>
#include <persona/options/status_message.h>
#include <persona/systems/esk_data.h>
#include "support/expect.h"
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::HasSubstr;
using test::Hex;
using test::ReadTestFile;
using test::StartsWith;

std::vector<BYTE> Store(const std::function<void(CArchive&)>& body) {
  CArchive ar(nullptr, CArchive::store);
  body(ar);
  return ar.TakeStoredBytes();
}

// The failure that body raises (a failed test when it raises none).
CArchiveException Failure(const std::function<void()>& body) {
  return test::Caught<CArchiveException>(body);
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

TEST(ArchiveEncoding, CountsFromTwoTo32OnTakeThe64BitFormAndReadBack) {
  // The 16- and 32-bit forms: the vectors below.
  const std::pair<ULONGLONG, const char*> cases[] = {
      {0xFFFFFFFFull, "ff ff ff ff ff ff ff ff ff ff 00 00 00 00"},
      {0x123456789ull, "ff ff ff ff ff ff 89 67 45 23 01 00 00 00"}};
  for (const auto& [n, hex] : cases) {
    const ULONGLONG count = n;  // a lambda may not capture a structured binding before C++20
    const std::vector<BYTE> bytes = Store([&](CArchive& ar) { ar.WriteCount(count); });
    EXPECT_EQ(Hex(bytes), hex);
    CArchive in(bytes.data(), bytes.size());
    EXPECT_EQ(in.ReadCount(), n);
    EXPECT_EQ(in.GetRemaining(), 0u);
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

// Index 0x7FFF is the big tag itself, so it is the first one written in the 32-bit form: here
// the class that takes it, named again by the next record of that class, and the records on
// either side of it referred back to.
TEST(ArchiveObjects, IndexesFrom0x7FFFTakeThe32BitFormAndReadBack) {
  std::vector<CEskData> esks(0x7FFD);  // class 1, records 2 to 0x7FFE
  CStatusMessage first;                // class 0x7FFF, record 0x8000
  CStatusMessage second;               // record 0x8001
  first.SetName("F");
  second.SetName("G");
  const std::vector<BYTE> bytes = Store([&](CArchive& ar) {
    for (const CEskData& e : esks) ar.WriteObject(&e);
    ar.WriteObject(&first);
    ar.WriteObject(&second);
    ar.WriteObject(&esks.back());
    ar.WriteObject(&first);
  });
  const std::vector<BYTE> body = Store([&](CArchive& ar) { second.Serialize(ar); });
  const std::size_t tail = 6 + body.size() + 2 + 6;
  ASSERT_GT(bytes.size(), tail);
  EXPECT_EQ(Hex(std::vector<BYTE>(bytes.end() - static_cast<std::ptrdiff_t>(tail), bytes.end())),
            "ff 7f ff 7f 00 80 " + Hex(body) + " fe 7f ff 7f 00 80 00 00");

  CArchive in(bytes.data(), bytes.size(), "big.bin");
  CObject* lastEsk = nullptr;
  for (std::size_t i = 0; i < esks.size(); ++i)
    lastEsk = in.ReadSharedObject(RUNTIME_CLASS(CEskData));
  CObject* readFirst = in.ReadSharedObject(RUNTIME_CLASS(CStatusMessage));
  auto* readSecond =
      dynamic_cast<CStatusMessage*>(in.ReadSharedObject(RUNTIME_CLASS(CStatusMessage)));
  ASSERT_NE(readSecond, nullptr);
  EXPECT_EQ(readSecond->GetName(), "G");
  EXPECT_EQ(in.ReadSharedObject(RUNTIME_CLASS(CEskData)), lastEsk);
  EXPECT_EQ(in.ReadSharedObject(RUNTIME_CLASS(CStatusMessage)), readFirst);
  EXPECT_EQ(in.GetRemaining(), 0u);
  auto pool = in.TakeSharedObjects();
}

TEST(ArchiveObjects, RecordStringsAtEveryPrefixBoundaryRoundTripAndCutsNameTheValue) {
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
    // Cut inside the key value: reported where the value begins. Cut inside the string: the
    // failure names the string, where its characters begin.
    const std::size_t keyAt = record.size() - 4;
    CArchive cutKey(record.data(), record.size() - 2, "cut.bin");
    const CArchiveException k = Failure([&] { cutKey.ReadOwnedObject(RUNTIME_CLASS(CEskData)); });
    EXPECT_EQ(k.m_cause, CArchiveException::endOfFile);
    EXPECT_EQ(k.m_offset, keyAt) << n;
    EXPECT_THAT(k.what(), HasSubstr("4 bytes needed, 2 left"));
    if (n > 1) {
      CArchive cut(record.data(), keyAt - n / 2, "cut.bin");
      const CArchiveException e = Failure([&] { cut.ReadOwnedObject(RUNTIME_CLASS(CEskData)); });
      EXPECT_EQ(e.m_cause, CArchiveException::endOfFile) << n;
      EXPECT_EQ(e.m_offset, keyAt - n) << n;
      EXPECT_THAT(e.what(), HasSubstr("a string of " + std::to_string(n)));
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
    const CArchiveException e = Failure([&] { ar.ReadOwnedObject(nullptr); });
    EXPECT_EQ(e.m_cause, CArchiveException::badClass) << length;
    EXPECT_EQ(e.m_offset, 0u) << length;
    EXPECT_THAT(e.what(), StartsWith("long.bin: "));
    EXPECT_THAT(e.what(), HasSubstr(length < 64 ? "unknown record class"
                                                : "class name of " + std::to_string(length) +
                                                      " bytes (at most 63)"));
  }
}

TEST(ArchiveObjects, BackReferencesMustBeSharedAndOfTheExpectedClass) {
  CEskData key;
  CMacro macro;
  const std::vector<BYTE> bytes = Store([&](CArchive& ar) {
    ar.WriteObject(&key);
    ar.WriteObject(&key);
    ar.WriteObject(&macro);
    ar.WriteObject(&key);
  });
  // An owned read refuses a back-reference, at the reference.
  CArchive in(bytes.data(), bytes.size(), "owned.bin");
  ASSERT_TRUE(in.ReadOwnedObject(RUNTIME_CLASS(CEskData)));
  const CArchiveException owned = Failure([&] { in.ReadOwnedObject(RUNTIME_CLASS(CEskData)); });
  EXPECT_EQ(owned.m_cause, CArchiveException::badIndex);
  EXPECT_EQ(owned.m_offset, 19u);
  // A shared read may not take over a record that another record owns either.
  CArchive again(bytes.data(), bytes.size(), "owned.bin");
  auto first = again.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  EXPECT_EQ(Failure([&] { again.ReadSharedObject(RUNTIME_CLASS(CEskData)); }).m_cause,
            CArchiveException::badIndex);
  // A record or a back-reference of another class is refused before anything is built.
  CArchive mixed(bytes.data(), bytes.size(), "mixed.bin");
  CObject* shared = mixed.ReadSharedObject(RUNTIME_CLASS(CEskData));
  EXPECT_EQ(mixed.ReadSharedObject(RUNTIME_CLASS(CEskData)), shared);
  const CArchiveException wrong = Failure([&] { mixed.ReadOwnedObject(RUNTIME_CLASS(CEskData)); });
  EXPECT_EQ(wrong.m_cause, CArchiveException::badClass);
  EXPECT_EQ(wrong.m_offset, 21u);
  EXPECT_THAT(wrong.what(), HasSubstr("a CMacro where a CEskData is expected"));
  CArchive back(bytes.data(), bytes.size(), "mixed.bin");
  back.ReadSharedObject(RUNTIME_CLASS(CEskData));
  back.ReadSharedObject(RUNTIME_CLASS(CEskData));
  back.ReadSharedObject(RUNTIME_CLASS(CMacro));
  const CArchiveException ref = Failure([&] { back.ReadSharedObject(RUNTIME_CLASS(CMacro)); });
  EXPECT_EQ(ref.m_cause, CArchiveException::badClass);
  EXPECT_THAT(ref.what(), HasSubstr("reference to a CEskData where a CMacro is expected"));
}

// Two strings and a number: a record whose fields the archive loads without checking each one
// when its bound (every string short) is left in the input.
class CTwoStrings : public CObject {
  DECLARE_SERIAL(CTwoStrings)
 public:
  CString first;
  CString second;
  WORD number = 0;
  template <class V>
  void Fields(V& v) {
    v("First", first);
    v("Second", second);
    v("Number", number);
  }
  void Serialize(CArchive& ar) override { SerializeFields(ar, *this); }
};
IMPLEMENT_SERIAL(CTwoStrings, CObject, 1)

TEST(ArchiveObjects, ALongStringThatLeavesLessThanTheRestsBoundLoadsTheRestCheckedAtExactOffsets) {
  // 300: less than the bound (512) is left at the record, so every field is checked; 600 and
  // 70000: the bound is left, and the long string leaves less than the rest's bound (257).
  CRuntimeClass::Register(RUNTIME_CLASS(CTwoStrings));
  for (const std::size_t n : {300u, 600u, 70000u}) {
    CTwoStrings a;
    a.first = CString(std::string(n, 'x'));
    a.second = CString("ab");
    a.number = 0x1234;
    const std::vector<BYTE> record = Store([&](CArchive& ar) { ar.WriteOwnedObject(&a); });
    CArchive in(record.data(), record.size(), "two.bin");
    auto back = in.ReadOwnedObject(RUNTIME_CLASS(CTwoStrings));
    const auto& b = static_cast<const CTwoStrings&>(*back);
    EXPECT_EQ(b.first, a.first) << n;
    EXPECT_EQ(b.second, a.second) << n;
    EXPECT_EQ(b.number, 0x1234) << n;
    EXPECT_EQ(in.GetRemaining(), 0u) << n;
    // Cut inside the number, then inside the second string.
    for (const auto& [cut, at, what] :
         {std::tuple<std::size_t, std::size_t, const char*>{1, 2, "2 bytes needed, 1 left"},
          {3, 4, "a string of 2"}}) {
      CArchive truncated(record.data(), record.size() - cut, "two.bin");
      const CArchiveException e =
          Failure([&] { truncated.ReadOwnedObject(RUNTIME_CLASS(CTwoStrings)); });
      EXPECT_EQ(e.m_cause, CArchiveException::endOfFile) << n;
      EXPECT_EQ(e.m_offset, record.size() - at) << n << " cut " << cut;
      EXPECT_THAT(e.what(), HasSubstr(what));
    }
  }
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

// Each hostile input fails with its cause at its exact offset: nesting past the limit, counts
// and string lengths larger than the bytes left (refused before allocating), and reading from
// or writing to an archive of the other direction.
TEST(ArchiveObjects, HostileInputsFailWithTheirCauseAtTheirOffset) {
  // A set holding a set holding a set ... stored by hand: each level is a class reference to
  // CSet (index 1) followed by a one-element list.
  std::vector<BYTE> deep = {0xFF, 0xFF, 0x01, 0x00, 0x04, 0x00, 'C', 'S', 'e', 't', 0x01, 0x00};
  for (int i = 0; i < 100; ++i) deep.insert(deep.end(), {0x01, 0x80, 0x01, 0x00});
  CArchive nested(deep.data(), deep.size(), "deep.bin");
  const CArchiveException e = Failure([&] { nested.ReadOwnedObject(RUNTIME_CLASS(CSet)); });
  EXPECT_EQ(e.m_cause, CArchiveException::genericException);
  EXPECT_EQ(e.m_offset, 12u + 4 * 31);
  EXPECT_THAT(e.what(), HasSubstr("nested more than 32 levels"));

  const std::vector<BYTE> list = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 0x00, 0x00};
  CArchive a(list.data(), list.size(), "count.bin");
  CObList objects;
  const CArchiveException count = Failure([&] { objects.Serialize(a); });
  EXPECT_EQ(count.m_cause, CArchiveException::endOfFile);
  EXPECT_EQ(count.m_offset, 6u);
  const std::vector<BYTE> str = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F, 'a'};
  CArchive b(str.data(), str.size(), "string.bin");
  CString s;
  const CArchiveException text = Failure([&] { b >> s; });
  EXPECT_EQ(text.m_cause, CArchiveException::endOfFile);
  EXPECT_EQ(text.m_offset, 7u);

  CArchive in(list.data(), list.size());
  EXPECT_EQ(Failure([&] { in << BYTE{1}; }).m_cause, CArchiveException::readOnly);
  CArchive out(nullptr, CArchive::store);
  BYTE byte = 0;
  EXPECT_EQ(Failure([&] { out >> byte; }).m_cause, CArchiveException::writeOnly);
}

TEST(ArchiveFiles, DiskAndMemoryFilesCarryTheSameBytesAndAMissingFileIsNamed) {
  CEskData key;
  key.SetEskId("Disk");
  key.SetEsk(77);
  const std::string path =
      ::testing::TempDir() + "/persona_archive_file-" + std::to_string(::getpid()) + ".bin";
  CMemFile mem;
  for (CFile* target : {static_cast<CFile*>(nullptr), static_cast<CFile*>(&mem)}) {
    CFile file;
    if (target == nullptr) file.Open(path, CFile::modeCreate | CFile::modeWrite);
    CArchive ar(target == nullptr ? &file : target, CArchive::store);
    ar.WriteObject(&key);
    ar.Close();
  }
  CFile file(path, CFile::modeRead);
  CArchive ar(&file, CArchive::load);
  auto loaded = ar.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  EXPECT_EQ(static_cast<CEskData*>(loaded.get())->GetEsk(), 77);
  EXPECT_EQ(file.GetLength(), mem.GetSize());
  ar.Close();
  struct Trickle : CFile {  // hands out one, two, three bytes a read, as a pipe may
    using CFile::CFile;
    UINT step = 0;
    UINT Read(void* to, UINT count) override {
      step = step % 3 + 1;
      return CFile::Read(to, std::min(count, step));
    }
  } trickle(path, CFile::modeRead);
  CArchive trickled(&trickle, CArchive::load);
  EXPECT_EQ(test::DumpFields(*trickled.ReadOwnedObject(RUNTIME_CLASS(CEskData))),
            test::DumpFields(key));
  EXPECT_EQ(file.GetPosition(), file.GetLength());
  EXPECT_EQ(file.GetFileName(), path.substr(path.rfind('/') + 1));
  EXPECT_EQ(file.Seek(3, CFile::begin), 3u);  // each origin, as on a memory file below
  EXPECT_EQ(file.Seek(-2, CFile::end), file.GetLength() - 2);
  EXPECT_EQ(file.Seek(1, CFile::current), file.GetLength() - 1);
  file.Close();
  EXPECT_FALSE(file.IsOpen());
  EXPECT_EQ(file.GetLength(), 0u);  // a closed file has no length and no position
  EXPECT_EQ(file.GetPosition(), 0u);
  file.Close();  // closing a closed file does nothing
  // A memory file reads like a disk file: what is left, then nothing.
  std::vector<BYTE> head(static_cast<std::size_t>(mem.GetSize()) + 8);
  mem.Seek(-2, CFile::end);
  EXPECT_EQ(mem.Read(head.data(), 8), 2u);
  EXPECT_EQ(mem.Read(head.data(), 8), 0u);
  mem.Seek(1, CFile::begin);
  mem.Seek(2, CFile::current);
  EXPECT_EQ(mem.Read(head.data(), 8), std::min<UINT>(8, static_cast<UINT>(mem.GetSize()) - 3));
  {  // an aborted store leaves its file untouched and holds nothing more
    CMemFile untouched;
    CArchive aborted(&untouched, CArchive::store);
    aborted.WriteObject(&key);
    aborted.Abort();
    EXPECT_TRUE(aborted.TakeStoredBytes().empty());
    EXPECT_EQ(untouched.GetSize(), 0u);
  }
  {  // a memory file over borrowed bytes reads them and hands back a copy of them all
    const BYTE borrowed[] = {7, 8, 9};
    CMemFile view(borrowed, sizeof borrowed);
    BYTE two[2] = {};
    EXPECT_EQ(view.Read(two, 2), 2u);
    EXPECT_EQ(view.Detach(), (std::vector<BYTE>{7, 8, 9}));
    EXPECT_EQ(view.GetSize(), 0u);
  }
  {  // raw reads take what is asked for while it lasts
    const BYTE raw[] = {1, 2, 3};
    CMemFile in(raw, sizeof raw);
    CArchive ar(&in, CArchive::load);
    BYTE got[4] = {};
    EXPECT_EQ(ar.Read(got, 2), 2u);
    EXPECT_EQ(ar.Read(got + 2, 2), 1u);
    EXPECT_EQ(ar.Read(got, 1), 0u);
    EXPECT_EQ(got[1], 2);
    EXPECT_EQ(got[2], 3);
  }
  {  // one byte written is one byte held
    CMemFile one;
    one.Write("A", 1);
    EXPECT_EQ(one.GetSize(), 1u);
    EXPECT_EQ(one.GetData()[0], 'A');
  }
  mem.SeekToBegin();
  CArchive fromMemory(&mem, CArchive::load);
  auto again = fromMemory.ReadOwnedObject(RUNTIME_CLASS(CEskData));
  EXPECT_EQ(static_cast<CEskData*>(again.get())->GetEskId(), "Disk");
  std::remove(path.c_str());
  const CFileException missing =
      test::Caught<CFileException>([] { CFile("/nonexistent/dir/x.pers", CFile::modeRead); });
  EXPECT_EQ(missing.m_cause, CFileException::fileNotFound);
  EXPECT_THAT(missing.what(), HasSubstr("/nonexistent/dir/x.pers"));
}

// ---- against the vectors of an independent encoder ----------------------------------------

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
  // Entries are replaced in place from index 0 to the last; any other index is refused.
  list.SetAt(0, list.GetAt(2));
  list.SetAt(4, nullptr);
  EXPECT_EQ(list.GetAt(0), list.GetAt(2));
  EXPECT_EQ(list.GetAt(4), nullptr);
  EXPECT_THROW(list.SetAt(-1, nullptr), CInvalidArgException);
  EXPECT_THROW(list.SetAt(5, nullptr), CInvalidArgException);
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
CArchiveException LoadFailure(const std::vector<BYTE>& bytes, std::size_t size, const char* file,
                              bool asList) {
  CArchive ar(bytes.data(), size, file);
  CObList list;
  return Failure([&] { asList ? list.Serialize(ar) : (void)ar.ReadOwnedObject(nullptr); });
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
    const CArchiveException e = LoadFailure(bytes, bytes.size(), v.file, v.asList);
    EXPECT_EQ(e.m_cause, v.cause) << e.what();
    EXPECT_EQ(e.m_strFileName, v.file);
    EXPECT_LE(e.m_offset, bytes.size());
    const std::string message = e.what();
    EXPECT_EQ(message.rfind(std::string(v.file) + ": byte " + std::to_string(e.m_offset) + ": ", 0),
              0u)
        << message;
    EXPECT_THAT(message, HasSubstr(CArchiveException::CauseName(v.cause)));
  }
  const std::vector<BYTE> unknown = ReadTestFile("vectors/unknown_class.bin");
  EXPECT_STREQ(LoadFailure(unknown, unknown.size(), "demo.pers", false).what(),
               "demo.pers: byte 0: unknown record class \"CNoSuchRecord\" (badClass)");
}

// Every prefix of every valid vector fails cleanly (never crashes, hangs or leaks).
TEST(ArchiveVectors, EveryTruncationFailsCleanly) {
  for (const char* file : {"esk.bin", "backref_list.bin", "phoneset.bin", "icallset_schema1.bin",
                           "personality_empty.bin", "personality_schema1.bin"}) {
    const std::vector<BYTE> bytes = ReadTestFile(std::string("vectors/") + file);
    const bool isList = std::string(file) == "backref_list.bin";
    for (std::size_t cut = 0; cut < bytes.size(); ++cut) {
      EXPECT_LE(LoadFailure(bytes, cut, file, isList).m_offset, cut) << file;
    }
  }
}

}  // namespace
}  // namespace persona
