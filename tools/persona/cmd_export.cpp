// persona export FILE [-o OUT.json]: the lossless JSON document of a personality file.
#include <persona/io/json/json_writer.h>
#include <persona/io/json/personality_json.h>
#include "command.h"
#include "input_file.h"
#include "text_output.h"

namespace persona::cli {

void RegisterExport(Context& context) {
  struct Args {
    std::string file;
    std::string output;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "export",
      "Write the JSON document of a personality file: every field of every record by its "
      "accessor name. `import` turns it back into the same bytes. For a global set file "
      "(NAME.TRS, NAME.CVS, ...), the JSON object of its set.");
  cmd->add_option("FILE", args->file, "Personality file or global set file")->required();
  cmd->add_option("-o,--output", args->output, "JSON file to write (default: stdout)");
  cmd->callback([args] {
    OpenedFile opened = OpenPersonalityOrSet(args->file);
    // A personality's records are written on threads of their own while this one writes the
    // file (DocumentThreads).
    TextOutput out(args->output, opened.set != nullptr ? TextOutput::Writing::OwnThread
                                                       : TextOutput::Writing::CallersThread);
    if (opened.set != nullptr) {
      out.Write(JsonExporter().Export(*opened.set).dump(2));
    } else {
      WritePersonalityJson(
          *opened.loaded.personality, [&out](std::string_view text) { out.Write(text); },
          DocumentThreads());
    }
    out.Write('\n');
    out.Commit();
  });
}

}  // namespace persona::cli
