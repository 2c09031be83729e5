// Whole-personality operations behind the command-line tool: the summary of a file, a new
// personality with a model's defaults, the merge of two personalities with the name clashes it
// leaves, and the short keys by which a person names a set kind.
#pragma once

#include <persona/export.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <persona/core/set_types.h>
#include <persona/framework/collections.h>
#include <persona/personality/personality.h>

namespace persona {

// ---- set kinds -----------------------------------------------------------------------------

// The short key of a set kind: "trunk", "conv", "group", "phone", "icall", "spcall",
// "plmgroup", "plmspcall", "p25conv", "p25group", "eagroup"; null for an invalid type.
PERSONA_EXPORT const char* SetKindKey(SetType type);
// The kind named by text: one of the keys above (any letter case) or the number 0 to 10.
// Returns false (type untouched) for anything else.
PERSONA_EXPORT bool ParseSetKind(const std::string& text, SetType* type);

// ---- summary -------------------------------------------------------------------------------

// Appends the summary lines of a personality file: stored schema, version, radio types with
// their model names, systems by kind, sets and elements by kind, option records, file size and
// the bytes after the personality that nothing read. fileSize and trailingBytes come from the
// load (LoadedPersonality).
PERSONA_EXPORT void PrintPersonalitySummary(const CPersonality& personality, std::size_t fileSize,
                                            std::size_t trailingBytes, CStringArray& out);

// ---- new personality -----------------------------------------------------------------------

// Adds to personality one option record of every option class of the library, each built by
// its (radioType, 0) constructor, in report order; classes already held are skipped.
PERSONA_EXPORT void AddModelDefaultOptions(CPersonality& personality, unsigned short radioType);

// A new personality for radioType (its radio type list and last radio), the frequency limits
// of the 800 MHz band (Tx 806 to 825, Rx 851 to 870 MHz) and every option record with the
// model's defaults. The caller owns the result.
PERSONA_EXPORT std::unique_ptr<CPersonality> NewModelPersonality(unsigned short radioType);

// ---- merge ---------------------------------------------------------------------------------

// A name the merged personality holds twice.
struct PERSONA_EXPORT MergeClash {
  std::string what;  // "system", "set <kind key>" or "option"
  std::string name;  // the system or set name, or the option class name
};

struct PERSONA_EXPORT MergeResult {
  std::unique_ptr<CPersonality> merged;
  std::vector<MergeClash> clashes;  // in the merged personality's list order
};

// The personality's copy semantics: a copy of a (header and records), then copies of b's
// systems, sets and option records appended (CPersonality's AddSystems, AddSets, AddOptions),
// b's radio types added to a's. Nothing is renamed or dropped: a system name held by both
// (exact), a set name held by both in one kind (ignoring case) and an option class held by both
// end up twice and are listed as clashes. Neither a nor b is changed.
PERSONA_EXPORT MergeResult MergePersonalities(const CPersonality& a, const CPersonality& b);

}  // namespace persona
