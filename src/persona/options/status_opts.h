// CStatus and CMessage: the status and message lists of a radio, each entry a CStatusMessage.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>
#include <persona/options/status_message.h>

namespace persona {

class CPersonality;

// Report words of the coded fields below, indexed by the stored code.
inline constexpr const char* kStatusTxWords[] = {"On PTT", "Immediate"};

// CStatus: the status list (CStatusMessage elements, owned), how a status is sent and how long a
// selection is held; schema 2 added the mode hang time and the reset on system change.
class PERSONA_EXPORT CStatus : public CFieldOption<CStatus> {
  PERSONA_OPTION_RECORD(CStatus, CSerial)
 public:
  // Neutral defaults.
  CStatus() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CStatus(unsigned short radioType, int reducedDefaults);
  // Deep copy: every field, owned elements included.
  CStatus(const CStatus&) = default;
  CStatus& operator=(const CStatus&) = default;
  ~CStatus() override = default;

  // 0 on PTT, 1 immediately on selection.
  BYTE GetTxType() const { return m_TxType; }
  void SetTxType(BYTE v) { m_TxType = v; }
  WORD GetSelectTime() const { return m_SelectTime; }
  void SetSelectTime(WORD v) { m_SelectTime = v; }
  WORD GetModeHangTime() const { return m_ModeHangTime; }
  void SetModeHangTime(WORD v) { m_ModeHangTime = v; }
  BYTE GetResetOnSysChange() const { return m_ResetOnSysChange; }
  void SetResetOnSysChange(BYTE v) { m_ResetOnSysChange = v; }
  // Number of statuses.
  int GetNumStatuses() const { return m_Statuses.GetCount(); }
  // The Status at i (still owned by this record), or null when i is not a valid position.
  CStatusMessage* GetStatusAt(int i) const { return m_Statuses.At(i); }
  // Appends e; this record takes ownership.
  void AddStatus(CStatusMessage* e) { m_Statuses.Add(e); }
  // Inserts e before position i (0 .. count) and takes ownership; returns false for any other
  // i, and e then stays with the caller.
  bool InsertStatusAt(int i, CStatusMessage* e) { return m_Statuses.InsertBefore(i, e); }
  // Removes the Status at i and hands it to the caller; null when i is not a valid position.
  CStatusMessage* RemoveStatusAt(int i) { return m_Statuses.Remove(i); }
  // Deletes the Status at i; returns false when i is not a valid position.
  bool DeleteStatusAt(int i) { return m_Statuses.Erase(i); }
  // Deletes every Status.
  void DeleteAllStatuses() { m_Statuses.DeleteAll(); }

  // Appends the "STATUS / MESSAGE OPTIONS:" block: the settings, one line per status, then
  // one line per message of the personality's CMessage (a temporary one for radioType when it
  // holds none).
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Statuses", m_Statuses);
    v("TxType", m_TxType, Label{"Status Transmit Type"}, WordsOf(kStatusTxWords));
    v("SelectTime", m_SelectTime, Label{"Select Time (sec)"});
    v("ModeHangTime", m_ModeHangTime, Since{2}, Label{"Mode Hang Time (sec)"});
    v("ResetOnSysChange", m_ResetOnSysChange, Since{2}, Label{"Reset On System Change"}, OnOff{});
  }

 private:
  CElementList<CStatusMessage> m_Statuses{RUNTIME_CLASS(CStatusMessage)};
  BYTE m_TxType = 0;
  WORD m_SelectTime = 0;
  WORD m_ModeHangTime = 0;
  BYTE m_ResetOnSysChange = 0;
};

// CMessage: the message list (CStatusMessage elements, owned). Printed inside the status / message
// block.
class PERSONA_EXPORT CMessage : public CFieldOption<CMessage> {
  PERSONA_OPTION_RECORD(CMessage, CSerial)
 public:
  // Neutral defaults.
  CMessage() = default;
  // The neutral defaults: no default of this record depends on the model.
  CMessage(unsigned short radioType, int reducedDefaults);
  // Deep copy: every field, owned elements included.
  CMessage(const CMessage&) = default;
  CMessage& operator=(const CMessage&) = default;
  ~CMessage() override = default;

  // Number of messages.
  int GetNumMessages() const { return m_Messages.GetCount(); }
  // The Message at i (still owned by this record), or null when i is not a valid position.
  CStatusMessage* GetMessageAt(int i) const { return m_Messages.At(i); }
  // Appends e; this record takes ownership.
  void AddMessage(CStatusMessage* e) { m_Messages.Add(e); }
  // Inserts e before position i (0 .. count) and takes ownership; returns false for any other
  // i, and e then stays with the caller.
  bool InsertMessageAt(int i, CStatusMessage* e) { return m_Messages.InsertBefore(i, e); }
  // Removes the Message at i and hands it to the caller; null when i is not a valid position.
  CStatusMessage* RemoveMessageAt(int i) { return m_Messages.Remove(i); }
  // Deletes the Message at i; returns false when i is not a valid position.
  bool DeleteMessageAt(int i) { return m_Messages.Erase(i); }
  // Deletes every Message.
  void DeleteAllMessages() { m_Messages.DeleteAll(); }

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Messages", m_Messages);
  }

 private:
  CElementList<CStatusMessage> m_Messages{RUNTIME_CLASS(CStatusMessage)};
};

}  // namespace persona
