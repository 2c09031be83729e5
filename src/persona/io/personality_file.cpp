// Whole-file load and atomic save of personalities.
#include <persona/io/personality_file.h>

#include <persona/core/set.h>
#include <persona/framework/archive.h>
#include <persona/framework/file_io.h>

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
  out.personality->NoteArchiveSize(size - ar.GetRemaining());
  out.fileSize = size;
  out.trailingBytes = ar.GetRemaining();
  return out;
}

LoadedPersonality LoadPersonalityFile(const std::string& path) {
  const std::vector<BYTE> bytes = ReadWholeFile(path);
  return LoadPersonalityBytes(bytes.data(), bytes.size(), FileDisplayName(path, false));
}

FileKind SniffFileKind(const BYTE* data, std::size_t size) {
  std::size_t i = 0;
  if (size >= 3 && data[0] == 0xEF && data[1] == 0xBB && data[2] == 0xBF) i = 3;
  while (i < size && (data[i] == ' ' || data[i] == '\t' || data[i] == '\r' || data[i] == '\n')) {
    ++i;
  }
  if (i < size && (data[i] == '{' || data[i] == '[')) return FileKind::Json;
  // An archive starts with a new-class tag: FFFF, schema, name length, name.
  if (size < 6 || data[0] != 0xFF || data[1] != 0xFF) return FileKind::Unknown;
  const std::size_t length = data[4] | (data[5] << 8);
  if (length == 0 || length > 64 || size < 6 + length) return FileKind::Unknown;
  const std::string name(reinterpret_cast<const char*>(data + 6), length);
  const CRuntimeClass* cls = CRuntimeClass::FromName(name.c_str());
  if (cls == nullptr) return FileKind::Unknown;
  if (cls == RUNTIME_CLASS(CPersonality)) return FileKind::Personality;
  return cls->IsDerivedFrom(RUNTIME_CLASS(CSet)) ? FileKind::SetFile : FileKind::Unknown;
}

const char* FileKindName(FileKind kind) {
  switch (kind) {
    case FileKind::Personality:
      return "a personality file";
    case FileKind::SetFile:
      return "a global set file";
    case FileKind::Json:
      return "a JSON document";
    case FileKind::Unknown:
      break;
  }
  return "a file of unknown kind";
}

std::vector<BYTE> StorePersonalityBytes(const CPersonality& personality) {
  CArchive ar(nullptr, CArchive::store);
  // The size it had last time, and a little more for what was added since.
  const std::size_t expected = personality.GetArchiveSizeHint();
  if (expected > 0) ar.ReserveOutput(expected + expected / 16 + 64);
  ar.WriteOwnedObject(&personality);
  std::vector<BYTE> bytes = ar.TakeStoredBytes();
  personality.NoteArchiveSize(bytes.size());
  return bytes;
}

void SavePersonalityFile(const std::string& path, const CPersonality& personality,
                         bool keepBackup) {
  AtomicWriteOptions options;
  options.keepBackup = keepBackup;
  WriteFileAtomically(path, StorePersonalityBytes(personality), options);
}

}  // namespace persona
