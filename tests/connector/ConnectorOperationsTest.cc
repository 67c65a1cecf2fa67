#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "gtest/gtest.h"
#include "settingsui/SettingsRules.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

constexpr char kDocument[] =
    "<LumaroConnectorSetting ImportExportPath=\"/troca\" TillID=\"3\" SQLUserName=\"sa\">"
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

  testsupport::TestHost test_host_;
  LumaroConnector connector_{test_host_.Host()};
};

TEST_F(ConnectorOperations, FixedAnswers) {
  EXPECT_EQ(connector_.ConnectorID(), "Orbiva.Vendara.Connector.Lumaro");
  EXPECT_EQ(connector_.Description(), "Integrador Orbiva Lumaro");
  EXPECT_EQ(connector_.FunctionalLevel(), "SQL10");
  EXPECT_TRUE(connector_.HasUISetting());
  EXPECT_TRUE(connector_.HasUITrace());
  EXPECT_TRUE(connector_.HandleImportExport());
  EXPECT_TRUE(connector_.HandleReExport());
  EXPECT_TRUE(connector_.Init());
  EXPECT_FALSE(connector_.Save());
  ASSERT_TRUE(connector_.LoadDefaults(kDocument));
  std::optional<std::string> stored = StoredText();
  EXPECT_FALSE(connector_.Save());
  EXPECT_EQ(StoredText(), stored);
}

TEST_F(ConnectorOperations, VersionIsMajorThenMinorAndRevisionOnTwoDigits) {
  EXPECT_EQ(connector_.Version(), "2.00.01");  // the build's version is 2.0.1
}

TEST_F(ConnectorOperations, ExecuteResetDataAndDisposeHaveNoEffectInAnyState) {
  auto notifier = std::make_shared<testsupport::RecordingNotifier>();
  for (bool with_notifier : {false, true}) {
    SCOPED_TRACE(with_notifier ? "with notifier" : "without notifier");
    if (with_notifier) connector_.SetEventNotifier(notifier);
    EXPECT_NO_THROW(connector_.Execute());
    EXPECT_NO_THROW(connector_.ResetData());
    EXPECT_EQ(connector_.HasEventNotifier(), with_notifier);
    EXPECT_NO_THROW(connector_.Dispose());
    EXPECT_NO_THROW(connector_.Dispose());
    EXPECT_FALSE(connector_.HasEventNotifier());
    EXPECT_NO_THROW(connector_.Execute());
    EXPECT_NO_THROW(connector_.ResetData());
  }
  EXPECT_EQ(StoredText(), std::nullopt);
  EXPECT_TRUE(notifier->progress.empty());
  EXPECT_TRUE(notifier->details.empty());
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

TEST_F(ConnectorOperations, LoadDefaultsStoresWhatTheDocumentMakes) {
  struct Case {
    std::string text;
    const char* path;
    int32_t till;
    int workstations;
  };
  // In this order, each case replaces what the one before stored.
  const Case cases[] = {{"  " + std::string(kDocument) + "   ", "/troca", 3, 1},
                        {"ceci n'est pas du XML", "", 0, 0},  // the still empty setting
                        {kDocument, "/troca", 3, 1}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_TRUE(connector_.LoadDefaults(c.text));
    LumaroConnectorSetting stored = Stored();
    EXPECT_EQ(stored.ImportExportPath, c.path);
    EXPECT_EQ(stored.TillID, c.till);
    ASSERT_EQ(stored.LumaroWorkstationCount(), c.workstations);
    if (c.workstations == 1) {
      EXPECT_EQ(stored.Workstation(1).LumaroWorkstationID, "01");
      EXPECT_TRUE(stored.Workstation(1).Active);
    }
  }
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

TEST_F(ConnectorOperations, DeleteRemovesTheStoredSettings) {
  EXPECT_TRUE(connector_.Delete());  // nothing stored: still True
  ASSERT_TRUE(connector_.LoadDefaults(kDocument));
  ASSERT_TRUE(StoredText().has_value());
  EXPECT_TRUE(connector_.Delete());
  EXPECT_EQ(StoredText(), std::nullopt);
}

TEST_F(ConnectorOperations, ValidateSettingsReadsTheStoreAndShowsNothing) {
  EXPECT_FALSE(connector_.ValidateSettings());  // nothing stored
  ASSERT_TRUE(connector_.LoadDefaults(kDocument));
  EXPECT_TRUE(connector_.ValidateSettings());
  ASSERT_TRUE(connector_.LoadDefaults("<LumaroConnectorSetting TillID=\"3\"/>"));
  EXPECT_FALSE(connector_.ValidateSettings());
  EXPECT_TRUE(test_host_.UI().boxes.empty());
}

TEST_F(ConnectorOperations, SignatureIsTheHostSignersSignature) {
  std::string signature = connector_.Signature("ETpv 01 0000042.txt");
  EXPECT_FALSE(signature.empty());
  EXPECT_EQ(signature, test_host_.Host().NewTextSigner()->Sign("ETpv 01 0000042.txt"));
  EXPECT_NE(connector_.Signature("ETpv 01 0000043.txt"), signature);
}

TEST_F(ConnectorOperations, ConfigAndShowTraceOpenTheirForms) {
  EXPECT_FALSE(connector_.Config());  // the person saved nothing
  connector_.ShowTrace();
  EXPECT_EQ(test_host_.UI().forms, (std::vector<std::string>{"frmSettings", "frmLumaroLog"}));
}

class SettingsValidation : public ConnectorOperations {};

TEST_F(SettingsValidation, RulesAndTheirMessages) {
  struct Entry {
    const char* id;
    const char* list;
    bool active;
  };
  struct Case {
    const char* path;
    int32_t till;
    std::vector<Entry> entries;
    bool valid;
    std::vector<std::string> messages;
  };
  const std::string no_list = " está activo, mas não tem definida a lista de postos a utilizar.";
  const std::string c01 = "O posto com o código 01", c03 = "O posto com o código 03";
  // clang-format off
  const Case cases[] = {
      {"/troca", 3, {{"01", "1,2", true}, {"02", "", false}}, true, {}},
      {"", 0, {}, false, {"Tem que indicar a pasta de importação dos dados."}},
      {"/troca", 0, {}, false, {"Tem que definir quais os postos a utilizar."}},
      {"/troca", 0, {{"01", "1", true}}, false, {"Não foi indicada qual a caixa a utilizar"}},
      {"/troca", 3, {{"01", "", true}, {"02", "2", true}, {"03", "", true}}, false,
       {c01 + no_list, c03 + no_list}},
      {"/troca", 3, {{"01", "", true}, {"02", "", false}}, false, {c01 + no_list}},
      {"/troca", 3, {{"01", "1", false}, {"02", "2", false}}, false, {"Não tem nenhum posto activo."}},
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
      Workstation entry;
      entry.LumaroWorkstationID = c.entries[e].id;
      entry.WorkstationList = c.entries[e].list;
      entry.Active = c.entries[e].active;
      setting.SetWorkstation(static_cast<int>(e) + 1, entry);
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

}  // namespace
}  // namespace lumaro
