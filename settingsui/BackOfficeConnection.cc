#include "settingsui/BackOfficeConnection.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Error.h"

namespace lumaro {
namespace {

constexpr int32_t kConnected = 4140032;
constexpr int32_t kNotConnected = 4140033;

}  // namespace

std::shared_ptr<host::DatabaseService> ConnectBackOffice(const LumaroConnectorSetting& settings) {
  host::DatabaseDescription description;
  description.kind = 1;
  description.DatabaseName =
      settings.SQLCompanyID + std::to_string(settings.SQLCompanyYear) + "Lumaro";
  description.Server = settings.SQLDataSource;
  description.IntegratedSecurity = settings.SQLAuthentication == 0;
  description.Login = settings.SQLUserName;
  description.Password = settings.SQLPassword;
  try {
    return ModConnectorLumaro::Host().DataManager().Connection().OpenDatabase(description);
  } catch (const std::exception&) {
    return nullptr;
  }
}

bool TestBackOfficeConnection(const LumaroConnectorSetting& settings) {
  std::shared_ptr<host::DatabaseService> back_office = ConnectBackOffice(settings);
  if (back_office) back_office->Disconnect();
  host::UIManager& ui = ModConnectorLumaro::Host().UIManager();
  ui.MsgBox(ui.Messages().Text(back_office ? kConnected : kNotConnected),
            host::msgbox::kInformation);
  return back_office != nullptr;
}

}  // namespace lumaro
