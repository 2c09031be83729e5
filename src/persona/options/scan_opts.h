// CScanOpts, CConvScanOpts and CLumoConvScanOpts: the option groups of trunked and conventional
// scan.
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
inline constexpr const char* kScanListWords[] = {"Fixed", "Programmable"};
inline constexpr const char* kPriorityProgramWords[] = {"Fixed", "Selectable"};
inline constexpr const char* kTxSelectWords[] = {"Selected", "Last Heard"};

// CScanOpts: trunked scan: scan list, home group scan, priority 1 and 2 programming, scan and
// talkback hang times; schema 2 added the data lockout and its time, transmit select and the
// minimum scan data.
class PERSONA_EXPORT CScanOpts : public CFieldOption<CScanOpts> {
  PERSONA_OPTION_RECORD(CScanOpts, CSerial)
 public:
  // Neutral defaults.
  CScanOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CScanOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CScanOpts(const CScanOpts&) = default;
  CScanOpts& operator=(const CScanOpts&) = default;
  ~CScanOpts() override = default;

  // 0 fixed, 1 programmable by the user.
  BYTE GetScanList() const { return m_ScanList; }
  void SetScanList(BYTE v) { m_ScanList = v; }
  BYTE GetHomeGroupScan() const { return m_HomeGroupScan; }
  void SetHomeGroupScan(BYTE v) { m_HomeGroupScan = v; }
  // 0 fixed, 1 selectable by the user.
  BYTE GetP1Program() const { return m_P1Program; }
  void SetP1Program(BYTE v) { m_P1Program = v; }
  BYTE GetP2Program() const { return m_P2Program; }
  void SetP2Program(BYTE v) { m_P2Program = v; }
  WORD GetHangTime() const { return m_HangTime; }
  void SetHangTime(WORD v) { m_HangTime = v; }
  WORD GetTalkbackHangTime() const { return m_TalkbackHangTime; }
  void SetTalkbackHangTime(WORD v) { m_TalkbackHangTime = v; }
  BYTE GetDataLockout() const { return m_DataLockout; }
  void SetDataLockout(BYTE v) { m_DataLockout = v; }
  WORD GetDataLockoutTime() const { return m_DataLockoutTime; }
  void SetDataLockoutTime(WORD v) { m_DataLockoutTime = v; }
  // 0 the selected group, 1 the last group heard.
  BYTE GetTxSelect() const { return m_TxSelect; }
  void SetTxSelect(BYTE v) { m_TxSelect = v; }
  WORD GetMinScanData() const { return m_MinScanData; }
  void SetMinScanData(WORD v) { m_MinScanData = v; }

  // Appends the "SCAN OPTIONS:" block, followed in the same block by the lines of the
  // personality's CConvScanOpts (a temporary one for radioType when it holds none) and, when it
  // holds one, of its CLumoConvScanOpts.
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("ScanList", m_ScanList, Label{"Scan List"}, WordsOf(kScanListWords));
    v("HomeGroupScan", m_HomeGroupScan, Label{"Home Group Scan"}, OnOff{});
    v("P1Program", m_P1Program, Label{"Priority 1 Programming"}, WordsOf(kPriorityProgramWords));
    v("P2Program", m_P2Program, Label{"Priority 2 Programming"}, WordsOf(kPriorityProgramWords));
    v("HangTime", m_HangTime, Label{"Scan Hang Time (sec)"});
    v("TalkbackHangTime", m_TalkbackHangTime, Label{"Talkback Hang Time (sec)"});
    v("DataLockout", m_DataLockout, Since{2}, Label{"Data Lockout"}, OnOff{});
    v("DataLockoutTime", m_DataLockoutTime, Since{2}, Label{"Data Lockout Time (sec)"});
    v("TxSelect", m_TxSelect, Since{2}, Label{"Transmit Select"}, WordsOf(kTxSelectWords));
    v("MinScanData", m_MinScanData, Since{2}, Label{"Minimum Scan Data"});
  }

 private:
  BYTE m_ScanList = 0;
  BYTE m_HomeGroupScan = 0;
  BYTE m_P1Program = 0;
  BYTE m_P2Program = 0;
  WORD m_HangTime = 3;
  WORD m_TalkbackHangTime = 5;
  BYTE m_DataLockout = 0;
  WORD m_DataLockoutTime = 0;
  BYTE m_TxSelect = 0;
  WORD m_MinScanData = 0;
};

// CConvScanOpts: conventional scan: scan on, home channel and system (by name), fixed list, scan
// across systems, scan with CG; schema 2 added alternate and counted scan with its count, 3 the
// hang times and resume delay, 4 off-hook scan and always scanning the selected channel. Printed
// inside the scan block.
class PERSONA_EXPORT CConvScanOpts : public CFieldOption<CConvScanOpts> {
  PERSONA_OPTION_RECORD(CConvScanOpts, CSerial)
 public:
  // Neutral defaults.
  CConvScanOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CConvScanOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CConvScanOpts(const CConvScanOpts&) = default;
  CConvScanOpts& operator=(const CConvScanOpts&) = default;
  ~CConvScanOpts() override = default;

  BYTE GetScan() const { return m_Scan; }
  void SetScan(BYTE v) { m_Scan = v; }
  CString GetHomeChan() const { return m_HomeChan; }
  void SetHomeChan(CString v) { m_HomeChan = std::move(v); }
  CString GetHomeSystem() const { return m_HomeSystem; }
  void SetHomeSystem(CString v) { m_HomeSystem = std::move(v); }
  BYTE GetFixedList() const { return m_FixedList; }
  void SetFixedList(BYTE v) { m_FixedList = v; }
  BYTE GetAcrossSystems() const { return m_AcrossSystems; }
  void SetAcrossSystems(BYTE v) { m_AcrossSystems = v; }
  BYTE GetWithCg() const { return m_WithCg; }
  void SetWithCg(BYTE v) { m_WithCg = v; }
  BYTE GetAltScan() const { return m_AltScan; }
  void SetAltScan(BYTE v) { m_AltScan = v; }
  BYTE GetCountedScan() const { return m_CountedScan; }
  void SetCountedScan(BYTE v) { m_CountedScan = v; }
  WORD GetScanCount() const { return m_ScanCount; }
  void SetScanCount(WORD v) { m_ScanCount = v; }
  WORD GetHangTime() const { return m_HangTime; }
  void SetHangTime(WORD v) { m_HangTime = v; }
  WORD GetHangAfterPtt() const { return m_HangAfterPtt; }
  void SetHangAfterPtt(WORD v) { m_HangAfterPtt = v; }
  WORD GetResumeDelay() const { return m_ResumeDelay; }
  void SetResumeDelay(WORD v) { m_ResumeDelay = v; }
  BYTE GetOffHookScan() const { return m_OffHookScan; }
  void SetOffHookScan(BYTE v) { m_OffHookScan = v; }
  BYTE GetAlwaysSelChan() const { return m_AlwaysSelChan; }
  void SetAlwaysSelChan(BYTE v) { m_AlwaysSelChan = v; }

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Scan", m_Scan, Label{"Conventional Scan"}, OnOff{});
    v("HomeChan", m_HomeChan, Label{"Home Channel"}, RefersTo{RefKind::Channel, 0, "HomeSystem"});
    v("HomeSystem", m_HomeSystem, Label{"Home System"}, RefersTo{RefKind::System});
    v("FixedList", m_FixedList, Label{"Fixed Scan List"}, OnOff{});
    v("AcrossSystems", m_AcrossSystems, Label{"Scan Across Systems"}, OnOff{});
    v("WithCg", m_WithCg, Label{"Scan With CG"}, OnOff{});
    v("AltScan", m_AltScan, Since{2}, Label{"Alternate Scan"}, OnOff{});
    v("CountedScan", m_CountedScan, Since{2}, Label{"Counted Scan"}, OnOff{});
    v("ScanCount", m_ScanCount, Since{2}, Label{"Scan Count"});
    v("HangTime", m_HangTime, Since{3}, Label{"Conv. Scan Hang Time (sec)"});
    v("HangAfterPtt", m_HangAfterPtt, Since{3}, Label{"Hang After PTT (sec)"});
    v("ResumeDelay", m_ResumeDelay, Since{3}, Label{"Resume Delay (sec)"});
    v("OffHookScan", m_OffHookScan, Since{4}, Label{"Off Hook Scan"}, OnOff{});
    v("AlwaysSelChan", m_AlwaysSelChan, Since{4}, Label{"Always Selected Channel"}, OnOff{});
  }

 private:
  BYTE m_Scan = 0;
  CString m_HomeChan;
  CString m_HomeSystem;
  BYTE m_FixedList = 0;
  BYTE m_AcrossSystems = 0;
  BYTE m_WithCg = 0;
  BYTE m_AltScan = 0;
  BYTE m_CountedScan = 0;
  WORD m_ScanCount = 0;
  WORD m_HangTime = 0;
  WORD m_HangAfterPtt = 0;
  WORD m_ResumeDelay = 0;
  BYTE m_OffHookScan = 0;
  BYTE m_AlwaysSelChan = 0;
};

// CLumoConvScanOpts: the priority 1 and 2 channels of conventional scan (by name); schema 2 added
// the priority 1 system, 3 the priority 2 system (before, both were on the selected system).
// Printed inside the scan block.
class PERSONA_EXPORT CLumoConvScanOpts : public CFieldOption<CLumoConvScanOpts> {
  PERSONA_OPTION_RECORD(CLumoConvScanOpts, CSerial)
 public:
  // Neutral defaults.
  CLumoConvScanOpts() = default;
  // The neutral defaults: no default of this record depends on the model.
  CLumoConvScanOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CLumoConvScanOpts(const CLumoConvScanOpts&) = default;
  CLumoConvScanOpts& operator=(const CLumoConvScanOpts&) = default;
  ~CLumoConvScanOpts() override = default;

  CString GetP1Chan() const { return m_P1Chan; }
  void SetP1Chan(CString v) { m_P1Chan = std::move(v); }
  CString GetP2Chan() const { return m_P2Chan; }
  void SetP2Chan(CString v) { m_P2Chan = std::move(v); }
  // Empty: the selected system.
  CString GetP1System() const { return m_P1System; }
  void SetP1System(CString v) { m_P1System = std::move(v); }
  // Empty: the selected system.
  CString GetP2System() const { return m_P2System; }
  void SetP2System(CString v) { m_P2System = std::move(v); }

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("P1Chan", m_P1Chan, Label{"Priority 1 Channel"}, RefersTo{RefKind::Channel, 0, "P1System"});
    v("P2Chan", m_P2Chan, Label{"Priority 2 Channel"}, RefersTo{RefKind::Channel, 0, "P2System"});
    v("P1System", m_P1System, Since{2}, Label{"Priority 1 System"}, RefersTo{RefKind::System});
    v("P2System", m_P2System, Since{3}, Label{"Priority 2 System"}, RefersTo{RefKind::System});
  }

 private:
  CString m_P1Chan;
  CString m_P2Chan;
  CString m_P1System;
  CString m_P2System;
};

}  // namespace persona
