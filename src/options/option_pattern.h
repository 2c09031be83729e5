// The pattern shared by the option records whose behaviour follows from their field table:
// copy, pointer assignment, a versioned Serialize, Delete and the report block are written here
// once, so that each record is its field table, its defaults and its model overrides.
//
//     class CFooOpts : public CFieldOption<CFooOpts> {
//       PERSONA_OPTION_RECORD(CFooOpts, CSerial)
//      public:
//       template <class V> void Fields(V& v) { v("Level", m_Level, Label{"Level"}); ... }
//     };
//
// Element records (held inside an option record, not in the option list) derive from
// CFieldRecord<CElem, CObject> and use PERSONA_OPTION_RECORD(CElem, CObject).
//
// Owned element lists are held in a CDeepObList, which copies its elements deeply; so the
// defaulted copy constructor of every record copies everything it holds.
#pragma once

#include <utility>

#include "core/serial.h"
#include "framework/archive.h"
#include "framework/collections.h"
#include "framework/fields.h"
#include "options/option_report.h"

namespace persona {

// An owned element list whose copies are deep: each element is copied with its own class's copy
// constructor (a null slot stays null).
class CDeepObList : public COwnedObList {
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

namespace option_pattern_detail {

// Empties every owned list and array of a Fields table; values stay as they are.
struct ListClearer {
  template <class T, class... O>
  void operator()(const char*, T& member, const O&...) {
    if constexpr (std::is_base_of_v<COwnedObList, T>) {
      member.DeleteAll();
    } else if constexpr (std::is_same_v<T, CStringArray> || std::is_same_v<T, CWordArray>) {
      member.RemoveAll();
    }
  }
};

}  // namespace option_pattern_detail

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
  void Serialize(CArchive& ar) override {
    const CRuntimeClass* cls = Self().GetRuntimeClass();
    BYTE schema = static_cast<BYTE>(cls->GetSchema());
    if (ar.IsLoading() && cls->IsVersionable()) schema = ReadSchemaByte(ar);
    SerializeFields(ar, Self(), schema);
  }

 protected:
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
    const auto& items = collector.items;
    std::size_t i = 0;
    for (; i + 1 < items.size(); i += 2) {
      block.Pair(items[i].label, items[i].value, items[i + 1].label, items[i + 1].value);
    }
    if (i < items.size()) block.Value(items[i].label, items[i].value);
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
    option_pattern_detail::ListClearer clearer;
    static_cast<Derived&>(*this).Fields(clearer);
  }
};

}  // namespace persona

// In the class body of a record built on CFieldRecord / CFieldOption: its run-time class, its
// fields for run-time visitors (after those of base) and the pointer assignment.
#define PERSONA_OPTION_RECORD(cls, base) \
  DECLARE_SERIAL(cls)                    \
  PERSONA_FIELDS(base)                   \
 public:                                 \
  using ::persona::CFieldRecord<cls, base>::operator=;
