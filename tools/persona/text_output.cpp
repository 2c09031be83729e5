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
  if (m_buffer.empty() && text.size() >= kBufferSize) {
    Emit(text);  // a whole block: no copy through the buffer
    return;
  }
  m_buffer.append(text);
  if (m_buffer.size() >= kBufferSize) Drain();
}

void TextOutput::Drain() {
  if (m_buffer.empty()) return;
  Emit(m_buffer);
  m_buffer.clear();
}

void TextOutput::Emit(std::string_view text) {
  if (m_file) {
    try {
      m_file->Write(reinterpret_cast<const BYTE*>(text.data()), text.size());
    } catch (const CException& e) {
      throw OutputError(e.what());
    }
  } else if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
    throw OutputError("standard output: write failed");
  }
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
