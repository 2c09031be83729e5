// Scan options: model defaults and report block.
#include <persona/options/scan_opts.h>

#include <persona/options/option_record.h>

namespace persona {

IMPLEMENT_SERIAL(CScanOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CScanOpts::CScanOpts(unsigned short, int reducedDefaults) {
  m_ScanList = 1;
  m_HomeGroupScan = reducedDefaults == 0 ? 1 : 0;
  m_DataLockout = 1;
  m_DataLockoutTime = 5;
  m_MinScanData = 2;
}

void CScanOpts::printOptToBuffer(CStringArray& out, CPersonality* personality,
                                 unsigned short radioType) const {
  const QuotedOption<CConvScanOpts> conv(personality, radioType);
  PrintFieldBlock(out, "SCAN OPTIONS:", conv.get(), HeldOption<CLumoConvScanOpts>(personality));
}

IMPLEMENT_SERIAL(CConvScanOpts, CSerial, VERSIONABLE_SCHEMA | 4)

CConvScanOpts::CConvScanOpts(unsigned short, int reducedDefaults) {
  m_Scan = 1;
  m_WithCg = 1;
  m_ScanCount = 3;
  m_HangTime = 3;
  m_HangAfterPtt = 5;
  m_ResumeDelay = 2;
  m_AlwaysSelChan = reducedDefaults == 0 ? 1 : 0;
}

IMPLEMENT_SERIAL(CLumoConvScanOpts, CSerial, VERSIONABLE_SCHEMA | 3)

CLumoConvScanOpts::CLumoConvScanOpts(unsigned short, int) {}

}  // namespace persona
