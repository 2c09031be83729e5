// Fixed-width value types of the class framework. Every archived field uses one of these so
// that a record has the same byte layout on every platform (`long` is 64 bits on Linux and is
// never used for an archived field).
#pragma once

#include <cstddef>
#include <cstdint>

// Hot paths of the archive are forced inline: a record's field list is one long function, and
// only when it is inlined whole can the archive's cursor stay in a register across the fields.
#if defined(__GNUC__)
#define PERSONA_ALWAYS_INLINE inline __attribute__((always_inline))
#else
#define PERSONA_ALWAYS_INLINE inline
#endif

namespace persona {

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using UINT = std::uint32_t;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;
using BOOL = int;

static_assert(sizeof(BYTE) == 1 && sizeof(WORD) == 2 && sizeof(DWORD) == 4, "fixed widths");
static_assert(sizeof(LONG) == 4 && sizeof(UINT) == 4 && sizeof(ULONGLONG) == 8, "fixed widths");
static_assert(sizeof(double) == 8 && sizeof(float) == 4, "IEEE 754 binary64 and binary32");

}  // namespace persona
