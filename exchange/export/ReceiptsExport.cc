// The receipts of an entry's export file: each tender transaction of the
// selection, with its tender lines, after the sales.

#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "exchange/export/EntryExport.h"
#include "exchange/export/ExportRecords.h"
#include "exchange/export/RowFields.h"

namespace lumaro {

void EntryExport::WriteReceipts() {
  // Kept on purpose: a receipt without a line of TransOrder 1 counts for the
  // first date but is not selected here, despite the LEFT JOIN; it is never
  // written nor marked, and every later run makes a file for it again.
  host::RecordsetPtr rs = Query(
      "SELECT TT.*, TLI.TenderID "
      " FROM TenderTransaction AS TT LEFT JOIN TenderLineItem AS TLI "
      " ON (TLI.TransSerial=TT.TransSerial AND TLI.TransDocument=TT.TransDocument AND "
      "TLI.TransDocNumber=TT.TransDocNumber)" +
      EntryFilter("TT.") + " AND TLI.TransOrder=1 " +
      " ORDER BY TT.TransSerial, TT.TransDocument, TT.TransDocNumber");
  if (rs->RecordCount() > 0) {
    counter_ = 0;
    total_ = rs->RecordCount();
  }
  host::DocumentCatalogue& documents =
      host_.SystemManager().Context().CurrentWorkstation().Documents();
  while (!rs->Eof()) {
    Write(BuildReceiptHead(entry_.LumaroWorkstationID, *rs, settings_.TillID, keys_));
    std::string key = DocumentKeyOf(*rs);
    host::RecordsetPtr lines = Query("SELECT * FROM TenderLineItem" + key);
    for (; !lines->Eof(); lines->MoveNext()) {
      const host::DocumentDefinition& definition = documents.Item(FieldText(*lines, "TransDocument"));
      Write(BuildReceiptLine(*lines, settings_.TillID, GetCheckNumber(*lines),
                             definition.EntrySign));
    }
    host::RecordsetTools::CloseRecordset(lines);
    // Marked after its last line: a failure within a receipt leaves it
    // pending.
    Query("UPDATE TenderTransaction SET AccountingExportDate=" +
          db_.SqlFormat().DateLiteral(host::Today()) + key);
    ++counter_;
    ReportProgress();
    rs->MoveNext();
  }
  host::RecordsetTools::CloseRecordset(rs);
}

std::string EntryExport::GetCheckNumber(const host::Recordset& line) {
  if (line.Eof()) return "";
  const host::SqlFormat& format = db_.SqlFormat();
  host::RecordsetPtr rs = Query(
      "SELECT * FROM CheckTenderLineItem " " WHERE TransSerial='" +
      format.QuoteText(FieldText(line, "TransSerial")) + "'" + "  AND TransDocument='" +
      format.QuoteText(FieldText(line, "TransDocument")) + "'" + "  AND TransDocNumber=" +
      format.Number(FieldNumber(line, "TransDocNumber")) +
      "  AND TransOrder=" + format.Number(FieldNumber(line, "TransOrder")));
  std::string number = rs->Eof() ? "" : FieldText(*rs, "CheckSequenceNumber");
  host::RecordsetTools::CloseRecordset(rs);
  return number;
}

}  // namespace lumaro
