// Personality files as whole files: a load reads the file in one piece and builds the
// personality from memory; a save stores it to memory and writes the file atomically (a failed
// save leaves the file that was there byte for byte, optionally keeping it as FILE.bak).
// A failed load never touches a personality the caller already has: it either returns a
// complete new one or raises.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <persona/framework/types.h>
#include <persona/personality/personality.h>

namespace persona {

// A personality read from bytes, with what the file said about itself.
struct PERSONA_EXPORT LoadedPersonality {
  std::unique_ptr<CPersonality> personality;
  std::size_t fileSize = 0;
  // Bytes after the personality that nothing read (a damaged or tampered file).
  std::size_t trailingBytes = 0;
};

// Builds the personality stored in bytes; name is the file name used in failure messages.
// Returns a new personality that the caller owns, with the file size and the number of
// trailing bytes after the personality (read by nothing; a checker reports them).
// A damaged file raises CArchiveException (cause, name, byte offset) and hands over nothing:
// every record read before the fault is released, nothing leaks or dangles, and the caller's
// own personality (if any) is unchanged. Counts and string lengths beyond the bytes left are
// refused before anything is allocated for them, records nested deeper than
// CArchive::kMaxObjectDepth are refused, and so is any record of a class its place does not
// expect (badClass).
PERSONA_EXPORT LoadedPersonality LoadPersonalityBytes(const BYTE* data, std::size_t size,
                                                      const std::string& name);
// Reads the file at path in one piece (standard input for "-") and loads it. Throws
// CFileException when the file cannot be read (a folder, a device, a FIFO, more than
// kMaxFileSize bytes: the message says which) and CArchiveException when it is damaged.
PERSONA_EXPORT LoadedPersonality LoadPersonalityFile(const std::string& path);

// What a file holds, as far as its first bytes tell.
enum class FileKind {
  Personality,  // an archive whose first record is a personality
  SetFile,      // an archive whose first record is a set (a global set file)
  Json,         // a JSON object or array (an exported personality, for one)
  Unknown,      // anything else: empty, damaged, or another program's file
};

// Returns the kind of the file whose bytes are data[0, size); reads only the first record's
// class name (or the first non-blank byte). Never throws.
PERSONA_EXPORT FileKind SniffFileKind(const BYTE* data, std::size_t size);
// Returns the kind in words for messages: "a personality file", "a global set file",
// "a JSON document", "a file of unknown kind".
PERSONA_EXPORT const char* FileKindName(FileKind kind);

// The bytes of the personality file of personality, made in a buffer sized from the
// personality's archive size hint, which it then notes. Throws std::bad_alloc.
PERSONA_EXPORT std::vector<BYTE> StorePersonalityBytes(const CPersonality& personality);
// Writes the personality file atomically as WriteFileAtomically does (a temporary file in the
// target's folder, flushed to disk and renamed over it; links followed, mode kept, "-" for
// standard output); with keepBackup the file being replaced is kept as "<file>.bak". Throws
// CFileException naming the file and the system's reason when any step fails (disk full, size
// limit, permissions); the file at path is then byte for byte what it was and no temporary file is
// left.
PERSONA_EXPORT void SavePersonalityFile(const std::string& path, const CPersonality& personality,
                                        bool keepBackup = false);

}  // namespace persona
