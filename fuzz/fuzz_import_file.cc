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

// What the initial load leaves in a shop's POS database and the records of
// the seed files refer to by the back office's codes: price lines, zones,
// customer groups, carriers, payment terms, a supplier, a unit, the item
// properties, a salesman, the root of the family tree and one family, and
// two customers, one made at the till and one whose id a file's customer
// would take.
constexpr char kShopRows[] = R"sql(
UPDATE ConfSystem SET RetentionTax = 20, TaxRegime = 3;
UPDATE PriceLine SET PriceLineKey = '1' WHERE PriceLineID = 1;
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description, LanguageID)
VALUES (2, 'PV2', 'PVP2', 'Preço de venda 2', 'PT'),
       (3, 'PV3', 'PVP3', 'Preço de venda 3', 'PT');
INSERT INTO Zone (ZoneID, ZoneKey, Description) VALUES (1, 'Z10', 'Norte'), (2, 'Z20', 'Sul'),
  (3, '1', 'Portugal continental');
INSERT INTO CustomerGroups (GroupID, GroupKey, Description)
VALUES (5, 'GR1', 'Revenda'), (6, 'RET', 'Retalho');
INSERT INTO Carrier (CarrierID, CarrierKey, Description)
VALUES (3, 'TR1', 'Transportes Um'), (4, 'TR2', 'Transportes Dois'), (5, 'T01', 'Lisboa');
INSERT INTO Payment (PaymentID, PaymentKey, Description)
VALUES (7, 'PG30', '30 dias'), (8, 'PG60', '60 dias'), (9, 'PP', 'Pronto pagamento');
INSERT INTO Supplier (SupplierID, SupplierKey, OrganizationName) VALUES (4, 'F1', 'Fornecedor Um');
INSERT INTO UnitOfMeasure (UnitOfMeasureID, Description, LanguageID, BaseUnitOfMeasureID,
  UnitRatio, UnitFormula)
VALUES ('CX', 'Caixa', 'PT', 'CX', 1, '');
INSERT INTO ItemProperty (PropertyID, Description, KeyDescription, PropertyKeyType, ControlMode,
  ControlType, UsePropertyTable, UseProductionDate, UseExpirationDate, ExpirationDateControl,
  MaximumQuantity)
VALUES ('CL', 'Controla Lotes', 'CL', 202, 0, 0, 0, 1, 1, 1, 0),
       ('CCT', 'Controla Cores/Tamanho', 'CCT', 202, 0, 0, 0, 0, 0, 1, 0),
       ('RLV', 'Regista Lotes na Venda', 'RLV', 202, 0, 1, 0, 1, 1, 1, 0),
       ('CNS', 'Controla Números de Série', 'CNS', 202, 0, 0, 0, 0, 0, 1, 1),
       ('RNV', 'Regista Nº de Série na Venda', 'RNV', 202, 0, 1, 0, 0, 0, 1, 1);
INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName, Comments, CountryID, SalesmanLevel,
  MaximumDiscount, SalesGroupID, ComissionOnSale, ComissionOnPay, ComissionIncidenceType,
  SpokenLanguageID)
VALUES (1, 'V01', 'Vendedor Antigo', 'antigo', '', 3, 10, 2, 5, 50, 1, 'EN');
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, ParentFamilyID, ParentFamilyName,
  FamilyLevel, FamilyPath, MaximumDiscount, IsServiceFamily, FamilyItemKind)
VALUES (1, 'GeneralFamily', 'Geral', 0, 'Geral', 0, 'Geral', 100, 0, 0),
       (2, '01', 'Bebida', 1, 'Geral', 1, 'Geral\Bebida', 50, 1, 1);
INSERT INTO FamilyProfitRate (FamilyID, LevelNumber, LevelValue)
VALUES (2, 1, 10), (2, 2, 20), (2, 3, 30);
INSERT INTO Party (PartyID, PartyType) VALUES (501, 1), (502, 1);
INSERT INTO PartyAddress (PartyID, AddressID, AddressLine1, AddressLine2, PostalCode)
VALUES (501, 0, 'Rua Velha', 'Gaia', '4400-001'), (502, 0, 'Rua X', 'Braga', '4700-001');
INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, FederalTaxID, CountryID,
  CurrencyID, AddressID, ZoneID, PaymentID, TenderID, TaxRegime, PriceLineID, SalesmanID,
  CarrierID, CreditCurrencyID)
VALUES (501, 'Exported', 'Cliente Balcão', '999999990', 'PT', 'EUR', 0, 2, 8, 10, 2, 3, 1, 4,
        'EUR'),
       (502, '9502', 'Outro Cliente', '500000000', 'PT', 'EUR', 0, 2, 7, 1, 1, 1, 1, 3, 'EUR');
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
    host_.Db().ExecuteScript(kShopRows);
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
