#include "connector/host/Regional.h"

namespace host {

namespace {

// Each thread starts with the Portuguese settings; a host that knows better
// sets its own on the threads that run the connector.
thread_local RegionalSettings current_settings = RegionalSettings::Portuguese();

}  // namespace

const RegionalSettings& CurrentRegional() { return current_settings; }

void SetCurrentRegional(const RegionalSettings& settings) { current_settings = settings; }

ScopedRegional::ScopedRegional(const RegionalSettings& settings) : previous_(current_settings) {
  current_settings = settings;
}

ScopedRegional::~ScopedRegional() { current_settings = previous_; }

}  // namespace host
