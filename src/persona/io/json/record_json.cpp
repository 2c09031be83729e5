// JSON export and import of records through their field descriptions.
#include <persona/io/json/record_json.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <unordered_set>

#include <persona/framework/codepage.h>
#include <persona/framework/collections.h>
#include <persona/framework/fields.h>
#include <persona/integrity/record_path.h>
#include <persona/io/json/f64_digits.h>
#include <persona/personality/personality.h>

namespace persona {

namespace {

constexpr int kMaxDepth = 32;

}  // namespace

Json DoubleToJson(double v) {
  if (std::isfinite(v)) return v;
  return Json{{"$f64", F64Digits(v)}};
}

// ---- export ---------------------------------------------------------------------------------

class JsonExportVisitor : public CFieldVisitor {
 public:
  JsonExportVisitor(JsonExporter& exporter, Json& obj) : m_exporter(exporter), m_obj(obj) {}

  void Field(const FieldInfo& f, bool& v) override { m_obj[f.name] = v; }
  void Field(const FieldInfo& f, BYTE& v) override { m_obj[f.name] = v; }
  void Field(const FieldInfo& f, WORD& v) override { m_obj[f.name] = v; }
  void Field(const FieldInfo& f, short& v) override { m_obj[f.name] = v; }
  void Field(const FieldInfo& f, DWORD& v) override { m_obj[f.name] = v; }
  void Field(const FieldInfo& f, LONG& v) override { m_obj[f.name] = v; }
  void Field(const FieldInfo& f, double& v) override { m_obj[f.name] = DoubleToJson(v); }
  void Field(const FieldInfo& f, CString& v) override {
    m_obj[f.name] = Windows1252ToUtf8(v.str());
  }
  void Field(const FieldInfo& f, CStringArray& v) override {
    Json a = Json::array();
    for (const CString& s : v) a.push_back(Windows1252ToUtf8(s.str()));
    m_obj[f.name] = std::move(a);
  }
  void Field(const FieldInfo& f, CWordArray& v) override {
    Json a = Json::array();
    for (WORD w : v) a.push_back(w);
    m_obj[f.name] = std::move(a);
  }
  void Field(const FieldInfo& f, WORD* values, std::size_t count) override {
    Json a = Json::array();
    for (std::size_t i = 0; i < count; ++i) a.push_back(values[i]);
    m_obj[f.name] = std::move(a);
  }
  void Field(const FieldInfo& f, COwnedObList& v) override {
    Json a = Json::array();
    for (CObject* e : v) a.push_back(e ? m_exporter.Export(*e) : Json(nullptr));
    m_obj[f.name] = std::move(a);
  }
  void Field(const FieldInfo& f, CObList& v) override {
    Json a = Json::array();
    for (CObject* e : v) a.push_back(m_exporter.ExportShared(e));
    m_obj[f.name] = std::move(a);
  }

 private:
  JsonExporter& m_exporter;
  Json& m_obj;
};

Json JsonExporter::Export(CObject& rec) {
  Json obj = Json::object();
  obj["$class"] = rec.GetClassName();
  JsonExportVisitor visitor(*this, obj);
  rec.VisitFields(visitor);
  return obj;
}

Json JsonExporter::ExportShared(CObject* rec) {
  if (rec == nullptr) return nullptr;
  const auto it = m_ids.find(rec);
  if (it != m_ids.end()) {
    Json ref = Json::object();
    ref["$ref"] = it->second;
    return ref;
  }
  const long long id = static_cast<long long>(m_ids.size()) + 1;
  m_ids.emplace(rec, id);
  Json obj = Json::object();
  obj["$class"] = rec->GetClassName();
  obj["$id"] = id;
  JsonExportVisitor visitor(*this, obj);
  rec->VisitFields(visitor);
  return obj;
}

// ---- import ---------------------------------------------------------------------------------

namespace {

class Importer {
 public:
  explicit Importer(std::string source) : m_source(std::move(source)) {}

  [[noreturn]] void Fail(const std::string& pointer, const std::string& detail) const {
    throw CJsonImportException(m_source, pointer, detail, PathOf(pointer));
  }

  // A member of an owned list being built, kept so that a failure can name its record path.
  struct Frame {
    const CObject* holder;  // the record whose list it is
    const char* field;      // the list field
    const Json* list;       // the JSON array
    std::size_t index;
    std::string pointer;  // the member's JSON pointer
  };
  void Enter(const CObject& holder, const char* field, const Json& list, std::size_t index,
             std::string pointer) {
    m_frames.push_back({&holder, field, &list, index, std::move(pointer)});
  }
  void Leave() { m_frames.pop_back(); }

  // Builds an owned record (no "$id"/"$ref").
  std::unique_ptr<CObject> BuildOwned(const Json& j, const CRuntimeClass* expected,
                                      const std::string& pointer);
  // Resolves or builds a shared record; the importer keeps what it builds.
  CObject* BuildShared(const Json& j, const CRuntimeClass* expected, const std::string& pointer);

  std::vector<std::unique_ptr<CObject>> shared;

 private:
  std::unique_ptr<CObject> Create(const Json& j, const CRuntimeClass* expected,
                                  const std::string& pointer);
  void Fill(CObject& rec, const Json& j, const std::string& pointer);

  std::string PathOf(const std::string& pointer) const;

  std::string m_source;
  std::unordered_map<long long, CObject*> m_ids;
  std::vector<Frame> m_frames;
  int m_depth = 0;
};

// The "Name" of a JSON record, or "".
std::string JsonName(const Json& j) {
  const auto it = j.is_object() ? j.find("Name") : j.end();
  return it != j.end() && it->is_string() ? it->get<std::string>() : std::string();
}

// The path segment of set element index of list: its name where no other element of the list
// has it, else its position from 1. Only asked for on a failure, so one scan of the list.
std::string ElementSegment(const Json& list, std::size_t index) {
  const std::string name = JsonName(list[index]);
  std::size_t same = 0;
  for (const Json& e : list) same += !name.empty() && JsonName(e) == name;
  if (same == 1) return PathName(name);
  return "#" + std::to_string(index + 1);
}

// The segments of the personality's lists: systems by name, sets by list and name, options by
// class; "" for another field.
std::string PersonalityListSegment(const char* field, const Json& member) {
  if (std::strcmp(field, "Systems") == 0) return "systems/" + PathName(JsonName(member));
  if (std::strcmp(field, "Options") == 0) {
    const auto cls = member.is_object() ? member.find("$class") : member.end();
    return "options/" +
           (cls != member.end() && cls->is_string() ? cls->get<std::string>() : std::string("?"));
  }
  for (int type = 0; type < kNumSetTypes; ++type) {
    if (std::strcmp(field, SetListField(type)) == 0) {
      return "sets/" + std::string(SetListWord(type)) + "/" + PathName(JsonName(member));
    }
  }
  return std::string();
}

std::string Importer::PathOf(const std::string& pointer) const {
  std::string path, base;
  for (const Frame& f : m_frames) {
    std::string seg;
    if (f.holder->IsKindOf(RUNTIME_CLASS(CPersonality))) {
      seg = PersonalityListSegment(f.field, (*f.list)[f.index]);
    } else if (f.holder->IsKindOf(RUNTIME_CLASS(CSet)) && std::strcmp(f.field, "Elements") == 0) {
      seg = ElementSegment(*f.list, f.index);
    }
    if (seg.empty()) seg = std::string(f.field) + "/#" + std::to_string(f.index + 1);
    path += (path.empty() ? "" : "/") + seg;
    base = f.pointer;
  }
  // The rest of the pointer: a field, and an entry of a list field counted from 1.
  std::size_t at = pointer.compare(0, base.size(), base) == 0 ? base.size() : pointer.size();
  while (at < pointer.size()) {
    const std::size_t next = std::min(pointer.find('/', at + 1), pointer.size());
    const std::string token = pointer.substr(at + 1, next - at - 1);
    const bool number = !token.empty() && token.size() < 10 &&
                        token.find_first_not_of("0123456789") == std::string::npos;
    path += (path.empty() ? "" : "/") + (number ? std::to_string(std::stoul(token) + 1) : token);
    at = next;
  }
  return path;
}

class JsonImportVisitor : public CFieldVisitor {
 public:
  JsonImportVisitor(Importer& importer, const CObject& rec, const Json& obj, std::string pointer)
      : m_im(importer), m_rec(rec), m_obj(obj), m_pointer(std::move(pointer)) {}

  std::unordered_set<std::string> used;

  void Field(const FieldInfo& f, bool& v) override {
    if (const Json* j = Find(f)) {
      if (!j->is_boolean()) m_im.Fail(Ptr(f), "expected true or false");
      v = j->get<bool>();
    }
  }
  void Field(const FieldInfo& f, BYTE& v) override { Int(f, v); }
  void Field(const FieldInfo& f, WORD& v) override { Int(f, v); }
  void Field(const FieldInfo& f, short& v) override { Int(f, v); }
  void Field(const FieldInfo& f, DWORD& v) override { Int(f, v); }
  void Field(const FieldInfo& f, LONG& v) override { Int(f, v); }
  void Field(const FieldInfo& f, double& v) override {
    if (const Json* j = Find(f)) v = Double(*j, Ptr(f));
  }
  void Field(const FieldInfo& f, CString& v) override {
    if (const Json* j = Find(f)) v = String(*j, Ptr(f));
  }
  void Field(const FieldInfo& f, CStringArray& v) override {
    if (const Json* j = Find(f)) {
      const Json& a = Array(*j, Ptr(f));
      v.RemoveAll();
      for (std::size_t i = 0; i < a.size(); ++i) v.Add(String(a[i], Ptr(f, i)));
    }
  }
  void Field(const FieldInfo& f, CWordArray& v) override {
    if (const Json* j = Find(f)) {
      const Json& a = Array(*j, Ptr(f));
      v.RemoveAll();
      for (std::size_t i = 0; i < a.size(); ++i) v.Add(IntValue<WORD>(a[i], Ptr(f, i)));
    }
  }
  void Field(const FieldInfo& f, WORD* values, std::size_t count) override {
    if (const Json* j = Find(f)) {
      const Json& a = Array(*j, Ptr(f));
      if (a.size() != count) m_im.Fail(Ptr(f), "expected " + std::to_string(count) + " values");
      for (std::size_t i = 0; i < count; ++i) values[i] = IntValue<WORD>(a[i], Ptr(f, i));
    }
  }
  void Field(const FieldInfo& f, COwnedObList& v) override {
    if (const Json* j = Find(f)) {
      const Json& a = Array(*j, Ptr(f));
      v.DeleteAll();
      v.Reserve(a.size());
      for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].is_null()) {
          v.Add(static_cast<CObject*>(nullptr));
        } else {
          m_im.Enter(m_rec, f.name, a, i, Ptr(f, i));
          v.Add(m_im.BuildOwned(a[i], v.GetElementClass(), Ptr(f, i)));
          m_im.Leave();
        }
      }
    }
  }
  void Field(const FieldInfo& f, CObList& v) override {
    if (const Json* j = Find(f)) {
      const Json& a = Array(*j, Ptr(f));
      v.RemoveAll();
      for (std::size_t i = 0; i < a.size(); ++i) {
        v.AddTail(m_im.BuildShared(a[i], v.GetElementClass(), Ptr(f, i)));
      }
    }
  }

 private:
  const Json* Find(const FieldInfo& f) {
    const auto it = m_obj.find(f.name);
    if (it == m_obj.end()) return nullptr;
    used.insert(f.name);
    return &*it;
  }
  std::string Ptr(const FieldInfo& f) const { return m_pointer + "/" + f.name; }
  std::string Ptr(const FieldInfo& f, std::size_t i) const {
    return Ptr(f) + "/" + std::to_string(i);
  }
  const Json& Array(const Json& j, const std::string& pointer) const {
    if (!j.is_array()) m_im.Fail(pointer, "expected an array");
    return j;
  }
  template <class T>
  T IntValue(const Json& j, const std::string& pointer) const {
    if (!j.is_number_integer()) m_im.Fail(pointer, "expected an integer");
    using Lim = std::numeric_limits<T>;
    if (j.is_number_unsigned()) {
      const auto u = j.get<unsigned long long>();
      if (u > static_cast<unsigned long long>(Lim::max())) {
        m_im.Fail(pointer, std::to_string(u) + " is above " + std::to_string(Lim::max()));
      }
      return static_cast<T>(u);
    }
    const auto s = j.get<long long>();
    if (s < static_cast<long long>(Lim::min()) || s > static_cast<long long>(Lim::max())) {
      m_im.Fail(pointer, std::to_string(s) + " is outside " + std::to_string(Lim::min()) + ".." +
                             std::to_string(Lim::max()));
    }
    return static_cast<T>(s);
  }
  template <class T>
  void Int(const FieldInfo& f, T& v) {
    if (const Json* j = Find(f)) v = IntValue<T>(*j, Ptr(f));
  }
  double Double(const Json& j, const std::string& pointer) const {
    if (j.is_number()) return j.get<double>();
    if (j.is_object() && j.size() == 1 && j.contains("$f64") && j["$f64"].is_string()) {
      const std::string& hex = j["$f64"].get_ref<const std::string&>();
      if (hex.size() != 16) m_im.Fail(pointer, "\"$f64\" needs 16 hexadecimal digits");
      double v = 0;
      if (!DoubleOfF64Digits(hex, &v)) {
        m_im.Fail(pointer, "\"$f64\" needs 16 lower-case hexadecimal digits");
      }
      return v;
    }
    m_im.Fail(pointer, "expected a number");
  }
  CString String(const Json& j, const std::string& pointer) const {
    if (!j.is_string()) m_im.Fail(pointer, "expected a string");
    std::string bytes;
    if (!Utf8ToWindows1252(j.get_ref<const std::string&>(), &bytes)) {
      m_im.Fail(pointer, "text holds characters outside the Windows-1252 code page");
    }
    return CString(std::move(bytes));
  }

  Importer& m_im;
  const CObject& m_rec;
  const Json& m_obj;
  std::string m_pointer;
};

std::unique_ptr<CObject> Importer::Create(const Json& j, const CRuntimeClass* expected,
                                          const std::string& pointer) {
  if (!j.is_object()) Fail(pointer, "expected a record (an object with \"$class\")");
  const auto cls = j.find("$class");
  if (cls == j.end() || !cls->is_string()) Fail(pointer, "a record needs a \"$class\" name");
  const std::string name = cls->get<std::string>();
  const CRuntimeClass* rc = CRuntimeClass::FromName(name.c_str());
  if (rc == nullptr || rc->m_pfnCreateObject == nullptr) {
    Fail(pointer, "unknown record class \"" + name + "\"");
  }
  if (expected != nullptr && !rc->IsDerivedFrom(expected)) {
    Fail(pointer, "a " + name + " where a " + expected->m_lpszClassName + " is expected");
  }
  if (m_depth >= kMaxDepth) {
    Fail(pointer, "records nested more than " + std::to_string(kMaxDepth) + " levels deep");
  }
  return std::unique_ptr<CObject>(rc->CreateObject());
}

void Importer::Fill(CObject& rec, const Json& j, const std::string& pointer) {
  ++m_depth;
  JsonImportVisitor visitor(*this, rec, j, pointer);
  rec.VisitFields(visitor);
  --m_depth;
  for (const auto& item : j.items()) {
    const std::string& key = item.key();
    if (key == "$class" || key == "$id" || visitor.used.count(key)) continue;
    Fail(pointer + "/" + key,
         std::string("a ") + rec.GetClassName() + " has no field \"" + key + "\"");
  }
}

std::unique_ptr<CObject> Importer::BuildOwned(const Json& j, const CRuntimeClass* expected,
                                              const std::string& pointer) {
  if (j.is_object() && (j.contains("$ref") || j.contains("$id"))) {
    Fail(pointer, "a shared record where a record of its own is expected");
  }
  std::unique_ptr<CObject> rec = Create(j, expected, pointer);
  Fill(*rec, j, pointer);
  return rec;
}

CObject* Importer::BuildShared(const Json& j, const CRuntimeClass* expected,
                               const std::string& pointer) {
  if (j.is_null()) return nullptr;
  if (j.is_object() && j.contains("$ref")) {
    const Json& ref = j["$ref"];
    if (j.size() != 1 || !ref.is_number_integer()) Fail(pointer, "a reference is {\"$ref\": id}");
    const auto it = m_ids.find(ref.get<long long>());
    if (it == m_ids.end()) Fail(pointer, "\"$ref\" names no record defined before it");
    if (expected != nullptr && !it->second->IsKindOf(expected)) {
      Fail(pointer, std::string("a reference to a ") + it->second->GetClassName() + " where a " +
                        expected->m_lpszClassName + " is expected");
    }
    return it->second;
  }
  std::unique_ptr<CObject> rec = Create(j, expected, pointer);
  CObject* raw = rec.get();
  if (j.contains("$id")) {
    const Json& id = j["$id"];
    if (!id.is_number_integer()) Fail(pointer + "/$id", "expected an integer");
    if (!m_ids.emplace(id.get<long long>(), raw).second) {
      Fail(pointer + "/$id", "id " + id.dump() + " is used twice");
    }
  }
  shared.push_back(std::move(rec));
  Fill(*raw, j, pointer);
  return raw;
}

}  // namespace

ImportedRecords ImportRecords(const Json& doc, const CRuntimeClass* expected,
                              const std::string& source) {
  Importer importer(source);
  ImportedRecords out;
  out.root = importer.BuildOwned(doc, expected, "");
  out.shared = std::move(importer.shared);
  return out;
}

}  // namespace persona
