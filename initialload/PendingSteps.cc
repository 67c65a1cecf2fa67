// The steps of the load of the tables that are not built yet. Each stands
// in its place in the order of the load (UpgradeTables) and does nothing,
// so that the load runs whole and each lands where it belongs when built:
// the geography and zones; price lines, carriers, payment terms, salesmen
// and customer groups; customers; families; warehouses, suppliers and
// banks; units and properties; items; kits and alternatives; stock;
// documents and tenders.

#include "initialload/BSOUpgBrevantaLumaroTables.h"

namespace lumaro {

void BSOUpgBrevantaLumaroTables::LoadTenders() {}
void BSOUpgBrevantaLumaroTables::Upgrade_ProvinceCodes() {}
void BSOUpgBrevantaLumaroTables::Upgrade_LocalityCodes() {}
void BSOUpgBrevantaLumaroTables::Upgrade_PriceLine() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Bank() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Zone() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Carrier() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Payment() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Salesman() {}
void BSOUpgBrevantaLumaroTables::ClearSalesmenParties() {}
void BSOUpgBrevantaLumaroTables::Update_LoadUnloadPlace() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Supplier() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Family() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Warehouse() {}
void BSOUpgBrevantaLumaroTables::Upgrade_CustomerGroups() {}
void BSOUpgBrevantaLumaroTables::Upgrade_Customer() {}
void BSOUpgBrevantaLumaroTables::Upgrade_CustomerLedgerAccount() {}
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
