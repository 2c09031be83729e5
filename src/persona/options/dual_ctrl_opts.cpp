// CDualCtrlOpts model defaults and report block.
#include <persona/options/dual_ctrl_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CDualCtrlOpts, CSerial, 1)

CDualCtrlOpts::CDualCtrlOpts(unsigned short, int) {
  m_Speaker = 2;
  m_Output = 8;
  m_Active = 1;
}

void CDualCtrlOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "DUAL CONTROL OPTIONS:");
}

}  // namespace persona
