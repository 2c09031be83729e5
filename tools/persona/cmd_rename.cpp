// persona rename FILE --system|--set KIND OLD NEW -o OUT: renames a system or a set and every
// name field that refers to it.
#include "command.h"
#include "integrity/references.h"
#include "report/personality_ops.h"

namespace persona::cli {

void RegisterRename(Context& context) {
  struct Args {
    std::string file;
    std::string output;
    bool system = false;
    std::string setKind;
    std::string oldName;
    std::string newName;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "rename",
      "Rename a system (--system, exact name) or a set (--set KIND, name found ignoring case) "
      "and carry the new name into every record that names it: systems, sets and option "
      "records. Fails, writing nothing, when OLD does not exist or NEW is taken.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  auto* system = cmd->add_flag("--system", args->system, "Rename a system");
  auto* set = cmd->add_option("--set", args->setKind, "Rename a set of this kind");
  system->excludes(set);
  cmd->add_option("OLD", args->oldName, "Current name")->required();
  cmd->add_option("NEW", args->newName, "New name")->required();
  cmd->add_option("-o,--output", args->output, "Personality file to write")->required();
  cmd->callback([args] {
    if (!args->system && args->setKind.empty())
      throw UsageError("rename needs --system or --set KIND");
    LoadedPersonality loaded = LoadInput(args->file);
    CPersonality& p = *loaded.personality;
    int changed = 0;
    std::string what;
    if (args->system) {
      what = "system";
      changed = RenameSystem(p, CString(args->oldName), CString(args->newName));
    } else {
      SetType type;
      if (!ParseSetKind(args->setKind, &type)) {
        throw UsageError("unknown set kind: " + args->setKind);
      }
      what = std::string(SetKindKey(type)) + " set";
      changed = RenameSet(p, type, CString(args->oldName), CString(args->newName));
    }
    if (changed < 0) {
      throw UsageError(args->file + ": cannot rename " + what + " " + args->oldName + " to " +
                       args->newName + " (no such " + what +
                       ", or the new name is empty or taken)");
    }
    SaveOutput(args->output, p);
    WriteText("-", "renamed " + what + " " + args->oldName + " to " + args->newName + ", " +
                       std::to_string(changed) + " reference(s) updated\n");
  });
}

}  // namespace persona::cli
