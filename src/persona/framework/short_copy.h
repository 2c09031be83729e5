// Copies of a few bytes to a few dozen, the pieces text is made of (a key, a padded value, a
// line), done with fixed-size moves instead of a call to memcpy, which costs more than the copy
// itself at these sizes.
#pragma once

#include <cstddef>
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

#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

}  // namespace persona
