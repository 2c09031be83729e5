// Failures of the class framework: archive faults (with cause, file name and byte offset),
// the invalid-argument failure raised by index operations, and file errors. All derive from
// CException, itself a std::exception whose what() is a message a person can act on.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <exception>
#include <string>

namespace persona {

// Base of every framework failure. Thrown by value, caught by reference.
class PERSONA_EXPORT CException : public std::exception {
 public:
  explicit CException(std::string message) : m_message(std::move(message)) {}
  // Returns the full message; the storage lives as long as the exception.
  const char* what() const noexcept override { return m_message.c_str(); }

 protected:
  std::string m_message;
};

// A fault while reading or writing an archive.
class PERSONA_EXPORT CArchiveException : public CException {
 public:
  enum Cause {
    none,
    genericException,
    readOnly,   // writing to a loading archive
    endOfFile,  // the stream ended early
    writeOnly,  // reading from a storing archive
    badIndex,   // an object or class reference that names nothing valid
    badClass,   // an unknown class, or an object of a class the caller did not ask for
    badSchema,  // a non-versionable class stored with another schema
  };

  // cause: what went wrong; fileName: the archive's file ("" for memory); offset: byte offset
  // from the start of the archive at which the fault was detected; detail: what was found.
  CArchiveException(Cause cause, std::string fileName, std::size_t offset, std::string detail);

  Cause m_cause;
  std::string m_strFileName;
  std::size_t m_offset;

  // Returns the cause's name as the format documentation spells it ("badClass", ...).
  static const char* CauseName(Cause cause);
  // Returns the detail text without file and offset.
  const std::string& Detail() const { return m_detail; }

 private:
  std::string m_detail;
};

// An index or argument outside what an operation accepts (the framework's invalid-argument
// failure, raised for example by GetAt with a negative position).
class PERSONA_EXPORT CInvalidArgException : public CException {
 public:
  explicit CInvalidArgException(const std::string& what)
      : CException("invalid argument: " + what) {}
};

// A file could not be opened, read, written, flushed or renamed.
class PERSONA_EXPORT CFileException : public CException {
 public:
  enum Cause { none, genericException, fileNotFound, accessDenied, diskFull, endOfFile, badPath };

  // cause: classified from errno; fileName: the path; osError: errno (0 when none); action:
  // what was being done ("open", "write", ...); reason: why, when the system's text for osError
  // does not say it ("it is a folder, not a file").
  CFileException(Cause cause, std::string fileName, int osError, std::string action,
                 std::string reason = std::string());

  // Builds the failure for the current errno value.
  static CFileException FromErrno(const std::string& fileName, int osError,
                                  const std::string& action);

  Cause m_cause;
  std::string m_strFileName;
  int m_lOsError;

  // Returns the platform's text for the error (at most 255 characters), as shown to users.
  std::string GetErrorMessage() const;
  // Returns the same failure about another file (the name a user gave for a file that a
  // temporary one stood in for).
  CFileException WithFileName(const std::string& fileName) const;

 private:
  std::string m_action;
  std::string m_reason;
};

}  // namespace persona
