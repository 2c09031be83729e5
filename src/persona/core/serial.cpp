// CSerial registration.
#include <persona/core/serial.h>

namespace persona {

IMPLEMENT_SERIAL(CSerial, CObject, 1)

void CSerial::Serialize(CArchive&) {}

}  // namespace persona
