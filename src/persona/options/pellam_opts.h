// CPellamOpts: the options of the Pellam messaging system (receive alert tone, automatic
// acknowledgement, message store and reminder, pop-up display) and its report block.
//
// Archive (schema 2, versionable): PlmRxAlertTone, AutoAck (8 bits each), MaxStoredMsgs,
// MsgReminder (16 bits each); schema 2 adds PopUpDisplay (8 bits).
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CPellamOpts : public CFieldOption<CPellamOpts> {
  DECLARE_SERIAL(CPellamOpts)
 public:
  // Receive alert tone, automatic acknowledgement and pop-up display on; 10 stored messages;
  // no reminder.
  CPellamOpts() = default;
  // The defaults above; set A radios store 20 messages. Reduced defaults (flag non-zero) start
  // with the receive alert tone and the pop-up display off.
  CPellamOpts(unsigned short radioType, int reducedDefaults);
  CPellamOpts(const CPellamOpts&) = default;
  CPellamOpts& operator=(const CPellamOpts&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CPellamOpts, CSerial>::operator=;
  ~CPellamOpts() override = default;

  PERSONA_ACCESSORS(BYTE, PlmRxAlertTone)
  PERSONA_ACCESSORS(BYTE, AutoAck)
  PERSONA_ACCESSORS(WORD, MaxStoredMsgs)
  PERSONA_ACCESSORS(WORD, MsgReminder)  // seconds between reminders of an unread message; 0 off
  PERSONA_ACCESSORS(BYTE, PopUpDisplay)

  // The layout of the file comment; storing writes schema 2; archive faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "PELLAM OPTIONS:" block. The personality is not used.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("PlmRxAlertTone", m_PlmRxAlertTone, Label{"Receive Alert Tone"}, OnOff{});
    v("AutoAck", m_AutoAck, Label{"Automatic Acknowledge"}, OnOff{});
    v("MaxStoredMsgs", m_MaxStoredMsgs, Label{"Stored Messages"});
    v("MsgReminder", m_MsgReminder, Label{"Unread Reminder (sec)"});
    v("PopUpDisplay", m_PopUpDisplay, Since{2}, Label{"Pop-up Message Display"}, OnOff{});
  }
  PERSONA_FIELDS(CSerial)

 private:
  BYTE m_PlmRxAlertTone = 1;
  BYTE m_AutoAck = 1;
  WORD m_MaxStoredMsgs = 10;
  WORD m_MsgReminder = 0;
  BYTE m_PopUpDisplay = 1;
};

}  // namespace persona
