// persona show FILE PATH [--json]: the record at PATH as report lines (every described field
// under its name), or one field as "PATH = VALUE"; --json prints the record's JSON form.
#include <persona/integrity/record_path.h>
#include <persona/io/field_text.h>
#include <persona/report/record_lines.h>
#include "command.h"

namespace persona::cli {

void RegisterShow(Context& context) {
  struct Args {
    std::string file;
    std::string path;
    bool json = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "show", "Print the record or field at PATH (as check prints paths) of a personality file.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("PATH", args->path, "Record path")->required();
  cmd->add_flag("--json", args->json, "Print the JSON form, with the path");
  cmd->callback([args] {
    LoadedPersonality loaded = LoadInput(args->file);
    PathTarget t;
    try {
      t = ResolvePath(*loaded.personality, args->path);
    } catch (const PathError& e) {
      throw UsageError(args->file + ": " + args->path + ": " + e.what());
    }
    std::string value;
    const std::string field = t.entry < 0 ? t.field : t.field + "/" + std::to_string(t.entry + 1);
    const bool isField = !t.field.empty() && GetFieldText(*t.record, field, value, true);
    if (args->json) {
      Json out = {{"file", args->file}, {"path", t.Path()}};
      if (isField) {
        out["value"] = value;
      } else {
        out["record"] = JsonExporter().Export(*t.record);
      }
      WriteText("-", out.dump(2) + "\n");
      return;
    }
    if (isField) {
      WriteText("-", t.Path() + " = " + value + "\n");
      return;
    }
    CStringArray lines;
    PrintFieldBlock(lines, t.Path() + " (" + t.record->GetClassName() + ")",
                    CollectFieldLines(*t.record, nullptr, 0));
    WriteText("-", JoinLines(lines));
  });
}

}  // namespace persona::cli
