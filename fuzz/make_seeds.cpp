// Seed generator of the fuzz targets. Builds personalities and sets that exercise every record
// class the library registers (every set kind with filled elements, every system kind, every
// option record, shared key records) and writes them as the fuzzers' starting inputs, with the
// dictionaries made from the class registry:
//   make_seeds FUZZDIR
// writes FUZZDIR/seeds/personality/*.pers, FUZZDIR/seeds/set/*.set, FUZZDIR/seeds/json/*.json,
// and FUZZDIR/archive.dict and FUZZDIR/json.dict. The output is deterministic.
#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <persona/core/set.h>
#include <persona/framework/archive.h>
#include <persona/framework/fields.h>
#include <persona/io/json/personality_json.h>
#include <persona/io/personality_file.h>
#include <persona/personality/personality.h>
#include <persona/systems/esk_data.h>
#include <persona/systems/group_set.h>
#include <persona/systems/system.h>
#include <persona/systems/trunk_set.h>
#include "support/record_testing.h"

using namespace persona;

namespace {

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out) {
    std::cerr << "cannot write " << path << "\n";
    std::exit(1);
  }
}

void WriteBytes(const std::string& path, const std::vector<BYTE>& bytes) {
  WriteFile(path, std::string(bytes.begin(), bytes.end()));
}

std::vector<BYTE> Store(const CObject* obj) {
  CArchive ar(nullptr, CArchive::store);
  ar.WriteObject(obj);
  return ar.TakeStoredBytes();
}

// Every registered class that is a CSerial record of its own: not the personality, a set, a
// system, a set element or a key (those have their own places in the seeds).
bool IsOptionRecord(const CRuntimeClass* cls) {
  if (!cls->IsDerivedFrom(RUNTIME_CLASS(CSerial)) || cls->m_pfnCreateObject == nullptr)
    return false;
  if (cls == RUNTIME_CLASS(CPersonality) || cls->IsDerivedFrom(RUNTIME_CLASS(CSet))) return false;
  if (CSet::IsCopiedElementClass(cls->m_lpszClassName)) return false;
  return !cls->IsDerivedFrom(RUNTIME_CLASS(CSystem)) && cls != RUNTIME_CLASS(CEskData);
}

// A set of type t named name with n filled elements of its element class.
std::unique_ptr<CSet> FilledSet(SetType t, const char* name, int n, int seed) {
  std::unique_ptr<CSet> set(static_cast<CSet*>(CPersonality::SetClassOf(t)->CreateObject()));
  for (int i = 0; i < n; ++i) {
    CObject* element = CRuntimeClass::FromName(CPersonality::ElementClassName(t))->CreateObject();
    test::FillFields(*element, seed + i);
    set->Add(element);
  }
  set->SetName(name);
  set->SetScope(static_cast<BYTE>(seed % 2));
  return set;
}

// Points the key list of a trunk or group set at keys (shared, not owned).
void UseKeys(CSet& set, const std::vector<CEskData*>& keys) {
  CSetKeyList* list = nullptr;
  if (auto* trunk = dynamic_cast<CTrunkSet*>(&set)) list = trunk;
  if (auto* group = dynamic_cast<CGroupSet*>(&set)) list = group;
  if (list == nullptr) return;
  for (CEskData* key : keys) list->AddEsk(key);
}

// The registered classes, sorted by name so that the output does not depend on the registry.
std::vector<const CRuntimeClass*> Registered() {
  std::vector<const CRuntimeClass*> out = CRuntimeClass::RegisteredClasses();
  std::sort(out.begin(), out.end(), [](const CRuntimeClass* a, const CRuntimeClass* b) {
    return std::string(a->m_lpszClassName) < b->m_lpszClassName;
  });
  return out;
}

// A personality with one filled system of each kind, a set of every kind (two elements each,
// sharing two key records), and, with options, every option record filled.
std::unique_ptr<CPersonality> RichPersonality(int seed, bool options) {
  auto p = std::make_unique<CPersonality>(68, 0);
  test::FillFields(*p, seed);
  p->SetVersion(20);
  std::vector<std::unique_ptr<CObject>> keys;
  std::vector<CEskData*> keyPointers;
  for (int i = 0; i < 2; ++i) {
    auto key = std::make_unique<CEskData>();
    test::FillFields(*key, seed + 10 + i);
    keyPointers.push_back(key.get());
    keys.push_back(std::move(key));
  }
  for (const CRuntimeClass* cls : Registered()) {
    if (!cls->IsDerivedFrom(RUNTIME_CLASS(CSystem)) || cls->m_pfnCreateObject == nullptr) continue;
    std::unique_ptr<CObject> obj(cls->CreateObject());
    auto* system = static_cast<CSystem*>(obj.get());
    const BYTE type = system->GetSysType();
    test::FillFields(*system, seed + 20);
    system->SetSysType(static_cast<SystemType>(type));
    p->AddSystem(static_cast<CSystem*>(obj.release()));
  }
  for (int t = 0; t < kNumSetTypes; ++t) {
    std::unique_ptr<CSet> set =
        FilledSet(static_cast<SetType>(t), CString::Formatted("S%d", t).c_str(), 2, seed + t);
    UseKeys(*set, keyPointers);
    p->AddSet(set.release(), static_cast<SetType>(t));
  }
  p->AdoptSharedRecords(std::move(keys));
  if (options) {
    for (const CRuntimeClass* cls : Registered()) {
      if (!IsOptionRecord(cls)) continue;
      CObject* option = cls->CreateObject();
      test::FillFields(*option, seed + 30);
      p->PutOption(option);
    }
  }
  return p;
}

// "\xNN" escapes for a dictionary entry.
std::string DictEscape(const std::string& bytes) {
  std::string out;
  for (unsigned char c : bytes) {
    if (c >= 0x20 && c < 0x7F && c != '"' && c != '\\') {
      out.push_back(static_cast<char>(c));
    } else {
      char hex[8];
      std::snprintf(hex, sizeof hex, "\\x%02X", c);
      out += hex;
    }
  }
  return "\"" + out + "\"";
}

// Field names of every record class, as the JSON form spells them.
class FieldNameCollector : public CFieldVisitor {
 public:
  explicit FieldNameCollector(std::set<std::string>& names) : m_names(names) {}
#define PERSONA_COLLECT(T) \
  void Field(const FieldInfo& f, T&) override { m_names.insert(f.name); }
  PERSONA_COLLECT(bool)
  PERSONA_COLLECT(BYTE)
  PERSONA_COLLECT(WORD)
  PERSONA_COLLECT(short)
  PERSONA_COLLECT(DWORD)
  PERSONA_COLLECT(LONG)
  PERSONA_COLLECT(double)
  PERSONA_COLLECT(CString)
  PERSONA_COLLECT(CStringArray)
  PERSONA_COLLECT(CWordArray)
  PERSONA_COLLECT(COwnedObList)
  PERSONA_COLLECT(CObList)
#undef PERSONA_COLLECT
  void Field(const FieldInfo& f, WORD*, std::size_t) override { m_names.insert(f.name); }

 private:
  std::set<std::string>& m_names;
};

void WriteDictionaries(const std::string& dir) {
  std::string archive =
      "# Registered record classes, as new-class tags and as bare names.\n"
      "# Generated by fuzz/make_seeds from the class registry.\n";
  std::string json =
      "# Registered record classes and their field names, as JSON strings.\n"
      "# Generated by fuzz/make_seeds from the class registry.\n";
  std::set<std::string> names;
  std::set<std::string> fields;
  for (const CRuntimeClass* cls : Registered()) names.insert(cls->m_lpszClassName);
  for (const std::string& name : names) {
    const CRuntimeClass* cls = CRuntimeClass::FromName(name.c_str());
    std::string tag = "\xFF\xFF";
    tag.push_back(static_cast<char>(cls->GetSchema() & 0xFF));
    tag.push_back(static_cast<char>((cls->GetSchema() >> 8) & 0xFF));
    tag.push_back(static_cast<char>(name.size()));
    tag.push_back('\0');
    archive += DictEscape(tag + name) + "\n" + DictEscape(name) + "\n";
    json += DictEscape("\"" + name + "\"") + "\n";
    if (cls->m_pfnCreateObject != nullptr) {
      std::unique_ptr<CObject> obj(cls->CreateObject());
      FieldNameCollector collector(fields);
      obj->VisitFields(collector);
    }
  }
  for (const std::string& field : fields) json += DictEscape("\"" + field + "\":") + "\n";
  for (const char* word : {"\"$class\":", "\"$id\":", "\"$ref\":", "\"$f64\":", "\"format\":",
                           "\"formatVersion\":", "\"personality\":", "\"persona-personality\""})
    json += DictEscape(word) + "\n";
  // Values of every JSON type and of the edges of the number types, so that a value of the wrong
  // type or range reaches every field the import reads.
  for (const char* value : {"{}", "[]", "null", "true", "false", "\"\"", "-1", "0.5", "65536",
                            "4294967296", "-9223372036854775809", "18446744073709551616", "1e999"})
    json += DictEscape(value) + "\n";
  archive += DictEscape(std::string("\xFF\xFF\xFF\xFF", 4)) + "\n" +
             DictEscape(std::string("\x7F\x7F", 2)) + "\n" +
             DictEscape(std::string("\xFF\xFE\xFF", 3)) + "\n";
  WriteFile(dir + "/archive.dict", archive);
  WriteFile(dir + "/json.dict", json);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: make_seeds FUZZDIR\n";
    return 2;
  }
  const std::string dir = std::string(argv[1]) + "/seeds";
  std::vector<std::pair<std::string, std::unique_ptr<CPersonality>>> personalities;
  personalities.emplace_back("empty", std::make_unique<CPersonality>());
  personalities.emplace_back("sets_and_systems", RichPersonality(1, false));
  personalities.emplace_back("everything", RichPersonality(2, true));
  for (auto& [name, p] : personalities) {
    // Stored as a load gives it back (load repairs applied), so that each seed is a file
    // that loads and stores back byte for byte.
    const std::vector<BYTE> first = StorePersonalityBytes(*p);
    const LoadedPersonality loaded = LoadPersonalityBytes(first.data(), first.size(), name);
    WriteBytes(dir + "/personality/" + name + ".pers", StorePersonalityBytes(*loaded.personality));
    WriteFile(dir + "/json/" + name + ".json", ExportPersonalityJson(*loaded.personality).dump(1));
  }
  for (int t = 0; t < kNumSetTypes; ++t) {
    const SetType type = static_cast<SetType>(t);
    std::unique_ptr<CSet> set = FilledSet(type, "GLOBAL", 3, 40 + t);
    set->SetScope(1);
    WriteBytes(dir + "/set/" + CPersonality::SetClassName(type) + ".set", Store(set.get()));
  }
  WriteDictionaries(argv[1]);
  return 0;
}
