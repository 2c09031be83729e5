// Conversions between the Windows-1252 bytes that strings hold and Unicode (UTF-16 code units
// from wide archive strings, UTF-8 for JSON). Every one of the 256 byte values has exactly one
// code point, so a string survives a trip through UTF-8 unchanged.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <string>
#include <string_view>

#include <persona/framework/types.h>

namespace persona {

// The Windows-1252 byte for a code point, or '?' when the code page has none.
PERSONA_EXPORT char UnicodeToWindows1252(DWORD codePoint);
// The code point of a Windows-1252 byte.
PERSONA_EXPORT DWORD Windows1252ToUnicode(unsigned char byte);
// Writes the UTF-8 bytes of a code point of the Basic Multilingual Plane (at most 0xFFFF) at
// out, which has room for 3; returns how many (1 to 3). Does not fail.
PERSONA_EXPORT std::size_t EncodeUtf8(DWORD codePoint, char* out);
// UTF-8 text of Windows-1252 bytes.
PERSONA_EXPORT std::string Windows1252ToUtf8(const std::string& bytes);
// Windows-1252 bytes of UTF-8 text; returns false (out unspecified) when the text is not valid
// UTF-8 or holds a character the code page lacks.
PERSONA_EXPORT bool Utf8ToWindows1252(std::string_view utf8, std::string* out);

}  // namespace persona
