// Text output of the commands that write documents (the report, the JSON export): the text is
// written as it is produced, through a buffer, to standard output or to a file written
// atomically (a temporary file put in place at Commit(), with WriteText's backup rules), so
// that no document is ever held whole in memory. A file's blocks are written by a thread of
// their own while the next block is made, or by the caller's thread for a caller that makes
// its text on other threads.
#pragma once

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <exception>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

#include <persona/framework/file_io.h>
#include <persona/framework/ordered_text.h>

namespace persona::cli {

// How a long document (the report, the JSON export) is made while the caller's thread writes
// it: a worker thread per processor, up to four. The writing thread mostly waits on the
// system; past four the writing of the file is what waits, and every worker holds up to a
// part's text ahead.
inline OrderedTextOptions DocumentThreads() {
  OrderedTextOptions options;
  options.workers = std::clamp(std::thread::hardware_concurrency(), 1u, 4u);
  return options;
}

class TextOutput {
 public:
  enum class Writing { OwnThread, CallersThread };
  // Output to path, or to standard output when path is empty or "-". Throws OutputError when
  // path cannot be written (a missing folder, a folder, no permission, ...).
  explicit TextOutput(const std::string& path, Writing writing = Writing::OwnThread);
  TextOutput(const TextOutput&) = delete;
  TextOutput& operator=(const TextOutput&) = delete;
  // Without Commit(), waits for the block being written, then discards a file output.
  ~TextOutput();

  // Appends text. Throws OutputError when a write fails (for a file, the failure of an earlier
  // block may be the one reported).
  void Write(std::string_view text);
  void Write(char c) {
    m_buffer.push_back(c);
    if (m_buffer.size() >= kBufferSize) Drain();
  }
  // Writes what is left and puts the file in place. Throws OutputError on failure; the file
  // that was at path is then unchanged. Without Commit() a file output is discarded.
  void Commit();

 private:
  // A block handed to the file's thread: big enough that the hand-overs and the system's
  // writes cost little next to the copying of the text.
  static constexpr std::size_t kBufferSize = 1 << 20;
  // Text this long is written at once, without the buffer, when the buffer is empty and
  // this thread writes.
  static constexpr std::size_t kDirectSize = 1 << 16;
  void Drain();
  void Emit(std::string_view text);  // writes text out on this thread
  void WriteBlocks();                // the file's writing thread
  void StopWriting();                // ends that thread once the block it holds is written

  std::string m_buffer;
  std::unique_ptr<AtomicFileWriter> m_file;  // null for standard output
  // A file's blocks: the one handed to the writing thread (m_handed), the one that thread
  // gave back to be filled again, and what ended it.
  std::thread m_writer;
  std::mutex m_lock;
  std::condition_variable m_changed;
  std::string m_handed;
  std::string m_spare;
  bool m_hasBlock = false;
  bool m_ending = false;
  std::exception_ptr m_failure;
};

}  // namespace persona::cli
