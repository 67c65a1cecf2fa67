// The forms library as a host loads it: by its entry point, with its own
// copy of the connector's code, over the host's POS database.

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableWidget>

#include "standalone/ConnectorForms.h"
#include "tests/forms/FormDriver.h"
#include "tests/support/TestHost.h"

namespace {

using formstest::Child;

const std::string kFormsLibrary = std::string(LUMARO_BIN_DIR) + "/liblumaro_connector_forms.so";

// The log viewer shown modally through the entry point: it reads the
// host's log, deletes through it, and answers True after a delete; the
// settings form is there too; a form the library does not have is refused
// with one line.
TEST(FormsLibrary, ShowsTheLogViewerAndRefusesFormsItLacks) {
  testsupport::TestHost test_host;
  test_host.Exec(
      "CREATE TABLE LumaroLog (WorkstationID INTEGER, Filename VARCHAR(50), ImportDate DATETIME,"
      " FileSize BIGINT, FileDate DATETIME);"
      "INSERT INTO LumaroLog VALUES (1, 'ITpv 0000001.txt', '2026-03-14 10:00:00', 10,"
      " '2026-03-13 18:00:00');"
      "INSERT INTO LumaroLog VALUES (1, 'ITpv 0000002.txt', '2026-03-15 10:00:00', 10,"
      " '2026-03-15 09:00:00');");
  standalone::ConnectorForms forms(test_host.Host(), kFormsLibrary);
  ASSERT_TRUE(standalone::ConnectorForms::HasDisplay());  // offscreen

  std::string why;
  EXPECT_EQ(forms.Show("frmNothing", why), std::nullopt);
  EXPECT_EQ(why, "O formulário frmNothing ainda não está disponível.");
  EXPECT_FALSE(forms.LastFormShown());

  // The settings form is one of its forms: closed, it answers "not saved".
  formstest::WhenModalShown([](QWidget* form) { form->close(); });
  EXPECT_EQ(forms.Show("frmSettings", why), std::optional<bool>(false));

  int rows_shown = -1;
  formstest::BoxAnswerer yes(QMessageBox::Yes);
  formstest::WhenModalShown([&rows_shown](QWidget* form) {
    auto* grid = Child<QTableWidget>(*form, "vsfImportLog");
    rows_shown = grid->rowCount();
    formstest::Click(*Child<QPushButton>(*form, "cmdDelete"));  // the first row, current
    formstest::Click(*Child<QPushButton>(*form, "cmdExit"));
  });
  EXPECT_EQ(forms.Show("frmLumaroLog", why), std::optional<bool>(true));
  EXPECT_TRUE(forms.LastFormShown());
  EXPECT_EQ(rows_shown, 2);
  EXPECT_EQ(yes.Boxes().size(), 1u);
  EXPECT_EQ(test_host.Rows("SELECT Filename FROM LumaroLog"), "ITpv 0000002.txt");

  // Closed without a delete: False.
  formstest::WhenModalShown([](QWidget* form) { form->close(); });
  EXPECT_EQ(forms.Show("frmLumaroLog", why), std::optional<bool>(false));
}

}  // namespace
