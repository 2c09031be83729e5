// CDataOpts: the option group of the data port and the data service.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// CDataOpts: the data port (baud rate, parity, stop bits, bits per character) and data service:
// data host, PTT transmit and receive data, data only; schema 2 added data over voice, enhanced
// data and the frame and packet retries, 3 the time-outs and packet lifetime, 4 the local IP
// address and GPS.
class PERSONA_EXPORT CDataOpts : public CFieldOption<CDataOpts> {
  PERSONA_OPTION_RECORD(CDataOpts, CSerial)
 public:
  // Neutral defaults.
  CDataOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CDataOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CDataOpts(const CDataOpts&) = default;
  CDataOpts& operator=(const CDataOpts&) = default;
  ~CDataOpts() override = default;

  // Data port: code of kPortBaudWords.
  BYTE GetBaudRate() const { return m_BaudRate; }
  void SetBaudRate(BYTE v) { m_BaudRate = v; }
  BYTE GetParity() const { return m_Parity; }
  void SetParity(BYTE v) { m_Parity = v; }
  BYTE GetStopBits() const { return m_StopBits; }
  void SetStopBits(BYTE v) { m_StopBits = v; }
  BYTE GetBitsPerChar() const { return m_BitsPerChar; }
  void SetBitsPerChar(BYTE v) { m_BitsPerChar = v; }
  // A data host is attached to the port.
  BYTE GetDataHost() const { return m_DataHost; }
  void SetDataHost(BYTE v) { m_DataHost = v; }
  BYTE GetPttTxData() const { return m_PttTxData; }
  void SetPttTxData(BYTE v) { m_PttTxData = v; }
  BYTE GetPttRxData() const { return m_PttRxData; }
  void SetPttRxData(BYTE v) { m_PttRxData = v; }
  BYTE GetDataOnly() const { return m_DataOnly; }
  void SetDataOnly(BYTE v) { m_DataOnly = v; }
  BYTE GetDataOverVoice() const { return m_DataOverVoice; }
  void SetDataOverVoice(BYTE v) { m_DataOverVoice = v; }
  BYTE GetEnhancedData() const { return m_EnhancedData; }
  void SetEnhancedData(BYTE v) { m_EnhancedData = v; }
  WORD GetFrameRetries() const { return m_FrameRetries; }
  void SetFrameRetries(WORD v) { m_FrameRetries = v; }
  WORD GetPacketRetries() const { return m_PacketRetries; }
  void SetPacketRetries(WORD v) { m_PacketRetries = v; }
  WORD GetAckTimeout() const { return m_AckTimeout; }
  void SetAckTimeout(WORD v) { m_AckTimeout = v; }
  WORD GetTxTimeout() const { return m_TxTimeout; }
  void SetTxTimeout(WORD v) { m_TxTimeout = v; }
  WORD GetPacketLifetime() const { return m_PacketLifetime; }
  void SetPacketLifetime(WORD v) { m_PacketLifetime = v; }
  CString GetLocalIp() const { return m_LocalIp; }
  void SetLocalIp(CString v) { m_LocalIp = std::move(v); }
  BYTE GetGps() const { return m_Gps; }
  void SetGps(BYTE v) { m_Gps = v; }

  // Appends the "DATA OPTIONS:" block; every model prints the same lines.
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("BaudRate", m_BaudRate, Label{"Baud Rate"}, WordsOf(kPortBaudWords));
    v("Parity", m_Parity, Label{"Parity"}, WordsOf(kPortParityWords));
    v("StopBits", m_StopBits, Label{"Stop Bits"}, WordsOf(kPortStopBitWords));
    v("BitsPerChar", m_BitsPerChar, Label{"Bits Per Character"}, WordsOf(kPortCharBitWords));
    v("DataHost", m_DataHost, Label{"Data Host"}, OnOff{});
    v("PttTxData", m_PttTxData, Label{"PTT Transmit Data"}, OnOff{});
    v("PttRxData", m_PttRxData, Label{"PTT Receive Data"}, OnOff{});
    v("DataOnly", m_DataOnly, Label{"Data Only"}, OnOff{});
    v("DataOverVoice", m_DataOverVoice, Since{2}, Label{"Data Over Voice"}, OnOff{});
    v("EnhancedData", m_EnhancedData, Since{2}, Label{"Enhanced Data"}, OnOff{});
    v("FrameRetries", m_FrameRetries, Since{2}, Label{"Frame Retries"});
    v("PacketRetries", m_PacketRetries, Since{2}, Label{"Packet Retries"});
    v("AckTimeout", m_AckTimeout, Since{3}, Label{"Ack Time-out (ms)"});
    v("TxTimeout", m_TxTimeout, Since{3}, Label{"Transmit Time-out (sec)"});
    v("PacketLifetime", m_PacketLifetime, Since{3}, Label{"Packet Lifetime (sec)"});
    v("LocalIp", m_LocalIp, Since{4}, Label{"Local IP Address"});
    v("Gps", m_Gps, Since{4}, Label{"GPS"}, OnOff{});
  }

 private:
  BYTE m_BaudRate = 0;
  BYTE m_Parity = 0;
  BYTE m_StopBits = 0;
  BYTE m_BitsPerChar = 0;
  BYTE m_DataHost = 0;
  BYTE m_PttTxData = 0;
  BYTE m_PttRxData = 0;
  BYTE m_DataOnly = 0;
  BYTE m_DataOverVoice = 0;
  BYTE m_EnhancedData = 0;
  WORD m_FrameRetries = 0;
  WORD m_PacketRetries = 0;
  WORD m_AckTimeout = 0;
  WORD m_TxTimeout = 0;
  WORD m_PacketLifetime = 0;
  CString m_LocalIp;
  BYTE m_Gps = 0;
};

}  // namespace persona
