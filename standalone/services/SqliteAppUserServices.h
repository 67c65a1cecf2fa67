#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_APP_USER_SERVICES_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_APP_USER_SERVICES_H_

// The host's user groups (AppGroups) and users (AppUsers, with their groups
// in AppUsersGroups).

#include "connector/host/DatabaseService.h"
#include "connector/host/EntityServices.h"

namespace standalone {

class SqliteAppGroupService : public host::AppGroupService {
 public:
  explicit SqliteAppGroupService(host::DatabaseService& db) : db_(db) {}
  std::optional<host::AppGroup> FindByName(std::string_view name) override;
  int16_t Add(host::AppGroup& group) override;
  bool Exists(int16_t group_id) override;

 private:
  host::DatabaseService& db_;
};

class SqliteAppUserService : public host::AppUserService {
 public:
  explicit SqliteAppUserService(host::DatabaseService& db) : db_(db) {}
  std::shared_ptr<host::AppUser> GetByKey(std::string_view key) override;
  // A user and its groups are written together, or not at all.
  void Save(host::AppUser& user) override;

 private:
  host::DatabaseService& db_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_APP_USER_SERVICES_H_
