// persona set export FILE --kind KIND --name NAME --dir DIR: one set as a global set file.
#include <filesystem>

#include "command.h"
#include "core/global_sets.h"
#include "report/personality_ops.h"

namespace persona::cli {

void RegisterSetExport(Context& context) {
  struct Args {
    std::string file;
    std::string kind;
    std::string name;
    std::string dir;
  };
  auto args = std::make_shared<Args>();
  CLI::App* set = context.Group("set", "Global set files: sets kept in files of their own");
  CLI::App* cmd = set->add_subcommand(
      "export",
      "Write one set of a personality as a global set file DIR/NAME.EXT (the extension by "
      "kind: .TRS, .CVS, .GRS, ...). KIND is one of trunk, conv, group, phone, icall, spcall, "
      "plmgroup, plmspcall, p25conv, p25group, eagroup, or the set type number 0 to 10; the "
      "name is found ignoring case. DIR is made when missing; a file that is there is replaced "
      "atomically.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("--kind", args->kind, "Set kind")->required();
  cmd->add_option("--name", args->name, "Set name")->required();
  cmd->add_option("--dir", args->dir, "Folder of the global set files")->required();
  cmd->callback([args] {
    SetType type;
    if (!ParseSetKind(args->kind, &type)) throw UsageError("unknown set kind: " + args->kind);
    LoadedPersonality loaded = LoadInput(args->file);
    CSet* found = loaded.personality->GetSet(CString(args->name), type);
    if (found == nullptr) {
      throw UsageError(args->file + ": no " + SetKindKey(type) + " set named " + args->name);
    }
    CString path;
    if (!GlobalSetPath(CString(args->dir), found->GetName(), type, &path)) {
      throw OutputError("the set name " + found->GetName().str() + " cannot be a file name");
    }
    std::error_code ec;
    std::filesystem::create_directories(args->dir, ec);
    if (ec) throw OutputError(args->dir + ": " + ec.message());
    if (!WriteSet(found, path, false)) throw OutputError(path.str() + ": not written");
    WriteText("-", path.str() + "\n");
  });
}

}  // namespace persona::cli
