// Talk groups and group sets of trunked systems. A CGroup is one named group call with its ID
// and switches; a CGroupSet is the named list of the groups of one trunked system, with the
// names of its emergency/home group and priority groups and the security keys the set may use.
// The extended-addressing family (ext_add_group_set.h) builds on both classes.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/systems/esk_key_list.h>

namespace persona {

// The report words of the coded fields of CGroup (a code indexes its list); the report
// lines and the field descriptions share them.
namespace group_words {
inline constexpr const char* const kCallTimeWords[] = {"0", "5", "10", "15"};
inline constexpr const char* const kVoiceModeWords[] = {
    "Analog", "Key 1", "Key 2", "Key 3", "Key 4", "Key 5", "Key 6", "Key 7", "Unencrypted"};
}  // namespace group_words

class PERSONA_EXPORT CGroup : public CObject {
  DECLARE_SERIAL(CGroup)
 public:
  // Tx, Rx, Calls, Alert and Backlight 1; every other field 0 or empty.
  CGroup() = default;
  // As CGroup(); with reducedDefaults non-zero Tx, Calls, Alert and Backlight start at 0 (Rx
  // stays 1), Alert and Backlight staying 1 for radio types 54, 43 and 58. type is not used.
  CGroup(unsigned short t, int reducedDefaults, SetType type = GroupSetType);
  CGroup(const CGroup&) = default;
  CGroup& operator=(const CGroup&) = default;
  // Copies every CGroup field of src (null: nothing); returns this group.
  CGroup& operator=(const CGroup* src);
  ~CGroup() override = default;

  // 1 when the names (case-sensitive) and every field are equal, else 0.
  int operator==(const CGroup& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  WORD GetGrpId() const { return m_GrpId; }
  void SetGrpId(WORD v) { m_GrpId = v; }
  BYTE GetTx() const { return m_Tx; }
  void SetTx(BYTE v) { m_Tx = v; }
  BYTE GetRx() const { return m_Rx; }
  void SetRx(BYTE v) { m_Rx = v; }
  BYTE GetCalls() const { return m_Calls; }
  void SetCalls(BYTE v) { m_Calls = v; }
  BYTE GetAlert() const { return m_Alert; }
  void SetAlert(BYTE v) { m_Alert = v; }
  BYTE GetWideArea() const { return m_WideArea; }
  void SetWideArea(BYTE v) { m_WideArea = v; }
  BYTE GetScan() const { return m_Scan; }
  void SetScan(BYTE v) { m_Scan = v; }
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }
  // Voice mode: 0 Analog, 1 to 7 Key 1 to Key 7, 8 Unencrypted.
  WORD GetKwKey() const { return m_KwKey; }
  void SetKwKey(WORD v) { m_KwKey = v; }
  // Call time code: 0 "0", 1 "5", 2 "10", 3 "15".
  WORD GetCallTime() const { return m_CallTime; }
  void SetCallTime(WORD v) { m_CallTime = v; }

  // Appends the six report lines of the group, numbered n, printing id as its group ID.
  void printGroup(CStringArray& out, int n, unsigned long id) const;
  // printGroup with GrpId.
  void printToBuffer(CStringArray& out, int n) const;

  // Name, GrpId, Tx, Rx, Calls, Alert, WideArea, Scan, Backlight, KwKey, CallTime.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("GrpId", m_GrpId);
    v("Tx", m_Tx, OnOff{});
    v("Rx", m_Rx, OnOff{});
    v("Calls", m_Calls, OnOff{});
    v("Alert", m_Alert, OnOff{});
    v("WideArea", m_WideArea, OnOff{});
    v("Scan", m_Scan, OnOff{});
    v("Backlight", m_Backlight, OnOff{});
    v("KwKey", m_KwKey, WordsOf(group_words::kVoiceModeWords));
    v("CallTime", m_CallTime, WordsOf(group_words::kCallTimeWords));
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  WORD m_GrpId = 0;
  BYTE m_Tx = 1;
  BYTE m_Rx = 1;
  BYTE m_Calls = 1;
  BYTE m_Alert = 1;
  BYTE m_WideArea = 0;
  BYTE m_Scan = 0;
  BYTE m_Backlight = 1;
  WORD m_KwKey = 0;
  WORD m_CallTime = 0;
};

class PERSONA_EXPORT CGroupSet : public CElementSet, public CSetKeyList {
  DECLARE_SERIAL(CGroupSet)
 public:
  // An empty set of the given set type (group sets of trunked systems are type 2).
  explicit CGroupSet(SetType type = GroupSetType);
  // The same; the radio type and the flag are not used.
  CGroupSet(unsigned short t, int reducedDefaults, SetType type);
  // Deep-copies the groups, copies the four group names and shares src's key records.
  CGroupSet(const CGroupSet& src);
  // Replaces every group with CGroup copies of src's, copies the name, set type, scope and
  // the four group names; the key list of this set is kept. Assigning a set to itself does
  // nothing. Returns this set.
  CGroupSet& operator=(const CGroupSet* src);
  CGroupSet& operator=(const CGroupSet& src) { return *this = &src; }
  // Deletes the groups; the key records are not deleted.
  ~CGroupSet() override = default;

  // 1 when the group counts, HomeGrp, Priority1Grp and Priority2Grp are equal and the groups
  // are equal pairwise; the name, PriorityTalkGrp and the keys take no part. Else 0.
  int operator==(const CGroupSet& other) const;

  // Returns the group at index (the set keeps it), or null when index is not below the count.
  CGroup* GetGroupAt(unsigned short index) const;
  // Returns the first group whose GrpId is id, or null (always for id 0).
  CGroup* GetGroup(unsigned long id) const;
  // Returns the position of the first group named name (case-sensitive), or -1 (always for an
  // empty name).
  int FindGroupIndex(const CString& name) const;
  // Empties names, then appends every group's name in list order.
  void GetNames(CStringArray& names) const;
  // Empties each of HomeGrp, Priority1Grp, Priority2Grp and PriorityTalkGrp that equals name
  // (case-sensitive); an empty name does nothing.
  void DeleteSetReferencesToGroup(const CString& name);

  CString GetHomeGrp() const { return m_HomeGrp; }
  void SetHomeGrp(CString v) { m_HomeGrp = std::move(v); }
  CString GetPriority1Grp() const { return m_Priority1Grp; }
  void SetPriority1Grp(CString v) { m_Priority1Grp = std::move(v); }
  CString GetPriority2Grp() const { return m_Priority2Grp; }
  void SetPriority2Grp(CString v) { m_Priority2Grp = std::move(v); }
  CString GetPriorityTalkGrp() const { return m_PriorityTalkGrp; }
  void SetPriorityTalkGrp(CString v) { m_PriorityTalkGrp = std::move(v); }

  // Appends the four group-name lines and an empty line.
  void printHeaderToBuffer(CStringArray& out) const;
  // Appends the header, then every group's lines (numbered from 1) each followed by an empty
  // line. The int is not used. elementEnd, when given, is
  // called after each element's lines (see ElementLinesEnd).
  virtual void printToBuffer(CStringArray& out, int unused = 0,
                             const ElementLinesEnd* elementEnd = nullptr) const;

  // The CSet part, HomeGrp, Priority1Grp, Priority2Grp; PriorityTalkGrp from schema 2; the key
  // list from schema 3. The stored schema is read once per object. Archive faults raise
  // CArchiveException.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("SchemaKnown", m_schemaKnown, Transient{});
    v("LoadedSchema", m_loadedSchema, Transient{});
    v("HomeGrp", m_HomeGrp, RefersTo{RefKind::Group});
    v("Priority1Grp", m_Priority1Grp, RefersTo{RefKind::Group});
    v("Priority2Grp", m_Priority2Grp, RefersTo{RefKind::Group});
    v("PriorityTalkGrp", m_PriorityTalkGrp, Since{2}, RefersTo{RefKind::Group});
    v("Esks", m_esks, Since{3});
  }
  PERSONA_FIELDS(CElementSet)

 protected:
  // Reads the stored schema into the latch, once per object (loading only).
  void LatchSchema(CArchive& ar);
  // The set-level part of equality: HomeGrp, Priority1Grp and Priority2Grp.
  bool SameGroupNames(const CGroupSet& other) const;
  // Copies the four group names.
  void CopyGroupNames(const CGroupSet& src);
  // Appends the header, then the lines of every E (numbered by position from 1), each
  // followed by an empty line.
  template <class E>
  void PrintGroupsAs(CStringArray& out, const ElementLinesEnd* elementEnd) const {
    printHeaderToBuffer(out);
    int n = 0;
    for (CObject* obj : m_elements) {
      ++n;
      if (const E* group = set_helpers::As<E>(obj)) {
        group->printToBuffer(out, n);
        out.Add(CString());
        EndElementLines(elementEnd, out);
      }
    }
  }
  // Clears the names that refer to the group being deleted (CSet::DeleteAt).
  void DeleteSetReferencesToElement(const CObject& element) override;

 private:
  BYTE m_schemaKnown = 0;
  BYTE m_loadedSchema = 0;
  CString m_HomeGrp;
  CString m_Priority1Grp;
  CString m_Priority2Grp;
  CString m_PriorityTalkGrp;
};

}  // namespace persona
