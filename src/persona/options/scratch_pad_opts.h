// CScratchPadOpts: the extended-addressing scratch pad of a radio: how many storage locations
// it offers, the logical IDs and telephone numbers stored in it, and whether telephone
// numbers are dialled through the interconnect.
//
// Archive (schema 1, not versionable): NumScratchPad (16 bits), the logical IDs (a string
// array of decimal numbers, as keyed into the radio; up to 1048575 does not fit 16 bits), the
// telephone numbers (a string array), Interconnect (8 bits).
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

class PERSONA_EXPORT CScratchPadOpts : public CFieldOption<CScratchPadOpts> {
  DECLARE_SERIAL(CScratchPadOpts)
 public:
  // Ten storage locations, no entries, interconnect on.
  CScratchPadOpts() = default;
  // The defaults above; set A radios offer sixteen storage locations. The flag is not used.
  CScratchPadOpts(unsigned short radioType, int reducedDefaults);
  CScratchPadOpts(const CScratchPadOpts&) = default;
  CScratchPadOpts& operator=(const CScratchPadOpts&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CScratchPadOpts, CSerial>::operator=;
  ~CScratchPadOpts() override = default;

  PERSONA_ACCESSORS(WORD, NumScratchPad)  // number of storage locations
  PERSONA_ACCESSORS(BYTE, Interconnect)

  // Logical IDs. GetLidAt answers 0 for a position that does not exist (or an entry that is not
  // a number); SetLidAt and RemoveLidAt answer false and do nothing there.
  int GetNumLids() const { return m_Lids.GetSize(); }
  DWORD GetLidAt(int i) const;
  void AddLid(DWORD lid);
  bool SetLidAt(int i, DWORD lid);
  bool RemoveLidAt(int i);

  // Telephone numbers. GetPhoneNumberAt answers "" for a position that does not exist;
  // SetPhoneNumberAt and RemovePhoneNumberAt answer false and do nothing there.
  int GetNumPhoneNumbers() const { return m_PhoneNumbers.GetSize(); }
  CString GetPhoneNumberAt(int i) const;
  void AddPhoneNumber(CString number) { m_PhoneNumbers.Add(number); }
  bool SetPhoneNumberAt(int i, CString number);
  bool RemovePhoneNumberAt(int i);

  // Releases the stored entries; the counts become 0.
  void Delete() override;

  // The layout of the file comment; archive faults propagate.
  void Serialize(CArchive& ar) override;

  // Appends the "KORVEX SCRATCH PAD OPTIONS:" block. The personality is not used.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("NumScratchPad", m_NumScratchPad, Label{"Storage Locations"});
    v("Lids", m_Lids, Label{"Logical IDs"});
    v("PhoneNumbers", m_PhoneNumbers, Label{"Phone Numbers"});
    v("Interconnect", m_Interconnect, Label{"Interconnect"}, OnOff{});
  }
  PERSONA_FIELDS(CSerial)

 private:
  WORD m_NumScratchPad = 10;
  CStringArray m_Lids;
  CStringArray m_PhoneNumbers;
  BYTE m_Interconnect = 1;
};

}  // namespace persona
