// CVantorOpts: the Vantor signalling option group (unit identity sent with each transmission,
// emergency signalling, and the conventional channel or trunked group an emergency goes to)
// and its report block.
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CVantorOpts : public CFieldOption<CVantorOpts> {
  DECLARE_SERIAL(CVantorOpts)
 public:
  // Every field 0 (names empty) except five emergency repeats: signalling and emergency off,
  // numeric ID 0, zone, troop, vehicle and extended ID 0. These are also the values of the
  // fields that a file of an older schema does not hold.
  CVantorOpts() = default;
  // The defaults above with ID 1, zone and troop 'A', vehicle 1, extended ID 1 (not in use)
  // and the model's start delay: 12.5 % on set A radios, 25 % on the others. Reduced defaults
  // (flag non-zero) send one emergency repeat instead of five.
  CVantorOpts(unsigned short radioType, int reducedDefaults);
  CVantorOpts(const CVantorOpts&) = default;
  CVantorOpts& operator=(const CVantorOpts&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CVantorOpts, CSerial>::operator=;
  ~CVantorOpts() override = default;

  PERSONA_ACCESSORS(BYTE, EnVantor)
  PERSONA_ACCESSORS(BYTE, EnEmer)
  PERSONA_ACCESSORS(WORD, Emer)    // 0 disable, 1 unkey, 2 both
  PERSONA_ACCESSORS(WORD, Vantor)  // 0 disable, 1 unkey, 2 both
  PERSONA_ACCESSORS(CString, System)
  PERSONA_ACCESSORS(CString, Channel)
  PERSONA_ACCESSORS(WORD, Id)
  PERSONA_ACCESSORS(double, StartDelayPercent)
  PERSONA_ACCESSORS(BYTE, SilentEmer)  // 0 disable, 1 program, 2 select
  PERSONA_ACCESSORS(BYTE, EmerRepeat)
  PERSONA_ACCESSORS(BYTE, AlphaNumeric)
  PERSONA_ACCESSORS(BYTE, Zone)
  PERSONA_ACCESSORS(BYTE, Troop)
  PERSONA_ACCESSORS(WORD, VehicleId)
  PERSONA_ACCESSORS(BYTE, EnExtendedId)
  PERSONA_ACCESSORS(LONG, ExtendedId)
  PERSONA_ACCESSORS(BYTE, ConvKorvexEmer)  // 0 conventional system/channel, 1 trunked
  PERSONA_ACCESSORS(CString, TrkSystem)
  PERSONA_ACCESSORS(CString, Group)
  PERSONA_ACCESSORS(BYTE, RepeatETone)  // 0 disable, 1 program, 2 select

  // The identity the radio sends: ExtendedId when EnExtendedId is set, else Id.
  LONG GetVantorId() const { return m_EnExtendedId != 0 ? m_ExtendedId : m_Id; }

  // The first eight fields always; a stored schema above 1 adds SilentEmer and EmerRepeat,
  // above 2 the zone/troop/vehicle identity, above 3 the extended ID, above 4 ConvKorvexEmer,
  // above 5 TrkSystem and Group, above 6 RepeatETone. Storing writes schema 7; archive faults
  // propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "Conventional Emergency/Home Chan Options:" block. The start delay line shows
  // the delays in milliseconds that the start delay gives on key-up windows of 250, 500, 750
  // and 1000 ms, then the percentage itself. The personality is not used.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("EnVantor", m_EnVantor);
    v("EnEmer", m_EnEmer);
    v("Emer", m_Emer);
    v("Vantor", m_Vantor);
    v("System", m_System, RefersTo{RefKind::System});
    v("Channel", m_Channel, RefersTo{RefKind::Channel, 0, "System"});
    v("Id", m_Id);
    v("StartDelayPercent", m_StartDelayPercent);
    v("SilentEmer", m_SilentEmer, Since{2});
    v("EmerRepeat", m_EmerRepeat, Since{2});
    v("AlphaNumeric", m_AlphaNumeric, Since{3});
    v("Zone", m_Zone, Since{3});
    v("Troop", m_Troop, Since{3});
    v("VehicleId", m_VehicleId, Since{3});
    v("EnExtendedId", m_EnExtendedId, Since{4});
    v("ExtendedId", m_ExtendedId, Since{4});
    v("ConvKorvexEmer", m_ConvKorvexEmer, Since{5});
    v("TrkSystem", m_TrkSystem, Since{6}, RefersTo{RefKind::System});
    v("Group", m_Group, Since{6}, RefersTo{RefKind::Group, 0, "TrkSystem"});
    v("RepeatETone", m_RepeatETone, Since{7});
  }
  PERSONA_FIELDS(CSerial)

 private:
  BYTE m_EnVantor = 0;
  BYTE m_EnEmer = 0;
  WORD m_Emer = 0;
  WORD m_Vantor = 0;
  CString m_System;
  CString m_Channel;
  WORD m_Id = 0;
  double m_StartDelayPercent = 0.0;
  BYTE m_SilentEmer = 0;
  BYTE m_EmerRepeat = 5;
  BYTE m_AlphaNumeric = 0;
  BYTE m_Zone = 0;
  BYTE m_Troop = 0;
  WORD m_VehicleId = 0;
  BYTE m_EnExtendedId = 0;
  LONG m_ExtendedId = 0;
  BYTE m_ConvKorvexEmer = 0;
  CString m_TrkSystem;
  CString m_Group;
  BYTE m_RepeatETone = 0;
};

}  // namespace persona
