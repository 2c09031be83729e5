// The strings and numbers of the streaming JSON scanner.
#include <persona/io/json/json_scanner.h>

#include <array>

#include <persona/framework/codepage.h>

namespace persona {

namespace {

// Bytes a string holds as they stand: not a control character, a quote or a backslash.
constexpr std::array<bool, 256> kPlain = [] {
  std::array<bool, 256> plain{};
  for (int c = 0x20; c < 256; ++c) plain[c] = c != '"' && c != '\\';
  return plain;
}();

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsNumberChar(char c) {
  return IsDigit(c) || c == '-' || c == '+' || c == '.' || c == 'e' || c == 'E';
}

int HexValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// True when text is well-formed UTF-8: shortest forms, no surrogates, nothing above U+10FFFF.
bool IsUtf8(std::string_view text) {
  for (std::size_t i = 0; i < text.size();) {
    const auto b = static_cast<unsigned char>(text[i]);
    if (b < 0x80) {
      ++i;
      continue;
    }
    std::size_t len = 4;
    std::uint32_t cp = b & 0x07;
    if (b >= 0xC2 && b <= 0xDF) {
      len = 2, cp = b & 0x1F;
    } else if (b >= 0xE0 && b <= 0xEF) {
      len = 3, cp = b & 0x0F;
    } else if (b < 0xF0 || b > 0xF4) {
      return false;
    }
    if (text.size() - i < len) return false;
    for (std::size_t k = 1; k < len; ++k) {
      const auto c = static_cast<unsigned char>(text[i + k]);
      if ((c & 0xC0) != 0x80) return false;
      cp = (cp << 6) | (c & 0x3F);
    }
    if ((len == 3 && (cp < 0x800 || (cp >= 0xD800 && cp <= 0xDFFF))) ||
        (len == 4 && (cp < 0x10000 || cp > 0x10FFFF))) {
      return false;
    }
    i += len;
  }
  return true;
}

}  // namespace

bool JsonScanner::String(std::string_view* text) {
  std::size_t i = 1;  // past the opening quote
  bool escaped = false;
  bool wide = false;  // a byte above 0x7F
  for (;;) {
    const char* q = m_p + i;
    while (kPlain[static_cast<unsigned char>(*q)]) {
      wide |= static_cast<unsigned char>(*q) >= 0x80;
      ++q;
    }
    i = static_cast<std::size_t>(q - m_p);
    if (q + 1 >= m_end && (q == m_end || *q == '\\')) {
      // The text ends at q, or a backslash is its last byte: read more first.
      if (!Refill(m_p)) return false;
      continue;
    }
    if (*q == '"') break;
    if (*q != '\\') return false;  // a control character
    escaped = true;
    i += 2;
  }
  const std::string_view raw(m_p + 1, i - 1);
  m_p += i + 1;
  if (wide && !IsUtf8(raw)) return false;
  if (!escaped) {
    *text = raw;
    return true;
  }
  m_text.clear();
  for (std::size_t k = 0; k < raw.size(); ++k) {
    if (raw[k] != '\\') {
      m_text.push_back(raw[k]);
      continue;
    }
    const char e = raw[++k];
    static constexpr char kFrom[] = "\"\\/bfnrt";
    static constexpr char kTo[] = "\"\\/\b\f\n\r\t";
    if (const char* at = std::strchr(kFrom, e); at != nullptr && e != '\0') {
      m_text.push_back(kTo[at - kFrom]);
      continue;
    }
    if (e != 'u' || raw.size() - k < 5) return false;
    std::uint32_t cp = 0;
    for (std::size_t d = 1; d <= 4; ++d) {
      const int h = HexValue(raw[k + d]);
      if (h < 0) return false;
      cp = (cp << 4) | static_cast<std::uint32_t>(h);
    }
    k += 4;
    if (cp >= 0xD800 && cp <= 0xDFFF) return false;  // surrogate pairs: left to the full parser
    char utf8[3];
    m_text.append(utf8, EncodeUtf8(cp, utf8));
  }
  *text = m_text;
  return true;
}

std::size_t JsonScanner::NumberSize() {
  std::size_t size = 0;
  for (;;) {
    const char* q = m_p + size;
    while (IsNumberChar(*q)) ++q;
    size = static_cast<std::size_t>(q - m_p);
    if (q < m_end || !Refill(m_p)) break;
  }
  const char* p = m_p;
  const char* const end = m_p + size;
  const auto digits = [&p, end] {
    const char* first = p;
    while (p < end && IsDigit(*p)) ++p;
    return p > first;
  };
  m_float = false;
  if (p < end && *p == '-') ++p;
  if (p < end && *p == '0') {
    ++p;
  } else if (!digits()) {
    return 0;
  }
  if (p < end && *p == '.') {
    m_float = true;
    ++p;
    if (!digits()) return 0;
  }
  if (p < end && (*p == 'e' || *p == 'E')) {
    m_float = true;
    ++p;
    if (p < end && (*p == '+' || *p == '-')) ++p;
    if (!digits()) return 0;
  }
  return p == end ? size : 0;
}

}  // namespace persona
