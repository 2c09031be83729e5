// Whole-file reads and atomic writes over POSIX rename.
#include "framework/file_io.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <random>

#include "framework/exceptions.h"

namespace persona {

namespace {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string TempPathFor(const std::string& path) {
  static std::mt19937_64 rng(std::random_device{}());
  char suffix[24];
  std::snprintf(suffix, sizeof suffix, ".%016llx.tmp", static_cast<unsigned long long>(rng()));
  return path + suffix;
}

// Flushes the folder entry of a rename to disk; a folder that cannot be opened is left to the
// operating system (the data itself is already on disk).
void SyncFolder(const std::string& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

}  // namespace

std::vector<BYTE> ReadWholeFile(const std::string& path) {
  CFile file(path, CFile::modeRead);
  const ULONGLONG length = file.GetLength();
  std::vector<BYTE> bytes(static_cast<std::size_t>(length));
  std::size_t got = 0;
  while (got < bytes.size()) {
    const UINT chunk = static_cast<UINT>(std::min<std::size_t>(bytes.size() - got, 1u << 30));
    const UINT n = file.Read(bytes.data() + got, chunk);
    if (n == 0) break;
    got += n;
  }
  bytes.resize(got);
  file.Close();
  return bytes;
}

CAtomicFileWriter::CAtomicFileWriter(const std::string& path, const AtomicWriteOptions& options)
    : m_path(path), m_temp(TempPathFor(path)), m_keepBackup(options.keepBackup) {
  try {
    if (options.openTemp) {
      m_file = options.openTemp(m_temp);
    } else {
      m_file = std::make_unique<CFile>(m_temp, CFile::modeCreate | CFile::modeWrite);
    }
  } catch (...) {
    std::remove(m_temp.c_str());
    throw;
  }
}

CAtomicFileWriter::~CAtomicFileWriter() {
  if (m_committed) return;
  if (m_file) m_file->Abort();
  std::remove(m_temp.c_str());
}

void CAtomicFileWriter::Write(const void* data, std::size_t size) {
  const BYTE* bytes = static_cast<const BYTE*>(data);
  while (size > 0) {
    const UINT chunk = static_cast<UINT>(std::min<std::size_t>(size, 1u << 20));
    m_file->Write(bytes, chunk);
    bytes += chunk;
    size -= chunk;
  }
}

void CAtomicFileWriter::Commit() {
  m_file->Flush();
  m_file->Close();
  if (m_keepBackup && ::access(m_path.c_str(), F_OK) == 0) {
    const std::string backup = m_path + ".bak";
    ::unlink(backup.c_str());
    if (::link(m_path.c_str(), backup.c_str()) != 0) {
      throw CFileException::FromErrno(backup, errno, "keep a backup as");
    }
  }
  if (std::rename(m_temp.c_str(), m_path.c_str()) != 0) {
    throw CFileException::FromErrno(m_path, errno, "replace");
  }
  m_committed = true;
  SyncFolder(FolderOf(m_path));
}

void WriteFileAtomically(const std::string& path, const std::vector<BYTE>& bytes,
                         const AtomicWriteOptions& options) {
  CAtomicFileWriter writer(path, options);
  writer.Write(bytes.data(), bytes.size());
  writer.Commit();
}

}  // namespace persona
