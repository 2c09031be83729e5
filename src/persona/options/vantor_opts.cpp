// CVantorOpts: model defaults, archive form and report block.
#include <persona/options/vantor_opts.h>

#include <cmath>

#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CVantorOpts, CSerial, VERSIONABLE_SCHEMA | 7)

namespace {

const char* const kSendWords[] = {"Disable", "Unkey", "Both"};
const char* const kSelectWords[] = {"Disable", "Program", "Select"};

// Milliseconds of a key-up window that a start delay percentage gives, rounded.
int DelayMs(double percent, int windowMs) {
  const double ms = std::round(windowMs * percent / 100.0);
  if (!(ms > -1e9 && ms < 1e9)) return 0;  // out of range or NaN: nothing sensible to print
  return static_cast<int>(ms);
}

// A zone or troop character as printed; a NUL would cut the report line.
char IdChar(BYTE c) { return c == 0 ? ' ' : static_cast<char>(c); }

}  // namespace

CVantorOpts::CVantorOpts(unsigned short radioType, int reducedDefaults) : CVantorOpts() {
  m_StartDelayPercent = IsRadioTypeSetA(radioType) ? 12.5 : 25.0;
  if (reducedDefaults != 0) m_EmerRepeat = 1;
  // A new radio starts with unit 1 of zone A, troop A (the default constructor leaves them 0, as
  // fields that an old file does not hold must stay).
  m_Id = 1;
  m_Zone = 'A';
  m_Troop = 'A';
  m_VehicleId = 1;
  m_ExtendedId = 1;
}

void CVantorOpts::Serialize(CArchive& ar) { SerializeTable(ar); }

void CVantorOpts::printOptToBuffer(CStringArray& out, const CPersonality*) const {
  // This block's underline has always been one dash shorter than its heading.
  out.Add("Conventional Emergency/Home Chan Options:");
  out.Add(CString('-', 40));
  out.Add(CString::Formatted("Conv_Korvex Emer             - %-7s", SwitchWord(m_ConvKorvexEmer)));
  out.Add(
      CString::Formatted("Emergency VANTOR            - %-7s", WordOf(kSendWords, m_Emer).c_str()));
  if (m_ConvKorvexEmer == 0) {
    out.Add(CString::Formatted(
        "   System                     - %-12s   Channel                     - %-12s",
        m_System.c_str(), m_Channel.c_str()));
  } else {
    out.Add(CString::Formatted(
        "   System                     - %-12s   Group                       - %-12s",
        m_TrkSystem.c_str(), m_Group.c_str()));
  }
  if (m_AlphaNumeric == 0) {
    out.Add(CString::Formatted("   ID                         - %-5d",
                               static_cast<int>(GetVantorId())));
  } else {
    out.Add(
        CString::Formatted("    Zone   -%c     Troop   - %c      Vehicle Id                  -%-3d",
                           IdChar(m_Zone), IdChar(m_Troop), m_VehicleId));
  }
  out.Add(CString::Formatted(
      "   VANTOR Extended Id Enable  - %-3s            Extended Id                 - %-6d",
      SwitchWord(m_EnExtendedId), static_cast<int>(m_ExtendedId)));
  out.Add(CString::Formatted(
      "   VANTOR                     - %-7s        VANTOR Enable               - %-3s",
      WordOf(kSendWords, m_Vantor).c_str(), SwitchWord(m_EnVantor)));
  out.Add(
      CString::Formatted("   Start Delay                - |%d %d %d %d %f|           Emergency     "
                         "              - %-3s",
                         DelayMs(m_StartDelayPercent, 250), DelayMs(m_StartDelayPercent, 500),
                         DelayMs(m_StartDelayPercent, 750), DelayMs(m_StartDelayPercent, 1000),
                         m_StartDelayPercent, SwitchWord(m_EnEmer)));
  out.Add(CString::Formatted(
      "   Silent VANTOR Emergency    - %-7s        VANTOR Emergency Repeat     - %-2d",
      WordOf(kSelectWords, m_SilentEmer).c_str(), m_EmerRepeat));
  out.Add(CString::Formatted("   P25C Repeat Emer Tone      - %-7s",
                             WordOf(kSelectWords, m_RepeatETone).c_str()));
  out.Add(CString());
}

}  // namespace persona
