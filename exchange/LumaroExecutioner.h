#ifndef LUMARO_EXCHANGE_LUMARO_EXECUTIONER_H_
#define LUMARO_EXCHANGE_LUMARO_EXECUTIONER_H_

#include <memory>
#include <string>

#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Date.h"
#include "connector/host/IConnectorEvents.h"
#include "connector/host/SettingStore.h"
#include "importlog/DSOLumaroLog.h"

namespace lumaro {

class KeyCaches;

// The exchange engine: one object lives for one run. The connector makes it,
// gives it the notifier, calls one Execute... and drops it.
//
// Every run starts alike: the settings are loaded (nothing stored: the run
// returns quietly), and the table LumaroLog is made if missing (if that
// fails, the run returns quietly too). Nothing is reported by a result:
// progress goes through the notifier, messages through message boxes, a
// failure as a raised host::Error.
class LumaroExecutioner {
 public:
  LumaroExecutioner();
  ~LumaroExecutioner();
  LumaroExecutioner(const LumaroExecutioner&) = delete;
  LumaroExecutioner& operator=(const LumaroExecutioner&) = delete;

  // May be empty: a run without a notifier reports nothing, and fails at its
  // first report if it has something to export.
  void SetEventNotifier(std::shared_ptr<host::IConnectorEvents> notifier) {
    notifier_ = std::move(notifier);
  }

  void Execute() {}
  void ExecuteImport();
  // One file for each active entry, with what is pending.
  void ExecuteExport();
  // As ExecuteExport, but selecting by CreateDate between the two dates
  // (when both differ from 0) instead of what is pending.
  void ExecuteReExport(host::Date initial_date, host::Date final_date);

  // Writes the export file of the entry `index`; both dates 0 outside a
  // re-export. Part of an export run: called outside one, it raises 91. Any failure but the two that show a message box goes on to
  // the caller with the source "<ExportData>".
  void ExportData(const std::string& path, int16_t& index, host::Date initial_date,
                  host::Date final_date);

  void NotifyDetail(std::string_view text);
  void NotifyProgress(int32_t current, int32_t total, std::string_view text);

 private:
  // The start of every run; false when the run is to end quietly.
  bool StartRun();
  void ExportEntries(host::Date initial_date, host::Date final_date);
  void ImportData();

  std::shared_ptr<host::IConnectorEvents> notifier_;
  std::unique_ptr<LumaroConnectorSetting> settings_;
  std::unique_ptr<host::SettingStore> setting_store_;
  std::unique_ptr<DSOLumaroLog> log_;
  std::unique_ptr<KeyCaches> key_caches_;
};

}  // namespace lumaro

#endif  // LUMARO_EXCHANGE_LUMARO_EXECUTIONER_H_
