// Pictures of the forms with real data, rendered offscreen. They go to the
// folder LUMARO_SCREENSHOT_DIR when it is set (docs/ keeps the README's),
// else to a temporary folder; each is read back and checked.

#include <gtest/gtest.h>

#include <QImage>
#include <QListWidget>
#include <QTabWidget>
#include <QTableWidget>
#include <QTest>
#include <cstdlib>
#include <set>

#include "connector/LumaroConnector.h"
#include "importlog/DSOLumaroLog.h"
#include "importlog/frmLumaroLog.h"
#include "settingsui/frmSettings.h"
#include "settingsui/frmWorkstationList.h"
#include "tests/support/TestHost.h"

namespace {

class FormScreenshots : public ::testing::Test {
 protected:
  std::string Folder() const {
    const char* folder = std::getenv("LUMARO_SCREENSHOT_DIR");
    return folder != nullptr && folder[0] != '\0' ? folder : test_host_.Folder().Path();
  }

  // Grabs the shown form, saves it as NAME.png, and reads it back: the
  // form's size, and more than a blank surface.
  void Shoot(QWidget& form, const std::string& name) {
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    std::string path = Folder() + "/" + name + ".png";
    ASSERT_TRUE(form.grab().save(QString::fromStdString(path), "PNG")) << path;
    QImage image(QString::fromStdString(path));
    ASSERT_FALSE(image.isNull()) << path;
    EXPECT_EQ(image.size(), form.size() * form.devicePixelRatio());
    std::set<QRgb> colours;
    for (int y = 0; y < image.height(); y += 3) {
      for (int x = 0; x < image.width(); x += 3) colours.insert(image.pixel(x, y));
    }
    EXPECT_GT(colours.size(), 10u) << path;
  }

  void Log(int16_t workstation, const std::string& name, host::Date imported,
           host::Date file_date) {
    host::SetClockOverride(imported);
    lumaro::LumaroLog log;
    log.WorkstationID = workstation;
    log.Filename = name;
    log.FileDate = file_date;
    log.IsNew = true;
    ASSERT_TRUE(dso_.Save(log));
  }

  testsupport::TestHost test_host_;
  lumaro::LumaroConnector connector_{test_host_.Host()};
  lumaro::DSOLumaroLog dso_;
};

TEST_F(FormScreenshots, LogViewer) {
  ASSERT_TRUE(dso_.CheckOrCreateLumaroLogTable());
  using host::MakeDate;
  Log(1, "ITpv 0000041.txt", MakeDate(2026, 3, 12, 8, 2, 11), MakeDate(2026, 3, 11, 21, 30, 0));
  Log(1, "ETpv 01 0000118.txt", MakeDate(2026, 3, 12, 20, 15, 3), MakeDate(2026, 3, 12, 20, 15, 3));
  Log(1, "ITpv 0000042.txt", MakeDate(2026, 3, 13, 8, 1, 47), MakeDate(2026, 3, 12, 21, 30, 0));
  Log(1, "ETpv 01 0000119.txt", MakeDate(2026, 3, 13, 20, 11, 9), MakeDate(2026, 3, 13, 20, 11, 9));
  Log(2, "ITpv 0000041.txt", MakeDate(2026, 3, 12, 8, 4, 30), MakeDate(2026, 3, 11, 21, 30, 0));
  Log(2, "ETpv 02 0000087.txt", MakeDate(2026, 3, 12, 20, 16, 40),
      MakeDate(2026, 3, 12, 20, 16, 40));
  lumaro::frmLumaroLog form;
  auto* grid = form.findChild<QTableWidget*>("vsfImportLog");
  ASSERT_NE(grid, nullptr);
  ASSERT_EQ(grid->rowCount(), 6);
  // Two rows picked for deletion.
  grid->selectRow(2);
  grid->selectionModel()->select(grid->model()->index(3, 0),
                                 QItemSelectionModel::Select | QItemSelectionModel::Rows);
  Shoot(form, "frmLumaroLog");
}

TEST_F(FormScreenshots, WorkstationList) {
  test_host_.Host().ContextStore().Set("TerminalCount", "6");
  lumaro::frmWorkstationList form;
  // Point 01 serves terminals 1 and 4; another point has taken 2.
  form.Prepare("01", {"2"}, {"1", "4"});
  ASSERT_EQ(form.findChild<QListWidget*>("lstWorkstationList")->count(), 5);
  Shoot(form, "frmWorkstationList");
}

TEST_F(FormScreenshots, Settings) {
  // A shop with two exchange points, one of them not yet in use.
  lumaro::LumaroConnectorSetting setting;
  setting.ImportExportPath = "/srv/lumaro/exchange";
  setting.LastImportNumber = 42;
  setting.SQLDataSource = "backoffice\\LUMARO";
  setting.SQLCompanyID = "EMP01";
  setting.SQLCompanyYear = 2026;
  setting.SQLAuthentication = 1;
  setting.SQLUserName = "pos";
  setting.SQLPassword = "segredo";
  setting.LumaroDelegationID = 1;
  setting.InitializeZone = "1;2";
  setting.InitializeFamily = "VIN;QUE";
  setting.InitializeFamilyLevel = "3";
  setting.TillID = 3;
  setting.SetWorkstation(1, {true, "02", "1,2", 119, "A"});
  setting.SetWorkstation(2, {false, "05", "", 0, "L"});
  test_host_.Host().NewSettingStore()->Save(setting);
  lumaro::frmSettings form;
  Shoot(form, "frmSettings");
  form.findChild<QTabWidget*>("TabControl1")->setCurrentIndex(1);
  Shoot(form, "frmSettings-2");
}

}  // namespace
