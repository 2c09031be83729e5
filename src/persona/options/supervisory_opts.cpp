// CSupervisoryOpts: model defaults, archive form and report block.
#include <persona/options/supervisory_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CSupervisoryOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CSupervisoryOpts::CSupervisoryOpts(unsigned short radioType, int reducedDefaults)
    : CSupervisoryOpts() {
  if (reducedDefaults == 0 && IsRadioTypeSetA(radioType)) m_LastSysGrpRecall = 1;
}

void CSupervisoryOpts::Serialize(CArchive& ar) { SerializeTable(ar); }

void CSupervisoryOpts::printOptToBuffer(CStringArray& out, const CPersonality*) const {
  PrintFieldBlock(out, "SUPERVISORY OPTIONS:");
}

}  // namespace persona
