// Fuzz target: a personality file from untrusted hands. Loading must fail cleanly (an archive
// or argument failure) or succeed; a loaded personality must store, load and store again to
// the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include "core/personality.h"
#include "framework/archive.h"

using namespace persona;

namespace {

std::vector<BYTE> Store(const CObject* root) {
  CArchive ar(nullptr, CArchive::store);
  ar.WriteObject(root);
  return ar.TakeStoredBytes();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::unique_ptr<CObject> loaded;
  try {
    CArchive ar(data, size, "fuzz.pers");
    loaded = ar.ReadOwnedObject(RUNTIME_CLASS(CPersonality));
  } catch (const CException&) {
    return 0;
  }
  if (!loaded) return 0;
  const std::vector<BYTE> first = Store(loaded.get());
  CArchive again(first.data(), first.size(), "stored.pers");
  std::unique_ptr<CObject> reloaded = again.ReadOwnedObject(RUNTIME_CLASS(CPersonality));
  if (Store(reloaded.get()) != first) std::abort();  // store and load disagree
  return 0;
}
