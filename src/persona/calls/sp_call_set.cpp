// Special calls and special call sets.
#include <persona/calls/sp_call_set.h>

#include <persona/calls/call_table.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CSpCall, CObject, 1)
IMPLEMENT_SERIAL(CSpCallSet, CSet, 1)

namespace {

using namespace sp_call_words;

}  // namespace

CSpCall::CSpCall(unsigned short, int) {}

CSpCall& CSpCall::operator=(const CSpCall* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CSpCall::operator==(const CSpCall& o) const { return set_helpers::SameFields(*this, o); }

void CSpCall::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

CSpCallSet::CSpCallSet() : CElementSet(SpCallSetType) {}

CSpCallSet::CSpCallSet(unsigned short, int reducedDefaults) : CSpCallSet() {
  if (reducedDefaults != 0) {
    m_LidLow = 0;
    m_LidHigh = 0;
  }
}

CSpCallSet& CSpCallSet::operator=(const CSpCallSet* src) {
  if (!AssignSetPart<CSpCall>(src)) return *this;
  m_LidLow = src->m_LidLow;
  m_LidHigh = src->m_LidHigh;
  return *this;
}

int CSpCallSet::operator==(const CSpCallSet& o) const {
  return m_LidLow == o.m_LidLow && m_LidHigh == o.m_LidHigh &&
         set_helpers::SameElements<CSpCall>(m_elements, o.m_elements);
}

CSpCall* CSpCallSet::GetCallAt(unsigned short index) const {
  return set_helpers::ElementAt<CSpCall>(m_elements, index);
}

int CSpCallSet::FindCallIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CSpCall>(m_elements, name);
}

void CSpCallSet::Serialize(CArchive& ar) {
  CSet::Serialize(ar);
  SerializeFields(ar, *this);
}

void CSpCallSet::printToBuffer(CStringArray& out, int setNumber,
                               const ElementLinesEnd* elementEnd) const {
  PrintCallTable<CSpCall>(
      out, setNumber, *this,
      {CString::Formatted("     LID Low  - %-5d", m_LidLow),
       CString::Formatted("     LID High - %-5d", m_LidHigh),
       "     Call     Name         Type         Number                      Digital",
       CString(' ', 5) + CString('-', 69)},
      [](int position, const CSpCall& c) {
        return CString::Formatted("     %2d       %-12s %-9s    %-26s    %-3s", position,
                                  c.GetName().c_str(), WordOf(kTypeWords, c.GetType()).c_str(),
                                  c.GetNumber().c_str(), SwitchWord(c.GetDigital()));
      },
      elementEnd);
}

}  // namespace persona
