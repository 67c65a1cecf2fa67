#ifndef LUMARO_CONNECTOR_LUMARO_CONNECTOR_H_
#define LUMARO_CONNECTOR_LUMARO_CONNECTOR_H_

#include <memory>
#include <string>

#include "connector/host/Host.h"
#include "connector/host/IConnector.h"

namespace lumaro {

// The object the POS host makes and talks to. It answers fixed questions
// about itself, opens its two screens, keeps the host's notifier, and for
// each exchange makes a new LumaroExecutioner, runs one operation and drops
// it. It holds no settings: whatever needs them loads them anew.
class LumaroConnector : public host::IConnector {
 public:
  static constexpr char kClassKey[] = "Orbiva.Vendara.Connector.Lumaro";

  // `host` must outlive the connector.
  explicit LumaroConnector(host::Host& host);
  ~LumaroConnector() override;

  std::string ConnectorID() override { return kClassKey; }
  std::string Description() override { return "Integrador Orbiva Lumaro"; }
  std::string Signature(std::string_view sign_text) override;
  bool HasUISetting() override { return true; }
  std::string Version() override;
  bool Config() override;
  bool Init() override { return true; }
  void Dispose() override { notifier_.reset(); }
  void Execute() override {}
  bool ValidateSettings() override;
  void SetEventNotifier(std::shared_ptr<host::IConnectorEvents> notifier) override {
    notifier_ = std::move(notifier);
  }
  bool HasUITrace() override { return true; }
  bool LoadDefaults(std::string_view xml_settings) override;
  // The settings are stored by the settings form, never by this call.
  bool Save() override { return false; }
  bool Delete() override;
  void ShowTrace() override;
  std::string FunctionalLevel() override { return "SQL10"; }
  void ResetData() override {}
  // The connector carries out import, export and re-export itself.
  bool HandleImportExport() override { return true; }
  bool HandleReExport() override { return true; }
  void ImportData() override;
  void ExportData() override;
  void ReExport(host::Date initial_date, host::Date final_date) override;

  bool HasEventNotifier() const { return notifier_ != nullptr; }

 private:
  // Makes this connector's host the one its thread's code reaches.
  host::Host& Attach();

  host::Host& host_;
  std::shared_ptr<host::IConnectorEvents> notifier_;
};

}  // namespace lumaro

#endif  // LUMARO_CONNECTOR_LUMARO_CONNECTOR_H_
