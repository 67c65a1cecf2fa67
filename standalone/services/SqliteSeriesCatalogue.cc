#include "standalone/services/SqliteSeriesCatalogue.h"

#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::Series;

const EntityColumns<Series> kSeriesColumns(
    {
        {"TransSerial", &Series::TransSerial},
        {"Description", &Series::Description},
        {"SeriesType", &Series::SeriesType},
        {"SeriesYear", &Series::SeriesYear},
        {"SeriesLocked", &Series::SeriesLocked},
    },
    1);

}  // namespace

bool SqliteSeriesCatalogue::Exists(std::string_view trans_serial) {
  return !db_.Query("SELECT TransSerial FROM Series WHERE TransSerial=?",
                    {host::SqlValue::Text(std::string(trans_serial))})
              ->Eof();
}

void SqliteSeriesCatalogue::Save(const Series& series, bool is_new) {
  host::SqlStatement row;
  row.SetTable("Series");
  if (is_new) {
    kSeriesColumns.Write(series, row);
    writer_.Insert(std::move(row));
  } else {
    kSeriesColumns.WriteInPlace(series, row);
    writer_.Update(std::move(row));
  }
}

std::vector<Series> SqliteSeriesCatalogue::All() {
  std::vector<Series> all;
  for (auto rs = db_.Query("SELECT * FROM Series ORDER BY TransSerial", {}); !rs->Eof();
       rs->MoveNext()) {
    kSeriesColumns.Read(*rs, all.emplace_back());
  }
  return all;
}

}  // namespace standalone
