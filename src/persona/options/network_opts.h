// CNetworkOpts and CMultipleRadioSonvraOpts: the option groups of several radios run as one
// network.
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
inline constexpr const char* kNetRadioWords[] = {"Stand-alone", "Primary", "Secondary"};
inline constexpr const char* kNetConnectionWords[] = {"Serial", "Ethernet"};
inline constexpr const char* kNetSwitchingWords[] = {"Manual", "Automatic"};
inline constexpr const char* kNetAudioWords[] = {"Mixed", "Switched"};
inline constexpr const char* kNetSelectWords[] = {"Selected Radio", "All Radios"};

// CNetworkOpts: several radios run as one network: this radio's role and connection, switching and
// audio mode, which radio gives receive audio and emergencies, mute time-out, power-up radio and
// volume, line termination; schema 2 added the aux inputs, forced mute, network display and dual
// control switches.
class PERSONA_EXPORT CNetworkOpts : public CFieldOption<CNetworkOpts> {
  PERSONA_OPTION_RECORD(CNetworkOpts, CSerial)
 public:
  // Neutral defaults.
  CNetworkOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CNetworkOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CNetworkOpts(const CNetworkOpts&) = default;
  CNetworkOpts& operator=(const CNetworkOpts&) = default;
  ~CNetworkOpts() override = default;

  // Role in the network: 0 stand-alone, 1 primary, 2 secondary.
  BYTE GetNetRadioType() const { return m_NetRadioType; }
  void SetNetRadioType(BYTE v) { m_NetRadioType = v; }
  BYTE GetController() const { return m_Controller; }
  void SetController(BYTE v) { m_Controller = v; }
  // 0 serial bus, 1 ethernet.
  BYTE GetConnection() const { return m_Connection; }
  void SetConnection(BYTE v) { m_Connection = v; }
  // 0 manual, 1 automatic.
  BYTE GetSwitchingMode() const { return m_SwitchingMode; }
  void SetSwitchingMode(BYTE v) { m_SwitchingMode = v; }
  // 0 mixed, 1 switched.
  BYTE GetAudioMode() const { return m_AudioMode; }
  void SetAudioMode(BYTE v) { m_AudioMode = v; }
  // 0 selected radio, 1 all radios.
  BYTE GetRxAudioSelect() const { return m_RxAudioSelect; }
  void SetRxAudioSelect(BYTE v) { m_RxAudioSelect = v; }
  BYTE GetEmerSelect() const { return m_EmerSelect; }
  void SetEmerSelect(BYTE v) { m_EmerSelect = v; }
  WORD GetMuteTimeout() const { return m_MuteTimeout; }
  void SetMuteTimeout(WORD v) { m_MuteTimeout = v; }
  BYTE GetPowerUpRadio() const { return m_PowerUpRadio; }
  void SetPowerUpRadio(BYTE v) { m_PowerUpRadio = v; }
  WORD GetPowerUpVolume() const { return m_PowerUpVolume; }
  void SetPowerUpVolume(WORD v) { m_PowerUpVolume = v; }
  BYTE GetTermination() const { return m_Termination; }
  void SetTermination(BYTE v) { m_Termination = v; }
  BYTE GetAuxInput1() const { return m_AuxInput1; }
  void SetAuxInput1(BYTE v) { m_AuxInput1 = v; }
  BYTE GetAuxInput2() const { return m_AuxInput2; }
  void SetAuxInput2(BYTE v) { m_AuxInput2 = v; }
  BYTE GetForcedMute() const { return m_ForcedMute; }
  void SetForcedMute(BYTE v) { m_ForcedMute = v; }
  BYTE GetDisplay() const { return m_Display; }
  void SetDisplay(BYTE v) { m_Display = v; }
  BYTE GetDualCtrl() const { return m_DualCtrl; }
  void SetDualCtrl(BYTE v) { m_DualCtrl = v; }

  // Appends the "NETWORK OPTIONS:" block, followed in the same block by the audio selection
  // lines of the personality's CMultipleRadioSonvraOpts (a temporary one for radioType when it
  // holds none).
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("NetRadioType", m_NetRadioType, Label{"Network Radio Type"}, WordsOf(kNetRadioWords));
    v("Controller", m_Controller, Label{"Network Controller"}, OnOff{});
    v("Connection", m_Connection, Label{"Connection"}, WordsOf(kNetConnectionWords));
    v("SwitchingMode", m_SwitchingMode, Label{"Switching Mode"}, WordsOf(kNetSwitchingWords));
    v("AudioMode", m_AudioMode, Label{"Audio Mode"}, WordsOf(kNetAudioWords));
    v("RxAudioSelect", m_RxAudioSelect, Label{"Receive Audio Select"}, WordsOf(kNetSelectWords));
    v("EmerSelect", m_EmerSelect, Label{"Emergency Select"}, WordsOf(kNetSelectWords));
    v("MuteTimeout", m_MuteTimeout, Label{"Mute Time-out (sec)"});
    v("PowerUpRadio", m_PowerUpRadio, Label{"Power Up Radio"});
    v("PowerUpVolume", m_PowerUpVolume, Label{"Power Up Volume"});
    v("Termination", m_Termination, Label{"Termination"}, OnOff{});
    v("AuxInput1", m_AuxInput1, Since{2}, Label{"Aux Input 1"}, OnOff{});
    v("AuxInput2", m_AuxInput2, Since{2}, Label{"Aux Input 2"}, OnOff{});
    v("ForcedMute", m_ForcedMute, Since{2}, Label{"Forced Mute"}, OnOff{});
    v("Display", m_Display, Since{2}, Label{"Network Display"}, OnOff{});
    v("DualCtrl", m_DualCtrl, Since{2}, Label{"Dual Control"}, OnOff{});
  }

 private:
  BYTE m_NetRadioType = 0;
  BYTE m_Controller = 0;
  BYTE m_Connection = 0;
  BYTE m_SwitchingMode = 0;
  BYTE m_AudioMode = 0;
  BYTE m_RxAudioSelect = 0;
  BYTE m_EmerSelect = 0;
  WORD m_MuteTimeout = 5;
  BYTE m_PowerUpRadio = 1;
  WORD m_PowerUpVolume = 0;
  BYTE m_Termination = 0;
  BYTE m_AuxInput1 = 0;
  BYTE m_AuxInput2 = 0;
  BYTE m_ForcedMute = 0;
  BYTE m_Display = 0;
  BYTE m_DualCtrl = 0;
};

// CMultipleRadioSonvraOpts: how a radio network picks the radio whose audio is heard: the signal
// difference that switches, the transition level, the lowest usable trunked level, the hang time
// and a preference offset. Printed inside the network options block.
class PERSONA_EXPORT CMultipleRadioSonvraOpts : public CFieldOption<CMultipleRadioSonvraOpts> {
  PERSONA_OPTION_RECORD(CMultipleRadioSonvraOpts, CSerial)
 public:
  // Neutral defaults.
  CMultipleRadioSonvraOpts() = default;
  // The defaults every model starts from; neither argument changes them.
  CMultipleRadioSonvraOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CMultipleRadioSonvraOpts(const CMultipleRadioSonvraOpts&) = default;
  CMultipleRadioSonvraOpts& operator=(const CMultipleRadioSonvraOpts&) = default;
  ~CMultipleRadioSonvraOpts() override = default;

  WORD GetSwitchDelta() const { return m_SwitchDelta; }
  void SetSwitchDelta(WORD v) { m_SwitchDelta = v; }
  WORD GetTransitionLevel() const { return m_TransitionLevel; }
  void SetTransitionLevel(WORD v) { m_TransitionLevel = v; }
  WORD GetMinTrkLevel() const { return m_MinTrkLevel; }
  void SetMinTrkLevel(WORD v) { m_MinTrkLevel = v; }
  WORD GetHangTime() const { return m_HangTime; }
  void SetHangTime(WORD v) { m_HangTime = v; }
  // Signed: favours (positive) or penalises this radio.
  short GetPrefOffset() const { return m_PrefOffset; }
  void SetPrefOffset(short v) { m_PrefOffset = v; }

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("SwitchDelta", m_SwitchDelta, Label{"Audio Switch Delta"});
    v("TransitionLevel", m_TransitionLevel, Label{"Audio Transition Level"});
    v("MinTrkLevel", m_MinTrkLevel, Label{"Minimum Trunked Level"});
    v("HangTime", m_HangTime, Label{"Audio Hang Time"});
    v("PrefOffset", m_PrefOffset, Label{"Preference Offset"});
  }

 private:
  WORD m_SwitchDelta = 0;
  WORD m_TransitionLevel = 0;
  WORD m_MinTrkLevel = 0;
  WORD m_HangTime = 0;
  short m_PrefOffset = 0;
};

}  // namespace persona
