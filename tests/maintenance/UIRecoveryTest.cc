// Clearing the POS database before the initial load fills it: master data by
// kind (parties by their kind's range of ids), documents by kind, one table,
// and everything transactional.

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <sstream>

#include "connector/ModConnectorLumaro.h"
#include "maintenance/UIRecovery.h"
#include "tests/support/TestHost.h"

namespace {

using lumaro::ModConnectorLumaro;
using lumaro::UIRecovery;

constexpr char kSource[] = "UIRecovery.DBDeleteAllRecords";
constexpr char kPartyTables[] =
    "PartyAddress PartyBankAccount Telephone EmailAddress Person PartyExtraFields PartyMessages "
    "PartyComments OtherContact Party";

std::vector<std::string> Words(const std::string& text, char separator = ' ') {
  std::vector<std::string> words;
  std::istringstream in(text);
  for (std::string word; std::getline(in, word, separator);) {
    if (!word.empty()) words.push_back(word);
  }
  return words;
}

class Deletion : public testing::Test {
 protected:
  Deletion() { ModConnectorLumaro::AttachHost(&db_.Host()); }
  ~Deletion() override { ModConnectorLumaro::DetachHost(&db_.Host()); }

  // One row of `table`: the given columns (SQL literals), and 97 in every
  // other column that must have a value.
  void AddRow(const std::string& table, const std::map<std::string, std::string>& given = {}) {
    std::string names, values;
    for (const auto& [name, value] : given) {
      names += (names.empty() ? "[" : ",[") + name + "]";
      values += (values.empty() ? "" : ",") + value;
    }
    for (const auto& name : Words(db_.Rows("SELECT name FROM pragma_table_info('" + table +
                                           "') WHERE \"notnull\" = 1 AND dflt_value IS NULL"),
                                  ',')) {
      if (given.count(name) == 0) {
        names += (names.empty() ? "[" : ",[") + name + "]";
        values += (values.empty() ? "97" : ",97");
      }
    }
    db_.Exec("INSERT INTO [" + table + "] (" + names + ") VALUES (" + values + ")");
  }
  // The number of rows of every table, by name.
  std::map<std::string, std::string> Counts() {
    std::map<std::string, std::string> counts;
    for (const auto& t :
         Words(db_.Rows("SELECT name FROM sqlite_master WHERE type = 'table'"), ',')) {
      counts[t] = Count(t);
    }
    return counts;
  }
  std::string Count(const std::string& table, const std::string& where = "1 = 1") {
    return db_.Scalar("SELECT COUNT(*) FROM [" + table + "] WHERE " + where);
  }
  std::string Docs(const std::string& table, const std::string& column = "TransDocument") {
    return db_.Rows("SELECT " + column + " FROM [" + table + "] ORDER BY 1");
  }

  // Documents of every kind a clearing tells apart, each with a series that
  // has moved on: FS a sale, VC a purchase, RC and RE receipts of customers
  // (accounts 0 and 1), RF a receipt of suppliers (account 2), PG a payment,
  // NC an account document of behaviour 2, BC and BF bank receipts of
  // customers and of suppliers.
  void AddDocuments() {
    const char* docs[][4] = {{"FS", "1", "0", "0"}, {"VC", "0", "0", "0"},  {"RC", "3", "0", "0"},
                             {"RE", "3", "0", "1"}, {"RF", "3", "0", "2"},  {"PG", "3", "1", "0"},
                             {"NC", "3", "2", "0"}, {"BC", "13", "0", "0"}, {"BF", "13", "0", "2"}};
    for (const auto& d : docs) {
      std::string id = std::string("'") + d[0] + "'";
      AddRow("Documents", {{"TransDocumentID", id},
                           {"TransDocType", d[1]},
                           {"AccountBehavior", d[2]},
                           {"AccountUsed", d[3]}});
      AddRow("DocumentsSeriesNumber", {{"TransSerial", "'A'"},
                                       {"TransDocID", id},
                                       {"TransDocNumber", "7"},
                                       {"LastDocumentSignature", "'x'"},
                                       {"LastCreateDate", "'2026-03-14'"}});
    }
  }
  void AddDocRow(const std::string& table, const std::string& doc,
                 std::map<std::string, std::string> more = {}) {
    more.insert(
        {{"TransSerial", "'A'"}, {"TransDocument", "'" + doc + "'"}, {"TransDocNumber", "1"}});
    AddRow(table, more);
  }
  void AddLedger(const std::string& table, const std::string& doc, const std::string& total,
                 const std::string& pending) {
    AddDocRow(table, doc, {{"TotalAmount", total}, {"TotalPendingAmount", pending}});
  }
  // A customer and a supplier whose last document is FS A/9.
  void AddLastDocuments() {
    for (const char* table : {"Customer", "Supplier"}) {
      AddRow(table, {{"LastTransSerial", "'A'"},
                     {"LastTransDocument", "'FS'"},
                     {"LastTransDocNumber", "9"},
                     {"LastUpdated", "'2026-03-14'"}});
    }
    db_.Exec("UPDATE Customer SET FrequentShopperPoints = 12");
  }
  static constexpr char kNoLastDocument[] =
      "LastTransSerial = '' AND LastTransDocument = '' AND LastTransDocNumber = 0 AND "
      "LastUpdated IS NULL";
  // The series whose number went back to 0, with no signature nor date.
  std::string ResetSeries() {
    return db_.Rows(
        "SELECT TransDocID FROM DocumentsSeriesNumber WHERE TransDocNumber = 0 AND "
        "LastDocumentSignature = '' AND LastCreateDate IS NULL ORDER BY 1");
  }

  testsupport::TestHost db_;
  UIRecovery recovery_;
};

// ---- Master data by kind -------------------------------------------------

TEST_F(Deletion, EachKindOfMasterDataClearsItsOwnTablesAndNoOther) {
  const std::map<int, std::string> kinds = {
      {0, "ConfDiscFreqShopPoints Promotion PromotionSearchLst"},
      {1, "DiscountDefinition DiscountEligibleItem DiscountScalingItem"},
      {2,
       "AggregateGroupItem AggregateGroupItemDetails AlternativeItem CustomerContractItem "
       "Item ItemAlternative ItemCollection ItemColor ItemComponents ItemContract "
       "ItemContractItems ItemCostChange ItemExtraFields ItemLot ItemNames ItemPricesProperty "
       "ItemReserve ItemSellingPriceHistory ItemSellingPrices ItemSerial ItemSize ItemSupplier "
       "ItemUnits POSIdentity Stock StockHistory StockProperty TagAlongEdition"},
      {3, "BalconyScaleSectionFamily Family FamilyProfitRate SupplierFamilyDiscounts"},
      {4, "Supplier SupplierFamilyDiscounts SupplierLedgerAccount"},
      {5,
       "Customer CustomerContract CustomerContractItem CustomerImpute CustomerLedgerAccount "
       "ItemReserve Routes SubRoutes UareU_Customer"},
      {6,
       "AppSalesmansGroups ComissionBySalesman Salesman SalesmanLedgerAccount SalesmanRoutes "
       "UareU_Salesman"},
      {7, "Installment Payment"},
      {8, "Zone"},
      {9, "Events EventsRecurrencePattern"},
      {10, "ItemSellingPriceHistory"},
      {11, "POSNoSaleTransaction"},
      {12, "Bank BankCategory BankLedgerAccount BankMethod"}};
  const std::vector<std::string> party = Words(kPartyTables);
  for (const auto& [kind, expected] : kinds) {
    SCOPED_TRACE(kind);
    for (const auto& [table, count] : Counts()) {
      if (count == "0") AddRow(table);
    }
    auto before = Counts();
    recovery_.DeleteKassimoTables(kind);
    std::string changed;  // in the order of the names; "!" marks a table left half cleared
    for (const auto& [table, count] : Counts()) {
      bool is_party = std::find(party.begin(), party.end(), table) != party.end();
      if (!is_party && count != before[table]) {
        changed += (changed.empty() ? "" : " ") + table + (count == "0" ? "" : "!");
      }
    }
    EXPECT_EQ(changed, expected);
  }
  EXPECT_TRUE(db_.UI().boxes.empty());
}

TEST_F(Deletion, PartiesGoByTheirKindsRangeOfIds) {
  // start(k) = k * 10^10 + 1. Kept on purpose: the upper bound is exclusive
  // after taking 1 off, so start(k + 1) - 1 survives its kind's clearing.
  const std::vector<std::string> ids = Words(
      "5,10000000000,10000000001,10000000002,19999999999,20000000000,20000000001,29999999999,"
      "30000000000,30000000001,39999999999,40000000000,40000000001",
      ',');
  const std::map<int, std::string> removed = {{5, "5,10000000000"},
                                              {4, "10000000001,10000000002,19999999999"},
                                              {6, "20000000001,29999999999"},
                                              {12, "30000000001,39999999999"}};
  for (const auto& [kind, gone] : removed) {
    SCOPED_TRACE(kind);
    std::string expected;
    for (const auto& id : ids) {
      if (("," + gone + ",").find("," + id + ",") == std::string::npos) {
        expected += (expected.empty() ? "" : ",") + id;
      }
    }
    for (const auto& table : Words(kPartyTables)) {
      db_.Exec("DELETE FROM [" + table + "]");
      for (const auto& id : ids) AddRow(table, {{"PartyID", id}});
    }
    recovery_.DeleteKassimoTables(kind);
    for (const auto& table : Words(kPartyTables)) {
      EXPECT_EQ(Docs(table, "PartyID"), expected) << table;
    }
  }
}

TEST_F(Deletion, AFailingPartyStatementRaisesAndKeepsWhatWasCleared) {
  AddRow("CustomerLedgerAccount");
  AddRow("Customer");
  AddRow("PartyAddress", {{"PartyID", "5"}});
  db_.Exec(
      "CREATE TRIGGER Guard BEFORE DELETE ON PartyAddress BEGIN SELECT RAISE(ABORT, 'no'); END");
  EXPECT_ANY_THROW(recovery_.DeleteKassimoTables(5));
  EXPECT_EQ(Count("CustomerLedgerAccount"), "0");  // before the parties; no transaction
  EXPECT_EQ(Count("Customer"), "1");               // after them, never reached
  EXPECT_TRUE(db_.UI().boxes.empty());
}

// ---- One table -----------------------------------------------------------

TEST_F(Deletion, AMissingTableIsPassedOverAndAFailureGoesToTheErrorDisplay) {
  recovery_.DBDeleteAllRecordsInTable("TabelaQueNaoExiste");
  db_.Exec("DROP TABLE UareU_Customer");  // a host version without it
  AddRow("Customer");
  recovery_.DeleteKassimoTables(5);
  EXPECT_EQ(Count("Customer"), "0");
  EXPECT_TRUE(db_.UI().boxes.empty());

  // A failure to clear a table goes to the error display, not the caller.
  AddRow("Zone");
  db_.Exec(
      "CREATE TRIGGER Guard BEFORE DELETE ON Zone BEGIN SELECT RAISE(ABORT, 'zona guardada'); END");
  EXPECT_NO_THROW(recovery_.DBDeleteAllRecordsInTable("Zone"));
  EXPECT_EQ(Count("Zone"), "1");
  ASSERT_EQ(db_.UI().boxes.size(), 1u);
  EXPECT_EQ(db_.UI().boxes[0].title, kSource);
  EXPECT_NE(db_.UI().boxes[0].text.find("zona guardada"), std::string::npos)
      << db_.UI().boxes[0].text;
  EXPECT_EQ(db_.UI().boxes[0].style & host::msgbox::kCritical, host::msgbox::kCritical);
}

// ---- Documents by kind ---------------------------------------------------

TEST_F(Deletion, SalesTakeTheirDocumentsAndReceiptsAndLeavePurchases) {
  AddDocuments();
  for (const char* doc : {"FS", "VC", "NC"}) AddDocRow("TaxTransaction", doc);
  for (const char* doc : {"FS", "RC", "RE", "RF", "PG", "NC"})
    AddDocRow("CustomerLedgerAccount", doc);
  for (const char* doc : {"FS", "NC", "VC"}) AddDocRow("SalesmanLedgerAccount", doc);
  for (const char* doc : {"FS", "RC", "RE", "RF", "PG", "VC"}) AddDocRow("AccountTransaction", doc);
  for (const char* doc : {"BC", "BF"}) AddDocRow("BankReceipt", doc);
  for (const char* doc : {"FS", "VC"}) AddDocRow("TransactionPropDetails", doc);
  for (const char* doc : {"FS", "VC"}) AddDocRow("SaleTransaction", doc);
  AddDocRow("BuyTransaction", "VC");
  // Bank ledger rows go by the document they refer to, not their own.
  AddDocRow("BankLedgerAccount", "X1", {{"ReferenceTransDocument", "'FS'"}});
  AddDocRow("BankLedgerAccount", "X2", {{"ReferenceTransDocument", "'NC'"}});
  AddDocRow("BankLedgerAccount", "FS", {{"ReferenceTransDocument", "'VC'"}});
  AddLastDocuments();

  recovery_.DeleteKassimoDocuments(1, 0);

  EXPECT_EQ(Docs("TaxTransaction"), "VC");
  EXPECT_EQ(Docs("CustomerLedgerAccount"), "PG,RF");
  EXPECT_EQ(Docs("SalesmanLedgerAccount"), "VC");
  EXPECT_EQ(Docs("AccountTransaction"), "PG,RF,VC");
  EXPECT_EQ(Docs("BankReceipt"), "BF");
  EXPECT_EQ(Docs("TransactionPropDetails"), "VC");
  EXPECT_EQ(Docs("BankLedgerAccount"), "FS");
  EXPECT_EQ(Count("SaleTransaction"), "0");  // cleared whole
  EXPECT_EQ(Count("BuyTransaction"), "1");
  EXPECT_EQ(Count("Customer", std::string(kNoLastDocument) + " AND FrequentShopperPoints = 0"),
            "1");
  EXPECT_EQ(Count("Supplier", kNoLastDocument), "0");
  // Type 3 with behaviour 0 is reset whatever its account.
  EXPECT_EQ(ResetSeries(), "BC,FS,NC,RC,RE,RF,TVD");
}

TEST_F(Deletion, RemovedReceiptsOpenAgainWhatTheySettled) {
  AddDocuments();
  AddLedger("CustomerLedgerAccount", "FS", "100.5", "0");
  AddLedger("CustomerLedgerAccount", "NC", "80", "0");  // settled by a payment only
  AddLedger("CustomerLedgerAccount", "RC", "-100.5", "0");
  AddLedger("SupplierLedgerAccount", "VC", "50", "10");
  AddLedger("SalesmanLedgerAccount", "FS", "5", "0");
  const char* settles[][2] = {{"RC", "FS"}, {"RF", "VC"}, {"PG", "NC"}};
  for (const auto& s : settles) {
    AddDocRow("AccountTransactionDetails", s[0], {{"DocID", std::string("'") + s[1] + "'"}});
    AddDocRow("AccountTransaction", s[0]);
    AddDocRow("TenderLineItem", s[0]);
  }

  recovery_.DeleteKassimoDocuments(6, 0);

  EXPECT_EQ(db_.Rows("SELECT TransDocument || ':' || (TotalPendingAmount = TotalAmount) "
                     "FROM CustomerLedgerAccount ORDER BY 1"),
            "FS:1,NC:0");
  EXPECT_EQ(Count("SupplierLedgerAccount", "TotalPendingAmount = 50"), "1");
  EXPECT_EQ(Count("SalesmanLedgerAccount", "TotalPendingAmount = 5"), "1");
  EXPECT_EQ(Docs("AccountTransactionDetails"), "PG");
  EXPECT_EQ(Docs("AccountTransaction"), "PG");
  EXPECT_EQ(Docs("TenderLineItem"), "PG");
  EXPECT_EQ(ResetSeries(), "RC,RE,RF,TVD");
}

TEST_F(Deletion, PaymentsGoWithoutOpeningAnythingAgain) {
  AddDocuments();
  for (const char* doc : {"FS", "PG", "RC"}) AddLedger("CustomerLedgerAccount", doc, "100", "0");
  AddDocRow("AccountTransactionDetails", "PG", {{"DocID", "'FS'"}});
  recovery_.DeleteKassimoDocuments(6, 1);
  EXPECT_EQ(Docs("CustomerLedgerAccount", "TransDocument || TotalPendingAmount"), "FS0,RC0");
  EXPECT_EQ(ResetSeries(), "PG,TVD");
}

TEST_F(Deletion, OtherDocumentKindsChangeNothing) {
  AddDocuments();
  AddLedger("CustomerLedgerAccount", "FS", "100", "0");
  AddDocRow("AccountTransactionDetails", "RC", {{"DocID", "'FS'"}});
  for (const char* doc : {"FS", "VC", "RC", "PG", "NC", "BC"}) AddDocRow("TenderLineItem", doc);
  AddRow("Customer", {{"FrequentShopperPoints", "12"}});
  const auto before = Counts();
  for (auto [kind, behavior] : {std::pair{3, 0}, {4, 0}, {7, 0}, {-2, 0}, {13, 0}, {6, 2}}) {
    SCOPED_TRACE(kind);
    recovery_.DeleteKassimoDocuments(kind, behavior);
    EXPECT_EQ(Counts(), before);
    EXPECT_EQ(ResetSeries(), "TVD");
    EXPECT_EQ(Count("CustomerLedgerAccount", "TotalPendingAmount = 0"), "1");
    EXPECT_EQ(Count("Customer", "FrequentShopperPoints = 12"), "1");
  }
}

// ---- Everything transactional ---------------------------------------------

class ClearingAll : public Deletion {
 protected:
  ClearingAll() {
    for (const auto& table : Words(kTransactional)) {
      if (Count(table) == "0") AddRow(table);
    }
    std::map<std::string, std::string> item = {{"ItemID", "'I1'"},
                                               {"AverageCostPrice", "3"},
                                               {"LastReceivedDate", "'2026-01-02'"},
                                               {"LastOutgoingDate", "'2026-01-03'"}};
    for (const auto& column : Words(kQuantities)) item[column] = "3";
    AddRow("Item", item);
    item.erase("AverageCostPrice");
    item["WarehouseID"] = "1";
    AddRow("Stock", item);
    item["LotID"] = "'L1'";
    AddRow("Stock", item);
    AddRow("ItemSellingPrices", {{"ItemID", "'I1'"}, {"PriceLineID", "1"}});
    AddRow("ItemSellingPrices", {{"ItemID", "'I1'"}, {"PriceLineID", "1"}, {"LotID", "'L1'"}});
    AddRow("ItemLot", {{"ItemID", "'I1'"}, {"LotID", "'L1'"}});
    AddLastDocuments();
    db_.Exec(
        "UPDATE DocumentsSeriesNumber SET TransDocNumber = 7, LastDocumentSignature = 'x', "
        "LastCreateDate = '2026-03-14'");
    AddRow("Carrier", {{"CurrentKm", "1234"}});
  }
  // Item's and Stock's columns that go back to 0 (Item's AverageCostPrice too).
  std::string SetBack(const std::string& table) {
    std::string where = "LastReceivedDate IS NULL AND LastOutgoingDate IS NULL";
    for (const auto& column : Words(kQuantities)) where += " AND " + column + " = 0";
    return Count(table, where);
  }

  static constexpr char kQuantities[] =
      "CustomerOrderQty SupplierOrderQty CustomerConsignmentQty SupplierConsignmentQty PhysicalQty "
      "AvailableQty CustomerOrderUnits SupplierOrderUnits CustomerConsignmentUnits "
      "SupplierConsignmentUnits PhysicalUnits AvailableUnits AverageCostStockValue "
      "LastCostStockValue";
  // Transactional tables of each kind: sales, tenders, accounts, stock,
  // purchases, deposits, banks, and the temporary ones.
  static constexpr char kTransactional[] =
      "SaleTransaction SaleTransactionDetails TenderTransaction TenderLineItem "
      "CheckTenderLineItem AccountTransaction CustomerLedgerAccount SupplierLedgerAccount "
      "StockTransaction StockHistory StockProperty BuyTransaction DepositTransaction "
      "BankReceipt FrequentShopperPoints TempTransaction TemporaryAccumulated ItemReserve";
};

TEST_F(ClearingAll, AnsweredNoChangesNothingAndYesClearsTransactions) {
  db_.UI().answer = host::msgbox::kNo;
  const auto before = Counts();
  recovery_.DBDeleteAllRecords();
  ASSERT_EQ(db_.UI().boxes.size(), 1u);
  EXPECT_EQ(db_.UI().boxes[0].text, db_.UI().Messages().Text(2760002));
  EXPECT_EQ(db_.UI().boxes[0].style & 0x7, host::msgbox::kYesNo);
  EXPECT_EQ(Counts(), before);
  EXPECT_EQ(SetBack("Item"), "0");
  EXPECT_EQ(Count("Carrier", "CurrentKm = 1234"), "1");

  db_.UI().answer = host::msgbox::kYes;
  db_.UI().boxes.clear();
  recovery_.DBDeleteAllRecords();
  EXPECT_EQ(db_.UI().boxes.size(), 1u);  // the question, and no error
  for (const auto& table : Words(kTransactional)) EXPECT_EQ(Count(table), "0") << table;
  EXPECT_EQ(Count("ItemLot"), "0");
  EXPECT_EQ(Docs("Stock", "'[' || LotID || ']'"), "[]");
  EXPECT_EQ(Docs("ItemSellingPrices", "'[' || LotID || ']'"), "[]");
  EXPECT_EQ(SetBack("Item"), "1");
  EXPECT_EQ(SetBack("Stock"), "1");
  EXPECT_EQ(Count("Item", "AverageCostPrice = 0"), "1");
  EXPECT_EQ(Count("Customer", std::string(kNoLastDocument) + " AND FrequentShopperPoints = 0"),
            "1");
  EXPECT_EQ(Count("Supplier", kNoLastDocument), "1");
  EXPECT_EQ(ResetSeries(), "TVD");
  EXPECT_EQ(Count("Carrier", "CurrentKm = 0"), "1");
  EXPECT_EQ(Count("Documents"), "1");  // master data stays
}

TEST_F(ClearingAll, AFailureEndsItWithTheErrorDisplayAndKeepsWhatWasDone) {
  db_.Exec(
      "CREATE TRIGGER Guard BEFORE UPDATE ON Customer BEGIN SELECT RAISE(ABORT, 'cliente'); END");
  EXPECT_NO_THROW(recovery_.DBDeleteAllRecords());
  ASSERT_EQ(db_.UI().boxes.size(), 2u);
  EXPECT_EQ(db_.UI().boxes[1].title, kSource);
  EXPECT_NE(db_.UI().boxes[1].text.find("cliente"), std::string::npos) << db_.UI().boxes[1].text;
  EXPECT_EQ(Count("SaleTransaction"), "0");
  EXPECT_EQ(SetBack("Item"), "1");                              // before the customers
  EXPECT_EQ(Count("Supplier", "LastTransDocNumber = 9"), "1");  // after them, never reached
  EXPECT_EQ(Count("Carrier", "CurrentKm = 1234"), "1");
}

}  // namespace
