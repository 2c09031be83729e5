// Personality files as whole files: a load reads the file in one piece and builds the
// personality from memory; a save stores it to memory and writes the file atomically (a failed
// save leaves the file that was there byte for byte, optionally keeping it as FILE.bak).
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "core/personality.h"
#include "framework/types.h"

namespace persona {

// A personality read from bytes, with what the file said about itself.
struct LoadedPersonality {
  std::unique_ptr<CPersonality> personality;
  std::size_t fileSize = 0;
  // Bytes after the personality that nothing read (a damaged or tampered file).
  std::size_t trailingBytes = 0;
};

// Builds the personality stored in bytes; name is the file name used in failure messages.
// A damaged file raises CArchiveException (cause, name, byte offset); whatever was read before
// the fault is released, nothing leaks.
LoadedPersonality LoadPersonalityBytes(const BYTE* data, std::size_t size, const std::string& name);
// Reads the file at path in one piece and loads it. Throws CFileException when the file cannot
// be read and CArchiveException when it is damaged.
LoadedPersonality LoadPersonalityFile(const std::string& path);

// The bytes of the personality file of personality.
std::vector<BYTE> StorePersonalityBytes(const CPersonality& personality);
// Writes the personality file atomically; with keepBackup the file being replaced is kept as
// "<path>.bak". Throws CFileException; on failure the file at path is unchanged.
void SavePersonalityFile(const std::string& path, const CPersonality& personality,
                         bool keepBackup = false);

}  // namespace persona
