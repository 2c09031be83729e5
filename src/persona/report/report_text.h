// The personality report as text, for writers of files and streams: the lines of
// PrintPersonalityReport, each ended by "\n", handed on in report order a piece at a time. The
// parts of the report (PersonalityReportParts) may be made by several threads at once while
// the caller's thread hands the finished text on (MakeTextInOrder).
#pragma once

#include <persona/export.h>

#include <persona/framework/ordered_text.h>
#include <persona/personality/personality.h>

namespace persona {

// Receives the next piece of the report's text (never empty; whole lines, each ended by "\n").
// The text is valid during the call only.
using ReportTextSink = TextSink;

// The threads that make the report's parts, and the text each may hold ahead.
using ReportTextOptions = OrderedTextOptions;

// Hands the report of personality to sink as text, in report order, on the caller's thread;
// the personality is only read and must not change meanwhile. The text is exactly the lines
// of PrintPersonalityReport, each followed by "\n". With options.workers > 0 worker threads
// make the parts (the caller's thread, when none can be started). Throws what sink throws (the
// threads are stopped and joined first) and std::bad_alloc.
PERSONA_EXPORT void StreamPersonalityReportText(const CPersonality& personality,
                                                const ReportTextSink& sink,
                                                const ReportTextOptions& options = {});

}  // namespace persona
