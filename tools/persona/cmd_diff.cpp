// persona diff A B [--json] [--stat]: the record-level differences between two personality
// files, two global set files, or a set file and the set of its kind and name in a personality,
// written as they are found.
#include <cstdio>

#include <persona/io/json/record_diff.h>
#include "command.h"
#include "input_file.h"

namespace persona::cli {

namespace {

const char* KindWord(RecordDifference::Kind kind) {
  switch (kind) {
    case RecordDifference::Changed:
      return "changed";
    case RecordDifference::Added:
      return "added";
    case RecordDifference::Removed:
      return "removed";
    case RecordDifference::Renamed:
      return "renamed";
  }
  return "changed";
}

// Standard output written in blocks: the output is never held whole.
class BlockWriter {
 public:
  ~BlockWriter() { std::fflush(stdout); }
  std::string& Buffer() { return m_buffer; }
  // Writes the buffer once it holds a block (all of it when force).
  void Flush(bool force = false) {
    if (m_buffer.size() < kBlock && !force) return;
    if (std::fwrite(m_buffer.data(), 1, m_buffer.size(), stdout) != m_buffer.size() ||
        (force && std::fflush(stdout) != 0)) {
      throw OutputError("standard output: write failed");
    }
    m_buffer.clear();
  }

 private:
  static constexpr std::size_t kBlock = 64 * 1024;
  std::string m_buffer;
};

// "changed PATH: OLD -> NEW", "added PATH: NEW", "removed PATH: OLD", "renamed PATH: OLD -> NEW".
class TextSink : public DiffSink {
 public:
  explicit TextSink(BlockWriter& out) : m_out(out) {}
  void Difference(const RecordDifference& d) override {
    std::string& text = m_out.Buffer();
    text += KindWord(d.kind);
    text += ' ';
    text += d.path;
    text += ": ";
    text += d.kind == RecordDifference::Added ? d.after : d.before;
    if (d.kind == RecordDifference::Changed || d.kind == RecordDifference::Renamed) {
      text += " -> ";
      text += d.after;
    }
    text += '\n';
    m_out.Flush();
  }

 private:
  BlockWriter& m_out;
};

// A JSON array of {"kind", "path", "pointer", "before", "after"}, laid out as Json::dump(2).
class JsonSink : public DiffSink {
 public:
  explicit JsonSink(BlockWriter& out) : m_out(out) {}
  void Difference(const RecordDifference& d) override {
    Json entry = {{"kind", KindWord(d.kind)}, {"path", d.path}, {"pointer", d.pointer}};
    if (d.kind != RecordDifference::Added) entry["before"] = Json::parse(d.before);
    if (d.kind != RecordDifference::Removed) entry["after"] = Json::parse(d.after);
    std::string& text = m_out.Buffer();
    text += m_first ? "[\n  " : ",\n  ";
    m_first = false;
    for (char c : entry.dump(2)) {
      text += c;
      if (c == '\n') text += "  ";
    }
    m_out.Flush();
  }
  void Finish() { m_out.Buffer() += m_first ? "[]\n" : "\n]\n"; }

 private:
  BlockWriter& m_out;
  bool m_first = true;
};

// Counts of records per group and kind of difference.
class StatSink : public DiffSink {
 public:
  struct Counts {
    std::string group;
    std::size_t n[4] = {0, 0, 0, 0};  // by RecordDifference::Kind
  };
  void Difference(const RecordDifference& d) override {
    if (!d.wholeRecord && !d.firstOfRecord) return;
    Counts* row = nullptr;
    for (Counts& c : rows) {
      if (c.group == d.group) row = &c;
    }
    if (row == nullptr) {
      rows.push_back({d.group, {0, 0, 0, 0}});
      row = &rows.back();
    }
    ++row->n[d.wholeRecord ? d.kind : RecordDifference::Changed];
  }
  std::string Text() const {
    std::string text;
    Counts total;
    for (const Counts& c : rows) {
      text += c.group + ": " + Summary(c) + "\n";
      for (int k = 0; k < 4; ++k) total.n[k] += c.n[k];
    }
    const std::size_t all = total.n[0] + total.n[1] + total.n[2] + total.n[3];
    if (all != 0) text += std::to_string(all) + " record(s) differ: " + Summary(total) + "\n";
    return text;
  }
  Json ToJson() const {
    Json groups = Json::array();
    for (const Counts& c : rows) {
      Json row = {{"group", c.group}};
      for (int k = 0; k < 4; ++k) row[KindWord(static_cast<RecordDifference::Kind>(k))] = c.n[k];
      groups.push_back(row);
    }
    return groups;
  }
  std::vector<Counts> rows;

 private:
  static std::string Summary(const Counts& c) {
    std::string text;
    for (int k : {RecordDifference::Changed, RecordDifference::Added, RecordDifference::Removed,
                  RecordDifference::Renamed}) {
      if (c.n[k] == 0) continue;
      if (!text.empty()) text += ", ";
      text += std::to_string(c.n[k]) + " " + KindWord(static_cast<RecordDifference::Kind>(k));
    }
    return text;
  }
};

// The records to compare: the two personalities, the two sets of two set files, or the set of a
// set file and the set of the same kind and name in the other file's personality (NotHeldError
// when it holds none).
std::pair<CObject*, CObject*> Compared(OpenedFile& a, OpenedFile& b, const std::string& pathA,
                                       const std::string& pathB) {
  if (a.set == nullptr && b.set == nullptr)
    return {a.loaded.personality.get(), b.loaded.personality.get()};
  if (a.set != nullptr && b.set != nullptr) return {a.set, b.set};
  if (a.set != nullptr) {
    return {a.set, NamedSet(*b.loaded.personality, a.setKind->type, a.set->GetName().str(), pathB)};
  }
  return {NamedSet(*a.loaded.personality, b.setKind->type, b.set->GetName().str(), pathA), b.set};
}

}  // namespace

void RegisterDiff(Context& context) {
  struct Args {
    std::string a;
    std::string b;
    bool json = false;
    bool stat = false;
  };
  auto args = std::make_shared<Args>();
  CLI::App* cmd = context.App().add_subcommand(
      "diff",
      "List the differences that turn A into B, field by field: systems matched by name, sets "
      "by kind and name, elements by position, option records by class; a system or set that "
      "differs only in its name is shown as renamed. One line per difference (\"changed PATH: "
      "OLD -> NEW\", \"added PATH: NEW\", \"removed PATH: OLD\", \"renamed PATH: OLD -> NEW\"), "
      "PATH in the path syntax of check. A global set file (NAME.CVS, ...) is compared with "
      "another set file or with the set of its kind and name in a personality. Exit 0 when "
      "equal, 1 when not.");
  cmd->add_option("A", args->a, "Personality file or global set file")->required();
  cmd->add_option("B", args->b, "Personality file or global set file")->required();
  cmd->add_flag("--json", args->json,
                "Print the differences as a JSON array (kind, path, JSON pointer, before, after)");
  cmd->add_flag("--stat", args->stat,
                "Print only the number of records changed, added, removed and renamed per kind "
                "of record");
  cmd->callback([args, &context] {
    OpenedFile fileA = OpenPersonalityOrSet(args->a);
    OpenedFile fileB = OpenPersonalityOrSet(args->b);
    const auto [a, b] = Compared(fileA, fileB, args->a, args->b);
    BlockWriter out;
    std::size_t count = 0;
    if (args->stat) {
      StatSink stat;
      count = DiffRecords(*a, *b, stat);
      out.Buffer() = args->json ? stat.ToJson().dump(2) + "\n" : stat.Text();
    } else if (args->json) {
      JsonSink json(out);
      count = DiffRecords(*a, *b, json);
      json.Finish();
    } else {
      TextSink text(out);
      count = DiffRecords(*a, *b, text);
    }
    out.Flush(true);
    context.exitCode = count == 0 ? kExitOk : kExitDifferent;
  });
}

}  // namespace persona::cli
