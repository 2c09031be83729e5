// CMosaicOpts model defaults and report block.
#include <persona/options/mosaic_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CMosaicOpts, CSerial, 1)

CMosaicOpts::CMosaicOpts(unsigned short, int) {
  m_UdpPort = 4001;
  m_PowerUpState = 1;
}

void CMosaicOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  OptionBlock block(out, "Mosaic Options:");
  block.Line("   UDP Port Address       - %-5d", m_UdpPort);
  block.Line("   Power Up State On      - %-3s", SwitchWord(m_PowerUpState));
  block.End();
}

}  // namespace persona
