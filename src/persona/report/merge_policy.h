// A merge of two personalities that settles every name both hold by a policy, and tells which
// errors the merge itself brought in. The copy semantics of CPersonality (records appended,
// nothing checked) are left as they are; this layer decides, before appending, which of the
// clashing records go into the result.
#pragma once

#include <persona/export.h>

#include <memory>
#include <string>
#include <vector>

#include <persona/integrity/checker.h>
#include <persona/personality/personality.h>

namespace persona {

// How a name held by both personalities is settled.
enum class ClashPolicy {
  KeepBoth,  // both records end up in the result, as the plain copy does
  PreferA,   // A's record stays, B's is left out
  PreferB,   // B's record replaces A's
  Rename,    // B's system or set is renamed (name + suffix); for option records A's stays
};

// One clash and what the policy made of it.
struct PERSONA_EXPORT ClashDecision {
  std::string what;     // "system", "<kind key> set" or "option"
  std::string name;     // the system or set name, or the option class name
  std::string outcome;  // "kept A's", "took B's", "kept both", "B's renamed to NAME"
};

struct PERSONA_EXPORT PolicyMergeResult {
  std::unique_ptr<CPersonality> merged;
  std::vector<ClashDecision> clashes;  // systems, then sets list by list, then option classes
  // Error findings of the result that neither A nor B has on its own (dangling references
  // among them), in the checker's order.
  std::vector<Finding> addedErrors;
};

// Merges b into a copy of a: A's header and radio types plus b's, A's records and then b's, the
// clashes settled by policy. Systems clash by exact name, sets by name ignoring case within a
// list, option records by class; with any policy but KeepBoth the result holds at most one
// option record per class. A renamed record of b carries its new name into b's records that
// named it; a name that is still taken gets a number after the suffix ("X-B2"). References of
// b's records to a left-out record of b then mean A's record of that name. Neither a nor b is
// changed; the caller owns the result. Fails only by the allocation failure of the copies.
PERSONA_EXPORT PolicyMergeResult MergeWithPolicy(const CPersonality& a, const CPersonality& b,
                                                 ClashPolicy policy, const std::string& suffix);
// The same merge, the same result, taking the inputs: each is freed as soon as the merge has
// its working copy, so that at most three personalities are held at once. Throws
// std::invalid_argument when an input is null.
PERSONA_EXPORT PolicyMergeResult MergeWithPolicy(std::unique_ptr<CPersonality> a,
                                                 std::unique_ptr<CPersonality> b,
                                                 ClashPolicy policy, const std::string& suffix);

// True when f is a name that points at nothing (the REF_ and SCAN_ codes of the checker).
PERSONA_EXPORT bool IsDanglingReference(const Finding& f);

}  // namespace persona
