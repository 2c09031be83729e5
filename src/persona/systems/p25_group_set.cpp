// P25 talk groups and group sets.
#include <persona/systems/p25_group_set.h>

#include <persona/core/set_helpers.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CP25Group, CObject, VERSIONABLE_SCHEMA | 4)
IMPLEMENT_SERIAL(CP25GroupSet, CSet, VERSIONABLE_SCHEMA | 4)

namespace {

using namespace p25_group_words;

}  // namespace

// ---- CP25Group -------------------------------------------------------------------------------

CP25Group::CP25Group(unsigned short, int) {}

CP25Group& CP25Group::operator=(const CP25Group* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CP25Group::operator==(const CP25Group& o) const { return set_helpers::SameFields(*this, o); }

void CP25Group::Serialize(CArchive& ar) { SerializeFields(ar, *this, ReadSchemaByte(ar)); }

// ---- CP25GroupSet ----------------------------------------------------------------------------

CP25GroupSet::CP25GroupSet() : CElementSet(P25GroupSetType) {}

CP25GroupSet::CP25GroupSet(unsigned short, int) : CP25GroupSet() {}

CP25GroupSet& CP25GroupSet::operator=(const CP25GroupSet* src) {
  if (!AssignSetPart<CP25Group>(src)) return *this;
  m_HomeGrp = src->m_HomeGrp;
  m_Priority1Grp = src->m_Priority1Grp;
  m_Priority2Grp = src->m_Priority2Grp;
  return *this;
}

int CP25GroupSet::operator==(const CP25GroupSet& o) const {
  return m_HomeGrp == o.m_HomeGrp && m_Priority1Grp == o.m_Priority1Grp &&
         m_Priority2Grp == o.m_Priority2Grp &&
         set_helpers::SameElements<CP25Group>(m_elements, o.m_elements);
}

CP25Group* CP25GroupSet::GetGroupAt(unsigned short index) const {
  return set_helpers::ElementAt<CP25Group>(m_elements, index);
}

CP25Group* CP25GroupSet::GetGroup(unsigned long id) const {
  if (id == 0) return nullptr;
  return set_helpers::FindIf<CP25Group>(m_elements,
                                        [id](const CP25Group& g) { return g.GetGrpId() == id; });
}

int CP25GroupSet::FindGroupIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CP25Group>(m_elements, name);
}

void CP25GroupSet::GetNames(CStringArray& names) const {
  set_helpers::CollectNames<CP25Group>(m_elements, names);
}

void CP25GroupSet::DeleteSetReferencesToGroup(const CString& name) {
  if (name.IsEmpty()) return;
  for (CString* field : {&m_HomeGrp, &m_Priority1Grp, &m_Priority2Grp}) {
    if (*field == name) field->Empty();
  }
}

void CP25GroupSet::DeleteSetReferencesToElement(const CObject& element) {
  if (element.IsKindOf(RUNTIME_CLASS(CP25Group))) {
    DeleteSetReferencesToGroup(static_cast<const CP25Group&>(element).GetName());
  }
}

void CP25GroupSet::Serialize(CArchive& ar) {
  if (ar.IsLoading()) ar.GetObjectSchema();  // fetched, not used: one layout so far
  CSet::Serialize(ar);
  SerializeFields(ar, *this);
}

void CP25GroupSet::printToBuffer(CStringArray& out, int, const ElementLinesEnd* elementEnd) const {
  out.Add(CString::Formatted("                  Emer/Home Group   - %-8s", m_HomeGrp.c_str()));
  out.Add(CString::Formatted("                  Priority 1 Group  - %-8s", m_Priority1Grp.c_str()));
  out.Add(CString::Formatted("                  Priority 2 Group  - %-8s", m_Priority2Grp.c_str()));
  out.Add(CString());
  int n = 0;
  for (CObject* obj : m_elements) {
    ++n;
    const CP25Group* g = set_helpers::As<CP25Group>(obj);
    if (g == nullptr) continue;
    out.Add(CString::Formatted("            Group %-2d  %-12s", n, g->GetName().c_str()));
    out.Add(
        CString::Formatted("                  Group ID          - %-5d", Signed32(g->GetGrpId())));
    out.Add(CString::Formatted(
        "                  Encrypted         - %-5s       Type              - %-6s",
        SwitchWord(g->GetEncrypt()), WordOf(kEncTypeWords, g->GetEncType()).c_str()));
    out.Add(CString::Formatted(
        "                  Key ID            - %-5d       Suppress Key      - %-6s",
        Signed32(g->GetKeyId()), SwitchWord(g->GetSuppress())));
    out.Add(CString());
    EndElementLines(elementEnd, out);
  }
}

}  // namespace persona
