// Field-by-field differences of two JSON record documents.
#include "io/json/record_diff.h"

#include <unordered_map>

namespace persona {

namespace {

// Shared records of one document by id, so that a {"$ref": id} compares by content.
using IdTable = std::unordered_map<long long, const Json*>;

void CollectIds(const Json& j, IdTable* ids) {
  if (j.is_object()) {
    const auto id = j.find("$id");
    if (id != j.end() && id->is_number_integer()) (*ids)[id->get<long long>()] = &j;
    for (const auto& item : j.items()) CollectIds(item.value(), ids);
  } else if (j.is_array()) {
    for (const Json& e : j) CollectIds(e, ids);
  }
}

bool IsRecord(const Json& j) {
  return j.is_object() && (j.contains("$class") || j.contains("$ref"));
}

enum class Matching { ByPosition, ByName, ByClass };

Matching MatchingOf(const std::string& listName) {
  if (listName == "Options") return Matching::ByClass;
  if (listName == "Systems") return Matching::ByName;
  if (listName.size() > 4 && listName.compare(listName.size() - 4, 4, "Sets") == 0) {
    return Matching::ByName;
  }
  return Matching::ByPosition;
}

std::string UpperName(const Json& j) {
  std::string s = j.is_string() ? j.get<std::string>() : std::string();
  for (char& c : s) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  }
  return s;
}

class Differ {
 public:
  Differ(const Json& a, const Json& b) {
    CollectIds(a, &m_idsA);
    CollectIds(b, &m_idsB);
  }

  std::vector<RecordDifference> out;

  void Record(const Json& a0, const Json& b0, const std::string& path) {
    const Json& a = Resolve(a0, m_idsA);
    const Json& b = Resolve(b0, m_idsB);
    if (a.value("$class", "") != b.value("$class", "")) {
      Emit(RecordDifference::Changed, Join(path, "$class"), a.value("$class", ""),
           b.value("$class", ""));
      return;
    }
    for (const auto& item : a.items()) {
      const std::string& key = item.key();
      if (key == "$class" || key == "$id") continue;
      const auto other = b.find(key);
      if (other == b.end()) {
        Emit(RecordDifference::Removed, Join(path, key), item.value().dump(), "");
      } else {
        Value(item.value(), *other, key, Join(path, key));
      }
    }
    for (const auto& item : b.items()) {
      const std::string& key = item.key();
      if (key == "$class" || key == "$id" || a.contains(key)) continue;
      Emit(RecordDifference::Added, Join(path, key), "", item.value().dump());
    }
  }

 private:
  static std::string Join(const std::string& path, const std::string& part) {
    return path.empty() ? part : path + "/" + part;
  }
  static const Json& Resolve(const Json& j, const IdTable& ids) {
    if (j.is_object() && j.size() == 1 && j.contains("$ref")) {
      const auto it = ids.find(j["$ref"].get<long long>());
      if (it != ids.end()) return *it->second;
    }
    return j;
  }
  void Emit(RecordDifference::Kind kind, const std::string& path, const std::string& before,
            const std::string& after) {
    out.push_back({kind, path, before, after});
  }
  static std::string Dump(const Json& j) { return j.dump(); }

  void Value(const Json& a, const Json& b, const std::string& name, const std::string& path) {
    const auto holdsRecords = [](const Json& j) {
      for (const Json& e : j) {
        if (IsRecord(e)) return true;
      }
      return false;
    };
    const bool recordList = a.is_array() && b.is_array() && (holdsRecords(a) || holdsRecords(b));
    if (recordList) {
      List(a, b, MatchingOf(name), path);
    } else if (a != b) {
      Emit(RecordDifference::Changed, path, Dump(a), Dump(b));
    }
  }

  std::string KeyOf(const Json& rec0, Matching m, const IdTable& ids) const {
    const Json& rec = Resolve(rec0, ids);
    if (!rec.is_object()) return std::string();
    if (m == Matching::ByClass) return rec.value("$class", "");
    const auto name = rec.find("Name");
    return name == rec.end() ? std::string() : UpperName(*name);
  }
  std::string Label(const Json& rec0, Matching m, const IdTable& ids, std::size_t nth) const {
    const Json& rec = Resolve(rec0, ids);
    std::string label;
    if (m == Matching::ByClass) {
      label = rec.value("$class", "");
    } else {
      const auto name = rec.find("Name");
      label = name != rec.end() && name->is_string() ? name->get<std::string>() : std::string();
    }
    if (nth > 0) label += "#" + std::to_string(nth + 1);
    return label;
  }

  void List(const Json& a, const Json& b, Matching m, const std::string& path) {
    if (m == Matching::ByPosition) {
      const std::size_t n = std::max(a.size(), b.size());
      for (std::size_t i = 0; i < n; ++i) {
        const std::string p = Join(path, std::to_string(i));
        if (i >= b.size()) {
          Emit(RecordDifference::Removed, p, a[i].dump(), "");
        } else if (i >= a.size()) {
          Emit(RecordDifference::Added, p, "", b[i].dump());
        } else if (IsRecord(a[i]) && IsRecord(b[i])) {
          Record(a[i], b[i], p);
        } else if (a[i] != b[i]) {
          Emit(RecordDifference::Changed, p, a[i].dump(), b[i].dump());
        }
      }
      return;
    }
    // The n-th member with a key in a pairs with the n-th member with that key in b.
    std::unordered_map<std::string, std::vector<std::size_t>> inB;
    for (std::size_t i = 0; i < b.size(); ++i) inB[KeyOf(b[i], m, m_idsB)].push_back(i);
    std::unordered_map<std::string, std::size_t> seenA;
    std::vector<bool> matchedB(b.size(), false);
    for (std::size_t i = 0; i < a.size(); ++i) {
      const std::string key = KeyOf(a[i], m, m_idsA);
      const std::size_t nth = seenA[key]++;
      const std::string p = Join(path, Label(a[i], m, m_idsA, nth));
      const auto it = inB.find(key);
      if (it == inB.end() || nth >= it->second.size()) {
        Emit(RecordDifference::Removed, p, Resolve(a[i], m_idsA).dump(), "");
        continue;
      }
      const std::size_t j = it->second[nth];
      matchedB[j] = true;
      Record(a[i], b[j], p);
    }
    std::unordered_map<std::string, std::size_t> seenB;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t nth = seenB[KeyOf(b[j], m, m_idsB)]++;
      if (matchedB[j]) continue;
      Emit(RecordDifference::Added, Join(path, Label(b[j], m, m_idsB, nth)), "",
           Resolve(b[j], m_idsB).dump());
    }
  }

  IdTable m_idsA;
  IdTable m_idsB;
};

}  // namespace

std::vector<RecordDifference> DiffRecordJson(const Json& a, const Json& b) {
  Differ differ(a, b);
  differ.Record(a, b, "");
  return std::move(differ.out);
}

std::vector<RecordDifference> DiffRecords(CObject& a, CObject& b) {
  JsonExporter ea;
  JsonExporter eb;
  return DiffRecordJson(ea.Export(a), eb.Export(b));
}

}  // namespace persona
