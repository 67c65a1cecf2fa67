#include <pugixml.hpp>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Regional.h"
#include "gtest/gtest.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

std::vector<std::string> AttributeNames(const pugi::xml_node& node) {
  std::vector<std::string> names;
  for (const pugi::xml_attribute& attribute : node.attributes())
    names.emplace_back(attribute.name());
  return names;
}

Workstation Entry(const char* id, const char* serial, const char* list, int32_t number,
                  bool active) {
  Workstation entry;
  entry.LumaroWorkstationID = id;
  entry.TransSerial = serial;
  entry.WorkstationList = list;
  entry.LastExportNumber = number;
  entry.Active = active;
  return entry;
}

// Every member set, texts with characters that XML must escape.
LumaroConnectorSetting FullSetting() {
  LumaroConnectorSetting setting;
  setting.ImportExportPath = "/troca/Lumaro & \"Vendas\" <ç>";
  setting.LastImportNumber = 12.75;
  setting.SQLDataSource = "servidor\\SQL'2019";
  setting.SQLCompanyID = "E01";
  setting.SQLCompanyYear = 2024;
  setting.SQLAuthentication = 1;
  setting.SQLUserName = "operação";
  setting.SQLPassword = "s3gr&do<\"ç\">";
  setting.LumaroDelegationID = 7;
  setting.InitializeAppUser = "U1;U2";
  setting.InitializeCustomerGroup = "G1";
  setting.InitializeZone = "1;2";
  setting.InitializeSalesman = "V&1";
  setting.InitializeFamily = "F<1>";
  setting.InitializeFamilyLevel = "3";
  setting.InitializePriceLine = "4;5";
  setting.InitializeDocument = "10;11";
  setting.TillID = 3;
  setting.SetWorkstation(1, Entry("01", "S1", "1,2", 41, true));
  setting.SetWorkstation(2, Entry("02", "S&2", "", 0, false));
  setting.SetWorkstation(3, Entry("ç3", "S3", "3", 2147483647, true));
  return setting;
}

using EntryFields = std::tuple<std::string, std::string, std::string, int32_t, bool>;

EntryFields Fields(const Workstation& entry) {
  return {entry.LumaroWorkstationID, entry.TransSerial, entry.WorkstationList,
          entry.LastExportNumber, entry.Active};
}

// The entries 1 to LumaroWorkstationCount, in order.
std::vector<EntryFields> List(LumaroConnectorSetting& setting) {
  std::vector<EntryFields> list;
  for (int i = 1; i <= setting.LumaroWorkstationCount(); ++i) {
    list.push_back(Fields(setting.Workstation(i)));
  }
  return list;
}

void ExpectSameSettings(LumaroConnectorSetting& got, LumaroConnectorSetting& want) {
  auto members = [](const LumaroConnectorSetting& s) {
    return std::tie(s.ImportExportPath, s.LastImportNumber, s.SQLDataSource, s.SQLCompanyID,
                    s.SQLCompanyYear, s.SQLAuthentication, s.SQLUserName, s.SQLPassword,
                    s.LumaroDelegationID, s.InitializeAppUser, s.InitializeCustomerGroup,
                    s.InitializeZone, s.InitializeSalesman, s.InitializeFamily,
                    s.InitializeFamilyLevel, s.InitializePriceLine, s.InitializeDocument, s.TillID);
  };
  EXPECT_EQ(members(got), members(want));
  EXPECT_EQ(List(got), List(want));
}

// The host gives Crypto to the settings through the connector's thread state.
class ConnectorSettingDocument : public ::testing::Test {
 protected:
  host::Crypto& Crypto() { return test_host_.Host().SystemManager().Context().Crypto(); }

  testsupport::TestHost test_host_;
  LumaroConnector connector_{test_host_.Host()};
};

TEST_F(ConnectorSettingDocument, NewObjectWritesEveryAttributeInOrderWithEmptyValues) {
  LumaroConnectorSetting setting;
  pugi::xml_document document;
  ASSERT_TRUE(document.load_string(setting.ToXML().c_str()));
  pugi::xml_node root = document.document_element();
  EXPECT_STREQ(root.name(), "LumaroConnectorSetting");
  const std::vector<std::string> expected = {
      "LumaroDelegationID",  "ImportExportPath",   "LastImportNumber",  "TillID",
      "SQLDataSource",       "SQLCompanyID",       "SQLCompanyYear",    "SQLAuthentication",
      "SQLUserName",         "SQLPassword",        "InitializeAppUser", "InitializeCustomerGroup",
      "InitializeZone",      "InitializeSalesman", "InitializeFamily",  "InitializeFamilyLevel",
      "InitializePriceLine", "InitializeDocument"};
  EXPECT_EQ(AttributeNames(root), expected);
  const std::set<std::string> numbers = {"LumaroDelegationID", "LastImportNumber", "TillID",
                                         "SQLCompanyYear", "SQLAuthentication"};
  for (const pugi::xml_attribute& attribute : root.attributes()) {
    if (std::string_view(attribute.name()) == "SQLPassword") continue;
    EXPECT_EQ(attribute.value(), std::string(numbers.contains(attribute.name()) ? "0" : ""))
        << attribute.name();
  }
  EXPECT_EQ(Crypto().Decrypt(root.attribute("SQLPassword").value()), "");
  pugi::xml_node list = root.first_child();
  EXPECT_STREQ(list.name(), "Workstations");
  EXPECT_TRUE(list.first_child().empty());
  EXPECT_TRUE(list.next_sibling().empty());
}

TEST_F(ConnectorSettingDocument, FullObjectRoundTripsMemberForMember) {
  LumaroConnectorSetting original = FullSetting();
  std::string xml = original.ToXML();
  LumaroConnectorSetting copy;
  copy.FromXML(xml);
  ExpectSameSettings(copy, original);

  pugi::xml_document document;
  ASSERT_TRUE(document.load_string(xml.c_str()));
  const std::vector<std::string> expected = {"LumaroWorkstationID", "TransSerial",
                                             "WorkstationList", "LastExportNumber", "Active"};
  std::vector<std::string> ids, flags;
  for (pugi::xml_node node : document.document_element().child("Workstations").children()) {
    EXPECT_STREQ(node.name(), "Workstation");
    EXPECT_EQ(AttributeNames(node), expected);
    ids.emplace_back(node.attribute("LumaroWorkstationID").value());
    flags.emplace_back(node.attribute("Active").value());
  }
  EXPECT_EQ(ids, (std::vector<std::string>{"01", "02", "ç3"}));
  EXPECT_EQ(flags, (std::vector<std::string>{"1", "0", "1"}));
}

TEST_F(ConnectorSettingDocument, StoredPasswordIsEncryptedAndDecryptsBack) {
  LumaroConnectorSetting setting = FullSetting();
  std::string xml = setting.ToXML();
  EXPECT_EQ(xml.find("s3gr"), std::string::npos);
  pugi::xml_document document;
  ASSERT_TRUE(document.load_string(xml.c_str()));
  std::string stored = document.document_element().attribute("SQLPassword").value();
  EXPECT_NE(stored, setting.SQLPassword);
  EXPECT_EQ(Crypto().Decrypt(stored), setting.SQLPassword);
}

TEST_F(ConnectorSettingDocument, TextThatIsNotXmlChangesNothing) {
  for (const char* text : {"", "not xml", "<LumaroConnectorSetting TillID=\"9\"", "<a></b>"}) {
    SCOPED_TRACE(text);
    LumaroConnectorSetting setting = FullSetting();
    setting.FromXML(text);
    LumaroConnectorSetting want = FullSetting();
    ExpectSameSettings(setting, want);
  }
}

TEST_F(ConnectorSettingDocument, MissingAttributesKeepMembersAndMissingChildClearsList) {
  LumaroConnectorSetting setting = FullSetting();
  setting.FromXML("<LumaroConnectorSetting ImportExportPath=\"/outra\" SQLCompanyYear=\"2025\"/>");
  EXPECT_EQ(setting.ImportExportPath, "/outra");
  EXPECT_EQ(setting.SQLCompanyYear, 2025);
  EXPECT_EQ(setting.LumaroWorkstationCount(), 0);
  LumaroConnectorSetting want = FullSetting();
  want.ImportExportPath = "/outra";
  want.SQLCompanyYear = 2025;
  want.ClearWorkstations();
  ExpectSameSettings(setting, want);  // password, TillID and the rest as they were
}

TEST_F(ConnectorSettingDocument, NumbersReadWithCommaWhateverTheRegionalSettings) {
  struct Case {
    const char* text;
    int32_t number;  // TillID, LastExportNumber
    bool active;
  };
  const Case cases[] = {{"0", 0, false},  {"1", 1, true},   {"-1", -1, true},  {"2,5", 2, true},
                        {"3,6", 4, true}, {"3,5", 4, true}, {"0,0", 0, false}, {"0,4", 0, true}};
  host::RegionalSettings english;
  english.decimal_separator = ".";
  english.group_separator = ",";
  for (const host::RegionalSettings& regional : {host::RegionalSettings::Portuguese(), english}) {
    host::ScopedRegional scoped(regional);
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.text) + " with separator " + regional.decimal_separator);
      std::string value = std::string("\"") + c.text + "\"";
      LumaroConnectorSetting setting;
      setting.FromXML("<LumaroConnectorSetting TillID=" + value + " SQLAuthentication=" + value +
                      "><W><Workstation LastExportNumber=" + value + " Active=" + value +
                      "/></W></LumaroConnectorSetting>");
      EXPECT_EQ(setting.TillID, c.number);
      EXPECT_EQ(setting.SQLAuthentication, c.number);
      ASSERT_EQ(setting.LumaroWorkstationCount(), 1);
      EXPECT_EQ(setting.Workstation(1).LastExportNumber, c.number);
      EXPECT_EQ(setting.Workstation(1).Active, c.active);
    }
  }
}

TEST_F(ConnectorSettingDocument, UnreadableAttributeIsSkippedAndTheRestStillReads) {
  LumaroConnectorSetting setting = FullSetting();
  setting.FromXML(
      "<LumaroConnectorSetting ImportExportPath=\"/nova\" LastImportNumber=\"doze\" TillID=\"x\" "
      "SQLCompanyYear=\"70000\" SQLUserName=\"novo\" SQLPassword=\"não cifrada\" "
      "LumaroDelegationID=\"9\" InitializeDocument=\"12\"><Workstations>"
      "<Workstation LumaroWorkstationID=\"05\" LastExportNumber=\"muitos\" Active=\"sim\" "
      "TransSerial=\"S5\"/></Workstations></LumaroConnectorSetting>");
  LumaroConnectorSetting want = FullSetting();
  want.ImportExportPath = "/nova";
  want.SQLUserName = "novo";
  want.LumaroDelegationID = 9;  // read after the password that failed
  want.InitializeDocument = "12";
  want.ClearWorkstations();
  want.SetWorkstation(1, Entry("05", "S5", "", 0, false));
  ExpectSameSettings(setting, want);
}

TEST_F(ConnectorSettingDocument, FirstChildWhateverItsNameHoldsTheList) {
  LumaroConnectorSetting setting = FullSetting();
  setting.FromXML(
      "<LumaroConnectorSetting>\n"
      "  <Postos>\n"
      "    <P LumaroWorkstationID=\"A\" WorkstationList=\"1\" Active=\"1\"/>\n"
      "    <Q LumaroWorkstationID=\"B\"/>\n"
      "  </Postos>\n"
      "  <Workstations><Workstation LumaroWorkstationID=\"C\"/></Workstations>\n"
      "</LumaroConnectorSetting>");
  EXPECT_EQ(List(setting), (std::vector<EntryFields>{Fields(Entry("A", "", "1", 0, true)),
                                                     Fields(Entry("B", "", "", 0, false))}));
}

TEST_F(ConnectorSettingDocument, ReadingPastTheEndGrowsTheListAndClearEmptiesIt) {
  LumaroConnectorSetting setting;
  setting.SetWorkstation(1, Entry("01", "S1", "1", 4, true));
  setting.SetWorkstation(2, Entry("02", "S2", "2", 5, true));
  ASSERT_EQ(setting.LumaroWorkstationCount(), 2);
  EXPECT_EQ(Fields(setting.Workstation(5)), Fields(Workstation{}));
  const EntryFields empty = Fields(Workstation{});
  EXPECT_EQ(List(setting), (std::vector<EntryFields>{Fields(Entry("01", "S1", "1", 4, true)),
                                                     Fields(Entry("02", "S2", "2", 5, true)), empty,
                                                     empty, empty}));
  setting.ClearWorkstations();
  EXPECT_EQ(setting.LumaroWorkstationCount(), 0);
  EXPECT_EQ(Fields(setting.Workstation(1)), empty);
}

}  // namespace
}  // namespace lumaro
