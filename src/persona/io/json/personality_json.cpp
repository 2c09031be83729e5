// Personality JSON documents.
#include <persona/io/json/personality_json.h>

namespace persona {

namespace {

constexpr const char* kFormat = kPersonalityJsonFormat;
constexpr int kFormatVersion = kPersonalityJsonFormatVersion;

}  // namespace

Json ExportPersonalityJson(const CPersonality& personality) {
  Json doc = Json::object();
  doc["format"] = kFormat;
  doc["formatVersion"] = kFormatVersion;
  JsonExporter exporter;
  // The exporter walks the records with the field visitors, which only read here.
  doc["personality"] = exporter.Export(const_cast<CPersonality&>(personality));
  return doc;
}

std::unique_ptr<CPersonality> ImportPersonalityJson(const Json& doc, const std::string& source) {
  const auto format = doc.is_object() ? doc.find("format") : doc.end();
  if (format == doc.end() || !format->is_string() ||
      format->get_ref<const std::string&>() != kFormat) {
    throw CJsonImportException(
        source, "/format",
        std::string("not a personality document (\"format\" must be \"") + kFormat + "\")");
  }
  const auto version = doc.find("formatVersion");
  if (version == doc.end() || !version->is_number_integer() ||
      version->get<long long>() != kFormatVersion) {
    throw CJsonImportException(
        source, "/formatVersion",
        "this library reads format version " + std::to_string(kFormatVersion));
  }
  const auto body = doc.find("personality");
  if (body == doc.end()) throw CJsonImportException(source, "/personality", "missing");
  ImportedRecords records = ImportRecords(*body, RUNTIME_CLASS(CPersonality), source);
  std::unique_ptr<CPersonality> personality(static_cast<CPersonality*>(records.root.release()));
  personality->AdoptSharedRecords(std::move(records.shared));
  return personality;
}

}  // namespace persona
