// CSet: the named, typed container of owned element records that every set class derives
// from (trunk channels, conventional channels, groups, calls, ...). It holds the element list,
// the name, the set type byte (a SetType) and the scope byte (0 local, 1 copy of a global set).
#pragma once

#include <persona/export.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include <persona/core/set_types.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/framework/object.h>

namespace persona {

// Called by a set's printToBuffer after the report lines of each of its elements, with the
// array they were appended to. A caller that writes the lines out as they come (the streamed
// report) may write them and empty the array, so that the text of a set of many thousands of
// elements is never in memory at once; the set goes on appending to the array either way.
using ElementLinesEnd = std::function<void(CStringArray& out)>;

// Calls *end on out when there is one.
inline void EndElementLines(const ElementLinesEnd* end, CStringArray& out) {
  if (end != nullptr && *end) (*end)(out);
}

class PERSONA_EXPORT CSet : public CObject {
  DECLARE_SERIAL(CSet)
 public:
  // Name "", set type 0, scope 0, no elements.
  CSet();
  // The same as CSet(); both arguments are ignored.
  CSet(unsigned short radioType, int reducedDefaults);
  // As CSet(), with the set type given.
  explicit CSet(SetType type);
  // Copies the name, deep-copies every element whose class is one of the eleven element
  // classes (others are left out), then copies type and scope.
  CSet(const CSet& src);
  // Copies the name, APPENDS deep copies of src's elements to this set's own (which stay in
  // front), copies type and scope. Returns this set.
  CSet& operator=(CSet& src);
  // Deletes every element.
  ~CSet() override;

  // Virtual check of the contents; a plain set is always valid (1).
  virtual int Validate();

  void SetName(CString name);
  CString GetName() const { return m_strName; }
  const CString& Name() const { return m_strName; }
  BYTE GetSetType() const { return m_setType; }
  BYTE GetScope() const { return m_scope; }
  void SetScope(BYTE scope) { m_scope = scope; }
  // Element count, as the 16-bit value the record keeps.
  WORD GetSize() const { return static_cast<WORD>(m_elements.GetCount()); }
  // Element count without truncation.
  int GetCount() const { return m_elements.GetCount(); }

  // Appends element; the set takes ownership.
  void Add(CObject* element);
  // Inserts element before position i; a position that is not valid (negative, or not below
  // the count) puts it at the FRONT. The set takes ownership.
  void InsertAt(int i, CObject* element);
  // Replaces the element at i with element (the set owns the new one) and returns the old one,
  // which the caller now owns. An invalid i raises CInvalidArgException (element stays with the
  // caller).
  CObject* SetAt(int i, CObject* element);
  // The element at i (the set keeps ownership); null when i is not below the count; a negative
  // i raises CInvalidArgException.
  CObject* GetAt(int i) const;
  // Clears the references to the element inside this set (conventional and P25 conventional
  // channel sets, group sets of every kind), then removes and deletes it. i not below the
  // count does nothing; a negative i raises CInvalidArgException; a set whose type byte is 11
  // or more does nothing at all.
  void DeleteAt(int i);
  // Deletes every element and empties the list.
  void Delete();
  // Removes every element as DeleteAt(0) repeated until the set is empty would (the references
  // inside the set to each element are cleared), in one pass; a set whose type byte is 11 or
  // more keeps its elements, as DeleteAt would.
  void DeleteAllFromFront();

  // Element list (count and objects), name, set type, scope.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Elements", m_elements);
    v("Name", m_strName);
    v("SetType", m_setType);
    v("Scope", m_scope);
  }
  // Hands the fields to v; v may rename the set, so the name epoch moves.
  void VisitFields(CFieldVisitor& v) override;

  // True for the eleven element classes that a set copy carries: CTrunkChannel,
  // CConvChannel, CP25ConvChannel, CExtAddGroup, CGroup, CP25Group, CPhoneCall, CICall,
  // CSpCall, CPlmGroup, CPlmSpCall (exact, case-sensitive names).
  static bool IsCopiedElementClass(const char* className);
  // A counter that grows whenever the name of any set changes; lets indexes of set names
  // know when to rebuild.
  static std::uint64_t NameEpoch();

  // The owned element list, for the set classes and generic readers.
  const COwnedObList& Elements() const { return m_elements; }

  // Keeps alive, for as long as this set lives, records that its key list refers to and that
  // came with it from a file of its own (a global set file); they are not copied with the set.
  void AdoptSharedRecords(std::vector<std::unique_ptr<CObject>> records);

 protected:
  // Called by DeleteAt for set types 1, 2, 8, 9 and 10 before element is removed: clears
  // the names inside this set that refer to it. The base has none.
  virtual void DeleteSetReferencesToElement(const CObject& element);
  void SetSetType(BYTE type) { m_setType = type; }
  // True for the set types whose DeleteAt clears references to the element first.
  bool ClearsReferencesOnDelete() const;
  // Appends deep copies of src's elements (the eleven element classes only).
  void AppendCopiesOf(const CSet& src);

  COwnedObList m_elements;

 private:
  CString m_strName;
  BYTE m_setType = 0;
  BYTE m_scope = 0;
  std::vector<std::unique_ptr<CObject>> m_adopted;
};

}  // namespace persona
