// persona diff A B [--json]: the record-level differences between two personality files.
#include "command.h"
#include "io/json/record_diff.h"

namespace persona::cli {

namespace {

const char* KindWord(RecordDifference::Kind kind) {
  switch (kind) {
    case RecordDifference::Changed:
      return "changed";
    case RecordDifference::Added:
      return "added";
    case RecordDifference::Removed:
      return "removed";
  }
  return "changed";
}

std::string DiffText(const std::vector<RecordDifference>& diffs, bool json) {
  if (json) {
    Json list = Json::array();
    for (const RecordDifference& d : diffs) {
      Json entry = {{"kind", KindWord(d.kind)}, {"path", d.path}};
      if (d.kind != RecordDifference::Added) entry["before"] = Json::parse(d.before);
      if (d.kind != RecordDifference::Removed) entry["after"] = Json::parse(d.after);
      list.push_back(entry);
    }
    return list.dump(2) + "\n";
  }
  std::string text;
  for (const RecordDifference& d : diffs) {
    text += std::string(KindWord(d.kind)) + " " + d.path + ": ";
    if (d.kind == RecordDifference::Changed) text += d.before + " -> " + d.after;
    if (d.kind == RecordDifference::Added) text += d.after;
    if (d.kind == RecordDifference::Removed) text += d.before;
    text += "\n";
  }
  return text;
}

}  // namespace

void RegisterDiff(Context& context) {
  struct Args {
    std::string a;
    std::string b;
    bool json = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "diff",
      "List the differences that turn A into B, field by field: systems matched by name, sets "
      "by kind and name, elements by position, option records by class. One line per "
      "difference (\"changed PATH: OLD -> NEW\", \"added PATH: NEW\", \"removed PATH: OLD\"). "
      "Exit 0 when equal, 1 when not.");
  cmd->add_option("A", args->a, "Personality file")->required();
  cmd->add_option("B", args->b, "Personality file")->required();
  cmd->add_flag("--json", args->json, "Print the differences as a JSON array");
  cmd->callback([args, &context] {
    LoadedPersonality a = LoadInput(args->a);
    LoadedPersonality b = LoadInput(args->b);
    const std::vector<RecordDifference> diffs = DiffRecords(*a.personality, *b.personality);
    WriteText("-", DiffText(diffs, args->json));
    context.exitCode = diffs.empty() ? kExitOk : kExitDifferent;
  });
}

}  // namespace persona::cli
