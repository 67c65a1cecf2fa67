// The import of one back-office file, end to end: the file is written as
// ITpv1.txt into the exchange folder of a shop's POS database and imported
// by the connector as the host would have it: line reading, the header, the
// count and every pass, with the services of the stand-alone host over
// SQLite.
//
// An input that does not begin with "HF" gets a header of this company and
// year in front, so that the passes are reached; one that does begins with
// its own header, and tests that too.
//
// Every input starts from the same database: the run happens inside an outer
// transaction that is rolled back afterwards, every level of it (the import
// leaves the file's own transaction open when it fails, for its caller to
// roll back). A raised host::Error is a valid outcome: a record with too few
// fields or a number that is none stops the file. Findings are a crash, a
// sanitizer report, any other exception, and an import that ends its
// caller's transaction or commits anything to the database file: the
// transaction it was called in must still be open when it returns, and
// once that is rolled back the file must be as it was before the input.
// And when the import stops at the file, the file check (`lumaro check`),
// which reads it by the same rules on the same database, must list a line
// that stops it: the check exists to show a person what the import would
// fail on.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Date.h"
#include "connector/host/EntityServices.h"
#include "connector/host/Error.h"
#include "exchange/import/ImportFileCheck.h"
#include "fuzz/FuzzHost.h"

namespace {

constexpr std::string_view kHeader = "HF^4^1^EMP01^2026\r\n";

// What the POS holds before a back-office file arrives: the scenario's rows
// (zones, groups, price lines, carriers, payments, item properties, the
// customers in the way of its numbers, the family tree), and the keys of the
// example shop's files, so that the seeds of both reach their passes.
const std::string kScenarioRows =
    std::string(LUMARO_SOURCE_DIR) + "/tests/data/import/scenario/pos-seed.sql";
constexpr char kExampleKeys[] = R"sql(
UPDATE PriceLine SET PriceLineKey = '1' WHERE PriceLineID = 1;
INSERT INTO Zone (ZoneID, ZoneKey, Description) VALUES (3, '1', 'Portugal continental');
INSERT INTO CustomerGroups (GroupID, GroupKey, Description) VALUES (6, 'RET', 'Retalho');
INSERT INTO Carrier (CarrierID, CarrierKey, Description) VALUES (5, 'T01', 'Lisboa');
INSERT INTO Payment (PaymentID, PaymentKey, Description) VALUES (9, 'PP', 'Pronto pagamento');
)sql";

[[noreturn]] void Broken(const char* promise, const std::string& detail = "") {
  std::fprintf(stderr, "the import breaks its promise: %s\n%s", promise, detail.c_str());
  std::abort();
}

// The change counter of a database file (bytes 24 to 27 of its header),
// which every commit moves. The POS database keeps its rollback journal
// (never WAL here), so the counter in the file is always current.
uint32_t ChangeCounter(const std::string& path) {
  unsigned char header[28] = {};
  std::ifstream file(path, std::ios::binary);
  file.read(reinterpret_cast<char*>(header), sizeof header);
  if (!file) throw std::runtime_error("cannot read the header of " + path);
  return static_cast<uint32_t>(header[24]) << 24 | static_cast<uint32_t>(header[25]) << 16 |
         static_cast<uint32_t>(header[26]) << 8 | static_cast<uint32_t>(header[27]);
}

// The shop: its POS database with the rows above, the settings stored (company
// EMP01 of 2026, no restriction by group, zone, salesman, family or price
// line, one active exchange point) and an empty exchange folder.
class Shop {
 public:
  Shop() : exchange_(host_.Folder().File("exchange")) {
    std::filesystem::create_directory(exchange_);
    std::ifstream seed(kScenarioRows, std::ios::binary);
    std::string rows((std::istreambuf_iterator<char>(seed)), std::istreambuf_iterator<char>());
    if (rows.empty()) throw std::runtime_error("cannot read " + kScenarioRows);
    host_.Db().ExecuteScript(rows);
    host_.Db().ExecuteScript(kExampleKeys);
    connector_.SetEventNotifier(std::make_shared<fuzzsupport::QuietNotifier>(host_.Host()));
    const std::string xml =
        "<LumaroConnectorSetting LumaroDelegationID=\"1\" ImportExportPath=\"" + exchange_ +
        "\" LastImportNumber=\"0\" TillID=\"3\" SQLDataSource=\"backoffice\" "
        "SQLCompanyID=\"EMP01\" SQLCompanyYear=\"2026\" SQLAuthentication=\"1\" "
        "SQLUserName=\"pos\" InitializeFamilyLevel=\"3\"><Workstations>"
        "<Workstation LumaroWorkstationID=\"02\" TransSerial=\"A\" WorkstationList=\"1,2\" "
        "LastExportNumber=\"0\" Active=\"1\"/></Workstations></LumaroConnectorSetting>";
    if (!connector_.LoadDefaults(xml)) throw std::runtime_error("the settings were not stored");
    // A run over the empty folder makes what a first run makes once (the
    // log table, the tax classes), outside the inputs' transactions.
    connector_.ImportData();
    committed_ = ChangeCounter(host_.Db().Path());
    if (!host_.Host().Settings().Load(settings_)) throw std::runtime_error("no settings stored");
  }

  void Import(std::string_view bytes) {
    const std::string path = exchange_ + "/ITpv1.txt";
    {
      std::ofstream file(path, std::ios::binary | std::ios::trunc);
      file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    standalone::SqliteDatabase& db = host_.Db();
    db.BeginTrans();
    std::optional<host::Error> stopped;
    try {
      connector_.ImportData();
    } catch (const host::Error& error) {
      stopped = error;  // a file the import refuses: valid for bad input
    }
    if (!db.InTransaction()) Broken("the caller's transaction is still open when it returns");
    host_.RollBackAll();
    if (ChangeCounter(db.Path()) != committed_) Broken("it commits nothing behind its caller");
    // The check reads the database as the import found it, as it is again.
    if (stopped && CheckFile(path).empty()) {
      Broken("the file check lists a line of every file the import stops at",
             std::string("  the import stopped with ") + stopped->what() + "\n");
    }
    // The import file and the error file the run may have written beside it.
    for (const auto& entry : std::filesystem::directory_iterator(exchange_)) {
      std::filesystem::remove(entry.path());
    }
  }

 private:
  // The problems `lumaro check` lists for the file.
  std::vector<lumaro::ImportFileCheck::Problem> CheckFile(const std::string& path) {
    std::unique_ptr<host::CustomerService> customers = host_.Host().NewCustomerService();
    lumaro::ImportFileCheck check(settings_, [&customers](const std::string& key) {
      return customers->GetCustomerIDFromKey(key) != 0;
    });
    return check.Check(path, host::Today());
  }

  fuzzsupport::FuzzHost host_;
  std::string exchange_;
  lumaro::LumaroConnector connector_{host_.Host()};
  uint32_t committed_ = 0;                   // the file's change counter before any input
  lumaro::LumaroConnectorSetting settings_;  // as stored
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static Shop* shop = new Shop();  // one database for the whole process
  std::string bytes(reinterpret_cast<const char*>(data), size);
  if (!bytes.starts_with("HF")) bytes.insert(0, kHeader);
  shop->Import(bytes);
  return 0;
}
