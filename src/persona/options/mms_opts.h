// CMmsOpts and CMmsMsg: the text messaging option group and its messages.
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
inline constexpr const char* kMmsTypeWords[] = {"Text", "Entry", "Query"};
inline constexpr const char* kMmsDestWords[] = {"Individual", "Group"};

// CMmsMsg: one text message of the messaging service: text, type, prompt and maximum digits of an
// entry, whether a reply is expected, the destination ID and its default type, and whether the
// destination is forced. Held by CMmsOpts.
class PERSONA_EXPORT CMmsMsg : public CFieldRecord<CMmsMsg, CObject> {
  PERSONA_OPTION_RECORD(CMmsMsg, CObject)
 public:
  // Neutral defaults.
  CMmsMsg() = default;
  // The neutral defaults: no default of this record depends on the model.
  CMmsMsg(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CMmsMsg(const CMmsMsg&) = default;
  CMmsMsg& operator=(const CMmsMsg&) = default;
  ~CMmsMsg() override = default;

  // The message text.
  CString GetText() const { return m_Text; }
  void SetText(CString v) { m_Text = std::move(v); }
  // 0 fixed text, 1 text with a numeric entry, 2 query.
  BYTE GetMsgType() const { return m_MsgType; }
  void SetMsgType(BYTE v) { m_MsgType = v; }
  // Prompt shown for the numeric entry.
  CString GetPrompt() const { return m_Prompt; }
  void SetPrompt(CString v) { m_Prompt = std::move(v); }
  WORD GetMaxDigits() const { return m_MaxDigits; }
  void SetMaxDigits(WORD v) { m_MaxDigits = v; }
  BYTE GetReplyExpected() const { return m_ReplyExpected; }
  void SetReplyExpected(BYTE v) { m_ReplyExpected = v; }
  DWORD GetDestId() const { return m_DestId; }
  void SetDestId(DWORD v) { m_DestId = v; }
  // 0 individual, 1 group.
  BYTE GetDestDefaultType() const { return m_DestDefaultType; }
  void SetDestDefaultType(BYTE v) { m_DestDefaultType = v; }
  BYTE GetForcedDefault() const { return m_ForcedDefault; }
  void SetForcedDefault(BYTE v) { m_ForcedDefault = v; }

  // Appends "   Message <number> - <text>" and the message's labelled values to block.
  void PrintEntryLines(OptionBlock& block, int number) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Text", m_Text);
    v("MsgType", m_MsgType, Label{"Type"}, WordsOf(kMmsTypeWords));
    v("Prompt", m_Prompt, Label{"Prompt"});
    v("MaxDigits", m_MaxDigits, Label{"Maximum Digits"});
    v("ReplyExpected", m_ReplyExpected, Label{"Reply Expected"}, OnOff{});
    v("DestId", m_DestId, Label{"Destination ID"});
    v("DestDefaultType", m_DestDefaultType, Label{"Destination Type"}, WordsOf(kMmsDestWords));
    v("ForcedDefault", m_ForcedDefault, Label{"Forced Default Destination"}, OnOff{});
  }

 private:
  CString m_Text;
  BYTE m_MsgType = 0;
  CString m_Prompt;
  WORD m_MaxDigits = 0;
  BYTE m_ReplyExpected = 0;
  DWORD m_DestId = 0;
  BYTE m_DestDefaultType = 0;
  BYTE m_ForcedDefault = 0;
};

// CMmsOpts: the text messaging service: local ID, IP address and port of the server, time-out and
// retries, replies kept, total size, the messages (CMmsMsg, owned) and the list of message IDs.
class PERSONA_EXPORT CMmsOpts : public CFieldOption<CMmsOpts> {
  PERSONA_OPTION_RECORD(CMmsOpts, CSerial)
 public:
  // Neutral defaults.
  CMmsOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CMmsOpts(unsigned short radioType, int reducedDefaults);
  // Deep copy: every field, owned elements included.
  CMmsOpts(const CMmsOpts&) = default;
  CMmsOpts& operator=(const CMmsOpts&) = default;
  ~CMmsOpts() override = default;

  DWORD GetLocalId() const { return m_LocalId; }
  void SetLocalId(DWORD v) { m_LocalId = v; }
  CString GetIpAddress() const { return m_IpAddress; }
  void SetIpAddress(CString v) { m_IpAddress = std::move(v); }
  WORD GetPort() const { return m_Port; }
  void SetPort(WORD v) { m_Port = v; }
  WORD GetTimeout() const { return m_Timeout; }
  void SetTimeout(WORD v) { m_Timeout = v; }
  WORD GetRetries() const { return m_Retries; }
  void SetRetries(WORD v) { m_Retries = v; }
  // Most replies kept per message.
  WORD GetReplies() const { return m_Replies; }
  void SetReplies(WORD v) { m_Replies = v; }
  // Room for all messages together.
  WORD GetTotalSize() const { return m_TotalSize; }
  void SetTotalSize(WORD v) { m_TotalSize = v; }
  // Message IDs (MIDs) the radio answers to.
  const CWordArray& GetMmsIds() const { return m_MmsIds; }
  void SetMmsIds(const CWordArray& v) { m_MmsIds.Copy(v); }
  // Number of messages.
  int GetNumMessages() const { return m_Messages.GetCount(); }
  // The message at i (still owned by this record), or null when i is not a valid position.
  CMmsMsg* GetMessageAt(int i) const { return m_Messages.At(i); }
  // Appends msg; this record takes ownership.
  void AddMessage(CMmsMsg* msg) { m_Messages.Add(msg); }
  // Inserts msg before position i (0 .. count) and takes ownership; returns false for any other
  // i, and msg then stays with the caller.
  bool InsertMessageBefore(int i, CMmsMsg* msg) { return m_Messages.InsertBefore(i, msg); }
  // Inserts msg after the message at i (0 .. count-1) and takes ownership; returns false for any
  // other i, and msg then stays with the caller.
  bool InsertMessageAfter(int i, CMmsMsg* msg) {
    return i >= 0 && i < GetNumMessages() && m_Messages.InsertBefore(i + 1, msg);
  }
  // Removes the message at i and hands it to the caller; null when i is not a valid position.
  CMmsMsg* RemoveMessageAt(int i) { return m_Messages.Remove(i); }
  // Deletes the message at i; returns false when i is not a valid position.
  bool DeleteMessageAt(int i) { return m_Messages.Erase(i); }

  // Number of message IDs.
  int GetNumMmsIds() const { return m_MmsIds.GetSize(); }
  // The ID at i; an i outside the list raises CInvalidArgException.
  WORD GetMmsIdAt(int i) const { return m_MmsIds.GetAt(i); }
  // Appends id and returns its position.
  int AddMmsId(WORD id) { return m_MmsIds.Add(id); }
  // Inserts id before position i (0 .. count); returns false for any other i.
  bool InsertMmsIdAt(int i, WORD id);
  // Removes the ID at i; returns false when i is not a valid position.
  bool DeleteMmsIdAt(int i);
  // Empties the ID list.
  void DeleteAllMmsIds() { m_MmsIds.RemoveAll(); }
  // 1-based number of the first entry equal to id in the ID list, or 0 when none is.
  int FindMidNum(WORD id) const;
  // The ID with 1-based number n, or 0 when n is not between 1 and the count.
  WORD FindNthId(int n) const;

  // Appends three blocks: "RADIO VESKA OPTIONS:" with the settings, "RADIO VESKA:" with each
  // message and its values, and "MIDS:" with the message IDs.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("LocalId", m_LocalId, Label{"Local ID"});
    v("IpAddress", m_IpAddress, Label{"IP Address"});
    v("Port", m_Port, Label{"Port"});
    v("Timeout", m_Timeout, Label{"Time-out (sec)"});
    v("Retries", m_Retries, Label{"Retries"});
    v("Replies", m_Replies, Label{"Maximum Replies"});
    v("TotalSize", m_TotalSize, Label{"Total Size (bytes)"});
    v("Messages", m_Messages);
    v("MmsIds", m_MmsIds);
  }

 private:
  DWORD m_LocalId = 0;
  CString m_IpAddress;
  WORD m_Port = 0;
  WORD m_Timeout = 0;
  WORD m_Retries = 0;
  WORD m_Replies = 0;
  WORD m_TotalSize = 0;
  CElementList<CMmsMsg> m_Messages{RUNTIME_CLASS(CMmsMsg)};
  CWordArray m_MmsIds;
};

}  // namespace persona
