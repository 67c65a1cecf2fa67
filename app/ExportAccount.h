#ifndef LUMARO_APP_EXPORT_ACCOUNT_H_
#define LUMARO_APP_EXPORT_ACCOUNT_H_

#include <string>
#include <string_view>
#include <vector>

#include "connector/host/ExportObserver.h"

namespace app {

// What an export did, point by point, told by the connector as it went.
class ExportAccount : public host::ExportObserver {
 public:
  enum class End {
    kNone,  // started, and ended by the run's error
    kFileMade,
    kNothingPending,
    kFolderMissing,
    kFileExists,
  };
  // One active point's export, in the order of the run.
  struct Point {
    std::string code;
    End end = End::kNone;
    // The file begun (and made, for kFileMade), the file found, or the
    // missing folder; absolute. Empty when none of these.
    std::string path;
    bool file_begun = false;
    host::Date first_date;
    RecordCounts records;
  };

  void PointStarted(std::string_view code) override;
  void FileBegun(std::string_view path) override;
  void FileMade(host::Date first_date, const RecordCounts& records) override;
  void NothingPending() override;
  void Stopped(Stop why, std::string_view path) override;

  const std::vector<Point>& Points() const { return points_; }
  // One sentence for each point that stopped for a person.
  std::vector<std::string> Stops() const;
  // The sentence of a point stopped by `why` at `path` (the missing folder,
  // or the file that is there), which it gives as an absolute path.
  static std::string StopSentence(std::string_view code, Stop why, std::string_view path);

 private:
  // Ends the last point started; `path`, when given, is where it ended.
  void End(enum End end, std::string_view path = "");

  std::vector<Point> points_;
};

}  // namespace app

#endif  // LUMARO_APP_EXPORT_ACCOUNT_H_
