// The shared steps of the persona commands: loading inputs, writing outputs atomically.
#include "command.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <persona/framework/exceptions.h>
#include <persona/framework/file_io.h>
#include <persona/io/json/json_reader.h>
#include <persona/io/json/personality_json.h>

namespace persona::cli {

CLI::App* Context::Group(const std::string& name, const std::string& description) {
  for (CLI::App* sub : m_app.get_subcommands({})) {
    if (sub->get_name() == name) return sub;
  }
  CLI::App* group = m_app.add_subcommand(name, description);
  group->require_subcommand(1);
  return group;
}

namespace {

// What the command has done with the standard streams so far.
struct StreamUse {
  bool inputRead = false;
  bool personalityToOutput = false;
};
StreamUse& Streams() {
  static StreamUse use;
  return use;
}

}  // namespace

OutputPolicy& Outputs() {
  static OutputPolicy policy;
  return policy;
}

void AddBackupFlags(CLI::App* command) {
  CLI::Option* none =
      command->add_flag("--no-backup", Outputs().noBackup,
                        "Do not keep a replaced personality or set file as FILE.bak");
  CLI::Option* text = command->add_flag("--backup", Outputs().textBackup,
                                        "Keep a replaced report, JSON or CSV file as FILE.bak");
  none->excludes(text);
}

void AddOutputFlags(CLI::App& app) {
  for (CLI::App* sub : app.get_subcommands({})) {
    if (sub->get_option_no_throw("--output") != nullptr &&
        sub->get_option_no_throw("--no-backup") == nullptr) {
      AddBackupFlags(sub);
    }
    AddOutputFlags(*sub);
  }
}

std::vector<BYTE> ReadInput(const std::string& path) {
  if (path == kStandardStreamName) {
    if (Streams().inputRead) throw UsageError("standard input (-) can be given only once");
    Streams().inputRead = true;
  }
  try {
    return ReadWholeFile(path);
  } catch (const CException& e) {
    struct stat st;
    const bool pipe = ::stat(path.c_str(), &st) == 0 && S_ISFIFO(st.st_mode);
    throw InputError(e.what() + std::string(pipe ? "; give - to read standard input" : ""));
  }
}

LoadedPersonality LoadInput(const std::string& path) {
  const std::vector<BYTE> bytes = ReadInput(path);
  const std::string name = FileDisplayName(path, false);
  const FileKind kind = SniffFileKind(bytes.data(), bytes.size());
  if (kind == FileKind::Json) {
    throw InputError(name +
                     ": this is a JSON document; use persona import to make a "
                     "personality file of it");
  }
  if (kind == FileKind::SetFile) {
    throw InputError(name +
                     ": this is a global set file, not a personality; its set is read "
                     "into a personality by persona set refresh");
  }
  try {
    LoadedPersonality loaded = LoadPersonalityBytes(bytes.data(), bytes.size(), name);
    if (loaded.trailingBytes != 0) {
      std::fprintf(stderr, "persona: warning: %s: %zu bytes after the personality were not read\n",
                   name.c_str(), loaded.trailingBytes);
    }
    return loaded;
  } catch (const CException& e) {
    throw InputError(e.what());
  }
}

namespace {

// The personality of the JSON document in the regular file at path, parsed as it is read from
// the disk (never held whole); null when path is not a regular file within the size limit or
// does not start as a JSON document, for LoadJsonInput to read it whole and say what it is.
std::unique_ptr<CPersonality> ReadJsonFileStreamed(const std::string& path) {
  struct stat st;
  if (::stat(path.c_str(), &st) != 0 || !S_ISREG(st.st_mode) ||
      static_cast<unsigned long long>(st.st_size) > kMaxFileSize) {
    return nullptr;
  }
  BYTE head[4096];
  std::size_t got = 0;
  if (std::FILE* file = std::fopen(path.c_str(), "rb")) {
    got = std::fread(head, 1, sizeof head, file);
    std::fclose(file);
  }
  if (SniffFileKind(head, got) != FileKind::Json) return nullptr;
  return ReadPersonalityJsonFile(path);
}

}  // namespace

std::unique_ptr<CPersonality> LoadJsonInput(const std::string& path) {
  const std::string name = FileDisplayName(path, false);
  try {
    if (path != kStandardStreamName) {
      if (std::unique_ptr<CPersonality> streamed = ReadJsonFileStreamed(path)) return streamed;
    }
    const std::vector<BYTE> bytes = ReadInput(path);
    const FileKind kind = SniffFileKind(bytes.data(), bytes.size());
    if (kind == FileKind::Personality) {
      throw InputError(name +
                       ": this is a personality file, not a JSON document; use persona "
                       "export to make its JSON document");
    }
    if (kind == FileKind::SetFile) {
      throw InputError(name + ": this is a global set file, not a JSON document");
    }
    // Records straight from the parser's events; any other form or a fault is read whole.
    std::unique_ptr<CPersonality> streamed =
        StreamPersonalityJson(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (streamed) return streamed;
    const Json doc = Json::parse(bytes.begin(), bytes.end());
    return ImportPersonalityJson(doc, name);
  } catch (const Json::exception& e) {
    throw InputError(name + ": not JSON: " + e.what());
  } catch (const CException& e) {
    throw InputError(e.what());
  }
}

void SaveOutput(const std::string& path, const CPersonality& personality) {
  if (path == kStandardStreamName) {
    if (::isatty(STDOUT_FILENO)) {
      throw UsageError(
          "a personality file is not written to a terminal; redirect standard "
          "output or give -o FILE");
    }
    Streams().personalityToOutput = true;
  }
  try {
    SavePersonalityFile(path, personality, !Outputs().noBackup);
  } catch (const CException& e) {
    throw OutputError(e.what());
  }
}

void WriteText(const std::string& path, const std::string& text) {
  if (path.empty() || path == kStandardStreamName) {
    std::FILE* out = Streams().personalityToOutput ? stderr : stdout;
    if (std::fwrite(text.data(), 1, text.size(), out) != text.size() || std::fflush(out)) {
      throw OutputError(std::string("cannot write ") +
                        (out == stdout ? "standard output: " : "standard error: ") +
                        std::strerror(errno));
    }
    return;
  }
  try {
    AtomicWriteOptions options;
    options.keepBackup = Outputs().textBackup;
    AtomicFileWriter file(path, options);
    file.Write(reinterpret_cast<const BYTE*>(text.data()), text.size());
    file.Commit();
  } catch (const CException& e) {
    throw OutputError(e.what());
  }
}

std::string JoinLines(const CStringArray& lines) {
  std::string text;
  for (const CString& line : lines) {
    text += line.str();
    text += '\n';
  }
  return text;
}

namespace {

// Levenshtein distance, letter case aside; two rows of the table.
std::size_t EditDistance(const std::string& a, const std::string& b) {
  std::vector<std::size_t> row(b.size() + 1), next(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    next[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const bool same = std::toupper(static_cast<unsigned char>(a[i - 1])) ==
                        std::toupper(static_cast<unsigned char>(b[j - 1]));
      next[j] = std::min({row[j] + 1, next[j - 1] + 1, row[j - 1] + (same ? 0 : 1)});
    }
    row.swap(next);
  }
  return row[b.size()];
}

}  // namespace

std::string NearestNames(const std::string& wanted, const std::vector<std::string>& candidates) {
  std::vector<std::pair<std::size_t, std::string>> ranked;
  ranked.reserve(candidates.size());
  for (const std::string& c : candidates) ranked.emplace_back(EditDistance(wanted, c), c);
  const std::size_t n = std::min<std::size_t>(3, ranked.size());
  std::partial_sort(ranked.begin(), ranked.begin() + static_cast<std::ptrdiff_t>(n), ranked.end());
  std::string text;
  for (std::size_t i = 0; i < n; ++i) text += (i ? ", " : "; the nearest: ") + ranked[i].second;
  return text;
}

}  // namespace persona::cli
