// Field-by-field differences of two records, walked side by side through their descriptions.
#include <persona/io/json/record_diff.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <deque>
#include <unordered_map>

#include <persona/core/set.h>
#include <persona/core/set_types.h>
#include <persona/framework/codepage.h>
#include <persona/framework/fields.h>
#include <persona/integrity/name_refs.h>
#include <persona/io/json/field_refs.h>
#include <persona/io/json/record_json.h>
#include <persona/personality/personality.h>

namespace persona {

namespace {

// ---- the fields of one record ---------------------------------------------------------------

template <class T>
const T& As(const FieldRef& f) {
  return *static_cast<const T*>(f.member);
}

template <class A>
bool SameArray(const A& a, const A& b) {
  if (a.GetSize() != b.GetSize()) return false;
  auto j = b.begin();
  for (auto i = a.begin(); i != a.end(); ++i, ++j) {
    if (!(*i == *j)) return false;
  }
  return true;
}

// Equal values of two scalar or array fields of the same type (doubles bit for bit, as stored).
bool SameValue(const FieldRef& a, const FieldRef& b) {
  switch (a.kind) {
    case FieldKind::Bool:
      return As<bool>(a) == As<bool>(b);
    case FieldKind::Byte:
      return As<BYTE>(a) == As<BYTE>(b);
    case FieldKind::Word:
      return As<WORD>(a) == As<WORD>(b);
    case FieldKind::Short:
      return As<short>(a) == As<short>(b);
    case FieldKind::Dword:
      return As<DWORD>(a) == As<DWORD>(b);
    case FieldKind::Long:
      return As<LONG>(a) == As<LONG>(b);
    case FieldKind::Double:
      return std::memcmp(a.member, b.member, sizeof(double)) == 0;
    case FieldKind::String:
      return As<CString>(a).str() == As<CString>(b).str();
    case FieldKind::Strings:
      return SameArray(As<CStringArray>(a), As<CStringArray>(b));
    case FieldKind::Words:
      return SameArray(As<CWordArray>(a), As<CWordArray>(b));
    case FieldKind::WordTable:
      return a.count == b.count && std::memcmp(a.member, b.member, a.count * sizeof(WORD)) == 0;
    case FieldKind::Owned:
    case FieldKind::Shared:
      break;
  }
  return false;
}

std::string RecordText(CObject* rec) {
  if (rec == nullptr) return "null";
  JsonExporter exporter;
  return exporter.Export(*rec).dump();
}

// The JSON text of a field's value, as the JSON form of records writes it.
std::string ValueText(const FieldRef& f) {
  Json j;
  switch (f.kind) {
    case FieldKind::Bool:
      return As<bool>(f) ? "true" : "false";
    case FieldKind::Byte:
      return std::to_string(As<BYTE>(f));
    case FieldKind::Word:
      return std::to_string(As<WORD>(f));
    case FieldKind::Short:
      return std::to_string(As<short>(f));
    case FieldKind::Dword:
      return std::to_string(As<DWORD>(f));
    case FieldKind::Long:
      return std::to_string(As<LONG>(f));
    case FieldKind::Double:
      return DoubleToJson(As<double>(f)).dump();
    case FieldKind::String:
      return Json(Windows1252ToUtf8(As<CString>(f).str())).dump();
    case FieldKind::Strings:
      j = Json::array();
      for (const CString& s : As<CStringArray>(f)) j.push_back(Windows1252ToUtf8(s.str()));
      break;
    case FieldKind::Words:
      j = Json::array();
      for (WORD w : As<CWordArray>(f)) j.push_back(w);
      break;
    case FieldKind::WordTable:
      j = Json::array();
      for (std::size_t i = 0; i < f.count; ++i) j.push_back(static_cast<const WORD*>(f.member)[i]);
      break;
    case FieldKind::Owned:
    case FieldKind::Shared: {
      std::string text = "[";
      const auto add = [&text](CObject* rec) {
        text += (text.size() > 1 ? "," : "") + RecordText(rec);
      };
      if (f.kind == FieldKind::Owned) {
        for (CObject* rec : As<COwnedObList>(f)) add(rec);
      } else {
        for (CObject* rec : As<CObList>(f)) add(rec);
      }
      return text + "]";
    }
  }
  return j.dump();
}

std::string Quoted(const std::string& text) { return Json(Windows1252ToUtf8(text)).dump(); }

// ---- equality and hashing, for rename detection ---------------------------------------------

bool EqualRecords(CObject* a, CObject* b, bool skipName);

template <class L>
bool EqualLists(const L& a, const L& b) {
  if (a.GetCount() != b.GetCount()) return false;
  auto j = b.begin();
  for (auto i = a.begin(); i != a.end(); ++i, ++j) {
    if (!EqualRecords(*i, *j, false)) return false;
  }
  return true;
}

// Equal in class and every described field (the top-level "Name" ignored when skipName).
bool EqualRecords(CObject* a, CObject* b, bool skipName) {
  if (a == nullptr || b == nullptr) return a == b;
  if (a->GetRuntimeClass() != b->GetRuntimeClass()) return false;
  std::vector<FieldRef> fa;
  std::vector<FieldRef> fb;
  CollectFieldRefs(*a, fa);
  CollectFieldRefs(*b, fb);  // one class, one field table: fa and fb pair field by field
  for (std::size_t i = 0; i < fa.size(); ++i) {
    if (skipName && std::strcmp(fa[i].name, "Name") == 0) continue;
    const bool same = fa[i].kind == FieldKind::Owned
                          ? EqualLists(As<COwnedObList>(fa[i]), As<COwnedObList>(fb[i]))
                      : fa[i].kind == FieldKind::Shared
                          ? EqualLists(As<CObList>(fa[i]), As<CObList>(fb[i]))
                          : SameValue(fa[i], fb[i]);
    if (!same) return false;
  }
  return true;
}

// A hash of what EqualRecords compares: equal records hash alike.
std::size_t HashRecord(CObject* rec, bool skipName) {
  if (rec == nullptr) return 0x9e3779b9u;
  std::size_t h = std::hash<std::string>()(rec->GetClassName());
  const auto mix = [&h](std::size_t v) { h ^= v + 0x9e3779b97f4a7c15ull + (h << 6) + (h >> 2); };
  std::vector<FieldRef> fields;
  CollectFieldRefs(*rec, fields);
  for (const FieldRef& f : fields) {
    if (skipName && std::strcmp(f.name, "Name") == 0) continue;
    if (f.kind == FieldKind::Owned) {
      for (CObject* e : As<COwnedObList>(f)) mix(HashRecord(e, false));
    } else if (f.kind == FieldKind::Shared) {
      for (CObject* e : As<CObList>(f)) mix(HashRecord(e, false));
    } else if (f.kind == FieldKind::String) {
      mix(std::hash<std::string>()(As<CString>(f).str()));
    } else if (f.kind == FieldKind::Double || f.kind == FieldKind::Dword ||
               f.kind == FieldKind::Long) {
      std::uint64_t bits = 0;
      std::memcpy(&bits, f.member, f.kind == FieldKind::Double ? 8 : 4);
      mix(bits);
    } else {
      mix(static_cast<std::size_t>(f.kind));  // other fields only by kind: EqualRecords decides
    }
  }
  return h;
}

std::string Upper(std::string s) {
  for (char& c : s) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
  }
  return s;
}

std::string NameOf(CObject* rec) {
  const CString* name = rec != nullptr ? FindNameField(*rec) : nullptr;
  return name != nullptr ? name->str() : std::string();
}

// ---- lists ----------------------------------------------------------------------------------

enum class Match { Position, Name, NameIgnoringCase, Class };

// How the members of one list are matched, named in paths and counted.
struct ListRule {
  Match match = Match::Position;
  std::string prefix;     // path words before the member's label ("systems", "sets/conv", ...)
  std::string group;      // the group of its members when they are counted records, else ""
  bool elements = false;  // the elements of a set: labelled by name where unique
};

// The set lists of a personality by field name.
int SetTypeOfList(const char* field) {
  static const std::pair<const char*, int> kLists[] = {
      {"TrunkSets", TrunkSetType},       {"GroupSets", GroupSetType},
      {"PhoneSets", PhoneSetType},       {"ICallSets", ICallSetType},
      {"SpCallSets", SpCallSetType},     {"ConvSets", ConvSetType},
      {"PlmGroupSets", PlmGroupSetType}, {"PlmSpCallSets", PlmSpCallSetType},
      {"P25GroupSets", P25GroupSetType}, {"P25ConvSets", P25ConvSetType},
      {"EaGroupSets", EaGroupSetType}};
  for (const auto& [name, type] : kLists) {
    if (std::strcmp(name, field) == 0) return type;
  }
  return -1;
}

// ---- the walk -------------------------------------------------------------------------------

// One step of a path: a member of a list (or the root's own label).
struct Segment {
  const char* field = nullptr;  // the list's field name; null for the root
  int index = 0;                // the member's position in its list
  std::string label;            // fixed path text ("" for positional and element members)
  const COwnedObList* elements = nullptr;  // an element of this set's list
  bool reset = false;  // the label starts the path afresh (systems, sets, options)
};

class Differ {
 public:
  explicit Differ(DiffSink& sink) : m_sink(sink) {}

  std::size_t Run(CObject& a, CObject& b) {
    std::string rootLabel;
    m_rootGroup = "records";
    if (a.IsKindOf(RUNTIME_CLASS(CPersonality))) m_rootGroup = "header";
    if (a.IsKindOf(RUNTIME_CLASS(CSet))) {
      m_setKind = SetListPathName(static_cast<CSet&>(a).GetSetType());
      m_rootGroup = m_setKind + " sets";
      rootLabel = "sets/" + m_setKind + "/" + static_cast<CSet&>(a).GetName().str();
    }
    for (Side& side : m_sides) {
      Segment root;
      root.label = rootLabel;
      side.segments.push_back(std::move(root));
    }
    Record(a, b, 0);
    return m_count;
  }

 private:
  struct Side {
    std::vector<Segment> segments;
    const COwnedObList* countedList = nullptr;  // the element list whose names were counted
    std::unordered_map<std::string, int> nameCounts;
  };
  enum { A = 0, B = 1 };

  std::vector<FieldRef>& Fields(std::size_t depth, int side) {
    while (m_fields.size() <= 2 * depth + 1) m_fields.emplace_back();
    return m_fields[2 * depth + static_cast<std::size_t>(side)];
  }

  // Where the fields of a class lie within its objects, learnt from its first object: every
  // object of a class lists the same members. Null when a field lies outside the object (then
  // each object is visited).
  const std::vector<FieldRef>* LayoutOf(CObject& rec) {
    const CRuntimeClass* cls = rec.GetRuntimeClass();
    auto [it, added] = m_layouts.try_emplace(cls);
    Layout& layout = it->second;
    if (added) {
      CollectFieldRefs(rec, layout.fields);
      const auto* base = reinterpret_cast<const char*>(&rec);
      layout.byOffset = cls->m_nObjectSize > 0;
      for (FieldRef& f : layout.fields) {
        const auto* at = static_cast<const char*>(f.member);
        layout.byOffset = layout.byOffset && at >= base && at < base + cls->m_nObjectSize;
        f.member = reinterpret_cast<void*>(at - base);
      }
    }
    return layout.byOffset ? &layout.fields : nullptr;
  }
  static FieldRef At(const FieldRef& f, CObject& rec) {
    FieldRef placed = f;
    placed.member = reinterpret_cast<char*>(&rec) + reinterpret_cast<std::uintptr_t>(f.member);
    return placed;
  }

  void Record(CObject& a, CObject& b, std::size_t depth) {
    if (a.GetRuntimeClass() == b.GetRuntimeClass()) {
      if (const std::vector<FieldRef>* layout = LayoutOf(a)) {
        for (const FieldRef& f : *layout) Field(At(f, a), At(f, b), a, b, depth);
        return;
      }
    }
    std::vector<FieldRef>& fa = Fields(depth, A);
    std::vector<FieldRef>& fb = Fields(depth, B);
    CollectFieldRefs(a, fa);
    CollectFieldRefs(b, fb);
    if (a.GetRuntimeClass() != b.GetRuntimeClass()) {
      Emit(RecordDifference::Changed, A, "$class", Quoted(a.GetClassName()),
           Quoted(b.GetClassName()));
    }
    // Records of one class list the same fields (the same name literals): checked cheaply.
    bool sameLayout = fa.size() == fb.size();
    for (std::size_t i = 0; sameLayout && i < fa.size(); ++i) {
      sameLayout = fa[i].kind == fb[i].kind &&
                   (fa[i].name == fb[i].name || std::strcmp(fa[i].name, fb[i].name) == 0);
    }
    if (sameLayout) {
      for (std::size_t i = 0; i < fa.size(); ++i) Field(fa[i], fb[i], a, b, depth);
      return;
    }
    ByFieldName(fa, fb, a, b, depth);
  }

  // Records of different layouts: fields paired by name; a field of one side only is removed or
  // added, a field whose type differs is changed as a whole.
  void ByFieldName(const std::vector<FieldRef>& fa, const std::vector<FieldRef>& fb, CObject& a,
                   CObject& b, std::size_t depth) {
    const auto find = [](const std::vector<FieldRef>& in, const char* name) -> const FieldRef* {
      for (const FieldRef& f : in) {
        if (std::strcmp(f.name, name) == 0) return &f;
      }
      return nullptr;
    };
    for (const FieldRef& x : fa) {
      const FieldRef* y = find(fb, x.name);
      if (y == nullptr) {
        Emit(RecordDifference::Removed, A, x.name, ValueText(x), "");
      } else if (y->kind != x.kind) {
        Emit(RecordDifference::Changed, A, x.name, ValueText(x), ValueText(*y));
      } else {
        Field(x, *y, a, b, depth);
      }
    }
    for (const FieldRef& y : fb) {
      if (find(fa, y.name) == nullptr) Emit(RecordDifference::Added, B, y.name, "", ValueText(y));
    }
  }

  void Field(const FieldRef& x, const FieldRef& y, CObject& a, CObject& b, std::size_t depth) {
    if (x.kind == FieldKind::Owned) {
      auto& la = *static_cast<COwnedObList*>(x.member);
      auto& lb = *static_cast<COwnedObList*>(y.member);
      List(la, lb, x.name, a, depth);
    } else if (x.kind == FieldKind::Shared) {
      auto& la = *static_cast<CObList*>(x.member);
      auto& lb = *static_cast<CObList*>(y.member);
      List(la, lb, x.name, a, depth);
    } else if (!SameValue(x, y)) {
      Emit(RecordDifference::Changed, A, x.name, ValueText(x), ValueText(y));
    }
    (void)b;
  }

  ListRule RuleOf(const char* field, CObject& holder) const {
    ListRule rule;
    const int setType = SetTypeOfList(field);
    if (std::strcmp(field, "Systems") == 0) {
      rule = {Match::Name, "systems", "systems", false};
    } else if (setType >= 0) {
      const std::string kind = SetListPathName(setType);
      rule = {Match::NameIgnoringCase, "sets/" + kind, kind + " sets", false};
    } else if (std::strcmp(field, "Options") == 0) {
      rule = {Match::Class, "options", "options", false};
    } else if (std::strcmp(field, "Elements") == 0 && holder.IsKindOf(RUNTIME_CLASS(CSet))) {
      rule.elements = true;
      rule.group = m_setKind + " elements";
    }
    return rule;
  }

  // ---- list members ----

  template <class L>
  void List(L& la, L& lb, const char* field, CObject& holder, std::size_t depth) {
    const ListRule rule = RuleOf(field, holder);
    if (rule.match == Match::Position) {
      Positional(la, lb, field, rule, depth);
    } else {
      Keyed(la, lb, field, rule, depth);
    }
  }

  // Equal in class and every described field.
  bool Same(CObject* x, CObject* y) {
    if (x == nullptr || y == nullptr) return x == y;
    if (x->GetRuntimeClass() != y->GetRuntimeClass()) return false;
    const std::vector<FieldRef>* layout = LayoutOf(*x);
    if (layout == nullptr) return EqualRecords(x, y, false);
    for (const FieldRef& f : *layout) {
      const FieldRef fx = At(f, *x);
      const FieldRef fy = At(f, *y);
      const bool same = f.kind == FieldKind::Owned
                            ? SameList(As<COwnedObList>(fx), As<COwnedObList>(fy))
                        : f.kind == FieldKind::Shared ? SameList(As<CObList>(fx), As<CObList>(fy))
                                                      : SameValue(fx, fy);
      if (!same) return false;
    }
    return true;
  }
  template <class L>
  bool SameList(const L& a, const L& b) {
    if (a.GetCount() != b.GetCount()) return false;
    for (int i = 0; i < a.GetCount(); ++i) {
      if (!Same(a.GetAt(i), b.GetAt(i))) return false;
    }
    return true;
  }

  // Members paired by position. When the lists differ in length, the equal members at their
  // start and at their end are set aside first, so that members inserted or deleted in one
  // place show as such and do not shift every member after them.
  template <class L>
  void Positional(L& la, L& lb, const char* field, const ListRule& rule, std::size_t depth) {
    int first = 0;
    int endA = la.GetCount();
    int endB = lb.GetCount();
    if (endA != endB) {
      while (first < endA && first < endB && Same(la.GetAt(first), lb.GetAt(first))) ++first;
      while (endA > first && endB > first && Same(la.GetAt(endA - 1), lb.GetAt(endB - 1))) {
        --endA;
        --endB;
      }
    }
    for (int i = first; i < std::max(endA, endB); ++i) {
      Segment s;
      s.field = field;
      s.index = i;
      Segment sb = s;
      if constexpr (std::is_same_v<L, COwnedObList>) {
        if (rule.elements) {
          s.elements = &la;
          sb.elements = &lb;
        }
      }
      CObject* x = i < endA ? la.GetAt(i) : nullptr;
      CObject* y = i < endB ? lb.GetAt(i) : nullptr;
      if (i >= endB) {
        Whole(RecordDifference::Removed, s, A, rule, RecordText(x), "");
      } else if (i >= endA) {
        Whole(RecordDifference::Added, sb, B, rule, "", RecordText(y));
      } else if (x == nullptr || y == nullptr) {
        if (x != y) Whole(RecordDifference::Changed, s, A, rule, RecordText(x), RecordText(y));
      } else {
        Member(*x, *y, std::move(s), std::move(sb), rule, depth);
      }
    }
  }

  std::string KeyOf(CObject* rec, Match m) const {
    if (m == Match::Class) return rec != nullptr ? rec->GetClassName() : std::string();
    return m == Match::Name ? NameOf(rec) : Upper(NameOf(rec));
  }

  Segment KeyedSegment(CObject* rec, const char* field, int index, int nth,
                       const ListRule& rule) const {
    Segment s;
    s.field = field;
    s.index = index;
    s.reset = true;
    const std::string key = rule.match == Match::Class ? KeyOf(rec, Match::Class) : NameOf(rec);
    s.label =
        rule.prefix + "/" + (nth == 0 && !key.empty() ? key : "#" + std::to_string(index + 1));
    return s;
  }

  // Members paired by key: the n-th member with a key in la pairs with the n-th with that key
  // in lb. Left-over members equal but for their names are renames.
  template <class L>
  void Keyed(L& la, L& lb, const char* field, const ListRule& rule, std::size_t depth) {
    const int na = la.GetCount();
    const int nb = lb.GetCount();
    std::unordered_map<std::string, std::vector<int>> inB;
    std::vector<int> nthB(static_cast<std::size_t>(nb));
    for (int j = 0; j < nb; ++j) {
      auto& slot = inB[KeyOf(lb.GetAt(j), rule.match)];
      nthB[static_cast<std::size_t>(j)] = static_cast<int>(slot.size());
      slot.push_back(j);
    }
    std::unordered_map<std::string, int> seenA;
    std::vector<int> pairOfA(static_cast<std::size_t>(na), -1);
    std::vector<int> nthA(static_cast<std::size_t>(na));
    std::vector<char> takenB(static_cast<std::size_t>(nb), 0);
    for (int i = 0; i < na; ++i) {
      const std::string key = KeyOf(la.GetAt(i), rule.match);
      const int nth = seenA[key]++;
      nthA[static_cast<std::size_t>(i)] = nth;
      const auto it = inB.find(key);
      if (it == inB.end() || nth >= static_cast<int>(it->second.size())) continue;
      pairOfA[static_cast<std::size_t>(i)] = it->second[static_cast<std::size_t>(nth)];
      takenB[static_cast<std::size_t>(pairOfA[static_cast<std::size_t>(i)])] = 1;
    }
    std::vector<int> renameOfA(static_cast<std::size_t>(na), -1);
    if (rule.match != Match::Class) PairRenames(la, lb, pairOfA, takenB, renameOfA);
    for (int i = 0; i < na; ++i) {
      const std::size_t ui = static_cast<std::size_t>(i);
      CObject* x = la.GetAt(i);
      Segment s = KeyedSegment(x, field, i, nthA[ui], rule);
      if (pairOfA[ui] >= 0) {
        const int j = pairOfA[ui];
        CObject* y = lb.GetAt(j);
        Segment sb = KeyedSegment(y, field, j, nthB[static_cast<std::size_t>(j)], rule);
        if (x != nullptr && y != nullptr) {
          Member(*x, *y, std::move(s), std::move(sb), rule, depth);
        } else if (x != y) {
          Whole(RecordDifference::Changed, s, A, rule, RecordText(x), RecordText(y));
        }
      } else if (renameOfA[ui] >= 0) {
        Whole(RecordDifference::Renamed, s, A, rule, Quoted(NameOf(x)),
              Quoted(NameOf(lb.GetAt(renameOfA[ui]))));
      } else {
        Whole(RecordDifference::Removed, s, A, rule, RecordText(x), "");
      }
    }
    for (int j = 0; j < nb; ++j) {
      if (takenB[static_cast<std::size_t>(j)] != 0) continue;
      Segment s = KeyedSegment(lb.GetAt(j), field, j, nthB[static_cast<std::size_t>(j)], rule);
      Whole(RecordDifference::Added, s, B, rule, "", RecordText(lb.GetAt(j)));
    }
  }

  // Pairs each unpaired member of la with the first unpaired member of lb that equals it but for
  // its name; marks those of lb taken.
  template <class L>
  static void PairRenames(L& la, L& lb, const std::vector<int>& pairOfA, std::vector<char>& takenB,
                          std::vector<int>& renameOfA) {
    std::unordered_multimap<std::size_t, int> candidates;
    for (int j = 0; j < lb.GetCount(); ++j) {
      if (takenB[static_cast<std::size_t>(j)] == 0 && lb.GetAt(j) != nullptr) {
        candidates.emplace(HashRecord(lb.GetAt(j), true), j);
      }
    }
    if (candidates.empty()) return;
    for (int i = 0; i < la.GetCount(); ++i) {
      CObject* x = la.GetAt(i);
      if (pairOfA[static_cast<std::size_t>(i)] >= 0 || x == nullptr) continue;
      auto [from, to] = candidates.equal_range(HashRecord(x, true));
      int best = -1;
      for (auto it = from; it != to; ++it) {
        const int j = it->second;
        if (takenB[static_cast<std::size_t>(j)] == 0 && (best < 0 || j < best) &&
            EqualRecords(x, lb.GetAt(j), true)) {
          best = j;
        }
      }
      if (best < 0) continue;
      renameOfA[static_cast<std::size_t>(i)] = best;
      takenB[static_cast<std::size_t>(best)] = 1;
    }
  }

  // Compares a member both lists hold, as a record of its own group when the rule counts them.
  void Member(CObject& x, CObject& y, Segment sa, Segment sb, const ListRule& rule,
              std::size_t depth) {
    const std::string* group = m_group;
    const bool emitted = m_recordEmitted;
    const bool set =
        !rule.group.empty() && rule.match != Match::Position && x.IsKindOf(RUNTIME_CLASS(CSet));
    std::string setKind;
    if (!rule.group.empty()) {
      m_group = &rule.group;
      m_recordEmitted = false;
    }
    if (set) {
      setKind = std::move(m_setKind);
      m_setKind = rule.prefix.substr(5);  // "sets/<kind>"
    }
    m_sides[A].segments.push_back(std::move(sa));
    m_sides[B].segments.push_back(std::move(sb));
    Record(x, y, depth + 1);
    m_sides[A].segments.pop_back();
    m_sides[B].segments.pop_back();
    m_group = group;
    m_recordEmitted = emitted;
    if (set) m_setKind = std::move(setKind);
  }

  // A whole member added, removed, renamed or replaced.
  void Whole(RecordDifference::Kind kind, const Segment& s, int side, const ListRule& rule,
             std::string before, std::string after) {
    m_sides[side].segments.push_back(s);
    const bool counted = !rule.group.empty();
    Emit(kind, side, nullptr, std::move(before), std::move(after), counted ? &rule.group : nullptr);
    m_sides[side].segments.pop_back();
  }

  // ---- output ----

  std::string ElementLabel(Side& side, const Segment& s) {
    const COwnedObList& list = *s.elements;
    if (side.countedList != &list) {
      side.nameCounts.clear();
      for (CObject* e : list) ++side.nameCounts[NameOf(e)];
      side.countedList = &list;
    }
    const std::string name = s.index < list.GetCount() ? NameOf(list.GetAt(s.index)) : "";
    if (!name.empty() && side.nameCounts[name] == 1 && name[0] != '#') return name;
    return "#" + std::to_string(s.index + 1);
  }

  void Place(int sideIndex, std::string& path, std::string& pointer) {
    Side& side = m_sides[sideIndex];
    const auto add = [&path](const std::string& part) {
      if (!part.empty()) path += (path.empty() ? "" : "/") + part;
    };
    for (const Segment& s : side.segments) {
      if (s.reset) path.clear();
      if (s.field != nullptr) pointer += "/" + std::string(s.field) + "/" + std::to_string(s.index);
      if (s.elements != nullptr) {
        add(ElementLabel(side, s));
      } else if (!s.label.empty()) {
        add(s.label);
      } else if (s.field != nullptr) {
        add(std::string(s.field) + "/#" + std::to_string(s.index + 1));
      }
    }
  }

  // Hands one difference to the sink; field null for a whole member (the last segment).
  void Emit(RecordDifference::Kind kind, int side, const char* field, std::string before,
            std::string after, const std::string* wholeGroup = nullptr) {
    RecordDifference d;
    d.kind = kind;
    Place(side, d.path, d.pointer);
    if (field != nullptr) {
      d.path += (d.path.empty() ? "" : "/") + std::string(field);
      d.pointer += "/" + std::string(field);
    }
    d.before = std::move(before);
    d.after = std::move(after);
    d.wholeRecord = wholeGroup != nullptr;
    d.group = d.wholeRecord ? *wholeGroup : *m_group;
    if (!d.wholeRecord) {
      d.firstOfRecord = !m_recordEmitted;
      m_recordEmitted = true;
    }
    ++m_count;
    m_sink.Difference(d);
  }

  struct Layout {
    std::vector<FieldRef> fields;  // p: the offset of the field in the object
    bool byOffset = false;
  };

  DiffSink& m_sink;
  Side m_sides[2];
  std::unordered_map<const CRuntimeClass*, Layout> m_layouts;
  std::deque<std::vector<FieldRef>> m_fields;
  std::string m_rootGroup;
  const std::string* m_group = &m_rootGroup;  // of the counted record being compared
  std::string m_setKind;
  bool m_recordEmitted = false;
  std::size_t m_count = 0;
};

class CollectingSink : public DiffSink {
 public:
  void Difference(const RecordDifference& d) override { out.push_back(d); }
  std::vector<RecordDifference> out;
};

}  // namespace

std::size_t DiffRecords(CObject& a, CObject& b, DiffSink& sink) {
  Differ differ(sink);
  return differ.Run(a, b);
}

std::vector<RecordDifference> DiffRecords(CObject& a, CObject& b) {
  CollectingSink sink;
  DiffRecords(a, b, sink);
  return std::move(sink.out);
}

}  // namespace persona
