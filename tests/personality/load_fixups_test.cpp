// Repairs made while a personality loads: an empty place (a null record) that a stored list
// holds is dropped, and the records around it keep their order.
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include <persona/personality/personality.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/trunk_system.h>
#include "support/bytes.h"
#include "support/test_data.h"

namespace persona {
namespace {

TEST(LoadFixups, EmptyPlacesOfAStoredListAreDropped) {
  CPersonality p;
  for (const char* name : {"A", "C"}) {
    auto* conv = new CConvSystem;
    conv->SetName(name);
    p.AddSystem(conv);
  }
  auto* trunk = new CTrunkSystem;  // the only record of its class: stored alone as it is here
  trunk->SetName("B");
  ASSERT_TRUE(p.InsertSystemAt(1, trunk));
  std::vector<BYTE> bytes = test::StoreObject(&p);
  const std::vector<BYTE> alone = test::StoreObject(trunk);
  const auto at = std::search(bytes.begin(), bytes.end(), alone.begin(), alone.end());
  ASSERT_NE(at, bytes.end());
  const auto next = bytes.erase(at, at + static_cast<std::ptrdiff_t>(alone.size()));
  bytes.insert(next, {0x00, 0x00});  // the null record's tag

  auto loaded = test::LoadAs<CPersonality>(bytes, "empty_place.pers");
  ASSERT_EQ(loaded->GetNumSystems(), 2);
  EXPECT_EQ(loaded->GetSystemAt(0)->GetName(), "A");
  EXPECT_EQ(loaded->GetSystemAt(1)->GetName(), "C");
}

}  // namespace
}  // namespace persona
