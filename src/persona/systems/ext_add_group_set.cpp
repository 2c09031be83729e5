// Extended-addressing groups and group sets.
#include <persona/systems/ext_add_group_set.h>

#include <persona/framework/archive.h>

namespace persona {

IMPLEMENT_SERIAL(CExtAddGroup, CGroup, VERSIONABLE_SCHEMA | 1)
IMPLEMENT_SERIAL(CExtAddGroupSet, CGroupSet, VERSIONABLE_SCHEMA | 3)

// ---- CExtAddGroup ----------------------------------------------------------------------------

CExtAddGroup::CExtAddGroup(unsigned short t, int reducedDefaults)
    : CGroup(t, reducedDefaults, EaGroupSetType) {}

CExtAddGroup& CExtAddGroup::operator=(const CExtAddGroup* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CExtAddGroup::operator==(const CExtAddGroup& o) const {
  return CGroup::operator==(o) && m_EaGrpId == o.m_EaGrpId && m_KeyBank == o.m_KeyBank;
}

void CExtAddGroup::Serialize(CArchive& ar) {
  CGroup::Serialize(ar);
  SerializeFields(ar, *this);
}

void CExtAddGroup::printToBuffer(CStringArray& out, int n) const {
  printGroup(out, n, m_EaGrpId);
  out.Add(CString::Formatted("                  Key Bank          - %-3d", m_KeyBank));
}

// ---- CExtAddGroupSet -------------------------------------------------------------------------

CExtAddGroupSet::CExtAddGroupSet() : CGroupSet(EaGroupSetType) {}

CExtAddGroupSet::CExtAddGroupSet(unsigned short, int) : CExtAddGroupSet() {}

CExtAddGroupSet& CExtAddGroupSet::operator=(const CExtAddGroupSet* src) {
  if (AssignSetPart<CExtAddGroup>(src)) CopyGroupNames(*src);
  return *this;
}

int CExtAddGroupSet::operator==(const CExtAddGroupSet& o) const {
  return SameGroupNames(o) && set_helpers::SameElements<CExtAddGroup>(m_elements, o.m_elements);
}

CExtAddGroup* CExtAddGroupSet::GetGroupAt(unsigned short index) const {
  return set_helpers::ElementAt<CExtAddGroup>(m_elements, index);
}

CExtAddGroup* CExtAddGroupSet::GetGroup(unsigned long id) const {
  if (id == 0) return nullptr;
  return set_helpers::FindIf<CExtAddGroup>(
      m_elements, [id](const CExtAddGroup& g) { return g.GetEaGrpId() == id; });
}

void CExtAddGroupSet::copyKorvexGrpSet(const CGroupSet* src) {
  if (src == nullptr || src == this) return;
  m_elements.DeleteAll();
  SetName(src->GetName());
  const COwnedObList& groups = src->Elements();
  m_elements.Reserve(static_cast<std::size_t>(groups.GetCount()));
  for (CObject* obj : groups) {
    const CGroup* group = set_helpers::As<CGroup>(obj);
    if (group == nullptr) continue;
    auto* copy = new CExtAddGroup;
    static_cast<CGroup&>(*copy) = *group;
    copy->SetEaGrpId(group->GetGrpId());
    copy->SetKeyBank(0);
    m_elements.Add(copy);
  }
  CopyGroupNames(*src);
  SetSetType(EaGroupSetType);
  SetScope(0);
}

void CExtAddGroupSet::printToBuffer(CStringArray& out, int,
                                    const ElementLinesEnd* elementEnd) const {
  PrintGroupsAs<CExtAddGroup>(out, elementEnd);
}

void CExtAddGroupSet::Serialize(CArchive& ar) {
  LatchSchema(ar);
  CGroupSet::Serialize(ar);
}

}  // namespace persona
