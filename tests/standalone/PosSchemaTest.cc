#include <gtest/gtest.h>

#include <regex>
#include <string>

#include "connector/host/Error.h"
#include "standalone/StandaloneHost.h"
#include "standalone/schema/PosDatabase.h"
#include "standalone/schema/PosSchema.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

// A fresh POS database with the schema and the factory data in it.
class PosSchema : public ::testing::Test {
 protected:
  // Every column of `table` as "name type notnull pk", joined with ",".
  std::string Layout(const std::string& table) {
    return test_host_.Rows(
        "SELECT name || ' ' || type || ' ' || \"notnull\" || ' ' || pk FROM "
        "pragma_table_info('" +
        table + "') ORDER BY cid");
  }

  testsupport::TestHost test_host_;
};

// A type outside the rule would silently read as text. (The export tests
// show that the columns they read have the kind they need.)
TEST_F(PosSchema, EveryDeclaredTypeFollowsTheRule) {
  const std::regex allowed(
      R"(VARCHAR\(\d+\)|TEXT|SMALLINT|INTEGER|BIGINT|FLOAT|MONEY|DATETIME|BIT|IMAGE)");
  auto rs = test_host_.Db().OpenRecordset(
      "SELECT m.name || '.' || p.name, p.type FROM sqlite_master AS m, pragma_table_info(m.name) "
      "AS p WHERE m.type = 'table'");
  EXPECT_GT(rs->RecordCount(), 1500);
  for (; !rs->Eof(); rs->MoveNext()) {
    const std::string type = rs->Fields(1).AsString();
    EXPECT_TRUE(std::regex_match(type, allowed)) << rs->Fields(0).AsString() << " is " << type;
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
    EXPECT_NE(Layout(live), "") << live;
    EXPECT_EQ(Layout(live), Layout(voided)) << live << " / " << voided;
  }
}

// A customer and a sale written with nothing but their keys are new to the
// back office: no key, not exported.
TEST_F(PosSchema, BareHostRowsArePendingForExport) {
  test_host_.Exec(
      "INSERT INTO Customer (CustomerID) VALUES (7);"
      "INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, PartyID, "
      "WorkstationID) VALUES ('A', 'TVD', 1, 7, 1);");
  EXPECT_EQ(test_host_.Rows("SELECT Customer.CustomerID FROM Customer INNER JOIN SaleTransaction "
                            "ON (SaleTransaction.PartyID = Customer.CustomerID) WHERE "
                            "SaleTransaction.AccountingExportDate Is Null AND "
                            "SaleTransaction.WorkstationID IN (1) AND Customer.CustomerKey =''"),
            "7");
  EXPECT_EQ(host::RaisedNumber([&] {
              test_host_.Exec(
                  "INSERT INTO SaleTransaction (TransSerial, TransDocument, "
                  "TransDocNumber) VALUES ('A', 'TVD', 1)");
            }),
            host::err::kSqlRefused);
}

// A database of the first version is brought up to this one when opened,
// its rows kept: the fresh schema and the upgrade end in the same layout.
TEST(PosSchemaUpgrade, AnOlderDatabaseIsUpgradedWithItsRows) {
  // The columns in the order of their names: an added column comes last.
  const std::string kColumns =
      "SELECT 'AppUsers ' || name || ' ' || type || ' ' || dflt_value FROM "
      "pragma_table_info('AppUsers') UNION ALL SELECT 'Series ' || name || ' ' || type || ' ' || "
      "dflt_value FROM pragma_table_info('Series') ORDER BY 1";
  testsupport::TempFolder folder;
  const std::string path = folder.File("old.db");
  std::string fresh_layout;
  {
    auto db = OpenPosDatabase(path);
    fresh_layout = testsupport::Rows(*db, kColumns);
    // What a database of the first version looked like.
    db->ExecuteScript(
        "ALTER TABLE AppUsers DROP COLUMN SecurityLevel; ALTER TABLE AppUsers DROP COLUMN "
        "MaximumDiscount; ALTER TABLE AppUsers DROP COLUMN DefaultWorkstationID; ALTER TABLE "
        "AppUsers DROP COLUMN Active; ALTER TABLE AppUsers DROP COLUMN CanChangePrices; ALTER "
        "TABLE AppUsers DROP COLUMN CanVoidDocuments; ALTER TABLE Series DROP COLUMN SeriesYear; "
        "ALTER TABLE Series DROP COLUMN SeriesLocked; PRAGMA user_version = 1;"
        "INSERT INTO AppUsers (AppUserID, AppUserKey, AppUserName) VALUES (7, 'EVA', 'Eva')");
  }
  auto db = OpenPosDatabase(path);
  EXPECT_EQ(db->SchemaVersion(), kPosSchemaVersion);
  EXPECT_EQ(testsupport::Rows(*db, kColumns), fresh_layout);
  EXPECT_EQ(testsupport::Rows(*db,
                              "SELECT AppUserName || '/' || Active FROM AppUsers "
                              "ORDER BY AppUserID"),
            "Administrador/1,Eva/1");
}

}  // namespace
}  // namespace standalone
