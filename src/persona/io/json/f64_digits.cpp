// The "$f64" digits of a double, both ways.
#include <persona/io/json/f64_digits.h>

#include <cstdint>
#include <cstdio>
#include <cstring>

namespace persona {

std::string F64Digits(double v) {
  std::uint64_t bits;
  std::memcpy(&bits, &v, sizeof bits);
  char hex[17];
  std::snprintf(hex, sizeof hex, "%016llx", static_cast<unsigned long long>(bits));
  return std::string(hex, 16);
}

bool DoubleOfF64Digits(std::string_view digits, double* v) {
  if (digits.size() != 16) return false;
  std::uint64_t bits = 0;
  for (const char c : digits) {
    const int d = (c >= '0' && c <= '9') ? c - '0' : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : -1;
    if (d < 0) return false;
    bits = (bits << 4) | static_cast<std::uint64_t>(d);
  }
  std::memcpy(v, &bits, sizeof bits);
  return true;
}

}  // namespace persona
