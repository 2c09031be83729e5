// persona info FILE... [--json]: what a personality file or a global set file holds, in counts.
#include <persona/options/option_report.h>
#include <persona/report/personality_ops.h>
#include <persona/report/record_lines.h>
#include "command.h"
#include "file_batch.h"
#include "input_file.h"

namespace persona::cli {

namespace {

void PrintSetFileSummary(const OpenedFile& opened, CStringArray& out) {
  const CSet& set = *opened.set;
  const auto type = static_cast<SetType>(opened.setKind->type);
  OptionBlock block(out, "GLOBAL SET FILE:");
  block.Value("Kind", SetWords(type) + " (" + opened.setKind->className + ")");
  block.Value("Name", set.GetName().str());
  block.Value("Scope", set.GetScope() == 1
                           ? "1 - global"
                           : std::to_string(set.GetScope()) + " - local (a refresh drops it)");
  block.Value("Elements", std::to_string(set.GetCount()));
  block.Value("File Size", std::to_string(opened.loaded.fileSize) + " bytes");
  block.End();
}

// The JSON record of a global set file.
Json SetFileJson(const OpenedFile& opened) {
  const CSet& set = *opened.set;
  return {{"kind", SetKindKey(static_cast<SetType>(opened.setKind->type))},
          {"class", opened.setKind->className},
          {"name", set.GetName().str()},
          {"scope", set.GetScope()},
          {"elements", set.GetCount()},
          {"fileSize", opened.loaded.fileSize}};
}

// The JSON record of a personality: the counts of the text summary, by kind.
Json PersonalityJson(const OpenedFile& opened) {
  const CPersonality& p = *opened.loaded.personality;
  Json radios = Json::array(), systems = Json::object(), sets = Json::object();
  for (int i = 0; i < p.GetNumRadioTypes(); ++i) radios.push_back(p.GetRadioTypeAt(i));
  for (int t = 0; t < kNumSystemTypes; ++t) {
    const WORD n = p.GetNumSystems(static_cast<SystemType>(t));
    if (n) systems[SystemKindLabel(static_cast<unsigned>(t))] = n;
  }
  for (int t = 0; t < kNumSetTypes; ++t) {
    const auto type = static_cast<SetType>(t);
    std::size_t elements = 0;
    for (int i = 0; i < p.GetNumSets(type); ++i) {
      if (const CSet* set = p.GetSetAt(i, type))
        elements += static_cast<std::size_t>(set->GetCount());
    }
    sets[SetKindKey(type)] = {{"sets", p.GetNumSets(type)}, {"elements", elements}};
  }
  Json schema = p.GetStoredSchema() == 255 ? Json(nullptr) : Json(p.GetStoredSchema());
  return {{"name", p.GetName().str()},
          {"storedSchema", schema},
          {"version", p.GetVersion()},
          {"radioTypes", radios},
          {"lastRadio", p.GetLastRadio()},
          {"systems", systems},
          {"sets", sets},
          {"optionRecords", p.GetNumOptions()},
          {"fileSize", opened.loaded.fileSize},
          {"trailingBytes", opened.loaded.trailingBytes}};
}

}  // namespace

void RegisterInfo(Context& context) {
  struct Args {
    std::vector<std::string> files;
    bool json = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "info",
      "Print the stored schema, version, radio types, systems by kind, sets and elements by "
      "kind, option records, file size and unread trailing bytes of personality files; for "
      "a global set file (NAME.TRS, NAME.CVS, ...) its kind, name, scope and elements.");
  cmd->add_option("FILE", args->files, "Personality files or global set files")->required();
  cmd->add_flag("--json", args->json, "Print a JSON array, one object per file");
  cmd->callback([args, &context] {
    const FileBatch batch(args->files);
    Json all = Json::array();
    context.exitCode = batch.Run([&](const std::string& file) {
      OpenedFile opened = OpenPersonalityOrSet(file);
      if (args->json) {
        all.push_back(
            FileBatch::Record(file, opened.set ? SetFileJson(opened) : PersonalityJson(opened)));
        return kExitOk;
      }
      CStringArray lines;
      if (opened.set != nullptr) {
        PrintSetFileSummary(opened, lines);
      } else {
        PrintPersonalitySummary(*opened.loaded.personality, opened.loaded.fileSize,
                                opened.loaded.trailingBytes, lines);
      }
      WriteText("-", batch.Lines(file, JoinLines(lines)));
      return kExitOk;
    });
    if (args->json) WriteText("-", all.dump(2) + "\n");
  });
}

}  // namespace persona::cli
