// The Boost.Serialization reference: the same personality object graph (the library's own
// record objects, held by pointer in the same lists, every described field of every record)
// saved and loaded with Boost's binary archives over a memory buffer. The benchmarks compare
// the library's archive against it. Built only when Boost.Serialization is installed.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <persona/personality/personality.h>

namespace persona::bench {

// True when the reference was built (Boost.Serialization was found); otherwise the other
// functions throw std::logic_error.
bool BoostReferenceAvailable();

// A personality loaded by the reference, with the key records that its sets refer to (the
// library's own loader pools them in the personality; the reference keeps them here).
struct BoostLoaded {
  std::unique_ptr<CPersonality> personality;
  std::vector<std::unique_ptr<CObject>> shared;
};

// Appends the Boost binary archive of personality to out (cleared first; its capacity is
// reused). Throws what Boost throws.
void BoostSave(const CPersonality& personality, std::vector<char>& out);
// Loads a personality from a Boost binary archive made by BoostSave. The caller owns the
// result. Throws boost::archive::archive_exception on damaged input.
BoostLoaded BoostLoad(const std::vector<char>& bytes);

}  // namespace persona::bench
