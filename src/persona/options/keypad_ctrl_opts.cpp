// Keypad control options: model defaults and report block.
#include <persona/options/keypad_ctrl_opts.h>

#include <persona/options/option_record.h>

namespace persona {

IMPLEMENT_SERIAL(CKeypadCtrlOpts, CSerial, VERSIONABLE_SCHEMA | 2)

CKeypadCtrlOpts::CKeypadCtrlOpts(unsigned short, int reducedDefaults) {
  m_IcallKeypad = 1;
  m_PhoneKeypad = 1;
  m_KeyClick = 1;
  m_HookSwitch = 1;
  m_RampWrap = 1;
  m_EmerSwitch = reducedDefaults == 0 ? 1 : 0;
}

void CKeypadCtrlOpts::printOptToBuffer(CStringArray& out, CPersonality* personality,
                                       unsigned short) const {
  PrintFieldBlock(out, "KEYPAD OPTIONS:", HeldOption<CKeypadCtrlOpts_E1>(personality),
                  HeldOption<CKeypadCtrlOpts_E2>(personality));
}

IMPLEMENT_SERIAL(CKeypadCtrlOpts_E1, CSerial, 1)

CKeypadCtrlOpts_E1::CKeypadCtrlOpts_E1(unsigned short, int reducedDefaults) {
  m_KeypadType = 1;
  m_AuxEmerKey = reducedDefaults == 0 ? 1 : 0;
}

IMPLEMENT_SERIAL(CKeypadCtrlOpts_E2, CSerial, 1)

CKeypadCtrlOpts_E2::CKeypadCtrlOpts_E2(unsigned short, int) { m_KeypadLockSeq = "*#"; }

}  // namespace persona
