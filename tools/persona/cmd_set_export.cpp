// persona set export FILE --kind KIND --name NAME --dir DIR [--global -o OUT | --in-place]: one
// set as a global set file; with --global the set is also marked global in the personality.
#include <filesystem>

#include "command.h"
#include "input_file.h"

namespace persona::cli {

namespace {

struct SetExportArgs {
  std::string file;
  std::string kind;
  std::string name;
  std::string dir;
  bool global = false;
  std::string output;
  bool inPlace = false;
};

// Writes set to its file in dir with scope 1, the scope that makes a refresh take it; the set's
// own scope is put back afterwards. Returns the path written.
CString WriteGlobalFile(CSet& set, SetType type, const std::string& dir) {
  CString path;
  if (!GlobalSetPath(CString(dir), set.GetName(), type, &path)) {
    throw UsageError("the set name " + set.GetName().str() + " cannot be a file name");
  }
  std::error_code ec;
  std::filesystem::create_directories(dir, ec);
  if (ec) throw OutputError(dir + ": " + ec.message());
  const BYTE scope = set.GetScope();
  set.SetScope(1);
  const bool written = WriteSet(&set, path, false);
  set.SetScope(scope);
  if (!written) throw OutputError(path.str() + ": not written");
  return path;
}

void RunSetExport(const SetExportArgs& args) {
  const SetType type = KindArg(args.kind);
  if (!args.global && (args.inPlace || !args.output.empty())) {
    throw UsageError(
        "-o and --in-place go with --global (set export alone changes no personality)");
  }
  const std::string out = args.global ? OutputPath(args.file, args.output, args.inPlace) : "";
  LoadedPersonality loaded = LoadInput(args.file);
  CSet* set = NamedSet(*loaded.personality, type, args.name, args.file);
  const CString path = WriteGlobalFile(*set, type, args.dir);
  std::string text =
      "wrote " + SetWords(type) + " " + set->GetName().str() + " to " + path.str() + "\n";
  if (args.global) {
    const bool was = set->GetScope() == 1;
    set->SetScope(1);
    SaveOutput(out, *loaded.personality);
    text += SetWords(type) + " " + set->GetName().str() +
            (was ? ": already global in " : ": marked global in ") + out + "\n";
  }
  WriteText("-", text);
}

}  // namespace

void RegisterSetExport(Context& context) {
  auto args = std::make_shared<SetExportArgs>();
  CLI::App* set = context.Group("set", "Global set files: sets kept in files of their own");
  CLI::App* cmd = set->add_subcommand(
      "export",
      "Write one set of a personality as a global set file DIR/NAME.EXT (the extension by "
      "kind: .TRS, .CVS, .GRS, ...), marked global (scope 1) in the file. KIND is one of trunk, "
      "conv, group, phone, icall, spcall, plmgroup, plmspcall, p25conv, p25group, eagroup, or "
      "the set type number 0 to 10; the name is found ignoring case. DIR is made when missing; "
      "a file that is there is replaced atomically. With --global the set is marked global in "
      "the personality too, written to OUT or in place, so that `set refresh` takes the file.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("--kind", args->kind, "Set kind")->required();
  cmd->add_option("--name", args->name, "Set name")->required();
  cmd->add_option("--dir", args->dir, "Folder of the global set files")->required();
  cmd->add_flag("--global", args->global, "Mark the set global in the personality as well");
  cmd->add_option("-o,--output", args->output, "Personality file to write (with --global)");
  cmd->add_flag("--in-place", args->inPlace, "Write the personality over FILE (with --global)");
  cmd->callback([args] { RunSetExport(*args); });
}

}  // namespace persona::cli
