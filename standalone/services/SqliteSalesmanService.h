#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_SALESMAN_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_SALESMAN_SERVICE_H_

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

// Salesmen: the table Salesman, keyed by the back office's SalesmanKey.
class SqliteSalesmanService : public host::SalesmanService {
 public:
  explicit SqliteSalesmanService(host::DatabaseService& db) : db_(db), writer_(db) {}
  std::shared_ptr<host::Salesman> Get(double salesman_id, std::string_view salesman_key) override;
  double GetIDFromKey(std::string_view salesman_key) override;
  double GetFirstID() override;
  double NextID() override;
  void Save(const host::Salesman& salesman, double salesman_id) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_SALESMAN_SERVICE_H_
