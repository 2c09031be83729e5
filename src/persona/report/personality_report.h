// The personality report: a whole personality as fixed-width report lines, built from each
// record's own report lines.
//
// Layout, in this order (every block in the option family's layout: heading in capitals ending
// in ":", underline, value lines, closing empty line):
//   1. "PERSONALITY:" title block: name, description, saved on and by, version, the radio types
//      with their model names from the radio model catalogue, the last radio, the frequency
//      limits and the record counts.
//   2. The option records, in the fixed order of ReportOptionOrder(). Each record prints its
//      own block (printOptToBuffer). Records that have no block of their own are printed by
//      their owner's block (keypad extensions by the keypad options, the Fenn options by the
//      Lumo options, the multiple-radio audio options by the network options, the
//      conventional scan options by the scan options, the messages by the status options);
//      when the owner is missing, or a record's class has no block at all, the record is
//      printed field by field under "<CLASS NAME> RECORD:". A second record of a class (a
//      merge can leave one) is printed the same way, after the first.
//   3. One "SYSTEM <n> - <KIND>:" block per system in list order, every described field
//      labelled (record_lines.h), codes in hexadecimal where the field is described so (NAC,
//      RFSS and site IDs), the text-messaging host IP as "%03d.%03d.%03d.%03d".
//   4. The sets, kind by kind in the order of ReportSetOrder(), each kind under its own
//      heading ("TRUNK SETS:" ...; "   None" when it has none), then each set's printToBuffer
//      lines, numbered from 1 within the kind. Trunk and group sets do not print their own
//      name, so the driver puts the "   <n>   - <name>" line of the other sets before them.
// Arguments passed to the records: the radio type is the personality's last radio; the band
// frequency of the channel sets is the personality's Tx maximum frequency; individual and
// phone calls are numbered on from the sets before them (the first call of the kind is 1).
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <functional>
#include <vector>

#include <persona/core/set.h>
#include <persona/core/set_types.h>
#include <persona/framework/collections.h>
#include <persona/personality/personality.h>

namespace persona {

// Appends the report of personality to out; the personality is only read. Throws nothing of
// its own.
PERSONA_EXPORT void PrintPersonalityReport(const CPersonality& personality, CStringArray& out);

// Called after each block of the report (the title, each option record's block, each system,
// each set kind's heading, each set), and after the lines of each element of a set, with the
// array they were appended to.
// The same type as a set's ElementLinesEnd, which it is also passed as.
using BlockEnd = ElementLinesEnd;

// As above, calling blockEnd after each block and each set element; whatever blockEnd does to
// out (write the lines out and empty it, typically) the report goes on appending to it. Throws
// what blockEnd throws.
PERSONA_EXPORT void PrintPersonalityReport(const CPersonality& personality, CStringArray& out,
                                           const BlockEnd& blockEnd);

// One part of the report: the title block with the option and system blocks, a set kind's
// heading, or one set. A part appends its lines to out, calling blockEnd after its blocks and
// set elements as the whole report does. Parts only read the personality: different parts may
// print at the same time on different threads (each into its own array).
using ReportPart = std::function<void(CStringArray& out, const BlockEnd& blockEnd)>;

// The parts of personality's report in order (PrintPersonalityReport prints them one after the
// other). They refer to personality, which must outlive them unchanged.
PERSONA_EXPORT std::vector<ReportPart> PersonalityReportParts(const CPersonality& personality);

// The most lines StreamPersonalityReport gathers before it hands them on (more when an element
// or block is longer).
constexpr int kReportPieceLines = 256;

// Receives the next lines of the report (never empty); the driver empties them after.
using ReportSink = std::function<void(const CStringArray& lines)>;

// The report of personality piece by piece: sink gets its lines in report order, a few hundred
// at a time (a piece ends at the end of a block or of a set element), so that no more than
// that is in memory as text at a time. Throws what sink throws.
PERSONA_EXPORT void StreamPersonalityReport(const CPersonality& personality,
                                            const ReportSink& sink);

// The option class names in report order; *count receives their number. Classes printed by an
// owner's block are listed right after their owner.
PERSONA_EXPORT const char* const* ReportOptionOrder(std::size_t* count);

// A new option record of the class at position i of ReportOptionOrder(), built by its
// (radioType, 0) constructor (the model's full defaults); the caller owns it. Null when i is
// not below the count.
PERSONA_EXPORT CObject* NewReportOption(std::size_t i, unsigned short radioType);

// The set kinds in report order; *count receives 11.
PERSONA_EXPORT const SetType* ReportSetOrder(std::size_t* count);

}  // namespace persona
