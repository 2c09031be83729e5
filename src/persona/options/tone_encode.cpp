// CToneSeq and CToneEncode: archive forms, sequence access and report block.
#include <persona/options/tone_encode.h>

#include <persona/options/option_report.h>

namespace persona {

IMPLEMENT_SERIAL(CToneSeq, CObject, VERSIONABLE_SCHEMA | 2)
IMPLEMENT_SERIAL(CToneEncode, CSerial, VERSIONABLE_SCHEMA | 2)

namespace {
const char* const kEncodeTypeWords[] = {"None", "Single Tone", "Sequential"};
const char* const kTriggerWords[] = {"Manual", "PTT Press", "PTT Release", "Press And Release"};
}  // namespace

CToneSeq::CToneSeq(unsigned short, int) {}

void CToneSeq::Serialize(CArchive& ar) { SerializeTable(ar); }

void CToneSeq::printToBuffer(OptionBlock& lines) const {
  lines.Pair("Sequence " + m_Name.str(), WordOf(kEncodeTypeWords, m_EncodeType), "Encoding Trigger",
             WordOf(kTriggerWords, m_EncodingTrigger));
  lines.Pair("Tone Duration (ms)", std::to_string(m_ToneDuration), "Pre-Delay (ms)",
             std::to_string(m_PreDelay));
  std::string tones;
  for (WORD tone : m_Tones) {
    tones += CString::Formatted("%s%.1f", tones.empty() ? "" : " ", tone / 10.0).str();
  }
  lines.Value("Tones (Hz)", tones);
}

CToneEncode::CToneEncode() : m_Seqs(RUNTIME_CLASS(CToneSeq)) {}

CToneEncode::CToneEncode(unsigned short, int reducedDefaults) : CToneEncode() {
  if (reducedDefaults != 0) m_SideTone = 0;
}

CToneEncode::CToneEncode(const CToneEncode& src)
    : CFieldOption(src), m_Seqs(RUNTIME_CLASS(CToneSeq)) {
  CopyFrom(src);
}

CToneEncode& CToneEncode::operator=(const CToneEncode* src) {
  if (src != nullptr && src != this) CopyFrom(*src);
  return *this;
}

void CToneEncode::CopyFrom(const CToneEncode& src) {
  m_SideTone = src.m_SideTone;
  m_ToneLevel = src.m_ToneLevel;
  SetSeqs(src.GetSeqs());
}

std::vector<CToneSeq> CToneEncode::GetSeqs() const {
  std::vector<CToneSeq> seqs;
  seqs.reserve(static_cast<std::size_t>(m_Seqs.GetCount()));
  for (CObject* seq : m_Seqs) {
    if (seq != nullptr) seqs.push_back(static_cast<const CToneSeq&>(*seq));
  }
  return seqs;
}

void CToneEncode::SetSeqs(const std::vector<CToneSeq>& seqs) {
  m_Seqs.DeleteAll();
  m_Seqs.Reserve(seqs.size());
  for (const CToneSeq& seq : seqs) m_Seqs.Add(new CToneSeq(seq));
}

CToneSeq* CToneEncode::GetSeqAt(int i) const {
  if (i < 0 || i >= m_Seqs.GetCount()) return nullptr;
  return static_cast<CToneSeq*>(m_Seqs.GetAt(i));
}

bool CToneEncode::DeleteSeqAt(int i) {
  if (i < 0 || i >= m_Seqs.GetCount()) return false;
  m_Seqs.DeleteAt(i);
  return true;
}

void CToneEncode::Serialize(CArchive& ar) { SerializeTable(ar); }

void CToneEncode::printOptToBuffer(CStringArray& out, const CPersonality*) const {
  OptionBlock block(out, "TONE ENCODE OPTIONS:");
  block.Pair("Side Tone", SwitchWord(m_SideTone), "Tone Level (Hz)", std::to_string(m_ToneLevel));
  for (CObject* seq : m_Seqs) {
    if (seq != nullptr) static_cast<const CToneSeq*>(seq)->printToBuffer(block);
  }
  block.End();
}

}  // namespace persona
