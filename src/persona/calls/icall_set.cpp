// Individual calls and individual call sets.
#include <persona/calls/icall_set.h>

#include <persona/calls/call_table.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CICall, CObject, VERSIONABLE_SCHEMA | 3)
IMPLEMENT_SERIAL(CICallSet, CSet, VERSIONABLE_SCHEMA | 2)

namespace {

using namespace icall_words;

}  // namespace

CICall::CICall(unsigned short, int) {}

CICall& CICall::operator=(const CICall* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CICall::operator==(const CICall& o) const {
  return m_Name == o.m_Name && m_Lid == o.m_Lid && m_Display == o.m_Display && m_DLid == o.m_DLid &&
         m_Type == o.m_Type && m_WaNetName == o.m_WaNetName && m_Encrypted == o.m_Encrypted &&
         m_AllCall == o.m_AllCall;
}

void CICall::Serialize(CArchive& ar) {
  if (ar.IsStoring()) {
    m_Lid = 0;
    SerializeFields(ar, *this);
    return;
  }
  SerializeFields(ar, *this, ReadSchemaByte(ar));
  if (m_Lid > 0) {
    m_DLid = m_Lid;
    m_Lid = 0;
  }
}

CICallSet::CICallSet() : CElementSet(ICallSetType) {}

CICallSet::CICallSet(unsigned short, int) : CICallSet() {}

CICallSet& CICallSet::operator=(const CICallSet* src) {
  AssignSetPart<CICall>(src);
  return *this;
}

int CICallSet::operator==(const CICallSet& o) const {
  return set_helpers::SameElements<CICall>(m_elements, o.m_elements);
}

CICall* CICallSet::GetCallAt(unsigned short index) const {
  return set_helpers::ElementAt<CICall>(m_elements, index);
}

int CICallSet::FindCallIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CICall>(m_elements, name);
}

void CICallSet::Serialize(CArchive& ar) { CSet::Serialize(ar); }

void CICallSet::printToBuffer(CStringArray& out, int setNumber, unsigned short firstCall,
                              const ElementLinesEnd* elementEnd) const {
  PrintCallTable<CICall>(
      out, setNumber, *this,
      {"     Call Name            Type      Display     LID   Digital Encrypted   WAN",
       "     ---- ------------  --------  ----------  ------- ------- --------- --------"},
      [firstCall](int position, const CICall& c) {
        return CString::Formatted(
            "     %2d   %-12s  %-8s  %-10s  %-7d   %-3s     %-3s     %-8s", firstCall + position,
            c.GetName().c_str(), WordOf(kTypeWords, c.GetType()).c_str(),
            WordOf(kDisplayWords, c.GetDisplay()).c_str(), Signed32(c.GetDLid()),
            SwitchWord(c.GetDigital()), SwitchWord(static_cast<unsigned>(c.GetEncrypted())),
            c.GetWaNetName().c_str());
      },
      elementEnd);
}

}  // namespace persona
