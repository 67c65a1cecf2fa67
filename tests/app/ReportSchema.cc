#include "tests/app/ReportSchema.h"

#include <gtest/gtest.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <set>

namespace testsupport {
namespace {

namespace fs = std::filesystem;

const char kValidator[] =
    "import json,sys; from jsonschema import Draft202012Validator as V; "
    "s=json.load(open(sys.argv[1])); V.check_schema(s); "
    "V(s).validate(json.load(open(sys.argv[2])))";

std::string UtcNow() {
  std::time_t now = std::time(nullptr);
  std::tm parts{};
  ::gmtime_r(&now, &parts);
  char text[32];
  std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text;
}

std::set<std::string> Entries(const fs::path& folder) {
  std::set<std::string> names;
  std::error_code error;
  for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
    names.insert(it->path().filename().string());
  }
  return names;
}

}  // namespace

std::string ValidateReport(const std::string& path) {
  std::string schema = std::string(LUMARO_SOURCE_DIR) + "/docs/run-report.schema.json";
  ProgramResult validator = RunProgram(".", {"/usr/bin/python3", "-c", kValidator, schema, path});
  if (validator.exit_code == 0) return "";
  std::string said = validator.out + validator.err;
  return "validator exit " + std::to_string(validator.exit_code) + ": " +
         (said.empty() ? "(nothing said)" : said);
}

ReportedRun RunReported(const std::string& folder, const std::vector<std::string>& args) {
  ReportedRun run;
  std::string relative;
  for (size_t i = 0; i + 1 < args.size(); ++i) {
    if (args[i] == "--report") relative = args[i + 1];
  }
  if (relative.empty() || fs::path(relative).is_absolute()) {
    ADD_FAILURE() << "RunReported wants --report with a relative path";
    return run;
  }
  fs::path report = fs::path(folder) / relative;
  fs::create_directories(report.parent_path());
  EXPECT_TRUE(Entries(report.parent_path()).empty()) << report.parent_path() << " is not new";

  run.before = UtcNow();
  run.result = RunLumaro(folder, args);
  run.after = UtcNow();

  if (!fs::exists(report)) {
    ADD_FAILURE() << "no report at " << report << "; exit " << run.result.exit_code
                  << ", stderr: " << run.result.err;
    return run;
  }
  EXPECT_EQ(Entries(report.parent_path()), std::set<std::string>{report.filename().string()})
      << "the report's folder holds other files";
  EXPECT_EQ(ValidateReport(report.string()), "") << report;
  std::ifstream in(report);
  run.report = nlohmann::json::parse(in, nullptr, false);
  EXPECT_TRUE(run.report.is_object()) << "not a JSON object: " << report;
  if (!run.report.is_object()) run.report = nullptr;
  return run;
}

void ExpectReportHead(ReportedRun& run, const std::vector<std::string>& command, int exit_code,
                      const std::string& outcome, const std::string& database, bool dry_run) {
  nlohmann::json& r = run.report;
  ASSERT_TRUE(r.is_object());
  EXPECT_EQ(r["format"], "lumaro-run-report");
  EXPECT_EQ(r["version"], 1);
  EXPECT_EQ(r["command"], nlohmann::json(command));
  EXPECT_EQ(r["dry_run"], dry_run);
  if (r["database"].is_string()) {
    std::string shown = r["database"];
    EXPECT_TRUE(fs::path(shown).is_absolute()) << shown;
    EXPECT_EQ(fs::weakly_canonical(shown), fs::weakly_canonical(database)) << shown;
  } else {
    ADD_FAILURE() << "database: " << r["database"];
  }
  EXPECT_EQ(r["workstation"], 1);
  if (r["started"].is_string() && r["ended"].is_string()) {
    // The wall clock, not the --now clock, and in order.
    std::string started = r["started"], ended = r["ended"];
    EXPECT_LE(run.before, started);
    EXPECT_LE(started, ended);
    EXPECT_LE(ended, run.after);
  }
  EXPECT_EQ(run.result.exit_code, exit_code) << run.result.err;
  EXPECT_EQ(r["exit_code"], exit_code);
  EXPECT_EQ(r["outcome"], outcome);
  if (exit_code == 0) {
    EXPECT_EQ(r["stops"], nlohmann::json::array());
  }
  if (exit_code == 0 || exit_code == 3) {
    EXPECT_EQ(r["error"], nullptr);
  }
  for (auto& box : r["boxes"]) {
    std::string text = box["text"].is_string() ? box["text"].get<std::string>() : "(no text)";
    EXPECT_NE(run.result.err.find(text + "\n"), std::string::npos)
        << "box not on stderr: " << text << "\nstderr: " << run.result.err;
  }
}

std::vector<std::string> TextLines(const std::string& text) {
  std::vector<std::string> lines;
  size_t at = 0;
  for (size_t end; (end = text.find('\n', at)) != std::string::npos; at = end + 1) {
    lines.push_back(text.substr(at, end - at));
  }
  if (at < text.size()) lines.push_back(text.substr(at));
  return lines;
}

std::string FirstLine(const std::string& text) {
  auto lines = TextLines(text);
  return lines.empty() ? "" : lines.front();
}

std::string LastLine(const std::string& text) {
  auto lines = TextLines(text);
  return lines.empty() ? "" : lines.back();
}

}  // namespace testsupport
