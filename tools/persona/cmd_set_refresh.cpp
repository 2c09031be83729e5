// persona set refresh FILE... --dir DIR (-o OUT | --in-place | --dry-run): refreshes each
// personality's global sets from their files and reports every set it changes.
#include <vector>

#include <persona/framework/prompt.h>
#include "command.h"
#include "file_batch.h"
#include "input_file.h"

namespace persona::cli {

namespace {

struct SetRefreshArgs {
  std::vector<std::string> files;
  std::string dir;
  std::string output;
  bool inPlace = false;
  bool dryRun = false;
};

// A set marked global before the refresh, at its place in its list.
struct GlobalSetBefore {
  SetType type;
  int index;
  const CSet* set;
  std::string name;
  int elements;
};

std::vector<GlobalSetBefore> GlobalSetsOf(const CPersonality& p) {
  std::vector<GlobalSetBefore> sets;
  std::size_t count = 0;
  const GlobalSetKind* kinds = GlobalSetKinds(&count);
  for (std::size_t k = 0; k < count; ++k) {
    const auto type = static_cast<SetType>(kinds[k].type);
    for (int i = 0; i < p.GetNumSets(type); ++i) {
      const CSet* set = p.GetSetAt(i, type);
      if (set->GetScope() == 1)
        sets.push_back({type, i, set, set->GetName().str(), set->GetCount()});
    }
  }
  return sets;
}

// One line per set that was marked global: refreshed (and whether the file made it local) or
// kept local with the reason the refresh gave, which messages hold in refresh order.
std::string RefreshReport(const CPersonality& p, const std::vector<GlobalSetBefore>& before,
                          const std::vector<std::string>& messages) {
  std::string text;
  std::size_t refreshed = 0, message = 0;
  for (const GlobalSetBefore& b : before) {
    const CSet* now = p.GetSetAt(b.index, b.type);
    const std::string what = SetWords(b.type) + " " + b.name;
    if (now != b.set) {
      ++refreshed;
      text += "refreshed " + what + ": " + std::to_string(b.elements) + " -> " +
              std::to_string(now->GetCount()) + " elements";
      if (now->GetScope() != 1) {
        text += "; its file gives scope " + std::to_string(now->GetScope()) +
                ", so the set is local from now on";
      }
      text += "\n";
    } else {
      text += "kept " + what + " local: " +
              (message < messages.size() ? messages[message++] : std::string("not refreshed")) +
              "\n";
    }
  }
  text += std::to_string(before.size()) + " global set(s): " + std::to_string(refreshed) +
          " refreshed, " + std::to_string(before.size() - refreshed) + " kept local\n";
  return text;
}

int RefreshFile(const FileBatch& batch, const std::string& file, const SetRefreshArgs& args) {
  const std::string out = batch.OutputOf(file, args.output, args.inPlace, args.dryRun);
  LoadedPersonality loaded = LoadInput(file);
  const std::vector<GlobalSetBefore> before = GlobalSetsOf(*loaded.personality);
  std::vector<std::string> messages;
  PromptHandler old = SetPromptHandler([&messages](const CString& message, UINT type) {
    messages.push_back(message.str());
    return type == MB_YESNO ? IDNO : IDOK;
  });
  CPersonality* p = loaded.personality.get();
  ReadPersonalityGlobalSets(p, CString(args.dir));
  SetPromptHandler(old);
  std::string text = RefreshReport(*loaded.personality, before, messages);
  if (args.dryRun) {
    text += "dry run: nothing written\n";
  } else {
    SaveOutput(out, *loaded.personality);
  }
  WriteText("-", batch.Lines(file, text));
  return kExitOk;
}

}  // namespace

void RegisterSetRefresh(Context& context) {
  auto args = std::make_shared<SetRefreshArgs>();
  CLI::App* set = context.Group("set", "Global set files: sets kept in files of their own");
  CLI::App* cmd = set->add_subcommand(
      "refresh",
      "Replace every set marked global (scope 1) with the content of its file in DIR (NAME.EXT "
      "by kind; letter case of the file name does not matter). A set whose file is missing, "
      "damaged, of another kind or outside the band limits keeps its local content and becomes "
      "local. Every global set is reported: \"refreshed KIND set NAME: N -> M elements\" (and "
      "when its file makes it local), or \"kept KIND set NAME local: REASON\".");
  cmd->add_option("FILE", args->files, "Personality files")->required();
  cmd->add_option("--dir", args->dir, "Folder of the global set files")->required();
  cmd->add_option("-o,--output", args->output, "Personality file to write (one input)");
  cmd->add_flag("--in-place", args->inPlace, "Write each personality over its FILE");
  cmd->add_flag("--dry-run", args->dryRun, "Report what a refresh changes; write nothing");
  cmd->callback([args, &context] {
    const FileBatch batch(args->files);
    batch.CheckOutputChoice(args->output, args->inPlace, args->dryRun);
    context.exitCode =
        batch.Run([&](const std::string& file) { return RefreshFile(batch, file, *args); });
  });
}

}  // namespace persona::cli
