// The host's document types saved whole: the Documents row and every row
// that hangs on it, replaced together or not at all.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "connector/host/DocumentService.h"
#include "connector/host/Error.h"
#include "tests/host/HostTestTools.h"
#include "tests/support/TestHost.h"

namespace standalone {
namespace {

using host::RaisedNumber;

// A second workstation and a second user group beside the factory's.
class Documents : public ::testing::Test {
 protected:
  void SetUp() override {
    host_.Exec(
        "INSERT INTO Workstation (WorkstationID, Description, TransSerial) VALUES (2, 'Posto 2', "
        "'B');"
        "INSERT INTO AppGroups (AppGroupID, AppGroupName) VALUES (4, 'Caixas');");
  }

  // An invoice in series A (at 7) and B (unused), with two fields.
  static host::TransDocument Invoice() {
    host::TransDocument document;
    document.TransDocumentID = "FT";
    document.TransDocumentKey = "FT1";
    document.TransDocType = 1;
    document.DocumentBehavior = 2001;
    document.Description = "Fatura";
    document.ShortDescription = "FT";
    document.DocumentOrder = 5;
    document.PriceField = "PVP1";
    document.Active = true;
    document.AllowsStock = true;
    document.UsesPayment = true;
    document.DocumentSign = "-";
    document.TenderMode = "F";
    document.PaymentOption = 2;
    document.PaymentFlag2 = true;
    document.AccountSign1 = "+";
    document.Series = {{"A", "", 7, true}, {"B", "", 0, false}};
    document.Fields = {{1, 0}, {5, 3}};
    document.DocumentDefaults = {"Fatura (posto)", 2001, 1, 2, 3};
    return document;
  }

  // Every row of the document outside Documents, table by table.
  std::string RowsOf(const std::string& id) {
    const std::string where = " WHERE TransDocumentID = '" + id + "' ORDER BY 1";
    return host_.Rows("SELECT LanguageID || ':' || Description FROM DocumentsName" + where) + "|" +
           host_.Rows(
               "SELECT TransSerial || TransDocNumber || ':' || SeriesActive FROM "
               "DocumentsSeriesNumber WHERE TransDocID = '" +
               id + "' ORDER BY 1") +
           "|" +
           host_.Rows(
               "SELECT WorkstationID || '.' || FieldID || ':' || FieldOption FROM "
               "ConfWorkstationDocFields" +
               where) +
           "|" +
           host_.Rows(
               "SELECT WorkstationID || ':' || Description || ':' || BehaviorClass || ':' "
               "|| Code1 || Code2 || Code3 FROM ConfWorkstationDocDefaults" +
               where) +
           "|" + host_.Rows("SELECT WorkstationID FROM ConfWorkstationDocument" + where) + "|" +
           host_.Rows("SELECT AppGroupID FROM AppDocumentsGroups" + where);
  }

  testsupport::TestHost host_;
  std::unique_ptr<host::DocumentService> documents_ = host_.Host().NewDocumentService();
};

TEST_F(Documents, ASavedDocumentHasItsRowsAndASecondSaveReplacesThem) {
  host::CurrentWorkstation& workstation = host_.Host().Context().CurrentWorkstation();
  EXPECT_EQ(workstation.Documents().Item("TVD").Description, "Venda a Dinheiro");
  EXPECT_FALSE(documents_->Exists("FT"));
  EXPECT_EQ(documents_->NextOrder(), 2) << "after the factory's TVD";
  documents_->Save(Invoice());
  EXPECT_TRUE(documents_->Exists("FT"));
  EXPECT_EQ(documents_->NextOrder(), 6);
  EXPECT_EQ(host_.Scalar("SELECT TransDocumentKey || ':' || TransDocType || ':' || "
                         "DocumentBehavior || ':' || Description || ':' || ShortDescription || "
                         "':' || DocumentOrder || ':' || PriceField || ':' || Active || "
                         "DocumentActive || AllowsStock || UsesPayment || UsesTender || "
                         "IssuesInvoice || ':' || DocumentSign || ':' || TenderMode || ':' || "
                         "PaymentOption || ':' || PaymentFlag1 || PaymentFlag2 || PaymentFlag3 || "
                         "':' || AccountSign1 || AccountSign2 || AccountSign3 FROM Documents "
                         "WHERE TransDocumentID = 'FT'"),
            "FT1:1:2001:Fatura:FT:5:PVP1:101100:-:F:2:010:+");
  EXPECT_EQ(RowsOf("FT"), "PT:Fatura|A7:1,B0:0|0.1:0,0.5:3|0:Fatura (posto):2001:123|1,2|1,4");

  // The workstation knows it once refreshed.
  EXPECT_EQ(RaisedNumber([&] { workstation.Documents().Item("FT"); }),
            host::err::kInvalidProcedureCall)
      << "the catalogue read before the save";
  workstation.Refresh();
  const host::DocumentDefinition& invoice = workstation.Documents().Item("FT");
  EXPECT_EQ(invoice.Description, "Fatura");
  EXPECT_EQ(invoice.EntrySign, "-");
  EXPECT_TRUE(invoice.AsksPayment);

  // Saved again, it replaces its rows and leaves what the save does not
  // write, and other documents' rows, as they were.
  host_.Exec(
      "UPDATE Documents SET PaymentMode = 1 WHERE TransDocumentID = 'FT';"
      "INSERT INTO DocumentsName (TransDocumentID, LanguageID, Description) VALUES ('FT', 'EN', "
      "'Invoice');"
      "INSERT INTO ConfWorkstationDocFields (TransDocumentID, WorkstationID, FieldID) VALUES "
      "('FT', 2, 9);"
      "INSERT INTO ConfWorkstationDocument (WorkstationID, TransDocumentID) VALUES (7, 'FT');");
  host::TransDocument document = Invoice();
  document.Description = "Fatura Recibo";
  document.UsesPayment = false;
  document.Series = {{"B", "FT", 3, true}};
  document.Fields = {{5, 1}};
  document.DocumentDefaults.Code1 = 9;
  documents_->Save(document);

  EXPECT_EQ(RowsOf("FT"),
            "EN:Invoice,PT:Fatura Recibo|B3:1|0.5:1,2.9:0|0:Fatura (posto):2001:923|1,2|1,4");
  EXPECT_EQ(host_.Scalar("SELECT Description || ':' || UsesPayment || ':' || PaymentMode FROM "
                         "Documents WHERE TransDocumentID = 'FT'"),
            "Fatura Recibo:0:1");
  EXPECT_EQ(RowsOf("TVD"), "PT:Venda a Dinheiro|A0:1||0:Venda a Dinheiro:1002:133|1|1");
}

TEST_F(Documents, ARefusedSaveLeavesTheDocumentAsItWas) {
  const std::string before = RowsOf("TVD") + host_.Rows("SELECT * FROM Documents");
  host::TransDocument document = Invoice();
  document.TransDocumentID = "TVD";
  document.Series.push_back(document.Series.front());  // a series twice
  EXPECT_EQ(RaisedNumber([&] { documents_->Save(document); }), host::err::kSqlRefused);
  document = Invoice();
  document.TransDocumentID = "TVD";
  document.DocumentDefaults.Description = std::string(101, 'x');
  EXPECT_EQ(RaisedNumber([&] { documents_->Save(document); }), -2147217833);
  document.TransDocumentID = "";
  EXPECT_EQ(RaisedNumber([&] { documents_->Save(document); }), host::err::kInvalidProcedureCall);
  EXPECT_EQ(RowsOf("TVD") + host_.Rows("SELECT * FROM Documents"), before);
  EXPECT_EQ(RowsOf(""), "|||||");
}

TEST_F(Documents, ANewDocumentTakesTheNextOrderAndTheSaleDocumentsFields) {
  host_.Exec("DELETE FROM Documents");
  EXPECT_EQ(documents_->NextOrder(), 1);

  auto listed = [&] {
    std::string text;
    for (const host::DocumentField& field : documents_->DefaultFields()) {
      text += std::to_string(field.FieldID) + ":" + std::to_string(field.FieldOption) + " ";
    }
    return text;
  };
  EXPECT_EQ(listed(), "1:0 2:0 3:0 4:0 5:0 6:0 7:0 8:0 9:0 10:0 ");
  host_.Exec(
      "INSERT INTO ConfWorkstationDocFields (TransDocumentID, WorkstationID, FieldID, "
      "FieldOption) VALUES ('TVD', 0, 12, 1), ('TVD', 0, 4, 0), ('TVD', 1, 7, 2), ('FT', 0, 8, "
      "0)");
  EXPECT_EQ(listed(), "4:0 12:1 ");

  EXPECT_EQ(documents_->BehaviorClass(1002), 1002);
}

}  // namespace
}  // namespace standalone
