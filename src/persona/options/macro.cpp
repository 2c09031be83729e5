// CMacro archive form.
#include <persona/options/macro.h>

namespace persona {

IMPLEMENT_SERIAL(CMacro, CObject, 1)

CMacro::CMacro(unsigned short, int) {}

CMacro& CMacro::operator=(const CMacro* src) {
  if (src != nullptr && src != this) {
    m_Activate = src->m_Activate;
    m_Stroke = src->m_Stroke;
  }
  return *this;
}

void CMacro::Serialize(CArchive& ar) { SerializeFields(ar, *this); }

}  // namespace persona
