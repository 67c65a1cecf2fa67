#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_ITEM_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_ITEM_SERVICE_H_

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "standalone/services/EntityColumns.h"
#include "standalone/services/EntityRows.h"
#include "standalone/services/KeyIdCache.h"

namespace standalone {

// Items: the table Item and the rows that hang on an item (ItemSellingPrices,
// ItemSupplier, POSIdentity for the further barcodes, ItemComponents,
// AlternativeItem, ItemPropertytable). A save writes the item's row and
// replaces each collection, all or nothing. Keeps the keys it has read and
// the host's price lines for its own life (the run that made it).
//
// While the database's change counter of a table stays where it was (inside
// one transaction, nothing written to the table since), the service trusts
// what it last read of it: the id of the last key it looked up, and the
// rows of the last item it loaded. A save of that item writes only the row
// and the collections that differ from them; what is unchanged is already
// in the database. Kept so on purpose: a value left unchanged keeps the
// stored form another writer gave it (-1 for true, a date without its
// time), which reads the same; writing it again is the cost this saves.
class SqliteItemService : public host::ItemService {
 public:
  explicit SqliteItemService(host::DatabaseService& db) : db_(db), writer_(db) {}
  std::string GetKey(std::string_view item_id) override;
  std::string GetItemIDFromKey(std::string_view item_key) override;
  bool Exists(std::string_view item_id) override;
  std::shared_ptr<host::Item> Get(std::string_view item_id) override;
  bool HasComponents(std::string_view item_id) override;
  void Save(const host::Item& item) override;
  void SaveSellingPrices(const host::ItemSellingPrices& prices, std::string_view item_id) override;

 private:
  // The collections of an item, each a table of rows with the item's id.
  enum Collection {
    kPrices,
    kSuppliers,
    kBarcodes,
    kComponents,
    kAlternatives,
    kPropertyTable,
    kCollectionCount
  };
  struct Filled {
    bool item = false;  // whether the Item row is there
    std::array<bool, kCollectionCount> collection{};
  };
  // Which of the item's rows there are: one query for all.
  Filled CollectionsWithRows(std::string_view item_id);
  // The rows of a collection of the item (none when `filled` says so).
  template <typename Row>
  std::vector<Row> LoadRows(Collection collection, const Filled& filled, std::string_view item_id,
                            const char* order_by, const EntityColumns<Row>& columns);
  // Replaces the rows of a collection of the item by `rows`: nothing when
  // they are the `loaded` rows (the database's, when given), no delete
  // when the database has none (`loaded` empty, or else `has_rows` false).
  // Writes the rows that differ over the loaded ones, each in place, when
  // the collection has a key and the rows have the loaded rows' keys in
  // their order; false, with nothing written, when they cannot be.
  template <typename Row>
  bool RewriteInPlace(const char* table, std::string_view item_id, const std::vector<Row>& rows,
                      const std::vector<Row>& loaded, const EntityColumns<Row>& columns);
  template <typename Row>
  void WriteRows(Collection collection, std::string_view item_id, const std::vector<Row>& rows,
                 const std::vector<Row>* loaded, bool has_rows, const EntityColumns<Row>& columns);

  // The item's rows as the database holds them (without the price rows
  // that Get adds for price lines the item has no row for).
  // The change counters of Item and of each collection's table, in the
  // order of Collection.
  using Counters = std::array<std::optional<int64_t>, kCollectionCount + 1>;
  struct Loaded {
    host::Item item;
    Counters counters;  // when it was read
  };
  // What of the last item loaded is still as the database holds it.
  struct Trusted {
    const host::Item* item = nullptr;
    bool row = false;  // its Item row
    std::array<bool, kCollectionCount> collection{};
    bool all = false;  // the row and every collection
  };
  Counters CountersNow() const;
  // A set of collections, a bit each in the order of Collection.
  using Mask = unsigned;
  // The collections whose table has rows at all: those an item may have
  // rows in, and that a read must ask about. A table found empty is not
  // asked about again while its change counter stands still.
  Mask CollectionsToAsk(const Counters& counters);
  // The flags of the collections `asked`, from position `first` of the
  // row on; the others have no rows.
  static void ReadFlags(const host::RowReader& row, int first, Mask asked, Filled& filled);
  // Raise as the writes of every row of the item (of the collection) would
  // for a text too long for its column.
  void CheckWhole(const host::Item& item, bool exists);
  template <typename Row>
  void CheckRows(Collection collection, const std::string& item_id, const std::vector<Row>& rows,
                 const EntityColumns<Row>& columns);
  // Of the last item loaded, when it is `item_id`, what is unchanged since.
  Trusted TrustedFor(std::string_view item_id) const;

  host::DatabaseService& db_;
  EntityWriter writer_;
  std::optional<Loaded> loaded_;
  KeyIdCache<std::string> ids_;
  std::unordered_map<std::string, std::string> keys_;
  std::array<std::string, kCollectionCount> load_sql_;  // by LoadRows, once each
  // What is known of a collection's table having rows at all.
  struct TableState {
    std::optional<int64_t> empty_at;  // the change counter at which it had none
    bool had_rows = false;
  };
  std::array<TableState, kCollectionCount> tables_;
  // The texts of Get and CollectionsWithRows, by the collections asked.
  std::array<std::string, 1u << kCollectionCount> get_sql_;
  std::array<std::string, 1u << kCollectionCount> exists_sql_;
  std::vector<double> price_lines_;
  bool price_lines_read_ = false;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_ITEM_SERVICE_H_
