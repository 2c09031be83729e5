// Building blocks that the set classes share: typed access to a set's owned elements (by
// position, by name, by a predicate), the element-wise equality of two sets and the
// field-by-field equality of two records, the rebuild of a set's elements from copies of another
// set's, and the frequency rules of the channel sets (10 Hz step comparison, the band-limit check
// of every channel).
//
// Every element is checked against the expected class before it is used, so an element of
// another class (a set's Add accepts any record) is skipped instead of being misread.
//
// CElementSet is the common middle of the set classes: it fixes the set type at construction
// and holds the pointer assignment that rebuilds a set from another.
#pragma once

#include <persona/export.h>

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <vector>

#include <persona/core/set.h>
#include <persona/core/set_types.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/framework/object.h>

namespace persona::set_helpers {

// True when radio type t is one of types (the model-default tables).
inline bool IsOneOf(unsigned short t, std::initializer_list<unsigned short> types) {
  for (unsigned short x : types) {
    if (x == t) return true;
  }
  return false;
}

// Returns obj as an E when it is one (or derives from E), else null. Never throws.
template <class E>
E* As(CObject* obj) {
  return dynamic_cast<E*>(obj);
}

// Returns the element at index as an E (the list keeps ownership), or null when index is not
// below the count or the element is not an E. Never throws.
template <class E>
E* ElementAt(const COwnedObList& list, unsigned index) {
  if (index >= static_cast<unsigned>(list.GetCount())) return nullptr;
  return As<E>(list.GetAt(static_cast<int>(index)));
}

// Returns the position of the first E for which match(const E&) is true, or -1.
template <class E, class Match>
int FindIndexIf(const COwnedObList& list, Match match) {
  int i = 0;
  for (CObject* obj : list) {
    const E* e = As<E>(obj);
    if (e != nullptr && match(*e)) return i;
    ++i;
  }
  return -1;
}

// Returns the first E for which match(const E&) is true (the list keeps ownership), or null.
template <class E, class Match>
E* FindIf(const COwnedObList& list, Match match) {
  const int i = FindIndexIf<E>(list, match);
  return i < 0 ? nullptr : As<E>(list.GetAt(i));
}

// Returns the position of the first E whose name equals name exactly (case-sensitive), or -1.
// An empty name answers -1 unless emptyNameMatches is true.
template <class E>
int FindIndexByName(const COwnedObList& list, const CString& name, bool emptyNameMatches = false) {
  if (name.IsEmpty() && !emptyNameMatches) return -1;
  return FindIndexIf<E>(list, [&name](const E& e) { return e.GetName() == name; });
}

// Empties names, then appends the name of every E in list order.
template <class E>
void CollectNames(const COwnedObList& list, CStringArray& names) {
  names.RemoveAll();
  names.Reserve(static_cast<std::size_t>(list.GetCount()));
  for (CObject* obj : list) {
    if (const E* e = As<E>(obj)) names.Add(e->GetName());
  }
}

// True when both lists hold as many elements and every element equals (E's operator==) the
// element at the same position. A slot that is not an E only equals another such slot.
template <class E>
bool SameElements(const COwnedObList& a, const COwnedObList& b) {
  if (a.GetCount() != b.GetCount()) return false;
  for (int i = 0; i < a.GetCount(); ++i) {
    const E* x = As<E>(a.GetAt(i));
    const E* y = As<E>(b.GetAt(i));
    if (x == nullptr || y == nullptr) {
      if (x != y) return false;
      continue;
    }
    if (!(*x == *y)) return false;
  }
  return true;
}

// Deletes every element of dst, then appends, for each E of src in order, a new
// default-constructed E assigned from it with E's pointer assignment. Elements of src that are
// not an E are not copied. dst and src must be different lists.
template <class E>
void ReplaceWithCopies(COwnedObList& dst, const COwnedObList& src) {
  dst.DeleteAll();
  dst.Reserve(static_cast<std::size_t>(src.GetCount()));
  for (CObject* obj : src) {
    if (const E* e = As<E>(obj)) {
      E* copy = new E;
      *copy = e;
      dst.Add(copy);
    }
  }
}

// Collects the archived scalar and string fields of a record (its Fields table) for a
// field-by-field comparison; doubles are kept apart so that they can be compared by a rule.
class PERSONA_EXPORT FieldValueCollector {
 public:
  std::vector<std::uint64_t> integers;
  std::vector<double> reals;
  std::vector<const CString*> texts;

  template <class T, class... O>
  void operator()(const char*, T& member, const O&...) {
    if constexpr (!fields_detail::Has<Transient, O...>()) Collect(member);
  }

 private:
  template <class T>
  void Collect(const T& m) {
    if constexpr (std::is_floating_point_v<T>) {
      reals.push_back(static_cast<double>(m));
    } else if constexpr (std::is_integral_v<T>) {
      integers.push_back(static_cast<std::uint64_t>(m));
    } else if constexpr (std::is_same_v<T, CString>) {
      texts.push_back(&m);
    } else if constexpr (std::is_array_v<T>) {
      for (const auto& e : m) Collect(e);
    } else {
      static_assert(std::is_floating_point_v<T>, "only scalars, strings and arrays of them");
    }
  }
};

// True when every field of the Fields tables of a and b is equal: integers and strings
// exactly (case-sensitive), doubles by sameReal. Transient fields take no part.
template <class R, class SameReal>
bool SameFields(const R& a, const R& b, SameReal sameReal) {
  FieldValueCollector x;
  FieldValueCollector y;
  const_cast<R&>(a).Fields(x);  // the collectors only read
  const_cast<R&>(b).Fields(y);
  if (x.integers != y.integers) return false;
  for (std::size_t i = 0; i < x.texts.size(); ++i) {
    if (*x.texts[i] != *y.texts[i]) return false;
  }
  for (std::size_t i = 0; i < x.reals.size(); ++i) {
    if (!sameReal(x.reals[i], y.reals[i])) return false;
  }
  return true;
}

// SameFields for records without doubles (or whose doubles must be exactly equal).
template <class R>
bool SameFields(const R& a, const R& b) {
  return SameFields(a, b, [](double x, double y) { return x == y; });
}

// A frequency in MHz as a whole number of 10 Hz steps: the integer part of
// mhz * 100000 + 0.0005, as a 32-bit value. A value that does not fit (or NaN) gives
// INT32_MIN, as the processor's own conversion does.
inline std::int32_t FrequencySteps(double mhz) {
  const double steps = mhz * 100000.0 + 0.0005;
  if (!(steps > -2147483649.0 && steps < 2147483648.0)) return INT32_MIN;
  return static_cast<std::int32_t>(steps);
}

// True when both frequencies fall into the same 10 Hz step.
inline bool SameFrequencyStep(double a, double b) { return FrequencySteps(a) == FrequencySteps(b); }

// True when the frequencies differ by less than 0.000001 MHz.
inline bool WithinOneHertz(double a, double b) { return std::fabs(a - b) < 0.000001; }

// The band-limit check of channel sets. With tx and rx a channel's frequencies, a channel
// fails when tx is above 0 and below txMin; when txMin is at most 800 MHz, when rx is above
// rxMax + 0.000001; when txMin is above 800 MHz, when tx is above rxMax + 0.000001, rx is below
// rxMin, or rx is above rxMax (+ 0.000001 only when toleranceAbove800 is true).
struct PERSONA_EXPORT FrequencyLimits {
  double txMin;
  double rxMin;
  double rxMax;
  bool toleranceAbove800;
};

// True when a channel with these frequencies passes the limits.
inline bool ChannelWithinLimits(double tx, double rx, const FrequencyLimits& l) {
  constexpr double kTolerance = 0.000001;
  if (tx > 0.0 && tx < l.txMin) return false;
  if (l.txMin <= 800.0) return !(rx > l.rxMax + kTolerance);
  if (tx > l.rxMax + kTolerance || rx < l.rxMin) return false;
  return !(rx > l.rxMax + (l.toleranceAbove800 ? kTolerance : 0.0));
}

// Returns 1 when every E of the list passes the limits (also for an empty list), 0 at the
// first that fails. E needs GetTxFreq and GetRxFreq.
template <class E>
int CheckChannelFrequencies(const COwnedObList& list, const FrequencyLimits& limits) {
  for (CObject* obj : list) {
    const E* e = As<E>(obj);
    if (e != nullptr && !ChannelWithinLimits(e->GetTxFreq(), e->GetRxFreq(), limits)) return 0;
  }
  return 1;
}

}  // namespace persona::set_helpers

namespace persona {

class PERSONA_EXPORT CElementSet : public CSet {
 protected:
  // An empty set of the given type. Its element list holds records of any class, as CSet's
  // does: what reads an element as a particular class checks it first.
  explicit CElementSet(SetType type) : CSet(type) {}
  // Deep-copies the elements and copies the name, set type and scope (CSet's copy).
  CElementSet(const CElementSet&) = default;
  ~CElementSet() override = default;

  // The common part of a set's pointer assignment: replaces every element with a new E
  // assigned from each E of src, in order, and copies the name, set type and scope. Returns
  // false, doing nothing, when src is null or this set itself; the caller then copies its own
  // fields only when true.
  template <class E>
  bool AssignSetPart(const CSet* src) {
    if (src == nullptr || src == this) return false;
    set_helpers::ReplaceWithCopies<E>(m_elements, src->Elements());
    SetName(src->GetName());
    SetSetType(src->GetSetType());
    SetScope(src->GetScope());
    return true;
  }
};

}  // namespace persona
