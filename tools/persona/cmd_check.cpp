// persona check FILE... [--json]: the integrity checker's findings, plus what the load itself
// noticed (bytes after the personality that nothing read), file by file.
#include <persona/integrity/checker.h>
#include <persona/integrity/record_path.h>
#include "command.h"
#include "file_batch.h"
#include "input_file.h"

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

// The JSON pointer of a finding's path in p, or null when the path names no record or field
// (the file itself, say).
Json PointerOf(CPersonality& p, const std::string& path) {
  try {
    return ResolvePath(p, path).pointer;
  } catch (const std::exception&) {
    return nullptr;
  }
}

void AddFindingsJson(const std::string& file, CPersonality& p, const std::vector<Finding>& findings,
                     Json& out) {
  for (const Finding& f : findings) {
    out.push_back({{"file", file},
                   {"code", f.code},
                   {"severity", SeverityWord(f.severity)},
                   {"path", f.path},
                   {"pointer", PointerOf(p, f.path)},
                   {"message", f.message}});
  }
}

std::string FindingsText(const std::vector<Finding>& findings) {
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

struct CheckArgs {
  std::vector<std::string> files;
  bool json = false;
  std::vector<double> band;
  std::string limitsFrom;
};

// The band limits a set file is checked against: --band, or those of --limits-from's
// personality. False when neither is given.
bool ApplyBandLimits(const CheckArgs& args, CPersonality& holder) {
  if (!args.band.empty() && !args.limitsFrom.empty()) {
    throw UsageError("give --band or --limits-from, not both");
  }
  if (!args.band.empty()) {
    holder.SetTxMinFreq(args.band[0]);
    holder.SetTxMaxFreq(args.band[1]);
    holder.SetRxMinFreq(args.band[2]);
    holder.SetRxMaxFreq(args.band[3]);
    return true;
  }
  if (args.limitsFrom.empty()) return false;
  LoadedPersonality limits = LoadInput(args.limitsFrom);
  holder.SetTxMinFreq(limits.personality->GetTxMinFreq());
  holder.SetTxMaxFreq(limits.personality->GetTxMaxFreq());
  holder.SetRxMinFreq(limits.personality->GetRxMinFreq());
  holder.SetRxMaxFreq(limits.personality->GetRxMaxFreq());
  return true;
}

// The findings of a set file: those about the set itself (its own channel and group names, its
// key list, its channels against the band limits when they are given). Nothing names a set
// that stands alone, so it is not reported unused.
std::vector<Finding> CheckSetFile(const CheckArgs& args, OpenedFile& opened) {
  const bool band = ApplyBandLimits(args, *opened.loaded.personality);
  std::vector<Finding> findings;
  for (Finding& f : CheckPersonality(*opened.loaded.personality)) {
    if (f.code == "SET_UNUSED" || (!band && f.code == "FREQ_OUT_OF_RANGE")) continue;
    findings.push_back(std::move(f));
  }
  if (!band && opened.setKind->checkFrequencies) {
    findings.push_back({"FREQ_NOT_CHECKED", Finding::Info, "file",
                        "no band limits given: the frequencies are not checked (--band TXMIN "
                        "TXMAX RXMIN RXMAX or --limits-from PERSONALITY)"});
  }
  return findings;
}

std::vector<Finding> CheckFile(const CheckArgs& args, OpenedFile& opened) {
  if (opened.set != nullptr) return CheckSetFile(args, opened);
  if (!args.band.empty() || !args.limitsFrom.empty()) {
    throw UsageError("--band and --limits-from are for a global set file");
  }
  std::vector<Finding> findings;
  if (opened.loaded.trailingBytes != 0) {
    findings.push_back({"FILE_TRAILING_BYTES", Finding::Warning, "file",
                        std::to_string(opened.loaded.trailingBytes) +
                            " bytes after the personality were not read (the file was "
                            "damaged or appended to); saving drops them"});
  }
  for (Finding& f : CheckPersonality(*opened.loaded.personality)) findings.push_back(std::move(f));
  return findings;
}

}  // namespace

void RegisterCheck(Context& context) {
  auto args = std::make_shared<CheckArgs>();
  CLI::App* cmd = context.App().add_subcommand(
      "check",
      "Examine a personality file: names that point at nothing, channels outside the band "
      "limits, missing security keys, duplicate or unused sets, systems the radio type cannot "
      "use, bytes after the personality. A global set file (NAME.TRS, NAME.CVS, ...) is checked "
      "as one set, against --band or the band limits of --limits-from. One line per finding "
      "(\"SEVERITY CODE PATH: "
      "MESSAGE\"; with several files each line starts with FILE:). Exit 0 when there is no "
      "error, 1 when there are errors, 2 when a file cannot be read: the worst of all files.");
  cmd->add_option("FILE", args->files, "Personality files or global set files")->required();
  cmd->add_flag(
      "--json", args->json,
      "Print the findings as a JSON array (file, code, severity, path, pointer, message)");
  cmd->add_option("--band", args->band, "Band limits for a set file: TXMIN TXMAX RXMIN RXMAX (MHz)")
      ->expected(4);
  cmd->add_option("--limits-from", args->limitsFrom,
                  "Personality whose band limits a set file "
                  "is checked against");
  cmd->callback([args, &context] {
    const FileBatch batch(args->files);
    Json all = Json::array();
    context.exitCode = batch.Run([&](const std::string& file) {
      OpenedFile opened = OpenPersonalityOrSet(file);
      const std::vector<Finding> findings = CheckFile(*args, opened);
      if (args->json) {
        AddFindingsJson(file, *opened.loaded.personality, findings, all);
      } else {
        WriteText("-", batch.Lines(file, FindingsText(findings)));
      }
      for (const Finding& f : findings) {
        if (f.severity == Finding::Error) return kExitDifferent;
      }
      return kExitOk;
    });
    if (args->json) WriteText("-", all.dump(2) + "\n");
  });
}

}  // namespace persona::cli
