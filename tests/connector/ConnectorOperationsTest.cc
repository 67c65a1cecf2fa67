#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/ModConnectorLumaro.h"
#include "connector/host/KeyDictionary.h"
#include "gtest/gtest.h"
#include "settingsui/SettingsRules.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

constexpr char kDocument[] =
    "<LumaroConnectorSetting ImportExportPath=\"/troca/O'Neil &amp; Conceição\" TillID=\"3\">"
    "<Workstations><Workstation LumaroWorkstationID=\"01\" WorkstationList=\"1\" Active=\"1\"/>"
    "</Workstations></LumaroConnectorSetting>";

class ConnectorOperations : public ::testing::Test {
 protected:
  std::optional<std::string> StoredText() {
    return test_host_.Host().Settings().StoredText("Orbiva.Vendara.Connector", "Lumaro");
  }
  // The stored settings as a new object reads them.
  LumaroConnectorSetting Stored() {
    LumaroConnectorSetting setting;
    EXPECT_TRUE(test_host_.Host().NewSettingStore()->Load(setting));
    return setting;
  }

  void TearDown() override { test_host_.Db().SetStatementObserver(nullptr); }

  testsupport::TestHost test_host_;
  LumaroConnector connector_{test_host_.Host()};
};

// The identity answers are in the lumaro program's "info" test.
TEST_F(ConnectorOperations, OperationsWithoutEffect) {
  auto notifier = std::make_shared<testsupport::RecordingNotifier>();
  connector_.SetEventNotifier(notifier);
  connector_.Execute();
  connector_.ResetData();
  EXPECT_EQ(StoredText(), std::nullopt);
  ASSERT_TRUE(connector_.LoadDefaults(kDocument));
  std::optional<std::string> stored = StoredText();
  EXPECT_FALSE(connector_.Save());
  EXPECT_EQ(StoredText(), stored);
  EXPECT_TRUE(connector_.HasEventNotifier());
  connector_.Dispose();
  connector_.Dispose();
  EXPECT_FALSE(connector_.HasEventNotifier());
  connector_.Execute();
  EXPECT_TRUE(notifier->progress.empty() && notifier->details.empty());
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

// The lumaro program's settings tests load, validate and delete through the
// connector; here what they do not show.
TEST_F(ConnectorOperations, LoadDefaultsValidateAndDeleteWorkOnTheStoreQuietly) {
  EXPECT_FALSE(connector_.ValidateSettings());  // nothing stored
  EXPECT_TRUE(connector_.Delete());             // nothing stored: still True
  ASSERT_TRUE(connector_.LoadDefaults("  " + std::string(kDocument) + "   "));
  LumaroConnectorSetting stored = Stored();
  EXPECT_EQ(stored.ImportExportPath, "/troca/O'Neil & Conceição");
  EXPECT_EQ(stored.TillID, 3);
  ASSERT_EQ(stored.LumaroWorkstationCount(), 1);
  EXPECT_EQ(stored.Workstation(1).LumaroWorkstationID, "01");
  EXPECT_TRUE(connector_.ValidateSettings());
  ASSERT_TRUE(connector_.LoadDefaults("<LumaroConnectorSetting TillID=\"3\"/>"));
  EXPECT_FALSE(connector_.ValidateSettings());
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

TEST_F(ConnectorOperations, SignatureConfigAndShowTraceUseTheHost) {
  std::string signature = connector_.Signature("ETpv 01 0000042.txt");
  EXPECT_EQ(signature, test_host_.Host().NewTextSigner()->Sign("ETpv 01 0000042.txt"));
  EXPECT_NE(connector_.Signature("ETpv 01 0000043.txt"), signature);
  EXPECT_FALSE(connector_.Config());  // the person saved nothing
  connector_.ShowTrace();
  EXPECT_EQ(test_host_.UI().forms, (std::vector<std::string>{"frmSettings", "frmLumaroLog"}));
}

// The module's cache of the last currency read.
class ConnectorModule : public ConnectorOperations {};

TEST_F(ConnectorModule, CurrencyCacheHoldsOneEntryAndAnUnknownIdEmptiesIt) {
  test_host_.Exec(
      "INSERT INTO Currency (CurrencyID, CurrencyKey, ExportCode, SaleExchange) "
      "VALUES ('USD', 'USD', 2, 1.25)");
  int loads = 0;
  test_host_.Db().SetStatementObserver([&](std::string_view sql) {
    if (sql.find("FROM Currency") != std::string_view::npos) ++loads;
  });
  // The first call for the empty id, and the first after the cache was
  // emptied, find the new, empty entry of the cache without a load.
  struct Call {
    const char* id;
    int32_t export_code;
    int loads;
  };
  for (const Call& call : {Call{"", 0, 0}, Call{"EUR", 1, 1}, Call{"EUR", 1, 1}, Call{"USD", 2, 2},
                           Call{"EUR", 1, 3}, Call{"XYZ", -1, 4}, Call{"", 0, 4}}) {
    std::shared_ptr<host::Currency> currency = ModConnectorLumaro::GetCurrency(call.id);
    EXPECT_EQ(loads, call.loads) << call.id;
    if (call.export_code < 0) {
      EXPECT_EQ(currency, nullptr);
      continue;
    }
    ASSERT_NE(currency, nullptr) << call.id;
    EXPECT_EQ(currency->CurrencyID, call.id);
    EXPECT_EQ(currency->ExportCode, call.export_code);
  }
  EXPECT_DOUBLE_EQ(ModConnectorLumaro::GetCurrency("USD")->Exchange, 1.25);
}

// The run's key caches rely on this: a key once cached keeps its value.
TEST(KeyDictionaryAdd, ExistingKeyKeepsTheFirstValueUnlessReplaceIsAsked) {
  host::KeyDictionary dictionary;
  dictionary.Add(host::Variant(int32_t{10}), "Customer|C1");
  dictionary.Add(host::Variant(int32_t{20}), "Customer|C1");
  EXPECT_EQ(dictionary.Item("Customer|C1"), host::Variant(int32_t{10}));
  dictionary.Add(host::Variant("novo"), "Customer|C1", true);
  EXPECT_EQ(dictionary.Item("Customer|C1"), host::Variant("novo"));
  EXPECT_FALSE(dictionary.Exists("Customer|c1"));
  EXPECT_TRUE(dictionary.Item("Customer|C2").IsEmpty());
  EXPECT_FALSE(dictionary.Exists("Customer|C2"));  // reading adds nothing
}

class SettingsValidation : public ConnectorOperations {};

// Entries are {Active, LumaroWorkstationID, WorkstationList, LastExportNumber,
// TransSerial}.
TEST_F(SettingsValidation, RulesAndTheirMessages) {
  struct Case {
    const char* path;
    int32_t till;
    std::vector<Workstation> entries;
    bool valid;
    std::vector<std::string> messages;
  };
  const std::string no_list = " está activo, mas não tem definida a lista de postos a utilizar.";
  const std::string c01 = "O posto com o código 01", c03 = "O posto com o código 03";
  // clang-format off
  const Case cases[] = {
      {"/troca", 3, {{true, "01", "1,2", 0, ""}, {false, "02", "", 0, ""}}, true, {}},
      {"", 0, {}, false, {"Tem que indicar a pasta de importação dos dados."}},
      {"/troca", 0, {}, false, {"Tem que definir quais os postos a utilizar."}},
      {"/troca", 0, {{true, "01", "1", 0, ""}}, false,
       {"Não foi indicada qual a caixa a utilizar"}},
      {"/troca", 3, {{true, "01", "", 0, ""}, {true, "02", "2", 0, ""}, {true, "03", "", 0, ""}},
       false, {c01 + no_list, c03 + no_list}},
      {"/troca", 3, {{true, "01", "", 0, ""}, {false, "02", "", 0, ""}}, false, {c01 + no_list}},
      {"/troca", 3, {{false, "01", "1", 0, ""}, {false, "02", "2", 0, ""}}, false,
       {"Não tem nenhum posto activo."}},
  };
  // clang-format on
  testsupport::RecordingUI& ui = test_host_.UI();
  const std::string title = ui.Messages().Text(4140000);
  ASSERT_FALSE(title.empty());
  for (size_t i = 0; i < std::size(cases); ++i) {
    SCOPED_TRACE("case " + std::to_string(i));
    const Case& c = cases[i];
    LumaroConnectorSetting setting;
    setting.ImportExportPath = c.path;
    setting.TillID = c.till;
    for (size_t e = 0; e < c.entries.size(); ++e) {
      setting.SetWorkstation(static_cast<int>(e) + 1, c.entries[e]);
    }
    ui.boxes.clear();
    EXPECT_EQ(ValidateSettings(setting, true), c.valid);
    std::vector<std::string> texts;
    for (const auto& box : ui.boxes) {
      texts.push_back(box.text);
      EXPECT_EQ(box.style, 64);
      EXPECT_EQ(box.title, title);
    }
    EXPECT_EQ(texts, c.messages);

    ui.boxes.clear();
    EXPECT_EQ(ValidateSettings(setting, false), c.valid);
    EXPECT_TRUE(ui.boxes.empty());
  }
}

// The names in a folder, sub-folders included.
std::set<std::string> FolderContents(const std::string& folder) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    names.insert(entry.path().string());
  }
  return names;
}

// The start of a run as the connector's three exchange operations make it.
class ExchangeRunStart : public ConnectorOperations {
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
  // Two inactive entries whose exchange folder does not exist: an active
  // one would meet the missing folder and say so.
  ASSERT_TRUE(connector_.LoadDefaults(
      "<LumaroConnectorSetting ImportExportPath=\"" + test_host_.Folder().File("nao-existe") +
      "\" TillID=\"3\"><Workstations>"
      "<Workstation LumaroWorkstationID=\"01\" WorkstationList=\"1\" Active=\"0\"/>"
      "<Workstation LumaroWorkstationID=\"02\" WorkstationList=\"2\" Active=\"0\"/>"
      "</Workstations></LumaroConnectorSetting>"));
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
