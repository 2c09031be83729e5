// persona models [--json]: the radio model catalogue (radio type, name, the kinds of system the
// model takes); also registers `persona --version`.
#include <persona/integrity/set_use.h>
#include <persona/personality/radio_models.h>
#include <persona/report/record_lines.h>
#include "command.h"

namespace persona::cli {

void RegisterModels(Context& context) {
  context.App().set_version_flag("--version", std::string("persona ") + PERSONA_VERSION);
  auto json = std::make_shared<bool>(false);
  CLI::App* cmd = context.App().add_subcommand(
      "models", "List the radio models: radio type code, name and the kinds of system it takes.");
  cmd->add_flag("--json", *json, "Print a JSON array");
  cmd->callback([json] {
    std::size_t count = 0;
    const RadioModel* models = RadioModelCatalogue(&count);
    Json all = Json::array();
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
      const RadioModel& m = models[i];
      std::vector<std::string> kinds;
      for (int kind = 0; kind < kNumSystemTypes; ++kind) {
        if (RadioTypeSupportsSystemKind(static_cast<WORD>(m.radioType), kind)) {
          kinds.push_back(SystemKindLabel(static_cast<unsigned>(kind)));
        }
      }
      std::string line = std::to_string(m.radioType) + "  " + m.displayName + "  ";
      for (const std::string& k : kinds) line += (&k == &kinds.front() ? "" : ", ") + k;
      text += line + "\n";
      all.push_back({{"radioType", m.radioType}, {"name", m.displayName}, {"systems", kinds}});
    }
    WriteText("-", *json ? all.dump(2) + "\n" : text);
  });
}

}  // namespace persona::cli
