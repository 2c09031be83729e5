// CDisplayOpts: the display option group (what the display shows for groups, individual calls,
// volume and system/group, the backlight and its timeout, group banks, alert messages) and its
// report block.
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CDisplayOpts : public CFieldOption<CDisplayOpts> {
  DECLARE_SERIAL(CDisplayOpts)
 public:
  // Alias mapping, individual-call indicator and store, display icons and volume display on;
  // backlight level 6, backlight timeout 5.0 s; everything else 0.
  CDisplayOpts() = default;
  // The defaults above. Reduced defaults (flag non-zero) turn the individual-call store off on
  // set A radios and the volume display off on set B radios.
  CDisplayOpts(unsigned short radioType, int reducedDefaults);
  CDisplayOpts(const CDisplayOpts&) = default;
  CDisplayOpts& operator=(const CDisplayOpts&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CDisplayOpts, CSerial>::operator=;
  ~CDisplayOpts() override = default;

  PERSONA_ACCESSORS(BYTE, AlphaMap)
  PERSONA_ACCESSORS(BYTE, DisplayGroupId)
  PERSONA_ACCESSORS(BYTE, DisplayIndId)
  PERSONA_ACCESSORS(BYTE, ICallIndicator)
  PERSONA_ACCESSORS(BYTE, DisplayIcon)
  PERSONA_ACCESSORS(BYTE, CombinedDisplay)
  PERSONA_ACCESSORS(BYTE, VolumeDisplay)
  PERSONA_ACCESSORS(BYTE, TxBacklight)
  PERSONA_ACCESSORS(BYTE, ICallStore)
  PERSONA_ACCESSORS(BYTE, VehChargeBack)
  PERSONA_ACCESSORS(BYTE, SysGrpDisplay)  // 0 both names, 1 system name, 2 group name
  PERSONA_ACCESSORS(BYTE, UnitDisplay)
  PERSONA_ACCESSORS(WORD, BacklightLevel)
  PERSONA_ACCESSORS(BYTE, DisplayDelimiter)
  PERSONA_ACCESSORS(double, BacklightTimeout)  // seconds
  PERSONA_ACCESSORS(BYTE, GrpBankDisplay)
  PERSONA_ACCESSORS(BYTE, GrpBankDisplayType)  // 0 bank name, 1 bank number
  PERSONA_ACCESSORS(int, ToggleAlertMsg)

  // Twelve bytes, BacklightLevel (16 bits), DisplayDelimiter; schema 2 adds BacklightTimeout
  // (double), schema 4 the two group bank bytes, schema 5 ToggleAlertMsg (32 bits). Below
  // schema 3 the backlight level was kept in steps six times coarser: a loaded level is
  // multiplied by 6. Storing writes schema 5; archive faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "DISPLAY OPTIONS:" block. The block is the same for every personality and
  // radio type.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality,
                        unsigned short radioType) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("AlphaMap", m_AlphaMap);
    v("DisplayGroupId", m_DisplayGroupId);
    v("DisplayIndId", m_DisplayIndId);
    v("ICallIndicator", m_ICallIndicator);
    v("DisplayIcon", m_DisplayIcon);
    v("CombinedDisplay", m_CombinedDisplay);
    v("VolumeDisplay", m_VolumeDisplay);
    v("TxBacklight", m_TxBacklight);
    v("ICallStore", m_ICallStore);
    v("VehChargeBack", m_VehChargeBack);
    v("SysGrpDisplay", m_SysGrpDisplay);
    v("UnitDisplay", m_UnitDisplay);
    v("BacklightLevel", m_BacklightLevel);
    v("DisplayDelimiter", m_DisplayDelimiter);
    v("BacklightTimeout", m_BacklightTimeout, Since{2});
    v("GrpBankDisplay", m_GrpBankDisplay, Since{4});
    v("GrpBankDisplayType", m_GrpBankDisplayType, Since{4});
    v("ToggleAlertMsg", m_ToggleAlertMsg, Since{5});
  }
  PERSONA_FIELDS(CSerial)

 private:
  BYTE m_AlphaMap = 1;
  BYTE m_DisplayGroupId = 0;
  BYTE m_DisplayIndId = 0;
  BYTE m_ICallIndicator = 1;
  BYTE m_DisplayIcon = 1;
  BYTE m_CombinedDisplay = 0;
  BYTE m_VolumeDisplay = 1;
  BYTE m_TxBacklight = 0;
  BYTE m_ICallStore = 1;
  BYTE m_VehChargeBack = 0;
  BYTE m_SysGrpDisplay = 0;
  BYTE m_UnitDisplay = 0;
  WORD m_BacklightLevel = 6;
  BYTE m_DisplayDelimiter = 0;
  double m_BacklightTimeout = 5.0;
  BYTE m_GrpBankDisplay = 0;
  BYTE m_GrpBankDisplayType = 0;
  LONG m_ToggleAlertMsg = 0;
};

}  // namespace persona
