// The one pattern of every option record and of the element records they hold: a record is
// its Fields table, its defaults and its model overrides, and CFieldRecord / CFieldOption give it
// copy, pointer assignment, a versioned Serialize, Delete and its report block from that table.
//
//     class CFooOpts : public CFieldOption<CFooOpts> {
//       PERSONA_OPTION_RECORD(CFooOpts, CSerial)
//      public:
//       template <class V> void Fields(V& v) { v("Level", m_Level, Label{"Level"}); ... }
//     };
//
// Element records (held inside an option record, not in the option list) derive from
// CFieldRecord<CElem, CObject> and use PERSONA_OPTION_RECORD(CElem, CObject). A record whose
// file form or report has a rule of its own overrides Serialize (calling SerializeTable for the
// table) or prints its lines with OptionBlock, and keeps everything else of the pattern.
//
// Owned element lists are held in a CDeepObList, which copies its elements deeply; so the
// defaulted copy constructor of every record copies everything it holds.
//
// Also here: the getter/setter pair of a field, the radio type lists that model defaults test,
// and the record of another option group that a report quotes.
#pragma once

#include <persona/export.h>

#include <initializer_list>
#include <memory>
#include <type_traits>
#include <utility>

#include <persona/core/serial.h>
#include <persona/framework/archive.h>
#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include <persona/options/option_report.h>

// In a record's class body: `Type GetName() const` and `void SetName(Type)` over the member
// m_Name. Setters store what they are given (no range checks).
#define PERSONA_ACCESSORS(Type, Name)         \
  Type Get##Name() const { return m_##Name; } \
  void Set##Name(Type value) { m_##Name = value; }

namespace persona {

// An owned element list whose copies are deep: each element is copied with its own class's copy
// constructor (a null slot stays null).
class PERSONA_EXPORT CDeepObList : public COwnedObList {
 public:
  explicit CDeepObList(const CRuntimeClass* elementClass) : COwnedObList(elementClass) {}
  CDeepObList(const CDeepObList& src);
  // Deletes this list's elements and holds copies of src's; returns this list.
  CDeepObList& operator=(const CDeepObList& src);
  CDeepObList(CDeepObList&&) = default;
  CDeepObList& operator=(CDeepObList&&) = default;
  ~CDeepObList() = default;

  // Appends copies of src's elements (the elements of src stay with src).
  void AppendCopiesOf(const COwnedObList& src);
};

// A deep-copying owned list restricted to element class T, with the typed access that the
// records holding it offer.
template <class T>
class CElementList : public CDeepObList {
 public:
  // elementClass: the run-time class of T (RUNTIME_CLASS(T) at the member's declaration).
  explicit CElementList(const CRuntimeClass* elementClass) : CDeepObList(elementClass) {}

  // The element at i (still owned by the list), or null when i is not a valid position.
  T* At(int i) const { return i >= 0 && i < GetCount() ? static_cast<T*>(GetAt(i)) : nullptr; }
  // Inserts e before position i (0 .. count; count appends) and takes ownership. Returns false
  // for any other i; e then stays with the caller.
  bool InsertBefore(int i, T* e) {
    if (i < 0 || i > GetCount()) return false;
    InsertAt(i, e);
    return true;
  }
  // Removes the element at i and hands it to the caller; null when i is not a valid position.
  T* Remove(int i) { return i >= 0 && i < GetCount() ? static_cast<T*>(Release(i)) : nullptr; }
  // Deletes the element at i; returns false when i is not a valid position.
  bool Erase(int i) {
    if (i < 0 || i >= GetCount()) return false;
    DeleteAt(i);
    return true;
  }
};

namespace option_record_detail {

// Empties every owned list and array of a Fields table; values stay as they are.
struct PERSONA_EXPORT ListClearer {
  template <class T, class... O>
  void operator()(const char*, T& member, const O&...) {
    if constexpr (std::is_base_of_v<COwnedObList, T>) {
      member.DeleteAll();
    } else if constexpr (std::is_same_v<T, CStringArray> || std::is_same_v<T, CWordArray>) {
      member.RemoveAll();
    }
  }
};

}  // namespace option_record_detail

// Copy, assignment, Serialize and report block of a record described by its Fields table.
template <class Derived, class Base>
class CFieldRecord : public Base {
 public:
  // Copies every field of src (owned elements deeply) into this record; a null src or this
  // record itself changes nothing. Returns this record.
  Derived& operator=(const Derived* src) {
    if (src != nullptr && src != &Self()) Self() = *src;
    return Self();
  }

  // Stores every field of the current schema in table order. Loading a versionable class asks
  // for the stored schema first and reads the fields that schema has (later fields keep the
  // values of the default constructor); a non-versionable class reads every field. Archive
  // faults propagate as CArchiveException.
  void Serialize(CArchive& ar) override { SerializeTable(ar); }

 protected:
  // The work of Serialize, for records that add rules of their own around it. Returns the
  // schema the fields were read with (the stored one for a versionable class being loaded),
  // otherwise the class's schema.
  BYTE SerializeTable(CArchive& ar) {
    const CRuntimeClass* cls = Self().GetRuntimeClass();
    BYTE schema = static_cast<BYTE>(cls->GetSchema());
    if (ar.IsLoading() && cls->IsVersionable()) schema = ReadSchemaByte(ar);
    SerializeFields(ar, Self(), schema);
    return schema;
  }

  // Appends heading, underline, the labelled fields of the table two per line, and the closing
  // empty line. The labelled fields of each record in quoted (null ones are skipped) follow this
  // record's own, in the same block.
  template <class... Quoted>
  void PrintFieldBlock(CStringArray& out, const char* heading, const Quoted*... quoted) const {
    OptionBlock block(out, heading);
    PrintFieldLines(block, quoted...);
    block.End();
  }
  // Appends the labelled fields of this record and of quoted as value lines of block, two per
  // line in table order; for blocks that go on with lines of their own.
  template <class... Quoted>
  void PrintFieldLines(OptionBlock& block, const Quoted*... quoted) const {
    option_report_detail::Collector collector;
    // The collector only reads the fields; Fields is one template for reading and writing.
    const_cast<Derived&>(Self()).Fields(collector);
    (CollectFrom(collector, quoted), ...);
    option_report_detail::PrintPairs(block, collector.items);
  }

 private:
  template <class Q>
  static void CollectFrom(option_report_detail::Collector& collector, const Q* rec) {
    if (rec != nullptr) const_cast<Q*>(rec)->Fields(collector);
  }
  Derived& Self() { return static_cast<Derived&>(*this); }
  const Derived& Self() const { return static_cast<const Derived&>(*this); }
};

// An option record (a CSerial held in the personality's option list).
template <class Derived>
class CFieldOption : public CFieldRecord<Derived, CSerial> {
 public:
  // Deletes the owned elements and empties the lists of the table; plain values stay. The
  // record stays usable.
  void Delete() override {
    option_record_detail::ListClearer clearer;
    static_cast<Derived&>(*this).Fields(clearer);
  }
};

// True when radioType is one of codes.
constexpr bool IsRadioTypeIn(unsigned short radioType,
                             std::initializer_list<unsigned short> codes) {
  for (unsigned short code : codes) {
    if (code == radioType) return true;
  }
  return false;
}

// Set A of the model defaults: 68, 69, 70, 80, 88, 89, 90, 92, 94 to 97, 101 to 106.
PERSONA_EXPORT bool IsRadioTypeSetA(unsigned short radioType);
// Set B of the model defaults: 59, 64 to 67, 72 to 75, 77, 81, 82, 84 to 86.
PERSONA_EXPORT bool IsRadioTypeSetB(unsigned short radioType);

class CPersonality;

// The personality's option record of class cls (CPersonality::GetOption), or null, also for a
// null personality; the personality keeps ownership. Defined with the personality, so that the
// option records, which sit below it, need only its name.
PERSONA_EXPORT const CObject* PersonalityOption(const CPersonality* personality,
                                                const CRuntimeClass* cls);

// The personality's record of option class T, or null (also for a null personality); the
// personality keeps ownership.
template <class T>
const T* HeldOption(const CPersonality* personality) {
  return dynamic_cast<const T*>(PersonalityOption(personality, T::GetThisClass()));
}

// The record of option class T that a report quotes: the personality's own when it holds one,
// otherwise a temporary record built with T(radioType, 0) that lives as long as this object.
// The personality is never changed; a null personality counts as holding nothing.
template <class T>
class QuotedOption {
 public:
  QuotedOption(const CPersonality* personality, unsigned short radioType)
      : m_record(HeldOption<T>(personality)) {
    if (m_record == nullptr) {
      m_temporary = std::make_unique<T>(radioType, 0);
      m_record = m_temporary.get();
    }
  }
  const T& operator*() const { return *m_record; }
  const T* operator->() const { return m_record; }
  const T* get() const { return m_record; }

 private:
  std::unique_ptr<T> m_temporary;
  const T* m_record;
};

}  // namespace persona

// In the class body of a record built on CFieldRecord / CFieldOption: its run-time class, its
// fields for run-time visitors (after those of base) and the pointer assignment.
#define PERSONA_OPTION_RECORD(cls, base) \
  DECLARE_SERIAL(cls)                    \
  PERSONA_FIELDS(base)                   \
 public:                                 \
  using ::persona::CFieldRecord<cls, base>::operator=;
