// Global set files: table, paths, write and read.
#include "core/global_sets.h"

#include <dirent.h>
#include <sys/stat.h>

#include <cstring>
#include <iterator>

#include "framework/archive.h"
#include "framework/exceptions.h"
#include "framework/file_io.h"
#include "framework/prompt.h"

namespace persona {

namespace {

constexpr GlobalSetKind kKinds[] = {
    {TrunkSetType, "CTrunkSet", ".TRS", "Global Trunked set ", true},
    {GroupSetType, "CGroupSet", ".GRS", "Global Group set ", false},
    {EaGroupSetType, "CExtAddGroupSet", ".EGR", "Global KORVEX IP Group set ", false},
    {P25GroupSetType, "CP25GroupSet", ".PGR", "Global P25 Group set ", false},
    {ConvSetType, "CConvSet", ".CVS", "Global Conv set ", true},
    {P25ConvSetType, "CP25ConvSet", ".PCV", "Global P25 Conv set ", true},
    {PhoneSetType, "CPhoneSet", ".PHS", "Global Phone set ", false},
    {ICallSetType, "CICallSet", ".ICS", "Global Indv Call set ", false},
    {SpCallSetType, "CSpCallSet", ".SPS", "Global Spec Call set ", false},
    {PlmGroupSetType, "CPlmGroupSet", ".GGS", "Global Pellam Group set ", false},
    {PlmSpCallSetType, "CPlmSpCallSet", ".GSS", "Global Pellam Spec Call set ", false},
};

bool FileExists(const std::string& path) {
  struct stat st;
  return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
}

}  // namespace

const GlobalSetKind* GlobalSetKinds(std::size_t* count) {
  *count = std::size(kKinds);
  return kKinds;
}

const GlobalSetKind* GlobalSetKindOf(int type) {
  for (const GlobalSetKind& k : kKinds) {
    if (k.type == type) return &k;
  }
  return nullptr;
}

bool IsSafeSetFileName(const CString& name) {
  if (name.IsEmpty() || name == "." || name.Find("..") >= 0) return false;
  return name.Find('/') < 0 && name.Find('\\') < 0 && name.Find('\0') < 0;
}

bool GlobalSetPath(const CString& directory, const CString& name, int type, CString* path) {
  const GlobalSetKind* kind = GlobalSetKindOf(type);
  if (kind == nullptr || !IsSafeSetFileName(name)) return false;
  CString result;
  if (!directory.IsEmpty()) {
    result = directory;
    if (result.Right(1) != "/") result += '/';
  }
  result += name;
  result += kind->extension;
  *path = result;
  return true;
}

CString ResolveGlobalSetFile(const CString& path) {
  if (FileExists(path.str())) return path;
  const std::string& p = path.str();
  const std::size_t slash = p.find_last_of('/');
  const std::string folder = slash == std::string::npos ? "." : p.substr(0, slash);
  const CString wanted(slash == std::string::npos ? p : p.substr(slash + 1));
  DIR* dir = ::opendir(folder.c_str());
  if (dir == nullptr) return path;
  CString found;
  while (dirent* entry = ::readdir(dir)) {
    if (wanted.CompareNoCase(CString(entry->d_name)) == 0) {
      found = slash == std::string::npos ? CString(entry->d_name)
                                         : CString(folder + "/" + entry->d_name);
      break;
    }
  }
  ::closedir(dir);
  return found.IsEmpty() ? path : found;
}

bool WriteSet(CSet* set, CString path, bool confirmOverwrite) {
  if (FileExists(path.str()) && confirmOverwrite &&
      AfxMessageBox("File already exists, Overwrite existing global set?", MB_YESNO) != IDYES) {
    return false;
  }
  CArchive ar(nullptr, CArchive::store);
  ar.WriteObject(set);
  const std::vector<BYTE> bytes = ar.TakeStoredBytes();
  try {
    WriteFileAtomically(path.str(), bytes);
  } catch (const CFileException& e) {
    AfxMessageBox(
        CString::Formatted("Your set could not be saved because %s.", e.GetErrorMessage().c_str()),
        MB_OK);
    return false;
  }
  return true;
}

bool ReadSetFile(const CString& path, const char* className, BYTE setType,
                 std::unique_ptr<CSet>* out) {
  std::vector<BYTE> bytes;
  try {
    bytes = ReadWholeFile(path.str());
  } catch (const CFileException&) {
    return false;
  }
  CArchive ar(bytes.data(), bytes.size(), path.str());
  std::unique_ptr<CObject> obj = ar.ReadOwnedObject(nullptr);
  if (obj == nullptr || std::strcmp(obj->GetClassName(), className) != 0) return false;
  auto* set = dynamic_cast<CSet*>(obj.get());
  if (set == nullptr) return false;
  obj.release();
  out->reset(set);
  CString upper = set->GetName();
  set->SetName(upper.MakeUpper());
  set->AdoptSharedRecords(ar.TakeSharedObjects());
  return set->GetSetType() == setType;
}

}  // namespace persona
