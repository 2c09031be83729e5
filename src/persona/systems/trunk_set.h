// Trunk channels and trunk sets. A CTrunkChannel is one trunked repeater frequency pair; a
// CTrunkSet is the named list of the channels of one trunked site together with the site-wide
// settings (frequency limits, power, site ID, control-channel limit, signalling baud rate,
// band width, pre-amplifier, unkey message) and the security keys the site may use.
#pragma once

#include <persona/export.h>

#include <persona/core/set.h>
#include <persona/core/set_helpers.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/systems/esk_key_list.h>

namespace persona {

// The report words of the coded fields of CTrunkChannel (a code indexes its list); the report
// lines and the field descriptions share them.
namespace trunk_channel_words {
// Channel types 0 to 2, followed by the control-channel limit labels that a Type of 3 to 6
// reaches in the report.
inline constexpr const char* const kChannelTypeWords[] = {"Normal",  "Encode",   "Decode",  "All",
                                                          "First 5", "First 10", "First 15"};
}  // namespace trunk_channel_words

class PERSONA_EXPORT CTrunkChannel : public CObject {
  DECLARE_SERIAL(CTrunkChannel)
 public:
  // Frequencies 0, OscShift 2, every switch 0.
  CTrunkChannel() = default;
  // The defaults of radio type t: OscShift 1 for 96 and 97, 3 for 88, 89, 94, 95, 101, 102,
  // 104 to 106, else 2; with reducedDefaults non-zero OscShift 0 for 68 to 70, 88, 89, 94 to
  // 96, 101, 102, 104 to 106 (97 keeps 1).
  CTrunkChannel(unsigned short t, int reducedDefaults);
  CTrunkChannel(const CTrunkChannel&) = default;
  CTrunkChannel& operator=(const CTrunkChannel&) = default;
  // Copies every field of src (null: nothing); returns this channel.
  CTrunkChannel& operator=(const CTrunkChannel* src);
  ~CTrunkChannel() override = default;

  // 1 when both frequencies fall into the same 10 Hz steps and OscShift, OsOpt, Type and
  // Npspac are equal (4800Baud takes no part), else 0.
  int operator==(const CTrunkChannel& other) const;

  double GetTxFreq() const { return m_TxFreq; }
  void SetTxFreq(double v) { m_TxFreq = v; }
  double GetRxFreq() const { return m_RxFreq; }
  void SetRxFreq(double v) { m_RxFreq = v; }
  WORD GetOscShift() const { return m_OscShift; }
  void SetOscShift(WORD v) { m_OscShift = v; }
  BYTE GetOsOpt() const { return m_OsOpt; }
  void SetOsOpt(BYTE v) { m_OsOpt = v; }
  // 0 Normal, 1 Encode, 2 Decode.
  WORD GetType() const { return m_Type; }
  void SetType(WORD v) { m_Type = v; }
  BYTE Get4800Baud() const { return m_4800Baud; }
  void Set4800Baud(BYTE v) { m_4800Baud = v; }
  BYTE GetNpspac() const { return m_Npspac; }
  void SetNpspac(BYTE v) { m_Npspac = v; }

  // Frequencies, OscShift, OsOpt, Type; 4800Baud from schema 2, Npspac from schema 3.
  void Serialize(CArchive& ar) override;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("TxFreq", m_TxFreq);
    v("RxFreq", m_RxFreq);
    v("OscShift", m_OscShift);
    v("OsOpt", m_OsOpt, OnOff{});
    v("Type", m_Type, WordsOf(trunk_channel_words::kChannelTypeWords));
    v("4800Baud", m_4800Baud, Since{2});
    v("Npspac", m_Npspac, Since{3}, OnOff{});
  }
  PERSONA_FIELDS(CObject)

 private:
  double m_TxFreq = 0.0;
  double m_RxFreq = 0.0;
  WORD m_OscShift = 2;
  BYTE m_OsOpt = 0;
  WORD m_Type = 0;
  BYTE m_4800Baud = 0;
  BYTE m_Npspac = 0;
};

class PERSONA_EXPORT CTrunkSet : public CElementSet, public CSetKeyList {
  DECLARE_SERIAL(CTrunkSet)
 public:
  // Set type 0; limits 0 to 1000 MHz; BaudRate 1 (9600), every other option 0; no keys.
  CTrunkSet();
  // As CTrunkSet(), except: Power 1 for radio type 77 with reducedDefaults 0; BaudRate 1 when
  // bandFrequency is below 890 MHz, else 0; BandWidth 1 (narrow) above 890 MHz, else 0.
  CTrunkSet(unsigned short t, int reducedDefaults, double bandFrequency);
  // Deep-copies the channels, copies limits and options, and shares src's key records.
  CTrunkSet(const CTrunkSet& src);
  // Replaces every channel with copies of src's, copies the name, set type, scope, limits and
  // options; the key list of this set is kept. Assigning a set to itself does nothing.
  // Returns this set.
  CTrunkSet& operator=(const CTrunkSet* src);
  CTrunkSet& operator=(const CTrunkSet& src) { return *this = &src; }
  // Deletes the channels; the key records are not deleted.
  ~CTrunkSet() override = default;

  // 1 when the channel counts, Power, SiteId, CCLimit, MaxChan, BaudRate, BandWidth, PreAmp
  // and UnkeyMess are equal and the channels are equal pairwise; name, limits and keys take
  // no part. Else 0.
  int operator==(const CTrunkSet& other) const;

  // Returns the channel at index (the set keeps it), or null when index is not below the count.
  CTrunkChannel* GetChannelAt(unsigned short index) const;

  // Returns 1 when every channel passes, 0 at the first that fails: a TxFreq above 0 and below
  // a fails; when a is above 800 MHz, a TxFreq above d + 0.000001 or an RxFreq below c fails;
  // an RxFreq above d + 0.000001 always fails. b is not used.
  int CheckFrequencyRange(double a, double b, double c, double d) const;

  // Appends the report lines of the set's settings and channel table; the int is not used.
  // elementEnd, when given, is called after each element's lines (see ElementLinesEnd).
  void printToBuffer(CStringArray& out, int unused = 0,
                     const ElementLinesEnd* elementEnd = nullptr) const;

  double GetTxMinFreq() const { return m_TxMinFreq; }
  void SetTxMinFreq(double v) { m_TxMinFreq = v; }
  double GetTxMaxFreq() const { return m_TxMaxFreq; }
  void SetTxMaxFreq(double v) { m_TxMaxFreq = v; }
  double GetRxMinFreq() const { return m_RxMinFreq; }
  void SetRxMinFreq(double v) { m_RxMinFreq = v; }
  double GetRxMaxFreq() const { return m_RxMaxFreq; }
  void SetRxMaxFreq(double v) { m_RxMaxFreq = v; }
  // 0 Low, 1 High.
  BYTE GetPower() const { return m_Power; }
  void SetPower(BYTE v) { m_Power = v; }
  WORD GetSiteId() const { return m_SiteId; }
  void SetSiteId(WORD v) { m_SiteId = v; }
  // 0 all channels, 5, 10 or 15 the first 5, 10 or 15.
  WORD GetCCLimit() const { return m_CCLimit; }
  void SetCCLimit(WORD v) { m_CCLimit = v; }
  WORD GetMaxChan() const { return m_MaxChan; }
  void SetMaxChan(WORD v) { m_MaxChan = v; }
  // 0 4800, 1 9600; 255 after loading a file that did not hold it (the personality then takes
  // the rate of its general options).
  BYTE GetBaudRate() const { return m_BaudRate; }
  void SetBaudRate(BYTE v) { m_BaudRate = v; }
  // 0 Wide, 1 Narrow.
  BYTE GetBandWidth() const { return m_BandWidth; }
  void SetBandWidth(BYTE v) { m_BandWidth = v; }
  BYTE GetPreAmp() const { return m_PreAmp; }
  void SetPreAmp(BYTE v) { m_PreAmp = v; }
  BYTE GetUnkeyMess() const { return m_UnkeyMess; }
  void SetUnkeyMess(BYTE v) { m_UnkeyMess = v; }

  // The CSet part, then the limits, Power, SiteId, CCLimit, MaxChan, BandWidth, PreAmp,
  // UnkeyMess; the key list from schema 2; BaudRate from schema 3 (older files load 255).
  // A loaded BandWidth above 1 becomes 0. Archive faults raise CArchiveException.
  void Serialize(CArchive& ar) override;

  // Archive order (BaudRate comes last although it is declared before BandWidth).
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("TxMinFreq", m_TxMinFreq);
    v("TxMaxFreq", m_TxMaxFreq);
    v("RxMinFreq", m_RxMinFreq);
    v("RxMaxFreq", m_RxMaxFreq);
    v("Power", m_Power);
    v("SiteId", m_SiteId);
    v("CCLimit", m_CCLimit);
    v("MaxChan", m_MaxChan);
    v("BandWidth", m_BandWidth);
    v("PreAmp", m_PreAmp);
    v("UnkeyMess", m_UnkeyMess);
    v("Esks", m_esks, Since{2});
    v("BaudRate", m_BaudRate, Since{3});
  }
  PERSONA_FIELDS(CElementSet)

 private:
  void CopySettings(const CTrunkSet& src);

  double m_TxMinFreq = 0.0;
  double m_TxMaxFreq = 1000.0;
  double m_RxMinFreq = 0.0;
  double m_RxMaxFreq = 1000.0;
  BYTE m_Power = 0;
  WORD m_SiteId = 0;
  WORD m_CCLimit = 0;
  WORD m_MaxChan = 0;
  BYTE m_BaudRate = 1;
  BYTE m_BandWidth = 0;
  BYTE m_PreAmp = 0;
  BYTE m_UnkeyMess = 0;
};

}  // namespace persona
