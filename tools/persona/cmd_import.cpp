// persona import IN.json -o FILE: a personality file from its JSON document.
#include "command.h"

namespace persona::cli {

void RegisterImport(Context& context) {
  struct Args {
    std::string input;
    std::string output;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "import",
      "Build a personality file from a JSON document written by `export` (or edited by hand); "
      "the document is checked record by record and a fault names its JSON pointer.");
  cmd->add_option("IN", args->input, "JSON document")->required();
  cmd->add_option("-o,--output", args->output, "Personality file to write")->required();
  cmd->callback([args] { SaveOutput(args->output, *LoadJsonInput(args->input)); });
}

}  // namespace persona::cli
