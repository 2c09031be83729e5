// The JSON document of a personality written as it is walked, without building it in memory:
// the same bytes as ExportPersonalityJson(p).dump(2) (two-space indentation, "key": value,
// empty lists as []), handed to a sink in pieces. The records of the personality's lists (its
// sets, systems and options) may be written by several threads at once, the text handed on
// in order (MakeTextInOrder).
#pragma once

#include <persona/json_export.h>

#include <functional>
#include <string_view>

#include <persona/framework/ordered_text.h>
#include <persona/personality/personality.h>

namespace persona {

// Receives the next piece of the document, valid during the call only.
using JsonTextSink = std::function<void(std::string_view text)>;

// Writes the JSON document of personality to sink, without a final newline, on the caller's
// thread; the personality is only read and must not change meanwhile. With options.workers > 0
// worker threads write the records of the personality's lists (the caller's thread, when none
// can be started), each holding at most options.partBytes ahead; otherwise the caller's thread
// writes it all in pieces of 64 KB. Throws what sink throws (the threads are stopped and joined
// first; the document is then incomplete) and std::bad_alloc.
PERSONA_JSON_EXPORT void WritePersonalityJson(const CPersonality& personality,
                                              const JsonTextSink& sink,
                                              const OrderedTextOptions& options = {});

}  // namespace persona
