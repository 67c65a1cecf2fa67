#ifndef LUMARO_CONNECTOR_HOST_SERIES_CATALOGUE_H_
#define LUMARO_CONNECTOR_HOST_SERIES_CATALOGUE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// A document series of the host: the documents of one series are numbered
// together. SeriesType 1 is a series of the POS's own tills, 2 one that
// another system numbers (the back office's "EXT").
struct Series {
  std::string TransSerial;
  std::string Description;
  int16_t SeriesType = 0;
  // The year the series is for; 0 for every year.
  int16_t SeriesYear = 0;
  // 1 when no new document may take the series.
  int16_t SeriesLocked = 0;
};

// The host's catalogue of series (ModuleManager.ConnectorRegistry).
class SeriesCatalogue {
 public:
  virtual ~SeriesCatalogue() = default;
  virtual bool Exists(std::string_view trans_serial) = 0;
  // Adds the series when `is_new`, else writes over the one of its id.
  virtual void Save(const Series& series, bool is_new) = 0;
  // Every series, by id.
  virtual std::vector<Series> All() = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_SERIES_CATALOGUE_H_
