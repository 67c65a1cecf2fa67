#include "app/ExportAccount.h"

#include "app/Paths.h"

namespace app {

void ExportAccount::PointStarted(std::string_view code) {
  Point point;
  point.code = code;
  points_.push_back(std::move(point));
}

void ExportAccount::FileBegun(std::string_view path) {
  if (points_.empty()) return;
  points_.back().path = AbsolutePath(path);
  points_.back().file_begun = true;
}

void ExportAccount::FileMade(host::Date first_date, const RecordCounts& records) {
  End(End::kFileMade);
  if (points_.empty()) return;
  points_.back().first_date = first_date;
  points_.back().records = records;
}

void ExportAccount::NothingPending() { End(End::kNothingPending); }

void ExportAccount::Stopped(Stop why, std::string_view path) {
  End(why == Stop::kFolderMissing ? End::kFolderMissing : End::kFileExists, path);
}

void ExportAccount::End(enum End end, std::string_view path) {
  if (points_.empty()) return;
  points_.back().end = end;
  if (!path.empty()) points_.back().path = AbsolutePath(path);
}

std::string ExportAccount::StopSentence(std::string_view code, Stop why, std::string_view path) {
  std::string start = "point " + std::string(code) + ": ";
  std::string where = AbsolutePath(path);
  if (why == Stop::kFolderMissing) {
    return start +
           (where.empty() ? std::string("the settings name no exchange folder")
                          : "the exchange folder " + where + " does not exist") +
           "; no file was made";
  }
  return start + "the file " + where +
         " is already there; the exports of this point stop until it is removed";
}

std::vector<std::string> ExportAccount::Stops() const {
  std::vector<std::string> stops;
  for (const Point& point : points_) {
    if (point.end == End::kFolderMissing) {
      stops.push_back(StopSentence(point.code, Stop::kFolderMissing, point.path));
    } else if (point.end == End::kFileExists) {
      stops.push_back(StopSentence(point.code, Stop::kFileExists, point.path));
    }
  }
  return stops;
}

}  // namespace app
