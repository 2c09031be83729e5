// Serializable classes of the options folder.
#include "core/class_registry.h"
#include "options/alarm_opts.h"
#include "options/dual_ctrl_opts.h"
#include "options/keypad_ctrl_opts.h"
#include "options/macro.h"
#include "options/network_opts.h"
#include "options/speaker_opts.h"
#include "options/status_message.h"

namespace persona {

void RegisterOptionsClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CStatusMessage));
  CRuntimeClass::Register(RUNTIME_CLASS(CMacro));
  CRuntimeClass::Register(RUNTIME_CLASS(CAlarmOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CExtSpkrOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CPubAddOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CDualCtrlOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CNetworkOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CMultipleRadioSonvraOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CKeypadCtrlOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CKeypadCtrlOpts_E1));
  CRuntimeClass::Register(RUNTIME_CLASS(CKeypadCtrlOpts_E2));
}

}  // namespace persona
