#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "connector/host/Text.h"
#include "tests/host/RaisedNumber.h"

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
      {"€uro", 4, "€u", "ro", "uro", "ur"},
      {"a", 1, "a", "a", "", ""},
      {"", 0, "", "", "", ""},
      {"日本語テキスト", 7, "日本", "スト", "本語テキスト", "本語"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(Len(c.text), c.len);
    EXPECT_EQ(Left(c.text, 2), c.left2);
    EXPECT_EQ(Right(c.text, 2), c.right2);
    EXPECT_EQ(Mid(c.text, 2), c.mid2);
    EXPECT_EQ(Mid(c.text, 2, 2), c.mid2_2);
    EXPECT_EQ(Left(c.text, 100), c.text);
    EXPECT_EQ(Right(c.text, 100), c.text);
    EXPECT_EQ(Mid(c.text, 100), "");
  }
  EXPECT_EQ(RaisedNumber([] { Mid("abc", 0); }), err::kInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { Mid("abc", 0, 1); }), err::kInvalidProcedureCall);
  EXPECT_EQ(RaisedNumber([] { InStr("abc", "b", 0); }), err::kInvalidProcedureCall);
}

TEST(TextFunctions, TrimRemovesBlanksOnly) {
  struct Case {
    std::string text, trim, ltrim, rtrim;
  };
  const Case cases[] = {
      {"  a b  ", "a b", "a b  ", "  a b"},
      {"\ta\t", "\ta\t", "\ta\t", "\ta\t"},
      {" \r\n ", "\r\n", "\r\n ", " \r\n"},
      {"   ", "", "", ""},
      {"", "", "", ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Trim(c.text), c.trim) << "[" << c.text << "]";
    EXPECT_EQ(LTrim(c.text), c.ltrim) << "[" << c.text << "]";
    EXPECT_EQ(RTrim(c.text), c.rtrim) << "[" << c.text << "]";
  }
}

TEST(TextFunctions, CaseMappingIsUnicodeAware) {
  struct Case {
    std::string text, upper, lower;
  };
  const Case cases[] = {
      {"ação", "AÇÃO", "ação"},
      {"ÉçÜ ñ 1-2", "ÉÇÜ Ñ 1-2", "éçü ñ 1-2"},
      {"straße", "STRAßE", "straße"},  // one code point at a time: ß stays
      {"Ωμέγα", "ΩΜΈΓΑ", "ωμέγα"},
      {"bad\xff", "BAD\xff", "bad\xff"},  // bytes that are no UTF-8 are kept
  };
  for (const Case& c : cases) {
    EXPECT_EQ(UCase(c.text), c.upper) << c.text;
    EXPECT_EQ(LCase(c.text), c.lower) << c.text;
  }
  EXPECT_TRUE(EqualsNoCase("Conceição", "CONCEIÇÃO"));
  EXPECT_TRUE(EqualsNoCase("", ""));
  EXPECT_FALSE(EqualsNoCase("Conceicao", "CONCEIÇÃO"));
  EXPECT_FALSE(EqualsNoCase("ab", "abc"));
}

TEST(TextFunctions, InStrAndReplaceCompareExactly) {
  struct Find {
    std::string text, needle;
    size_t start, expected;
  };
  const Find finds[] = {
      {"ação;x;y", ";", 1, 5}, {"ação;x;y", ";", 6, 7}, {"ação;x;y", ";", 8, 0},
      {"ação", "ção", 1, 2},   {"ação", "ÇÃO", 1, 0},   {"abc", "", 3, 3},
      {"abc", "abcd", 1, 0},   {"", "a", 1, 0},         {"abc", "c", 9, 0},
  };
  for (const Find& f : finds) {
    EXPECT_EQ(InStr(f.text, f.needle, f.start), f.expected)
        << f.text << " / " << f.needle << " from " << f.start;
  }

  struct Swap {
    std::string text, find, with, expected;
  };
  const Swap swaps[] = {
      {"a'b'c", "'", "''", "a''b''c"},
      {"aaa", "aa", "b", "ba"},
      {"Ação ação", "ação", "x", "Ação x"},
      {"abc", "", "x", "abc"},
      {"abc", "abc", "", ""},
  };
  for (const Swap& s : swaps) {
    EXPECT_EQ(Replace(s.text, s.find, s.with), s.expected) << s.text;
  }
}

TEST(TextFunctions, SplitAndJoin) {
  struct Case {
    std::string text, separator;
    std::vector<std::string> parts;
  };
  const Case cases[] = {
      {"", "^", {}},
      {"a^", "^", {"a", ""}},
      {"^", "^", {"", ""}},
      {"a^^b", "^", {"a", "", "b"}},
      {"1;ação;3", ";", {"1", "ação", "3"}},
      {"a||b||", "||", {"a", "b", ""}},
      {"abc", "", {"abc"}},
      {"abc", "^", {"abc"}},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Split(c.text, c.separator), c.parts) << c.text;
    if (!c.separator.empty()) {
      EXPECT_EQ(Join(c.parts, c.separator), c.text);
    }
  }
}

TEST(TextFunctions, FieldPastTheEndRaisesSubscriptOutOfRange) {
  const std::vector<std::string> fields = Split("1^2^", "^");
  EXPECT_EQ(FieldAt(fields, 0), "1");
  EXPECT_EQ(FieldAt(fields, 2), "");
  EXPECT_EQ(RaisedNumber([&] { FieldAt(fields, 3); }), err::kSubscriptOutOfRange);
  EXPECT_EQ(RaisedNumber([] { FieldAt({}, 0); }), err::kSubscriptOutOfRange);
}

TEST(TextFunctions, LikePatterns) {
  struct Case {
    std::string text, pattern;
    bool matches;
  };
  const Case cases[] = {
      {"", "", true},
      {"", "*", true},
      {"abc", "*", true},
      {"abc", "a*", true},
      {"abc", "*c", true},
      {"abc", "*b*", true},
      {"abc", "a*b*c", true},
      {"abcbc", "*bc", true},
      {"abc", "*d*", false},
      {"abc", "ab", false},
      {"abc", "abcd", false},
      {"abc", "a?c", true},
      {"ação", "a??o", true},  // ? takes one character, not one byte
      {"ac", "a?c", false},
      {"A12", "A##", true},
      {"A1x", "A##", false},
      {"b", "[abc]", true},
      {"d", "[abc]", false},
      {"d", "[!abc]", true},
      {"a", "[!abc]", false},
      {"m", "[a-z]", true},
      {"M", "[a-z]", false},
      {"ç", "[çã]", true},
      {"-", "[a-]", true},
      {"*", "[*]", true},
      {"x", "[*]", false},
      {"F20261123.TXT", "F########.TXT", true},
      {"F2026112.TXT", "F########.TXT", false},
      {"ABC", "abc", false},  // exact case
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Like(c.text, c.pattern), c.matches) << c.text << " Like " << c.pattern;
  }
  EXPECT_EQ(RaisedNumber([] { Like("a", "[abc"); }), err::kInvalidPatternString);
}

}  // namespace
}  // namespace host
