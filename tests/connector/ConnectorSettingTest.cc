#include <functional>
#include <pugixml.hpp>
#include <string>
#include <tuple>
#include <vector>

#include "connector/LumaroConnector.h"
#include "connector/LumaroConnectorSetting.h"
#include "connector/host/Regional.h"
#include "gtest/gtest.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace lumaro {
namespace {

// A Workstation is {Active, LumaroWorkstationID, WorkstationList,
// LastExportNumber, TransSerial}.

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
  setting.SetWorkstation(1, Workstation{true, "01", "1,2", 41, "S1"});
  setting.SetWorkstation(2, Workstation{false, "02", "", 0, "S&2"});
  setting.SetWorkstation(3, Workstation{true, "ç3", "3", 2147483647, "S3"});
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
  std::vector<std::string> names;
  for (const pugi::xml_attribute& attribute : root.attributes())
    names.emplace_back(attribute.name());
  EXPECT_EQ(names, expected);
  EXPECT_STREQ(root.attribute("TillID").value(), "0");
  EXPECT_STREQ(root.attribute("SQLUserName").value(), "");
  EXPECT_EQ(Crypto().Decrypt(root.attribute("SQLPassword").value()), "");
  EXPECT_STREQ(root.first_child().name(), "Workstations");
  EXPECT_TRUE(root.first_child().first_child().empty());
}

TEST_F(ConnectorSettingDocument, FullObjectRoundTripsWithThePasswordEncrypted) {
  LumaroConnectorSetting original = FullSetting();
  std::string xml = original.ToXML();
  LumaroConnectorSetting copy;
  copy.FromXML(xml);
  ExpectSameSettings(copy, original);

  pugi::xml_document document;
  ASSERT_TRUE(document.load_string(xml.c_str()));
  EXPECT_EQ(xml.find("s3gr"), std::string::npos);
  EXPECT_EQ(Crypto().Decrypt(document.document_element().attribute("SQLPassword").value()),
            original.SQLPassword);
  // The workstations' attribute order is in the lumaro program's settings test.
  std::vector<std::string> flags;
  for (pugi::xml_node node : document.document_element().child("Workstations").children()) {
    flags.emplace_back(node.attribute("Active").value());
  }
  EXPECT_EQ(flags, (std::vector<std::string>{"1", "0", "1"}));
}

// What reading a document leaves of a setting whose every member was set.
TEST_F(ConnectorSettingDocument, ReadingKeepsWhatTheDocumentDoesNotSay) {
  struct Case {
    std::string xml;
    std::function<void(LumaroConnectorSetting&)> change;  // from FullSetting
  };
  const Case cases[] = {
      {"not xml", [](LumaroConnectorSetting&) {}},
      {"<LumaroConnectorSetting TillID=\"9\"", [](LumaroConnectorSetting&) {}},
      // Missing attributes keep their members; a missing child clears the list.
      {"<LumaroConnectorSetting ImportExportPath=\"/outra\"/>",
       [](LumaroConnectorSetting& s) {
         s.ImportExportPath = "/outra";
         s.ClearWorkstations();
       }},
      // An attribute that cannot be read is skipped and the rest still reads.
      {"<LumaroConnectorSetting LastImportNumber=\"doze\" TillID=\"x\" SQLCompanyYear=\"70000\" "
       "SQLPassword=\"não cifrada\" LumaroDelegationID=\"9\"><Workstations><Workstation "
       "LumaroWorkstationID=\"05\" LastExportNumber=\"muitos\" Active=\"sim\" "
       "TransSerial=\"S5\"/></Workstations></LumaroConnectorSetting>",
       [](LumaroConnectorSetting& s) {
         s.LumaroDelegationID = 9;  // read after the password that failed
         s.ClearWorkstations();
         s.SetWorkstation(1, Workstation{false, "05", "", 0, "S5"});
       }},
      // The first child holds the list, whatever its name and theirs.
      {"<LumaroConnectorSetting>\n <Postos>\n  <P LumaroWorkstationID=\"A\" WorkstationList=\"1\" "
       "Active=\"1\"/>\n  <Q LumaroWorkstationID=\"B\"/>\n </Postos>\n <Workstations>"
       "<Workstation LumaroWorkstationID=\"C\"/></Workstations>\n</LumaroConnectorSetting>",
       [](LumaroConnectorSetting& s) {
         s.ClearWorkstations();
         s.SetWorkstation(1, Workstation{true, "A", "1", 0, ""});
         s.SetWorkstation(2, Workstation{false, "B", "", 0, ""});
       }},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.xml);
    LumaroConnectorSetting setting = FullSetting();
    setting.FromXML(c.xml);
    LumaroConnectorSetting want = FullSetting();
    c.change(want);
    ExpectSameSettings(setting, want);
  }
}

TEST_F(ConnectorSettingDocument, NumbersReadWithCommaWhateverTheRegionalSettings) {
  struct Case {
    const char* text;
    int32_t number;  // TillID, LastExportNumber
    bool active;
  };
  const Case cases[] = {
      {"0", 0, false}, {"-1", -1, true}, {"2,5", 2, true}, {"3,5", 4, true}, {"0,4", 0, true}};
  for (const host::RegionalSettings& regional :
       {host::RegionalSettings::Portuguese(), host::IsoSettings()}) {
    host::ScopedRegional scoped(regional);
    for (const Case& c : cases) {
      SCOPED_TRACE(std::string(c.text) + " with separator " + regional.decimal_separator);
      std::string value = std::string("\"") + c.text + "\"";
      LumaroConnectorSetting setting;
      setting.FromXML("<LumaroConnectorSetting TillID=" + value +
                      "><W><Workstation "
                      "LastExportNumber=" +
                      value + " Active=" + value + "/></W></LumaroConnectorSetting>");
      EXPECT_EQ(setting.TillID, c.number);
      ASSERT_EQ(setting.LumaroWorkstationCount(), 1);
      EXPECT_EQ(setting.Workstation(1).LastExportNumber, c.number);
      EXPECT_EQ(setting.Workstation(1).Active, c.active);
    }
  }
}

// Reading an entry past the end grows the list; a document's list longer
// than the 16-bit index is cut, and reading it still never fails.
TEST_F(ConnectorSettingDocument, TheListGrowsWhenReadPastItsEndUpToItsIndexAndClears) {
  LumaroConnectorSetting setting;
  setting.SetWorkstation(1, Workstation{true, "01", "1", 4, "S1"});
  EXPECT_EQ(Fields(setting.Workstation(3)), Fields(Workstation{}));
  EXPECT_EQ(List(setting),
            (std::vector<EntryFields>{Fields(Workstation{true, "01", "1", 4, "S1"}),
                                      Fields(Workstation{}), Fields(Workstation{})}));
  setting.ClearWorkstations();
  EXPECT_EQ(setting.LumaroWorkstationCount(), 0);

  std::string xml = "<LumaroConnectorSetting><Workstations>";
  for (int i = 0; i < 32768; ++i) xml += "<Workstation Active=\"1\"/>";
  setting.FromXML(xml + "</Workstations></LumaroConnectorSetting>");
  EXPECT_EQ(setting.LumaroWorkstationCount(), 32767);
  EXPECT_TRUE(setting.Workstation(32767).Active);
}

}  // namespace
}  // namespace lumaro
