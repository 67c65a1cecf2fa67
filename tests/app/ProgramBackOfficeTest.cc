// The back office's database as the settings describe it, and its password,
// through the lumaro program: `backoffice test` against a file back office
// ("sqlite:FOLDER") and one that cannot be reached, and `settings password`.

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <regex>

#include "connector/host/Error.h"
#include "standalone/SodiumSecurity.h"
#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/app/ProgramRunner.h"
#include "tests/support/TestHost.h"

namespace {

using testsupport::ReadBytes;
using testsupport::RunLumaro;
using testsupport::TempFolder;

const std::string kExampleSettings = std::string(LUMARO_SOURCE_DIR) + "/examples/settings.xml";
const std::string kReached = "A ligação ao SQL Server do Lumaro foi efectuada com sucesso.\n";
const std::string kNotReached =
    "Não foi possível estabelecer a ligação ao SQL Server do Lumaro. Verifique a configuração da "
    "conexão.\n";

// The example settings (company EMP01, year 2026) with another attribute.
std::string SettingsWith(const std::string& attribute, const std::string& value) {
  std::string xml = ReadBytes(kExampleSettings);
  return std::regex_replace(xml, std::regex(attribute + "=\"[^\"]*\""),
                            attribute + "=\"" + value + "\"");
}

testsupport::ProgramResult LoadSettings(const TempFolder& folder, const std::string& xml) {
  std::ofstream(folder.File("settings.xml")) << xml;
  return RunLumaro(folder.Path(), {"settings", "load", "settings.xml"});
}

TEST(ProgramBackOffice, AFileBackOfficeIsReachedByItsNamingAndNeverWritten) {
  TempFolder folder;
  ASSERT_EQ(::mkdir(folder.File("bo").c_str(), 0755), 0);
  const std::string file = folder.File("bo/EMP012026Lumaro.db");
  standalone::SqliteDatabase::Open(file, standalone::SqliteDatabase::OpenMode::kCreateIfMissing)
      ->ExecuteScript("CREATE TABLE Moeda (CMoe TEXT);");
  const std::string before = ReadBytes(file);

  ASSERT_EQ(LoadSettings(folder, SettingsWith("SQLDataSource", "sqlite:bo")).exit_code, 0);
  auto reached = RunLumaro(folder.Path(), {"backoffice", "test"});
  EXPECT_EQ(reached.exit_code, 0) << reached.err;
  EXPECT_EQ(reached.err, kReached);
  EXPECT_EQ(ReadBytes(file), before);

  // Another year names another file, which is not made by looking for it.
  std::string other_year = SettingsWith("SQLDataSource", "sqlite:bo");
  other_year = std::regex_replace(other_year, std::regex("SQLCompanyYear=\"2026\""),
                                  "SQLCompanyYear=\"2025\"");
  ASSERT_EQ(LoadSettings(folder, other_year).exit_code, 0);
  auto missing = RunLumaro(folder.Path(), {"backoffice", "test"});
  EXPECT_EQ(missing.exit_code, 1);
  EXPECT_EQ(missing.err, kNotReached);
  EXPECT_FALSE(testsupport::FileExists(folder.File("bo/EMP012025Lumaro.db")));

  // The back office is only read.
  auto back_office =
      standalone::SqliteDatabase::Open(file, standalone::SqliteDatabase::OpenMode::kReadOnly);
  EXPECT_THROW(back_office->OpenRecordset("INSERT INTO Moeda (CMoe) VALUES ('EUR')"), host::Error);
  back_office.reset();
  EXPECT_EQ(ReadBytes(file), before);
}

// "odbc:" passes its connection string to ODBC as it stands; here the SQLite
// ODBC driver stands in for a server's.
TEST(ProgramBackOffice, AnOdbcConnectionStringIsTakenAsItStands) {
  TempFolder folder;
  standalone::SqliteDatabase::Open(folder.File("bo.db"),
                                   standalone::SqliteDatabase::OpenMode::kCreateIfMissing)
      ->ExecuteScript("CREATE TABLE Moeda (CMoe TEXT);");
  ASSERT_EQ(LoadSettings(folder, SettingsWith("SQLDataSource", "odbc:DRIVER=SQLite3;Database=" +
                                                                   folder.File("bo.db")))
                .exit_code,
            0);
  auto reached = RunLumaro(folder.Path(), {"backoffice", "test"});
  EXPECT_EQ(reached.exit_code, 0) << reached.err;
  EXPECT_EQ(reached.err, kReached);

  ASSERT_EQ(
      LoadSettings(folder, SettingsWith("SQLDataSource", "odbc:DRIVER=NoSuchDriver;")).exit_code,
      0);
  auto not_reached = RunLumaro(folder.Path(), {"backoffice", "test"});
  EXPECT_EQ(not_reached.exit_code, 1);
  EXPECT_EQ(not_reached.err, kNotReached);
}

TEST(ProgramBackOffice, ThePasswordIsStoredEncryptedAndAClearOneIsNamedNotTaken) {
  TempFolder folder;
  ASSERT_EQ(LoadSettings(folder, ReadBytes(kExampleSettings)).exit_code, 0);
  auto typed = testsupport::RunProgram(
      folder.Path(),
      {"/bin/sh", "-c",
       "printf 's3cret\\r\\n' | '" + std::string(LUMARO_BIN_DIR) + "/lumaro' settings password"});
  ASSERT_EQ(typed.exit_code, 0) << typed.err;

  auto shown = RunLumaro(folder.Path(), {"settings", "show"});
  std::smatch stored;
  ASSERT_TRUE(std::regex_search(shown.out, stored, std::regex("SQLPassword=\"([^\"]+)\"")))
      << shown.out;
  EXPECT_EQ(standalone::SodiumCrypto(folder.Path()).Decrypt(stored[1].str()), "s3cret");

  // A document with a password in clear is stored, and the password is
  // named as not taken.
  auto clear = LoadSettings(folder, SettingsWith("SQLPassword", "plain"));
  EXPECT_EQ(clear.exit_code, 0);
  EXPECT_NE(clear.err.find("SQLPassword of 'settings.xml' is not one this installation "
                           "encrypted, so it was not taken"),
            std::string::npos)
      << clear.err;
  EXPECT_NE(clear.err.find("lumaro settings password"), std::string::npos);

  // Reloading the stored document itself, whose password this installation
  // encrypted, says nothing.
  std::ofstream(folder.File("again.xml")) << SettingsWith("SQLPassword", stored[1].str());
  auto again = RunLumaro(folder.Path(), {"settings", "load", "again.xml"});
  EXPECT_EQ(again.exit_code, 0);
  EXPECT_EQ(again.err, "");

  TempFolder bare;
  auto nothing_stored = RunLumaro(bare.Path(), {"settings", "password"});
  EXPECT_EQ(nothing_stored.exit_code, 1);
}

}  // namespace
