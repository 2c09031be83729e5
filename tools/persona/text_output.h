// Text output of the commands that write documents (the report, the JSON export): standard
// output is written as the text is produced, through a buffer; a file gets the text at
// Commit(), written atomically by WriteText (its backup and replacement rules).
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace persona::cli {

class TextOutput {
 public:
  // Output to path, or to standard output when path is empty or "-". Throws nothing.
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
  bool m_toFile = false;
};

}  // namespace persona::cli
