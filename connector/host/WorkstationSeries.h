#ifndef LUMARO_CONNECTOR_HOST_WORKSTATION_SERIES_H_
#define LUMARO_CONNECTOR_HOST_WORKSTATION_SERIES_H_

#include <cstdint>
#include <string_view>

namespace host {

// The series and the documents of the host's POS workstations: which
// series a workstation writes, and which documents it offers.
class WorkstationSeriesService {
 public:
  virtual ~WorkstationSeriesService() = default;
  // The workstation writes the series `trans_serial` (one of the series
  // catalogue's) from now on. `first_number` is the last
  // number taken by a document of the series that this host has not
  // numbered yet; numbers already taken stay as they are.
  virtual void SetSeries(int32_t workstation_id, std::string_view trans_serial,
                         int32_t first_number) = 0;
  // The workstation offers the document and takes it by default, numbered
  // in the workstation's series.
  virtual void SetDocument(int32_t workstation_id, std::string_view trans_document_id) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_WORKSTATION_SERIES_H_
