#include "connector/ModConnectorLumaro.h"

#include "connector/host/Error.h"

namespace lumaro {
namespace {


struct ThreadState {
  host::Host* host = nullptr;
  std::unique_ptr<host::KeyDictionary> run_dictionary;
  std::shared_ptr<host::Currency> currency;
  std::shared_ptr<host::SystemSettings> settings_override;
};

ThreadState& State() {
  thread_local ThreadState state;
  return state;
}

}  // namespace

void ModConnectorLumaro::AttachHost(host::Host* host) {
  ThreadState& state = State();
  if (state.host != host) {
    // Another host: nothing cached for the old one may serve the new.
    state.currency.reset();
    state.settings_override.reset();
  }
  state.host = host;
}

void ModConnectorLumaro::DetachHost(host::Host* host) {
  ThreadState& state = State();
  if (state.host == host) state = ThreadState{};
}

host::Host& ModConnectorLumaro::Host() {
  host::Host* host = State().host;
  if (host == nullptr) {
    host::RaiseWith(host::err::kObjectNotSet, "The connector has no host on this thread", "ModConnectorLumaro");
  }
  return *host;
}

void ModConnectorLumaro::NewRunDictionary() {
  State().run_dictionary = std::make_unique<host::KeyDictionary>();
}

void ModConnectorLumaro::DropRunDictionary() { State().run_dictionary.reset(); }

bool ModConnectorLumaro::HasRunDictionary() { return State().run_dictionary != nullptr; }

host::KeyDictionary& ModConnectorLumaro::RunDictionary() {
  auto& dictionary = State().run_dictionary;
  if (!dictionary) {
    host::RaiseWith(host::err::kObjectNotSet, "No run dictionary on this thread", "ModConnectorLumaro");
  }
  return *dictionary;
}

std::shared_ptr<host::SystemSettings> ModConnectorLumaro::GetSystemSettings() {
  ThreadState& state = State();
  if (state.settings_override) return state.settings_override;
  return Host().SystemManager().Context().Settings();
}

void ModConnectorLumaro::SetSystemSettings(std::shared_ptr<host::SystemSettings> settings) {
  State().settings_override = std::move(settings);
}

std::shared_ptr<host::Currency> ModConnectorLumaro::GetCurrency(std::string_view currency_id) {
  ThreadState& state = State();
  // An empty cache (at first, or after a load that found nothing) first
  // holds a new currency with an empty id.
  if (!state.currency) state.currency = std::make_shared<host::Currency>();
  if (state.currency->CurrencyID != currency_id) {
    state.currency = Host().NewCurrencyService()->Get(currency_id, "");
  }
  return state.currency;
}

}  // namespace lumaro
