// Streaming JSON writer of records, field by field through their descriptions.
#include <persona/io/json/json_writer.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <unordered_map>

#include <persona/framework/codepage.h>
#include <persona/framework/fields.h>
#include <persona/io/json/f64_digits.h>
#include <persona/io/json/personality_json.h>

namespace persona {

namespace {

constexpr std::size_t kChunk = 1 << 16;

// The text of the document, indentation and separators included.
class JsonText {
 public:
  explicit JsonText(const JsonTextSink& sink) : m_sink(sink) { m_buf.reserve(kChunk + 4096); }

  void Raw(std::string_view s) {
    m_buf.append(s);
    if (m_buf.size() >= kChunk) Drain();
  }
  void Drain() {
    if (!m_buf.empty()) m_sink(m_buf);
    m_buf.clear();
  }
  // Opens an object or array: its first member goes on the next line, one level deeper.
  void Open(char bracket) {
    m_buf.push_back(bracket);
    ++m_depth;
    m_first = true;
  }
  void Close(char bracket) {
    --m_depth;
    NewLine();
    m_buf.push_back(bracket);
    m_first = false;
  }
  // Starts the next member of an object: separator, indentation, "key": .
  void Key(const char* key) {
    Member();
    String(key);
    m_buf.append(": ");
  }
  // Starts the next element of an array.
  void Member() {
    if (!m_first) m_buf.push_back(',');
    m_first = false;
    NewLine();
  }
  template <class T>
  void Integer(T v) {
    char digits[24];
    const auto end = std::to_chars(digits, digits + sizeof digits, v).ptr;
    m_buf.append(digits, end);
  }
  void Bool(bool v) { m_buf.append(v ? "true" : "false"); }
  void Double(double v) { m_buf.append(Json(v).dump()); }
  // A UTF-8 string, escaped as the JSON library escapes it.
  void String(std::string_view utf8) {
    m_buf.push_back('"');
    for (char c : utf8) Escaped(static_cast<unsigned char>(c));
    m_buf.push_back('"');
  }
  // A Windows-1252 string, converted to UTF-8 on the way.
  void Windows1252(const std::string& bytes) {
    m_buf.push_back('"');
    for (char c : bytes) {
      const auto byte = static_cast<unsigned char>(c);
      if (byte < 0x80) {
        Escaped(byte);
      } else {
        Utf8(Windows1252ToUnicode(byte));
      }
    }
    m_buf.push_back('"');
  }
  void Null() { m_buf.append("null"); }

 private:
  void NewLine() {
    m_buf.push_back('\n');
    m_buf.append(2 * static_cast<std::size_t>(m_depth), ' ');
  }
  void Escaped(unsigned char c) {
    switch (c) {
      case '"':
        m_buf.append("\\\"");
        return;
      case '\\':
        m_buf.append("\\\\");
        return;
      case '\b':
        m_buf.append("\\b");
        return;
      case '\t':
        m_buf.append("\\t");
        return;
      case '\n':
        m_buf.append("\\n");
        return;
      case '\f':
        m_buf.append("\\f");
        return;
      case '\r':
        m_buf.append("\\r");
        return;
      default:
        break;
    }
    if (c <= 0x1F) {
      char esc[8];
      std::snprintf(esc, sizeof esc, "\\u%04x", c);
      m_buf.append(esc);
    } else {
      m_buf.push_back(static_cast<char>(c));
    }
  }
  void Utf8(DWORD cp) {
    if (cp < 0x800) {
      m_buf.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    } else {
      m_buf.push_back(static_cast<char>(0xE0 | (cp >> 12)));
      m_buf.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    }
    m_buf.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }

  const JsonTextSink& m_sink;
  std::string m_buf;
  int m_depth = 0;
  bool m_first = true;
};

// Writes the members of one record after its "$class" (and "$id").
class StreamingExportVisitor : public CFieldVisitor {
 public:
  StreamingExportVisitor(JsonText& out, std::unordered_map<const CObject*, long long>& ids)
      : m_out(out), m_ids(ids) {}

  void Record(CObject& rec, long long id) {
    m_out.Open('{');
    m_out.Key("$class");
    m_out.String(rec.GetClassName());
    if (id != 0) {
      m_out.Key("$id");
      m_out.Integer(id);
    }
    rec.VisitFields(*this);
    m_out.Close('}');
    m_out.Raw({});  // hands a full buffer to the sink between records
  }

  void Field(const FieldInfo& f, bool& v) override { Key(f).Bool(v); }
  void Field(const FieldInfo& f, BYTE& v) override { Key(f).Integer(v); }
  void Field(const FieldInfo& f, WORD& v) override { Key(f).Integer(v); }
  void Field(const FieldInfo& f, short& v) override { Key(f).Integer(v); }
  void Field(const FieldInfo& f, DWORD& v) override { Key(f).Integer(v); }
  void Field(const FieldInfo& f, LONG& v) override { Key(f).Integer(v); }
  void Field(const FieldInfo& f, double& v) override {
    Key(f);
    if (std::isfinite(v)) {
      m_out.Double(v);
      return;
    }
    m_out.Open('{');
    m_out.Key("$f64");
    m_out.String(F64Digits(v));
    m_out.Close('}');
  }
  void Field(const FieldInfo& f, CString& v) override { Key(f).Windows1252(v.str()); }
  void Field(const FieldInfo& f, CStringArray& v) override {
    Array(f, v, [this](const CString& s) { m_out.Windows1252(s.str()); });
  }
  void Field(const FieldInfo& f, CWordArray& v) override {
    Array(f, v, [this](WORD w) { m_out.Integer(w); });
  }
  void Field(const FieldInfo& f, WORD* values, std::size_t count) override {
    Array(f, Span{values, count}, [this](WORD w) { m_out.Integer(w); });
  }
  void Field(const FieldInfo& f, COwnedObList& v) override {
    Array(f, v, [this](CObject* e) {
      if (e == nullptr) {
        m_out.Null();
      } else {
        Record(*e, 0);
      }
    });
  }
  void Field(const FieldInfo& f, CObList& v) override {
    Array(f, v, [this](CObject* e) { Shared(e); });
  }

 private:
  struct Span {
    WORD* first;
    std::size_t count;
    WORD* begin() const { return first; }
    WORD* end() const { return first + count; }
  };

  JsonText& Key(const FieldInfo& f) {
    m_out.Key(f.name);
    return m_out;
  }
  template <class List, class Write>
  void Array(const FieldInfo& f, List&& list, Write write) {
    Key(f);
    if (list.begin() == list.end()) {
      m_out.Raw("[]");
      return;
    }
    m_out.Open('[');
    for (auto&& e : list) {
      m_out.Member();
      write(e);
    }
    m_out.Close(']');
  }
  void Shared(CObject* rec) {
    if (rec == nullptr) {
      m_out.Null();
      return;
    }
    const auto it = m_ids.find(rec);
    if (it != m_ids.end()) {
      m_out.Open('{');
      m_out.Key("$ref");
      m_out.Integer(it->second);
      m_out.Close('}');
      return;
    }
    const long long id = static_cast<long long>(m_ids.size()) + 1;
    m_ids.emplace(rec, id);
    Record(*rec, id);
  }

  JsonText& m_out;
  std::unordered_map<const CObject*, long long>& m_ids;
};

}  // namespace

void WritePersonalityJson(const CPersonality& personality, const JsonTextSink& sink) {
  JsonText out(sink);
  std::unordered_map<const CObject*, long long> ids;
  out.Open('{');
  out.Key("format");
  out.String(kPersonalityJsonFormat);
  out.Key("formatVersion");
  out.Integer(kPersonalityJsonFormatVersion);
  out.Key("personality");
  // The field visitors only read here.
  StreamingExportVisitor(out, ids).Record(const_cast<CPersonality&>(personality), 0);
  out.Close('}');
  out.Drain();
}

}  // namespace persona
