// CSystemScanOpts: the option group of trunked system scan.
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
inline constexpr const char* kSystemScanWords[] = {"Off", "Fixed List", "User List"};

// CSystemScanOpts: scanning of trunked systems: scan type, priority system scan and its time, the
// control-channel collection time and loop count, and the beep on an active system.
class PERSONA_EXPORT CSystemScanOpts : public CFieldOption<CSystemScanOpts> {
  PERSONA_OPTION_RECORD(CSystemScanOpts, CSerial)
 public:
  // Neutral defaults.
  CSystemScanOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CSystemScanOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CSystemScanOpts(const CSystemScanOpts&) = default;
  CSystemScanOpts& operator=(const CSystemScanOpts&) = default;
  ~CSystemScanOpts() override = default;

  // 0 off, 1 fixed list, 2 user list.
  BYTE GetScanType() const { return m_ScanType; }
  void SetScanType(BYTE v) { m_ScanType = v; }
  BYTE GetPriorityScan() const { return m_PriorityScan; }
  void SetPriorityScan(BYTE v) { m_PriorityScan = v; }
  WORD GetPriorityScanTime() const { return m_PriorityScanTime; }
  void SetPriorityScanTime(WORD v) { m_PriorityScanTime = v; }
  WORD GetCollectionTime() const { return m_CollectionTime; }
  void SetCollectionTime(WORD v) { m_CollectionTime = v; }
  WORD GetCcLoopCount() const { return m_CcLoopCount; }
  void SetCcLoopCount(WORD v) { m_CcLoopCount = v; }
  BYTE GetActiveBeep() const { return m_ActiveBeep; }
  void SetActiveBeep(BYTE v) { m_ActiveBeep = v; }

  // Appends the "SYSTEM SCAN OPTIONS:" block; every model prints the same lines.
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("ScanType", m_ScanType, Label{"System Scan Type"}, WordsOf(kSystemScanWords));
    v("PriorityScan", m_PriorityScan, Label{"Priority System Scan"}, OnOff{});
    v("PriorityScanTime", m_PriorityScanTime, Label{"Priority Scan Time (ms)"});
    v("CollectionTime", m_CollectionTime, Label{"Collection Time (ms)"});
    v("CcLoopCount", m_CcLoopCount, Label{"CC Loop Count"});
    v("ActiveBeep", m_ActiveBeep, Label{"Active Beep"}, OnOff{});
  }

 private:
  BYTE m_ScanType = 0;
  BYTE m_PriorityScan = 0;
  WORD m_PriorityScanTime = 0;
  WORD m_CollectionTime = 0;
  WORD m_CcLoopCount = 0;
  BYTE m_ActiveBeep = 0;
};

}  // namespace persona
