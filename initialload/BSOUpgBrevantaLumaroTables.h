#ifndef LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_
#define LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_

#include <memory>
#include <string>

#include "connector/host/DatabaseService.h"

namespace lumaro {

// The load of the POS's tables from the back office's database. For now it
// holds the steps of the taxes.
class BSOUpgBrevantaLumaroTables {
 public:
  BSOUpgBrevantaLumaroTables() = default;
  // Closes the back office's database, if it was given.
  ~BSOUpgBrevantaLumaroTables();
  BSOUpgBrevantaLumaroTables(const BSOUpgBrevantaLumaroTables&) = delete;
  BSOUpgBrevantaLumaroTables& operator=(const BSOUpgBrevantaLumaroTables&) = delete;

  // The back office's database, connected by the caller.
  void SetSourceDatabase(std::shared_ptr<host::DatabaseService> source) {
    source_ = std::move(source);
  }

  // Fills the run dictionary with the host's tax class of each of the back
  // office's tax types ("TaxableGroupIDTipoIva|<type>"), of each rate
  // ("TaxableGroupIDPorIva|<rate>") and the rate of each type
  // ("TaxRate_TipoIva|<type>"), from the IVA rows of TaxTable for the
  // host's country and region. A failure is logged and the step goes on.
  void Load_Taxes();

  // The steps of the taxes that the load runs before and at the start of
  // the tables; each of them also runs by itself. Every failed statement is
  // written to "Migration.log" under the step's name, and the step goes on.
  //
  // The IVA rates of the host's country and region, each from the back
  // office's parameter in force today; a rate already equal, or a host row
  // missing, is left as it is.
  void Upgrade_Taxes();
  // The back office's reason of exemption, on the exempt class of every
  // country and region.
  void Upgrade_TaxExemptionReason();
  // The host's use of lots and serial numbers (always on), of the retention
  // tax, and of kits (when the back office has any).
  void Load_ApplicationParam();

 private:
  // The name of the parameter `prefix`<YYYYMMDD> in force today: the latest
  // date not in the future; the bare prefix when there is none.
  std::string GetParameterKeyByDate(const std::string& prefix);
  host::DatabaseService& Source();

  std::shared_ptr<host::DatabaseService> source_;
};

}  // namespace lumaro

#endif  // LUMARO_INITIALLOAD_BSO_UPG_BREVANTA_LUMARO_TABLES_H_
