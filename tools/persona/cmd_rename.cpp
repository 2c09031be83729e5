// persona rename FILE... --system|--set KIND OLD NEW (-o OUT | --in-place | --dry-run): renames
// a system or a set and every name field that refers to it, in each file.
#include <persona/integrity/references.h>
#include <persona/report/personality_ops.h>
#include <persona/systems/system.h>
#include "command.h"
#include "file_batch.h"
#include "input_file.h"

namespace persona::cli {

namespace {

struct RenameArgs {
  std::vector<std::string> args;  // FILE... OLD NEW
  std::string file;
  std::string output;
  bool inPlace = false;
  bool dryRun = false;
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

// Renames in one file; args.file is the file.
int RenameFile(const FileBatch& batch, const RenameArgs& args) {
  const SetType type = args.system ? TrunkSetType : KindArg(args.setKind);
  const std::string out = batch.OutputOf(args.file, args.output, args.inPlace, args.dryRun);
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
  if (!out.empty()) SaveOutput(out, p);
  WriteText("-",
            batch.Lines(args.file, std::string(args.dryRun ? "would rename " : "renamed ") + what +
                                       " " + args.oldName + " to " + args.newName + ", " +
                                       std::to_string(changed) + " reference(s) updated\n"));
  return kExitOk;
}

}  // namespace

void RegisterRename(Context& context) {
  auto args = std::make_shared<RenameArgs>();
  CLI::App* cmd = context.App().add_subcommand(
      "rename",
      "Rename a system (--system, exact name) or a set (--set KIND, name found ignoring case) "
      "in one or more personality files (FILE... OLD NEW) and carry the new name into every "
      "record that names it: systems, sets and option records. A file where OLD does not exist "
      "or NEW is taken is left unwritten (exit 4); the others are renamed.");
  cmd->add_option("ARGS", args->args, "Personality files, then OLD and NEW")->required();
  auto* system = cmd->add_flag("--system", args->system, "Rename a system");
  auto* set = cmd->add_option("--set", args->setKind, "Rename a set of this kind");
  system->excludes(set);
  auto* out = cmd->add_option("-o,--output", args->output, "Personality file to write (one input)");
  auto* inPlace = cmd->add_flag("--in-place", args->inPlace, "Rewrite each input (FILE.bak kept)");
  auto* dry = cmd->add_flag("--dry-run", args->dryRun, "Say what would be renamed; write nothing");
  out->excludes(inPlace);
  dry->excludes(out)->excludes(inPlace);
  cmd->callback([args, &context] {
    if (args->args.size() < 3) throw UsageError("rename needs FILE... OLD NEW");
    if (!args->system && args->setKind.empty()) {
      throw UsageError("rename needs --system or --set KIND");
    }
    if (!args->system) KindArg(args->setKind);
    args->newName = args->args.back();
    args->oldName = args->args[args->args.size() - 2];
    if (args->newName.empty()) throw UsageError("the new name is empty");
    const FileBatch batch({args->args.begin(), args->args.end() - 2});
    batch.CheckOutputChoice(args->output, args->inPlace, args->dryRun);
    context.exitCode = batch.Run([&](const std::string& file) {
      RenameArgs one = *args;
      one.file = file;
      return RenameFile(batch, one);
    });
  });
}

}  // namespace persona::cli
