// Checks that hold for every option record built on the field-table pattern: a full round trip
// with distinctive values, schema guards that stay within the class's schema, loads of every
// older schema, and the deep copy of the pattern. (Report blocks: the golden file.)
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include <persona/options/gen_radio_opts.h>
#include <persona/options/mms_opts.h>
#include <persona/options/siren_lights.h>
#include <persona/options/tone_encode.h>
#include <persona/personality/personality.h>
#include <persona/systems/system.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::DumpFields;
using test::ExpectRoundTrip;
using test::FillFields;
using test::Hex;

// The option records, every library class made on CSerial but the personality and the system,
// and the three element classes of their lists that are made on CObject alone.
std::vector<const CRuntimeClass*> Members() {
  std::vector<const CRuntimeClass*> members = {RUNTIME_CLASS(CMmsMsg), RUNTIME_CLASS(CSirenLights),
                                               RUNTIME_CLASS(CToneSeq)};
  for (const CRuntimeClass* cls : test::LibraryClasses()) {
    if (cls->m_pBaseClass == RUNTIME_CLASS(CSerial) && cls != RUNTIME_CLASS(CPersonality) &&
        cls != RUNTIME_CLASS(CSystem)) {
      members.push_back(cls);
    }
  }
  return members;
}

// Whether the class is built on the field-table pattern (its fields are its layout); these store
// themselves by hand.
bool FieldTable(const CRuntimeClass* cls) {
  for (const char* name : {"CAlertOpts", "CDisplayOpts", "CGenRadioOpts", "CVantorOpts",
                           "CP25tWanOpts", "CP25TrkWan", "CP25OtarOpts", "CToneEncode", "CToneSeq",
                           "CPellamOpts", "CScratchPadOpts", "CSupervisoryOpts"}) {
    if (std::strcmp(cls->m_lpszClassName, name) == 0) return false;
  }
  return true;
}

void FillAll(CObject& rec, int seed);

// A member filled with distinctive values; general options inside the two ranges that a load
// clamps, and with the emergency latch (which copies leave behind) at 0.
std::unique_ptr<CObject> Filled(const CRuntimeClass* cls, int seed) {
  std::unique_ptr<CObject> rec(cls->CreateObject());
  FillAll(*rec, seed);
  if (auto* general = dynamic_cast<CGenRadioOpts*>(rec.get())) {
    general->SetRadioOperation(1);
    general->SetMaxVolume(7);
    general->SetEmerLatch(0);
  }
  return rec;
}

std::unique_ptr<CObject> Make(const CRuntimeClass* cls) {
  return std::unique_ptr<CObject>(cls->CreateObject());
}

// The schema that added each described field, in table order (0 or 1: every schema).
std::vector<unsigned> SinceList(CObject& rec) {
  std::vector<unsigned> since;
  test::ForEachField(rec, [&](const FieldInfo& f, auto&&) { since.push_back(f.since); });
  return since;
}

// Stores the fields that an object of an older schema holds, the way that schema stored them.
void WriteOldSchema(CObject& rec, CArchive& ar, unsigned schema) {
  test::ForEachField(rec, [&](const FieldInfo& f, auto&& v) {
    using T = std::decay_t<decltype(v)>;
    if (f.since > schema) return;
    if constexpr (std::is_same_v<T, test::WordRow>) {
      for (std::size_t i = 0; i < v.count; ++i) ar << v.values[i];
    } else if constexpr (std::is_class_v<T> && !std::is_same_v<T, CString>) {
      v.Serialize(ar);
    } else {
      ar << v;
    }
  });
}

// Fills every field, and gives every owned element list two filled elements of its class.
void FillAll(CObject& rec, int seed) {
  FillFields(rec, seed);
  test::ForEachField(rec, [seed](const FieldInfo&, auto&& list) {
    if constexpr (std::is_same_v<std::decay_t<decltype(list)>, COwnedObList>) {
      for (int i = 0; i < 2; ++i) {
        CObject* e = list.GetElementClass()->CreateObject();
        FillFields(*e, seed + 10 * (i + 1));
        list.Add(e);
      }
    }
  });
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST(OptionRecordFamily, EveryMemberRoundTripsWithDistinctiveValues) {
  for (const CRuntimeClass* cls : Members()) {
    SCOPED_TRACE(cls->m_lpszClassName);
    auto rec = Filled(cls, 3);
    const std::vector<BYTE> bytes = ExpectRoundTrip(*rec);
    // The stored class tag carries the class's own schema.
    ASSERT_GT(bytes.size(), 4u);
    EXPECT_EQ(bytes[2] | bytes[3] << 8, static_cast<int>(cls->GetSchema()));
    // A filled record differs from a fresh one: no field was left out of the description.
    EXPECT_NE(DumpFields(*Make(cls)), DumpFields(*rec));
    // Every shorter prefix of the bytes is refused.
    for (std::size_t n = 0; n < bytes.size(); ++n) {
      const std::vector<BYTE> cut(bytes.begin(), bytes.begin() + static_cast<long>(n));
      EXPECT_THROW(test::LoadObject(cut, cls), CArchiveException) << n;
    }
  }
}

// (Pointer assignment: the golden record test, over every class that has one.)
TEST(OptionRecordFamily, CopiesCarryEveryFieldAndDeleteEmptiesTheListsOnly) {
  for (const CRuntimeClass* cls : Members()) {
    SCOPED_TRACE(cls->m_lpszClassName);
    auto rec = Filled(cls, 5);
    std::unique_ptr<CObject> copy(cls->CopyObject(*rec));
    ASSERT_TRUE(copy);
    EXPECT_EQ(DumpFields(*rec), DumpFields(*copy));
    EXPECT_EQ(Hex(test::StoreObject(rec.get())), Hex(test::StoreObject(copy.get())));
    // Delete empties the lists and keeps the values.
    if (auto* option = dynamic_cast<CSerial*>(copy.get())) {
      option->Delete();
      for (const std::string& line : Lines(DumpFields(*copy))) {
        EXPECT_TRUE(line.find("= [") == std::string::npos || line.find("= []") != std::string::npos)
            << line;
        EXPECT_TRUE(line.find(" records") == std::string::npos ||
                    line.find("= 0 records") != std::string::npos)
            << line;
      }
    }
  }
}

TEST(OptionRecordFamily, SchemaGuardsStayWithinTheClassSchema) {
  for (const CRuntimeClass* cls : Members()) {
    if (!FieldTable(cls)) continue;
    SCOPED_TRACE(cls->m_lpszClassName);
    auto rec = Make(cls);
    const std::vector<unsigned> since = SinceList(*rec);
    ASSERT_FALSE(since.empty());
    unsigned last = 0;
    for (unsigned s : since) {
      EXPECT_LE(s, cls->GetSchema());
      // A new schema only appends: guards never go down along the archive order.
      EXPECT_GE(s, last);
      last = s;
    }
    // A non-versionable class has one layout; each later schema of a versionable one added
    // fields.
    const unsigned schema = cls->GetSchema();
    for (unsigned n = 2; n <= schema; ++n) {
      EXPECT_TRUE(cls->IsVersionable());
      EXPECT_NE(std::find(since.begin(), since.end(), n), since.end()) << n;
    }
  }
}

TEST(OptionRecordFamily, OlderSchemasLoadWithLaterFieldsAtTheirDefaults) {
  for (const CRuntimeClass* cls : Members()) {
    if (!cls->IsVersionable() || !FieldTable(cls)) continue;
    for (unsigned schema = 1; schema < cls->GetSchema(); ++schema) {
      SCOPED_TRACE(std::string(cls->m_lpszClassName) + " schema " + std::to_string(schema));
      auto filled = Make(cls);
      FillFields(*filled, 7);
      CArchive ar(nullptr, CArchive::store);
      const std::size_t nameLength = std::strlen(cls->m_lpszClassName);
      ar << WORD{0xFFFF} << static_cast<WORD>(schema) << static_cast<WORD>(nameLength);
      ar.Write(cls->m_lpszClassName, static_cast<UINT>(nameLength));
      WriteOldSchema(*filled, ar, schema);
      const std::vector<BYTE> bytes = ar.TakeStoredBytes();

      CArchive in(bytes.data(), bytes.size(), "old.bin");
      std::unique_ptr<CObject> loaded = in.ReadOwnedObject(cls);
      EXPECT_EQ(in.GetRemaining(), 0u);

      const std::vector<unsigned> since = SinceList(*loaded);
      const auto got = Lines(DumpFields(*loaded));
      const auto stored = Lines(DumpFields(*filled));
      const auto fresh = Lines(DumpFields(*Make(cls)));
      ASSERT_EQ(got.size(), since.size());
      for (std::size_t i = 0; i < got.size(); ++i) {
        EXPECT_EQ(got[i], since[i] <= schema ? stored[i] : fresh[i]);
      }
    }
  }
}

}  // namespace
}  // namespace persona
