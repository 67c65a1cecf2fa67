// The run report of `lumaro import`: what became of each file (imported,
// passed over, rolled back), its records by tag, the refused records, and the
// exit code of a run that failed or was stopped.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/app/ImportShop.h"
#include "tests/app/ReportSchema.h"

namespace {

using namespace importshop;
using nlohmann::json;
using testsupport::ExpectReportHead;

const std::string kFolderMissing = "A pasta de importação/exportação não existe.";
const std::string kClosing = "A importação foi efectuada com erros.\r\nConsulte ficheiro log";

testsupport::ReportedRun Import(ImportShop& shop, std::vector<std::string> args) {
  args.insert(args.begin(), {"--db", "pos.db", "--now", kNow});
  std::string folder = std::filesystem::path(shop.Exchange()).parent_path().string();
  return testsupport::RunReported(folder, args);
}

json Counts(int added, int updated, int refused) {
  return {{"added", added}, {"updated", updated}, {"refused", refused}};
}

std::string Text(const json& value) { return value.is_string() ? value.get<std::string>() : ""; }

TEST(ProgramImportReport, TellsEachFileAndItsRecords) {
  ImportShop shop;
  // Line 3 names a salesman with 101 characters, one more than the name
  // takes: refused, the rest of the file goes in.
  shop.Write("ITpv0001.txt", Lines({kHeader, Vn("V1", "Ana"), Vn("V2", std::string(101, 'x')),
                                    Cl("201"), Cl("202")}));
  // Another company's file is passed over.
  shop.Write("ITpv0002.txt", Lines({"HF^4^1^EMP02^2026", Vn("V9", "Outra")}));
  const json records = {{"VN", Counts(1, 0, 1)}, {"CL", Counts(2, 0, 0)}};

  auto dry = Import(shop, {"import", "--dry-run", "--report", "dry/run.json"});
  ASSERT_TRUE(dry.report.is_object());
  ExpectReportHead(dry, {"import", "--dry-run"}, 0, "completed", shop.Database(), true);
  ASSERT_EQ(dry.report["import_files"].size(), 2u);
  EXPECT_EQ(dry.report["import_files"][0]["outcome"], "imported");
  EXPECT_EQ(dry.report["import_files"][0]["records"], records);

  auto run = Import(shop, {"--report", "real/run.json", "import"});
  ASSERT_TRUE(run.report.is_object());
  ExpectReportHead(run, {"import"}, 0, "completed", shop.Database());
  json& r = run.report;
  EXPECT_EQ(r["exchange_points"], json::array());
  EXPECT_EQ(r["boxes"], json::array({json{{"text", kClosing}, {"style", 64}}}));
  ASSERT_EQ(r["import_files"].size(), 2u) << r["import_files"];

  json& first = r["import_files"][0];
  EXPECT_EQ(first["name"], "ITpv0001.txt");
  EXPECT_EQ(first["outcome"], "imported");
  EXPECT_EQ(first["reason"], nullptr);
  EXPECT_EQ(first["records"], records);
  ASSERT_EQ(first["refused"].size(), 1u) << first["refused"];
  EXPECT_EQ(first["refused"][0]["tag"], "VN");
  EXPECT_EQ(first["refused"][0]["line"], 3);
  const std::string why = Text(first["refused"][0]["reason"]);
  EXPECT_FALSE(why.empty());
  EXPECT_NE(run.result.out.find("    line 3: " + why + "\n"), std::string::npos) << run.result.out;

  json& second = r["import_files"][1];
  EXPECT_EQ(second["name"], "ITpv0002.txt");
  EXPECT_EQ(second["outcome"], "skipped");
  EXPECT_FALSE(Text(second["reason"]).empty()) << second;
  EXPECT_EQ(second["records"], json::object());
  EXPECT_EQ(second["refused"], json::array());
  EXPECT_EQ(shop.Salesmen(), "V1");
}

TEST(ProgramImportReport, AFileThatRaisesAnErrorIsRolledBackAndTheRunFails) {
  ImportShop shop;
  shop.Write("ITpv0001.txt", Lines({kHeader, Vn("V1", "Ana"), Cl("201")}));
  // "C77" is no customer number: error 13 in the customers' pass.
  shop.Write("ITpv0002.txt", Lines({kHeader, Vn("V2", "Bruno"), Cl("301"), Cl("C77")}));
  shop.Write("ITpv0003.txt", Lines({kHeader, Vn("V3", "Carla")}));

  auto run = Import(shop, {"--report", "failed/run.json", "import"});
  ASSERT_TRUE(run.report.is_object());
  ExpectReportHead(run, {"import"}, 1, "failed", shop.Database());
  const std::string error = testsupport::LastLine(run.result.err);
  EXPECT_EQ(error, "error 13 in <ImportData>: Type mismatch");
  EXPECT_EQ(run.report["error"], error);

  // The run stops at the failed file: the third is never met.
  json& files = run.report["import_files"];
  ASSERT_EQ(files.size(), 2u) << files;
  EXPECT_EQ(files[0]["name"], "ITpv0001.txt");
  EXPECT_EQ(files[0]["outcome"], "imported");
  EXPECT_EQ(files[0]["records"], (json{{"VN", Counts(1, 0, 0)}, {"CL", Counts(1, 0, 0)}}));
  EXPECT_EQ(files[1]["name"], "ITpv0002.txt");
  EXPECT_EQ(files[1]["outcome"], "rolled_back");
  EXPECT_EQ(files[1]["reason"], error);
  EXPECT_EQ(shop.Salesmen(), "V1");
}

TEST(ProgramImportReport, AMissingExchangeFolderStopsTheImport) {
  ImportShop shop(Settings{}, false);
  auto run = Import(shop, {"import", "--report", "missing/run.json"});
  ASSERT_TRUE(run.report.is_object());
  ExpectReportHead(run, {"import"}, 3, "stopped", shop.Database());
  EXPECT_EQ(testsupport::FirstLine(run.result.err), kFolderMissing);
  EXPECT_EQ(run.report["stops"].size(), 1u) << run.report["stops"];
  EXPECT_EQ(run.report["import_files"], json::array());
  EXPECT_EQ(run.report["boxes"], json::array({json{{"text", kFolderMissing}, {"style", 64}}}));
}

}  // namespace
