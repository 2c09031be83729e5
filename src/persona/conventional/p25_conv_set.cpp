// P25 conventional channels and sets: defaults, equality, frequency check, archive form and
// report lines.
#include <persona/conventional/p25_conv_set.h>

#include <persona/core/set_helpers.h>
#include <persona/framework/archive.h>
#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CP25ConvChannel, CObject, VERSIONABLE_SCHEMA | 3)
IMPLEMENT_SERIAL(CP25ConvSet, CSet, 1)

namespace {

using namespace p25_conv_channel_words;

void PrintChannel(CStringArray& out, int n, const CP25ConvChannel& c) {
  out.Add(CString::Formatted("            Ch %2d %-12s", n, c.GetName().c_str()));
  out.Add(
      CString::Formatted("                  Tx Frequency      - %-8.4f     Tx Chan Guard   - %-5s",
                         c.GetTxFreq(), c.GetTxCg().c_str()));
  out.Add(
      CString::Formatted("                  Rx Frequency      - %-8.4f     Rx Chan Guard   - %-5s",
                         c.GetRxFreq(), c.GetRxCg().c_str()));
  out.Add(
      CString::Formatted("                  Talk Group ID     - %-7d      Sq Mode         - %-4s",
                         Signed32(c.GetTgid()), WordOf(kSqModeWords, c.GetSqMode()).c_str()));
  out.Add(CString::Formatted(
      "                  Tx NAC            - %-3x          Rx NAC          - %-3x", c.GetTxNac(),
      c.GetRxNac()));
  out.Add(
      CString::Formatted("                  Band Width        - %-7s      Voice Mode      - %-5s",
                         WordOf(kBandWidthWords, c.GetBandWidth()).c_str(),
                         WordOf(kVoiceModeWords, c.GetVoiceMode()).c_str()));
  out.Add(CString::Formatted(
      "                  Power             - %-4s         PreAmp          - %-3s",
      WordOf(kPowerWords, c.GetPower()).c_str(), SwitchWord(c.GetPreAmp())));
  out.Add(CString::Formatted(
      "                  CCT               - %-3s          Scan            - %-3s",
      SwitchWord(c.GetCCT()), SwitchWord(c.GetScan())));
  out.Add(CString::Formatted(
      "                  Backlight         - %-3s          Tx Busy         - %-3s",
      SwitchWord(c.GetBacklight()), SwitchWord(c.GetTxBusy())));
  out.Add(CString::Formatted(
      "                  STE               - %-3s          Alert Tone      - %-3s",
      SwitchWord(c.GetSte()), SwitchWord(c.GetAlertTone())));
  out.Add(CString::Formatted("                  Fix Power         - %-3s",
                             SwitchWord(c.GetFixPower())));
  out.Add(CString());
}

}  // namespace

// ---- CP25ConvChannel -------------------------------------------------------------------------

CP25ConvChannel::CP25ConvChannel(unsigned short, int reducedDefaults) {
  if (reducedDefaults != 0) {
    m_Backlight = 0;
    m_AlertTone = 0;
    m_VoiceMode = 0;
  }
}

CP25ConvChannel& CP25ConvChannel::operator=(const CP25ConvChannel* src) {
  if (src != nullptr) *this = *src;
  return *this;
}

int CP25ConvChannel::operator==(const CP25ConvChannel& o) const {
  return set_helpers::SameFields(*this, o, set_helpers::WithinOneHertz);
}

void CP25ConvChannel::Serialize(CArchive& ar) { SerializeFields(ar, *this, ReadSchemaByte(ar)); }

// ---- CP25ConvSet -----------------------------------------------------------------------------

CP25ConvSet::CP25ConvSet() : CElementSet(P25ConvSetType) {}

CP25ConvSet::CP25ConvSet(unsigned short, int) : CP25ConvSet() {}

CP25ConvSet& CP25ConvSet::operator=(const CP25ConvSet* src) {
  if (!AssignSetPart<CP25ConvChannel>(src)) return *this;
  m_TxMinFreq = src->m_TxMinFreq;
  m_TxMaxFreq = src->m_TxMaxFreq;
  m_RxMinFreq = src->m_RxMinFreq;
  m_RxMaxFreq = src->m_RxMaxFreq;
  m_P25GroupSet = src->m_P25GroupSet;
  return *this;
}

int CP25ConvSet::operator==(const CP25ConvSet& o) const {
  return Name() == o.Name() && GetSetType() == o.GetSetType() && GetScope() == o.GetScope() &&
         m_TxMinFreq == o.m_TxMinFreq && m_TxMaxFreq == o.m_TxMaxFreq &&
         m_RxMinFreq == o.m_RxMinFreq && m_RxMaxFreq == o.m_RxMaxFreq &&
         m_P25GroupSet == o.m_P25GroupSet &&
         set_helpers::SameElements<CP25ConvChannel>(m_elements, o.m_elements);
}

CP25ConvChannel* CP25ConvSet::GetChannelAt(unsigned short index) const {
  return set_helpers::ElementAt<CP25ConvChannel>(m_elements, index);
}

int CP25ConvSet::FindChannelIndex(const CString& name) const {
  return set_helpers::FindIndexByName<CP25ConvChannel>(m_elements, name);
}

void CP25ConvSet::DeleteSetReferencesToChan(const CString& name) {
  if (m_P25GroupSet == name) m_P25GroupSet.Empty();
}

void CP25ConvSet::DeleteSetReferencesToElement(const CObject& element) {
  if (const auto* channel = dynamic_cast<const CP25ConvChannel*>(&element)) {
    DeleteSetReferencesToChan(channel->GetName());
  }
}

void CP25ConvSet::GetNames(CStringArray& names) const {
  set_helpers::CollectNames<CP25ConvChannel>(m_elements, names);
}

int CP25ConvSet::CheckFrequencyRange(double first, double, double third, double fourth) const {
  return set_helpers::CheckChannelFrequencies<CP25ConvChannel>(m_elements,
                                                               {first, third, fourth, true});
}

void CP25ConvSet::Serialize(CArchive& ar) {
  CSet::Serialize(ar);
  SerializeFields(ar, *this);
}

void CP25ConvSet::printToBuffer(CStringArray& out, int setNumber, unsigned short, double,
                                const ElementLinesEnd* elementEnd) const {
  out.Add(CString::Formatted("   %-3d - %-12s", setNumber, GetName().c_str()));
  out.Add(CString::Formatted("                  P25 Group Set     - %-12s", m_P25GroupSet.c_str()));
  int n = 0;
  for (CObject* obj : m_elements) {
    ++n;
    if (const CP25ConvChannel* c = set_helpers::As<CP25ConvChannel>(obj)) {
      PrintChannel(out, n, *c);
      EndElementLines(elementEnd, out);
    }
  }
}

}  // namespace persona
