// Conventional channels and channel sets. A CConvChannel is one analogue or
// conventional-signalling channel (frequencies, channel guard, Type 99, VANTOR, DTMF and
// multitone signalling, power and oscillator settings, model option blocks); a CConvSet (set
// type 1) is the named list of them with the set-wide frequency limits, the names of its home,
// priority, wide-scan and alternate-PTT channels and the set-wide DTMF and Type 99 options.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The report words of the coded fields of CConvChannel (a code indexes its list); the report
// lines and the field descriptions share them.
namespace conv_channel_words {
inline constexpr const char* const kBandWidthWords[] = {"Wide", "Narrow"};
inline constexpr const char* const kICallWords[] = {"Dis", "Enable", "Enable w/Ack"};
inline constexpr const char* const kLoInjectionWords[] = {"Local", "Distant"};
inline constexpr const char* const kLowHighWords[] = {"Low", "High"};
inline constexpr const char* const kMessTypeWords[] = {"ZVEI1", "ZVEI2", "PZVEI", "DZVEI", "PDZVEI",
                                                       "CCIR",  "PCCIR", "EEA",   "EIA"};
inline constexpr const char* const kPowerWords[] = {"Low", "High", "Auto"};
inline constexpr const char* const kT99TableWords[] = {"Dis", "1", "2", "3"};
inline constexpr const char* const kUsaPowerWords[] = {"20", "30", "40"};
inline constexpr const char* const kVantorSendWords[] = {"None", "Begin", "End", "Both"};
inline constexpr const char* const kVoiceModeWords[] = {
    "Analog", "Key 1", "Key 2", "Key 3", "Key 4", "Key 5", "Key 6", "Key 7", "Unencrypted"};
}  // namespace conv_channel_words

class PERSONA_EXPORT CConvChannel : public CObject {
  DECLARE_SERIAL(CConvChannel)
 public:
  // The plain defaults: addresses 85, Backlight, AlertTone, Power, CtrlUnitOscShift,
  // T99AndRxCg, CgSel and Talkaround 1, OscShift 2, UsaPower 2, EuroPower 12, the rest 0/empty.
  CConvChannel() = default;
  // The defaults of radio type t: Power 1 (0 with reducedDefaults), T99Table 1 for 29, 30 and
  // 33, OscShift 3 for 88, 89, 94, 95, 101, 102, 104 to 106; with reducedDefaults non-zero also
  // Backlight 0, and OscShift and AlertTone 0 for the newer models (AlertTone also for 54, 64,
  // 4150).
  CConvChannel(unsigned short t, int reducedDefaults);
  CConvChannel(const CConvChannel&) = default;
  CConvChannel& operator=(const CConvChannel&) = default;
  // Copies every field of src (null: nothing); returns this channel.
  CConvChannel& operator=(const CConvChannel* src);
  ~CConvChannel() override = default;

  // 1 when the names and channel guards are equal (case-sensitive), the frequencies fall into
  // the same 10 Hz steps and every other field is equal, else 0.
  int operator==(const CConvChannel& other) const;

  // Accessors: getters return the field (strings as copies), setters store their argument
  // unchanged; no value is range-checked.
  // Channel name.
  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  // Transmit frequency, MHz; 0 = receive only.
  double GetTxFreq() const { return m_TxFreq; }
  void SetTxFreq(double v) { m_TxFreq = v; }
  // Receive frequency, MHz.
  double GetRxFreq() const { return m_RxFreq; }
  void SetRxFreq(double v) { m_RxFreq = v; }
  // Transmit channel guard code.
  CString GetTxCg() const { return m_TxCg; }
  void SetTxCg(CString v) { m_TxCg = std::move(v); }
  // Receive channel guard code.
  CString GetRxCg() const { return m_RxCg; }
  void SetRxCg(CString v) { m_RxCg = std::move(v); }
  WORD GetTxAddr() const { return m_TxAddr; }
  void SetTxAddr(WORD v) { m_TxAddr = v; }
  WORD GetRxAddr() const { return m_RxAddr; }
  void SetRxAddr(WORD v) { m_RxAddr = v; }
  // Carrier control timer.
  BYTE GetCCT() const { return m_CCT; }
  void SetCCT(BYTE v) { m_CCT = v; }
  BYTE GetScan() const { return m_Scan; }
  void SetScan(BYTE v) { m_Scan = v; }
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }
  BYTE GetAlertTone() const { return m_AlertTone; }
  void SetAlertTone(BYTE v) { m_AlertTone = v; }
  // 0 Low, 1 High, 2 Auto
  BYTE GetPower() const { return m_Power; }
  void SetPower(BYTE v) { m_Power = v; }
  // Transmit-busy lockout.
  BYTE GetTxBusy() const { return m_TxBusy; }
  void SetTxBusy(BYTE v) { m_TxBusy = v; }
  BYTE GetFixPower() const { return m_FixPower; }
  void SetFixPower(BYTE v) { m_FixPower = v; }
  BYTE GetPreAmp() const { return m_PreAmp; }
  void SetPreAmp(BYTE v) { m_PreAmp = v; }
  // Squelch tail elimination on transmit.
  BYTE GetSte() const { return m_Ste; }
  void SetSte(BYTE v) { m_Ste = v; }
  // Squelch tail elimination on receive.
  BYTE GetSteRx() const { return m_SteRx; }
  void SetSteRx(BYTE v) { m_SteRx = v; }
  // Type 99 decode
  BYTE GetT99() const { return m_T99; }
  void SetT99(BYTE v) { m_T99 = v; }
  // 0 disabled, 1 to 3
  WORD GetT99Table() const { return m_T99Table; }
  void SetT99Table(WORD v) { m_T99Table = v; }
  BYTE GetVantor() const { return m_Vantor; }
  void SetVantor(BYTE v) { m_Vantor = v; }
  BYTE GetVantorSte() const { return m_VantorSte; }
  void SetVantorSte(BYTE v) { m_VantorSte = v; }
  BYTE GetVantorCg() const { return m_VantorCg; }
  void SetVantorCg(BYTE v) { m_VantorCg = v; }
  // 0 None, 1 Begin, 2 End, 3 Both
  WORD GetVantorSend() const { return m_VantorSend; }
  void SetVantorSend(WORD v) { m_VantorSend = v; }
  BYTE GetT99SuperGrp() const { return m_T99SuperGrp; }
  void SetT99SuperGrp(BYTE v) { m_T99SuperGrp = v; }
  BYTE GetT99Grp() const { return m_T99Grp; }
  void SetT99Grp(BYTE v) { m_T99Grp = v; }
  BYTE GetT99QuickCall() const { return m_T99QuickCall; }
  void SetT99QuickCall(BYTE v) { m_T99QuickCall = v; }
  BYTE GetT99Indv() const { return m_T99Indv; }
  void SetT99Indv(BYTE v) { m_T99Indv = v; }
  BYTE GetOs() const { return m_Os; }
  void SetOs(BYTE v) { m_Os = v; }
  WORD GetOscShift() const { return m_OscShift; }
  void SetOscShift(WORD v) { m_OscShift = v; }
  // 0 Analog, 1 to 7 Key 1 to 7, 8 Unencrypted
  WORD GetKwKey() const { return m_KwKey; }
  void SetKwKey(WORD v) { m_KwKey = v; }
  BYTE GetT99WithCg() const { return m_T99WithCg; }
  void SetT99WithCg(BYTE v) { m_T99WithCg = v; }
  // 0 Wide, 1 Narrow
  BYTE GetBandWidth() const { return m_BandWidth; }
  void SetBandWidth(BYTE v) { m_BandWidth = v; }
  BYTE GetToneEncode() const { return m_ToneEncode; }
  void SetToneEncode(BYTE v) { m_ToneEncode = v; }
  BYTE GetCtrlUnitOscShift() const { return m_CtrlUnitOscShift; }
  void SetCtrlUnitOscShift(BYTE v) { m_CtrlUnitOscShift = v; }
  BYTE GetDtmf() const { return m_Dtmf; }
  void SetDtmf(BYTE v) { m_Dtmf = v; }
  BYTE GetMultiTone() const { return m_MultiTone; }
  void SetMultiTone(BYTE v) { m_MultiTone = v; }
  // 0 ZVEI1 ... 8 EIA
  BYTE GetMessType() const { return m_MessType; }
  void SetMessType(BYTE v) { m_MessType = v; }
  // 0 Dis, 1 Enable, 2 Enable w/Ack
  BYTE GetICall() const { return m_ICall; }
  void SetICall(BYTE v) { m_ICall = v; }
  BYTE GetGroupCall() const { return m_GroupCall; }
  void SetGroupCall(BYTE v) { m_GroupCall = v; }
  BYTE GetAllCall() const { return m_AllCall; }
  void SetAllCall(BYTE v) { m_AllCall = v; }
  BYTE GetInterCall() const { return m_InterCall; }
  void SetInterCall(BYTE v) { m_InterCall = v; }
  BYTE GetRadioDis() const { return m_RadioDis; }
  void SetRadioDis(BYTE v) { m_RadioDis = v; }
  BYTE GetRadioEn() const { return m_RadioEn; }
  void SetRadioEn(BYTE v) { m_RadioEn = v; }
  BYTE GetResetCall() const { return m_ResetCall; }
  void SetResetCall(BYTE v) { m_ResetCall = v; }
  BYTE GetRepeater() const { return m_Repeater; }
  void SetRepeater(BYTE v) { m_Repeater = v; }
  BYTE GetTxInvDcg() const { return m_TxInvDcg; }
  void SetTxInvDcg(BYTE v) { m_TxInvDcg = v; }
  BYTE GetRxInvDcg() const { return m_RxInvDcg; }
  void SetRxInvDcg(BYTE v) { m_RxInvDcg = v; }
  BYTE GetTxOs() const { return m_TxOs; }
  void SetTxOs(BYTE v) { m_TxOs = v; }
  BYTE GetSignallingOrCG() const { return m_SignallingOrCG; }
  void SetSignallingOrCG(BYTE v) { m_SignallingOrCG = v; }
  BYTE GetT99AndRxCg() const { return m_T99AndRxCg; }
  void SetT99AndRxCg(BYTE v) { m_T99AndRxCg = v; }
  BYTE GetTxOscShift() const { return m_TxOscShift; }
  void SetTxOscShift(BYTE v) { m_TxOscShift = v; }
  BYTE GetRxOscShift() const { return m_RxOscShift; }
  void SetRxOscShift(BYTE v) { m_RxOscShift = v; }
  // 0 "20", 1 "30", 2 "40"
  BYTE GetUsaPower() const { return m_UsaPower; }
  void SetUsaPower(BYTE v) { m_UsaPower = v; }
  BYTE GetEuroPower() const { return m_EuroPower; }
  void SetEuroPower(BYTE v) { m_EuroPower = v; }
  // 0 Low, 1 High
  BYTE GetCgBusyLockout() const { return m_CgBusyLockout; }
  void SetCgBusyLockout(BYTE v) { m_CgBusyLockout = v; }
  // 0 Local, 1 Distant
  BYTE Get2ndLoInj() const { return m_2ndLoInj; }
  void Set2ndLoInj(BYTE v) { m_2ndLoInj = v; }
  BYTE GetSquelch() const { return m_Squelch; }
  void SetSquelch(BYTE v) { m_Squelch = v; }
  BYTE GetNpspac() const { return m_Npspac; }
  void SetNpspac(BYTE v) { m_Npspac = v; }
  BYTE GetDataEnable() const { return m_DataEnable; }
  void SetDataEnable(BYTE v) { m_DataEnable = v; }
  BYTE GetCgSel() const { return m_CgSel; }
  void SetCgSel(BYTE v) { m_CgSel = v; }
  BYTE GetTalkaround() const { return m_Talkaround; }
  void SetTalkaround(BYTE v) { m_Talkaround = v; }
  // The full current layout (schema 10) when storing; loading reads the fields that the stored
  // Schema has (the archive order differs from the declaration order: SteRx, TxOs and the later.
  // Option blocks follow the schema that added them).
  void Serialize(CArchive& ar) override;

  // Archive order.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("TxFreq", m_TxFreq);
    v("RxFreq", m_RxFreq);
    v("TxCg", m_TxCg);
    v("RxCg", m_RxCg);
    v("TxAddr", m_TxAddr);
    v("RxAddr", m_RxAddr);
    v("CCT", m_CCT, OnOff{});
    v("Scan", m_Scan, OnOff{});
    v("Backlight", m_Backlight, OnOff{});
    v("AlertTone", m_AlertTone, OnOff{});
    v("Power", m_Power, WordsOf(conv_channel_words::kPowerWords));
    v("TxBusy", m_TxBusy, OnOff{});
    v("FixPower", m_FixPower, OnOff{});
    v("PreAmp", m_PreAmp, OnOff{});
    v("Ste", m_Ste, OnOff{});
    v("T99", m_T99, OnOff{});
    v("T99Table", m_T99Table, WordsOf(conv_channel_words::kT99TableWords));
    v("Vantor", m_Vantor, OnOff{});
    v("VantorSte", m_VantorSte, OnOff{});
    v("VantorCg", m_VantorCg, OnOff{});
    v("VantorSend", m_VantorSend, WordsOf(conv_channel_words::kVantorSendWords));
    v("T99SuperGrp", m_T99SuperGrp, OnOff{});
    v("T99Grp", m_T99Grp, OnOff{});
    v("T99QuickCall", m_T99QuickCall, OnOff{});
    v("T99Indv", m_T99Indv, OnOff{});
    v("Os", m_Os, OnOff{});
    v("OscShift", m_OscShift);
    v("KwKey", m_KwKey, WordsOf(conv_channel_words::kVoiceModeWords));
    v("T99WithCg", m_T99WithCg);
    v("BandWidth", m_BandWidth, WordsOf(conv_channel_words::kBandWidthWords));
    v("ToneEncode", m_ToneEncode, OnOff{});
    v("CtrlUnitOscShift", m_CtrlUnitOscShift, Since{3});
    v("Dtmf", m_Dtmf, Since{3}, OnOff{});
    v("MultiTone", m_MultiTone, Since{3}, OnOff{});
    v("MessType", m_MessType, Since{3}, WordsOf(conv_channel_words::kMessTypeWords));
    v("ICall", m_ICall, Since{3}, WordsOf(conv_channel_words::kICallWords));
    v("GroupCall", m_GroupCall, Since{3}, OnOff{});
    v("AllCall", m_AllCall, Since{3}, OnOff{});
    v("InterCall", m_InterCall, Since{3}, OnOff{});
    v("RadioDis", m_RadioDis, Since{3}, OnOff{});
    v("RadioEn", m_RadioEn, Since{3}, OnOff{});
    v("ResetCall", m_ResetCall, Since{3}, OnOff{});
    v("Repeater", m_Repeater, Since{3}, OnOff{});
    v("TxInvDcg", m_TxInvDcg, Since{3});
    v("RxInvDcg", m_RxInvDcg, Since{3}, OnOff{});
    v("TxOs", m_TxOs, Since{4}, OnOff{});
    v("SteRx", m_SteRx, Since{5});
    v("SignallingOrCG", m_SignallingOrCG, Since{6});
    v("T99AndRxCg", m_T99AndRxCg, Since{7}, OnOff{});
    v("TxOscShift", m_TxOscShift, Since{7});
    v("RxOscShift", m_RxOscShift, Since{7});
    v("UsaPower", m_UsaPower, Since{7}, WordsOf(conv_channel_words::kUsaPowerWords));
    v("EuroPower", m_EuroPower, Since{7});
    v("CgBusyLockout", m_CgBusyLockout, Since{7}, WordsOf(conv_channel_words::kLowHighWords));
    v("2ndLoInj", m_2ndLoInj, Since{7}, WordsOf(conv_channel_words::kLoInjectionWords));
    v("Squelch", m_Squelch, Since{7});
    v("Npspac", m_Npspac, Since{8}, OnOff{});
    v("DataEnable", m_DataEnable, Since{9}, OnOff{});
    v("CgSel", m_CgSel, Since{10});
    v("Talkaround", m_Talkaround, Since{10});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  double m_TxFreq = 0.0;
  double m_RxFreq = 0.0;
  CString m_TxCg;
  CString m_RxCg;
  WORD m_TxAddr = 85;
  WORD m_RxAddr = 85;
  WORD m_T99Table = 0;
  WORD m_VantorSend = 0;
  WORD m_OscShift = 2;
  BYTE m_CCT = 0;
  BYTE m_Scan = 0;
  BYTE m_Backlight = 1;
  BYTE m_AlertTone = 1;
  BYTE m_Power = 1;
  BYTE m_TxBusy = 0;
  BYTE m_FixPower = 0;
  BYTE m_PreAmp = 0;
  BYTE m_Ste = 0;
  BYTE m_SteRx = 0;
  BYTE m_T99 = 0;
  BYTE m_Vantor = 0;
  BYTE m_VantorSte = 0;
  BYTE m_VantorCg = 0;
  BYTE m_T99SuperGrp = 0;
  BYTE m_T99Grp = 0;
  BYTE m_T99QuickCall = 0;
  BYTE m_T99Indv = 0;
  BYTE m_Os = 0;
  WORD m_KwKey = 0;
  BYTE m_T99WithCg = 0;
  BYTE m_BandWidth = 0;
  BYTE m_ToneEncode = 0;
  BYTE m_CtrlUnitOscShift = 1;
  BYTE m_Dtmf = 0;
  BYTE m_MultiTone = 0;
  BYTE m_MessType = 0;
  BYTE m_ICall = 0;
  BYTE m_GroupCall = 0;
  BYTE m_AllCall = 0;
  BYTE m_InterCall = 0;
  BYTE m_RadioDis = 0;
  BYTE m_RadioEn = 0;
  BYTE m_ResetCall = 0;
  BYTE m_Repeater = 0;
  BYTE m_TxInvDcg = 0;
  BYTE m_RxInvDcg = 0;
  BYTE m_TxOs = 0;
  BYTE m_SignallingOrCG = 0;
  BYTE m_T99AndRxCg = 1;
  BYTE m_TxOscShift = 0;
  BYTE m_RxOscShift = 0;
  BYTE m_UsaPower = 2;
  BYTE m_EuroPower = 12;
  BYTE m_CgBusyLockout = 0;
  BYTE m_2ndLoInj = 0;
  BYTE m_Squelch = 0;
  BYTE m_Npspac = 0;
  BYTE m_DataEnable = 0;
  BYTE m_CgSel = 1;
  BYTE m_Talkaround = 1;
};

class PERSONA_EXPORT CConvSet : public CElementSet {
  DECLARE_SERIAL(CConvSet)
 public:
  // An empty set of type 1: limits 0, no channel names, Dtmf 1, the other options 0.
  CConvSet();
  // As CConvSet(); Dtmf 0 for radio types 54 and 4150 with reducedDefaults non-zero.
  CConvSet(unsigned short t, int reducedDefaults);
  // Deep-copies the channels and copies every own field, except that the copy's T99wcg takes
  // src's Dtmf value, a slip of the format's history that is kept (operator= copies T99wcg).
  CConvSet(const CConvSet& src);
  // Replaces every channel with copies of src's, copies the name, set type, scope and every
  // own field. Assigning a set to itself does nothing. Returns this set.
  CConvSet& operator=(const CConvSet* src);
  CConvSet& operator=(const CConvSet& src) { return *this = &src; }
  ~CConvSet() override = default;

  // 1 when the channel counts, the five channel names, Dtmf, the Type 99 options, T99ToneSet
  // and DataCCT are equal and the channels are equal pairwise; the set name and the frequency
  // limits take no part. Else 0.
  int operator==(const CConvSet& other) const;

  // Returns the channel at index (the set keeps it), or null when index is not below the count.
  CConvChannel* GetChannelAt(unsigned short index) const;
  // Returns the position of the first channel named name (case-sensitive), or -1 (always for
  // an empty name).
  int FindChannelIndex(const CString& name) const;
  // Empties each of HomeChan, P1Chan, P2Chan, WideScanChan and AltPttChan that equals name.
  void DeleteSetReferencesToChan(const CString& name);
  // Empties names, then appends every channel's name in list order.
  void GetNames(CStringArray& names) const;
  // Returns 1 when every channel passes, 0 at the first that fails: a tx above 0 and below
  // first fails; with first at most 800 MHz an rx above fourth + 0.000001 fails; with first
  // above 800 MHz a tx above fourth + 0.000001, an rx below third or an rx above fourth fails.
  // second is not used.
  int CheckFrequencyRange(double first, double second, double third, double fourth) const;

  // Appends the report lines of the set (numbered setNumber) and of every channel; radioType
  // selects the model option block, a bandFrequency above 890 MHz prints every channel narrow.
  // elementEnd, when given, is called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int setNumber, unsigned short radioType,
                     double bandFrequency, const ElementLinesEnd* elementEnd = nullptr) const;

  double GetTxMinFreq() const { return m_TxMinFreq; }
  void SetTxMinFreq(double v) { m_TxMinFreq = v; }
  double GetTxMaxFreq() const { return m_TxMaxFreq; }
  void SetTxMaxFreq(double v) { m_TxMaxFreq = v; }
  double GetRxMinFreq() const { return m_RxMinFreq; }
  void SetRxMinFreq(double v) { m_RxMinFreq = v; }
  double GetRxMaxFreq() const { return m_RxMaxFreq; }
  void SetRxMaxFreq(double v) { m_RxMaxFreq = v; }
  CString GetHomeChan() const { return m_HomeChan; }
  void SetHomeChan(CString v) { m_HomeChan = std::move(v); }
  CString GetP1Chan() const { return m_P1Chan; }
  void SetP1Chan(CString v) { m_P1Chan = std::move(v); }
  CString GetP2Chan() const { return m_P2Chan; }
  void SetP2Chan(CString v) { m_P2Chan = std::move(v); }
  CString GetWideScanChan() const { return m_WideScanChan; }
  void SetWideScanChan(CString v) { m_WideScanChan = std::move(v); }
  CString GetAltPttChan() const { return m_AltPttChan; }
  void SetAltPttChan(CString v) { m_AltPttChan = std::move(v); }
  BYTE GetDtmf() const { return m_Dtmf; }
  void SetDtmf(BYTE v) { m_Dtmf = v; }
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
  WORD GetT99ToneSet() const { return m_T99ToneSet; }
  void SetT99ToneSet(WORD v) { m_T99ToneSet = v; }
  WORD GetDataCCT() const { return m_DataCCT; }
  void SetDataCCT(WORD v) { m_DataCCT = v; }

  // The CSet part, then TxMinFreq, RxMinFreq, TxMaxFreq, RxMaxFreq, four channel names and
  // Dtmf; the Type 99 options from schema 2, DataCCT from 3, AltPttChan from 4. Archive faults
  // raise CArchiveException.
  void Serialize(CArchive& ar) override;

  // Archive order (minimum limits first; AltPttChan last).
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("TxMinFreq", m_TxMinFreq);
    v("RxMinFreq", m_RxMinFreq);
    v("TxMaxFreq", m_TxMaxFreq);
    v("RxMaxFreq", m_RxMaxFreq);
    v("HomeChan", m_HomeChan, RefersTo{RefKind::Channel});
    v("P1Chan", m_P1Chan, RefersTo{RefKind::Channel});
    v("P2Chan", m_P2Chan, RefersTo{RefKind::Channel});
    v("WideScanChan", m_WideScanChan, RefersTo{RefKind::Channel});
    v("Dtmf", m_Dtmf);
    v("T99wcg", m_T99wcg, Since{2});
    v("T99Super", m_T99Super, Since{2});
    v("T99Group", m_T99Group, Since{2});
    v("T99IndvDec", m_T99IndvDec, Since{2});
    v("T99QuickCall", m_T99QuickCall, Since{2});
    v("T99ToneSet", m_T99ToneSet, Since{2});
    v("DataCCT", m_DataCCT, Since{3});
    v("AltPttChan", m_AltPttChan, Since{4}, RefersTo{RefKind::Channel});
  }
  PERSONA_FIELDS(CElementSet)

 protected:
  // Clears the names that refer to the channel being deleted (CSet::DeleteAt).
  void DeleteSetReferencesToElement(const CObject& element) override;

 private:
  // Copies every own field except the set-wide Type 99 with-CG switch.
  void CopyOwnFields(const CConvSet& src);
  void PrintHeader(CStringArray& out, int setNumber) const;

  double m_TxMinFreq = 0.0;
  double m_TxMaxFreq = 0.0;
  double m_RxMinFreq = 0.0;
  double m_RxMaxFreq = 0.0;
  CString m_HomeChan;
  CString m_P1Chan;
  CString m_P2Chan;
  CString m_WideScanChan;
  CString m_AltPttChan;
  BYTE m_Dtmf = 1;
  BYTE m_T99wcg = 0;
  BYTE m_T99Super = 0;
  BYTE m_T99Group = 0;
  BYTE m_T99IndvDec = 0;
  BYTE m_T99QuickCall = 0;
  WORD m_T99ToneSet = 0;
  WORD m_DataCCT = 0;
};

}  // namespace persona
