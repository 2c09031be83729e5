// CR917Opts model defaults and report block.
#include <persona/options/r917_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CR917Opts, CSerial, 1)

CR917Opts::CR917Opts(unsigned short, int reducedDefaults) {
  m_UnitDisplay = 1;
  m_Ignition = 1;
  m_UserTestMode = reducedDefaults == 0 ? 1 : 0;
}

void CR917Opts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "R917 OPTIONS:");
}

}  // namespace persona
