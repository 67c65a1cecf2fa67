#ifndef LUMARO_APP_RUN_ACCOUNT_H_
#define LUMARO_APP_RUN_ACCOUNT_H_

#include <string>
#include <vector>

#include "app/ExportAccount.h"
#include "app/ImportAccount.h"

namespace app {

// A message box the connector showed, as it was written.
struct Box {
  std::string text;
  int style = 0;
};

// What one exchange run (import, export, re-export) did, as the connector
// told it while it went: the import files, the export points, the boxes.
struct RunAccount {
  ImportAccount imports;
  ExportAccount exports;
  std::vector<Box> boxes;

  // One sentence for each thing a person must see to; none when all went
  // through.
  std::vector<std::string> Stops() const {
    std::vector<std::string> stops = imports.Stops();
    for (std::string& stop : exports.Stops()) stops.push_back(std::move(stop));
    return stops;
  }
};

}  // namespace app

#endif  // LUMARO_APP_RUN_ACCOUNT_H_
