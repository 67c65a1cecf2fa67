#include "bench/tools/PosData.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "bench/floor/BackOfficeText.h"
#include "bench/tools/Random.h"

namespace bench {
namespace {

const std::vector<std::string> kFirstNames = {"Ana", "João",  "Maria", "José",  "Inês",
                                              "Rui", "Sofia", "Luís",  "Marta", "António"};
const std::vector<std::string> kSurnames = {"Silva",     "Santos", "Ferreira",  "Pereira",
                                            "Oliveira",  "Costa",  "Rodrigues", "Martins",
                                            "Gonçalves", "Sá"};
const std::vector<std::string> kItems = {"Arroz agulha", "Feijão frade",     "Açúcar branco",
                                         "Café moído",   "Leite meio-gordo", "Pão de forma",
                                         "Azeite extra", "Vinho tinto",      "Queijo da serra"};
const std::vector<double> kTaxRates = {23, 13, 6};

// The stored form of a time `seconds` after midnight of the sales' day.
std::string TimeOfDay(long seconds) {
  char text[32];
  std::snprintf(text, sizeof text, "2026-11-20 %02ld:%02ld:%02ld", seconds / 3600 % 24,
                seconds / 60 % 60, seconds % 60);
  return text;
}

// Seconds after midnight of the n-th of `count` events spread from 07:00
// over 14 hours, in order.
long Spread(long n, long count) { return 7 * 3600 + n * 14 * 3600 / (count + 1); }

double Cents(int64_t cents) { return static_cast<double>(cents) / 100; }

}  // namespace

void AddImportReferences(Database& db) {
  db.Exec(R"sql(
BEGIN;
UPDATE PriceLine SET PriceLineKey='1' WHERE PriceLineID=1;
INSERT INTO PriceLine (PriceLineID, PriceLineKey, ShortName, Description) VALUES
  (2, '2', 'PVP2', 'Preço de venda 2'), (3, '3', 'PVP3', 'Preço de venda 3');
INSERT INTO Family (FamilyID, FamilyKey, FamilyName, FamilyLevel, FamilyPath) VALUES
  (1, 'GeneralFamily', 'Geral', 0, 'Geral'), (2, '01', 'Mercearia', 1, 'Geral\Mercearia');
INSERT INTO ItemProperty (PropertyID, Description, KeyDescription, PropertyKeyType,
  UseProductionDate, UseExpirationDate, ExpirationDateControl)
VALUES ('CL', 'Controla Lotes', 'CL', 202, 1, 1, 1);
COMMIT;
)sql");
}

void AddSales(Database& db, const SalesShape& shape) {
  Random random(shape.seed);
  db.Exec("BEGIN");
  db.Exec(
      "INSERT INTO Documents (TransDocumentID, Description, DocumentSign) "
      "VALUES ('TRC', 'Recibo', '+')");

  Statement customer(db,
                     "INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName, "
                     "FederalTaxID, EmailAddress, Telephone1) VALUES (?, '', ?, ?, ?, ?)");
  for (long c = 1; c <= shape.customers; ++c) {
    const std::string& first = random.Pick(kFirstNames);
    const std::string& last = random.Pick(kSurnames);
    const int64_t phone = random.Between(210000000, 299999999);
    char tax_id[24];
    std::snprintf(tax_id, sizeof tax_id, "5%08ld", c);
    customer.Bind(1, static_cast<int64_t>(5000 + c))
        .Bind(2, first + " " + last)
        .Bind(3, tax_id)
        .Bind(4, "cliente" + std::to_string(c) + "@exemplo.pt")
        .Bind(5, std::to_string(phone))
        .Run();
  }

  Statement sale(db,
                 "INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, "
                 "CreateDate, PartyID, CurrencyID, TransactionTaxIncluded, "
                 "TotalTransactionAmount, WorkstationID, UserAlt) "
                 "VALUES ('A', 'TVD', ?, ?, ?, 'EUR', 1, ?, ?, 1)");
  Statement line(db,
                 "INSERT INTO SaleTransactionDetails (TransSerial, TransDocument, "
                 "TransDocNumber, LineItemID, ItemID, Description, Units, Quantity, "
                 "UnitOfSaleID, TaxIncludedPrice, UnitPrice, TotalNetPrintAmout, CreateDate) "
                 "VALUES ('A', 'TVD', ?, ?, ?, ?, ?, ?, 'UN', ?, ?, ?, ?)");
  Statement tax(db,
                "INSERT INTO TaxTransactionDetail (TransSerial, TransDocument, TransDocNumber, "
                "LineItemID, TaxGroupID, TaxRate) VALUES ('A', ?, ?, ?, 'IVA', ?)");
  Statement tender(db,
                   "INSERT INTO TenderLineItem (TransSerial, TransDocument, TransDocNumber, "
                   "TransOrder, TenderID, Amount) VALUES ('A', ?, ?, ?, ?, ?)");
  // Sale n is the party of customer n / stride, for the first customers.
  const long stride = shape.customers > 0 ? std::max(1L, shape.documents / shape.customers) : 0;
  for (long n = 1; n <= shape.documents; ++n) {
    const std::string created = TimeOfDay(Spread(n, shape.documents));
    double total = 0;
    for (int l = 1; l <= shape.lines; ++l) {
      char item[24];
      std::snprintf(item, sizeof item, "A%06d", static_cast<int>(random.Between(1, 5000)));
      const std::string& description = random.Pick(kItems);
      const int64_t quantity = random.Between(1, 4);
      const double price = Cents(random.Between(50, 5000));
      const double rate = random.Pick(kTaxRates);
      const double amount = price * static_cast<double>(quantity);
      total += amount;
      line.Bind(1, static_cast<int64_t>(n))
          .Bind(2, l)
          .Bind(3, item)
          .Bind(4, description)
          .Bind(5, quantity)
          .Bind(6, quantity)
          .Bind(7, price)
          .Bind(8, RoundMoney(price / (1 + rate / 100)))
          .Bind(9, amount)
          .Bind(10, created)
          .Run();
      tax.Bind(1, "TVD").Bind(2, static_cast<int64_t>(n)).Bind(3, l).Bind(4, rate).Run();
    }
    total = RoundMoney(total);
    const bool has_party = stride > 0 && n % stride == 0 && n / stride <= shape.customers;
    const int64_t workstation = random.Between(1, 2);
    sale.Bind(1, static_cast<int64_t>(n))
        .Bind(2, created)
        .Bind(3, static_cast<int64_t>(has_party ? 5000 + n / stride : 0))
        .Bind(4, total)
        .Bind(5, workstation)
        .Run();
    tender.Bind(1, "TVD")
        .Bind(2, static_cast<int64_t>(n))
        .Bind(3, 1)
        .Bind(4, 1)
        .Bind(5, total)
        .Run();
  }

  Statement receipt(db,
                    "INSERT INTO TenderTransaction (TransSerial, TransDocument, TransDocNumber, "
                    "CreateDate, CurrencyID, TotalTransactionAmount, WorkstationID, UserAlt) "
                    "VALUES ('A', 'TRC', ?, ?, 'EUR', ?, ?, 1)");
  for (long n = 1; n <= shape.receipts; ++n) {
    const int64_t tender_lines = random.Between(1, 2);
    double total = 0;
    for (int64_t order = 1; order <= tender_lines; ++order) {
      const double amount = Cents(random.Between(500, 50000));
      // Cash, or the customer's current account.
      const int64_t tender_id = order == 1 ? 1 : 10;
      total += amount;
      tender.Bind(1, "TRC")
          .Bind(2, static_cast<int64_t>(n))
          .Bind(3, order)
          .Bind(4, tender_id)
          .Bind(5, amount)
          .Run();
    }
    const int64_t workstation = random.Between(1, 2);
    receipt.Bind(1, static_cast<int64_t>(n))
        .Bind(2, TimeOfDay(Spread(n, shape.receipts)))
        .Bind(3, RoundMoney(total))
        .Bind(4, workstation)
        .Run();
  }
  db.Exec("COMMIT");
}

}  // namespace bench
