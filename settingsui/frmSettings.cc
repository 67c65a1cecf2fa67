#include "settingsui/frmSettings.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <limits>
#include <vector>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Host.h"
#include "connector/host/Recordset.h"
#include "forms/FormTools.h"
#include "settingsui/BackOfficeConnection.h"
#include "settingsui/InitialLoad.h"
#include "settingsui/SettingsRules.h"
#include "settingsui/WorkstationChoice.h"
#include "settingsui/frmWorkstationList.h"

namespace lumaro {
namespace {

constexpr char kFormName[] = "frmSettings";
constexpr int32_t kTitle = 4140000;
constexpr int32_t kConfigurationTab = 4140001;
constexpr int32_t kInitializationTab = 4140008;
constexpr int32_t kIntegratedSecurity = 3880069;
constexpr int32_t kSqlServerLogin = 3880070;
constexpr int32_t kFolderTitle = 2040101;
constexpr int32_t kLoading = 3880109;
constexpr int32_t kPreparing = 3880108;
// The document of the sales exported to the back office.
constexpr char kSaleDocument[] = "TVD";

enum GridColumn { kId = 0, kSerial, kList, kLastExport, kActive, kColumnCount };
struct Column {
  const char* header;
  int twips;
};
constexpr Column kColumns[kColumnCount] = {{"Cod. Posto", 1100},
                                           {"Série", 900},
                                           {"Lista de Postos", 2200},
                                           {"Últ. Fx Exp", 1100},
                                           {"Activo", 700}};

host::Host& Host() { return ModConnectorLumaro::Host(); }
std::string Text(int32_t number) { return Host().UIManager().Messages().Text(number); }

QSpinBox* NumberBox(QWidget* parent, const char* name, int maximum) {
  auto* box = new QSpinBox(parent);
  box->setObjectName(name);
  box->setRange(0, maximum);
  box->setButtonSymbols(QAbstractSpinBox::NoButtons);
  box->setAlignment(Qt::AlignRight);
  return box;
}

QLineEdit* TextBox(QWidget* parent, const char* name) {
  auto* box = new QLineEdit(parent);
  box->setObjectName(name);
  return box;
}

QPushButton* Button(QWidget* parent, const char* name, const std::string& caption) {
  auto* button = new QPushButton(QText(caption), parent);
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

std::string CellText(const QTableWidget& grid, int row, int column) {
  const QTableWidgetItem* item = grid.item(row, column);
  return item == nullptr ? std::string() : HostText(item->text());
}

}  // namespace

frmSettings::frmSettings(QWidget* parent) : QDialog(parent) {
  setObjectName(kFormName);
  title_ = Text(kTitle);
  setWindowTitle(QText(title_));

  TabControl1_ = new QTabWidget(this);
  TabControl1_->setObjectName("TabControl1");
  auto* configuration = new QWidget;
  auto* initialization = new QWidget;
  BuildConfigurationTab(configuration);
  BuildInitializationTab(initialization);
  TabControl1_->addTab(configuration, QText(Text(kConfigurationTab)));
  TabControl1_->addTab(initialization, QText(Text(kInitializationTab)));

  cmdSave_ = Button(this, "cmdSave", "&OK");
  cmdExit_ = Button(this, "cmdExit", "&Cancelar");
  lblMessage_ = new QLabel(this);
  lblMessage_->setObjectName("lblMessage");
  prgCurrent_ = new QProgressBar(this);
  prgCurrent_->setObjectName("prgCurrent");
  lblMessage_->hide();
  prgCurrent_->hide();

  auto* bottom = new QHBoxLayout;
  auto* progress = new QVBoxLayout;
  progress->addWidget(lblMessage_);
  progress->addWidget(prgCurrent_);
  bottom->addLayout(progress, 1);
  bottom->addWidget(cmdSave_);
  bottom->addWidget(cmdExit_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(TabControl1_);
  layout->addLayout(bottom);

  connect(cmdSave_, &QPushButton::clicked, this, &frmSettings::Save);
  connect(cmdExit_, &QPushButton::clicked, this, &QDialog::hide);
  connect(cmdImportExportPath_, &QPushButton::clicked, this, &frmSettings::ChooseFolder);
  connect(btnSQLServerTest_, &QPushButton::clicked, this, &frmSettings::TestConnection);
  connect(cmdLoadGrid_, &QPushButton::clicked, this, &frmSettings::LoadGrid);
  connect(cmdInitialize_, &QPushButton::clicked, this, &frmSettings::Initialize);
  connect(cboAutentication_, &QComboBox::currentIndexChanged, this,
          &frmSettings::AuthenticationChanged);
  AuthenticationChanged(0);

  // The stored settings; nothing stored leaves them empty.
  store_ = Host().NewSettingStore();
  setting_ = std::make_unique<LumaroConnectorSetting>();
  store_->Load(*setting_);
  Fill(*setting_);
  resize(TwipsToPixels(*this, 10500), TwipsToPixels(*this, 8400));
}

frmSettings::~frmSettings() = default;

void frmSettings::BuildConfigurationTab(QWidget* tab) {
  auto* grpImport = new QGroupBox(QText(Text(4140005)), tab);
  grpImport->setObjectName("grpImport");
  stfImportExportPath_ = TextBox(grpImport, "stfImportExportPath");
  cmdImportExportPath_ = Button(grpImport, "cmdImportExportPath", "...");
  cmdImportExportPath_->setFixedWidth(TwipsToPixels(*cmdImportExportPath_, 450));
  numLastImportNumber_ = NumberBox(grpImport, "numLastImportNumber", 99999);
  auto* path = new QHBoxLayout;
  path->addWidget(stfImportExportPath_);
  path->addWidget(cmdImportExportPath_);
  auto* import_form = new QFormLayout(grpImport);
  import_form->addRow(QText(Text(4140006)), path);
  import_form->addRow(QText(Text(4140007)), numLastImportNumber_);

  auto* grpSQLServer = new QGroupBox(QText(Text(4140010)), tab);
  grpSQLServer->setObjectName("grpSQLServer");
  txtSQLDataSource_ = TextBox(grpSQLServer, "txtSQLDataSource");
  cboAutentication_ = new QComboBox(grpSQLServer);
  cboAutentication_->setObjectName("cboAutentication");
  cboAutentication_->addItem(QText(Text(kIntegratedSecurity)));
  cboAutentication_->addItem(QText(Text(kSqlServerLogin)));
  txtSQLUserID_ = TextBox(grpSQLServer, "txtSQLUserID");
  txtSQLPassword_ = TextBox(grpSQLServer, "txtSQLPassword");
  txtSQLPassword_->setEchoMode(QLineEdit::Password);
  txtSQLCompanyID_ = TextBox(grpSQLServer, "txtSQLCompanyID");
  numSQLCompanyYear_ = NumberBox(grpSQLServer, "numSQLCompanyYear", 32767);
  btnSQLServerTest_ = Button(grpSQLServer, "btnSQLServerTest", Text(4140017));
  lblSQLUserID_ = new QLabel(QText(Text(4140013)), grpSQLServer);
  lblSQLUserID_->setObjectName("lblSQLUserID");
  lblSQLPassword_ = new QLabel(QText(Text(4140014)), grpSQLServer);
  lblSQLPassword_->setObjectName("lblSQLPassword");
  // Two columns: the server and its login, the company and its year.
  auto* sql_grid = new QGridLayout(grpSQLServer);
  auto label = [grpSQLServer](int32_t message) {
    return new QLabel(QText(Text(message)), grpSQLServer);
  };
  sql_grid->addWidget(label(4140011), 0, 0);
  sql_grid->addWidget(txtSQLDataSource_, 0, 1);
  sql_grid->addWidget(label(4140012), 0, 2);
  sql_grid->addWidget(cboAutentication_, 0, 3);
  sql_grid->addWidget(label(4140015), 1, 0);
  sql_grid->addWidget(txtSQLCompanyID_, 1, 1);
  sql_grid->addWidget(lblSQLUserID_, 1, 2);
  sql_grid->addWidget(txtSQLUserID_, 1, 3);
  sql_grid->addWidget(label(4140016), 2, 0);
  sql_grid->addWidget(numSQLCompanyYear_, 2, 1);
  sql_grid->addWidget(lblSQLPassword_, 2, 2);
  sql_grid->addWidget(txtSQLPassword_, 2, 3);
  sql_grid->addWidget(btnSQLServerTest_, 3, 3);
  sql_grid->setColumnStretch(1, 1);
  sql_grid->setColumnStretch(3, 1);

  auto* grpDelegacao = new QGroupBox(QText(Text(4140018)), tab);
  grpDelegacao->setObjectName("grpDelegacao");
  numLumaroDelegationID_ = NumberBox(grpDelegacao, "numLumaroDelegationID", 32767);
  cmdLoadGrid_ = Button(grpDelegacao, "cmdLoadGrid", "C&arregar");
  cboTill_ = new QComboBox(grpDelegacao);
  cboTill_->setObjectName("cboTill");
  vsfLumaroWorkstations_ = new QTableWidget(grpDelegacao);
  vsfLumaroWorkstations_->setObjectName("vsfLumaroWorkstations");
  SetUpGrid();
  auto* delegation_line = new QHBoxLayout;
  delegation_line->addWidget(new QLabel(QText(Text(4140019)), grpDelegacao));
  delegation_line->addWidget(numLumaroDelegationID_);
  delegation_line->addWidget(cmdLoadGrid_);
  delegation_line->addStretch();
  delegation_line->addWidget(new QLabel(QText("Caixa a usar:"), grpDelegacao));
  delegation_line->addWidget(cboTill_);
  auto* delegation = new QVBoxLayout(grpDelegacao);
  delegation->addLayout(delegation_line);
  delegation->addWidget(vsfLumaroWorkstations_);

  auto* top = new QHBoxLayout;
  top->addWidget(grpSQLServer, 1);
  auto* layout = new QVBoxLayout(tab);
  layout->addWidget(grpImport);
  layout->addLayout(top);
  layout->addWidget(grpDelegacao, 1);
}

void frmSettings::BuildInitializationTab(QWidget* tab) {
  auto* grpFilter = new QGroupBox(QText(Text(4140021)), tab);
  grpFilter->setObjectName("grpFilter");
  txtInitializeAppUser_ = TextBox(grpFilter, "txtInitializeAppUser");
  txtInitializeCustomerGroup_ = TextBox(grpFilter, "txtInitializeCustomerGroup");
  txtInitializeZone_ = TextBox(grpFilter, "txtInitializeZone");
  txtInitializeSalesman_ = TextBox(grpFilter, "txtInitializeSalesman");
  txtInitializeFamily_ = TextBox(grpFilter, "txtInitializeFamily");
  numInitializeFamilyLevel_ = NumberBox(grpFilter, "numInitializeFamilyLevel", 99999);
  txtInitializePriceLine_ = TextBox(grpFilter, "txtInitializePriceLine");
  txtInitializeDocument_ = TextBox(grpFilter, "txtInitializeDocument");
  auto* filter = new QFormLayout(grpFilter);
  filter->addRow(QText(Text(4140022)), txtInitializeAppUser_);
  filter->addRow(QText(Text(4140023)), txtInitializeCustomerGroup_);
  filter->addRow(QText(Text(4140024)), txtInitializeZone_);
  filter->addRow(QText(Text(4140025)), txtInitializeSalesman_);
  filter->addRow(QText(Text(4140026)), txtInitializeFamily_);
  filter->addRow(QText(Text(4140027)), numInitializeFamilyLevel_);
  filter->addRow(QText(Text(4140028)), txtInitializePriceLine_);
  filter->addRow(QText("Tipos de Lançamento:"), txtInitializeDocument_);
  cmdInitialize_ = Button(tab, "cmdInitialize", "&Inicializar");
  auto* button = new QHBoxLayout;
  button->addStretch();
  button->addWidget(cmdInitialize_);
  auto* layout = new QVBoxLayout(tab);
  layout->addWidget(grpFilter);
  layout->addLayout(button);
  layout->addStretch();
}

void frmSettings::SetUpGrid() {
  QTableWidget& grid = *vsfLumaroWorkstations_;
  grid.setColumnCount(kColumnCount);
  for (int column = 0; column < kColumnCount; ++column) {
    grid.setHorizontalHeaderItem(column, new QTableWidgetItem(QText(kColumns[column].header)));
    grid.setColumnWidth(column, TwipsToPixels(grid, kColumns[column].twips));
  }
  grid.horizontalHeader()->setStretchLastSection(true);
  grid.verticalHeader()->hide();
  grid.setSelectionMode(QAbstractItemView::SingleSelection);
  grid.setMinimumHeight(TwipsToPixels(grid, 1900));
}

void frmSettings::AddGridRow(const std::string& id, const std::string& serial,
                             const std::string& list, int32_t last_export, bool active) {
  QTableWidget& grid = *vsfLumaroWorkstations_;
  int row = grid.rowCount();
  grid.insertRow(row);
  auto read_only = [](const std::string& text) {
    auto* item = new QTableWidgetItem(QText(text));
    item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    return item;
  };
  grid.setItem(row, kId, read_only(id));
  grid.setItem(row, kSerial, read_only(serial));
  // The list is chosen with the cell's "..." button only.
  auto* list_item = read_only(list);
  grid.setItem(row, kList, list_item);
  // The cell's own text stays under the widget, which hides it.
  auto* cell = new QWidget;
  cell->setAutoFillBackground(true);
  auto* cell_layout = new QHBoxLayout(cell);
  cell_layout->setContentsMargins(0, 0, 0, 0);
  auto* list_label = new QLabel(QText(list), cell);
  list_label->setObjectName("lblList");
  auto* choose = new QToolButton(cell);
  choose->setObjectName("cmdWorkstationList");
  choose->setText("...");
  cell_layout->addWidget(list_label, 1);
  cell_layout->addWidget(choose);
  grid.setCellWidget(row, kList, cell);
  connect(choose, &QToolButton::clicked, this,
          [this, list_item] { ChooseWorkstations(list_item->row()); });
  auto* number = new QTableWidgetItem(QString::number(last_export));
  number->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
  grid.setItem(row, kLastExport, number);
  auto* box = new QTableWidgetItem;
  box->setFlags((box->flags() | Qt::ItemIsUserCheckable) & ~Qt::ItemIsEditable);
  box->setCheckState(active ? Qt::Checked : Qt::Unchecked);
  grid.setItem(row, kActive, box);
}

void frmSettings::AuthenticationChanged(int index) {
  bool login = index == 1;
  lblSQLUserID_->setEnabled(login);
  txtSQLUserID_->setEnabled(login);
  lblSQLPassword_->setEnabled(login);
  txtSQLPassword_->setEnabled(login);
}

void frmSettings::Fill(LumaroConnectorSetting& setting) {
  stfImportExportPath_->setText(QText(setting.ImportExportPath));
  numLastImportNumber_->setValue(static_cast<int>(setting.LastImportNumber));
  txtSQLDataSource_->setText(QText(setting.SQLDataSource));
  cboAutentication_->setCurrentIndex(setting.SQLAuthentication == 1 ? 1 : 0);
  txtSQLUserID_->setText(QText(setting.SQLUserName));
  txtSQLPassword_->setText(QText(setting.SQLPassword));
  txtSQLCompanyID_->setText(QText(setting.SQLCompanyID));
  numSQLCompanyYear_->setValue(setting.SQLCompanyYear);
  numLumaroDelegationID_->setValue(setting.LumaroDelegationID);
  txtInitializeAppUser_->setText(QText(setting.InitializeAppUser));
  txtInitializeCustomerGroup_->setText(QText(setting.InitializeCustomerGroup));
  txtInitializeZone_->setText(QText(setting.InitializeZone));
  txtInitializeSalesman_->setText(QText(setting.InitializeSalesman));
  txtInitializeFamily_->setText(QText(setting.InitializeFamily));
  numInitializeFamilyLevel_->setValue(static_cast<int>(host::Val(setting.InitializeFamilyLevel)));
  txtInitializePriceLine_->setText(QText(setting.InitializePriceLine));
  txtInitializeDocument_->setText(QText(setting.InitializeDocument));
  cboTill_->clear();
  if (setting.TillID != 0) {
    // A till once chosen changes only when the back office is read again.
    cboTill_->addItem(QText("Caixa " + std::to_string(setting.TillID)), setting.TillID);
    cboTill_->setCurrentIndex(0);
    cboTill_->setEnabled(false);
    cmdLoadGrid_->setText(QText("Rec&arregar"));
  }
  vsfLumaroWorkstations_->setRowCount(0);
  for (int i = 1; i <= setting.LumaroWorkstationCount(); ++i) {
    Workstation point = setting.Workstation(i);
    AddGridRow(point.LumaroWorkstationID, point.TransSerial, point.WorkstationList,
               point.LastExportNumber, point.Active);
  }
}

void frmSettings::CopyControls(LumaroConnectorSetting& setting) {
  setting.ImportExportPath = HostText(stfImportExportPath_->text());
  setting.LastImportNumber = numLastImportNumber_->value();
  setting.SQLDataSource = HostText(txtSQLDataSource_->text());
  setting.SQLAuthentication = static_cast<int16_t>(cboAutentication_->currentIndex());
  setting.SQLUserName = HostText(txtSQLUserID_->text().trimmed());
  setting.SQLPassword = HostText(txtSQLPassword_->text());
  setting.SQLCompanyID = HostText(txtSQLCompanyID_->text());
  setting.SQLCompanyYear = static_cast<int16_t>(numSQLCompanyYear_->value());
  setting.LumaroDelegationID = static_cast<int16_t>(numLumaroDelegationID_->value());
  setting.InitializeAppUser = HostText(txtInitializeAppUser_->text());
  setting.InitializeCustomerGroup = HostText(txtInitializeCustomerGroup_->text());
  setting.InitializeZone = HostText(txtInitializeZone_->text());
  setting.InitializeSalesman = HostText(txtInitializeSalesman_->text());
  setting.InitializeFamily = HostText(txtInitializeFamily_->text());
  setting.InitializeFamilyLevel = std::to_string(numInitializeFamilyLevel_->value());
  setting.InitializePriceLine = HostText(txtInitializePriceLine_->text());
  setting.InitializeDocument = HostText(txtInitializeDocument_->text());
  setting.TillID = cboTill_->currentIndex() < 0 ? 0 : cboTill_->currentData().toInt();
  setting.ClearWorkstations();
  const QTableWidget& grid = *vsfLumaroWorkstations_;
  for (int row = 0; row < grid.rowCount(); ++row) {
    Workstation point;
    point.LumaroWorkstationID = CellText(grid, row, kId);
    point.TransSerial = CellText(grid, row, kSerial);
    point.WorkstationList = CellText(grid, row, kList);
    point.LastExportNumber = static_cast<int32_t>(host::Val(CellText(grid, row, kLastExport)));
    point.Active = grid.item(row, kActive)->checkState() == Qt::Checked;
    setting.SetWorkstation(row + 1, point);
  }
}

bool frmSettings::ReadSettings(LumaroConnectorSetting& setting) {
  CopyControls(setting);
  return ValidateSettings(setting, true);
}

void frmSettings::Message(const std::string& text) {
  Host().UIManager().MsgBox(text, host::msgbox::kInformation, title_);
}

void frmSettings::TestConnection() {
  LumaroConnectorSetting setting;
  CopyControls(setting);
  TestBackOfficeConnection(setting);
}

void frmSettings::LoadGrid() {
  LumaroConnectorSetting setting;
  CopyControls(setting);
  std::shared_ptr<host::DatabaseService> back_office = ConnectBackOffice(setting);
  if (!back_office) {
    Message(
        "Não foi possível aceder à base de dados do Lumaro. Verifique a configuração da "
        "conexão.");
    return;
  }
  vsfLumaroWorkstations_->setRowCount(0);
  cboTill_->clear();
  try {
    host::RecordsetPtr points = back_office->OpenRecordset(
        "SELECT DISTINCT P.CPos, P.CSer FROM Posto AS P INNER JOIN Serie AS S ON P.CSer = "
        "S.CSer WHERE P.CDlg = " +
        std::to_string(numLumaroDelegationID_->value()) + " AND S.Origem = 3 AND S.CLan = 'TVD'");
    for (; !points->Eof(); points->MoveNext()) {
      AddGridRow(host::CStr(points->Fields("CPos")), host::CStr(points->Fields("CSer")), "", 0,
                 true);
    }
    points->Close();
    host::RecordsetPtr tills = back_office->OpenRecordset("SELECT DISTINCT (CCxa/100) FROM Caixa");
    for (; !tills->Eof(); tills->MoveNext()) {
      std::string value = host::CStr(tills->Fields(0));
      cboTill_->addItem(QText("Caixa " + value), QText(value));
    }
    tills->Close();
  } catch (const std::exception&) {
    // What was read stays in the grid.
  }
  if (cboTill_->count() > 0) cboTill_->setCurrentIndex(0);
  cboTill_->setEnabled(true);
  back_office->Disconnect();
  if (vsfLumaroWorkstations_->rowCount() == 0) {
    Message(
        "Não existem Postos configurados no Lumaro, ou não possui o documento TVD configurado, "
        "ou este documento não tem associada uma serie do tipo «Não assinada externa»");
  }
}

void frmSettings::ChooseFolder() {
  QString folder = QFileDialog::getExistingDirectory(this, QText(Text(kFolderTitle)),
                                                     stfImportExportPath_->text());
  if (!folder.isEmpty()) stfImportExportPath_->setText(folder);
}

void frmSettings::ChooseWorkstations(int row) {
  QTableWidget& grid = *vsfLumaroWorkstations_;
  std::vector<std::string> lists;
  for (int i = 0; i < grid.rowCount(); ++i) lists.push_back(CellText(grid, i, kList));
  std::string list = GetWorkstationList(CellText(grid, row, kId),
                                        UsedWorkstations(lists, static_cast<size_t>(row)),
                                        SplitList(lists[static_cast<size_t>(row)]), this);
  grid.item(row, kList)->setText(QText(list));
  if (auto* label = grid.cellWidget(row, kList)->findChild<QLabel*>("lblList")) {
    label->setText(QText(list));
  }
  // A point that serves no terminal cannot stay active.
  if (list.empty()) grid.item(row, kActive)->setCheckState(Qt::Unchecked);
}

void frmSettings::PublishSeries(LumaroConnectorSetting& setting) {
  host::SeriesCatalogue& catalogue = Host().ModuleManager().ConnectorRegistry().SeriesCatalogue();
  std::unique_ptr<host::WorkstationSeriesService> workstations =
      Host().NewWorkstationSeriesService();
  for (int i = 1; i <= setting.LumaroWorkstationCount(); ++i) {
    Workstation point = setting.Workstation(i);
    if (!point.Active) continue;
    if (!catalogue.Exists(point.TransSerial)) {
      host::Series series;
      series.TransSerial = point.TransSerial;
      series.Description = point.TransSerial;
      series.SeriesType = 1;
      catalogue.Save(series, true);
    }
    // The POS terminals the point serves write its series, as sales.
    for (const std::string& terminal : SplitList(point.WorkstationList)) {
      int32_t workstation_id = static_cast<int32_t>(host::Val(terminal));
      workstations->SetSeries(workstation_id, point.TransSerial, 0);
      workstations->SetDocument(workstation_id, kSaleDocument);
    }
  }
  workstations->SetDocument(Host().SystemManager().Context().CurrentWorkstation().WorkstationID(),
                            kSaleDocument);
}

void frmSettings::Save() {
  if (!ReadSettings(*setting_)) return;
  store_->Save(*setting_);
  PublishSeries(*setting_);
  saved_ = true;
  hide();
}

void frmSettings::Initialize() {
  CopyControls(*setting_);
  QApplication::setOverrideCursor(Qt::WaitCursor);
  lblMessage_->show();
  prgCurrent_->setValue(0);
  prgCurrent_->show();
  setEnabled(false);
  bool ran = false;
  try {
    ran = RunInitialLoad(*setting_, this, true);
    if (ran) PublishSeries(*setting_);
  } catch (const host::Error& error) {
    Host().UIManager().ShowError(error.Number(), error.Description(), error.Source());
  } catch (const std::exception& error) {
    Host().UIManager().MsgBox(error.what(), host::msgbox::kCritical, title_);
  }
  QApplication::restoreOverrideCursor();
  setEnabled(true);
  lblMessage_->hide();
  prgCurrent_->hide();
  if (ran) hide();
}

void frmSettings::ProgressGlobal(std::string_view task, std::string_view) {
  try {
    std::string text = Text(kPreparing);
    if (task != text) {
      text = Host().UIManager().Messages().Format(
          kLoading, {host::Variant(Host().DataManager().Connection().TableDescription(task))});
    }
    lblMessage_->setText(QText(text));
    QApplication::processEvents();
  } catch (const std::exception&) {
  }
}

void frmSettings::ProgressCurrent(std::string_view, double current, double max) {
  prgCurrent_->setMaximum(static_cast<int>(max));
  prgCurrent_->setValue(static_cast<int>(current));
  QApplication::processEvents();
}

void frmSettings::closeEvent(QCloseEvent* event) {
  // The close box cancels; the form is unloaded by ShowSettings.
  saved_ = false;
  event->ignore();
  hide();
}

bool ShowSettings(host::IConnectorEvents* notifier, QWidget* parent) {
  ModConnectorLumaro::SetSystemSettings(notifier ? notifier->SystemSettings() : nullptr);
  bool saved = false;
  {
    frmSettings form(parent);
    Host().UIManager().PlaceForm(kFormName);
    form.exec();
    saved = form.Saved();
  }
  ModConnectorLumaro::SetSystemSettings(nullptr);
  return saved;
}

}  // namespace lumaro
