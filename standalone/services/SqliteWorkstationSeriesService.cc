#include "standalone/services/SqliteWorkstationSeriesService.h"

#include "connector/host/Conversions.h"
#include "connector/host/Recordset.h"

namespace standalone {
namespace {

using host::SqlValue;

SqlValue Id(int32_t workstation_id) { return SqlValue::Number(workstation_id); }

}  // namespace

void SqliteWorkstationSeriesService::AddWorkstation(int32_t workstation_id) {
  if (!db_.Query("SELECT WorkstationID FROM Workstation WHERE WorkstationID=?",
                 {Id(workstation_id)})
           ->Eof()) {
    return;
  }
  db_.Query("INSERT INTO Workstation (WorkstationID, Description) VALUES (?, ?)",
            {Id(workstation_id), SqlValue::Text("Terminal " + std::to_string(workstation_id))});
}

void SqliteWorkstationSeriesService::SetSeries(int32_t workstation_id,
                                               std::string_view trans_serial,
                                               int32_t first_number) {
  AddWorkstation(workstation_id);
  db_.Query("UPDATE Workstation SET TransSerial=? WHERE WorkstationID=?",
            {SqlValue::Text(trans_serial), Id(workstation_id)});
  first_numbers_.insert_or_assign(std::string(trans_serial), first_number);
}

void SqliteWorkstationSeriesService::SetDocument(int32_t workstation_id,
                                                 std::string_view trans_document_id) {
  AddWorkstation(workstation_id);
  db_.Query("UPDATE Workstation SET TransDocumentID=? WHERE WorkstationID=?",
            {SqlValue::Text(trans_document_id), Id(workstation_id)});
  SqlValue document = SqlValue::Text(trans_document_id);
  if (db_.Query("SELECT WorkstationID FROM ConfWorkstationDocument WHERE WorkstationID=? AND "
                "TransDocumentID=?",
                {Id(workstation_id), document})
          ->Eof()) {
    db_.Query("INSERT INTO ConfWorkstationDocument (WorkstationID, TransDocumentID) VALUES (?, ?)",
              {Id(workstation_id), document});
  }
  std::string serial = host::CStr(
      db_.Query("SELECT TransSerial FROM Workstation WHERE WorkstationID=?", {Id(workstation_id)})
          ->Fields(0));
  if (serial.empty()) return;
  if (db_.Query("SELECT TransSerial FROM DocumentsSeriesNumber WHERE TransSerial=? AND "
                "TransDocID=?",
                {SqlValue::Text(serial), document})
          ->Eof()) {
    auto first = first_numbers_.find(serial);
    db_.Query(
        "INSERT INTO DocumentsSeriesNumber (TransSerial, TransDocID, TransDocNumber, "
        "SeriesActive) VALUES (?, ?, ?, 1)",
        {SqlValue::Text(serial), document,
         SqlValue::Number(first == first_numbers_.end() ? 0 : first->second)});
  }
}

}  // namespace standalone
