// FirstMatchIndex: a cache over an owned list of named records that answers "position of the
// first record whose key equals this key" in constant time on average. The personality keeps
// one per set list (keys: upper-cased set names) and two over its systems (exact and
// trailing-blank-trimmed names). The cache rebuilds itself in one pass when the list changed
// behind it or when the owner's name epoch moved (a record anywhere was renamed).
#pragma once

#include <persona/export.h>

#include <cstdint>
#include <unordered_map>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>

namespace persona {

class PERSONA_EXPORT FirstMatchIndex {
 public:
  // Puts the key of one record of the list into key and returns true; returns false for a
  // record that has no key (one of a class the list does not index), which is never found.
  // Never called with null.
  using KeyOf = bool (*)(const CObject& record, CString* key);

  // Returns the position of the first record of list whose key equals key, or -1. epoch is the
  // current name epoch of the records; keyOf must be the same function on every call.
  int Find(const COwnedObList& list, const CString& key, std::uint64_t epoch, KeyOf keyOf) const;
  // The record at the end of list was just appended: keeps the index current when it was.
  void NoteAppended(const COwnedObList& list, std::uint64_t epoch, KeyOf keyOf);
  // The list changed in a way the index does not follow: the next Find rebuilds.
  void Invalidate() { m_valid = false; }

 private:
  void Rebuild(const COwnedObList& list, std::uint64_t epoch, KeyOf keyOf) const;

  mutable std::unordered_map<CString, int> m_first;
  mutable std::uint64_t m_epoch = 0;
  mutable int m_count = 0;
  mutable bool m_valid = false;
};

}  // namespace persona
