// CDataOpts model defaults and report block.
#include <persona/options/data_opts.h>

namespace persona {

IMPLEMENT_SERIAL(CDataOpts, CSerial, VERSIONABLE_SCHEMA | 4)

CDataOpts::CDataOpts(unsigned short, int reducedDefaults) {
  m_BaudRate = kPortBaud9600;
  m_BitsPerChar = kPortEightBits;
  m_PttTxData = 1;
  m_PttRxData = 1;
  m_FrameRetries = 3;
  m_PacketRetries = 3;
  m_AckTimeout = 1500;
  m_TxTimeout = 30;
  m_PacketLifetime = 60;
  m_LocalIp = "0.0.0.0";
  m_Gps = reducedDefaults == 0 ? 1 : 0;
}

void CDataOpts::printOptToBuffer(CStringArray& out, CPersonality*, unsigned short) const {
  PrintFieldBlock(out, "DATA OPTIONS:");
}

}  // namespace persona
