// Talk groups and group sets of extended-addressing trunked systems. A CExtAddGroup is a
// CGroup with a 32-bit extended group ID and a key bank; a CExtAddGroupSet is a CGroupSet (set
// type 10) of such groups, and can be rebuilt from an ordinary group set.
#pragma once

#include <persona/export.h>

#include <persona/systems/group_set.h>

namespace persona {

class PERSONA_EXPORT CExtAddGroup : public CGroup {
  DECLARE_SERIAL(CExtAddGroup)
 public:
  // The CGroup defaults; EaGrpId and KeyBank 0.
  CExtAddGroup() = default;
  // The CGroup model defaults of radio type t; EaGrpId and KeyBank 0.
  CExtAddGroup(unsigned short t, int reducedDefaults);
  CExtAddGroup(const CExtAddGroup&) = default;
  CExtAddGroup& operator=(const CExtAddGroup&) = default;
  // Copies every field of src (null: nothing); returns this group.
  CExtAddGroup& operator=(const CExtAddGroup* src);
  ~CExtAddGroup() override = default;

  // 1 when the CGroup parts, EaGrpId and KeyBank are equal, else 0.
  int operator==(const CExtAddGroup& other) const;

  DWORD GetEaGrpId() const { return m_EaGrpId; }
  void SetEaGrpId(DWORD v) { m_EaGrpId = v; }
  WORD GetKeyBank() const { return m_KeyBank; }
  void SetKeyBank(WORD v) { m_KeyBank = v; }

  // The group's lines with EaGrpId as its ID, then its key bank line.
  void printToBuffer(CStringArray& out, int n) const;

  // The eleven CGroup fields, then EaGrpId (32 bits), KeyBank.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("EaGrpId", m_EaGrpId);
    v("KeyBank", m_KeyBank);
  }
  PERSONA_FIELDS(CGroup)

 private:
  DWORD m_EaGrpId = 0;
  WORD m_KeyBank = 0;
};

class PERSONA_EXPORT CExtAddGroupSet : public CGroupSet {
  DECLARE_SERIAL(CExtAddGroupSet)
 public:
  // An empty set of type 10.
  CExtAddGroupSet();
  // The same; the arguments are not used.
  CExtAddGroupSet(unsigned short t, int reducedDefaults);
  // Deep-copies the groups, copies the group names and shares src's key records.
  CExtAddGroupSet(const CExtAddGroupSet& src) = default;
  // Replaces every group with CExtAddGroup copies of src's, copies the name, set type, scope
  // and group names; the key list of this set is kept. Returns this set.
  CExtAddGroupSet& operator=(const CExtAddGroupSet* src);
  CExtAddGroupSet& operator=(const CExtAddGroupSet& src) { return *this = &src; }
  ~CExtAddGroupSet() override = default;

  // As CGroupSet's equality, with the groups compared as extended-addressing groups.
  int operator==(const CExtAddGroupSet& other) const;

  // Returns the group at index (the set keeps it), or null when index is not below the count.
  CExtAddGroup* GetGroupAt(unsigned short index) const;
  // Returns the first group whose EaGrpId is id, or null (always for id 0).
  CExtAddGroup* GetGroup(unsigned long id) const;

  // Rebuilds this set from an ordinary group set: deletes every group, takes src's name, adds
  // for each of src's groups an extended-addressing group with its CGroup fields and EaGrpId =
  // GrpId (KeyBank 0), sets set type 10 and scope 0 and copies the four group names. The key
  // list is kept. A null src does nothing.
  void copyKorvexGrpSet(const CGroupSet* src);

  // The header, then every group's lines with its key bank, each followed by an empty line;
  // elementEnd as for CGroupSet.
  void printToBuffer(CStringArray& out, int unused = 0,
                     const ElementLinesEnd* elementEnd = nullptr) const override;

  // Exactly the CGroupSet archive form.
  void Serialize(CArchive& ar) override;
};

}  // namespace persona
