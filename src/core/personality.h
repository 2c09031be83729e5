// CPersonality (stand-in): the members of the personality that option records use, until the
// full personality record arrives. It owns its option records and its sets.
#pragma once

#include "core/serial.h"
#include "core/set.h"
#include "core/set_types.h"
#include "framework/collections.h"

namespace persona {

class CPersonality : public CSerial {
 public:
  // Version 20, last radio 1, no options, no sets.
  CPersonality();
  // As the default, with the last radio set to radioType; the flag is ignored.
  CPersonality(unsigned short radioType, int reducedDefaults);
  CPersonality(const CPersonality&) = delete;
  CPersonality& operator=(const CPersonality&) = delete;
  // Deletes every option record and every set.
  ~CPersonality() override;

  // Appends option and takes ownership, unless a record of the same class name is held: then
  // nothing happens and the caller still owns option.
  void PutOption(CObject* option);
  // The first option record whose class name equals that of cls, or null; the personality keeps
  // ownership.
  CSerial* GetOption(const CRuntimeClass* cls) const;
  template <class T>
  T* GetOption() const {
    static const T probe;  // the run-time class of T, asked of an instance
    return static_cast<T*>(GetOption(probe.GetRuntimeClass()));
  }
  // Removes and deletes the first option record of that class name; nothing when none.
  void DeleteOption(const CRuntimeClass* cls);

  unsigned short GetLastRadio() const { return m_lastRadio; }
  void SetLastRadio(unsigned short radioType) { m_lastRadio = radioType; }
  unsigned short GetVersion() const { return m_version; }
  void SetVersion(unsigned short version) { m_version = version; }

  // The set at i of list t (the personality keeps ownership), or null when i is negative or not
  // below the count, or t is not a set type.
  CSet* GetSetAt(int i, SetType t) const;
  unsigned short GetNumTrkSets() const;
  // Appends set to list t; the personality owns it (a set of an invalid type is deleted).
  void AddSet(CSet* set, SetType t);

 private:
  int FindOption(const char* className) const;

  COwnedObList m_options;
  COwnedObList m_sets[kNumSetTypes];
  unsigned short m_version = 20;
  unsigned short m_lastRadio = 1;
};

}  // namespace persona
