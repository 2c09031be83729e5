// CCoyle300Opts model defaults and report block.
#include <persona/options/coyle300_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CCoyle300Opts, CSerial, VERSIONABLE_SCHEMA | 1)

CCoyle300Opts::CCoyle300Opts(unsigned short, int) {
  m_ChanSquelch = 1;
  m_LocalSquelch = 5;
  m_HookSwitch = 1;
}

void CCoyle300Opts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "COYLE 300 SERIES OPTIONS:");
}

}  // namespace persona
