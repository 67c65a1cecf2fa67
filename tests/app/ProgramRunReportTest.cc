// The export as operations see it: the run report of `lumaro export`, the
// exit code 3 of a point stopped for a person, `lumaro status`, and the
// command lines that cannot take --report, in the export tests' shop, its
// POS database on SQLite or a server (see PosUnderTest).

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

#include "tests/app/ExportShop.h"
#include "tests/app/ImportShop.h"

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using testsupport::ReadBytes;
using testsupport::RunLumaro;
using testsupport::TextLines;

const std::string kData = testsupport::kExportData;
const std::string kFirstFile = "ETpv 02 0000042.txt";
const std::string kFolderMissing = "A pasta de importação/exportação não existe.";
constexpr int kInformationBox = 64;

// Pending in the seed (pos-seed.sql), counted by hand. Point 02: the sales
// TVD A/1, A/2, A/3, A/4, A/10 (voided, still a document) and TGT A/1 (at
// midnight, the oldest); not A/6 (workstation 3), not A/7 (exported), not
// B/1 (series B). Receipts REC A/1 and DEV A/1 (the 22nd); not REC A/2
// (workstation 3). Point 05: only the sale B/1; no receipt of series B.
const std::string kPoint05 =
    "point 05: series B, workstations 1,3, inactive, last file 7\n"
    "  next file: ETpv 05 0000008.txt (free)\n"
    "  pending sales: 1, oldest 2026-11-21 08:00:00\n"
    "  pending receipts: 0\n";

using PosShop = testsupport::ExportShop;

// The head of an export's report (ExpectReportHead) in the shop.
void ExpectHead(PosShop& shop, testsupport::ReportedRun& run, int exit_code,
                const std::string& outcome, const std::vector<std::string>& command = {"export"}) {
  importshop::ExpectHead(run, *shop.Open(), shop.Database(), command, exit_code, outcome);
}

// The number of lines of each record tag in an export file (CR LF ends).
json CountTags(const std::string& bytes) {
  json counts = json::object();
  for (size_t at = 0, end; (end = bytes.find("\r\n", at)) != std::string::npos; at = end + 2) {
    std::string tag = bytes.substr(at, bytes.find('^', at) - at);
    counts[tag] = counts.value(tag, 0) + 1;
  }
  return counts;
}

// A point's settings as the report gives them, and its outcome:
// code|series|workstations|active|last number|outcome, each as JSON.
std::string Point(json& point) {
  std::string shown;
  for (const char* field : {"code", "series", "workstations", "active", "last_number", "outcome"}) {
    shown += (shown.empty() ? "" : "|") + point[field].dump();
  }
  return shown;
}

// Point 05 is inactive in every run and keeps its number.
void ExpectInactivePoint05(json& point) {
  EXPECT_EQ(Point(point), R"("05"|"B"|"1,3"|false|7|"inactive")");
  EXPECT_EQ(point["file"], nullptr);
  EXPECT_TRUE(point["reason"].is_string()) << point;
}

// Point 02's first file, made whole: the report names it and counts its
// lines by tag as the expected file holds them.
void ExpectFirstFileMade(PosShop& shop, json& point) {
  const std::string expected = ReadBytes(kData + "/" + kFirstFile);
  EXPECT_EQ(Point(point), R"("02"|"A"|"1,2"|true|42|"file_made")");
  EXPECT_EQ(point["reason"], nullptr);
  json& file = point["file"];
  ASSERT_TRUE(file.is_object()) << point;
  EXPECT_EQ(file["name"], kFirstFile);
  EXPECT_EQ(file["records"], CountTags(expected));
  EXPECT_EQ(file["records"]["FL"], 8);  // the sub-line of TVD A/1 is not one
  // TGT A/1 at midnight is the first sale; the receipt of the 22nd is older
  // but the sales' date comes first.
  EXPECT_EQ(file["first_date"], "2026-11-23 00:00:00");
  std::string path = file["path"].is_string() ? file["path"].get<std::string>() : "";
  EXPECT_TRUE(path.ends_with("exchange/" + kFirstFile)) << path;
  if (fs::path(path).is_relative()) path = shop.Path() + "/" + path;
  EXPECT_EQ(ReadBytes(path), expected);
}

// The records are counted as written, not as lines: a free text that holds
// a line end of its own makes no record of its own.
TEST(ProgramRunReport, ATextWithALineEndIsPartOfItsRecord) {
  PosShop shop;
  shop.Open()->ExecuteScript("UPDATE SaleTransaction SET Comments = 'first\r\nsecond'");
  auto run = shop.Reported({"export", "--report", "run/run.json"});
  ExpectHead(shop, run, 0, "completed");
  EXPECT_EQ(run.report["exchange_points"][0]["file"]["records"],
            CountTags(ReadBytes(kData + "/" + kFirstFile)));
}

TEST(ProgramRunReport, AFileAlreadyThereStopsItsPointUntilItIsRemoved) {
  PosShop shop;
  // What an export cut short leaves behind.
  const std::string left = "HF^1^2^EMP01^2026^11^02^42^23-11-2026\r\nCL^02^1001^Pada";
  std::ofstream(shop.InExchange(kFirstFile), std::ios::binary) << left;
  // The path as the export builds it: the settings' folder, "/", the name.
  const std::string box = "O ficheiro exchange/" + kFirstFile + " já existe!";

  auto stuck = shop.Reported({"--report", "stuck/run.json", "export"});
  ExpectHead(shop, stuck, 3, "stopped");
  // The box is the first thing on stderr; what follows it is the program's own.
  EXPECT_EQ(testsupport::FirstLine(stuck.result.err), box);
  EXPECT_EQ(stuck.report["stops"].size(), 1u) << stuck.report["stops"];
  EXPECT_EQ(stuck.report["boxes"], json::array({json{{"text", box}, {"style", kInformationBox}}}));
  ASSERT_EQ(stuck.report["exchange_points"].size(), 2u);
  json& point = stuck.report["exchange_points"][0];
  EXPECT_EQ(Point(point), R"("02"|"A"|"1,2"|true|41|"file_exists")");
  EXPECT_EQ(point["file"], nullptr);
  std::string reason = point["reason"].is_string() ? point["reason"].get<std::string>() : "";
  EXPECT_NE(reason.find("exchange/" + kFirstFile), std::string::npos) << reason;
  ExpectInactivePoint05(stuck.report["exchange_points"][1]);
  EXPECT_EQ(ReadBytes(shop.InExchange(kFirstFile)), left);
  EXPECT_EQ(shop.ExchangeFileCount(), 1u);
  EXPECT_EQ(shop.LastExportNumber(), "41");

  auto status = shop.Lumaro({"status"});
  EXPECT_EQ(status.exit_code, 3) << status.err;
  EXPECT_NE(status.out.find("\n  next file: " + kFirstFile +
                            " (already there: the exports of this point stop until it is "
                            "removed)\n"),
            std::string::npos)
      << status.out;
  auto lines = TextLines(status.out);
  ASSERT_FALSE(lines.empty());
  EXPECT_TRUE(lines.back().starts_with("stuck: point 02: ")) << status.out;
  EXPECT_GT(lines.back().size(), std::string("stuck: point 02: ").size());
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& l) { return l.starts_with("stuck:"); }),
            1);

  // Once the file is gone the point goes on from where it stood.
  ASSERT_EQ(std::remove(shop.InExchange(kFirstFile).c_str()), 0);
  auto cleared = shop.Reported({"export", "--report", "cleared/run.json"});
  ExpectHead(shop, cleared, 0, "completed");
  ASSERT_EQ(cleared.report["exchange_points"].size(), 2u);
  ExpectFirstFileMade(shop, cleared.report["exchange_points"][0]);

  // The status is then the healthy one an export leaves (see above).
  auto healthy = shop.Lumaro({"status"});
  EXPECT_EQ(healthy.exit_code, 0) << healthy.err;
  EXPECT_EQ(healthy.out.find("stuck:"), std::string::npos) << healthy.out;
}

TEST(ProgramRunReport, AMissingExchangeFolderStopsTheExport) {
  std::string settings = testsupport::ExportSettings();
  settings.replace(settings.find("\"exchange\""), 10, "\"no-such-folder\"");
  PosShop shop(settings);
  auto run = shop.Reported({"export", "--report", "missing/run.json"});
  ExpectHead(shop, run, 3, "stopped");
  EXPECT_EQ(run.report["stops"].size(), 1u) << run.report["stops"];
  EXPECT_EQ(run.report["boxes"],
            json::array({json{{"text", kFolderMissing}, {"style", kInformationBox}}}));
  ASSERT_EQ(run.report["exchange_points"].size(), 2u);
  json& point = run.report["exchange_points"][0];
  EXPECT_EQ(Point(point), R"("02"|"A"|"1,2"|true|41|"folder_missing")");
  EXPECT_EQ(point["file"], nullptr);
  EXPECT_TRUE(point["reason"].is_string()) << point;
  ExpectInactivePoint05(run.report["exchange_points"][1]);

  auto status = shop.Lumaro({"status"});
  EXPECT_EQ(status.exit_code, 3) << status.err;
  auto lines = TextLines(status.out);
  ASSERT_FALSE(lines.empty());
  // The folder as the program looked for it, from where it runs.
  EXPECT_EQ(lines.front(), "exchange folder: " + shop.Path() + "/no-such-folder (missing)");
  EXPECT_TRUE(lines.back().starts_with("stuck: point 02: ")) << status.out;
}

TEST(ProgramRunReport, StatusAndReportsOfAnExportThenOfNothingPending) {
  {
    testsupport::TempFolder bare;
    ASSERT_EQ(RunLumaro(bare.Path(), {"init"}).exit_code, 0);
    auto none = RunLumaro(bare.Path(), {"status"});
    EXPECT_EQ(none.exit_code, 1);
    EXPECT_EQ(none.err, "lumaro: no settings are stored\n");
  }

  PosShop shop;
  auto before = shop.Lumaro({"status"});
  EXPECT_EQ(before.exit_code, 0) << before.err;
  EXPECT_EQ(before.out, "exchange folder: " + shop.Exchange() + "\n" +
                            "point 02: series A, workstations 1,2, active, last file 41\n"
                            "  next file: ETpv 02 0000042.txt (free)\n"
                            "  pending sales: 6, oldest 2026-11-23 00:00:00\n"
                            "  pending receipts: 2, oldest 2026-11-22 18:00:00\n" +
                            kPoint05 +
                            "last import files of workstation 1:\n"
                            "  none\n");

  auto first = shop.Reported({"export", "--report", "first/run.json"});
  ExpectHead(shop, first, 0, "completed");
  EXPECT_EQ(first.result.err, "");
  EXPECT_EQ(first.report["boxes"], json::array());
  EXPECT_EQ(first.report["import_files"], json::array());
  ASSERT_EQ(first.report["exchange_points"].size(), 2u);
  ExpectFirstFileMade(shop, first.report["exchange_points"][0]);
  ExpectInactivePoint05(first.report["exchange_points"][1]);

  auto second = shop.Reported({"--report", "second/run.json", "export"});
  ExpectHead(shop, second, 0, "completed");
  ASSERT_EQ(second.report["exchange_points"].size(), 2u);
  json& point = second.report["exchange_points"][0];
  EXPECT_EQ(Point(point), R"("02"|"A"|"1,2"|true|42|"nothing_pending")");
  EXPECT_EQ(point["file"], nullptr);
  EXPECT_TRUE(point["reason"].is_string() && !point["reason"].get<std::string>().empty()) << point;
  ExpectInactivePoint05(second.report["exchange_points"][1]);
  EXPECT_EQ(shop.ExchangeFileCount(), 1u);

  // Six import files taken one run apiece, an hour apart: the five
  // latest are shown, newest first; the export file, also in the log of
  // workstation 1, is not an import file.
  for (int i = 1; i <= 6; ++i) {
    std::string name = "ITpv000" + std::to_string(i) + ".txt";
    std::ofstream(shop.InExchange(name), std::ios::binary) << "HF^4^1^EMP01^2026\r\n";
    auto imported = shop.Lumaro({"import"}, "2026-11-23 1" + std::to_string(i - 1) + ":00:00");
    ASSERT_EQ(imported.exit_code, 0) << name << ": " << imported.err;
  }
  auto after = shop.Lumaro({"status"});
  EXPECT_EQ(after.exit_code, 0) << after.err;
  EXPECT_EQ(after.out, "exchange folder: " + shop.Exchange() + "\n" +
                           "point 02: series A, workstations 1,2, active, last file 42\n"
                           "  next file: ETpv 02 0000043.txt (free)\n"
                           "  pending sales: 0\n"
                           "  pending receipts: 0\n" +
                           kPoint05 +
                           "last import files of workstation 1:\n"
                           "  2026-11-23 15:00:00  ITpv0006.txt\n"
                           "  2026-11-23 14:00:00  ITpv0005.txt\n"
                           "  2026-11-23 13:00:00  ITpv0004.txt\n"
                           "  2026-11-23 12:00:00  ITpv0003.txt\n"
                           "  2026-11-23 11:00:00  ITpv0002.txt\n");

  auto other = shop.Lumaro({"--workstation", "2", "status"});
  EXPECT_EQ(other.exit_code, 0) << other.err;
  EXPECT_TRUE(other.out.ends_with("last import files of workstation 2:\n  none\n")) << other.out;
}

TEST(ProgramRunReport, ACommandLineItCannotTakeExitsTwo) {
  PosShop shop;
  const std::string reports = shop.Path() + "/reports";
  ::mkdir(reports.c_str(), 0755);
  const std::vector<std::vector<std::string>> refused = {
      {"--report", "reports/run.json", "status"},
      {"status", "--report", "reports/run.json"},
  };
  for (const auto& args : refused) {
    SCOPED_TRACE(args[0] + " " + args[1] + " " + args[2]);
    auto result = shop.Lumaro(args);
    EXPECT_EQ(result.exit_code, 2);
    for (const char* word : {"--report", "import", "export", "reexport"}) {
      EXPECT_NE(result.err.find(word), std::string::npos) << word << " in " << result.err;
    }
    EXPECT_TRUE(fs::is_empty(reports));
  }

  // A report that could not be written is refused before the run: the
  // export does not happen, so that it is not taken for failed.
  auto nowhere = shop.Lumaro({"export", "--report", "no-such-folder/run.json"});
  EXPECT_EQ(nowhere.exit_code, 2);
  EXPECT_NE(nowhere.err.find("cannot write the report no-such-folder/run.json"), std::string::npos)
      << nowhere.err;
  EXPECT_EQ(shop.ExchangeFileCount(), 0u);

  // Refused inside the run: the report is written all the same.
  auto backwards =
      shop.Reported({"reexport", "2026-11-24", "2026-11-23", "--report", "re/run.json"});
  ExpectHead(shop, backwards, 2, "failed", {"reexport", "2026-11-24", "2026-11-23"});
  const std::string line = testsupport::FirstLine(backwards.result.err);
  EXPECT_TRUE(line.starts_with("lumaro: ")) << backwards.result.err;
  EXPECT_EQ(backwards.report["error"], line);
  EXPECT_EQ(shop.ExchangeFileCount(), 0u);
  EXPECT_EQ(shop.LastExportNumber(), "41");
}

}  // namespace
