// CArchive: the framework's binary object archive. Stores primitives little-endian, strings
// with their length prefixes, counts, and object graphs with class tags, schema numbers and
// back-references, byte for byte as the framework's own archive does. Loading works on one
// memory buffer (a borrowed CMemFile buffer, or the rest of a disk file read in one piece);
// every fault raises CArchiveException with its cause, the file name and the byte offset.
#pragma once

#include <persona/export.h>

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <persona/framework/cstring.h>
#include <persona/framework/exceptions.h>
#include <persona/framework/object.h>
#include <persona/framework/types.h>

#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ != __ORDER_LITTLE_ENDIAN__
#error "the archive code assumes a little-endian host"
#endif

namespace persona {

class CFile;

class PERSONA_EXPORT CArchive {
 public:
  enum Mode : UINT { store = 0, load = 1, bNoFlushOnDelete = 2 };

  // Deepest nesting of objects inside objects that a load accepts.
  static constexpr int kMaxObjectDepth = 32;
  // Stored schema answer when none is available.
  static constexpr UINT kNoSchema = 0xFFFFFFFFu;

  // An archive on pFile (not owned; must outlive the archive). A loading archive reads the rest
  // of the file at once (a CMemFile's buffer is read in place). bufSize and buffer are accepted
  // for compatibility and not needed. Throws CFileException when a disk file cannot be read.
  CArchive(CFile* pFile, UINT mode, int bufSize = 4096, void* buffer = nullptr);
  // A loading archive over a buffer that the caller keeps alive; name is used in messages.
  CArchive(const BYTE* data, std::size_t size, std::string name = std::string());
  CArchive(const CArchive&) = delete;
  CArchive& operator=(const CArchive&) = delete;
  // A storing archive that was not closed writes nothing (Close writes).
  ~CArchive();

  bool IsLoading() const { return m_loading; }
  bool IsStoring() const { return !m_loading; }
  CFile* GetFile() const { return m_file; }
  // Name used in failure messages (defaults to the file's path).
  const std::string& GetFileName() const { return m_name; }
  void SetFileName(std::string name) { m_name = std::move(name); }

  // Storing: writes the buffered bytes to the file (CFileException on failure).
  void Flush();
  // Storing: flushes and detaches; loading: moves the file position past what was read.
  void Close();
  // Detaches without writing.
  void Abort();

  // Byte offset of the next byte to read or write, from the start of the stream.
  std::size_t GetPosition() const { return m_base + (m_loading ? m_pos : m_outLength); }
  // Loading: bytes not read yet.
  std::size_t GetRemaining() const { return m_size - m_pos; }
  // Storing without a file (a null CFile): takes the bytes written so far.
  std::vector<BYTE> TakeStoredBytes();
  // Storing: makes room for `bytes` bytes in all at once (an expected size; the room grows
  // past it as needed). Throws std::bad_alloc.
  void ReserveOutput(std::size_t bytes);

  // Raw bytes. Read returns how many were read (fewer at the end); Write throws readOnly
  // when loading.
  UINT Read(void* buffer, UINT count);
  void Write(const void* buffer, UINT count);
  // Reads exactly count bytes or throws endOfFile.
  void ReadExact(void* buffer, std::size_t count, const char* what);

  // Counts before list elements: WORD, or 0xFFFF + DWORD, or 0xFFFF + 0xFFFFFFFF + ULONGLONG.
  void WriteCount(ULONGLONG n);
  ULONGLONG ReadCount();
  // Refuses a count whose elements, at least minBytes each, cannot fit in the bytes left.
  void CheckCount(ULONGLONG n, std::size_t minBytes, const char* what) const;

  // Writes p as an object: null, a back-reference, or class tag + fields.
  void WriteObject(const CObject* p);
  // Writes p as a record that the stored graph holds exactly once (an element of an owned
  // list, a file's root record): null, or class tag + fields. It takes its index like any
  // record but is not entered in the index of stored objects, which then holds only classes
  // and shared records; nothing may refer back to it (loading refuses such references too).
  void WriteOwnedObject(const CObject* p);
  // Reads an object that the caller owns; it must be of requested (or derived; null accepts
  // any class) and stored for the first time here: a back-reference is refused with badIndex.
  std::unique_ptr<CObject> ReadOwnedObject(const CRuntimeClass* requested);
  // The framework's ReadObject: as ReadOwnedObject, released to the caller.
  CObject* ReadObject(const CRuntimeClass* requested) {
    return ReadOwnedObject(requested).release();
  }
  // Reads an object that the archive keeps (a shared record such as a key referenced by
  // several sets): a fresh one goes into the archive's pool, a back-reference returns the same
  // object again. A back-reference to an owned object is refused with badIndex.
  CObject* ReadSharedObject(const CRuntimeClass* requested);
  // Hands the pool of shared objects to the caller (who must keep them alive as long as the
  // records that point to them). Objects still pooled are deleted with the archive.
  std::vector<std::unique_ptr<CObject>> TakeSharedObjects();

  // The stored schema of the object being read, answered once: the next call answers
  // kNoSchema (255 in an 8-bit field) until the next object.
  UINT GetObjectSchema();
  void SetObjectSchema(UINT schema) { m_objectSchema = schema; }

  // Raises a CArchiveException at the current position.
  [[noreturn]] void ThrowFailure(CArchiveException::Cause cause, const std::string& detail) const;

  // Raw cursors for FieldStorer and FieldLoader, which keep them in registers across a record's
  // fields and hand them back before anything else touches the archive.
  // Loading: the next byte to read, and the end of the input.
  const BYTE* ReadCursor() const { return m_data + m_pos; }
  const BYTE* ReadEnd() const { return m_data + m_size; }
  void SetReadCursor(const BYTE* at) { m_pos = static_cast<std::size_t>(at - m_data); }
  // Storing: where the next byte goes, and the end of the room already made.
  BYTE* WriteCursor() { return m_out.data() + m_outLength; }
  BYTE* WriteEnd() { return m_out.data() + m_out.size(); }
  void SetWriteCursor(BYTE* at) { m_outLength = static_cast<std::size_t>(at - m_out.data()); }
  // Storing: makes room for at least `more` further bytes (cursors move; ask again).
  void MakeRoom(std::size_t more) {
    if (m_out.size() - m_outLength < more) GrowOutput(more);
  }
  // Loading: raises endOfFile for a value of `wanted` bytes at the read cursor.
  [[noreturn]] void ThrowShort(std::size_t wanted, const char* what) const {
    ThrowEnd(wanted, what);
  }

  // Primitives.
  PERSONA_ALWAYS_INLINE CArchive& operator<<(bool v) { return Put<BYTE>(v ? 1 : 0); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(char v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(signed char v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(unsigned char v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(short v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(unsigned short v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(int v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(unsigned int v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(std::int64_t v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(std::uint64_t v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(float v) { return Put(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator<<(double v) { return Put(v); }
  CArchive& operator<<(const CString& s);
  template <class E, std::enable_if_t<std::is_enum_v<E>, int> = 0>
  CArchive& operator<<(E v) {
    return Put(static_cast<std::int32_t>(v));
  }

  CArchive& operator>>(bool& v) {
    v = Get<BYTE>() != 0;
    return *this;
  }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(char& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(signed char& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(unsigned char& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(short& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(unsigned short& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(int& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(unsigned int& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(std::int64_t& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(std::uint64_t& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(float& v) { return GetInto(v); }
  PERSONA_ALWAYS_INLINE CArchive& operator>>(double& v) { return GetInto(v); }
  CArchive& operator>>(CString& s);
  template <class E, std::enable_if_t<std::is_enum_v<E>, int> = 0>
  CArchive& operator>>(E& v) {
    v = static_cast<E>(Get<std::int32_t>());
    return *this;
  }

  // Typed object pointers, as the framework offers them: storing writes the object, loading
  // reads one of class T that the caller owns.
  template <class T, std::enable_if_t<std::is_base_of_v<CObject, T>, int> = 0>
  CArchive& operator<<(const T* p) {
    WriteObject(p);
    return *this;
  }
  template <class T, std::enable_if_t<std::is_base_of_v<CObject, T>, int> = 0>
  CArchive& operator>>(T*& p) {
    p = static_cast<T*>(ReadObject(T::GetThisClass()));
    return *this;
  }

 private:
  template <class T>
  PERSONA_ALWAYS_INLINE CArchive& Put(T v) {
    if (m_loading) ThrowFailure(CArchiveException::readOnly, "write to an archive that is loading");
    if (m_out.size() - m_outLength < sizeof(T)) GrowOutput(sizeof(T));
    std::memcpy(m_out.data() + m_outLength, &v, sizeof(T));
    m_outLength += sizeof(T);
    return *this;
  }
  template <class T>
  PERSONA_ALWAYS_INLINE T Get() {
    if (!m_loading)
      ThrowFailure(CArchiveException::writeOnly, "read from an archive that is storing");
    if (m_size - m_pos < sizeof(T)) ThrowEnd(sizeof(T), "value");
    T v;
    std::memcpy(&v, m_data + m_pos, sizeof(T));
    m_pos += sizeof(T);
    return v;
  }
  template <class T>
  PERSONA_ALWAYS_INLINE CArchive& GetInto(T& v) {
    v = Get<T>();
    return *this;
  }
  [[noreturn]] void ThrowEnd(std::size_t wanted, const char* what) const;
  // Makes room for at least `more` bytes after the stored ones (the buffer doubles).
  void GrowOutput(std::size_t more);
  // Appends count raw bytes to the stored ones.
  void Append(const void* bytes, std::size_t count);

  // The index table of a loading archive: one 32-bit entry per index (0 is the null pointer),
  // the kind in the top bits and, below, the position of the entry's class in m_loadClasses
  // (class and owned-record entries) or of the record in m_sharedRecords (shared records).
  // Four bytes per record keep the table small next to the records themselves.
  enum EntryKind : DWORD {
    kNullEntry = 0,
    kClassEntry = 1,
    kOwnedEntry = 2,
    kSharedEntry = 3,
    kDeadEntry = 4
  };
  static constexpr int kKindShift = 29;
  static constexpr DWORD kPayloadMask = (1u << kKindShift) - 1;
  struct LoadClass {
    const CRuntimeClass* cls;
    UINT schema;
  };
  struct SharedRecord {
    CObject* obj;
    DWORD classSlot;
  };
  void AddLoadEntry(EntryKind kind, std::size_t payload);
  // Reads a tag and returns the object (existing or new) and whether it is new.
  CObject* ReadObjectTag(const CRuntimeClass* requested, bool shared, bool* isNew);
  CObject* ReadBackReference(DWORD tag, std::size_t at, const CRuntimeClass* requested,
                             bool shared);
  DWORD ReadNewClass();
  CObject* ReadNewObject(DWORD classSlot, bool shared);
  void WriteClass(const CRuntimeClass* cls);
  void WriteNewObject(const CObject* p, bool indexed);
  void WriteIndexTag(DWORD index, DWORD flag);

  // Index of every class and record stored so far, by address: open addressing over a power
  // of two slots, kept at most half full (one probe on average, no allocation per entry).
  class PointerIndex {
   public:
    // The index of key, or 0 when it has none.
    DWORD Find(const void* key) const;
    // Gives key the index value (key must not be present).
    void Insert(const void* key, DWORD value);

   private:
    struct Slot {
      const void* key = nullptr;
      DWORD value = 0;
    };
    std::size_t SlotOf(const void* key) const;
    void Grow();
    std::vector<Slot> m_slots;
    std::size_t m_used = 0;
  };

  bool m_loading;
  CFile* m_file = nullptr;
  std::string m_name;

  // loading
  const BYTE* m_data = nullptr;
  std::size_t m_size = 0;
  std::size_t m_pos = 0;
  std::size_t m_base = 0;     // file position at which the archive started
  std::vector<BYTE> m_input;  // the rest of a disk file, when not a CMemFile
  std::vector<DWORD> m_loadTable;
  std::vector<LoadClass> m_loadClasses;
  std::vector<SharedRecord> m_sharedRecords;
  std::vector<std::unique_ptr<CObject>> m_sharedPool;
  UINT m_objectSchema = kNoSchema;
  int m_depth = 0;

  // storing: m_out holds m_outLength stored bytes, the rest is room to grow
  std::vector<BYTE> m_out;
  std::size_t m_outLength = 0;
  PointerIndex m_storeIndex;
  DWORD m_nextIndex = 1;
  const CRuntimeClass* m_lastClass = nullptr;  // the class stored last, and its index
  DWORD m_lastClassIndex = 0;
};

// Reads the stored schema of the record being loaded as the 8-bit value the records keep
// (255 when there is none, and always while storing, so that one Serialize serves both).
inline BYTE ReadSchemaByte(CArchive& ar) { return static_cast<BYTE>(ar.GetObjectSchema()); }

// True when a field added by schema `since` is present in an object stored with `schema`
// (an 8-bit stored schema; 255 means none and reads as the oldest layout).
constexpr bool SchemaAtLeast(BYTE schema, unsigned since) {
  return schema != 255 && schema >= since;
}

}  // namespace persona
