// CSonvraOpts model defaults and report block.
#include <persona/options/sonvra_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CSonvraOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CSonvraOpts::CSonvraOpts(unsigned short, int) {
  m_PriMinLevel = 10;
  m_PriTransLevel = 20;
  m_NonPriMinLevel = 15;
  m_NonPriTransLevel = 25;
  m_Sensitivity = 1;
  m_SampleTime = 250;
  m_SwitchDelta = 6;
  m_ToneSuppress = 1;
}

void CSonvraOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "SONVRA/TREVIX OPTIONS:");
}

}  // namespace persona
