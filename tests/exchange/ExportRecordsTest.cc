// The record builders of the export file, for what one shop day's file does
// not pin down: the edge forms of a tender code, and numbers and dates under
// other regional settings.

#include <gtest/gtest.h>

#include <string>

#include "connector/LumaroConnector.h"
#include "connector/host/Conversions.h"
#include "connector/host/Regional.h"
#include "exchange/export/ExportRecords.h"
#include "exchange/export/KeyCaches.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

using host::Variant;

TEST(ExportRecords, TenderCodeIsTheTillFollowedByTheTenderLessOne) {
  struct Case {
    int32_t till_id;
    Variant tender_id;
    const char* expected;
  };
  // Tenders 1 to 10 are in the shop day's file, and so is the cleaning of
  // texts ("Açúcar^amarelo" is written "Açúcar amarelo").
  const Case cases[] = {{3, int16_t{2}, "301"},
                        {12, int32_t{101}, "12100"},  // "00" pads and never cuts
                        {3, int32_t{0}, ""},
                        {3, Variant::Null(), ""}};
  for (const Case& c : cases) {
    EXPECT_EQ(TenderCode(c.till_id, c.tender_id), c.expected)
        << "till " << c.till_id << ", tender " << host::CStr(c.tender_id);
  }
}

// The shop day's file shows the Portuguese forms. The line record needs the
// host's item service behind the key caches; item X900 has no Item row, so
// its ItemID is written.
TEST(ExportRecords, TenderAndLineRecordsFollowTheRegionalSettings) {
  testsupport::TestHost test_host;
  LumaroConnector connector(test_host.Host());
  KeyCaches keys;
  host::ScopedRegional point(host::IsoSettings());
  host::Recordset tender({"MinTenderID", "MinTransOrder", "SumAmount", "CheckSequenceNumber"},
                         {{int32_t{2}, int32_t{1}, -12.5, "CH-1"}});
  EXPECT_EQ(BuildTenderRecord(tender, 3), "FP^X^301^CH-1^12.5");
  host::Recordset none({"MinTenderID", "SumAmount", "CheckSequenceNumber"}, {});
  EXPECT_EQ(BuildTenderRecord(none, 3), "");
  host::Recordset line(
      {"LineItemID", "ItemID", "PropertyValue1", "Description", "Units", "Quantity", "UnitOfSaleID",
       "TaxIncludedPrice", "UnitPrice", "CumulativeDiscountPercent1", "CumulativeDiscountPercent2",
       "CumulativeDiscountPercent3", "TotalNetPrintAmout", "CreateDate"},
      {{int32_t{1}, "X900", Variant::Null(), "Açúcar^amarelo", 1.5, 1.5, "KG", 24.6, 20.0, 5.0, 2.5,
        0.0, 30.38, Variant(host::MakeDate(2026, 11, 23))}});
  EXPECT_EQ(BuildLineRecord(true, line, keys, "13.5"),
            "FL^1^X900^^Açúcar amarelo^1.5^^1.5^KG^^^^24.6^V^5^2.5^0^30.38^13.5^2026-11-23^^");
}

}  // namespace
}  // namespace lumaro
