// P25 conventional channels and sets. A CP25ConvChannel is a conventional channel that can
// carry P25 digital voice (talk group ID, transmit and receive NACs, voice mode); a
// CP25ConvSet (set type 8) is the named list of them with frequency limits and the name of the
// P25 group set used with the channels.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// The report words of the coded fields of CP25ConvChannel (a code indexes its list); the report
// lines and the field descriptions share them.
namespace p25_conv_channel_words {
inline constexpr const char* const kBandWidthWords[] = {"Wide", "Narrow", "C4FM"};
inline constexpr const char* const kPowerWords[] = {"Low", "High", "Auto"};
inline constexpr const char* const kSqModeWords[] = {"NORM", "SEL", "MON"};
inline constexpr const char* const kVoiceModeWords[] = {"Analog", "P25"};
}  // namespace p25_conv_channel_words

class PERSONA_EXPORT CP25ConvChannel : public CObject {
  DECLARE_SERIAL(CP25ConvChannel)
 public:
  // NACs 659 (0x293); Backlight, AlertTone, VoiceMode (P25), Power, CgSel and Talkaround 1;
  // BandWidth 2 (C4FM); the rest 0 or empty.
  CP25ConvChannel() = default;
  // As CP25ConvChannel(); with reducedDefaults non-zero Backlight, AlertTone and VoiceMode
  // start at 0. The radio type is not used.
  CP25ConvChannel(unsigned short t, int reducedDefaults);
  CP25ConvChannel(const CP25ConvChannel&) = default;
  CP25ConvChannel& operator=(const CP25ConvChannel&) = default;
  // Copies every field of src (null: nothing); returns this channel.
  CP25ConvChannel& operator=(const CP25ConvChannel* src);
  ~CP25ConvChannel() override = default;

  // 1 when the names and channel guards are equal (case-sensitive), the frequencies differ by
  // less than 0.000001 MHz and every other field is equal, else 0.
  int operator==(const CP25ConvChannel& other) const;

  CString GetName() const { return m_Name; }
  void SetName(CString v) { m_Name = std::move(v); }
  double GetTxFreq() const { return m_TxFreq; }
  void SetTxFreq(double v) { m_TxFreq = v; }
  double GetRxFreq() const { return m_RxFreq; }
  void SetRxFreq(double v) { m_RxFreq = v; }
  CString GetTxCg() const { return m_TxCg; }
  void SetTxCg(CString v) { m_TxCg = std::move(v); }
  CString GetRxCg() const { return m_RxCg; }
  void SetRxCg(CString v) { m_RxCg = std::move(v); }
  DWORD GetTgid() const { return m_Tgid; }
  void SetTgid(DWORD v) { m_Tgid = v; }
  WORD GetTxNac() const { return m_TxNac; }
  void SetTxNac(WORD v) { m_TxNac = v; }
  WORD GetRxNac() const { return m_RxNac; }
  void SetRxNac(WORD v) { m_RxNac = v; }
  BYTE GetSte() const { return m_Ste; }
  void SetSte(BYTE v) { m_Ste = v; }
  BYTE GetBacklight() const { return m_Backlight; }
  void SetBacklight(BYTE v) { m_Backlight = v; }
  BYTE GetScan() const { return m_Scan; }
  void SetScan(BYTE v) { m_Scan = v; }
  BYTE GetCCT() const { return m_CCT; }
  void SetCCT(BYTE v) { m_CCT = v; }
  BYTE GetTxBusy() const { return m_TxBusy; }
  void SetTxBusy(BYTE v) { m_TxBusy = v; }
  BYTE GetEmer() const { return m_Emer; }
  void SetEmer(BYTE v) { m_Emer = v; }
  BYTE GetAlertTone() const { return m_AlertTone; }
  void SetAlertTone(BYTE v) { m_AlertTone = v; }
  BYTE GetFixPower() const { return m_FixPower; }
  void SetFixPower(BYTE v) { m_FixPower = v; }
  BYTE GetPreAmp() const { return m_PreAmp; }
  void SetPreAmp(BYTE v) { m_PreAmp = v; }
  // 0 Wide, 1 Narrow, 2 C4FM.
  BYTE GetBandWidth() const { return m_BandWidth; }
  void SetBandWidth(BYTE v) { m_BandWidth = v; }
  // 0 NORM, 1 SEL, 2 MON.
  BYTE GetSqMode() const { return m_SqMode; }
  void SetSqMode(BYTE v) { m_SqMode = v; }
  // 0 Analog, 1 P25.
  BYTE GetVoiceMode() const { return m_VoiceMode; }
  void SetVoiceMode(BYTE v) { m_VoiceMode = v; }
  // 0 Low, 1 High, 2 Auto.
  BYTE GetPower() const { return m_Power; }
  void SetPower(BYTE v) { m_Power = v; }
  BYTE GetCgSel() const { return m_CgSel; }
  void SetCgSel(BYTE v) { m_CgSel = v; }
  BYTE GetTalkaround() const { return m_Talkaround; }
  void SetTalkaround(BYTE v) { m_Talkaround = v; }

  // Name to Power (PreAmp comes after Power in the archive); PreAmp from schema 2; CgSel and
  // Talkaround from schema 3.
  void Serialize(CArchive& ar) override;

  // Archive order.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("TxFreq", m_TxFreq);
    v("RxFreq", m_RxFreq);
    v("TxCg", m_TxCg);
    v("RxCg", m_RxCg);
    v("Tgid", m_Tgid);
    v("TxNac", m_TxNac, Hex{});
    v("RxNac", m_RxNac, Hex{});
    v("Ste", m_Ste, OnOff{});
    v("Backlight", m_Backlight, OnOff{});
    v("Scan", m_Scan, OnOff{});
    v("CCT", m_CCT, OnOff{});
    v("TxBusy", m_TxBusy, OnOff{});
    v("Emer", m_Emer);
    v("AlertTone", m_AlertTone, OnOff{});
    v("FixPower", m_FixPower, OnOff{});
    v("BandWidth", m_BandWidth, WordsOf(p25_conv_channel_words::kBandWidthWords));
    v("SqMode", m_SqMode, WordsOf(p25_conv_channel_words::kSqModeWords));
    v("VoiceMode", m_VoiceMode, WordsOf(p25_conv_channel_words::kVoiceModeWords));
    v("Power", m_Power, WordsOf(p25_conv_channel_words::kPowerWords));
    v("PreAmp", m_PreAmp, Since{2}, OnOff{});
    v("CgSel", m_CgSel, Since{3});
    v("Talkaround", m_Talkaround, Since{3});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  double m_TxFreq = 0.0;
  double m_RxFreq = 0.0;
  CString m_TxCg;
  CString m_RxCg;
  DWORD m_Tgid = 0;
  WORD m_TxNac = 659;
  WORD m_RxNac = 659;
  BYTE m_Ste = 0;
  BYTE m_Backlight = 1;
  BYTE m_Scan = 0;
  BYTE m_CCT = 0;
  BYTE m_TxBusy = 0;
  BYTE m_Emer = 0;
  BYTE m_AlertTone = 1;
  BYTE m_FixPower = 0;
  BYTE m_PreAmp = 0;
  BYTE m_BandWidth = 2;
  BYTE m_SqMode = 0;
  BYTE m_VoiceMode = 1;
  BYTE m_Power = 1;
  BYTE m_CgSel = 1;
  BYTE m_Talkaround = 1;
};

class PERSONA_EXPORT CP25ConvSet : public CElementSet {
  DECLARE_SERIAL(CP25ConvSet)
 public:
  // An empty set of type 8: limits 0, no P25 group set.
  CP25ConvSet();
  // The same; the arguments are not used.
  CP25ConvSet(unsigned short t, int reducedDefaults);
  // Deep-copies the channels and copies the limits and the P25 group set name.
  CP25ConvSet(const CP25ConvSet& src) = default;
  // Replaces every channel with copies of src's, copies the name, set type, scope, limits and
  // P25 group set name. Assigning a set to itself does nothing. Returns this set.
  CP25ConvSet& operator=(const CP25ConvSet* src);
  CP25ConvSet& operator=(const CP25ConvSet& src) { return *this = &src; }
  ~CP25ConvSet() override = default;

  // 1 when the set names, set types, scopes, the four limits (exactly), the P25 group set
  // names and the channel counts are equal and the channels are equal pairwise, else 0.
  int operator==(const CP25ConvSet& other) const;

  // Returns the channel at index (the set keeps it), or null when index is not below the count.
  CP25ConvChannel* GetChannelAt(unsigned short index) const;
  // Returns the position of the first channel named name (case-sensitive), or -1 (always for
  // an empty name).
  int FindChannelIndex(const CString& name) const;
  // Empties P25GroupSet when it equals name (the name of a channel being deleted is compared
  // with the group set name; the channels are untouched).
  void DeleteSetReferencesToChan(const CString& name);
  // Empties names, then appends every channel's name in list order.
  void GetNames(CStringArray& names) const;
  // As CConvSet::CheckFrequencyRange, except that the receive upper test always allows
  // 0.000001 MHz above fourth. Returns 1 or 0; second is not used.
  int CheckFrequencyRange(double first, double second, double third, double fourth) const;

  // Appends the set's heading and group set line, then 11 lines and an empty line per channel.
  // radioType and bandFrequency are not used. elementEnd, when given, is
  // called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int setNumber, unsigned short radioType = 0,
                     double bandFrequency = 0.0, const ElementLinesEnd* elementEnd = nullptr) const;

  double GetTxMinFreq() const { return m_TxMinFreq; }
  void SetTxMinFreq(double v) { m_TxMinFreq = v; }
  double GetTxMaxFreq() const { return m_TxMaxFreq; }
  void SetTxMaxFreq(double v) { m_TxMaxFreq = v; }
  double GetRxMinFreq() const { return m_RxMinFreq; }
  void SetRxMinFreq(double v) { m_RxMinFreq = v; }
  double GetRxMaxFreq() const { return m_RxMaxFreq; }
  void SetRxMaxFreq(double v) { m_RxMaxFreq = v; }
  CString GetP25GroupSet() const { return m_P25GroupSet; }
  void SetP25GroupSet(CString v) { m_P25GroupSet = std::move(v); }

  // The CSet part, then TxMinFreq, RxMinFreq, TxMaxFreq, RxMaxFreq, P25GroupSet.
  void Serialize(CArchive& ar) override;

  // Archive order (minimum limits first).
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("TxMinFreq", m_TxMinFreq);
    v("RxMinFreq", m_RxMinFreq);
    v("TxMaxFreq", m_TxMaxFreq);
    v("RxMaxFreq", m_RxMaxFreq);
    v("P25GroupSet", m_P25GroupSet, RefersTo{RefKind::Set, P25GroupSetType});
  }
  PERSONA_FIELDS(CElementSet)

 protected:
  // Applies DeleteSetReferencesToChan to the channel being deleted (CSet::DeleteAt).
  void DeleteSetReferencesToElement(const CObject& element) override;

 private:
  double m_TxMinFreq = 0.0;
  double m_TxMaxFreq = 0.0;
  double m_RxMinFreq = 0.0;
  double m_RxMaxFreq = 0.0;
  CString m_P25GroupSet;
};

}  // namespace persona
