#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "connector/host/Conversions.h"
#include "connector/host/Regional.h"
#include "tests/host/RaisedNumber.h"

namespace host {
namespace {

// A second set of regional settings, so that nothing passes only because the
// Portuguese ones are the default.
RegionalSettings IsoSettings() {
  RegionalSettings settings;
  settings.decimal_separator = ".";
  settings.group_separator = ",";
  settings.short_date = "yyyy-mm-dd";
  settings.long_time = "hh:nn:ss";
  settings.true_word = "Wahr";
  settings.false_word = "Falsch";
  return settings;
}

TEST(IntegerConversion, RoundsHalfToEven) {
  struct Case {
    Variant value;
    int32_t expected;
  };
  const Case cases[] = {
      {2.5, 2},   {3.5, 4},       {-2.5, -2},        {-3.5, -4},          {0.5, 0},
      {1.5, 2},   {2.4999, 2},    {2.5001, 3},       {32767.4, 32767},    {-32768.5, -32768},
      {"2,5", 2}, {" 7 ", 7},     {"1.000", 1000},   {"-3,5", -4},        {true, -1},
      {false, 0}, {Variant(), 0}, {int16_t{-7}, -7}, {int32_t{300}, 300}, {Date{0.75}, 1},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(CInt(c.value), c.expected) << CStr(c.value);
    EXPECT_EQ(CLng(c.value), c.expected) << CStr(c.value);
  }
  EXPECT_EQ(CLng(2147483647.4), 2147483647);
  EXPECT_EQ(CLng(-2147483648.5), -2147483648);
  EXPECT_EQ(CLng(int32_t{40000}), 40000);
  EXPECT_EQ(RoundHalfEven(1e300), 1e300);
}

TEST(Conversions, FailuresRaiseTheirNumbers) {
  struct Case {
    const char* what;
    std::function<void()> action;
    int32_t number;
  };
  const Case cases[] = {
      {"CInt 32767.5", [] { CInt(32767.5); }, err::kOverflow},
      {"CInt -32769", [] { CInt(-32769.0); }, err::kOverflow},
      {"CInt Long 40000", [] { CInt(int32_t{40000}); }, err::kOverflow},
      {"CLng 2147483647.5", [] { CLng(2147483647.5); }, err::kOverflow},
      {"CInt text", [] { CInt("abc"); }, err::kTypeMismatch},
      {"CInt empty text", [] { CInt(""); }, err::kTypeMismatch},
      {"CInt Null", [] { CInt(Variant::Null()); }, err::kInvalidUseOfNull},
      {"CDbl 1e400", [] { CDbl("1e400"); }, err::kOverflow},
      {"CDbl trailing text", [] { CDbl("12,5x"); }, err::kTypeMismatch},
      {"CDbl two separators", [] { CDbl("1,2,3"); }, err::kTypeMismatch},
      {"CDbl group after decimal", [] { CDbl("1,234.5"); }, err::kTypeMismatch},
      {"CDbl sign alone", [] { CDbl("-"); }, err::kTypeMismatch},
      {"CDbl blanks", [] { CDbl("   "); }, err::kTypeMismatch},
      {"CDbl bytes", [] { CDbl(Variant::Bytes{1}); }, err::kTypeMismatch},
      {"CBool word", [] { CBool("maybe"); }, err::kTypeMismatch},
      {"CBool Null", [] { CBool(Variant::Null()); }, err::kInvalidUseOfNull},
      {"CStr Null", [] { CStr(Variant::Null()); }, err::kInvalidUseOfNull},
      {"CDate no date", [] { CDate("31-02-2026"); }, err::kTypeMismatch},
      {"ParseNumber empty", [] { ParseNumber("", "."); }, err::kTypeMismatch},
      {"ParseNumber text", [] { ParseNumber("1.5a", "."); }, err::kTypeMismatch},
  };
  for (const Case& c : cases) EXPECT_EQ(RaisedNumber(c.action), c.number) << c.what;
}

TEST(NumberConversion, TextFollowsTheRegionalSeparators) {
  struct Case {
    std::string text;
    double portuguese;
    double iso;
  };
  const Case cases[] = {
      {"12,5", 12.5, 125},  // the group separator is skipped
      {"12.5", 125, 12.5}, {" 1.234 ", 1234, 1.234}, {"1,234", 1.234, 1234}, {"-3", -3, -3},
      {"+7", 7, 7},        {"1E3", 1000, 1000},      {"0012", 12, 12},       {"1e-400", 0, 0},
  };
  for (const Case& c : cases) {
    EXPECT_DOUBLE_EQ(CDbl(c.text), c.portuguese) << c.text;
    ScopedRegional iso(IsoSettings());
    EXPECT_DOUBLE_EQ(CDbl(c.text), c.iso) << c.text;
  }
  EXPECT_DOUBLE_EQ(CDbl("1.234.567,5"), 1234567.5);
  EXPECT_DOUBLE_EQ(CDbl("1,5e-2"), 0.015);
  EXPECT_DOUBLE_EQ(CDbl(Date{46349.25}), 46349.25);
  EXPECT_DOUBLE_EQ(CDbl(true), -1);
}

TEST(NumberConversion, ParseNumberIgnoresTheRegionalSettings) {
  struct Case {
    std::string text, separator;
    double expected;
  };
  const Case cases[] = {
      {"12.5", ".", 12.5},      {"12,5", ",", 12.5}, {"1.234,5", ",", 1234.5},
      {"1,234.5", ".", 1234.5}, {" -7 ", ".", -7},   {"3", ",", 3},
  };
  for (const Case& c : cases) {
    EXPECT_DOUBLE_EQ(ParseNumber(c.text, c.separator), c.expected) << c.text;
    ScopedRegional iso(IsoSettings());
    EXPECT_DOUBLE_EQ(ParseNumber(c.text, c.separator), c.expected) << c.text;
  }
}

TEST(NumberConversion, ValReadsWhatItCanAndNeverFails) {
  struct Case {
    std::string text;
    double expected;
  };
  const Case cases[] = {
      {"0012.txt", 12}, {"  12.5e2x", 1250}, {"abc", 0},   {"1.2.3", 1.2}, {"-3", -3},
      {"", 0},          {"12,5", 12},        {" \t 7", 7}, {".5", 0.5},    {"12e", 12},
      {"12e+", 12},     {"1e-2", 0.01},      {"- 3", 0},   {"+4kg", 4},    {"1 2", 1},
  };
  for (const Case& c : cases) EXPECT_DOUBLE_EQ(Val(c.text), c.expected) << c.text;
  ScopedRegional iso(IsoSettings());
  EXPECT_DOUBLE_EQ(Val("12,5"), 12);  // always the point, whatever the settings
}

TEST(BooleanConversion, WordsAndNumbers) {
  struct Case {
    Variant value;
    bool expected;
  };
  const Case cases[] = {
      {"True", true}, {"fALSE", false},    {"Verdadeiro", true}, {"FALSO", false}, {" true ", true},
      {"0", false},   {"-1", true},        {"0,0", false},       {"2,5", true},    {2.0, true},
      {0.0, false},   {int16_t{0}, false}, {Variant(), false},
  };
  for (const Case& c : cases) EXPECT_EQ(CBool(c.value), c.expected) << CStr(c.value);

  ScopedRegional iso(IsoSettings());
  EXPECT_TRUE(CBool("wahr"));
  EXPECT_FALSE(CBool("FALSCH"));
  EXPECT_TRUE(CBool("True"));
  EXPECT_EQ(RaisedNumber([] { CBool("Verdadeiro"); }), err::kTypeMismatch);
}

TEST(TextConversion, NumbersAsText) {
  struct Case {
    double value;
    std::string portuguese, iso;
  };
  const Case cases[] = {
      {12.5, "12,5", "12.5"},
      {3, "3", "3"},
      {0.1 + 0.2, "0,3", "0.3"},
      {-0.0, "0", "0"},
      {-12.25, "-12,25", "-12.25"},
      {100, "100", "100"},
      {1.0 / 3, "0,333333333333333", "0.333333333333333"},
      {2.0 / 3, "0,666666666666667", "0.666666666666667"},
      {123456789012345, "123456789012345", "123456789012345"},
      {999999999999999.9, "1E+15", "1E+15"},
      {1e15, "1E+15", "1E+15"},
      {1234567890123456, "1,23456789012346E+15", "1.23456789012346E+15"},
      {-2.5e100, "-2,5E+100", "-2.5E+100"},
      {0.0001, "0,0001", "0.0001"},
      {0.00001, "1E-05", "1E-05"},
      {1.5e-7, "1,5E-07", "1.5E-07"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(CStr(c.value), c.portuguese);
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(CStr(c.value), c.iso);
  }
  EXPECT_EQ(CStr(true), "True");
  EXPECT_EQ(CStr(false), "False");
  EXPECT_EQ(CStr(int16_t{-5}), "-5");
  EXPECT_EQ(CStr(int32_t{70000}), "70000");
  EXPECT_EQ(CStr(Variant()), "");
}

TEST(TextConversion, DatesAsText) {
  struct Case {
    Date value;
    std::string portuguese, iso;
  };
  const Case cases[] = {
      {Date{0}, "00:00:00", "00:00:00"},
      {Date{0.5}, "12:00:00", "12:00:00"},
      {MakeDate(2026, 11, 23), "23-11-2026", "2026-11-23"},
      {MakeDate(2026, 11, 23, 14, 5, 7), "23-11-2026 14:05:07", "2026-11-23 14:05:07"},
      {MakeDate(2026, 1, 2, 0, 0, 1), "02-01-2026 00:00:01", "2026-01-02 00:00:01"},
      {MakeDate(1899, 12, 29, 6, 0, 0), "29-12-1899 06:00:00", "1899-12-29 06:00:00"},
      {MakeDate(1899, 12, 31), "31-12-1899", "1899-12-31"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(CStr(c.value), c.portuguese);
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(CStr(c.value), c.iso);
  }
}

TEST(DateConversion, WhatIsADate) {
  struct Case {
    Variant value;
    bool portuguese, iso;
  };
  const Case cases[] = {
      {"23-11-2026", true, false},
      {"23/11/2026", true, false},
      {"23.11.2026", true, false},
      {"1-2-2026", true, false},
      {" 23-11-2026 14:05 ", true, false},
      {"23-11-2026 14:05:07", true, false},
      {"2026-11-23", true, true},
      {"2026/11/23", true, true},
      {"2026-11-23 14:05:07", true, true},
      {"2026-11-23T14:05:07", true, true},
      {"14:05", true, true},
      {"14:05:07", true, true},
      {"20261123", false, false},
      {"1.5", false, false},
      {"31-02-2026", false, false},
      {"23-11-2026 24:00", false, false},
      {"23-11-2026 14:5", false, false},
      {"23-11-2026T14:05", false, false},
      {"23-11/2026", false, false},
      {"23-11-2026 x", false, false},
      {"", false, false},
      {"abc", false, false},
      {46349.0, false, false},
      {Variant(), false, false},
      {Variant::Null(), false, false},
      {Date{46349}, true, true},
  };
  for (const Case& c : cases) {
    const std::string shown = c.value.Type() == VariantType::kString ? c.value.AsString() : "";
    EXPECT_EQ(IsDate(c.value), c.portuguese) << shown;
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(IsDate(c.value), c.iso) << shown;
  }
}

TEST(DateConversion, TextToDate) {
  struct Case {
    std::string text;
    Date expected;
  };
  const Case cases[] = {
      {"23-11-2026", MakeDate(2026, 11, 23)},
      {"1/2/2026", MakeDate(2026, 2, 1)},
      {"2026-02-01", MakeDate(2026, 2, 1)},
      {"23-11-26", MakeDate(2026, 11, 23)},
      {"23-11-45", MakeDate(1945, 11, 23)},
      {"23.11.2026 9:05", MakeDate(2026, 11, 23, 9, 5, 0)},
      {"2026-11-23T14:05:07", MakeDate(2026, 11, 23, 14, 5, 7)},
      {"06:00", Date{0.25}},
  };
  for (const Case& c : cases) EXPECT_EQ(CDate(c.text), c.expected) << c.text;
  EXPECT_EQ(CDate(46349.5), Date{46349.5});
}

TEST(DateConversion, TextOfADateReadsBack) {
  const Date dates[] = {
      MakeDate(2026, 11, 23),
      MakeDate(2026, 11, 23, 14, 5, 7),
      MakeDate(2024, 2, 29, 23, 59, 59),
      MakeDate(100, 1, 1),
      MakeDate(9999, 12, 31, 0, 0, 1),
      MakeDate(1899, 12, 28, 18, 30, 0),
      Date{0},
      MakeDate(1899, 12, 30, 7, 8, 9),
  };
  for (const Date& date : dates) {
    EXPECT_EQ(CDate(CStr(date)), date) << CStr(date);
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(CDate(CStr(date)), date) << CStr(date);
  }
}

TEST(Formatting, NumberPatterns) {
  struct Case {
    double value;
    std::string pattern, portuguese, iso;
  };
  const Case cases[] = {
      {101 - 1, "00", "100", "100"},
      {7, "00", "07", "07"},
      {42, "0000000", "0000042", "0000042"},
      {5, "####0", "5", "5"},
      {0, "####0", "0", "0"},
      {0, "#", "", ""},
      {2.5, "0", "3", "3"},  // half away from zero, unlike CInt
      {3.5, "0", "4", "4"},
      {-2.5, "0", "-3", "-3"},
      {2.675, "0.00", "2,68", "2.68"},
      {9.995, "0.00", "10,00", "10.00"},
      {1.5, "0.00", "1,50", "1.50"},
      {1.25, "0.0#", "1,25", "1.25"},
      {1.2, "0.0#", "1,2", "1.2"},
      {0.5, "#.##", ",5", ".5"},
      {1, "0.##", "1,", "1."},
      {-0.001, "0.00", "0,00", "0.00"},
      {-12.345, "0.0", "-12,3", "-12.3"},
      {1234567.891, "#,##0.00", "1.234.567,89", "1,234,567.89"},
      {999, "#,##0", "999", "999"},
      {12, "R$ 0", "R$ 12", "R$ 12"},
      {12.5, "", "12,5", "12.5"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Format(c.value, c.pattern), c.portuguese) << c.value << " " << c.pattern;
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(Format(c.value, c.pattern), c.iso) << c.value << " " << c.pattern;
  }
  EXPECT_EQ(Format(int32_t{7}, "000"), "007");
  EXPECT_EQ(Format("12,5", "0.00"), "12,50");
}

TEST(Formatting, DatePatterns) {
  const Date date = MakeDate(2026, 3, 4, 14, 5, 7);
  struct Case {
    std::string pattern, expected;
  };
  const Case cases[] = {
      {"YYYYMMDD", "20260304"},
      {"yyyymmdd", "20260304"},
      {"dd-mm-yyyy hh:mm", "04-03-2026 14:05"},
      {"hh:mm:ss", "14:05:07"},
      {"HH:NN:SS", "14:05:07"},
      {"dd/mm/yyyy", "04/03/2026"},
      {"d-m-yy h:n:s", "4-3-26 14:5:7"},
      {"yyyy-mm-ddThh:nn:ss", "2026-03-04T14:05:07"},
      {"mm hh mm", "03 14 05"},
      {"hh.dd.mm", "14.04.03"},  // the day comes between: mm is the month
      {"F_yyyymmdd.txt", "F_20260304.txt"},
  };
  for (const Case& c : cases) EXPECT_EQ(Format(date, c.pattern), c.expected) << c.pattern;
  EXPECT_EQ(Format("04-03-2026 14:05:07", "yyyymmdd hhmmss"), "20260304 140507");
  EXPECT_EQ(Format(46349.0, "yyyy-mm-dd"), "2026-11-23");
  EXPECT_EQ(Format(date, ""), "04-03-2026 14:05:07");
}

}  // namespace
}  // namespace host
