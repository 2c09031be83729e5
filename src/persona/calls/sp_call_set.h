// Special call lists of the conventional signalling family. A CSpCall is a named special call
// (telephone, DTMF, call 1, call 2 or all call) with its number; a CSpCallSet (set type 5) is
// the named list of them with the logical-ID range of the set.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The report words of the coded fields of CSpCall (a code indexes its list); the report
// lines and the field descriptions share them.
namespace sp_call_words {
inline constexpr const char* const kTypeWords[] = {"Telephone", "DTMF", "Call 1", "Call 2",
                                                   "All Call"};
}  // namespace sp_call_words

class PERSONA_EXPORT CSpCall : public CObject {
  DECLARE_SERIAL(CSpCall)
 public:
  // Every field 0 or empty.
  CSpCall() = default;
  // The same; the arguments are not used.
  CSpCall(unsigned short t, int reducedDefaults);
  CSpCall(const CSpCall&) = default;
  CSpCall& operator=(const CSpCall&) = default;
  // Copies every field of src (null: nothing); returns this call.
  CSpCall& operator=(const CSpCall* src);
  ~CSpCall() override = default;

  // 1 when Name, Number (case-sensitive), Type and Digital are equal, else 0.
  int operator==(const CSpCall& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  CString GetNumber() const { return m_Number; }
  void SetNumber(CString v) { m_Number = std::move(v); }
  // 0 Telephone, 1 DTMF, 2 Call 1, 3 Call 2, 4 All Call.
  BYTE GetType() const { return m_Type; }
  void SetType(BYTE v) { m_Type = v; }
  WORD GetDigital() const { return m_Digital; }
  void SetDigital(WORD v) { m_Digital = v; }

  // Name, Number, Type (8 bits), Digital (16 bits).
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("Number", m_Number);
    v("Type", m_Type, WordsOf(sp_call_words::kTypeWords));
    v("Digital", m_Digital, OnOff{});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  CString m_Number;
  BYTE m_Type = 0;
  WORD m_Digital = 0;
};

class PERSONA_EXPORT CSpCallSet : public CElementSet {
  DECLARE_SERIAL(CSpCallSet)
 public:
  // An empty set of type 5 with the ID range 1 to 16382.
  CSpCallSet();
  // As CSpCallSet(); with reducedDefaults non-zero the range is 0 to 0.
  CSpCallSet(unsigned short t, int reducedDefaults);
  // Deep-copies the calls and copies the ID range.
  CSpCallSet(const CSpCallSet& src) = default;
  // Replaces every call with copies of src's, copies the name, set type, scope and ID range.
  // Assigning a set to itself does nothing. Returns this set.
  CSpCallSet& operator=(const CSpCallSet* src);
  CSpCallSet& operator=(const CSpCallSet& src) { return *this = &src; }
  ~CSpCallSet() override = default;

  // 1 when the call counts, LidLow and LidHigh are equal and the calls are equal pairwise,
  // else 0.
  int operator==(const CSpCallSet& other) const;

  // Returns the call at index (the set keeps it), or null when index is not below the count.
  CSpCall* GetCallAt(unsigned short index) const;
  // Returns the position of the first call named name (case-sensitive), or -1 (always for an
  // empty name).
  int FindCallIndex(const CString& name) const;

  WORD GetLidLow() const { return m_LidLow; }
  void SetLidLow(WORD v) { m_LidLow = v; }
  WORD GetLidHigh() const { return m_LidHigh; }
  void SetLidHigh(WORD v) { m_LidHigh = v; }

  // Appends the set's heading, its ID range and its call table (calls numbered from 1). elementEnd,
  // when given, is called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int setNumber,
                     const ElementLinesEnd* elementEnd = nullptr) const;

  // The CSet part, then LidLow, LidHigh.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("LidLow", m_LidLow);
    v("LidHigh", m_LidHigh);
  }
  PERSONA_FIELDS(CElementSet)

 private:
  WORD m_LidLow = 1;
  WORD m_LidHigh = 16382;
};

}  // namespace persona
