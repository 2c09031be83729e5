// The streaming JSON scanner against the full parser: what it takes, it reads to the same
// values, wherever the pieces of the text are cut; what it refuses is invalid or outside its
// subset.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <persona/io/json/json_scanner.h>
#include <persona/io/json/record_json.h>

namespace persona {
namespace {

// Builds the value of the scanner's events as the full parser would.
class TreeBuilder {
 public:
  void StartObject() { Open(Json::object()); }
  void StartArray() { Open(Json::array()); }
  void EndObject() { m_open.pop_back(); }
  void EndArray() { m_open.pop_back(); }
  void Key(std::string_view k) { m_key = std::string(k); }
  void String(std::string_view v) { Put(std::string(v)); }
  void Integer(long long v) { Put(v); }
  void Unsigned(unsigned long long v) { Put(v); }
  void Float(double v) { Put(v); }
  void Bool(bool v) { Put(v); }
  void Null() { Put(nullptr); }
  Json root;

 private:
  Json& Put(Json v) {
    if (m_open.empty()) return root = std::move(v);
    Json& top = *m_open.back();
    return top.is_array() ? top.emplace_back(std::move(v)) : (top[m_key] = std::move(v));
  }
  void Open(Json v) { m_open.push_back(&Put(std::move(v))); }
  std::vector<Json*> m_open;
  std::string m_key;
};

// Scans text handed out piece pieces at a time (0: whole); true when the scanner took it,
// *value then receiving what it read.
bool Scan(const std::string& text, std::size_t piece, Json* value) {
  std::size_t at = 0;
  JsonScanner scanner([&](char* dst, std::size_t n) {
    n = std::min({n, text.size() - at, piece == 0 ? n : piece});
    std::memcpy(dst, text.data() + at, n);
    at += n;
    return n;
  });
  TreeBuilder tree;
  if (!scanner.Parse(tree)) return false;
  *value = std::move(tree.root);
  return true;
}

TEST(JsonScanner, ReadsWhatTheFullParserReadsWhereverThePiecesAreCut) {
  const std::string longText(150000, 'x');  // longer than the scanner's buffer
  const std::vector<std::string> taken = {
      R"({"format": "persona-personality", "formatVersion": 1, "list": [1, -2, 3.5, []]})",
      R"(  [ true , false , null , {} , "" ]  )",
      R"([0, -0, 12, -9223372036854775808, 9223372036854775807, 9223372036854775808,
          18446744073709551615, 0.1, -1.5e-3, 2E+10, 1e308, 4.9e-324, 851.0125])",
      R"(["\"\\\/\b\f\n\r\t", "\u0041\u00e9\u20ac\u0000!", "caf\u00E9", "é€ 中文 😀"])",
      "\"" + longText + "\"",
      "{\"" + longText + "\": [\"\\n" + longText + "\"]}",
      "\t\r\n{\"a\":{\"b\":{\"c\":[[[[]]]]}}}\n",
  };
  for (const std::string& text : taken) {
    const Json expected = Json::parse(text);
    for (std::size_t piece : {0, 1, 2, 3, 7, 4096}) {
      Json got;
      ASSERT_TRUE(Scan(text, piece, &got)) << text.substr(0, 80) << " in pieces of " << piece;
      EXPECT_EQ(got, expected) << text.substr(0, 80) << " in pieces of " << piece;
    }
  }
}

TEST(JsonScanner, RefusesInvalidTextAndWhatItLeavesToTheFullParser) {
  const std::vector<std::string> invalid = {"",
                                            "   ",
                                            "01",
                                            "1.",
                                            ".5",
                                            "-",
                                            "+1",
                                            "1e",
                                            "1e+",
                                            "0x10",
                                            "--1",
                                            "1 2",
                                            "[1,]",
                                            "[1 2]",
                                            "{\"a\"}",
                                            "{\"a\":1,}",
                                            "{a:1}",
                                            "{\"a\" 1}",
                                            "{'a':1}",
                                            "tru",
                                            "nul",
                                            "True",
                                            "[",
                                            "{",
                                            "\"open",
                                            "\"a\"\"b\"",
                                            "[\"\x01\"]",
                                            "\"tab\there\"",
                                            "\"\\x\"",
                                            "\"\\u12\"",
                                            "\"\\u12G4\"",
                                            "\"\\ud800\"",  // lone surrogates
                                            "\"\\udfff\"",
                                            "\"\\",
                                            "\"\xC0\x80\"",
                                            "\"\xC3\"",
                                            "\"\xED\xA0\x80\"",
                                            "\"\xF4\x90\x80\x80\"",
                                            "\"\xF5\x80\x80\x80\"",
                                            "\"\x80\"",
                                            "[1]x",
                                            "1e400",
                                            std::string("\"a\0b\"", 5)};
  for (const std::string& text : invalid) {
    EXPECT_FALSE(Json::accept(text)) << text;  // the cases are invalid JSON indeed
    for (std::size_t piece : {0, 1, 3}) {
      Json got;
      EXPECT_FALSE(Scan(text, piece, &got)) << text << " in pieces of " << piece;
    }
  }
  // Left to the full parser: surrogate pairs, integers beyond 64 bits, deep nesting, and a
  // zero byte after the value (which the full parser takes for the end of the text).
  const std::string deep =
      std::string(JsonScanner::kMaxDepth + 1, '[') + std::string(JsonScanner::kMaxDepth + 1, ']');
  const std::string deepest =
      std::string(JsonScanner::kMaxDepth, '[') + std::string(JsonScanner::kMaxDepth, ']');
  for (const std::string& text :
       {std::string("\"\\ud83d\\ude00\""), std::string("18446744073709551616"), deep,
        std::string("[1]\0", 4)}) {
    EXPECT_TRUE(Json::accept(text)) << text;
    Json got;
    EXPECT_FALSE(Scan(text, 0, &got)) << text;
  }
  Json got;
  EXPECT_TRUE(Scan(deepest, 0, &got));
}

}  // namespace
}  // namespace persona
