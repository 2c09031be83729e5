// Fuzz target: a personality JSON document from untrusted hands. Import must fail cleanly with a
// CJsonImportException (any other exception escapes and ends the run as a finding) or succeed; an
// imported personality must export, import and export again to the same document. The streaming
// reader must read what it takes to that same personality, and take nothing the import refuses.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

#include <persona/io/json/json_reader.h>
#include <persona/io/json/personality_json.h>

using namespace persona;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::unique_ptr<CPersonality> streamed =
      StreamPersonalityJson(reinterpret_cast<const char*>(data), size);
  const Json doc = Json::parse(data, data + size, nullptr, /*allow_exceptions=*/false);
  if (doc.is_discarded()) {
    if (streamed) std::abort();  // the streaming reader took text that is not JSON
    return 0;
  }
  std::unique_ptr<CPersonality> imported;
  try {
    imported = ImportPersonalityJson(doc, "fuzz.json");
  } catch (const CJsonImportException&) {
    if (streamed) std::abort();  // the streaming reader took a document the import refuses
    return 0;
  }
  const std::string text = ExportPersonalityJson(*imported).dump();
  if (streamed && ExportPersonalityJson(*streamed).dump() != text) std::abort();
  std::unique_ptr<CPersonality> again = ImportPersonalityJson(Json::parse(text), "again.json");
  if (ExportPersonalityJson(*again).dump() != text) std::abort();  // export and import disagree
  return 0;
}
