// Individual call lists. A CICall is a named individual or all call addressed by a logical ID;
// a CICallSet (set type 4) is the named list of them.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The report words of the coded fields of CICall (a code indexes its list); the report
// lines and the field descriptions share them.
namespace icall_words {
inline constexpr const char* const kDisplayWords[] = {"Alph & Num", "Alpha", "Num"};
inline constexpr const char* const kTypeWords[] = {"Ind Call", "All Call"};
}  // namespace icall_words

class PERSONA_EXPORT CICall : public CObject {
  DECLARE_SERIAL(CICall)
 public:
  // Every field 0 or empty.
  CICall() = default;
  // The same; the arguments are not used.
  CICall(unsigned short t, int reducedDefaults);
  CICall(const CICall&) = default;
  CICall& operator=(const CICall&) = default;
  // Copies every field of src (null: nothing); returns this call.
  CICall& operator=(const CICall* src);
  ~CICall() override = default;

  // 1 when Name, Lid, Display, DLid, Type, WaNetName, Encrypted and AllCall are equal
  // (Digital takes no part), else 0.
  int operator==(const CICall& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  // The 16-bit logical ID of the oldest files; a load moves it into DLid, so it is 0 after a
  // load or a store.
  WORD GetLid() const { return m_Lid; }
  void SetLid(WORD v) { m_Lid = v; }
  // 0 Alph & Num, 1 Alpha, 2 Num.
  WORD GetDisplay() const { return m_Display; }
  void SetDisplay(WORD v) { m_Display = v; }
  // 0 Ind Call, 1 All Call.
  WORD GetType() const { return m_Type; }
  void SetType(WORD v) { m_Type = v; }
  BYTE GetDigital() const { return m_Digital; }
  void SetDigital(BYTE v) { m_Digital = v; }
  // The logical ID.
  DWORD GetDLid() const { return m_DLid; }
  void SetDLid(DWORD v) { m_DLid = v; }
  // Name of the wide-area network the call belongs to.
  CString GetWaNetName() const { return m_WaNetName; }
  void SetWaNetName(CString v) { m_WaNetName = std::move(v); }
  LONG GetEncrypted() const { return m_Encrypted; }
  void SetEncrypted(LONG v) { m_Encrypted = v; }
  LONG GetAllCall() const { return m_AllCall; }
  void SetAllCall(LONG v) { m_AllCall = v; }

  // Name, Lid (always written as 0: storing clears it first), Display, Type, Digital; DLid
  // from schema 2; WaNetName, Encrypted, AllCall from schema 3. A loaded Lid above 0 moves
  // into DLid.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("Lid", m_Lid);
    v("Display", m_Display, WordsOf(icall_words::kDisplayWords));
    v("Type", m_Type, WordsOf(icall_words::kTypeWords));
    v("Digital", m_Digital, OnOff{});
    v("DLid", m_DLid, Since{2});
    v("WaNetName", m_WaNetName, Since{3}, RefersTo{RefKind::Wan});
    v("Encrypted", m_Encrypted, Since{3}, OnOff{});
    v("AllCall", m_AllCall, Since{3});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  WORD m_Lid = 0;
  WORD m_Display = 0;
  WORD m_Type = 0;
  BYTE m_Digital = 0;
  DWORD m_DLid = 0;
  CString m_WaNetName;
  LONG m_Encrypted = 0;
  LONG m_AllCall = 0;
};

class PERSONA_EXPORT CICallSet : public CElementSet {
  DECLARE_SERIAL(CICallSet)
 public:
  // An empty set of type 4.
  CICallSet();
  // The same; the arguments are not used.
  CICallSet(unsigned short t, int reducedDefaults);
  CICallSet(const CICallSet& src) = default;
  // Replaces every call with copies of src's, copies the name, set type and scope. Assigning a
  // set to itself does nothing. Returns this set.
  CICallSet& operator=(const CICallSet* src);
  CICallSet& operator=(const CICallSet& src) { return *this = &src; }
  ~CICallSet() override = default;

  // 1 when the call counts are equal and the calls are equal pairwise, else 0.
  int operator==(const CICallSet& other) const;

  // Returns the call at index (the set keeps it), or null when index is not below the count.
  CICall* GetCallAt(unsigned short index) const;
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
