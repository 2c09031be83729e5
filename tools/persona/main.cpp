// persona: the command-line tool over personality files. Registers the commands listed in
// commands.def, runs the one named on the command line and turns failures into exit codes.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>

#include "command.h"

namespace persona::cli {
#define PERSONA_COMMAND(name) void Register##name(Context& context);
#include "commands.def"
#undef PERSONA_COMMAND
}  // namespace persona::cli

namespace {

using persona::cli::Context;

void (*const kCommands[])(Context&) = {
#define PERSONA_COMMAND(name) &persona::cli::Register##name,
#include "commands.def"
#undef PERSONA_COMMAND
};

const char* const kFooter = R"(Exit codes:
  0   done (diff: the files are equal; check: no errors)
  1   diff: the files differ; check: the file has errors
  2   an input file cannot be read or is damaged (the message names the file and byte offset)
  3   an output file cannot be written (the file that was there is left intact)
  64  the command line is wrong
Files: "-" reads standard input or writes standard output. Every file is written
atomically: a symbolic link is followed and its target replaced, with its mode (and owner,
where allowed) kept; a FIFO or character device is written directly, never replaced; a
folder or socket is refused. A replaced personality or set file is kept as FILE.bak (not
with --no-backup); a replaced report, JSON or CSV file only with --backup.)";

int Fail(int code, const char* what) {
  std::fprintf(stderr, "persona: error: %s\n", what);
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"persona: reads, reports, compares, merges and writes radio personality files."};
  app.footer(kFooter);
  app.require_subcommand(1);
  Context context(app);
  for (auto* registerCommand : kCommands) registerCommand(context);
  persona::cli::AddOutputFlags(app);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    const int code = app.exit(e);
    return code == 0 ? 0 : persona::cli::kExitUsage;
  } catch (const persona::cli::InputError& e) {
    return Fail(persona::cli::kExitUnreadable, e.what());
  } catch (const persona::cli::OutputError& e) {
    return Fail(persona::cli::kExitUnwritable, e.what());
  } catch (const persona::cli::UsageError& e) {
    return Fail(persona::cli::kExitUsage, e.what());
  } catch (const std::exception& e) {
    return Fail(persona::cli::kExitUnreadable, e.what());
  }
  return context.exitCode;
}
