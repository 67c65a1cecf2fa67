#ifndef LUMARO_CONNECTOR_HOST_CURRENCY_H_
#define LUMARO_CONNECTOR_HOST_CURRENCY_H_

#include <cstdint>
#include <string>

namespace host {

// A currency of the host.
struct Currency {
  std::string CurrencyID;
  double Exchange = 1;
  double Factor = 1;
  // The code of the currency in the back office's files.
  int32_t ExportCode = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_CURRENCY_H_
