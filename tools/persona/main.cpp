// persona: the command-line tool over personality files. Registers the commands listed in
// commands.def, runs the one named on the command line and turns failures into exit codes.
#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

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
  1   diff: the files differ; check: the file has errors; merge: clashes left unsettled or
      errors added by the merge (nothing written without --force)
  2   an input file cannot be read or is damaged (the message names the file and byte offset)
  3   an output file cannot be written (the file that was there is left intact)
  4   the file does not hold the system, set or record named, or a new name is taken
  64  the command line is malformed (unknown command or option, missing argument)
Files: "-" reads standard input or writes standard output. Every file is written
atomically: a symbolic link is followed and its target replaced, with its mode (and owner,
where allowed) kept; a FIFO or character device is written directly, never replaced; a
folder or socket is refused. A replaced personality or set file is kept as FILE.bak (not
with --no-backup); a replaced report, JSON or CSV file only with --backup.)";

// Names a command word that the app (or a group such as "set") does not have, with the
// nearest ones, before CLI11 reads it as a stray argument. Throws UsageError.
void CheckCommandWords(CLI::App& app, int argc, char** argv) {
  CLI::App* level = &app;
  for (int i = 1; i < argc && argv[i][0] != '-'; ++i) {
    std::vector<CLI::App*> subs = level->get_subcommands({});
    if (subs.empty()) return;
    CLI::App* next = nullptr;
    std::vector<std::string> names;
    for (CLI::App* sub : subs) {
      if (sub->get_name() == argv[i]) next = sub;
      names.push_back(sub->get_name());
    }
    if (next == nullptr) {
      const std::string where = level == &app ? "" : " " + level->get_name();
      throw persona::cli::UsageError("unknown command" + where + " " + argv[i] +
                                     persona::cli::NearestNames(argv[i], names));
    }
    level = next;
  }
}

int Fail(int code, const char* what) {
  std::fprintf(stderr, "persona: error: %s\n", what);
  return code;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"persona: reads, reports, compares, merges and writes radio personality files.",
               "persona"};
  app.require_subcommand(1);
  Context context(app);
  for (auto* registerCommand : kCommands) registerCommand(context);
  persona::cli::AddOutputFlags(app);
  app.footer(kFooter);  // after the commands, which would each inherit it
  try {
    CheckCommandWords(app, argc, argv);
    app.parse(argc, argv);
  } catch (const CLI::ParseError& e) {
    const int code = app.exit(e);
    return code == 0 ? 0 : persona::cli::kExitUsage;
  } catch (const persona::cli::InputError& e) {
    return Fail(persona::cli::kExitUnreadable, e.what());
  } catch (const persona::cli::OutputError& e) {
    return Fail(persona::cli::kExitUnwritable, e.what());
  } catch (const persona::cli::NotHeldError& e) {
    return Fail(persona::cli::kExitNotHeld, e.what());
  } catch (const persona::cli::UsageError& e) {
    return Fail(persona::cli::kExitUsage, e.what());
  } catch (const std::exception& e) {
    return Fail(persona::cli::kExitUnreadable, e.what());
  }
  return context.exitCode;
}
