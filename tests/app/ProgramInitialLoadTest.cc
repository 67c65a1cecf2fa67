// `lumaro initial-load` end to end: a POS database made by `lumaro init`, the
// sample back office (examples/backoffice) as the file the settings name, and
// what the load leaves in the POS database and in Migration.log. Expected
// values are worked out by hand from the sample's rows.

#include <gtest/gtest.h>

#include <algorithm>
#include <exception>
#include <regex>
#include <string>
#include <tuple>
#include <vector>

#include "standalone/PortugueseCatalogue.h"
#include "tests/app/LoadShop.h"
#include "tests/support/TestHost.h"

namespace {

using loadshop::Changes;
using loadshop::Shop;
using testsupport::ReadBytes;

const std::string kExemption = "M07 - Isento nos termos do artigo 9.º do CIVA";
// "dd-mm-yyyy hh:mm <Step> Line=N : number - description"
const std::regex kEntry(R"(^(\d\d-\d\d-\d{4} \d\d:\d\d) <(\w+)> Line=\d+ : -?\d+ - .+$)");

// The IVA rows of one region: "<region>|<sequence>|<rate>|<exemption reason>".
std::string Rates(const std::string& region, std::vector<std::string> rates) {
  std::string lines;
  for (size_t i = 0; i < rates.size(); ++i) {
    lines += region + "|" + std::to_string(i + 1) + "|" + rates[i] + "|" +
             (i == 3 ? kExemption : "") + "\n";
  }
  return lines;
}
std::string TaxRates(Shop& shop) {
  return shop.Lines(
      "SELECT TaxRegionID, TaxSequenceID, TaxRate, TaxExemptionReason FROM "
      "TaxTable WHERE TaxGroupID='IVA' AND CountryID='PT' ORDER BY TaxRegionID, TaxSequenceID");
}
// Region, property items, retention tax applied and its rate, kits, range.
std::string ConfSystem(Shop& shop) {
  return shop.Lines(
      "SELECT TaxRegionID, UsePropertyItems<>0, AplySalesRetentionTax<>0, RetentionTax, "
      "UseCompositeItems<>0, CustomerRangeStart, CustomerRangeEnd, (SELECT Active<>0 FROM "
      "ConfSpecial WHERE ConfSpecialID=40) FROM ConfSystem");
}

TEST(ProgramInitialLoad, CurrenciesComeFromMoedaWithTheirExchangesAndNames) {
  Shop shop;
  auto load = shop.Load();
  ASSERT_EQ(load.exit_code, 0) << load.err;
  EXPECT_NE(load.out.find("rows in the POS database after the load:\n"), std::string::npos);
  EXPECT_NE(load.out.find("\n  Currency: 5\n"), std::string::npos) << load.out;

  // EURO2 follows EUR and falls on its row, so its values are the row's;
  // being an update, the factory's formats and export code stay. A NULL
  // DtCamb is date 0 (shown as its time of day). New rows get the fixed
  // formats.
  EXPECT_EQ(shop.Lines("SELECT CurrencyID, CurrencyKey, DecimalPlaces, PriceItemDecimalPlaces, "
                       "ItsEuroCurrency<>0, RelatedCurrencyID, ExchangeDate, "
                       "DecimalSeparator||GroupSeparator||SymbolPosition||NegativeFormat, "
                       "ExportCode FROM Currency ORDER BY CurrencyID"),
            "CHF|CHF|2|2|0|EUR|00:00:00|.,1 #-1 #|0\n"
            "EUR|EURO2|2|2|1|EUR|00:00:00|,.1 #-1 #|1\n"
            "GBP|GBP|0|3|0|EUR|2026-11-20|.,1 #-1 #|0\n"
            "PTE|PTE|0|0|1|EUR|2001-12-31|.,1 #-1 #|0\n"
            "USD|USD|2|4|0|EUR|2026-11-20|.,1 #-1 #|0\n");
  EXPECT_EQ(shop.Lines("SELECT CurrencyID, LanguageID, Description FROM CurrencyNames "
                       "ORDER BY CurrencyID"),
            "CHF|PT|Franco suíço\nEUR|PT|Euro (segunda)\nGBP|PT|Libra esterlina\n"
            "PTE|PT|Escudo\nUSD|PT|Dólar americano\n");

  // Euro currencies: their fixed rate, exchanges 1. The others: rate 1, the
  // sale exchange 1/Camb rounded to 6 places, the buy exchange 1 over Camb
  // rounded to 6 places (so not rounded itself); Camb 0 gives 1.
  const std::vector<std::tuple<std::string, double, double, double>> exchanges = {
      {"EUR", 1, 1, 1},
      {"PTE", 200.482, 1, 1},
      {"USD", 1, 0.922339, 1 / 1.0842},
      {"GBP", 1, 1.191753, 1 / 0.8391},
      {"CHF", 1, 1, 1}};
  for (const auto& [id, rate, sale, buy] : exchanges) {
    auto value = [&, id = id](const std::string& column) {
      return shop.Number("SELECT " + column + " FROM Currency WHERE CurrencyID='" + id + "'");
    };
    EXPECT_NEAR(value("EuroConversionRate"), rate, 1e-12) << id;
    EXPECT_NEAR(value("SaleExchange"), sale, 1e-12) << id;
    EXPECT_NEAR(value("BuyExchange"), buy, 1e-12) << id;
  }
}

TEST(ProgramInitialLoad, TheCompanyGetsItsRegionRatesParametersAndDelegationRange) {
  Shop shop;
  // Rates of before; the sample has an older 21 and a future 25 beside 23.
  shop.Pos(
      "UPDATE TaxTable SET TaxRate=CASE TaxSequenceID WHEN 1 THEN 21 WHEN 2 THEN 12 "
      "WHEN 3 THEN 5 ELSE 1 END WHERE TaxRegionID='CON'");
  auto load = shop.Load();
  ASSERT_EQ(load.exit_code, 0) << load.err;

  // Only the company's region takes the back office's rates (MA's reduced
  // rate there is 4, here 5); every exempt class gets the reason.
  EXPECT_EQ(TaxRates(shop), Rates("AC", {"16", "9", "4", "0"}) +
                                Rates("CON", {"23", "13", "6", "0"}) +
                                Rates("MA", {"22", "12", "5", "0"}));
  // Seat "C"; delegation 1's range 100000 to 199999, a change that turns
  // special configuration 40 off.
  EXPECT_EQ(ConfSystem(shop), "CON|1|1|11.5|1|100000|199999|0\n");
  EXPECT_EQ(shop.Lines("SELECT WorkstationID, Filename, ImportDate FROM LumaroLog"),
            "1|Inicialização em 23-11-2026 10:00:00|2026-11-23 10:00:00\n");

  // What the sample lacks is logged by the steps that read it; these steps
  // found all they read.
  for (const std::string& entry : shop.LogEntries()) {
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(entry, parts, kEntry)) << entry;
    EXPECT_EQ(parts[1].str(), "23-11-2026 10:00") << entry;
    for (const char* step :
         {"Upgrade_Currency", "Upgrade_ConfSystem", "InitializeTillara", "Upgrade_Taxes",
          "Upgrade_TaxExemptionReason", "Load_ApplicationParam", "Load_Taxes"}) {
      EXPECT_NE(parts[2].str(), step) << entry;
    }
  }
}

TEST(ProgramInitialLoad, AnIslandSeatAndADelegationWithoutEnd) {
  Shop shop(Changes{{"LumaroDelegationID", "2"}});
  shop.BackOffice("UPDATE ParEmp SET Valor='M' WHERE CPar='Sede'");
  auto load = shop.Load();
  ASSERT_EQ(load.exit_code, 0) << load.err;
  // Seat "M" is MA, whose reduced rate becomes 4; delegation 2 ends at -1.
  EXPECT_EQ(TaxRates(shop), Rates("AC", {"16", "9", "4", "0"}) +
                                Rates("CON", {"23", "13", "6", "0"}) +
                                Rates("MA", {"22", "12", "4", "0"}));
  EXPECT_EQ(ConfSystem(shop), "MA|1|1|11.5|1|200000|9999999999|0\n");
}

TEST(ProgramInitialLoad, UserGroupsAndUsersComeFromGrupoAndOpers) {
  Shop shop;
  auto load = shop.Load();
  ASSERT_EQ(load.exit_code, 0) << load.err;
  // Grupo's descriptions are unique: a group is named by its description,
  // or its code when it has none. The default group is the host's message.
  std::vector<std::string> groups = {"Administradores", "Administração", "Loja", "ARM",
                                     standalone::PortugueseCatalogue().Text(3880107)};
  std::sort(groups.begin(), groups.end());
  std::string names;
  for (const std::string& group : groups) names += group + "\n";
  EXPECT_EQ(shop.Lines("SELECT AppGroupName FROM AppGroups ORDER BY AppGroupName"), names);
  // Two operators share a description, so every user is named by code and
  // description, and is in the group of its CGr. The factory user stays.
  EXPECT_EQ(shop.Lines("SELECT AppUserKey, AppUserName FROM AppUsers ORDER BY AppUserKey"),
            "|Administrador\nANA|ANA Ana Sousa\nEVA|EVA Eva Matos\nRUI|RUI Rui Lopes\n"
            "RUI2|RUI2 Rui Lopes\n");
  EXPECT_EQ(shop.Lines("SELECT u.AppUserKey, g.AppGroupName FROM AppUsersGroups ug JOIN AppUsers "
                       "u ON u.AppUserID=ug.AppUserID JOIN AppGroups g ON g.AppGroupID="
                       "ug.AppGroupID ORDER BY 1"),
            "|Administradores\nANA|Administração\nEVA|ARM\nRUI|Loja\nRUI2|Loja\n");
  for (const std::string& entry : shop.LogEntries()) {
    EXPECT_EQ(entry.find("<Upgrade_App"), std::string::npos) << entry;
  }
}

TEST(ProgramInitialLoad, ASecondLoadGivesTheSameRows) {
  Shop shop;
  auto rows = [&] {
    return shop.Rows(
        "Currency CurrencyNames ConfSystem ConfSpecial TaxTable AppGroups AppUsers "
        "AppUsersGroups");
  };
  ASSERT_EQ(shop.Load().exit_code, 0);
  const std::string first = rows();
  ASSERT_EQ(shop.Load().exit_code, 0);
  EXPECT_EQ(rows(), first);

  // The range as the delegation has it is not written again, nor is
  // special configuration 40.
  shop.Pos("UPDATE ConfSpecial SET Active=1 WHERE ConfSpecialID=40");
  ASSERT_EQ(shop.Load().exit_code, 0);
  EXPECT_EQ(ConfSystem(shop), "CON|1|1|11.5|1|100000|199999|1\n");
}

// A refusal: exit 1 with its message, nothing logged (no Migration.log), and
// the POS database's rows as they were: the settings the command loads with
// are the stored ones, so it stores nothing before it connects.
void ExpectRefused(Shop& shop, const std::string& message) {
  // The rows of the tables a load writes; LumaroLog is made by the first.
  auto rows = [&] {
    std::string dump = shop.Rows(
        "ConnectorSettings Currency CurrencyNames ConfSystem ConfSpecial TaxTable AppGroups "
        "AppUsers AppUsersGroups Customer SaleTransaction");
    try {
      dump += shop.Rows("LumaroLog");
    } catch (const std::exception&) {
      dump += "no LumaroLog\n";
    }
    return dump;
  };
  const std::string before = rows();
  auto refused = shop.Load();
  EXPECT_EQ(refused.exit_code, 1) << refused.out << refused.err;
  EXPECT_NE(refused.err.find(message), std::string::npos) << refused.err;
  EXPECT_FALSE(testsupport::FileExists(shop.LogFile()));
  EXPECT_EQ(rows(), before);
}

TEST(ProgramInitialLoad, ASaleOfACustomerNotYetExportedRefusesTheLoad) {
  Shop shop;
  shop.Pos(
      "INSERT INTO Customer (CustomerID, CustomerKey, OrganizationName) VALUES "
      "(1001, '', 'Cliente do Posto'), (1003, 'C0042', 'Café Central');"
      "INSERT INTO SaleTransaction (TransSerial, TransDocument, TransDocNumber, CreateDate, "
      "PartyID, CurrencyID, TotalTransactionAmount, WorkstationID, UserAlt) VALUES "
      "('A', 'TVD', 1, '2026-11-23 09:05:00', 1001, 'EUR', 12.5, 1, 1), "
      "('A', 'TVD', 2, '2026-11-23 09:10:00', 1003, 'EUR', 40, 1, 1);");
  ExpectRefused(shop, "Existem clientes que ainda não foram exportados com vendas emitidas.");

  // Once that sale is exported the load runs: a customer of the back office
  // with a sale not yet exported does not stand in its way.
  shop.Pos(
      "UPDATE SaleTransaction SET AccountingExportDate='2026-11-23 09:30:00' "
      "WHERE PartyID=1001");
  auto load = shop.Load();
  EXPECT_EQ(load.exit_code, 0) << load.err;
}

TEST(ProgramInitialLoad, ABackOfficeNotReachedOrSettingsNotUsableRefuseTheLoad) {
  const std::string not_reached =
      "Não foi possível estabelecer a ligação ao SQL Server do Lumaro. Verifique a "
      "configuração da conexão.";
  // The year names the file, so one of another year is missing.
  Shop missing_file(Changes{{"SQLDataSource", "sqlite:bo"}, {"SQLCompanyYear", "2025"}});
  ExpectRefused(missing_file, not_reached);
  // The sample's file is there, but the settings name a server.
  Shop server(Changes{{"SQLDataSource", "backoffice\\LUMARO"}});
  ExpectRefused(server, not_reached);

  Shop no_till(Changes{{"TillID", "0"}});
  ExpectRefused(no_till, "Não foi indicada qual a caixa a utilizar");
  Shop nothing_stored(Changes{}, false);
  ExpectRefused(nothing_stored, "");
}

TEST(ProgramInitialLoad, AFailedStatementIsLoggedWithItsStepAndTheLoadGoesOn) {
  Shop shop;
  shop.BackOffice("DROP TABLE Deleg; DROP TABLE ArAgr;");
  shop.Pos("UPDATE TaxTable SET TaxRate=21 WHERE TaxRegionID='CON' AND TaxSequenceID=1");
  auto load = shop.Load();
  ASSERT_EQ(load.exit_code, 0) << load.err;

  // The delegation is read in InitializeTillara, the kits in
  // Load_ApplicationParam: one entry each, of this run's time.
  for (const std::string step : {"InitializeTillara", "Load_ApplicationParam"}) {
    std::vector<std::string> entries;
    for (const std::string& entry : shop.LogEntries()) {
      if (entry.find("<" + step + ">") != std::string::npos) entries.push_back(entry);
    }
    ASSERT_EQ(entries.size(), 1u) << step << "\n" << ReadBytes(shop.LogFile());
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(entries[0], parts, kEntry)) << entries[0];
    EXPECT_EQ(parts[1].str(), "23-11-2026 10:00");
  }
  // The rest went on: range and special configuration 40 as they were, no
  // kits, but the retention tax of the same step, the currencies before and
  // the rates and the LumaroLog row after.
  EXPECT_EQ(ConfSystem(shop), "CON|1|1|11.5|0|0|9999999999|1\n");
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM Currency"), "5\n");
  EXPECT_EQ(shop.Lines("SELECT TaxRate FROM TaxTable WHERE TaxRegionID='CON' AND "
                       "TaxSequenceID=1"),
            "23\n");
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM LumaroLog"), "1\n");
}

// A value of a row that cannot be read loses its own column only: the row is
// saved with the rest, and the steps after it run.
TEST(ProgramInitialLoad, AValueThatCannotBeReadLosesOnlyItsColumn) {
  Shop shop;
  // USD's exchange date not a date (in a text column, which a server's date
  // column could not hold), and two columns gone.
  shop.BackOffice(
      "ALTER TABLE Moeda DROP COLUMN DtCamb;"
      "ALTER TABLE Moeda ADD COLUMN DtCamb VARCHAR(20);"
      "UPDATE Moeda SET DtCamb = '31/02/2026' WHERE CMoe = 'USD';"
      "ALTER TABLE Moeda DROP COLUMN RndP;"
      "ALTER TABLE Opers DROP COLUMN CGr;");
  auto load = shop.Load();
  ASSERT_EQ(load.exit_code, 0) << load.err;
  EXPECT_EQ(shop.Lines("SELECT CurrencyKey, RelatedCurrencyID, SaleExchange, DecimalPlaces FROM "
                       "Currency WHERE CurrencyID = 'USD'"),
            "USD|EUR|0.922339|2\n");
  // Without their groups' column the users are saved all the same.
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM AppUsers WHERE AppUserKey <> ''"), "4\n");
  int currency_entries = 0;
  for (const std::string& entry : shop.LogEntries()) {
    if (entry.find("<Upgrade_Currency>") != std::string::npos) ++currency_entries;
  }
  EXPECT_GE(currency_entries, 2) << ReadBytes(shop.LogFile());
  EXPECT_EQ(shop.Lines("SELECT COUNT(*) FROM LumaroLog"), "1\n");
}

}  // namespace
