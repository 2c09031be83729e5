// Status and message lists: model defaults and report block.
#include <persona/options/status_opts.h>

#include <string>

#include <persona/options/option_record.h>

namespace persona {

namespace {

// "   Status 1                   - <name>          Number                      - <id>"
void PrintEntry(OptionBlock& block, const char* kind, int i, const CStatusMessage* e) {
  block.Pair(CString::Formatted("%s %d", kind, i + 1).str(), e ? e->GetName().str() : "", "Number",
             e ? std::to_string(e->GetId()) : "");
}

}  // namespace

IMPLEMENT_SERIAL(CStatus, CSerial, VERSIONABLE_SCHEMA | 2)

CStatus::CStatus(unsigned short, int reducedDefaults) {
  m_SelectTime = 4;
  m_ModeHangTime = 10;
  m_ResetOnSysChange = reducedDefaults == 0 ? 1 : 0;
}

void CStatus::printOptToBuffer(CStringArray& out, CPersonality* personality,
                               unsigned short radioType) const {
  OptionBlock block(out, "STATUS / MESSAGE OPTIONS:");
  PrintFieldLines(block);
  for (int i = 0; i < GetNumStatuses(); ++i) PrintEntry(block, "Status", i, GetStatusAt(i));
  const QuotedOption<CMessage> messages(personality, radioType);
  for (int i = 0; i < messages->GetNumMessages(); ++i) {
    PrintEntry(block, "Message", i, messages->GetMessageAt(i));
  }
  block.End();
}

IMPLEMENT_SERIAL(CMessage, CSerial, 1)

CMessage::CMessage(unsigned short, int) {}

}  // namespace persona
