// Tone encoding: CToneSeq (one tone sequence the radio can send: name, encode type, the event
// that triggers it, the tones and their timing) and CToneEncode (the option record that owns
// the radio's sequences), with their report block.
//
// Archives:
//   CToneSeq (schema 2, versionable): Name, EncodeType (8 bits), EncodingTrigger (8 bits),
//     Tones (word array: count, then each tone in tenths of a hertz), ToneDuration (16 bits,
//     ms); schema 2 adds PreDelay (16 bits, ms).
//   CToneEncode (schema 2, versionable): the sequences as an object list (count, then each
//     CToneSeq), SideTone (8 bits); schema 2 adds ToneLevel (16 bits, deviation in Hz).
// Files of personality version 16 and older numbered the triggers of sequential sequences from
// a different origin; the personality's load repair (RemapToneEncodeTriggers) converts them.
#pragma once

#include <persona/export.h>

#include <vector>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CToneSeq : public CFieldRecord<CToneSeq, CObject> {
  DECLARE_SERIAL(CToneSeq)
 public:
  // Empty name, no encoding, trigger 0 (manual), no tones, 100 ms per tone, no pre-delay.
  CToneSeq() = default;
  // The defaults above; the radio type and the model-defaults flag are not used.
  CToneSeq(unsigned short radioType, int reducedDefaults);
  CToneSeq(const CToneSeq&) = default;
  CToneSeq& operator=(const CToneSeq&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CToneSeq, CObject>::operator=;
  ~CToneSeq() override = default;

  PERSONA_ACCESSORS(CString, Name)
  PERSONA_ACCESSORS(BYTE, EncodeType)       // 0 none, 1 single tone, 2 sequential
  PERSONA_ACCESSORS(BYTE, EncodingTrigger)  // 0 manual, 1 PTT press, 2 PTT release, 3 both
  PERSONA_ACCESSORS(WORD, ToneDuration)
  PERSONA_ACCESSORS(WORD, PreDelay)
  // Tones, in tenths of a hertz.
  const CWordArray& GetTones() const { return m_Tones; }
  void SetTones(const CWordArray& tones) { m_Tones.Copy(tones); }
  int GetNumTones() const { return m_Tones.GetSize(); }

  // The layout of the file comment; storing writes schema 2; archive faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the sequence's lines (name, encode type and trigger, timing, tones) to the report
  // block of its owner.
  void printToBuffer(OptionBlock& block) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Name", m_Name);
    v("EncodeType", m_EncodeType);
    v("EncodingTrigger", m_EncodingTrigger);
    v("Tones", m_Tones);
    v("ToneDuration", m_ToneDuration);
    v("PreDelay", m_PreDelay, Since{2});
  }
  PERSONA_FIELDS(CObject)

 private:
  CString m_Name;
  BYTE m_EncodeType = 0;
  BYTE m_EncodingTrigger = 0;
  CWordArray m_Tones;
  WORD m_ToneDuration = 100;
  WORD m_PreDelay = 0;
};

class PERSONA_EXPORT CToneEncode : public CFieldOption<CToneEncode> {
  DECLARE_SERIAL(CToneEncode)
 public:
  // No sequences, side tone on, tone level 3000 Hz.
  CToneEncode();
  // The defaults above. Reduced defaults (flag non-zero) start with the side tone off.
  CToneEncode(unsigned short radioType, int reducedDefaults);
  // Copies every field and every sequence.
  CToneEncode(const CToneEncode& src);
  // Copies every field from src and replaces this record's sequences (deleted) with copies of
  // src's (nothing when src is null or this record). Returns this record.
  CToneEncode& operator=(const CToneEncode* src);
  ~CToneEncode() override = default;

  PERSONA_ACCESSORS(BYTE, SideTone)
  PERSONA_ACCESSORS(WORD, ToneLevel)

  // Copies of the sequences, in order.
  std::vector<CToneSeq> GetSeqs() const;
  // Replaces the sequences (the old ones are deleted) with copies of seqs.
  void SetSeqs(const std::vector<CToneSeq>& seqs);
  int GetNumSeqs() const { return m_Seqs.GetCount(); }
  // The sequence at i (the record keeps it), or null when there is none.
  CToneSeq* GetSeqAt(int i) const;
  // Appends seq; the record takes it over.
  void AddSeq(CToneSeq* seq) { m_Seqs.Add(seq); }
  // Removes and deletes the sequence at i; false (nothing done) when there is none.
  bool DeleteSeqAt(int i);

  // Deletes every sequence.
  void Delete() override { m_Seqs.DeleteAll(); }

  // The layout of the file comment; storing writes schema 2; archive faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "TONE ENCODE OPTIONS:" block: the record's switches, then each sequence.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Seqs", m_Seqs);
    v("SideTone", m_SideTone);
    v("ToneLevel", m_ToneLevel, Since{2});
  }
  PERSONA_FIELDS(CSerial)

 private:
  void CopyFrom(const CToneEncode& src);

  COwnedObList m_Seqs;
  BYTE m_SideTone = 1;
  WORD m_ToneLevel = 3000;
};

}  // namespace persona
