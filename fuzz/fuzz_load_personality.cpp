// Fuzz target: a personality file from untrusted hands. Loading must fail cleanly (an archive
// or argument failure) or succeed; a loaded personality must store and load again, and from the
// second store on the bytes must not change.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <vector>

#include <persona/framework/archive.h>
#include <persona/personality/personality.h>

using namespace persona;

namespace {

std::vector<BYTE> Store(const CObject* root) {
  CArchive ar(nullptr, CArchive::store);
  ar.WriteObject(root);
  return ar.TakeStoredBytes();
}

// Loads a personality that Store wrote; any failure here is a finding (escapes the target).
std::unique_ptr<CObject> Reload(const std::vector<BYTE>& bytes, const char* name) {
  CArchive ar(bytes.data(), bytes.size(), name);
  return ar.ReadOwnedObject(RUNTIME_CLASS(CPersonality));
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
  // The first store may differ from the second: the load repairs are applied in order, and one
  // can leave a value that a later load repairs again. The general options' bandwidth (up to 13
  // in a damaged file) is copied into a trunk set whose baud rate is 255 without a clamp, and
  // the next load resets a trunk set's bandwidth above 1 to 0. A stored personality is repaired
  // data, so storing what it loads back to must give the same bytes.
  const std::vector<BYTE> first = Store(loaded.get());
  std::unique_ptr<CObject> second = Reload(first, "first.pers");
  const std::vector<BYTE> secondBytes = Store(second.get());
  std::unique_ptr<CObject> third = Reload(secondBytes, "second.pers");
  if (Store(third.get()) != secondBytes) std::abort();  // store and load disagree
  return 0;
}
