#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_SERIES_CATALOGUE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_SERIES_CATALOGUE_H_

#include "connector/host/DatabaseService.h"
#include "connector/host/SeriesCatalogue.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

// The document series, in the Series table.
class SqliteSeriesCatalogue : public host::SeriesCatalogue {
 public:
  explicit SqliteSeriesCatalogue(host::DatabaseService& db) : db_(db), writer_(db) {}
  bool Exists(std::string_view trans_serial) override;
  void Save(const host::Series& series, bool is_new) override;
  std::vector<host::Series> All() override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_SERIES_CATALOGUE_H_
