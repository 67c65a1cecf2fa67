#ifndef LUMARO_EXCHANGE_IMPORT_RECORD_LAYOUTS_H_
#define LUMARO_EXCHANGE_IMPORT_RECORD_LAYOUTS_H_

// The positions of each record kind of an import file, with the rule by
// which each is read. Kept on purpose by position: the back office writes
// the fields so and nothing in a line names them. Each list `kRead` holds
// the fields in the order in which the pass reads them, which is the order
// in which the file check tests them.

#include <span>

#include "exchange/import/ImportRecord.h"

namespace lumaro::layout {

using R = FieldRule;

// The header: exactly five fields.
namespace hf {
inline constexpr RecordField kTag{0, R::kText, "tag HF"};
inline constexpr RecordField kVersion{1, R::kText, "format 4"};
inline constexpr RecordField kKind{2, R::kText, "kind 1"};
inline constexpr RecordField kCompany{3, R::kText, "company code"};
inline constexpr RecordField kYear{4, R::kLocaleNumber, "company year"};
}  // namespace hf

// A salesman.
namespace vn {
inline constexpr RecordField kCode{1, R::kText, "salesman code"};
inline constexpr RecordField kName{2, R::kText, "name"};
inline constexpr RecordField kComments{13, R::kText, "remarks"};
inline constexpr RecordField kRead[] = {kCode, kName, kComments};
}  // namespace vn

// A customer.
namespace cl {
inline constexpr RecordField kNumber{1, R::kText, "customer number"};
// The number as the id of a customer the POS does not know by its key.
inline constexpr RecordField kNumberAsId{1, R::kLocaleNumber, "customer number"};
inline constexpr RecordField kName{2, R::kText, "name"};
inline constexpr RecordField kAddress{3, R::kText, "address"};
inline constexpr RecordField kLocality{4, R::kText, "locality"};
inline constexpr RecordField kPostalCode{5, R::kText, "post code"};
inline constexpr RecordField kZone{6, R::kText, "zone key"};
inline constexpr RecordField kEmail{7, R::kText, "e-mail"};
inline constexpr RecordField kTelephone{8, R::kText, "telephone"};
inline constexpr RecordField kFax{9, R::kText, "fax"};
inline constexpr RecordField kTaxpayer{10, R::kText, "taxpayer number"};
inline constexpr RecordField kGroup{11, R::kText, "customer group key"};
inline constexpr RecordField kPriceLine{13, R::kText, "price line key"};
inline constexpr RecordField kSalesman{14, R::kText, "salesman key"};
inline constexpr RecordField kDiscount{16, R::kCommaNumber, "direct discount"};
inline constexpr RecordField kCarrier{17, R::kText, "carrier key"};
inline constexpr RecordField kCredit{20, R::kText, "credit situation"};
inline constexpr RecordField kInactive{21, R::kTruth, "inactive"};
inline constexpr RecordField kComments{22, R::kText, "remarks"};
inline constexpr RecordField kRetention{23, R::kTruth, "retention tax applies"};
inline constexpr RecordField kRead[] = {kGroup,   kZone,      kSalesman,   kNumber,   kName,
                                        kAddress, kLocality,  kPostalCode, kEmail,    kTelephone,
                                        kFax,     kTaxpayer,  kPriceLine,  kDiscount, kCarrier,
                                        kCredit,  kRetention, kInactive,   kComments};
}  // namespace cl

// A family.
namespace fa {
inline constexpr RecordField kCode{1, R::kText, "family code"};
// The code at level 1 to 4: positions 2 to 5.
inline constexpr RecordField kLevel1{2, R::kText, "code at level 1"};
inline constexpr RecordField kLevel2{3, R::kText, "code at level 2"};
inline constexpr RecordField kLevel3{4, R::kText, "code at level 3"};
inline constexpr RecordField kLevel4{5, R::kText, "code at level 4"};
inline constexpr RecordField kShortName{6, R::kText, "short name"};
inline constexpr RecordField kDescription{7, R::kText, "description"};
inline constexpr RecordField kItemKind{9, R::kText, "item kind"};
inline constexpr RecordField kRead[] = {kCode,   kDescription, kShortName, kLevel4,
                                        kLevel3, kLevel2,      kLevel1,    kItemKind};
}  // namespace fa

// An item.
namespace ar {
inline constexpr RecordField kCode{1, R::kText, "item code"};
inline constexpr RecordField kShortDescription{2, R::kText, "short description"};
inline constexpr RecordField kDescription{3, R::kText, "description"};
inline constexpr RecordField kType{4, R::kText, "item type"};
inline constexpr RecordField kFamily{5, R::kText, "family code"};
// The family codes at levels 1 to 4, read by the family filter: 6 to 9.
inline constexpr size_t kFirstFamilyLevel = 6;
inline constexpr RecordField kTaxType{11, R::kText, "tax type"};
inline constexpr RecordField kSaleUnit{12, R::kText, "sale unit"};
inline constexpr RecordField kStockUnit{13, R::kText, "stock unit"};
inline constexpr RecordField kSaleUnitFactor{14, R::kLocaleNumber, "sale unit factor"};
inline constexpr RecordField kUnitTest{15, R::kInteger, "unit test number"};
inline constexpr RecordField kValidityKind{16, R::kLocaleNumber, "validity kind"};
inline constexpr RecordField kValidFrom{17, R::kValidityDate, "valid from"};
inline constexpr RecordField kValidTo{18, R::kValidityDate, "valid to"};
inline constexpr RecordField kAlternative{19, R::kText, "alternative item code"};
inline constexpr RecordField kLotKind{20, R::kCommaNumber, "lot kind"};
inline constexpr RecordField kDate{22, R::kDateIfValid, "date"};
inline constexpr RecordField kUsesScale{24, R::kTruth, "sold by scale"};
inline constexpr RecordField kRead[] = {
    kValidFrom,      kValidTo,     kValidityKind, kType,      kCode,     kShortDescription,
    kDescription,    kFamily,      kTaxType,      kStockUnit, kUnitTest, kSaleUnit,
    kSaleUnitFactor, kAlternative, kLotKind,      kDate,      kUsesScale};
}  // namespace ar

// A selling price of an item.
namespace ap {
inline constexpr RecordField kItem{1, R::kText, "item code"};
inline constexpr RecordField kPriceLine{2, R::kText, "price line key"};
inline constexpr RecordField kPrice{3, R::kCommaNumber, "price"};
inline constexpr RecordField kDate{4, R::kDateIfValid, "price date"};
inline constexpr RecordField kTaxIncluded{8, R::kTruth, "tax included"};
inline constexpr RecordField kRead[] = {kItem, kPriceLine, kDate, kPrice, kTaxIncluded};
}  // namespace ap

// A barcode of an item.
namespace ab {
inline constexpr RecordField kBarcode{1, R::kText, "barcode"};
inline constexpr RecordField kItem{2, R::kText, "item code"};
inline constexpr RecordField kMain{5, R::kTruth, "main barcode"};
inline constexpr RecordField kRead[] = {kItem, kBarcode, kMain};
}  // namespace ab

// The stock of an item by property value (a lot or a serial number).
namespace al {
inline constexpr RecordField kItem{1, R::kText, "item code"};
inline constexpr RecordField kValue{2, R::kText, "lot or serial number"};
inline constexpr RecordField kProductionDate{4, R::kDateOrEmpty, "production date"};
inline constexpr RecordField kExpirationDate{5, R::kDateOrEmpty, "expiry date"};
inline constexpr size_t kFirstFamilyLevel = 6;
inline constexpr RecordField kRead[] = {kItem, kValue, kProductionDate, kExpirationDate};
}  // namespace al

// A component of a kit.
namespace ag {
inline constexpr RecordField kKit{1, R::kText, "kit code"};
inline constexpr RecordField kComponent{2, R::kText, "component code"};
inline constexpr RecordField kQuantity{3, R::kLocaleNumber, "quantity"};
inline constexpr RecordField kRead[] = {kKit, kComponent, kQuantity};
}  // namespace ag

}  // namespace lumaro::layout

#endif  // LUMARO_EXCHANGE_IMPORT_RECORD_LAYOUTS_H_
