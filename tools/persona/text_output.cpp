// Buffered text output to standard output, or to a file written atomically block by block.
#include "text_output.h"

#include <cstdio>

#include <persona/framework/exceptions.h>
#include "command.h"

namespace persona::cli {

TextOutput::TextOutput(const std::string& path) {
  m_buffer.reserve(kBufferSize + 4096);
  if (path.empty() || path == kStandardStreamName) return;
  AtomicWriteOptions options;
  options.keepBackup = Outputs().textBackup;
  try {
    m_file = std::make_unique<AtomicFileWriter>(path, options);
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
  if (m_file) {
    try {
      m_file->Write(reinterpret_cast<const BYTE*>(m_buffer.data()), m_buffer.size());
    } catch (const CException& e) {
      throw OutputError(e.what());
    }
  } else if (std::fwrite(m_buffer.data(), 1, m_buffer.size(), stdout) != m_buffer.size()) {
    throw OutputError("standard output: write failed");
  }
  m_buffer.clear();
}

void TextOutput::Commit() {
  Drain();
  if (m_file) {
    try {
      m_file->Commit();
    } catch (const CException& e) {
      throw OutputError(e.what());
    }
  } else if (std::fflush(stdout) != 0) {
    throw OutputError("standard output: write failed");
  }
}

}  // namespace persona::cli
