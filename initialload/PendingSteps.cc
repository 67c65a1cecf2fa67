// The steps of the load of the tables that are not built yet. Each stands
// in its place in the order of the load (UpgradeTables) and does nothing,
// so that the load runs whole and each lands where it belongs when built:
// units and properties; items; kits and alternatives; stock; documents and
// tenders, and the clearing of the salesmen not reloaded.

#include "initialload/BSOUpgBrevantaLumaroTables.h"

namespace lumaro {

void BSOUpgBrevantaLumaroTables::LoadTenders() {}
void BSOUpgBrevantaLumaroTables::ClearSalesmenParties() {}
void BSOUpgBrevantaLumaroTables::Upgrade_UnitOfMeasure() {}
void BSOUpgBrevantaLumaroTables::Create_Properties() {}
void BSOUpgBrevantaLumaroTables::Initialize_ItemProperty() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Item() {}
void BSOUpgBrevantaLumaroTables::Upgrade_ItemComponents() {}
void BSOUpgBrevantaLumaroTables::Upgrade_ItemAlternative() {}
void BSOUpgBrevantaLumaroTables::LoadStock() {}
void BSOUpgBrevantaLumaroTables::insertItemsInStock() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Stock() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Documents() {}

}  // namespace lumaro
