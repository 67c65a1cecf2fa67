#ifndef LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_CONFIGURATION_H_
#define LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_CONFIGURATION_H_

#include <memory>
#include <string>

#include "connector/host/DatabaseService.h"
#include "initialload/LoadShared.h"

namespace lumaro {

// The first part of the initial load: the currencies, the company's tax
// region, the user groups and users, and the delegation's range of customer
// numbers, from the back office's database. Every failed statement is
// written to "Migration.log" and the next one runs.
class BSOUpgBrevantaLumaroConfiguration {
 public:
  BSOUpgBrevantaLumaroConfiguration() = default;
  BSOUpgBrevantaLumaroConfiguration(const BSOUpgBrevantaLumaroConfiguration&) = delete;
  BSOUpgBrevantaLumaroConfiguration& operator=(const BSOUpgBrevantaLumaroConfiguration&) = delete;

  // The operators to load: an SQL list of quoted codes ('A','B'); empty
  // for all.
  const std::string& AppUsersLimit() const { return app_users_limit_; }
  void SetAppUsersLimit(std::string limit) { app_users_limit_ = std::move(limit); }
  double DelegationID() const { return delegation_id_; }
  void SetDelegationID(double id) { delegation_id_ = id; }
  // The back office's database, connected by the caller.
  void SetSourceDatabase(std::shared_ptr<host::DatabaseService> source) {
    source_.Set(std::move(source));
  }
  // Told of the progress; may be none.
  void SetEvents(LoadEvents* events) { events_ = events; }

  // The configuration steps without the tax region and the delegation.
  void UpgradeConfiguration();
  // The configuration steps of the initial load: currencies, the company's
  // settings read anew, the tax region, groups, users, the delegation's
  // range of customer numbers.
  void InitializeTillara();

 private:
  void Upgrade_Currency();
  void ReloadSettings();
  void Upgrade_ConfSystem();
  void Upgrade_AppGroups();
  void Upgrade_AppUsers();
  void UpgradeCustomerRange();

  std::string app_users_limit_;
  double delegation_id_ = 0;
  SourceDatabase source_;  // closed when this object goes
  LoadEvents* events_ = nullptr;
};

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_CONFIGURATION_H_
