// Streaming JSON writer of records, field by field through their descriptions.
#include <persona/io/json/json_writer.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>
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

// The text of the document, indentation and separators included, gathered in a piece that
// is handed on whenever it is full. It may start at any depth: the text of one record of a
// document, made apart from the rest.
class JsonText {
 public:
  // Writes into piece (empty), handing it on whenever it holds pieceBytes.
  JsonText(TextPiece& piece, const TextPieceHand& hand, std::size_t pieceBytes, int depth = 0)
      : m_piece(piece), m_hand(hand), m_pieceBytes(pieceBytes), m_depth(depth) {
    Fresh();
  }

  void Raw(std::string_view s) { Append(s.data(), s.size()); }
  // Hands what is gathered on.
  void Drain() {
    m_piece.used = static_cast<std::size_t>(m_pos - m_piece.bytes.data());
    if (m_piece.used != 0) m_hand(m_piece);
    Fresh();
  }
  // Leaves the text not yet handed on in the piece.
  void Finish() { m_piece.used = static_cast<std::size_t>(m_pos - m_piece.bytes.data()); }
  // Takes a value written elsewhere as the one just written at this depth.
  void Written() { m_first = false; }
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
  // Writes from the start of the piece, whose memory is the hand's or new.
  void Fresh() {
    m_piece.used = 0;
    m_piece.Reserve(m_pieceBytes);
    m_pos = m_piece.bytes.data();
    m_limit = m_pos + m_piece.bytes.size();
  }
  void Put(char c) {
    if (m_pos == m_limit) Drain();
    *m_pos++ = c;
  }
  void Append(const char* text, const char* end) {
    Append(text, static_cast<std::size_t>(end - text));
  }
  PERSONA_ALWAYS_INLINE void Append(const char* text, std::size_t size) {
    if (size > static_cast<std::size_t>(m_limit - m_pos)) {
      AppendAcross(text, size);
      return;
    }
    CopyShort(m_pos, text, size);
    m_pos += size;
  }
  // Appends text that fills the piece, handing on each piece it fills.
  void AppendAcross(const char* text, std::size_t size) {
    while (size > static_cast<std::size_t>(m_limit - m_pos)) {
      const auto room = static_cast<std::size_t>(m_limit - m_pos);
      std::memcpy(m_pos, text, room);
      m_pos += room;
      text += room;
      size -= room;
      Drain();
    }
    std::memcpy(m_pos, text, size);
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

  TextPiece& m_piece;
  const TextPieceHand& m_hand;
  const std::size_t m_pieceBytes;
  char* m_pos = nullptr;
  char* m_limit = nullptr;
  int m_depth;
  bool m_first = true;
};

// The pieces of the text made on one thread, and of the text between parts: small enough to
// stay in the cache.
constexpr std::size_t kSmallPieceBytes = std::size_t{64} << 10;

// The ids of the shared records of a document, given in document order, and the place where
// the document first meets each (and writes it whole; after that, as {"$ref": id}). A document
// may be written in parts on several threads: the records of the personality's lists are
// parts, written apart from the text around them, which is written first. A part knows the
// ids of the shared records it meets once the parts before it and itself have been walked in
// order, which is done only when a shared record is met: most parts hold none.
class SharedOrder {
 public:
  static constexpr std::size_t kAround = ~std::size_t{0};  // a meeting outside every part

  // Adds the record of the next part.
  void AddPart(CObject& record) { m_parts.push_back(&record); }
  std::size_t PartCount() const { return m_parts.size(); }

  struct Meeting {
    long long id;
    bool first;  // the record is written whole here
  };
  // Meets rec, element `at` of list, in part `part` or, for kAround, in the text around the
  // parts added so far. Safe to call from several threads.
  Meeting Meet(const CObList& list, std::size_t at, CObject& rec, std::size_t part) {
    std::lock_guard<std::mutex> lock(m_lock);
    WalkThrough(part == kAround ? m_parts.size() : part + 1);
    const auto it = m_places.find(&rec);
    if (it != m_places.end()) {
      return {it->second.id, it->second.list == &list && it->second.at == at};
    }
    if (part != kAround) throw std::logic_error("a shared record was not met beforehand");
    const long long id = Enter(list, at, rec);
    return {id, true};
  }

 private:
  struct Place {
    long long id;
    const CObList* list;
    std::size_t at;
  };
  // Walks the records below a record as the document does, entering each shared record where
  // it is first met; one met again is not entered (the document writes a reference).
  class Walk : public CFieldSkipper {
   public:
    using CFieldSkipper::Field;
    explicit Walk(SharedOrder& order) : m_order(order) {}
    void Field(const FieldInfo&, COwnedObList& v) override {
      for (CObject* e : v) {
        if (e != nullptr) e->VisitFields(*this);
      }
    }
    void Field(const FieldInfo&, CObList& v) override {
      std::size_t at = 0;
      for (CObject* e : v) {
        if (e != nullptr && m_order.m_places.count(e) == 0) m_order.Enter(v, at, *e);
        ++at;
      }
    }

   private:
    SharedOrder& m_order;
  };

  long long Enter(const CObList& list, std::size_t at, CObject& rec) {
    const long long id = static_cast<long long>(m_places.size()) + 1;
    m_places.emplace(&rec, Place{id, &list, at});
    Walk walk(*this);
    rec.VisitFields(walk);
    return id;
  }
  // Walks the parts not walked yet, up to `parts`.
  void WalkThrough(std::size_t parts) {
    Walk walk(*this);
    for (; m_walked < parts && m_walked < m_parts.size(); ++m_walked)
      m_parts[m_walked]->VisitFields(walk);
  }

  std::mutex m_lock;
  std::vector<CObject*> m_parts;
  std::size_t m_walked = 0;
  std::unordered_map<const CObject*, Place> m_places;
};

// Writes the members of one record after its "$class" (and "$id").
class StreamingExportVisitor : public CFieldVisitor {
 public:
  // Writes the text of part `part` of the document, or with SharedOrder::kAround the text
  // around its parts (or all of it, when it has no parts).
  StreamingExportVisitor(JsonText& out, SharedOrder& shared, std::size_t part)
      : m_out(out), m_shared(shared), m_part(part) {}

  // Hands the records of the top record's owned lists to cut instead of writing them.
  void CutAt(const std::function<void(CObject&)>& cut) { m_cut = &cut; }

  void Record(CObject& rec, long long id) {
    ++m_records;
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
    --m_records;
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
      } else if (m_cut != nullptr && m_records == 1) {
        (*m_cut)(*e);
      } else {
        Record(*e, 0);
      }
    });
  }
  void Field(const FieldInfo& f, CObList& v) override {
    std::size_t at = 0;
    Array(f, v, [this, &v, &at](CObject* e) { Shared(v, at++, e); });
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
  // The element at of list, a shared record: written whole where it is first met, with its
  // id, and as {"$ref": id} after that.
  void Shared(const CObList& list, std::size_t at, CObject* rec) {
    if (rec == nullptr) {
      m_out.Null();
      return;
    }
    const auto [id, first] = m_shared.Meet(list, at, *rec, m_part);
    if (first) {
      Record(*rec, id);
      return;
    }
    m_out.Open('{');
    m_out.Key("$ref");
    m_out.Integer(id);
    m_out.Close('}');
  }

  JsonText& m_out;
  SharedOrder& m_shared;
  const std::size_t m_part;
  const std::function<void(CObject&)>* m_cut = nullptr;
  int m_records = 0;  // the records open
  std::unordered_map<ClassAtDepth, KeyTable, ClassAtDepthHash> m_tables;
  Keys m_keys{nullptr, 0};
};

}  // namespace

namespace {

// The document's text up to its personality record, then that record through visit, then the
// end of the document.
void WriteDocument(JsonText& out, const std::function<void()>& visit) {
  out.Open('{');
  out.Key("format");
  out.String(kPersonalityJsonFormat);
  out.Key("formatVersion");
  out.Integer(kPersonalityJsonFormatVersion);
  out.Key("personality");
  visit();
  out.Close('}');
  out.Drain();
}

// The document as parts made apart: each record of the personality's owned lists (its sets,
// systems, options) is a part, and the text between them is the parts in between.
std::vector<TextPart> DocumentParts(CPersonality& personality, SharedOrder& shared,
                                    std::deque<std::string>& texts) {
  std::vector<TextPart> parts;
  std::string between;
  const TextPieceHand gather = [&between](TextPiece& piece) {
    between.append(piece.Text());
    piece.used = 0;
  };
  TextPiece piece;
  JsonText out(piece, gather, kSmallPieceBytes);
  const auto addBetween = [&] {
    out.Drain();
    if (between.empty()) return;
    texts.push_back(std::move(between));
    between.clear();
    const std::string& text = texts.back();
    parts.emplace_back([&text](TextPiece& to, const TextPieceHand&) {
      to.Reserve(text.size());
      text.copy(&to.bytes[to.used], text.size());
      to.used += text.size();
    });
  };
  const std::function<void(CObject&)> cut = [&](CObject& record) {
    addBetween();
    const int depth = out.Depth();
    const std::size_t part = shared.PartCount();
    shared.AddPart(record);
    parts.emplace_back([&record, &shared, depth, part](TextPiece& to, const TextPieceHand& hand) {
      JsonText text(to, hand, kTextPieceBytes, depth);
      StreamingExportVisitor(text, shared, part).Record(record, 0);
      text.Finish();
    });
    out.Written();
  };
  StreamingExportVisitor visitor(out, shared, SharedOrder::kAround);
  visitor.CutAt(cut);
  WriteDocument(out, [&] { visitor.Record(personality, 0); });
  addBetween();
  return parts;
}

}  // namespace

void WritePersonalityJson(const CPersonality& personality, const JsonTextSink& sink,
                          const OrderedTextOptions& options) {
  // The field visitors only read here.
  auto& record = const_cast<CPersonality&>(personality);
  SharedOrder shared;
  if (options.workers == 0) {
    const std::vector<TextPart> whole{[&](TextPiece& piece, const TextPieceHand& hand) {
      JsonText out(piece, hand, kSmallPieceBytes);
      WriteDocument(out, [&] {
        StreamingExportVisitor(out, shared, SharedOrder::kAround).Record(record, 0);
      });
    }};
    MakeTextInOrder(whole, sink);
    return;
  }
  std::deque<std::string> texts;
  MakeTextInOrder(DocumentParts(record, shared, texts), sink, options);
}

}  // namespace persona
