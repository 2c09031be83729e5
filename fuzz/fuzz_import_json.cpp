// Fuzz target: a personality JSON document from untrusted hands. Import must fail cleanly with a
// CJsonImportException (any other exception escapes and ends the run as a finding) or succeed; an
// imported personality must export, import and export again to the same document.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include <persona/io/json/personality_json.h>

using namespace persona;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Json doc = Json::parse(data, data + size, nullptr, /*allow_exceptions=*/false);
  if (doc.is_discarded()) return 0;
  std::unique_ptr<CPersonality> imported;
  try {
    imported = ImportPersonalityJson(doc, "fuzz.json");
  } catch (const CJsonImportException&) {
    return 0;
  }
  const std::string text = ExportPersonalityJson(*imported).dump();
  std::unique_ptr<CPersonality> again = ImportPersonalityJson(Json::parse(text), "again.json");
  if (ExportPersonalityJson(*again).dump() != text) std::abort();  // export and import disagree
  return 0;
}
