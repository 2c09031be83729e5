// Model family options: model defaults and report block.
#include <persona/options/lumo_opts.h>

#include <persona/options/option_record.h>

namespace persona {

IMPLEMENT_SERIAL(CLumoOpts, CSerial, VERSIONABLE_SCHEMA | 4)

CLumoOpts::CLumoOpts(unsigned short, int) {
  m_Backlight = 2;
  m_BacklightTime = 5;
  m_HookSwitch = 1;
  m_Output = 1;
}

void CLumoOpts::printOptToBuffer(CStringArray& out, CPersonality* personality,
                                 unsigned short) const {
  PrintFieldBlock(out, "LUMO/FENN/COYLE Q9P OPTIONS:", HeldOption<CFennOpts>(personality));
}

IMPLEMENT_SERIAL(CFennOpts, CSerial, VERSIONABLE_SCHEMA | 1)

CFennOpts::CFennOpts(unsigned short, int) { m_RefOsc = 128; }

}  // namespace persona
