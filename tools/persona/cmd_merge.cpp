// persona merge A B -o C: A's records and B's, every name both hold settled by a policy, the
// result checked for the errors the merge brings in.
#include <persona/report/merge_policy.h>
#include "command.h"

namespace persona::cli {

namespace {

struct MergeArgs {
  std::string a;
  std::string b;
  std::string output;
  std::string prefer;
  std::string suffix;
  bool force = false;
  bool dryRun = false;
};

ClashPolicy PolicyOf(const MergeArgs& args) {
  if (!args.prefer.empty() && !args.suffix.empty()) {
    throw UsageError("merge takes --prefer or --rename-clashes, not both");
  }
  if (args.prefer == "a" || args.prefer == "A") return ClashPolicy::PreferA;
  if (args.prefer == "b" || args.prefer == "B") return ClashPolicy::PreferB;
  if (!args.prefer.empty()) throw UsageError("--prefer takes a or b, not " + args.prefer);
  return args.suffix.empty() ? ClashPolicy::KeepBoth : ClashPolicy::Rename;
}

std::string ReportText(const PolicyMergeResult& result) {
  std::string text;
  for (const ClashDecision& clash : result.clashes) {
    text += "clash: " + clash.what + " " + clash.name + ": " + clash.outcome + "\n";
  }
  for (const Finding& f : result.addedErrors) {
    text += (IsDanglingReference(f) ? "dangling: " : "error " + f.code + " ") + f.path + ": " +
            f.message + "\n";
  }
  text += std::to_string(result.clashes.size()) + " name clash(es), " +
          std::to_string(result.addedErrors.size()) + " error(s) added by the merge\n";
  return text;
}

void RunMerge(const MergeArgs& args, Context& context) {
  const ClashPolicy policy = PolicyOf(args);
  if (!args.dryRun && args.output.empty()) throw UsageError("merge needs -o OUT or --dry-run");
  LoadedPersonality a = LoadInput(args.a);
  LoadedPersonality b = LoadInput(args.b);
  PolicyMergeResult result =
      MergeWithPolicy(std::move(a.personality), std::move(b.personality), policy, args.suffix);
  std::string text = ReportText(result);
  std::string refusal;
  if (policy == ClashPolicy::KeepBoth && !result.clashes.empty()) {
    refusal = "names held by both: choose --prefer a, --prefer b or --rename-clashes SUFFIX";
  } else if (!result.addedErrors.empty()) {
    refusal = "the merge adds errors";
  }
  if (args.dryRun) {
    text += "dry run: nothing written\n";
  } else if (!refusal.empty() && !args.force) {
    text += refusal + "; nothing written (--force writes it all the same)\n";
  } else {
    SaveOutput(args.output, *result.merged);
    text += "written: " + args.output + "\n";
  }
  WriteText("-", text);
  context.exitCode = refusal.empty() ? kExitOk : kExitDifferent;
}

}  // namespace

void RegisterMerge(Context& context) {
  auto args = std::make_shared<MergeArgs>();
  CLI::App* cmd = context.App().add_subcommand(
      "merge",
      "Write C: A's header and records, then B's systems, sets and option records (B's radio "
      "types added). A system name, a set name (ignoring case, within a kind) or an option "
      "class held by both is a clash, settled by --prefer a|b or by --rename-clashes SUFFIX "
      "(B's system or set renamed NAME+SUFFIX, the names in B's records following it; A's "
      "option record kept). Each clash is listed with its outcome, then every error of C that "
      "neither A nor B has (\"dangling: PATH: MESSAGE\" for a name that points at nothing). "
      "Exit 1, writing nothing, when clashes are left unsettled or the merge adds errors, "
      "unless --force.");
  cmd->add_option("A", args->a, "Personality file")->required();
  cmd->add_option("B", args->b, "Personality file whose records are added")->required();
  cmd->add_option("-o,--output", args->output, "Personality file to write");
  cmd->add_option("--prefer", args->prefer, "Settle every clash for A or for B")
      ->check(CLI::IsMember({"a", "b", "A", "B"}));
  cmd->add_option("--rename-clashes", args->suffix, "Keep both; rename B's record NAME+SUFFIX");
  cmd->add_flag("--force", args->force, "Write C even with unsettled clashes or added errors");
  cmd->add_flag("--dry-run", args->dryRun, "Report the merge; write nothing");
  cmd->callback([args, &context] { RunMerge(*args, context); });
}

}  // namespace persona::cli
