// Report block layout of the option records.
#include <persona/options/option_report.h>

#include <cstdarg>
#include <cstring>

namespace persona {

std::string WordOf(const Words& words, unsigned code) {
  if (code < words.count) return words.words[code];
  return std::to_string(code);
}

OptionBlock::OptionBlock(CStringArray& out, const char* heading) : m_out(out) {
  m_out.Add(heading);
  m_out.Add(CString('-', static_cast<int>(std::strlen(heading))));
}

void OptionBlock::Line(const char* fmt, ...) {
  CString line;
  va_list args;
  va_start(args, fmt);
  line.FormatV(fmt, args);
  va_end(args);
  m_out.Add(line);
}

void OptionBlock::Value(const std::string& label, const std::string& value) {
  Line("   %-27s- %s", label.c_str(), value.c_str());
}

void OptionBlock::Pair(const std::string& label1, const std::string& value1,
                       const std::string& label2, const std::string& value2) {
  Line("   %-27s- %-15s%-28s- %s", label1.c_str(), value1.c_str(), label2.c_str(), value2.c_str());
}

void OptionBlock::End() { m_out.Add(CString()); }

namespace option_report_detail {

void PrintPairs(OptionBlock& block, const std::vector<Labelled>& items) {
  std::size_t i = 0;
  for (; i + 1 < items.size(); i += 2) {
    block.Pair(items[i].label, items[i].value, items[i + 1].label, items[i + 1].value);
  }
  if (i < items.size()) block.Value(items[i].label, items[i].value);
}

}  // namespace option_report_detail

}  // namespace persona
