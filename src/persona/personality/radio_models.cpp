// Rows of the radio model catalogue.
#include <persona/personality/radio_models.h>

#include <algorithm>
#include <iterator>

namespace persona {

namespace {

// Ordered by radio type code (FindRadioModel searches it by halves).
constexpr RadioModel kModels[] = {
    {"Model 1 base station", kMultiModeModel, 1, "base"},
    {"Model 27 conventional", kConventionalModel, 27, "cnv300"},
    {"Model 28 conventional", kConventionalModel, 28, "cnv300"},
    {"Model 29 conventional", kConventionalModel, 29, "cnv99"},
    {"Model 30 conventional", kConventionalModel, 30, "lumo"},
    {"Model 33 conventional", kConventionalModel, 33, "cnv99"},
    {"Model 43 mobile", kMultiModeModel, 43, "mobile"},
    {"Model 52 conventional", kConventionalModel, 52, "cnv"},
    {"Model 54 portable", kMultiModeModel, 54, "portable"},
    {"Model 58 mobile", kMultiModeModel, 58, "mobile"},
    {"Model 59 mobile", kMultiModeModel, 59, "mobile"},
    {"Model 64 portable", kMultiModeModel, 64, "portable"},
    {"Model 65 messaging", kMessagingModel, 65, "msg"},
    {"Model 66 messaging", kMessagingModel, 66, "msg"},
    {"Model 67 messaging", kMessagingModel, 67, "msg"},
    {"Model 68 mobile", kMultiModeModel, 68, "zemo"},
    {"Model 69 mobile", kMultiModeModel, 69, "zemo"},
    {"Model 70 portable", kMultiModeModel, 70, "zemo"},
    {"Model 72 trunked", kTrunkedOnlyModel, 72, "trk"},
    {"Model 73 trunked", kTrunkedOnlyModel, 73, "trk"},
    {"Model 74 trunked", kTrunkedOnlyModel, 74, "trk"},
    {"Model 75 trunked", kTrunkedOnlyModel, 75, "trk"},
    {"Model 77 mobile", kMultiModeModel, 77, "mobile"},
    {"Model 80 portable", kMultiModeModel, 80, "veltro"},
    {"Model 81 mobile", kMultiModeModel, 81, "mobile"},
    {"Model 82 mobile", kMultiModeModel, 82, "mobile"},
    {"Model 84 mobile", kMultiModeModel, 84, "mobile"},
    {"Model 85 messaging", kMessagingModel, 85, "msg"},
    {"Model 86 messaging", kMessagingModel, 86, "msg"},
    {"Model 88 P25 conv", kP25ConvModel, 88, "p25c"},
    {"Model 89 P25 conv", kP25ConvModel, 89, "p25c"},
    {"Model 90 portable", kMultiModeModel, 90, "quenby"},
    {"Model 92 P25 conv", kP25ConvModel, 92, "p25c"},
    {"Model 94 portable", kMultiModeModel, 94, "quenby"},
    {"Model 95 portable", kMultiModeModel, 95, "quenby"},
    {"Model 96 mobile", kMultiModeModel, 96, "veltro"},
    {"Model 97 mobile", kMultiModeModel, 97, "veltro"},
    {"Model 101 P25 trunked", kP25TrunkedModel, 101, "p25t"},
    {"Model 102 P25 trunked", kP25TrunkedModel, 102, "p25t"},
    {"Model 103 P25 trunked", kP25TrunkedModel, 103, "p25t"},
    {"Model 104 P25 trunked", kP25TrunkedModel, 104, "p25t"},
    {"Model 105 P25 trunked", kP25TrunkedModel, 105, "p25t"},
    {"Model 106 P25 trunked", kP25TrunkedModel, 106, "p25t"},
    {"Model 4150 portable", kMultiModeModel, 4150, "portable"},
};

}  // namespace

const RadioModel* FindRadioModel(DWORD radioType) {
  const auto it =
      std::lower_bound(std::begin(kModels), std::end(kModels), radioType,
                       [](const RadioModel& row, DWORD code) { return row.radioType < code; });
  return (it != std::end(kModels) && it->radioType == radioType) ? &*it : nullptr;
}

const RadioModel* RadioModelCatalogue(std::size_t* count) {
  *count = std::size(kModels);
  return kModels;
}

}  // namespace persona
