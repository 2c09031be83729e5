// Text messaging options: message and ID list operations, report blocks.
#include <persona/options/mms_opts.h>

#include <string>

namespace persona {

IMPLEMENT_SERIAL(CMmsMsg, CObject, VERSIONABLE_SCHEMA | 1)

CMmsMsg::CMmsMsg(unsigned short, int) {}

void CMmsMsg::PrintEntryLines(OptionBlock& block, int number) const {
  block.Value("Message " + std::to_string(number), m_Text.str());
  PrintFieldLines(block);
}

IMPLEMENT_SERIAL(CMmsOpts, CSerial, VERSIONABLE_SCHEMA | 1)

CMmsOpts::CMmsOpts(unsigned short, int) {
  m_IpAddress = "0.0.0.0";
  m_Port = 5000;
  m_Timeout = 30;
  m_Retries = 3;
  m_Replies = 4;
  m_TotalSize = 4096;
}

void CMmsOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  OptionBlock settings(out, "RADIO VESKA OPTIONS:");
  PrintFieldLines(settings);
  settings.End();
  OptionBlock messages(out, "RADIO VESKA:");
  for (int i = 0; i < GetNumMessages(); ++i) {
    if (const CMmsMsg* msg = GetMessageAt(i)) msg->PrintEntryLines(messages, i + 1);
  }
  messages.End();
  OptionBlock mids(out, "MIDS:");
  for (int i = 0; i < m_MmsIds.GetSize(); ++i) {
    mids.Value("MID " + std::to_string(i + 1), std::to_string(m_MmsIds[i]));
  }
  mids.End();
}

bool CMmsOpts::InsertMmsIdAt(int i, WORD id) {
  if (i < 0 || i > m_MmsIds.GetSize()) return false;
  m_MmsIds.InsertAt(i, id);
  return true;
}

bool CMmsOpts::DeleteMmsIdAt(int i) {
  if (i < 0 || i >= m_MmsIds.GetSize()) return false;
  m_MmsIds.RemoveAt(i);
  return true;
}

int CMmsOpts::FindMidNum(WORD id) const {
  for (int i = 0; i < m_MmsIds.GetSize(); ++i) {
    if (m_MmsIds[i] == id) return i + 1;
  }
  return 0;
}

WORD CMmsOpts::FindNthId(int n) const {
  return n >= 1 && n <= m_MmsIds.GetSize() ? m_MmsIds[n - 1] : WORD{0};
}

}  // namespace persona
