// Running a command over several files (see file_batch.h).
#include "file_batch.h"

#include <algorithm>
#include <cstdio>

#include <persona/integrity/record_path.h>
#include <persona/io/field_text.h>

namespace persona::cli {

namespace {

// The message of a failure of file, naming the file once: the messages of reading and writing
// name it already; the others are prefixed with it unless they begin with it.
void PrintFailure(const std::string& file, const char* what, bool namesFile = false) {
  const std::string text = what;
  const bool named = namesFile || text.compare(0, file.size(), file) == 0;
  std::fprintf(stderr, "persona: error: %s%s\n", named ? "" : (file + ": ").c_str(), what);
}

}  // namespace

FileBatch::FileBatch(std::vector<std::string> files) : m_files(std::move(files)) {
  if (m_files.empty()) throw UsageError("no input file given");
}

std::string FileBatch::Prefix(const std::string& file) const {
  return m_files.size() > 1 ? file + ": " : std::string();
}

std::string FileBatch::Lines(const std::string& file, const std::string& text) const {
  const std::string prefix = Prefix(file);
  if (prefix.empty()) return text;
  std::string out;
  out.reserve(text.size() + prefix.size() * 8);
  std::size_t start = 0;
  while (start < text.size()) {
    std::size_t end = text.find('\n', start);
    end = end == std::string::npos ? text.size() : end + 1;
    out.append(prefix).append(text, start, end - start);
    start = end;
  }
  return out;
}

Json FileBatch::Record(const std::string& file, const Json& fields) {
  Json record = {{"file", file}};
  for (const auto& item : fields.items()) record[item.key()] = item.value();
  return record;
}

void FileBatch::CheckOutputChoice(const std::string& output, bool inPlace, bool dryRun) const {
  if (!output.empty() && m_files.size() != 1) {
    throw UsageError("-o takes one input file; use --in-place for several");
  }
  if (dryRun) {
    if (inPlace) throw UsageError("give --dry-run or --in-place, not both");
    return;
  }
  if (inPlace && !output.empty()) throw UsageError("give -o OUT or --in-place, not both");
  if (!inPlace && output.empty()) throw UsageError("give -o OUT, --in-place or --dry-run");
}

std::string FileBatch::OutputOf(const std::string& file, const std::string& output, bool inPlace,
                                bool dryRun) const {
  CheckOutputChoice(output, inPlace, dryRun);
  if (dryRun) return std::string();
  return inPlace ? file : output;
}

int FileBatch::Run(const std::function<int(const std::string& file)>& each) const {
  int worst = kExitOk;
  for (const std::string& file : m_files) {
    int code = kExitOk;
    try {
      code = each(file);
    } catch (const InputError& e) {
      PrintFailure(file, e.what(), true);
      code = kExitUnreadable;
    } catch (const OutputError& e) {
      PrintFailure(file, e.what(), true);
      code = kExitUnwritable;
    } catch (const NotHeldError& e) {
      PrintFailure(file, e.what());
      code = kExitNotHeld;
    } catch (const UsageError& e) {
      PrintFailure(file, e.what());
      code = kExitUsage;
    } catch (const PathError& e) {
      PrintFailure(file, e.what());
      code = kExitUsage;
    } catch (const FieldTextError& e) {
      PrintFailure(file, e.what());
      code = kExitUsage;
    } catch (const std::bad_alloc&) {
      throw;
    } catch (const std::exception& e) {
      PrintFailure(file, e.what());
      code = kExitUnreadable;
    }
    worst = std::max(worst, code);
  }
  return worst;
}

}  // namespace persona::cli
