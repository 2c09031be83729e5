// Personality JSON documents.
#include "io/json/personality_json.h"

namespace persona {

namespace {

constexpr const char* kFormat = kPersonalityJsonFormat;
constexpr int kFormatVersion = kPersonalityJsonFormatVersion;

}  // namespace

Json ExportPersonalityJson(CPersonality& personality) {
  Json doc = Json::object();
  doc["format"] = kFormat;
  doc["formatVersion"] = kFormatVersion;
  JsonExporter exporter;
  doc["personality"] = exporter.Export(personality);
  return doc;
}

std::unique_ptr<CPersonality> ImportPersonalityJson(const Json& doc, const std::string& source) {
  if (!doc.is_object() || doc.value("format", "") != kFormat) {
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
