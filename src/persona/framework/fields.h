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

// Returns the record's first text field named "Name" (every set element has one), or null. The
// pointer is into record; one visit of its fields, nothing allocated.
PERSONA_EXPORT CString* FindNameField(CObject& record);

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

namespace fields_detail {

constexpr std::size_t kUnbounded = static_cast<std::size_t>(-1);
// A string in its short form: a length byte below 255, then that many bytes.
constexpr std::size_t kShortStringBytes = 255;

// The most bytes a field of type T takes in the archive with its strings in the short form;
// kUnbounded for lists and nested records.
template <class T>
constexpr std::size_t BoundOf() {
  if constexpr (std::is_same_v<T, bool>) {
    return 1;
  } else if constexpr (std::is_arithmetic_v<T>) {
    return sizeof(T);
  } else if constexpr (std::is_array_v<T>) {
    constexpr std::size_t each = BoundOf<std::remove_extent_t<T>>();
    return each == kUnbounded ? kUnbounded : each * std::extent_v<T>;
  } else if constexpr (std::is_same_v<T, CString>) {
    return kShortStringBytes;
  } else {
    return kUnbounded;
  }
}

constexpr std::size_t AddBound(std::size_t a, std::size_t b) {
  return a == kUnbounded || b == kUnbounded ? kUnbounded : a + b;
}

// Adds up the bound of a record's archived fields. It reads no value, so once the record's
// Fields is inlined the sum is a constant.
class SizeBound {
 public:
  template <class T, class... O>
  PERSONA_ALWAYS_INLINE void operator()(const char*, T&, const O&...) {
    if constexpr (!Has<Transient, O...>()) m_bytes = AddBound(m_bytes, BoundOf<T>());
  }
  std::size_t Bytes() const { return m_bytes; }

 private:
  std::size_t m_bytes = 0;
};

// Thrown by a bounded load when a long string leaves too little of the input for the bound
// of the fields after it; SerializeFields loads the record again, checking every field.
struct RestartChecked {};

}  // namespace fields_detail

// Stores the fields of a record in list order (see the file comment). Numbers are copied
// straight into the archive's buffer through a cursor held here (in a register once the
// record's Fields is inlined); long strings and nested records go through the archive, with
// the cursor handed back first and taken up again after. kBounded: room for the record's
// bound is made up front (and again after a long string), so no field checks for room.
template <bool kBounded>
class FieldStorer {
 public:
  FieldStorer(CArchive& ar, std::size_t bound) : m_ar(ar), m_bound(bound) {
    if constexpr (kBounded) m_ar.MakeRoom(bound);
    Take();
  }
  FieldStorer(const FieldStorer&) = delete;
  FieldStorer& operator=(const FieldStorer&) = delete;
  // Hands the cursor back to the archive (unless a failure inside the archive has it).
  ~FieldStorer() {
    if (m_holding) m_ar.SetWriteCursor(m_out);
  }

  template <class T, class... O>
  PERSONA_ALWAYS_INLINE void operator()(const char*, T& member, const O&...) {
    if constexpr (!fields_detail::Has<Transient, O...>()) {
      if constexpr (kBounded) m_upTo += fields_detail::BoundOf<T>();
      Store(member);
    }
  }

 private:
  void Take() {
    m_holding = true;
    m_out = m_ar.WriteCursor();
    m_outEnd = m_ar.WriteEnd();
  }
  void Give() {
    m_holding = false;
    m_ar.SetWriteCursor(m_out);
  }
  void Room(std::size_t n) {
    Give();
    m_ar.MakeRoom(n);
    Take();
  }
  // After the archive wrote a long string: room again for the fields still to come.
  void Resume() {
    Take();
    if constexpr (kBounded) Room(m_bound - m_upTo);
  }

  template <class T>
  PERSONA_ALWAYS_INLINE void Put(T v) {
    if constexpr (!kBounded) {
      if (static_cast<std::size_t>(m_outEnd - m_out) < sizeof(T)) Room(sizeof(T));
    }
    std::memcpy(m_out, &v, sizeof(T));
    m_out += sizeof(T);
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
      Give();
      m.Serialize(m_ar);
      Take();
    }
  }

  // Strings shorter than 255 bytes (names, codes: nearly all of them) are a length byte and
  // the bytes, copied here; longer ones go through the archive.
  PERSONA_ALWAYS_INLINE void StoreString(const CString& m) {
    const std::string& text = m.str();
    const std::size_t n = text.size();
    if (n < 0xFF) {
      if constexpr (!kBounded) {
        if (static_cast<std::size_t>(m_outEnd - m_out) < n + 1) Room(n + 1);
      }
      *m_out++ = static_cast<BYTE>(n);
      if (n != 0) std::memcpy(m_out, text.data(), n);
      m_out += n;
      return;
    }
    Give();
    m_ar << m;
    Resume();
  }

  CArchive& m_ar;
  std::size_t m_bound;
  std::size_t m_upTo = 0;  // the bound of the fields stored so far, this one included
  BYTE* m_out = nullptr;
  BYTE* m_outEnd = nullptr;
  bool m_holding = false;
};

// Loads the fields that the stored schema has, in list order. Numbers are copied straight from
// the archive's buffer through a cursor held here; long and wide strings and nested records go
// through the archive. kBounded: at least the record's bound is left beyond the cursor, so no
// field checks the bytes it reads; when a long string leaves less than the bound of the fields
// after it, RestartChecked starts the record over.
template <bool kBounded>
class FieldLoader {
 public:
  // schema: the stored schema of the object being loaded (8-bit; 255 = none).
  FieldLoader(CArchive& ar, BYTE schema, std::size_t bound)
      : m_ar(ar), m_schema(schema), m_bound(bound) {
    Take();
  }
  FieldLoader(const FieldLoader&) = delete;
  FieldLoader& operator=(const FieldLoader&) = delete;
  // Hands the cursor back to the archive (unless a failure inside the archive has it).
  ~FieldLoader() {
    if (m_holding) m_ar.SetReadCursor(m_in);
  }

  template <class T, class... O>
  PERSONA_ALWAYS_INLINE void operator()(const char*, T& member, const O&... opts) {
    if constexpr (!fields_detail::Has<Transient, O...>()) {
      if constexpr (kBounded) m_upTo += fields_detail::BoundOf<T>();
      const unsigned since = fields_detail::SinceOf(opts...);
      if (since <= 1 || SchemaAtLeast(m_schema, since)) Load(member);
    }
  }

 private:
  void Take() {
    m_holding = true;
    m_in = m_ar.ReadCursor();
    m_inEnd = m_ar.ReadEnd();
  }
  void Give() {
    m_holding = false;
    m_ar.SetReadCursor(m_in);
  }
  [[noreturn]] static void Short(CArchive& ar, const BYTE* at, std::size_t n) {
    ar.SetReadCursor(at);
    ar.ThrowShort(n, "value");
  }

  template <class T>
  PERSONA_ALWAYS_INLINE T Get() {
    if constexpr (!kBounded) {
      if (static_cast<std::size_t>(m_inEnd - m_in) < sizeof(T)) Short(m_ar, m_in, sizeof(T));
    }
    T v;
    std::memcpy(&v, m_in, sizeof(T));
    m_in += sizeof(T);
    return v;
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
      Give();
      m.Serialize(m_ar);
      Take();
    }
  }

  PERSONA_ALWAYS_INLINE void LoadString(CString& m) {
    if (kBounded || m_in != m_inEnd) {
      const std::size_t n = *m_in;
      if (n < 0xFF && (kBounded || n < static_cast<std::size_t>(m_inEnd - m_in))) {
        std::string& out = m.str();
        out.clear();
        if (n != 0) out.append(reinterpret_cast<const char*>(m_in + 1), n);
        m_in += 1 + n;
        return;
      }
    }
    Give();
    m_ar >> m;
    Take();
    if constexpr (kBounded) {
      if (static_cast<std::size_t>(m_inEnd - m_in) < m_bound - m_upTo) {
        throw fields_detail::RestartChecked{};
      }
    }
  }

  CArchive& m_ar;
  BYTE m_schema;
  std::size_t m_bound;
  std::size_t m_upTo = 0;  // the bound of the fields loaded so far, this one included
  const BYTE* m_in = nullptr;
  const BYTE* m_inEnd = nullptr;
  bool m_holding = false;
};

// Stores or loads the fields that rec.Fields lists (see the file comment). A record whose
// fields are all numbers and strings has a bound (its size with short strings): storing makes
// room for it once, and loading, when that much input is left, checks no field on its own.
template <class R>
PERSONA_ALWAYS_INLINE void SerializeFields(CArchive& ar, R& rec, BYTE schema = 255) {
  fields_detail::SizeBound size;
  rec.Fields(size);
  const std::size_t bound = size.Bytes();
  constexpr bool kHasBound = true;
  if (!ar.IsLoading()) {
    if (bound != fields_detail::kUnbounded) {
      FieldStorer<kHasBound> storer(ar, bound);
      rec.Fields(storer);
    } else {
      FieldStorer<!kHasBound> storer(ar, bound);
      rec.Fields(storer);
    }
    return;
  }
  if (bound != fields_detail::kUnbounded && ar.GetRemaining() >= bound) {
    const BYTE* const start = ar.ReadCursor();
    try {
      FieldLoader<kHasBound> loader(ar, schema, bound);
      rec.Fields(loader);
      return;
    } catch (const fields_detail::RestartChecked&) {
      ar.SetReadCursor(start);
    }
  }
  FieldLoader<!kHasBound> loader(ar, schema, bound);
  rec.Fields(loader);
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
