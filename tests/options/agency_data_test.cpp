// Agency data: the fleet list accessors, a schema-1 load without agency names, the report.
#include <gtest/gtest.h>

#include <persona/framework/exceptions.h>
#include <persona/options/agency_data.h>
#include "support/bytes.h"

namespace persona {
namespace {

TEST(AgencyData, FleetsGrowPerAgency) {
  CExtAddAgencyData data;
  data.SetFleetsAt(2, 9);
  EXPECT_EQ(data.GetNumFleetEntries(), 3);
  EXPECT_EQ(data.GetFleetsAt(0), 0);
  EXPECT_EQ(data.GetFleetsAt(2), 9);
  EXPECT_THROW(data.GetFleetsAt(3), CInvalidArgException);
  EXPECT_THROW(data.SetFleetsAt(-1, 1), CInvalidArgException);
}

TEST(AgencyData, SchemaOneHasNoNamesAndPrintsWithout) {
  const auto bytes =
      test::Bytes("CAgencyData", 1).Put<WORD>(2).Put<WORD>(2).Put<WORD>(16).Put<WORD>(4).bytes();
  auto data = test::LoadWhole<CAgencyData>(bytes);
  EXPECT_EQ(data->GetNumAgencies(), 2);
  EXPECT_EQ(data->GetFleetsAt(1), 4);
  EXPECT_EQ(data->GetAgencyNames().GetSize(), 0);

  CStringArray names;
  names.Add("POLICE");
  data->SetAgencyNames(names);
  CStringArray out;
  data->printOptToBuffer(out, nullptr);
  ASSERT_EQ(out.GetSize(), 6);
  EXPECT_EQ(out[0], "AGENCY DATA:");
  EXPECT_EQ(out[2].str(), "   Number Of Agencies         - 2");
  EXPECT_EQ(out[3].str(), "   Agency 1                   - Fleets 16  POLICE");
  EXPECT_EQ(out[4].str(), "   Agency 2                   - Fleets 4");
}

}  // namespace
}  // namespace persona
