// CAgencyData and CExtAddAgencyData: the agency and fleet structure of trunked and extended
// addressing.
#pragma once

#include <persona/export.h>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_record.h>
#include <persona/options/option_words.h>

namespace persona {

class CPersonality;

// CAgencyData: the agency-fleet structure of trunked addressing: the number of agencies and, per
// agency, its number of fleets; schema 2 added the agency names.
class PERSONA_EXPORT CAgencyData : public CFieldOption<CAgencyData> {
  PERSONA_OPTION_RECORD(CAgencyData, CSerial)
 public:
  // Neutral defaults.
  CAgencyData() = default;
  // The defaults every model starts from; neither argument changes them.
  CAgencyData(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CAgencyData(const CAgencyData&) = default;
  CAgencyData& operator=(const CAgencyData&) = default;
  ~CAgencyData() override = default;

  WORD GetNumAgencies() const { return m_NumAgencies; }
  void SetNumAgencies(WORD v) { m_NumAgencies = v; }
  // Number of fleets of each agency, in agency order.
  const CWordArray& GetFleetsPerAgency() const { return m_FleetsPerAgency; }
  void SetFleetsPerAgency(const CWordArray& v) { m_FleetsPerAgency.Copy(v); }
  // Name of each agency, in agency order (may be shorter than the fleet list).
  const CStringArray& GetAgencyNames() const { return m_AgencyNames; }
  void SetAgencyNames(const CStringArray& v) { m_AgencyNames.Copy(v); }
  // Fleets of agency i (0-based); an i outside the list raises CInvalidArgException.
  WORD GetFleetsAt(int i) const { return m_FleetsPerAgency.GetAt(i); }
  // Sets the fleets of agency i, growing the list as needed; a negative i raises
  // CInvalidArgException.
  void SetFleetsAt(int i, WORD fleets) { m_FleetsPerAgency.SetAtGrow(i, fleets); }
  // Number of agencies that have a fleet entry.
  int GetNumFleetEntries() const { return m_FleetsPerAgency.GetSize(); }

  // Appends the "AGENCY DATA:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("NumAgencies", m_NumAgencies, Label{"Number Of Agencies"});
    v("FleetsPerAgency", m_FleetsPerAgency);
    v("AgencyNames", m_AgencyNames, Since{2});
  }

 private:
  WORD m_NumAgencies = 0;
  CWordArray m_FleetsPerAgency;
  CStringArray m_AgencyNames;
};

// CExtAddAgencyData: the agency-fleet structure of extended addressing: the number of agencies
// and, per agency, its number of fleets.
class PERSONA_EXPORT CExtAddAgencyData : public CFieldOption<CExtAddAgencyData> {
  PERSONA_OPTION_RECORD(CExtAddAgencyData, CSerial)
 public:
  // Neutral defaults.
  CExtAddAgencyData() = default;
  // The defaults every model starts from; neither argument changes them.
  CExtAddAgencyData(unsigned short radioType, int reducedDefaults);
  // Copies every field.
  CExtAddAgencyData(const CExtAddAgencyData&) = default;
  CExtAddAgencyData& operator=(const CExtAddAgencyData&) = default;
  ~CExtAddAgencyData() override = default;

  WORD GetNumAgencies() const { return m_NumAgencies; }
  void SetNumAgencies(WORD v) { m_NumAgencies = v; }
  // Number of fleets of each agency, in agency order.
  const CWordArray& GetFleetsPerAgency() const { return m_FleetsPerAgency; }
  void SetFleetsPerAgency(const CWordArray& v) { m_FleetsPerAgency.Copy(v); }
  // Fleets of agency i (0-based); an i outside the list raises CInvalidArgException.
  WORD GetFleetsAt(int i) const { return m_FleetsPerAgency.GetAt(i); }
  // Sets the fleets of agency i, growing the list as needed; a negative i raises
  // CInvalidArgException.
  void SetFleetsAt(int i, WORD fleets) { m_FleetsPerAgency.SetAtGrow(i, fleets); }
  // Number of agencies that have a fleet entry.
  int GetNumFleetEntries() const { return m_FleetsPerAgency.GetSize(); }

  // Appends the "KORVEX IP AGENCY DATA:" block; nothing else is read from the personality.
  void printOptToBuffer(CStringArray& out, CPersonality* personality) const;

  // The fields in archive order; Since{n} marks the schema that added a field.
  template <class V>
  PERSONA_ALWAYS_INLINE void Fields(V& v) {
    v("NumAgencies", m_NumAgencies, Label{"Number Of Agencies"});
    v("FleetsPerAgency", m_FleetsPerAgency);
  }

 private:
  WORD m_NumAgencies = 0;
  CWordArray m_FleetsPerAgency;
};

}  // namespace persona
