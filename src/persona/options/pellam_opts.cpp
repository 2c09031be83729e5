// CPellamOpts: model defaults, archive form and report block.
#include <persona/options/pellam_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CPellamOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CPellamOpts::CPellamOpts(unsigned short radioType, int reducedDefaults) : CPellamOpts() {
  if (IsRadioTypeSetA(radioType)) m_MaxStoredMsgs = 20;
  if (reducedDefaults != 0) {
    m_PlmRxAlertTone = 0;
    m_PopUpDisplay = 0;
  }
}

void CPellamOpts::Serialize(CArchive& ar) { SerializeTable(ar); }

void CPellamOpts::printOptToBuffer(CStringArray& out, const CPersonality*) const {
  PrintFieldBlock(out, "PELLAM OPTIONS:");
}

}  // namespace persona
