// CAlarmOpts model defaults and report block.
#include <persona/options/alarm_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CAlarmOpts, CSerial, 1)

CAlarmOpts::CAlarmOpts(unsigned short, int) {
  // Outputs are numbered in connector order and switch active high; a pattern repeats once.
  m_Alarm1Output = 1;
  m_Alarm2Output = 2;
  m_Aux1Output = 3;
  m_Aux2Output = 4;
  m_ExtMuteOutput = 5;
  m_Alarm1Active = m_Alarm2Active = m_Aux1Active = m_Aux2Active = m_ExtMuteActive = 1;
  m_Alarm1Repeat = m_Alarm2Repeat = m_Aux1Repeat = m_Aux2Repeat = 1;
  m_Alarm1Pattern = m_Alarm2Pattern = m_Aux1Pattern = m_Aux2Pattern = 0xAAAA;
}

void CAlarmOpts::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "EXTERNAL I/O OPTIONS:");
}

}  // namespace persona
