// Text output of the commands that write documents (the report, the JSON export): written as
// it is produced, through a buffer, either to standard output or atomically to a file, so that
// no command holds its whole output in memory.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

#include "framework/file_io.h"

namespace persona::cli {

class TextOutput {
 public:
  // Output to path, or to standard output when path is empty or "-". A file is written to a
  // temporary file and put in place by Commit(); an existing file is kept as path.bak. Throws
  // OutputError when the temporary file cannot be created.
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

  std::string m_buffer;
  std::string m_path;
  std::unique_ptr<CAtomicFileWriter> m_file;  // null: standard output
};

}  // namespace persona::cli
