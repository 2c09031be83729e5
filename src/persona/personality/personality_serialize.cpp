// CPersonality archive form: the header text, the radio types, the ten lists, the header fields,
// the three set lists that later schemas added, and the load repairs.
#include <memory>

#include <persona/personality/load_fixups.h>
#include <persona/personality/personality.h>
#include <persona/systems/system.h>

namespace persona {

namespace {

// The set lists stored between the systems and the options, in archive order.
constexpr SetType kFirstSetLists[] = {TrunkSetType,    GroupSetType,    PhoneSetType,
                                      ICallSetType,    SpCallSetType,   ConvSetType,
                                      PlmGroupSetType, PlmSpCallSetType};

constexpr char kSep = '\b';

// Removes the empty slots (null records) that a stored list may hold, in one pass.
void DropEmptySlots(COwnedObList& list) {
  bool hasEmpty = false;
  for (const CObject* record : list) hasEmpty = hasEmpty || record == nullptr;
  if (!hasEmpty) return;
  COwnedObList kept(list.GetElementClass());
  kept.Reserve(static_cast<std::size_t>(list.GetCount()));
  for (int i = 0; i < list.GetCount(); ++i) {
    if (list.GetAt(i) != nullptr) kept.Add(list.Replace(i, nullptr));
  }
  list = std::move(kept);
}

}  // namespace

void CPersonality::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    StoreTo(ar);
    return;
  }
  try {
    LoadFrom(ar);
  } catch (...) {
    // A load that fails half-way leaves the personality empty rather than half-read. The key
    // records read so far stay in the archive's pool, which frees them.
    Delete();
    throw;
  }
  AdoptShared(ar);
}

void CPersonality::StoreTo(CArchive& ar) {
  CString header = CString("Name") + kSep + m_Name + kSep;
  header += CString("LastSaved") + kSep + m_SavedOn + kSep;
  header += CString("SavedBy") + kSep + m_SavedBy + kSep;
  header += CString("Version") + kSep + CString::Formatted("%04d", m_Version) + kSep;
  ar << header;
  m_RadioTypes.Serialize(ar);
  m_systems.Serialize(ar);
  for (SetType type : kFirstSetLists) m_sets[type].Serialize(ar);
  m_options.Serialize(ar);
  ar << m_Name << m_Description << m_SavedOn << m_SavedBy << m_Version;
  ar << m_TxMinFreq << m_TxMaxFreq << m_RxMinFreq << m_RxMaxFreq << m_LastRadio;
  m_sets[P25GroupSetType].Serialize(ar);
  m_sets[P25ConvSetType].Serialize(ar);
  m_sets[EaGroupSetType].Serialize(ar);
}

void CPersonality::LoadFrom(CArchive& ar) {
  m_storedSchema = ReadSchemaByte(ar);
  m_loaded = 1;
  CString header;  // for readers that identify a file without parsing it; the fields follow
  ar >> header;
  m_RadioTypes.Serialize(ar);
  LoadList(ar, m_systems);
  for (SetType type : kFirstSetLists) LoadList(ar, m_sets[type]);
  LoadList(ar, m_options);
  ar >> m_Name >> m_Description >> m_SavedOn >> m_SavedBy >> m_Version;
  ar >> m_TxMinFreq >> m_TxMaxFreq >> m_RxMinFreq >> m_RxMaxFreq >> m_LastRadio;

  CorrectBandEdges();
  ApplyGeneralOptionsFixup(*this);

  if (SchemaAtLeast(m_storedSchema, 2)) {
    LoadList(ar, m_sets[P25GroupSetType]);
    LoadList(ar, m_sets[P25ConvSetType]);
  }
  if (SchemaAtLeast(m_storedSchema, 3)) {
    LoadList(ar, m_sets[EaGroupSetType]);
  }

  if (m_Version < 17) {
    ReMapToneEncTriggers();
    m_Version = kCurrentVersion;
  }
}

// Every list takes records of any registered class, as the format allows: a file may hold a set
// of another class in a set list, or a record that is no set at all. What uses a record of a
// list checks its class first (GetSetAt, GetSystemAt and the name lookups answer only sets and
// systems).
void CPersonality::LoadList(CArchive& ar, COwnedObList& list) {
  InvalidateIndexes();
  list.Serialize(ar);
  DropEmptySlots(list);
}

// Files that used the old band edges: each limit is corrected only on an exact match.
void CPersonality::CorrectBandEdges() {
  if (m_TxMaxFreq == 902.0) m_TxMaxFreq = 901.9875;
  if (m_TxMinFreq == 895.0) m_TxMinFreq = 896.0125;
  if (m_RxMaxFreq == 902.0) m_RxMaxFreq = 940.9875;
  if (m_RxMinFreq == 895.0) m_RxMinFreq = 935.0125;
}

void CPersonality::AdoptShared(CArchive& ar) {
  for (std::unique_ptr<CObject>& record : ar.TakeSharedObjects()) {
    m_sharedRecords.emplace_back(std::move(record));
  }
}

void CPersonality::AdoptSharedRecords(std::vector<std::unique_ptr<CObject>> records) {
  for (std::unique_ptr<CObject>& record : records) {
    if (record != nullptr) m_sharedRecords.emplace_back(std::move(record));
  }
}

}  // namespace persona
