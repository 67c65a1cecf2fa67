#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "connector/host/Conversions.h"
#include "connector/host/Regional.h"
#include "tests/host/HostTestTools.h"

namespace host {
namespace {

TEST(IntegerConversion, RoundsHalfToEven) {
  const std::pair<Variant, int32_t> cases[] = {
      {2.5, 2}, {3.5, 4}, {-2.5, -2}, {-32768.5, -32768}, {"-3,5", -4}, {Variant(), 0}, {true, -1}};
  for (const auto& [value, expected] : cases) {
    EXPECT_EQ(CInt(value), expected) << CStr(value);
    EXPECT_EQ(CLng(value), expected) << CStr(value);
  }
  EXPECT_EQ(CLng(-2147483648.5), -2147483648);
}

TEST(Rounding, DecimalRoundingTakesTheDecimalValue) {
  struct Case {
    double value;
    int decimals;
    double rounded;
  } cases[] = {
      {1.005 * 1.23, 4, 1.2362},  // 1.23615, whose double lies just below the half
      {0.105 * 1.23, 4, 0.1292}, {0.015 * 1.23, 4, 0.0185},   {-1.23615, 4, -1.2362}, {2.5, 0, 3},
      {12.3 * 1, 2, 12.3},       {8.130081300813, 4, 8.1301},
  };
  for (const Case& c : cases) {
    EXPECT_DOUBLE_EQ(RoundDecimal(c.value, c.decimals), c.rounded) << c.value;
  }
}

TEST(Rounding, FifteenDigitsAreWhatPrintfWrites) {
  // Amounts, halves, ratios, sums that miss their decimal, the edges of
  // exponent notation, and a spread of magnitudes from a fixed generator.
  std::vector<double> values = {0,
                                -0.0,
                                1,
                                0.1 + 0.2,
                                1.005 * 1.23,
                                2.5e-5,
                                1e-5,
                                1e15,
                                1e16,
                                123456789012345678.0,
                                -193.39,
                                1.0 / 3,
                                2.0 / 3,
                                1e300,
                                5e-324,
                                0.000123456789012345};
  uint64_t state = 1;
  for (int i = 0; i < 20000; ++i) {
    state = state * 6364136223846793005u + 1442695040888963407u;
    const double mantissa = static_cast<double>(state >> 11) / 9007199254740992.0;
    values.push_back((i % 2 ? -1 : 1) * mantissa * std::pow(10.0, i % 40 - 20));
  }
  for (double value : values) {
    char expected[40];
    std::snprintf(expected, sizeof expected, "%.15g", value);
    ASSERT_EQ(Digits15(value), expected) << value;
  }
}

TEST(Conversions, FailuresRaiseTheirNumbers) {
  struct Case {
    const char* what;
    std::function<void()> action;
    int32_t number;
  };
  const Case cases[] = {
      {"CInt 32767.5", [] { CInt(32767.5); }, err::kOverflow},
      {"CLng 2147483647.5", [] { CLng(2147483647.5); }, err::kOverflow},
      {"CInt text", [] { CInt("abc"); }, err::kTypeMismatch},
      {"CInt Null", [] { CInt(Variant::Null()); }, err::kInvalidUseOfNull},
      {"CStr Null", [] { CStr(Variant::Null()); }, err::kInvalidUseOfNull},
      {"CDbl 1e400", [] { CDbl("1e400"); }, err::kOverflow},
      {"CDbl trailing text", [] { CDbl("12,5x"); }, err::kTypeMismatch},
      {"CDbl group after decimal", [] { CDbl("1,234.5"); }, err::kTypeMismatch},
      {"CBool word", [] { CBool("maybe"); }, err::kTypeMismatch},
      {"CDate no date", [] { CDate("31-02-2026"); }, err::kTypeMismatch},
      {"ParseNumber text", [] { ParseNumber("1.5a", "."); }, err::kTypeMismatch},
  };
  for (const Case& c : cases) EXPECT_EQ(RaisedNumber(c.action), c.number) << c.what;
}

TEST(NumberConversion, CDblFollowsTheRegionalSettingsAndParseNumberItsOwnSeparator) {
  struct Case {
    std::string text;
    double portuguese, iso;
  };
  const Case cases[] = {
      {"12,5", 12.5, 125},  // the group separator is skipped
      {" 1.234 ", 1234, 1.234},
      {"1E3", 1000, 1000},
  };
  for (const Case& c : cases) {
    EXPECT_DOUBLE_EQ(CDbl(c.text), c.portuguese) << c.text;
    EXPECT_DOUBLE_EQ(ParseNumber(c.text, ","), c.portuguese) << c.text;
    ScopedRegional iso(IsoSettings());
    EXPECT_DOUBLE_EQ(CDbl(c.text), c.iso) << c.text;
    EXPECT_DOUBLE_EQ(ParseNumber(c.text, ","), c.portuguese) << c.text;
  }
  EXPECT_DOUBLE_EQ(ParseNumber("1,234.5", "."), 1234.5);
}

TEST(NumberConversion, ValReadsWhatItCanAndNeverFails) {
  const std::pair<std::string, double> cases[] = {
      {"0012.txt", 12}, {"  12.5e2x", 1250}, {"abc", 0},  {"1.2.3", 1.2}, {"12,5", 12},
      {"12e+", 12},     {"- 3", 0},          {".5", 0.5}, {"1e-2", 0.01}};
  for (const auto& [text, expected] : cases) EXPECT_DOUBLE_EQ(Val(text), expected) << text;
  ScopedRegional iso(IsoSettings());
  EXPECT_DOUBLE_EQ(Val("12,5"), 12);  // always the point, whatever the settings
}

TEST(BooleanConversion, WordsAndNumbers) {
  const std::pair<Variant, bool> cases[] = {{"fALSE", false}, {"Verdadeiro", true},
                                            {" true ", true}, {"0,0", false},
                                            {"2,5", true},    {Variant(), false}};
  for (const auto& [value, expected] : cases) EXPECT_EQ(CBool(value), expected) << CStr(value);

  ScopedRegional iso(IsoSettings());
  EXPECT_TRUE(CBool("wahr"));
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
      {0.1 + 0.2, "0,3", "0.3"},
      {-0.0, "0", "0"},
      {2.0 / 3, "0,666666666666667", "0.666666666666667"},
      {999999999999999.9, "1E+15", "1E+15"},  // 15 digits round up into the exponent
      {1234567890123456, "1,23456789012346E+15", "1.23456789012346E+15"},
      {0.0001, "0,0001", "0.0001"},
      {1.5e-7, "1,5E-07", "1.5E-07"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(CStr(c.value), c.portuguese);
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(CStr(c.value), c.iso);
  }
  EXPECT_EQ(CStr(true), "True");
}

TEST(TextConversion, NumbersOfFewDecimalsAsTheGeneralRuleWritesThem) {
  // Between 1E-4 and 1E+15 the text has 15 significant digits and no
  // exponent, which is what printf's %.15g writes: every amount of up to
  // six decimals (and its neighbours) must come out the same.
  auto expected = [](double value) {
    char text[40];
    std::snprintf(text, sizeof text, "%.15g", value);
    std::string written = text;
    if (written == "-0") written = "0";
    for (char& c : written) {
      if (c == '.') c = ',';
    }
    return written;
  };
  std::vector<double> values;
  for (int64_t n = -3000; n <= 3000; n += 7) {
    for (double scale : {1.0, 10.0, 100.0, 1e3, 1e4, 1e6, 1e7}) {
      values.push_back(static_cast<double>(n) / scale);
      values.push_back(std::nextafter(static_cast<double>(n) / scale, 1e300));
    }
  }
  for (double value : {999999999.999999, 123456789012345.0, 99999999999999.9, 1e-4, 0.00012,
                       1.0 / 3, 2.675, 1e9 + 0.5, 0.1 + 0.7}) {
    values.push_back(value);
    values.push_back(-value);
  }
  for (double value : values) {
    if (value != 0 && std::fabs(value) < 1e-4) continue;
    EXPECT_EQ(NumberText(value), expected(value)) << value;
  }
}

// Each date's text, which must also read back as the same date.
TEST(TextConversion, DatesAsTextAndBack) {
  struct Case {
    Date value;
    std::string portuguese, iso;
  };
  const Case cases[] = {
      {Date{0}, "00:00:00", "00:00:00"},
      {MakeDate(2026, 11, 23), "23-11-2026", "2026-11-23"},
      {MakeDate(2026, 1, 2, 0, 0, 1), "02-01-2026 00:00:01", "2026-01-02 00:00:01"},
      {MakeDate(1899, 12, 29, 6, 0, 0), "29-12-1899 06:00:00", "1899-12-29 06:00:00"},
      {MakeDate(100, 1, 1), "01-01-0100", "0100-01-01"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(CStr(c.value), c.portuguese);
    EXPECT_EQ(CDate(c.portuguese), c.value) << c.portuguese;
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(CStr(c.value), c.iso);
    EXPECT_EQ(CDate(c.iso), c.value) << c.iso;
  }
}

TEST(DateConversion, WhatIsADate) {
  struct Case {
    Variant value;
    bool portuguese, iso;
  };
  // "20261123" is a number, not a date.
  const Case cases[] = {{"23-11-2026", true, false},
                        {" 23-11-2026 14:05 ", true, false},
                        {"2026/11/23", true, true},
                        {"2026-11-23T14:05:07", true, true},
                        {"14:05", true, true},
                        {"20261123", false, false},
                        {"31-02-2026", false, false},
                        {"23-11-2026 24:00", false, false},
                        {"23-11/2026", false, false},
                        {46349.0, false, false},
                        {"23-11-2026 14:5", false, false},
                        {"23-11-2026T14:05", false, false},
                        {Date{46349}, true, true}};
  for (const Case& c : cases) {
    const std::string shown = c.value.Type() == VariantType::kString ? c.value.AsString() : "";
    EXPECT_EQ(IsDate(c.value), c.portuguese) << shown;
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(IsDate(c.value), c.iso) << shown;
  }
}

TEST(DateConversion, TextToDate) {
  const std::pair<std::string, Date> cases[] = {
      {"1/2/2026", MakeDate(2026, 2, 1)},
      {"23-11-26", MakeDate(2026, 11, 23)},
      {"23-11-45", MakeDate(1945, 11, 23)},
      {"23.11.2026 9:05", MakeDate(2026, 11, 23, 9, 5, 0)},
      {"06:00", Date{0.25}}};
  for (const auto& [text, expected] : cases) EXPECT_EQ(CDate(text), expected) << text;
}

TEST(Formatting, NumberPatterns) {
  struct Case {
    double value;
    std::string pattern, portuguese, iso;
  };
  const Case cases[] = {
      {101 - 1, "00", "100", "100"},  // pads and never cuts
      {42, "0000000", "0000042", "0000042"},
      {0, "#", "", ""},
      {2.5, "0", "3", "3"},  // half away from zero, unlike CInt
      {2.675, "0.00", "2,68", "2.68"},
      {1.2, "0.0#", "1,2", "1.2"},
      {-0.001, "0.00", "0,00", "0.00"},
      {1234567.891, "#,##0.00", "1.234.567,89", "1,234,567.89"},
      {12, "R$ 0", "R$ 12", "R$ 12"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Format(c.value, c.pattern), c.portuguese) << c.value << " " << c.pattern;
    ScopedRegional iso(IsoSettings());
    EXPECT_EQ(Format(c.value, c.pattern), c.iso) << c.value << " " << c.pattern;
  }
  EXPECT_EQ(Format("12,5", "0.00"), "12,50");
}

TEST(Formatting, DatePatterns) {
  const Date date = MakeDate(2026, 3, 4, 14, 5, 7);
  const std::pair<std::string, std::string> cases[] = {
      {"YYYYMMDD", "20260304"},
      {"dd-mm-yyyy hh:mm", "04-03-2026 14:05"},  // "mm" after "hh" is minutes
      {"d-m-yy h:n:s", "4-3-26 14:5:7"},
      {"hh.dd.mm", "14.04.03"},  // the day comes between: mm is the month
      {"F_yyyymmdd.txt", "F_20260304.txt"}};
  for (const auto& [pattern, expected] : cases) EXPECT_EQ(Format(date, pattern), expected);
  EXPECT_EQ(Format("04-03-2026 14:05:07", "yyyymmdd hhmmss"), "20260304 140507");
}

}  // namespace
}  // namespace host
