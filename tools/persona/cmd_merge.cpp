// persona merge A B -o C: A's records, then copies of B's, with the name clashes listed.
#include "command.h"
#include "report/personality_ops.h"

namespace persona::cli {

void RegisterMerge(Context& context) {
  struct Args {
    std::string a;
    std::string b;
    std::string output;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "merge",
      "Write C: A's header and records, then copies of B's systems, sets and option records "
      "(B's radio types added). Nothing is renamed or dropped; every name that C then holds "
      "twice is listed as \"clash: system NAME\", \"clash: set KIND NAME\" or \"clash: option "
      "CLASS\".");
  cmd->add_option("A", args->a, "Personality file")->required();
  cmd->add_option("B", args->b, "Personality file whose records are appended")->required();
  cmd->add_option("-o,--output", args->output, "Personality file to write")->required();
  cmd->callback([args] {
    LoadedPersonality a = LoadInput(args->a);
    LoadedPersonality b = LoadInput(args->b);
    MergeResult result = MergePersonalities(*a.personality, *b.personality);
    SaveOutput(args->output, *result.merged);
    std::string text;
    for (const MergeClash& clash : result.clashes) {
      text += "clash: " + clash.what + " " + clash.name + "\n";
    }
    text += std::to_string(result.clashes.size()) + " name clash(es)\n";
    WriteText("-", text);
  });
}

}  // namespace persona::cli
