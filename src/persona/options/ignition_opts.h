// CIgnitionOpts: the option group of the vehicle ignition line.
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
inline constexpr const char* kPortPriorityWords[] = {"Front", "Rear"};
inline constexpr const char* kPowerMethodWords[] = {"Ignition", "A+", "Ignition And A+"};

// CIgnitionOpts: what the ignition line controls: A+ control, master PTT, normal and emergency
// transmit, horn alert, external alarm; schema 2 added siren/lights, 3 the repeater volume and
// port priority, 4 the power method.
class PERSONA_EXPORT CIgnitionOpts : public CFieldOption<CIgnitionOpts> {
  PERSONA_OPTION_RECORD(CIgnitionOpts, CSerial)
 public:
  // Neutral defaults.
  CIgnitionOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CIgnitionOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CIgnitionOpts(const CIgnitionOpts&) = default;
  CIgnitionOpts& operator=(const CIgnitionOpts&) = default;
  ~CIgnitionOpts() override = default;

  // The radio powers up from A+ without ignition.
  BYTE GetAPlusCtrl() const { return m_APlusCtrl; }
  void SetAPlusCtrl(BYTE v) { m_APlusCtrl = v; }
  BYTE GetMasterPtt() const { return m_MasterPtt; }
  void SetMasterPtt(BYTE v) { m_MasterPtt = v; }
  // Transmit allowed with the ignition off.
  BYTE GetNormalTx() const { return m_NormalTx; }
  void SetNormalTx(BYTE v) { m_NormalTx = v; }
  // Emergency transmit allowed with the ignition off.
  BYTE GetEmerTx() const { return m_EmerTx; }
  void SetEmerTx(BYTE v) { m_EmerTx = v; }
  BYTE GetHornAlert() const { return m_HornAlert; }
  void SetHornAlert(BYTE v) { m_HornAlert = v; }
  BYTE GetExtAlarm() const { return m_ExtAlarm; }
  void SetExtAlarm(BYTE v) { m_ExtAlarm = v; }
  BYTE GetSirenLights() const { return m_SirenLights; }
  void SetSirenLights(BYTE v) { m_SirenLights = v; }
  WORD GetRptrVolume() const { return m_RptrVolume; }
  void SetRptrVolume(WORD v) { m_RptrVolume = v; }
  // 0 front port, 1 rear port.
  BYTE GetPortPriority() const { return m_PortPriority; }
  void SetPortPriority(BYTE v) { m_PortPriority = v; }
  // 0 ignition, 1 A+, 2 ignition and A+.
  BYTE GetPowerMethod() const { return m_PowerMethod; }
  void SetPowerMethod(BYTE v) { m_PowerMethod = v; }

  // Appends the "IGNITION OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("APlusCtrl", m_APlusCtrl, Label{"A+ Control"}, OnOff{});
    v("MasterPtt", m_MasterPtt, Label{"Master PTT"}, OnOff{});
    v("NormalTx", m_NormalTx, Label{"Normal Transmit"}, OnOff{});
    v("EmerTx", m_EmerTx, Label{"Emergency Transmit"}, OnOff{});
    v("HornAlert", m_HornAlert, Label{"Horn Alert"}, OnOff{});
    v("ExtAlarm", m_ExtAlarm, Label{"External Alarm"}, OnOff{});
    v("SirenLights", m_SirenLights, Since{2}, Label{"Siren/Lights"}, OnOff{});
    v("RptrVolume", m_RptrVolume, Since{3}, Label{"Repeater Volume"});
    v("PortPriority", m_PortPriority, Since{3}, Label{"Port Priority"},
      WordsOf(kPortPriorityWords));
    v("PowerMethod", m_PowerMethod, Since{4}, Label{"Power Method"}, WordsOf(kPowerMethodWords));
  }

 private:
  BYTE m_APlusCtrl = 0;
  BYTE m_MasterPtt = 0;
  BYTE m_NormalTx = 0;
  BYTE m_EmerTx = 0;
  BYTE m_HornAlert = 0;
  BYTE m_ExtAlarm = 0;
  BYTE m_SirenLights = 0;
  WORD m_RptrVolume = 0;
  BYTE m_PortPriority = 0;
  BYTE m_PowerMethod = 0;
};

}  // namespace persona
