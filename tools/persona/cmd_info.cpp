// persona info FILE: what a personality file or a global set file holds, in counts.
#include <persona/options/option_report.h>
#include <persona/report/personality_ops.h>
#include "command.h"
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

}  // namespace

void RegisterInfo(Context& context) {
  auto file = std::make_shared<std::string>();
  CLI::App* cmd = context.App().add_subcommand(
      "info",
      "Print the stored schema, version, radio types, systems by kind, sets and elements by "
      "kind, option records, file size and unread trailing bytes of a personality file; for "
      "a global set file (NAME.TRS, NAME.CVS, ...) its kind, name, scope and elements.");
  cmd->add_option("FILE", *file, "Personality file or global set file")->required();
  cmd->callback([file] {
    OpenedFile opened = OpenPersonalityOrSet(*file);
    CStringArray lines;
    if (opened.set != nullptr) {
      PrintSetFileSummary(opened, lines);
    } else {
      PrintPersonalitySummary(*opened.loaded.personality, opened.loaded.fileSize,
                              opened.loaded.trailingBytes, lines);
    }
    WriteText("-", JoinLines(lines));
  });
}

}  // namespace persona::cli
