// Whole-file load and atomic save of personalities.
#include "io/personality_file.h"

#include "framework/archive.h"
#include "framework/file_io.h"

namespace persona {

LoadedPersonality LoadPersonalityBytes(const BYTE* data, std::size_t size,
                                       const std::string& name) {
  CArchive ar(data, size, name);
  std::unique_ptr<CObject> root = ar.ReadOwnedObject(RUNTIME_CLASS(CPersonality));
  if (!root) {
    ar.ThrowFailure(CArchiveException::badClass, "the file holds no personality (a null record)");
  }
  LoadedPersonality out;
  out.personality.reset(static_cast<CPersonality*>(root.release()));
  out.personality->AdoptSharedRecords(ar.TakeSharedObjects());
  out.fileSize = size;
  out.trailingBytes = ar.GetRemaining();
  return out;
}

LoadedPersonality LoadPersonalityFile(const std::string& path) {
  const std::vector<BYTE> bytes = ReadWholeFile(path);
  return LoadPersonalityBytes(bytes.data(), bytes.size(), path);
}

std::vector<BYTE> StorePersonalityBytes(const CPersonality& personality) {
  CArchive ar(nullptr, CArchive::store);
  ar.WriteOwnedObject(&personality);
  return ar.TakeStoredBytes();
}

void SavePersonalityFile(const std::string& path, const CPersonality& personality,
                         bool keepBackup) {
  AtomicWriteOptions options;
  options.keepBackup = keepBackup;
  WriteFileAtomically(path, StorePersonalityBytes(personality), options);
}

}  // namespace persona
