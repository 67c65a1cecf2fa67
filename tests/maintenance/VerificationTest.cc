// The verifications of the POS database: the check that reads a row of every
// table, and the repairs of the maintenance worker after the question.

#include <gtest/gtest.h>

#include "connector/ModConnectorLumaro.h"
#include "maintenance/UIRecovery.h"
#include "tests/support/TestHost.h"

namespace {

using lumaro::ModConnectorLumaro;
using lumaro::UIRecovery;

class Verification : public testing::Test {
 protected:
  Verification() { ModConnectorLumaro::AttachHost(&pos_.Host()); }
  ~Verification() override { ModConnectorLumaro::DetachHost(&pos_.Host()); }

  // The texts of the boxes shown, one a line.
  std::string Boxes() {
    std::string texts;
    for (const auto& box : pos_.UI().boxes) texts += box.text + "\n";
    return texts;
  }

  testsupport::TestHost pos_;
};

TEST_F(Verification, TheCheckNamesEachMissingTableAndColumnAndGoesOn) {
  UIRecovery().DBCheckIntegrity(false);
  EXPECT_EQ(Boxes(), "");  // a fresh POS database, empty tables and all

  // A table dropped, and a column of a table before it and of one after.
  pos_.Exec(
      "DROP TABLE TempStock; ALTER TABLE Zone DROP COLUMN TaxRegionID;"
      "ALTER TABLE Carrier DROP COLUMN CurrentKm");
  pos_.UI().boxes.clear();
  UIRecovery().DBCheckIntegrity(false);
  EXPECT_EQ(Boxes(),
            "Tabela Carrier: não foi possível ler a coluna CurrentKm.\n"
            "A tabela TempStock não existe na base de dados.\n"
            "Tabela Zone: não foi possível ler a coluna TaxRegionID.\n");
  for (const auto& box : pos_.UI().boxes) EXPECT_EQ(box.style, host::msgbox::kOkOnly);
}

TEST_F(Verification, NullsTakeTheirDefaultOnlyWhenTheQuestionIsAnsweredYes) {
  // A table of the POS whose column lost NOT NULL, with a NULL in it.
  pos_.Exec(
      "DROP TABLE LoadUnloadPlace; CREATE TABLE LoadUnloadPlace (LoadUnloadPlaceID INTEGER "
      "PRIMARY KEY, Description VARCHAR(100) DEFAULT 'Sem nome');"
      "INSERT INTO LoadUnloadPlace VALUES (1, NULL), (2, 'Cais')");
  const std::string kPlaces =
      "SELECT LoadUnloadPlaceID || ':' || IFNULL(Description, 'NULL') FROM LoadUnloadPlace";
  pos_.UI().answer = host::msgbox::kNo;
  UIRecovery().DBVerifyNulls();
  EXPECT_EQ(pos_.Rows(kPlaces), "1:NULL,2:Cais");
  ASSERT_EQ(pos_.UI().boxes.size(), 1u);  // the question alone

  pos_.UI().answer = host::msgbox::kYes;
  UIRecovery().DBVerifyNulls();
  EXPECT_EQ(pos_.Rows(kPlaces), "1:Sem nome,2:Cais");
  // The question, then the end.
  ASSERT_EQ(pos_.UI().boxes.size(), 3u);
  EXPECT_EQ(pos_.UI().boxes[2].text, "Verificação de valores nulos");
}

TEST_F(Verification, ARelationFoundBrokenIsShownWithItsNumber) {
  pos_.Exec(
      "CREATE TABLE Parent (ID INTEGER PRIMARY KEY);"
      "CREATE TABLE Child (ID INTEGER, ParentID INTEGER REFERENCES Parent(ID));"
      "INSERT INTO Child VALUES (1, 7)");
  UIRecovery().DBVerifyRelations(false);
  ASSERT_EQ(pos_.UI().boxes.size(), 2u);
  EXPECT_EQ(pos_.UI().boxes[1].style, host::msgbox::kCritical);
  EXPECT_NE(pos_.UI().boxes[1].text.find("1 rows without their parent found; the first: a row "
                                         "of Child refers to a missing Parent"),
            std::string::npos)
      << pos_.UI().boxes[1].text;
}

}  // namespace
