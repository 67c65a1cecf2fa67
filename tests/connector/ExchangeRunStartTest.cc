#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "connector/LumaroConnector.h"
#include "gtest/gtest.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

// The names in a folder, sub-folders included.
std::set<std::string> FolderContents(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    names.insert(entry.path().string());
  }
  return names;
}

// The start of a run as the connector's three exchange operations make it.
class ExchangeRunStart : public ::testing::Test {
 protected:
  using Operation = std::pair<const char*, std::function<void(LumaroConnector&)>>;

  void SetUp() override { connector_.SetEventNotifier(notifier_); }

  static std::vector<Operation> Operations() {
    return {{"ExportData", [](LumaroConnector& c) { c.ExportData(); }},
            {"ReExport", [](LumaroConnector& c) { c.ReExport({45000}, {45010}); }},
            {"ImportData", [](LumaroConnector& c) { c.ImportData(); }}};
  }

  bool LogTableExists() {
    return test_host_.Scalar(
               "SELECT COUNT(*) FROM sqlite_master WHERE type='table' AND name='LumaroLog'") == "1";
  }

  std::optional<std::string> StoredText() {
    return test_host_.Host().Settings().StoredText("Orbiva.Vendara.Connector", "Lumaro");
  }

  // Settings with two inactive entries whose exchange folder does not
  // exist: an active one would meet the missing folder and say so.
  std::string InactiveEntries() {
    return "<LumaroConnectorSetting ImportExportPath=\"" + test_host_.Folder().File("nao-existe") +
           "\" TillID=\"3\"><Workstations>"
           "<Workstation LumaroWorkstationID=\"01\" WorkstationList=\"1\" Active=\"0\"/>"
           "<Workstation LumaroWorkstationID=\"02\" WorkstationList=\"2\" Active=\"0\"/>"
           "</Workstations></LumaroConnectorSetting>";
  }

  testsupport::TestHost test_host_;
  LumaroConnector connector_{test_host_.Host()};
  std::shared_ptr<testsupport::RecordingNotifier> notifier_ =
      std::make_shared<testsupport::RecordingNotifier>();
};

TEST_F(ExchangeRunStart, WithoutSettingsEveryRunReturnsAtOnce) {
  std::vector<std::string> statements;
  test_host_.Db().SetStatementObserver([&](std::string_view sql) { statements.emplace_back(sql); });
  std::set<std::string> files = FolderContents(test_host_.Folder().Path());
  for (const auto& [name, run] : Operations()) {
    SCOPED_TRACE(name);
    EXPECT_NO_THROW(run(connector_));
  }
  test_host_.Db().SetStatementObserver(nullptr);

  for (const std::string& sql : statements) {
    EXPECT_TRUE(sql.starts_with("SELECT")) << sql;
  }
  EXPECT_FALSE(LogTableExists());
  EXPECT_EQ(StoredText(), std::nullopt);
  EXPECT_EQ(FolderContents(test_host_.Folder().Path()), files);
  EXPECT_TRUE(test_host_.UI().boxes.empty());
  EXPECT_TRUE(notifier_->progress.empty() && notifier_->details.empty());
}

TEST_F(ExchangeRunStart, OnlyInactiveEntriesMakeTheLogTableAndWriteAndSaveNothing) {
  ASSERT_TRUE(connector_.LoadDefaults(InactiveEntries()));
  std::optional<std::string> stored = StoredText();
  ASSERT_TRUE(stored.has_value());
  std::set<std::string> files = FolderContents(test_host_.Folder().Path());
  for (const auto& [name, run] : Operations()) {
    SCOPED_TRACE(name);
    test_host_.Exec("DROP TABLE IF EXISTS LumaroLog");
    run(connector_);
    EXPECT_TRUE(LogTableExists());
  }
  EXPECT_EQ(StoredText(), stored);  // a save would write a new cipher text
  EXPECT_EQ(test_host_.Scalar("SELECT COUNT(*) FROM LumaroLog"), "0");
  EXPECT_EQ(FolderContents(test_host_.Folder().Path()), files);
  EXPECT_TRUE(test_host_.UI().boxes.empty());
  EXPECT_TRUE(notifier_->details.empty());
}

}  // namespace
}  // namespace lumaro
