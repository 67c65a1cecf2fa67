#ifndef LUMARO_SETTINGSUI_FRM_WORKSTATION_LIST_H_
#define LUMARO_SETTINGSUI_FRM_WORKSTATION_LIST_H_

#include <QDialog>
#include <string>
#include <string_view>
#include <vector>

class QListWidget;
class QPushButton;

namespace lumaro {

// The choice of the POS terminals that one exchange point serves: the list
// lstWorkstationList offers "Terminal 1" to "Terminal N" (N the host's
// TerminalCount) but those other points have taken, the point's own
// terminals selected; cmdOK confirms, cmdCancel and the close box do not.
// The settings form opens it from the cell button of its grid's column
// "Lista de Postos", through GetWorkstationList. Reads the host through
// ModConnectorLumaro, so the thread's connector code must have its host
// attached.
class frmWorkstationList : public QDialog {
 public:
  explicit frmWorkstationList(QWidget* parent = nullptr);

  // Sets the form up for the exchange point `lumaro_workstation_id`:
  // caption, previous list, and the offered terminals (those in
  // `used_workstations` left out, those in `current_workstations`
  // selected). Clears the confirmation.
  void Prepare(std::string_view lumaro_workstation_id,
               const std::vector<std::string>& used_workstations,
               const std::vector<std::string>& current_workstations);
  bool Confirmed() const { return confirmed_; }
  // The answer as the form stands: ChosenList of the selected terminals.
  std::string Result() const;

 private:
  bool confirmed_ = false;
  std::vector<std::string> previous_;
  QListWidget* lstWorkstationList_;
  QPushButton* cmdOK_;
  QPushButton* cmdCancel_;
};

// Shows the workstation list modally for the exchange point
// `lumaro_workstation_id` and returns the point's new list: on OK the
// selected terminals in ascending order, joined with "," (empty when none:
// the caller then unchecks the point's Active box); on Cancel or the close
// box, `current_workstations` joined with "," as it came. The two arrays
// come from the grid: SplitList of the row's list and UsedWorkstations of
// the other rows (WorkstationChoice.h).
std::string GetWorkstationList(std::string_view lumaro_workstation_id,
                               const std::vector<std::string>& used_workstations,
                               const std::vector<std::string>& current_workstations,
                               QWidget* parent = nullptr);

}  // namespace lumaro

#endif  // LUMARO_SETTINGSUI_FRM_WORKSTATION_LIST_H_
