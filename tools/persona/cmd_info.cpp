// persona info FILE: what a personality file holds, in counts.
#include "command.h"
#include "report/personality_ops.h"

namespace persona::cli {

void RegisterInfo(Context& context) {
  auto file = std::make_shared<std::string>();
  CLI::App* cmd = context.App().add_subcommand(
      "info",
      "Print the stored schema, version, radio types, systems by kind, sets and elements by "
      "kind, option records, file size and unread trailing bytes of a personality file.");
  cmd->add_option("FILE", *file, "Personality file")->required();
  cmd->callback([file] {
    LoadedPersonality loaded = LoadInput(*file);
    CStringArray lines;
    PrintPersonalitySummary(*loaded.personality, loaded.fileSize, loaded.trailingBytes, lines);
    WriteText("-", JoinLines(lines));
  });
}

}  // namespace persona::cli
