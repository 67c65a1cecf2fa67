#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_WORKSTATION_SERIES_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_WORKSTATION_SERIES_SERVICE_H_

#include <map>
#include <string>

#include "connector/host/DatabaseService.h"
#include "connector/host/WorkstationSeries.h"

namespace standalone {

// A workstation's series and documents in the tables Workstation (its
// series and default document), ConfWorkstationDocument (the documents it
// offers) and DocumentsSeriesNumber (the last number of each document of a
// series). A workstation not in Workstation yet is added as "Terminal N".
class SqliteWorkstationSeriesService : public host::WorkstationSeriesService {
 public:
  explicit SqliteWorkstationSeriesService(host::DatabaseService& db) : db_(db) {}
  void SetSeries(int32_t workstation_id, std::string_view trans_serial,
                 int32_t first_number) override;
  void SetDocument(int32_t workstation_id, std::string_view trans_document_id) override;

 private:
  void AddWorkstation(int32_t workstation_id);

  host::DatabaseService& db_;
  // The first numbers given by SetSeries, by series.
  std::map<std::string, int32_t, std::less<>> first_numbers_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_WORKSTATION_SERIES_SERVICE_H_
