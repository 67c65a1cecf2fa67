// The verifications of the host's database: the driver of the host's
// maintenance worker (nulls, relations, indexes) and the check that reads
// one row of every table column by column. They add the order, the
// confirmation, the progress and the reporting; what the worker does to the
// data is the host's.

#include <functional>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"
#include "maintenance/UIRecovery.h"

namespace lumaro {
namespace {

constexpr int32_t kConfirm = 2760002;
constexpr int32_t kNullsTitle = 2760003;
constexpr int32_t kRelationsTitle = 2760004;
constexpr int32_t kIndexesTitle = 2760026;
constexpr int32_t kIntegrityTitle = 2760023;
constexpr int32_t kCheckingTable = 2760027;
constexpr int32_t kUnreadableColumn = 2760028;
constexpr int32_t kMissingTable = 2760029;
constexpr int32_t kUpdatingTable = 2760030;
constexpr char kNullsSource[] = "UIRecovery.DBVerifyNulls";

host::UIManager& UI() { return ModConnectorLumaro::Host().UIManager(); }

std::string Message(int32_t id, const std::vector<host::Variant>& arguments = {}) {
  return arguments.empty() ? UI().Messages().Text(id) : UI().Messages().Format(id, arguments);
}

// The progress window: the worker's task and its detail joined by ": ".
class WindowProgress : public host::DataMaintenanceEvents {
 public:
  void Progress(std::string_view task, std::string_view detail, int32_t actual,
                int32_t total) override {
    std::string text(task);
    if (!detail.empty()) text += ": " + std::string(detail);
    UI().ShowProgress(text + " (" + std::to_string(actual) + "/" + std::to_string(total) + ")");
  }
};

// The worker over the POS database, and the second one when asked and the
// host has one.
std::unique_ptr<host::DataMaintenance> Worker(bool with_second, WindowProgress& progress) {
  host::Host& host = ModConnectorLumaro::Host();
  host::DatabaseConnection& connection = host.DataManager().Connection();
  std::unique_ptr<host::DataMaintenance> worker = host.NewDataMaintenance();
  worker->AddDatabase(connection.Database(), connection.PosSchema());
  if (with_second && connection.SecondDatabase() != nullptr) {
    worker->AddDatabase(*connection.SecondDatabase(), connection.SecondSchema());
  }
  worker->SetEvents(&progress);
  return worker;
}

// The frame of the three verifications: the confirmation, the window with
// each step's position, the report of the end. A failure closes the window
// and is shown, with the table in hand when there is one.
class Verification {
 public:
  Verification(int32_t title, bool with_second)
      : title_(Message(title)), with_second_(with_second) {}

  // Runs `steps`; false when declined. `on_failure` shows a failure its way.
  using Steps = std::function<void(host::DataMaintenance&, Verification&)>;
  void Run(const Steps& steps, const std::function<void(const host::Error&)>& on_failure) {
    if (UI().MsgBox(Message(kConfirm), host::msgbox::kYesNo | host::msgbox::kQuestion, title_) !=
        host::msgbox::kYes) {
      return;
    }
    UI().ShowProgress(title_);
    try {
      WindowProgress progress;
      std::unique_ptr<host::DataMaintenance> worker = Worker(with_second_, progress);
      steps(*worker, *this);
      UI().CloseProgress();
      UI().MsgBox(title_, host::msgbox::kInformation, title_);  // the end
    } catch (const host::Error& error) {
      UI().CloseProgress();
      on_failure(error);
    }
  }
  // Sets the window to step `position` of `total`.
  void Step(int position, int total, const std::string& text = "") {
    UI().ShowProgress((text.empty() ? title_ : text) + " (" + std::to_string(position) + "/" +
                      std::to_string(total) + ")");
  }
  // The box of a failure: its number, a blank and its description, and the
  // table in hand.
  void ShowFailure(const host::Error& error) {
    std::string text = std::to_string(error.Number()) + " " + error.Description();
    if (!table_.empty()) text += "\r\nTable:" + table_;
    UI().MsgBox(text, host::msgbox::kCritical, title_);
  }
  std::string table_;

 private:
  std::string title_;
  bool with_second_;
};

}  // namespace

void UIRecovery::DBVerifyNulls() {
  Verification verification(kNullsTitle, false);
  verification.Run(
      [](host::DataMaintenance& worker, Verification& v) {
        v.Step(1, 1);
        worker.VerifyNulls();
      },
      [](const host::Error& error) {
        UI().ShowError(error.Number(), error.Description(), kNullsSource);
      });
}

void UIRecovery::DBVerifyRelations(bool vbKassimoData) {
  Verification verification(kRelationsTitle, vbKassimoData);
  verification.Run(
      [](host::DataMaintenance& worker, Verification& v) {
        v.Step(1, 2);
        worker.CheckRelations();
        v.Step(2, 2);
        worker.CheckConsistency();
      },
      [&](const host::Error& error) { verification.ShowFailure(error); });
}

void UIRecovery::DBVerifyIndexes(bool vbKassimoData) {
  Verification verification(kIndexesTitle, vbKassimoData);
  verification.Run(
      [&](host::DataMaintenance& worker, Verification& v) {
        v.Step(1, 4);
        worker.CheckRelations();
        v.Step(2, 4);
        worker.AnalyzeIndexes();
        worker.CheckConsistency();
        v.Step(3, 4);
        worker.OptimizeIndexes();
        v.Step(4, 4);
        worker.Reconnect();  // so that the host sees the changed tables
        std::vector<host::TableDefinition> schema =
            ModConnectorLumaro::Host().DataManager().Connection().PosSchema();
        int position = 0;
        for (const host::TableDefinition& table : schema) {
          ++position;
          if (!worker.TableExists(table.name)) continue;
          v.table_ = table.name;
          v.Step(position, static_cast<int>(schema.size()),
                 Message(kUpdatingTable, {host::Variant(table.name)}));
          worker.RebuildTable(table.name);
        }
        v.table_.clear();
      },
      [&](const host::Error& error) { verification.ShowFailure(error); });
}

void UIRecovery::DBCheckIntegrity(bool vbKassimoData) {
  const std::string title = Message(kIntegrityTitle);
  std::string table_in_hand;
  UI().ShowProgress(title);
  try {
    WindowProgress progress;
    std::unique_ptr<host::DataMaintenance> worker = Worker(vbKassimoData, progress);
    host::DatabaseConnection& connection = ModConnectorLumaro::Host().DataManager().Connection();
    std::vector<host::TableDefinition> schema = connection.PosSchema();
    int position = 0;
    for (const host::TableDefinition& table : schema) {
      ++position;
      table_in_hand = table.name;
      UI().ShowProgress(Message(kCheckingTable, {host::Variant(table.name)}) + " (" +
                        std::to_string(position) + "/" + std::to_string(schema.size()) + ")");
      if (!worker->TableExists(table.name)) {
        UI().MsgBox(Message(kMissingTable, {host::Variant(table.name)}), host::msgbox::kOkOnly,
                    title);
        continue;
      }
      host::RecordsetPtr row =
          connection.Database().OpenRecordset("SELECT TOP 1 * FROM [" + table.name + "]");
      // Each column by itself, so that one that cannot be read is named and
      // the walk goes on. An empty table's columns are there to be read.
      for (const host::TableDefinition::Column& column : table.columns) {
        std::string name = host::Replace(host::Replace(column.name, "[", ""), "]", "");
        try {
          if (row->Eof()) {
            if (!row->HasField(name)) host::Raise(3265, name);
          } else {
            row->Fields(name);
          }
        } catch (const host::Error&) {
          UI().MsgBox(Message(kUnreadableColumn, {host::Variant(table.name), host::Variant(name)}),
                      host::msgbox::kOkOnly, title);
        }
      }
    }
    UI().CloseProgress();
  } catch (const host::Error& error) {
    UI().CloseProgress();
    UI().MsgBox(
        std::to_string(error.Number()) + " " + error.Description() + "\r\nTable:" + table_in_hand,
        host::msgbox::kCritical, title);
  }
}

}  // namespace lumaro
