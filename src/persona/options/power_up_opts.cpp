// CPowerUpOpts model defaults and report block.
#include <persona/options/power_up_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CPowerUpOpts, CSerial, VERSIONABLE_SCHEMA | 4)

CPowerUpOpts::CPowerUpOpts(unsigned short, int reducedDefaults) {
  m_Volume = 8;
  m_SquelchLevel = 5;
  m_Tone = 1;
  m_Contrast = 8;
  m_ContrastInverted = 8;
  m_AutoLogin = reducedDefaults == 0 ? 1 : 0;
}

void CPowerUpOpts::printOptToBuffer(CStringArray& out, CPersonality*, unsigned short) const {
  PrintFieldBlock(out, "POWER UP OPTIONS:");
}

}  // namespace persona
