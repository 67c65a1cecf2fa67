#include "importlog/frmLumaroLog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "forms/FormTools.h"

namespace lumaro {
namespace {

constexpr char kFormName[] = "frmLumaroLog";
constexpr char kCaption[] = "Histórico de ficheiros integrados";
constexpr int32_t kDeleteQuestion = 4140049;

struct Column {
  const char* header;
  int twips;
};
// Workstation, file name, import date, file date. The size is read but not
// shown.
constexpr Column kColumns[] = {
    {"Posto", 1400}, {"Ficheiro", 1400}, {"Data Importação", 2000}, {"Data Ficheiro", 2000}};
constexpr int kColumnCount = 4;

}  // namespace

frmLumaroLog::frmLumaroLog(QWidget* parent) : QDialog(parent) {
  setObjectName(kFormName);
  // There is no catalogue message for the log viewer's title: its boxes
  // carry the form's caption.
  title_ = kCaption;
  setWindowTitle(QText(kCaption));

  vsfImportLog_ = new QTableWidget(this);
  vsfImportLog_->setObjectName("vsfImportLog");
  cmdDelete_ = new QPushButton(QText("&Apagar"), this);
  cmdDelete_->setObjectName("cmdDelete");
  cmdExit_ = new QPushButton(QText("&Sair"), this);
  cmdExit_->setObjectName("cmdExit");
  // Enter presses neither button: the person picks one.
  cmdDelete_->setAutoDefault(false);
  cmdExit_->setAutoDefault(false);

  // The grid follows the form's size; the buttons keep their distance from
  // its right and bottom edges.
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cmdDelete_);
  buttons->addWidget(cmdExit_);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(vsfImportLog_);
  layout->addLayout(buttons);

  connect(cmdDelete_, &QPushButton::clicked, this, [this] { DeleteSelectedRows(); });
  connect(cmdExit_, &QPushButton::clicked, this, &QDialog::reject);

  ModConnectorLumaro::Host().UIManager().PlaceForm(kFormName);
  SetUpGrid();
  FillGrid();
  // Wide enough for the columns as filled, with room for a scroll bar.
  QMargins margins = layout->contentsMargins();
  int grid_width = vsfImportLog_->horizontalHeader()->length() + 2 * vsfImportLog_->frameWidth() +
                   vsfImportLog_->verticalScrollBar()->sizeHint().width();
  resize(std::max(TwipsToPixels(*this, 7600), grid_width + margins.left() + margins.right()),
         TwipsToPixels(*this, 4800));
}

void frmLumaroLog::SetUpGrid() {
  QTableWidget& grid = *vsfImportLog_;
  grid.setColumnCount(kColumnCount);
  grid.setRowCount(0);
  grid.verticalHeader()->hide();  // no fixed column
  QStringList headers;
  for (int col = 0; col < kColumnCount; ++col) {
    headers << QText(kColumns[col].header);
  }
  grid.setHorizontalHeaderLabels(headers);
  grid.setSelectionBehavior(QAbstractItemView::SelectRows);
  grid.setSelectionMode(QAbstractItemView::ExtendedSelection);
  grid.setSortingEnabled(false);
  // A click on a header neither sorts nor selects: selecting every row
  // there would be one click away from deleting the whole log.
  grid.horizontalHeader()->setSectionsClickable(false);
  grid.horizontalHeader()->setHighlightSections(false);
  grid.setEditTriggers(QAbstractItemView::NoEditTriggers);
  grid.setWordWrap(false);
  grid.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  grid.verticalHeader()->setDefaultSectionSize(grid.fontMetrics().height() + 6);
  grid.horizontalHeader()->setStretchLastSection(true);
}

void frmLumaroLog::FitColumns() {
  // The widths of the grid's design, widened where a header or a text
  // would not fit: a file name or a date cut short is no use to anyone.
  QTableWidget& grid = *vsfImportLog_;
  const QAbstractItemView& view = grid;  // where the size hint is public
  for (int col = 0; col < kColumnCount; ++col) {
    int width = std::max({TwipsToPixels(grid, kColumns[col].twips), view.sizeHintForColumn(col),
                          grid.horizontalHeader()->sectionSizeHint(col)});
    grid.setColumnWidth(col, width);
  }
}

void frmLumaroLog::FillGrid() {
  QTableWidget& grid = *vsfImportLog_;
  grid.setUpdatesEnabled(false);
  host::RecordsetPtr rs;
  try {
    grid.setRowCount(0);
    rs = log_.GetLumaroLogRS();
    using host::FieldConverter;
    for (; rs && !rs->Eof(); rs->MoveNext()) {
      const std::string texts[kColumnCount] = {
          FieldConverter::ToText(rs->Fields("WorkstationID")),
          FieldConverter::ToText(rs->Fields("Filename")),
          host::DateText(FieldConverter::ToDate(rs->Fields("ImportDate"))),
          host::DateText(FieldConverter::ToDate(rs->Fields("FileDate")))};
      int row = grid.rowCount();
      grid.insertRow(row);
      for (int col = 0; col < kColumnCount; ++col) {
        grid.setItem(row, col, new QTableWidgetItem(QText(texts[col])));
      }
    }
    if (grid.rowCount() > 0) grid.setCurrentCell(0, 0);
    FitColumns();
  } catch (const host::Error&) {
    // The grid stays as far as it was filled.
  }
  host::RecordsetTools::CloseRecordset(rs);
  grid.setUpdatesEnabled(true);
}

void frmLumaroLog::DeleteSelectedRows() {
  QTableWidget& grid = *vsfImportLog_;
  std::vector<int> rows;
  for (const QModelIndex& index : grid.selectionModel()->selectedRows()) {
    rows.push_back(index.row());
  }
  if (rows.empty()) return;
  const std::string question =
      ModConnectorLumaro::Host().UIManager().Messages().Text(kDeleteQuestion);
  if (ShowBox(this, question, host::msgbox::kYesNo | host::msgbox::kQuestion, title_) !=
      host::msgbox::kYes) {
    return;
  }
  // From the last row to the first, so that the rows still to go keep
  // their numbers while the others vanish.
  std::sort(rows.rbegin(), rows.rend());
  for (int row : rows) {
    std::string workstation = HostText(grid.item(row, 0)->text());
    std::string filename = HostText(grid.item(row, 1)->text());
    try {
      log_.Delete(host::CInt(host::Variant(workstation)), filename);
    } catch (const host::Error&) {
      // A workstation text that is no number has no row to delete.
    }
    grid.removeRow(row);
  }
  changed_ = true;
}

bool ShowLumaroLog(QWidget* parent) {
  frmLumaroLog form(parent);
  form.exec();
  return form.Changed();
}

}  // namespace lumaro
