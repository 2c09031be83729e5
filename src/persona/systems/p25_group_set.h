// P25 talk groups and group sets. A CP25Group is a named group call of a P25 trunked system
// with its 32-bit ID and encryption settings; a CP25GroupSet (set type 9) is the named list of
// them with the names of its emergency/home group and two priority groups.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The report words of the coded fields of CP25Group (a code indexes its list); the report
// lines and the field descriptions share them.
namespace p25_group_words {
inline constexpr const char* const kEncTypeWords[] = {"Voice Only", "Voice & Data"};
}  // namespace p25_group_words

class PERSONA_EXPORT CP25Group : public CObject {
  DECLARE_SERIAL(CP25Group)
 public:
  // EncryptMode 8; Tx, Rx, Calls, Alert and Backlight 1; every other field 0 or empty.
  CP25Group() = default;
  // The same; the arguments are not used.
  CP25Group(unsigned short t, int reducedDefaults);
  CP25Group(const CP25Group&) = default;
  CP25Group& operator=(const CP25Group&) = default;
  // Copies every field of src (null: nothing); returns this group.
  CP25Group& operator=(const CP25Group* src);
  ~CP25Group() override = default;

  // 1 when the names (case-sensitive) and every other field are equal, else 0.
  int operator==(const CP25Group& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  DWORD GetGrpId() const { return m_GrpId; }
  void SetGrpId(DWORD v) { m_GrpId = v; }
  BYTE GetEncryptMode() const { return m_EncryptMode; }
  void SetEncryptMode(BYTE v) { m_EncryptMode = v; }
  BYTE GetEncrypt() const { return m_Encrypt; }
  void SetEncrypt(BYTE v) { m_Encrypt = v; }
  // 0 Voice Only, 1 Voice & Data.
  BYTE GetEncType() const { return m_EncType; }
  void SetEncType(BYTE v) { m_EncType = v; }
  DWORD GetKeyId() const { return m_KeyId; }
  void SetKeyId(DWORD v) { m_KeyId = v; }
  BYTE GetSuppress() const { return m_Suppress; }
  void SetSuppress(BYTE v) { m_Suppress = v; }
  BYTE GetSf() const { return m_Sf; }
  void SetSf(BYTE v) { m_Sf = v; }
  BYTE GetTx() const { return m_Tx; }
  void SetTx(BYTE v) { m_Tx = v; }
  BYTE GetRx() const { return m_Rx; }
  void SetRx(BYTE v) { m_Rx = v; }
  BYTE GetCalls() const { return m_Calls; }
  void SetCalls(BYTE v) { m_Calls = v; }
  BYTE GetAlert() const { return m_Alert; }
  void SetAlert(BYTE v) { m_Alert = v; }
  BYTE GetScan() const { return m_Scan; }
  void SetScan(BYTE v) { m_Scan = v; }
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }

  // Name, GrpId, EncryptMode; Encrypt, EncType, KeyId, Suppress from schema 2; Sf from 3;
  // Tx, Rx, Calls, Alert, Scan, Backlight from 4. Fields not read keep their defaults.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("GrpId", m_GrpId);
    v("EncryptMode", m_EncryptMode);
    v("Encrypt", m_Encrypt, Since{2}, OnOff{});
    v("EncType", m_EncType, Since{2}, WordsOf(p25_group_words::kEncTypeWords));
    v("KeyId", m_KeyId, Since{2});
    v("Suppress", m_Suppress, Since{2}, OnOff{});
    v("Sf", m_Sf, Since{3});
    v("Tx", m_Tx, Since{4});
    v("Rx", m_Rx, Since{4});
    v("Calls", m_Calls, Since{4});
    v("Alert", m_Alert, Since{4});
    v("Scan", m_Scan, Since{4});
    v("Backlight", m_Backlight, Since{4});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  DWORD m_GrpId = 0;
  BYTE m_EncryptMode = 8;
  BYTE m_Encrypt = 0;
  BYTE m_EncType = 0;
  DWORD m_KeyId = 0;
  BYTE m_Suppress = 0;
  BYTE m_Sf = 0;
  BYTE m_Tx = 1;
  BYTE m_Rx = 1;
  BYTE m_Calls = 1;
  BYTE m_Alert = 1;
  BYTE m_Scan = 0;
  BYTE m_Backlight = 1;
};

class PERSONA_EXPORT CP25GroupSet : public CElementSet {
  DECLARE_SERIAL(CP25GroupSet)
 public:
  // An empty set of type 9.
  CP25GroupSet();
  // The same; the arguments are not used.
  CP25GroupSet(unsigned short t, int reducedDefaults);
  // Deep-copies the groups and copies the three group names.
  CP25GroupSet(const CP25GroupSet& src) = default;
  // Replaces every group with copies of src's, copies the name, set type, scope and the three
  // group names. Assigning a set to itself does nothing. Returns this set.
  CP25GroupSet& operator=(const CP25GroupSet* src);
  CP25GroupSet& operator=(const CP25GroupSet& src) { return *this = &src; }
  ~CP25GroupSet() override = default;

  // 1 when the group counts, HomeGrp, Priority1Grp and Priority2Grp are equal and the groups
  // are equal pairwise (the set name takes no part), else 0.
  int operator==(const CP25GroupSet& other) const;

  // Returns the group at index (the set keeps it), or null when index is not below the count.
  CP25Group* GetGroupAt(unsigned short index) const;
  // Returns the first group whose GrpId is id, or null (always for id 0).
  CP25Group* GetGroup(unsigned long id) const;
  // Returns the position of the first group named name (case-sensitive), or -1 (always for an
  // empty name).
  int FindGroupIndex(const CString& name) const;
  // Empties names, then appends every group's name in list order.
  void GetNames(CStringArray& names) const;
  // Empties each of HomeGrp, Priority1Grp and Priority2Grp that equals name; an empty name
  // does nothing.
  void DeleteSetReferencesToGroup(const CString& name);

  CString GetHomeGrp() const { return m_HomeGrp; }
  void SetHomeGrp(CString v) { m_HomeGrp = std::move(v); }
  CString GetPriority1Grp() const { return m_Priority1Grp; }
  void SetPriority1Grp(CString v) { m_Priority1Grp = std::move(v); }
  CString GetPriority2Grp() const { return m_Priority2Grp; }
  void SetPriority2Grp(CString v) { m_Priority2Grp = std::move(v); }

  // Appends the three group-name lines, an empty line, then four lines and an empty line per
  // group. The int is not used. elementEnd, when given, is
  // called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int unused = 0,
                     const ElementLinesEnd* elementEnd = nullptr) const;

  // The CSet part, then HomeGrp, Priority1Grp, Priority2Grp (every schema).
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("HomeGrp", m_HomeGrp, RefersTo{RefKind::Group});
    v("Priority1Grp", m_Priority1Grp, RefersTo{RefKind::Group});
    v("Priority2Grp", m_Priority2Grp, RefersTo{RefKind::Group});
  }
  PERSONA_FIELDS(CElementSet)

 protected:
  // Clears the names that refer to the group being deleted (CSet::DeleteAt).
  void DeleteSetReferencesToElement(const CObject& element) override;

 private:
  CString m_HomeGrp;
  CString m_Priority1Grp;
  CString m_Priority2Grp;
};

}  // namespace persona
