// The "$f64" form of a double that JSON numbers cannot carry (infinities, NaN with its payload):
// the 16 lower-case hexadecimal digits of the value's IEEE-754 bits, most significant first.
#pragma once

#include <string>
#include <string_view>

#include <persona/json_export.h>

namespace persona {

// The 16 digits of v's bits. Owns nothing; does not fail.
PERSONA_JSON_EXPORT std::string F64Digits(double v);

// Sets *v to the double whose bits the 16 lower-case hexadecimal digits give and returns true;
// returns false, leaving *v alone, for text of another length or with any other character.
PERSONA_JSON_EXPORT bool DoubleOfF64Digits(std::string_view digits, double* v);

}  // namespace persona
