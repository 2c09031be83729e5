// CFile (a disk file) and CMemFile (a growable or borrowed memory buffer): the byte streams an
// archive reads from and writes to.
#pragma once

#include <persona/export.h>

#include <cstdio>
#include <string>
#include <vector>

#include <persona/framework/types.h>

namespace persona {

class PERSONA_EXPORT CFile {
 public:
  enum OpenFlags : UINT {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareDenyNone = 0x0040,
    typeBinary = 0x8000,
    modeNoTruncate = 0x10000,
    modeCreate = 0x1000,
  };
  enum SeekPosition { begin = 0, current = 1, end = 2 };

  CFile() = default;
  // Opens the file or throws CFileException.
  CFile(const std::string& path, UINT openFlags);
  CFile(const CFile&) = delete;
  CFile& operator=(const CFile&) = delete;
  virtual ~CFile();

  // Opens the file; returns false (and fills *error when given) on failure.
  virtual bool Open(const std::string& path, UINT openFlags, class CFileException* error = nullptr);
  // Reads up to count bytes; returns how many were read (0 at the end). Throws CFileException.
  virtual UINT Read(void* buffer, UINT count);
  // Writes all count bytes or throws CFileException.
  virtual void Write(const void* buffer, UINT count);
  // Moves the position; returns the new position. Throws CFileException.
  virtual ULONGLONG Seek(LONGLONG offset, UINT from);
  void SeekToBegin() { Seek(0, begin); }
  ULONGLONG SeekToEnd() { return Seek(0, end); }
  virtual ULONGLONG GetPosition() const;
  virtual ULONGLONG GetLength() const;
  // Pushes written bytes to the operating system and on to the disk. Throws CFileException.
  virtual void Flush();
  // Closes the file; a failure to close a written file throws CFileException.
  virtual void Close();
  // Closes without reporting failures.
  virtual void Abort();
  virtual bool IsOpen() const { return m_file != nullptr; }
  const std::string& GetFilePath() const { return m_path; }
  // The name of the file without its folder.
  std::string GetFileName() const;

 protected:
  std::FILE* m_file = nullptr;
  std::string m_path;
};

// A file in memory. Either owns a growable buffer (default) or reads a borrowed one without
// copying it (Attach); a borrowed buffer is read-only and must outlive the CMemFile.
class PERSONA_EXPORT CMemFile : public CFile {
 public:
  CMemFile() = default;
  CMemFile(const BYTE* data, std::size_t size) { Attach(data, size); }
  ~CMemFile() override = default;

  bool Open(const std::string&, UINT, CFileException* = nullptr) override { return true; }
  UINT Read(void* buffer, UINT count) override;
  void Write(const void* buffer, UINT count) override;
  ULONGLONG Seek(LONGLONG offset, UINT from) override;
  ULONGLONG GetPosition() const override { return m_pos; }
  ULONGLONG GetLength() const override;
  void Flush() override {}
  void Close() override {}
  void Abort() override {}
  bool IsOpen() const override { return true; }

  // Reads a borrowed buffer from now on (the current content is dropped).
  void Attach(const BYTE* data, std::size_t size);
  // Takes the owned buffer out of the file, leaving it empty.
  std::vector<BYTE> Detach();
  // The bytes of the file and their count (borrowed or owned).
  const BYTE* GetData() const { return m_borrowed ? m_borrowed : m_buffer.data(); }
  std::size_t GetSize() const { return m_borrowed ? m_borrowedSize : m_buffer.size(); }
  // Name used in failure messages.
  void SetFilePath(const std::string& path) { m_path = path; }

 private:
  std::vector<BYTE> m_buffer;
  const BYTE* m_borrowed = nullptr;
  std::size_t m_borrowedSize = 0;
  std::size_t m_pos = 0;
};

}  // namespace persona
