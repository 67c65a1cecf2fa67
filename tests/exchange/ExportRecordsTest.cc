// The record builders of the export file, for what one shop day's file does
// not pin down: every form of a tender code, the cleaning of texts, the end
// of an FL line, and numbers and dates under other regional settings.

#include "exchange/export/ExportRecords.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/host/Conversions.h"
#include "connector/host/Regional.h"
#include "exchange/export/KeyCaches.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

using host::Variant;

// Settings with "." as decimal separator and an ISO date, so that nothing
// passes only because the Portuguese ones are the default.
host::RegionalSettings PointSettings() {
  host::RegionalSettings settings;
  settings.decimal_separator = ".";
  settings.group_separator = ",";
  settings.short_date = "yyyy-mm-dd";
  settings.long_time = "hh:nn:ss";
  return settings;
}

TEST(ExportRecords, CleanExportTextTurnsEveryCaretIntoOneBlank) {
  struct Case {
    const char* text;
    const char* expected;
  };
  const Case cases[] = {
      {"", ""},
      {"Pão de forma", "Pão de forma"},
      {"João^Sousa", "João Sousa"},
      {"^a^^b^", " a  b "},
      {"^", " "},
  };
  for (const Case& c : cases) EXPECT_EQ(CleanExportText(c.text), c.expected) << c.text;
}

TEST(ExportRecords, TenderCodeIsTheTillFollowedByTheTenderLessOne) {
  struct Case {
    int32_t till_id;
    Variant tender_id;
    const char* expected;
  };
  const Case cases[] = {
      {3, int32_t{5}, "304"},
      {3, int32_t{1}, "300"},
      {3, int16_t{2}, "301"},
      {3, 10.0, "309"},
      {12, int32_t{11}, "1210"},
      {12, int32_t{101}, "12100"},  // "00" pads and never cuts
      {0, int32_t{1}, "000"},
      {3, int32_t{0}, ""},
      {3, int32_t{-1}, ""},
      {3, Variant::Null(), ""},
      {3, Variant(), ""},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(TenderCode(c.till_id, c.tender_id), c.expected)
        << "till " << c.till_id << ", tender " << host::CStr(c.tender_id);
  }
}

// A tender row as the sales' tender query gives it.
host::Recordset TenderRow(double sum_amount) {
  return host::Recordset({"TransSerial", "TransDocument", "TransDocNumber", "MinTenderID",
                          "MinTransOrder", "SumAmount", "CheckSequenceNumber"},
                         {{"A", "TVD", int32_t{2}, int32_t{2}, int32_t{1}, sum_amount, "CH-1"}});
}

TEST(ExportRecords, TenderRecordWritesTheAmountUnderTheRegionalSettings) {
  host::ScopedRegional portuguese(host::RegionalSettings::Portuguese());
  EXPECT_EQ(BuildTenderRecord(TenderRow(-12.5), 3), "FP^X^301^CH-1^12,5");
  EXPECT_EQ(BuildTenderRecord(TenderRow(30), 3), "FP^X^301^CH-1^30");
  {
    host::ScopedRegional point(PointSettings());
    EXPECT_EQ(BuildTenderRecord(TenderRow(-12.5), 3), "FP^X^301^CH-1^12.5");
  }
  host::Recordset none({"MinTenderID", "SumAmount", "CheckSequenceNumber"}, {});
  EXPECT_EQ(BuildTenderRecord(none, 3), "");
}

// The line records need the host's item service behind the key caches.
class LineRecord : public testing::Test {
 protected:
  // A line of item X900, which has no Item row, so its ItemID is written.
  static host::Recordset Line(Variant units, Variant quantity, Variant create_date) {
    return host::Recordset(
        {"LineItemID", "ItemID", "PropertyValue1", "Description", "Units", "Quantity",
         "UnitOfSaleID", "TaxIncludedPrice", "UnitPrice", "CumulativeDiscountPercent1",
         "CumulativeDiscountPercent2", "CumulativeDiscountPercent3", "TotalNetPrintAmout",
         "CreateDate"},
        {{int32_t{1}, "X900", Variant::Null(), "Açúcar^amarelo", units, quantity, "KG", 24.6, 20.0,
          5.0, 2.5, 0.0, 30.38, create_date}});
  }

  testsupport::TestHost test_host_;
  LumaroConnector connector_{test_host_.Host()};
  KeyCaches keys_;
};

TEST_F(LineRecord, EndsWithAnEmptyLastPositionAndASeparator) {
  struct Case {
    const char* what;
    bool tax_included;
    Variant units;
    Variant quantity;
    Variant create_date;
    const char* tax_rate;
    const char* expected;
  };
  const Case cases[] = {
      {"tax included, units differ, no date, no rate", true, 3.0, 1.0, Variant::Null(), "",
       "FL^1^X900^^Açúcar amarelo^3^^1^KG^^^^24,6^S^5^2,5^0^30,38^^00:00:00^^"},
      {"without tax, same units, date with time", false, 1.5, 1.5,
       host::MakeDate(2026, 11, 23, 10, 40, 0), "6",
       "FL^1^X900^^Açúcar amarelo^1,5^^1,5^KG^^^^20^V^5^2,5^0^30,38^6^23-11-2026 10:40:00^^"},
  };
  for (const Case& c : cases) {
    std::string line = BuildLineRecord(c.tax_included, Line(c.units, c.quantity, c.create_date),
                                       keys_, c.tax_rate);
    EXPECT_EQ(line, c.expected) << c.what;
    EXPECT_TRUE(line.ends_with("^^")) << c.what;
  }
}

TEST_F(LineRecord, FollowsTheRegionalSettings) {
  host::ScopedRegional point(PointSettings());
  EXPECT_EQ(BuildLineRecord(true, Line(1.5, 1.5, host::MakeDate(2026, 11, 23)), keys_, "13.5"),
            "FL^1^X900^^Açúcar amarelo^1.5^^1.5^KG^^^^24.6^V^5^2.5^0^30.38^13.5^2026-11-23^^");
}

}  // namespace
}  // namespace lumaro
