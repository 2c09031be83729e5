// Messaging special calls and their sets.
#include <persona/calls/plm_sp_call_set.h>

#include <persona/calls/call_table.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CPlmSpCall, CObject, 1)
IMPLEMENT_SERIAL(CPlmSpCallSet, CSet, 1)

namespace {

using namespace plm_sp_call_words;

}  // namespace

CPlmSpCall::CPlmSpCall(unsigned short, int) {}

CPlmSpCall& CPlmSpCall::operator=(const CPlmSpCall* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CPlmSpCall::operator==(const CPlmSpCall& o) const { return set_helpers::SameFields(*this, o); }

void CPlmSpCall::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

CPlmSpCallSet::CPlmSpCallSet() : CElementSet(PlmSpCallSetType) {}

CPlmSpCallSet::CPlmSpCallSet(unsigned short, int) : CPlmSpCallSet() {}

CPlmSpCallSet& CPlmSpCallSet::operator=(const CPlmSpCallSet* src) {
  AssignSetPart<CPlmSpCall>(src);
  return *this;
}

int CPlmSpCallSet::operator==(const CPlmSpCallSet& o) const {
  return set_helpers::SameElements<CPlmSpCall>(m_elements, o.m_elements);
}

CPlmSpCall* CPlmSpCallSet::GetCallAt(unsigned short index) const {
  return set_helpers::ElementAt<CPlmSpCall>(m_elements, index);
}

int CPlmSpCallSet::FindCallIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CPlmSpCall>(m_elements, name);
}

void CPlmSpCallSet::Serialize(CArchive& ar) { CSet::Serialize(ar); }

void CPlmSpCallSet::printToBuffer(CStringArray& out, int setNumber,
                                  const ElementLinesEnd* elementEnd) const {
  PrintCallTable<CPlmSpCall>(
      out, setNumber, *this,
      {"     Call     Name         Type         Number                        Tones",
       CString(' ', 67) + "1  2  3  4", CString(' ', 5) + CString('-', 75)},
      [](int position, const CPlmSpCall& c) {
        return CString::Formatted("     %2d       %-12s %-9s    %-26s %-2d %-2d %-2d %-2d",
                                  position, c.GetName().c_str(),
                                  WordOf(kTypeWords, c.GetType()).c_str(), c.GetNumber().c_str(),
                                  c.GetTone(0), c.GetTone(1), c.GetTone(2), c.GetTone(3));
      },
      elementEnd);
}

}  // namespace persona
