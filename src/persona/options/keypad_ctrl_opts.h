// CKeypadCtrlOpts and its two extensions CKeypadCtrlOpts_E1 and CKeypadCtrlOpts_E2: the keypad and
// control option groups.
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
inline constexpr const char* kKnobFunctionWords[] = {"Volume", "Channel", "Group"};
inline constexpr const char* kKeypadTypeWords[] = {"None", "Numeric", "Alphanumeric"};
inline constexpr const char* kEmerDeclareWords[] = {"Press", "Press And Hold"};
inline constexpr const char* kKeypadSpeakerWords[] = {"Internal", "External"};

// CKeypadCtrlOpts: the keypad and controls: individual-call and phone keypads, key click, hook
// switch, knob function, ramp and wrap of the channel selector, emergency switch, CG disable;
// schema 2 added the Type 99 disable and removal keys and the hook switch scan disable.
class PERSONA_EXPORT CKeypadCtrlOpts : public CFieldOption<CKeypadCtrlOpts> {
  PERSONA_OPTION_RECORD(CKeypadCtrlOpts, CSerial)
 public:
  // Neutral defaults.
  CKeypadCtrlOpts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CKeypadCtrlOpts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CKeypadCtrlOpts(const CKeypadCtrlOpts&) = default;
  CKeypadCtrlOpts& operator=(const CKeypadCtrlOpts&) = default;
  ~CKeypadCtrlOpts() override = default;

  BYTE GetIcallKeypad() const { return m_IcallKeypad; }
  void SetIcallKeypad(BYTE v) { m_IcallKeypad = v; }
  BYTE GetPhoneKeypad() const { return m_PhoneKeypad; }
  void SetPhoneKeypad(BYTE v) { m_PhoneKeypad = v; }
  BYTE GetKeyClick() const { return m_KeyClick; }
  void SetKeyClick(BYTE v) { m_KeyClick = v; }
  BYTE GetHookSwitch() const { return m_HookSwitch; }
  void SetHookSwitch(BYTE v) { m_HookSwitch = v; }
  // 0 volume, 1 channel, 2 group.
  BYTE GetKnobFunction() const { return m_KnobFunction; }
  void SetKnobFunction(BYTE v) { m_KnobFunction = v; }
  BYTE GetRampFunction() const { return m_RampFunction; }
  void SetRampFunction(BYTE v) { m_RampFunction = v; }
  BYTE GetRampWrap() const { return m_RampWrap; }
  void SetRampWrap(BYTE v) { m_RampWrap = v; }
  BYTE GetEmerSwitch() const { return m_EmerSwitch; }
  void SetEmerSwitch(BYTE v) { m_EmerSwitch = v; }
  BYTE GetDisableCg() const { return m_DisableCg; }
  void SetDisableCg(BYTE v) { m_DisableCg = v; }
  BYTE GetType99Disable() const { return m_Type99Disable; }
  void SetType99Disable(BYTE v) { m_Type99Disable = v; }
  BYTE GetType99Removal() const { return m_Type99Removal; }
  void SetType99Removal(BYTE v) { m_Type99Removal = v; }
  BYTE GetHookSwitchScan() const { return m_HookSwitchScan; }
  void SetHookSwitchScan(BYTE v) { m_HookSwitchScan = v; }

  // Appends the "KEYPAD OPTIONS:" block, followed in the same block by the lines of the
  // personality's two keypad extensions when it holds them (models without them print none).
  void printOptToBuffer(CStringArray& out, CPersonality* personality,
                        unsigned short radioType) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("IcallKeypad", m_IcallKeypad, Label{"ICALL Keypad"}, OnOff{});
    v("PhoneKeypad", m_PhoneKeypad, Label{"Phone Keypad"}, OnOff{});
    v("KeyClick", m_KeyClick, Label{"Key Click"}, OnOff{});
    v("HookSwitch", m_HookSwitch, Label{"Hook Switch"}, OnOff{});
    v("KnobFunction", m_KnobFunction, Label{"Knob Function"}, WordsOf(kKnobFunctionWords));
    v("RampFunction", m_RampFunction, Label{"Ramp Function"}, OnOff{});
    v("RampWrap", m_RampWrap, Label{"Ramp Wrap"}, OnOff{});
    v("EmerSwitch", m_EmerSwitch, Label{"Emergency Switch"}, OnOff{});
    v("DisableCg", m_DisableCg, Label{"Disable CG"}, OnOff{});
    v("Type99Disable", m_Type99Disable, Since{2}, Label{"Type 99 Disable"}, OnOff{});
    v("Type99Removal", m_Type99Removal, Since{2}, Label{"Type 99 Removal"}, OnOff{});
    v("HookSwitchScan", m_HookSwitchScan, Since{2}, Label{"Hook Switch Disables Scan"}, OnOff{});
  }

 private:
  BYTE m_IcallKeypad = 0;
  BYTE m_PhoneKeypad = 0;
  BYTE m_KeyClick = 0;
  BYTE m_HookSwitch = 0;
  BYTE m_KnobFunction = 0;
  BYTE m_RampFunction = 0;
  BYTE m_RampWrap = 0;
  BYTE m_EmerSwitch = 0;
  BYTE m_DisableCg = 0;
  BYTE m_Type99Disable = 0;
  BYTE m_Type99Removal = 0;
  BYTE m_HookSwitchScan = 0;
};

// CKeypadCtrlOpts_E1: first keypad extension: keypad type and lock, the functions of the top,
// bottom, agency, fleet and red keys, aux emergency key, how an emergency is declared, and which
// speaker sounds key tones. Printed inside the keypad block.
class PERSONA_EXPORT CKeypadCtrlOpts_E1 : public CFieldOption<CKeypadCtrlOpts_E1> {
  PERSONA_OPTION_RECORD(CKeypadCtrlOpts_E1, CSerial)
 public:
  // Neutral defaults.
  CKeypadCtrlOpts_E1() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CKeypadCtrlOpts_E1(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CKeypadCtrlOpts_E1(const CKeypadCtrlOpts_E1&) = default;
  CKeypadCtrlOpts_E1& operator=(const CKeypadCtrlOpts_E1&) = default;
  ~CKeypadCtrlOpts_E1() override = default;

  // 0 none, 1 numeric, 2 alphanumeric.
  BYTE GetKeypadType() const { return m_KeypadType; }
  void SetKeypadType(BYTE v) { m_KeypadType = v; }
  BYTE GetKeypadLock() const { return m_KeypadLock; }
  void SetKeypadLock(BYTE v) { m_KeypadLock = v; }
  // Function code of the key.
  BYTE GetTopKey() const { return m_TopKey; }
  void SetTopKey(BYTE v) { m_TopKey = v; }
  BYTE GetBottomKey() const { return m_BottomKey; }
  void SetBottomKey(BYTE v) { m_BottomKey = v; }
  BYTE GetAgencyKey() const { return m_AgencyKey; }
  void SetAgencyKey(BYTE v) { m_AgencyKey = v; }
  BYTE GetFleetKey() const { return m_FleetKey; }
  void SetFleetKey(BYTE v) { m_FleetKey = v; }
  BYTE GetRedButton() const { return m_RedButton; }
  void SetRedButton(BYTE v) { m_RedButton = v; }
  BYTE GetAuxEmerKey() const { return m_AuxEmerKey; }
  void SetAuxEmerKey(BYTE v) { m_AuxEmerKey = v; }
  // 0 press, 1 press and hold.
  BYTE GetEmerDeclare() const { return m_EmerDeclare; }
  void SetEmerDeclare(BYTE v) { m_EmerDeclare = v; }
  // 0 internal, 1 external.
  BYTE GetSpeaker() const { return m_Speaker; }
  void SetSpeaker(BYTE v) { m_Speaker = v; }

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("KeypadType", m_KeypadType, Label{"Keypad Type"}, WordsOf(kKeypadTypeWords));
    v("KeypadLock", m_KeypadLock, Label{"Keypad Lock"}, OnOff{});
    v("TopKey", m_TopKey, Label{"Top Key Function"});
    v("BottomKey", m_BottomKey, Label{"Bottom Key Function"});
    v("AgencyKey", m_AgencyKey, Label{"Agency Key Function"});
    v("FleetKey", m_FleetKey, Label{"Fleet Key Function"});
    v("RedButton", m_RedButton, Label{"Red Button Function"});
    v("AuxEmerKey", m_AuxEmerKey, Label{"Aux Emergency Key"}, OnOff{});
    v("EmerDeclare", m_EmerDeclare, Label{"Emergency Declare"}, WordsOf(kEmerDeclareWords));
    v("Speaker", m_Speaker, Label{"Keypad Speaker"}, WordsOf(kKeypadSpeakerWords));
  }

 private:
  BYTE m_KeypadType = 0;
  BYTE m_KeypadLock = 0;
  BYTE m_TopKey = 0;
  BYTE m_BottomKey = 0;
  BYTE m_AgencyKey = 0;
  BYTE m_FleetKey = 0;
  BYTE m_RedButton = 0;
  BYTE m_AuxEmerKey = 0;
  BYTE m_EmerDeclare = 0;
  BYTE m_Speaker = 0;
};

// CKeypadCtrlOpts_E2: second keypad extension: the two aux key functions, off-hook operation, a
// fixed volume level and the keypad lock key sequence. Printed inside the keypad block.
class PERSONA_EXPORT CKeypadCtrlOpts_E2 : public CFieldOption<CKeypadCtrlOpts_E2> {
  PERSONA_OPTION_RECORD(CKeypadCtrlOpts_E2, CSerial)
 public:
  // Neutral defaults.
  CKeypadCtrlOpts_E2() = default;
  // The defaults every model starts from; neither argument changes them.
  CKeypadCtrlOpts_E2(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CKeypadCtrlOpts_E2(const CKeypadCtrlOpts_E2&) = default;
  CKeypadCtrlOpts_E2& operator=(const CKeypadCtrlOpts_E2&) = default;
  ~CKeypadCtrlOpts_E2() override = default;

  BYTE GetAuxKey1() const { return m_AuxKey1; }
  void SetAuxKey1(BYTE v) { m_AuxKey1 = v; }
  BYTE GetAuxKey2() const { return m_AuxKey2; }
  void SetAuxKey2(BYTE v) { m_AuxKey2 = v; }
  BYTE GetOffHook() const { return m_OffHook; }
  void SetOffHook(BYTE v) { m_OffHook = v; }
  // 0: the volume control sets the level.
  WORD GetFixedVolume() const { return m_FixedVolume; }
  void SetFixedVolume(WORD v) { m_FixedVolume = v; }
  // Keys that lock and unlock the keypad.
  CString GetKeypadLockSeq() const { return m_KeypadLockSeq; }
  void SetKeypadLockSeq(CString v) { m_KeypadLockSeq = std::move(v); }

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("AuxKey1", m_AuxKey1, Label{"Aux Key 1 Function"});
    v("AuxKey2", m_AuxKey2, Label{"Aux Key 2 Function"});
    v("OffHook", m_OffHook, Label{"Off Hook Operation"}, OnOff{});
    v("FixedVolume", m_FixedVolume, Label{"Fixed Volume Level"});
    v("KeypadLockSeq", m_KeypadLockSeq, Label{"Keypad Lock Sequence"});
  }

 private:
  BYTE m_AuxKey1 = 0;
  BYTE m_AuxKey2 = 0;
  BYTE m_OffHook = 0;
  WORD m_FixedVolume = 0;
  CString m_KeypadLockSeq;
};

}  // namespace persona
