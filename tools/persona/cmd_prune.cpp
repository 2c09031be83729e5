// persona prune FILE... [--radio-type N] (-o OUT | --in-place | --dry-run): strips the systems
// the radio type cannot use and the sets nothing names, listing what goes, file by file.
#include <unordered_set>

#include <persona/report/personality_ops.h>
#include <persona/systems/system.h>
#include "command.h"
#include "file_batch.h"
#include "input_file.h"

namespace persona::cli {

namespace {

// Every system and set of a personality with what to call it when it is removed.
struct Inventory {
  std::vector<std::pair<const CObject*, std::string>> records;
  std::vector<std::string> optionClasses;
};

Inventory Take(const CPersonality& p) {
  Inventory inv;
  // A list may hold records of other classes (a system list entry that is no system, say):
  // they are named by their class alone.
  for (int i = 0; i < p.GetNumSystems(); ++i) {
    const CObject* record = p.GetSystemRecordAt(i);
    if (record == nullptr) continue;
    const CSystem* s = p.GetSystemAt(i);
    inv.records.emplace_back(
        record, s != nullptr ? SystemWords(s->GetSysType()) + " " + s->GetName().str()
                             : std::string("system list record ") + record->GetClassName());
  }
  for (int t = 0; t < kNumSetTypes; ++t) {
    const auto type = static_cast<SetType>(t);
    for (int i = 0; i < p.GetNumSets(type); ++i) {
      const CObject* record = p.GetSetRecordAt(i, type);
      if (record == nullptr) continue;
      const CSet* set = p.GetSetAt(i, type);
      inv.records.emplace_back(record, set != nullptr ? SetWords(type) + " " + set->GetName().str()
                                                      : SetWords(type) + " list record " +
                                                            std::string(record->GetClassName()));
    }
  }
  for (int i = 0; i < p.GetNumOptions(); ++i) {
    if (const CObject* option = p.GetOptionAt(i))
      inv.optionClasses.push_back(option->GetClassName());
  }
  return inv;
}

std::string Removed(const Inventory& before, const Inventory& after) {
  std::unordered_set<const CObject*> kept;
  for (const auto& r : after.records) kept.insert(r.first);
  std::string text;
  std::size_t n = 0;
  for (const auto& r : before.records) {
    if (kept.count(r.first)) continue;
    text += "removed " + r.second + "\n";
    ++n;
  }
  std::unordered_multiset<std::string> options(after.optionClasses.begin(),
                                               after.optionClasses.end());
  for (const std::string& cls : before.optionClasses) {
    const auto it = options.find(cls);
    if (it != options.end()) {
      options.erase(it);
      continue;
    }
    text += "removed option " + cls + "\n";
    ++n;
  }
  return text + std::to_string(n) + " record(s) removed\n";
}

}  // namespace

void RegisterPrune(Context& context) {
  struct Args {
    std::vector<std::string> files;
    std::string output;
    int radioType = -1;
    bool inPlace = false;
    bool dryRun = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "prune",
      "Remove what the personality's radio model cannot use (whole kinds of systems, by the "
      "last radio type or --radio-type) and every set that no system names, carrying each "
      "removal into the records that named it, in one or more files. Lists what is removed; "
      "with --dry-run nothing is written.");
  cmd->add_option("FILE", args->files, "Personality files")->required();
  cmd->add_option("--radio-type", args->radioType,
                  "Radio type code to prune for (also becomes the last radio)")
      ->check(CLI::Range(0, 65535));
  auto* dry = cmd->add_flag("--dry-run", args->dryRun, "List what would be removed; write nothing");
  auto* out = cmd->add_option("-o,--output", args->output, "Personality file to write (one input)");
  auto* inPlace = cmd->add_flag("--in-place", args->inPlace, "Rewrite each input (FILE.bak kept)");
  out->excludes(inPlace);
  dry->excludes(inPlace);
  cmd->callback([args, &context] {
    const FileBatch batch(args->files);
    batch.CheckOutputChoice(args->output, args->inPlace, args->dryRun);
    context.exitCode = batch.Run([&](const std::string& file) {
      LoadedPersonality loaded = LoadInput(file);
      CPersonality& p = *loaded.personality;
      if (args->radioType >= 0) p.SetLastRadio(static_cast<unsigned short>(args->radioType));
      const Inventory before = Take(p);
      p.RemoveUnusedSystemsAndSets();
      std::string text = Removed(before, Take(p));
      if (args->dryRun) {
        text += "dry run: nothing written\n";
      } else {
        SaveOutput(batch.OutputOf(file, args->output, args->inPlace, false), p);
      }
      WriteText("-", batch.Lines(file, text));
      return kExitOk;
    });
  });
}

}  // namespace persona::cli
