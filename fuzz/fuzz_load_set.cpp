// Fuzz target: a global set file from untrusted hands (any set class). Loading must fail
// cleanly or succeed; a loaded set must store, load and store again to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include <persona/core/set.h>
#include <persona/framework/archive.h>

using namespace persona;

namespace {

std::vector<BYTE> Store(const CObject* root) {
  CArchive ar(nullptr, CArchive::store);
  ar.WriteObject(root);
  return ar.TakeStoredBytes();
}

std::unique_ptr<CSet> Load(const BYTE* data, std::size_t size) {
  CArchive ar(data, size, "fuzz.set");
  std::unique_ptr<CObject> obj = ar.ReadOwnedObject(RUNTIME_CLASS(CSet));
  std::unique_ptr<CSet> set(static_cast<CSet*>(obj.release()));
  if (set) set->AdoptSharedRecords(ar.TakeSharedObjects());
  return set;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::unique_ptr<CSet> set;
  try {
    set = Load(data, size);
  } catch (const CException&) {
    return 0;
  }
  if (!set) return 0;
  const std::vector<BYTE> first = Store(set.get());
  std::unique_ptr<CSet> reloaded = Load(first.data(), first.size());
  if (Store(reloaded.get()) != first) std::abort();  // store and load disagree
  return 0;
}
