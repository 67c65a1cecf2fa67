#include "app/RunReport.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <stdexcept>

#include "app/Failure.h"
#include "app/IsoDates.h"
#include "connector/host/FileSystem.h"

namespace app {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

bool IsExport(const ReportedRun& run) {
  return !run.command.empty() && (run.command[0] == "export" || run.command[0] == "reexport");
}

// The outcome and its details of one point; `end` is the point's entry of
// the export account, or null when the run did not reach it.
void DescribePoint(Json& point, const ExportAccount::Point* end, const ReportedRun& run) {
  Json file = nullptr;
  Json reason = nullptr;
  const char* outcome = "not_reached";
  if (!end) {
    reason = run.error.empty() ? "the run ended before this point"
                               : "the run ended at an error before this point";
  } else {
    switch (end->end) {
      case ExportAccount::End::kNone:
        outcome = "failed";
        reason = "the run failed while exporting this point: " + run.error;
        if (end->file_begun) {
          reason = reason.get<std::string>() + "; its file " + end->path +
                   " stays as far as it was written";
        }
        break;
      case ExportAccount::End::kFileMade: {
        outcome = "file_made";
        Json records = Json::object();
        for (const auto& [tag, count] : end->records) records[tag] = count;
        file = {{"name", host::GetFileName(end->path)},
                {"path", end->path},
                {"records", std::move(records)},
                {"first_date", LocalIso(end->first_date)}};
        break;
      }
      case ExportAccount::End::kNothingPending:
        outcome = "nothing_pending";
        reason = "nothing was pending";
        break;
      case ExportAccount::End::kFolderMissing:
        outcome = "folder_missing";
        reason = "the exchange folder " + end->path + " does not exist";
        break;
      case ExportAccount::End::kFileExists:
        outcome = "file_exists";
        reason = "the file " + end->path +
                 " is already there; the exports of this point stop until it is removed";
        break;
    }
  }
  point["outcome"] = outcome;
  point["file"] = std::move(file);
  point["reason"] = std::move(reason);
}

// Every point of the settings in their order. The run took the active ones
// in that order, so the k-th active point is the k-th the account tells of.
Json ExchangePoints(const ReportedRun& run, const ExportAccount& exports,
                    std::optional<lumaro::LumaroConnectorSetting>& settings) {
  Json points = Json::array();
  if (!IsExport(run) || !settings) return points;
  size_t next_told = 0;
  for (int i = 1; i <= settings->LumaroWorkstationCount(); ++i) {
    lumaro::Workstation entry = settings->Workstation(i);
    Json point = {{"code", entry.LumaroWorkstationID},
                  {"series", entry.TransSerial},
                  {"workstations", entry.WorkstationList},
                  {"active", entry.Active},
                  {"last_number", entry.LastExportNumber}};
    if (!entry.Active) {
      point["outcome"] = "inactive";
      point["file"] = nullptr;
      point["reason"] = "the point is not active";
    } else {
      const auto& told = exports.Points();
      DescribePoint(point, next_told < told.size() ? &told[next_told] : nullptr, run);
      ++next_told;
    }
    points.push_back(std::move(point));
  }
  return points;
}

Json ImportFiles(const ReportedRun& run, const ImportAccount& imports) {
  Json files = Json::array();
  for (const ImportAccount::File& file : imports.Files()) {
    // The run's error ended the file read last, if it was undone.
    bool read_last = &file == &imports.Files().back();
    Json records = Json::object();
    Json refused = Json::array();
    for (const std::string& tag : ImportAccount::TagOrder()) {
      auto counts = file.tags.find(tag);
      if (counts == file.tags.end()) continue;
      const ImportAccount::TagCounts& c = counts->second;
      records[tag] = {{"added", c.added},
                      {"updated", c.updated},
                      {"refused", static_cast<int64_t>(c.refused.size())}};
      for (const auto& [line, reason] : c.refused) {
        refused.push_back({{"tag", tag}, {"line", line}, {"reason", reason}});
      }
    }
    const char* outcome = "imported";
    Json reason = nullptr;
    if (!file.skipped.empty()) {
      outcome = "skipped";
      reason = file.skipped;
    } else if (!file.committed) {
      outcome = "rolled_back";
      reason = run.error.empty() || !read_last
                   ? "the import stopped at this file and undid its changes"
                   : run.error;
    }
    files.push_back({{"name", file.name},
                     {"outcome", outcome},
                     {"reason", std::move(reason)},
                     {"records", std::move(records)},
                     {"refused", std::move(refused)}});
  }
  return files;
}

const char* OutcomeOf(int exit_code) {
  if (exit_code == kSuccess) return "completed";
  if (exit_code == kStopped) return "stopped";
  return "failed";
}

// The temporary file beside the report, renamed over it once written.
fs::path TemporaryPathFor(const fs::path& target) {
  return target.parent_path() /
         ("." + target.filename().string() + "." + std::to_string(::getpid()) + ".tmp");
}

// Writes `text` to `path` through a temporary file of the same folder.
void ReplaceAtomically(const std::string& path, const std::string& text) {
  fs::path target(path);
  fs::path temporary = TemporaryPathFor(target);
  auto fail = [&](const char* what) {
    int error = errno;
    ::unlink(temporary.c_str());
    throw std::runtime_error("cannot " + std::string(what) + " the report " + path + ": " +
                             std::strerror(error));
  };
  int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (fd < 0) fail("write");
  for (size_t done = 0; done < text.size();) {
    ssize_t wrote = ::write(fd, text.data() + done, text.size() - done);
    if (wrote < 0 && errno == EINTR) continue;
    if (wrote <= 0) {
      ::close(fd);
      fail("write");
    }
    done += static_cast<size_t>(wrote);
  }
  if (::fsync(fd) != 0) {
    ::close(fd);
    fail("write");
  }
  if (::close(fd) != 0) fail("write");
  if (::rename(temporary.c_str(), target.c_str()) != 0) fail("rename into place");
}

}  // namespace

void CheckReportCanBeWritten(const std::string& path) {
  fs::path target(path);
  std::error_code error;
  if (fs::is_directory(target, error)) {
    throw std::runtime_error("cannot write the report " + path + ": it is a folder");
  }
  fs::path temporary = TemporaryPathFor(target);
  int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644);
  if (fd < 0) {
    throw std::runtime_error("cannot write the report " + path + ": " + std::strerror(errno));
  }
  ::close(fd);
  ::unlink(temporary.c_str());
}

void WriteRunReport(const std::string& path, const ReportedRun& run, const RunAccount& account,
                    std::optional<lumaro::LumaroConnectorSetting> settings) {
  Json boxes = Json::array();
  for (const Box& box : account.boxes) boxes.push_back({{"text", box.text}, {"style", box.style}});
  Json report = {{"format", "lumaro-run-report"},
                 {"version", 1},
                 {"command", run.command},
                 {"dry_run", run.dry_run},
                 {"database", run.database},
                 {"workstation", run.workstation},
                 {"started", UtcIso(run.started)},
                 {"ended", UtcIso(run.ended)},
                 {"exit_code", run.exit_code},
                 {"outcome", OutcomeOf(run.exit_code)},
                 {"stops", account.Stops()},
                 {"exchange_points", ExchangePoints(run, account.exports, settings)},
                 {"import_files", ImportFiles(run, account.imports)},
                 {"boxes", std::move(boxes)},
                 {"error", run.error.empty() ? Json(nullptr) : Json(run.error)}};
  // Texts the database or a file gave that are not UTF-8 are written with
  // the replacement character rather than fail the report.
  ReplaceAtomically(path, report.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
}

}  // namespace app
