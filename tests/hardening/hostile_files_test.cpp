// Hostile personality files: counts and string lengths beyond the bytes left, records nested
// through option lists, records of the wrong class where a list expects its own, trailing
// bytes, and loads that fail half-way. Each is refused with its cause, the file name and the
// byte offset, before anything is allocated or cast on its behalf. And the checked-in fuzzing
// inputs stay current.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include <persona/conventional/conv_set.h>
#include <persona/core/set.h>
#include <persona/framework/archive.h>
#include <persona/framework/file_io.h>
#include <persona/io/json/personality_json.h>
#include <persona/io/personality_file.h>
#include <persona/personality/personality.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/group_set.h>
#include <persona/systems/trunk_set.h>
#include "support/bytes.h"
#include "support/expect.h"
#include "support/test_data.h"

namespace persona {
namespace {

using Bytes = std::vector<BYTE>;
using test::HasSubstr;
using test::StartsWith;

Bytes Concat(std::initializer_list<Bytes> parts) {
  Bytes out;
  for (const Bytes& p : parts) out.insert(out.end(), p.begin(), p.end());
  return out;
}

// Replaces the first occurrence of needle in bytes with replacement; returns its offset.
std::size_t ReplaceOnce(Bytes& bytes, const Bytes& needle, const Bytes& replacement) {
  const auto it = std::search(bytes.begin(), bytes.end(), needle.begin(), needle.end());
  EXPECT_NE(it, bytes.end()) << "pattern not found: " << test::Hex(needle);
  const std::size_t at = static_cast<std::size_t>(it - bytes.begin());
  bytes.erase(it, it + static_cast<std::ptrdiff_t>(needle.size()));
  bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(at), replacement.begin(),
               replacement.end());
  return at;
}

// Loads bytes as a personality file named name and returns the failure it raises.
CArchiveException LoadFailure(const Bytes& bytes, const std::string& name) {
  const auto e = test::Caught<CArchiveException>(
      [&] { LoadPersonalityBytes(bytes.data(), bytes.size(), name); });
  EXPECT_EQ(e.m_strFileName, name);
  EXPECT_THAT(e.what(), StartsWith(name + ": byte " + std::to_string(e.m_offset)));
  return e;
}

// Bytes of the class tag of a root CPersonality; its fields follow.
constexpr std::size_t kRootTag = 18;

// An empty personality's bytes and the offset just after its header text, where the radio
// type count starts; the ten list counts follow as WORD zeros.
struct EmptyFile {
  Bytes bytes;
  std::size_t afterHeader = 0;
};

EmptyFile StoredEmpty(const CPersonality& p = CPersonality()) {
  EmptyFile f;
  f.bytes = StorePersonalityBytes(p);
  const std::string text(f.bytes.begin(), f.bytes.end());
  const std::string tail = CString::Formatted("Version\b%04d\b", p.GetVersion()).str();
  f.afterHeader = text.find(tail) + tail.size();
  return f;
}

TEST(HostileCounts, ListCountsBeyondTheBytesLeftAreRefusedAtTheCount) {
  // Radio type array, system list, first set list and option list, each claiming 2^31-1
  // entries in the DWORD form, and once 2^63 in the ULONGLONG form.
  const Bytes dwordCount = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0x7F};
  const Bytes qwordCount = {0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0x80};
  struct Case {
    std::size_t list;  // which WORD count after the header: 0 radio types, 1 systems, ...
    Bytes count;
    const char* what;
  };
  for (const Case& c : {Case{0, dwordCount, "word array claims 2147483647 entries"},
                        Case{1, dwordCount, "object list claims 2147483647 entries"},
                        Case{2, qwordCount, "object list claims 9223372036854775808 entries"},
                        Case{10, dwordCount, "object list claims 2147483647 entries"}}) {
    EmptyFile f = StoredEmpty();
    const std::size_t at = f.afterHeader + 2 * c.list;
    f.bytes.erase(f.bytes.begin() + static_cast<std::ptrdiff_t>(at),
                  f.bytes.begin() + static_cast<std::ptrdiff_t>(at + 2));
    f.bytes.insert(f.bytes.begin() + static_cast<std::ptrdiff_t>(at), c.count.begin(),
                   c.count.end());
    const CArchiveException e = LoadFailure(f.bytes, "count.pers");
    EXPECT_EQ(e.m_cause, CArchiveException::endOfFile) << c.what;
    EXPECT_EQ(e.m_offset, at + c.count.size()) << c.what;
    EXPECT_THAT(e.what(), HasSubstr(c.what));
  }
}

TEST(HostileCounts, StringLengthsBeyondTheBytesLeftAreRefusedBeforeReading) {
  const EmptyFile f = StoredEmpty();
  const std::size_t header = kRootTag;
  const Bytes body(f.bytes.begin() + static_cast<std::ptrdiff_t>(f.afterHeader), f.bytes.end());
  const Bytes tag(f.bytes.begin(), f.bytes.begin() + static_cast<std::ptrdiff_t>(header));
  struct Case {
    Bytes prefix;
    const char* what;
  };
  for (const Case& c : {
           Case{{0xFF, 0xFF, 0xFF, 0xF0, 0xFF, 0xFF, 0xFF}, "a string of 4294967280 characters"},
           Case{{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF,
                 0xFF},
                "a string of 18446744073709551615 characters"},
           // Wide: 2^31 code units would need 2^32 bytes; the unit count alone looks plausible
           // against the bytes left only if the doubling is forgotten.
           Case{{0xFF, 0xFE, 0xFF, 0xFF, 0xFF, 0xFF, 0x00, 0x00, 0x00, 0x80},
                "a string of 2147483648 wide characters"},
       }) {
    const Bytes bytes = Concat({tag, c.prefix, body});
    const CArchiveException e = LoadFailure(bytes, "string.pers");
    EXPECT_EQ(e.m_cause, CArchiveException::endOfFile) << c.what;
    EXPECT_EQ(e.m_offset, header + c.prefix.size()) << c.what;
    EXPECT_THAT(e.what(), HasSubstr(c.what));
  }
  // A wide string whose unit count fits the bytes left but whose bytes do not.
  Bytes wide = Concat({tag, {0xFF, 0xFE, 0xFF, 0x10}, Bytes(20, 'a')});
  const CArchiveException e = LoadFailure(wide, "wide.pers");
  EXPECT_EQ(e.m_cause, CArchiveException::endOfFile);
  EXPECT_THAT(e.what(), HasSubstr("16 wide characters"));
}

// One level of a personality nested in the option list of the one before: a class reference
// to CPersonality (index 1), an empty header, nine empty lists and an option list of one.
Bytes NestedPersonalities(std::size_t levels) {
  Bytes bytes = test::Bytes("CPersonality", 4).bytes();
  Bytes level(1 + 2 * 10, 0x00);
  level.insert(level.end(), {0x01, 0x00});
  bytes.insert(bytes.end(), level.begin(), level.end());
  for (std::size_t i = 1; i < levels; ++i) {
    bytes.insert(bytes.end(), {0x01, 0x80});
    bytes.insert(bytes.end(), level.begin(), level.end());
  }
  return bytes;
}

TEST(HostileNesting, PersonalitiesInsideOptionListsStopAtTheDepthLimit) {
  // Deep enough to overflow the stack if every level were read.
  const Bytes bytes = NestedPersonalities(200000);
  const CArchiveException e = LoadFailure(bytes, "deep.pers");
  EXPECT_EQ(e.m_cause, CArchiveException::genericException);
  EXPECT_THAT(e.what(), HasSubstr("nested more than 32 levels"));
  // Reported at the class reference of the record that would be the 33rd level.
  EXPECT_EQ(e.m_offset, kRootTag + 23 + 31u * 25);
  EXPECT_THAT(e.what(), HasSubstr("a CPersonality nested"));
}

// A personality with a trunk set (one channel, key list of one key), a conventional set (one
// channel) and a group set; the key belongs to the personality's shared records.
std::unique_ptr<CPersonality> SmallPersonality() {
  auto p = std::make_unique<CPersonality>();
  auto key = std::make_unique<CEskData>();
  key->SetEskId("KEY");
  auto* trunk = new CTrunkSet;
  trunk->SetName("TRK");
  trunk->Add(new CTrunkChannel);
  trunk->AddEsk(key.get());
  p->AddSet(trunk, TrunkSetType);
  auto* conv = new CConvSet;
  conv->SetName("CNV");
  conv->Add(new CConvChannel);
  p->AddSet(conv, ConvSetType);
  auto* group = new CGroupSet;
  group->SetName("GRP");
  group->Add(new CGroup);
  p->AddSet(group, GroupSetType);
  std::vector<std::unique_ptr<CObject>> shared;
  shared.push_back(std::move(key));
  p->AdoptSharedRecords(std::move(shared));
  return p;
}

// The new-class tag that introduces cls: 0xFFFF, schema, name length, name.
Bytes NewClassTag(const CRuntimeClass* cls) {
  return test::Bytes(cls->m_lpszClassName, static_cast<WORD>(cls->GetSchema())).bytes();
}

// A set's elements and the personality's lists take records of any class (see the tests of
// foreign records); a key list takes only key records.
TEST(HostileClasses, AKeyListEntryOfAnotherClassIsRefused) {
  const Bytes good = StorePersonalityBytes(*SmallPersonality());
  ASSERT_NO_THROW(LoadPersonalityBytes(good.data(), good.size(), "good.pers"));
  Bytes bytes = good;
  const std::size_t at =
      ReplaceOnce(bytes, NewClassTag(RUNTIME_CLASS(CEskData)), NewClassTag(RUNTIME_CLASS(CGroup)));
  const CArchiveException e = LoadFailure(bytes, "class.pers");
  EXPECT_EQ(e.m_cause, CArchiveException::badClass);
  EXPECT_EQ(e.m_offset, at);
  EXPECT_THAT(e.what(), HasSubstr("a CGroup where a CEskData is expected"));
}

TEST(HostileClasses, ABackReferenceToARecordOfAnotherClassIsRefused) {
  // Table of the stored personality: 1 CPersonality, 2 the personality, 3 CTrunkSet, 4 the
  // trunk set, 5 CTrunkChannel, 6 the channel, 7 CEskData, 8 the key. The key list's entry
  // becomes a reference to the channel (6) or to the trunk set (4).
  CEskData key;
  key.SetEskId("KEY");
  const Bytes storedKey = test::StoreObject(&key);  // as it appears the first time
  const Bytes good = StorePersonalityBytes(*SmallPersonality());
  for (BYTE index : {6, 4}) {
    Bytes bytes = good;
    const std::size_t at = ReplaceOnce(bytes, storedKey, {index, 0x00});
    const CArchiveException e = LoadFailure(bytes, "backref.pers");
    EXPECT_EQ(e.m_cause, CArchiveException::badClass);
    EXPECT_EQ(e.m_offset, at);
    const std::string cls = index == 6 ? "CTrunkChannel" : "CTrunkSet";
    EXPECT_THAT(e.what(), HasSubstr("reference to a " + cls + " where a CEskData is expected"));
  }
}

TEST(HostileTrailingBytes, BytesAfterThePersonalityAreCountedNotRead) {
  const Bytes one = StorePersonalityBytes(*SmallPersonality());
  const Bytes two = Concat({one, one});  // a second whole personality after the first
  const LoadedPersonality loaded = LoadPersonalityBytes(two.data(), two.size(), "two.pers");
  EXPECT_EQ(loaded.fileSize, two.size());
  EXPECT_EQ(loaded.trailingBytes, one.size());
  EXPECT_EQ(loaded.personality->GetNumTrkSets(), 1);
  EXPECT_EQ(test::Hex(StorePersonalityBytes(*loaded.personality)), test::Hex(one));
}

TEST(HalfWayFailures, EveryTruncationFailsWithTheFileNameAndNothingLeaks) {
  // Under the sanitizers a leaked record or a dangling key pointer fails this test.
  const Bytes bytes = StorePersonalityBytes(*SmallPersonality());
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const CArchiveException e = LoadFailure(Bytes(bytes.begin(), bytes.begin() + size), "cut.pers");
    EXPECT_EQ(e.m_cause, CArchiveException::endOfFile) << size;
    EXPECT_LE(e.m_offset, size);
  }
}

TEST(HalfWayFailures, AFailedLoadIntoAPersonalityLeavesItEmptied) {
  // A file that fails after its sets and shared key were read: the option list (the last
  // list before the fields, which are the same as an empty personality's) claims a record of
  // an unknown class.
  Bytes bytes = StorePersonalityBytes(*SmallPersonality());
  const EmptyFile empty = StoredEmpty(CPersonality());
  const std::size_t fields = empty.bytes.size() - (empty.afterHeader + 2 * 11);
  const std::size_t options = bytes.size() - fields - 2;
  ASSERT_EQ(bytes[options], 0);
  bytes[options] = 1;
  const Bytes unknown = {0xFF, 0xFF, 0x01, 0x00, 0x04, 0x00, 'C', 'Z', 'Z', 'Z'};
  bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(options + 2), unknown.begin(),
               unknown.end());
  const CArchiveException e = LoadFailure(bytes, "fails.pers");
  EXPECT_EQ(e.m_cause, CArchiveException::badClass);
  EXPECT_EQ(e.m_offset, options + 2);

  // The framework's in-place load: the personality's own fields are read from after its
  // class tag (every class in this file is new where it appears, so the table needs no root).
  std::unique_ptr<CPersonality> target = SmallPersonality();
  target->SetName("Before");
  CArchive ar(bytes.data() + kRootTag, bytes.size() - kRootTag, "fails.pers");
  ar.SetObjectSchema(4);
  EXPECT_THROW(target->Serialize(ar), CArchiveException);
  // Emptied: no systems, sets or options are left from either the old content or the
  // half-read file (and, under the sanitizers, no key record leaks or dangles).
  EXPECT_EQ(target->GetNumSystems(), 0);
  for (int t = 0; t < kNumSetTypes; ++t) EXPECT_EQ(target->GetNumSets(static_cast<SetType>(t)), 0);
  EXPECT_EQ(target->GetNumOptions(), 0);
  // And usable: it takes new records and stores as a personality of its own.
  target->AddSet(new CTrunkSet, TrunkSetType);
  const Bytes stored = StorePersonalityBytes(*target);
  EXPECT_EQ(
      LoadPersonalityBytes(stored.data(), stored.size(), "after.pers").personality->GetNumTrkSets(),
      1);
}

// The checked-in fuzzing inputs stay current: the dictionaries name every registered record
// class, and every seed is a valid file that loads and stores back byte for byte (a seed the
// library refuses would only teach the fuzzers the refusal).
const std::string kFuzzDir = std::string(PERSONA_TEST_DATA_DIR) + "/../../fuzz";

std::string ReadText(const std::string& path) {
  const std::vector<BYTE> bytes = ReadWholeFile(path);
  return std::string(bytes.begin(), bytes.end());
}

std::vector<std::string> FilesIn(const std::string& dir) {
  std::vector<std::string> out;
  for (const std::string& name : test::Entries(dir)) out.push_back(dir + "/" + name);
  return out;
}

TEST(FuzzInputs, DictionariesNameEveryRegisteredClass) {
  const std::string archive = ReadText(kFuzzDir + "/archive.dict");
  const std::string json = ReadText(kFuzzDir + "/json.dict");
  const std::vector<const CRuntimeClass*>& classes = test::LibraryClasses();
  EXPECT_GT(classes.size(), 50u);
  for (const CRuntimeClass* cls : classes) {
    const std::string name = cls->m_lpszClassName;
    EXPECT_EQ(CRuntimeClass::FromName(name.c_str()), cls);
    EXPECT_THAT(archive, HasSubstr("\n\"" + name + "\"\n"))
        << name << " is missing: regenerate with make_seeds";
    EXPECT_THAT(json, HasSubstr("\"\\x22" + name + "\\x22\"\n")) << name;
  }
}

TEST(FuzzInputs, EverySeedLoadsAndStoresBackByteForByte) {
  const std::vector<std::string> personalities = FilesIn(kFuzzDir + "/seeds/personality");
  const std::vector<std::string> sets = FilesIn(kFuzzDir + "/seeds/set");
  const std::vector<std::string> documents = FilesIn(kFuzzDir + "/seeds/json");
  EXPECT_GE(personalities.size(), 3u);
  EXPECT_EQ(sets.size(), static_cast<std::size_t>(kNumSetTypes));
  EXPECT_GE(documents.size(), 3u);
  for (const std::string& path : personalities) {
    const std::vector<BYTE> bytes = ReadWholeFile(path);
    const LoadedPersonality loaded = LoadPersonalityFile(path);
    EXPECT_EQ(loaded.trailingBytes, 0u) << path;
    EXPECT_EQ(test::Hex(StorePersonalityBytes(*loaded.personality)), test::Hex(bytes)) << path;
  }
  for (const std::string& path : sets) {
    const std::vector<BYTE> bytes = ReadWholeFile(path);
    CArchive ar(bytes.data(), bytes.size(), path);
    std::unique_ptr<CObject> set = ar.ReadOwnedObject(RUNTIME_CLASS(CSet));
    auto pool = ar.TakeSharedObjects();
    ASSERT_NE(set, nullptr) << path;
    EXPECT_EQ(ar.GetRemaining(), 0u) << path;
    EXPECT_EQ(test::Hex(test::StoreObject(set.get())), test::Hex(bytes)) << path;
  }
  for (const std::string& path : documents) {
    const Json doc = Json::parse(ReadText(path));
    std::unique_ptr<CPersonality> p = ImportPersonalityJson(doc, path);
    EXPECT_EQ(ExportPersonalityJson(*p).dump(1), doc.dump(1)) << path;
  }
}

}  // namespace
}  // namespace persona
