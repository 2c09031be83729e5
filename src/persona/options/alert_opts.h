// CAlertOpts: the alert tone option group of a radio (alert tone levels, ready-to-talk and
// scan alert tones, low-battery alerts) and its block of the personality report.
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CAlertOpts : public CFieldOption<CAlertOpts> {
  DECLARE_SERIAL(CAlertOpts)
 public:
  // Neutral defaults: maximum alert tone 31, channel access, trunked and conventional
  // ready-to-talk tones, audible beeps and the alert tone on; everything else 0.
  CAlertOpts() = default;
  // The neutral defaults with the model's overrides. Full defaults (flag 0): the priority-1
  // scan alert is on for radio types 29 and 33. Reduced defaults (flag non-zero): set A has the
  // maximum alert tone and the channel access tone at 0 (so do 54 and 4150 for the channel
  // access tone), set B has both ready-to-talk tones off.
  CAlertOpts(unsigned short radioType, int reducedDefaults);
  CAlertOpts(const CAlertOpts&) = default;
  CAlertOpts& operator=(const CAlertOpts&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CAlertOpts, CSerial>::operator=;
  ~CAlertOpts() override = default;

  PERSONA_ACCESSORS(WORD, MinAlertTone)
  PERSONA_ACCESSORS(WORD, MaxAlertTone)
  PERSONA_ACCESSORS(BYTE, RxAlertTone)
  PERSONA_ACCESSORS(BYTE, AlertTones)  // 0 single, 1 continuous, 2 adjustable
  PERSONA_ACCESSORS(BYTE, ChanAccessTones)
  PERSONA_ACCESSORS(BYTE, IcallRingAlert)
  PERSONA_ACCESSORS(BYTE, TrkTxBeep)
  PERSONA_ACCESSORS(BYTE, CnvTxBeep)
  PERSONA_ACCESSORS(BYTE, P1ScanAlert)
  PERSONA_ACCESSORS(BYTE, OutOfRangeAlert)
  PERSONA_ACCESSORS(BYTE, AudibleAlert)
  PERSONA_ACCESSORS(BYTE, AlertToneVol)  // 0 low, 1 mid, 2 high
  PERSONA_ACCESSORS(BYTE, AlertToneEn)
  PERSONA_ACCESSORS(BYTE, MultLowBattAlerts)
  PERSONA_ACCESSORS(BYTE, LowBattAlertVol)  // 0 low, 1 mid, 2 high

  // Two words and six bytes; schema 2 adds the priority-1 scan and out-of-range alerts,
  // schema 3 the audible beeps and the alert tone volume and switch, schema 4 the two
  // low-battery fields. Storing writes schema 4; archive faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "ALERT OPTIONS:" block. The individual-call minimum ring volume comes from the
  // personality's CGenRadioOpts and the messaging receive alert tone from its CPellamOpts; when
  // the personality (or the pointer) lacks one, a temporary record of radioType's full defaults
  // stands in. The personality is not changed.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality,
                        unsigned short radioType) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("MinAlertTone", m_MinAlertTone);
    v("MaxAlertTone", m_MaxAlertTone);
    v("RxAlertTone", m_RxAlertTone);
    v("AlertTones", m_AlertTones);
    v("ChanAccessTones", m_ChanAccessTones);
    v("IcallRingAlert", m_IcallRingAlert);
    v("TrkTxBeep", m_TrkTxBeep);
    v("CnvTxBeep", m_CnvTxBeep);
    v("P1ScanAlert", m_P1ScanAlert, Since{2});
    v("OutOfRangeAlert", m_OutOfRangeAlert, Since{2});
    v("AudibleAlert", m_AudibleAlert, Since{3});
    v("AlertToneVol", m_AlertToneVol, Since{3});
    v("AlertToneEn", m_AlertToneEn, Since{3});
    v("MultLowBattAlerts", m_MultLowBattAlerts, Since{4});
    v("LowBattAlertVol", m_LowBattAlertVol, Since{4});
  }
  PERSONA_FIELDS(CSerial)

 private:
  WORD m_MinAlertTone = 0;
  WORD m_MaxAlertTone = 31;
  BYTE m_RxAlertTone = 0;
  BYTE m_AlertTones = 0;
  BYTE m_ChanAccessTones = 1;
  BYTE m_IcallRingAlert = 0;
  BYTE m_TrkTxBeep = 1;
  BYTE m_CnvTxBeep = 1;
  BYTE m_P1ScanAlert = 0;
  BYTE m_OutOfRangeAlert = 0;
  BYTE m_AudibleAlert = 1;
  BYTE m_AlertToneVol = 0;
  BYTE m_AlertToneEn = 1;
  BYTE m_MultLowBattAlerts = 0;
  BYTE m_LowBattAlertVol = 0;
};

}  // namespace persona
