// Messages of the framework failures.
#include <persona/framework/exceptions.h>

#include <cerrno>
#include <cstring>

namespace persona {

namespace {

std::string ArchiveMessage(CArchiveException::Cause cause, const std::string& fileName,
                           std::size_t offset, const std::string& detail) {
  std::string msg = fileName.empty() ? std::string("<memory>") : fileName;
  msg += ": byte " + std::to_string(offset) + ": " + detail + " (" +
         CArchiveException::CauseName(cause) + ")";
  return msg;
}

std::string FileMessage(const std::string& fileName, int osError, const std::string& action,
                        const std::string& reason) {
  std::string msg = "cannot " + action + " " + (fileName.empty() ? "<unnamed file>" : fileName);
  if (!reason.empty()) {
    msg += ": " + reason;
  } else if (osError != 0) {
    msg += ": " + std::string(std::strerror(osError));
  }
  return msg;
}

}  // namespace

CArchiveException::CArchiveException(Cause cause, std::string fileName, std::size_t offset,
                                     std::string detail)
    : CException(ArchiveMessage(cause, fileName, offset, detail)),
      m_cause(cause),
      m_strFileName(std::move(fileName)),
      m_offset(offset),
      m_detail(std::move(detail)) {}

const char* CArchiveException::CauseName(Cause cause) {
  switch (cause) {
    case none:
      return "none";
    case genericException:
      return "genericException";
    case readOnly:
      return "readOnly";
    case endOfFile:
      return "endOfFile";
    case writeOnly:
      return "writeOnly";
    case badIndex:
      return "badIndex";
    case badClass:
      return "badClass";
    case badSchema:
      return "badSchema";
  }
  return "unknown";
}

CFileException::CFileException(Cause cause, std::string fileName, int osError, std::string action,
                               std::string reason)
    : CException(FileMessage(fileName, osError, action, reason)),
      m_cause(cause),
      m_strFileName(std::move(fileName)),
      m_lOsError(osError),
      m_action(std::move(action)),
      m_reason(std::move(reason)) {}

CFileException CFileException::WithFileName(const std::string& fileName) const {
  return CFileException(m_cause, fileName, m_lOsError, m_action, m_reason);
}

CFileException CFileException::FromErrno(const std::string& fileName, int osError,
                                         const std::string& action) {
  Cause cause = genericException;
  switch (osError) {
    case ENOENT:
      cause = fileNotFound;
      break;
    case EACCES:
    case EPERM:
    case EROFS:
      cause = accessDenied;
      break;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      cause = diskFull;
      break;
    case ENAMETOOLONG:
    case ENOTDIR:
    case EISDIR:
      cause = badPath;
      break;
    default:
      break;
  }
  return CFileException(cause, fileName, osError, action);
}

std::string CFileException::GetErrorMessage() const {
  std::string text = m_lOsError != 0     ? std::strerror(m_lOsError)
                     : !m_reason.empty() ? m_reason
                                         : "an unknown file error";
  if (text.size() > 255) text.resize(255);
  return text;
}

}  // namespace persona
