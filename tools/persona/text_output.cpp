// Buffered text output to standard output, or to a file written atomically at the end.
#include "text_output.h"

#include <cstdio>

#include "command.h"

namespace persona::cli {

TextOutput::TextOutput(const std::string& path) : m_path(path) {
  m_toFile = !(path.empty() || path == "-");
  if (!m_toFile) m_buffer.reserve(kBufferSize + 4096);
}

void TextOutput::Write(std::string_view text) {
  m_buffer.append(text);
  if (m_buffer.size() >= kBufferSize) Drain();
}

void TextOutput::Drain() {
  if (m_toFile || m_buffer.empty()) return;
  if (std::fwrite(m_buffer.data(), 1, m_buffer.size(), stdout) != m_buffer.size()) {
    throw OutputError("standard output: write failed");
  }
  m_buffer.clear();
}

void TextOutput::Commit() {
  if (m_toFile) {
    WriteText(m_path, m_buffer);
    return;
  }
  Drain();
  if (std::fflush(stdout) != 0) throw OutputError("standard output: write failed");
}

}  // namespace persona::cli
