#ifndef LUMARO_CONNECTOR_HOST_ICONNECTOR_EVENTS_H_
#define LUMARO_CONNECTOR_HOST_ICONNECTOR_EVENTS_H_

#include <cstdint>
#include <memory>
#include <string_view>

#include "connector/host/SystemSettings.h"

namespace host {

// The host's notifier of a running task (the connector's EventNotifier).
class IConnectorEvents {
 public:
  virtual ~IConnectorEvents() = default;
  // Shows the progress of the running task.
  virtual void Progress(int32_t current, int32_t total, std::string_view text) = 0;
  // Shows the name of the running step.
  virtual void Detail(std::string_view text) = 0;
  // Shows a message box on the host's side; `result` takes the answer.
  virtual void ShowMessage(std::string_view text, int style, int& result) = 0;
  // The SystemSettings for the settings form to use while it is open.
  virtual std::shared_ptr<host::SystemSettings> SystemSettings() = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ICONNECTOR_EVENTS_H_
