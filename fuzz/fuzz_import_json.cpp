// Fuzz target: a JSON personality from untrusted hands. Import must fail cleanly or succeed;
// an imported personality must export, import and export again to the same document.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "core/personality.h"
#include "io/json/record_json.h"

using namespace persona;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Json doc = Json::parse(data, data + size, nullptr, /*allow_exceptions=*/false);
  if (doc.is_discarded()) return 0;
  ImportedRecords imported;
  try {
    imported = ImportRecords(doc, RUNTIME_CLASS(CPersonality), "fuzz.json");
  } catch (const CException&) {
    return 0;
  }
  JsonExporter first;
  const std::string text = first.Export(*imported.root).dump();
  ImportedRecords again = ImportRecords(Json::parse(text), RUNTIME_CLASS(CPersonality));
  JsonExporter second;
  if (second.Export(*again.root).dump() != text) std::abort();  // export and import disagree
  return 0;
}
