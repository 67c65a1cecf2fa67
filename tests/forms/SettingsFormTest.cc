// The settings form: what it shows of the stored settings, what it refuses,
// what it stores and publishes, the grid's choice of terminals, and the
// back office read and loaded from it.

#include <gtest/gtest.h>

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QSpinBox>
#include <QTableWidget>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <functional>
#include <regex>

#include "connector/LumaroConnector.h"
#include "connector/host/Host.h"
#include "settingsui/SettingsRules.h"
#include "settingsui/frmSettings.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/forms/FormDriver.h"
#include "tests/support/TestHost.h"

namespace {

using formstest::Child;
using formstest::Click;
using formstest::WhenModalShown;
using Texts = std::vector<std::string>;

const std::string kSampleBackOffice =
    std::string(LUMARO_SOURCE_DIR) + "/examples/backoffice/backoffice.sql";

lumaro::Workstation Point(const std::string& id, const std::string& serial, const std::string& list,
                          int32_t last_export, bool active) {
  lumaro::Workstation point;
  point.LumaroWorkstationID = id;
  point.TransSerial = serial;
  point.WorkstationList = list;
  point.LastExportNumber = last_export;
  point.Active = active;
  return point;
}

class SettingsForm : public ::testing::Test {
 protected:
  void SetUp() override { test_host_.Host().ContextStore().Set("TerminalCount", "6"); }

  // Settings of a shop with the sample back office beside the POS database,
  // two exchange points, till 3.
  lumaro::LumaroConnectorSetting ShopSettings() {
    lumaro::LumaroConnectorSetting setting;
    setting.ImportExportPath = test_host_.Folder().Path();
    setting.LastImportNumber = 41;
    setting.SQLDataSource = "sqlite:" + test_host_.Folder().Path();
    setting.SQLCompanyID = "EMP01";
    setting.SQLCompanyYear = 2026;
    setting.SQLAuthentication = 1;
    setting.SQLUserName = "pos";
    setting.SQLPassword = "segredo";
    setting.LumaroDelegationID = 1;
    setting.InitializeZone = "1;2";
    setting.InitializeFamilyLevel = "3";
    setting.TillID = 3;
    setting.SetWorkstation(1, Point("02", "Z", "1,2", 118, true));
    setting.SetWorkstation(2, Point("07", "Q", "", 9, false));
    return setting;
  }
  void Store(lumaro::LumaroConnectorSetting setting) {
    test_host_.Host().NewSettingStore()->Save(setting);
  }
  lumaro::LumaroConnectorSetting Stored() {
    lumaro::LumaroConnectorSetting setting;
    test_host_.Host().NewSettingStore()->Load(setting);
    return setting;
  }
  void MakeBackOffice() {
    standalone::SqliteDatabase::Open(test_host_.Folder().File("EMP012026Lumaro.db"),
                                     standalone::SqliteDatabase::OpenMode::kCreateIfMissing)
        ->ExecuteScript(testsupport::ReadBytes(kSampleBackOffice));
  }

  // The grid as text: the columns of each row with "|" between, the box as
  // "x" or "-".
  static Texts Grid(const QTableWidget& grid) {
    Texts rows;
    for (int row = 0; row < grid.rowCount(); ++row) {
      std::string text;
      for (int column = 0; column < 4; ++column) {
        text += grid.item(row, column)->text().toStdString() + "|";
      }
      rows.push_back(text + (grid.item(row, 4)->checkState() == Qt::Checked ? "x" : "-"));
    }
    return rows;
  }
  static Texts Items(const QComboBox& box) {
    Texts items;
    for (int i = 0; i < box.count(); ++i) items.push_back(box.itemText(i).toStdString());
    return items;
  }
  // The settings' document but the password, which is encrypted anew at
  // each writing.
  static std::string Document(lumaro::LumaroConnectorSetting setting) {
    return std::regex_replace(setting.ToXML(), std::regex(" SQLPassword=\"[^\"]*\""), "");
  }
  Texts BoxTexts() {
    Texts texts;
    for (const auto& box : test_host_.UI().boxes) texts.push_back(box.text);
    return texts;
  }
  std::string Title() { return test_host_.UI().Messages().Text(4140000); }

  // The "..." button of a row of the grid.
  static QToolButton& ListButton(QTableWidget& grid, int row) {
    auto* button = grid.cellWidget(row, 2)->findChild<QToolButton*>("cmdWorkstationList");
    if (button == nullptr) throw std::runtime_error("no list button");
    return *button;
  }

  testsupport::TestHost test_host_;
  lumaro::LumaroConnector connector_{test_host_.Host()};  // attaches the host
};

TEST_F(SettingsForm, ShowsTheStoredSettings) {
  Store(ShopSettings());
  lumaro::frmSettings form;
  EXPECT_EQ(form.windowTitle().toStdString(), Title());
  EXPECT_EQ(Child<QLineEdit>(form, "stfImportExportPath")->text().toStdString(),
            test_host_.Folder().Path());
  EXPECT_EQ(Child<QSpinBox>(form, "numLastImportNumber")->value(), 41);
  EXPECT_EQ(Child<QLineEdit>(form, "txtSQLCompanyID")->text(), "EMP01");
  EXPECT_EQ(Child<QSpinBox>(form, "numSQLCompanyYear")->value(), 2026);
  EXPECT_EQ(Child<QLineEdit>(form, "txtSQLUserID")->text(), "pos");
  auto* password = Child<QLineEdit>(form, "txtSQLPassword");
  EXPECT_EQ(password->text(), "segredo");
  EXPECT_EQ(password->echoMode(), QLineEdit::Password);
  EXPECT_EQ(Child<QLineEdit>(form, "txtInitializeZone")->text(), "1;2");
  EXPECT_EQ(Child<QSpinBox>(form, "numInitializeFamilyLevel")->value(), 3);

  // A till once chosen: the one item, fixed until the back office is read
  // again.
  auto* till = Child<QComboBox>(form, "cboTill");
  EXPECT_EQ(Items(*till), (Texts{"Caixa 3"}));
  EXPECT_EQ(till->currentData().toInt(), 3);
  EXPECT_FALSE(till->isEnabled());
  EXPECT_EQ(Child<QPushButton>(form, "cmdLoadGrid")->text(), "Rec&arregar");
  EXPECT_EQ(Grid(*Child<QTableWidget>(form, "vsfLumaroWorkstations")),
            (Texts{"02|Z|1,2|118|x", "07|Q||9|-"}));

  // The login fields follow the kind of authentication.
  auto* authentication = Child<QComboBox>(form, "cboAutentication");
  EXPECT_EQ(authentication->currentIndex(), 1);
  EXPECT_TRUE(password->isEnabled());
  authentication->setCurrentIndex(0);
  EXPECT_FALSE(password->isEnabled());
  EXPECT_FALSE(Child<QLineEdit>(form, "txtSQLUserID")->isEnabled());
  EXPECT_FALSE(Child<QLabel>(form, "lblSQLPassword")->isEnabled());

  // Read back unchanged but for the authentication.
  lumaro::LumaroConnectorSetting read;
  EXPECT_TRUE(form.ReadSettings(read));
  lumaro::LumaroConnectorSetting expected = ShopSettings();
  expected.SQLAuthentication = 0;
  EXPECT_EQ(read.SQLPassword, "segredo");
  EXPECT_EQ(Document(read), Document(expected));
}

TEST_F(SettingsForm, NothingStoredShowsAnEmptyForm) {
  lumaro::frmSettings form;
  EXPECT_TRUE(Child<QLineEdit>(form, "stfImportExportPath")->text().isEmpty());
  EXPECT_EQ(Child<QComboBox>(form, "cboTill")->count(), 0);
  EXPECT_EQ(Child<QPushButton>(form, "cmdLoadGrid")->text(), "C&arregar");
  EXPECT_EQ(Child<QTableWidget>(form, "vsfLumaroWorkstations")->rowCount(), 0);
  EXPECT_EQ(Child<QComboBox>(form, "cboAutentication")->currentIndex(), 0);
  EXPECT_FALSE(Child<QLineEdit>(form, "txtSQLPassword")->isEnabled());
  EXPECT_FALSE(Child<QLabel>(form, "lblMessage")->isVisibleTo(&form));
  EXPECT_FALSE(Child<QProgressBar>(form, "prgCurrent")->isVisibleTo(&form));
}

// Each refusal is one box of style 64 with the form's title; the form stays
// open and nothing is stored.
TEST_F(SettingsForm, RefusesToSaveWhatIsNotValid) {
  struct Case {
    std::function<void(lumaro::LumaroConnectorSetting&)> change;
    Texts boxes;
  };
  const Case cases[] = {
      {[](auto& s) { s.ImportExportPath = ""; },
       {"Tem que indicar a pasta de importação dos dados."}},
      {[](auto& s) { s.ClearWorkstations(); }, {"Tem que definir quais os postos a utilizar."}},
      {[](auto& s) { s.TillID = 0; }, {"Não foi indicada qual a caixa a utilizar"}},
      // Every active point without a list is named; the inactive one is not.
      {[](auto& s) {
         s.SetWorkstation(1, Point("02", "A", "", 0, true));
         s.SetWorkstation(3, Point("09", "C", "", 0, true));
       },
       {"O posto com o código 02 está activo, mas não tem definida a lista de postos a utilizar.",
        "O posto com o código 09 está activo, mas não tem definida a lista de postos a "
        "utilizar."}},
      {[](auto& s) { s.SetWorkstation(1, Point("02", "A", "1,2", 0, false)); },
       {"Não tem nenhum posto activo."}},
  };
  for (const Case& c : cases) {
    test_host_.UI().boxes.clear();
    lumaro::LumaroConnectorSetting setting = ShopSettings();
    c.change(setting);
    Store(setting);
    std::string stored = Document(Stored());
    lumaro::frmSettings form;
    form.show();
    Click(*Child<QPushButton>(form, "cmdSave"));
    EXPECT_EQ(BoxTexts(), c.boxes);
    for (const auto& box : test_host_.UI().boxes) {
      EXPECT_EQ(box.style, 64);
      EXPECT_EQ(box.title, Title());
    }
    EXPECT_TRUE(form.isVisible());
    EXPECT_FALSE(form.Saved());
    EXPECT_EQ(Document(Stored()), stored);
    // The same answer without a box.
    test_host_.UI().boxes.clear();
    EXPECT_FALSE(lumaro::ValidateSettings(setting, false));
    EXPECT_TRUE(test_host_.UI().boxes.empty());
  }
}

TEST_F(SettingsForm, SavesTheControlsAndPublishesTheActiveSeries) {
  Store(ShopSettings());
  host::SeriesCatalogue& series =
      test_host_.Host().ModuleManager().ConnectorRegistry().SeriesCatalogue();
  ASSERT_FALSE(series.Exists("Z"));
  lumaro::frmSettings form;
  form.show();
  Child<QLineEdit>(form, "txtSQLUserID")->setText("  gerente ");
  Child<QLineEdit>(form, "txtInitializeFamily")->setText("VIN;QUE");
  auto* grid = Child<QTableWidget>(form, "vsfLumaroWorkstations");
  grid->item(0, 3)->setText("120");
  Click(*Child<QPushButton>(form, "cmdSave"));
  EXPECT_TRUE(test_host_.UI().boxes.empty());
  EXPECT_TRUE(form.Saved());
  EXPECT_FALSE(form.isVisible());

  lumaro::LumaroConnectorSetting stored = Stored();
  EXPECT_EQ(stored.SQLUserName, "gerente");
  EXPECT_EQ(stored.SQLPassword, "segredo");
  EXPECT_EQ(stored.InitializeFamily, "VIN;QUE");
  EXPECT_EQ(stored.TillID, 3);
  ASSERT_EQ(stored.LumaroWorkstationCount(), 2);
  EXPECT_EQ(stored.Workstation(1).LastExportNumber, 120);
  EXPECT_EQ(stored.Workstation(1).WorkstationList, "1,2");
  EXPECT_FALSE(stored.Workstation(2).Active);
  // The active point's series is the host's now; the inactive one's is not.
  EXPECT_TRUE(series.Exists("Z"));
  EXPECT_FALSE(series.Exists("Q"));
  // Its terminals write it, and offer the sale document, numbered in it;
  // the workstation the form runs on offers that document too.
  EXPECT_EQ(test_host_.Rows("SELECT WorkstationID || ':' || TransSerial || ':' || TransDocumentID"
                            " FROM Workstation WHERE WorkstationID IN (1, 2) ORDER BY 1"),
            "1:Z:TVD,2:Z:TVD");
  EXPECT_EQ(test_host_.Rows("SELECT WorkstationID FROM ConfWorkstationDocument"
                            " WHERE TransDocumentID = 'TVD' ORDER BY 1"),
            "1,2");
  EXPECT_EQ(test_host_.Rows("SELECT TransDocID || ':' || TransDocNumber FROM DocumentsSeriesNumber"
                            " WHERE TransSerial = 'Z'"),
            "TVD:0");

  // Saved again after sales were numbered: the numbers stay.
  test_host_.Exec("UPDATE DocumentsSeriesNumber SET TransDocNumber = 7 WHERE TransSerial = 'Z'");
  lumaro::frmSettings again;
  again.show();
  Click(*Child<QPushButton>(again, "cmdSave"));
  EXPECT_TRUE(again.Saved());
  EXPECT_EQ(test_host_.Scalar("SELECT TransDocNumber FROM DocumentsSeriesNumber"
                              " WHERE TransSerial = 'Z'"),
            "7");
}

// As the host shows it: True only when the person saved.
TEST_F(SettingsForm, AnswersWhetherThePersonSaved) {
  Store(ShopSettings());
  testsupport::RecordingNotifier notifier;
  WhenModalShown([](QWidget* form) { Click(*Child<QPushButton>(*form, "cmdSave")); });
  EXPECT_TRUE(lumaro::ShowSettings(&notifier));
  WhenModalShown([](QWidget* form) {
    Child<QLineEdit>(*form, "txtSQLCompanyID")->setText("EMP02");
    Click(*Child<QPushButton>(*form, "cmdExit"));
  });
  EXPECT_FALSE(lumaro::ShowSettings(&notifier));
  WhenModalShown([](QWidget* form) { form->close(); });
  EXPECT_FALSE(lumaro::ShowSettings(&notifier));
  EXPECT_EQ(Stored().SQLCompanyID, "EMP01");
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

// The list's "..." button offers the terminals the other rows have not
// taken; a choice of none makes the point inactive.
TEST_F(SettingsForm, ChoosesTheTerminalsOfAPoint) {
  lumaro::LumaroConnectorSetting setting = ShopSettings();
  setting.SetWorkstation(2, Point("07", "Q", "4", 0, true));
  Store(setting);
  lumaro::frmSettings form;
  form.show();
  auto* grid = Child<QTableWidget>(form, "vsfLumaroWorkstations");

  Texts offered;
  WhenModalShown([&offered](QWidget* list_form) {
    auto* list = Child<QListWidget>(*list_form, "lstWorkstationList");
    for (int i = 0; i < list->count(); ++i) {
      offered.push_back((list->item(i)->isSelected() ? "*" : "") +
                        list->item(i)->text().toStdString());
    }
    formstest::ClickRow(*list, 2);  // terminal 5 joins 4
    Click(*Child<QPushButton>(*list_form, "cmdOK"));
  });
  ListButton(*grid, 1).click();
  EXPECT_EQ(offered, (Texts{"Terminal 3", "*Terminal 4", "Terminal 5", "Terminal 6"}));
  EXPECT_EQ(Grid(*grid), (Texts{"02|Z|1,2|118|x", "07|Q|4,5|0|x"}));

  // Cancel keeps the list; OK with nothing unchecks the point.
  WhenModalShown([](QWidget* list_form) { list_form->close(); });
  ListButton(*grid, 0).click();
  EXPECT_EQ(grid->item(0, 2)->text(), "1,2");
  WhenModalShown([](QWidget* list_form) {
    auto* list = Child<QListWidget>(*list_form, "lstWorkstationList");
    formstest::ClickRow(*list, 0);
    formstest::ClickRow(*list, 1);
    Click(*Child<QPushButton>(*list_form, "cmdOK"));
  });
  ListButton(*grid, 0).click();
  EXPECT_EQ(Grid(*grid), (Texts{"02|Z||118|-", "07|Q|4,5|0|x"}));
}

// The back office's points of the delegation, anew, and its tills by their
// hundreds.
TEST_F(SettingsForm, ReadsPointsAndTillsFromTheBackOffice) {
  MakeBackOffice();
  Store(ShopSettings());
  lumaro::frmSettings form;
  form.show();
  auto* grid = Child<QTableWidget>(form, "vsfLumaroWorkstations");
  auto* till = Child<QComboBox>(form, "cboTill");
  Click(*Child<QPushButton>(form, "cmdLoadGrid"));
  EXPECT_TRUE(test_host_.UI().boxes.empty()) << BoxTexts()[0];
  // Lists and numbers typed before are gone; the one point comes active.
  EXPECT_EQ(Grid(*grid), (Texts{"02|A||0|x"}));
  Texts tills = Items(*till);
  std::sort(tills.begin(), tills.end());
  EXPECT_EQ(tills, (Texts{"Caixa 1", "Caixa 2", "Caixa 3", "Caixa 4"}));
  EXPECT_TRUE(till->isEnabled());
  EXPECT_EQ(till->currentIndex(), 0);
  lumaro::LumaroConnectorSetting read;
  form.ReadSettings(read);  // refuses: the point has no list yet
  test_host_.UI().boxes.clear();
  EXPECT_EQ(read.TillID, till->itemText(0).mid(6).toInt());

  // A delegation without points says so.
  Child<QSpinBox>(form, "numLumaroDelegationID")->setValue(9);
  Click(*Child<QPushButton>(form, "cmdLoadGrid"));
  ASSERT_EQ(test_host_.UI().boxes.size(), 1u);
  EXPECT_EQ(test_host_.UI().boxes[0].text.rfind("Não existem Postos configurados no Lumaro", 0),
            0u);
  EXPECT_EQ(grid->rowCount(), 0);

  // A back office that is not there.
  test_host_.UI().boxes.clear();
  Child<QLineEdit>(form, "txtSQLCompanyID")->setText("EMP99");
  Click(*Child<QPushButton>(form, "cmdLoadGrid"));
  EXPECT_EQ(BoxTexts(), (Texts{"Não foi possível aceder à base de dados do Lumaro. Verifique a "
                               "configuração da conexão."}));
  Click(*Child<QPushButton>(form, "btnSQLServerTest"));
  EXPECT_EQ(test_host_.UI().boxes.back().text, test_host_.UI().Messages().Text(4140033));
  Child<QLineEdit>(form, "txtSQLCompanyID")->setText("EMP01");
  Click(*Child<QPushButton>(form, "btnSQLServerTest"));
  EXPECT_EQ(test_host_.UI().boxes.back().text, test_host_.UI().Messages().Text(4140032));
}

// The load shows its steps in lblMessage while it runs.
class WatchedSettings : public lumaro::frmSettings {
 public:
  void ProgressGlobal(std::string_view task, std::string_view detail) override {
    frmSettings::ProgressGlobal(task, detail);
    auto* label = findChild<QLabel*>("lblMessage");
    if (label->isVisible()) messages.push_back(label->text().toStdString());
  }
  void ProgressCurrent(std::string_view task, double current, double max) override {
    frmSettings::ProgressCurrent(task, current, max);
    if (!isEnabled()) ++steps;
  }
  Texts messages;
  int steps = 0;
};

TEST_F(SettingsForm, InitializesFromTheBackOffice) {
  MakeBackOffice();
  Store(ShopSettings());
  {
    // A customer made at the till with a sale not exported blocks the load.
    test_host_.Exec(
        "INSERT INTO Customer (CustomerID, CustomerKey) VALUES (900, '');"
        "INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, PartyID)"
        " VALUES ('A', 'TVD', 1, 900);");
    WatchedSettings form;
    form.show();
    Click(*Child<QPushButton>(form, "cmdInitialize"));
    EXPECT_EQ(BoxTexts(),
              (Texts{"\r\nExistem clientes que ainda não foram exportados com vendas emitidas."}));
    EXPECT_TRUE(form.messages.empty());
    EXPECT_TRUE(form.isVisible());
    EXPECT_EQ(test_host_.Scalar("SELECT COUNT(*) FROM Item"), "0");
    test_host_.Exec("DELETE FROM SaleTransaction; DELETE FROM Customer;");
  }
  test_host_.UI().boxes.clear();
  WatchedSettings form;
  form.show();
  Click(*Child<QPushButton>(form, "cmdInitialize"));
  EXPECT_EQ(BoxTexts(), (Texts{test_host_.UI().Messages().Text(4140037)}));
  ASSERT_FALSE(form.messages.empty());
  EXPECT_EQ(form.messages.front(), test_host_.UI().Messages().Text(3880108));
  EXPECT_GT(form.messages.size(), 3u);
  EXPECT_EQ(form.messages[1].rfind("A carregar ", 0), 0u) << form.messages[1];
  EXPECT_GT(form.steps, 0);
  EXPECT_NE(test_host_.Scalar("SELECT COUNT(*) FROM Item"), "0");
  EXPECT_EQ(test_host_.Scalar("SELECT Filename FROM LumaroLog").rfind("Inicialização em ", 0), 0u);
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(form.isEnabled());
  EXPECT_TRUE(test_host_.Host().ModuleManager().ConnectorRegistry().SeriesCatalogue().Exists("Z"));
}

}  // namespace
