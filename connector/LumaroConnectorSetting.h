#ifndef LUMARO_CONNECTOR_LUMARO_CONNECTOR_SETTING_H_
#define LUMARO_CONNECTOR_LUMARO_CONNECTOR_SETTING_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "connector/Workstation.h"
#include "connector/host/SettingStore.h"

namespace lumaro {

// The connector's whole configuration, kept by the host's SettingStore as
// one XML document under the keys "Orbiva.Vendara.Connector" / "Lumaro".
// Whoever needs it makes a new object and loads it; whoever changes it saves
// the whole object. The password is in clear in memory and encrypted by the
// host's Crypto in the document.
//
// The workstation list is indexed from 1 to LumaroWorkstationCount(); entry
// 0 holds nothing. Reading or writing an index past the end first grows the
// list to that index (so a read past the end raises the count), which is how
// FromXML fills it, entry after entry.
class LumaroConnectorSetting : public host::IGenericSetting {
 public:
  std::string ImportExportPath;
  double LastImportNumber = 0;
  std::string SQLDataSource;
  std::string SQLCompanyID;
  int16_t SQLCompanyYear = 0;
  int16_t SQLAuthentication = 0;
  std::string SQLUserName;
  std::string SQLPassword;
  int16_t LumaroDelegationID = 0;
  std::string InitializeAppUser;
  std::string InitializeCustomerGroup;
  std::string InitializeZone;
  std::string InitializeSalesman;
  std::string InitializeFamily;
  std::string InitializeFamilyLevel;
  std::string InitializePriceLine;
  std::string InitializeDocument;
  int32_t TillID = 0;

  LumaroConnectorSetting();

  // IGenericSetting.
  std::string Key1() const override { return "Orbiva.Vendara.Connector"; }
  std::string Key2() const override { return "Lumaro"; }
  bool ExportToBranch() const override { return false; }
  // The document as text. Passes on any failure of the host's Crypto.
  std::string ToXML() override;
  // Fills the object from a document. Never fails: text that is not XML
  // changes nothing, and a missing or unreadable attribute leaves its member
  // as it was.
  void FromXML(std::string_view xml_settings) override;

  // The list goes back to only its entry 0.
  void ClearWorkstations();
  // The upper bound of the list.
  int16_t LumaroWorkstationCount() const;
  // A copy of the entry; grows the list first when `index` is past its end.
  lumaro::Workstation Workstation(int index);
  // Stores a copy of the entry; grows the list first when needed.
  void SetWorkstation(int index, const lumaro::Workstation& workstation);

 private:
  void GrowTo(int index);

  std::vector<lumaro::Workstation> workstations_;
};

}  // namespace lumaro

#endif  // LUMARO_CONNECTOR_LUMARO_CONNECTOR_SETTING_H_
