// Serializable classes of the options folder.
#include "core/class_registry.h"
#include "options/alert_opts.h"
#include "options/display_opts.h"
#include "options/gen_radio_opts.h"
#include "options/macro.h"
#include "options/p25_otar_opts.h"
#include "options/p25_wan_opts.h"
#include "options/pellam_opts.h"
#include "options/scratch_pad_opts.h"
#include "options/status_message.h"
#include "options/supervisory_opts.h"
#include "options/tone_encode.h"
#include "options/vantor_opts.h"

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
}

}  // namespace persona
