// The command framework of the persona tool. Each command lives in its own cmd_<name>.cpp and
// defines one Register<Name>(Context&) function that adds its CLI11 subcommand; commands.def
// lists the registration functions (one line per command). Commands do their work through the
// library and report problems by throwing the failures below, which main turns into the exit
// codes documented in `persona --help`.
#pragma once

#include <CLI/CLI.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include <persona/framework/collections.h>
#include <persona/io/json/record_json.h>
#include <persona/io/personality_file.h>

namespace persona::cli {

// Exit codes of the tool.
enum ExitCode : int {
  kExitOk = 0,          // done; for diff: the files are equal
  kExitDifferent = 1,   // diff: the files differ
  kExitUnreadable = 2,  // an input file cannot be read or is damaged
  kExitUnwritable = 3,  // an output file cannot be written (the old file is intact)
  kExitNotHeld = 4,     // the file does not hold the system, set or record named
  kExitUsage = 64,      // the command line is wrong
};

// An input that cannot be read, an output that cannot be written, a wrong argument.
struct InputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};
struct OutputError : std::runtime_error {
  using std::runtime_error::runtime_error;
};
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};
// The file is read, but it does not hold what the command line names (or a new name is taken).
struct NotHeldError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// What a command registers itself on, and where it leaves its exit code.
class Context {
 public:
  explicit Context(CLI::App& app) : m_app(app) {}
  CLI::App& App() { return m_app; }
  // The subcommand group name (e.g. "set"), made on first use with description.
  CLI::App* Group(const std::string& name, const std::string& description);
  int exitCode = kExitOk;

 private:
  CLI::App& m_app;
};

// How outputs are written, set once from the command line (--no-backup, --backup).
struct OutputPolicy {
  bool noBackup = false;    // personality and set files: do not keep FILE.bak
  bool textBackup = false;  // reports, JSON, CSV: keep FILE.bak too
};
OutputPolicy& Outputs();
// Adds --no-backup and --backup to every command under app that has an -o/--output option;
// main calls it once every command is registered. A command that writes without -o calls
// AddBackupFlags on itself.
void AddOutputFlags(CLI::App& app);
void AddBackupFlags(CLI::App* command);

// Returns every byte of the input at path ("-": standard input, which can be read once).
// InputError with the library's message when it cannot be read (a folder, device, FIFO or
// socket, more than 1 GiB, no permission, ...).
std::vector<BYTE> ReadInput(const std::string& path);
// Loads the personality file at path ("-": standard input). A JSON document or a global set
// file is refused with what it is and what to do instead; a damaged file with the library's
// message (InputError). A file with unread bytes after the personality loads, with a warning
// on standard error.
LoadedPersonality LoadInput(const std::string& path);
// Loads a personality JSON document ("-": standard input); a personality file or a global set
// file is refused with what it is (InputError on failure).
std::unique_ptr<CPersonality> LoadJsonInput(const std::string& path);
// Writes the personality file atomically, keeping a replaced file as FILE.bak unless
// --no-backup; "-" writes standard output (refused when it is a terminal). OutputError on
// failure, naming path.
void SaveOutput(const std::string& path, const CPersonality& personality);
// Writes text to path atomically (a replaced file kept as FILE.bak only with --backup), or to
// standard output when path is empty or "-"; when a personality went to standard output, text
// for standard output goes to standard error instead (OutputError on failure).
void WriteText(const std::string& path, const std::string& text);
// The lines joined, each ending in '\n'.
std::string JoinLines(const CStringArray& lines);

// Up to three of candidates nearest to wanted (fewest edits, letter case aside), nearest first,
// as "; the nearest: A, B, C"; empty when there are no candidates.
std::string NearestNames(const std::string& wanted, const std::vector<std::string>& candidates);

}  // namespace persona::cli
