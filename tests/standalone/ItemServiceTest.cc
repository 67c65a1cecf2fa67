// The item service keeps what it last read while the database says nothing
// changed since, and a save writes only what differs from it. These tests
// change the rows behind its back in the ways that must end that trust (the
// change counter's own tests show it moves with the changes SQLite does not
// report row by row, such as a table emptied at once).

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "connector/host/ItemEntity.h"
#include "standalone/services/SqliteItemService.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedNumber;

class ItemServiceTrust : public ::testing::Test {
 protected:
  void SetUp() override {
    host_.Exec(
        "DELETE FROM PriceLine;"
        "INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description) VALUES"
        " (1, '1', 'P1', 'Preço 1'), (2, '2', 'P2', 'Preço 2');");
    host::Item item;
    item.ItemID = "A1";
    item.ItemKey = "K1";
    item.Description = "Artigo";
    host::ItemSellingPrice price;
    price.PriceLineID = 1;
    price.PriceWithTax = 10;
    item.SellingPrices.Add(price);
    items_.Save(item);
    items_.Save(*items_.Get("A1"));  // with a row for price line 2 too
  }

  std::string Prices() {
    return host_.Rows(
        "SELECT PriceLineID || '=' || PriceWithTax FROM ItemSellingPrices WHERE ItemID = 'A1' "
        "ORDER BY PriceLineID");
  }

  testsupport::TestHost host_;
  SqliteItemService items_{host_.Db()};
};

TEST_F(ItemServiceTrust, AnUnchangedItemStillGetsThePriceRowsItWasMissing) {
  host_.Exec(
      "INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description) VALUES"
      " (3, '3', 'P3', 'Preço 3')");
  SqliteItemService items(host_.Db());  // the price lines are read once a service
  host_.Db().BeginTrans();
  std::shared_ptr<host::Item> item = items.Get("A1");
  items.Save(*item);
  host_.Db().CommitTrans();
  EXPECT_EQ(Prices(), "1=10,2=0,3=0");
}

TEST_F(ItemServiceTrust, ARowWrittenBetweenGetAndSaveIsOverwrittenByTheSave) {
  host_.Db().BeginTrans();
  std::shared_ptr<host::Item> item = items_.Get("A1");
  host_.Exec("UPDATE ItemSellingPrices SET PriceWithTax = 99 WHERE ItemID = 'A1'");
  host_.Exec("UPDATE Item SET Description = 'Outro' WHERE ItemID = 'A1'");
  items_.Save(*item);
  host_.Db().CommitTrans();
  EXPECT_EQ(Prices(), "1=10,2=0");
  EXPECT_EQ(host_.Scalar("SELECT Description FROM Item WHERE ItemID = 'A1'"), "Artigo");
}

TEST_F(ItemServiceTrust, OutsideATransactionNothingIsTrusted) {
  std::shared_ptr<host::Item> item = items_.Get("A1");
  host_.Exec("DELETE FROM ItemSellingPrices WHERE ItemID = 'A1'");
  items_.Save(*item);
  EXPECT_EQ(Prices(), "1=10,2=0");
}

TEST_F(ItemServiceTrust, ARollbackEndsTheTrustInWhatWasReadBeforeIt) {
  host_.Db().BeginTrans();
  host_.Db().BeginTrans();
  host_.Exec("UPDATE ItemSellingPrices SET PriceWithTax = 55 WHERE PriceLineID = 1");
  std::shared_ptr<host::Item> item = items_.Get("A1");  // reads 55
  host_.Db().RollbackTrans();                           // the row holds 10 again
  items_.SaveSellingPrices(item->SellingPrices, "A1");  // must write 55
  host_.Db().CommitTrans();
  EXPECT_EQ(Prices(), "1=55,2=0");
}

TEST_F(ItemServiceTrust, AKeyIsLookedUpAgainOnceAnItemChangedOrASaveMovedIt) {
  host_.Db().BeginTrans();
  EXPECT_EQ(items_.GetItemIDFromKey("K1"), "A1");
  EXPECT_EQ(items_.GetItemIDFromKey("K2"), "");
  host_.Exec("UPDATE Item SET ItemKey = 'K2' WHERE ItemID = 'A1'");
  EXPECT_EQ(items_.GetItemIDFromKey("K2"), "A1");
  EXPECT_EQ(items_.GetItemIDFromKey("K1"), "");
  host_.Db().RollbackTrans();
  EXPECT_EQ(items_.GetItemIDFromKey("K1"), "A1");

  // A save that moves a key.
  host::Item other;
  other.ItemID = "A0";
  other.ItemKey = "K0";
  items_.Save(other);
  host_.Db().BeginTrans();
  std::shared_ptr<host::Item> item = items_.Get("A1");
  EXPECT_EQ(items_.GetItemIDFromKey("K1"), "A1");
  item->ItemKey = "K9";
  items_.Save(*item);  // takes K1 away from A1
  EXPECT_EQ(items_.GetItemIDFromKey("K1"), "");
  EXPECT_EQ(items_.GetItemIDFromKey("K9"), "A1");
  other.ItemKey = "K9";
  items_.Save(other);  // A0 comes first with K9 now
  EXPECT_EQ(items_.GetItemIDFromKey("K9"), "A0");
  // A key known to name no item names the one saved with it.
  EXPECT_EQ(items_.GetItemIDFromKey("K5"), "");
  host::Item fifth;
  fifth.ItemID = "A5";
  fifth.ItemKey = "K5";
  items_.Save(fifth);
  EXPECT_EQ(items_.GetItemIDFromKey("K5"), "A5");
  fifth.Description = "Quinto";
  items_.Save(fifth);
  EXPECT_EQ(items_.GetItemIDFromKey("K5"), "A5");
  fifth.ItemKey = "K9";  // after A0
  items_.Save(fifth);
  EXPECT_EQ(items_.GetItemIDFromKey("K5"), "");
  EXPECT_EQ(items_.GetItemIDFromKey("K9"), "A0");
  host_.Db().CommitTrans();

  // The key of an id, read once, follows the service's own saves.
  EXPECT_EQ(items_.GetKey("A0"), "K9");
  other.ItemKey = "K8";
  items_.Save(other);
  EXPECT_EQ(items_.GetKey("A0"), "K8");
}

TEST_F(ItemServiceTrust, ARowInATableOnceFoundEmptyIsSeenAndKeptBySaves) {
  host_.Db().BeginTrans();
  std::shared_ptr<host::Item> item = items_.Get("A1");  // no barcode table rows at all
  EXPECT_EQ(item->Barcodes.Count(), 0);
  host_.Exec(
      "INSERT INTO POSIdentity (ItemID, Barcode, UnitOfMeasureID, Quantity) "
      "VALUES ('A1', '560001', 'UN', 1)");
  item = items_.Get("A1");
  ASSERT_EQ(item->Barcodes.Count(), 1);
  EXPECT_EQ(item->Barcodes.rows[0].Barcode, "560001");
  // A new item, saved while the table has rows, must not lose another's.
  host::Item other;
  other.ItemID = "A2";
  other.ItemKey = "K2";
  items_.Save(other);
  item->Description = "Outro";
  items_.Save(*item);
  host_.Db().CommitTrans();
  EXPECT_EQ(host_.Rows("SELECT ItemID || ':' || Barcode FROM POSIdentity"), "A1:560001");
}

TEST_F(ItemServiceTrust, APriceWrittenInPlaceEndsAsAReplacedOneWould) {
  // Who changed a price last: a replaced row forgets it, and so must a row
  // written over.
  host_.Exec(
      "UPDATE ItemSellingPrices SET WorkstationID = 7, UserAlt = 3, DtAlt = '2026-01-01 00:00:00'");
  host_.Db().BeginTrans();
  std::shared_ptr<host::Item> item = items_.Get("A1");
  item->SellingPrices.Find(2)->PriceWithTax = 12.5;
  items_.SaveSellingPrices(item->SellingPrices, "A1");
  host_.Db().CommitTrans();
  EXPECT_EQ(Prices(), "1=10,2=12.5");
  EXPECT_EQ(host_.Rows("SELECT PriceLineID || ':' || WorkstationID || ',' || UserAlt || ',' || "
                       "ifnull(DtAlt, 'null') FROM ItemSellingPrices ORDER BY PriceLineID"),
            "1:7,3,2026-01-01 00:00:00,2:0,0,null");
}

TEST_F(ItemServiceTrust, ATextTooLongAnywhereInTheItemRefusesTheSave) {
  // Another writer left a text longer than its column; the save changes
  // another column only, and is refused all the same, as a save of every
  // row is.
  host_.Exec("UPDATE Item SET ShortDescription = '" + std::string(60, 'x') + "'");
  host_.Db().BeginTrans();
  std::shared_ptr<host::Item> item = items_.Get("A1");
  item->Description = "Outro";
  EXPECT_EQ(RaisedNumber([&] { items_.Save(*item); }), -2147217833);
  host_.Db().CommitTrans();
  EXPECT_EQ(host_.Scalar("SELECT Description FROM Item WHERE ItemID = 'A1'"), "Artigo");

  // A new item, written whole: a barcode too long refuses its row too.
  host::Item fresh;
  fresh.ItemID = fresh.ItemKey = "N1";
  host::ItemBarcode barcode;
  barcode.Barcode = std::string(31, '7');
  fresh.Barcodes.Add(barcode);
  EXPECT_EQ(RaisedNumber([&] { items_.Save(fresh); }), -2147217833);
  EXPECT_EQ(host_.Scalar("SELECT COUNT(*) FROM Item WHERE ItemID = 'N1'"), "0");
}

}  // namespace
}  // namespace standalone
