// persona report [FILE] [-o OUT]: the report of a personality file, or of the bundled sample.
#include <persona/framework/exceptions.h>
#include <persona/report/report_text.h>
#include "command.h"
#include "embedded_sample.h"
#include "input_file.h"
#include "text_output.h"

namespace persona::cli {

void RegisterReport(Context& context) {
  struct Args {
    std::string file;
    std::string output;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "report",
      "Print the report of a personality: title, options, systems, then the sets by kind. "
      "A global set file (NAME.TRS, NAME.CVS, ...) is reported as the one set it holds. "
      "Without FILE, the report of the bundled sample personality.");
  cmd->add_option("FILE", args->file,
                  "Personality or global set file (default: the bundled sample)");
  cmd->add_option("-o,--output", args->output, "Write the report to OUT instead of stdout");
  cmd->callback([args] {
    LoadedPersonality loaded;
    if (args->file.empty()) {
      try {
        loaded = LoadPersonalityBytes(kEmbeddedSample, kEmbeddedSampleSize, "<bundled sample>");
      } catch (const CException& e) {
        throw InputError(e.what());
      }
    } else {
      loaded = std::move(OpenPersonalityOrSet(args->file).loaded);
    }
    // The report's parts are made on threads of their own; this one writes.
    TextOutput out(args->output, TextOutput::Writing::CallersThread);
    StreamPersonalityReportText(
        *loaded.personality, [&out](std::string_view text) { out.Write(text); }, DocumentThreads());
    out.Commit();
  });
}

}  // namespace persona::cli
