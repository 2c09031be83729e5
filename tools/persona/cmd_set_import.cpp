// persona set import FILE SETFILE [--replace] (-o OUT | --in-place): adds the set of a global
// set file to a personality.
#include "command.h"
#include "input_file.h"

namespace persona::cli {

namespace {

struct SetImportArgs {
  std::string file;
  std::string setFile;
  bool replace = false;
  std::string output;
  bool inPlace = false;
};

void RunSetImport(const SetImportArgs& args) {
  if (SetKindOfPath(args.setFile) == nullptr) {
    throw UsageError(args.setFile +
                     " is not a global set file (.TRS, .CVS, .GRS, .PHS, .ICS, .SPS, .GGS, .GSS, "
                     ".PCV, .PGR or .EGR)");
  }
  const std::string out = OutputPath(args.file, args.output, args.inPlace);
  LoadedPersonality loaded = LoadInput(args.file);
  const GlobalSetKind& kind = *SetKindOfPath(args.setFile);
  std::unique_ptr<CSet> set = ReadGlobalSetFile(args.setFile, kind);
  CPersonality& p = *loaded.personality;
  const auto type = static_cast<SetType>(kind.type);
  const CString name = set->GetName();
  const std::string what = SetWords(type) + " " + name.str();
  const bool held = p.FindSetIndex(name, type) >= 0;
  if (held && !args.replace) {
    throw NotHeldError(args.file + " holds a " + what + " already (--replace puts the file's in " +
                       "its place)");
  }
  std::string text;
  if (kind.checkFrequencies && SetFitsBand(*set, p.GetTxMinFreq(), p.GetTxMaxFreq(),
                                           p.GetRxMinFreq(), p.GetRxMaxFreq()) == 0) {
    text += "warning: " + what + " has channels outside the band limits of " + args.file +
            " (`persona check` lists them)\n";
  }
  const int elements = set->GetCount();
  const bool global = set->GetScope() == 1;
  if (held) {
    p.ReplaceSet(name, type, set.release());
  } else {
    p.AddSet(set.release(), type);
  }
  SaveOutput(out, p);
  text += (held ? "replaced " : "imported ") + what + " from " + args.setFile + " (" +
          std::to_string(elements) + " elements, " + (global ? "global" : "local") + ")\n";
  WriteText("-", text);
}

}  // namespace

void RegisterSetImport(Context& context) {
  auto args = std::make_shared<SetImportArgs>();
  CLI::App* set = context.Group("set", "Global set files: sets kept in files of their own");
  CLI::App* cmd = set->add_subcommand(
      "import",
      "Add the set of a global set file to a personality, with the scope the file gives it "
      "(files written by `set export` are global). A set of that name and kind already held is "
      "replaced in its place with --replace; without it the import fails (exit 4).");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("SETFILE", args->setFile, "Global set file")->required();
  cmd->add_flag("--replace", args->replace, "Replace a set of the same name and kind");
  cmd->add_option("-o,--output", args->output, "Personality file to write");
  cmd->add_flag("--in-place", args->inPlace, "Write the personality over FILE");
  cmd->callback([args] { RunSetImport(*args); });
}

}  // namespace persona::cli
