#ifndef LUMARO_CONNECTOR_HOST_ICONNECTOR_H_
#define LUMARO_CONNECTOR_HOST_ICONNECTOR_H_

#include <memory>
#include <string>
#include <string_view>

#include "connector/host/Date.h"
#include "connector/host/IConnectorEvents.h"

namespace host {

class Host;

// The host's plug-in contract, in the order of the contract.
class IConnector {
 public:
  virtual ~IConnector() = default;
  virtual std::string ConnectorID() = 0;
  virtual std::string Description() = 0;
  virtual std::string Signature(std::string_view sign_text) = 0;
  virtual bool HasUISetting() = 0;
  virtual std::string Version() = 0;
  virtual bool Config() = 0;
  virtual bool Init() = 0;
  virtual void Dispose() = 0;
  virtual void Execute() = 0;
  virtual bool ValidateSettings() = 0;
  virtual void SetEventNotifier(std::shared_ptr<IConnectorEvents> notifier) = 0;
  virtual bool HasUITrace() = 0;
  virtual bool LoadDefaults(std::string_view xml_settings) = 0;
  virtual bool Save() = 0;
  virtual bool Delete() = 0;
  virtual void ShowTrace() = 0;
  virtual std::string FunctionalLevel() = 0;
  virtual void ResetData() = 0;
  virtual bool HandleImportExport() = 0;
  virtual bool HandleReExport() = 0;
  virtual void ImportData() = 0;
  virtual void ExportData() = 0;
  virtual void ReExport(Date initial_date, Date final_date) = 0;
};

// The plug-in's one entry point: gives a new connector for `class_key`, or
// nullptr for a key it does not serve. The host owns the result (delete).
// `host` must outlive the connector.
using CreateConnectorFunction = IConnector* (*)(const char* class_key, Host* host);
inline constexpr char kCreateConnectorSymbol[] = "CreateConnector";

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ICONNECTOR_H_
