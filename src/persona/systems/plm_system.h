// CPlmSystem: the messaging ("Pellam") system record: call and decode switches, tone lengths,
// special-call and individual-decode tone tables, the trunk, group and special-call sets it
// uses and the systems it scans.
#pragma once

#include <persona/export.h>

#include <persona/systems/system.h>

namespace persona {

class PERSONA_EXPORT CPlmSystem : public CSystem {
  DECLARE_SERIAL(CPlmSystem)
 public:
  // Collect tone length 20, busy tone length 90, every other field 0 or empty (the system type
  // too: the creator sets 2).
  CPlmSystem() = default;
  // The CSystem model defaults; with reducedDefaults non-zero both tone lengths start at 0.
  CPlmSystem(unsigned short radioType, int reducedDefaults);
  CPlmSystem(const CPlmSystem& src) = default;
  // Copies every field except the schema latch; returns this. A null src copies nothing.
  CPlmSystem& operator=(const CPlmSystem* src);
  CPlmSystem& operator=(const CPlmSystem& src) = default;
  ~CPlmSystem() override = default;

  static constexpr int kNumTones = 4;

  BYTE GetBusyToneType() const { return m_BusyToneType; }
  void SetBusyToneType(BYTE v) { m_BusyToneType = v; }
  BYTE GetindDecAlarm() const { return m_indDecAlarm; }
  void SetindDecAlarm(BYTE v) { m_indDecAlarm = v; }
  BYTE GetAutoInterConnect() const { return m_AutoInterConnect; }
  void SetAutoInterConnect(BYTE v) { m_AutoInterConnect = v; }
  BYTE GetIndvDecWStar() const { return m_IndvDecWStar; }
  void SetIndvDecWStar(BYTE v) { m_IndvDecWStar = v; }
  BYTE GetDispOvdl() const { return m_DispOvdl; }
  void SetDispOvdl(BYTE v) { m_DispOvdl = v; }
  BYTE GetFastBusy() const { return m_FastBusy; }
  void SetFastBusy(BYTE v) { m_FastBusy = v; }
  BYTE GetDuplex() const { return m_Duplex; }
  void SetDuplex(BYTE v) { m_Duplex = v; }
  BYTE GetDblDiscnct() const { return m_DblDiscnct; }
  void SetDblDiscnct(BYTE v) { m_DblDiscnct = v; }
  WORD GetCollectToneLen() const { return m_CollectToneLen; }
  void SetCollectToneLen(WORD v) { m_CollectToneLen = v; }
  WORD GetBusyToneLen() const { return m_BusyToneLen; }
  void SetBusyToneLen(WORD v) { m_BusyToneLen = v; }
  // Tone i (0 .. 3) of the two tables; a position outside reads 0 and is not written.
  WORD GetSpCallTone(int i) const { return ToneAt(m_SpCallTone, i); }
  void SetSpCallTone(int i, WORD v) { SetToneAt(m_SpCallTone, i, v); }
  WORD GetIndvDecTone(int i) const { return ToneAt(m_IndvDecTone, i); }
  void SetIndvDecTone(int i, WORD v) { SetToneAt(m_IndvDecTone, i, v); }
  CString GetTrunkSetName() const { return m_TrunkSetName; }
  void SetTrunkSetName(CString v) { m_TrunkSetName = std::move(v); }
  CString GetGroupSetName() const { return m_GroupSetName; }
  void SetGroupSetName(CString v) { m_GroupSetName = std::move(v); }
  CString GetSpCallSetName() const { return m_SpCallSetName; }
  void SetSpCallSetName(CString v) { m_SpCallSetName = std::move(v); }

  // Scanned systems: the same operations as CTrunkSystem's.
  void GetScannedSystems(CStringArray& names) const { scan_list::CopyTo(m_ScannedSystems, names); }
  void SetScannedSystems(const CStringArray& names) { scan_list::CopyTo(names, m_ScannedSystems); }
  CString GetScannedSystemAt(int i) const { return scan_list::At(m_ScannedSystems, i); }
  void SetScannedSystemAt(CString name, int i) { scan_list::SetAt(m_ScannedSystems, name, i); }
  void DeleteScannedSystemAt(int i) { scan_list::DeleteAt(m_ScannedSystems, i); }
  int GetNumScannedSystems() const { return m_ScannedSystems.GetSize(); }

  // After the CSystem part: the eight switches, the two tone lengths, the two tone tables
  // interleaved (special-call tone i, then individual-decode tone i, for i = 0 .. 3), the three
  // set names, and from schema 2 the scanned-system list.
  void Serialize(CArchive& ar) override;

  // Listed in declaration order; Serialize writes the tone tables interleaved.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("BusyToneType", m_BusyToneType);
    v("indDecAlarm", m_indDecAlarm);
    v("AutoInterConnect", m_AutoInterConnect);
    v("IndvDecWStar", m_IndvDecWStar);
    v("DispOvdl", m_DispOvdl);
    v("FastBusy", m_FastBusy);
    v("Duplex", m_Duplex);
    v("DblDiscnct", m_DblDiscnct);
    v("CollectToneLen", m_CollectToneLen);
    v("BusyToneLen", m_BusyToneLen);
    v("SpCallTone", m_SpCallTone);
    v("IndvDecTone", m_IndvDecTone);
    v("TrunkSetName", m_TrunkSetName, RefersTo{RefKind::Set, TrunkSetType});
    v("GroupSetName", m_GroupSetName, RefersTo{RefKind::Set, kGroupSetOfSystem});
    v("SpCallSetName", m_SpCallSetName, RefersTo{RefKind::Set, PlmSpCallSetType});
    v("ScannedSystems", m_ScannedSystems, Since{2}, RefersTo{RefKind::System});
  }
  PERSONA_FIELDS(CSystem)

 private:
  static WORD ToneAt(const WORD (&tones)[kNumTones], int i) {
    return i >= 0 && i < kNumTones ? tones[i] : 0;
  }
  static void SetToneAt(WORD (&tones)[kNumTones], int i, WORD v) {
    if (i >= 0 && i < kNumTones) tones[i] = v;
  }

  BYTE m_BusyToneType = 0;
  BYTE m_indDecAlarm = 0;
  BYTE m_AutoInterConnect = 0;
  BYTE m_IndvDecWStar = 0;
  BYTE m_DispOvdl = 0;
  BYTE m_FastBusy = 0;
  BYTE m_Duplex = 0;
  BYTE m_DblDiscnct = 0;
  WORD m_CollectToneLen = 20;
  WORD m_BusyToneLen = 90;
  WORD m_SpCallTone[kNumTones] = {0, 0, 0, 0};
  WORD m_IndvDecTone[kNumTones] = {0, 0, 0, 0};
  CString m_TrunkSetName;
  CString m_GroupSetName;
  CString m_SpCallSetName;
  CStringArray m_ScannedSystems;
};

}  // namespace persona
