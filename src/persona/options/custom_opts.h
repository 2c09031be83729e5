// CSilCustomOpts, COstrelCustomOpts and CKorvex2CustomOpts: the custom option groups of single
// models.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// Report words of the coded fields below, indexed by the stored code.
inline constexpr const char* kEmerHandlingWords[] = {"Standard", "Silent", "Silent Alarm"};
inline constexpr const char* kTransmissionWords[] = {"Normal", "Inhibited"};
inline constexpr const char* kCcMonBaudWords[] = {"3600", "9600"};
inline constexpr const char* kSpCallModeWords[] = {"Normal", "Held"};

// CSilCustomOpts: custom options of one model: emergency handling, queued, low-battery and P1
// beeps, continuous alerts, saving on power-down and channel change, 16-position knob, five-tone
// signalling, regroup, message suppression, conventional lockout.
class PERSONA_EXPORT CSilCustomOpts : public CFieldOption<CSilCustomOpts> {
  PERSONA_OPTION_RECORD(CSilCustomOpts, CSerial)
 public:
  // Neutral defaults.
  CSilCustomOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CSilCustomOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CSilCustomOpts(const CSilCustomOpts&) = default;
  CSilCustomOpts& operator=(const CSilCustomOpts&) = default;
  ~CSilCustomOpts() override = default;

  // 0 standard, 1 silent, 2 silent with alarm.
  BYTE GetEmerHandling() const { return m_EmerHandling; }
  void SetEmerHandling(BYTE v) { m_EmerHandling = v; }
  BYTE GetQueuedTone() const { return m_QueuedTone; }
  void SetQueuedTone(BYTE v) { m_QueuedTone = v; }
  BYTE GetLowBattBeep() const { return m_LowBattBeep; }
  void SetLowBattBeep(BYTE v) { m_LowBattBeep = v; }
  BYTE GetP1Beep() const { return m_P1Beep; }
  void SetP1Beep(BYTE v) { m_P1Beep = v; }
  BYTE GetContAlerts() const { return m_ContAlerts; }
  void SetContAlerts(BYTE v) { m_ContAlerts = v; }
  BYTE GetSaveOnPowerDown() const { return m_SaveOnPowerDown; }
  void SetSaveOnPowerDown(BYTE v) { m_SaveOnPowerDown = v; }
  BYTE GetSaveOnChanChange() const { return m_SaveOnChanChange; }
  void SetSaveOnChanChange(BYTE v) { m_SaveOnChanChange = v; }
  BYTE GetKnob16() const { return m_Knob16; }
  void SetKnob16(BYTE v) { m_Knob16 = v; }
  BYTE GetFiveTone() const { return m_FiveTone; }
  void SetFiveTone(BYTE v) { m_FiveTone = v; }
  BYTE GetRegroup() const { return m_Regroup; }
  void SetRegroup(BYTE v) { m_Regroup = v; }
  BYTE GetMsgSuppress() const { return m_MsgSuppress; }
  void SetMsgSuppress(BYTE v) { m_MsgSuppress = v; }
  BYTE GetConvLockout() const { return m_ConvLockout; }
  void SetConvLockout(BYTE v) { m_ConvLockout = v; }

  // Appends the "SIL CUSTOM OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("EmerHandling", m_EmerHandling, Label{"Emergency Handling"}, WordsOf(kEmerHandlingWords));
    v("QueuedTone", m_QueuedTone, Label{"Queued Tone"}, OnOff{});
    v("LowBattBeep", m_LowBattBeep, Label{"Low Battery Beep"}, OnOff{});
    v("P1Beep", m_P1Beep, Label{"P1 Beep"}, OnOff{});
    v("ContAlerts", m_ContAlerts, Label{"Continuous Alerts"}, OnOff{});
    v("SaveOnPowerDown", m_SaveOnPowerDown, Label{"Save On Power Down"}, OnOff{});
    v("SaveOnChanChange", m_SaveOnChanChange, Label{"Save On Channel Change"}, OnOff{});
    v("Knob16", m_Knob16, Label{"16 Position Knob"}, OnOff{});
    v("FiveTone", m_FiveTone, Label{"Five Tone"}, OnOff{});
    v("Regroup", m_Regroup, Label{"Regroup"}, OnOff{});
    v("MsgSuppress", m_MsgSuppress, Label{"Message Suppression"}, OnOff{});
    v("ConvLockout", m_ConvLockout, Label{"Conventional Lockout"}, OnOff{});
  }

 private:
  BYTE m_EmerHandling = 0;
  BYTE m_QueuedTone = 0;
  BYTE m_LowBattBeep = 0;
  BYTE m_P1Beep = 0;
  BYTE m_ContAlerts = 0;
  BYTE m_SaveOnPowerDown = 0;
  BYTE m_SaveOnChanChange = 0;
  BYTE m_Knob16 = 0;
  BYTE m_FiveTone = 0;
  BYTE m_Regroup = 0;
  BYTE m_MsgSuppress = 0;
  BYTE m_ConvLockout = 0;
};

// COstrelCustomOpts: custom options of one model: individual-call beep and time-out, caller ID in
// scan, status polling, message request on the control channel, special call exit on denial, audio
// mute.
class PERSONA_EXPORT COstrelCustomOpts : public CFieldOption<COstrelCustomOpts> {
  PERSONA_OPTION_RECORD(COstrelCustomOpts, CSerial)
 public:
  // Neutral defaults.
  COstrelCustomOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  COstrelCustomOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  COstrelCustomOpts(const COstrelCustomOpts&) = default;
  COstrelCustomOpts& operator=(const COstrelCustomOpts&) = default;
  ~COstrelCustomOpts() override = default;

  BYTE GetICallBeep() const { return m_ICallBeep; }
  void SetICallBeep(BYTE v) { m_ICallBeep = v; }
  WORD GetICallTimeout() const { return m_ICallTimeout; }
  void SetICallTimeout(WORD v) { m_ICallTimeout = v; }
  BYTE GetCallerIdScan() const { return m_CallerIdScan; }
  void SetCallerIdScan(BYTE v) { m_CallerIdScan = v; }
  BYTE GetStatusPolling() const { return m_StatusPolling; }
  void SetStatusPolling(BYTE v) { m_StatusPolling = v; }
  BYTE GetMsgReqCc() const { return m_MsgReqCc; }
  void SetMsgReqCc(BYTE v) { m_MsgReqCc = v; }
  BYTE GetSpCallExitDenial() const { return m_SpCallExitDenial; }
  void SetSpCallExitDenial(BYTE v) { m_SpCallExitDenial = v; }
  BYTE GetMuteAudio() const { return m_MuteAudio; }
  void SetMuteAudio(BYTE v) { m_MuteAudio = v; }

  // Appends the "VRD OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("ICallBeep", m_ICallBeep, Label{"ICALL Beep"}, OnOff{});
    v("ICallTimeout", m_ICallTimeout, Label{"ICALL Time-out (sec)"});
    v("CallerIdScan", m_CallerIdScan, Label{"Caller ID In Scan"}, OnOff{});
    v("StatusPolling", m_StatusPolling, Label{"Status Polling"}, OnOff{});
    v("MsgReqCc", m_MsgReqCc, Label{"Message Request On CC"}, OnOff{});
    v("SpCallExitDenial", m_SpCallExitDenial, Label{"Sp. Call Exit On Denial"}, OnOff{});
    v("MuteAudio", m_MuteAudio, Label{"Mute Audio"}, OnOff{});
  }

 private:
  BYTE m_ICallBeep = 0;
  WORD m_ICallTimeout = 0;
  BYTE m_CallerIdScan = 0;
  BYTE m_StatusPolling = 0;
  BYTE m_MsgReqCc = 0;
  BYTE m_SpCallExitDenial = 0;
  BYTE m_MuteAudio = 0;
};

// CKorvex2CustomOpts: custom options of one trunked model: transmission, data-only radio, narrow-
// band registration, duplex update, control-channel monitor baud rate; schema 2 added the
// individual-call ringer, timer and save, the special-call mode, the scan and emergency button
// times and caller ID in scan.
class PERSONA_EXPORT CKorvex2CustomOpts : public CFieldOption<CKorvex2CustomOpts> {
  PERSONA_OPTION_RECORD(CKorvex2CustomOpts, CSerial)
 public:
  // Neutral defaults.
  CKorvex2CustomOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CKorvex2CustomOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CKorvex2CustomOpts(const CKorvex2CustomOpts&) = default;
  CKorvex2CustomOpts& operator=(const CKorvex2CustomOpts&) = default;
  ~CKorvex2CustomOpts() override = default;

  // 0 normal, 1 transmit inhibited.
  BYTE GetTransmission() const { return m_Transmission; }
  void SetTransmission(BYTE v) { m_Transmission = v; }
  BYTE GetDataOnly() const { return m_DataOnly; }
  void SetDataOnly(BYTE v) { m_DataOnly = v; }
  BYTE GetNbRegistration() const { return m_NbRegistration; }
  void SetNbRegistration(BYTE v) { m_NbRegistration = v; }
  BYTE GetDuplexUpdate() const { return m_DuplexUpdate; }
  void SetDuplexUpdate(BYTE v) { m_DuplexUpdate = v; }
  BYTE GetCcMonBaud() const { return m_CcMonBaud; }
  void SetCcMonBaud(BYTE v) { m_CcMonBaud = v; }
  BYTE GetICallRinger() const { return m_ICallRinger; }
  void SetICallRinger(BYTE v) { m_ICallRinger = v; }
  WORD GetICallTimer() const { return m_ICallTimer; }
  void SetICallTimer(WORD v) { m_ICallTimer = v; }
  BYTE GetICallSave() const { return m_ICallSave; }
  void SetICallSave(BYTE v) { m_ICallSave = v; }
  // 0 normal, 1 held until cleared.
  BYTE GetSpCallMode() const { return m_SpCallMode; }
  void SetSpCallMode(BYTE v) { m_SpCallMode = v; }
  WORD GetScanBtnTime() const { return m_ScanBtnTime; }
  void SetScanBtnTime(WORD v) { m_ScanBtnTime = v; }
  WORD GetEmerBtnTime() const { return m_EmerBtnTime; }
  void SetEmerBtnTime(WORD v) { m_EmerBtnTime = v; }
  BYTE GetCallerIdScan() const { return m_CallerIdScan; }
  void SetCallerIdScan(BYTE v) { m_CallerIdScan = v; }

  // Appends the "KORVEX2 OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Transmission", m_Transmission, Label{"Transmission"}, WordsOf(kTransmissionWords));
    v("DataOnly", m_DataOnly, Label{"Data Only Radio"}, OnOff{});
    v("NbRegistration", m_NbRegistration, Label{"Narrow Band Registration"}, OnOff{});
    v("DuplexUpdate", m_DuplexUpdate, Label{"Duplex Update"}, OnOff{});
    v("CcMonBaud", m_CcMonBaud, Label{"CC Monitor Baud Rate"}, WordsOf(kCcMonBaudWords));
    v("ICallRinger", m_ICallRinger, Since{2}, Label{"ICALL Ringer"}, OnOff{});
    v("ICallTimer", m_ICallTimer, Since{2}, Label{"ICALL Timer (sec)"});
    v("ICallSave", m_ICallSave, Since{2}, Label{"ICALL Save"}, OnOff{});
    v("SpCallMode", m_SpCallMode, Since{2}, Label{"Special Call Mode"}, WordsOf(kSpCallModeWords));
    v("ScanBtnTime", m_ScanBtnTime, Since{2}, Label{"Scan Button Time (ms)"});
    v("EmerBtnTime", m_EmerBtnTime, Since{2}, Label{"Emergency Button Time (ms)"});
    v("CallerIdScan", m_CallerIdScan, Since{2}, Label{"Caller ID In Scan"}, OnOff{});
  }

 private:
  BYTE m_Transmission = 0;
  BYTE m_DataOnly = 0;
  BYTE m_NbRegistration = 0;
  BYTE m_DuplexUpdate = 0;
  BYTE m_CcMonBaud = 0;
  BYTE m_ICallRinger = 0;
  WORD m_ICallTimer = 0;
  BYTE m_ICallSave = 0;
  BYTE m_SpCallMode = 0;
  WORD m_ScanBtnTime = 0;
  WORD m_EmerBtnTime = 0;
  BYTE m_CallerIdScan = 0;
};

}  // namespace persona
