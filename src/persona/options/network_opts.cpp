// Network options: model defaults and report block.
#include <persona/options/network_opts.h>

#include <persona/options/option_record.h>

namespace persona {

IMPLEMENT_SERIAL(CNetworkOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CNetworkOpts::CNetworkOpts(unsigned short, int reducedDefaults) {
  m_PowerUpVolume = 8;
  m_Termination = 1;
  m_Display = reducedDefaults == 0 ? 1 : 0;
}

void CNetworkOpts::printOptToBuffer(CStringArray& out, CPersonality* personality,
                                    unsigned short radioType) const {
  const QuotedOption<CMultipleRadioSonvraOpts> audio(personality, radioType);
  PrintFieldBlock(out, "NETWORK OPTIONS:", audio.get());
}

IMPLEMENT_SERIAL(CMultipleRadioSonvraOpts, CSerial, 1)

CMultipleRadioSonvraOpts::CMultipleRadioSonvraOpts(unsigned short, int) {
  m_SwitchDelta = 6;
  m_TransitionLevel = 20;
  m_MinTrkLevel = 10;
  m_HangTime = 3;
}

}  // namespace persona
