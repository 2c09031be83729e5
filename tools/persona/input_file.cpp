// Opening a personality or a global set file (see input_file.h).
#include "input_file.h"

#include <cctype>
#include <cstdio>
#include <filesystem>

#include <persona/framework/exceptions.h>
#include <persona/report/personality_ops.h>
#include <persona/report/record_lines.h>

namespace persona::cli {

namespace {

bool SameLetters(const std::string& a, const std::string& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(a[i])) !=
        std::toupper(static_cast<unsigned char>(b[i]))) {
      return false;
    }
  }
  return true;
}

}  // namespace

const GlobalSetKind* SetKindOfPath(const std::string& path) {
  const std::string ext = std::filesystem::path(path).extension().string();
  std::size_t count = 0;
  const GlobalSetKind* kinds = GlobalSetKinds(&count);
  for (std::size_t i = 0; i < count; ++i) {
    if (SameLetters(ext, kinds[i].extension)) return &kinds[i];
  }
  return nullptr;
}

std::string SetWords(SetType type) {
  const char* key = SetKindKey(type);
  return std::string(key ? key : "unknown") + " set";
}

std::unique_ptr<CSet> ReadGlobalSetFile(const std::string& path, const GlobalSetKind& kind) {
  std::unique_ptr<CSet> set;
  try {
    if (ReadSetFile(CString(path), kind.className, static_cast<BYTE>(kind.type), &set)) return set;
  } catch (const CException& e) {
    throw InputError(e.what());
  }
  if (set == nullptr && !std::filesystem::is_regular_file(path)) {
    throw InputError(path + ": cannot be opened");
  }
  if (set == nullptr) {
    throw InputError(path + ": does not hold a " + kind.className + " (the class of a " +
                     SetWords(static_cast<SetType>(kind.type)) + " file, " + kind.extension + ")");
  }
  std::fprintf(stderr, "persona: warning: %s: the set type byte is %d, not %d\n", path.c_str(),
               static_cast<int>(set->GetSetType()), kind.type);
  return set;
}

OpenedFile OpenPersonalityOrSet(const std::string& path) {
  OpenedFile opened;
  opened.setKind = SetKindOfPath(path);
  if (opened.setKind == nullptr) {
    opened.loaded = LoadInput(path);
    return opened;
  }
  std::unique_ptr<CSet> set = ReadGlobalSetFile(path, *opened.setKind);
  std::error_code ec;
  opened.loaded.fileSize = static_cast<std::size_t>(std::filesystem::file_size(path, ec));
  opened.loaded.personality = std::make_unique<CPersonality>(set->GetName());
  opened.set = set.get();
  opened.loaded.personality->AddSet(set.release(), static_cast<SetType>(opened.setKind->type));
  return opened;
}

std::string SystemWords(int systemType) {
  return SystemKindLabel(static_cast<unsigned>(systemType)) + " system";
}

SetType KindArg(const std::string& text) {
  SetType type;
  if (ParseSetKind(text, &type)) return type;
  std::string kinds;
  for (int t = 0; t < kNumSetTypes; ++t)
    kinds += std::string(t ? ", " : "") + SetKindKey(SetType(t));
  throw UsageError("unknown set kind " + text + "; the kinds: " + kinds + " (or 0 to 10)");
}

CSet* NamedSet(CPersonality& p, SetType type, const std::string& name, const std::string& file) {
  if (CSet* set = p.GetSet(CString(name), type)) return set;
  std::vector<std::string> names;
  for (int i = 0; i < p.GetNumSets(type); ++i)
    names.push_back(p.GetSetAt(i, type)->GetName().str());
  throw NotHeldError(
      file + " holds no " + SetWords(type) + " named " + name +
      (names.empty() ? " (it holds no " + SetWords(type) + " at all)" : NearestNames(name, names)));
}

std::string OutputPath(const std::string& file, const std::string& output, bool inPlace) {
  if (inPlace && !output.empty()) throw UsageError("give -o OUT or --in-place, not both");
  if (!inPlace && output.empty()) throw UsageError("give -o OUT or --in-place");
  return inPlace ? file : output;
}

}  // namespace persona::cli
