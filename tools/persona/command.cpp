// The shared steps of the persona commands: loading inputs, writing outputs atomically.
#include "command.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>

#include "framework/exceptions.h"
#include "framework/file_io.h"
#include "io/json/personality_json.h"

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
    const std::vector<BYTE> bytes = ReadWholeFile(path);
    const Json doc = Json::parse(bytes.begin(), bytes.end());
    return ImportPersonalityJson(doc, path);
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
