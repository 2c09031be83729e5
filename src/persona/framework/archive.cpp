// CArchive: primitives, strings, counts and the object table.
#include <persona/framework/archive.h>

#include <algorithm>
#include <cstdint>
#include <limits>

#include <persona/framework/codepage.h>
#include <persona/framework/file.h>

namespace persona {

namespace {

constexpr WORD kNullTag = 0x0000;
constexpr WORD kNewClassTag = 0xFFFF;
constexpr WORD kClassTag = 0x8000;
constexpr WORD kBigObjectTag = 0x7FFF;
constexpr DWORD kBigClassTag = 0x80000000u;
constexpr std::size_t kMaxClassNameLength = 64;

}  // namespace

CArchive::CArchive(CFile* pFile, UINT mode, int, void*)
    : m_loading((mode & load) != 0), m_file(pFile) {
  if (m_file) m_name = m_file->GetFilePath();
  if (!m_loading) {
    if (m_file) m_base = static_cast<std::size_t>(m_file->GetPosition());
    return;
  }
  if (m_file == nullptr) return;
  m_base = static_cast<std::size_t>(m_file->GetPosition());
  if (auto* mem = dynamic_cast<CMemFile*>(m_file)) {
    const std::size_t size = mem->GetSize();
    m_data = mem->GetData() + std::min(m_base, size);
    m_size = m_base < size ? size - m_base : 0;
    return;
  }
  const ULONGLONG length = m_file->GetLength();
  const std::size_t rest = length > m_base ? static_cast<std::size_t>(length - m_base) : 0;
  m_input.resize(rest);
  std::size_t got = 0;
  while (got < rest) {
    const UINT chunk = static_cast<UINT>(std::min<std::size_t>(rest - got, 1u << 30));
    const UINT n = m_file->Read(m_input.data() + got, chunk);
    if (n == 0) break;
    got += n;
  }
  m_input.resize(got);
  m_data = m_input.data();
  m_size = got;
}

CArchive::CArchive(const BYTE* data, std::size_t size, std::string name)
    : m_loading(true), m_name(std::move(name)), m_data(data), m_size(size) {}

CArchive::~CArchive() = default;

void CArchive::ThrowFailure(CArchiveException::Cause cause, const std::string& detail) const {
  throw CArchiveException(cause, m_name, GetPosition(), detail);
}

void CArchive::ThrowEnd(std::size_t wanted, const char* what) const {
  throw CArchiveException(CArchiveException::endOfFile, m_name, GetPosition(),
                          "the file ends inside a " + std::string(what) + " (" +
                              std::to_string(wanted) + " bytes needed, " +
                              std::to_string(m_size - m_pos) + " left)");
}

void CArchive::Flush() {
  if (m_loading || m_file == nullptr) return;
  std::size_t done = 0;
  while (done < m_outLength) {
    const UINT chunk = static_cast<UINT>(std::min<std::size_t>(m_outLength - done, 1u << 30));
    m_file->Write(m_out.data() + done, chunk);
    done += chunk;
  }
  m_base += m_outLength;
  m_outLength = 0;
}

void CArchive::Close() {
  if (m_loading) {
    if (m_file) m_file->Seek(static_cast<LONGLONG>(m_base + m_pos), CFile::begin);
  } else {
    Flush();
  }
  m_file = nullptr;
}

void CArchive::Abort() {
  m_outLength = 0;
  m_file = nullptr;
}

std::vector<BYTE> CArchive::TakeStoredBytes() {
  m_out.resize(m_outLength);
  std::vector<BYTE> out;
  out.swap(m_out);
  m_outLength = 0;
  return out;
}

void CArchive::ReserveOutput(std::size_t bytes) {
  if (!m_loading && m_out.size() < bytes) m_out.resize(bytes);
}

void CArchive::GrowOutput(std::size_t more) {
  std::size_t capacity = std::max<std::size_t>(m_out.size(), 4096);
  while (capacity - m_outLength < more) capacity *= 2;
  m_out.resize(capacity);
}

void CArchive::Append(const void* bytes, std::size_t count) {
  if (count == 0) return;
  if (m_out.size() - m_outLength < count) GrowOutput(count);
  std::memcpy(m_out.data() + m_outLength, bytes, count);
  m_outLength += count;
}

UINT CArchive::Read(void* buffer, UINT count) {
  if (!m_loading)
    ThrowFailure(CArchiveException::writeOnly, "read from an archive that is storing");
  const std::size_t n = std::min<std::size_t>(count, m_size - m_pos);
  if (n) std::memcpy(buffer, m_data + m_pos, n);
  m_pos += n;
  return static_cast<UINT>(n);
}

void CArchive::ReadExact(void* buffer, std::size_t count, const char* what) {
  if (!m_loading)
    ThrowFailure(CArchiveException::writeOnly, "read from an archive that is storing");
  if (m_size - m_pos < count) ThrowEnd(count, what);
  if (count) std::memcpy(buffer, m_data + m_pos, count);
  m_pos += count;
}

void CArchive::Write(const void* buffer, UINT count) {
  if (m_loading) ThrowFailure(CArchiveException::readOnly, "write to an archive that is loading");
  Append(buffer, count);
}

// ---- counts and strings ---------------------------------------------------------------------

void CArchive::WriteCount(ULONGLONG n) {
  if (n < 0xFFFF) {
    Put<WORD>(static_cast<WORD>(n));
  } else if (n < 0xFFFFFFFFull) {
    Put<WORD>(0xFFFF);
    Put<DWORD>(static_cast<DWORD>(n));
  } else {
    Put<WORD>(0xFFFF);
    Put<DWORD>(0xFFFFFFFFu);
    Put<ULONGLONG>(n);
  }
}

ULONGLONG CArchive::ReadCount() {
  const WORD w = Get<WORD>();
  if (w != 0xFFFF) return w;
  const DWORD d = Get<DWORD>();
  if (d != 0xFFFFFFFFu) return d;
  return Get<ULONGLONG>();
}

void CArchive::CheckCount(ULONGLONG n, std::size_t minBytes, const char* what) const {
  if (minBytes != 0 && n > (m_size - m_pos) / minBytes) {
    ThrowFailure(CArchiveException::endOfFile,
                 std::string(what) + " claims " + std::to_string(n) + " entries but only " +
                     std::to_string(m_size - m_pos) + " bytes are left");
  }
}

CArchive& CArchive::operator<<(const CString& s) {
  const ULONGLONG n = static_cast<ULONGLONG>(s.str().size());
  if (n < 0xFF) {
    Put<BYTE>(static_cast<BYTE>(n));
  } else if (n < 0xFFFE) {
    Put<BYTE>(0xFF);
    Put<WORD>(static_cast<WORD>(n));
  } else if (n < 0xFFFFFFFFull) {
    Put<BYTE>(0xFF);
    Put<WORD>(0xFFFF);
    Put<DWORD>(static_cast<DWORD>(n));
  } else {
    Put<BYTE>(0xFF);
    Put<WORD>(0xFFFF);
    Put<DWORD>(0xFFFFFFFFu);
    Put<ULONGLONG>(n);
  }
  Append(s.str().data(), s.str().size());
  return *this;
}

CArchive& CArchive::operator>>(CString& s) {
  bool wide = false;
  ULONGLONG len = Get<BYTE>();
  if (len == 0xFF) {
    WORD w = Get<WORD>();
    if (w == 0xFFFE) {  // written by a wide-character build: the prefix follows again
      wide = true;
      len = Get<BYTE>();
      if (len == 0xFF) w = Get<WORD>();
    }
    if (len == 0xFF) {
      if (w < 0xFFFF) {
        len = w;
      } else {
        const DWORD d = Get<DWORD>();
        len = d < 0xFFFFFFFFu ? d : Get<ULONGLONG>();
      }
    }
  }
  const std::size_t left = m_size - m_pos;
  const ULONGLONG bytes = wide ? len * 2 : len;
  if (len > left || bytes > left) {
    ThrowFailure(CArchiveException::endOfFile,
                 "a string of " + std::to_string(len) + (wide ? " wide" : "") +
                     " characters runs past the end (" + std::to_string(left) + " bytes left)");
  }
  const BYTE* p = m_data + m_pos;
  m_pos += static_cast<std::size_t>(bytes);
  std::string& out = s.str();
  if (!wide) {
    out.assign(reinterpret_cast<const char*>(p), static_cast<std::size_t>(len));
    return *this;
  }
  out.clear();
  out.reserve(static_cast<std::size_t>(len));
  for (ULONGLONG i = 0; i < len; ++i) {
    DWORD unit = static_cast<DWORD>(p[2 * i] | (p[2 * i + 1] << 8));
    if (unit >= 0xD800 && unit <= 0xDBFF && i + 1 < len) {
      const DWORD next = static_cast<DWORD>(p[2 * i + 2] | (p[2 * i + 3] << 8));
      if (next >= 0xDC00 && next <= 0xDFFF) {  // a surrogate pair is one character
        ++i;
        unit = 0x10000;
      }
    }
    out.push_back(UnicodeToWindows1252(unit));
  }
  return *this;
}

// ---- objects --------------------------------------------------------------------------------

UINT CArchive::GetObjectSchema() {
  const UINT schema = m_objectSchema;
  m_objectSchema = kNoSchema;
  return schema;
}

void CArchive::WriteIndexTag(DWORD index, DWORD flag) {
  if (index < kBigObjectTag) {
    Put<WORD>(static_cast<WORD>(index | (flag ? kClassTag : 0)));
  } else {
    Put<WORD>(kBigObjectTag);
    Put<DWORD>(index | flag);
  }
}

// ---- the index of a storing archive ----------------------------------------------------------

std::size_t CArchive::PointerIndex::SlotOf(const void* key) const {
  // Fibonacci hashing of the address (its low bits are alignment, the high bits spread).
  const auto bits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(key));
  return static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15ull) >> 32) & (m_slots.size() - 1);
}

DWORD CArchive::PointerIndex::Find(const void* key) const {
  if (m_slots.empty()) return 0;
  for (std::size_t i = SlotOf(key);; i = (i + 1) & (m_slots.size() - 1)) {
    const Slot& slot = m_slots[i];
    if (slot.key == key) return slot.value;
    if (slot.key == nullptr) return 0;
  }
}

void CArchive::PointerIndex::Insert(const void* key, DWORD value) {
  if (2 * (m_used + 1) > m_slots.size()) Grow();
  std::size_t i = SlotOf(key);
  while (m_slots[i].key != nullptr) i = (i + 1) & (m_slots.size() - 1);
  m_slots[i] = Slot{key, value};
  ++m_used;
}

void CArchive::PointerIndex::Grow() {
  std::vector<Slot> old(std::max<std::size_t>(2 * m_slots.size(), 1024));
  old.swap(m_slots);
  m_used = 0;
  for (const Slot& slot : old) {
    if (slot.key != nullptr) Insert(slot.key, slot.value);
  }
}

// ---- storing objects ---------------------------------------------------------------------------

void CArchive::WriteClass(const CRuntimeClass* cls) {
  // Records of one class usually follow one another: the last class needs no lookup.
  const DWORD index = cls == m_lastClass ? m_lastClassIndex : m_storeIndex.Find(cls);
  if (index != 0) {
    WriteIndexTag(index, kBigClassTag);
    m_lastClass = cls;
    m_lastClassIndex = index;
    return;
  }
  const std::size_t len = std::strlen(cls->m_lpszClassName);
  Put<WORD>(kNewClassTag);
  Put<WORD>(static_cast<WORD>(cls->GetSchema()));
  Put<WORD>(static_cast<WORD>(len));
  Append(cls->m_lpszClassName, len);
  m_lastClass = cls;
  m_lastClassIndex = m_nextIndex;
  m_storeIndex.Insert(cls, m_nextIndex++);
}

void CArchive::WriteNewObject(const CObject* p, bool indexed) {
  WriteClass(p->GetRuntimeClass());
  if (indexed) m_storeIndex.Insert(p, m_nextIndex);
  ++m_nextIndex;
  const_cast<CObject*>(p)->Serialize(*this);
}

void CArchive::WriteObject(const CObject* p) {
  if (m_loading) ThrowFailure(CArchiveException::readOnly, "write to an archive that is loading");
  if (p == nullptr) {
    Put<WORD>(kNullTag);
    return;
  }
  const DWORD index = m_storeIndex.Find(p);
  if (index != 0) {
    WriteIndexTag(index, 0);
    return;
  }
  WriteNewObject(p, true);
}

void CArchive::WriteOwnedObject(const CObject* p) {
  if (m_loading) ThrowFailure(CArchiveException::readOnly, "write to an archive that is loading");
  if (p == nullptr) {
    Put<WORD>(kNullTag);
    return;
  }
  WriteNewObject(p, false);
}

// ---- loading objects ---------------------------------------------------------------------------

void CArchive::AddLoadEntry(EntryKind kind, std::size_t payload) {
  if (payload > kPayloadMask) {
    ThrowFailure(CArchiveException::genericException,
                 "more than " + std::to_string(kPayloadMask) + " classes or shared records");
  }
  m_loadTable.push_back((static_cast<DWORD>(kind) << kKindShift) | static_cast<DWORD>(payload));
}

DWORD CArchive::ReadNewClass() {
  const std::size_t at = GetPosition() - 2;
  const UINT schema = Get<WORD>();
  const WORD len = Get<WORD>();
  if (len >= kMaxClassNameLength) {
    throw CArchiveException(CArchiveException::badClass, m_name, at,
                            "class name of " + std::to_string(len) + " bytes (at most 63)");
  }
  char name[kMaxClassNameLength];
  ReadExact(name, len, "class name");
  name[len] = '\0';
  const CRuntimeClass* cls = CRuntimeClass::FromName(name);
  if (cls == nullptr) {
    throw CArchiveException(CArchiveException::badClass, m_name, at,
                            "unknown record class \"" + std::string(name) + "\"");
  }
  if (schema != cls->GetSchema() && !cls->IsVersionable()) {
    throw CArchiveException(CArchiveException::badSchema, m_name, at,
                            std::string(name) + " stored with schema " + std::to_string(schema) +
                                "; this library reads only schema " +
                                std::to_string(cls->GetSchema()));
  }
  const std::size_t slot = m_loadClasses.size();
  AddLoadEntry(kClassEntry, slot);
  m_loadClasses.push_back(LoadClass{cls, schema});
  return static_cast<DWORD>(slot);
}

CObject* CArchive::ReadNewObject(DWORD classSlot, bool shared) {
  const LoadClass& loadClass = m_loadClasses[classSlot];
  std::unique_ptr<CObject> obj(loadClass.cls->CreateObject());
  if (!obj)
    ThrowFailure(CArchiveException::badClass,
                 std::string(loadClass.cls->m_lpszClassName) + " cannot be created");
  const std::size_t index = m_loadTable.size();
  if (shared) {
    AddLoadEntry(kSharedEntry, m_sharedRecords.size());
    m_sharedRecords.push_back(SharedRecord{obj.get(), classSlot});
  } else {
    AddLoadEntry(kOwnedEntry, classSlot);
  }

  const UINT savedSchema = m_objectSchema;
  m_objectSchema = loadClass.schema;
  ++m_depth;
  try {
    obj->Serialize(*this);
  } catch (...) {
    --m_depth;
    m_objectSchema = savedSchema;
    m_loadTable[index] = static_cast<DWORD>(kDeadEntry) << kKindShift;
    throw;
  }
  --m_depth;
  m_objectSchema = savedSchema;
  if (shared) {
    m_sharedPool.push_back(std::move(obj));
    return m_sharedPool.back().get();
  }
  return obj.release();
}

CObject* CArchive::ReadBackReference(DWORD tag, std::size_t at, const CRuntimeClass* requested,
                                     bool shared) {
  if (tag >= m_loadTable.size()) {
    throw CArchiveException(CArchiveException::badIndex, m_name, at,
                            "reference to entry #" + std::to_string(tag) + ", but only " +
                                std::to_string(m_loadTable.size() - 1) +
                                " classes and records were read so far");
  }
  const DWORD entry = m_loadTable[tag];
  const DWORD kind = entry >> kKindShift;
  const DWORD payload = entry & kPayloadMask;
  if (kind == kClassEntry) {
    throw CArchiveException(CArchiveException::badIndex, m_name, at,
                            "reference to entry #" + std::to_string(tag) +
                                ", which is a class, where a record is expected");
  }
  if (kind == kDeadEntry) {
    throw CArchiveException(
        CArchiveException::badIndex, m_name, at,
        "reference to record #" + std::to_string(tag) + ", which failed to load");
  }
  const DWORD classSlot = kind == kSharedEntry ? m_sharedRecords[payload].classSlot : payload;
  const CRuntimeClass* cls = m_loadClasses[classSlot].cls;
  if (requested != nullptr && !cls->IsDerivedFrom(requested)) {
    throw CArchiveException(CArchiveException::badClass, m_name, at,
                            "reference to a " + std::string(cls->m_lpszClassName) + " where a " +
                                requested->m_lpszClassName + " is expected");
  }
  if (!shared || kind == kOwnedEntry) {
    throw CArchiveException(CArchiveException::badIndex, m_name, at,
                            "record #" + std::to_string(tag) + " (" + cls->m_lpszClassName +
                                ") is stored once and referenced again where a record of "
                                "its own is expected");
  }
  return m_sharedRecords[payload].obj;
}

CObject* CArchive::ReadObjectTag(const CRuntimeClass* requested, bool shared, bool* isNew) {
  if (!m_loading)
    ThrowFailure(CArchiveException::writeOnly, "read from an archive that is storing");
  *isNew = false;
  // The table's first entry stands for the null object.
  if (m_loadTable.empty()) m_loadTable.push_back(kNullEntry);
  const std::size_t at = GetPosition();
  const WORD w = Get<WORD>();
  DWORD classSlot = 0;
  if (w == kNewClassTag) {
    classSlot = ReadNewClass();
  } else {
    const DWORD tag = w == kBigObjectTag
                          ? Get<DWORD>()
                          : ((static_cast<DWORD>(w & kClassTag) << 16) | (w & kBigObjectTag));
    if ((tag & kBigClassTag) == 0) {
      if (tag == 0) return nullptr;
      return ReadBackReference(tag, at, requested, shared);
    }
    const DWORD c = tag & ~kBigClassTag;
    if (c == 0 || c >= m_loadTable.size() || (m_loadTable[c] >> kKindShift) != kClassEntry) {
      throw CArchiveException(CArchiveException::badIndex, m_name, at,
                              "class reference #" + std::to_string(c) + " names no class");
    }
    classSlot = m_loadTable[c] & kPayloadMask;
  }
  const CRuntimeClass* cls = m_loadClasses[classSlot].cls;
  if (requested != nullptr && !cls->IsDerivedFrom(requested)) {
    throw CArchiveException(CArchiveException::badClass, m_name, at,
                            "a " + std::string(cls->m_lpszClassName) + " where a " +
                                requested->m_lpszClassName + " is expected");
  }
  if (m_depth >= kMaxObjectDepth) {
    throw CArchiveException(CArchiveException::genericException, m_name, at,
                            "a " + std::string(cls->m_lpszClassName) + " nested more than " +
                                std::to_string(kMaxObjectDepth) + " levels deep");
  }
  *isNew = true;
  return ReadNewObject(classSlot, shared);
}

std::unique_ptr<CObject> CArchive::ReadOwnedObject(const CRuntimeClass* requested) {
  bool isNew = false;
  return std::unique_ptr<CObject>(ReadObjectTag(requested, false, &isNew));
}

CObject* CArchive::ReadSharedObject(const CRuntimeClass* requested) {
  bool isNew = false;
  return ReadObjectTag(requested, true, &isNew);
}

std::vector<std::unique_ptr<CObject>> CArchive::TakeSharedObjects() {
  std::vector<std::unique_ptr<CObject>> out;
  out.swap(m_sharedPool);
  return out;
}

}  // namespace persona
