// The shared steps of the persona commands: loading inputs, writing outputs atomically.
#include "command.h"

#include <cstdio>
#include <filesystem>

#include "framework/exceptions.h"
#include "framework/file_io.h"
#include "io/json/json_reader.h"

namespace persona::cli {

CLI::App* Context::Group(const std::string& name, const std::string& description) {
  for (CLI::App* sub : m_app.get_subcommands({})) {
    if (sub->get_name() == name) return sub;
  }
  CLI::App* group = m_app.add_subcommand(name, description);
  group->require_subcommand(1);
  return group;
}

LoadedPersonality LoadInput(const std::string& path) {
  try {
    LoadedPersonality loaded = LoadPersonalityFile(path);
    if (loaded.trailingBytes != 0) {
      std::fprintf(stderr, "persona: warning: %s: %zu bytes after the personality were not read\n",
                   path.c_str(), loaded.trailingBytes);
    }
    return loaded;
  } catch (const CException& e) {
    throw InputError(e.what());
  }
}

std::unique_ptr<CPersonality> LoadJsonInput(const std::string& path) {
  try {
    return ReadPersonalityJsonFile(path);
  } catch (const Json::exception& e) {
    throw InputError(path + ": not JSON: " + e.what());
  } catch (const CException& e) {
    throw InputError(e.what());
  }
}

namespace {

bool Exists(const std::string& path) {
  std::error_code ec;
  return std::filesystem::exists(path, ec);
}

}  // namespace

void SaveOutput(const std::string& path, const CPersonality& personality) {
  try {
    SavePersonalityFile(path, personality, Exists(path));
  } catch (const CException& e) {
    throw OutputError(e.what());
  }
}

void WriteText(const std::string& path, const std::string& text) {
  if (path.empty() || path == "-") {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout)) {
      throw OutputError("standard output: write failed");
    }
    return;
  }
  try {
    AtomicWriteOptions options;
    options.keepBackup = Exists(path);
    WriteFileAtomically(path, std::vector<BYTE>(text.begin(), text.end()), options);
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

}  // namespace persona::cli
