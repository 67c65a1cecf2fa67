// The verification of the POS database: the check that reads a row of every
// table, and the maintenance worker's repairs.

#include "app/AttachedHost.h"
#include "app/Program.h"
#include "connector/host/UIManager.h"
#include "maintenance/UIRecovery.h"

namespace app {

int Program::VerifyCommand() {
  const std::vector<std::string>& words = options_.command;
  if (words.size() > 2) {
    throw UsageError("usage: lumaro verify [integrity|nulls|relations|indexes]");
  }
  const std::string what = words.size() == 2 ? words[1] : "integrity";
  if (options_.odbc) {
    // The checks are SQLite's own (its pragmas); a server keeps its own.
    err_ << "lumaro: verify checks a SQLite POS database; a server's database is checked "
            "with the server's own tools\n";
    return kFailure;
  }
  LockForRun();
  standalone::StandaloneHost& host = Host();
  AttachedHost attached(host);
  lumaro::UIRecovery recovery;
  const size_t boxes_before = account_.boxes.size();
  if (what == "integrity") {
    recovery.DBCheckIntegrity(false);
  } else if (what == "nulls") {
    recovery.DBVerifyNulls();
  } else if (what == "relations") {
    recovery.DBVerifyRelations(false);
  } else if (what == "indexes") {
    recovery.DBVerifyIndexes(false);
  } else {
    throw UsageError("usage: lumaro verify [integrity|nulls|relations|indexes]");
  }
  // What the run showed: a failure, each table or column it could not
  // read, the end of a repair; a repair without its end was declined.
  int findings = 0;
  bool ended = false;
  for (size_t i = boxes_before; i < account_.boxes.size(); ++i) {
    const int style = account_.boxes[i].style;
    const int icon = style & 0x70;  // the icon's bits of a box's style
    if (icon == host::msgbox::kCritical) return kFailure;
    if (style == host::msgbox::kOkOnly) ++findings;
    if (icon == host::msgbox::kInformation) ended = true;
  }
  if (what != "integrity" && !ended) return kFailure;  // declined: nothing was done
  if (findings > 0) {
    err_ << "lumaro: stopped: " << findings
         << (findings == 1 ? " table or column of the POS database cannot be read\n"
                           : " tables or columns of the POS database cannot be read\n");
    return kStopped;
  }
  return kSuccess;
}

}  // namespace app
