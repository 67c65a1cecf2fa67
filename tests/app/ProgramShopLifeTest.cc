// The whole life of a shop through `lumaro`: the initial load from the
// sample back office, the back office's example files imported on top of
// it, a day at the tills, and its export, each finding what the one before
// left under the back office's codes.

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <string>

#include "tests/app/LoadShop.h"

namespace {

using loadshop::Shop;

const std::string kExamples = std::string(LUMARO_SOURCE_DIR) + "/examples";

TEST(ProgramShopLife, LoadImportSellAndExportMeetByTheBackOfficesCodes) {
  Shop shop;
  auto load = shop.Load();
  ASSERT_EQ(load.exit_code, 0) << load.err;
  EXPECT_TRUE(shop.LogEntries().empty());

  std::filesystem::create_directory(shop.File("exchange"));
  for (const char* name : {"ITpv0000001.txt", "ITpv0000002.txt"}) {
    std::filesystem::copy_file(kExamples + "/import/" + name, shop.File("exchange/") + name);
  }
  auto import = shop.Lumaro({"import"});
  ASSERT_EQ(import.exit_code, 0) << import.err;
  // Every record finds what it names: the loaded salesmen, customer group,
  // price line 2, carrier and items are updated, nothing is refused.
  EXPECT_FALSE(std::regex_search(import.out, std::regex("[1-9][0-9]* refused"))) << import.out;
  for (const char* updated :
       {"VN: 0 added, 2 updated, 0 refused", "AR: 1 added, 3 updated, 0 refused",
        "AP: 0 added, 4 updated, 0 refused"}) {
    EXPECT_NE(import.out.find(updated), std::string::npos) << updated << " in\n" << import.out;
  }
  EXPECT_EQ(shop.Lines("SELECT c.CustomerKey, g.GroupKey, l.PriceLineKey, r.CarrierKey, "
                       "s.SalesmanKey FROM Customer c JOIN CustomerGroups g ON g.GroupID = "
                       "c.CustomerLevel JOIN PriceLine l ON l.PriceLineID = c.PriceLineID JOIN "
                       "Carrier r ON r.CarrierID = c.CarrierID JOIN Salesman s ON s.SalesmanID = "
                       "c.SalesmanID WHERE c.CustomerID = 2001"),
            "2001|REV|2|CTT|V02\n");

  shop.Pos(testsupport::ReadBytes(kExamples + "/shop-day.sql"));
  auto exported = shop.Lumaro({"export"});
  ASSERT_EQ(exported.exit_code, 0) << exported.err;
  std::string file = testsupport::ReadBytes(shop.File("exchange/ETpv 02 0000001.txt"));
  // The cash of the first sale is tender 1, the till 300 of the till's
  // range; the second sale is on the credit of the imported customer; the
  // receipt is paid at the same till.
  for (const char* record :
       {"FP^X^300^^7,5\r\n", "FP^C^2001^TVD A/2^1,6\r\n", "TL^1^X^300^^C^20\r\n"}) {
    EXPECT_NE(file.find(record), std::string::npos) << record << " in\n" << file;
  }
}

}  // namespace
