// `lumaro verify` on a POS database: what it cannot read is named, the walk
// goes on, and the exit code says that a person must look.

#include <gtest/gtest.h>

#include "standalone/sqlite/SqliteDatabase.h"
#include "tests/app/ProgramRunner.h"
#include "tests/support/TestHost.h"

namespace {

TEST(ProgramVerify, ADamagedPosDatabaseIsListedInOnePassWithExitThree) {
  testsupport::TempFolder folder;
  ASSERT_EQ(testsupport::RunLumaro(folder.Path(), {"init"}).exit_code, 0);
  EXPECT_EQ(testsupport::RunLumaro(folder.Path(), {"verify"}).exit_code, 0);

  standalone::SqliteDatabase::Open(folder.File("vendara.db"),
                                   standalone::SqliteDatabase::OpenMode::kExisting)
      ->ExecuteScript("ALTER TABLE Zone DROP COLUMN TaxRegionID; DROP TABLE TempStock");
  auto verify = testsupport::RunLumaro(folder.Path(), {"verify"});
  EXPECT_EQ(verify.exit_code, 3);
  EXPECT_NE(verify.err.find("A tabela TempStock não existe na base de dados."), std::string::npos)
      << verify.err;
  EXPECT_NE(verify.err.find("Tabela Zone: não foi possível ler a coluna TaxRegionID."),
            std::string::npos)
      << verify.err;
  EXPECT_NE(verify.err.find("lumaro: stopped: 2 tables or columns"), std::string::npos)
      << verify.err;

  // A repair asks first; unanswered, it does nothing and says it did not run.
  EXPECT_EQ(testsupport::RunLumaro(folder.Path(), {"verify", "indexes"}).exit_code, 1);
  EXPECT_EQ(testsupport::RunLumaro(folder.Path(), {"--yes", "verify", "indexes"}).exit_code, 0);
}

}  // namespace
