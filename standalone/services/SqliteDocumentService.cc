#include "standalone/services/SqliteDocumentService.h"

#include <string>
#include <vector>

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::DocumentDefaults;
using host::DocumentField;
using host::DocumentSeries;
using host::FieldConverter;
using host::SqlValue;
using host::TransDocument;

// The Documents row but its id.
const EntityColumns<TransDocument> kDocumentColumns = {
    {"TransDocumentKey", &TransDocument::TransDocumentKey},
    {"TransDocType", &TransDocument::TransDocType},
    {"DocumentBehavior", &TransDocument::DocumentBehavior},
    {"Description", &TransDocument::Description},
    {"ShortDescription", &TransDocument::ShortDescription},
    {"DocumentOrder", &TransDocument::DocumentOrder},
    {"PriceField", &TransDocument::PriceField},
    {"Active", &TransDocument::Active},
    {"DocumentActive", &TransDocument::DocumentActive},
    {"AllowsStock", &TransDocument::AllowsStock},
    {"UsesPayment", &TransDocument::UsesPayment},
    {"UsesTender", &TransDocument::UsesTender},
    {"IssuesInvoice", &TransDocument::IssuesInvoice},
    {"DocumentSign", &TransDocument::DocumentSign},
    {"TenderMode", &TransDocument::TenderMode},
    {"PaymentOption", &TransDocument::PaymentOption},
    {"PaymentFlag1", &TransDocument::PaymentFlag1},
    {"PaymentFlag2", &TransDocument::PaymentFlag2},
    {"PaymentFlag3", &TransDocument::PaymentFlag3},
    {"AccountSign1", &TransDocument::AccountSign1},
    {"AccountSign2", &TransDocument::AccountSign2},
    {"AccountSign3", &TransDocument::AccountSign3},
};

// A DocumentsSeriesNumber row but its document.
const EntityColumns<DocumentSeries> kSeriesColumns = {
    {"TransSerial", &DocumentSeries::TransSerial},
    {"TransDocNumber", &DocumentSeries::TransDocNumber},
    {"SeriesActive", &DocumentSeries::SeriesActive},
};

// A ConfWorkstationDocFields row but its document and workstation.
const EntityColumns<DocumentField> kFieldColumns = {
    {"FieldID", &DocumentField::FieldID},
    {"FieldOption", &DocumentField::FieldOption},
};

// The ConfWorkstationDocDefaults row but its document and workstation.
const EntityColumns<DocumentDefaults> kDefaultsColumns = {
    {"Description", &DocumentDefaults::Description},
    {"BehaviorClass", &DocumentDefaults::BehaviorClass},
    {"Code1", &DocumentDefaults::Code1},
    {"Code2", &DocumentDefaults::Code2},
    {"Code3", &DocumentDefaults::Code3},
};

// The first column of every row, as numbers.
std::vector<double> Numbers(host::DatabaseService& db, const std::string& sql) {
  std::vector<double> numbers;
  for (auto rs = db.OpenRecordset(sql); !rs->Eof(); rs->MoveNext()) {
    numbers.push_back(FieldConverter::ToNumber(rs->Fields(0)));
  }
  return numbers;
}

}  // namespace

bool SqliteDocumentService::Exists(std::string_view trans_document_id) {
  return !db_.Query("SELECT TransDocumentID FROM Documents WHERE TransDocumentID=?",
                    {SqlValue::Text(trans_document_id)})
              ->Eof();
}

double SqliteDocumentService::NextOrder() { return NextId(db_, "Documents", "DocumentOrder"); }

std::vector<DocumentField> SqliteDocumentService::DefaultFields() {
  std::vector<DocumentField> fields;
  for (auto rs = db_.Query(
           "SELECT FieldID, FieldOption FROM ConfWorkstationDocFields WHERE TransDocumentID=? "
           "AND WorkstationID=0 ORDER BY FieldID",
           {SqlValue::Text(kSaleDocument)});
       !rs->Eof(); rs->MoveNext()) {
    DocumentField field;
    kFieldColumns.Read(*rs, field);
    fields.push_back(field);
  }
  if (fields.empty()) {
    for (int32_t id = 1; id <= kDefaultFieldCount; ++id) fields.push_back({id, 0});
  }
  return fields;
}

void SqliteDocumentService::Save(const TransDocument& document) {
  const std::string& id = document.TransDocumentID;
  if (id.empty()) {
    host::RaiseWith(host::err::kInvalidProcedureCall, "A document cannot be saved without an id",
                    "DocumentService");
  }
  const std::string language = context_.Settings()->LanguageID;
  const bool exists = Exists(id);
  const std::vector<double> workstations =
      Numbers(db_, "SELECT WorkstationID FROM Workstation ORDER BY WorkstationID");
  const std::vector<double> groups =
      Numbers(db_, "SELECT AppGroupID FROM AppGroups ORDER BY AppGroupID");

  // The rows of `table` of this document (and of workstation 0 when
  // `shared_only`) go.
  auto remove = [&](const char* table, const char* id_column, bool shared_only) {
    host::SqlStatement rows;
    rows.SetTable(table);
    rows.KeyText(id_column, id);
    if (shared_only) rows.KeyNumber("WorkstationID", 0);
    writer_.Delete(std::move(rows));
  };
  // A new row of `table` for this document (at workstation 0 when
  // `shared`).
  auto row_of = [&](const char* table, const char* id_column, bool shared) {
    host::SqlStatement row;
    row.SetTable(table);
    row.Text(id_column, id);
    if (shared) row.Number("WorkstationID", 0);
    return row;
  };

  writer_.Atomically([&] {
    host::SqlStatement head;
    head.SetTable("Documents");
    kDocumentColumns.Write(document, head);
    // A document paid with the till's tenders (TenderMode "F") is paid at
    // the till: the export reads that from PaymentMode.
    head.Number("PaymentMode", document.TenderMode == "F" ? 1 : 0);
    if (exists) {
      head.KeyText("TransDocumentID", id);
      writer_.Update(std::move(head));
    } else {
      head.Text("TransDocumentID", id);
      writer_.Insert(std::move(head));
    }

    host::SqlStatement name;
    name.SetTable("DocumentsName");
    name.KeyText("TransDocumentID", id);
    name.KeyText("LanguageID", language);
    writer_.Delete(std::move(name));
    name = row_of("DocumentsName", "TransDocumentID", false);
    name.Text("LanguageID", language);
    name.Text("Description", document.Description);
    writer_.Insert(std::move(name));

    remove("DocumentsSeriesNumber", "TransDocID", false);
    for (const DocumentSeries& series : document.Series) {
      host::SqlStatement row = row_of("DocumentsSeriesNumber", "TransDocID", false);
      kSeriesColumns.Write(series, row);
      writer_.Insert(std::move(row));
    }

    remove("ConfWorkstationDocFields", "TransDocumentID", true);
    for (const DocumentField& field : document.Fields) {
      host::SqlStatement row = row_of("ConfWorkstationDocFields", "TransDocumentID", true);
      kFieldColumns.Write(field, row);
      writer_.Insert(std::move(row));
    }

    remove("ConfWorkstationDocDefaults", "TransDocumentID", true);
    host::SqlStatement defaults = row_of("ConfWorkstationDocDefaults", "TransDocumentID", true);
    kDefaultsColumns.Write(document.DocumentDefaults, defaults);
    writer_.Insert(std::move(defaults));

    remove("ConfWorkstationDocument", "TransDocumentID", false);
    for (double workstation : workstations) {
      host::SqlStatement row = row_of("ConfWorkstationDocument", "TransDocumentID", false);
      row.Number("WorkstationID", workstation);
      writer_.Insert(std::move(row));
    }

    remove("AppDocumentsGroups", "TransDocumentID", false);
    for (double group : groups) {
      host::SqlStatement row = row_of("AppDocumentsGroups", "TransDocumentID", false);
      row.Number("AppGroupID", group);
      writer_.Insert(std::move(row));
    }
  });
}

}  // namespace standalone
