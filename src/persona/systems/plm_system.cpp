// CPlmSystem: constructors, assignment and archive form.
#include <persona/systems/plm_system.h>

namespace persona {

IMPLEMENT_SERIAL(CPlmSystem, CSystem, VERSIONABLE_SCHEMA | 13)

CPlmSystem::CPlmSystem(unsigned short radioType, int reducedDefaults)
    : CSystem(radioType, reducedDefaults) {
  if (reducedDefaults != 0) {
    m_CollectToneLen = 0;
    m_BusyToneLen = 0;
  }
}

CPlmSystem& CPlmSystem::operator=(const CPlmSystem* src) {
  if (src != nullptr && src != this) *this = *src;
  return *this;
}

namespace {

// Stores or loads one value in the direction of ar.
template <class T>
void Exchange(CArchive& ar, T& value) {
  if (ar.IsStoring()) {
    ar << value;
  } else {
    ar >> value;
  }
}

}  // namespace

void CPlmSystem::Serialize(CArchive& ar) {
  const BYTE schema = LatchSchema(ar);
  CSystem::Serialize(ar);
  for (BYTE* b : {&m_BusyToneType, &m_indDecAlarm, &m_AutoInterConnect, &m_IndvDecWStar,
                  &m_DispOvdl, &m_FastBusy, &m_Duplex, &m_DblDiscnct}) {
    Exchange(ar, *b);
  }
  Exchange(ar, m_CollectToneLen);
  Exchange(ar, m_BusyToneLen);
  for (int i = 0; i < kNumTones; ++i) {
    Exchange(ar, m_SpCallTone[i]);
    Exchange(ar, m_IndvDecTone[i]);
  }
  Exchange(ar, m_TrunkSetName);
  Exchange(ar, m_GroupSetName);
  Exchange(ar, m_SpCallSetName);
  if (ar.IsStoring() || SchemaAtLeast(schema, 2)) m_ScannedSystems.Serialize(ar);
}

}  // namespace persona
