// CIgnitionOpts model defaults and report block.
#include <persona/options/ignition_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CIgnitionOpts, CSerial, VERSIONABLE_SCHEMA | 4)

CIgnitionOpts::CIgnitionOpts(unsigned short, int reducedDefaults) {
  m_NormalTx = 1;
  m_EmerTx = 1;
  m_HornAlert = 1;
  m_ExtAlarm = 1;
  m_SirenLights = 1;
  m_RptrVolume = 8;
  m_PowerMethod = reducedDefaults == 0 ? 2 : 0;
}

void CIgnitionOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "IGNITION OPTIONS:");
}

}  // namespace persona
