#ifndef LUMARO_CONNECTOR_HOST_ENTITIES_H_
#define LUMARO_CONNECTOR_HOST_ENTITIES_H_

#include <cstdint>
#include <string>

namespace host {

// The host's entities, as far as the connector reads or writes them.

struct Salesman {
  double SalesmanID = 0;
  std::string SalesmanKey;
  std::string SalesmanName;
};

struct Carrier {
  double CarrierID = 0;
  std::string CarrierKey;
  std::string CarrierName;
};

struct Payment {
  double PaymentID = 0;
  std::string PaymentKey;
  std::string Description;
};

struct Tender {
  double TenderID = 0;
  std::string TenderKey;
  std::string Description;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ENTITIES_H_
