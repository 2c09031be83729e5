// CPersonality: constructors, copy and assignment, header fields, radio types, options and
// Delete.
#include <persona/personality/personality.h>

#include <cstring>

#include <persona/core/class_registry.h>
#include <persona/options/option_record.h>
#include <persona/personality/load_fixups.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/system.h>

namespace persona {

IMPLEMENT_SERIAL(CPersonality, CSerial, VERSIONABLE_SCHEMA | 4)

void RegisterPersonalityClasses() { CRuntimeClass::Register(RUNTIME_CLASS(CPersonality)); }

namespace {

bool SameClassName(const CObject& record, const CRuntimeClass* cls) {
  return std::strcmp(record.GetClassName(), cls->m_lpszClassName) == 0;
}

// The set lists in the order in which Delete empties them.
constexpr SetType kDeleteOrder[] = {
    TrunkSetType, GroupSetType,    EaGroupSetType, PhoneSetType,    ICallSetType,    SpCallSetType,
    ConvSetType,  PlmGroupSetType, P25ConvSetType, P25GroupSetType, PlmSpCallSetType};

}  // namespace

CPersonality::CPersonality() = default;

CPersonality::CPersonality(unsigned short radioType, int)
    : m_TxMinFreq(0.0),
      m_RxMinFreq(0.0),
      m_TxMaxFreq(0.0),
      m_RxMaxFreq(0.0),
      m_LastRadio(radioType) {
  m_RadioTypes.Add(radioType);
}

CPersonality::CPersonality(const CString& name) : m_Name(name) {}

CPersonality::CPersonality(const CPersonality& src) : CSerial(src) {
  CopyHeaderFrom(src);
  m_RadioTypes.Copy(src.m_RadioTypes);
  AddSystems(&src);
  AddSets(&src);
  AddOptions(&src);
}

CPersonality& CPersonality::operator=(const CPersonality* src) {
  if (src == nullptr || src == this) return *this;
  CopyHeaderFrom(*src);
  m_RadioTypes.Append(src->m_RadioTypes);
  Delete();
  AddSystems(src);
  AddSets(src);
  AddOptions(src);
  return *this;
}

CPersonality::~CPersonality() { Delete(); }

void CPersonality::CopyHeaderFrom(const CPersonality& src) {
  m_Name = src.m_Name;
  m_Description = src.m_Description;
  m_SavedOn = src.m_SavedOn;
  m_SavedBy = src.m_SavedBy;
  m_Version = src.m_Version;
  m_CurrentState = src.m_CurrentState;
  m_StateValue = src.m_StateValue;
  m_TxMinFreq = src.m_TxMinFreq;
  m_RxMinFreq = src.m_RxMinFreq;
  m_TxMaxFreq = src.m_TxMaxFreq;
  m_RxMaxFreq = src.m_RxMaxFreq;
  m_LastRadio = src.m_LastRadio;
  m_NumFreqs = src.m_NumFreqs;
}

void CPersonality::AddRadioType(unsigned short radioType) {
  for (WORD code : m_RadioTypes) {
    if (code == radioType) return;
  }
  m_RadioTypes.Add(radioType);
}

// ---- options ---------------------------------------------------------------------------------

int CPersonality::FindOptionIndex(const CRuntimeClass* cls) const {
  if (cls == nullptr) return -1;
  int i = 0;
  for (const CObject* option : m_options) {
    if (option != nullptr && SameClassName(*option, cls)) return i;
    ++i;
  }
  return -1;
}

void CPersonality::PutOption(CObject* option) {
  if (option == nullptr || FindOptionIndex(option->GetRuntimeClass()) >= 0) return;
  m_options.Add(option);
}

CObject* CPersonality::FindOption(const CRuntimeClass* cls) const {
  const int i = FindOptionIndex(cls);
  return i < 0 ? nullptr : m_options.GetAt(i);
}

CObject* CPersonality::GetOption(const CRuntimeClass* cls) const { return FindOption(cls); }

const CObject* PersonalityOption(const CPersonality* personality, const CRuntimeClass* cls) {
  return personality != nullptr ? personality->GetOption(cls) : nullptr;
}

void CPersonality::DeleteOption(const CRuntimeClass* cls) {
  const int i = FindOptionIndex(cls);
  if (i >= 0) m_options.DeleteAt(i);
}

CObject* CPersonality::GetOptionAt(int i) const {
  return i >= 0 && i < m_options.GetCount() ? m_options.GetAt(i) : nullptr;
}

// ---- life cycle ------------------------------------------------------------------------------

void CPersonality::EmptySetList(SetType type) {
  for (CObject* record : m_sets[type]) {
    if (auto* set = dynamic_cast<CSet*>(record)) set->CSet::Delete();
  }
  m_sets[type].DeleteAll();
}

void CPersonality::Delete() {
  m_systems.DeleteAll();
  for (SetType type : kDeleteOrder) EmptySetList(type);
  for (CObject* option : m_options) {
    if (auto* record = dynamic_cast<CSerial*>(option)) record->Delete();
  }
  m_options.DeleteAll();
  m_sharedRecords.clear();
  InvalidateIndexes();
}

void CPersonality::InvalidateIndexes() {
  for (FirstMatchIndex& index : m_setIndex) index.Invalidate();
  m_systemIndex.Invalidate();
  m_systemTrimmedIndex.Invalidate();
}

void CPersonality::VisitFields(CFieldVisitor& v) {
  CSerial::VisitFields(v);
  FieldAdapter adapter(v);
  Fields(adapter);
  InvalidateIndexes();
}

void CPersonality::ReMapToneEncTriggers() { RemapToneEncodeTriggers(*this); }

}  // namespace persona
