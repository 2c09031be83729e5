// Copies and comparisons of a few bytes to a few dozen, the pieces text is made of (a key, a
// padded value, a line), done with fixed-size moves instead of a call to memcpy or memcmp,
// which costs more than the work itself at these sizes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <persona/framework/types.h>

namespace persona {

// GCC inlines this into callers whose source is a small array and warns of the longer moves'
// offsets, in branches that sizes within the array never take.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Warray-bounds"
#pragma GCC diagnostic ignored "-Wstringop-overread"
#endif

// Copies size bytes from `from` to `to` (which must not overlap); reads and writes those bytes
// only. Pieces of up to 64 bytes take two fixed-size moves that overlap in the middle; longer
// ones go to memcpy.
PERSONA_ALWAYS_INLINE void CopyShort(char* to, const char* from, std::size_t size) {
  if (size >= 16) {
    if (size <= 32) {
      std::memcpy(to, from, 16);
      std::memcpy(to + size - 16, from + size - 16, 16);
    } else if (size <= 64) {
      std::memcpy(to, from, 32);
      std::memcpy(to + size - 32, from + size - 32, 32);
    } else {
      std::memcpy(to, from, size);
    }
  } else if (size >= 8) {
    std::memcpy(to, from, 8);
    std::memcpy(to + size - 8, from + size - 8, 8);
  } else if (size >= 4) {
    std::memcpy(to, from, 4);
    std::memcpy(to + size - 4, from + size - 4, 4);
  } else {
    for (std::size_t i = 0; i < size; ++i) to[i] = from[i];
  }
}

// True when the size bytes at a and at b are the same; reads those bytes only. Pieces of up to
// 32 bytes are compared with fixed-size loads that overlap in the middle; longer ones go to
// memcmp.
PERSONA_ALWAYS_INLINE bool SameShort(const char* a, const char* b, std::size_t size) {
  const auto differ = [](const char* x, const char* y, auto word) {
    decltype(word) u, v;
    std::memcpy(&u, x, sizeof u);
    std::memcpy(&v, y, sizeof v);
    return u != v;
  };
  if (size >= 8) {
    if (size > 32) return std::memcmp(a, b, size) == 0;
    for (std::size_t at = 0; at + 8 < size; at += 8) {
      if (differ(a + at, b + at, std::uint64_t{})) return false;
    }
    return !differ(a + size - 8, b + size - 8, std::uint64_t{});
  }
  if (size >= 4) {
    return !differ(a, b, std::uint32_t{}) && !differ(a + size - 4, b + size - 4, std::uint32_t{});
  }
  for (std::size_t i = 0; i < size; ++i) {
    if (a[i] != b[i]) return false;
  }
  return true;
}

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

}  // namespace persona
