// CSystemScanOpts model defaults and report block.
#include <persona/options/system_scan_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CSystemScanOpts, CSerial, 1)

CSystemScanOpts::CSystemScanOpts(unsigned short, int reducedDefaults) {
  m_ScanType = 1;
  m_PriorityScanTime = 2000;
  m_CollectionTime = 500;
  m_CcLoopCount = 2;
  m_ActiveBeep = reducedDefaults == 0 ? 1 : 0;
}

void CSystemScanOpts::printOptToBuffer(CStringArray& out, CPersonality*, unsigned short) const {
  PrintFieldBlock(out, "SYSTEM SCAN OPTIONS:");
}

}  // namespace persona
