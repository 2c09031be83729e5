// persona csv export | import: the elements of one set as CSV for a spreadsheet, and back.
#include <cstdio>

#include <persona/framework/codepage.h>
#include <persona/io/csv/set_csv.h>
#include <persona/report/personality_ops.h>
#include "command.h"

namespace persona::cli {

namespace {

constexpr const char* kKinds =
    "KIND is one of trunk, conv, group, phone, icall, spcall, plmgroup, plmspcall, p25conv, "
    "p25group, eagroup, or the set type number 0 to 10; the set name is found ignoring case.";

SetType KindOf(const std::string& text) {
  SetType type;
  if (!ParseSetKind(text, &type)) throw UsageError("unknown set kind: " + text);
  return type;
}

char DelimiterOf(const std::string& text) {
  if (text == "\\t" || text == "tab") return '\t';
  if (text.size() != 1 || text == "\"" || text == "\r" || text == "\n") {
    throw UsageError(
        "the delimiter must be one character other than a quote or a line break "
        "(or \\t): " +
        text);
  }
  return text[0];
}

const char* SeverityWord(Finding::Severity s) {
  return s == Finding::Error ? "error" : s == Finding::Warning ? "warning" : "info";
}

// The lines that tell what an import did (or would do, or why it did not).
std::string ImportReport(const CsvImportResult& r, const std::string& what, bool dryRun) {
  const std::size_t unchanged = r.rows - r.added - r.changed;
  std::string text = what + (r.createdSet ? " (new)" : "") + ": " + std::to_string(r.rows) +
                     " rows: " + std::to_string(r.added) + " added, " + std::to_string(r.changed) +
                     " changed, " + std::to_string(r.removed) + " removed, " +
                     std::to_string(unchanged) + " unchanged" +
                     (r.reordered ? ", order changed" : "") + (dryRun ? " (dry run)" : "") + "\n";
  const char* fate = r.blocked ? "" : dryRun ? ": would be cleared" : ": cleared";
  for (const CsvDroppedReference& ref : r.references) {
    text += "reference " + ref.path + " names removed element \"" + ref.name + "\"" + fate + "\n";
  }
  for (const Finding& f : r.addedFindings) {
    text += "added finding: " + std::string(SeverityWord(f.severity)) + " " + f.code + " " +
            f.path + ": " + f.message + "\n";
  }
  return text;
}

void RegisterCsvExport(CLI::App* group) {
  struct Args {
    std::string file, kind, name, output, delimiter = ",";
    bool words = false, bom = false, lf = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = group->add_subcommand(
      "export",
      std::string("Write the elements of one set as CSV: a header row of field names (the "
                  "accessor names), then one row per element in order. Frequencies in MHz, "
                  "exact; coded fields as numbers, or their report words with --words. ") +
          kKinds);
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("KIND", args->kind, "Set kind")->required();
  cmd->add_option("SET", args->name, "Set name")->required();
  cmd->add_option("-o,--output", args->output, "CSV file to write (standard output if absent)");
  cmd->add_flag("--words", args->words, "Coded fields as their report words");
  cmd->add_option("--delimiter", args->delimiter, "Cell delimiter (default ','; \\t for tab)");
  cmd->add_flag("--bom", args->bom, "Begin with the UTF-8 byte-order mark");
  cmd->add_flag("--lf", args->lf, "End rows with LF instead of CRLF");
  cmd->callback([args] {
    const SetType type = KindOf(args->kind);
    CsvExportOptions options;
    options.words = args->words;
    options.style.delimiter = DelimiterOf(args->delimiter);
    options.style.bom = args->bom;
    options.style.crlf = !args->lf;
    LoadedPersonality loaded = LoadInput(args->file);
    const CSet* set = loaded.personality->GetSet(CString(args->name), type);
    if (set == nullptr) {
      throw UsageError(args->file + ": no " + SetKindKey(type) + " set named " + args->name);
    }
    WriteText(args->output, ExportSetCsv(*set, options));
  });
}

void RegisterCsvImport(CLI::App* group, Context& context) {
  struct Args {
    std::string file, kind, name, input, output, delimiter = ",";
    bool inPlace = false, dryRun = false, force = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = group->add_subcommand(
      "import",
      std::string(
          "Make the elements of one set the rows of a CSV file (the set is made when missing). "
          "Columns may be left out (a new element takes the model's defaults, an existing one, "
          "matched by name, keeps its values), reordered or written in any letter case. "
          "Elements whose names no row holds are deleted; references to them elsewhere are "
          "listed and the import stops (exit 1) unless --force clears them. Findings of the "
          "checker that the import adds are listed; an added error stops the import (exit 1) "
          "unless --force. A fault in the CSV names its row and column (exit 2); nothing is "
          "written then. ") +
          kKinds);
  cmd->add_option("FILE", args->file, "Personality file")->required();
  cmd->add_option("KIND", args->kind, "Set kind")->required();
  cmd->add_option("SET", args->name, "Set name")->required();
  cmd->add_option("CSV", args->input, "CSV file (- for standard input)")->required();
  auto* out = cmd->add_option("-o,--output", args->output, "Personality file to write");
  auto* inPlace = cmd->add_flag("--in-place", args->inPlace, "Write FILE itself (FILE.bak kept)");
  auto* dryRun =
      cmd->add_flag("--dry-run", args->dryRun, "Report what would change; write nothing");
  out->excludes(inPlace);
  dryRun->excludes(out)->excludes(inPlace);
  cmd->add_flag("--force", args->force, "Clear references to removed elements; keep added errors");
  cmd->add_option("--delimiter", args->delimiter, "Cell delimiter (default ','; \\t for tab)");
  cmd->callback([args, &context] {
    if (args->output.empty() && !args->inPlace && !args->dryRun) {
      throw UsageError("csv import needs -o OUT, --in-place or --dry-run");
    }
    const SetType type = KindOf(args->kind);
    CsvImportOptions options;
    options.delimiter = DelimiterOf(args->delimiter);
    options.force = args->force;
    options.source = args->input;
    LoadedPersonality loaded = LoadInput(args->file);
    const std::vector<BYTE> bytes = ReadInput(args->input);
    CsvImportResult result;
    try {
      result = ImportSetCsv(
          *loaded.personality, type, args->name,
          std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), options);
    } catch (const CException& e) {
      throw InputError(e.what());
    }
    const std::string what = std::string(SetKindKey(type)) + " set " + args->name;
    bool addedError = false;
    for (const Finding& f : result.addedFindings) addedError |= f.severity == Finding::Error;
    const bool stop = result.blocked || (addedError && !args->force);
    std::string report = ImportReport(result, what, args->dryRun);
    if (result.blocked) report += "not imported: --force clears the references\n";
    if (!result.blocked && stop) report += "not imported: --force writes it with the errors\n";
    WriteText("-", report);
    if (stop) {
      context.exitCode = 1;
      return;
    }
    if (!args->dryRun) SaveOutput(args->inPlace ? args->file : args->output, *loaded.personality);
  });
}

}  // namespace

void RegisterCsv(Context& context) {
  CLI::App* group =
      context.Group("csv", "Sets as CSV: the elements of one set in a spreadsheet and back");
  RegisterCsvExport(group);
  RegisterCsvImport(group, context);
}

}  // namespace persona::cli
