// persona set refresh FILE --dir DIR -o OUT: refreshes the personality's global sets from their
// files, printing what the library tells the user.
#include "command.h"
#include "core/global_sets.h"
#include "framework/prompt.h"

namespace persona::cli {

void RegisterSetRefresh(Context& context) {
  struct Args {
    std::string file;
    std::string dir;
    std::string output;
  };
  auto args = std::make_shared<Args>();
  CLI::App* set = context.Group("set", "Global set files: sets kept in files of their own");
  CLI::App* cmd = set->add_subcommand(
      "refresh",
      "Replace every set marked global (scope 1) with the content of its file in DIR (NAME.EXT "
      "by kind; letter case of the file name does not matter). A set whose file is missing, "
      "damaged, of another kind or outside the band limits keeps its local content and becomes "
      "local; each such case is reported.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("--dir", args->dir, "Folder of the global set files")->required();
  cmd->add_option("-o,--output", args->output, "Personality file to write")->required();
  cmd->callback([args] {
    LoadedPersonality loaded = LoadInput(args->file);
    std::string text;
    PromptHandler old = SetPromptHandler([&text](const CString& message, UINT type) {
      text += message.str() + "\n";
      return type == MB_YESNO ? IDNO : IDOK;
    });
    CPersonality* p = loaded.personality.get();
    ReadPersonalityGlobalSets(p, CString(args->dir));
    SetPromptHandler(old);
    SaveOutput(args->output, *loaded.personality);
    WriteText("-", text);
  });
}

}  // namespace persona::cli
