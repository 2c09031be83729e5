// Serializable classes of the systems folder.
#include <persona/core/class_registry.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_group_set.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>

namespace persona {

void RegisterSystemsClasses() {
  CRuntimeClass::Register(RUNTIME_CLASS(CEskData));
  CRuntimeClass::Register(RUNTIME_CLASS(CSystem));
  CRuntimeClass::Register(RUNTIME_CLASS(CTrunkSystem));
  CRuntimeClass::Register(RUNTIME_CLASS(CExtAddSystem));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25TrkSystem));
  CRuntimeClass::Register(RUNTIME_CLASS(CConvSystem));
  CRuntimeClass::Register(RUNTIME_CLASS(CPlmSystem));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25ConvSystem));
  CRuntimeClass::Register(RUNTIME_CLASS(CTrunkChannel));
  CRuntimeClass::Register(RUNTIME_CLASS(CTrunkSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CGroup));
  CRuntimeClass::Register(RUNTIME_CLASS(CGroupSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CExtAddGroup));
  CRuntimeClass::Register(RUNTIME_CLASS(CExtAddGroupSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CPlmGroup));
  CRuntimeClass::Register(RUNTIME_CLASS(CPlmGroupSet));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25Group));
  CRuntimeClass::Register(RUNTIME_CLASS(CP25GroupSet));
}

}  // namespace persona
