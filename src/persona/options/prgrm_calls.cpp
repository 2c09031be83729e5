// Programmable call lists: report blocks.
#include <persona/options/prgrm_calls.h>

#include <string>

namespace persona {

namespace {

// "   Call 1                     - <name>", one line per call.
void PrintCallBlock(CStringArray& out, const char* heading, const CStringArray& calls) {
  OptionBlock block(out, heading);
  block.Value("Number Of Calls", std::to_string(calls.GetSize()));
  for (int i = 0; i < calls.GetSize(); ++i) {
    block.Value("Call " + std::to_string(i + 1), calls[i].str());
  }
  block.End();
}

}  // namespace

IMPLEMENT_SERIAL(CPrgrmICall, CSerial, 1)

CPrgrmICall::CPrgrmICall(unsigned short, int) {}

void CPrgrmICall::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintCallBlock(out, "PROGRAMMABLE INDIVIDUAL CALLS:", m_Calls);
}

IMPLEMENT_SERIAL(CPrgrmPhoneCall, CSerial, 1)

CPrgrmPhoneCall::CPrgrmPhoneCall(unsigned short, int) {}

void CPrgrmPhoneCall::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintCallBlock(out, "PROGRAMMABLE PHONE CALLS:", m_Calls);
}

}  // namespace persona
