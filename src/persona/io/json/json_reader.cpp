// Streaming reader of personality JSON documents over nlohmann-json's SAX events. Each record
// is created when its "$class" is read; its fields are then found by name in a table of
// references to its members, taken by one visit of its fields, and set as their values
// arrive. Anything outside the exporter's form (a record whose first key is not "$class",
// an unknown field, a value of the wrong type or range, ...) abandons the stream; the caller
// then reads the document whole, which either accepts it or names the fault.
#include <persona/io/json/json_reader.h>

#include <cstring>
#include <fstream>
#include <istream>
#include <limits>
#include <unordered_map>
#include <vector>

#include <persona/framework/codepage.h>
#include <persona/framework/fields.h>
#include <persona/framework/file_io.h>
#include <persona/io/json/f64_digits.h>
#include <persona/io/json/field_refs.h>
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
  std::vector<bool> seen;        // Record: fields already set
  std::size_t cursor = 0;        // Record: where the next key is looked for first
};

// What the key just read expects as its value.
enum class Pending { None, Format, Version, Personality, Class, Id, Ref, F64, Field };

class Reader : public nlohmann::json_sax<Json> {
 public:
  // The personality read, with its shared records adopted; null unless the whole document was
  // read in the streamed form.
  std::unique_ptr<CPersonality> Result() {
    if (!m_stack.empty() || !m_root || !m_formatOk || !m_versionOk) return nullptr;
    m_root->AdoptSharedRecords(std::move(m_shared));
    return std::move(m_root);
  }

  bool null() override {
    if (m_pending != Pending::None) throw Abandon();
    Frame& top = Top();
    if (top.kind == Frame::OwnedList) {
      static_cast<COwnedObList*>(top.list)->Add(static_cast<CObject*>(nullptr));
    } else if (top.kind == Frame::SharedList) {
      static_cast<CObList*>(top.list)->AddTail(nullptr);
    } else {
      throw Abandon();
    }
    return true;
  }
  bool boolean(bool v) override {
    *static_cast<bool*>(TakeField(FieldKind::Bool).member) = v;
    return true;
  }
  bool number_integer(number_integer_t v) override {
    Integer(v);
    return true;
  }
  bool number_unsigned(number_unsigned_t v) override {
    if (v > static_cast<number_unsigned_t>(std::numeric_limits<long long>::max())) throw Abandon();
    Integer(static_cast<long long>(v));
    return true;
  }
  bool number_float(number_float_t v, const string_t&) override {
    *static_cast<double*>(TakeField(FieldKind::Double).member) = v;
    return true;
  }
  bool string(string_t& v) override;
  bool binary(binary_t&) override { throw Abandon(); }
  bool start_object(std::size_t) override;
  bool key(string_t& k) override;
  bool end_object() override;
  bool start_array(std::size_t) override;
  bool end_array() override;
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    throw Abandon();
  }

 private:
  Frame& Top() {
    if (m_stack.empty()) throw Abandon();
    return m_stack.back();
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
  void Integer(long long v);
  template <class T>
  static void Store(void* member, long long v) {
    if (v < static_cast<long long>(std::numeric_limits<T>::min()) ||
        v > static_cast<long long>(std::numeric_limits<T>::max())) {
      throw Abandon();
    }
    *static_cast<T*>(member) = static_cast<T>(v);
  }
  static CString Text(const string_t& utf8) {
    std::string bytes;
    if (!Utf8ToWindows1252(utf8, &bytes)) throw Abandon();
    return CString(std::move(bytes));
  }
  static double F64(const string_t& hex);
  void CreateRecord(Frame& f, const string_t& className);
  void FieldKey(Frame& f, const string_t& k);
  void StartFieldArray();

  std::vector<Frame> m_stack;
  Pending m_pending = Pending::None;
  const FieldRef* m_field = nullptr;  // Pending::Field: the field
  int m_openRecords = 0;
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

double Reader::F64(const string_t& hex) {
  double v = 0;
  if (!DoubleOfF64Digits(hex, &v)) throw Abandon();
  return v;
}

bool Reader::string(string_t& v) {
  Frame& top = Top();
  switch (Take()) {
    case Pending::Format:
      m_formatOk = v == kPersonalityJsonFormat;
      return true;
    case Pending::Class:
      CreateRecord(top, v);
      return true;
    case Pending::F64:
      *static_cast<double*>(top.field.member) = F64(v);
      top.count = 1;
      return true;
    case Pending::Field:
      if (m_field->kind != FieldKind::String) throw Abandon();
      *static_cast<CString*>(m_field->member) = Text(v);
      return true;
    case Pending::None:
      if (top.kind != Frame::Values || top.field.kind != FieldKind::Strings) throw Abandon();
      static_cast<CStringArray*>(top.field.member)->Add(Text(v));
      ++top.count;
      return true;
    default:
      throw Abandon();
  }
}

bool Reader::start_object(std::size_t) {
  if (m_stack.empty()) {
    m_stack.emplace_back(Frame::Document);
    return true;
  }
  Frame& top = m_stack.back();
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
  m_stack.push_back(std::move(f));
  return true;
}

void Reader::CreateRecord(Frame& f, const string_t& className) {
  const CRuntimeClass* rc = CRuntimeClass::FromName(className.c_str());
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
  CollectFieldRefs(*f.rec, f.fields);
  f.seen.assign(f.fields.size(), false);
}

void Reader::FieldKey(Frame& f, const string_t& k) {
  const std::size_t n = f.fields.size();
  for (std::size_t step = 0; step < n; ++step) {
    const std::size_t i = (f.cursor + step) % n;
    if (k != f.fields[i].name) continue;
    if (f.seen[i]) throw Abandon();
    f.seen[i] = true;
    f.cursor = i + 1;
    m_field = &f.fields[i];
    m_pending = Pending::Field;
    return;
  }
  throw Abandon();
}

bool Reader::key(string_t& k) {
  if (m_pending != Pending::None) throw Abandon();
  Frame& top = Top();
  switch (top.kind) {
    case Frame::Document:
      m_pending = k == "format"          ? Pending::Format
                  : k == "formatVersion" ? Pending::Version
                  : k == "personality"   ? Pending::Personality
                                         : throw Abandon();
      return true;
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
      return true;
    case Frame::F64:
      if (top.count != 0 || k != "$f64") throw Abandon();
      m_pending = Pending::F64;
      return true;
    default:
      throw Abandon();
  }
}

bool Reader::end_object() {
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
  m_stack.pop_back();
  return true;
}

bool Reader::start_array(std::size_t) {
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
  m_stack.push_back(std::move(f));
  return true;
}

bool Reader::end_array() {
  Frame& top = Top();
  if (top.kind == Frame::Values) {
    if (top.field.kind == FieldKind::WordTable && top.count != top.field.count) throw Abandon();
  } else if (top.kind != Frame::OwnedList && top.kind != Frame::SharedList) {
    throw Abandon();
  }
  m_stack.pop_back();
  return true;
}

}  // namespace

std::unique_ptr<CPersonality> StreamPersonalityJson(std::istream& text) {
  Reader reader;
  try {
    if (!Json::sax_parse(text, &reader)) return nullptr;
  } catch (const Abandon&) {
    return nullptr;
  }
  return reader.Result();
}

std::unique_ptr<CPersonality> StreamPersonalityJson(const char* data, std::size_t size) {
  Reader reader;
  try {
    if (!Json::sax_parse(data, data + size, &reader)) return nullptr;
  } catch (const Abandon&) {
    return nullptr;
  }
  return reader.Result();
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
