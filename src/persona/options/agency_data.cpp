// Agency data: model defaults and report blocks.
#include <persona/options/agency_data.h>

#include <string>

namespace persona {

namespace {

// The block of both records: the agency count, then one line per agency with its fleets and,
// when names are given and there is one, its name.
void PrintAgencyBlock(CStringArray& out, const char* heading, WORD numAgencies,
                      const CWordArray& fleets, const CStringArray* names) {
  OptionBlock block(out, heading);
  block.Value("Number Of Agencies", std::to_string(numAgencies));
  for (int i = 0; i < fleets.GetSize(); ++i) {
    std::string value = "Fleets " + std::to_string(fleets[i]);
    if (names != nullptr && i < names->GetSize()) value += "  " + (*names)[i].str();
    block.Value("Agency " + std::to_string(i + 1), value);
  }
  block.End();
}

}  // namespace

IMPLEMENT_SERIAL(CAgencyData, CSerial, VERSIONABLE_SCHEMA | 2)

CAgencyData::CAgencyData(unsigned short, int) {
  m_NumAgencies = 1;
  m_FleetsPerAgency.Add(16);
  m_AgencyNames.Add("AGENCY 1");
}

void CAgencyData::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintAgencyBlock(out, "AGENCY DATA:", m_NumAgencies, m_FleetsPerAgency, &m_AgencyNames);
}

IMPLEMENT_SERIAL(CExtAddAgencyData, CSerial, 1)

CExtAddAgencyData::CExtAddAgencyData(unsigned short, int) {
  m_NumAgencies = 1;
  m_FleetsPerAgency.Add(16);
}

void CExtAddAgencyData::printOptToBuffer(CStringArray& out, CPersonality*) const {
  PrintAgencyBlock(out, "KORVEX IP AGENCY DATA:", m_NumAgencies, m_FleetsPerAgency, nullptr);
}

}  // namespace persona
