// CPersonality: the root record of one radio's programming. It owns the option records (one per
// option class name) and the set lists, and carries the version and the last radio used.
#pragma once

#include <memory>
#include <vector>

#include "core/serial.h"
#include "core/set.h"
#include "core/set_types.h"

namespace persona {

class CPersonality : public CSerial {
 public:
  CPersonality();
  // Last radio = radioType; the int argument is not used.
  CPersonality(unsigned short radioType, int reducedDefaults);
  CPersonality(const CPersonality&) = delete;
  CPersonality& operator=(const CPersonality&) = delete;
  ~CPersonality() override;

  // Appends option and takes ownership, unless a record of the same class name is held: then
  // nothing happens and the caller still owns option. A null option is ignored.
  void PutOption(CObject* option);
  // First record of that class name, or null; the personality keeps ownership.
  CSerial* GetOption(const CRuntimeClass* cls) const;
  template <class T>
  T* GetOption() const {
    return static_cast<T*>(GetOption(RUNTIME_CLASS(T)));
  }
  // Removes and deletes the first record of that class name; nothing when none is held.
  void DeleteOption(const CRuntimeClass* cls);

  unsigned short GetLastRadio() const { return m_lastRadio; }
  void SetLastRadio(unsigned short radioType) { m_lastRadio = radioType; }
  unsigned short GetVersion() const { return m_version; }
  void SetVersion(unsigned short version) { m_version = version; }

  // The set at i of list t (still owned by the personality); null when i is negative or not
  // below the count, or t is not a set type.
  CSet* GetSetAt(int i, SetType t) const;
  unsigned short GetNumTrkSets() const;
  // Appends set to list t and takes ownership; a set of an invalid type is deleted.
  void AddSet(CSet* set, SetType t);

 private:
  int FindOption(const CRuntimeClass* cls) const;

  std::vector<std::unique_ptr<CObject>> m_options;
  std::vector<std::unique_ptr<CSet>> m_sets[kNumSetTypes];
  unsigned short m_lastRadio = 1;
  unsigned short m_version = 0;
};

}  // namespace persona
