// CTimerOpts: the option group of call and display timers.
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
inline constexpr const char* kEntryModeWords[] = {"Direct", "List"};

// CTimerOpts: time-outs of individual, queued and special calls and of the display (percent of the
// system time-out), the call time; schema 2 added the priority call time-out and unit monitor
// time, 3 the scan and data lockouts and the phone and individual-call entry modes.
class PERSONA_EXPORT CTimerOpts : public CFieldOption<CTimerOpts> {
  PERSONA_OPTION_RECORD(CTimerOpts, CSerial)
 public:
  // Neutral defaults.
  CTimerOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CTimerOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CTimerOpts(const CTimerOpts&) = default;
  CTimerOpts& operator=(const CTimerOpts&) = default;
  ~CTimerOpts() override = default;

  // Percent of the system time-out.
  WORD GetICallTimeout() const { return m_ICallTimeout; }
  void SetICallTimeout(WORD v) { m_ICallTimeout = v; }
  WORD GetQueuedTimeout() const { return m_QueuedTimeout; }
  void SetQueuedTimeout(WORD v) { m_QueuedTimeout = v; }
  WORD GetSpCallTimeout() const { return m_SpCallTimeout; }
  void SetSpCallTimeout(WORD v) { m_SpCallTimeout = v; }
  WORD GetDisplayTimeout() const { return m_DisplayTimeout; }
  void SetDisplayTimeout(WORD v) { m_DisplayTimeout = v; }
  WORD GetCallTime() const { return m_CallTime; }
  void SetCallTime(WORD v) { m_CallTime = v; }
  // Seconds.
  double GetPriorityCallTimeout() const { return m_PriorityCallTimeout; }
  void SetPriorityCallTimeout(double v) { m_PriorityCallTimeout = v; }
  WORD GetUnitMonitorTime() const { return m_UnitMonitorTime; }
  void SetUnitMonitorTime(WORD v) { m_UnitMonitorTime = v; }
  WORD GetScanLockout() const { return m_ScanLockout; }
  void SetScanLockout(WORD v) { m_ScanLockout = v; }
  WORD GetDataLockout() const { return m_DataLockout; }
  void SetDataLockout(WORD v) { m_DataLockout = v; }
  // 0 direct digits, 1 from the list.
  BYTE GetPhoneEntryMode() const { return m_PhoneEntryMode; }
  void SetPhoneEntryMode(BYTE v) { m_PhoneEntryMode = v; }
  BYTE GetICallEntryMode() const { return m_ICallEntryMode; }
  void SetICallEntryMode(BYTE v) { m_ICallEntryMode = v; }

  // Appends the "TIMER OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("ICallTimeout", m_ICallTimeout, Label{"ICALL Time-out (%)"});
    v("QueuedTimeout", m_QueuedTimeout, Label{"Queued Time-out (%)"});
    v("SpCallTimeout", m_SpCallTimeout, Label{"Special Call Time-out (%)"});
    v("DisplayTimeout", m_DisplayTimeout, Label{"Display Time-out (%)"});
    v("CallTime", m_CallTime, Label{"Call Time (sec)"});
    v("PriorityCallTimeout", m_PriorityCallTimeout, Since{2}, Label{"Priority Call Time-out"});
    v("UnitMonitorTime", m_UnitMonitorTime, Since{2}, Label{"Unit Monitor Time (sec)"});
    v("ScanLockout", m_ScanLockout, Since{3}, Label{"Scan Lockout (sec)"});
    v("DataLockout", m_DataLockout, Since{3}, Label{"Data Lockout (sec)"});
    v("PhoneEntryMode", m_PhoneEntryMode, Since{3}, Label{"Phone Entry Mode"},
      WordsOf(kEntryModeWords));
    v("ICallEntryMode", m_ICallEntryMode, Since{3}, Label{"ICALL Entry Mode"},
      WordsOf(kEntryModeWords));
  }

 private:
  WORD m_ICallTimeout = 20;
  WORD m_QueuedTimeout = 100;
  WORD m_SpCallTimeout = 100;
  WORD m_DisplayTimeout = 100;
  WORD m_CallTime = 60;
  double m_PriorityCallTimeout = 3.0;
  WORD m_UnitMonitorTime = 30;
  WORD m_ScanLockout = 0;
  WORD m_DataLockout = 0;
  BYTE m_PhoneEntryMode = 0;
  BYTE m_ICallEntryMode = 0;
};

}  // namespace persona
