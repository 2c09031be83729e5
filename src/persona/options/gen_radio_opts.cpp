// CGenRadioOpts: constructors, copy without the emergency latch, archive form with its load
// clamps, and report block.
#include <persona/options/gen_radio_opts.h>

#include <algorithm>

#include <persona/options/option_report.h>
#include <persona/options/scratch_pad_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CGenRadioOpts, CSerial, VERSIONABLE_SCHEMA | 9)

namespace {
const char* const kLockoutTypeWords[] = {"Normal", "Signal"};
const char* const kInterconnectWords[] = {"Simplex", "Duplex"};
const char* const kOperationWords[] = {"Normal", "CC Monitor"};
const char* const kBandWidthWords[] = {"25", "12.5"};
const char* const kBaudWords[] = {"4800", "9600"};
}  // namespace

CGenRadioOpts::CGenRadioOpts(unsigned short radioType, int reducedDefaults) : CGenRadioOpts() {
  m_BaudRate = 1;
  m_RxPolarity = radioType == 103 ? 1 : 0;
  if (reducedDefaults == 0) return;
  if (IsRadioTypeSetA(radioType)) m_DynamicRegroup = 0;
  if (IsRadioTypeIn(radioType, {54, 4150})) m_TxLockout = 0;
  if (IsRadioTypeIn(radioType, {43, 64})) m_Squelch = 0;
}

CGenRadioOpts::CGenRadioOpts(int narrowBand, unsigned short radioType, int reducedDefaults)
    : CGenRadioOpts(radioType, reducedDefaults) {
  m_LowMicAudio = 1;
  m_BandWidth = narrowBand != 0 ? 1 : 0;
  m_BaudRate = narrowBand != 0 ? 0 : 1;
}

CGenRadioOpts::CGenRadioOpts(const CGenRadioOpts& src) : CFieldOption(src) {
  *this = src;
  m_EmerLatch = 0;
}

CGenRadioOpts& CGenRadioOpts::operator=(const CGenRadioOpts* src) {
  if (src != nullptr && src != this) {
    const BYTE latch = m_EmerLatch;
    *this = *src;
    m_EmerLatch = latch;
  }
  return *this;
}

void CGenRadioOpts::Serialize(CArchive& ar) {
  SerializeTable(ar);
  if (ar.IsLoading()) {
    // Deliberate repairs of values that older versions let through.
    m_RadioOperation = std::min<WORD>(m_RadioOperation, 1);
    m_MaxVolume = std::min<BYTE>(m_MaxVolume, 11);
  }
}

void CGenRadioOpts::printOptToBuffer(CStringArray& out, const CPersonality* personality,
                                     unsigned short radioType) const {
  const QuotedOption<CScratchPadOpts> scratchPad(personality, radioType);
  OptionBlock block(out, "GENERAL RADIO OPTIONS:");
  block.Line("   Transmit Lockout Type      - %-6s         Low Mic Audio               - %-3s",
             WordOf(kLockoutTypeWords, m_TxLockoutType).c_str(), SwitchWord(m_LowMicAudio));
  block.Line("   Interconnect State         - %-7s        Dynamic Regroup             - %-3s",
             WordOf(kInterconnectWords, m_InterconnectState).c_str(), SwitchWord(m_DynamicRegroup));
  block.Line("   Radio Operation            - %-10s     Base Mobile Operation       - %-3s",
             kOperationWords[std::min<WORD>(m_RadioOperation, 1)], SwitchWord(m_BaseMobileOper));
  block.Line("   Test Unit System           - %-12s   Transmit Busy               - %-3s",
             m_TestUnitSystem.c_str(), SwitchWord(m_TxLockout));
  block.Line("   Home System                - %-12s   Home Decode                 - %-3s",
             m_HomeSystem.c_str(), SwitchWord(m_HomeDecode));
  block.Line("   Conventional Test Set      - %-12s   Transmit Relay              - %-3s",
             m_CnvTestSet.c_str(), SwitchWord(m_TxRelay));
  block.Line("   Trunked Bandwidth          - %-4s", WordOf(kBandWidthWords, m_BandWidth).c_str());
  block.Line("   Signalling Baud Rate       - %-4s           Test Mode                   - %-3s",
             WordOf(kBaudWords, m_BaudRate).c_str(), SwitchWord(m_TestMode));
  block.Line("   Minimum Volume             - %-2d             WEX Max Storage Location    - %-2d",
             m_MinVol, scratchPad->GetNumScratchPad());
  block.Line("   Fast Ptt                   - %-3s", SwitchWord(m_FastPtt));
  block.Line("   Minimum LID                - %-5d          Over Air Channel Expansion  - %-3s",
             m_MinLid, SwitchWord(m_OverAirChanExp));
  block.Line("   Maximum LID                - %-5d", m_MaxLid);
  block.Line("   Minimum KORVEX IP LID       - %-7d", m_MinEaLid);
  block.Line("   Maximum KORVEX IP LID       - %-7d", m_MaxEaLid);
  block.Line("   Minimum P25 LID            - %-7d", m_MinP25Lid);
  block.Line("   Maximum P25 LID            - %-7d", m_MaxP25Lid);
  block.Line("   Squelch                    - %-3d", m_Squelch);
  block.Line("   Override Default NPSPAC Chan Assignments - %-3s", SwitchWord(m_OverrideNpspac));
  if (IsRadioTypeIn(radioType, {101, 102, 103, 104, 105, 106})) {
    block.Line("   RX Low Speed Data Polarity:  %s", m_RxPolarity == 0 ? "NO" : "YES");
  }
  block.End();
}

}  // namespace persona
