// The import run end to end through the lumaro program: which files of the
// exchange folder are taken, the log that keeps a file from being read twice,
// the number of the last file, the error file, the filters of the settings,
// and what bad input gets; and what the run report (--report) tells of each.
// Files are built here as Windows-1252 bytes with CR LF line ends.

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

#include "tests/app/ImportShop.h"

namespace {

using namespace importshop;
using nlohmann::json;
using testsupport::FileExists;

json Counts(int added, int updated, int refused) {
  return {{"added", added}, {"updated", updated}, {"refused", refused}};
}

void ExpectQuietSuccess(const testsupport::ProgramResult& result) {
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(result.out, "");
}

TEST(ProgramImportDriver, TakesOnlyITpvTextFilesWithTheCompanysHeader) {
  ImportShop shop;
  struct Case {
    const char* name;
    std::string bytes;
    bool imported;
  } cases[] = {
      {"ITpv0001.txt", Lines({kHeader, Vn("F01", "Um")}), true},
      {"itpv0002.txt", Lines({kHeader, Vn("F02", "Dois")}), false},
      {"ITPV0003.txt", Lines({kHeader, Vn("F03", "Tres")}), false},
      {"ITpv0005.csv", Lines({kHeader, Vn("F05", "Cinco")}), false},
      {"ITpv0006.txt", Lines({kHeader + "^", Vn("F06", "Seis")}), false},
      {"ITpv0007.txt", Lines({kHeader + "^X", Vn("F07", "Sete")}), false},
      {"ITpv0008.txt", Lines({"HF^4^1^EMP02^2026", Vn("F08", "Oito")}), false},
      {"ITpv0009.txt", Lines({"HF^4^1^EMP01^2025", Vn("F09", "Nove")}), false},
      {"ITpv0010.txt", "", false},
      {"ITpv0011.txt", Lines({kHeader}), true},
      {"ITpv0012.txt", Lines({"hf^4^1^emp01^2026", Vn("F12", "Doze")}), true},
      {"ITpv0013.txt", kHeader + "\n" + Vn("F13", "Treze") + "\n", true},
      {"ITpv0015.txt", Lines({"HF^5^1^EMP01^2026", Vn("F15", "Quinze")}), false},
      {"Clientes.txt", Lines({kHeader, Vn("F16", "Dezasseis")}), false},
      {"ITpvX.txt", Lines({kHeader, Vn("FX", "Xis")}), true},
  };
  // The report names each text file whose name begins with ITpv in any case.
  std::string logged, listed;
  for (const Case& c : cases) {
    shop.Write(c.name, c.bytes);
    if (c.imported) logged += std::string(logged.empty() ? "" : ",") + c.name;
    std::string name = host::UCase(c.name);
    if (name.starts_with("ITPV") && name.ends_with(".TXT")) {
      listed += std::string(c.name) + (c.imported ? ":imported " : ":skipped ");
    }
  }
  auto run = shop.Reported({"--quiet", "import", "--report", "run/run.json"});
  shop.ExpectHead(run, {"import"}, 0, "completed");
  ExpectQuietSuccess(run.result);
  // Every one of them was taken, the header-only file too, and each has its
  // log row; the others left no trace.
  EXPECT_EQ(shop.Salesmen(), "F01,F12,F13,FX");
  EXPECT_EQ(shop.LoggedFiles(), logged);
  // Each file the report names was taken, or passed over and why.
  EXPECT_EQ(run.report["exchange_points"], json::array());
  std::string reported;
  for (json& file : run.report["import_files"]) {
    reported += file["name"].get<std::string>() + ":" + file["outcome"].get<std::string>() + " ";
    if (file["outcome"] == "skipped") {
      EXPECT_TRUE(file["reason"].is_string() && file["reason"] != "") << file;
      EXPECT_EQ(file["records"], json::object());
      EXPECT_EQ(file["refused"], json::array());
    }
  }
  EXPECT_EQ(reported, listed);
  // ITpvX.txt, number 0, came last: the stored number does not move.
  EXPECT_EQ(shop.LastImportNumber(), "0");
  // Nothing is moved or removed.
  EXPECT_TRUE(FileExists(shop.InExchange("ITpv0001.txt")));
  EXPECT_TRUE(FileExists(shop.InExchange("ITpvX.txt")));
}

TEST(ProgramImportDriver, TheLogDecidesByFileDateAndWorkstation) {
  ImportShop shop;
  auto write = [&](const std::string& name, const std::string& modified) {
    shop.Write("ITpv0001.txt", Lines({kHeader, Vn("V1", name)}), modified);
  };
  auto row = [&](int workstation, const std::string& imported, const std::string& file_date) {
    return std::to_string(workstation) + "|ITpv0001.txt|" + imported + "|" +
           std::to_string(shop.Size("ITpv0001.txt")) + "|" + file_date;
  };
  auto name = [&] { return shop.Query("SELECT SalesmanName FROM Salesman"); };

  write("Primeiro", "2026-03-10 08:00:00");
  ExpectQuietSuccess(shop.Import());
  EXPECT_EQ(name(), "Primeiro");
  const std::string first_row = row(1, "2026-03-14 10:00:00", "2026-03-10 08:00:00");
  EXPECT_EQ(shop.LogRows(), first_row);

  // Other content, same date, then an older date: not read again.
  write("Segundo", "2026-03-10 08:00:00");
  ExpectQuietSuccess(shop.Import("2026-03-14 11:00:00"));
  shop.Touch("ITpv0001.txt", "2026-03-09 08:00:00");
  ExpectQuietSuccess(shop.Import("2026-03-14 11:30:00"));
  EXPECT_EQ(name(), "Primeiro");
  EXPECT_EQ(shop.LogRows(), first_row);

  // Touched later: read again, and the one row takes the new dates and size.
  shop.Touch("ITpv0001.txt", "2026-03-12 09:30:00");
  ExpectQuietSuccess(shop.Import("2026-03-14 12:00:00"));
  EXPECT_EQ(name(), "Segundo");
  const std::string second_row = row(1, "2026-03-14 12:00:00", "2026-03-12 09:30:00");
  EXPECT_EQ(shop.LogRows(), second_row);

  // Unchanged date for workstation 1, but workstation 2 has never taken it.
  write("Terceiro", "2026-03-12 09:30:00");
  ExpectQuietSuccess(shop.Import("2026-03-14 12:30:00"));
  EXPECT_EQ(name(), "Segundo");
  ExpectQuietSuccess(shop.Import("2026-03-14 12:45:00", "2"));
  EXPECT_EQ(name(), "Terceiro");
  EXPECT_EQ(shop.LogRows(),
            second_row + "," + row(2, "2026-03-14 12:45:00", "2026-03-12 09:30:00"));
}

// Files are read in the order the folder lists them, without regard to
// case, and the number of the one taken last is stored.
TEST(ProgramImportDriver, LastImportNumberIsTheNumberOfTheFileTakenLast) {
  struct Case {
    const char* stored;
    std::vector<std::string> files;  // in the order the folder lists them
    const char* expected;
  } cases[] = {
      // " 11" sorts before "10"; the blank is passed over in the number.
      {"9", {"ITpv 11.txt", "ITpv10.txt"}, "10"}, {"0", {"ITpv 7.txt", "ITpv5.txt"}, "5"},
      {"6", {"ITpv 7.txt", "ITpv5.txt"}, "6"},    {"3", {"ITpv0007.txt", "ITpvX.txt"}, "3"},
      {"0", {"ITpva.txt", "ITpvB.txt"}, "0"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.files[0] + " then " + c.files[1] + ", stored " + c.stored);
    ImportShop shop(Settings{{"LastImportNumber", c.stored}});
    // Each file names salesman V1 after itself: the later file's name stays.
    // They are written last first, so that the order made is not the order read.
    for (int i = 1; i >= 0; --i) shop.Write(c.files[i], Lines({kHeader, Vn("V1", c.files[i])}));
    ExpectQuietSuccess(shop.Import());
    EXPECT_EQ(shop.Query("SELECT SalesmanName FROM Salesman"), c.files[1]);
    EXPECT_EQ(shop.Query("SELECT count(*) FROM LumaroLog"), "2");
    EXPECT_EQ(shop.LastImportNumber(), c.expected);
  }
}

// A missing folder is a stop a scheduler must see (exit 3, one box); with no
// active point the import does nothing at all.
TEST(ProgramImportDriver, AMissingFolderIsOneMessageAndNoActivePointIsSilence) {
  const std::string box = "A pasta de importação/exportação não existe.";
  struct Case {
    const char* active;
    bool folder;
    bool stopped;
  } cases[] = {
      {"1", false, true},
      {"0", false, false},
      {"0", true, false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string("active ") + c.active + (c.folder ? ", folder" : ", no folder"));
    ImportShop shop(Settings{{"Active", c.active}, {"LastImportNumber", "4"}}, c.folder);
    if (c.folder) shop.Write("ITpv0005.txt", Lines({kHeader, Vn("V1", "Ana")}));
    auto run = shop.Reported({"--quiet", "import", "--report", "run/run.json"});
    shop.ExpectHead(run, {"import"}, c.stopped ? 3 : 0, c.stopped ? "stopped" : "completed");
    EXPECT_EQ(run.result.err, c.stopped
                                  ? box + "\nlumaro: stopped: the exchange folder " +
                                        shop.Exchange() + " does not exist; no file was imported\n"
                                  : "");
    EXPECT_EQ(run.result.out, "");
    EXPECT_EQ(run.report["stops"].size(), c.stopped ? 1u : 0u) << run.report["stops"];
    EXPECT_EQ(run.report["boxes"],
              c.stopped ? json::array({json{{"text", box}, {"style", 64}}}) : json::array());
    EXPECT_EQ(run.report["import_files"], json::array());
    EXPECT_EQ(shop.Salesmen(), "");
    EXPECT_EQ(shop.LoggedFiles(), "");
    EXPECT_EQ(shop.LastImportNumber(), "4");
  }
}

TEST(ProgramImportDriver, ARefusedRecordGoesToTheErrorFileAndTheFileIsStillTaken) {
  ImportShop shop;
  // 101 characters do not fit the name's 100, nor 21 the key's 20; exactly
  // 100 characters fit, though "ç" and "ã" take two bytes each in UTF-8.
  const std::string too_long_name = "Concei\xE7\xE3o " + std::string(91, 'x');
  const std::string full_name = "Concei\xE7\xE3o " + std::string(90, 'y');
  const std::string refused_name = Vn("V1", too_long_name);
  const std::string refused_key = Vn(std::string(21, 'K'), "Chave longa");
  shop.Write("ITpv0001.txt",
             Lines({kHeader, refused_name, "XX^linha^desconhecida", Vn("V2", "Bruno"), refused_key,
                    Vn("V3", full_name)}),
             "2026-03-10 08:00:00");

  const std::string closing = "A importação foi efectuada com erros.\r\nConsulte ficheiro log\n";
  auto first = shop.Reported({"--report", "first/run.json", "import"});
  shop.ExpectHead(first, {"import"}, 0, "completed");
  EXPECT_EQ(first.result.err, closing);
  json& r = first.report;
  EXPECT_EQ(r["boxes"],
            json::array({json{{"text", closing.substr(0, closing.size() - 1)}, {"style", 64}}}));
  ASSERT_EQ(r["import_files"].size(), 1u) << r["import_files"];
  json& file = r["import_files"][0];
  EXPECT_EQ(file["name"], "ITpv0001.txt");
  EXPECT_EQ(file["outcome"], "imported");
  EXPECT_EQ(file["reason"], nullptr);
  EXPECT_EQ(file["records"], json({{"VN", Counts(2, 0, 2)}}));
  ASSERT_EQ(file["refused"].size(), 2u) << file["refused"];
  for (int i = 0; i < 2; ++i) {
    json& refused = file["refused"][i];
    EXPECT_EQ(refused["tag"], "VN");
    EXPECT_EQ(refused["line"], 2 + 3 * i);
    std::string why = refused["reason"].is_string() ? refused["reason"].get<std::string>() : "";
    EXPECT_NE(why, "");
    EXPECT_NE(first.result.out.find("    line " + std::to_string(2 + 3 * i) + ": " + why + "\n"),
              std::string::npos)
        << first.result.out;
  }
  EXPECT_EQ(shop.Salesmen(), "V2,V3");
  EXPECT_EQ(shop.Query("SELECT length(SalesmanName) FROM Salesman WHERE SalesmanKey = 'V3'"),
            "100");
  EXPECT_EQ(shop.LoggedFiles(), "ITpv0001.txt");
  EXPECT_EQ(shop.LastImportNumber(), "1");

  // Read again later: the entries of the second run follow those of the first.
  shop.Touch("ITpv0001.txt", "2026-03-12 09:30:00");
  auto second = shop.Import("2026-03-14 11:00:00");
  EXPECT_EQ(second.exit_code, 0) << second.err;
  EXPECT_EQ(second.err, closing);

  auto entries = shop.ErrorEntries("ITpv0001.txt");
  ASSERT_EQ(entries.size(), 4u);
  const char* dates[] = {"14-03-2026 10:00:00", "14-03-2026 11:00:00"};
  for (int entry = 0; entry < 4; ++entry) {
    EXPECT_EQ(entries[entry].date, dates[entry / 2]) << entry;
    EXPECT_EQ(entries[entry].line, entry % 2 == 0 ? refused_name : refused_key) << entry;
  }
}

TEST(ProgramImportDriver, FiltersOfTheSettingsChooseWhatIsImported) {
  const std::string file =
      Lines({kHeader, Vn("V1", "Ana"), Vn("V2", "Bruno"), Vn("V10", "Carla"), Vn("", "Duarte"),
             Cl("101", "Z1", "G1", "V1"), Cl("102", "Z2", "G2", "V2"), Cl("103"),
             Cl("104", "Z3", "G1", "V10"), Fa("F1", "F1", ""), Fa("F1A", "F1", "F1A"),
             Fa("F1B", "F1", "F1B"), Ar("A1", "F1", "F1A"), Ar("A2", "F1", "F1B"), Ar("A3"),
             Ap("A1", "PV1", "10"), Ap("A1", "PV2", "20")});
  const char *vn = "Ana,Bruno,Carla,Duarte", *cl = "101,102,103,104", *fa = "F1,F1A,F1B",
             *ar = "A1,A2,A3", *ap = "1,2";
  auto family = [](const char* level) {
    return Settings{{"InitializeFamily", "F1A"}, {"InitializeFamilyLevel", level}};
  };
  struct Case {
    Settings settings;
    const char *salesmen, *customers, *families, *items, *price_lines;
  } cases[] = {
      {{}, vn, cl, fa, ar, ap},
      // An empty code passes; "V10" is not "V1". Customers go by salesman too.
      {{{"InitializeSalesman", "V1;V2"}}, "Ana,Bruno,Duarte", "101,102,103", fa, ar, ap},
      {{{"InitializeCustomerGroup", "G1"}}, vn, "101,103,104", fa, ar, ap},
      {{{"InitializeZone", "Z2;Z3"}}, vn, "102,103,104", fa, ar, ap},
      // Level 2 reads the second code of a family and of an item; level 1 the
      // first; level 5 has no code, so nothing is held back.
      {family("2"), vn, cl, "F1,F1A", "A1,A3", ap},
      {family("1"), vn, cl, "", "A3", ""},
      {family("5"), vn, cl, fa, ar, ap},
      {{{"InitializePriceLine", "PV2"}}, vn, cl, fa, ar, "2"},
  };
  for (const Case& c : cases) {
    std::string trace;
    for (const auto& [name, value] : c.settings) trace += name + "=" + value + " ";
    SCOPED_TRACE(trace);
    ImportShop shop(c.settings);
    shop.Seed(
        "UPDATE PriceLine SET PriceLineKey = 'PV1' WHERE PriceLineID = 1;"
        "INSERT INTO PriceLine (PriceLineID, PriceLineKey, Description) VALUES (2, 'PV2', 'R');");
    shop.Write("ITpv0001.txt", file);
    ExpectQuietSuccess(shop.Import());
    EXPECT_EQ(shop.Query("SELECT SalesmanName FROM Salesman ORDER BY 1"), c.salesmen);
    EXPECT_EQ(shop.Query("SELECT CustomerID FROM Customer ORDER BY 1"), c.customers);
    EXPECT_EQ(shop.Query("SELECT FamilyKey FROM Family ORDER BY 1"), c.families);
    EXPECT_EQ(shop.Query("SELECT ItemID FROM Item ORDER BY 1"), c.items);
    EXPECT_EQ(shop.Query("SELECT PriceLineID FROM ItemSellingPrices WHERE ItemID = 'A1' AND "
                         "PriceWithoutTax <> 0 ORDER BY 1"),
              c.price_lines);
  }
}

TEST(ProgramImportDriver, ItemValidityAgainstToday) {
  struct Case {
    const char *key, *tip_val, *from, *to;
    bool imported;
  } cases[] = {
      {"P01", "0", "01-01-2030", "01-01-2030", true},
      {"P02", "1", "14-03-2026", "01-01-2020", true},
      {"P03", "1", "15-03-2026", "31-12-2030", false},
      {"P04", "2", "14-03-2026", "14-03-2026", true},  // today, whatever the hour
      {"P05", "2", "01-03-2026", "13-03-2026", false},
      {"P06", "2", "15-03-2026", "31-03-2026", false},
      {"P07", "3", "01-01-2020", "31-12-2030", false},
      {"P08", "4", "15-03-2026", "15-03-2026", true},
      {"P09", "4", "14-03-2026", "31-03-2026", false},
      {"P10", "5", "01-03-2026", "13-03-2026", true},
      {"P11", "5", "14-03-2026", "31-03-2026", false},
      {"P12", "5", "15-03-2026", "31-03-2026", true},
      {"P13", "9", "01-01-2030", "01-01-2030", true},
  };
  std::string file = Lines({kHeader}), expected;
  for (const Case& c : cases) {
    file += Lines({Ar(c.key, "", "", c.tip_val, c.from, c.to)});
    if (c.imported) expected += std::string(expected.empty() ? "" : ",") + c.key;
  }
  ImportShop shop;
  shop.Write("ITpv0001.txt", file);
  ExpectQuietSuccess(shop.Import());
  EXPECT_EQ(shop.Query("SELECT ItemID FROM Item ORDER BY ItemID"), expected);
}

TEST(ProgramImportDriver, AFailingFileIsRolledBackAndStopsTheRun) {
  struct Case {
    const char* what;
    std::string bad_line, header;  // the bad line follows a salesman and a customer
    const char* err;
  } cases[] = {
      {"record too short", Join(Fields(12, {"VN", "V9", "Curto"})), kHeader,
       "error 9 in <ImportData>: Subscript out of range\n"},
      {"number not numeric", Cl("C77"), kHeader, "error 13 in <ImportData>: Type mismatch\n"},
      {"discount not numeric", Cl("302", "", "", "", "dez"), kHeader,
       "error 13 in <ImportData>: Type mismatch\n"},
      {"bad truth value", Cl("302", "", "", "", "0", "talvez"), kHeader,
       "error 13 in <ImportData>: Type mismatch\n"},
      {"year not numeric", "", "HF^4^1^EMP01^20X6", "error 13 in <ImportData>: Type mismatch\n"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    ImportShop shop;
    shop.Write("ITpv0001.txt", Lines({kHeader, Vn("V1", "Ana"), Cl("201")}));
    shop.Write("ITpv0002.txt", Lines({c.header, Vn("V2", "Bruno"), Cl("301"), c.bad_line}));
    shop.Write("ITpv0003.txt", Lines({kHeader, Vn("V3", "Carla"), Cl("401")}));

    auto failed = shop.Reported({"--quiet", "import", "--report", "failed/run.json"});
    shop.ExpectHead(failed, {"import"}, 1, "failed");
    EXPECT_EQ(failed.result.err, c.err);
    EXPECT_EQ(shop.Salesmen(), "V1");
    EXPECT_EQ(shop.Query("SELECT CustomerID FROM Customer ORDER BY CustomerID"), "201");
    EXPECT_EQ(shop.LoggedFiles(), "ITpv0001.txt");
    // The run ended before the number is stored, the first file's too.
    EXPECT_EQ(shop.LastImportNumber(), "0");
    EXPECT_FALSE(FileExists(shop.InExchange("Erros de importação de ITpv0002.txt")));
    // The report tells the error and the files the run met: the first
    // imported, the bad one, when a record of it failed, rolled back.
    const std::string error = testsupport::LastLine(c.err);
    EXPECT_EQ(failed.report["error"], error);
    json& files = failed.report["import_files"];
    EXPECT_EQ(files[0]["name"], "ITpv0001.txt");
    EXPECT_EQ(files[0]["outcome"], "imported");
    EXPECT_EQ(files[0]["records"], (json{{"VN", Counts(1, 0, 0)}, {"CL", Counts(1, 0, 0)}}));
    if (!c.bad_line.empty()) {
      EXPECT_EQ(files.size(), 2u) << files;
      EXPECT_EQ(files[1]["name"], "ITpv0002.txt");
      EXPECT_EQ(files[1]["outcome"], "rolled_back");
      EXPECT_EQ(files[1]["reason"], error);
    }

    // With the bad file gone, the next run takes the files after it.
    std::remove(shop.InExchange("ITpv0002.txt").c_str());
    ExpectQuietSuccess(shop.Import("2026-03-14 11:00:00"));
    EXPECT_EQ(shop.Salesmen(), "V1,V3");
    EXPECT_EQ(shop.Query("SELECT CustomerID FROM Customer ORDER BY CustomerID"), "201,401");
    EXPECT_EQ(shop.LoggedFiles(), "ITpv0001.txt,ITpv0003.txt");
    EXPECT_EQ(shop.LastImportNumber(), "3");
  }
}

TEST(ProgramImportDriver, BinaryBytesAndAVeryLongLineDoNotStopTheRun) {
  // Pseudo-random bytes, NUL first, without CR or LF: one long line.
  std::mt19937 random(20260314);
  std::string junk(1, '\0');
  while (junk.size() < 64 * 1024) {
    char byte = static_cast<char>(random() & 0xFF);
    if (byte != '\n' && byte != '\r') junk += byte;
  }
  ImportShop shop;
  shop.Write("ITpv0001.txt", Lines({junk, kHeader, Vn("V1", "Ana")}));
  shop.Write("ITpv0002.txt", Lines({kHeader, junk, Vn("V2", "Bruno")}));
  shop.Write("ITpv0003.txt", Lines({kHeader, Vn("V3", "Carla", std::string(10'000'000, 'x'))}));
  shop.Write("ITpv0004.txt", Lines({"", kHeader, Vn("V4", "Duarte")}));

  ExpectQuietSuccess(shop.Import());
  // A first line that is not a header, binary or blank, is passed over
  // without a trace; binary lines after the header are lines of no tag.
  EXPECT_EQ(shop.Salesmen(), "V2,V3");
  EXPECT_EQ(shop.LoggedFiles(), "ITpv0002.txt,ITpv0003.txt");
  EXPECT_EQ(shop.Query("SELECT length(Comments) FROM Salesman WHERE SalesmanKey = 'V3'"),
            "10000000");
  EXPECT_EQ(shop.Query("SELECT FileSize FROM LumaroLog WHERE Filename = 'ITpv0003.txt'"),
            std::to_string(shop.Size("ITpv0003.txt")));
  EXPECT_EQ(shop.LastImportNumber(), "3");
}

}  // namespace
