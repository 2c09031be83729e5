// Serializable classes of the options folder.
#include "core/class_registry.h"
#include "options/agency_data.h"
#include "options/alarm_opts.h"
#include "options/data_opts.h"
#include "options/dual_ctrl_opts.h"
#include "options/flash_lights.h"
#include "options/ignition_opts.h"
#include "options/keypad_ctrl_opts.h"
#include "options/kw_opts.h"
#include "options/macro.h"
#include "options/network_opts.h"
#include "options/power_up_opts.h"
#include "options/sonvra_opts.h"
#include "options/speaker_opts.h"
#include "options/status_message.h"
#include "options/status_opts.h"
#include "options/system_scan_opts.h"
#include "options/timer_opts.h"

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
  CRuntimeClass::Register(RUNTIME_CLASS(CIgnitionOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CDataOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CAgencyData));
  CRuntimeClass::Register(RUNTIME_CLASS(CExtAddAgencyData));
  CRuntimeClass::Register(RUNTIME_CLASS(CStatus));
  CRuntimeClass::Register(RUNTIME_CLASS(CMessage));
  CRuntimeClass::Register(RUNTIME_CLASS(CPowerUpOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CKwOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CFlashLights));
  CRuntimeClass::Register(RUNTIME_CLASS(CTimerOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CSystemScanOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CSonvraOpts));
}

}  // namespace persona
