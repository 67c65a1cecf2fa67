#include "standalone/services/SqlitePartnerServices.h"

#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::Bank;
using host::Supplier;

// The Supplier row but its id.
const EntityColumns<Supplier> kSupplierColumns = {
    {"SupplierKey", &Supplier::SupplierKey},
    {"OrganizationName", &Supplier::OrganizationName},
    {"AddressID", &Supplier::AddressID},
    {"CountryID", &Supplier::CountryID},
    {"CurrencyID", &Supplier::CurrencyID},
    {"EmailAddress", &Supplier::EmailAddress},
    {"Telephone1", &Supplier::Telephone1},
    {"Fax", &Supplier::Fax},
    {"FederalTaxID", &Supplier::FederalTaxID},
    {"ZoneID", &Supplier::ZoneID},
    {"PaymentID", &Supplier::PaymentID},
    {"TenderID", &Supplier::TenderID},
    {"TaxRegime", &Supplier::TaxRegime},
    {"DirectDiscount", &Supplier::DirectDiscount},
    {"AplyRetentionTax", &Supplier::AplyRetentionTax},
    {"RetentionTax", &Supplier::RetentionTax},
    {"Inactive", &Supplier::Inactive},
    {"Comments", &Supplier::Comments},
    {"CreationDate", &Supplier::CreationDate},
};

// The Bank row but its id.
const EntityColumns<Bank> kBankColumns = {
    {"BankKey", &Bank::BankKey},       {"Name", &Bank::Name}, {"CountryID", &Bank::CountryID},
    {"Telephone1", &Bank::Telephone1}, {"Fax", &Bank::Fax},
};

// A bank keeps no main address; its party's AddressID 0 stays, as every
// party's does.
constexpr double kNoMainAddress = 0;

}  // namespace

double SqliteSupplierService::GetDefaultSupplierID() {
  return FirstId(db_, "Supplier", "SupplierID");
}

double SqliteSupplierService::NextID() { return NextId(db_, "Supplier", "SupplierID"); }

void SqliteSupplierService::Save(const Supplier& supplier, bool is_new) {
  double party_id = system_.PartyIDBase(supplier.SupplierID, kPartyKind);
  writer_.Atomically([&] {
    SaveRow(writer_, "Supplier", kSupplierColumns, supplier, "SupplierID", supplier.SupplierID,
            is_new);
    party_rows_.AddPartyIfMissing(party_id, kPartyKind, supplier.CreationDate);
    party_rows_.WriteAddress(MainAddressOf(supplier, party_id));
    if (supplier.Party) {
      party_rows_.ReplaceCollections(party_id, supplier.AddressID, *supplier.Party);
    }
  });
}

void SqliteBankService::Save(const Bank& bank, int32_t bank_id, bool is_new) {
  double party_id = system_.PartyIDBase(bank_id, kPartyKind);
  writer_.Atomically([&] {
    SaveRow(writer_, "Bank", kBankColumns, bank, "BankID", bank_id, is_new);
    party_rows_.AddPartyIfMissing(party_id, kPartyKind, std::nullopt);
    if (bank.Party) party_rows_.ReplaceCollections(party_id, kNoMainAddress, *bank.Party);
  });
}

}  // namespace standalone
