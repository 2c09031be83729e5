// CTimerOpts model defaults and report block.
#include <persona/options/timer_opts.h>

#include <persona/options/option_record.h>

namespace persona {

IMPLEMENT_SERIAL(CTimerOpts, CSerial, VERSIONABLE_SCHEMA | 3)

CTimerOpts::CTimerOpts(unsigned short radioType, int reducedDefaults) {
  // The models below answer a priority call in half the time; the reduced set keeps the fixed
  // default.
  if (reducedDefaults == 0 && IsRadioTypeIn(radioType, {68, 69, 70, 80, 88, 89, 90, 92, 94, 95, 96,
                                                        97, 101, 102, 103, 104, 105, 106})) {
    m_PriorityCallTimeout = 1.5;
  }
  m_ScanLockout = 5;
  m_DataLockout = 5;
}

void CTimerOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "TIMER OPTIONS:");
}

}  // namespace persona
