// persona list FILE... [KIND [SET]] [--json]: without KIND one line per system (kind, name,
// the sets it names) and per set (kind, name, elements, scope, who names it); with KIND, the
// sets of that kind; with KIND and SET, one line per element as a table whose columns fit the
// element (channels: receive and transmit MHz, guard codes, power, bandwidth; groups: ID;
// calls: number or ID). Every line starts with the element's path segment.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>

#include <persona/integrity/name_refs.h>
#include <persona/integrity/record_path.h>
#include <persona/io/field_text.h>
#include <persona/report/record_lines.h>
#include <persona/systems/system.h>
#include "command.h"
#include "file_batch.h"

namespace persona::cli {

namespace {

// The table columns of the elements of a set list (fields absent from a record print "").
std::vector<const char*> Columns(int type) {
  switch (type) {
    case ConvSetType:
    case P25ConvSetType:
      return {"RxFreq", "TxFreq", "RxCg", "TxCg", "Power", "BandWidth"};
    case TrunkSetType:
      return {"RxFreq", "TxFreq"};
    case GroupSetType:
    case P25GroupSetType:
      return {"GrpId"};
    case EaGroupSetType:
      return {"EaGrpId"};
    case ICallSetType:
      return {"Lid"};
    default:
      return {"Number"};
  }
}

// A field as a table cell; frequencies to the hertz, without trailing zeros.
std::string Cell(CObject& rec, const char* field) {
  std::string text;
  GetFieldText(rec, field, text, true);
  if (std::strstr(field, "Freq") != nullptr && text.find('.') != std::string::npos) {
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.6f", std::strtod(text.c_str(), nullptr));
    text = buf;
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
  }
  return text;
}

// The JSON pointer of set index of list type.
std::string SetPointer(int type, int index) {
  return "/" + std::string(SetListField(type)) + "/" + std::to_string(index);
}

struct Listing {
  Json json = Json::array();
  std::string text;
};

void Overview(CPersonality& p, const std::string& file, int onlyType, Listing& out) {
  std::map<const CObject*, std::vector<std::string>> setsOf;  // system -> sets it names
  std::map<const CSet*, std::vector<std::string>> usedBy;     // set -> record paths
  for (const NameRef& ref : CollectNameRefs(p)) {
    if (ref.kind != RefKind::Set || ref.set == nullptr) continue;
    const std::string record = ref.path.substr(0, ref.path.rfind('/'));
    usedBy[ref.set].push_back(record);
    if (dynamic_cast<CSystem*>(ref.record) != nullptr) {
      setsOf[ref.record].push_back(SetPath(ref.setType, *ref.set));
    }
  }
  for (int i = 0; onlyType < 0 && i < p.GetNumSystems(); ++i) {
    CSystem* s = p.GetSystemAt(i);
    if (s == nullptr) continue;
    const auto& sets = setsOf[s];
    std::string line = SystemPath(*s) + "  " + SystemKindLabel(s->GetSysType());
    for (const std::string& set : sets) line += (&set == &sets.front() ? "  " : ", ") + set;
    out.text += line + "\n";
    out.json.push_back({{"file", file},
                        {"path", SystemPath(*s)},
                        {"pointer", "/Systems/" + std::to_string(i)},
                        {"kind", SystemKindLabel(s->GetSysType())},
                        {"sets", sets}});
  }
  for (int type = 0; type < kNumSetTypes; ++type) {
    if (onlyType >= 0 && type != onlyType) continue;
    for (int i = 0; i < p.GetNumSets(static_cast<SetType>(type)); ++i) {
      CSet* set = p.GetSetAt(i, static_cast<SetType>(type));
      if (set == nullptr) continue;
      const auto& users = usedBy[set];
      std::string line = SetPath(type, *set) + "  " + std::to_string(set->GetCount()) +
                         " element(s)  " + (set->GetScope() ? "global" : "local") + "  used by ";
      for (const std::string& u : users) line += (&u == &users.front() ? "" : ", ") + u;
      if (users.empty()) line += "nothing";
      out.text += line + "\n";
      out.json.push_back({{"file", file},
                          {"path", SetPath(type, *set)},
                          {"pointer", SetPointer(type, i)},
                          {"elements", set->GetCount()},
                          {"scope", set->GetScope()},
                          {"usedBy", users}});
    }
  }
}

void Elements(CPersonality& p, const std::string& file, int type, const std::string& name,
              Listing& out) {
  const int index = p.FindSetIndex(CString(name), static_cast<SetType>(type));
  CSet* set = index >= 0 ? p.GetSetAt(index, static_cast<SetType>(type)) : nullptr;
  if (set == nullptr)
    throw PathError("no " + std::string(SetListWord(type)) + " set \"" + name + "\"");
  const std::vector<std::string> segs = ElementSegments(*set, set->Elements());
  const std::vector<const char*> columns = Columns(type);
  std::vector<std::vector<std::string>> rows;
  rows.push_back({"Element", "Name"});
  for (const char* c : columns) rows[0].push_back(c);
  for (int k = 0; k < set->GetCount(); ++k) {
    CObject* rec = set->GetAt(k);
    if (rec == nullptr) continue;
    std::vector<std::string> row = {segs[static_cast<std::size_t>(k)], Cell(*rec, "Name")};
    Json item = {{"file", file},
                 {"path", SetPath(type, *set) + "/" + row[0]},
                 {"pointer", SetPointer(type, index) + "/Elements/" + std::to_string(k)},
                 {"Name", row[1]}};
    for (const char* c : columns) {
      row.push_back(Cell(*rec, c));
      item[c] = row.back();
    }
    rows.push_back(std::move(row));
    out.json.push_back(std::move(item));
  }
  std::vector<std::size_t> width(rows[0].size(), 0);
  for (const auto& row : rows) {
    for (std::size_t c = 0; c < row.size(); ++c) width[c] = std::max(width[c], row[c].size());
  }
  for (const auto& row : rows) {
    std::string line;
    for (std::size_t c = 0; c < row.size(); ++c) {
      line += row[c];
      if (c + 1 < row.size()) line += std::string(width[c] - row[c].size() + 2, ' ');
    }
    out.text += line + "\n";
  }
}

}  // namespace

void RegisterList(Context& context) {
  struct Args {
    std::vector<std::string> args;
    bool json = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "list",
      "List the systems and sets of personality files (FILE... [KIND [SET]]); with a set kind "
      "(trunk, conv, group, phone, icall, spcall, plmgroup, plmspcall, p25conv, p25group, "
      "eagroup) the sets of that kind; with KIND and SET a table of the set's elements.");
  cmd->add_option("ARGS", args->args, "Files, then KIND and SET")->required();
  cmd->add_flag("--json", args->json, "Print a JSON array, one object per line");
  cmd->callback([args, &context] {
    std::vector<std::string> files = args->args;
    std::string setName;
    int type = -1;
    if (files.size() >= 3 && SetListOfWord(files[files.size() - 2]) >= 0) {
      type = SetListOfWord(files[files.size() - 2]);
      setName = files.back();
      files.resize(files.size() - 2);
    } else if (files.size() >= 2 && SetListOfWord(files.back()) >= 0) {
      type = SetListOfWord(files.back());
      files.pop_back();
    }
    const FileBatch batch(files);
    Listing out;
    context.exitCode = batch.Run([&](const std::string& file) {
      LoadedPersonality loaded = LoadInput(file);
      out.text.clear();
      if (setName.empty()) {
        Overview(*loaded.personality, file, type, out);
      } else {
        Elements(*loaded.personality, file, type, setName, out);
      }
      if (!args->json) WriteText("-", batch.Lines(file, out.text));
      return kExitOk;
    });
    if (args->json) WriteText("-", out.json.dump(2) + "\n");
  });
}

}  // namespace persona::cli
