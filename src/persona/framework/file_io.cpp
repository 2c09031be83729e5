// Whole-file reads and atomic writes over POSIX descriptors and rename.
#include <persona/framework/file_io.h>

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <ctime>
#include <random>

#include <persona/framework/exceptions.h>

namespace persona {

namespace {

constexpr std::size_t kChunk = std::size_t{1} << 20;

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// What a file that is not a regular file is, as a refusal says it.
std::string KindOf(mode_t mode) {
  if (S_ISDIR(mode)) return "it is a folder, not a file";
  if (S_ISFIFO(mode)) return "it is a FIFO (named pipe), not a file";
  if (S_ISCHR(mode)) return "it is a character device, not a file";
  if (S_ISBLK(mode)) return "it is a block device, not a file";
  if (S_ISSOCK(mode)) return "it is a socket, not a file";
  return "it is not a regular file";
}

CFileException Refused(const std::string& name, const char* action, const std::string& reason) {
  return CFileException(CFileException::badPath, name, 0, action, reason);
}

CFileException TooLarge(const std::string& name, unsigned long long size) {
  const std::string reason =
      size > kMaxFileSize ? "it is " + std::to_string(size) + " bytes, more than the limit of "
                          : "it holds more than the limit of ";
  return CFileException(CFileException::badPath, name, EFBIG, "read",
                        reason + std::to_string(kMaxFileSize) + " bytes (1 GiB)");
}

// A file descriptor, closed when it goes out of scope.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : m_fd(fd) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (m_fd >= 0) ::close(m_fd);
  }
  int Get() const { return m_fd; }
  // Gives the descriptor up to the caller.
  int Release() {
    const int fd = m_fd;
    m_fd = -1;
    return fd;
  }
  void Reset(int fd) {
    if (m_fd >= 0) ::close(m_fd);
    m_fd = fd;
  }
  // Closes; returns false (errno set) when the system reports a failure.
  bool Close() {
    const int fd = m_fd;
    m_fd = -1;
    return fd < 0 || ::close(fd) == 0;
  }

 private:
  int m_fd;
};

// Reads fd to its end, expecting about `expected` bytes (a regular file's size; 0 for a
// stream). Throws CFileException naming name when reading fails or passes kMaxFileSize.
std::vector<BYTE> ReadToEnd(int fd, const std::string& name, std::size_t expected) {
  std::vector<BYTE> bytes(expected);
  std::size_t got = 0;
  BYTE spill[16384];
  for (;;) {
    const bool inPlace = got < bytes.size();
    BYTE* into = inPlace ? bytes.data() + got : spill;
    const std::size_t room = inPlace ? std::min(bytes.size() - got, kChunk) : sizeof spill;
    const ssize_t n = ::read(fd, into, room);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) throw CFileException::FromErrno(name, errno, "read");
    if (n == 0) break;
    if (!inPlace) bytes.insert(bytes.end(), spill, spill + n);
    got += static_cast<std::size_t>(n);
    if (got > kMaxFileSize) throw TooLarge(name, 0);
  }
  bytes.resize(got);
  return bytes;
}

void WriteAll(int fd, const BYTE* data, std::size_t size, const std::string& name) {
  while (size > 0) {
    const ssize_t n = ::write(fd, data, std::min(size, kChunk));
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) throw CFileException::FromErrno(name, n < 0 ? errno : EIO, "write");
    data += n;
    size -= static_cast<std::size_t>(n);
  }
}

// Flushes fd to disk; a descriptor that cannot be synchronised (a pipe, a terminal, /dev/null)
// needs nothing more.
void SyncDescriptor(int fd, const std::string& name) {
  if (::fsync(fd) != 0 && errno != EINVAL && errno != EROFS && errno != ENOTSUP) {
    throw CFileException::FromErrno(name, errno, "flush to disk");
  }
}

// Flushes the folder entry of a rename to disk; a folder that cannot be opened is left to the
// operating system (the data itself is already on disk).
void SyncFolder(const std::string& folder) {
  const int fd = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

// Holds SIGXFSZ back in the calling thread while a file is written, so that a write past the
// process's file size limit fails with EFBIG instead of ending the process. A signal raised
// meanwhile is taken off before the thread's own mask comes back.
class FileSizeSignalGuard {
 public:
  FileSizeSignalGuard() {
    sigemptyset(&m_signal);
    sigaddset(&m_signal, SIGXFSZ);
    m_blocked = pthread_sigmask(SIG_BLOCK, &m_signal, &m_old) == 0;
  }
  FileSizeSignalGuard(const FileSizeSignalGuard&) = delete;
  FileSizeSignalGuard& operator=(const FileSizeSignalGuard&) = delete;
  ~FileSizeSignalGuard() {
    if (!m_blocked) return;
    if (!sigismember(&m_old, SIGXFSZ)) {
      const timespec now{0, 0};
      while (sigtimedwait(&m_signal, nullptr, &now) == SIGXFSZ) {
      }
    }
    pthread_sigmask(SIG_SETMASK, &m_old, nullptr);
  }

 private:
  sigset_t m_signal;
  sigset_t m_old;
  bool m_blocked = false;
};

// Where a write lands once symbolic links are followed.
struct Target {
  std::string path;
  bool exists = false;
  struct stat st {};
};

std::string ReadLink(const std::string& path, const std::string& name) {
  std::vector<char> buffer(256);
  for (;;) {
    const ssize_t n = ::readlink(path.c_str(), buffer.data(), buffer.size());
    if (n < 0) throw CFileException::FromErrno(name, errno, "follow the link");
    if (static_cast<std::size_t>(n) < buffer.size()) return std::string(buffer.data(), n);
    buffer.resize(buffer.size() * 2);
  }
}

// Follows path's symbolic links (a relative one from its own folder) to the file a write
// replaces; a link to nothing yet leads to the file to create.
Target ResolveTarget(const std::string& path, const std::string& name) {
  Target t;
  t.path = path;
  for (int hops = 0; hops < 40; ++hops) {
    if (::lstat(t.path.c_str(), &t.st) != 0) {
      if (errno == ENOENT) return t;
      throw CFileException::FromErrno(name, errno, "write");
    }
    if (!S_ISLNK(t.st.st_mode)) {
      t.exists = true;
      return t;
    }
    const std::string link = ReadLink(t.path, name);
    t.path = !link.empty() && link[0] == '/' ? link : FolderOf(t.path) + "/" + link;
  }
  throw CFileException::FromErrno(name, ELOOP, "write");
}

// A short name in folder that is unlikely to exist: ".persona-" and 8 random hex digits.
std::string UniqueName(const std::string& folder) {
  thread_local std::mt19937_64 rng(std::random_device{}());
  char base[24];
  std::snprintf(base, sizeof base, ".persona-%08llx",
                static_cast<unsigned long long>(rng() & 0xFFFFFFFFu));
  return folder + "/" + base;
}

// Makes a new empty file with a unique name in folder by exclusive creation (mode 0666 less
// the umask); returns its path, the descriptor left in fd.
std::string CreateTemp(const std::string& folder, const std::string& name, Descriptor& fd) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    const std::string temp = UniqueName(folder);
    const int f = ::open(temp.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    if (f >= 0) {
      fd.Reset(f);
      return temp;
    }
    if (errno == ENOENT) {
      throw CFileException(CFileException::fileNotFound, name, ENOENT, "write",
                           "the folder " + folder + " does not exist");
    }
    if (errno != EEXIST) throw CFileException::FromErrno(name, errno, "write");
  }
  throw CFileException::FromErrno(name, EEXIST, "write");
}

// Makes a hard link to path under a unique name in folder; returns its path, or "" when the
// file system cannot link.
std::string LinkTemp(const std::string& path, const std::string& folder) {
  for (int attempt = 0; attempt < 100; ++attempt) {
    const std::string temp = UniqueName(folder);
    if (::link(path.c_str(), temp.c_str()) == 0) return temp;
    if (errno != EEXIST) break;
  }
  return std::string();
}

// Gives the new file the owner (where the process may) and the mode of the file it replaces.
// A file system without modes is accepted when the new file is no more open than the old.
void KeepOwnerAndMode(int fd, const struct stat& old, const std::string& name) {
  if (::fchown(fd, old.st_uid, old.st_gid) != 0)
    (void)::fchown(fd, static_cast<uid_t>(-1), old.st_gid);
  if (::fchmod(fd, old.st_mode & 07777) == 0) return;
  const int error = errno;
  struct stat now;
  if (::fstat(fd, &now) == 0 && (now.st_mode & 07777 & ~old.st_mode) == 0) return;
  throw CFileException::FromErrno(name, error, "keep the permissions of");
}

// Copies the file at from into the new file fd (a backup where hard links are not possible).
void CopyInto(const std::string& from, int fd, const std::string& name) {
  Descriptor in(::open(from.c_str(), O_RDONLY | O_CLOEXEC));
  if (in.Get() < 0) throw CFileException::FromErrno(name, errno, "keep a backup as");
  std::vector<BYTE> buffer(65536);
  for (;;) {
    const ssize_t n = ::read(in.Get(), buffer.data(), buffer.size());
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) throw CFileException::FromErrno(name, errno, "keep a backup as");
    if (n == 0) break;
    WriteAll(fd, buffer.data(), static_cast<std::size_t>(n), name);
  }
  SyncDescriptor(fd, name);
}

// Keeps the file at t as "<t>.bak": a hard link (or, where the file system has none, a copy)
// under a unique temporary name, renamed over any older backup, so that writers at once
// never trip over each other.
void KeepBackup(const Target& t, const std::string& folder) {
  const std::string backup = t.path + ".bak";
  std::string staged = LinkTemp(t.path, folder);
  try {
    if (staged.empty()) {
      Descriptor fd;
      staged = CreateTemp(folder, backup, fd);
      KeepOwnerAndMode(fd.Get(), t.st, backup);
      CopyInto(t.path, fd.Get(), backup);
      if (!fd.Close()) throw CFileException::FromErrno(backup, errno, "keep a backup as");
    }
    if (std::rename(staged.c_str(), backup.c_str()) != 0) {
      throw CFileException::FromErrno(backup, errno, "keep a backup as");
    }
    // A rename between two links to one file (a backup another writer just made of the same
    // file) does nothing and leaves the staged link.
    struct stat left;
    if (::lstat(staged.c_str(), &left) == 0 && left.st_ino == t.st.st_ino &&
        left.st_dev == t.st.st_dev) {
      ::unlink(staged.c_str());
    }
  } catch (...) {
    if (!staged.empty()) ::unlink(staged.c_str());
    throw;
  }
}

// Opens a character device or a FIFO to be written in place (it is never replaced) into fd.
void OpenInPlace(const Target& t, const std::string& name, Descriptor& fd) {
  const bool fifo = S_ISFIFO(t.st.st_mode);
  fd.Reset(::open(t.path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC | (fifo ? O_NONBLOCK : 0)));
  if (fd.Get() < 0 && fifo && errno == ENXIO) {
    throw Refused(name, "write", "it is a FIFO (named pipe) that nothing reads");
  }
  if (fd.Get() < 0) throw CFileException::FromErrno(name, errno, "open");
  if (fifo) ::fcntl(fd.Get(), F_SETFL, ::fcntl(fd.Get(), F_GETFL) & ~O_NONBLOCK);
}

}  // namespace

std::string FileDisplayName(const std::string& path, bool writing) {
  if (path != kStandardStreamName) return path;
  return writing ? "standard output" : "standard input";
}

std::vector<BYTE> ReadWholeFile(const std::string& path) {
  const std::string name = FileDisplayName(path, false);
  if (path == kStandardStreamName) return ReadToEnd(STDIN_FILENO, name, 0);
  struct stat st;
  if (::stat(path.c_str(), &st) == 0 && !S_ISREG(st.st_mode)) {
    throw Refused(name, "read", KindOf(st.st_mode));
  }
  Descriptor fd(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
  if (fd.Get() < 0) throw CFileException::FromErrno(name, errno, "open");
  if (::fstat(fd.Get(), &st) != 0) throw CFileException::FromErrno(name, errno, "read");
  if (!S_ISREG(st.st_mode)) throw Refused(name, "read", KindOf(st.st_mode));
  const auto size = static_cast<unsigned long long>(st.st_size);
  if (size > kMaxFileSize) throw TooLarge(name, size);
  return ReadToEnd(fd.Get(), name, static_cast<std::size_t>(size));
}

// Everything a write in progress holds. Its destructor discards what was not committed: the
// temporary file is closed and removed, so the target stays as it was.
struct AtomicFileWriter::State {
  FileSizeSignalGuard guard;  // first in, last out: it covers every write and the cleanup
  std::string name;
  AtomicWriteOptions options;
  Target target;
  int directFd = -1;            // standard output, or the device or FIFO below
  Descriptor device;            // a character device or FIFO written in place
  std::string temp;             // the temporary file of a replacement, until it is renamed
  std::unique_ptr<CFile> file;  // the temporary file open for writing
  Descriptor writeback;         // the temporary file again, to start its writing to disk early
  std::size_t written = 0;      // bytes handed to the temporary file
  std::size_t handed = 0;       // bytes of it whose writing to disk has been started
  bool committed = false;

  State() = default;
  State(const State&) = delete;
  State& operator=(const State&) = delete;
  ~State() {
    if (file) file->Abort();
    if (!temp.empty()) ::unlink(temp.c_str());
  }

  // Makes the temporary file beside the target, with the target's owner and mode, and opens
  // it through options.openTemp (or a plain CFile).
  void OpenTemp() {
    Descriptor fd;
    temp = CreateTemp(FolderOf(target.path), name, fd);
    if (target.exists) KeepOwnerAndMode(fd.Get(), target.st, name);
    writeback.Reset(fd.Release());
    try {
      file = options.openTemp ? options.openTemp(temp)
                              : std::make_unique<CFile>(temp, CFile::modeWrite);
    } catch (const CFileException& e) {
      throw e.WithFileName(name);
    }
  }

  // Starts the writing to disk of what the temporary file holds past the last start, once a
  // few megabytes have gathered, so that the flush at the end waits for the tail alone
  // instead of the whole file. A hint: nothing fails if the system does not take it.
  void StartWriteback() {
#ifdef SYNC_FILE_RANGE_WRITE
    constexpr std::size_t kWritebackStep = std::size_t{8} << 20;
    if (written - handed < kWritebackStep || writeback.Get() < 0) return;
    ::sync_file_range(writeback.Get(), static_cast<off_t>(handed),
                      static_cast<off_t>(written - handed), SYNC_FILE_RANGE_WRITE);
    handed = written;
#endif
  }

  // Flushes and closes the temporary file, keeps the backup, renames the temporary file over
  // the target and flushes the folder.
  void Replace() {
    try {
      file->Flush();
      file->Close();
    } catch (const CFileException& e) {
      throw e.WithFileName(name);
    }
    file.reset();
    if (!writeback.Close()) throw CFileException::FromErrno(name, errno, "write");
    const std::string folder = FolderOf(target.path);
    if (options.keepBackup && target.exists) KeepBackup(target, folder);
    if (std::rename(temp.c_str(), target.path.c_str()) != 0) {
      throw CFileException::FromErrno(name, errno, "replace");
    }
    temp.clear();
    SyncFolder(folder);
  }
};

AtomicFileWriter::AtomicFileWriter(const std::string& path, const AtomicWriteOptions& options)
    : m_state(std::make_unique<State>()) {
  State& s = *m_state;
  s.name = FileDisplayName(path, true);
  s.options = options;
  if (path == kStandardStreamName) {
    std::fflush(stdout);
    s.directFd = STDOUT_FILENO;
    return;
  }
  s.target = ResolveTarget(path, s.name);
  const mode_t mode = s.target.st.st_mode;
  if (s.target.exists && (S_ISCHR(mode) || S_ISFIFO(mode))) {
    OpenInPlace(s.target, s.name, s.device);
    s.directFd = s.device.Get();
  } else if (s.target.exists && !S_ISREG(mode)) {
    throw Refused(s.name, "write", KindOf(mode));
  } else {
    s.OpenTemp();
  }
}

AtomicFileWriter::~AtomicFileWriter() = default;
AtomicFileWriter::AtomicFileWriter(AtomicFileWriter&&) noexcept = default;
AtomicFileWriter& AtomicFileWriter::operator=(AtomicFileWriter&&) noexcept = default;

void AtomicFileWriter::Write(const BYTE* data, std::size_t size) {
  State& s = *m_state;
  if (s.directFd >= 0) {
    WriteAll(s.directFd, data, size, s.name);
    return;
  }
  if (!s.file) throw Refused(s.name, "write", "its writing has already ended");
  try {
    while (size > 0) {
      const std::size_t chunk = std::min(size, kChunk);
      s.file->Write(data, static_cast<UINT>(chunk));
      data += chunk;
      size -= chunk;
      s.written += chunk;
      s.StartWriteback();
    }
  } catch (const CFileException& e) {
    s.file.reset();  // a file missing a block is never put in place
    throw e.WithFileName(s.name);
  }
}

void AtomicFileWriter::Commit() {
  State& s = *m_state;
  if (s.committed) return;
  if (s.device.Get() >= 0) {
    SyncDescriptor(s.device.Get(), s.name);
    if (!s.device.Close()) throw CFileException::FromErrno(s.name, errno, "close");
  } else if (s.directFd < 0) {
    if (!s.file) throw Refused(s.name, "write", "a block of it could not be written");
    s.Replace();
  }
  s.directFd = -1;
  s.committed = true;
}

void WriteFileAtomically(const std::string& path, const std::vector<BYTE>& bytes,
                         const AtomicWriteOptions& options) {
  AtomicFileWriter writer(path, options);
  writer.Write(bytes.data(), bytes.size());
  writer.Commit();
}

}  // namespace persona
