// Telephone call lists. A CPhoneCall is a named dial string with its display mode and
// switches; a CPhoneSet (set type 3) is the named list of them.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The report words of the coded fields of CPhoneCall (a code indexes its list); the report
// lines and the field descriptions share them.
namespace phone_call_words {
inline constexpr const char* const kDisplayWords[] = {"Alpha & Numeric", "Alpha", "Numeric"};
}  // namespace phone_call_words

class PERSONA_EXPORT CPhoneCall : public CObject {
  DECLARE_SERIAL(CPhoneCall)
 public:
  // Every field 0 or empty.
  CPhoneCall() = default;
  // The same; the arguments are not used.
  CPhoneCall(unsigned short t, int reducedDefaults);
  CPhoneCall(const CPhoneCall&) = default;
  CPhoneCall& operator=(const CPhoneCall&) = default;
  // Copies every field of src (null: nothing); returns this call.
  CPhoneCall& operator=(const CPhoneCall* src);
  ~CPhoneCall() override = default;

  // 1 when Name, Number (case-sensitive), Display, Digital and Encrypted are equal, else 0.
  int operator==(const CPhoneCall& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  CString GetNumber() const { return m_Number; }
  void SetNumber(CString v) { m_Number = std::move(v); }
  // 0 Alpha & Numeric, 1 Alpha, 2 Numeric.
  WORD GetDisplay() const { return m_Display; }
  void SetDisplay(WORD v) { m_Display = v; }
  BYTE GetDigital() const { return m_Digital; }
  void SetDigital(BYTE v) { m_Digital = v; }
  BYTE GetEncrypted() const { return m_Encrypted; }
  void SetEncrypted(BYTE v) { m_Encrypted = v; }

  // Name, Number, Display, Digital; Encrypted from schema 2. A loaded Number of exactly one
  // blank becomes empty.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("Number", m_Number);
    v("Display", m_Display, WordsOf(phone_call_words::kDisplayWords));
    v("Digital", m_Digital, OnOff{});
    v("Encrypted", m_Encrypted, Since{2}, OnOff{});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  CString m_Number;
  WORD m_Display = 0;
  BYTE m_Digital = 0;
  BYTE m_Encrypted = 0;
};

class PERSONA_EXPORT CPhoneSet : public CElementSet {
  DECLARE_SERIAL(CPhoneSet)
 public:
  // An empty set of type 3.
  CPhoneSet();
  // The same; the arguments are not used.
  CPhoneSet(unsigned short t, int reducedDefaults);
  CPhoneSet(const CPhoneSet& src) = default;
  // Replaces every call with copies of src's, copies the name, set type and scope. Assigning a
  // set to itself does nothing. Returns this set.
  CPhoneSet& operator=(const CPhoneSet* src);
  CPhoneSet& operator=(const CPhoneSet& src) { return *this = &src; }
  ~CPhoneSet() override = default;

  // 1 when the call counts are equal and the calls are equal pairwise, else 0.
  int operator==(const CPhoneSet& other) const;

  // Returns the call at index (the set keeps it), or null when index is not below the count.
  CPhoneCall* GetCallAt(unsigned short index) const;
  // Returns the position of the first call named name (case-sensitive), or -1 (always for an
  // empty name).
  int FindCallIndex(const CString& name) const;

  // Appends the set's heading and its call table; calls are numbered firstCall + position.
  // elementEnd, when given, is called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int setNumber, unsigned short firstCall,
                     const ElementLinesEnd* elementEnd = nullptr) const;

  // The CSet part only.
  void Serialize(CArchive& ar) override;
};

}  // namespace persona
