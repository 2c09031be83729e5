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
    int ends = 0;  // every element's lines are followed by a call of the element end
    const ElementLinesEnd end = [&ends](CStringArray&) { ++ends; };
    using End = const ElementLinesEnd*;
    if constexpr (std::is_invocable_v<decltype(&T::printToBuffer), T&, CStringArray&, int,
                                      unsigned short, double, End>) {
      set.printToBuffer(out, g.seed + 1, g.model, g.firstFreq, &end);
    } else if constexpr (std::is_invocable_v<decltype(&T::printToBuffer), T&, CStringArray&, int,
                                             unsigned short, End>) {
      set.printToBuffer(out, g.seed + 1, static_cast<unsigned short>(10 * g.seed), &end);
    } else {
      set.printToBuffer(out, g.seed + 1, &end);
    }
    EXPECT_EQ(ends, set.GetSize()) << set.GetClassName();
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

// Whether T prints an option report block of its own.
template <class T, class = void>
constexpr bool kPrintsOptionBlock = false;
template <class T>
constexpr bool kPrintsOptionBlock<T, std::void_t<decltype(&T::printOptToBuffer)>> = true;

// Sets print their set block, option records with a block of their own print it, the others
// (systems, keys, list elements, records printed inside their owner's block) have none here.
template <class T>
Printer PrinterOf() {
  if constexpr (std::is_base_of_v<CSet, T>) {
    return SetPrinter<T>();
  } else if constexpr (kPrintsOptionBlock<T>) {
    return OptionPrinter<T>();
  } else {
    return nullptr;
  }
}

template <class... T>
std::vector<Entry> EntriesOf() {
  return {Entry{T::GetThisClass(), PrinterOf<T>(), PointerAssign<T>()}...};
}

std::vector<Entry> Entries() {
  return EntriesOf<
      CAgencyData, CExtAddAgencyData, CAlarmOpts, CAlertOpts, CCoyle300Opts, CSilCustomOpts,
      COstrelCustomOpts, CKorvex2CustomOpts, CDataOpts, CDiagnosticOpts, CDisplayOpts,
      CDualCtrlOpts, CGenRadioOpts, CIgnitionOpts, CKeypadCtrlOpts, CKeypadCtrlOpts_E1,
      CKeypadCtrlOpts_E2, CKwOpts, CLumoOpts, CFennOpts, CMacro, CMmsOpts, CMosaicOpts,
      CNetworkOpts, CMultipleRadioSonvraOpts, CP25OtarOpts, CP25tWanOpts, CPellamOpts, CPowerUpOpts,
      CPrgrmICall, CPrgrmPhoneCall, CR917Opts, CScanOpts, CConvScanOpts, CLumoConvScanOpts,
      CScratchPadOpts, CSirenLightsOpts, CSonvraOpts, CExtSpkrOpts, CPubAddOpts, CStatusMessage,
      CStatus, CMessage, CSupervisoryOpts, CSystemScanOpts, CTimerOpts, CToneEncode, CVantorOpts,
      CZemoOpts, CEskData, CTrunkSet, CConvSet, CGroupSet, CPhoneSet, CICallSet, CSpCallSet,
      CPlmGroupSet, CPlmSpCallSet, CP25ConvSet, CP25GroupSet, CExtAddGroupSet, CSystem,
      CTrunkSystem, CExtAddSystem, CP25TrkSystem, CConvSystem, CPlmSystem, CP25ConvSystem>();
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
