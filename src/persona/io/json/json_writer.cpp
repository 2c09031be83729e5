// Streaming JSON writer of records, field by field through their descriptions.
#include <persona/io/json/json_writer.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <persona/framework/codepage.h>
#include <persona/framework/fields.h>
#include <persona/framework/short_copy.h>
#include <persona/io/json/f64_digits.h>
#include <persona/io/json/personality_json.h>

namespace persona {

namespace {

// The text of the document, indentation and separators included, gathered in a buffer of its
// own that goes to the sink whenever it is full.
class JsonText {
 public:
  explicit JsonText(const JsonTextSink& sink)
      : m_sink(sink),
        m_begin(new char[kChunk]),
        m_pos(m_begin.get()),
        m_limit(m_begin.get() + kChunk) {}

  void Raw(std::string_view s) { Append(s.data(), s.size()); }
  // Hands what is gathered to the sink.
  void Drain() {
    if (m_pos != m_begin.get()) m_sink(std::string_view(m_begin.get(), Size()));
    m_pos = m_begin.get();
  }
  // Opens an object or array: its first member goes on the next line, one level deeper.
  void Open(char bracket) {
    Put(bracket);
    ++m_depth;
    m_first = true;
  }
  void Close(char bracket) {
    --m_depth;
    NewLine();
    Put(bracket);
    m_first = false;
  }
  // Starts the next member of an object: separator, indentation, "key": .
  void Key(const char* key) {
    Member();
    String(key);
    Append(": ", 2);
  }
  // The text Key(key) writes after a member of an object at the current depth; empty when the
  // key would need an escape (such keys are written by Key alone).
  std::string KeyAfterMember(const char* key) const {
    std::string text = ",\n" + std::string(2 * static_cast<std::size_t>(m_depth), ' ') + '"';
    for (const char* c = key; *c != '\0'; ++c) {
      if (NeedsEscape(static_cast<unsigned char>(*c), 0x80)) return std::string();
      text += *c;
    }
    return text + "\": ";
  }
  // Writes text made by KeyAfterMember at this depth, after a member.
  void KeyText(std::string_view text) { Append(text.data(), text.size()); }
  bool AfterMember() const { return !m_first; }
  int Depth() const { return m_depth; }
  // Starts the next element of an array.
  void Member() {
    if (!m_first) Put(',');
    m_first = false;
    NewLine();
  }
  template <class T>
  void Integer(T v) {
    char digits[24];
    Append(digits, std::to_chars(digits, digits + sizeof digits, v).ptr);
  }
  void Bool(bool v) { v ? Append("true", 4) : Append("false", 5); }
  // A finite double in the JSON library's own form (its shortest digits, its exponent rules).
  void Double(double v) {
    char digits[64];
    Append(digits, nlohmann::detail::to_chars(digits, digits + sizeof digits, v));
  }
  // A UTF-8 string, escaped as the JSON library escapes it.
  void String(std::string_view utf8) {
    Put('"');
    for (std::size_t i = 0; i < utf8.size(); ++i) {
      i += Plain(utf8.substr(i), 0x100);
      if (i < utf8.size()) Escaped(static_cast<unsigned char>(utf8[i]));
    }
    Put('"');
  }
  // A Windows-1252 string, converted to UTF-8 on the way.
  void Windows1252(const std::string& bytes) {
    Put('"');
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      i += Plain(std::string_view(bytes).substr(i), 0x80);
      if (i == bytes.size()) break;
      const auto byte = static_cast<unsigned char>(bytes[i]);
      if (byte < 0x80) {
        Escaped(byte);
      } else {
        char utf8[3];
        Append(utf8, EncodeUtf8(Windows1252ToUnicode(byte), utf8));
      }
    }
    Put('"');
  }
  void Null() { Append("null", 4); }

 private:
  std::size_t Size() const { return static_cast<std::size_t>(m_pos - m_begin.get()); }
  void Put(char c) {
    if (m_pos == m_limit) Drain();
    *m_pos++ = c;
  }
  void Append(const char* text, const char* end) {
    Append(text, static_cast<std::size_t>(end - text));
  }
  void Append(const char* text, std::size_t size) {
    while (size > static_cast<std::size_t>(m_limit - m_pos)) {
      const auto room = static_cast<std::size_t>(m_limit - m_pos);
      std::memcpy(m_pos, text, room);
      m_pos += room;
      text += room;
      size -= room;
      Drain();
    }
    CopyShort(m_pos, text, size);
    m_pos += size;
  }
  void NewLine() {
    static constexpr char kIndent[] =
        "\n                                                              ";
    std::size_t width = 2 * static_cast<std::size_t>(m_depth);
    const std::size_t first = std::min(width, sizeof kIndent - 2);
    Append(kIndent, first + 1);
    for (; width > first; --width) Put(' ');
  }
  // True when c does not go out as it stands: a quote, a backslash, a control character, or
  // a byte from limit on (0x80: one that needs converting, 0x100: none).
  static bool NeedsEscape(unsigned char c, unsigned limit) {
    return c < 0x20 || c == '"' || c == '\\' || c >= limit;
  }
  // Appends the longest head of text that goes out as it stands (no quote, backslash or
  // control character, no byte from limit on); returns its length.
  std::size_t Plain(std::string_view text, unsigned limit) {
    std::size_t n = 0;
    while (n < text.size()) {
      if (NeedsEscape(static_cast<unsigned char>(text[n]), limit)) break;
      ++n;
    }
    Append(text.data(), n);
    return n;
  }
  void Escaped(unsigned char c) {
    static constexpr char kFrom[] = "\"\\\b\t\n\f\r";
    static constexpr char kTo[] = "\"\\btnfr";
    if (c != 0) {
      if (const char* at = std::strchr(kFrom, c)) {
        const char escape[2] = {'\\', kTo[at - kFrom]};
        Append(escape, 2);
        return;
      }
    }
    if (c <= 0x1F) {
      char esc[8];
      std::snprintf(esc, sizeof esc, "\\u%04x", c);
      Append(esc, 6);
    } else {
      Put(static_cast<char>(c));
    }
  }

  static constexpr std::size_t kChunk = 1 << 16;
  const JsonTextSink& m_sink;
  std::unique_ptr<char[]> m_begin;
  char* m_pos;
  char* m_limit;
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
    const Keys saved = m_keys;
    m_keys = Keys{&m_tables[{rec.GetRuntimeClass(), m_out.Depth()}], 0};
    rec.VisitFields(*this);
    if (m_keys.table != nullptr) m_keys.table->learned = true;
    m_keys = saved;
    m_out.Close('}');
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

  // The keys of the fields of the records of one class at one depth, as written after a
  // member, learned from the first such record: the others write each key with one copy. A
  // record whose fields do not come as learned writes its keys one by one.
  struct KeyTable {
    std::vector<const char*> names;  // the fields' names, as their descriptions give them
    std::vector<std::string> texts;
    bool learned = false;
  };
  struct Keys {
    KeyTable* table;   // null once the record strays from its table
    std::size_t next;  // the position of the next field
  };
  struct ClassAtDepth {
    const CRuntimeClass* cls;
    int depth;
    bool operator==(const ClassAtDepth& o) const { return cls == o.cls && depth == o.depth; }
  };
  struct ClassAtDepthHash {
    std::size_t operator()(const ClassAtDepth& k) const {
      return std::hash<const void*>()(k.cls) ^ static_cast<std::size_t>(k.depth);
    }
  };

  JsonText& Key(const FieldInfo& f) {
    KeyTable* table = m_keys.table;
    const std::size_t at = m_keys.next++;
    if (table != nullptr && m_out.AfterMember()) {
      if (at < table->names.size() && table->names[at] == f.name && !table->texts[at].empty()) {
        m_out.KeyText(table->texts[at]);
        return m_out;
      }
      if (!table->learned && at == table->names.size()) {
        table->names.push_back(f.name);
        table->texts.push_back(m_out.KeyAfterMember(f.name));
      } else {
        m_keys.table = nullptr;
      }
    }
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
  std::unordered_map<ClassAtDepth, KeyTable, ClassAtDepthHash> m_tables;
  Keys m_keys{nullptr, 0};
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
