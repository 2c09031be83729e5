// Telephone calls and phone sets.
#include <persona/calls/phone_set.h>

#include <persona/calls/call_table.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CPhoneCall, CObject, VERSIONABLE_SCHEMA | 2)
IMPLEMENT_SERIAL(CPhoneSet, CSet, 1)

namespace {

using namespace phone_call_words;

}  // namespace

CPhoneCall::CPhoneCall(unsigned short, int) {}

CPhoneCall& CPhoneCall::operator=(const CPhoneCall* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CPhoneCall::operator==(const CPhoneCall& o) const { return set_helpers::SameFields(*this, o); }

void CPhoneCall::Serialize(CArchive& ar) {
  const BYTE schema = ReadSchemaByte(ar);
  SerializeFields(ar, *this, schema);
  if (ar.IsLoading() && m_Number == " ") m_Number.Empty();
}

CPhoneSet::CPhoneSet() : CElementSet(PhoneSetType) {}

CPhoneSet::CPhoneSet(unsigned short, int) : CPhoneSet() {}

CPhoneSet& CPhoneSet::operator=(const CPhoneSet* src) {
  AssignSetPart<CPhoneCall>(src);
  return *this;
}

int CPhoneSet::operator==(const CPhoneSet& o) const {
  return set_helpers::SameElements<CPhoneCall>(m_elements, o.m_elements);
}

CPhoneCall* CPhoneSet::GetCallAt(unsigned short index) const {
  return set_helpers::ElementAt<CPhoneCall>(m_elements, index);
}

int CPhoneSet::FindCallIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CPhoneCall>(m_elements, name);
}

void CPhoneSet::Serialize(CArchive& ar) { CSet::Serialize(ar); }

void CPhoneSet::printToBuffer(CStringArray& out, int setNumber, unsigned short firstCall,
                              const ElementLinesEnd* elementEnd) const {
  PrintCallTable<CPhoneCall>(
      out, setNumber, *this,
      {"Call    Name           Number                             Display          Dig  Encrypt",
       CString('-', 87)},
      [firstCall](int position, const CPhoneCall& c) {
        return CString::Formatted("%2d      %-12s   %-31s    %-15s  %-3s   %-3s ",
                                  firstCall + position, c.GetName().c_str(), c.GetNumber().c_str(),
                                  WordOf(kDisplayWords, c.GetDisplay()).c_str(),
                                  SwitchWord(c.GetDigital()), SwitchWord(c.GetEncrypted()));
      },
      elementEnd);
}

}  // namespace persona
