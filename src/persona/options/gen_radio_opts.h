// CGenRadioOpts: the radio-wide option group (transmit lockout, radio operation, interconnect,
// test unit and home system, logical ID ranges of the three addressing plans, squelch, volume
// limits, trunked bandwidth and baud rate, and a handful of flags) and its report block.
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/core/set_types.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CGenRadioOpts : public CFieldOption<CGenRadioOpts> {
  DECLARE_SERIAL(CGenRadioOpts)
 public:
  // Every flag 0 except DynamicRegroup and TxLockout (1); logical IDs 1 to 16382, extended
  // addressing 1 to 1048575, P25 1 to 9999999; Squelch 160; MaxVolume 10; baud rate 4800 and
  // bandwidth 25 kHz; strings empty; EmerLatch 0.
  CGenRadioOpts() = default;
  // The defaults above with BaudRate 1 (9600) and RxPolarity 1 for radio type 103. Reduced
  // defaults (flag non-zero) also clear DynamicRegroup for set A, TxLockout for 54 and 4150,
  // and Squelch for 43 and 64.
  CGenRadioOpts(unsigned short radioType, int reducedDefaults);
  // The model defaults with LowMicAudio 1; a non-zero narrowBand gives 12.5 kHz at 4800 baud,
  // zero gives 25 kHz at 9600 baud.
  CGenRadioOpts(int narrowBand, unsigned short radioType, int reducedDefaults);
  // Copies every field except EmerLatch, which starts at 0 in the copy.
  CGenRadioOpts(const CGenRadioOpts& src);
  // Copies every field from src except EmerLatch, which keeps this record's value (nothing when
  // src is null or this record). Returns this record.
  CGenRadioOpts& operator=(const CGenRadioOpts* src);
  ~CGenRadioOpts() override = default;

  PERSONA_ACCESSORS(BYTE, LowMicAudio)
  PERSONA_ACCESSORS(BYTE, DynamicRegroup)
  PERSONA_ACCESSORS(BYTE, BaseMobileOper)
  PERSONA_ACCESSORS(BYTE, TxLockout)
  PERSONA_ACCESSORS(BYTE, HomeDecode)
  PERSONA_ACCESSORS(BYTE, TxRelay)
  PERSONA_ACCESSORS(BYTE, RciAttached)
  PERSONA_ACCESSORS(BYTE, TxLockoutType)  // 0 normal, 1 signal
  PERSONA_ACCESSORS(BYTE, TestMode)
  PERSONA_ACCESSORS(BYTE, InterconnectState)  // 0 simplex, 1 duplex
  PERSONA_ACCESSORS(BYTE, OverAirChanExp)
  PERSONA_ACCESSORS(WORD, RadioOperation)  // 0 normal, 1 control-channel monitor
  PERSONA_ACCESSORS(WORD, MinLid)
  PERSONA_ACCESSORS(WORD, MaxLid)
  PERSONA_ACCESSORS(WORD, ICallMinVol)  // 255 = off
  PERSONA_ACCESSORS(WORD, Squelch)
  PERSONA_ACCESSORS(WORD, MinVol)
  PERSONA_ACCESSORS(BYTE, OffsetIF)
  PERSONA_ACCESSORS(BYTE, EmerLatch)
  PERSONA_ACCESSORS(CString, TestUnitSystem)
  PERSONA_ACCESSORS(CString, HomeSystem)
  PERSONA_ACCESSORS(CString, CallBackMess)
  PERSONA_ACCESSORS(CString, Text)
  PERSONA_ACCESSORS(CString, CnvTestSet)
  PERSONA_ACCESSORS(BYTE, BaudRate)  // 0 4800, 1 9600
  PERSONA_ACCESSORS(BYTE, VoterMonitor)
  PERSONA_ACCESSORS(BYTE, BandWidth)  // 0 25 kHz, 1 12.5 kHz
  PERSONA_ACCESSORS(BYTE, MaxVolume)  // 0 to 11
  PERSONA_ACCESSORS(BYTE, AltLowVoltage)
  PERSONA_ACCESSORS(BYTE, OverrideNpspac)
  PERSONA_ACCESSORS(BYTE, FastPtt)
  PERSONA_ACCESSORS(int, MinEaLid)
  PERSONA_ACCESSORS(int, MaxEaLid)
  PERSONA_ACCESSORS(int, MinP25Lid)
  PERSONA_ACCESSORS(int, MaxP25Lid)
  PERSONA_ACCESSORS(BYTE, AgcLevel)
  PERSONA_ACCESSORS(int, RxPolarity)  // 0 normal, non-zero inverted

  // Eleven bytes, six words, two bytes, five strings, BaudRate and VoterMonitor; then one
  // field or group per schema from 2 (BandWidth) to 9 (RxPolarity). A loaded RadioOperation
  // above 1 becomes 1 and a MaxVolume above 11 becomes 11. Storing writes schema 9; archive
  // faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "GENERAL RADIO OPTIONS:" block. The storage location count comes from the
  // personality's CScratchPadOpts, or from a temporary one of radioType's full defaults when it
  // has none; the receive polarity line is printed for radio types 101 to 106 only.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality,
                        unsigned short radioType) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("LowMicAudio", m_LowMicAudio);
    v("DynamicRegroup", m_DynamicRegroup);
    v("BaseMobileOper", m_BaseMobileOper);
    v("TxLockout", m_TxLockout);
    v("HomeDecode", m_HomeDecode);
    v("TxRelay", m_TxRelay);
    v("RciAttached", m_RciAttached);
    v("TxLockoutType", m_TxLockoutType);
    v("TestMode", m_TestMode);
    v("InterconnectState", m_InterconnectState);
    v("OverAirChanExp", m_OverAirChanExp);
    v("RadioOperation", m_RadioOperation);
    v("MinLid", m_MinLid);
    v("MaxLid", m_MaxLid);
    v("ICallMinVol", m_ICallMinVol);
    v("Squelch", m_Squelch);
    v("MinVol", m_MinVol);
    v("OffsetIF", m_OffsetIF);
    v("EmerLatch", m_EmerLatch);
    v("TestUnitSystem", m_TestUnitSystem, RefersTo{RefKind::System});
    v("HomeSystem", m_HomeSystem, RefersTo{RefKind::System});
    v("CallBackMess", m_CallBackMess);
    v("Text", m_Text);
    v("CnvTestSet", m_CnvTestSet, RefersTo{RefKind::Set, ConvSetType});
    v("BaudRate", m_BaudRate);
    v("VoterMonitor", m_VoterMonitor);
    v("BandWidth", m_BandWidth, Since{2});
    v("MaxVolume", m_MaxVolume, Since{3});
    v("AltLowVoltage", m_AltLowVoltage, Since{4});
    v("OverrideNpspac", m_OverrideNpspac, Since{5});
    v("FastPtt", m_FastPtt, Since{6});
    v("MinEaLid", m_MinEaLid, Since{7});
    v("MaxEaLid", m_MaxEaLid, Since{7});
    v("MinP25Lid", m_MinP25Lid, Since{7});
    v("MaxP25Lid", m_MaxP25Lid, Since{7});
    v("AgcLevel", m_AgcLevel, Since{8});
    v("RxPolarity", m_RxPolarity, Since{9});
  }
  PERSONA_FIELDS(CSerial)

 private:
  // Plain member-wise copy, used by the copy operations that then restore EmerLatch.
  CGenRadioOpts& operator=(const CGenRadioOpts&) = default;

  BYTE m_LowMicAudio = 0;
  BYTE m_DynamicRegroup = 1;
  BYTE m_BaseMobileOper = 0;
  BYTE m_TxLockout = 1;
  BYTE m_HomeDecode = 0;
  BYTE m_TxRelay = 0;
  BYTE m_RciAttached = 0;
  BYTE m_TxLockoutType = 0;
  BYTE m_TestMode = 0;
  BYTE m_InterconnectState = 0;
  BYTE m_OverAirChanExp = 0;
  WORD m_RadioOperation = 0;
  WORD m_MinLid = 1;
  WORD m_MaxLid = 16382;
  WORD m_ICallMinVol = 0;
  WORD m_Squelch = 160;
  WORD m_MinVol = 0;
  BYTE m_OffsetIF = 0;
  BYTE m_EmerLatch = 0;
  CString m_TestUnitSystem;
  CString m_HomeSystem;
  CString m_CallBackMess;
  CString m_Text;
  CString m_CnvTestSet;
  BYTE m_BaudRate = 0;
  BYTE m_VoterMonitor = 0;
  BYTE m_BandWidth = 0;
  BYTE m_MaxVolume = 10;
  BYTE m_AltLowVoltage = 0;
  BYTE m_OverrideNpspac = 0;
  BYTE m_FastPtt = 0;
  LONG m_MinEaLid = 1;
  LONG m_MaxEaLid = 1048575;
  LONG m_MinP25Lid = 1;
  LONG m_MaxP25Lid = 9999999;
  BYTE m_AgcLevel = 0;
  LONG m_RxPolarity = 0;
};

}  // namespace persona
