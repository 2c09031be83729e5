// persona report [FILE] [-o OUT]: the report of a personality file, or of the bundled sample.
#include <persona/framework/exceptions.h>
#include <persona/report/personality_report.h>
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
    TextOutput out(args->output);
    StreamPersonalityReport(*loaded.personality, [&out](const CStringArray& lines) {
      for (const CString& line : lines) {
        out.Write(line.str());
        out.Write('\n');
      }
    });
    out.Commit();
  });
}

}  // namespace persona::cli
