#include "exchange/LumaroExecutioner.h"

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "exchange/export/EntryExport.h"
#include "exchange/export/KeyCaches.h"
#include "exchange/import/ImportRun.h"
#include "importlog/LumaroLog.h"

namespace lumaro {

LumaroExecutioner::LumaroExecutioner() = default;
LumaroExecutioner::~LumaroExecutioner() = default;

bool LumaroExecutioner::StartRun() {
  settings_ = std::make_unique<LumaroConnectorSetting>();
  setting_store_ = ModConnectorLumaro::Host().NewSettingStore();
  if (!setting_store_->Load(*settings_)) return false;
  log_ = std::make_unique<DSOLumaroLog>();
  return log_->CheckOrCreateLumaroLogTable();
}

void LumaroExecutioner::ExecuteImport() {
  if (!StartRun()) return;
  bool any_active = false;
  for (int i = 1; i <= settings_->LumaroWorkstationCount(); ++i) {
    if (settings_->Workstation(i).Active) any_active = true;
  }
  ModConnectorLumaro::NewRunDictionary();
  // One import serves every entry: the list is only a switch.
  if (any_active) ImportData();
  ModConnectorLumaro::DropRunDictionary();
}

void LumaroExecutioner::ExecuteExport() { ExecuteReExport(host::Date{0}, host::Date{0}); }

void LumaroExecutioner::ExecuteReExport(host::Date initial_date, host::Date final_date) {
  if (!StartRun()) return;
  // Kept for every entry, and not dropped at the end: the key caches carry
  // over from one entry to the next.
  ModConnectorLumaro::NewRunDictionary();
  key_caches_ = std::make_unique<KeyCaches>();
  ExportEntries(initial_date, final_date);
}

void LumaroExecutioner::ExportEntries(host::Date initial_date, host::Date final_date) {
  // Counted wider than the 16-bit index, so that a list of 32767 entries
  // ends its loop.
  for (int entry = 1; entry <= settings_->LumaroWorkstationCount(); ++entry) {
    if (!settings_->Workstation(entry).Active) continue;
    int16_t index = static_cast<int16_t>(entry);
    // The path is read anew for each entry.
    ExportData(settings_->ImportExportPath, index, initial_date, final_date);
  }
}

void LumaroExecutioner::ExportData(const std::string& path, int16_t& index, host::Date initial_date,
                                   host::Date final_date) {
  try {
    if (!settings_ || !key_caches_) {
      host::Raise(host::err::kObjectNotSet, "LumaroExecutioner");
    }
    Workstation entry = settings_->Workstation(index);
    double number = entry.LastExportNumber + 1.0;
    EntryExport file(*settings_, entry, notifier_, *key_caches_);
    EntryExport::Outcome outcome = file.Run(path, number, initial_date, final_date);
    if (!outcome.written) return;
    // The number is stored file by file, not at the end of the run, so it
    // survives a failure of a later entry.
    entry.LastExportNumber = host::CLng(host::Variant(number));
    settings_->SetWorkstation(index, entry);
    setting_store_->Save(*settings_);
    // An export has its line in the same table as an import; its size and
    // date stay unset.
    LumaroLog log;
    log.IsNew = true;
    log.ImportDate = host::Now();
    log.WorkstationID = host::CInt(host::Variant(
        ModConnectorLumaro::Host().SystemManager().Context().CurrentWorkstation().WorkstationID()));
    log.Filename = outcome.file_name;
    log_->Save(log);
    if (host::ExportObserver* observer = ModConnectorLumaro::Host().ExportObserver()) {
      observer->FileMade(outcome.first_date, outcome.records);
    }
  } catch (const host::Error& error) {
    throw error.WithSource("<ExportData>");
  }
}

void LumaroExecutioner::ImportData() {
  ImportRun run(*settings_, *setting_store_, *log_, notifier_);
  run.ImportData();
}

void LumaroExecutioner::NotifyDetail(std::string_view text) {
  if (notifier_) notifier_->Detail(text);
}

void LumaroExecutioner::NotifyProgress(int32_t current, int32_t total, std::string_view text) {
  if (notifier_) notifier_->Progress(current, total, text);
}

}  // namespace lumaro
