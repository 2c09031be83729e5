// CTrunkSystem: the trunked system record, also the base of the extended-addressing and P25
// trunked systems. Names the trunk, group, phone, individual-call and special-call sets it
// uses, the systems it scans, a conventional priority channel, its own security key pair and
// the text-messaging host.
#pragma once

#include <persona/export.h>

#include <persona/systems/system.h>

namespace persona {

class PERSONA_EXPORT CTrunkSystem : public CSystem {
  DECLARE_SERIAL(CTrunkSystem)
 public:
  // Plain defaults: emergency audio, emergency display and power on, site 0, port 1027, data
  // LID 1, everything else empty or 0.
  CTrunkSystem();
  // The model's defaults: as the default constructor but site 1; with reducedDefaults non-zero
  // emergency audio, emergency display, power and site start at 0.
  CTrunkSystem(unsigned short radioType, int reducedDefaults);
  CTrunkSystem(const CTrunkSystem& src) = default;
  // Copies every field of this class and of CSystem except the schema latch; returns this.
  CTrunkSystem& operator=(const CTrunkSystem& src) = default;
  ~CTrunkSystem() override = default;

  BYTE GetEmerAudio() const { return m_EmerAudio; }
  void SetEmerAudio(BYTE v) { m_EmerAudio = v; }
  BYTE GetEmerDisplay() const { return m_EmerDisplay; }
  void SetEmerDisplay(BYTE v) { m_EmerDisplay = v; }
  BYTE GetPower() const { return m_Power; }
  void SetPower(BYTE v) { m_Power = v; }
  WORD GetFsChan() const { return m_FsChan; }
  void SetFsChan(WORD v) { m_FsChan = v; }
  WORD GetUnit() const { return m_Unit; }
  void SetUnit(WORD v) { m_Unit = v; }
  WORD GetSite() const { return m_Site; }
  void SetSite(WORD v) { m_Site = v; }
  CString GetTrunkSetName() const { return m_TrunkSetName; }
  void SetTrunkSetName(CString v) { m_TrunkSetName = std::move(v); }
  CString GetGroupSetName() const { return m_GroupSetName; }
  void SetGroupSetName(CString v) { m_GroupSetName = std::move(v); }
  CString GetPhoneSetName() const { return m_PhoneSetName; }
  void SetPhoneSetName(CString v) { m_PhoneSetName = std::move(v); }
  CString GetiCallSetName() const { return m_iCallSetName; }
  void SetiCallSetName(CString v) { m_iCallSetName = std::move(v); }
  CString GetSpCallSetName() const { return m_SpCallSetName; }
  void SetSpCallSetName(CString v) { m_SpCallSetName = std::move(v); }
  CString GetPriSys() const { return m_PriSys; }
  void SetPriSys(CString v) { m_PriSys = std::move(v); }
  BYTE GetScanAll() const { return m_ScanAll; }
  void SetScanAll(BYTE v) { m_ScanAll = v; }
  BYTE GetSonvra() const { return m_Sonvra; }
  void SetSonvra(BYTE v) { m_Sonvra = v; }
  CString GetCnvPriSystem() const { return m_CnvPriSystem; }
  void SetCnvPriSystem(CString v) { m_CnvPriSystem = std::move(v); }
  CString GetCnvPriChannel() const { return m_CnvPriChannel; }
  void SetCnvPriChannel(CString v) { m_CnvPriChannel = std::move(v); }
  BYTE GetCnvPriTx() const { return m_CnvPriTx; }
  void SetCnvPriTx(BYTE v) { m_CnvPriTx = v; }
  DWORD GetVeskaHostLid() const { return m_VeskaHostLid; }
  void SetVeskaHostLid(DWORD v) { m_VeskaHostLid = v; }
  WORD GetVeskaHostUdpPortNum() const { return m_VeskaHostUdpPortNum; }
  void SetVeskaHostUdpPortNum(WORD v) { m_VeskaHostUdpPortNum = v; }
  DWORD GetVeskaHostIpAddr() const { return m_VeskaHostIpAddr; }
  void SetVeskaHostIpAddr(DWORD v) { m_VeskaHostIpAddr = v; }
  WORD GetDataLid() const { return m_DataLid; }
  void SetDataLid(WORD v) { m_DataLid = v; }

  // The trunked system's own key pair (the CSystem pair is kept and archived beside it).
  WORD GetESK() const override { return m_TrkESK; }
  void SetESK(WORD esk) override { m_TrkESK = esk; }
  CString GetEskName() const override { return m_TrkEskName; }
  void SetEskName(CString name) override { m_TrkEskName = std::move(name); }

  // Scanned systems, in scan order. GetScannedSystems empties names and copies the list into
  // it; SetScannedSystems replaces the list with a copy of names; GetScannedSystemAt returns a
  // copy of one name; SetScannedSystemAt grows the list when i is not below the count;
  // DeleteScannedSystemAt removes one entry. Positions outside the list (negative ones for
  // SetScannedSystemAt) raise CInvalidArgException.
  void GetScannedSystems(CStringArray& names) const { scan_list::CopyTo(m_ScannedSystems, names); }
  void SetScannedSystems(const CStringArray& names) { scan_list::CopyTo(names, m_ScannedSystems); }
  CString GetScannedSystemAt(int i) const { return scan_list::At(m_ScannedSystems, i); }
  void SetScannedSystemAt(CString name, int i) { scan_list::SetAt(m_ScannedSystems, name, i); }
  void DeleteScannedSystemAt(int i) { scan_list::DeleteAt(m_ScannedSystems, i); }
  int GetNumScannedSystems() const { return m_ScannedSystems.GetSize(); }

  // After the CSystem part: the scanned-system list, the switches, numbers and set names, the
  // conventional priority channel, then by schema the key pair (3), the text-messaging host (8)
  // and the data LID (13).
  void Serialize(CArchive& ar) override;

  // Listed in archive order. The trunked key pair is named TrunkESK / TrunkEskName here, beside
  // the base pair's ESK / EskName.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("ScannedSystems", m_ScannedSystems, RefersTo{RefKind::System});
    v("EmerAudio", m_EmerAudio);
    v("EmerDisplay", m_EmerDisplay);
    v("Power", m_Power);
    v("FsChan", m_FsChan);
    v("Unit", m_Unit);
    v("Site", m_Site);
    v("TrunkSetName", m_TrunkSetName, RefersTo{RefKind::Set, TrunkSetType});
    v("GroupSetName", m_GroupSetName, RefersTo{RefKind::Set, kGroupSetOfSystem});
    v("PhoneSetName", m_PhoneSetName, RefersTo{RefKind::Set, PhoneSetType});
    v("iCallSetName", m_iCallSetName, RefersTo{RefKind::Set, ICallSetType});
    v("SpCallSetName", m_SpCallSetName, RefersTo{RefKind::Set, SpCallSetType});
    v("PriSys", m_PriSys, RefersTo{RefKind::System});
    v("ScanAll", m_ScanAll);
    v("Sonvra", m_Sonvra);
    v("CnvPriSystem", m_CnvPriSystem, RefersTo{RefKind::System});
    v("CnvPriChannel", m_CnvPriChannel, RefersTo{RefKind::Channel, 0, "CnvPriSystem"});
    v("CnvPriTx", m_CnvPriTx);
    v("TrunkESK", m_TrkESK, Since{3});
    v("TrunkEskName", m_TrkEskName, Since{3});
    v("VeskaHostLid", m_VeskaHostLid, Since{8});
    v("VeskaHostUdpPortNum", m_VeskaHostUdpPortNum, Since{8});
    v("VeskaHostIpAddr", m_VeskaHostIpAddr, Since{8});
    v("DataLid", m_DataLid, Since{13});
  }
  PERSONA_FIELDS(CSystem)

 private:
  CStringArray m_ScannedSystems;
  BYTE m_EmerAudio = 1;
  BYTE m_EmerDisplay = 1;
  BYTE m_Power = 1;
  WORD m_FsChan = 0;
  WORD m_Unit = 0;
  WORD m_Site = 0;
  CString m_TrunkSetName;
  CString m_GroupSetName;
  CString m_PhoneSetName;
  CString m_iCallSetName;
  CString m_SpCallSetName;
  CString m_PriSys;
  BYTE m_ScanAll = 0;
  BYTE m_Sonvra = 0;
  CString m_CnvPriSystem;
  CString m_CnvPriChannel;
  BYTE m_CnvPriTx = 0;
  WORD m_TrkESK = 0;
  CString m_TrkEskName;
  DWORD m_VeskaHostLid = 0;
  WORD m_VeskaHostUdpPortNum = 1027;
  DWORD m_VeskaHostIpAddr = 0;
  WORD m_DataLid = 1;
};

}  // namespace persona
