// Messaging groups and group sets.
#include <persona/systems/plm_group_set.h>

#include <persona/core/set_helpers.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CPlmGroup, CObject, 1)
IMPLEMENT_SERIAL(CPlmGroupSet, CSet, 1)

// ---- CPlmGroup -------------------------------------------------------------------------------

CPlmGroup::CPlmGroup(unsigned short, int) {}

CPlmGroup& CPlmGroup::operator=(const CPlmGroup* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CPlmGroup::operator==(const CPlmGroup& o) const { return set_helpers::SameFields(*this, o); }

void CPlmGroup::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

// ---- CPlmGroupSet ----------------------------------------------------------------------------

CPlmGroupSet::CPlmGroupSet() : CElementSet(PlmGroupSetType) {}

CPlmGroupSet::CPlmGroupSet(unsigned short, int) : CPlmGroupSet() {}

CPlmGroupSet& CPlmGroupSet::operator=(const CPlmGroupSet* src) {
  AssignSetPart<CPlmGroup>(src);
  return *this;
}

int CPlmGroupSet::operator==(const CPlmGroupSet& o) const {
  return set_helpers::SameElements<CPlmGroup>(m_elements, o.m_elements);
}

CPlmGroup* CPlmGroupSet::GetGroupAt(unsigned short index) const {
  return set_helpers::ElementAt<CPlmGroup>(m_elements, index);
}

int CPlmGroupSet::FindGroupIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CPlmGroup>(m_elements, name, true);
}

void CPlmGroupSet::GetNames(CStringArray& names) const {
  set_helpers::CollectNames<CPlmGroup>(m_elements, names);
}

void CPlmGroupSet::Serialize(CArchive& ar) { CSet::Serialize(ar); }

void CPlmGroupSet::printToBuffer(CStringArray& out, int n,
                                 const ElementLinesEnd* elementEnd) const {
  out.Add(CString::Formatted("   %-3d - %-12s", n, GetName().c_str()));
  out.Add(CString());
  int position = 0;
  for (CObject* obj : m_elements) {
    ++position;
    const CPlmGroup* g = set_helpers::As<CPlmGroup>(obj);
    if (g == nullptr) continue;
    out.Add(CString::Formatted("            Group %-2d  %-12s", position, g->GetName().c_str()));
    out.Add(CString::Formatted(
        "                  Tone 1            - %-2d           Fast Busy       - %-3s",
        g->GetTone(0), SwitchWord(g->GetFastBusy())));
    out.Add(CString::Formatted(
        "                  Tone 2            - %-2d           External Alarm  - %-3s",
        g->GetTone(1), SwitchWord(g->GetExtAlarm())));
    out.Add(CString::Formatted(
        "                  Tone 3            - %-2d           Tx Disable      - %-3s",
        g->GetTone(2), SwitchWord(g->GetTxDis())));
    out.Add(CString::Formatted(
        "                  Tone 4            - %-2d           Rx Disable      - %-3s",
        g->GetTone(3), SwitchWord(g->GetRxDis())));
    out.Add(CString::Formatted(
        "                                                   Backlight       - %-3s",
        SwitchWord(g->GetBacklight())));
    out.Add(CString());
    EndElementLines(elementEnd, out);
  }
  out.Add(CString());
}

}  // namespace persona
