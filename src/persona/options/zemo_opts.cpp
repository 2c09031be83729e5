// CZemoOpts model defaults and report block.
#include <persona/options/zemo_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CZemoOpts, CSerial, VERSIONABLE_SCHEMA | 3)

CZemoOpts::CZemoOpts(unsigned short, int) {
  m_BattAlarm = 1;
  m_BattRepeatTime = 60;
  m_ChargerSwitchMode = 1;
}

void CZemoOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "Tarsk Z40A/ZQ400/ZEMO/Quenby XR/LRA OPTIONS:");
}

}  // namespace persona
