// persona set scope FILE KIND NAME global|local (-o OUT | --in-place): marks a set as the copy
// of a global set file or as a local set.
#include "command.h"
#include "input_file.h"

namespace persona::cli {

void RegisterSetScope(Context& context) {
  struct Args {
    std::string file;
    std::string kind;
    std::string name;
    std::string scope;
    std::string output;
    bool inPlace = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* set = context.Group("set", "Global set files: sets kept in files of their own");
  CLI::App* cmd = set->add_subcommand(
      "scope",
      "Mark a set global (scope 1: `set refresh` replaces it with its file) or local (scope "
      "0). KIND as for `set export`; the name is found ignoring case.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("KIND", args->kind, "Set kind")->required();
  cmd->add_option("NAME", args->name, "Set name")->required();
  cmd->add_option("SCOPE", args->scope, "global or local")
      ->required()
      ->check(CLI::IsMember({"global", "local"}));
  cmd->add_option("-o,--output", args->output, "Personality file to write");
  cmd->add_flag("--in-place", args->inPlace, "Write the personality over FILE");
  cmd->callback([args] {
    const SetType type = KindArg(args->kind);
    const std::string out = OutputPath(args->file, args->output, args->inPlace);
    LoadedPersonality loaded = LoadInput(args->file);
    CSet* found = NamedSet(*loaded.personality, type, args->name, args->file);
    const BYTE want = args->scope == "global" ? 1 : 0;
    const BYTE was = found->GetScope();
    found->SetScope(want);
    SaveOutput(out, *loaded.personality);
    const std::string what = SetWords(type) + " " + found->GetName().str();
    WriteText("-", was == want ? what + ": already " + args->scope + "\n"
                               : what + ": scope " + std::to_string(was) + " -> " +
                                     std::to_string(want) + " (" + args->scope + ")\n");
  });
}

}  // namespace persona::cli
