// persona rename FILE --system|--set KIND OLD NEW -o OUT: renames a system or a set and every
// name field that refers to it.
#include <persona/integrity/references.h>
#include <persona/report/personality_ops.h>
#include <persona/systems/system.h>
#include "command.h"
#include "input_file.h"

namespace persona::cli {

namespace {

struct RenameArgs {
  std::string file;
  std::string output;
  bool system = false;
  std::string setKind;
  std::string oldName;
  std::string newName;
};

std::vector<std::string> SystemNameList(const CPersonality& p) {
  std::vector<std::string> names;
  for (int i = 0; i < p.GetNumSystems(); ++i) names.push_back(p.GetSystemAt(i)->GetName().str());
  return names;
}

// The cause of a refused rename, checked before renaming: OLD missing, NEW empty or taken.
void CheckRename(CPersonality& p, const RenameArgs& args, SetType type) {
  if (args.newName.empty()) throw UsageError("the new name is empty");
  if (args.system) {
    if (p.GetSystem(CString(args.oldName)) == nullptr) {
      throw NotHeldError(args.file + " holds no system named " + args.oldName +
                         NearestNames(args.oldName, SystemNameList(p)));
    }
    if (p.GetSystem(CString(args.newName)) != nullptr) {
      throw NotHeldError(args.file + ": the name " + args.newName + " is taken by another system");
    }
    return;
  }
  const CSet* set = NamedSet(p, type, args.oldName, args.file);
  const CSet* other = p.GetSet(CString(args.newName), type);
  if (other != nullptr && other != set) {
    throw NotHeldError(args.file + ": the name " + args.newName + " is taken by " + SetWords(type) +
                       " " + other->GetName().str());
  }
}

void RunRename(const RenameArgs& args) {
  if (!args.system && args.setKind.empty()) throw UsageError("rename needs --system or --set KIND");
  const SetType type = args.system ? TrunkSetType : KindArg(args.setKind);
  LoadedPersonality loaded = LoadInput(args.file);
  CPersonality& p = *loaded.personality;
  CheckRename(p, args, type);
  const std::string what = args.system ? std::string("system") : SetWords(type);
  const int changed = args.system
                          ? RenameSystem(p, CString(args.oldName), CString(args.newName))
                          : RenameSet(p, type, CString(args.oldName), CString(args.newName));
  if (changed < 0) {
    throw NotHeldError(args.file + ": cannot rename " + what + " " + args.oldName + " to " +
                       args.newName);
  }
  SaveOutput(args.output, p);
  WriteText("-", "renamed " + what + " " + args.oldName + " to " + args.newName + ", " +
                     std::to_string(changed) + " reference(s) updated\n");
}

}  // namespace

void RegisterRename(Context& context) {
  auto args = std::make_shared<RenameArgs>();
  CLI::App* cmd = context.App().add_subcommand(
      "rename",
      "Rename a system (--system, exact name) or a set (--set KIND, name found ignoring case) "
      "and carry the new name into every record that names it: systems, sets and option "
      "records. Fails, writing nothing, when OLD does not exist or NEW is taken (exit 4).");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  auto* system = cmd->add_flag("--system", args->system, "Rename a system");
  auto* set = cmd->add_option("--set", args->setKind, "Rename a set of this kind");
  system->excludes(set);
  cmd->add_option("OLD", args->oldName, "Current name")->required();
  cmd->add_option("NEW", args->newName, "New name")->required();
  cmd->add_option("-o,--output", args->output, "Personality file to write")->required();
  cmd->callback([args] { RunRename(*args); });
}

}  // namespace persona::cli
