// Buffered text output to standard output or to an atomically written file.
#include "text_output.h"

#include <cstdio>
#include <filesystem>

#include "command.h"
#include "framework/exceptions.h"

namespace persona::cli {

TextOutput::TextOutput(const std::string& path) {
  m_buffer.reserve(kBufferSize + 4096);
  if (path.empty() || path == "-") return;
  m_path = path;
  try {
    std::error_code ec;
    AtomicWriteOptions options;
    options.keepBackup = std::filesystem::exists(path, ec);
    m_file = std::make_unique<CAtomicFileWriter>(path, options);
  } catch (const CException& e) {
    throw OutputError(e.what());
  }
}

void TextOutput::Write(std::string_view text) {
  m_buffer.append(text);
  if (m_buffer.size() >= kBufferSize) Drain();
}

void TextOutput::Drain() {
  if (m_buffer.empty()) return;
  if (m_file == nullptr) {
    if (std::fwrite(m_buffer.data(), 1, m_buffer.size(), stdout) != m_buffer.size()) {
      throw OutputError("standard output: write failed");
    }
  } else {
    try {
      m_file->Write(m_buffer.data(), m_buffer.size());
    } catch (const CException& e) {
      throw OutputError(e.what());
    }
  }
  m_buffer.clear();
}

void TextOutput::Commit() {
  Drain();
  if (m_file == nullptr) {
    if (std::fflush(stdout) != 0) throw OutputError("standard output: write failed");
    return;
  }
  try {
    m_file->Commit();
  } catch (const CException& e) {
    throw OutputError(e.what());
  }
}

}  // namespace persona::cli
