#ifndef LUMARO_CONNECTOR_WORKSTATION_H_
#define LUMARO_CONNECTOR_WORKSTATION_H_

#include <cstdint>
#include <string>

namespace lumaro {

// One exchange point of the settings: a back-office workstation (its Posto)
// served by a list of POS workstations writing one document series.
struct Workstation {
  // False keeps the entry out of every exchange.
  bool Active = false;
  // The back office's code of this point; names the export files.
  std::string LumaroWorkstationID;
  // The POS WorkstationID values served, comma-separated, used as they
  // stand inside "IN (...)".
  std::string WorkstationList;
  // The number of the last export file of this entry.
  int32_t LastExportNumber = 0;
  // The POS document series of this entry.
  std::string TransSerial;
};

}  // namespace lumaro

#endif  // LUMARO_CONNECTOR_WORKSTATION_H_
