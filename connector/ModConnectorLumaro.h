#ifndef LUMARO_CONNECTOR_MOD_CONNECTOR_LUMARO_H_
#define LUMARO_CONNECTOR_MOD_CONNECTOR_LUMARO_H_

#include <memory>
#include <string_view>

#include "connector/host/Currency.h"
#include "connector/host/Host.h"
#include "connector/host/KeyDictionary.h"
#include "connector/host/SystemSettings.h"

namespace lumaro {

// The connector's per-thread shared state and accessors: the host's roots,
// the run dictionary, the one-entry currency cache and the system settings
// override. Each thread has its own; nothing is shared between threads.
class ModConnectorLumaro {
 public:
  // The host whose roots this thread's connector code reaches. The
  // connector attaches its host when it is made; the host outlives it.
  static void AttachHost(host::Host* host);
  static void DetachHost(host::Host* host);
  // Raises 91 when no host is attached.
  static host::Host& Host();

  // The run dictionary of the current exchange or load. A run makes it at
  // its start; every routine that reads it takes for granted that it exists
  // (a read without one raises 91).
  static void NewRunDictionary();
  static void DropRunDictionary();
  static bool HasRunDictionary();
  static host::KeyDictionary& RunDictionary();

  // The override if set, else SystemManager.Context.Settings.
  static std::shared_ptr<host::SystemSettings> GetSystemSettings();
  // Stores the override; an empty reference clears it.
  static void SetSystemSettings(std::shared_ptr<host::SystemSettings> settings);

  // The currency of the id, from a one-entry cache: an empty cache first
  // holds a new currency with an empty id; when the cached id differs from
  // the argument (exactly, case and blanks included) the currency service
  // loads the id and its result replaces the cache, an empty reference
  // included. The cached reference is returned in every case.
  static std::shared_ptr<host::Currency> GetCurrency(std::string_view currency_id);
};

}  // namespace lumaro

#endif  // LUMARO_CONNECTOR_MOD_CONNECTOR_LUMARO_H_
