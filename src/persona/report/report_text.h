// The personality report as text, for writers of files and streams: the lines of
// PrintPersonalityReport, each ended by "\n", handed on in report order a piece at a time. The
// parts of the report (PersonalityReportParts) may be made by several threads at once while
// the caller's thread hands the finished text on, so a big personality's report is made in
// a fraction of the time; what is held at any time stays bounded whatever the personality's
// size.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <functional>
#include <string_view>

#include <persona/personality/personality.h>

namespace persona {

// Receives the next piece of the report's text (never empty; whole lines, each ended by "\n").
// The text is valid during the call only.
using ReportTextSink = std::function<void(std::string_view text)>;

struct PERSONA_EXPORT ReportTextOptions {
  // The threads that make the report's parts (at most 64 are started); 0 or 1: the caller's
  // thread makes them all.
  unsigned threads = 1;
  // The most text, in bytes, that a part made ahead of the one being handed on holds before
  // its thread waits (a part holds at least one piece); with `threads` parts under way at most
  // about threads x partBytes are held.
  std::size_t partBytes = std::size_t{8} << 20;
};

// Hands the report of personality to sink as text, in report order, on the caller's thread;
// the personality is only read and must not change meanwhile. The text is exactly the lines
// of PrintPersonalityReport, each followed by "\n". Throws what sink throws (the threads are
// stopped and joined first), std::system_error when a thread cannot be started, and
// std::bad_alloc.
PERSONA_EXPORT void StreamPersonalityReportText(const CPersonality& personality,
                                                const ReportTextSink& sink,
                                                const ReportTextOptions& options = {});

}  // namespace persona
