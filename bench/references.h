// The serialization references: the same personality object graph (the library's own record
// objects, held by pointer in the same lists, every described field of every record) saved
// and loaded with Boost.Serialization's and with cereal's binary archives over a memory
// buffer. The benchmarks compare the library's archive against them. Each is built only when
// its library is installed.
#pragma once

#include <memory>
#include <vector>

#include <persona/personality/personality.h>

namespace persona::bench {

// A personality loaded by a reference, with the key records that its sets refer to (the
// library's own loader pools them in the personality; a reference keeps them here, alive as
// long as the personality).
struct ReferenceLoaded {
  std::unique_ptr<CPersonality> personality;
  std::vector<std::shared_ptr<CObject>> shared;
};

// True when the Boost reference was built (Boost.Serialization was found); otherwise
// BoostSave and BoostLoad throw std::logic_error.
bool BoostReferenceAvailable();
// Replaces out (its capacity is reused) with the Boost binary archive of personality. Throws
// what Boost throws.
void BoostSave(const CPersonality& personality, std::vector<char>& out);
// Loads a personality from a Boost binary archive made by BoostSave. The caller owns the
// result. Throws boost::archive::archive_exception on damaged input.
ReferenceLoaded BoostLoad(const std::vector<char>& bytes);

// True when the cereal reference was built (cereal was found); otherwise CerealSave and
// CerealLoad throw std::logic_error.
bool CerealReferenceAvailable();
// Replaces out (its capacity is reused) with the cereal binary archive of personality. Throws
// cereal::Exception.
void CerealSave(const CPersonality& personality, std::vector<char>& out);
// Loads a personality from a cereal binary archive made by CerealSave. The caller owns the
// result. Throws cereal::Exception on damaged input.
ReferenceLoaded CerealLoad(const std::vector<char>& bytes);

}  // namespace persona::bench

namespace persona::bench {

// A reference by name ("boost", "cereal"), with its functions and the goal the library's
// load and save keep against it (at least goal x its speed).
struct Reference {
  const char* name;
  bool (*available)();
  void (*save)(const CPersonality&, std::vector<char>&);
  ReferenceLoaded (*load)(const std::vector<char>&);
  double goal;
};

inline const std::vector<Reference>& References() {
  static const std::vector<Reference> references = {
      {"boost", BoostReferenceAvailable, BoostSave, BoostLoad, 5.0},
      {"cereal", CerealReferenceAvailable, CerealSave, CerealLoad, 2.0},
  };
  return references;
}

}  // namespace persona::bench
