// Commands over several files (the shell's glob): each file is read, changed and reported on its
// own, so that one damaged file does not stop the others. With more than one file every output
// line starts with "FILE: " and every JSON record carries "file"; a file's failure is printed
// on standard error with the file's name; the command's exit code is the worst of all files.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "command.h"

namespace persona::cli {

class FileBatch {
 public:
  // files: the inputs in command-line order (UsageError when there are none).
  explicit FileBatch(std::vector<std::string> files);

  const std::vector<std::string>& Files() const { return m_files; }
  // "FILE: " when several files are given, else "".
  std::string Prefix(const std::string& file) const;
  // text (lines ending in '\n') with Prefix(file) before every line.
  std::string Lines(const std::string& file, const std::string& text) const;
  // The JSON record of file: "file" first, then the members of fields (an object).
  static Json Record(const std::string& file, const Json& fields);

  // Where a command that writes a personality writes the one for file: OUT (-o, one input file
  // only), the file itself (--in-place) or nowhere ("" for --dry-run). UsageError when -o is
  // given with several files, or neither (nor both) of -o and --in-place is given.
  std::string OutputOf(const std::string& file, const std::string& output, bool inPlace,
                       bool dryRun) const;
  // Checks the -o / --in-place / --dry-run choice once, before any file is read (UsageError).
  void CheckOutputChoice(const std::string& output, bool inPlace, bool dryRun) const;

  // Runs each on every file in order and returns the worst exit code: the code each returns,
  // or that of the failure it throws (InputError 2, OutputError 3, NotHeldError 4, a wrong path
  // or value 64), which is printed on standard error naming the file. The other files still run.
  int Run(const std::function<int(const std::string& file)>& each) const;

 private:
  std::vector<std::string> m_files;
};

}  // namespace persona::cli
