// Global set files: table, paths, write and read.
#include <persona/personality/global_sets.h>

#include <dirent.h>
#include <sys/stat.h>

#include <cstring>
#include <iterator>

#include <unordered_map>
#include <unordered_set>

#include <persona/calls/icall_set.h>
#include <persona/calls/phone_set.h>
#include <persona/calls/plm_sp_call_set.h>
#include <persona/calls/sp_call_set.h>
#include <persona/conventional/conv_set.h>
#include <persona/conventional/p25_conv_set.h>
#include <persona/framework/archive.h>
#include <persona/framework/exceptions.h>
#include <persona/framework/file_io.h>
#include <persona/framework/prompt.h>
#include <persona/personality/personality.h>
#include <persona/systems/ext_add_group_set.h>
#include <persona/systems/group_set.h>
#include <persona/systems/p25_group_set.h>
#include <persona/systems/plm_group_set.h>
#include <persona/systems/trunk_set.h>

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

// The files of one folder, listed once: exact names, and the first name of each upper-cased
// spelling.
class FolderIndex {
 public:
  explicit FolderIndex(const std::string& folder) : m_folder(folder) {
    DIR* dir = ::opendir(folder.empty() ? "." : folder.c_str());
    if (dir == nullptr) return;
    while (dirent* entry = ::readdir(dir)) {
      const std::string name = entry->d_name;
      m_exact.insert(name);
      m_folded.emplace(CString(name).UpperText(), name);
    }
    ::closedir(dir);
  }

  // The path of fileName in the folder, found exactly or else ignoring letter case; the exact
  // path (which then does not exist) when neither is there.
  CString PathOf(const CString& fileName) const {
    std::string name = fileName.str();
    if (m_exact.count(name) == 0) {
      const auto it = m_folded.find(fileName.UpperText());
      if (it != m_folded.end()) name = it->second;
    }
    if (m_folder.empty()) return CString(name);
    return CString(m_folder.back() == '/' ? m_folder + name : m_folder + "/" + name);
  }

 private:
  std::string m_folder;
  std::unordered_set<std::string> m_exact;
  std::unordered_map<std::string, std::string> m_folded;
};

template <class S>
bool ReadSetAs(S*& set, const CString& path) {
  const GlobalSetKind* kind = nullptr;
  std::size_t count = 0;
  for (const GlobalSetKind* k = GlobalSetKinds(&count); count > 0; ++k, --count) {
    if (std::strcmp(k->className, S::GetThisClass()->m_lpszClassName) == 0) kind = k;
  }
  std::unique_ptr<CSet> read;
  const bool ok = ReadSetFile(ResolveGlobalSetFile(path), kind->className,
                              static_cast<BYTE>(kind->type), &read);
  auto* typed = dynamic_cast<S*>(read.get());
  if (typed == nullptr) return false;
  read.release();
  set = typed;
  return ok;
}

void Tell(const GlobalSetKind& kind, const CString& name, const std::string& what) {
  AfxMessageBox(CString(kind.messageName) + name + CString(what), MB_OK);
}

// Refreshes the set at i of list kind.type (scope 1) from the folder.
void RefreshSet(CPersonality& p, const GlobalSetKind& kind, int i, const FolderIndex& folder) {
  const auto type = static_cast<SetType>(kind.type);
  CSet* local = p.GetSetAt(i, type);
  const CString name = local->GetName();
  if (!IsSafeSetFileName(name)) {
    local->SetScope(0);
    Tell(kind, name, " is not a usable file name, using local copy");
    return;
  }
  std::unique_ptr<CSet> read;
  bool ok = false;
  try {
    ok = ReadSetFile(folder.PathOf(name + kind.extension), kind.className,
                     static_cast<BYTE>(kind.type), &read);
  } catch (const CException& e) {
    local->SetScope(0);
    Tell(kind, name, std::string(" could not be read (") + e.what() + "), using local copy");
    return;
  }
  if (!ok) {
    local->SetScope(0);
    Tell(kind, name, " not found, using local copy");
    return;
  }
  if (kind.checkFrequencies && SetFitsBand(*read, p.GetTxMinFreq(), p.GetTxMaxFreq(),
                                           p.GetRxMinFreq(), p.GetRxMaxFreq()) == 0) {
    local->SetScope(0);
    Tell(kind, name, " contains out of range frequencies, using local copy");
    return;
  }
  read->SetName(name);
  std::unique_ptr<CSet> old(p.PutSetAt(i, read.release(), type));
  if (old != nullptr) old->Delete();
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
  ar.WriteOwnedObject(set);
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

bool ReadSet(CTrunkSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CGroupSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CExtAddGroupSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CP25GroupSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CConvSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CP25ConvSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CPhoneSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CICallSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CSpCallSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CPlmGroupSet*& set, CString path) { return ReadSetAs(set, path); }
bool ReadSet(CPlmSpCallSet*& set, CString path) { return ReadSetAs(set, path); }

int SetFitsBand(const CSet& set, double txMin, double txMax, double rxMin, double rxMax) {
  if (const auto* s = dynamic_cast<const CTrunkSet*>(&set)) {
    return s->CheckFrequencyRange(txMin, txMax, rxMin, rxMax);
  }
  if (const auto* s = dynamic_cast<const CConvSet*>(&set)) {
    return s->CheckFrequencyRange(txMin, txMax, rxMin, rxMax);
  }
  if (const auto* s = dynamic_cast<const CP25ConvSet*>(&set)) {
    return s->CheckFrequencyRange(txMin, txMax, rxMin, rxMax);
  }
  return 1;
}

bool ReadPersonalityGlobalSets(CPersonality*& personality, CString directory) {
  if (personality == nullptr) return true;
  const FolderIndex folder(directory.str());
  std::size_t count = 0;
  const GlobalSetKind* kinds = GlobalSetKinds(&count);
  for (std::size_t k = 0; k < count; ++k) {
    const auto type = static_cast<SetType>(kinds[k].type);
    for (int i = 0; i < personality->GetNumSets(type); ++i) {
      const CSet* set = personality->GetSetAt(i, type);
      if (set != nullptr && set->GetScope() == 1) RefreshSet(*personality, kinds[k], i, folder);
    }
  }
  return true;
}

}  // namespace persona
