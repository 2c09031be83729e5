// CP25OtarOpts: the over-the-air rekeying (OTAR) options of P25 trunked operation: the OTAR
// switch, the radio's and the key management facility's RSIs, the message number period and
// the retry timer, with their report block.
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

// Archive (schema 1, versionable, the schema is not asked for): Mnp (16 bits), RetryTimer
// (8 bits), KmfRsi, IndividualRsi (32 bits each), the OTAR switch (one byte; any non-zero byte
// loads as on).
class PERSONA_EXPORT CP25OtarOpts : public CFieldOption<CP25OtarOpts> {
  DECLARE_SERIAL(CP25OtarOpts)
 public:
  // OTAR off, MNP 1680, retry timer 1, KMF RSI 9999999, individual RSI 0.
  CP25OtarOpts() = default;
  // The defaults above; the radio type and the model-defaults flag are not used.
  CP25OtarOpts(unsigned short radioType, int reducedDefaults);
  CP25OtarOpts(const CP25OtarOpts&) = default;
  // Copies every field from src and returns a copy of this record.
  CP25OtarOpts operator=(const CP25OtarOpts& src);
  ~CP25OtarOpts() override = default;

  PERSONA_ACCESSORS(WORD, Mnp)
  PERSONA_ACCESSORS(BYTE, RetryTimer)
  PERSONA_ACCESSORS(DWORD, KmfRsi)
  PERSONA_ACCESSORS(DWORD, IndividualRsi)
  bool IsOtarEnabled() const { return m_OtarEnabled; }
  void EnableOtar(bool enable) { m_OtarEnabled = enable; }

  void Serialize(CArchive& ar) override;

  // Appends the "P25 OTAR Options" block, whatever the switch.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Mnp", m_Mnp);
    v("RetryTimer", m_RetryTimer);
    v("KmfRsi", m_KmfRsi);
    v("IndividualRsi", m_IndividualRsi);
    v("OtarEnabled", m_OtarEnabled);
  }
  PERSONA_FIELDS(CSerial)

 private:
  WORD m_Mnp = 1680;
  BYTE m_RetryTimer = 1;
  DWORD m_KmfRsi = 9999999;
  DWORD m_IndividualRsi = 0;
  bool m_OtarEnabled = false;
};

}  // namespace persona
