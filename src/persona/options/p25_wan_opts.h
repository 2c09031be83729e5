// The P25 trunked wide-area networks a radio knows: CP25TrkWan (one network: name, network
// address, system ID) and CP25tWanOpts (the option record that owns the list of them), with
// their report lines. P25 trunked systems name their network; getWanIndex turns the name into
// a position in the list.
#pragma once

#include <persona/export.h>

#include <persona/core/serial.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>

namespace persona {

class CPersonality;

// One wide-area network. Archive (schema 2, versionable, the schema is not asked for):
// NetworkName, NetworkAddr (32 bits), SystemId (16 bits).
class PERSONA_EXPORT CP25TrkWan : public CFieldOption<CP25TrkWan> {
  DECLARE_SERIAL(CP25TrkWan)
 public:
  CP25TrkWan() = default;
  // The radio type and the model-defaults flag are not used.
  CP25TrkWan(unsigned short radioType, int reducedDefaults);
  CP25TrkWan(const CP25TrkWan&) = default;
  CP25TrkWan& operator=(const CP25TrkWan&) = default;
  // Copies every field from src (nothing when src is null or this record); returns this record.
  using CFieldRecord<CP25TrkWan, CSerial>::operator=;
  ~CP25TrkWan() override = default;

  PERSONA_ACCESSORS(CString, NetworkName)
  PERSONA_ACCESSORS(DWORD, NetworkAddr)
  PERSONA_ACCESSORS(WORD, SystemId)

  void Serialize(CArchive& ar) override;

  // Appends "  Name: <name right-aligned in 8>  NW Addr: <5 hex digits>  System ID: <3 hex>".
  void printToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("NetworkName", m_NetworkName);
    v("NetworkAddr", m_NetworkAddr, Hex{});
    v("SystemId", m_SystemId, Hex{});
  }
  PERSONA_FIELDS(CSerial)

 private:
  CString m_NetworkName;
  DWORD m_NetworkAddr = 0;
  WORD m_SystemId = 0;
};

// The WAN list. It owns its CP25TrkWan records: destroying the option record, Delete,
// DeleteWanAt and assignment delete them. Archive (schema 1, versionable, the schema is not
// asked for): the list as an object list (count, then each CP25TrkWan).
class PERSONA_EXPORT CP25tWanOpts : public CFieldOption<CP25tWanOpts> {
  DECLARE_SERIAL(CP25tWanOpts)
 public:
  // An empty list.
  CP25tWanOpts();
  // An empty list; the radio type and the model-defaults flag are not used.
  CP25tWanOpts(unsigned short radioType, int reducedDefaults);
  // Copies every WAN record of src, in order.
  CP25tWanOpts(const CP25tWanOpts& src);
  // Deletes this record's WANs, then copies every WAN record of src (nothing when src is null
  // or this record). Returns this record.
  CP25tWanOpts& operator=(const CP25tWanOpts* src);
  ~CP25tWanOpts() override = default;

  // Appends wan; the list takes it over.
  void AddWan(CP25TrkWan* wan);
  // The WAN at i (the list keeps it), or null when there is none.
  CP25TrkWan* GetWanAt(int i) const;
  // Puts wan at i and returns the record that was there, which the caller now owns. When there
  // is no position i nothing changes, the answer is null and the caller keeps wan.
  CP25TrkWan* SetWanAt(int i, CP25TrkWan* wan);
  // Insert wan before / after the WAN at i; with no position i, wan is appended. The list takes
  // wan over.
  void InsertWanBefore(int i, CP25TrkWan* wan);
  void InsertWanAfter(int i, CP25TrkWan* wan);
  // Removes and deletes the WAN at i; nothing when there is none.
  void DeleteWanAt(int i);
  // Position of the first WAN named name (exact, case-sensitive), or 65535 when none is.
  WORD getWanIndex(const CString& name) const;
  // Number of WANs, as 8 bits.
  BYTE GetNumWans() const { return static_cast<BYTE>(m_Wans.GetCount()); }

  // Deletes every WAN record.
  void Delete() override { m_Wans.DeleteAll(); }

  void Serialize(CArchive& ar) override;

  // Appends the "P25 TRUNKED WIDE AREA NETWORKS:" block, one line per WAN.
  void printOptToBuffer(CStringArray& out, const CPersonality* personality) const;

  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("Wans", m_Wans);
  }
  PERSONA_FIELDS(CSerial)

 private:
  bool ValidIndex(int i) const { return i >= 0 && i < m_Wans.GetCount(); }
  void AppendCopiesOf(const CP25tWanOpts& src);

  COwnedObList m_Wans;
};

}  // namespace persona
