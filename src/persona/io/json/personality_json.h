// The JSON document of a whole personality: a small header naming the format, then the
// personality record with everything below it (record_json.h gives the record form).
//
//   { "format": "persona-personality", "formatVersion": 1, "personality": { "$class": ... } }
#pragma once

#include <persona/json_export.h>

#include <memory>
#include <string>

#include <persona/io/json/record_json.h>
#include <persona/personality/personality.h>

namespace persona {

// The "format" and "formatVersion" of personality documents.
inline constexpr char kPersonalityJsonFormat[] = "persona-personality";
inline constexpr int kPersonalityJsonFormatVersion = 1;

// Returns the JSON document of personality.
PERSONA_JSON_EXPORT Json ExportPersonalityJson(const CPersonality& personality);

// Builds the personality of doc (which the caller owns); the key records its sets share are
// kept by the personality. Throws CJsonImportException (source, JSON pointer, cause) for a
// document that is not a personality document or describes invalid records.
PERSONA_JSON_EXPORT std::unique_ptr<CPersonality> ImportPersonalityJson(
    const Json& doc, const std::string& source = std::string());

}  // namespace persona
