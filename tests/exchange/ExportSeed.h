#ifndef LUMARO_TESTS_EXCHANGE_EXPORT_SEED_H_
#define LUMARO_TESTS_EXCHANGE_EXPORT_SEED_H_

// A bench for export runs: a POS database with the connector attached, a
// recording notifier, an exchange folder in the test's temporary folder, a
// clock fixed at 14-03-2026 10:00:00, and small helpers that store settings,
// seed sales and receipts, and read back files, marks and numbers.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Ansi.h"
#include "connector/host/Date.h"
#include "connector/host/Text.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace exportseed {

// One exchange point of the stored settings.
struct Entry {
  std::string code = "02";
  std::string serial = "A";
  std::string list = "1";
  int32_t last = 0;
  bool active = true;
};

// A cash sale of series `serial`, with `lines` lines (each with its IVA row)
// and one tender line of tender 1 for its total.
struct Sale {
  int number = 1;
  std::string serial = "A";
  std::string document = "TVD";
  std::string created = "2026-03-10 09:00:00";
  int party = 0;
  int workstation = 1;
  int lines = 1;
  std::string exported = "NULL";  // AccountingExportDate as SQL
};

// A tender transaction TRC of series A on workstation 1.
struct Receipt {
  int number = 1;
  std::string created = "2026-03-10 11:00:00";
  std::string exported = "NULL";
};

// Today as the bench's clock has it, as a mark reads back.
inline constexpr char kToday[] = "14-03-2026";

struct ExportBench {
  explicit ExportBench(bool with_notifier = true) {
    host::SetClockOverride(host::MakeDate(2026, 3, 14, 10, 0, 0));
    std::filesystem::create_directory(folder);
    if (with_notifier) connector.SetEventNotifier(notifier);
    // A receipt document; keys found for salesman 1, carrier 1 and user 1,
    // so that a run's key caches fill.
    Exec(
        "INSERT INTO Documents (TransDocumentID, Description, DocumentSign) VALUES "
        "('TRC', 'Recibo', '+');"
        "INSERT INTO Salesman (SalesmanID, SalesmanKey) VALUES (1, 'V1');"
        "INSERT INTO Carrier (CarrierID, CarrierKey) VALUES (1, 'T1');");
  }

  void Exec(const std::string& sql) { test_host.Exec(sql); }
  std::string Scalar(const std::string& sql) { return test_host.Scalar(sql); }

  void Store(const std::vector<Entry>& entries, const std::string& path = "") {
    std::string xml = "<LumaroConnectorSetting ImportExportPath=\"" +
                      (path.empty() ? folder : path) +
                      "\" TillID=\"3\" SQLCompanyID=\"EMP01\" SQLCompanyYear=\"2026\">"
                      "<Workstations>";
    for (const Entry& e : entries) {
      xml += "<Workstation LumaroWorkstationID=\"" + e.code + "\" TransSerial=\"" + e.serial +
             "\" WorkstationList=\"" + e.list + "\" LastExportNumber=\"" + std::to_string(e.last) +
             "\" Active=\"" + (e.active ? "1" : "0") + "\"/>";
    }
    ASSERT_TRUE(connector.LoadDefaults(xml + "</Workstations></LumaroConnectorSetting>"));
  }

  // LastExportNumber of entry `index` as stored.
  int32_t LastNumber(int index) {
    lumaro::LumaroConnectorSetting settings;
    EXPECT_TRUE(test_host.Host().Settings().Load(settings));
    return settings.Workstation(index).LastExportNumber;
  }

  void AddCustomer(int id, const std::string& key = "") {
    Exec("INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, SalesmanID) VALUES (" +
         std::to_string(id) + ", '" + key + "', 'Cliente', 1)");
  }

  void AddSale(const Sale& s) {
    std::string number = std::to_string(s.number);
    Exec(
        "INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, "
        "PartyID, SalesmanID, CarrierID, CurrencyID, TotalTransactionAmount, WorkstationID, "
        "UserAlt, AccountingExportDate) VALUES ('" +
        s.serial + "', '" + s.document + "', " + number + ", '" + s.created + "', " +
        std::to_string(s.party) + ", 1, 1, 'EUR', 10, " + std::to_string(s.workstation) + ", 1, " +
        s.exported + ")");
    for (int line = 1; line <= s.lines; ++line) {
      std::string key =
          "'" + s.serial + "', '" + s.document + "', " + number + ", " + std::to_string(line);
      Exec(
          "INSERT INTO SaleTransactionDetails (TransSerial, TransDocument, TransDocNumber, "
          "LineItemID, ItemID, Description, Units, Quantity, UnitPrice, CreateDate) VALUES (" +
          key + ", 'ART1', 'Artigo', 1, 1, 10, '" + s.created +
          "');"
          "INSERT INTO TaxTransactionDetail (TransSerial, TransDocument, TransDocNumber, "
          "LineItemID, TaxGroupID, TaxRate) VALUES (" +
          key + ", 'IVA', 23)");
    }
    AddTenderLine(s.serial, s.document, s.number, 1, 1, 10);
  }

  // A receipt with one tender line for each (tender, amount), TransOrder from 1.
  void AddReceipt(const Receipt& r, const std::vector<std::pair<int, double>>& tenders = {{1, 5}}) {
    Exec(
        "INSERT INTO TenderTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, "
        "WorkstationID, UserAlt, AccountingExportDate) VALUES ('A', 'TRC', " +
        std::to_string(r.number) + ", '" + r.created + "', 1, 1, " + r.exported + ")");
    int order = 1;
    for (const auto& [tender, amount] : tenders) {
      AddTenderLine("A", "TRC", r.number, order++, tender, amount);
    }
  }

  void AddTenderLine(const std::string& serial, const std::string& document, int number, int order,
                     int tender, double amount) {
    Exec(
        "INSERT INTO TenderLineItem (TransSerial, TransDocument, TransDocNumber, TransOrder, "
        "TenderID, Amount) VALUES ('" +
        serial + "', '" + document + "', " + std::to_string(number) + ", " + std::to_string(order) +
        ", " + std::to_string(tender) + ", " + std::to_string(amount) + ")");
  }

  // AccountingExportDate of a sale or receipt ("" while pending).
  std::string Mark(const std::string& table, int number, const std::string& serial = "A") {
    return Scalar("SELECT AccountingExportDate FROM " + table + " WHERE TransSerial='" + serial +
                  "' AND TransDocNumber=" + std::to_string(number));
  }

  // The names of the files in the exchange folder, sorted.
  std::vector<std::string> Files() const {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(folder)) {
      names.push_back(file.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  std::string PathOf(const std::string& name) const { return folder + "/" + name; }

  // The records of an export file, each split into its positions.
  std::vector<std::vector<std::string>> Records(const std::string& name) const {
    std::vector<std::vector<std::string>> records;
    for (const std::string& line : host::ReadAnsiLines(PathOf(name))) {
      records.push_back(host::Split(line, "^"));
    }
    return records;
  }

  // The tags of an export file's records, blank-separated: "HF FC FP FL".
  std::string Tags(const std::string& name) const {
    std::vector<std::string> tags;
    for (const auto& record : Records(name)) tags.push_back(record.at(0));
    return host::Join(tags, " ");
  }

  // The records of one tag.
  std::vector<std::vector<std::string>> Tagged(const std::string& name,
                                               const std::string& tag) const {
    std::vector<std::vector<std::string>> found;
    for (auto& record : Records(name)) {
      if (record.at(0) == tag) found.push_back(std::move(record));
    }
    return found;
  }

  testsupport::TestHost test_host;
  lumaro::LumaroConnector connector{test_host.Host()};
  std::shared_ptr<testsupport::RecordingNotifier> notifier =
      std::make_shared<testsupport::RecordingNotifier>();
  std::string folder = test_host.Folder().File("exchange");
};

}  // namespace exportseed

#endif  // LUMARO_TESTS_EXCHANGE_EXPORT_SEED_H_
