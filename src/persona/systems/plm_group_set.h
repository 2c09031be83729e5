// Groups and group sets of the messaging (Pellam) system. A CPlmGroup is a named group with
// four tone numbers and five switches; a CPlmGroupSet (set type 6) is the named list of them.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

class PERSONA_EXPORT CPlmGroup : public CObject {
  DECLARE_SERIAL(CPlmGroup)
 public:
  // Every field 0 or empty.
  CPlmGroup() = default;
  // The same; the arguments are not used.
  CPlmGroup(unsigned short t, int reducedDefaults);
  CPlmGroup(const CPlmGroup&) = default;
  CPlmGroup& operator=(const CPlmGroup&) = default;
  // Copies every field of src (null: nothing); returns this group.
  CPlmGroup& operator=(const CPlmGroup* src);
  ~CPlmGroup() override = default;

  // 1 when the names (case-sensitive), the four tones and the five switches are equal, else 0.
  int operator==(const CPlmGroup& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  // Tone i (0 to 3); an index outside 0 to 3 reads 0 and writes nothing.
  WORD GetTone(int i) const { return i >= 0 && i < 4 ? m_Tone[i] : 0; }
  void SetTone(int i, WORD v) {
    if (i >= 0 && i < 4) m_Tone[i] = v;
  }
  BYTE GetFastBusy() const { return m_FastBusy; }
  void SetFastBusy(BYTE v) { m_FastBusy = v; }
  BYTE GetExtAlarm() const { return m_ExtAlarm; }
  void SetExtAlarm(BYTE v) { m_ExtAlarm = v; }
  BYTE GetTxDis() const { return m_TxDis; }
  void SetTxDis(BYTE v) { m_TxDis = v; }
  BYTE GetRxDis() const { return m_RxDis; }
  void SetRxDis(BYTE v) { m_RxDis = v; }
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }

  // Name, the four tones, FastBusy, ExtAlarm, TxDis, RxDis, Backlight.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("Tone", m_Tone);
    v("FastBusy", m_FastBusy, OnOff{});
    v("ExtAlarm", m_ExtAlarm, OnOff{});
    v("TxDis", m_TxDis, OnOff{});
    v("RxDis", m_RxDis, OnOff{});
    v("Backlight", m_Backlight, OnOff{});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  WORD m_Tone[4] = {0, 0, 0, 0};
  BYTE m_FastBusy = 0;
  BYTE m_ExtAlarm = 0;
  BYTE m_TxDis = 0;
  BYTE m_RxDis = 0;
  BYTE m_Backlight = 0;
};

class PERSONA_EXPORT CPlmGroupSet : public CElementSet {
  DECLARE_SERIAL(CPlmGroupSet)
 public:
  // An empty set of type 6.
  CPlmGroupSet();
  // The same; the arguments are not used.
  CPlmGroupSet(unsigned short t, int reducedDefaults);
  CPlmGroupSet(const CPlmGroupSet& src) = default;
  // Replaces every group with copies of src's, copies the name, set type and scope. Assigning
  // a set to itself does nothing. Returns this set.
  CPlmGroupSet& operator=(const CPlmGroupSet* src);
  CPlmGroupSet& operator=(const CPlmGroupSet& src) { return *this = &src; }
  ~CPlmGroupSet() override = default;

  // 1 when the group counts are equal and the groups are equal pairwise, else 0.
  int operator==(const CPlmGroupSet& other) const;

  // Returns the group at index (the set keeps it), or null when index is not below the count.
  CPlmGroup* GetGroupAt(unsigned short index) const;
  // Returns the position of the first group named name (case-sensitive; an empty name finds
  // an unnamed group), or -1.
  int FindGroupIndex(const CString& name) const;
  // Empties names, then appends every group's name in list order.
  void GetNames(CStringArray& names) const;

  // Appends the set's heading (n and its name), then every group's lines and a closing empty
  // line. elementEnd, when given, is
  // called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int n, const ElementLinesEnd* elementEnd = nullptr) const;

  // The CSet part only.
  void Serialize(CArchive& ar) override;
};

}  // namespace persona
