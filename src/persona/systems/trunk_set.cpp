// Trunk channels and trunk sets: model defaults, equality, frequency check, archive form and
// report lines.
#include <persona/systems/trunk_set.h>

#include <persona/core/set_helpers.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CTrunkChannel, CObject, VERSIONABLE_SCHEMA | 3)
IMPLEMENT_SERIAL(CTrunkSet, CSet, VERSIONABLE_SCHEMA | 3)

namespace {

using namespace trunk_channel_words;

using set_helpers::IsOneOf;

const char* const kCCLimitWords[] = {"All", "First 5", "First 10", "First 15"};
const char* const kBandWidthWords[] = {"Wide", "Narrow"};
const char* const kBaudWords[] = {"4800", "9600"};
const char* const kPowerWords[] = {"Low", "High"};

// The limit label of a CCLimit (0, 5, 10, 15 and the values between); a limit of 20 or more
// prints as its number.
std::string CCLimitWord(WORD limit) {
  const unsigned entry = limit / 5u;
  return entry < 4 ? kCCLimitWords[entry] : std::to_string(limit);
}

}  // namespace

// ---- CTrunkChannel ---------------------------------------------------------------------------

CTrunkChannel::CTrunkChannel(unsigned short t, int reducedDefaults) {
  if (t == 96 || t == 97) {
    m_OscShift = 1;
  } else if (IsOneOf(t, {88, 89, 94, 95, 101, 102, 104, 105, 106})) {
    m_OscShift = 3;
  }
  if (reducedDefaults != 0 &&
      IsOneOf(t, {68, 69, 70, 96, 94, 95, 88, 89, 101, 102, 104, 105, 106})) {
    m_OscShift = 0;
  }
}

CTrunkChannel& CTrunkChannel::operator=(const CTrunkChannel* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CTrunkChannel::operator==(const CTrunkChannel& o) const {
  return set_helpers::SameFrequencyStep(m_TxFreq, o.m_TxFreq) &&
         set_helpers::SameFrequencyStep(m_RxFreq, o.m_RxFreq) && m_OscShift == o.m_OscShift &&
         m_OsOpt == o.m_OsOpt && m_Type == o.m_Type && m_Npspac == o.m_Npspac;
}

void CTrunkChannel::Serialize(CArchive& ar) { SerializeFields(ar, *this, ReadSchemaByte(ar)); }

// ---- CTrunkSet -------------------------------------------------------------------------------

CTrunkSet::CTrunkSet() : CElementSet(TrunkSetType) {}

CTrunkSet::CTrunkSet(unsigned short t, int reducedDefaults, double bandFrequency) : CTrunkSet() {
  if (t == 77 && reducedDefaults == 0) m_Power = 1;
  m_BaudRate = bandFrequency < 890.0 ? 1 : 0;
  m_BandWidth = bandFrequency > 890.0 ? 1 : 0;
}

CTrunkSet::CTrunkSet(const CTrunkSet& src) : CElementSet(src), CSetKeyList(src) {
  CopySettings(src);
}

CTrunkSet& CTrunkSet::operator=(const CTrunkSet* src) {
  if (!AssignSetPart<CTrunkChannel>(src)) return *this;
  CopySettings(*src);
  return *this;
}

void CTrunkSet::CopySettings(const CTrunkSet& src) {
  m_TxMinFreq = src.m_TxMinFreq;
  m_TxMaxFreq = src.m_TxMaxFreq;
  m_RxMinFreq = src.m_RxMinFreq;
  m_RxMaxFreq = src.m_RxMaxFreq;
  m_Power = src.m_Power;
  m_SiteId = src.m_SiteId;
  m_CCLimit = src.m_CCLimit;
  m_MaxChan = src.m_MaxChan;
  m_BaudRate = src.m_BaudRate;
  m_BandWidth = src.m_BandWidth;
  m_PreAmp = src.m_PreAmp;
  m_UnkeyMess = src.m_UnkeyMess;
}

int CTrunkSet::operator==(const CTrunkSet& o) const {
  return m_Power == o.m_Power && m_SiteId == o.m_SiteId && m_CCLimit == o.m_CCLimit &&
         m_MaxChan == o.m_MaxChan && m_BaudRate == o.m_BaudRate && m_BandWidth == o.m_BandWidth &&
         m_PreAmp == o.m_PreAmp && m_UnkeyMess == o.m_UnkeyMess &&
         set_helpers::SameElements<CTrunkChannel>(m_elements, o.m_elements);
}

CTrunkChannel* CTrunkSet::GetChannelAt(unsigned short index) const {
  return set_helpers::ElementAt<CTrunkChannel>(m_elements, index);
}

int CTrunkSet::CheckFrequencyRange(double a, double, double c, double d) const {
  return set_helpers::CheckChannelFrequencies<CTrunkChannel>(m_elements, {a, c, d, true});
}

void CTrunkSet::Serialize(CArchive& ar) {
  CSet::Serialize(ar);
  const BYTE schema = ReadSchemaByte(ar);
  SerializeFields(ar, *this, schema);
  if (ar.IsLoading()) {
    if (m_BandWidth > 1) m_BandWidth = 0;
    if (!SchemaAtLeast(schema, 3)) m_BaudRate = 0xFF;
  }
}

void CTrunkSet::printToBuffer(CStringArray& out, int, const ElementLinesEnd* elementEnd) const {
  out.Add(CString::Formatted("                  Max Channel       - %-2d", m_MaxChan));
  out.Add(
      CString::Formatted("                  CC Limits         - %-8s     Send NB Unkey Mess - %-3s",
                         CCLimitWord(m_CCLimit).c_str(), SwitchWord(m_UnkeyMess)));
  out.Add(CString::Formatted(
      "                  Korvex Bandwidth   - %-8s     Signalng Baud Rate - %-4s",
      WordOf(kBandWidthWords, m_BandWidth).c_str(), WordOf(kBaudWords, m_BaudRate).c_str()));
  out.Add(CString::Formatted(
      "                  Power             - %-3s          Preamp             - %-3s",
      WordOf(kPowerWords, m_Power).c_str(), SwitchWord(m_PreAmp)));
  out.Add(CString());
  out.Add("                  Ch    Tx Freq    Rx Freq    OS    Type    Osc  NPSPAC");
  out.Add(CString(' ', 18) + CString('-', 53));
  int number = 0;
  for (CObject* obj : m_elements) {
    ++number;
    const CTrunkChannel* ch = set_helpers::As<CTrunkChannel>(obj);
    if (ch == nullptr) continue;
    out.Add(CString::Formatted("                  %2d    %8.4f   %8.4f   %-3s   %-6s   %1d   %-3s",
                               number, ch->GetTxFreq(), ch->GetRxFreq(), SwitchWord(ch->GetOsOpt()),
                               WordOf(kChannelTypeWords, ch->GetType()).c_str(), ch->GetOscShift(),
                               SwitchWord(ch->GetNpspac())));
    EndElementLines(elementEnd, out);
  }
}

}  // namespace persona
