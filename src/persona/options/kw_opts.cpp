// CKwOpts model defaults and report block.
#include <persona/options/kw_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CKwOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CKwOpts::CKwOpts(unsigned short, int reducedDefaults) {
  m_KeySize = 64;
  m_KeyBanks = 1;
  m_AttackDelay = 100;
  m_PrivacyDisplay = reducedDefaults == 0 ? 1 : 0;
}

void CKwOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "DIGITAL VOICE OPTIONS:");
}

}  // namespace persona
