// The sale side of an entry's export file: new customers, then each sale
// with its payment, walk-in customer and lines.

#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "exchange/export/EntryExport.h"
#include "exchange/export/ExportRecords.h"
#include "exchange/export/RowFields.h"

namespace lumaro {
namespace {

using host::FieldConverter;

}  // namespace

void EntryExport::WriteCustomers() {
  host::RecordsetPtr rs = Query(
      "SELECT Customer.*, PartyAddress.* FROM (Customer"
      " INNER JOIN SaleTransaction ON (SaleTransaction.PartyID = Customer.CustomerID))"
      " LEFT JOIN PartyAddress ON (PartyAddress.PartyID = Customer.CustomerID AND "
      "PartyAddress.AddressID=0)" +
      EntryFilter("SaleTransaction.") + " AND Customer.CustomerKey =''");
  if (rs->RecordCount() > 0) {
    total_ = rs->RecordCount();
    counter_ = 0;
  }
  // Kept on purpose: a customer with several sales in the selection comes
  // once for each from the join, and is written once for each; the mark
  // does not change the open result. The back office takes repeated lines.
  while (!rs->Eof()) {
    Write(BuildCustomerRecord(entry_.LumaroWorkstationID, *rs, keys_));
    Query("UPDATE Customer SET CustomerKey='" + db_.SqlFormat().QuoteText("Exported") +
          "' WHERE CustomerID=" + FieldNumberText(*rs, "CustomerID"));
    rs->MoveNext();
    ++counter_;
    ReportProgress();
  }
  host::RecordsetTools::CloseRecordset(rs);
}

void EntryExport::WriteSales() {
  host::RecordsetPtr rs = Query("SELECT * FROM SaleTransaction " + EntryFilter("") +
                                " ORDER BY TransSerial, TransDocument, TransDocNumber");
  // The counter is not reset: it runs on from the customers and may pass
  // the total, as the host's progress has always shown it.
  if (rs->RecordCount() > 0) total_ = rs->RecordCount();
  host::DocumentCatalogue& documents =
      host_.SystemManager().Context().CurrentWorkstation().Documents();
  while (!rs->Eof()) {
    bool tax_included = FieldConverter::ToBoolean(rs->Fields("TransactionTaxIncluded"));
    std::string head = BuildDocumentHead(entry_.LumaroWorkstationID, *rs, keys_);
    if (!head.empty()) Write(head);
    std::string trans_document = FieldText(*rs, "TransDocument");
    reader_->Load(FieldText(*rs, "TransSerial"), trans_document,
                  FieldNumber(*rs, "TransDocNumber"));
    const host::DocumentDefinition& definition = documents.Item(trans_document);
    WritePayment(*rs, definition, reader_->PartyDocumentText());
    std::string party = BuildPartyRecord(*rs);
    if (!party.empty()) Write(party);
    WriteLines(*rs, tax_included);
    // Marked after its last line: a failure within a document leaves it
    // pending. A re-export moves the mark to the day of the re-export.
    Query("UPDATE SaleTransaction SET AccountingExportDate=" +
          db_.SqlFormat().DateLiteral(host::Today()) + DocumentKeyOf(*rs));
    rs->MoveNext();
    ++counter_;
    ReportProgress();
  }
  host::RecordsetTools::CloseRecordset(rs);
}

void EntryExport::WritePayment(const host::Recordset& sale,
                               const host::DocumentDefinition& definition,
                               const std::string& party_document_text) {
  bool paid_at_till = definition.PaymentBehaviour.PaymentMode == 1 && definition.AsksPayment;
  if (!paid_at_till || FieldConverter::ToBoolean(sale.Fields("TransactionCreditSale"))) {
    Write(BuildCreditRecord(sale, party_document_text));
    return;
  }
  // One record for each tender and cheque of the document, amounts summed;
  // a document without any tender row gets no payment record at all.
  host::RecordsetPtr tenders = Query(
      "SELECT TenderLineItem.TransSerial, TenderLineItem.TransDocument, "
      "TenderLineItem.TransDocNumber, "
      " Min(TenderLineItem.TenderID) AS MinTenderID, Min(TenderLineItem.TransOrder) AS "
      "MinTransOrder, Sum(TenderLineItem.Amount) AS SumAmount, "
      " CheckTenderLineItem.CheckSequenceNumber "
      " FROM TenderLineItem LEFT JOIN "
      " CheckTenderLineItem "
      " ON (CheckTenderLineItem.TransSerial=TenderLineItem.TransSerial "
      "  AND CheckTenderLineItem.TransDocument=TenderLineItem.TransDocument "
      "  AND CheckTenderLineItem.TransDocNumber=TenderLineItem.TransDocNumber "
      "  AND CheckTenderLineItem.TransOrder=TenderLineItem.TransOrder)"
      "  WHERE TenderLineItem.TransSerial='" +
      FieldText(sale, "TransSerial") + "' " + "  AND TenderLineItem.TransDocument='" +
      FieldText(sale, "TransDocument") + "'" + "  AND TenderLineItem.TransDocNumber=" +
      FieldNumberText(sale, "TransDocNumber") +
      " GROUP BY TenderLineItem.TransSerial, TenderLineItem.TransDocument, "
      "TenderLineItem.TransDocNumber, "
      "  TenderLineItem.TenderID, CheckTenderLineItem.CheckSequenceNumber");
  for (; !tenders->Eof(); tenders->MoveNext()) {
    std::string record = BuildTenderRecord(*tenders, settings_.TillID);
    if (!record.empty()) Write(record);
  }
  host::RecordsetTools::CloseRecordset(tenders);
}

void EntryExport::WriteLines(const host::Recordset& sale, bool tax_included) {
  std::string sql =
      "SELECT STD.*, TPD.PropertyValue1 "
      " FROM SaleTransactionDetails AS STD LEFT JOIN TransactionPropDetails AS TPD "
      " ON (TPD.TransSerial=STD.TransSerial"
      "  AND TPD.TransDocument=STD.TransDocument"
      "  AND TPD.TransDocNumber=STD.TransDocNumber"
      "  AND TPD.LineItemID=STD.LineItemID"
      "  AND TPD.LineItemSubID=STD.LineItemSubID)"
      " WHERE STD.TransSerial='" +
      FieldText(sale, "TransSerial") + "' " + "  AND STD.TransDocument='" +
      FieldText(sale, "TransDocument") + "' " + "  AND STD.TransDocNumber=" +
      FieldNumberText(sale, "TransDocNumber") + "  AND STD.LineItemSubID=0";
  // The lines of a voided document have moved to the post-void tables; the
  // aliases and columns stay the same.
  if (FieldNumber(sale, "TransStatus") == 1) {
    sql = host::Replace(sql, "SaleTransactionDetails", "PostVoidTransaction");
    sql = host::Replace(sql, "TransactionPropDetails", "PostVoidTranPropDetails");
  }
  host::RecordsetPtr lines = Query(sql);
  for (; !lines->Eof(); lines->MoveNext()) {
    std::string record = BuildLineRecord(tax_included, *lines, keys_, GetTaxRate(*lines));
    if (!record.empty()) Write(record);
  }
  host::RecordsetTools::CloseRecordset(lines);
}

std::string EntryExport::GetTaxRate(const host::Recordset& line) {
  // Only the group IVA counts; a voided document's rates are read here too.
  host::RecordsetPtr rs =
      Query("SELECT TaxRate FROM TaxTransactionDetail AS TTD " " WHERE TransSerial='" +
            FieldText(line, "TransSerial") + "' AND TransDocument='" + FieldText(line, "TransDocument") +
            "' AND TransDocNumber=" + FieldNumberText(line, "TransDocNumber") +
            " AND LineItemID=" + FieldNumberText(line, "LineItemID") + " AND LineItemSubID=0" +
            " AND TTD.TaxGroupID='IVA'");
  std::string rate = rs->Eof() ? "" : FieldNumberText(*rs, "TaxRate");
  host::RecordsetTools::CloseRecordset(rs);
  return rate;
}

}  // namespace lumaro
