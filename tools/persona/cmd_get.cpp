// persona get FILE... PATH... [--json] [--numbers]: the value of each field, one per line;
// with several files each line starts with the file's name. Arguments that name existing files
// are the files; the rest are record paths as check prints them.
#include <cstdio>
#include <filesystem>

#include <persona/integrity/record_path.h>
#include <persona/io/field_text.h>
#include "command.h"
#include "file_batch.h"

namespace persona::cli {

namespace {

struct GetArgs {
  std::vector<std::string> args;
  bool json = false;
  bool numbers = false;
};

// The text of the field at path in p (PathError or FieldTextError when there is none).
std::string FieldValue(CPersonality& p, const std::string& path, bool words, std::string* canon,
                       std::string* pointer) {
  const PathTarget t = ResolvePath(p, path);
  if (t.field.empty()) throw PathError(t.recordPath + " is a record; show prints records");
  std::string text;
  const std::string field = t.entry < 0 ? t.field : t.field + "/" + std::to_string(t.entry + 1);
  if (!GetFieldText(*t.record, field, text, words)) {
    throw FieldTextError(t.Path() + " has no value as text (a list of records)");
  }
  *canon = t.Path();
  *pointer = t.pointer;
  return text;
}

}  // namespace

void RegisterGet(Context& context) {
  auto args = std::make_shared<GetArgs>();
  CLI::App* cmd = context.App().add_subcommand(
      "get",
      "Print the value of fields of one or more personality files, one per line: FILE... "
      "PATH..., PATH as check prints it. Coded fields print their words (--numbers: the codes).");
  cmd->add_option("ARGS", args->args, "Files, then record paths")->required();
  cmd->add_flag("--json", args->json, "Print a JSON array of {file, path, pointer, value}");
  cmd->add_flag("--numbers", args->numbers, "Print codes and switches as numbers");
  cmd->callback([args, &context] {
    std::vector<std::string> files, paths;
    for (const std::string& arg : args->args) {
      std::error_code ec;
      const bool isFile = paths.empty() && std::filesystem::is_regular_file(arg, ec);
      (isFile ? files : paths).push_back(arg);
    }
    if (files.empty() || paths.empty()) throw UsageError("get needs FILE... PATH...");
    const FileBatch batch(files);
    Json all = Json::array();
    context.exitCode = batch.Run([&](const std::string& file) {
      LoadedPersonality loaded = LoadInput(file);
      int code = kExitOk;
      std::string text;
      for (const std::string& path : paths) {
        std::string canon, pointer;
        try {
          const std::string value =
              FieldValue(*loaded.personality, path, !args->numbers, &canon, &pointer);
          all.push_back({{"file", file}, {"path", canon}, {"pointer", pointer}, {"value", value}});
          text += value + "\n";
        } catch (const std::exception& e) {
          std::fprintf(stderr, "persona: error: %s: %s: %s\n", file.c_str(), path.c_str(),
                       e.what());
          code = kExitUsage;
        }
      }
      if (!args->json) WriteText("-", batch.Lines(file, text));
      return code;
    });
    if (args->json) WriteText("-", all.dump(2) + "\n");
  });
}

}  // namespace persona::cli
