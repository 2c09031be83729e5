// CSystem: constructors, name epoch, archive form of the base part; scanned-system lists.
#include <persona/systems/system.h>

#include <algorithm>
#include <atomic>
#include <iterator>

namespace persona {

IMPLEMENT_SERIAL(CSystem, CSerial, VERSIONABLE_SCHEMA | 13)

namespace {

std::atomic<std::uint64_t> g_systemNameEpoch{0};

}  // namespace

bool IsKeyedRadioType(unsigned short radioType) {
  static constexpr unsigned short kTypes[] = {68, 69, 70, 80,  88,  89,  90,  92,  94,
                                              95, 96, 97, 101, 102, 103, 104, 105, 106};
  return std::find(std::begin(kTypes), std::end(kTypes), radioType) != std::end(kTypes);
}

CSystem::CSystem() = default;

CSystem::CSystem(unsigned short radioType, int reducedDefaults) {
  if (reducedDefaults == 0) return;
  if (IsKeyedRadioType(radioType)) {
    m_PowerLevel = 0;
    m_AlertTones = 0;
    m_Backlight = 0;
  } else if (radioType == 54) {
    m_AlertTones = 0;
    m_Backlight = 0;
  }
}

void CSystem::SetName(CString name) {
  m_Name = std::move(name);
  BumpNameEpoch();
}

std::uint64_t CSystem::NameEpoch() { return g_systemNameEpoch.load(std::memory_order_relaxed); }

void CSystem::BumpNameEpoch() { g_systemNameEpoch.fetch_add(1, std::memory_order_relaxed); }

void CSystem::Serialize(CArchive& ar) {
  const BYTE schema = LatchSchema(ar);
  SerializeFields(ar, *this, schema);
  if (ar.IsLoading()) BumpNameEpoch();
}

void CSystem::VisitFields(CFieldVisitor& v) {
  CSerial::VisitFields(v);
  FieldAdapter adapter(v);
  Fields(adapter);
  BumpNameEpoch();
}

namespace scan_list {

void CopyTo(const CStringArray& list, CStringArray& out) {
  if (&list == &out) return;
  out.RemoveAll();
  out.SetSize(list.GetSize());
  for (int i = 0; i < list.GetSize(); ++i) out.SetAt(i, list.GetAt(i));
}

CString At(const CStringArray& list, int i) { return list.GetAt(i); }

void SetAt(CStringArray& list, const CString& name, int i) { list.SetAtGrow(i, name); }

void DeleteAt(CStringArray& list, int i) { list.RemoveAt(i); }

}  // namespace scan_list

std::string SystemKindLabel(unsigned type) {
  static const char* const kLabels[] = {"Korvex",    "Conventional",
                                        "Pellam",    "Project 25 Conventional",
                                        "KORVEX IP", "Project 25 Trunked"};
  if (type < sizeof kLabels / sizeof kLabels[0]) return kLabels[type];
  return "Unknown (" + std::to_string(type) + ")";
}

}  // namespace persona
