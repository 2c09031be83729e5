// External speaker and public address options: model defaults and report blocks.
#include <persona/options/speaker_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CExtSpkrOpts, CSerial, VERSIONABLE_SCHEMA | 4)

CExtSpkrOpts::CExtSpkrOpts(unsigned short, int reducedDefaults) {
  m_Active = 1;
  m_Output = 6;
  m_VolumeCtrl = 1;
  m_Level = 8;
  m_HornAlertReset = reducedDefaults == 0 ? 1 : 0;
}

void CExtSpkrOpts::printOptToBuffer(CStringArray& out, CPersonality*, unsigned short) const {
  PrintFieldBlock(out, "EXTERNAL SPEAKER OPTIONS:");
}

IMPLEMENT_SERIAL(CPubAddOpts, CSerial, 1)

CPubAddOpts::CPubAddOpts(unsigned short, int) {
  m_Active = 1;
  m_Output = 7;
  m_Level = 8;
}

void CPubAddOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "PUBLIC ADDRESS OPTIONS:");
}

}  // namespace persona
