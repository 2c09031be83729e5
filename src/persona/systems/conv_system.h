// CConvSystem: the conventional system record: Type 99 decode switches, DTMF, tone set and
// sequence, Channel Guard selection, and the conventional channel and phone sets it uses.
#pragma once

#include <persona/export.h>

#include <persona/systems/system.h>

namespace persona {

class PERSONA_EXPORT CConvSystem : public CSystem {
  DECLARE_SERIAL(CConvSystem)
 public:
  // Every field 0 or empty (the system type too: the creator sets 1).
  CConvSystem() = default;
  // The CSystem model defaults; this class's own fields as the default constructor.
  CConvSystem(unsigned short radioType, int reducedDefaults);
  // Copies every field except the schema latch and the alternate PTT index (the copy's is 0).
  CConvSystem(const CConvSystem& src) = default;
  // Copies every field except the schema latch and the alternate PTT index, which keep their
  // values; returns this system. A null src copies nothing.
  CConvSystem& operator=(const CConvSystem* src);
  CConvSystem& operator=(const CConvSystem& src) = default;
  ~CConvSystem() override = default;

  BYTE GetT99wcg() const { return m_T99wcg; }
  void SetT99wcg(BYTE v) { m_T99wcg = v; }
  BYTE GetT99Super() const { return m_T99Super; }
  void SetT99Super(BYTE v) { m_T99Super = v; }
  BYTE GetT99Group() const { return m_T99Group; }
  void SetT99Group(BYTE v) { m_T99Group = v; }
  BYTE GetT99IndvDec() const { return m_T99IndvDec; }
  void SetT99IndvDec(BYTE v) { m_T99IndvDec = v; }
  BYTE GetT99QuickCall() const { return m_T99QuickCall; }
  void SetT99QuickCall(BYTE v) { m_T99QuickCall = v; }
  BYTE GetDTMF() const { return m_DTMF; }
  void SetDTMF(BYTE v) { m_DTMF = v; }
  WORD GetToneSet() const { return m_ToneSet; }
  void SetToneSet(WORD v) { m_ToneSet = v; }
  CString GetConvSetName() const { return m_ConvSetName; }
  void SetConvSetName(CString v) { m_ConvSetName = std::move(v); }
  CString GetPhoneSetName() const { return m_PhoneSetName; }
  void SetPhoneSetName(CString v) { m_PhoneSetName = std::move(v); }
  BYTE GetToneSeq() const { return m_ToneSeq; }
  void SetToneSeq(BYTE v) { m_ToneSeq = v; }
  // Held in memory only: never archived, copied or assigned.
  BYTE GetAltPttIndex() const { return m_AltPttIndex.value; }
  void SetAltPttIndex(BYTE v) { m_AltPttIndex.value = v; }
  BYTE GetCgSel() const { return m_CgSel; }
  void SetCgSel(BYTE v) { m_CgSel = v; }

  // After the CSystem part: the Type 99 and DTMF switches, tone set, the two set names, tone
  // sequence, and from schema 8 the Channel Guard selection.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("T99wcg", m_T99wcg);
    v("T99Super", m_T99Super);
    v("T99Group", m_T99Group);
    v("T99IndvDec", m_T99IndvDec);
    v("T99QuickCall", m_T99QuickCall);
    v("DTMF", m_DTMF);
    v("ToneSet", m_ToneSet);
    v("ConvSetName", m_ConvSetName, RefersTo{RefKind::Set, ConvSetType});
    v("PhoneSetName", m_PhoneSetName, RefersTo{RefKind::Set, PhoneSetType});
    v("ToneSeq", m_ToneSeq);
    v("AltPttIndex", m_AltPttIndex.value, Transient{});
    v("CgSel", m_CgSel, Since{8});
  }
  PERSONA_FIELDS(CSystem)

 private:
  // A byte that copies and assignments do not carry.
  struct Uncopied {
    Uncopied() = default;
    Uncopied(const Uncopied&) {}
    Uncopied& operator=(const Uncopied&) { return *this; }
    BYTE value = 0;
  };

  BYTE m_T99wcg = 0;
  BYTE m_T99Super = 0;
  BYTE m_T99Group = 0;
  BYTE m_T99IndvDec = 0;
  BYTE m_T99QuickCall = 0;
  BYTE m_DTMF = 0;
  WORD m_ToneSet = 0;
  CString m_ConvSetName;
  CString m_PhoneSetName;
  BYTE m_ToneSeq = 0;
  Uncopied m_AltPttIndex;
  BYTE m_CgSel = 0;
};

}  // namespace persona
