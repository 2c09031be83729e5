// Pieces that every option record shares besides its field table and report layout: the
// getter/setter pair of a field, the versioned load of a field table, the labelled report
// block of a const record, the radio type lists that model defaults test, and the record of
// another option group that a report quotes.
#pragma once

#include <initializer_list>
#include <memory>

#include "core/personality.h"
#include "framework/archive.h"
#include "framework/fields.h"
#include "options/option_report.h"

// In a record's class body: `Type GetName() const` and `void SetName(Type)` over the member
// m_Name. Setters store what they are given (no range checks).
#define PERSONA_ACCESSORS(Type, Name)         \
  Type Get##Name() const { return m_##Name; } \
  void Set##Name(Type value) { m_##Name = value; }

namespace persona {

// Stores or loads the fields that rec.Fields lists. Loading first asks the archive for the
// stored schema; fields added by a later schema than the stored one keep the values the record
// already holds. Returns the stored schema (255 = none, and always 255 when storing); archive
// faults propagate as CArchiveException.
template <class R>
BYTE SerializeVersionedFields(CArchive& ar, R& rec) {
  const BYTE schema = ar.IsLoading() ? ReadSchemaByte(ar) : BYTE{255};
  SerializeFields(ar, rec, schema);
  return schema;
}

// The pointer assignment of a plain-value record: copies every field of *src into target
// (nothing when src is null or is target) and returns target.
template <class R>
R& AssignFromPointer(R& target, const R* src) {
  if (src != nullptr && src != &target) target = *src;
  return target;
}

// PrintOptionBlock for a record printed from a const report function (the block only reads
// the labelled fields).
template <class R>
void PrintLabelledBlock(CStringArray& out, const char* heading, const R& rec) {
  PrintOptionBlock(out, heading, const_cast<R&>(rec));
}

// True when radioType is one of codes.
constexpr bool IsRadioTypeIn(unsigned short radioType,
                             std::initializer_list<unsigned short> codes) {
  for (unsigned short code : codes) {
    if (code == radioType) return true;
  }
  return false;
}

// Set A of the model defaults: 68, 69, 70, 80, 88, 89, 90, 92, 94 to 97, 101 to 106.
bool IsRadioTypeSetA(unsigned short radioType);
// Set B of the model defaults: 59, 64 to 67, 72 to 75, 77, 81, 82, 84 to 86.
bool IsRadioTypeSetB(unsigned short radioType);

// The personality's record of option class T, or null (also for a null personality); the
// personality keeps ownership.
template <class T>
const T* HeldOption(const CPersonality* personality) {
  return personality != nullptr ? personality->GetOption<T>() : nullptr;
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
