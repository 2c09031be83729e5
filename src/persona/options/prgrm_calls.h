// CPrgrmICall and CPrgrmPhoneCall: the lists of individual and phone calls offered on programmable
// keys.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// The list of call names that both programmable call records hold, with its operations.
template <class Derived>
class CCallNameList : public CFieldOption<Derived> {
 public:
  // Names of the calls on the programmable keys, in key order.
  const CStringArray& GetCalls() const { return m_Calls; }
  void SetCalls(const CStringArray& v) { m_Calls.Copy(v); }
  // Number of calls.
  int GetNumCalls() const { return m_Calls.GetSize(); }
  // The call name at i; an i outside the list raises CInvalidArgException.
  CString GetCallAt(int i) const { return m_Calls.GetAt(i); }
  // Replaces the call name at i; an i outside the list raises CInvalidArgException.
  void SetCallAt(int i, CString name) { m_Calls.SetAt(i, name); }
  // Appends a call name and returns its position.
  int AddCall(CString name) { return m_Calls.Add(name); }
  // Removes the call at i; returns false when i is not a valid position.
  bool DeleteCallAt(int i) {
    if (i < 0 || i >= m_Calls.GetSize()) return false;
    m_Calls.RemoveAt(i);
    return true;
  }

  // The fields in archive order.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Calls", m_Calls);
  }

 protected:
  CStringArray m_Calls;
};

// CPrgrmICall: the individual calls offered on programmable keys, by name of the call in the
// individual call sets.
class PERSONA_EXPORT CPrgrmICall : public CCallNameList<CPrgrmICall> {
  PERSONA_OPTION_RECORD(CPrgrmICall, CSerial)
 public:
  // Neutral defaults.
  CPrgrmICall() = default;
  // The neutral defaults: no default of this record depends on the model.
  CPrgrmICall(unsigned short radioType, int reducedDefaults);
  CPrgrmICall(const CPrgrmICall&) = default;
  CPrgrmICall& operator=(const CPrgrmICall&) = default;
  ~CPrgrmICall() override = default;

  // Appends the "PROGRAMMABLE INDIVIDUAL CALLS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;
};

// CPrgrmPhoneCall: the phone calls offered on programmable keys, by name of the call in the phone
// sets.
class PERSONA_EXPORT CPrgrmPhoneCall : public CCallNameList<CPrgrmPhoneCall> {
  PERSONA_OPTION_RECORD(CPrgrmPhoneCall, CSerial)
 public:
  // Neutral defaults.
  CPrgrmPhoneCall() = default;
  // The neutral defaults: no default of this record depends on the model.
  CPrgrmPhoneCall(unsigned short radioType, int reducedDefaults);
  CPrgrmPhoneCall(const CPrgrmPhoneCall&) = default;
  CPrgrmPhoneCall& operator=(const CPrgrmPhoneCall&) = default;
  ~CPrgrmPhoneCall() override = default;

  // Appends the "PROGRAMMABLE PHONE CALLS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;
};

}  // namespace persona
