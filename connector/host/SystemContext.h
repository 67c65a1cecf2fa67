#ifndef LUMARO_CONNECTOR_HOST_SYSTEM_CONTEXT_H_
#define LUMARO_CONNECTOR_HOST_SYSTEM_CONTEXT_H_

#include <cstdint>
#include <memory>
#include <string>

#include "connector/host/Currency.h"
#include "connector/host/DocumentDefinition.h"
#include "connector/host/Security.h"
#include "connector/host/SystemSettings.h"

namespace host {

// The workstation the host runs as.
class CurrentWorkstation {
 public:
  virtual ~CurrentWorkstation() = default;
  virtual int32_t WorkstationID() const = 0;
  // The key of the document series this workstation writes.
  virtual std::string SeriesKey() const = 0;
  virtual DocumentCatalogue& Documents() = 0;
  // Reads the workstation's defaults and documents anew, after the
  // documents changed.
  virtual void Refresh() {}
};

// SystemManager.Context: the host's state of this installation.
class SystemContext {
 public:
  virtual ~SystemContext() = default;

  virtual std::shared_ptr<SystemSettings> Settings() = 0;
  virtual void SetSettings(std::shared_ptr<SystemSettings> settings) = 0;
  // The settings loader: the settings object of `key` read anew from the
  // database; nullptr when there is none.
  virtual std::shared_ptr<SystemSettings> LoadSettings(int32_t key) = 0;
  // The default currency.
  virtual const Currency& Defaults() = 0;
  virtual std::string WorkFolder() const = 0;
  // Text that identifies the host's company; goes in the export header.
  virtual std::string CompanyNumber() const = 0;
  virtual host::Crypto& Crypto() = 0;
  virtual host::CurrentWorkstation& CurrentWorkstation() = 0;
  virtual int32_t CurrentUser() const = 0;
  virtual std::string CurrentUserName() const = 0;
  // Makes the user of that id and name the current one.
  virtual void SetCurrentUser(int32_t id, std::string name) = 0;
  virtual int32_t CurrentSession() const = 0;
  virtual int32_t TerminalCount() const = 0;
  virtual bool ExternalSeries() const = 0;
  virtual std::string ItemImageFolder() const = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_SYSTEM_CONTEXT_H_
