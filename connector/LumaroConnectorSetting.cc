#include "connector/LumaroConnectorSetting.h"

#include <cmath>
#include <functional>
#include <pugixml.hpp>
#include <sstream>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"

namespace lumaro {
namespace {

using host::Variant;

host::Crypto& HostCrypto() { return ModConnectorLumaro::Host().SystemManager().Context().Crypto(); }

// Reads one attribute with failures ignored: a missing attribute, or a value
// that cannot be converted, leaves the member as it was.
void ReadAttribute(const pugi::xml_node& node, const char* name,
                   const std::function<void(const std::string&)>& assign) {
  pugi::xml_attribute attribute = node.attribute(name);
  if (!attribute) return;
  try {
    assign(attribute.value());
  } catch (const host::Error&) {
    // Kept on purpose: a bad attribute is skipped, the rest still reads.
  }
}

void ReadText(const pugi::xml_node& node, const char* name, std::string& member) {
  ReadAttribute(node, name, [&](const std::string& text) { member = text; });
}

void ReadInteger(const pugi::xml_node& node, const char* name, int16_t& member) {
  ReadAttribute(node, name, [&](const std::string& text) { member = host::CInt(Variant(text)); });
}

// ParseNumber with "," whatever the regional settings, then rounded.
void ReadCommaInteger(const pugi::xml_node& node, const char* name, int16_t& member) {
  ReadAttribute(node, name, [&](const std::string& text) {
    member = host::CInt(Variant(host::NumberTools::ParseNumber(text, ",")));
  });
}

void ReadCommaLong(const pugi::xml_node& node, const char* name, int32_t& member) {
  ReadAttribute(node, name, [&](const std::string& text) {
    member = host::CLng(Variant(host::NumberTools::ParseNumber(text, ",")));
  });
}

void SetAttribute(pugi::xml_node& node, const char* name, const std::string& value) {
  node.append_attribute(name).set_value(value.c_str());
}

void SetAttribute(pugi::xml_node& node, const char* name, const Variant& value) {
  SetAttribute(node, name, host::CStr(value));
}

}  // namespace

LumaroConnectorSetting::LumaroConnectorSetting() : workstations_(1) {}

void LumaroConnectorSetting::ClearWorkstations() { workstations_.assign(1, lumaro::Workstation{}); }

int16_t LumaroConnectorSetting::LumaroWorkstationCount() const {
  return static_cast<int16_t>(workstations_.size() - 1);
}

void LumaroConnectorSetting::GrowTo(int index) {
  if (index < 0 || index > INT16_MAX) host::Raise(host::err::kSubscriptOutOfRange, "Workstation");
  if (static_cast<size_t>(index) >= workstations_.size()) workstations_.resize(index + 1);
}

lumaro::Workstation LumaroConnectorSetting::Workstation(int index) {
  GrowTo(index);
  return workstations_[index];
}

void LumaroConnectorSetting::SetWorkstation(int index, const lumaro::Workstation& workstation) {
  GrowTo(index);
  workstations_[index] = workstation;
}

std::string LumaroConnectorSetting::ToXML() {
  pugi::xml_document document;
  document.load_string("<LumaroConnectorSetting/>");
  pugi::xml_node root = document.document_element();
  SetAttribute(root, "LumaroDelegationID", Variant(LumaroDelegationID));
  SetAttribute(root, "ImportExportPath", ImportExportPath);
  SetAttribute(root, "LastImportNumber", Variant(LastImportNumber));
  SetAttribute(root, "TillID", Variant(TillID));
  SetAttribute(root, "SQLDataSource", SQLDataSource);
  SetAttribute(root, "SQLCompanyID", SQLCompanyID);
  SetAttribute(root, "SQLCompanyYear", Variant(SQLCompanyYear));
  SetAttribute(root, "SQLAuthentication", Variant(SQLAuthentication));
  SetAttribute(root, "SQLUserName", SQLUserName);
  // The password is encrypted here and only here.
  SetAttribute(root, "SQLPassword", HostCrypto().Encrypt(SQLPassword));
  SetAttribute(root, "InitializeAppUser", InitializeAppUser);
  SetAttribute(root, "InitializeCustomerGroup", InitializeCustomerGroup);
  SetAttribute(root, "InitializeZone", InitializeZone);
  SetAttribute(root, "InitializeSalesman", InitializeSalesman);
  SetAttribute(root, "InitializeFamily", InitializeFamily);
  SetAttribute(root, "InitializeFamilyLevel", InitializeFamilyLevel);
  SetAttribute(root, "InitializePriceLine", InitializePriceLine);
  SetAttribute(root, "InitializeDocument", InitializeDocument);

  pugi::xml_node list = root.append_child("Workstations");
  for (size_t i = 1; i < workstations_.size(); ++i) {
    const lumaro::Workstation& entry = workstations_[i];
    pugi::xml_node node = list.append_child("Workstation");
    SetAttribute(node, "LumaroWorkstationID", entry.LumaroWorkstationID);
    SetAttribute(node, "TransSerial", entry.TransSerial);
    SetAttribute(node, "WorkstationList", entry.WorkstationList);
    SetAttribute(node, "LastExportNumber", Variant(entry.LastExportNumber));
    SetAttribute(node, "Active", std::string(entry.Active ? "1" : "0"));
  }
  std::ostringstream text;
  document.save(text, "", pugi::format_raw | pugi::format_no_declaration);
  return text.str();
}

void LumaroConnectorSetting::FromXML(std::string_view xml_settings) {
  pugi::xml_document document;
  if (!document.load_buffer(xml_settings.data(), xml_settings.size())) return;
  pugi::xml_node root = document.document_element();
  if (!root) return;

  ReadText(root, "ImportExportPath", ImportExportPath);
  ReadAttribute(root, "LastImportNumber",
                [&](const std::string& text) { LastImportNumber = host::CDbl(Variant(text)); });
  ReadCommaLong(root, "TillID", TillID);
  ReadText(root, "SQLDataSource", SQLDataSource);
  ReadText(root, "SQLCompanyID", SQLCompanyID);
  ReadInteger(root, "SQLCompanyYear", SQLCompanyYear);
  ReadCommaInteger(root, "SQLAuthentication", SQLAuthentication);
  ReadText(root, "SQLUserName", SQLUserName);
  // A password that cannot be decrypted leaves the member as it was.
  ReadAttribute(root, "SQLPassword",
                [&](const std::string& text) { SQLPassword = HostCrypto().Decrypt(text); });
  ReadInteger(root, "LumaroDelegationID", LumaroDelegationID);
  ReadText(root, "InitializeAppUser", InitializeAppUser);
  ReadText(root, "InitializeCustomerGroup", InitializeCustomerGroup);
  ReadText(root, "InitializeZone", InitializeZone);
  ReadText(root, "InitializeSalesman", InitializeSalesman);
  ReadText(root, "InitializeFamily", InitializeFamily);
  ReadText(root, "InitializeFamilyLevel", InitializeFamilyLevel);
  ReadText(root, "InitializePriceLine", InitializePriceLine);
  ReadText(root, "InitializeDocument", InitializeDocument);

  ClearWorkstations();
  // The first child, whatever its name, holds the list; each of its
  // children is one entry, in order, from index 1.
  pugi::xml_node list = root.first_child();
  if (!list) return;
  int counter = 1;
  for (pugi::xml_node node : list.children()) {
    // The list's index is 16-bit: entries past 32767 are not read, since
    // reading never fails.
    if (counter > INT16_MAX) break;
    lumaro::Workstation entry = Workstation(counter);
    ReadText(node, "LumaroWorkstationID", entry.LumaroWorkstationID);
    ReadText(node, "TransSerial", entry.TransSerial);
    ReadText(node, "WorkstationList", entry.WorkstationList);
    ReadCommaLong(node, "LastExportNumber", entry.LastExportNumber);
    ReadAttribute(node, "Active", [&](const std::string& text) {
      entry.Active = host::NumberTools::ParseNumber(text, ",") != 0;
    });
    SetWorkstation(counter, entry);
    ++counter;
  }
}

}  // namespace lumaro
