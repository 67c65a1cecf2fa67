// The choice of the POS terminals of an exchange point: what the list
// offers, what it answers on OK and on Cancel, and how the settings grid's
// rows make its arguments.

#include <gtest/gtest.h>

#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include "connector/LumaroConnector.h"
#include "settingsui/WorkstationChoice.h"
#include "settingsui/frmWorkstationList.h"
#include "tests/forms/FormDriver.h"
#include "tests/support/TestHost.h"

namespace {

using formstest::Child;
using formstest::ClickRow;
using formstest::WhenModalShown;
using Texts = std::vector<std::string>;

class WorkstationList : public ::testing::Test {
 protected:
  void SetUp() override { test_host_.Host().ContextStore().Set("TerminalCount", "6"); }

  // The items of the list, "*" before each selected one.
  static Texts Items(const QListWidget& list) {
    Texts items;
    for (int i = 0; i < list.count(); ++i) {
      items.push_back((list.item(i)->isSelected() ? "*" : "") + list.item(i)->text().toStdString());
    }
    return items;
  }

  // GetWorkstationList as a person answers it: clicks the list's rows
  // `clicks` (each click turns one terminal on or off), then presses
  // `button`, or the close box when `button` is null.
  std::string Choose(const Texts& used, const Texts& current, std::vector<int> clicks,
                     const char* button) {
    WhenModalShown([clicks, button, this](QWidget* form) {
      seen_caption_ = form->windowTitle().toStdString();
      auto* list = Child<QListWidget>(*form, "lstWorkstationList");
      seen_items_ = Items(*list);
      for (int row : clicks) ClickRow(*list, row);
      if (button != nullptr) {
        formstest::Click(*Child<QPushButton>(*form, button));
      } else {
        form->close();
      }
    });
    return lumaro::GetWorkstationList("03", used, current);
  }

  testsupport::TestHost test_host_;
  lumaro::LumaroConnector connector_{test_host_.Host()};  // attaches the host
  std::string seen_caption_;
  Texts seen_items_;
};

// Terminals 1 to TerminalCount but those the other rows took, even one that
// stands in this row's list too; this row's own selected.
TEST_F(WorkstationList, OffersTheTerminalsOtherPointsHaveNotTaken) {
  lumaro::frmWorkstationList form;
  EXPECT_EQ(form.windowTitle().toStdString(), "Selecção de postos");
  form.Prepare("01", {"2", "5"}, {"5", "3"});
  auto* list = Child<QListWidget>(form, "lstWorkstationList");
  EXPECT_EQ(Items(*list), (Texts{"Terminal 1", "*Terminal 3", "Terminal 4", "Terminal 6"}));
  EXPECT_EQ(list->item(1)->data(Qt::UserRole).toInt(), 3);
  EXPECT_EQ(form.windowTitle().toStdString(), "Selecção de postos - 01");
  EXPECT_EQ(list->selectionMode(), QAbstractItemView::MultiSelection);

  // Prepared again for another point: nothing of the first stays.
  form.Prepare("02", {}, {"1"});
  EXPECT_EQ(Items(*list), (Texts{"*Terminal 1", "Terminal 2", "Terminal 3", "Terminal 4",
                                 "Terminal 5", "Terminal 6"}));
  EXPECT_FALSE(form.Confirmed());
}

// OK gives the terminals selected, in ascending order, dropping a number
// above the host's count.
TEST_F(WorkstationList, OkAnswersTheSelectionInAscendingOrder) {
  // Terminals offered: 1, 3, 4, 6 (2 and 5 are taken); 6 is clicked on and
  // 3 off.
  std::string list = Choose({"2", "5"}, {"9", "3", "1"}, {3, 1}, "cmdOK");
  EXPECT_EQ(seen_caption_, "Selecção de postos - 03");
  EXPECT_EQ(seen_items_, (Texts{"*Terminal 1", "*Terminal 3", "Terminal 4", "Terminal 6"}));
  EXPECT_EQ(list, "1,6");
}

TEST_F(WorkstationList, OkWithNothingSelectedAnswersEmptyText) {
  EXPECT_EQ(Choose({}, {"2"}, {1}, "cmdOK"), "");
  EXPECT_EQ(Choose({}, {}, {}, "cmdOK"), "");
}

// Cancel and the close box give the list as it came, in its order, whatever
// was clicked.
TEST_F(WorkstationList, CancelAnswersTheListAsItCame) {
  EXPECT_EQ(Choose({"5"}, {"4", "1", "9"}, {1, 2}, "cmdCancel"), "4,1,9");
  EXPECT_EQ(Choose({"5"}, {"4", "1", "9"}, {1, 2}, nullptr), "4,1,9");
  EXPECT_EQ(Choose({}, {}, {0}, "cmdCancel"), "");
}

// The grid's side: the row's own list split at ",", the others' taken.
TEST(WorkstationChoice, ListsOfTheGridRows) {
  EXPECT_EQ(lumaro::SplitList(""), Texts{});
  EXPECT_EQ(lumaro::SplitList("1,2, 3"), (Texts{"1", "2", " 3"}));
  EXPECT_EQ(lumaro::SplitList("4,"), (Texts{"4", ""}));

  const Texts lists = {"1,2", "", "3", "4,5"};
  EXPECT_EQ(lumaro::UsedWorkstations(lists, 1), (Texts{"1", "2", "3", "4", "5"}));
  EXPECT_EQ(lumaro::UsedWorkstations(lists, 0), (Texts{"3", "4", "5"}));
  EXPECT_EQ(lumaro::UsedWorkstations({"7"}, 0), Texts{});

  // Exactly equal: no trimming, no numbers read.
  EXPECT_TRUE(lumaro::IsInList({"1", "12"}, "12"));
  EXPECT_FALSE(lumaro::IsInList({" 2", "02"}, "2"));
  EXPECT_FALSE(lumaro::IsInList({}, "1"));
}

}  // namespace
