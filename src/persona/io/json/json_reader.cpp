// Streaming reader of personality JSON documents over the events of JsonScanner. Each record
// is created when its "$class" is read; its fields are then found by name in a table of
// references to its members (taken by a visit of the first record of its class, then moved to
// each next one), and set as their values arrive. Anything outside the exporter's form (a
// record whose first key is not "$class", an unknown field, a value of the wrong type or
// range, ...) abandons the stream; the caller then reads the document whole, which either
// accepts it or names the fault.
#include <persona/io/json/json_reader.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <istream>
#include <limits>
#include <unordered_map>
#include <vector>

#include <persona/framework/codepage.h>
#include <persona/framework/fields.h>
#include <persona/framework/file_io.h>
#include <persona/framework/short_copy.h>
#include <persona/io/json/f64_digits.h>
#include <persona/io/json/field_refs.h>
#include <persona/io/json/json_scanner.h>
#include <persona/io/json/personality_json.h>

namespace persona {

namespace {

constexpr int kMaxDepth = 32;  // records nested deeper are refused (as the whole reader does)

// Thrown to abandon the stream.
struct Abandon {};

// One open object or array of the document.
struct Frame {
  enum Kind {
    Document,    // the top object
    Record,      // a record: its "$class" first, then "$id" (shared records) and fields
    Ref,         // {"$ref": id} in a list of shared records
    OwnedList,   // the elements of an owned list
    SharedList,  // the elements of a list of shared records
    Values,      // the values of a string or number list field
    F64,         // {"$f64": "<16 hex digits>"}: a double that is not finite
  };
  explicit Frame(Kind k) : kind(k) {}
  Kind kind;
  const CRuntimeClass* expected = nullptr;  // Record, Ref, lists: the class the list holds
  void* list = nullptr;                     // lists; Record and Ref: the list the record goes to
  CObject* rec = nullptr;                   // Record: null until "$class" is read
  bool shared = false;                      // Record: an element of a list of shared records
  FieldRef field{};                         // Values, F64: the field being filled
  // Values: values read; Ref, F64: one once the value is read.
  std::size_t count = 0;
  std::vector<FieldRef> fields;  // Record: its field table
  // Record: the lengths of its fields' names, when its class's table is known (else null).
  const std::uint32_t* nameSizes = nullptr;
  std::vector<bool> seen;  // Record: fields already set
  std::size_t cursor = 0;  // Record: where the next key is looked for first
};

// True when key is the text of name, without measuring name first.
bool IsName(const char* name, std::string_view key) {
  for (const char c : key) {
    if (c == '\0' || *name != c) return false;
    ++name;
  }
  return *name == '\0';
}

// What the key just read expects as its value.
enum class Pending { None, Format, Version, Personality, Class, Id, Ref, F64, Field };

class Reader {
 public:
  // The personality read, with its shared records adopted; null unless the whole document was
  // read in the streamed form.
  std::unique_ptr<CPersonality> Result() {
    if (m_depth != 0 || !m_root || !m_formatOk || !m_versionOk) return nullptr;
    m_root->AdoptSharedRecords(std::move(m_shared));
    return std::move(m_root);
  }

  void Null() {
    if (m_pending != Pending::None) throw Abandon();
    Frame& top = Top();
    if (top.kind == Frame::OwnedList) {
      static_cast<COwnedObList*>(top.list)->Add(static_cast<CObject*>(nullptr));
    } else if (top.kind == Frame::SharedList) {
      static_cast<CObList*>(top.list)->AddTail(nullptr);
    } else {
      throw Abandon();
    }
  }
  void Bool(bool v) { *static_cast<bool*>(TakeField(FieldKind::Bool).member) = v; }
  void Integer(long long v);
  [[noreturn]] void Unsigned(unsigned long long) { throw Abandon(); }  // no field is that wide
  void Float(double v) { *static_cast<double*>(TakeField(FieldKind::Double).member) = v; }
  void String(std::string_view v);
  void StartObject();
  void Key(std::string_view k);
  void EndObject();
  void StartArray();
  void EndArray();

 private:
  Frame& Top() {
    if (m_depth == 0) throw Abandon();
    return m_frames[m_depth - 1];
  }
  // Opens f on top of the others, in a frame whose tables keep their room from earlier use.
  void Push(const Frame& f) {
    if (m_depth == m_frames.size()) m_frames.emplace_back(f.kind);
    Frame& slot = m_frames[m_depth++];
    std::vector<FieldRef> fields = std::move(slot.fields);
    std::vector<bool> seen = std::move(slot.seen);
    slot = f;
    slot.fields = std::move(fields);
    slot.seen = std::move(seen);
  }
  Pending Take() {
    const Pending p = m_pending;
    m_pending = Pending::None;
    return p;
  }
  // The field whose value was announced by the last key, which must be of kind.
  const FieldRef& TakeField(FieldKind kind) {
    if (Take() != Pending::Field || m_field->kind != kind) throw Abandon();
    return *m_field;
  }
  template <class T>
  static void Store(void* member, long long v) {
    if (v < static_cast<long long>(std::numeric_limits<T>::min()) ||
        v > static_cast<long long>(std::numeric_limits<T>::max())) {
      throw Abandon();
    }
    *static_cast<T*>(member) = static_cast<T>(v);
  }
  static CString Text(std::string_view utf8) {
    std::string bytes;
    if (!Utf8ToWindows1252(utf8, &bytes)) throw Abandon();
    return CString(std::move(bytes));
  }
  static double F64(std::string_view hex);
  void CreateRecord(Frame& f, std::string_view className);
  // Fills f.fields with the field table of its record, new and of class rc: taken by a visit
  // of the first record of the class, and for the next ones moved to their place when every
  // field of the first lay within the record.
  void TakeFieldTable(Frame& f, const CRuntimeClass& rc);
  void FieldKey(Frame& f, std::string_view k);

  std::vector<Frame> m_frames;  // the open objects and arrays up to m_depth, then spares
  std::size_t m_depth = 0;
  Pending m_pending = Pending::None;
  const FieldRef* m_field = nullptr;  // Pending::Field: the field
  int m_openRecords = 0;
  // The field table of each class read so far, with each member's offset in the record.
  struct ClassFields {
    bool seen = false;
    bool inPlace = false;
    std::vector<FieldRef> refs;
    std::vector<std::size_t> offsets;
    std::vector<std::uint32_t> nameSizes;
  };
  std::unordered_map<const CRuntimeClass*, ClassFields> m_classFields;
  std::unordered_map<long long, CObject*> m_ids;
  std::unique_ptr<CPersonality> m_root;
  std::vector<std::unique_ptr<CObject>> m_shared;
  bool m_formatOk = false;
  bool m_versionOk = false;
};

void Reader::Integer(long long v) {
  Frame& top = Top();
  switch (Take()) {
    case Pending::Version:
      m_versionOk = v == kPersonalityJsonFormatVersion;
      return;
    case Pending::Id:
      if (!m_ids.emplace(v, top.rec).second) throw Abandon();
      return;
    case Pending::Ref: {
      const auto it = m_ids.find(v);
      if (it == m_ids.end() || (top.expected && !it->second->IsKindOf(top.expected))) {
        throw Abandon();
      }
      static_cast<CObList*>(top.list)->AddTail(it->second);
      top.count = 1;
      return;
    }
    case Pending::Field:
      break;
    case Pending::None:
      if (top.kind != Frame::Values) throw Abandon();
      if (top.field.kind == FieldKind::Words) {
        auto* words = static_cast<CWordArray*>(top.field.member);
        Store<WORD>(&words->ElementAt(words->Add(0)), v);
      } else if (top.field.kind == FieldKind::WordTable && top.count < top.field.count) {
        Store<WORD>(static_cast<WORD*>(top.field.member) + top.count, v);
      } else {
        throw Abandon();
      }
      ++top.count;
      return;
    default:
      throw Abandon();
  }
  switch (m_field->kind) {
    case FieldKind::Byte:
      return Store<BYTE>(m_field->member, v);
    case FieldKind::Word:
      return Store<WORD>(m_field->member, v);
    case FieldKind::Short:
      return Store<short>(m_field->member, v);
    case FieldKind::Dword:
      return Store<DWORD>(m_field->member, v);
    case FieldKind::Long:
      return Store<LONG>(m_field->member, v);
    case FieldKind::Double:
      *static_cast<double*>(m_field->member) = static_cast<double>(v);
      return;
    default:
      throw Abandon();
  }
}

double Reader::F64(std::string_view hex) {
  double v = 0;
  if (!DoubleOfF64Digits(hex, &v)) throw Abandon();
  return v;
}

void Reader::String(std::string_view v) {
  Frame& top = Top();
  switch (Take()) {
    case Pending::Format:
      m_formatOk = v == kPersonalityJsonFormat;
      return;
    case Pending::Class:
      CreateRecord(top, v);
      return;
    case Pending::F64:
      *static_cast<double*>(top.field.member) = F64(v);
      top.count = 1;
      return;
    case Pending::Field:
      if (m_field->kind != FieldKind::String) throw Abandon();
      *static_cast<CString*>(m_field->member) = Text(v);
      return;
    case Pending::None:
      if (top.kind != Frame::Values || top.field.kind != FieldKind::Strings) throw Abandon();
      static_cast<CStringArray*>(top.field.member)->Add(Text(v));
      ++top.count;
      return;
    default:
      throw Abandon();
  }
}

void Reader::StartObject() {
  if (m_depth == 0) {
    Push(Frame(Frame::Document));
    return;
  }
  Frame& top = Top();
  const Pending pending = Take();
  Frame f(Frame::Record);
  if (pending == Pending::Personality) {
    if (m_root) throw Abandon();  // a second "personality": the whole reader takes the last
    f.expected = RUNTIME_CLASS(CPersonality);
  } else if (pending == Pending::Field && m_field->kind == FieldKind::Double) {
    f.kind = Frame::F64;
    f.field = *m_field;
  } else if (pending == Pending::None &&
             (top.kind == Frame::OwnedList || top.kind == Frame::SharedList)) {
    f.expected = top.expected;
    f.list = top.list;
    f.shared = top.kind == Frame::SharedList;
  } else {
    throw Abandon();
  }
  Push(f);
}

void Reader::CreateRecord(Frame& f, std::string_view className) {
  const CRuntimeClass* rc = CRuntimeClass::FromName(std::string(className).c_str());
  if (rc == nullptr || rc->m_pfnCreateObject == nullptr) throw Abandon();
  if (f.expected != nullptr && !rc->IsDerivedFrom(f.expected)) throw Abandon();
  if (m_openRecords >= kMaxDepth) throw Abandon();
  std::unique_ptr<CObject> rec(rc->CreateObject());
  f.rec = rec.get();
  if (f.shared) {
    static_cast<CObList*>(f.list)->AddTail(f.rec);
    m_shared.push_back(std::move(rec));
  } else if (f.list != nullptr) {
    static_cast<COwnedObList*>(f.list)->Add(std::move(rec));
  } else {
    m_root.reset(static_cast<CPersonality*>(rec.release()));
  }
  ++m_openRecords;
  TakeFieldTable(f, *rc);
  f.seen.assign(f.fields.size(), false);
}

void Reader::TakeFieldTable(Frame& f, const CRuntimeClass& rc) {
  ClassFields& known = m_classFields[&rc];
  auto* const base = reinterpret_cast<unsigned char*>(f.rec);
  if (known.inPlace) {
    f.fields = known.refs;
    f.nameSizes = known.nameSizes.data();
    for (std::size_t i = 0; i < f.fields.size(); ++i) f.fields[i].member = base + known.offsets[i];
    return;
  }
  f.nameSizes = nullptr;
  CollectFieldRefs(*f.rec, f.fields);
  if (known.seen) return;  // a class whose fields are not all within the record
  known.seen = true;
  const auto size = static_cast<std::size_t>(rc.m_nObjectSize);
  std::vector<std::size_t> offsets;
  for (const FieldRef& ref : f.fields) {
    const auto* member = static_cast<const unsigned char*>(ref.member);
    if (member < base || member >= base + size) return;
    offsets.push_back(static_cast<std::size_t>(member - base));
  }
  known.refs = f.fields;
  known.offsets = std::move(offsets);
  for (const FieldRef& ref : f.fields) {
    known.nameSizes.push_back(static_cast<std::uint32_t>(std::strlen(ref.name)));
  }
  known.inPlace = true;
}

void Reader::FieldKey(Frame& f, std::string_view k) {
  const std::size_t n = f.fields.size();
  for (std::size_t step = 0, i = f.cursor; step < n; ++step, ++i) {
    if (i >= n) i -= n;
    const char* name = f.fields[i].name;
    const bool same = f.nameSizes != nullptr
                          ? f.nameSizes[i] == k.size() && SameShort(name, k.data(), k.size())
                          : IsName(name, k);
    if (!same) continue;
    if (f.seen[i]) throw Abandon();
    f.seen[i] = true;
    f.cursor = i + 1;
    m_field = &f.fields[i];
    m_pending = Pending::Field;
    return;
  }
  throw Abandon();
}

void Reader::Key(std::string_view k) {
  if (m_pending != Pending::None) throw Abandon();
  Frame& top = Top();
  switch (top.kind) {
    case Frame::Document:
      m_pending = k == "format"          ? Pending::Format
                  : k == "formatVersion" ? Pending::Version
                  : k == "personality"   ? Pending::Personality
                                         : throw Abandon();
      return;
    case Frame::Record:
      if (top.rec == nullptr) {
        if (k == "$class") {
          m_pending = Pending::Class;
        } else if (top.shared && k == "$ref") {
          top.kind = Frame::Ref;
          m_pending = Pending::Ref;
        } else {
          throw Abandon();
        }
      } else if (k == "$id" && top.shared) {
        m_pending = Pending::Id;
      } else {
        FieldKey(top, k);
      }
      return;
    case Frame::F64:
      if (top.count != 0 || k != "$f64") throw Abandon();
      m_pending = Pending::F64;
      return;
    default:
      throw Abandon();
  }
}

void Reader::EndObject() {
  if (m_pending != Pending::None) throw Abandon();
  Frame& top = Top();
  if (top.kind == Frame::Record) {
    if (top.rec == nullptr) throw Abandon();
    CFieldSkipper done;  // a record may act on the end of a visit of its fields
    top.rec->VisitFields(done);
    --m_openRecords;
  } else if (top.kind == Frame::Ref || top.kind == Frame::F64) {
    if (top.count != 1) throw Abandon();
  } else if (top.kind != Frame::Document) {
    throw Abandon();
  }
  --m_depth;
}

void Reader::StartArray() {
  if (Take() != Pending::Field) throw Abandon();
  Frame f(Frame::Values);
  f.field = *m_field;
  switch (m_field->kind) {
    case FieldKind::Strings:
      static_cast<CStringArray*>(m_field->member)->RemoveAll();
      break;
    case FieldKind::Words:
      static_cast<CWordArray*>(m_field->member)->RemoveAll();
      break;
    case FieldKind::WordTable:
      break;
    case FieldKind::Owned: {
      auto* list = static_cast<COwnedObList*>(m_field->member);
      list->DeleteAll();
      f.kind = Frame::OwnedList;
      f.list = list;
      f.expected = list->GetElementClass();
      break;
    }
    case FieldKind::Shared: {
      auto* list = static_cast<CObList*>(m_field->member);
      list->RemoveAll();
      f.kind = Frame::SharedList;
      f.list = list;
      f.expected = list->GetElementClass();
      break;
    }
    default:
      throw Abandon();
  }
  Push(f);
}

void Reader::EndArray() {
  Frame& top = Top();
  if (top.kind == Frame::Values) {
    if (top.field.kind == FieldKind::WordTable && top.count != top.field.count) throw Abandon();
  } else if (top.kind != Frame::OwnedList && top.kind != Frame::SharedList) {
    throw Abandon();
  }
  --m_depth;
}

// Reads the document pull gives; null when the scanner or the reader gives it up.
std::unique_ptr<CPersonality> Stream(JsonPull pull) {
  Reader reader;
  try {
    if (!JsonScanner(std::move(pull)).Parse(reader)) return nullptr;
  } catch (const Abandon&) {
    return nullptr;
  }
  return reader.Result();
}

}  // namespace

std::unique_ptr<CPersonality> StreamPersonalityJson(std::istream& text) {
  return Stream([&text](char* dst, std::size_t n) {
    text.read(dst, static_cast<std::streamsize>(n));
    return static_cast<std::size_t>(text.gcount());
  });
}

std::unique_ptr<CPersonality> StreamPersonalityJson(const char* data, std::size_t size) {
  return Stream([&data, &size](char* dst, std::size_t n) {
    n = std::min(n, size);
    std::memcpy(dst, data, n);
    data += n;
    size -= n;
    return n;
  });
}

std::unique_ptr<CPersonality> ReadPersonalityJsonFile(const std::string& path) {
  {
    std::vector<char> buffer(1 << 16);
    std::ifstream in;
    in.rdbuf()->pubsetbuf(buffer.data(), static_cast<std::streamsize>(buffer.size()));
    in.open(path, std::ios::binary);
    if (in) {
      if (std::unique_ptr<CPersonality> p = StreamPersonalityJson(in)) return p;
    }
  }
  const std::vector<BYTE> bytes = ReadWholeFile(path);
  return ImportPersonalityJson(Json::parse(bytes.begin(), bytes.end()), path);
}

}  // namespace persona
