// Whole-file reads and crash-safe writes. A file is read in one piece into memory; a file is
// written to a temporary file in the same folder, flushed to disk and renamed over the
// target, so a write that fails part-way leaves the file that was there untouched.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "framework/file.h"
#include "framework/types.h"

namespace persona {

// Returns every byte of the file at path. Throws CFileException (cause, path, system error)
// when it cannot be opened or read.
std::vector<BYTE> ReadWholeFile(const std::string& path);

// Options of WriteFileAtomically.
struct AtomicWriteOptions {
  // Keep the file being replaced as "<path>.bak" (replacing an older backup).
  bool keepBackup = false;
  // Opens the temporary file for writing; the default opens a CFile. Tests pass a file that
  // fails on purpose.
  std::function<std::unique_ptr<CFile>(const std::string& tempPath)> openTemp;
};

// A file written atomically in pieces: the pieces go to a temporary file in the same folder,
// and Commit() flushes it to disk, closes it and renames it over path (keeping a backup if
// asked). Until Commit() returns, the file at path is unchanged; a writer destroyed without a
// successful Commit() (an exception on the way) removes its temporary file.
class CAtomicFileWriter {
 public:
  // Opens the temporary file. Throws CFileException when it cannot be created.
  explicit CAtomicFileWriter(const std::string& path,
                             const AtomicWriteOptions& options = AtomicWriteOptions());
  ~CAtomicFileWriter();
  CAtomicFileWriter(const CAtomicFileWriter&) = delete;
  CAtomicFileWriter& operator=(const CAtomicFileWriter&) = delete;

  // Appends size bytes. Throws CFileException when the write fails.
  void Write(const void* data, std::size_t size);
  // Puts the written bytes in place of path. Throws CFileException when any step fails; the
  // temporary file is then removed and the file at path is unchanged.
  void Commit();

 private:
  std::string m_path;
  std::string m_temp;
  bool m_keepBackup;
  std::unique_ptr<CFile> m_file;
  bool m_committed = false;
};

// Writes bytes to path atomically: a temporary file in the same folder is written, flushed to
// disk, closed and renamed over path (the folder is flushed too). Throws CFileException when
// any step fails; the temporary file is then removed and the file at path is unchanged.
void WriteFileAtomically(const std::string& path, const std::vector<BYTE>& bytes,
                         const AtomicWriteOptions& options = AtomicWriteOptions());

}  // namespace persona
