// Serializable classes of the calls folder.
#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/core/class_registry.h>

namespace persona {

void RegisterCallsClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CPhoneCall));
  CRuntimeClass::Register(RUNTIME_CLASS(CPhoneSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CICall));
  CRuntimeClass::Register(RUNTIME_CLASS(CICallSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CSpCall));
  CRuntimeClass::Register(RUNTIME_CLASS(CSpCallSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CPlmSpCall));
  CRuntimeClass::Register(RUNTIME_CLASS(CPlmSpCallSet));
}

}  // namespace persona
