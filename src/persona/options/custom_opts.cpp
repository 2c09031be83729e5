// Model custom options: model defaults and report blocks.
#include <persona/options/custom_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CSilCustomOpts, CSerial, 1)

CSilCustomOpts::CSilCustomOpts(unsigned short, int reducedDefaults) {
  m_QueuedTone = 1;
  m_LowBattBeep = 1;
  m_SaveOnPowerDown = 1;
  m_Regroup = reducedDefaults == 0 ? 1 : 0;
}

void CSilCustomOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "SIL CUSTOM OPTIONS:");
}

IMPLEMENT_SERIAL(COstrelCustomOpts, CSerial, 1)

COstrelCustomOpts::COstrelCustomOpts(unsigned short, int reducedDefaults) {
  m_ICallBeep = 1;
  m_ICallTimeout = 20;
  m_CallerIdScan = reducedDefaults == 0 ? 1 : 0;
}

void COstrelCustomOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "VRD OPTIONS:");
}

IMPLEMENT_SERIAL(CKorvex2CustomOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CKorvex2CustomOpts::CKorvex2CustomOpts(unsigned short, int reducedDefaults) {
  m_CcMonBaud = 1;
  m_ICallRinger = 1;
  m_ICallTimer = 20;
  m_ScanBtnTime = 500;
  m_EmerBtnTime = 1000;
  m_NbRegistration = reducedDefaults == 0 ? 1 : 0;
}

void CKorvex2CustomOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "KORVEX2 OPTIONS:");
}

}  // namespace persona
