// The lumaro program end to end: the connector's questions, its settings,
// the host context, and what bad input gets.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/app/ProgramRunner.h"
#include "tests/support/TestHost.h"

namespace {

using testsupport::ReadBytes;
using testsupport::RunLumaro;
using testsupport::TempFolder;

const std::string kExampleSettings = std::string(LUMARO_SOURCE_DIR) + "/examples/settings.xml";

void WriteFile(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
}

// One line, no more: what a person reads when something is wrong.
void ExpectOneLineError(const testsupport::ProgramResult& result, const std::string& part) {
  EXPECT_EQ(result.exit_code, 1) << result.err;
  EXPECT_NE(result.err.find(part), std::string::npos) << result.err;
  EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
}

TEST(ProgramShell, InfoPrintsExactlyTheFourAnswers) {
  TempFolder folder;
  auto result = RunLumaro(folder.Path(), {"info"});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(result.out,
            "ConnectorID: Orbiva.Vendara.Connector.Lumaro\n"
            "Description: Integrador Orbiva Lumaro\n"
            "Version: 2.00.01\n"
            "FunctionalLevel: SQL10\n");
}

TEST(ProgramShell, SettingsLoadShowValidateDelete) {
  TempFolder folder;
  ASSERT_EQ(RunLumaro(folder.Path(), {"settings", "load", kExampleSettings}).exit_code, 0);

  auto shown = RunLumaro(folder.Path(), {"settings", "show"});
  ASSERT_EQ(shown.exit_code, 0) << shown.err;
  // The attributes in the order of the document's table.
  const char* order[] = {"LumaroDelegationID",
                         "ImportExportPath",
                         "LastImportNumber",
                         "TillID",
                         "SQLDataSource",
                         "SQLCompanyID",
                         "SQLCompanyYear",
                         "SQLAuthentication",
                         "SQLUserName",
                         "SQLPassword",
                         "InitializeAppUser",
                         "InitializeCustomerGroup",
                         "InitializeZone",
                         "InitializeSalesman",
                         "InitializeFamily",
                         "InitializeFamilyLevel",
                         "InitializePriceLine",
                         "InitializeDocument",
                         "<Workstations",
                         "LumaroWorkstationID=\"02\"",
                         "TransSerial=\"A\"",
                         "WorkstationList=\"1,2\"",
                         "LastExportNumber=\"0\"",
                         "Active=\"1\""};
  size_t at = 0;
  for (const char* name : order) {
    size_t next = shown.out.find(name, at);
    ASSERT_NE(next, std::string::npos) << name << " missing or out of order in\n" << shown.out;
    at = next;
  }
  EXPECT_NE(shown.out.find("SQLCompanyID=\"EMP01\""), std::string::npos);
  // The password is stored encrypted, never as typed.
  EXPECT_EQ(shown.out.find("SQLPassword=\"\""), std::string::npos) << shown.out;
  struct stat key;
  ASSERT_EQ(::stat(folder.File("lumaro-secret.key").c_str(), &key), 0);
  EXPECT_EQ(key.st_mode & 0777, 0600u);

  auto valid = RunLumaro(folder.Path(), {"settings", "validate"});
  EXPECT_EQ(valid.exit_code, 0) << valid.out << valid.err;

  EXPECT_EQ(RunLumaro(folder.Path(), {"settings", "delete"}).exit_code, 0);
  EXPECT_EQ(RunLumaro(folder.Path(), {"settings", "validate"}).exit_code, 1);
  EXPECT_EQ(RunLumaro(folder.Path(), {"settings", "show"}).exit_code, 1);
}

TEST(ProgramShell, TextThatIsNotXmlStoresTheEmptySetting) {
  TempFolder folder;
  WriteFile(folder.File("notes.txt"), "this is not XML");
  auto loaded = RunLumaro(folder.Path(), {"settings", "load", "notes.txt"});
  EXPECT_EQ(loaded.exit_code, 0) << loaded.err;
  auto shown = RunLumaro(folder.Path(), {"settings", "show"});
  ASSERT_EQ(shown.exit_code, 0);
  EXPECT_NE(shown.out.find("ImportExportPath=\"\""), std::string::npos) << shown.out;
  EXPECT_NE(shown.out.find("<Workstations />"), std::string::npos) << shown.out;
  EXPECT_EQ(RunLumaro(folder.Path(), {"settings", "validate"}).exit_code, 1);
}

TEST(ProgramShell, HostContextSetAndShow) {
  TempFolder folder;
  ASSERT_EQ(RunLumaro(folder.Path(), {"host", "set", "CompanyNumber", "77"}).exit_code, 0);
  ASSERT_EQ(RunLumaro(folder.Path(), {"host", "set", "TerminalCount", "4"}).exit_code, 0);
  auto shown = RunLumaro(folder.Path(), {"host", "show"});
  EXPECT_NE(shown.out.find("CompanyNumber: 77\n"), std::string::npos) << shown.out;
  EXPECT_NE(shown.out.find("TerminalCount: 4\n"), std::string::npos) << shown.out;
  EXPECT_NE(shown.out.find("WorkFolder: " + folder.Path() + "\n"), std::string::npos);
  EXPECT_NE(shown.out.find("DecimalSeparator: ,\n"), std::string::npos);
}

TEST(ProgramShell, BadInputGetsOneLineAndChangesNothing) {
  TempFolder folder;
  ASSERT_EQ(RunLumaro(folder.Path(), {"init"}).exit_code, 0);
  std::string before = ReadBytes(folder.File("vendara.db"));

  // A --db file that is not a SQLite database stays as it was.
  WriteFile(folder.File("notes.db"), "plain text, not a database\n");
  ExpectOneLineError(RunLumaro(folder.Path(), {"--db", "notes.db", "info"}),
                     "not a SQLite database");
  EXPECT_EQ(ReadBytes(folder.File("notes.db")), "plain text, not a database\n");

  // A SQLite database that is not a POS database stays as it was too.
  {
    auto other = standalone::SqliteDatabase::Open(
        folder.File("other.db"), standalone::SqliteDatabase::OpenMode::kCreateIfMissing);
    other->ExecuteScript("CREATE TABLE Notes (Line TEXT); INSERT INTO Notes VALUES ('x')");
  }
  std::string other_before = ReadBytes(folder.File("other.db"));
  ExpectOneLineError(RunLumaro(folder.Path(), {"--db", "other.db", "info"}), "not a POS database");
  EXPECT_EQ(ReadBytes(folder.File("other.db")), other_before);

  // A plug-in that does not exist.
  ExpectOneLineError(RunLumaro(folder.Path(), {"--plugin", "/no/such/plugin.so", "info"}),
                     "cannot load the plug-in");

  // A host key the host does not know, and a value a key cannot take.
  ExpectOneLineError(RunLumaro(folder.Path(), {"host", "set", "NoSuchKey", "1"}),
                     "Unknown host key 'NoSuchKey'");
  ExpectOneLineError(RunLumaro(folder.Path(), {"host", "set", "TerminalCount", "many"}),
                     "TerminalCount");
  EXPECT_EQ(ReadBytes(folder.File("vendara.db")), before);

  // A usage error is exit code 2.
  EXPECT_EQ(RunLumaro(folder.Path(), {"reexport", "2026-13-01", "2026-11-30"}).exit_code, 2);
  // A range that holds no moment: the same day twice.
  EXPECT_EQ(RunLumaro(folder.Path(), {"reexport", "2026-11-20", "2026-11-20"}).exit_code, 2);
  EXPECT_EQ(RunLumaro(folder.Path(), {"no-such-command"}).exit_code, 2);
}

TEST(ProgramShell, FolderWithoutWritePermissionLeavesNothingBehind) {
  TempFolder folder;
  std::string locked = folder.File("locked");
  ASSERT_EQ(::mkdir(locked.c_str(), 0555), 0);
  // Root ignores permissions: the program then runs as the user nobody, who
  // needs to pass through the temporary folder to reach the locked one.
  bool as_nobody = ::geteuid() == 0;
  if (as_nobody) {
    if (::access("/usr/bin/setpriv", X_OK) != 0) GTEST_SKIP() << "setpriv is not installed";
    ::chmod(folder.Path().c_str(), 0755);
    // A build in a folder that nobody may enter (root's home) cannot be run
    // as nobody at all.
    if (RunLumaro(folder.Path(), {"--help"}, true).exit_code != 0) {
      GTEST_SKIP() << "the user nobody cannot run " LUMARO_BIN_DIR "/lumaro";
    }
  }
  auto result = RunLumaro(locked, {"--db", locked + "/vendara.db", "init"}, as_nobody);
  ExpectOneLineError(result, "Cannot open the POS database");
  EXPECT_FALSE(testsupport::FileExists(locked + "/vendara.db"));
}

}  // namespace
