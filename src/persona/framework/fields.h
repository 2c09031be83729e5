// One description per record. Each record class lists its fields once, in a member template
//
//     template <class V> void Fields(V& v) {
//       v("EskId", m_EskId);             // name = the accessor stem (GetEskId / SetEskId)
//       v("Npspac", m_Npspac, Since{3}); // added by schema 3: read only from schema 3 on
//       v("AltPttIndex", m_alt, Transient{});  // held in memory only
//     }
//
// and generic code does the repetitive work from that list:
//   - SerializeFields(ar, rec, schema): stores every field in list order and loads the fields
//     that the stored schema has (a record whose archive order is a plain sequence lists its
//     fields in archive order and needs nothing else in Serialize);
//   - CObject::VisitFields (through PERSONA_FIELDS): hands every field, with its name, to a
//     run-time CFieldVisitor (JSON export and import, field-by-field diff, generic tests).
// A class lists only its own fields; PERSONA_FIELDS(Base) chains to the base class first.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <type_traits>

#include <persona/framework/archive.h>
#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/object.h>
#include <persona/framework/types.h>

namespace persona {

// Field options.
struct PERSONA_EXPORT
    Since {  // archived from this schema on; older objects keep the constructor default
  unsigned schema;
};
struct PERSONA_EXPORT Transient {};  // held in memory only: not archived, exported or compared
struct PERSONA_EXPORT Hex {};        // a code best shown in hexadecimal
// Report hints, used by the option report blocks and ignored by the archive.
struct PERSONA_EXPORT Label {  // the field's label in its record's report block
  const char* text;
};
struct PERSONA_EXPORT OnOff {};  // a switch printed "Off" / "On"
struct PERSONA_EXPORT Words {    // a code printed through a word list (the code indexes the list)
  const char* const* words;
  std::size_t count;
};
// Words over a static array of texts: Words(kBaudWords).
template <std::size_t N>
constexpr Words WordsOf(const char* const (&words)[N]) {
  return Words{words, N};
}

// What a name field names: records refer to one another by name only, and the reference
// maintenance (integrity/) finds every such field through this option. Ignored by the archive,
// the JSON code and the report.
enum class RefKind : BYTE {
  System,   // a system (exact name)
  Set,      // a set of list setType (name ignoring case)
  Channel,  // a channel of a conventional or P25 conventional set (exact name)
  Group,    // a group of a group set of any kind (exact name)
  Wan,      // a P25 wide-area network of CP25tWanOpts (exact name)
};
// setType of a Set reference held by a system whose group set list follows its kind (trunked:
// group sets, extended addressing: extended-addressing group sets, P25 trunked: P25 group sets,
// messaging: messaging group sets).
constexpr int kGroupSetOfSystem = -1;
struct PERSONA_EXPORT RefersTo {
  RefKind kind;
  int setType = kGroupSetOfSystem;  // Set references: the list of the named set
  // Channel and Group references: the field of the same record that names the system whose
  // channel or group set holds the element; null means the set that holds the field itself.
  const char* scopeField = nullptr;
};

// What a run-time visitor learns about a field besides its value.
struct PERSONA_EXPORT FieldInfo {
  const char* name;
  unsigned since;  // 0 or 1: present in every schema
  bool hex;
  // What the field names, for name fields (valid during the visit only); null otherwise.
  const RefersTo* refersTo = nullptr;
  // The field's report words, for coded fields (valid during the visit only); null otherwise.
  const Words* words = nullptr;
  bool onOff = false;  // a switch printed "Off" / "On"
};

// Run-time visitor over the described fields of a record; one overload per field type.
class PERSONA_EXPORT CFieldVisitor {
 public:
  virtual ~CFieldVisitor() = default;
  virtual void Field(const FieldInfo& f, bool& v) = 0;
  virtual void Field(const FieldInfo& f, BYTE& v) = 0;
  virtual void Field(const FieldInfo& f, WORD& v) = 0;
  virtual void Field(const FieldInfo& f, short& v) = 0;
  virtual void Field(const FieldInfo& f, DWORD& v) = 0;
  virtual void Field(const FieldInfo& f, LONG& v) = 0;
  virtual void Field(const FieldInfo& f, double& v) = 0;
  virtual void Field(const FieldInfo& f, CString& v) = 0;
  virtual void Field(const FieldInfo& f, CStringArray& v) = 0;
  virtual void Field(const FieldInfo& f, CWordArray& v) = 0;
  // A fixed array of 16-bit values (tone tables).
  virtual void Field(const FieldInfo& f, WORD* values, std::size_t count) = 0;
  // Records owned by this record (set elements, option sub-records), in order.
  virtual void Field(const FieldInfo& f, COwnedObList& v) = 0;
  // Records this record refers to without owning them (security key lists).
  virtual void Field(const FieldInfo& f, CObList& v) = 0;
};

// A visitor that passes over every field: visitors interested in a few field types derive from
// it, override those (bringing the rest in with `using CFieldSkipper::Field;`) and skip the others.
class PERSONA_EXPORT CFieldSkipper : public CFieldVisitor {
 public:
  void Field(const FieldInfo&, bool&) override {}
  void Field(const FieldInfo&, BYTE&) override {}
  void Field(const FieldInfo&, WORD&) override {}
  void Field(const FieldInfo&, short&) override {}
  void Field(const FieldInfo&, DWORD&) override {}
  void Field(const FieldInfo&, LONG&) override {}
  void Field(const FieldInfo&, double&) override {}
  void Field(const FieldInfo&, CString&) override {}
  void Field(const FieldInfo&, CStringArray&) override {}
  void Field(const FieldInfo&, CWordArray&) override {}
  void Field(const FieldInfo&, WORD*, std::size_t) override {}
  void Field(const FieldInfo&, COwnedObList&) override {}
  void Field(const FieldInfo&, CObList&) override {}
};

namespace fields_detail {

template <class... O>
constexpr unsigned SinceOf(const O&... opts) {
  unsigned since = 0;
  (
      [&](const auto& o) {
        if constexpr (std::is_same_v<std::decay_t<decltype(o)>, Since>) since = o.schema;
      }(opts),
      ...);
  return since;
}

template <class T, class... O>
constexpr bool Has() {
  return (std::is_same_v<T, O> || ...);
}

template <class... O>
const Words* WordsOfOpts(const O&... opts) {
  const Words* words = nullptr;
  (
      [&](const auto& o) {
        if constexpr (std::is_same_v<std::decay_t<decltype(o)>, Words>) words = &o;
      }(opts),
      ...);
  return words;
}

template <class... O>
const RefersTo* RefersToOf(const O&... opts) {
  const RefersTo* ref = nullptr;
  (
      [&](const auto& o) {
        if constexpr (std::is_same_v<std::decay_t<decltype(o)>, RefersTo>) ref = &o;
      }(opts),
      ...);
  return ref;
}

}  // namespace fields_detail

// Archives the fields of a record in list order (see the file comment). Numbers are copied
// straight between the record and the archive's buffer through a cursor held here (in a
// register once the record's Fields is inlined); strings, lists and nested records go through
// the archive, with the cursor handed back first and taken up again after.
class PERSONA_EXPORT FieldArchiver {
 public:
  // schema: the stored schema of the object being loaded (8-bit; 255 = none); ignored when
  // storing.
  FieldArchiver(CArchive& ar, BYTE schema) : m_ar(ar), m_schema(schema), m_loading(ar.IsLoading()) {
    TakeCursor();
  }
  FieldArchiver(const FieldArchiver&) = delete;
  FieldArchiver& operator=(const FieldArchiver&) = delete;
  // Hands the cursor back to the archive (unless a failure inside the archive has it).
  ~FieldArchiver() {
    if (m_holding) GiveCursor();
  }

  template <class T, class... O>
  PERSONA_ALWAYS_INLINE void operator()(const char*, T& member, const O&... opts) {
    if constexpr (fields_detail::Has<Transient, O...>()) {
      return;
    } else {
      if (!m_loading) {
        Store(member);
        return;
      }
      const unsigned since = fields_detail::SinceOf(opts...);
      if (since <= 1 || SchemaAtLeast(m_schema, since)) Load(member);
    }
  }

 private:
  void TakeCursor() {
    m_holding = true;
    if (m_loading) {
      m_in = m_ar.ReadCursor();
      m_inEnd = m_ar.ReadEnd();
    } else {
      m_out = m_ar.WriteCursor();
      m_outEnd = m_ar.WriteEnd();
    }
  }
  void GiveCursor() {
    m_holding = false;
    if (m_loading) {
      m_ar.SetReadCursor(m_in);
    } else {
      m_ar.SetWriteCursor(m_out);
    }
  }
  void Room(std::size_t n) {
    GiveCursor();
    m_ar.MakeRoom(n);
    TakeCursor();
  }
  [[noreturn]] void Short(std::size_t n) {
    GiveCursor();
    m_ar.ThrowShort(n, "value");
  }

  template <class T>
  PERSONA_ALWAYS_INLINE void Put(T v) {
    if (static_cast<std::size_t>(m_outEnd - m_out) < sizeof(T)) Room(sizeof(T));
    std::memcpy(m_out, &v, sizeof(T));
    m_out += sizeof(T);
  }
  template <class T>
  PERSONA_ALWAYS_INLINE T Get() {
    if (static_cast<std::size_t>(m_inEnd - m_in) < sizeof(T)) Short(sizeof(T));
    T v;
    std::memcpy(&v, m_in, sizeof(T));
    m_in += sizeof(T);
    return v;
  }

  template <class T>
  PERSONA_ALWAYS_INLINE void Store(T& m) {
    if constexpr (std::is_same_v<T, bool>) {
      Put<BYTE>(m ? 1 : 0);
    } else if constexpr (std::is_arithmetic_v<T>) {
      Put<T>(m);
    } else if constexpr (std::is_array_v<T>) {
      for (auto& e : m) Store(e);
    } else if constexpr (std::is_same_v<T, CString>) {
      StoreString(m);
    } else {
      GiveCursor();
      m.Serialize(m_ar);
      TakeCursor();
    }
  }
  template <class T>
  PERSONA_ALWAYS_INLINE void Load(T& m) {
    if constexpr (std::is_same_v<T, bool>) {
      m = Get<BYTE>() != 0;
    } else if constexpr (std::is_arithmetic_v<T>) {
      m = Get<T>();
    } else if constexpr (std::is_array_v<T>) {
      for (auto& e : m) Load(e);
    } else if constexpr (std::is_same_v<T, CString>) {
      LoadString(m);
    } else {
      GiveCursor();
      m.Serialize(m_ar);
      TakeCursor();
    }
  }

  // Strings shorter than 255 bytes (names, codes: nearly all of them) are a length byte and
  // the bytes, copied here; longer ones, and the wide form, go through the archive.
  PERSONA_ALWAYS_INLINE void StoreString(const CString& m) {
    const std::string& text = m.str();
    const std::size_t n = text.size();
    if (n < 0xFF) {
      if (static_cast<std::size_t>(m_outEnd - m_out) < n + 1) Room(n + 1);
      *m_out++ = static_cast<BYTE>(n);
      if (n != 0) std::memcpy(m_out, text.data(), n);
      m_out += n;
      return;
    }
    GiveCursor();
    m_ar << m;
    TakeCursor();
  }
  PERSONA_ALWAYS_INLINE void LoadString(CString& m) {
    const std::size_t left = static_cast<std::size_t>(m_inEnd - m_in);
    if (left != 0 && *m_in < 0xFF && *m_in < left) {
      const std::size_t n = *m_in;
      const char* text = reinterpret_cast<const char*>(m_in + 1);
      std::string& out = m.str();
      if (n <= 15) {  // fits the string's own buffer: no call, no allocation
        out.clear();
        for (std::size_t i = 0; i < n; ++i) out.push_back(text[i]);
      } else {
        out.assign(text, n);
      }
      m_in += 1 + n;
      return;
    }
    GiveCursor();
    m_ar >> m;
    TakeCursor();
  }

  CArchive& m_ar;
  BYTE m_schema;
  bool m_loading;
  const BYTE* m_in = nullptr;
  const BYTE* m_inEnd = nullptr;
  BYTE* m_out = nullptr;
  BYTE* m_outEnd = nullptr;
  bool m_holding = false;
};

// Stores or loads the fields that rec.Fields lists (see the file comment).
template <class R>
PERSONA_ALWAYS_INLINE void SerializeFields(CArchive& ar, R& rec, BYTE schema = 255) {
  FieldArchiver archiver(ar, schema);
  rec.Fields(archiver);
}

// Bridges a record's Fields template to a run-time CFieldVisitor.
class PERSONA_EXPORT FieldAdapter {
 public:
  explicit FieldAdapter(CFieldVisitor& v) : m_v(v) {}

  template <class T, class... O>
  void operator()(const char* name, T& member, const O&... opts) {
    static_assert(!std::is_enum_v<T>, "hold enumerations as integers of their archived width");
    if constexpr (fields_detail::Has<Transient, O...>()) {
      return;
    } else {
      const FieldInfo info{name,
                           fields_detail::SinceOf(opts...),
                           fields_detail::Has<Hex, O...>(),
                           fields_detail::RefersToOf(opts...),
                           fields_detail::WordsOfOpts(opts...),
                           fields_detail::Has<OnOff, O...>()};
      if constexpr (std::is_array_v<T>) {
        static_assert(std::is_same_v<std::remove_extent_t<T>, WORD>, "only WORD arrays");
        m_v.Field(info, member, std::extent_v<T>);
      } else {
        m_v.Field(info, member);
      }
    }
  }

 private:
  CFieldVisitor& m_v;
};

}  // namespace persona

// In the class body of a record whose fields are described by a Fields template: makes them
// reachable at run time, after the fields of `base` (CObject has none).
#define PERSONA_FIELDS(base)                               \
 public:                                                   \
  void VisitFields(::persona::CFieldVisitor& v) override { \
    base::VisitFields(v);                                  \
    ::persona::FieldAdapter adapter(v);                    \
    Fields(adapter);                                       \
  }
