// CR917Opts: the option group of the R917 model.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// Report words of the coded fields below, indexed by the stored code.
inline constexpr const char* kUnitTypeWords[] = {"Mobile", "Control Station", "Repeater"};

// CR917Opts: options of the R917 model: unit type and display, dual control, horn ring, siren,
// ignition and A+ control, special keypad, user test mode.
class PERSONA_EXPORT CR917Opts : public CFieldOption<CR917Opts> {
  PERSONA_OPTION_RECORD(CR917Opts, CSerial)
 public:
  // Neutral defaults.
  CR917Opts() = default;
  // The defaults of model radioType; a non-zero reducedDefaults starts optional features off.
  CR917Opts(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CR917Opts(const CR917Opts&) = default;
  CR917Opts& operator=(const CR917Opts&) = default;
  ~CR917Opts() override = default;

  // 0 mobile, 1 control station, 2 repeater.
  BYTE GetUnitType() const { return m_UnitType; }
  void SetUnitType(BYTE v) { m_UnitType = v; }
  BYTE GetUnitDisplay() const { return m_UnitDisplay; }
  void SetUnitDisplay(BYTE v) { m_UnitDisplay = v; }
  BYTE GetDualCtrl() const { return m_DualCtrl; }
  void SetDualCtrl(BYTE v) { m_DualCtrl = v; }
  BYTE GetHornRing() const { return m_HornRing; }
  void SetHornRing(BYTE v) { m_HornRing = v; }
  BYTE GetSiren() const { return m_Siren; }
  void SetSiren(BYTE v) { m_Siren = v; }
  BYTE GetIgnition() const { return m_Ignition; }
  void SetIgnition(BYTE v) { m_Ignition = v; }
  BYTE GetAPlus() const { return m_APlus; }
  void SetAPlus(BYTE v) { m_APlus = v; }
  BYTE GetSpecialKeypad() const { return m_SpecialKeypad; }
  void SetSpecialKeypad(BYTE v) { m_SpecialKeypad = v; }
  BYTE GetUserTestMode() const { return m_UserTestMode; }
  void SetUserTestMode(BYTE v) { m_UserTestMode = v; }

  // Appends the "R917 OPTIONS:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("UnitType", m_UnitType, Label{"Unit Type"}, WordsOf(kUnitTypeWords));
    v("UnitDisplay", m_UnitDisplay, Label{"Unit Display"}, OnOff{});
    v("DualCtrl", m_DualCtrl, Label{"Dual Control"}, OnOff{});
    v("HornRing", m_HornRing, Label{"Horn Ring"}, OnOff{});
    v("Siren", m_Siren, Label{"Siren"}, OnOff{});
    v("Ignition", m_Ignition, Label{"Ignition"}, OnOff{});
    v("APlus", m_APlus, Label{"A+"}, OnOff{});
    v("SpecialKeypad", m_SpecialKeypad, Label{"Special Keypad"}, OnOff{});
    v("UserTestMode", m_UserTestMode, Label{"User Test Mode"}, OnOff{});
  }

 private:
  BYTE m_UnitType = 0;
  BYTE m_UnitDisplay = 0;
  BYTE m_DualCtrl = 0;
  BYTE m_HornRing = 0;
  BYTE m_Siren = 0;
  BYTE m_Ignition = 0;
  BYTE m_APlus = 0;
  BYTE m_SpecialKeypad = 0;
  BYTE m_UserTestMode = 0;
};

}  // namespace persona
