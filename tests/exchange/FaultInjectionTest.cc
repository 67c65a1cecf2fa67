// Faults injected into import and export runs: every statement of a sample
// run failed in turn, and writes to the exchange files failed in turn. What
// must hold whatever fails: an import file is in the POS database whole or
// not at all, and the export leaves what its failure is said to leave (the
// partial file, the marks made so far, the number as it was), so that the
// next run meets the file and stops.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "tests/exchange/ExportSeed.h"
#include "tests/support/Faults.h"
#include "tests/support/TestHost.h"

namespace {

using testsupport::StatementFault;
using testsupport::WriteFault;

const std::string kExamples = std::string(LUMARO_SOURCE_DIR) + "/examples";

constexpr const char* kImportTables[] = {
    "Salesman",    "Customer",         "PartyAddress", "Party",
    "Family",      "FamilyProfitRate", "Item",         "ItemSellingPrices",
    "POSIdentity", "ItemComponents",   "StockProperty"};

// The rows of every table an import writes, as text.
std::string ImportedRows(testsupport::TestHost& test_host) {
  std::string dump;
  for (const char* table : kImportTables) {
    auto rs =
        test_host.Db().OpenRecordset(std::string("SELECT * FROM ") + table + " ORDER BY 1, 2, 3");
    dump += table;
    for (; !rs->Eof(); rs->MoveNext()) {
      dump += "\n ";
      for (int i = 0; i < rs->FieldCount(); ++i) {
        dump += host::FieldConverter::ToText(rs->Fields(i)) + "|";
      }
    }
    dump += "\n";
  }
  return dump;
}

// How many rows each of those tables holds.
std::string RowCounts(testsupport::TestHost& test_host) {
  std::string counts;
  for (const char* table : kImportTables) {
    counts += test_host.Scalar(std::string("SELECT COUNT(*) FROM ") + table) + " ";
  }
  return counts;
}

// A shop with what the initial load leaves, its settings and the example's
// file of every kind of record in its exchange folder.
struct ImportBench {
  ImportBench() {
    host::SetClockOverride(host::MakeDate(2026, 11, 20, 18, 30, 0));
    notifier->settings = test_host.Host().Context().Settings();
    connector.SetEventNotifier(notifier);
    test_host.Exec(testsupport::ReadBytes(kExamples + "/shop-setup.sql"));
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(kExamples + "/import/ITpv0000001.txt", folder + "/ITpv0000001.txt");
    EXPECT_TRUE(connector.LoadDefaults(
        "<LumaroConnectorSetting ImportExportPath=\"" + folder +
        "\" SQLCompanyID=\"EMP01\" SQLCompanyYear=\"2026\"><Workstations><Workstation "
        "LumaroWorkstationID=\"02\" TransSerial=\"A\" WorkstationList=\"1\" Active=\"1\"/>"
        "</Workstations></LumaroConnectorSetting>"));
  }

  // The import as lumaro runs it: a failure rolls back what it left open.
  std::optional<host::Error> Import() {
    try {
      connector.ImportData();
      return std::nullopt;
    } catch (const host::Error& error) {
      while (test_host.Db().InTransaction()) test_host.Db().RollbackTrans();
      return error;
    }
  }

  // The log's rows; none while the run that makes its table has not run.
  std::string LogRows() {
    if (!test_host.Db().Schema().TableExists("LumaroLog")) return "";
    return test_host.Rows("SELECT Filename FROM LumaroLog");
  }
  double LastImportNumber() {
    lumaro::LumaroConnectorSetting settings;
    EXPECT_TRUE(test_host.Host().Settings().Load(settings));
    return settings.LastImportNumber;
  }

  testsupport::TestHost test_host;
  lumaro::LumaroConnector connector{test_host.Host()};
  std::shared_ptr<testsupport::RecordingNotifier> notifier =
      std::make_shared<testsupport::RecordingNotifier>();
  std::string folder = test_host.Folder().File("exchange");
};

TEST(ImportFaults, EveryFailedStatementLeavesTheFileWholeOrAbsent) {
  // A run without a fault: how many statements, and which one commits the file.
  ImportBench clean;
  int64_t statements;
  int64_t commit_at = 0;
  {
    StatementFault counter(clean.test_host.Db(), 0);
    ASSERT_FALSE(clean.Import());
    statements = counter.count();
    const auto& texts = counter.texts();
    for (int64_t i = 0; i < statements; ++i) {
      if (texts[i].rfind("INSERT INTO [LumaroLog]", 0) == 0) break;
      if (texts[i] == "COMMIT") commit_at = i + 1;
    }
  }
  const std::string whole = ImportedRows(clean.test_host);
  ASSERT_GT(commit_at, 100);
  RecordProperty("faults", std::to_string(statements));

  const std::string whole_counts = RowCounts(clean.test_host);
  for (int64_t n = 1; n <= statements; ++n) {
    SCOPED_TRACE("statement " + std::to_string(n));
    ImportBench bench;
    const std::string before = ImportedRows(bench.test_host);
    const std::string before_counts = RowCounts(bench.test_host);
    bool raised;
    {
      StatementFault fault(bench.test_host.Db(), n);
      // Raises, or goes on where a failure is only logged (the tax classes,
      // the log's own statements) or ends the run quietly.
      raised = bench.Import().has_value();
      ASSERT_TRUE(fault.fired());
    }
    const std::string counts = RowCounts(bench.test_host);
    if (raised && n <= commit_at) {
      EXPECT_EQ(ImportedRows(bench.test_host), before);
    }
    if (counts == before_counts) {
      EXPECT_EQ(bench.LogRows(), "");
      EXPECT_EQ(bench.LastImportNumber(), 0);
    }
    const bool refused = counts != before_counts && counts != whole_counts;
    if (refused) {
      // A record whose save failed is refused, not lost: it stands in the
      // error file, and the rest of the file is in.
      EXPECT_TRUE(
          testsupport::FileExists(bench.folder + "/Erros de importação de ITpv0000001.txt"));
      EXPECT_EQ(bench.LogRows(), "ITpv0000001.txt");
    }
    // Touched, the file comes in whole, and right (a refused record takes
    // the next id, so only its count is the same).
    auto file = std::filesystem::path(bench.folder) / "ITpv0000001.txt";
    std::filesystem::last_write_time(
        file, std::filesystem::last_write_time(file) + std::chrono::minutes(1));
    EXPECT_FALSE(bench.Import());
    if (refused) {
      EXPECT_EQ(RowCounts(bench.test_host), whole_counts);
    } else {
      EXPECT_EQ(ImportedRows(bench.test_host), whole);
    }
    EXPECT_EQ(bench.LogRows(), "ITpv0000001.txt");
  }
}

TEST(ImportFaults, AFailedWriteToTheErrorFileRollsTheFileBack) {
  // The file's last line is refused at its save (a name longer than its
  // column), so the import writes three lines to the error file.
  for (int64_t n = 1; n <= 3; ++n) {
    SCOPED_TRACE("write " + std::to_string(n));
    ImportBench bench;
    std::ofstream(bench.folder + "/ITpv0000001.txt", std::ios::app | std::ios::binary)
        << "CL^2009^" << std::string(101, 'n') << "^^^^^^^^^^^^^^0^^^^C^0^^0\r\n";
    const std::string before = ImportedRows(bench.test_host);
    std::optional<host::Error> error;
    {
      WriteFault fault(n);
      error = bench.Import();
      EXPECT_TRUE(fault.fired());
    }
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Number(), host::err::kDeviceIoError);
    EXPECT_EQ(ImportedRows(bench.test_host), before);
    EXPECT_EQ(bench.LogRows(), "");
  }
}

// A shop day to export: a customer made at the till, three sales (one of
// the customer) and two receipts, for one exchange point.
struct ExportDay : exportseed::ExportBench {
  ExportDay() {
    Store({exportseed::Entry{}});
    AddCustomer(1001);
    AddSale({.number = 1, .party = 1001, .lines = 2});
    AddSale({.number = 2, .lines = 3});
    AddSale({.number = 3, .created = "2026-03-11 09:00:00"});
    AddReceipt({.number = 7});
    AddReceipt({.number = 8, .created = "2026-03-12 11:00:00"});
  }

  // The export as lumaro runs it.
  std::optional<host::Error> Export() {
    try {
      connector.ExportData();
      return std::nullopt;
    } catch (const host::Error& error) {
      return error;
    }
  }

  std::string FileBytes() { return testsupport::ReadBytes(PathOf(kFile)); }

  // What a failed export must leave: its number as it was, and nothing
  // marked that is not in the file it left (a document marked and not sent
  // would be lost to the back office).
  void ExpectNothingLost() {
    EXPECT_EQ(LastNumber(1), 0);
    std::string file = testsupport::FileExists(PathOf(kFile)) ? FileBytes() : "";
    for (int number : {1, 2, 3, 7, 8}) {  // the sales, then the receipts
      const bool sale = number < 7;
      if (!Mark(sale ? "SaleTransaction" : "TenderTransaction", number).empty()) {
        const std::string head = (sale ? "FC^TVD^02^" : "TC^TRC^02^") + std::to_string(number);
        EXPECT_NE(file.find(head + "^"), std::string::npos) << number;
      }
    }
    if (Scalar("SELECT CustomerKey FROM Customer WHERE CustomerID=1001") == "Exported") {
      EXPECT_NE(file.find("CL^02^1001^"), std::string::npos);
    }
    if (file.empty()) {
      // No file: nothing may be marked, and the next run sends it all.
      EXPECT_EQ(
          Scalar("SELECT COUNT(*) FROM SaleTransaction WHERE AccountingExportDate IS NOT NULL"),
          "0");
    } else {
      // A file left behind stops the point at the next run, until a person
      // removes it and sends the dates again.
      EXPECT_FALSE(Export());
      EXPECT_EQ(test_host.UI().boxes.back().text, "O ficheiro " + PathOf(kFile) + " já existe!");
      EXPECT_EQ(Files(), std::vector<std::string>{kFile});
      EXPECT_EQ(LastNumber(1), 0);
    }
  }

  static constexpr char kFile[] = "ETpv 02 0000001.txt";
};

TEST(ExportFaults, EveryFailedStatementLeavesTheFileAndMarksAsTheyMustBe) {
  ExportDay clean;
  int64_t statements;
  {
    StatementFault counter(clean.test_host.Db(), 0);
    ASSERT_FALSE(clean.Export());
    statements = counter.count();
  }
  const std::string whole = clean.FileBytes();
  RecordProperty("faults", std::to_string(statements));
  for (int64_t n = 1; n <= statements; ++n) {
    SCOPED_TRACE("statement " + std::to_string(n));
    ExportDay day;
    bool raised;
    {
      StatementFault fault(day.test_host.Db(), n);
      raised = day.Export().has_value();
      ASSERT_TRUE(fault.fired());
    }
    if (raised) {
      day.ExpectNothingLost();
    } else if (testsupport::FileExists(day.PathOf(ExportDay::kFile))) {
      // Failures the run passes over (the log's row): the file is whole.
      EXPECT_EQ(day.FileBytes(), whole);
      EXPECT_EQ(day.LastNumber(1), 1);
    }
  }
}

TEST(ExportFaults, EveryFailedWriteLeavesThePartialFileAndStops) {
  ExportDay clean;
  int64_t writes;
  {
    WriteFault counter(0);
    ASSERT_FALSE(clean.Export());
    writes = counter.count();
  }
  ASSERT_GT(writes, 8);
  RecordProperty("faults", std::to_string(writes));
  for (int64_t n = 1; n <= writes; ++n) {
    SCOPED_TRACE("write " + std::to_string(n));
    ExportDay day;
    std::optional<host::Error> error;
    {
      WriteFault fault(n);
      error = day.Export();
      ASSERT_TRUE(fault.fired());
    }
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->Source(), "<ExportData>");
    day.ExpectNothingLost();
  }
}

}  // namespace
