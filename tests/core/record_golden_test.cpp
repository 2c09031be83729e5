// The stored bytes and the report block of every record class, filled four times with small
// values (each field takes each of 0 to 3 once, so the reports walk their real branches), printed
// for five radio models, alone and inside a personality that holds every option record, against
// tests/data/record_golden.txt. The file was written by this test once the hand-written byte and
// report expectations it replaced passed on the same code; review every change to it, then run
// with PERSONA_UPDATE_GOLDEN=1 to write it again.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <persona/persona.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

struct Golden {
  int seed;
  unsigned short model;
  double firstFreq;
  CPersonality* personality;
  std::string out;
};

using Printer = std::function<void(CObject&, CStringArray&, Golden&)>;

template <class T>
Printer OptionPrinter() {
  return [](CObject& o, CStringArray& out, Golden& g) {
    const T& rec = static_cast<T&>(o);
    if constexpr (std::is_invocable_v<decltype(&T::printOptToBuffer), T&, CStringArray&,
                                      CPersonality*, unsigned short>) {
      rec.printOptToBuffer(out, g.personality, g.model);
    } else {
      rec.printOptToBuffer(out, g.personality);
    }
  };
}

template <class T>
Printer SetPrinter() {
  return [](CObject& o, CStringArray& out, Golden& g) {
    const T& set = static_cast<T&>(o);
    if constexpr (std::is_invocable_v<decltype(&T::printToBuffer), T&, CStringArray&, int,
                                      unsigned short, double>) {
      set.printToBuffer(out, g.seed + 1, g.model, g.firstFreq);
    } else if constexpr (std::is_invocable_v<decltype(&T::printToBuffer), T&, CStringArray&, int,
                                             unsigned short>) {
      set.printToBuffer(out, g.seed + 1, static_cast<unsigned short>(10 * g.seed));
    } else {
      set.printToBuffer(out, g.seed + 1);
    }
  };
}

using Assign = std::function<void(CObject&, const CObject*)>;

struct Entry {
  const CRuntimeClass* cls;
  Printer print;  // null: no report block of its own
  Assign assign;  // operator=(const T*); null for a class without one
};

template <class T>
Assign PointerAssign() {
  if constexpr (std::is_assignable_v<T&, const T*>) {
    return
        [](CObject& dst, const CObject* src) { static_cast<T&>(dst) = static_cast<const T*>(src); };
  } else {
    return nullptr;
  }
}

template <class T>
Entry Opt() {
  return {T::GetThisClass(), OptionPrinter<T>(), PointerAssign<T>()};
}
template <class T>
Entry Set() {
  return {T::GetThisClass(), SetPrinter<T>(), PointerAssign<T>()};
}
template <class T>
Entry Plain() {
  return {T::GetThisClass(), nullptr, PointerAssign<T>()};
}

std::vector<Entry> Entries() {
  return {Opt<CAgencyData>(),
          Opt<CExtAddAgencyData>(),
          Opt<CAlarmOpts>(),
          Opt<CAlertOpts>(),
          Opt<CCoyle300Opts>(),
          Opt<CSilCustomOpts>(),
          Opt<COstrelCustomOpts>(),
          Opt<CKorvex2CustomOpts>(),
          Opt<CDataOpts>(),
          Opt<CDiagnosticOpts>(),
          Opt<CDisplayOpts>(),
          Opt<CDualCtrlOpts>(),
          Opt<CGenRadioOpts>(),
          Opt<CIgnitionOpts>(),
          Opt<CKeypadCtrlOpts>(),
          Plain<CKeypadCtrlOpts_E1>(),
          Plain<CKeypadCtrlOpts_E2>(),
          Opt<CKwOpts>(),
          Opt<CLumoOpts>(),
          Plain<CFennOpts>(),
          Plain<CMacro>(),
          Opt<CMmsOpts>(),
          Opt<CMosaicOpts>(),
          Opt<CNetworkOpts>(),
          Plain<CMultipleRadioSonvraOpts>(),
          Opt<CP25OtarOpts>(),
          Opt<CP25tWanOpts>(),
          Opt<CPellamOpts>(),
          Opt<CPowerUpOpts>(),
          Opt<CPrgrmICall>(),
          Opt<CPrgrmPhoneCall>(),
          Opt<CR917Opts>(),
          Opt<CScanOpts>(),
          Plain<CConvScanOpts>(),
          Plain<CLumoConvScanOpts>(),
          Opt<CScratchPadOpts>(),
          Opt<CSirenLightsOpts>(),
          Opt<CSonvraOpts>(),
          Opt<CExtSpkrOpts>(),
          Opt<CPubAddOpts>(),
          Plain<CStatusMessage>(),
          Opt<CStatus>(),
          Plain<CMessage>(),
          Opt<CSupervisoryOpts>(),
          Opt<CSystemScanOpts>(),
          Opt<CTimerOpts>(),
          Opt<CToneEncode>(),
          Opt<CVantorOpts>(),
          Opt<CZemoOpts>(),
          Plain<CEskData>(),
          Set<CTrunkSet>(),
          Set<CConvSet>(),
          Set<CGroupSet>(),
          Set<CPhoneSet>(),
          Set<CICallSet>(),
          Set<CSpCallSet>(),
          Set<CPlmGroupSet>(),
          Set<CPlmSpCallSet>(),
          Set<CP25ConvSet>(),
          Set<CP25GroupSet>(),
          Set<CExtAddGroupSet>(),
          Plain<CSystem>(),
          Plain<CTrunkSystem>(),
          Plain<CExtAddSystem>(),
          Plain<CP25TrkSystem>(),
          Plain<CConvSystem>(),
          Plain<CPlmSystem>(),
          Plain<CP25ConvSystem>()};
}

// A record of cls with small values; a set gets two elements of its element class.
std::unique_ptr<CObject> Filled(const CRuntimeClass* cls, int seed) {
  std::unique_ptr<CObject> rec(cls->CreateObject());
  test::FillSmall(*rec, seed);
  if (auto* set = dynamic_cast<CSet*>(rec.get())) {
    if (const CRuntimeClass* element = CPersonality::ElementClassOf(*set)) {
      for (int i = 1; i <= 2; ++i) {
        CObject* e = element->CreateObject();
        test::FillSmall(*e, seed + i);
        set->Add(e);
      }
    }
  }
  return rec;
}

void Describe(Golden& g, const std::vector<Entry>& entries) {
  for (const Entry& e : entries) {
    auto rec = Filled(e.cls, g.seed);
    g.out += std::string("== ") + e.cls->m_lpszClassName + " seed " + std::to_string(g.seed) +
             " model " + std::to_string(g.model) +
             (g.personality->GetOption(e.cls) ? " held" : "") + "\n" +
             test::Hex(test::StoreObject(rec.get())) + "\n";
    if (!e.print) continue;
    CStringArray out;
    e.print(*rec, out, g);
    for (const CString& line : out) g.out += line.str() + "|\n";
  }
}

TEST(RecordGolden, StoredBytesAndReportsOfEveryClassMatchTheReviewedFile) {
  const std::vector<Entry> entries = Entries();
  const unsigned short models[] = {30, 27, 101, 54, 29};
  const double firstFreqs[] = {150.0, 890.0001, 890.0, 806.0, 890.0};
  std::string got;
  for (int seed = 0; seed < 5; ++seed) {
    CPersonality personality(models[seed], 0);
    if (seed >= 2) {  // the blocks that quote other records find them in the personality
      for (const Entry& e : entries) {
        auto rec = Filled(e.cls, 7);
        if (dynamic_cast<CSet*>(rec.get()) == nullptr) personality.PutOption(rec.release());
      }
    }
    Golden g{seed, models[seed], firstFreqs[seed], &personality, ""};
    Describe(g, entries);
    got += g.out;
  }
  const std::string path = std::string(PERSONA_TEST_DATA_DIR) + "/record_golden.txt";
  if (std::getenv("PERSONA_UPDATE_GOLDEN") != nullptr) std::ofstream(path, std::ios::binary) << got;
  const std::vector<BYTE> bytes = test::ReadTestFile("record_golden.txt");
  const std::string want(bytes.begin(), bytes.end());
  std::size_t at = 0;  // the first differing line, for a readable failure
  while (at < want.size() && at < got.size() && want[at] == got[at]) ++at;
  const std::size_t from = got.rfind('\n', at == 0 ? 0 : at - 1);
  EXPECT_EQ(want.size(), got.size());
  EXPECT_EQ(want.substr(from + 1, 300), got.substr(from + 1, 300)) << "at byte " << at;
}

TEST(RecordGolden, PointerAssignmentCopiesEveryStoredByteAndIgnoresNullAndItself) {
  for (const Entry& e : Entries()) {
    if (!e.assign) continue;
    SCOPED_TRACE(e.cls->m_lpszClassName);
    auto target = Filled(e.cls, 1);
    const auto source = Filled(e.cls, 2);
    if (auto* general = dynamic_cast<CGenRadioOpts*>(source.get())) {  // keeps its own latch
      general->SetEmerLatch(static_cast<CGenRadioOpts&>(*target).GetEmerLatch());
    }
    const std::string before = test::Hex(test::StoreObject(target.get()));
    e.assign(*target, nullptr);
    EXPECT_EQ(test::Hex(test::StoreObject(target.get())), before);
    e.assign(*target, target.get());
    EXPECT_EQ(test::Hex(test::StoreObject(target.get())), before);
    e.assign(*target, source.get());
    EXPECT_EQ(test::Hex(test::StoreObject(target.get())),
              test::Hex(test::StoreObject(source.get())));
  }
}

}  // namespace
}  // namespace persona
