// CDiagnosticOpts: the option group of the diagnostic port.
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
inline constexpr const char* kDiagFunctionWords[] = {"Off", "Monitor", "Trace"};

// CDiagnosticOpts: the diagnostic port (baud rate, parity, stop bits, bits per character), test
// mode and trunked diagnostic mode; schema 2 added the port function and IP echo.
class PERSONA_EXPORT CDiagnosticOpts : public CFieldOption<CDiagnosticOpts> {
  PERSONA_OPTION_RECORD(CDiagnosticOpts, CSerial)
 public:
  // Neutral defaults.
  CDiagnosticOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CDiagnosticOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CDiagnosticOpts(const CDiagnosticOpts&) = default;
  CDiagnosticOpts& operator=(const CDiagnosticOpts&) = default;
  ~CDiagnosticOpts() override = default;

  // Diagnostic port: code of kPortBaudWords.
  BYTE GetBaudRate() const { return m_BaudRate; }
  void SetBaudRate(BYTE v) { m_BaudRate = v; }
  BYTE GetParity() const { return m_Parity; }
  void SetParity(BYTE v) { m_Parity = v; }
  BYTE GetStopBits() const { return m_StopBits; }
  void SetStopBits(BYTE v) { m_StopBits = v; }
  BYTE GetBitsPerChar() const { return m_BitsPerChar; }
  void SetBitsPerChar(BYTE v) { m_BitsPerChar = v; }
  BYTE GetTestMode() const { return m_TestMode; }
  void SetTestMode(BYTE v) { m_TestMode = v; }
  BYTE GetTrkDiagMode() const { return m_TrkDiagMode; }
  void SetTrkDiagMode(BYTE v) { m_TrkDiagMode = v; }
  // 0 off, 1 monitor, 2 trace.
  BYTE GetFunction() const { return m_Function; }
  void SetFunction(BYTE v) { m_Function = v; }
  BYTE GetIpEcho() const { return m_IpEcho; }
  void SetIpEcho(BYTE v) { m_IpEcho = v; }

  // Appends the "DIAGNOSTIC OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("BaudRate", m_BaudRate, Label{"Baud Rate"}, WordsOf(kPortBaudWords));
    v("Parity", m_Parity, Label{"Parity"}, WordsOf(kPortParityWords));
    v("StopBits", m_StopBits, Label{"Stop Bits"}, WordsOf(kPortStopBitWords));
    v("BitsPerChar", m_BitsPerChar, Label{"Bits Per Character"}, WordsOf(kPortCharBitWords));
    v("TestMode", m_TestMode, Label{"Test Mode"}, OnOff{});
    v("TrkDiagMode", m_TrkDiagMode, Label{"Trunked Diagnostic Mode"}, OnOff{});
    v("Function", m_Function, Since{2}, Label{"Port Function"}, WordsOf(kDiagFunctionWords));
    v("IpEcho", m_IpEcho, Since{2}, Label{"IP Echo"}, OnOff{});
  }

 private:
  BYTE m_BaudRate = 0;
  BYTE m_Parity = 0;
  BYTE m_StopBits = 0;
  BYTE m_BitsPerChar = 0;
  BYTE m_TestMode = 0;
  BYTE m_TrkDiagMode = 0;
  BYTE m_Function = 0;
  BYTE m_IpEcho = 0;
};

}  // namespace persona
