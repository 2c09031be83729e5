// A field's value as text and back, by the field's type as the record's field description
// gives it: the one conversion behind the tool's get and edit and the CSV form of set elements.
//
// Text forms:
//   double             the shortest decimal that reads back to the same value ("851.0125")
//   integers           decimal; fields marked Hex as "0x1F" in the word form; either is read,
//                      and the value must fit the field's width and sign
//   bool               "true" / "false" ("On" / "Off" in the word form); read: true, false,
//                      on, off, yes, no, 1, 0 (any letter case)
//   switch (OnOff)     the number, or "Off" / "On" in the word form; both read
//   coded (Words)      the number, or its report word in the word form; a word (any letter
//                      case) or a number of the list is read
//   string, name       the text in UTF-8 (strings hold Windows-1252, so a character outside
//                      that code page is refused)
//   list of names      the entries joined by ", "; read: a comma-separated list (blanks
//   list of numbers    around entries dropped; "" empties a list of names)
//   "<field>/<n>"      entry n (from 1) of a list field; setting entry count+1 appends to a
//                      list of names or numbers
// Lists of records and of shared records have no text form. SetType of sets and SysType of
// systems are fixed by the record's class: they read but do not set.
#pragma once

#include <persona/export.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <persona/framework/object.h>

namespace persona {

// A field that does not exist or cannot be set, or a value that does not fit its field;
// what() says which and why, without the file or the record's path (the caller adds them).
class PERSONA_EXPORT FieldTextError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The names of the fields of record that have a text form and can be set, in description order.
PERSONA_EXPORT std::vector<std::string> FieldNames(const CObject& record);

// Writes the value of field (a name, or "<name>/<n>" for an entry) of record to out and returns
// true; returns false (out unchanged) when record has no such field with a text form or the
// entry does not exist. words: the report form (words, On/Off, hexadecimal) where the field has
// one. record is not changed.
PERSONA_EXPORT bool GetFieldText(const CObject& record, std::string_view field, std::string& out,
                                 bool words = false);

// Sets field (a name or "<name>/<n>") of record from text. Throws FieldTextError when record has
// no such settable field or the text does not fit it; then record is unchanged.
PERSONA_EXPORT void SetFieldText(CObject& record, std::string_view field, std::string_view text);

}  // namespace persona
