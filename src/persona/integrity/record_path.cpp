// Formatting, parsing and resolving record paths (see record_path.h).
#include <persona/integrity/record_path.h>

#include <cctype>
#include <unordered_map>

#include <persona/systems/system.h>

namespace persona {

namespace {

constexpr const char* kListWords[kNumSetTypes] = {"trunk",   "conv",     "group",    "phone",
                                                  "icall",   "spcall",   "plmgroup", "plmspcall",
                                                  "p25conv", "p25group", "eagroup"};

constexpr const char* kListFields[kNumSetTypes] = {
    "TrunkSets",    "ConvSets",      "GroupSets",   "PhoneSets",    "ICallSets",  "SpCallSets",
    "PlmGroupSets", "PlmSpCallSets", "P25ConvSets", "P25GroupSets", "EaGroupSets"};

// The described fields of one record, by kind.
class FieldScan : public CFieldVisitor {
 public:
  enum Type { Value, ValueList, Owned, Refs };
  struct Entry {
    const char* name;
    Type type;
    COwnedObList* owned;
    int count;  // entries of a ValueList
  };
  std::vector<Entry> fields;

  void Field(const FieldInfo& f, bool&) override { Add(f, Value); }
  void Field(const FieldInfo& f, BYTE&) override { Add(f, Value); }
  void Field(const FieldInfo& f, WORD&) override { Add(f, Value); }
  void Field(const FieldInfo& f, short&) override { Add(f, Value); }
  void Field(const FieldInfo& f, DWORD&) override { Add(f, Value); }
  void Field(const FieldInfo& f, LONG&) override { Add(f, Value); }
  void Field(const FieldInfo& f, double&) override { Add(f, Value); }
  void Field(const FieldInfo& f, CString&) override { Add(f, Value); }
  void Field(const FieldInfo& f, CStringArray& v) override { Add(f, ValueList, v.GetSize()); }
  void Field(const FieldInfo& f, CWordArray& v) override { Add(f, ValueList, v.GetSize()); }
  void Field(const FieldInfo& f, WORD*, std::size_t n) override {
    Add(f, ValueList, static_cast<int>(n));
  }
  void Field(const FieldInfo& f, COwnedObList& v) override {
    fields.push_back({f.name, Owned, &v, 0});
  }
  void Field(const FieldInfo& f, CObList&) override { Add(f, Refs); }

  // The field spelled name: exactly, else ignoring case when only one field matches; or null.
  const Entry* Find(std::string_view name) const {
    const Entry* folded = nullptr;
    int foldedCount = 0;
    for (const Entry& e : fields) {
      if (name == e.name) return &e;
      if (EqualFolded(name, e.name)) {
        folded = &e;
        ++foldedCount;
      }
    }
    return foldedCount == 1 ? folded : nullptr;
  }

  static bool EqualFolded(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
      if (std::tolower(static_cast<unsigned char>(a[i])) !=
          std::tolower(static_cast<unsigned char>(b[i]))) {
        return false;
      }
    }
    return true;
  }

 private:
  void Add(const FieldInfo& f, Type type, int count = 0) {
    fields.push_back({f.name, type, nullptr, count});
  }
};

FieldScan Scan(CObject& record) {
  FieldScan scan;
  record.VisitFields(scan);
  return scan;
}

bool NeedsQuotes(std::string_view name) {
  if (name.empty() || name.front() == '#' || name.front() == '"') return true;
  if (std::isspace(static_cast<unsigned char>(name.front())) ||
      std::isspace(static_cast<unsigned char>(name.back()))) {
    return true;
  }
  for (char c : name) {
    const auto u = static_cast<unsigned char>(c);
    if (c == '/' || c == '=' || c == '"' || c == '\\' || u < 0x20 || u == 0x7F) return true;
  }
  return false;
}

std::string Quote(std::string_view name) {
  std::string out = "\"";
  for (char c : name) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  out += '"';
  return out;
}

// The position n of a "#n" segment (from 1), or 0 when the segment is not one.
int PositionOf(const PathSegment& seg) {
  if (seg.quoted || seg.text.size() < 2 || seg.text[0] != '#' || seg.text.size() > 10) return 0;
  long n = 0;
  for (std::size_t i = 1; i < seg.text.size(); ++i) {
    if (!std::isdigit(static_cast<unsigned char>(seg.text[i]))) return 0;
    n = n * 10 + (seg.text[i] - '0');
  }
  return n > 0 && n <= 0x7FFFFFFF ? static_cast<int>(n) : 0;
}

// A list entry number ("2", from 1), or 0.
int EntryOf(const PathSegment& seg) {
  if (seg.quoted || seg.text.empty() || seg.text.size() > 9) return 0;
  int n = 0;
  for (char c : seg.text) {
    if (!std::isdigit(static_cast<unsigned char>(c))) return 0;
    n = n * 10 + (c - '0');
  }
  return n;
}

std::string Shown(const PathSegment& seg) { return "\"" + seg.text + "\""; }

std::string Where(const PathSegment& seg) {
  return " (column " + std::to_string(seg.column + 1) + ")";
}

class Resolver {
 public:
  Resolver(CPersonality& p, std::vector<PathSegment> segs) : m_p(p), m_segs(std::move(segs)) {}

  PathTarget Run() {
    const PathSegment& first = m_segs[0];
    std::size_t i = 1;
    if (!first.quoted && first.text == "systems") {
      i = System();
    } else if (!first.quoted && first.text == "sets") {
      i = Set();
    } else if (!first.quoted && first.text == "options") {
      i = Option();
    } else {
      m_t.kind = PathTarget::Header;
      m_t.record = &m_p;
      i = 0;
    }
    Descend(i);
    return std::move(m_t);
  }

 private:
  const PathSegment& Need(std::size_t i, const char* what) {
    if (i >= m_segs.size()) {
      throw PathError("the path ends where " + std::string(what) + " should follow " +
                      Shown(m_segs[i - 1]));
    }
    return m_segs[i];
  }

  std::size_t System() {
    const PathSegment& seg = Need(1, "a system's name");
    const int pos = PositionOf(seg);
    const int count = m_p.GetNumSystems();
    int index = -1;
    if (pos > 0) {
      index = pos <= count ? pos - 1 : -1;
    } else {
      for (int k = 0; k < count && index < 0; ++k) {
        const CSystem* s = m_p.GetSystemAt(k);
        if (s != nullptr && s->Name().str() == seg.text) index = k;
      }
    }
    CSystem* system = index >= 0 ? m_p.GetSystemAt(index) : nullptr;
    if (system == nullptr) throw PathError("no system " + Shown(seg) + Where(seg));
    m_t.kind = PathTarget::System;
    m_t.record = system;
    m_t.index = index;
    m_t.recordPath = SystemPath(*system);
    m_t.pointer = "/Systems/" + std::to_string(index);
    return 2;
  }

  std::size_t Set() {
    const PathSegment& list = Need(1, "a set list");
    const int type = list.quoted ? -1 : SetListOfWord(list.text);
    if (type < 0) {
      std::string words;
      for (const char* w : kListWords) words += std::string(words.empty() ? "" : ", ") + w;
      throw PathError("no set list " + Shown(list) + Where(list) + "; the lists are " + words);
    }
    const auto t = static_cast<SetType>(type);
    const PathSegment& seg = Need(2, "a set's name");
    const int pos = PositionOf(seg);
    const int index = pos > 0 ? (pos <= m_p.GetNumSets(t) ? pos - 1 : -1)
                              : m_p.FindSetIndex(CString(seg.text), t);
    CSet* set = index >= 0 ? m_p.GetSetAt(index, t) : nullptr;
    if (set == nullptr) {
      throw PathError("no " + std::string(kListWords[type]) + " set " + Shown(seg) + Where(seg));
    }
    m_t.kind = PathTarget::Set;
    m_t.record = set;
    m_t.set = set;
    m_t.setType = type;
    m_t.index = index;
    m_t.recordPath = SetPath(type, *set);
    m_t.pointer = "/" + std::string(kListFields[type]) + "/" + std::to_string(index);
    return 3;
  }

  std::size_t Option() {
    const PathSegment& seg = Need(1, "an option class");
    CObject* found = nullptr;
    int foundIndex = -1;
    for (int k = 0; k < m_p.GetNumOptions() && found == nullptr; ++k) {
      CObject* option = m_p.GetOptionAt(k);
      if (option != nullptr && seg.text == option->GetClassName()) {
        found = option;
        foundIndex = k;
      }
    }
    if (found == nullptr) throw PathError("no option record " + Shown(seg) + Where(seg));
    m_t.kind = PathTarget::Option;
    m_t.record = found;
    m_t.index = foundIndex;
    m_t.recordPath = OptionPath(*found);
    m_t.pointer = "/Options/" + std::to_string(foundIndex);
    return 2;
  }

  // Walks from m_t.record through segments i...
  void Descend(std::size_t i) {
    while (i < m_segs.size()) {
      const PathSegment& seg = m_segs[i];
      const FieldScan scan = Scan(*m_t.record);
      const FieldScan::Entry* field =
          seg.quoted || PositionOf(seg) > 0 ? nullptr : scan.Find(seg.text);
      auto* asSet = m_t.record != &m_p ? dynamic_cast<CSet*>(m_t.record) : nullptr;
      if (field != nullptr && field->type != FieldScan::Owned) {
        TakeField(*field, i);
        return;
      }
      if (field != nullptr && asSet == nullptr) {
        if (m_t.record == &m_p) {
          throw PathError(Shown(seg) + Where(seg) +
                          " is reached as systems/..., sets/<list>/... or options/...");
        }
        const PathSegment& child = Need(i + 1, "a record of the list");
        Element(*field->owned, child, field->name);
        i += 2;
        continue;
      }
      if (asSet != nullptr) {
        Element(asSet->Elements(), seg, nullptr);
        ++i;
        continue;
      }
      throw PathError("no field " + Shown(seg) + Where(seg) + " in " +
                      (m_t.recordPath.empty()
                           ? std::string("the header")
                           : m_t.recordPath + " (" + m_t.record->GetClassName() + ")"));
    }
  }

  void TakeField(const FieldScan::Entry& field, std::size_t i) {
    m_t.field = field.name;
    m_t.pointer += "/" + std::string(field.name);
    if (i + 1 == m_segs.size()) return;
    const PathSegment& next = m_segs[i + 1];
    const int entry = field.type == FieldScan::ValueList ? EntryOf(next) : 0;
    if (entry == 0 || i + 2 != m_segs.size()) {
      throw PathError("nothing can follow the field " + Shown(m_segs[i]) + " but an entry number" +
                      Where(next));
    }
    if (entry > field.count) {
      throw PathError(field.name + std::string(" has ") + std::to_string(field.count) +
                      " entries, not " + std::to_string(entry) + Where(next));
    }
    m_t.entry = entry - 1;
    m_t.pointer += "/" + std::to_string(entry - 1);
  }

  // Steps to the record of list that seg names; listName: the list field for records that
  // are not set elements.
  void Element(const COwnedObList& list, const PathSegment& seg, const char* listName) {
    const int pos = PositionOf(seg);
    int index = -1;
    if (pos > 0) {
      if (pos <= list.GetCount()) index = pos - 1;
    } else {
      std::vector<int> matches;
      for (int k = 0; k < list.GetCount(); ++k) {
        CObject* rec = list.GetAt(k);
        if (rec == nullptr) continue;
        const CString* name = FindNameField(*rec);
        if (name != nullptr && name->str() == seg.text) matches.push_back(k);
      }
      if (matches.size() > 1) {
        std::string where;
        for (int k : matches) where += (where.empty() ? "#" : ", #") + std::to_string(k + 1);
        throw PathError(std::to_string(matches.size()) + " records of " + m_t.recordPath +
                        " are named " + Shown(seg) + Where(seg) + "; give the position: " + where);
      }
      if (!matches.empty()) index = matches[0];
    }
    CObject* rec = index >= 0 ? list.GetAt(index) : nullptr;
    if (rec == nullptr) {
      throw PathError("no record " + Shown(seg) + Where(seg) + " in " + m_t.recordPath +
                      (listName != nullptr ? "/" + std::string(listName) : std::string()));
    }
    const std::vector<std::string> names = ElementSegments(*m_t.record, list);
    std::string base = m_t.recordPath;
    if (listName != nullptr) base += "/" + std::string(listName);
    m_t.recordPath = base + "/" + names[static_cast<std::size_t>(index)];
    m_t.pointer += "/" + std::string(listName != nullptr ? listName : "Elements") + "/" +
                   std::to_string(index);
    if (m_t.kind == PathTarget::Set) {
      m_t.kind = PathTarget::Element;
    } else {
      m_t.kind = PathTarget::SubRecord;
      m_t.set = nullptr;
      m_t.setType = -1;
    }
    m_t.record = rec;
    m_t.index = index;
  }

  CPersonality& m_p;
  std::vector<PathSegment> m_segs;
  PathTarget m_t;
};

}  // namespace

std::string PathName(std::string_view name) {
  return NeedsQuotes(name) ? Quote(name) : std::string(name);
}

const char* SetListWord(int type) { return IsValidSetType(type) ? kListWords[type] : ""; }

const char* SetListField(int type) { return IsValidSetType(type) ? kListFields[type] : ""; }

int SetListOfWord(std::string_view word) {
  for (int type = 0; type < kNumSetTypes; ++type) {
    if (word == kListWords[type]) return type;
  }
  return -1;
}

std::string SystemPath(const CSystem& system) { return "systems/" + PathName(system.Name().str()); }

std::string SetPath(int type, const CSet& set) {
  return std::string("sets/") + SetListWord(type) + "/" + PathName(set.Name().str());
}

std::string OptionPath(const CObject& option) {
  return "options/" + PathName(option.GetClassName());
}

std::string FieldPath(std::string_view record, std::string_view field) {
  if (record.empty()) return std::string(field);
  std::string out(record);
  out += '/';
  out += field;
  return out;
}

std::vector<std::string> ElementSegments(CObject& owner, const COwnedObList& list) {
  std::vector<const CString*> names(static_cast<std::size_t>(list.GetCount()), nullptr);
  std::unordered_map<std::string, int> uses;
  for (int k = 0; k < list.GetCount(); ++k) {
    CObject* rec = list.GetAt(k);
    if (rec == nullptr) continue;
    const CString* name = FindNameField(*rec);
    if (name == nullptr || name->IsEmpty()) continue;
    names[static_cast<std::size_t>(k)] = name;
    ++uses[name->str()];
  }
  const FieldScan ownerFields = Scan(owner);
  std::vector<std::string> out;
  out.reserve(names.size());
  for (std::size_t k = 0; k < names.size(); ++k) {
    const CString* name = names[k];
    if (name == nullptr || uses[name->str()] != 1) {
      out.push_back("#" + std::to_string(k + 1));
    } else if (ownerFields.Find(name->str()) != nullptr) {
      out.push_back(Quote(name->str()));
    } else {
      out.push_back(PathName(name->str()));
    }
  }
  return out;
}

std::vector<PathSegment> ParsePath(std::string_view path) {
  if (path.empty()) throw PathError("the path is empty");
  std::vector<PathSegment> segs;
  std::size_t i = 0;
  while (true) {
    PathSegment seg;
    seg.column = i;
    if (i < path.size() && path[i] == '"') {
      seg.quoted = true;
      ++i;
      while (i < path.size() && path[i] != '"') {
        if (path[i] == '\\' && i + 1 < path.size()) ++i;
        seg.text += path[i++];
      }
      if (i >= path.size()) {
        throw PathError("the quote at column " + std::to_string(seg.column + 1) + " is not closed");
      }
      ++i;
      if (i < path.size() && path[i] != '/') {
        throw PathError("a closing quote must end its segment (column " + std::to_string(i + 1) +
                        ")");
      }
    } else {
      const std::size_t end = std::min(path.find('/', i), path.size());
      seg.text = std::string(path.substr(i, end - i));
      i = end;
      if (seg.text.empty()) {
        throw PathError("empty segment at column " + std::to_string(seg.column + 1));
      }
    }
    segs.push_back(std::move(seg));
    if (i >= path.size()) break;
    ++i;  // the '/'
    if (i >= path.size()) throw PathError("the path ends with '/'");
  }
  return segs;
}

std::string PathTarget::Path() const {
  if (field.empty()) return recordPath;
  std::string out = FieldPath(recordPath, field);
  if (entry >= 0) out += "/" + std::to_string(entry + 1);
  return out;
}

PathTarget ResolvePath(CPersonality& p, std::string_view path) {
  return Resolver(p, ParsePath(path)).Run();
}

}  // namespace persona
