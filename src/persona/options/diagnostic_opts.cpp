// CDiagnosticOpts model defaults and report block.
#include <persona/options/diagnostic_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CDiagnosticOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CDiagnosticOpts::CDiagnosticOpts(unsigned short, int reducedDefaults) {
  m_BaudRate = kPortBaud9600;
  m_BitsPerChar = kPortEightBits;
  m_TestMode = reducedDefaults == 0 ? 1 : 0;
}

void CDiagnosticOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "DIAGNOSTIC OPTIONS:");
}

}  // namespace persona
