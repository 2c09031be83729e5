// The radio model catalogue: ordered, names within 24 characters, and every code that the
// records' model defaults and the pruning rules test is in it with a matching class.
#include <gtest/gtest.h>

#include <cstring>

#include <persona/personality/radio_models.h>

namespace persona {
namespace {

TEST(RadioModels, CatalogueIsOrderedAndComplete) {
  std::size_t count = 0;
  const RadioModel* rows = RadioModelCatalogue(&count);
  ASSERT_GT(count, 0u);
  for (std::size_t i = 0; i < count; ++i) {
    EXPECT_LE(std::strlen(rows[i].displayName), 24u) << rows[i].displayName;
    if (i > 0) {
      EXPECT_LT(rows[i - 1].radioType, rows[i].radioType);
    }
    EXPECT_EQ(FindRadioModel(rows[i].radioType), &rows[i]);
  }
  for (DWORD code : {29u, 30u, 33u, 54u, 59u,  65u,  66u,  67u,  68u,  69u,  70u,  72u, 73u,
                     74u, 75u, 77u, 80u, 81u,  82u,  84u,  85u,  86u,  88u,  89u,  90u, 92u,
                     94u, 95u, 96u, 97u, 101u, 102u, 103u, 104u, 105u, 106u, 4150u}) {
    EXPECT_NE(FindRadioModel(code), nullptr) << code;
  }
  EXPECT_EQ(FindRadioModel(2), nullptr);
  EXPECT_EQ(FindRadioModel(103)->modelClass, kP25TrunkedModel);
  EXPECT_EQ(FindRadioModel(74)->modelClass, kTrunkedOnlyModel);
  EXPECT_EQ(FindRadioModel(65)->modelClass, kMessagingModel);
  EXPECT_EQ(FindRadioModel(88)->modelClass, kP25ConvModel);
}

}  // namespace
}  // namespace persona
