#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_FAMILY_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_FAMILY_SERVICE_H_

#include <optional>
#include <string>
#include <unordered_map>

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"
#include "standalone/services/EntityRows.h"
#include "standalone/services/KeyIdCache.h"

namespace standalone {

// Families: the table Family, and the level rows of each in
// FamilyProfitRate. The default family is the root of the tree (level 0).
class SqliteFamilyService : public host::FamilyService {
 public:
  explicit SqliteFamilyService(host::DatabaseService& db) : db_(db), writer_(db) {}
  double GetIDFromKey(std::string_view family_key) override;
  bool Exists(double family_id) override;
  std::shared_ptr<host::Family> Get(double family_id) override;
  double NextID() override;
  double GetDefaultFamilyID() override;
  void Save(const host::Family& family, double family_id) override;

 private:
  host::DatabaseService& db_;
  EntityWriter writer_;
  KeyIdCache<double> ids_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_FAMILY_SERVICE_H_
