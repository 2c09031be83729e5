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

#include <persona/framework/exceptions.h>
#include <persona/options/agency_data.h>
#include <persona/options/alarm_opts.h>
#include <persona/options/alert_opts.h>
#include <persona/options/coyle300_opts.h>
#include <persona/options/custom_opts.h>
#include <persona/options/data_opts.h>
#include <persona/options/diagnostic_opts.h>
#include <persona/options/display_opts.h>
#include <persona/options/dual_ctrl_opts.h>
#include <persona/options/flash_lights.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/ignition_opts.h>
#include <persona/options/keypad_ctrl_opts.h>
#include <persona/options/kw_opts.h>
#include <persona/options/lumo_opts.h>
#include <persona/options/mms_opts.h>
#include <persona/options/mosaic_opts.h>
#include <persona/options/network_opts.h>
#include <persona/options/p25_otar_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/pellam_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/prgrm_calls.h>
#include <persona/options/r917_opts.h>
#include <persona/options/scan_opts.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/options/siren_lights.h>
#include <persona/options/sonvra_opts.h>
#include <persona/options/speaker_opts.h>
#include <persona/options/status_opts.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/system_scan_opts.h>
#include <persona/options/timer_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/options/vantor_opts.h>
#include <persona/options/zemo_opts.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

using test::DumpFields;
using test::ExpectRoundTrip;
using test::FillFields;
using test::Hex;

// One option record class and how to make it filled with distinctive values. fieldTable: the
// record is built on the field-table pattern (its fields are its layout).
struct Member {
  const CRuntimeClass* cls;
  bool fieldTable;
  std::function<std::unique_ptr<CObject>(int seed)> make;
  std::function<void(CObject&, const CObject&)> assign;  // operator=(const T*), if any
};

void FillAll(CObject& rec, int seed);

template <class T>
Member MemberOf(bool fieldTable = true) {
  Member m{T::GetThisClass(), fieldTable, nullptr, nullptr};
  m.make = [](int seed) -> std::unique_ptr<CObject> {
    auto rec = std::make_unique<T>();
    FillAll(*rec, seed);
    return rec;
  };
  if constexpr (std::is_assignable_v<T&, const T*>) {
    m.assign = [](CObject& dst, const CObject& src) {
      static_cast<T&>(dst) = static_cast<const T*>(&src);
    };
  }
  return m;
}

// General options with distinctive values inside the two ranges that a load clamps, and the
// emergency latch (which copies leave behind) at 0.
Member General() {
  Member m = MemberOf<CGenRadioOpts>(false);
  m.make = [](int seed) -> std::unique_ptr<CObject> {
    auto general = std::make_unique<CGenRadioOpts>();
    test::FillFields(*general, seed);
    general->SetRadioOperation(1);
    general->SetMaxVolume(7);
    general->SetEmerLatch(0);
    return general;
  };
  return m;
}

std::vector<Member> Members() {
  return {
      MemberOf<CAlarmOpts>(),
      MemberOf<CExtSpkrOpts>(),
      MemberOf<CPubAddOpts>(),
      MemberOf<CDualCtrlOpts>(),
      MemberOf<CNetworkOpts>(),
      MemberOf<CMultipleRadioSonvraOpts>(),
      MemberOf<CKeypadCtrlOpts>(),
      MemberOf<CKeypadCtrlOpts_E1>(),
      MemberOf<CKeypadCtrlOpts_E2>(),
      MemberOf<CIgnitionOpts>(),
      MemberOf<CDataOpts>(),
      MemberOf<CAgencyData>(),
      MemberOf<CExtAddAgencyData>(),
      MemberOf<CStatus>(),
      MemberOf<CMessage>(),
      MemberOf<CPowerUpOpts>(),
      MemberOf<CKwOpts>(),
      MemberOf<CFlashLights>(),
      MemberOf<CTimerOpts>(),
      MemberOf<CSystemScanOpts>(),
      MemberOf<CSonvraOpts>(),
      MemberOf<CScanOpts>(),
      MemberOf<CConvScanOpts>(),
      MemberOf<CLumoConvScanOpts>(),
      MemberOf<CSirenLights>(),
      MemberOf<CSirenLightsOpts>(),
      MemberOf<CPrgrmICall>(),
      MemberOf<CPrgrmPhoneCall>(),
      MemberOf<CR917Opts>(),
      MemberOf<CZemoOpts>(),
      MemberOf<CDiagnosticOpts>(),
      MemberOf<CSilCustomOpts>(),
      MemberOf<COstrelCustomOpts>(),
      MemberOf<CKorvex2CustomOpts>(),
      MemberOf<CLumoOpts>(),
      MemberOf<CFennOpts>(),
      MemberOf<CMosaicOpts>(),
      MemberOf<CCoyle300Opts>(),
      MemberOf<CMmsMsg>(),
      MemberOf<CMmsOpts>(),
      MemberOf<CAlertOpts>(false),
      MemberOf<CDisplayOpts>(false),
      General(),
      MemberOf<CVantorOpts>(false),
      MemberOf<CP25tWanOpts>(false),
      MemberOf<CP25TrkWan>(false),
      MemberOf<CP25OtarOpts>(false),
      MemberOf<CToneEncode>(false),
      MemberOf<CToneSeq>(false),
      MemberOf<CPellamOpts>(false),
      MemberOf<CScratchPadOpts>(false),
      MemberOf<CSupervisoryOpts>(false),
  };
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
  for (const Member& m : Members()) {
    SCOPED_TRACE(m.cls->m_lpszClassName);
    auto rec = m.make(3);
    const std::vector<BYTE> bytes = ExpectRoundTrip(*rec);
    // The stored class tag carries the class's own schema.
    ASSERT_GT(bytes.size(), 4u);
    EXPECT_EQ(bytes[2] | bytes[3] << 8, static_cast<int>(m.cls->GetSchema()));
    // A filled record differs from a fresh one: no field was left out of the description.
    EXPECT_NE(DumpFields(*Make(m.cls)), DumpFields(*rec));
    // Every shorter prefix of the bytes is refused.
    for (std::size_t n = 0; n < bytes.size(); ++n) {
      const std::vector<BYTE> cut(bytes.begin(), bytes.begin() + static_cast<long>(n));
      EXPECT_THROW(test::LoadObject(cut, m.cls), CArchiveException) << n;
    }
  }
}

TEST(OptionRecordFamily, CopiesAndAssignmentsCarryEveryField) {
  for (const Member& m : Members()) {
    SCOPED_TRACE(m.cls->m_lpszClassName);
    auto rec = m.make(5);
    std::unique_ptr<CObject> copy(m.cls->CopyObject(*rec));
    ASSERT_TRUE(copy);
    EXPECT_EQ(DumpFields(*rec), DumpFields(*copy));
    EXPECT_EQ(Hex(test::StoreObject(rec.get())), Hex(test::StoreObject(copy.get())));
    if (!m.assign) continue;
    // Pointer assignment over a differently filled record (its elements are replaced).
    auto target = m.make(9);
    m.assign(*target, *rec);
    EXPECT_EQ(DumpFields(*rec), DumpFields(*target));
    m.assign(*target, *target);
    EXPECT_EQ(DumpFields(*rec), DumpFields(*target));
    // Delete empties the lists and keeps the values.
    if (auto* option = dynamic_cast<CSerial*>(target.get())) {
      option->Delete();
      for (const std::string& line : Lines(DumpFields(*target))) {
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
  for (const Member& m : Members()) {
    if (!m.fieldTable) continue;
    SCOPED_TRACE(m.cls->m_lpszClassName);
    auto rec = Make(m.cls);
    const std::vector<unsigned> since = SinceList(*rec);
    ASSERT_FALSE(since.empty());
    unsigned last = 0;
    for (unsigned s : since) {
      EXPECT_LE(s, m.cls->GetSchema());
      // A new schema only appends: guards never go down along the archive order.
      EXPECT_GE(s, last);
      last = s;
    }
    // A non-versionable class has one layout; each later schema of a versionable one added
    // fields.
    const unsigned schema = m.cls->GetSchema();
    for (unsigned n = 2; n <= schema; ++n) {
      EXPECT_TRUE(m.cls->IsVersionable());
      EXPECT_NE(std::find(since.begin(), since.end(), n), since.end()) << n;
    }
  }
}

TEST(OptionRecordFamily, OlderSchemasLoadWithLaterFieldsAtTheirDefaults) {
  for (const Member& m : Members()) {
    if (!m.cls->IsVersionable() || !m.fieldTable) continue;
    for (unsigned schema = 1; schema < m.cls->GetSchema(); ++schema) {
      SCOPED_TRACE(std::string(m.cls->m_lpszClassName) + " schema " + std::to_string(schema));
      auto filled = Make(m.cls);
      FillFields(*filled, 7);
      CArchive ar(nullptr, CArchive::store);
      const std::size_t nameLength = std::strlen(m.cls->m_lpszClassName);
      ar << WORD{0xFFFF} << static_cast<WORD>(schema) << static_cast<WORD>(nameLength);
      ar.Write(m.cls->m_lpszClassName, static_cast<UINT>(nameLength));
      WriteOldSchema(*filled, ar, schema);
      const std::vector<BYTE> bytes = ar.TakeStoredBytes();

      CArchive in(bytes.data(), bytes.size(), "old.bin");
      std::unique_ptr<CObject> loaded = in.ReadOwnedObject(m.cls);
      EXPECT_EQ(in.GetRemaining(), 0u);

      const std::vector<unsigned> since = SinceList(*loaded);
      const auto got = Lines(DumpFields(*loaded));
      const auto stored = Lines(DumpFields(*filled));
      const auto fresh = Lines(DumpFields(*Make(m.cls)));
      ASSERT_EQ(got.size(), since.size());
      for (std::size_t i = 0; i < got.size(); ++i) {
        EXPECT_EQ(got[i], since[i] <= schema ? stored[i] : fresh[i]);
      }
    }
  }
}

}  // namespace
}  // namespace persona
