#include "initialload/LoadStep.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"

namespace lumaro {

bool LoadStep::Run(int line, const std::function<void()>& statement) {
  try {
    statement();
    return true;
  } catch (const host::Error& error) {
    host::Host& host = ModConnectorLumaro::Host();
    host.FileTools().WriteLog(host::FormatDate(host::Now(), "dd-mm-yyyy hh:mm"),
                              "<" + name_ + "> Line=" + std::to_string(line) + " : " +
                                  std::to_string(error.Number()) + " - " + error.Description(),
                              host.SystemManager().Context().WorkFolder(), "Migration.log");
    return false;
  }
}

}  // namespace lumaro
