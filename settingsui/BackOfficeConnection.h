#ifndef LUMARO_SETTINGSUI_BACK_OFFICE_CONNECTION_H_
#define LUMARO_SETTINGSUI_BACK_OFFICE_CONNECTION_H_

#include <memory>

#include "connector/LumaroConnectorSetting.h"
#include "connector/host/DatabaseService.h"

namespace lumaro {

// Connects to the back office's database as the settings describe it,
// through the host (DataManager.Connection.OpenDatabase): the database
// <SQLCompanyID><SQLCompanyYear>Lumaro on the server SQLDataSource, with
// integrated security when SQLAuthentication is 0, else with SQLUserName
// and SQLPassword. Any failure gives nullptr.
std::shared_ptr<host::DatabaseService> ConnectBackOffice(const LumaroConnectorSetting& settings);

// The test of the settings form's button: connects, disconnects again, and
// shows message 4140032 when the back office was reached, 4140033 when not.
// Returns whether it was reached.
bool TestBackOfficeConnection(const LumaroConnectorSetting& settings);

}  // namespace lumaro

#endif  // LUMARO_SETTINGSUI_BACK_OFFICE_CONNECTION_H_
