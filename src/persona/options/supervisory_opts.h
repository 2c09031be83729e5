// CSupervisoryOpts: the supervisory and emergency option group (emergency declare and clear,
// emergency ID, emergency auto-key times, lock, authentication request, group call drop, last
// system/group recall, emergency display) and its report block.
//
// Archive (schema 2, versionable): EmerDeclare, EmerClear, EmerLID (8 bits each),
// AutoKeyTimeout, AutoKeyOffTime, AutoKeyDelay (16 bits each), EmerLock, AuthRequest (8 bits
// each); schema 2 adds DropGroupCall, LastSysGrpRecall, EmerDisplay (8 bits each).
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CSupervisoryOpts : public CFieldOption<CSupervisoryOpts> {
  DECLARE_SERIAL(CSupervisoryOpts)
 public:
  // Emergency declare, clear and display on; emergency ID off; auto-key for 10 s, off for 30 s,
  // 2 s delay; the other switches off.
  CSupervisoryOpts() = default;
  // The defaults above; set A radios recall the last system/group at power-up, except under
  // reduced defaults (flag non-zero).
  CSupervisoryOpts(unsigned short radioType, int reducedDefaults);
  CSupervisoryOpts(const CSupervisoryOpts&) = default;
  CSupervisoryOpts& operator=(const CSupervisoryOpts&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CSupervisoryOpts, CSerial>::operator=;
  ~CSupervisoryOpts() override = default;

  PERSONA_ACCESSORS(BYTE, EmerDeclare)
  PERSONA_ACCESSORS(BYTE, EmerClear)
  PERSONA_ACCESSORS(BYTE, EmerLID)         // send the unit's ID with an emergency
  PERSONA_ACCESSORS(WORD, AutoKeyTimeout)  // seconds
  PERSONA_ACCESSORS(WORD, AutoKeyOffTime)  // seconds
  PERSONA_ACCESSORS(WORD, AutoKeyDelay)    // seconds
  PERSONA_ACCESSORS(BYTE, EmerLock)
  PERSONA_ACCESSORS(BYTE, AuthRequest)
  PERSONA_ACCESSORS(BYTE, DropGroupCall)
  PERSONA_ACCESSORS(BYTE, LastSysGrpRecall)
  PERSONA_ACCESSORS(BYTE, EmerDisplay)

  // The layout of the file comment; storing writes schema 2; archive faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "SUPERVISORY OPTIONS:" block. The personality is not used.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("EmerDeclare", m_EmerDeclare, Label{"Emergency Declare"}, OnOff{});
    v("EmerClear", m_EmerClear, Label{"Emergency Clear"}, OnOff{});
    v("EmerLID", m_EmerLID, Label{"Emergency ID"}, OnOff{});
    v("AutoKeyTimeout", m_AutoKeyTimeout, Label{"Emergency Auto-Key Time"});
    v("AutoKeyOffTime", m_AutoKeyOffTime, Label{"Auto-Key Off Time"});
    v("AutoKeyDelay", m_AutoKeyDelay, Label{"Auto-Key Delay"});
    v("EmerLock", m_EmerLock, Label{"Emergency Lock"}, OnOff{});
    v("AuthRequest", m_AuthRequest, Label{"Authentication Request"}, OnOff{});
    v("DropGroupCall", m_DropGroupCall, Since{2}, Label{"Drop Group Call"}, OnOff{});
    v("LastSysGrpRecall", m_LastSysGrpRecall, Since{2}, Label{"Last System/Group Recall"}, OnOff{});
    v("EmerDisplay", m_EmerDisplay, Since{2}, Label{"Emergency Display"}, OnOff{});
  }
  PERSONA_FIELDS(CSerial)

 private:
  BYTE m_EmerDeclare = 1;
  BYTE m_EmerClear = 1;
  BYTE m_EmerLID = 0;
  WORD m_AutoKeyTimeout = 10;
  WORD m_AutoKeyOffTime = 30;
  WORD m_AutoKeyDelay = 2;
  BYTE m_EmerLock = 0;
  BYTE m_AuthRequest = 0;
  BYTE m_DropGroupCall = 0;
  BYTE m_LastSysGrpRecall = 0;
  BYTE m_EmerDisplay = 1;
};

}  // namespace persona
