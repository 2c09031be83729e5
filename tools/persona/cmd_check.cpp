// persona check FILE [--json]: the integrity checker's findings, plus what the load itself
// noticed (bytes after the personality that nothing read).
#include "command.h"
#include "integrity/checker.h"

namespace persona::cli {

namespace {

const char* SeverityWord(Finding::Severity s) {
  switch (s) {
    case Finding::Error:
      return "error";
    case Finding::Warning:
      return "warning";
    case Finding::Info:
      return "info";
  }
  return "error";
}

std::string FindingsText(const std::vector<Finding>& findings, bool json) {
  if (json) {
    Json list = Json::array();
    for (const Finding& f : findings) {
      list.push_back({{"code", f.code},
                      {"severity", SeverityWord(f.severity)},
                      {"path", f.path},
                      {"message", f.message}});
    }
    return list.dump(2) + "\n";
  }
  std::string text;
  std::size_t counts[3] = {0, 0, 0};
  for (const Finding& f : findings) {
    text += std::string(SeverityWord(f.severity)) + " " + f.code + " " + f.path + ": " + f.message +
            "\n";
    ++counts[f.severity];
  }
  text += std::to_string(counts[Finding::Error]) + " error(s), " +
          std::to_string(counts[Finding::Warning]) + " warning(s), " +
          std::to_string(counts[Finding::Info]) + " note(s)\n";
  return text;
}

}  // namespace

void RegisterCheck(Context& context) {
  struct Args {
    std::string file;
    bool json = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "check",
      "Examine a personality file: names that point at nothing, channels outside the band "
      "limits, missing security keys, duplicate or unused sets, systems the radio type cannot "
      "use, bytes after the personality. One line per finding (\"SEVERITY CODE PATH: "
      "MESSAGE\"). Exit 0 when there is no error, 1 when there are errors, 2 when the file "
      "cannot be read.");
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_flag("--json", args->json, "Print the findings as a JSON array");
  cmd->callback([args, &context] {
    LoadedPersonality loaded = LoadInput(args->file);
    std::vector<Finding> findings;
    if (loaded.trailingBytes != 0) {
      findings.push_back({"FILE_TRAILING_BYTES", Finding::Warning, "file",
                          std::to_string(loaded.trailingBytes) +
                              " bytes after the personality were not read (the file was "
                              "damaged or appended to); saving drops them"});
    }
    for (Finding& f : CheckPersonality(*loaded.personality)) findings.push_back(std::move(f));
    WriteText("-", FindingsText(findings, args->json));
    bool errors = false;
    for (const Finding& f : findings) errors = errors || f.severity == Finding::Error;
    context.exitCode = errors ? kExitDifferent : kExitOk;
  });
}

}  // namespace persona::cli
