#ifndef LUMARO_SETTINGSUI_FRM_SETTINGS_H_
#define LUMARO_SETTINGSUI_FRM_SETTINGS_H_

#include <QDialog>
#include <memory>
#include <string>

#include "connector/LumaroConnectorSetting.h"
#include "connector/host/IConnectorEvents.h"
#include "connector/host/SettingStore.h"
#include "initialload/LoadShared.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QSpinBox;
class QTabWidget;
class QTableWidget;

namespace lumaro {

// The connector's settings, "Configuração do Integrador": one
// LumaroConnectorSetting edited in two tabs (the exchange folder, the back
// office's database and the exchange points; the limits of the initial
// load), saved with cmdSave after ValidateSettings, and the initial load
// started with cmdInitialize. Reads and writes through the host attached to
// the thread's connector code (ModConnectorLumaro).
class frmSettings : public QDialog, public LoadEvents {
 public:
  // The form loaded: captions from the catalogue, grid and numbers set up,
  // the till list and the grid empty.
  explicit frmSettings(QWidget* parent = nullptr);
  ~frmSettings() override;

  // Puts the settings into the controls; a till already chosen can only be
  // changed by reading the back office again.
  void Fill(LumaroConnectorSetting& setting);
  // Copies the controls into `setting` (its points replaced by the grid's
  // rows) and answers ValidateSettings with its boxes.
  bool ReadSettings(LumaroConnectorSetting& setting);

  // The buttons.
  void TestConnection();
  void LoadGrid();
  void ChooseFolder();
  void ChooseWorkstations(int row);
  void Save();
  void Initialize();

  bool Saved() const { return saved_; }
  LumaroConnectorSetting& Setting() { return *setting_; }

  // LoadEvents: the load's progress in lblMessage and prgCurrent.
  void ProgressGlobal(std::string_view task, std::string_view task_detail) override;
  void ProgressCurrent(std::string_view task, double current, double max) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void BuildConfigurationTab(QWidget* tab);
  void BuildInitializationTab(QWidget* tab);
  void SetUpGrid();
  void AddGridRow(const std::string& id, const std::string& serial, const std::string& list,
                  int32_t last_export, bool active);
  void AuthenticationChanged(int index);
  // The controls as settings, without validating them.
  void CopyControls(LumaroConnectorSetting& setting);
  void PublishSeries(LumaroConnectorSetting& setting);
  void Message(const std::string& text);

  bool saved_ = false;
  std::string title_;
  std::unique_ptr<host::SettingStore> store_;
  std::unique_ptr<LumaroConnectorSetting> setting_;

  QTabWidget* TabControl1_;
  QLineEdit* stfImportExportPath_;
  QPushButton* cmdImportExportPath_;
  QSpinBox* numLastImportNumber_;
  QLineEdit* txtSQLDataSource_;
  QComboBox* cboAutentication_;
  QLabel* lblSQLUserID_;
  QLineEdit* txtSQLUserID_;
  QLabel* lblSQLPassword_;
  QLineEdit* txtSQLPassword_;
  QLineEdit* txtSQLCompanyID_;
  QSpinBox* numSQLCompanyYear_;
  QPushButton* btnSQLServerTest_;
  QSpinBox* numLumaroDelegationID_;
  QPushButton* cmdLoadGrid_;
  QComboBox* cboTill_;
  QTableWidget* vsfLumaroWorkstations_;
  QLineEdit* txtInitializeAppUser_;
  QLineEdit* txtInitializeCustomerGroup_;
  QLineEdit* txtInitializeZone_;
  QLineEdit* txtInitializeSalesman_;
  QLineEdit* txtInitializeFamily_;
  QSpinBox* numInitializeFamilyLevel_;
  QLineEdit* txtInitializePriceLine_;
  QLineEdit* txtInitializeDocument_;
  QPushButton* cmdInitialize_;
  QPushButton* cmdSave_;
  QPushButton* cmdExit_;
  QLabel* lblMessage_;
  QProgressBar* prgCurrent_;
};

// Shows the settings form modally with the notifier's SystemSettings, the
// stored settings in it; True when the person saved.
bool ShowSettings(host::IConnectorEvents* notifier, QWidget* parent = nullptr);

}  // namespace lumaro

#endif  // LUMARO_SETTINGSUI_FRM_SETTINGS_H_
