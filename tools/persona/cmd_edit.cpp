// persona edit FILE... PATH=VALUE... (-o OUT | --in-place | --dry-run) [--force]: sets fields
// named by record paths, parsing each value by its field's type. A system, set, channel or
// group name goes through the rename propagation. The checker runs before and after; the
// findings the edit added are listed, and an added error keeps the file unwritten (exit 1)
// unless --force. Every file is edited on its own: one that fails leaves the others going.
#include <cstdio>
#include <set>

#include <persona/integrity/checker.h>
#include <persona/integrity/record_path.h>
#include <persona/integrity/references.h>
#include <persona/io/field_text.h>
#include "command.h"
#include "file_batch.h"

namespace persona::cli {

namespace {

struct Assignment {
  std::string path;
  std::string value;
};

// Splits "PATH=VALUE" at the first '=' outside quotes; false when there is none.
bool SplitAssignment(const std::string& arg, Assignment* out) {
  bool quoted = false;
  for (std::size_t i = 0; i < arg.size(); ++i) {
    if (arg[i] == '\\' && quoted) {
      ++i;
    } else if (arg[i] == '"') {
      quoted = !quoted;
    } else if (arg[i] == '=' && !quoted) {
      *out = {arg.substr(0, i), arg.substr(i + 1)};
      return true;
    }
  }
  return false;
}

const char* SeverityWord(Finding::Severity s) {
  return s == Finding::Error ? "error" : s == Finding::Warning ? "warning" : "info";
}

std::string Key(const Finding& f) { return f.code + "\n" + f.path + "\n" + f.message; }

// Renames through the propagation when target is the name of a system, set, channel or group;
// returns false when it is some other field.
bool Rename(CPersonality& p, const PathTarget& t, const std::string& value) {
  if (t.field != "Name" || t.entry >= 0) return false;
  CString oldName;
  std::string text;
  GetFieldText(*t.record, "Name", text);
  oldName = CString(text);
  const CString newName(value);
  int changed = 0;
  if (t.kind == PathTarget::System) {
    changed = RenameSystem(p, oldName, newName);
  } else if (t.kind == PathTarget::Set) {
    changed = RenameSet(p, static_cast<SetType>(t.setType), t.set->GetName(), newName);
  } else if (t.kind == PathTarget::Element &&
             (t.setType == ConvSetType || t.setType == P25ConvSetType)) {
    changed = RenameChannel(p, static_cast<SetType>(t.setType), t.set->GetName(), oldName, newName);
  } else if (t.kind == PathTarget::Element && t.setType != TrunkSetType &&
             t.setType != PhoneSetType && t.setType != ICallSetType && t.setType != SpCallSetType &&
             t.setType != PlmSpCallSetType) {
    changed = RenameGroup(p, static_cast<SetType>(t.setType), t.set->GetName(), oldName, newName);
  } else {
    return false;
  }
  if (changed < 0) {
    throw FieldTextError("cannot rename " + text + " to " + value +
                         ": the new name is empty or already taken");
  }
  return true;
}

struct EditArgs {
  std::vector<std::string> args;
  std::string output;
  bool inPlace = false;
  bool dryRun = false;
  bool force = false;
};

// Edits one file; returns its exit code.
int EditFile(const FileBatch& batch, const std::string& file,
             const std::vector<Assignment>& changes, const EditArgs& args) {
  LoadedPersonality loaded = LoadInput(file);
  CPersonality& p = *loaded.personality;
  std::multiset<std::string> before;
  for (const Finding& f : CheckPersonality(p)) before.insert(Key(f));
  std::string report;
  for (const Assignment& a : changes) {
    std::string oldText;
    try {
      const PathTarget t = ResolvePath(p, a.path);
      if (t.field.empty()) throw PathError(t.recordPath + " is a record; give one of its fields");
      const std::string field = t.entry < 0 ? t.field : t.field + "/" + std::to_string(t.entry + 1);
      GetFieldText(*t.record, field, oldText, true);
      if (!Rename(p, t, a.value)) SetFieldText(*t.record, field, a.value);
      report += t.Path() + ": " + oldText + " -> " + a.value + "\n";
    } catch (const std::exception& e) {
      std::fprintf(stderr, "persona: error: %s: %s: %s (nothing written)\n", file.c_str(),
                   a.path.c_str(), e.what());
      return kExitUsage;
    }
  }
  bool addedError = false;
  for (const Finding& f : CheckPersonality(p)) {
    auto it = before.find(Key(f));
    if (it != before.end()) {
      before.erase(it);
      continue;
    }
    addedError = addedError || f.severity == Finding::Error;
    report += std::string("added ") + SeverityWord(f.severity) + " " + f.code + " " + f.path +
              ": " + f.message + "\n";
  }
  const bool write = !args.dryRun && (!addedError || args.force);
  if (write) SaveOutput(batch.OutputOf(file, args.output, args.inPlace, args.dryRun), p);
  if (addedError && !args.force && !args.dryRun) {
    report += "not written: the edit adds an error (--force writes it anyway)\n";
  }
  WriteText("-", batch.Lines(file, report));
  return addedError && !args.force ? kExitDifferent : kExitOk;
}

}  // namespace

void RegisterEdit(Context& context) {
  auto args = std::make_shared<EditArgs>();
  CLI::App* cmd = context.App().add_subcommand(
      "edit",
      "Set fields of one or more personality files: PATH=VALUE, PATH as check prints it "
      "(systems/NAME/FIELD, sets/KIND/SET/ELEMENT/FIELD, options/CLASS/FIELD, header FIELD). "
      "Values are read by the field's type (numbers, On/Off, words of coded fields or their "
      "numbers, text). A system, set, channel or group name is renamed everywhere it is named. "
      "Lists the check findings that the edit adds; exit 1, writing nothing, when it adds an "
      "error (unless --force).");
  cmd->add_option("ARGS", args->args, "Files, then PATH=VALUE assignments")->required();
  auto* out = cmd->add_option("-o,--output", args->output, "File to write (one input only)");
  auto* inPlace = cmd->add_flag("--in-place", args->inPlace, "Rewrite each input (FILE.bak kept)");
  auto* dry = cmd->add_flag("--dry-run", args->dryRun, "Show the changes, write nothing");
  out->excludes(inPlace);
  dry->excludes(out)->excludes(inPlace);
  cmd->add_flag("--force", args->force, "Write even when the edit adds check errors");
  cmd->callback([args, &context] {
    std::vector<std::string> files;
    std::vector<Assignment> changes;
    for (const std::string& arg : args->args) {
      Assignment a;
      if (SplitAssignment(arg, &a)) {
        changes.push_back(std::move(a));
      } else {
        files.push_back(arg);
      }
    }
    if (files.empty() || changes.empty()) throw UsageError("edit needs FILE... PATH=VALUE...");
    const FileBatch batch(files);
    batch.CheckOutputChoice(args->output, args->inPlace, args->dryRun);
    context.exitCode =
        batch.Run([&](const std::string& file) { return EditFile(batch, file, changes, *args); });
  });
}

}  // namespace persona::cli
