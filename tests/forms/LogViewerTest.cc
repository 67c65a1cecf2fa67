// The log viewer over a real POS database: its grid of the log's rows, and
// the delete of the rows a person selects.

#include <gtest/gtest.h>

#include <QHeaderView>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "connector/LumaroConnector.h"
#include "importlog/DSOLumaroLog.h"
#include "importlog/frmLumaroLog.h"
#include "tests/forms/FormDriver.h"
#include "tests/support/TestHost.h"

namespace {

using formstest::BoxAnswerer;
using formstest::Child;
using formstest::ClickRow;

class LogViewer : public ::testing::Test {
 protected:
  // A log row saved through the log store, with the clock at `imported`.
  void Log(int16_t workstation, const std::string& name, host::Date imported,
           host::Date file_date) {
    host::SetClockOverride(imported);
    lumaro::LumaroLog log;
    log.WorkstationID = workstation;
    log.Filename = name;
    log.FileSize = 1234;
    log.FileDate = file_date;
    log.IsNew = true;
    ASSERT_TRUE(dso_.Save(log));
  }

  // The four rows of a small shop's log, saved out of their order.
  void LogFourFiles() {
    ASSERT_TRUE(dso_.CheckOrCreateLumaroLogTable());
    Log(2, "ITpv 0000001.txt", host::MakeDate(2026, 3, 13, 9, 0, 0), host::MakeDate(2026, 3, 12));
    Log(1, "ITpv 0000002.txt", host::MakeDate(2026, 3, 15, 8, 30, 0),
        host::MakeDate(2026, 3, 15, 7, 45, 10));
    Log(1, "ITpv 0000001.txt", host::MakeDate(2026, 3, 14, 10, 0, 0),
        host::MakeDate(2026, 3, 13, 18, 0, 0));
    Log(1, "ETpv 01 0000001.txt", host::MakeDate(2026, 3, 14, 10, 0, 0),
        host::MakeDate(2026, 3, 14, 9, 59, 0));
  }

  // The grid's rows, each as its four texts joined by "|".
  static std::vector<std::string> GridRows(const QTableWidget& grid) {
    std::vector<std::string> rows;
    for (int row = 0; row < grid.rowCount(); ++row) {
      std::string text;
      for (int col = 0; col < grid.columnCount(); ++col) {
        text += (col > 0 ? "|" : "") + grid.item(row, col)->text().toStdString();
      }
      rows.push_back(text);
    }
    return rows;
  }

  std::string LogKeys() {
    return test_host_.Rows(
        "SELECT WorkstationID || ' ' || Filename FROM LumaroLog ORDER BY WorkstationID, Filename");
  }

  testsupport::TestHost test_host_;
  lumaro::LumaroConnector connector_{test_host_.Host()};  // attaches the host
  lumaro::DSOLumaroLog dso_;
};

// The rows in the log's order (workstation, import date, file date
// descending), the dates as the regional date-to-text gives them (a
// midnight file date without its time), none cut short, the size not
// shown; a whole-row, several-row selection that starts on the first row.
TEST_F(LogViewer, GridShowsTheLogInItsOrder) {
  LogFourFiles();
  lumaro::frmLumaroLog form;
  auto* grid = Child<QTableWidget>(form, "vsfImportLog");

  EXPECT_EQ(form.windowTitle().toStdString(), "Histórico de ficheiros integrados");
  ASSERT_EQ(grid->columnCount(), 4);
  const char* headers[] = {"Posto", "Ficheiro", "Data Importação", "Data Ficheiro"};
  const int twips[] = {1400, 1400, 2000, 2000};
  for (int col = 0; col < 4; ++col) {
    EXPECT_EQ(grid->horizontalHeaderItem(col)->text().toStdString(), headers[col]);
    // At least the designed width, and wide enough for every text whole.
    EXPECT_GE(grid->columnWidth(col), (twips[col] * grid->logicalDpiX() + 720) / 1440) << col;
    for (int row = 0; row < grid->rowCount(); ++row) {
      EXPECT_LT(grid->fontMetrics().horizontalAdvance(grid->item(row, col)->text()),
                grid->columnWidth(col))
          << row << "," << col;
    }
  }
  EXPECT_TRUE(grid->verticalHeader()->isHidden());
  EXPECT_EQ(GridRows(*grid), (std::vector<std::string>{
                                 "1|ETpv 01 0000001.txt|14-03-2026 10:00:00|14-03-2026 09:59:00",
                                 "1|ITpv 0000001.txt|14-03-2026 10:00:00|13-03-2026 18:00:00",
                                 "1|ITpv 0000002.txt|15-03-2026 08:30:00|15-03-2026 07:45:10",
                                 "2|ITpv 0000001.txt|13-03-2026 09:00:00|12-03-2026",
                             }));
  EXPECT_EQ(grid->currentRow(), 0);
  EXPECT_EQ(grid->selectionBehavior(), QAbstractItemView::SelectRows);
  EXPECT_EQ(grid->selectionMode(), QAbstractItemView::ExtendedSelection);
  EXPECT_FALSE(grid->isSortingEnabled());
  EXPECT_FALSE(form.Changed());
}

// Ctrl-clicks pick rows 1, 3 and 4. No keeps them; on Yes each goes from
// the log and the grid, the others stay, and those files count as new for
// the next import.
TEST_F(LogViewer, DeletesTheSelectedRowsOnYes) {
  LogFourFiles();
  lumaro::frmLumaroLog form;
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
  auto* grid = Child<QTableWidget>(form, "vsfImportLog");
  ClickRow(*grid, 0);
  ClickRow(*grid, 2, Qt::ControlModifier);
  ClickRow(*grid, 3, Qt::ControlModifier);
  ASSERT_EQ(grid->selectionModel()->selectedRows().size(), 3);

  {
    BoxAnswerer no(QMessageBox::No);
    formstest::Click(*Child<QPushButton>(form, "cmdDelete"));
    EXPECT_EQ(no.Boxes().size(), 1u);
    EXPECT_EQ(grid->rowCount(), 4);
    EXPECT_EQ(test_host_.Scalar("SELECT count(*) FROM LumaroLog"), "4");
    EXPECT_FALSE(form.Changed());
  }

  BoxAnswerer yes(QMessageBox::Yes);
  formstest::Click(*Child<QPushButton>(form, "cmdDelete"));

  ASSERT_EQ(yes.Boxes().size(), 1u);
  const formstest::ShownBox& box = yes.Boxes()[0];
  EXPECT_EQ(box.text, test_host_.UI().Messages().Text(4140049));
  EXPECT_EQ(box.title, "Histórico de ficheiros integrados");
  EXPECT_EQ(box.icon, QMessageBox::Question);
  EXPECT_EQ(box.buttons.size(), 2u);
  EXPECT_EQ(
      GridRows(*grid),
      (std::vector<std::string>{"1|ITpv 0000001.txt|14-03-2026 10:00:00|13-03-2026 18:00:00"}));
  EXPECT_EQ(LogKeys(), "1 ITpv 0000001.txt");
  EXPECT_EQ(dso_.GetLogInfo(1, "ITpv 0000002.txt"), nullptr);
  EXPECT_EQ(dso_.GetLogInfo(2, "ITpv 0000001.txt"), nullptr);
  EXPECT_TRUE(form.Changed());
}

// A database whose log was never made, an empty log, and a grid whose
// selection was cleared: the header row only where there are no rows, and
// Delete asks nothing and changes nothing.
TEST_F(LogViewer, DeleteWithoutSelectedRowsDoesNothing) {
  for (const char* stage : {"no table", "empty table", "selection cleared"}) {
    SCOPED_TRACE(stage);
    if (std::string(stage) == "empty table") {
      ASSERT_TRUE(dso_.CheckOrCreateLumaroLogTable());
    } else if (std::string(stage) == "selection cleared") {
      LogFourFiles();
    }
    lumaro::frmLumaroLog form;
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    auto* grid = Child<QTableWidget>(form, "vsfImportLog");
    int rows = grid->rowCount();
    EXPECT_EQ(rows, std::string(stage) == "selection cleared" ? 4 : 0);
    grid->clearSelection();

    BoxAnswerer yes(QMessageBox::Yes);
    formstest::Click(*Child<QPushButton>(form, "cmdDelete"));

    EXPECT_TRUE(yes.Boxes().empty());
    EXPECT_EQ(grid->rowCount(), rows);
    EXPECT_FALSE(form.Changed());
  }
  EXPECT_EQ(test_host_.Scalar("SELECT count(*) FROM LumaroLog"), "4");
}

// The grid takes what the form gains; the buttons keep their distance from
// the right and bottom edges.
TEST_F(LogViewer, GridAndButtonsFollowTheFormsSize) {
  lumaro::frmLumaroLog form;
  form.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
  auto* grid = Child<QTableWidget>(form, "vsfImportLog");
  auto* exit = Child<QPushButton>(form, "cmdExit");
  auto margins = [&] {
    QRect button = exit->geometry();
    return std::pair{form.width() - button.right(), form.height() - button.bottom()};
  };
  auto before = margins();
  QSize grid_before = grid->size();

  form.resize(form.width() + 200, form.height() + 120);
  QApplication::processEvents();

  EXPECT_EQ(margins(), before);
  EXPECT_EQ(grid->size(), grid_before + QSize(200, 120));
}

}  // namespace
