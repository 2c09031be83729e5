// Report blocks drawn from a record's described fields.
#include <persona/report/record_lines.h>

#include <cstring>

#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>
#include <persona/options/option_report.h>

namespace persona {

namespace {

const FieldLabel* FindLabel(const char* field, const FieldLabel* labels, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (std::strcmp(labels[i].field, field) == 0) return &labels[i];
  }
  return nullptr;
}

// Formats every field it visits and appends the labelled line.
class LineCollector : public CFieldVisitor {
 public:
  LineCollector(const FieldLabel* labels, std::size_t count, std::string prefix,
                std::vector<FieldLine>& lines)
      : m_labels(labels), m_count(count), m_prefix(std::move(prefix)), m_lines(lines) {}

  void Field(const FieldInfo& f, bool& v) override { Number(f, v ? 1u : 0u); }
  void Field(const FieldInfo& f, BYTE& v) override { Number(f, v); }
  void Field(const FieldInfo& f, WORD& v) override { Number(f, v); }
  void Field(const FieldInfo& f, short& v) override { Signed(f, v); }
  void Field(const FieldInfo& f, DWORD& v) override { Number(f, v); }
  void Field(const FieldInfo& f, LONG& v) override { Signed(f, v); }
  void Field(const FieldInfo& f, double& v) override {
    Add(f, CString::Formatted("%.5f", v).str(), false);
  }
  void Field(const FieldInfo& f, CString& v) override { Add(f, v.str(), true); }
  void Field(const FieldInfo& f, CStringArray& v) override {
    std::string s;
    for (const CString& e : v) s += (s.empty() ? "" : ", ") + e.str();
    Add(f, s.empty() ? "None" : s, true);
  }
  void Field(const FieldInfo& f, CWordArray& v) override {
    std::string s;
    for (WORD w : v) s += (s.empty() ? "" : ", ") + std::to_string(w);
    Add(f, s.empty() ? "None" : s, true);
  }
  void Field(const FieldInfo& f, WORD* values, std::size_t count) override {
    std::string s;
    for (std::size_t i = 0; i < count; ++i) s += (i ? ", " : "") + std::to_string(values[i]);
    Add(f, s, true);
  }
  void Field(const FieldInfo& f, COwnedObList& v) override {
    Add(f, std::to_string(v.GetCount()), false);
    int i = 0;
    for (CObject* rec : v) {
      ++i;
      if (rec == nullptr) continue;
      LineCollector sub(m_labels, m_count, m_prefix + f.name + " " + std::to_string(i) + " ",
                        m_lines);
      rec->VisitFields(sub);
    }
  }
  void Field(const FieldInfo& f, CObList& v) override {
    Add(f, std::to_string(v.GetCount()), false);
  }

 private:
  const FieldLabel* Label(const FieldInfo& f) const {
    return m_prefix.empty() ? FindLabel(f.name, m_labels, m_count) : nullptr;
  }
  std::string LabelText(const FieldInfo& f) const {
    const FieldLabel* l = Label(f);
    return l ? std::string(l->label) : m_prefix + f.name;
  }
  void Add(const FieldInfo& f, std::string value, bool wide) {
    m_lines.push_back({LabelText(f), std::move(value), wide});
  }
  void Signed(const FieldInfo& f, long v) {
    const FieldLabel* l = Label(f);
    if (l && l->format == FieldFormat::OnOff) {
      Add(f, SwitchWord(v != 0), false);
    } else {
      Add(f, std::to_string(v), false);
    }
  }
  void Number(const FieldInfo& f, unsigned long v) {
    const FieldLabel* l = Label(f);
    const FieldFormat format = l ? l->format : FieldFormat::Plain;
    std::string s;
    switch (format) {
      case FieldFormat::OnOff:
        s = SwitchWord(static_cast<unsigned>(v));
        break;
      case FieldFormat::IpAddress:
        s = CString::Formatted("%03d.%03d.%03d.%03d", static_cast<int>((v >> 24) & 0xFF),
                               static_cast<int>((v >> 16) & 0xFF),
                               static_cast<int>((v >> 8) & 0xFF), static_cast<int>(v & 0xFF))
                .str();
        break;
      case FieldFormat::SystemKind:
        s = SystemKindLabel(static_cast<unsigned>(v));
        break;
      case FieldFormat::NotSetFFFF:
        s = v == 0xFFFF ? "Not Set" : std::to_string(v);
        break;
      case FieldFormat::Hex:
        s = CString::Formatted("%lX", v).str();
        break;
      case FieldFormat::Plain:
        s = f.hex ? CString::Formatted("%lX", v).str() : std::to_string(v);
        break;
    }
    Add(f, s, false);
  }

  const FieldLabel* m_labels;
  std::size_t m_count;
  std::string m_prefix;
  std::vector<FieldLine>& m_lines;
};

}  // namespace

std::vector<FieldLine> CollectFieldLines(CObject& rec, const FieldLabel* labels,
                                         std::size_t count) {
  std::vector<FieldLine> lines;
  LineCollector collector(labels, count, std::string(), lines);
  rec.VisitFields(collector);
  return lines;
}

// Values wider than this take a line of their own (the first column of a pair is this wide).
constexpr std::size_t kPairValueWidth = 14;

void PrintFieldBlock(CStringArray& out, const std::string& heading,
                     const std::vector<FieldLine>& lines) {
  OptionBlock block(out, heading.c_str());
  const FieldLine* pending = nullptr;
  for (const FieldLine& line : lines) {
    if (line.wide || line.value.size() > kPairValueWidth) {
      if (pending) block.Value(pending->label, pending->value);
      pending = nullptr;
      block.Value(line.label, line.value);
    } else if (pending) {
      block.Pair(pending->label, pending->value, line.label, line.value);
      pending = nullptr;
    } else {
      pending = &line;
    }
  }
  if (pending) block.Value(pending->label, pending->value);
  block.End();
}

}  // namespace persona
