#include "standalone/StandaloneHost.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>

#include "connector/host/Ansi.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FileSystem.h"
#include "connector/host/Regional.h"
#include "connector/host/Text.h"
#include "standalone/odbc/OdbcDatabase.h"
#include "standalone/schema/PosDatabase.h"
#include "standalone/schema/PosSchema.h"
#include "standalone/schema/PosSchemaModel.h"
#include "standalone/services/SqliteAppUserServices.h"
#include "standalone/services/SqliteCommercialServices.h"
#include "standalone/services/SqliteCustomerLedgerService.h"
#include "standalone/services/SqliteCustomerService.h"
#include "standalone/services/SqliteDataMaintenance.h"
#include "standalone/services/SqliteDocumentService.h"
#include "standalone/services/SqliteEntityServices.h"
#include "standalone/services/SqliteFamilyService.h"
#include "standalone/services/SqliteItemService.h"
#include "standalone/services/SqlitePartnerServices.h"
#include "standalone/services/SqliteSalesmanService.h"
#include "standalone/services/SqliteSeriesCatalogue.h"
#include "standalone/services/SqliteStockDocument.h"
#include "standalone/services/SqliteTaxCalculator.h"
#include "standalone/services/SqliteWarehouseService.h"
#include "standalone/services/SqliteWorkstationSeriesService.h"
#include "standalone/sqlite/SqliteDatabase.h"

namespace standalone {
namespace {

class HostSystemManager : public host::SystemManager {
 public:
  explicit HostSystemManager(host::SystemContext& context) : context_(context) {}
  host::SystemContext& Context() override { return context_; }
  // Half away from zero, at the given number of decimals.
  double RoundValue(double value, int decimals) const override {
    return host::RoundDecimal(value, decimals);
  }
  // Customers keep their own numbers as party ids; each further party kind
  // (1 suppliers, 2 salesmen, 3 banks, ...) has a range ten thousand
  // million wide above them: the local id a of kind k is k * 10^10 + a.
  double PartyIDBase(double a, int kind) override { return kind * 1e10 + a; }

 private:
  host::SystemContext& context_;
};

// A value of an ODBC connection string, braced so that ";" and "=" in it
// stay inside it.
std::string OdbcValue(std::string_view value) {
  return "{" + host::Replace(value, "}", "}}") + "}";
}

// SQL Server through FreeTDS, as the settings describe it: the server (a
// host, or host\instance), the database, and integrated security or a login.
std::string SqlServerConnectionString(const host::DatabaseDescription& description) {
  std::string text = "DRIVER={FreeTDS};SERVER=" + OdbcValue(description.Server) +
                     ";DATABASE=" + OdbcValue(description.DatabaseName) + ";ClientCharset=UTF-8;";
  if (description.IntegratedSecurity) return text + "Trusted_Connection=Yes;";
  return text + "UID=" + OdbcValue(description.Login) + ";PWD=" + OdbcValue(description.Password) +
         ";";
}

class HostConnection : public host::DatabaseConnection, public host::DataManager {
 public:
  explicit HostConnection(PosEngine& database) : database_(database) {}
  host::DatabaseService& Database() override { return database_; }
  // The back office's database. A server "sqlite:FOLDER" is a back office
  // kept as the SQLite file FOLDER/<database name>.db, opened read-only: for
  // demonstrations and tests, and for the tools that build such files (keep
  // the naming). A server "odbc:CONNECTION" is reached through ODBC with
  // that connection string as it stands. Any other server is a SQL Server,
  // reached through ODBC with FreeTDS.
  std::shared_ptr<host::DatabaseService> OpenDatabase(
      const host::DatabaseDescription& description) override {
    constexpr std::string_view kFileServer = "sqlite:";
    constexpr std::string_view kOdbcServer = "odbc:";
    const std::string& server = description.Server;
    if (server.rfind(kFileServer, 0) == 0) {
      std::string folder = server.substr(kFileServer.size());
      return SqliteDatabase::Open(host::BuildPath(folder, description.DatabaseName + ".db"),
                                  SqliteDatabase::OpenMode::kReadOnly, "back-office database");
    }
    if (server.rfind(kOdbcServer, 0) == 0) {
      return OdbcDatabase::Connect(server.substr(kOdbcServer.size()));
    }
    return OdbcDatabase::Connect(SqlServerConnectionString(description));
  }
  host::DatabaseConnection& Connection() override { return *this; }
  std::vector<host::TableDefinition> PosSchema() override { return PosSchemaModel(); }
  std::string TableDescription(std::string_view table) override {
    return standalone::TableDescription(table);
  }

 private:
  PosEngine& database_;
};

class HostRegistry : public host::ConnectorRegistry, public host::ModuleManager {
 public:
  HostRegistry(host::SettingStore& store, PosEngine& database) : store_(store), series_(database) {}
  host::SettingStore& SettingStore() override { return store_; }
  host::SeriesCatalogue& SeriesCatalogue() override { return series_; }
  host::ConnectorRegistry& ConnectorRegistry() override { return *this; }

 private:
  host::SettingStore& store_;
  SqliteSeriesCatalogue series_;
};

class HostFileTools : public host::FileTools, public host::NameTools {
 public:
  // Appends "<date text> <message>" and CR LF, in the ANSI code page.
  void WriteLog(std::string_view date_text, std::string_view message, std::string_view folder,
                std::string_view file_name) override {
    std::string path = std::string(folder) + "/" + std::string(file_name);
    std::FILE* file = std::fopen(path.c_str(), "ab");
    if (file == nullptr) {
      host::RaiseWith(host::err::kPathNotFound, "Cannot write the log '" + path + "'", "FileTools");
    }
    std::string line = host::ToAnsi(std::string(date_text) + " " + std::string(message)) + "\r\n";
    bool ok = std::fwrite(line.data(), 1, line.size(), file) == line.size();
    ok = std::fclose(file) == 0 && ok;
    if (!ok) host::RaiseWith(57, "Cannot write the log '" + path + "'", "FileTools");
  }

  // The names the host keeps for its own groups.
  bool IsReserved(std::string_view name) const override {
    static constexpr std::string_view kReserved[] = {"ADMINISTRADOR", "ADMINISTRADORES", "SISTEMA",
                                                     "TODOS", "GERAL"};
    std::string upper = host::UCase(host::Trim(name));
    for (std::string_view reserved : kReserved) {
      if (upper == reserved) return true;
    }
    return false;
  }
};

}  // namespace

class StandaloneHost::Roots {
 public:
  Roots(StandaloneContext& context, PosEngine& database, host::SettingStore& store)
      : system(context), connection(database), registry(store, database) {}
  HostSystemManager system;
  HostConnection connection;
  HostRegistry registry;
  HostFileTools files;
};

std::unique_ptr<PosEngine> OpenPosDatabase(const std::string& path) {
  struct stat info;
  bool existed = ::stat(path.c_str(), &info) == 0;
  std::unique_ptr<SqliteDatabase> database;
  try {
    database = SqliteDatabase::Open(path, SqliteDatabase::OpenMode::kCreateIfMissing);
    PreparePosDatabase(*database);
    database->ShareWithTheTill();
  } catch (...) {
    database.reset();
    if (!existed) ::unlink(path.c_str());  // leave nothing behind
    throw;
  }
  return database;
}

std::unique_ptr<PosEngine> OpenPosServer(const std::string& connection_string) {
  std::unique_ptr<OdbcDatabase> database = OdbcDatabase::Connect(connection_string);
  // A field of a BIT column reads as a truth value, as on SQLite; a server
  // keeps it as a small integer.
  database->SetTruthColumns(PosSchemaModel());
  PreparePosDatabase(*database);
  return database;
}

StandaloneHost::StandaloneHost(std::unique_ptr<PosEngine> database,
                               std::unique_ptr<host::UIManager> ui, Identity identity)
    : database_(std::move(database)), ui_(std::move(ui)) {
  context_store_ = std::make_unique<HostContextStore>(*database_, database_->HomeFolder());
  context_ = std::make_unique<StandaloneContext>(
      *database_, *context_store_, identity.workstation_id, identity.user_id, identity.session_id);
  setting_store_ = std::make_unique<SqliteSettingStore>(*database_);
  roots_ = std::make_unique<Roots>(*context_, *database_, *setting_store_);
  ApplyRegionalSettings();
}

StandaloneHost::~StandaloneHost() = default;

void StandaloneHost::ApplyRegionalSettings() {
  host::SetCurrentRegional(context_store_->Regional());
}

host::SystemManager& StandaloneHost::SystemManager() { return roots_->system; }
host::DataManager& StandaloneHost::DataManager() { return roots_->connection; }
host::ModuleManager& StandaloneHost::ModuleManager() { return roots_->registry; }
host::FileTools& StandaloneHost::FileTools() { return roots_->files; }
const host::NameTools& StandaloneHost::NameTools() { return roots_->files; }

std::unique_ptr<host::SettingStore> StandaloneHost::NewSettingStore() {
  return std::make_unique<SqliteSettingStore>(*database_);
}

std::unique_ptr<host::TextSigner> StandaloneHost::NewTextSigner() {
  return std::make_unique<SodiumTextSigner>(context_->WorkFolder());
}

std::unique_ptr<host::SaleDocumentReader> StandaloneHost::NewSaleDocumentReader() {
  return std::make_unique<SqliteSaleDocumentReader>(*database_);
}

std::unique_ptr<host::CurrencyService> StandaloneHost::NewCurrencyService() {
  return std::make_unique<SqliteCurrencyService>(*database_);
}

std::unique_ptr<host::SalesmanService> StandaloneHost::NewSalesmanService() {
  return std::make_unique<SqliteSalesmanService>(*database_);
}

std::unique_ptr<host::CarrierService> StandaloneHost::NewCarrierService() {
  return std::make_unique<SqliteCarrierService>(*database_);
}

std::unique_ptr<host::PaymentService> StandaloneHost::NewPaymentService() {
  return std::make_unique<SqlitePaymentService>(*database_);
}

std::unique_ptr<host::TenderService> StandaloneHost::NewTenderService() {
  return std::make_unique<SqliteTenderService>(*database_, *context_);
}

std::unique_ptr<host::PriceLineService> StandaloneHost::NewPriceLineService() {
  return std::make_unique<SqlitePriceLineService>(*database_);
}

std::unique_ptr<host::ItemService> StandaloneHost::NewItemService() {
  return std::make_unique<SqliteItemService>(*database_);
}

std::unique_ptr<host::CustomerService> StandaloneHost::NewCustomerService() {
  return std::make_unique<SqliteCustomerService>(*database_);
}

std::unique_ptr<host::PartyAddressService> StandaloneHost::NewPartyAddressService() {
  return std::make_unique<SqlitePartyAddressService>(*database_);
}

std::unique_ptr<host::CustomerZoneService> StandaloneHost::NewCustomerZoneService() {
  return std::make_unique<SqliteCustomerZoneService>(*database_);
}

std::unique_ptr<host::CustomerGroupService> StandaloneHost::NewCustomerGroupService() {
  return std::make_unique<SqliteCustomerGroupService>(*database_);
}

std::unique_ptr<host::FamilyService> StandaloneHost::NewFamilyService() {
  return std::make_unique<SqliteFamilyService>(*database_);
}

std::unique_ptr<host::SupplierService> StandaloneHost::NewSupplierService() {
  return std::make_unique<SqliteSupplierService>(*database_, roots_->system);
}

std::unique_ptr<host::AppGroupService> StandaloneHost::NewAppGroupService() {
  return std::make_unique<SqliteAppGroupService>(*database_);
}

std::unique_ptr<host::AppUserService> StandaloneHost::NewAppUserService() {
  return std::make_unique<SqliteAppUserService>(*database_);
}

std::unique_ptr<host::ItemPropertyService> StandaloneHost::NewItemPropertyService() {
  return std::make_unique<SqliteItemPropertyService>(*database_);
}

std::unique_ptr<host::TaxCalculator> StandaloneHost::NewTaxCalculator() {
  return std::make_unique<SqliteTaxCalculator>(*database_);
}

std::unique_ptr<host::LoadUnloadPlaceService> StandaloneHost::NewLoadUnloadPlaceService() {
  return std::make_unique<SqliteLoadUnloadPlaceService>(*database_);
}

std::unique_ptr<host::WarehouseService> StandaloneHost::NewWarehouseService() {
  return std::make_unique<SqliteWarehouseService>(*database_);
}

std::unique_ptr<host::WorkstationSeriesService> StandaloneHost::NewWorkstationSeriesService() {
  return std::make_unique<SqliteWorkstationSeriesService>(*database_);
}

std::unique_ptr<host::BankService> StandaloneHost::NewBankService() {
  return std::make_unique<SqliteBankService>(*database_, roots_->system);
}

std::unique_ptr<host::CustomerLedgerService> StandaloneHost::NewCustomerLedgerService() {
  return std::make_unique<SqliteCustomerLedgerService>(*database_);
}

std::unique_ptr<host::UnitOfMeasureService> StandaloneHost::NewUnitOfMeasureService() {
  return std::make_unique<SqliteUnitOfMeasureService>(*database_);
}

std::unique_ptr<host::DocumentService> StandaloneHost::NewDocumentService() {
  return std::make_unique<SqliteDocumentService>(*database_, *context_);
}

std::unique_ptr<host::DataMaintenance> StandaloneHost::NewDataMaintenance() {
  return std::make_unique<SqliteDataMaintenance>();
}

std::unique_ptr<host::StockDocument> StandaloneHost::NewStockDocument() {
  return std::make_unique<SqliteStockDocument>(*database_);
}

host::Party StandaloneHost::NewParty(int16_t kind, double id) {
  host::Party party;
  party.PartyID = SystemManager().PartyIDBase(id, kind);
  party.PartyType = kind;
  return party;
}

}  // namespace standalone
