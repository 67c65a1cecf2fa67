// The salesman and family passes: both key the host's records on the back
// office's code, and make or update them.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"
#include "exchange/import/ImportRun.h"
#include "exchange/import/PassReading.h"
#include "exchange/import/RecordLayouts.h"

namespace lumaro {
namespace {

constexpr int32_t kGeneralFamilyName = 3880041;
using Outcome = host::ImportObserver::Outcome;

}  // namespace

const host::SystemSettings& ImportRun::NotifierSettings() {
  std::shared_ptr<host::SystemSettings> settings =
      notifier_ ? notifier_->SystemSettings() : nullptr;
  if (!settings) {
    host::RaiseWith(host::err::kObjectNotSet, "The notifier hands out no system settings");
  }
  notifier_settings_ = std::move(settings);
  return *notifier_settings_;
}

bool ImportRun::ImportSalesman(const std::string& path) {
  try {
    using namespace layout::vn;
    PassReading reading(*this, path, "VN", "Vendedores", counters_.VN);
    host::SalesmanService& salesmen = Salesmen();
    std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
    while (reading.Next()) {
      const Record& record = reading.record();
      if (!filters_.PassSalesmanFilter(record)) continue;
      auto salesman = std::make_shared<host::Salesman>();
      salesman->SalesmanKey = FieldText(record, kCode);
      double id = salesmen.GetIDFromKey(salesman->SalesmanKey);
      bool is_new = id == 0;
      if (is_new) {
        id = salesmen.NextID();
      } else {
        salesman = salesmen.Get(id, "");
        if (!salesman) host::Raise(host::err::kObjectNotSet);
      }
      salesman->SalesmanID = id;
      salesman->SalesmanKey = FieldText(record, kCode);
      salesman->SalesmanName = FieldText(record, kName);
      if (salesman->SalesmanName.empty()) salesman->SalesmanName = FieldText(record, kCode);
      salesman->Comments = FieldText(record, kComments);
      // Fixed on every import, also for a salesman the POS has changed.
      // The country is that of the settings the notifier hands out: a run
      // without a notifier fails at its first salesman, on purpose, rather
      // than give salesmen another country than the host's screens.
      salesman->CountryID = NotifierSettings().CountryID;
      salesman->SalesmanLevel = 0;
      salesman->MaximumDiscount = 100;
      salesman->SalesGroupID = 0;
      salesman->ComissionOnSale = 0;
      salesman->ComissionOnPay = 100;
      salesman->ComissionIncidenceType = 0;
      salesman->SpokenLanguageID = settings->LanguageID;
      ProtectedSave(path, reading.line(), "VN", reading.line_number(),
                    is_new ? Outcome::kAdded : Outcome::kUpdated,
                    [&] { salesmen.Save(*salesman, id); });
      reading.CountAndReport();
    }
    return reading.AtEnd();
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportSalesman>");
  }
}

bool ImportRun::ImportFamily(const std::string& path) {
  try {
    using namespace layout::fa;
    PassReading reading(*this, path, "FA", "Famílias", counters_.FA);
    host::FamilyService& families = Families();
    // The root that a load makes; without it, the family whose key is empty.
    double general_id = families.GetIDFromKey("GeneralFamily");
    if (general_id == 0) general_id = families.GetIDFromKey("");
    const std::string general_name = Title(kGeneralFamilyName);
    const host::NameTools& names = ModConnectorLumaro::Host().NameTools();
    while (reading.Next()) {
      const Record& record = reading.record();
      if (!filters_.PassFamilyFilter(record)) continue;
      auto family = std::make_shared<host::Family>();
      family->FamilyKey = FieldText(record, kCode);
      double id = families.GetIDFromKey(family->FamilyKey);
      bool is_new = id == 0;
      if (is_new) {
        id = families.NextID();
      } else {
        family = families.Get(id);
        if (!family) host::Raise(host::err::kObjectNotSet);
      }
      family->FamilyID = id;
      family->FamilyKey = FieldText(record, kCode);
      family->FamilyName = FieldText(record, kDescription);
      if (family->FamilyName.empty()) family->FamilyName = FieldText(record, kShortName);
      // A name the host keeps for itself, or none, is made usable rather
      // than refused, as the initial load does.
      if (names.IsReserved(family->FamilyName) || family->FamilyName.empty()) {
        family->FamilyName += "_";
      }
      double parent_id = GetParentFamilyID(record);
      std::shared_ptr<host::Family> parent = parent_id != 0 ? families.Get(parent_id) : nullptr;
      if (parent) {
        family->ParentFamilyID = parent->FamilyID;
        family->ParentFamilyName = parent->FamilyName;
        family->FamilyLevel = static_cast<int16_t>(parent->FamilyLevel + 1);
        family->FamilyPath = parent->FamilyPath + "\\" + family->FamilyName;
      } else {
        family->ParentFamilyID = general_id;
        family->ParentFamilyName = general_name;
        family->FamilyLevel = 1;
        family->FamilyPath = family->ParentFamilyName + "\\" + family->FamilyName;
      }
      bool service = FieldText(record, kItemKind) == "S";
      family->IsServiceFamily = service;
      family->FamilyItemKind = service ? 1 : 0;
      if (is_new) {
        family->MaximumDiscount = 100;
        family->LevelRows = {{1, 0}, {2, 0}, {3, 0}};
      }
      ProtectedSave(path, reading.line(), "FA", reading.line_number(),
                    is_new ? Outcome::kAdded : Outcome::kUpdated,
                    [&] { families.Save(*family, id); });
      reading.CountAndReport();
    }
    return reading.AtEnd();
  } catch (const host::Error& error) {
    throw error.WithSource("<ImportFamily>");
  }
}

double ImportRun::GetParentFamilyID(const Record& record) {
  using namespace layout::fa;
  // The parent's code is the code one level above the deepest level the
  // record fills; positions 2 to 5 hold whole codes, each the FamilyKey of
  // the family at that level.
  const RecordField* parent = nullptr;
  if (!FieldText(record, kLevel4).empty()) {
    parent = &kLevel3;
  } else if (!FieldText(record, kLevel3).empty()) {
    parent = &kLevel2;
  } else if (!FieldText(record, kLevel2).empty()) {
    parent = &kLevel1;
  } else {
    return 0;
  }
  double id = Families().GetIDFromKey(FieldText(record, *parent));
  // A parent not imported so far sinks the family to level 1, unreported.
  if (id != 0 && !Families().Exists(id)) return 0;
  return id;
}

}  // namespace lumaro
