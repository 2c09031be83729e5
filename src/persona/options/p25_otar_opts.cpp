// CP25OtarOpts: archive form and report block.
#include <persona/options/p25_otar_opts.h>

#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CP25OtarOpts, CSerial, VERSIONABLE_SCHEMA | 1)

CP25OtarOpts::CP25OtarOpts(unsigned short, int) {}

CP25OtarOpts CP25OtarOpts::operator=(const CP25OtarOpts& src) {
  if (&src != this) {
    m_Mnp = src.m_Mnp;
    m_RetryTimer = src.m_RetryTimer;
    m_KmfRsi = src.m_KmfRsi;
    m_IndividualRsi = src.m_IndividualRsi;
    m_OtarEnabled = src.m_OtarEnabled;
  }
  return *this;
}

void CP25OtarOpts::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

void CP25OtarOpts::printOptToBuffer(CStringArray& out, const CPersonality*) const {
  OptionBlock block(out, "P25 OTAR Options");
  block.Line("OTAR Options Enabled: %-9s", m_OtarEnabled ? "TRUE" : "FALSE");
  block.End();
  block.Line("Individual RSI: %-10d", static_cast<int>(m_IndividualRsi));
  block.Line("KMF RSI: %-10d", static_cast<int>(m_KmfRsi));
  block.Line("MNP: %-10d", m_Mnp);
  block.Line("Retry Timer: %-10d", m_RetryTimer);
  block.End();
}

}  // namespace persona
