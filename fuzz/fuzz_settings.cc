// The connector's settings document: LumaroConnectorSetting::FromXML on any
// text, then ToXML, then FromXML of what was written.
//
// FromXML promises never to fail (text that is no XML, or an attribute that
// cannot be read, changes nothing), so a host::Error out of it is a finding.
// What ToXML writes must read back as the same settings: every text, number
// and entry of the list, the password included (written encrypted by the
// host's Crypto and decrypted again). The last-import number is compared as
// its text, since a number is written with its 15 significant digits.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "connector/LumaroConnectorSetting.h"
#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "fuzz/FuzzHost.h"

namespace {

[[noreturn]] void Mismatch(const char* what, const std::string& first, const std::string& second) {
  std::fprintf(stderr, "settings do not read back: %s was \"%s\", reads back \"%s\"\n", what,
               first.c_str(), second.c_str());
  std::abort();
}

void Same(const char* what, const std::string& first, const std::string& second) {
  if (first != second) Mismatch(what, first, second);
}

void Same(const char* what, int64_t first, int64_t second) {
  if (first != second) Mismatch(what, std::to_string(first), std::to_string(second));
}

void SameSettings(lumaro::LumaroConnectorSetting& a, lumaro::LumaroConnectorSetting& b) {
  Same("ImportExportPath", a.ImportExportPath, b.ImportExportPath);
  Same("LastImportNumber", host::NumberText(a.LastImportNumber),
       host::NumberText(b.LastImportNumber));
  Same("SQLDataSource", a.SQLDataSource, b.SQLDataSource);
  Same("SQLCompanyID", a.SQLCompanyID, b.SQLCompanyID);
  Same("SQLCompanyYear", a.SQLCompanyYear, b.SQLCompanyYear);
  Same("SQLAuthentication", a.SQLAuthentication, b.SQLAuthentication);
  Same("SQLUserName", a.SQLUserName, b.SQLUserName);
  Same("SQLPassword", a.SQLPassword, b.SQLPassword);
  Same("LumaroDelegationID", a.LumaroDelegationID, b.LumaroDelegationID);
  Same("InitializeAppUser", a.InitializeAppUser, b.InitializeAppUser);
  Same("InitializeCustomerGroup", a.InitializeCustomerGroup, b.InitializeCustomerGroup);
  Same("InitializeZone", a.InitializeZone, b.InitializeZone);
  Same("InitializeSalesman", a.InitializeSalesman, b.InitializeSalesman);
  Same("InitializeFamily", a.InitializeFamily, b.InitializeFamily);
  Same("InitializeFamilyLevel", a.InitializeFamilyLevel, b.InitializeFamilyLevel);
  Same("InitializePriceLine", a.InitializePriceLine, b.InitializePriceLine);
  Same("InitializeDocument", a.InitializeDocument, b.InitializeDocument);
  Same("TillID", a.TillID, b.TillID);
  Same("workstation count", a.LumaroWorkstationCount(), b.LumaroWorkstationCount());
  for (int i = 1; i <= a.LumaroWorkstationCount(); ++i) {
    const lumaro::Workstation x = a.Workstation(i);
    const lumaro::Workstation y = b.Workstation(i);
    Same("LumaroWorkstationID", x.LumaroWorkstationID, y.LumaroWorkstationID);
    Same("TransSerial", x.TransSerial, y.TransSerial);
    Same("WorkstationList", x.WorkstationList, y.WorkstationList);
    Same("LastExportNumber", x.LastExportNumber, y.LastExportNumber);
    Same("Active", x.Active, y.Active);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  // The host whose Crypto the password goes through, for the whole process.
  static fuzzsupport::FuzzHost* bench = new fuzzsupport::FuzzHost();
  lumaro::ModConnectorLumaro::AttachHost(&bench->Host());

  const std::string_view xml(reinterpret_cast<const char*>(data), size);
  lumaro::LumaroConnectorSetting first;
  first.FromXML(xml);
  const std::string written = first.ToXML();
  lumaro::LumaroConnectorSetting second;
  second.FromXML(written);
  SameSettings(first, second);
  return 0;
}
