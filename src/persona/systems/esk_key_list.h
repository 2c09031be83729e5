// CSetKeyList: the list of security key records that a trunk set or a group set may use. The
// list holds pointers to CEskData records that it does NOT own (they belong to the personality,
// or to whoever built the list); destroying the list leaves them alone. Two sets can name the
// same record: the archive then stores it once and a load gives both sets one shared record.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/types.h>
#include <persona/systems/esk_data.h>

namespace persona {

class PERSONA_EXPORT CSetKeyList {
 public:
  // Appends key at the end (not owned; null is kept as an empty entry).
  void AddEsk(CEskData* key) { m_esks.AddTail(key); }
  // Returns the key at i (not owned), or null when i is not below the count; a negative i
  // raises CInvalidArgException.
  CEskData* GetEskAt(int i) const;
  // Replaces the pointer at i (the old record is not deleted); i outside 0 .. count-1 raises
  // CInvalidArgException.
  void SetEskAt(int i, CEskData* key) { m_esks.SetAt(i, key); }
  // Removes the entry at i when 0 <= i < count (the record is not deleted); otherwise does
  // nothing.
  void DeleteEskAt(int i);
  // Returns the number of entries as 16 bits.
  WORD GetNumEsks() const { return static_cast<WORD>(m_esks.GetCount()); }
  // The entries themselves, for readers that walk them.
  const CObList& GetEskList() const { return m_esks; }

 protected:
  CSetKeyList() = default;
  // Shares the source's key records (the same pointers, not copies).
  CSetKeyList(const CSetKeyList&) = default;
  CSetKeyList& operator=(const CSetKeyList&) = delete;
  ~CSetKeyList() = default;

  // Archived as an object list; loading reads the keys as records shared through the archive.
  CObList m_esks{RUNTIME_CLASS(CEskData)};
};

inline CEskData* CSetKeyList::GetEskAt(int i) const {
  if (i >= 0 && i >= m_esks.GetCount()) return nullptr;
  CObject* key = m_esks.GetAt(i);  // negative: invalid argument
  return key != nullptr && key->IsKindOf(RUNTIME_CLASS(CEskData)) ? static_cast<CEskData*>(key)
                                                                  : nullptr;
}

inline void CSetKeyList::DeleteEskAt(int i) {
  if (i >= 0 && i < m_esks.GetCount()) m_esks.RemoveAt(i);
}

}  // namespace persona
