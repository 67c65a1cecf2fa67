#ifndef LUMARO_APP_ATTACHED_HOST_H_
#define LUMARO_APP_ATTACHED_HOST_H_

#include "connector/ModConnectorLumaro.h"
#include "standalone/StandaloneHost.h"

namespace app {

// The connector's code linked into this program (its settings class, its
// file check, its settings form's steps) reaches the host through its
// module: while this lives, that is this program's host.
class AttachedHost {
 public:
  explicit AttachedHost(standalone::StandaloneHost& host) : host_(host) {
    lumaro::ModConnectorLumaro::AttachHost(&host_);
  }
  ~AttachedHost() { lumaro::ModConnectorLumaro::DetachHost(&host_); }
  AttachedHost(const AttachedHost&) = delete;
  AttachedHost& operator=(const AttachedHost&) = delete;

 private:
  standalone::StandaloneHost& host_;
};

}  // namespace app

#endif  // LUMARO_APP_ATTACHED_HOST_H_
