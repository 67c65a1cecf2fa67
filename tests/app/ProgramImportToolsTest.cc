// The tools around the import for the people who run it: `lumaro check`,
// which lists the lines of a file that would stop its import, and
// `lumaro import --dry-run`, which says (and reports) what an import would
// change and keeps nothing.

#include <gtest/gtest.h>

#include "tests/app/ImportShop.h"

namespace {

using namespace importshop;
using nlohmann::json;
using testsupport::ReadBytes;

// An item record of unit UN, always valid and of no lot; `changes` sets
// positions.
std::string Item(std::initializer_list<std::string> leading,
                 std::initializer_list<std::pair<size_t, std::string>> changes = {}) {
  auto f = Fields(25, leading);
  f[11] = "2", f[12] = "UN", f[13] = "UN", f[14] = "1", f[15] = "0", f[16] = "0";
  f[20] = "0", f[24] = "0";
  for (const auto& [position, value] : changes) f[position] = value;
  return Join(f);
}

// A file the import takes whole, with `bad_line` after its lines unless it
// is empty: a kit K1 of item A1, with its price and barcode. Line 1 is the
// header; the bad line is line 9.
std::string FileWith(const std::string& bad_line) {
  std::string bytes = Lines({kHeader, Vn("V1", "Ana"), Cl("201"), Ar("A1"),
                             Item({"AR", "K1", "Cabaz", "Cabaz", "G"}), Ap("A1", "1", "2,5"),
                             "AB^560001^A1^^^1", "AG^K1^A1^2"});
  return bad_line.empty() ? bytes : bytes + bad_line + "\r\n";
}

TEST(ProgramImportFileCheck, ListsExactlyTheLinesOnWhichTheImportStops) {
  auto ar = [](std::initializer_list<std::pair<size_t, std::string>> changes) {
    return Item({"AR", "A2", "A2", "Artigo", "A"}, changes);
  };
  struct Case {
    const char* what;
    std::string line;
    bool stops;
  } cases[] = {
      {"a whole file", "", false},
      {"a salesman too short for its remarks", "VN^V9^Curto", true},
      {"a customer number that is no number", Cl("C77"), true},
      {"a customer number the POS knows as a key", Cl("K55"), false},
      {"a discount that is no number", Cl("202", "", "", "", "dez"), true},
      {"a truth value that is none", ar({{24, "talvez"}}), true},
      {"a unit test that is no whole number", ar({{15, "x"}}), true},
      {"a validity date that is no date", ar({{17, "ontem"}}), true},
      {"a date that is no date, read only when it is one", ar({{22, "ontem"}}), false},
      {"an item never valid, whose other fields are not read", ar({{15, "x"}, {16, "3"}}), false},
      {"a price that is no number", Ap("A1", "1", "abc"), true},
      {"a barcode mark that is no truth value", "AB^560002^A1^^^x", true},
      {"an empty barcode, whose mark is not read", "AB^^A1^^^x", false},
      {"a component quantity that is no number", "AG^K1^A1^dois", true},
      {"a line of no known tag", "ZZ^anything", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ImportShop shop;
    shop.Seed(
        "INSERT INTO Customer (CustomerID, CustomerKey) VALUES (55, 'K55');"
        "UPDATE PriceLine SET PriceLineKey = '1' WHERE PriceLineID = 1");
    shop.Write("ITpv0001.txt", FileWith(c.line));

    auto check = shop.Lumaro({"check", shop.InExchange("ITpv0001.txt")});
    EXPECT_EQ(check.exit_code, c.stops ? 1 : 0) << check.out << check.err;
    EXPECT_EQ(check.out.find("ITpv0001.txt line 9 ") != std::string::npos, c.stops) << check.out;
    auto import = shop.Import();
    EXPECT_EQ(import.exit_code, c.stops ? 1 : 0) << import.err;
    EXPECT_EQ(shop.LoggedFiles(), c.stops ? "" : "ITpv0001.txt");
  }
}

TEST(ProgramImportFileCheck, NamesWhatMakesTheImportPassAFileOver) {
  ImportShop shop;
  shop.Write("itpv0001.txt", Lines({"HF^4^1^OUTRA^2026", Vn("V1", "Ana")}));
  auto check = shop.Lumaro({"check", shop.InExchange("itpv0001.txt")});
  EXPECT_EQ(check.exit_code, 1);
  EXPECT_NE(check.out.find("itpv0001.txt: the name does not begin with ITpv"), std::string::npos)
      << check.out;
  EXPECT_NE(check.out.find("line 1 (HF): the header is of company \"OUTRA\""), std::string::npos)
      << check.out;
}

TEST(ProgramImportDryRun, TellsWhatWouldChangeAndKeepsNothing) {
  ImportShop shop;
  ASSERT_EQ(shop.Import().exit_code, 0);  // a run with no file makes the log's table
  shop.Seed("INSERT INTO Salesman (SalesmanID, SalesmanKey, SalesmanName) VALUES (1, 'V1', 'Ana')");
  // Line 4: a name longer than its column, refused at its save.
  std::string long_name = Cl("202");
  long_name.replace(long_name.find("Cliente 202"), 11, std::string(101, 'n'));
  shop.Write("ITpv0007.txt",
             Lines({kHeader, Vn("V1", "Ana Maria"), Vn("V2", "Bruno"), long_name, Cl("201")}));
  // An error file of an earlier run keeps its bytes.
  const std::string errors = shop.InExchange("Erros de importação de ITpv0007.txt");
  std::ofstream(errors, std::ios::binary) << "earlier\r\n";
  auto salesmen = [&] { return shop.Rows("{SalesmanKey}:{SalesmanName}", "Salesman ORDER BY 1"); };
  auto before = [&] {
    return salesmen() + "|" + shop.Query("SELECT count(*) FROM Customer") + "|" +
           shop.LoggedFiles() + "|" + shop.LastImportNumber() + "|" + ReadBytes(errors);
  };
  const std::string kept = before();

  auto dry = shop.Reported({"import", "--dry-run", "--report", "dry/run.json"});
  shop.ExpectHead(dry, {"import", "--dry-run"}, 0, "completed", true);
  EXPECT_EQ(dry.result.out,
            "ITpv0007.txt: would be imported\n"
            "  VN: 1 added, 1 updated, 0 refused\n"
            "  CL: 1 added, 0 updated, 1 refused\n"
            "    line 4: String or binary data would be truncated: Customer.OrganizationName "
            "holds at most 100 characters\n"
            "dry run: nothing was kept; the POS database, the file log, the number of the last "
            "file and the error files are as they were\n");
  EXPECT_EQ(before(), kept);
  // The report tells the same.
  json& file = dry.report["import_files"][0];
  EXPECT_EQ(dry.report["import_files"].size(), 1u);
  EXPECT_EQ(file["name"], "ITpv0007.txt");
  EXPECT_EQ(file["outcome"], "imported");
  EXPECT_EQ(file["records"], (json{{"VN", {{"added", 1}, {"updated", 1}, {"refused", 0}}},
                                   {"CL", {{"added", 1}, {"updated", 0}, {"refused", 1}}}}));
  EXPECT_EQ(file["refused"][0]["line"], 4);

  // The import itself then does what the dry run told.
  auto real = shop.Lumaro({"--now", kNow, "import"});
  ASSERT_EQ(real.exit_code, 0) << real.err;
  EXPECT_EQ(real.out.substr(0, real.out.find('\n')), "ITpv0007.txt: imported");
  EXPECT_EQ(salesmen(), "V1:Ana Maria,V2:Bruno");
  EXPECT_EQ(shop.LastImportNumber(), "7");
  EXPECT_NE(ReadBytes(errors), "earlier\r\n");
}

}  // namespace
