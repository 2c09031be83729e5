// A field of a record as text and back, by the field's type as the record's field description
// gives it: numbers of every width (decimal; hexadecimal "0x..." accepted), switches, doubles
// (frequencies in MHz, written so that they read back to exactly the same value) and strings.
// Strings are the records' own bytes (their code page); converting them to and from UTF-8 is
// the caller's business.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "framework/object.h"

namespace persona {

// A field that the record does not have, or a text that does not fit the field; what() says
// which and why ("not a number", "above 255", ...).
class FieldTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The names of rec's fields that hold one value (numbers, switches, strings), in the order of
// its field description; lists and sub-records are left out.
std::vector<std::string> FieldNames(const CObject& rec);

// Puts the text of rec's field (exact name) into out and returns true; false, out untouched,
// when rec has no such single-value field. Switches are 0 / 1 ("Off" / "On" with words);
// numbers decimal; doubles in the shortest form that reads back exactly, with at least five
// decimals when those are exact (154.44500).
bool GetFieldText(const CObject& rec, std::string_view field, std::string& out, bool words = false);

// Sets rec's field (exact name) from text. Numbers take decimal or 0x-hexadecimal text with an
// optional sign where the field is signed; switches 0/1, Off/On, No/Yes, False/True (any case);
// doubles any decimal form; surrounding blanks are ignored except for strings. Throws
// FieldTextError (rec unchanged) for an unknown field or a text that does not fit.
void SetFieldText(CObject& rec, std::string_view field, std::string_view text);

}  // namespace persona
