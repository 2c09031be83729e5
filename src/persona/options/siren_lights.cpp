// Siren and lights options: model defaults, entries and report block.
#include <persona/options/siren_lights.h>

#include <iterator>
#include <string>

#include <persona/framework/exceptions.h>

namespace persona {

namespace {

std::size_t CheckedControl(int i) {
  if (i < 0 || i >= CSirenLights::kNumControls) {
    throw CInvalidArgException("siren/lights control " + std::to_string(i) + " (0 to 8)");
  }
  return static_cast<std::size_t>(i);
}

}  // namespace

IMPLEMENT_SERIAL(CSirenLights, CObject, 1)

CSirenLights::CSirenLights(unsigned short, int) {}

WORD CSirenLights::GetControlAt(int i) const { return m_Controls[CheckedControl(i)]; }

void CSirenLights::SetControlAt(int i, WORD value) { m_Controls[CheckedControl(i)] = value; }

IMPLEMENT_SERIAL(CSirenLightsOpts, CSerial, 1)

CSirenLightsOpts::CSirenLightsOpts(unsigned short, int reducedDefaults) {
  m_Timeout = 30;
  if (reducedDefaults != 0) return;
  // One momentary entry per siren tone.
  for (BYTE tone = 1; tone < std::size(kSirenToneWords); ++tone) {
    auto* e = new CSirenLights;
    e->SetMode(1);
    e->SetSiren(tone);
    m_Entries.Add(e);
  }
}

void CSirenLightsOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  OptionBlock block(out, "SIREN AND LIGHTS OPTIONS:");
  PrintFieldLines(block);
  for (int i = 0; i < GetNumEntries(); ++i) {
    const CSirenLights* e = GetEntryAt(i);
    if (e == nullptr) continue;
    std::string controls;
    for (int c = 0; c < CSirenLights::kNumControls; ++c) {
      controls += (c ? " " : "") + std::to_string(e->GetControlAt(c));
    }
    block.Line("   Entry %-2d  Mode - %-9s  Siren - %-8s  Cancel - %-3s  Controls - %s", i + 1,
               WordOf(kSirenModeWords, e->GetMode()).c_str(),
               WordOf(kSirenToneWords, e->GetSiren()).c_str(), SwitchWord(e->GetCancel()),
               controls.c_str());
  }
  block.End();
}

CSirenLightsOpts::CSirenLightsOpts(int count) {
  for (int i = 0; i < count; ++i) m_Entries.Add(new CSirenLights);
}

}  // namespace persona
