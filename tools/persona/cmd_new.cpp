// persona new --radio-type N -o FILE: a new personality with a model's defaults.
#include <persona/personality/radio_models.h>
#include <persona/report/personality_ops.h>
#include "command.h"

namespace persona::cli {

void RegisterNew(Context& context) {
  struct Args {
    unsigned radioType = 0;
    std::string name;
    std::string output;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "new",
      "Write a new personality for one radio model: its radio type, the 800 MHz band limits "
      "and one option record of every option class with that model's defaults; no systems "
      "and no sets. N must be a radio type of the model catalogue.");
  cmd->add_option("--radio-type", args->radioType, "Radio type code of the model")->required();
  cmd->add_option("--name", args->name, "Personality name");
  cmd->add_option("-o,--output", args->output, "Personality file to write")->required();
  cmd->callback([args] {
    if (FindRadioModel(args->radioType) == nullptr) {
      std::size_t count = 0;
      const RadioModel* models = RadioModelCatalogue(&count);
      std::string known;
      for (std::size_t i = 0; i < count; ++i)
        known += (i ? " " : "") + std::to_string(models[i].radioType);
      throw UsageError("radio type " + std::to_string(args->radioType) +
                       " is not in the model catalogue; the radio types it holds: " + known);
    }
    auto personality = NewModelPersonality(static_cast<unsigned short>(args->radioType));
    personality->SetName(CString(args->name));
    SaveOutput(args->output, *personality);
  });
}

}  // namespace persona::cli
