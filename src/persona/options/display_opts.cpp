// CDisplayOpts: model defaults, archive form with the backlight conversion, report block.
#include <persona/options/display_opts.h>

#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CDisplayOpts, CSerial, VERSIONABLE_SCHEMA | 5)

namespace {
const char* const kSysGrpWords[] = {"Both", "System", "Group"};
const char* const kBankTypeWords[] = {"Name", "Number"};
}  // namespace

CDisplayOpts::CDisplayOpts(unsigned short radioType, int reducedDefaults) : CDisplayOpts() {
  if (reducedDefaults == 0) return;
  if (IsRadioTypeSetA(radioType)) m_ICallStore = 0;
  if (IsRadioTypeSetB(radioType)) m_VolumeDisplay = 0;
}

void CDisplayOpts::Serialize(CArchive& ar) {
  const BYTE schema = SerializeTable(ar);
  if (ar.IsLoading() && !SchemaAtLeast(schema, 3))
    m_BacklightLevel = static_cast<WORD>(m_BacklightLevel * 6);
}

void CDisplayOpts::printOptToBuffer(CStringArray& out, const CPersonality*, unsigned short) const {
  OptionBlock block(out, "DISPLAY OPTIONS:");
  block.Pair("Alias Mapping", SwitchWord(m_AlphaMap), "Display Group ID",
             SwitchWord(m_DisplayGroupId));
  block.Pair("Display Individual ID", SwitchWord(m_DisplayIndId), "ICALL Indicator",
             SwitchWord(m_ICallIndicator));
  block.Pair("Display Icons", SwitchWord(m_DisplayIcon), "Combined Display",
             SwitchWord(m_CombinedDisplay));
  block.Pair("Volume Display", SwitchWord(m_VolumeDisplay), "Transmit Backlight",
             SwitchWord(m_TxBacklight));
  block.Pair("ICALL Store", SwitchWord(m_ICallStore), "Vehicular Charge Back",
             SwitchWord(m_VehChargeBack));
  block.Pair("System/Group Display", WordOf(kSysGrpWords, m_SysGrpDisplay), "Unit Display",
             SwitchWord(m_UnitDisplay));
  block.Pair("Backlight Level", std::to_string(m_BacklightLevel), "Display Delimiter",
             SwitchWord(m_DisplayDelimiter));
  block.Pair("Group Bank Display", SwitchWord(m_GrpBankDisplay), "Group Bank Display Type",
             WordOf(kBankTypeWords, m_GrpBankDisplayType));
  block.Line("   Backlight Timeout          - %-4.1f", m_BacklightTimeout);
  block.Line("   Toggle Alert Message         - %s", m_ToggleAlertMsg != 0 ? "TRUE" : "FALSE");
  block.End();
}

}  // namespace persona
