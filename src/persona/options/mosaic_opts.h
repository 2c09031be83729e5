// CMosaicOpts: the option group of one networked model.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// CMosaicOpts: the UDP port address and the power-up state of one model.
class PERSONA_EXPORT CMosaicOpts : public CFieldOption<CMosaicOpts> {
  PERSONA_OPTION_RECORD(CMosaicOpts, CSerial)
 public:
  // Neutral defaults.
  CMosaicOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CMosaicOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CMosaicOpts(const CMosaicOpts&) = default;
  CMosaicOpts& operator=(const CMosaicOpts&) = default;
  ~CMosaicOpts() override = default;

  // UDP port of the data link.
  WORD GetUdpPort() const { return m_UdpPort; }
  void SetUdpPort(WORD v) { m_UdpPort = v; }
  // The radio is on at power-up.
  BYTE GetPowerUpState() const { return m_PowerUpState; }
  void SetPowerUpState(BYTE v) { m_PowerUpState = v; }

  // Appends the "Mosaic Options:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("UdpPort", m_UdpPort);
    v("PowerUpState", m_PowerUpState);
  }

 private:
  WORD m_UdpPort = 0;
  BYTE m_PowerUpState = 0;
};

}  // namespace persona
