// persona export FILE [-o OUT.json]: the lossless JSON document of a personality file.
#include "command.h"
#include "io/json/json_writer.h"
#include "text_output.h"

namespace persona::cli {

void RegisterExport(Context& context) {
  struct Args {
    std::string file;
    std::string output;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "export",
      "Write the JSON document of a personality file: every field of every record by its "
      "accessor name. `import` turns it back into the same bytes.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("-o,--output", args->output, "JSON file to write (default: stdout)");
  cmd->callback([args] {
    LoadedPersonality loaded = LoadInput(args->file);
    TextOutput out(args->output);
    WritePersonalityJson(*loaded.personality, [&out](std::string_view text) { out.Write(text); });
    out.Write('\n');
    out.Commit();
  });
}

}  // namespace persona::cli
