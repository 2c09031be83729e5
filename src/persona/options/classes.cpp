// Serializable classes of the options folder.
#include <persona/core/class_registry.h>
#include <persona/options/agency_data.h>
#include <persona/options/alarm_opts.h>
#include <persona/options/alert_opts.h>
#include <persona/options/coyle300_opts.h>
#include <persona/options/custom_opts.h>
#include <persona/options/data_opts.h>
#include <persona/options/diagnostic_opts.h>
#include <persona/options/display_opts.h>
#include <persona/options/dual_ctrl_opts.h>
#include <persona/options/flash_lights.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/ignition_opts.h>
#include <persona/options/keypad_ctrl_opts.h>
#include <persona/options/kw_opts.h>
#include <persona/options/lumo_opts.h>
#include <persona/options/macro.h>
#include <persona/options/mms_opts.h>
#include <persona/options/mosaic_opts.h>
#include <persona/options/network_opts.h>
#include <persona/options/p25_otar_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/pellam_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/prgrm_calls.h>
#include <persona/options/r917_opts.h>
#include <persona/options/scan_opts.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/options/siren_lights.h>
#include <persona/options/sonvra_opts.h>
#include <persona/options/speaker_opts.h>
#include <persona/options/status_message.h>
#include <persona/options/status_opts.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/system_scan_opts.h>
#include <persona/options/timer_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/options/vantor_opts.h>
#include <persona/options/zemo_opts.h>

namespace persona {

void RegisterOptionsClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CStatusMessage));
  CRuntimeClass::Register(RUNTIME_CLASS(CMacro));
  CRuntimeClass::Register(RUNTIME_CLASS(CAlertOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CDisplayOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CGenRadioOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CVantorOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25TrkWan));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25tWanOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25OtarOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CToneSeq));
  CRuntimeClass::Register(RUNTIME_CLASS(CToneEncode));
  CRuntimeClass::Register(RUNTIME_CLASS(CPellamOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CScratchPadOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CSupervisoryOpts));
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
  CRuntimeClass::Register(RUNTIME_CLASS(CScanOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CConvScanOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CLumoConvScanOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CSirenLights));
  CRuntimeClass::Register(RUNTIME_CLASS(CSirenLightsOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CPrgrmICall));
  CRuntimeClass::Register(RUNTIME_CLASS(CPrgrmPhoneCall));
  CRuntimeClass::Register(RUNTIME_CLASS(CR917Opts));
  CRuntimeClass::Register(RUNTIME_CLASS(CZemoOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CDiagnosticOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CSilCustomOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(COstrelCustomOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CKorvex2CustomOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CLumoOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CFennOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CMosaicOpts));
  CRuntimeClass::Register(RUNTIME_CLASS(CCoyle300Opts));
  CRuntimeClass::Register(RUNTIME_CLASS(CMmsMsg));
  CRuntimeClass::Register(RUNTIME_CLASS(CMmsOpts));
}

}  // namespace persona
