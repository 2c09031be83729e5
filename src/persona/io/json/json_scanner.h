// A strict JSON scanner for the streaming import: it reads text pulled in pieces through a
// buffer that grows only for a token longer than itself, and hands each token to a handler as
// it is read, so that neither the text nor a document tree is ever held whole. It takes a
// subset of what the JSON grammar allows (nesting up to kMaxDepth, integers that fit 64 bits,
// escapes of characters of the Basic Multilingual Plane outside the surrogates) and refuses
// the rest; the import reads whatever it refuses again with the full parser, which accepts
// valid text and names the fault of the rest. Everything it accepts is valid JSON, read to
// the values the full parser reads.
#pragma once

#include <charconv>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <persona/json_export.h>

namespace persona {

// Fills up to n bytes at dst with the next bytes of the text; returns how many (0 at its end).
using JsonPull = std::function<std::size_t(char* dst, std::size_t n)>;

class PERSONA_JSON_EXPORT JsonScanner {
 public:
  static constexpr int kMaxDepth = 64;

  // Scans the text pull gives. Owns its buffer; pull is called until it returns 0 or the
  // scan stops.
  explicit JsonScanner(JsonPull pull) : m_pull(std::move(pull)), m_buf(kChunk + 1) {
    m_p = m_end = m_buf.data();
    *m_end = '\0';
  }

  // Reads one JSON value and the end of the text, calling on handler, in text order,
  // StartObject(), Key(std::string_view), EndObject(), StartArray(), EndArray(),
  // String(std::string_view) (the decoded UTF-8 text, valid during the call), Integer(long
  // long), Unsigned(unsigned long long) (integers above the range of long long), Float(double)
  // (numbers with a fraction or an exponent), Bool(bool) and Null(). Returns true when the
  // text was taken whole, false when it holds anything the scanner refuses (the events up to
  // there have been handed out). Throws what handler or pull throw.
  template <class Handler>
  bool Parse(Handler& handler) {
    return Value(handler, 0) && !SkipSpace();
  }

 private:
  static constexpr std::size_t kChunk = 1 << 16;

  // Skips white space; false at the end of the text.
  bool SkipSpace() {
    for (;;) {
      char* p = m_p;  // a local cursor: m_p itself would be stored back at every byte
      for (;; ++p) {  // indentation eight spaces at a time
        while (p + 8 <= m_end && Load8(p) == 0x2020202020202020ull) p += 8;
        if (*p != ' ' && *p != '\n' && *p != '\r' && *p != '\t') break;
      }
      m_p = p;
      if (p < m_end) return true;
      if (!Refill(p)) return false;
    }
  }
  static std::uint64_t Load8(const char* p) {
    std::uint64_t v;
    std::memcpy(&v, p, sizeof v);
    return v;
  }
  // Keeps the text from keep on and reads more after it, growing the buffer when keep is
  // already at its start; false when the text has ended. m_p keeps its place in the text.
  bool Refill(const char* keep) {
    if (m_done) return false;
    const std::size_t kept = static_cast<std::size_t>(m_end - keep);
    const std::size_t at = static_cast<std::size_t>(m_p - keep);
    std::memmove(m_buf.data(), keep, kept);
    if (m_buf.size() - 1 - kept < kChunk / 2) m_buf.resize(2 * m_buf.size());
    const std::size_t got = m_pull(m_buf.data() + kept, m_buf.size() - 1 - kept);
    m_done = got == 0;
    m_p = m_buf.data() + at;
    m_end = m_buf.data() + kept + got;
    *m_end = '\0';
    return got != 0;
  }
  // True when the next bytes are word, which is then skipped.
  bool Word(const char* word, std::size_t size) {
    while (static_cast<std::size_t>(m_end - m_p) < size) {
      if (!Refill(m_p)) return false;
    }
    if (std::memcmp(m_p, word, size) != 0) return false;
    m_p += size;
    return true;
  }

  template <class Handler>
  bool Value(Handler& handler, int depth) {
    if (!SkipSpace()) return false;
    switch (*m_p) {
      case '{':
        return depth < kMaxDepth && Container<true>(handler, depth + 1);
      case '[':
        return depth < kMaxDepth && Container<false>(handler, depth + 1);
      case '"': {
        std::string_view text;
        if (!String(&text)) return false;
        handler.String(text);
        return true;
      }
      case 't':
        return Word("true", 4) && (handler.Bool(true), true);
      case 'f':
        return Word("false", 5) && (handler.Bool(false), true);
      case 'n':
        return Word("null", 4) && (handler.Null(), true);
      default:
        return Number(handler);
    }
  }

  // An object or an array, from its opening bracket: members (key, colon, value) or elements,
  // separated by commas, up to the closing bracket.
  template <bool kObject, class Handler>
  bool Container(Handler& handler, int depth) {
    constexpr char kClose = kObject ? '}' : ']';
    ++m_p;
    if constexpr (kObject) {
      handler.StartObject();
    } else {
      handler.StartArray();
    }
    if (!SkipSpace()) return false;
    while (*m_p != kClose) {
      if constexpr (kObject) {
        std::string_view key;
        if (*m_p != '"' || !String(&key)) return false;
        handler.Key(key);
        if (!SkipSpace() || *m_p != ':') return false;
        ++m_p;
      }
      if (!Value(handler, depth) || !SkipSpace()) return false;
      if (*m_p == kClose) break;
      if (*m_p != ',') return false;
      ++m_p;
      if (!SkipSpace() || *m_p == kClose) return false;  // a comma before the bracket
    }
    ++m_p;
    if constexpr (kObject) {
      handler.EndObject();
    } else {
      handler.EndArray();
    }
    return true;
  }

  // Reads the string at m_p (its opening quote); *text receives its decoded UTF-8 text, valid
  // until the scan goes on.
  bool String(std::string_view* text);
  // Appends the character of the escape at m_p (past its backslash) to m_text.
  bool Escape();

  template <class Handler>
  bool Number(Handler& handler) {
    const std::size_t size = NumberSize();
    if (size == 0) return false;
    const char* first = m_p;
    char* last = m_p + size;
    m_p = last;
    if (m_float) {
      double v = 0;
      const auto r = std::from_chars(first, last, v);
      if (r.ec != std::errc() || r.ptr != last) return false;
      handler.Float(v);
    } else if (*first == '-') {
      long long v = 0;
      const auto r = std::from_chars(first, last, v);
      if (r.ec != std::errc() || r.ptr != last) return false;
      handler.Integer(v);
    } else {
      unsigned long long v = 0;
      const auto r = std::from_chars(first, last, v);
      if (r.ec != std::errc() || r.ptr != last) return false;
      if (v <= static_cast<unsigned long long>(LLONG_MAX)) {
        handler.Integer(static_cast<long long>(v));
      } else {
        handler.Unsigned(v);
      }
    }
    return true;
  }
  // The length of the number at m_p by the JSON grammar (0 when there is none there), its
  // text made whole in the buffer; sets m_float when it has a fraction or an exponent.
  std::size_t NumberSize();

  JsonPull m_pull;
  std::vector<char> m_buf;  // the text from m_p to m_end, then a '\0'
  char* m_p;
  char* m_end;
  bool m_done = false;
  bool m_float = false;
  std::string m_text;  // a string's text when it held escapes
};

}  // namespace persona
