// Text output of the commands that write documents (the report, the JSON export): the text is
// written as it is produced, through a buffer, to standard output or to a file written
// atomically (a temporary file put in place at Commit(), with WriteText's backup rules), so
// that no document is ever held whole in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include <persona/framework/file_io.h>

namespace persona::cli {

class TextOutput {
 public:
  // Output to path, or to standard output when path is empty or "-". Throws OutputError when
  // path cannot be written (a missing folder, a folder, no permission, ...).
  explicit TextOutput(const std::string& path);
  TextOutput(const TextOutput&) = delete;
  TextOutput& operator=(const TextOutput&) = delete;

  // Appends text. Throws OutputError when a write fails.
  void Write(std::string_view text);
  void Write(char c) {
    m_buffer.push_back(c);
    if (m_buffer.size() >= kBufferSize) Drain();
  }
  // Writes what is left and puts the file in place. Throws OutputError on failure; the file
  // that was at path is then unchanged. Without Commit() a file output is discarded.
  void Commit();

 private:
  static constexpr std::size_t kBufferSize = 1 << 16;
  void Drain();
  void Emit(std::string_view text);  // writes text out, past the buffer

  std::string m_buffer;
  std::unique_ptr<AtomicFileWriter> m_file;  // null for standard output
};

}  // namespace persona::cli
