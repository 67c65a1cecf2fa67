#ifndef LUMARO_STANDALONE_REPLACE_ROW_H_
#define LUMARO_STANDALONE_REPLACE_ROW_H_

#include <string>
#include <utility>
#include <vector>

#include "connector/host/DatabaseService.h"
#include "connector/host/FieldConverter.h"

namespace standalone {

using ColumnValues = std::vector<std::pair<std::string, host::SqlValue>>;

// Writes the row of `table` whose key columns hold `key`: updates its
// `values` when the row is there, else inserts it. One statement writes,
// so that a failure changes nothing and leaves the caller's transaction as
// it was; every database the host runs on takes it, which no single
// "insert or replace" statement does.
inline void ReplaceRow(host::DatabaseService& database, const std::string& table,
                       const ColumnValues& key, const ColumnValues& values) {
  std::string where;
  std::vector<host::SqlValue> key_values;
  for (const auto& [name, value] : key) {
    where += (where.empty() ? " WHERE " : " AND ") + name + "=?";
    key_values.push_back(value);
  }
  host::RecordsetPtr found = database.Query("SELECT COUNT(*) FROM " + table + where, key_values);
  if (host::FieldConverter::ToNumber(found->Fields(0)) > 0) {
    std::string set;
    std::vector<host::SqlValue> all;
    for (const auto& [name, value] : values) {
      set += (set.empty() ? "" : ", ") + name + "=?";
      all.push_back(value);
    }
    all.insert(all.end(), key_values.begin(), key_values.end());
    database.Query("UPDATE " + table + " SET " + set + where, all);
    return;
  }
  std::string names;
  std::string markers;
  std::vector<host::SqlValue> all;
  for (const ColumnValues* part : {&key, &values}) {
    for (const auto& [name, value] : *part) {
      names += (names.empty() ? "" : ", ") + name;
      markers += markers.empty() ? "?" : ", ?";
      all.push_back(value);
    }
  }
  database.Query("INSERT INTO " + table + " (" + names + ") VALUES (" + markers + ")", all);
}

}  // namespace standalone

#endif  // LUMARO_STANDALONE_REPLACE_ROW_H_
