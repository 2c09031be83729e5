// CAlertOpts: model defaults, archive form and report block.
#include <persona/options/alert_opts.h>

#include <persona/options/gen_radio_opts.h>
#include <persona/options/option_report.h>
#include <persona/options/pellam_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CAlertOpts, CSerial, VERSIONABLE_SCHEMA | 4)

namespace {
const char* const kAlertToneWords[] = {"Single", "Continuous", "Adjustable"};
const char* const kVolumeWords[] = {"Low", "Mid", "High"};
}  // namespace

CAlertOpts::CAlertOpts(unsigned short radioType, int reducedDefaults) : CAlertOpts() {
  const bool setA = IsRadioTypeSetA(radioType);
  if (reducedDefaults == 0) {
    if (IsRadioTypeIn(radioType, {29, 33})) m_P1ScanAlert = 1;
    return;
  }
  if (setA) m_MaxAlertTone = 0;
  if (setA || IsRadioTypeIn(radioType, {54, 4150})) m_ChanAccessTones = 0;
  if (IsRadioTypeSetB(radioType)) {
    m_TrkTxBeep = 0;
    m_CnvTxBeep = 0;
  }
}

void CAlertOpts::Serialize(CArchive& ar) { SerializeTable(ar); }

void CAlertOpts::printOptToBuffer(CStringArray& out, const CPersonality* personality,
                                  unsigned short radioType) const {
  const QuotedOption<CGenRadioOpts> general(personality, radioType);
  const QuotedOption<CPellamOpts> pellam(personality, radioType);
  OptionBlock block(out, "ALERT OPTIONS:");
  block.Line("   Receive Alert Tone         - %-3s            Alert Tones                 - %-9s",
             SwitchWord(m_RxAlertTone), WordOf(kAlertToneWords, m_AlertTones).c_str());
  block.Line("   Ready To Talk Tone         - %-3s            Minimum Alert Tone          - %-2d",
             SwitchWord(m_ChanAccessTones), m_MinAlertTone);
  block.Line("   ICALL Ring Alert           - %-3s            Maximum Alert Tone          - %-2d",
             SwitchWord(m_IcallRingAlert), m_MaxAlertTone);
  block.Line("   Conv. Ready To Talk Tone   - %-3s            P1 Scan Alert Tone          - %-3s",
             SwitchWord(m_CnvTxBeep), SwitchWord(m_P1ScanAlert));
  block.Line("   Trunked Ready To Talk Tone - %-3s            Out Of Range Alert Tone     - %-3s",
             SwitchWord(m_TrkTxBeep), SwitchWord(m_OutOfRangeAlert));
  block.Line("   Audible Alert Beeps        - %-3s", SwitchWord(m_AudibleAlert));
  block.Line("   Type99/Vantor/MultiTone Alert Tone        - %-3s", SwitchWord(m_AlertToneEn));
  block.Line("   Type99/Vantor/MultiTone Alert Tone Volume - %-10s",
             WordOf(kVolumeWords, m_AlertToneVol).c_str());
  const WORD ringVolume = general->GetICallMinVol();
  const char* pellamTone = SwitchWord(pellam->GetPlmRxAlertTone());
  if (ringVolume == 255) {
    block.Line("   ICALL Minimum Ring Volume  - OFF            PELLAM Receive Alert Tone   - %-3s",
               pellamTone);
  } else {
    block.Line(
        "   ICALL Minimum Ring Volume  - %-2d             PELLAM Receive Alert Tone   - %-3s",
        ringVolume, pellamTone);
  }
  block.Line("   Multiple Low Battery Alerts               - %-3s",
             SwitchWord(m_MultLowBattAlerts));
  block.Line("   Low Battery Alert Tone Volume             - %-10s",
             WordOf(kVolumeWords, m_LowBattAlertVol).c_str());
  block.End();
}

}  // namespace persona
