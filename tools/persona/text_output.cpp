// Buffered text output to standard output, or to a file written atomically block by block on a
// thread of its own.
#include "text_output.h"

#include <cstdio>

#include <persona/framework/exceptions.h>
#include "command.h"

namespace persona::cli {

TextOutput::TextOutput(const std::string& path, Writing writing) {
  m_buffer.reserve(kBufferSize + 4096);
  if (path.empty() || path == kStandardStreamName) return;
  AtomicWriteOptions options;
  options.keepBackup = Outputs().textBackup;
  try {
    m_file = std::make_unique<AtomicFileWriter>(path, options);
  } catch (const CException& e) {
    throw OutputError(e.what());
  }
  // Made after the file, the thread keeps the signal mask the file's writer set up (a file
  // size limit is a failure to report, not the end of the process).
  if (writing == Writing::OwnThread) m_writer = std::thread([this] { WriteBlocks(); });
}

TextOutput::~TextOutput() { StopWriting(); }

void TextOutput::Write(std::string_view text) {
  if (!m_writer.joinable() && m_buffer.empty() && text.size() >= kDirectSize) {
    Emit(text);  // a whole block: no copy through the buffer
    return;
  }
  m_buffer.append(text);
  if (m_buffer.size() >= kBufferSize) Drain();
}

void TextOutput::Drain() {
  if (m_buffer.empty()) return;
  if (!m_writer.joinable()) {
    Emit(m_buffer);
    m_buffer.clear();
    return;
  }
  std::unique_lock<std::mutex> lock(m_lock);
  m_changed.wait(lock, [this] { return !m_hasBlock || m_failure; });
  if (m_failure) std::rethrow_exception(m_failure);
  m_handed.swap(m_buffer);
  m_buffer.swap(m_spare);
  m_hasBlock = true;
  lock.unlock();
  m_changed.notify_all();
}

void TextOutput::WriteBlocks() {
  std::unique_lock<std::mutex> lock(m_lock);
  for (;;) {
    m_changed.wait(lock, [this] { return m_hasBlock || m_ending; });
    if (!m_hasBlock) return;
    std::string block;
    block.swap(m_handed);
    lock.unlock();
    std::exception_ptr failure;
    try {
      Emit(block);
    } catch (...) {
      failure = std::current_exception();
    }
    block.clear();
    lock.lock();
    if (m_spare.capacity() < block.capacity()) m_spare.swap(block);
    m_hasBlock = false;
    if (failure) m_failure = failure;
    m_changed.notify_all();
    if (m_failure) return;
  }
}

void TextOutput::StopWriting() {
  if (!m_writer.joinable()) return;
  {
    std::lock_guard<std::mutex> lock(m_lock);
    m_ending = true;
  }
  m_changed.notify_all();
  m_writer.join();
}

void TextOutput::Emit(std::string_view text) {
  if (m_file) {
    try {
      m_file->Write(reinterpret_cast<const BYTE*>(text.data()), text.size());
    } catch (const CException& e) {
      throw OutputError(e.what());
    }
    return;
  }
  if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) {
    throw OutputError("standard output: write failed");
  }
}

void TextOutput::Commit() {
  Drain();
  if (m_file) {
    StopWriting();
    if (m_failure) std::rethrow_exception(m_failure);
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
