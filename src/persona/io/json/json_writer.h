// The JSON document of a personality written as it is walked, without building it in memory:
// the same bytes as ExportPersonalityJson(p).dump(2) (two-space indentation, "key": value,
// empty lists as []), handed to a sink in pieces of about 64 KB.
#pragma once

#include <persona/json_export.h>

#include <functional>
#include <string_view>

#include <persona/personality/personality.h>

namespace persona {

// Receives the next piece of the document.
using JsonTextSink = std::function<void(std::string_view text)>;

// Writes the JSON document of personality to sink, without a final newline. Owns nothing
// beyond its buffer; throws what sink throws (the document is then incomplete).
PERSONA_JSON_EXPORT void WritePersonalityJson(const CPersonality& personality,
                                              const JsonTextSink& sink);

}  // namespace persona
