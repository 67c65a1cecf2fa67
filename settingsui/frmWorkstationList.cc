#include "settingsui/frmWorkstationList.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "connector/ModConnectorLumaro.h"
#include "forms/FormTools.h"
#include "settingsui/WorkstationChoice.h"

namespace lumaro {
namespace {

constexpr char kFormName[] = "frmWorkstationList";
constexpr char kCaption[] = "Selecção de postos";

}  // namespace

frmWorkstationList::frmWorkstationList(QWidget* parent) : QDialog(parent) {
  setObjectName(kFormName);
  setWindowTitle(QText(kCaption));

  lstWorkstationList_ = new QListWidget(this);
  lstWorkstationList_->setObjectName("lstWorkstationList");
  // A click selects or unselects one terminal, keeping the others.
  lstWorkstationList_->setSelectionMode(QAbstractItemView::MultiSelection);
  cmdOK_ = new QPushButton(QText("&OK"), this);
  cmdOK_->setObjectName("cmdOK");
  cmdCancel_ = new QPushButton(QText("&Cancelar"), this);
  cmdCancel_->setObjectName("cmdCancel");

  auto* buttons = new QVBoxLayout;
  buttons->addWidget(cmdOK_);
  buttons->addWidget(cmdCancel_);
  buttons->addStretch();
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(lstWorkstationList_);
  layout->addLayout(buttons);

  connect(cmdOK_, &QPushButton::clicked, this, [this] {
    confirmed_ = true;
    accept();
  });
  // The close box rejects too, and so acts as cmdCancel.
  connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);
  resize(TwipsToPixels(*this, 4200), TwipsToPixels(*this, 3600));
}

void frmWorkstationList::Prepare(std::string_view lumaro_workstation_id,
                                 const std::vector<std::string>& used_workstations,
                                 const std::vector<std::string>& current_workstations) {
  confirmed_ = false;
  setWindowTitle(QText(std::string(kCaption) + " - " + std::string(lumaro_workstation_id)));
  previous_ = current_workstations;
  lstWorkstationList_->clear();
  int terminal_count = ModConnectorLumaro::Host().SystemManager().Context().TerminalCount();
  for (int number = 1; number <= terminal_count; ++number) {
    std::string text = std::to_string(number);
    if (IsInList(used_workstations, text)) continue;
    auto* item = new QListWidgetItem(QText("Terminal " + text), lstWorkstationList_);
    item->setData(Qt::UserRole, number);
    item->setSelected(IsInList(current_workstations, text));
  }
}

std::string frmWorkstationList::Result() const {
  std::vector<int> selected;
  for (int i = 0; i < lstWorkstationList_->count(); ++i) {
    const QListWidgetItem* item = lstWorkstationList_->item(i);
    if (item->isSelected()) selected.push_back(item->data(Qt::UserRole).toInt());
  }
  return ChosenList(selected, confirmed_, previous_);
}

std::string GetWorkstationList(std::string_view lumaro_workstation_id,
                               const std::vector<std::string>& used_workstations,
                               const std::vector<std::string>& current_workstations,
                               QWidget* parent) {
  frmWorkstationList form(parent);
  form.Prepare(lumaro_workstation_id, used_workstations, current_workstations);
  ModConnectorLumaro::Host().UIManager().PlaceForm(kFormName);
  form.exec();
  return form.Result();
}

}  // namespace lumaro
