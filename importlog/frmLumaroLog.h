#ifndef LUMARO_IMPORTLOG_FRM_LUMARO_LOG_H_
#define LUMARO_IMPORTLOG_FRM_LUMARO_LOG_H_

#include <QDialog>

#include "importlog/DSOLumaroLog.h"

class QPushButton;
class QTableWidget;

namespace lumaro {

// The log viewer, "Histórico de ficheiros integrados": the rows of the
// table LumaroLog in the grid vsfImportLog (workstation, file name, import
// date, file date), of which the person may delete some with cmdDelete, so
// that those files are taken again by the next import. cmdExit closes it.
// Reads and deletes through DSOLumaroLog, so the thread's connector code
// must have its host attached (ModConnectorLumaro).
class frmLumaroLog : public QDialog {
 public:
  // The form loaded: title, place, grid set up and filled.
  explicit frmLumaroLog(QWidget* parent = nullptr);

  // Whether rows were deleted since the form was loaded.
  bool Changed() const { return changed_; }

  // Reads the log again into the grid, in the log's order; the first row
  // becomes the current one, and so the one selected. A log that cannot be read leaves the grid
  // with its header only. Each column keeps at least its designed width
  // and widens to show its texts whole.
  void FillGrid();
  // Deletes the selected rows from the log and the grid after the
  // question of message 4140049 (Yes/No); with none selected, does
  // nothing.
  void DeleteSelectedRows();

 private:
  void SetUpGrid();
  void FitColumns();

  DSOLumaroLog log_;
  bool changed_ = false;
  std::string title_;
  QTableWidget* vsfImportLog_;
  QPushButton* cmdDelete_;
  QPushButton* cmdExit_;
};

// Shows the log viewer modally; True when rows were deleted.
bool ShowLumaroLog(QWidget* parent = nullptr);

}  // namespace lumaro

#endif  // LUMARO_IMPORTLOG_FRM_LUMARO_LOG_H_
