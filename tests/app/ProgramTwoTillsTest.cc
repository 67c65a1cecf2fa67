// Two tills export from one POS database at the same moment, on SQLite and
// on a server alike: every run ends well, the runs take turns, and every
// document goes out once, in one file of its exchange point.

#include <gtest/gtest.h>

#include <future>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "connector/host/FieldConverter.h"
#include "tests/app/ExportShop.h"

namespace {

using testsupport::ExportShop;
using testsupport::ReadBytes;

// The documents a file sends: its sale (FC) and receipt (TC) records.
int DocumentRecords(const std::string& bytes) {
  int count = 0;
  std::istringstream in(bytes);
  for (std::string line; std::getline(in, line);) {
    if (line.rfind("FC^", 0) == 0 || line.rfind("TC^", 0) == 0) ++count;
  }
  return count;
}

TEST(TwoTills, ExportingAtOnceSendEveryDocumentOnce) {
  // Both exchange points active: till 1 serves point 02, till 3 point 05.
  ExportShop shop(std::regex_replace(testsupport::ExportSettings(), std::regex("Active=\"0\""),
                                     "Active=\"1\""));
  auto marked = [&shop] {
    auto db = shop.Open();
    double count = 0;
    for (const char* table : {"SaleTransaction", "TenderTransaction"}) {
      count += host::FieldConverter::ToNumber(
          db->OpenRecordset(std::string("SELECT COUNT(*) FROM ") + table +
                            " WHERE AccountingExportDate IS NOT NULL")
              ->Fields(0));
    }
    return count;
  };
  const double sent_before = marked();
  auto till = [&shop](const char* workstation) {
    return std::async(std::launch::async, [&shop, workstation] {
      return shop.Lumaro({"--workstation", workstation, "export"});
    });
  };
  // Four runs, two at each till, so that they overlap however fast one is.
  std::vector<std::future<testsupport::ProgramResult>> runs;
  for (const char* workstation : {"1", "3", "1", "3"}) runs.push_back(till(workstation));
  for (auto& run : runs) {
    auto ended = run.get();
    ASSERT_EQ(ended.exit_code, 0) << ended.err;
  }

  // One file a point; point 02's has the records a single run writes, under
  // a header that names whichever till ran first.
  EXPECT_EQ(shop.ExchangeFileCount(), 2u);
  auto records = [](const std::string& bytes) { return bytes.substr(bytes.find("\r\n")); };
  const std::string point02 = ReadBytes(shop.InExchange("ETpv 02 0000042.txt"));
  EXPECT_EQ(records(point02),
            records(ReadBytes(testsupport::kExportData + "/ETpv 02 0000042.txt")));
  const std::string point05 = ReadBytes(shop.InExchange("ETpv 05 0000008.txt"));

  // Every document these runs marked as sent stands in exactly one record
  // of the two files.
  EXPECT_GT(DocumentRecords(point05), 0);
  EXPECT_EQ(DocumentRecords(point02) + DocumentRecords(point05), marked() - sent_before);

  // Nothing is left for a third run.
  ASSERT_EQ(shop.Lumaro({"export"}).exit_code, 0);
  EXPECT_EQ(shop.ExchangeFileCount(), 2u);
}

}  // namespace
