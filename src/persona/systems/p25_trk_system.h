// CP25TrkSystem: the P25 trunked system: a trunked system with its wide-area network names,
// network access code, registration, encryption key IDs, channel defaults, RFSS and site IDs,
// and four spare values that are kept as they are.
#pragma once

#include <persona/export.h>

#include <persona/systems/trunk_system.h>

namespace persona {

class PERSONA_EXPORT CP25TrkSystem : public CTrunkSystem {
  DECLARE_SERIAL(CP25TrkSystem)
 public:
  // Unit registration mode; the codes are stored as they are.
  enum UnitRegType : LONG { UnitRegDefault = 0 };

  // Trunked defaults with system type 5; FNE data LID 0xFFFFFD, every other field 0 or empty.
  CP25TrkSystem();
  // The trunked model defaults (see CTrunkSystem) with system type 5 and the defaults above.
  CP25TrkSystem(unsigned short radioType, int reducedDefaults);
  CP25TrkSystem(const CP25TrkSystem& src) = default;
  // Copies every field, the spare values included, except the schema latch; returns this.
  CP25TrkSystem& operator=(const CP25TrkSystem& src) = default;
  ~CP25TrkSystem() override = default;

  CString GetWaNetName() const { return m_WaNetName; }
  void SetWaNetName(CString v) { m_WaNetName = std::move(v); }
  CString GetHomeWanName() const { return m_HomeWanName; }
  void SetHomeWanName(CString v) { m_HomeWanName = std::move(v); }
  WORD GetSystemNac() const { return m_SystemNac; }
  void SetSystemNac(WORD v) { m_SystemNac = v; }
  DWORD GetHomeUnitId() const { return m_HomeUnitId; }
  void SetHomeUnitId(DWORD v) { m_HomeUnitId = v; }
  WORD GetFreqOffset() const { return m_FreqOffset; }
  void SetFreqOffset(WORD v) { m_FreqOffset = v; }
  BYTE GetSonvraScanType() const { return m_SonvraScanType; }
  void SetSonvraScanType(BYTE v) { m_SonvraScanType = v; }
  BOOL GetSimulcastEnabled() const { return m_SimulcastEnabled; }
  void SetSimulcastEnabled(BOOL v) { m_SimulcastEnabled = v; }
  UnitRegType GetUnitReg() const { return static_cast<UnitRegType>(m_UnitReg); }
  void SetUnitReg(UnitRegType v) { m_UnitReg = static_cast<LONG>(v); }
  BYTE GetAlgorithmId() const { return m_AlgorithmId; }
  void SetAlgorithmId(BYTE v) { m_AlgorithmId = v; }
  WORD GetDefaultKeyId() const { return m_DefaultKeyId; }
  void SetDefaultKeyId(WORD v) { m_DefaultKeyId = v; }
  WORD GetPhoneKeyid() const { return m_PhoneKeyid; }
  void SetPhoneKeyid(WORD v) { m_PhoneKeyid = v; }
  WORD GetIcallKeyid() const { return m_IcallKeyid; }
  void SetIcallKeyid(WORD v) { m_IcallKeyid = v; }
  WORD GetAllCallKeyId() const { return m_AllCallKeyId; }
  void SetAllCallKeyId(WORD v) { m_AllCallKeyId = v; }
  BYTE GetRegTimer() const { return m_RegTimer; }
  void SetRegTimer(BYTE v) { m_RegTimer = v; }
  WORD GetDefaultBandwidth() const { return m_DefaultBandwidth; }
  void SetDefaultBandwidth(WORD v) { m_DefaultBandwidth = v; }
  short GetDefaultTxOffset() const { return m_DefaultTxOffset; }
  void SetDefaultTxOffset(short v) { m_DefaultTxOffset = v; }
  WORD GetDefaultChnlSpacing() const { return m_DefaultChnlSpacing; }
  void SetDefaultChnlSpacing(WORD v) { m_DefaultChnlSpacing = v; }
  DWORD GetDefaultBaseFreq() const { return m_DefaultBaseFreq; }
  void SetDefaultBaseFreq(DWORD v) { m_DefaultBaseFreq = v; }
  WORD GetRfssId() const { return m_RfssId; }
  void SetRfssId(WORD v) { m_RfssId = v; }
  WORD GetSiteId() const { return m_SiteId; }
  void SetSiteId(WORD v) { m_SiteId = v; }
  BYTE GetCcTxReq() const { return m_CcTxReq; }
  void SetCcTxReq(BYTE v) { m_CcTxReq = v; }
  DWORD GetFneDataLid() const { return m_FneDataLid; }
  void SetFneDataLid(DWORD v) { m_FneDataLid = v; }

  // After the whole trunked part: network name, codes and spares, key IDs, channel defaults,
  // home WAN and unit ID, then by schema the RFSS and site IDs (10), the control-channel
  // transmit request (11) and the FNE data LID (13).
  void Serialize(CArchive& ar) override;

  // Listed in archive order (the home unit ID follows the home WAN name).
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("WaNetName", m_WaNetName, RefersTo{RefKind::Wan});
    v("SystemNac", m_SystemNac, Hex{});
    v("p25Spare1", m_p25Spare1);
    v("FreqOffset", m_FreqOffset);
    v("p25Spare2", m_p25Spare2);
    v("SonvraScanType", m_SonvraScanType);
    v("SimulcastEnabled", m_SimulcastEnabled);
    v("UnitReg", m_UnitReg);
    v("p25Spare3", m_p25Spare3);
    v("AlgorithmId", m_AlgorithmId);
    v("DefaultKeyId", m_DefaultKeyId);
    v("p25Spare4", m_p25Spare4);
    v("PhoneKeyid", m_PhoneKeyid);
    v("IcallKeyid", m_IcallKeyid);
    v("AllCallKeyId", m_AllCallKeyId);
    v("RegTimer", m_RegTimer);
    v("DefaultBandwidth", m_DefaultBandwidth);
    v("DefaultTxOffset", m_DefaultTxOffset);
    v("DefaultChnlSpacing", m_DefaultChnlSpacing);
    v("DefaultBaseFreq", m_DefaultBaseFreq);
    v("HomeWanName", m_HomeWanName, RefersTo{RefKind::Wan});
    v("HomeUnitId", m_HomeUnitId);
    v("RfssId", m_RfssId, Since{10}, Hex{});
    v("SiteId", m_SiteId, Since{10}, Hex{});
    v("CcTxReq", m_CcTxReq, Since{11});
    v("FneDataLid", m_FneDataLid, Since{13});
  }
  PERSONA_FIELDS(CTrunkSystem)

 private:
  CString m_WaNetName;
  WORD m_SystemNac = 0;
  DWORD m_p25Spare1 = 0;
  WORD m_FreqOffset = 0;
  DWORD m_p25Spare2 = 0;
  BYTE m_SonvraScanType = 0;
  LONG m_SimulcastEnabled = 0;
  LONG m_UnitReg = 0;
  BYTE m_p25Spare3 = 0;
  BYTE m_AlgorithmId = 0;
  WORD m_DefaultKeyId = 0;
  WORD m_p25Spare4 = 0;
  WORD m_PhoneKeyid = 0;
  WORD m_IcallKeyid = 0;
  WORD m_AllCallKeyId = 0;
  BYTE m_RegTimer = 0;
  WORD m_DefaultBandwidth = 0;
  short m_DefaultTxOffset = 0;
  WORD m_DefaultChnlSpacing = 0;
  DWORD m_DefaultBaseFreq = 0;
  CString m_HomeWanName;
  DWORD m_HomeUnitId = 0;
  WORD m_RfssId = 0;
  WORD m_SiteId = 0;
  BYTE m_CcTxReq = 0;
  DWORD m_FneDataLid = 0xFFFFFD;
};

}  // namespace persona
