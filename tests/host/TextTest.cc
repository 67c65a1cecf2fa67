#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "connector/host/Text.h"
#include "tests/host/HostTestTools.h"

namespace host {
namespace {

TEST(TextFunctions, CountCharactersNotBytes) {
  struct Case {
    std::string text;
    size_t len;
    std::string left2, right2, mid2, mid2_2;
  };
  const Case cases[] = {
      {"ação", 4, "aç", "ão", "ção", "çã"},
      {"a", 1, "a", "a", "", ""},
      {"日本語テキスト", 7, "日本", "スト", "本語テキスト", "本語"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Len(c.text), c.len);
    EXPECT_EQ(Left(c.text, 2), c.left2);
    EXPECT_EQ(Right(c.text, 2), c.right2);
    EXPECT_EQ(Mid(c.text, 2), c.mid2);
    EXPECT_EQ(Mid(c.text, 2, 2), c.mid2_2);
    EXPECT_EQ(Right(c.text, 100), c.text);
  }
  EXPECT_EQ(RaisedNumber([] { Mid("abc", 0); }), err::kInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { InStr("abc", "b", 0); }), err::kInvalidProcedureCall);
}

TEST(TextFunctions, TrimRemovesBlanksOnly) {
  struct Case {
    std::string text, trim, ltrim, rtrim;
  };
  const Case cases[] = {
      {"  a b  ", "a b", "a b  ", "  a b"},
      {" \t\r\n ", "\t\r\n", "\t\r\n ", " \t\r\n"},
      {"   ", "", "", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Trim(c.text), c.trim) << "[" << c.text << "]";
    EXPECT_EQ(LTrim(c.text), c.ltrim) << "[" << c.text << "]";
    EXPECT_EQ(RTrim(c.text), c.rtrim) << "[" << c.text << "]";
  }
}

TEST(TextFunctions, CaseMappingIsUnicodeAware) {
  EXPECT_EQ(UCase("ÉçÜ ñ 1-2"), "ÉÇÜ Ñ 1-2");
  EXPECT_EQ(LCase("ÉçÜ ñ 1-2"), "éçü ñ 1-2");
  EXPECT_EQ(UCase("straße"), "STRAßE");    // one code point at a time: ß stays
  EXPECT_EQ(UCase("bad\xff"), "BAD\xff");  // bytes that are no UTF-8 are kept
  EXPECT_TRUE(EqualsNoCase("Conceição", "CONCEIÇÃO"));
  EXPECT_FALSE(EqualsNoCase("Conceicao", "CONCEIÇÃO"));
  EXPECT_FALSE(EqualsNoCase("ab", "abc"));
  EXPECT_TRUE(EqualsNoCase("tRUE", "True"));
  EXPECT_FALSE(EqualsNoCase("True", "Trve"));
  EXPECT_TRUE(EqualsNoCase("\u017Fim", "SIM"));  // the long s: one side ASCII only
}

TEST(TextFunctions, InStrAndReplaceCompareExactly) {
  struct Find {
    std::string text, needle;
    size_t start, expected;
  };
  const Find finds[] = {
      {"ação;x;y", ";", 1, 5}, {"ação;x;y", ";", 6, 7}, {"ação", "ÇÃO", 1, 0},
      {"abc", "", 3, 3},       {"abc", "c", 9, 0},
  };
  for (const Find& f : finds) {
    EXPECT_EQ(InStr(f.text, f.needle, f.start), f.expected)
        << f.text << " / " << f.needle << " from " << f.start;
  }
  EXPECT_EQ(Replace("a'b'c", "'", "''"), "a''b''c");
  EXPECT_EQ(Replace("aaa", "aa", "b"), "ba");
  EXPECT_EQ(Replace("Ação ação", "ação", "x"), "Ação x");
  EXPECT_EQ(Replace("abc", "", "x"), "abc");
}

TEST(TextFunctions, SplitJoinAndFieldsPastTheEnd) {
  struct Case {
    std::string text, separator;
    std::vector<std::string> parts;
  };
  const Case cases[] = {
      {"", "^", {}},
      {"a^", "^", {"a", ""}},
      {"a^^b", "^", {"a", "", "b"}},
      {"a||b||", "||", {"a", "b", ""}},
      {"abc", "", {"abc"}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Split(c.text, c.separator), c.parts) << c.text;
    if (!c.separator.empty()) {
      EXPECT_EQ(Join(c.parts, c.separator), c.text);
    }
  }
  // How a record with too few fields fails.
  const std::vector<std::string> fields = Split("1^2^", "^");
  EXPECT_EQ(FieldAt(fields, 2), "");
  EXPECT_EQ(RaisedNumber([&] { FieldAt(fields, 3); }), err::kSubscriptOutOfRange);
}

TEST(TextFunctions, LikePatterns) {
  // "?" takes one character, not one byte; the case must match exactly.
  struct Case {
    std::string text, pattern;
    bool matches;
  };
  const Case cases[] = {
      {"", "*", true},       {"abc", "a*b*c", true}, {"abcbc", "*bc", true},
      {"abc", "*d*", false}, {"abc", "ab", false},   {"ação", "a??o", true},
      {"ac", "a?c", false},  {"A12", "A##", true},   {"A1x", "A##", false},
      {"d", "[abc]", false}, {"d", "[!abc]", true},  {"M", "[a-z]", false},
      {"m", "[a-z]", true},  {"-", "[a-]", true},    {"ç", "[çã]", true},
      {"*", "[*]", true},    {"ABC", "abc", false},  {"F20261123.TXT", "F########.TXT", true}};
  for (const Case& c : cases) {
    EXPECT_EQ(Like(c.text, c.pattern), c.matches) << c.text << " Like " << c.pattern;
  }
  EXPECT_EQ(RaisedNumber([] { Like("a", "[abc"); }), err::kInvalidPatternString);
}

}  // namespace
}  // namespace host
