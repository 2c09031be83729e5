// The JSON form of records: every described field of every record by its accessor name, so
// that archive -> JSON -> archive gives the same bytes and JSON -> records -> JSON the same
// document.
//
//   { "$class": "CTrunkSet", "Elements": [ { "$class": "CTrunkChannel", ... } ], "Name": "...",
//     "Esks": [ { "$class": "CEskData", "$id": 1, "EskId": "K", "Esk": 5 }, { "$ref": 1 } ] }
//
// Owned sub-records are written inline. A record referenced without being owned (a security
// key shared by several sets) is written in full, with "$id", where it first appears, and as
// {"$ref": id} afterwards. Strings are Windows-1252 in memory and UTF-8 in JSON; doubles are
// JSON numbers (shortest exact form), or {"$f64": "<16 hex digits>"} when not finite.
#pragma once

#include <persona/json_export.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include <nlohmann/json.hpp>

#include <persona/framework/exceptions.h>
#include <persona/framework/object.h>

namespace persona {

using Json = nlohmann::ordered_json;

// A JSON document that does not describe valid records: names the source, the record path of
// the offending value where the importer can tell it (as the tool prints paths,
// "sets/conv/METRO/FIRE 1/TxFreq"), its JSON pointer and what is wrong with it.
class PERSONA_JSON_EXPORT CJsonImportException : public CException {
 public:
  CJsonImportException(const std::string& source, const std::string& pointer,
                       const std::string& detail, const std::string& path = std::string())
      : CException((source.empty() ? std::string("<json>") : source) + ": " +
                   (path.empty() ? std::string() : path + " (") +
                   (pointer.empty() ? std::string("/") : pointer) + (path.empty() ? "" : ")") +
                   ": " + detail),
        m_pointer(pointer),
        m_path(path) {}
  std::string m_pointer;
  std::string m_path;  // "" where the value is outside every record path
};

// Writes records as JSON; one exporter per document, so that shared records get one id.
class PERSONA_JSON_EXPORT JsonExporter {
 public:
  // Returns the JSON object of rec with its sub-records.
  Json Export(CObject& rec);

 private:
  friend class JsonExportVisitor;
  Json ExportShared(CObject* rec);
  std::unordered_map<const CObject*, long long> m_ids;
};

// Records built from a JSON document: the root (owned by the caller) and the records that were
// referenced without an owner (shared records), which the caller must keep alive as long as the
// root (a personality adopts them).
struct PERSONA_JSON_EXPORT ImportedRecords {
  std::unique_ptr<CObject> root;
  std::vector<std::unique_ptr<CObject>> shared;
};

// The JSON value of a double field: the number, or {"$f64": "<16 hexadecimal digits>"} for
// infinities and NaN (their bits, payload included). Does not fail.
PERSONA_JSON_EXPORT Json DoubleToJson(double v);

// Builds the records of doc, whose root must be of class expected (or derived; null accepts
// any). Fields absent from the document keep their default-constructor values. Throws
// CJsonImportException for an unknown class or field, a value of the wrong type or range, an
// element of a class its list does not hold, a dangling "$ref", or nesting deeper than 32.
PERSONA_JSON_EXPORT ImportedRecords ImportRecords(const Json& doc, const CRuntimeClass* expected,
                                                  const std::string& source = std::string());

}  // namespace persona
