// Talk groups and group sets: model defaults, equality, lookups, archive form and report lines.
#include <persona/systems/group_set.h>

#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CGroup, CObject, 1)
IMPLEMENT_SERIAL(CGroupSet, CSet, VERSIONABLE_SCHEMA | 3)

namespace {

using namespace group_words;

}  // namespace

// ---- CGroup ----------------------------------------------------------------------------------

CGroup::CGroup(unsigned short t, int reducedDefaults, SetType) {
  if (reducedDefaults == 0) return;
  m_Tx = 0;
  m_Calls = 0;
  m_Alert = 0;
  m_Backlight = 0;
  if (t == 54 || t == 43 || t == 58) {
    m_Alert = 1;
    m_Backlight = 1;
  }
}

CGroup& CGroup::operator=(const CGroup* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CGroup::operator==(const CGroup& o) const { return set_helpers::SameFields(*this, o); }

void CGroup::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

void CGroup::printGroup(CStringArray& out, int n, unsigned long id) const {
  out.Add(CString::Formatted("            Group %-2d  %-12s", n, m_Name.c_str()));
  out.Add(
      CString::Formatted("                  Group ID          - %-5d       Calls           - %-3s",
                         Signed32(id), SwitchWord(m_Calls)));
  out.Add(
      CString::Formatted("                  Voice Mode        - %-6s      Alert Tones     - %-3s",
                         WordOf(kVoiceModeWords, m_KwKey).c_str(), SwitchWord(m_Alert)));
  out.Add(CString::Formatted(
      "                  Call Time         - %-3s         Wide Area       - %-3s",
      WordOf(kCallTimeWords, m_CallTime).c_str(), SwitchWord(m_WideArea)));
  out.Add(CString::Formatted(
      "                  Transmit          - %-3s         Scan            - %-3s", SwitchWord(m_Tx),
      SwitchWord(m_Scan)));
  out.Add(CString::Formatted(
      "                  Receive           - %-3s         Backlight       - %-3s", SwitchWord(m_Rx),
      SwitchWord(m_Backlight)));
}

void CGroup::printToBuffer(CStringArray& out, int n) const { printGroup(out, n, m_GrpId); }

// ---- CGroupSet -------------------------------------------------------------------------------

CGroupSet::CGroupSet(SetType type) : CElementSet(type) {}

CGroupSet::CGroupSet(unsigned short, int, SetType type) : CGroupSet(type) {}

CGroupSet::CGroupSet(const CGroupSet& src)
    : CElementSet(src),
      CSetKeyList(src),
      m_HomeGrp(src.m_HomeGrp),
      m_Priority1Grp(src.m_Priority1Grp),
      m_Priority2Grp(src.m_Priority2Grp),
      m_PriorityTalkGrp(src.m_PriorityTalkGrp) {}

CGroupSet& CGroupSet::operator=(const CGroupSet* src) {
  if (AssignSetPart<CGroup>(src)) CopyGroupNames(*src);
  return *this;
}

void CGroupSet::CopyGroupNames(const CGroupSet& src) {
  m_HomeGrp = src.m_HomeGrp;
  m_Priority1Grp = src.m_Priority1Grp;
  m_Priority2Grp = src.m_Priority2Grp;
  m_PriorityTalkGrp = src.m_PriorityTalkGrp;
}

bool CGroupSet::SameGroupNames(const CGroupSet& o) const {
  return m_HomeGrp == o.m_HomeGrp && m_Priority1Grp == o.m_Priority1Grp &&
         m_Priority2Grp == o.m_Priority2Grp;
}

int CGroupSet::operator==(const CGroupSet& o) const {
  return SameGroupNames(o) && set_helpers::SameElements<CGroup>(m_elements, o.m_elements);
}

CGroup* CGroupSet::GetGroupAt(unsigned short index) const {
  return set_helpers::ElementAt<CGroup>(m_elements, index);
}

CGroup* CGroupSet::GetGroup(unsigned long id) const {
  if (id == 0) return nullptr;
  return set_helpers::FindIf<CGroup>(m_elements,
                                     [id](const CGroup& g) { return g.GetGrpId() == id; });
}

int CGroupSet::FindGroupIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CGroup>(m_elements, name);
}

void CGroupSet::GetNames(CStringArray& names) const {
  set_helpers::CollectNames<CGroup>(m_elements, names);
}

void CGroupSet::DeleteSetReferencesToGroup(const CString& name) {
  if (name.IsEmpty()) return;
  for (CString* field : {&m_HomeGrp, &m_Priority1Grp, &m_Priority2Grp, &m_PriorityTalkGrp}) {
    if (*field == name) field->Empty();
  }
}

void CGroupSet::DeleteSetReferencesToElement(const CObject& element) {
  if (element.IsKindOf(RUNTIME_CLASS(CGroup))) {
    DeleteSetReferencesToGroup(static_cast<const CGroup&>(element).GetName());
  }
}

void CGroupSet::LatchSchema(CArchive& ar) {
  if (ar.IsLoading() && m_schemaKnown == 0) {
    m_loadedSchema = ReadSchemaByte(ar);
    m_schemaKnown = 1;
  }
}

void CGroupSet::Serialize(CArchive& ar) {
  LatchSchema(ar);
  CSet::Serialize(ar);
  SerializeFields(ar, *this, m_loadedSchema);
}

void CGroupSet::printHeaderToBuffer(CStringArray& out) const {
  out.Add(CString::Formatted("                  Emer/Home Group   - %-8s", m_HomeGrp.c_str()));
  out.Add(CString::Formatted("                  Priority 1 Group  - %-8s", m_Priority1Grp.c_str()));
  out.Add(CString::Formatted("                  Priority 2 Group  - %-8s", m_Priority2Grp.c_str()));
  out.Add(
      CString::Formatted("               Priority Talk Group  - %-8s", m_PriorityTalkGrp.c_str()));
  out.Add(CString());
}

void CGroupSet::printToBuffer(CStringArray& out, int, const ElementLinesEnd* elementEnd) const {
  PrintGroupsAs<CGroup>(out, elementEnd);
}

}  // namespace persona
