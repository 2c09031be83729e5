// Special call lists of the messaging (Pellam) system. A CPlmSpCall is a named special call
// (telephone, DTMF or overdial) with its number and four tone numbers; a CPlmSpCallSet (set
// type 7) is the named list of them.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The report words of the coded fields of CPlmSpCall (a code indexes its list); the report
// lines and the field descriptions share them.
namespace plm_sp_call_words {
inline constexpr const char* const kTypeWords[] = {"Telephone", "DTMF", "Overdial"};
}  // namespace plm_sp_call_words

class PERSONA_EXPORT CPlmSpCall : public CObject {
  DECLARE_SERIAL(CPlmSpCall)
 public:
  // Every field 0 or empty.
  CPlmSpCall() = default;
  // The same; the arguments are not used.
  CPlmSpCall(unsigned short t, int reducedDefaults);
  CPlmSpCall(const CPlmSpCall&) = default;
  CPlmSpCall& operator=(const CPlmSpCall&) = default;
  // Copies every field of src (null: nothing); returns this call.
  CPlmSpCall& operator=(const CPlmSpCall* src);
  ~CPlmSpCall() override = default;

  // 1 when Name, Number (case-sensitive), Type and the four tones are equal, else 0.
  int operator==(const CPlmSpCall& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  CString GetNumber() const { return m_Number; }
  void SetNumber(CString v) { m_Number = std::move(v); }
  // 0 Telephone, 1 DTMF, 2 Overdial.
  BYTE GetType() const { return m_Type; }
  void SetType(BYTE v) { m_Type = v; }
  // Tone i (0 to 3); an index outside 0 to 3 reads 0 and writes nothing.
  WORD GetTone(int i) const { return i >= 0 && i < 4 ? m_Tone[i] : 0; }
  void SetTone(int i, WORD v) {
    if (i >= 0 && i < 4) m_Tone[i] = v;
  }

  // Name, Number, Type (8 bits), the four tones (index 0 first).
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("Number", m_Number);
    v("Type", m_Type, WordsOf(plm_sp_call_words::kTypeWords));
    v("Tone", m_Tone);
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  CString m_Number;
  BYTE m_Type = 0;
  WORD m_Tone[4] = {0, 0, 0, 0};
};

class PERSONA_EXPORT CPlmSpCallSet : public CElementSet {
  DECLARE_SERIAL(CPlmSpCallSet)
 public:
  // An empty set of type 7.
  CPlmSpCallSet();
  // The same; the arguments are not used.
  CPlmSpCallSet(unsigned short t, int reducedDefaults);
  CPlmSpCallSet(const CPlmSpCallSet& src) = default;
  // Replaces every call with copies of src's, copies the name, set type and scope. Assigning a
  // set to itself does nothing. Returns this set.
  CPlmSpCallSet& operator=(const CPlmSpCallSet* src);
  CPlmSpCallSet& operator=(const CPlmSpCallSet& src) { return *this = &src; }
  ~CPlmSpCallSet() override = default;

  // 1 when the call counts are equal and the calls are equal pairwise, else 0.
  int operator==(const CPlmSpCallSet& other) const;

  // Returns the call at index (the set keeps it), or null when index is not below the count.
  CPlmSpCall* GetCallAt(unsigned short index) const;
  // Returns the position of the first call named name (case-sensitive), or -1 (always for an
  // empty name).
  int FindCallIndex(const CString& name) const;

  // Appends the set's heading and its call table (calls numbered from 1). elementEnd, when given,
  // is called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int setNumber,
                     const ElementLinesEnd* elementEnd = nullptr) const;

  // The CSet part only.
  void Serialize(CArchive& ar) override;
};

}  // namespace persona
