// CKwOpts: the option group of digital voice privacy.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// Report words of the coded fields below, indexed by the stored code.
inline constexpr const char* kPrivacyOptionWords[] = {"None", "Selectable", "Strapped"};
inline constexpr const char* kEncryptTypeWords[] = {"DVP", "DES", "DES-XL", "DES-OFB", "AES"};
inline constexpr const char* kEncryptModeWords[] = {"Single Key", "Multi-Key"};

// CKwOpts: digital voice privacy: whether privacy is offered, the encryption type, mode and key
// size, the number of key banks and the cue data; schema 2 added the data polarities, the attack
// delay and the privacy display.
class PERSONA_EXPORT CKwOpts : public CFieldOption<CKwOpts> {
  PERSONA_OPTION_RECORD(CKwOpts, CSerial)
 public:
  // Neutral defaults.
  CKwOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CKwOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CKwOpts(const CKwOpts&) = default;
  CKwOpts& operator=(const CKwOpts&) = default;
  ~CKwOpts() override = default;

  // 0 none, 1 selectable, 2 strapped secure.
  BYTE GetPrivacyOption() const { return m_PrivacyOption; }
  void SetPrivacyOption(BYTE v) { m_PrivacyOption = v; }
  BYTE GetEncryptType() const { return m_EncryptType; }
  void SetEncryptType(BYTE v) { m_EncryptType = v; }
  // 0 single key, 1 multi-key.
  BYTE GetEncryptMode() const { return m_EncryptMode; }
  void SetEncryptMode(BYTE v) { m_EncryptMode = v; }
  WORD GetKeySize() const { return m_KeySize; }
  void SetKeySize(WORD v) { m_KeySize = v; }
  WORD GetKeyBanks() const { return m_KeyBanks; }
  void SetKeyBanks(WORD v) { m_KeyBanks = v; }
  BYTE GetCueData() const { return m_CueData; }
  void SetCueData(BYTE v) { m_CueData = v; }
  BYTE GetTxDataPolarity() const { return m_TxDataPolarity; }
  void SetTxDataPolarity(BYTE v) { m_TxDataPolarity = v; }
  BYTE GetRxDataPolarity() const { return m_RxDataPolarity; }
  void SetRxDataPolarity(BYTE v) { m_RxDataPolarity = v; }
  WORD GetAttackDelay() const { return m_AttackDelay; }
  void SetAttackDelay(WORD v) { m_AttackDelay = v; }
  BYTE GetPrivacyDisplay() const { return m_PrivacyDisplay; }
  void SetPrivacyDisplay(BYTE v) { m_PrivacyDisplay = v; }

  // Appends the "DIGITAL VOICE OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("PrivacyOption", m_PrivacyOption, Label{"Digital Voice Privacy"},
      WordsOf(kPrivacyOptionWords));
    v("EncryptType", m_EncryptType, Label{"Encryption Type"}, WordsOf(kEncryptTypeWords));
    v("EncryptMode", m_EncryptMode, Label{"Encryption Mode"}, WordsOf(kEncryptModeWords));
    v("KeySize", m_KeySize, Label{"Key Size (bits)"});
    v("KeyBanks", m_KeyBanks, Label{"Key Banks"});
    v("CueData", m_CueData, Label{"Cue Data"}, OnOff{});
    v("TxDataPolarity", m_TxDataPolarity, Since{2}, Label{"Transmit Data Polarity"},
      WordsOf(kPolarityWords));
    v("RxDataPolarity", m_RxDataPolarity, Since{2}, Label{"Receive Data Polarity"},
      WordsOf(kPolarityWords));
    v("AttackDelay", m_AttackDelay, Since{2}, Label{"Attack Delay (ms)"});
    v("PrivacyDisplay", m_PrivacyDisplay, Since{2}, Label{"Privacy Display"}, OnOff{});
  }

 private:
  BYTE m_PrivacyOption = 0;
  BYTE m_EncryptType = 0;
  BYTE m_EncryptMode = 0;
  WORD m_KeySize = 0;
  WORD m_KeyBanks = 0;
  BYTE m_CueData = 0;
  BYTE m_TxDataPolarity = 0;
  BYTE m_RxDataPolarity = 0;
  WORD m_AttackDelay = 0;
  BYTE m_PrivacyDisplay = 0;
};

}  // namespace persona
