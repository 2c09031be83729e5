// CFile over stdio with POSIX fsync, and CMemFile.
#include <persona/framework/file.h>

#include <cerrno>
#include <cstring>

#include <persona/framework/exceptions.h>

#if defined(__unix__) || defined(__APPLE__)
#include <sys/stat.h>
#include <unistd.h>
#define PERSONA_HAVE_FSYNC 1
#endif

namespace persona {

CFile::CFile(const std::string& path, UINT openFlags) {
  CFileException error(CFileException::none, path, 0, "open");
  if (!Open(path, openFlags, &error)) throw error;
}

CFile::~CFile() { Abort(); }

bool CFile::Open(const std::string& path, UINT openFlags, CFileException* error) {
  Abort();
  m_path = path;
  const bool write = (openFlags & (modeWrite | modeReadWrite)) != 0;
  const bool create = (openFlags & modeCreate) != 0;
  const bool keep = (openFlags & modeNoTruncate) != 0;
  const char* mode = "rb";
  if (write) {
    if (create && !keep) {
      mode = (openFlags & modeReadWrite) ? "w+b" : "wb";
    } else {
      mode = "r+b";
    }
  }
  errno = 0;
  m_file = std::fopen(path.c_str(), mode);
  if (m_file == nullptr && write && create && keep && errno == ENOENT) {
    m_file = std::fopen(path.c_str(), "w+b");
  }
  if (m_file == nullptr) {
    if (error) *error = CFileException::FromErrno(path, errno, "open");
    return false;
  }
#ifdef PERSONA_HAVE_FSYNC
  // A folder opens for reading on some systems; it is no file to read or write.
  struct stat st;
  if (fstat(fileno(m_file), &st) == 0 && S_ISDIR(st.st_mode)) {
    Abort();
    if (error) *error = CFileException(CFileException::badPath, path, EISDIR, "open");
    return false;
  }
#endif
  return true;
}

UINT CFile::Read(void* buffer, UINT count) {
  if (m_file == nullptr) throw CFileException(CFileException::genericException, m_path, 0, "read");
  const std::size_t n = std::fread(buffer, 1, count, m_file);
  if (n < count && std::ferror(m_file)) throw CFileException::FromErrno(m_path, errno, "read");
  return static_cast<UINT>(n);
}

void CFile::Write(const void* buffer, UINT count) {
  if (m_file == nullptr) throw CFileException(CFileException::genericException, m_path, 0, "write");
  if (count == 0) return;
  if (std::fwrite(buffer, 1, count, m_file) != count) {
    throw CFileException::FromErrno(m_path, errno, "write");
  }
}

ULONGLONG CFile::Seek(LONGLONG offset, UINT from) {
  if (m_file == nullptr) throw CFileException(CFileException::genericException, m_path, 0, "seek");
  const int whence = from == begin ? SEEK_SET : (from == current ? SEEK_CUR : SEEK_END);
  if (fseeko(m_file, static_cast<off_t>(offset), whence) != 0) {
    throw CFileException::FromErrno(m_path, errno, "seek in");
  }
  return GetPosition();
}

ULONGLONG CFile::GetPosition() const {
  if (m_file == nullptr) return 0;
  const off_t p = ftello(m_file);
  return p < 0 ? 0 : static_cast<ULONGLONG>(p);
}

ULONGLONG CFile::GetLength() const {
  if (m_file == nullptr) return 0;
#ifdef PERSONA_HAVE_FSYNC
  struct stat st;
  if (std::fflush(m_file) == 0 && fstat(fileno(m_file), &st) == 0 && S_ISREG(st.st_mode)) {
    return static_cast<ULONGLONG>(st.st_size);
  }
#endif
  const off_t here = ftello(m_file);
  fseeko(m_file, 0, SEEK_END);
  const off_t size = ftello(m_file);
  fseeko(m_file, here, SEEK_SET);
  return size < 0 ? 0 : static_cast<ULONGLONG>(size);
}

void CFile::Flush() {
  if (m_file == nullptr) return;
  if (std::fflush(m_file) != 0) throw CFileException::FromErrno(m_path, errno, "flush");
#ifdef PERSONA_HAVE_FSYNC
  if (fsync(fileno(m_file)) != 0 && errno != EINVAL) {
    throw CFileException::FromErrno(m_path, errno, "flush to disk");
  }
#endif
}

void CFile::Close() {
  if (m_file == nullptr) return;
  std::FILE* f = m_file;
  m_file = nullptr;
  if (std::fclose(f) != 0) throw CFileException::FromErrno(m_path, errno, "close");
}

void CFile::Abort() {
  if (m_file == nullptr) return;
  std::fclose(m_file);
  m_file = nullptr;
}

std::string CFile::GetFileName() const {
  const std::size_t slash = m_path.find_last_of('/');
  return slash == std::string::npos ? m_path : m_path.substr(slash + 1);
}

void CMemFile::Attach(const BYTE* data, std::size_t size) {
  m_buffer.clear();
  m_borrowed = data;
  m_borrowedSize = size;
  m_pos = 0;
}

std::vector<BYTE> CMemFile::Detach() {
  std::vector<BYTE> out;
  if (m_borrowed) {
    out.assign(m_borrowed, m_borrowed + m_borrowedSize);
  } else {
    out.swap(m_buffer);
  }
  m_borrowed = nullptr;
  m_borrowedSize = 0;
  m_pos = 0;
  return out;
}

UINT CMemFile::Read(void* buffer, UINT count) {
  const std::size_t size = GetSize();
  if (m_pos >= size) return 0;
  const std::size_t n = std::min<std::size_t>(count, size - m_pos);
  std::memcpy(buffer, GetData() + m_pos, n);
  m_pos += n;
  return static_cast<UINT>(n);
}

void CMemFile::Write(const void* buffer, UINT count) {
  if (m_borrowed) {
    throw CFileException(CFileException::accessDenied, m_path, 0, "write to a read-only buffer");
  }
  if (count == 0) return;
  if (m_pos + count > m_buffer.size()) m_buffer.resize(m_pos + count);
  std::memcpy(m_buffer.data() + m_pos, buffer, count);
  m_pos += count;
}

ULONGLONG CMemFile::Seek(LONGLONG offset, UINT from) {
  const LONGLONG base = from == begin     ? 0
                        : from == current ? static_cast<LONGLONG>(m_pos)
                                          : static_cast<LONGLONG>(GetSize());
  const LONGLONG target = base + offset;
  if (target < 0) throw CFileException(CFileException::badPath, m_path, 0, "seek before start of");
  m_pos = static_cast<std::size_t>(target);
  return m_pos;
}

ULONGLONG CMemFile::GetLength() const { return GetSize(); }

}  // namespace persona
