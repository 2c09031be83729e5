// Conventional channels and channel sets: model defaults, equality, frequency check, archive
// form and report lines.
#include <persona/conventional/conv_set.h>

#include <persona/core/set_helpers.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CConvChannel, CObject, VERSIONABLE_SCHEMA | 10)
IMPLEMENT_SERIAL(CConvSet, CSet, VERSIONABLE_SCHEMA | 4)

namespace {

using namespace conv_channel_words;

using set_helpers::IsOneOf;

// The radio types whose reduced defaults clear the oscillator shift and the alert tone.
bool IsReducedOscType(unsigned short t) {
  return IsOneOf(t, {68, 69, 70, 80, 88, 89, 90, 92, 94, 95, 96, 97, 101, 102, 103, 104, 105, 106});
}

void PrintChannel(CStringArray& out, int n, const CConvChannel& c, double bandFrequency) {
  const unsigned bandWidth = bandFrequency > 890.0 ? 1u : c.GetBandWidth();
  out.Add(CString::Formatted("            Ch %2d %-12s", n, c.GetName().c_str()));
  out.Add(
      CString::Formatted("                  Tx Frequency      - %-8.4f     Tx Chan Guard   - %-5s",
                         c.GetTxFreq(), c.GetTxCg().c_str()));
  out.Add(
      CString::Formatted("                  Rx Frequency      - %-8.4f     Rx Chan Guard   - %-5s",
                         c.GetRxFreq(), c.GetRxCg().c_str()));
  out.Add(CString::Formatted(
      "                  Band Width        - %-7s      Voice Mode      - %-5s",
      WordOf(kBandWidthWords, bandWidth).c_str(), WordOf(kVoiceModeWords, c.GetKwKey()).c_str()));
  out.Add(
      CString::Formatted("                  Power             - %-4s         Osc Shift       - %1d",
                         WordOf(kPowerWords, c.GetPower()).c_str(), c.GetOscShift()));
  out.Add(CString::Formatted(
      "                  Tx Address        - %-3d          Rx Address      - %-3d", c.GetTxAddr(),
      c.GetRxAddr()));
  out.Add(CString::Formatted(
      "                  Vantor CG         - %-3s          Vantor Send     - %-5s",
      SwitchWord(c.GetVantorCg()), WordOf(kVantorSendWords, c.GetVantorSend()).c_str()));
  out.Add(CString::Formatted(
      "                  Vantor            - %-3s          Vantor STE      - %-3s",
      SwitchWord(c.GetVantor()), SwitchWord(c.GetVantorSte())));
  out.Add(CString::Formatted(
      "                  CCT               - %-3s          Scan            - %-3s",
      SwitchWord(c.GetCCT()), SwitchWord(c.GetScan())));
  out.Add(CString::Formatted(
      "                  Backlight         - %-3s          Preamp          - %-3s",
      SwitchWord(c.GetBacklight()), SwitchWord(c.GetPreAmp())));
  out.Add(CString::Formatted(
      "                  STE               - %-3s          OS              - %-3s",
      SwitchWord(c.GetSte()), SwitchWord(c.GetOs())));
  out.Add(CString::Formatted(
      "                  Alert Tone        - %-3s          Tx Busy         - %-3s",
      SwitchWord(c.GetAlertTone()), SwitchWord(c.GetTxBusy())));
  out.Add(CString::Formatted(
      "                  Fix Power         - %-3s          Tone Encode     - %-3s",
      SwitchWord(c.GetFixPower()), SwitchWord(c.GetToneEncode())));
  out.Add(CString::Formatted(
      "                  Type 99 Decode    - %-3s          Type 99 Table   - %-3s",
      SwitchWord(c.GetT99()), WordOf(kT99TableWords, c.GetT99Table()).c_str()));
  out.Add(CString::Formatted(
      "                  T99 Group         - %-3s          T99 Super Group - %-3s",
      SwitchWord(c.GetT99Grp()), SwitchWord(c.GetT99SuperGrp())));
  out.Add(CString::Formatted(
      "                  T99 Quick Call    - %-3s          T99 Individual  - %-3s",
      SwitchWord(c.GetT99QuickCall()), SwitchWord(c.GetT99Indv())));
  out.Add(CString::Formatted(
      "                  T99 and Rx Cg     - %-3s          NPSPAC          - %-3s",
      SwitchWord(c.GetT99AndRxCg()), SwitchWord(c.GetNpspac())));
  out.Add(CString::Formatted("                  Data              - %-3s",
                             SwitchWord(c.GetDataEnable())));
}

// The option block of the LUMO model (radio type 30).
void PrintLumoBlock(CStringArray& out, const CConvChannel& c) {
  out.Add("                  LUMO Channel Options");
  out.Add(CString::Formatted(
      "                  CU Osc Shift      - %-1d            All Call Enable - %-3s",
      c.GetCtrlUnitOscShift(), SwitchWord(c.GetAllCall())));
  out.Add(CString::Formatted(
      "                  DTMF              - %-3s          Interrogate     - %-3s",
      SwitchWord(c.GetDtmf()), SwitchWord(c.GetInterCall())));
  out.Add(CString::Formatted(
      "                  Multitone         - %-3s      Allow Radio Disable - %-3s",
      SwitchWord(c.GetMultiTone()), SwitchWord(c.GetRadioDis())));
  out.Add(CString::Formatted(
      "                  Mult Message Type - %-5s    Allow Radio Enable  - %-3s",
      WordOf(kMessTypeWords, c.GetMessType()).c_str(), SwitchWord(c.GetRadioEn())));
  out.Add(CString::Formatted(
      "                  Allow Reset       - %-3s      Ind Call Type/Ack   - %-3s",
      SwitchWord(c.GetResetCall()), WordOf(kICallWords, c.GetICall()).c_str()));
  out.Add(CString::Formatted(
      "                  Group Call        - %-3s          Allow Repeater  - %-3s",
      SwitchWord(c.GetGroupCall()), SwitchWord(c.GetRepeater())));
  out.Add(CString::Formatted("                  Invert Rx CG      - %-3s",
                             SwitchWord(c.GetRxInvDcg())));
}

// The option block of the Coyle 300 models (radio types 27 and 28).
void PrintCoyleBlock(CStringArray& out, const CConvChannel& c) {
  out.Add("          Coyle 300 Channel Options");
  out.Add(CString::Formatted(
      "                  Tx Osc Shift      - %-1d               Rx Osc Shift - %-1d",
      c.GetTxOscShift(), c.GetRxOscShift()));
  out.Add(CString::Formatted(
      "        300M USA/Canadian RF Power  - %-3s         300M Euro RF Power - %-2d",
      WordOf(kUsaPowerWords, c.GetUsaPower()).c_str(), c.GetEuroPower()));
  out.Add(CString::Formatted(
      "              CG Busy Lockout       - %-3s         2nd l.o. Injection - %-3s",
      WordOf(kLowHighWords, c.GetCgBusyLockout()).c_str(),
      WordOf(kLoInjectionWords, c.Get2ndLoInj()).c_str()));
}

}  // namespace

// ---- CConvChannel ----------------------------------------------------------------------------

CConvChannel::CConvChannel(unsigned short t, int reducedDefaults) {
  m_Power = reducedDefaults == 0 ? 1 : 0;
  m_T99Table = IsOneOf(t, {29, 30, 33}) ? 1 : 0;
  m_OscShift = IsOneOf(t, {88, 89, 94, 95, 101, 102, 104, 105, 106}) ? 3 : 2;
  if (reducedDefaults != 0) {
    m_Backlight = 0;
    if (IsReducedOscType(t)) m_OscShift = 0;
    if (IsReducedOscType(t) || IsOneOf(t, {54, 64, 4150})) m_AlertTone = 0;
  }
}

CConvChannel& CConvChannel::operator=(const CConvChannel* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CConvChannel::operator==(const CConvChannel& o) const {
  return set_helpers::SameFields(*this, o, set_helpers::SameFrequencyStep);
}

void CConvChannel::Serialize(CArchive& ar) { SerializeFields(ar, *this, ReadSchemaByte(ar)); }

// ---- CConvSet --------------------------------------------------------------------------------

CConvSet::CConvSet() : CElementSet(ConvSetType) {}

CConvSet::CConvSet(unsigned short t, int reducedDefaults) : CConvSet() {
  if (reducedDefaults != 0 && (t == 54 || t == 4150)) m_Dtmf = 0;
}

CConvSet::CConvSet(const CConvSet& src) : CElementSet(src) {
  CopyOwnFields(src);
  m_T99wcg = src.m_Dtmf;
}

CConvSet& CConvSet::operator=(const CConvSet* src) {
  if (!AssignSetPart<CConvChannel>(src)) return *this;
  CopyOwnFields(*src);
  m_T99wcg = src->m_T99wcg;
  return *this;
}

void CConvSet::CopyOwnFields(const CConvSet& src) {
  m_TxMinFreq = src.m_TxMinFreq;
  m_TxMaxFreq = src.m_TxMaxFreq;
  m_RxMinFreq = src.m_RxMinFreq;
  m_RxMaxFreq = src.m_RxMaxFreq;
  m_HomeChan = src.m_HomeChan;
  m_P1Chan = src.m_P1Chan;
  m_P2Chan = src.m_P2Chan;
  m_WideScanChan = src.m_WideScanChan;
  m_AltPttChan = src.m_AltPttChan;
  m_Dtmf = src.m_Dtmf;
  m_T99Super = src.m_T99Super;
  m_T99Group = src.m_T99Group;
  m_T99IndvDec = src.m_T99IndvDec;
  m_T99QuickCall = src.m_T99QuickCall;
  m_T99ToneSet = src.m_T99ToneSet;
  m_DataCCT = src.m_DataCCT;
}

int CConvSet::operator==(const CConvSet& o) const {
  return m_HomeChan == o.m_HomeChan && m_P1Chan == o.m_P1Chan && m_P2Chan == o.m_P2Chan &&
         m_WideScanChan == o.m_WideScanChan && m_AltPttChan == o.m_AltPttChan &&
         m_Dtmf == o.m_Dtmf && m_T99wcg == o.m_T99wcg && m_T99Super == o.m_T99Super &&
         m_T99Group == o.m_T99Group && m_T99IndvDec == o.m_T99IndvDec &&
         m_T99QuickCall == o.m_T99QuickCall && m_T99ToneSet == o.m_T99ToneSet &&
         m_DataCCT == o.m_DataCCT &&
         set_helpers::SameElements<CConvChannel>(m_elements, o.m_elements);
}

CConvChannel* CConvSet::GetChannelAt(unsigned short index) const {
  return set_helpers::ElementAt<CConvChannel>(m_elements, index);
}

int CConvSet::FindChannelIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CConvChannel>(m_elements, name);
}

void CConvSet::DeleteSetReferencesToChan(const CString& name) {
  for (CString* field : {&m_HomeChan, &m_P1Chan, &m_P2Chan, &m_WideScanChan, &m_AltPttChan}) {
    if (*field == name) field->Empty();
  }
}

void CConvSet::DeleteSetReferencesToElement(const CObject& element) {
  if (const auto* channel = dynamic_cast<const CConvChannel*>(&element)) {
    DeleteSetReferencesToChan(channel->GetName());
  }
}

void CConvSet::GetNames(CStringArray& names) const {
  set_helpers::CollectNames<CConvChannel>(m_elements, names);
}

int CConvSet::CheckFrequencyRange(double first, double, double third, double fourth) const {
  return set_helpers::CheckChannelFrequencies<CConvChannel>(m_elements,
                                                            {first, third, fourth, false});
}

void CConvSet::Serialize(CArchive& ar) {
  CSet::Serialize(ar);
  SerializeFields(ar, *this, ReadSchemaByte(ar));
}

void CConvSet::PrintHeader(CStringArray& out, int setNumber) const {
  out.Add(CString::Formatted("   %-3d - %-12s", setNumber, GetName().c_str()));
  out.Add(CString::Formatted("                  Home Channel      - %-12s Wide Scan Chan  - %-12s",
                             m_HomeChan.c_str(), m_WideScanChan.c_str()));
  out.Add(CString::Formatted("                  Priority 1 Chan   - %-12s Priority 2 Chan - %-12s",
                             m_P1Chan.c_str(), m_P2Chan.c_str()));
  out.Add(CString::Formatted("                  Alternate PTT Chan- %-12s DTMF              - %-3s",
                             m_AltPttChan.c_str(), SwitchWord(m_Dtmf)));
  out.Add(CString::Formatted("                  Data CCT          - %-6d", m_DataCCT));
  out.Add(CString());
}

void CConvSet::printToBuffer(CStringArray& out, int setNumber, unsigned short radioType,
                             double bandFrequency, const ElementLinesEnd* elementEnd) const {
  PrintHeader(out, setNumber);
  int n = 0;
  for (CObject* obj : m_elements) {
    ++n;
    const CConvChannel* c = set_helpers::As<CConvChannel>(obj);
    if (c == nullptr) continue;
    PrintChannel(out, n, *c, bandFrequency);
    if (radioType == 30) {
      PrintLumoBlock(out, *c);
    } else if (radioType == 29 || radioType == 33) {
      out.Add(CString::Formatted(
          "                  DTMF              - %-3s          Tx Osc          - %-3s",
          SwitchWord(c->GetDtmf()), SwitchWord(c->GetTxOs())));
    } else if (radioType == 27 || radioType == 28) {
      PrintCoyleBlock(out, *c);
    }
    out.Add(CString());
    EndElementLines(elementEnd, out);
  }
  out.Add(CString());
}

}  // namespace persona
