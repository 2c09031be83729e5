// Report blocks of the option records, in the family's layout: a heading in capitals ending in
// ":", an underline of "-" as long as the heading, value lines that start with three blanks and
// hold one or two columns of label, dash and value, and a closing empty line.
//
// Records whose lines are fixed by their description print them with OptionBlock directly.
// Every other record labels its fields in its Fields table (Label, OnOff, Words, Hex) and
// prints its whole block from that table (CFieldRecord::PrintFieldBlock), two fields per line.
#pragma once

#include <persona/export.h>

#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <persona/framework/collections.h>
#include <persona/framework/cstring.h>
#include <persona/framework/fields.h>

namespace persona {

// "Off" for 0, "On" otherwise.
inline const char* SwitchWord(unsigned v) { return v ? "On" : "Off"; }

// A 32-bit identity as the report's %d prints it: the low 32 bits as a signed value, so that
// 2^31 and above print negative.
inline int Signed32(unsigned long v) {
  const auto bits = static_cast<std::uint32_t>(v);
  return bits > 0x7FFFFFFFu ? -static_cast<int>(~bits) - 1 : static_cast<int>(bits);
}

// Entry code of words, or the code as a number when it lies outside the list.
PERSONA_EXPORT std::string WordOf(const Words& words, unsigned code);
template <std::size_t N>
std::string WordOf(const char* const (&words)[N], unsigned code) {
  return WordOf(WordsOf(words), code);
}

// Appends one report block to a line array.
class PERSONA_EXPORT OptionBlock {
 public:
  // Appends the heading and its underline.
  OptionBlock(CStringArray& out, const char* heading);
  // Appends one formatted line.
  void Line(const char* fmt, ...) __attribute__((format(printf, 2, 3)));
  // Appends "   <label padded to 27>- <value>".
  void Value(const std::string& label, const std::string& value);
  // Appends two columns: "   <label 27>- <value padded to 15><label 28>- <value>".
  void Pair(const std::string& label1, const std::string& value1, const std::string& label2,
            const std::string& value2);
  // Appends the closing empty line.
  void End();
  CStringArray& Out() { return m_out; }

 private:
  CStringArray& m_out;
};

namespace option_report_detail {

struct PERSONA_EXPORT Labelled {
  std::string label;
  std::string value;
};

// Collects the labelled fields of a record with their printed values.
class PERSONA_EXPORT Collector {
 public:
  std::vector<Labelled> items;

  template <class T, class... O>
  void operator()(const char*, T& member, const O&... opts) {
    const char* label = nullptr;
    const Words* words = nullptr;
    bool onOff = false;
    bool hex = false;
    (Note(opts, &label, &words, &onOff, &hex), ...);
    if (label == nullptr) return;
    items.push_back({label, Format(member, words, onOff, hex)});
  }

 private:
  template <class O>
  static void Note(const O& o, const char** label, const Words** words, bool* onOff, bool* hex) {
    if constexpr (std::is_same_v<O, Label>) *label = o.text;
    if constexpr (std::is_same_v<O, Words>) *words = &o;
    if constexpr (std::is_same_v<O, OnOff>) *onOff = true;
    if constexpr (std::is_same_v<O, Hex>) *hex = true;
  }
  template <class T>
  static std::string Format(const T& v, const Words* words, bool onOff, bool hex) {
    if constexpr (std::is_same_v<T, CString>) {
      return v.str();
    } else if constexpr (std::is_same_v<T, CStringArray>) {
      std::string s;
      for (const CString& e : v) s += (s.empty() ? "" : ", ") + e.str();
      return s;
    } else if constexpr (std::is_floating_point_v<T>) {
      return CString::Formatted("%.1f", static_cast<double>(v)).str();
    } else if constexpr (std::is_integral_v<T>) {
      if (words) return WordOf(*words, static_cast<unsigned>(v));
      if (onOff) return SwitchWord(static_cast<unsigned>(v));
      if (hex) return CString::Formatted("%X", static_cast<unsigned>(v)).str();
      return std::to_string(v);
    } else {
      return std::string();
    }
  }
};

// Appends items to block as value lines, two labelled values per line in their order, the
// last one alone when their number is odd.
PERSONA_EXPORT void PrintPairs(OptionBlock& block, const std::vector<Labelled>& items);

}  // namespace option_report_detail

}  // namespace persona
