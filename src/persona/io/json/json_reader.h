// Personality JSON documents read as they are parsed: the records are built from the events of
// a streaming scanner (json_scanner.h), so the document itself is never held in memory, only
// the records it describes.
#pragma once

#include <persona/json_export.h>

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string>

#include <persona/personality/personality.h>

namespace persona {

// Builds the personality of the JSON document in the file at path. The document is read in
// the form the exporter writes (each record's "$class" first); a document in any other form,
// or one with a fault, is read again whole by ImportPersonalityJson, which accepts every
// valid form and names the fault. The caller owns the result. Throws CFileException when the
// file cannot be read, nlohmann::json::parse_error when it is not JSON and
// CJsonImportException (source path, JSON pointer, cause) when it is not a valid personality
// document.
PERSONA_JSON_EXPORT std::unique_ptr<CPersonality> ReadPersonalityJsonFile(const std::string& path);

// The streaming part alone, over text: the personality, or null when the text is outside the
// streamed form or holds a fault (then nothing of it is kept). Throws only std::bad_alloc.
PERSONA_JSON_EXPORT std::unique_ptr<CPersonality> StreamPersonalityJson(std::istream& text);
// The same over text in memory (size bytes at data, which the caller keeps).
PERSONA_JSON_EXPORT std::unique_ptr<CPersonality> StreamPersonalityJson(const char* data,
                                                                        std::size_t size);

}  // namespace persona
