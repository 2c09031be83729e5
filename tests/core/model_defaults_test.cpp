// The defaults that every record class's model constructor gives, for every radio type of the
// catalogue (and one code outside it) and both values of the reduced-defaults flag, against
// tests/data/model_defaults.txt. Each line of that file names a class, the fields that differ
// from its plain default constructor, and the models that give exactly those values; a wrong
// code in a constructor's radio-type list moves a model to another line. Run the test binary
// with PERSONA_UPDATE_GOLDEN=1 to write the file again after a reviewed change.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/options/agency_data.h>
#include <persona/options/alarm_opts.h>
#include <persona/options/alert_opts.h>
#include <persona/options/coyle300_opts.h>
#include <persona/options/custom_opts.h>
#include <persona/options/data_opts.h>
#include <persona/options/diagnostic_opts.h>
#include <persona/options/display_opts.h>
#include <persona/options/dual_ctrl_opts.h>
#include <persona/options/gen_radio_opts.h>
#include <persona/options/ignition_opts.h>
#include <persona/options/keypad_ctrl_opts.h>
#include <persona/options/kw_opts.h>
#include <persona/options/lumo_opts.h>
#include <persona/options/macro.h>
#include <persona/options/mms_opts.h>
#include <persona/options/mosaic_opts.h>
#include <persona/options/network_opts.h>
#include <persona/options/p25_otar_opts.h>
#include <persona/options/p25_wan_opts.h>
#include <persona/options/pellam_opts.h>
#include <persona/options/power_up_opts.h>
#include <persona/options/prgrm_calls.h>
#include <persona/options/r917_opts.h>
#include <persona/options/scan_opts.h>
#include <persona/options/scratch_pad_opts.h>
#include <persona/options/siren_lights.h>
#include <persona/options/sonvra_opts.h>
#include <persona/options/speaker_opts.h>
#include <persona/options/status_message.h>
#include <persona/options/status_opts.h>
#include <persona/options/supervisory_opts.h>
#include <persona/options/system_scan_opts.h>
#include <persona/options/timer_opts.h>
#include <persona/options/tone_encode.h>
#include <persona/options/vantor_opts.h>
#include <persona/options/zemo_opts.h>
#include <persona/personality/radio_models.h>
#include <persona/systems/conv_system.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/ext_add_system.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_conv_system.h>
#include <persona/systems/p25_group_set.h>
#include <persona/systems/p25_trk_system.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/plm_system.h>
#include <persona/systems/trunk_set.h>
#include <persona/systems/trunk_system.h>
#include "support/record_testing.h"
#include "support/test_data.h"

namespace persona {
namespace {

// The dumped fields of rec on one line, sub-records and all.
std::vector<std::string> FieldLines(CObject& rec) {
  std::vector<std::string> lines;
  std::istringstream in(test::DumpFields(rec));
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Appends the lines of class T: models grouped by the fields that differ from T(), where
// make(model, reduced) builds the record of a model.
template <class T, class Make>
void DescribeWith(const std::vector<unsigned short>& models, std::string& out, Make make) {
  T plain;
  const std::vector<std::string> neutral = FieldLines(plain);
  std::map<std::string, std::string> byDifference;  // differing fields -> models
  for (unsigned short model : models) {
    for (int reduced : {0, 1}) {
      const std::unique_ptr<T> rec = make(model, reduced);
      const std::vector<std::string> got = FieldLines(*rec);
      std::string diff;
      for (std::size_t i = 0; i < got.size(); ++i) {
        if (i >= neutral.size() || got[i] != neutral[i]) diff += " " + got[i] + ";";
      }
      if (got.size() < neutral.size()) diff += " (fewer lines);";
      byDifference[diff] += " " + std::to_string(model) + "/" + std::to_string(reduced);
    }
  }
  for (const auto& [diff, which] : byDifference) {
    out += std::string(plain.GetClassName()) + ":" + (diff.empty() ? " (as T())" : diff) +
           "\n   models:" + which + "\n";
  }
}

template <class T>
void Describe(const std::vector<unsigned short>& models, std::string& out) {
  DescribeWith<T>(models, out, [](unsigned short m, int r) { return std::make_unique<T>(m, r); });
}

std::vector<unsigned short> Models() {
  std::size_t count = 0;
  const RadioModel* catalogue = RadioModelCatalogue(&count);
  std::vector<unsigned short> models = {0};  // a code outside the catalogue
  for (std::size_t i = 0; i < count; ++i) {
    models.push_back(static_cast<unsigned short>(catalogue[i].radioType));
  }
  return models;
}

template <class... T>
std::string DescribeAll() {
  const std::vector<unsigned short> models = Models();
  std::string out;
  (Describe<T>(models, out), ...);
  // The classes whose model constructors take a third argument.
  for (SetType type : {GroupSetType, PlmGroupSetType}) {
    DescribeWith<CGroup>(models, out, [type](unsigned short m, int r) {
      return std::make_unique<CGroup>(m, r, type);
    });
    DescribeWith<CGroupSet>(models, out, [type](unsigned short m, int r) {
      return std::make_unique<CGroupSet>(m, r, type);
    });
  }
  for (double band : {851.0125, 935.0125}) {
    DescribeWith<CTrunkSet>(models, out, [band](unsigned short m, int r) {
      return std::make_unique<CTrunkSet>(m, r, band);
    });
  }
  return out;
}

TEST(ModelDefaults, EveryClassAndRadioTypeMatchesTheReviewedTable) {
  const std::string got = DescribeAll<
      CAgencyData, CExtAddAgencyData, CAlarmOpts, CAlertOpts, CCoyle300Opts, CSilCustomOpts,
      COstrelCustomOpts, CKorvex2CustomOpts, CDataOpts, CDiagnosticOpts, CDisplayOpts,
      CDualCtrlOpts, CGenRadioOpts, CIgnitionOpts, CKeypadCtrlOpts, CKeypadCtrlOpts_E1,
      CKeypadCtrlOpts_E2, CKwOpts, CLumoOpts, CFennOpts, CMacro, CMmsMsg, CMmsOpts, CMosaicOpts,
      CNetworkOpts, CMultipleRadioSonvraOpts, CP25OtarOpts, CP25TrkWan, CP25tWanOpts, CPellamOpts,
      CPowerUpOpts, CPrgrmICall, CPrgrmPhoneCall, CR917Opts, CScanOpts, CConvScanOpts,
      CLumoConvScanOpts, CScratchPadOpts, CSirenLights, CSirenLightsOpts, CSonvraOpts, CExtSpkrOpts,
      CPubAddOpts, CStatusMessage, CStatus, CMessage, CSupervisoryOpts, CSystemScanOpts, CTimerOpts,
      CToneSeq, CToneEncode, CVantorOpts, CZemoOpts, CICall, CICallSet, CPhoneCall, CPhoneSet,
      CPlmSpCall, CPlmSpCallSet, CSpCall, CSpCallSet, CConvChannel, CConvSet, CP25ConvChannel,
      CP25ConvSet, CConvSystem, CP25ConvSystem, CP25TrkSystem, CPlmSystem, CTrunkSystem,
      CExtAddSystem, CExtAddGroup, CExtAddGroupSet, CP25Group, CP25GroupSet, CPlmGroup,
      CPlmGroupSet, CTrunkChannel>();
  const std::string path = std::string(PERSONA_TEST_DATA_DIR) + "/model_defaults.txt";
  if (std::getenv("PERSONA_UPDATE_GOLDEN") != nullptr) {
    std::ofstream(path, std::ios::binary) << got;
  }
  const std::vector<BYTE> want = test::ReadTestFile("model_defaults.txt");
  EXPECT_EQ(std::string(want.begin(), want.end()), got);
}

}  // namespace
}  // namespace persona
