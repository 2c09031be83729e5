// Windows-1252 <-> Unicode tables.
#include <persona/framework/codepage.h>

namespace persona {

namespace {

// Code points of the bytes 0x80 .. 0x9F; the five bytes the code page leaves undefined map to
// the C1 control with the same number, as the platform's converters do.
constexpr DWORD kHigh[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

std::size_t EncodeUtf8(DWORD cp, char* out) {
  if (cp < 0x80) {
    out[0] = static_cast<char>(cp);
    return 1;
  }
  if (cp < 0x800) {
    out[0] = static_cast<char>(0xC0 | (cp >> 6));
    out[1] = static_cast<char>(0x80 | (cp & 0x3F));
    return 2;
  }
  out[0] = static_cast<char>(0xE0 | (cp >> 12));
  out[1] = static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
  out[2] = static_cast<char>(0x80 | (cp & 0x3F));
  return 3;
}

DWORD Windows1252ToUnicode(unsigned char byte) {
  return (byte >= 0x80 && byte <= 0x9F) ? kHigh[byte - 0x80] : byte;
}

char UnicodeToWindows1252(DWORD cp) {
  if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<char>(cp);
  for (int i = 0; i < 32; ++i) {
    if (kHigh[i] == cp) return static_cast<char>(0x80 + i);
  }
  return '?';
}

std::string Windows1252ToUtf8(const std::string& bytes) {
  std::string out;
  out.reserve(bytes.size());
  char utf8[3];
  for (char ch : bytes) {
    out.append(utf8, EncodeUtf8(Windows1252ToUnicode(static_cast<unsigned char>(ch)), utf8));
  }
  return out;
}

bool Utf8ToWindows1252(std::string_view utf8, std::string* out) {
  out->clear();
  out->reserve(utf8.size());
  for (std::size_t i = 0; i < utf8.size();) {
    const auto b = static_cast<unsigned char>(utf8[i]);
    DWORD cp = 0;
    std::size_t len = 0;
    if (b < 0x80) {
      cp = b;
      len = 1;
    } else if ((b & 0xE0) == 0xC0) {
      cp = b & 0x1F;
      len = 2;
    } else if ((b & 0xF0) == 0xE0) {
      cp = b & 0x0F;
      len = 3;
    } else {
      return false;  // four-byte characters lie outside the code page
    }
    if (i + len > utf8.size()) return false;
    for (std::size_t k = 1; k < len; ++k) {
      const auto c = static_cast<unsigned char>(utf8[i + k]);
      if ((c & 0xC0) != 0x80) return false;
      cp = (cp << 6) | (c & 0x3F);
    }
    if ((len == 2 && cp < 0x80) || (len == 3 && cp < 0x800)) return false;  // overlong forms
    const char mapped = UnicodeToWindows1252(cp);
    if (mapped == '?' && cp != '?') return false;
    out->push_back(mapped);
    i += len;
  }
  return true;
}

}  // namespace persona
