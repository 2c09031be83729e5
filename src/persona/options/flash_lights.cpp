// CFlashLights report block.
#include <persona/options/flash_lights.h>

namespace persona {

IMPLEMENT_SERIAL(CFlashLights, CSerial, 1)

void CFlashLights::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintFieldBlock(out, "FLASH LIGHTS OPTIONS:");
}

}  // namespace persona
