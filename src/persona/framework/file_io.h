// Whole-file reads and crash-safe writes. A file is read in one piece into memory; a file is
// written (in one piece, or block by block as it is produced) to a temporary file in the same
// folder, flushed to disk and renamed over the target, so a write that fails part-way leaves
// the file that was there untouched.
//
// Names as people give them: "-" is standard input (reads) or standard output (writes); a
// symbolic link is followed and its target read or replaced (the link stays a link); a
// folder, socket or block device is refused with what it is; a FIFO or character device is
// refused as an input and written directly (never replaced) as an output.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <persona/framework/file.h>
#include <persona/framework/types.h>

namespace persona {

// The largest file ReadWholeFile reads (1 GiB); a larger one is refused before anything is
// allocated for it.
constexpr std::size_t kMaxFileSize = std::size_t{1} << 30;

// The file name that stands for standard input (reads) and standard output (writes).
constexpr const char* kStandardStreamName = "-";

// Returns the name to show for path in messages: "standard input"/"standard output" for "-",
// path itself otherwise.
PERSONA_EXPORT std::string FileDisplayName(const std::string& path, bool writing);

// Returns every byte of the file at path (standard input, read to its end, for "-"). A
// regular file is read by its real size. Throws CFileException naming path when it cannot be
// opened or read, when it is not a regular file (a folder, FIFO, device or socket: the
// message says which), or when it holds more than kMaxFileSize bytes.
PERSONA_EXPORT std::vector<BYTE> ReadWholeFile(const std::string& path);

// Options of WriteFileAtomically and AtomicFileWriter.
struct PERSONA_EXPORT AtomicWriteOptions {
  // Keep the regular file being replaced as "<target>.bak" (replacing an older backup
  // atomically, so that two writers at once both succeed).
  bool keepBackup = false;
  // Opens the (already created) temporary file for writing; the default opens a CFile. Tests
  // pass a file that fails on purpose.
  std::function<std::unique_ptr<CFile>(const std::string& tempPath)> openTemp;
};

// Writes bytes to path. A regular file (or a new one) is replaced atomically: a temporary file
// with a short unique name is made in the target's folder with exclusive creation, given the
// mode (and, where the process may, the owner) of the file it replaces, written, flushed to
// disk and renamed over the target (then the folder is flushed). A symbolic link is followed
// and its target replaced. "-" writes standard output; a character device or a FIFO with a
// reader is written directly. A file size limit makes the write fail instead of ending the
// process. Throws CFileException naming path (never the temporary file) when any step fails;
// the temporary file is then removed and the file that was there is unchanged.
// A file written block by block with the guarantees of WriteFileAtomically (which writes
// through it): the constructor resolves path and makes the temporary file, Write appends to
// it, Commit puts it in place. Destroyed without a successful Commit, the writer removes the
// temporary file and the file at path is unchanged. Standard output, a character device and a
// FIFO are written directly as the blocks come (nothing there can be taken back). Used from
// the thread that made it (it holds SIGXFSZ back in that thread while it lives).
class PERSONA_EXPORT AtomicFileWriter {
 public:
  // Prepares the write to path. Throws CFileException naming path when path cannot be written
  // (a folder, a missing folder, no permission, a FIFO that nothing reads, ...).
  explicit AtomicFileWriter(const std::string& path,
                            const AtomicWriteOptions& options = AtomicWriteOptions());
  AtomicFileWriter(const AtomicFileWriter&) = delete;
  AtomicFileWriter& operator=(const AtomicFileWriter&) = delete;
  AtomicFileWriter(AtomicFileWriter&&) noexcept;
  AtomicFileWriter& operator=(AtomicFileWriter&&) noexcept;
  ~AtomicFileWriter();

  // Appends size bytes at data (copied before it returns). Throws CFileException naming path
  // when the write fails (the disk is full, the file size limit is reached, ...), or after a
  // Commit; the writer then only discards.
  void Write(const BYTE* data, std::size_t size);
  // Flushes what was written to disk and renames the temporary file over the target (keeping
  // the replaced file as "<target>.bak" when asked). Throws CFileException naming path when a
  // step fails; the temporary file is then removed at destruction and the target unchanged. A
  // second Commit does nothing.
  void Commit();

 private:
  struct State;
  std::unique_ptr<State> m_state;
};

PERSONA_EXPORT void WriteFileAtomically(const std::string& path, const std::vector<BYTE>& bytes,
                                        const AtomicWriteOptions& options = AtomicWriteOptions());

}  // namespace persona
