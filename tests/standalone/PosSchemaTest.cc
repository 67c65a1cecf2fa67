#include "standalone/schema/PosSchema.h"

#include <sqlite3.h>
#include <stdlib.h>

#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "gtest/gtest.h"

namespace standalone {
namespace {

struct ColumnInfo {
  std::string name;
  std::string type;
  bool not_null;
  int pk;  // position in the primary key, from 1; 0 when not in it
  bool operator==(const ColumnInfo&) const = default;
};

// A fresh POS database in a temporary folder, with the schema and the factory
// data in it.
class PosSchema : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string folder = (std::filesystem::temp_directory_path() / "posschemaXXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    ASSERT_EQ(sqlite3_open((folder_ / "pos.db").string().c_str(), &db_), SQLITE_OK);
    ASSERT_EQ(Run("BEGIN"), "");
    for (std::string_view statement : PosSchemaStatements()) {
      ASSERT_EQ(Run(statement), "") << statement;
    }
    for (std::string_view statement : FactoryDataStatements()) {
      ASSERT_EQ(Run(statement), "") << statement;
    }
    ASSERT_EQ(Run("COMMIT"), "");
  }

  void TearDown() override {
    sqlite3_close(db_);
    std::filesystem::remove_all(folder_);
  }

  // Runs one statement; the database's message on failure, else "".
  std::string Run(std::string_view sql) {
    char* error = nullptr;
    std::string text(sql);
    if (sqlite3_exec(db_, text.c_str(), nullptr, nullptr, &error) == SQLITE_OK) return "";
    std::string message = error ? error : "failed";
    sqlite3_free(error);
    return message;
  }

  // The first column of every row of a query, as text ("NULL" for NULL).
  std::vector<std::string> Column(const std::string& sql) {
    std::vector<std::string> values;
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(db_) << " in " << sql;
    while (statement && sqlite3_step(statement) == SQLITE_ROW) {
      const unsigned char* text = sqlite3_column_text(statement, 0);
      values.push_back(text ? reinterpret_cast<const char*>(text) : "NULL");
    }
    sqlite3_finalize(statement);
    return values;
  }

  std::vector<ColumnInfo> Columns(const std::string& table) {
    std::vector<ColumnInfo> columns;
    sqlite3_stmt* statement = nullptr;
    std::string sql = "PRAGMA table_info(" + table + ")";
    EXPECT_EQ(sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      columns.push_back({reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)),
                         reinterpret_cast<const char*>(sqlite3_column_text(statement, 2)),
                         sqlite3_column_int(statement, 3) != 0, sqlite3_column_int(statement, 5)});
    }
    sqlite3_finalize(statement);
    return columns;
  }

  std::string TypeOf(const std::string& table, const std::string& column) {
    for (const ColumnInfo& info : Columns(table)) {
      if (info.name == column) return info.type;
    }
    return "(missing)";
  }

  std::filesystem::path folder_;
  sqlite3* db_ = nullptr;
};

TEST_F(PosSchema, IsVersioned) {
  EXPECT_EQ(Column("PRAGMA user_version"),
            std::vector<std::string>{std::to_string(kPosSchemaVersion)});
}

TEST_F(PosSchema, ColumnsTheConnectorReadsHaveTheirTypes) {
  struct Case {
    const char* table;
    const char* column;
    const char* type;
  };
  const Case cases[] = {
      {"SaleTransaction", "AccountingExportDate", "DATETIME"},
      {"SaleTransaction", "TransDocNumber", "INTEGER"},
      {"SaleTransaction", "TransStatus", "SMALLINT"},
      {"SaleTransaction", "TransactionTaxIncluded", "BIT"},
      {"SaleTransaction", "TotalTransactionAmount", "MONEY"},
      {"SaleTransaction", "LoadPlaceDateTime", "DATETIME"},
      {"SaleTransactionDetails", "TotalNetPrintAmout", "MONEY"},
      {"SaleTransactionDetails", "Units", "FLOAT"},
      {"TransactionPropDetails", "PropertyValue1", "VARCHAR(50)"},
      {"TaxTransactionDetail", "TaxRate", "FLOAT"},
      {"Customer", "CustomerKey", "VARCHAR(20)"},
      {"Customer", "AplyRetentionTax", "BIT"},
      {"PartyAddress", "AddressLine1", "VARCHAR(100)"},
      {"TenderTransaction", "AccountingExportDate", "DATETIME"},
      {"TenderLineItem", "TenderID", "INTEGER"},
      {"CheckTenderLineItem", "CheckSequenceNumber", "VARCHAR(30)"},
      {"Documents", "UsesPayment", "BIT"},
      {"Documents", "DocumentSign", "VARCHAR(1)"},
      {"Documents", "PaymentMode", "SMALLINT"},
      {"Currency", "ExportCode", "INTEGER"},
      {"Salesman", "ComissionOnSale", "FLOAT"},
      {"Item", "ItemID", "VARCHAR(30)"},
      {"StockProperty", "ProductionDate", "DATETIME"},
      {"ConfSystem", "CustomerRangeEnd", "FLOAT"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(TypeOf(c.table, c.column), c.type) << c.table << "." << c.column;
  }
}

// The export reads a voided document from the second table of each pair with
// the query of the first.
TEST_F(PosSchema, VoidedTablesKeepTheLayoutOfTheLiveOnes) {
  const std::pair<const char*, const char*> pairs[] = {
      {"SaleTransactionDetails", "PostVoidTransaction"},
      {"TransactionPropDetails", "PostVoidTranPropDetails"},
      {"TaxTransactionDetail", "PostVoidTaxTransactionDetail"},
  };
  for (const auto& [live, voided] : pairs) {
    EXPECT_FALSE(Columns(live).empty()) << live;
    EXPECT_EQ(Columns(live), Columns(voided)) << live << " / " << voided;
  }
}

// A type outside the rule would silently read as text.
TEST_F(PosSchema, EveryDeclaredTypeFollowsTheRule) {
  const std::regex allowed(
      R"(VARCHAR\(\d+\)|TEXT|SMALLINT|INTEGER|BIGINT|FLOAT|MONEY|DATETIME|BIT|IMAGE)");
  std::vector<std::string> tables = Column("SELECT name FROM sqlite_master WHERE type='table'");
  EXPECT_GT(tables.size(), 150u);
  for (const std::string& table : tables) {
    for (const ColumnInfo& column : Columns(table)) {
      EXPECT_TRUE(std::regex_match(column.type, allowed))
          << table << "." << column.name << " is " << column.type;
    }
  }
}

TEST_F(PosSchema, KeysOfTheDocumentsAndLines) {
  const std::pair<const char*, const char*> keys[] = {
      {"SaleTransaction", "TransSerial,TransDocument,TransDocNumber"},
      {"SaleTransactionDetails",
       "TransSerial,TransDocument,TransDocNumber,LineItemID,LineItemSubID"},
      {"TenderTransaction", "TransSerial,TransDocument,TransDocNumber"},
      {"TenderLineItem", "TransSerial,TransDocument,TransDocNumber,TransOrder"},
      {"CheckTenderLineItem", "TransSerial,TransDocument,TransDocNumber,TransOrder"},
      {"Customer", "CustomerID"},
      {"PartyAddress", "PartyID,AddressID"},
      {"Stock", "ItemID,WarehouseID,ColorID,SizeID,LotID"},
  };
  for (const auto& [table, expected] : keys) {
    std::vector<ColumnInfo> columns = Columns(table);
    std::string joined;
    for (int position = 1; position <= static_cast<int>(columns.size()); ++position) {
      for (const ColumnInfo& column : columns) {
        if (column.pk == position) joined += (joined.empty() ? "" : ",") + column.name;
      }
    }
    EXPECT_EQ(joined, expected) << table;
  }
}

// The connector's own statements, in the form the SQLite database service
// gives them, must find every table and column they name.
TEST_F(PosSchema, StatementsOfTheConnectorPrepare) {
  std::vector<std::string> statements = {
      "SELECT Customer.*, PartyAddress.* FROM (Customer INNER JOIN SaleTransaction ON "
      "(SaleTransaction.PartyID = Customer.CustomerID)) LEFT JOIN PartyAddress ON "
      "(PartyAddress.PartyID = Customer.CustomerID AND PartyAddress.AddressID=0) WHERE "
      "SaleTransaction.AccountingExportDate Is Null AND SaleTransaction.WorkstationID IN (1) "
      "AND SaleTransaction.TransSerial ='A' AND Customer.CustomerKey =''",
      "SELECT TenderLineItem.TransSerial, Min(TenderLineItem.TenderID) AS MinTenderID, "
      "Sum(TenderLineItem.Amount) AS SumAmount, CheckTenderLineItem.CheckSequenceNumber FROM "
      "TenderLineItem LEFT JOIN CheckTenderLineItem ON "
      "(CheckTenderLineItem.TransOrder=TenderLineItem.TransOrder) GROUP BY "
      "TenderLineItem.TenderID, CheckTenderLineItem.CheckSequenceNumber",
      "SELECT STD.*, TPD.PropertyValue1 FROM PostVoidTransaction AS STD LEFT JOIN "
      "PostVoidTranPropDetails AS TPD ON (TPD.LineItemSubID=STD.LineItemSubID) WHERE "
      "STD.LineItemSubID=0",
      "SELECT TaxRate FROM TaxTransactionDetail AS TTD WHERE LineItemSubID=0 AND "
      "TTD.TaxGroupID='IVA'",
      "SELECT TT.*, TLI.TenderID FROM TenderTransaction AS TT LEFT JOIN TenderLineItem AS TLI "
      "ON (TLI.TransSerial=TT.TransSerial) WHERE TT.CreateDate BETWEEN '2026-01-01 00:00:00' "
      "AND '2026-01-02 00:00:00' AND TLI.TransOrder=1",
      "SELECT AppUserKey FROM AppUsers WHERE AppUserID=1",
      "SELECT GroupKey FROM CustomerGroups WHERE GroupID=1",
      "UPDATE Customer SET CustomerKey='Exported' WHERE CustomerID=1",
      "UPDATE TenderTransaction SET AccountingExportDate='2026-01-01 00:00:00'",
      "INSERT INTO StockProperty (ItemID, WarehouseID, PropertyValue1, ProductionDate, "
      "ExpirationDate, PhysicalQty, PhysicalUnits,CurrencyID, CurrencyExchange, CurrencyFactor, "
      "WorkstationID,SessionID, UserAlt, DtAlt, HrAlt) SELECT 'A1', WarehouseID, 'L1', Null, "
      "Null,1,1,'EUR', 1, 1, 1, 1, 1, '2026-01-01 00:00:00', '14:00:00' FROM Warehouse WHERE "
      "WarehouseID=1",
      "UPDATE Item SET PropertyID1='CL' WHERE ItemID ='A1'",
      "UPDATE Stock SET ReorderPoint=1, RestockLevel=1, BinLocation='' WHERE ItemID='A1' AND "
      "WarehouseID=1 AND ColorID=0 AND SizeID=0",
      "UPDATE ConfSystem SET UseUnitWithFormulaItems = 1, UnitOfMeasureDesc1 = 'x', "
      "CustomerRangeStart=1, CustomerRangeEnd=2, AplySalesRetentionTax = 0, RetentionTax=0, "
      "UseCompositeItems = 1, UsePropertyItems = 1, TaxRegionID = 'MA'",
      "UPDATE ConfSpecial SET Active =0 WHERE ConfSpecialID=40",
      "UPDATE TaxTable SET TaxExemptionReason='M07' WHERE TaxGroupID ='IVA' AND TaxSequenceID=4",
      "DELETE FROM LocalityCodes WHERE [CountryID] = 'PT' AND ProvinceID ='07'",
      "Update Salesman SET UserAlt=0",
      "DELETE FROM [TenderNames] WHERE [TenderID]<>10 AND [TenderID] NOT IN (SELECT DISTINCT "
      "TenderID FROM SaleTransaction)",
      "DELETE FROM [ItemSellingPrices] WHERE length([LotID]) > 0",
      "UPDATE Item SET CustomerOrderQty=0, AvailableUnits=0, AverageCostPrice=0, "
      "LastCostStockValue=0, LastReceivedDate=Null, LastOutgoingDate=Null",
      "UPDATE [Customer] SET [FrequentShopperPoints] = 0, [LastTransSerial] = '',"
      "[LastTransDocument] = '',[LastTransDocNumber] = 0,[LastUpdated] = NULL",
      "UPDATE [Supplier] SET [LastTransSerial] = '',[LastUpdated] = NULL",
      "UPDATE Carrier SET CurrentKm=0",
      "UPDATE [DocumentsSeriesNumber] SET [TransDocNumber] = 0, LastDocumentSignature='', "
      "LastCreateDate = NULL WHERE [TransDocID] IN (SELECT DISTINCT TransDocumentID FROM "
      "Documents WHERE TransDocType = 3 AND AccountBehavior = 0 AND AccountUsed = 2)",
      "UPDATE [SalesmanLedgerAccount] SET [TotalPendingAmount] = [TotalAmount] WHERE "
      "TransDocument IN (SELECT DISTINCT [DocID] FROM [AccountTransactionDetails])",
      "DELETE FROM BankLedgerAccount WHERE ReferenceTransDocument IN (SELECT TransDocumentID "
      "FROM Documents)",
  };
  // Removal of the rows of one kind of document.
  for (const char* table :
       {"TaxTransactionDetail", "TaxTransaction", "PostVoidTaxTransactionDetail",
        "PostVoidTaxTransaction", "VoucherTenderLineItem", "CheckTenderLineItem",
        "CardTenderLineItem", "TenderLineItem", "StockHistory", "TurnaroundTenderLine",
        "CustomerLedgerAccount", "SupplierLedgerAccount", "SalesmanLedgerAccount",
        "ReceiveLedgerAccount", "PayLedgerAccount", "LedgerAccountTransaction",
        "TransactionExtraFields", "FrequentShopperPoints", "AccountTransaction",
        "AccountTransactionDetails", "BankReceipt", "BankReceiptHistory",
        "TransactionPropDetails", "TransactionStatusFlowHistory"}) {
    statements.push_back(std::string("DELETE FROM ") + table +
                         " WHERE TransDocument IN (SELECT DISTINCT TransDocumentID FROM "
                         "Documents WHERE TransDocType = 1)");
  }
  // Removal of the party rows of a range of PartyID.
  for (const char* table : {"PartyAddress", "PartyBankAccount", "Telephone", "EmailAddress",
                            "Person", "PartyExtraFields", "PartyMessages", "PartyComments",
                            "OtherContact", "Party"}) {
    statements.push_back(std::string("DELETE FROM [") + table +
                         "] WHERE [PartyID] > 10 AND [PartyID] < 20");
  }
  // Removal of what hangs on the host's own documents.
  for (const char* table : {"DocumentsName", "ConfWorkstationDocDefaults",
                            "ConfWorkstationDocFields", "ConfWorkstationDocPrinter",
                            "ConfWorkstationDocument", "AppDocumentsGroups"}) {
    statements.push_back(std::string("DELETE FROM ") + table + " WHERE rowid IN (SELECT " +
                         table + ".rowid FROM " + table + " INNER JOIN Documents ON " + table +
                         ".TransDocumentID=Documents.TransDocumentID WHERE "
                         "Documents.TransDocumentKey = '')");
  }
  for (const std::string& sql : statements) {
    sqlite3_stmt* statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(db_, sql.c_str(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(db_) << "\n  in " << sql;
    sqlite3_finalize(statement);
  }
}

TEST_F(PosSchema, MaintenanceFindsEveryTableItClears) {
  const std::string cleared =
      "EntryLogSalesperson POSNoSaleTransaction SpY TempItem TempItemSellingPrices "
      "TempItemPricesProperty TemporaryAccumulated TempSpecialRptItems TempStock "
      "TempStockProperty TempTaxSalesFirst TempTaxTransaction TempTaxTransactionDetail "
      "TempTransaction TempTransactionDetails TempTransactionPropDetails "
      "TempComissionTransactionDetails TillSettlementDetails TillSettlementTransaction "
      "TillTender Session Voucher SaleTransactionLog ItemContractHistory "
      "ItemContractSaleDetails ItemContractSale BuyShareOtherCosts BuyTransactionDetails "
      "BuyTransaction StockTransactionDetails StockTransaction PostVoidTransactionHeader "
      "IssuedTmpTaxTrans IssuedTmpTaxTransDetail IssuedTmpTrans IssuedTmpTransDetails "
      "IssuedTmpTransPropDetails DepositTransactionDetails DepositTransaction "
      "ItemSellingPriceHistory ItemCostChange BankRemittanceDetails BankRemittance Events "
      "EventsRecurrencePattern CommunicationLog TableChanges SaleRouteHistory "
      "TempTurnaroundRecSelect DiscPointsTransaction StockProperty PriceChangeByDocument "
      "TempItemSellingPricesLabels TransCumulativeDiscounts TagAlongEdition ItemReserve ItemLot "
      "StockAdjustmentReport ExpeditionReport PromotionSearchLst Promotion "
      "ConfDiscFreqShopPoints DiscountScalingItem DiscountEligibleItem DiscountDefinition "
      "ItemPricesProperty ItemCollection ItemExtraFields ItemNames AlternativeItem ItemSerial "
      "ItemSupplier POSIdentity ItemSize ItemColor Stock CustomerContractItem ItemComponents "
      "ItemAlternative AggregateGroupItemDetails AggregateGroupItem ItemContractItems "
      "ItemContract ItemUnits Item BalconyScaleSectionFamily SupplierFamilyDiscounts "
      "FamilyProfitRate Family Supplier CustomerContract UareU_Customer SubRoutes Routes "
      "CustomerImpute Customer UareU_Salesman ComissionBySalesman AppSalesmansGroups "
      "SalesmanRoutes Salesman Installment Payment Zone BankCategory BankMethod Bank Carrier "
      "CustomerGroups PriceLine Color Size ItemPropertytable ItemProperty TenderBarcode Tender "
      "DocumentsSeriesNumber Documents";
  std::istringstream names(cleared);
  std::string name;
  while (names >> name) {
    EXPECT_EQ(Column("SELECT count(*) FROM sqlite_master WHERE type='table' AND name='" +
                     name + "'"),
              std::vector<std::string>{"1"})
        << name;
  }
}

TEST_F(PosSchema, FactoryRowsTheExportReliesOn) {
  EXPECT_EQ(Column("SELECT UsesPayment || DocumentSign || PaymentMode || TransDocumentKey "
                   "FROM Documents WHERE TransDocumentID='TVD'"),
            std::vector<std::string>{"1+1"});
  EXPECT_EQ(Column("SELECT TransDocumentID FROM ConfWorkstationDocument WHERE WorkstationID=1"),
            std::vector<std::string>{"TVD"});
  EXPECT_EQ(Column("SELECT ExportCode || '/' || SaleExchange || '/' || CurrencyFactor FROM "
                   "Currency WHERE CurrencyID='EUR'"),
            std::vector<std::string>{"1/1.0/1.0"});
  EXPECT_EQ(Column("SELECT TenderID FROM Tender ORDER BY TenderID"),
            (std::vector<std::string>{"1", "10"}));
  EXPECT_EQ(Column("SELECT TaxRate FROM TaxTable WHERE TaxGroupID='IVA' AND CountryID='PT' AND "
                   "TaxRegionID='CON' ORDER BY TaxSequenceID"),
            (std::vector<std::string>{"23.0", "13.0", "6.0", "0.0"}));
  EXPECT_EQ(Column("SELECT CountryID || TaxRegionID || DefaultUnitOfMeasureID FROM ConfSystem"),
            std::vector<std::string>{"PTCONUN"});
}

// A customer and a sale written with nothing but their keys are new to the
// back office: no key, not exported.
TEST_F(PosSchema, BareHostRowsArePendingForExport) {
  ASSERT_EQ(Run("INSERT INTO Customer (CustomerID) VALUES (7)"), "");
  ASSERT_EQ(Run("INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, "
                "PartyID, WorkstationID) VALUES ('A', 'TVD', 1, 7, 1)"),
            "");
  EXPECT_EQ(Column("SELECT Customer.CustomerID FROM Customer INNER JOIN SaleTransaction ON "
                   "(SaleTransaction.PartyID = Customer.CustomerID) WHERE "
                   "SaleTransaction.AccountingExportDate Is Null AND "
                   "SaleTransaction.WorkstationID IN (1) AND Customer.CustomerKey =''"),
            std::vector<std::string>{"7"});
  EXPECT_NE(Run("INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber) "
                "VALUES ('A', 'TVD', 1)"),
            "");
}

}  // namespace
}  // namespace standalone
