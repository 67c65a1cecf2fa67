// What the initial load makes of the POS's own factory data: its tenders
// become the tills of this till's range, the salesmen it did not reload go
// with what hangs on them, and its documents without a key give way to the
// back office's document types. These steps have no handler of their own:
// a failure reaches their caller.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

// Tender 10 survives every load.
constexpr const char* kTenderInUse =
    "[TenderID]<>10 AND [TenderID] NOT IN (SELECT DISTINCT TenderID FROM SaleTransaction)";
constexpr int kTillsPerRange = 100;
constexpr int16_t kTillGroup = 2;
constexpr int16_t kDirectDebitTill = 4;

// The tables of a document, children first: cleared of the documents
// without a key before those go.
constexpr const char* kDocumentTables[][2] = {
    {"DocumentsSeriesNumber", "TransDocID"},
    {"DocumentsName", "TransDocumentID"},
    {"ConfWorkstationDocDefaults", "TransDocumentID"},
    {"ConfWorkstationDocFields", "TransDocumentID"},
    {"ConfWorkstationDocPrinter", "TransDocumentID"},
    {"ConfWorkstationDocument", "TransDocumentID"},
    {"AppDocumentsGroups", "TransDocumentID"},
};

// The value of the first row of a recordset filtered by its code; none
// when no row is there.
std::optional<std::string> FilteredValue(host::Recordset& rs, const std::string& code) {
  rs.SetFilter("CLan='" + code + "'");
  if (rs.Eof()) return std::nullopt;
  return SourceText(rs, "Valor");
}

}  // namespace

void BSOUpgBrevantaLumaroTables::LoadTenders() {
  // No handler of its own: a failure is logged under UpgradeTables.
  LoadStep("UpgradeTables").Run(4, [&] { Upgrade_Tender(); });
}

void BSOUpgBrevantaLumaroTables::Upgrade_Tender() {
  host::DatabaseService& pos = LoadTarget();
  // Tender 10 and every tender a sale used survive; nothing else does.
  for (const char* table : {"TenderNames", "TenderBarcode", "Tender"}) {
    pos.OpenRecordset("DELETE FROM [" + std::string(table) + "] WHERE " + kTenderInUse);
  }
  const double base = TillID * kTillsPerRange;
  host::RecordsetPtr rs = source_.Get().OpenRecordset(
      "SELECT CCxa, UsaDA, Descr FROM Caixa WHERE CCxa BETWEEN " + host::NumberText(base) +
      " AND " + host::NumberText(base + kTillsPerRange - 1));
  std::unique_ptr<host::TenderService> tenders = ModConnectorLumaro::Host().NewTenderService();
  double total = rs->RecordCount();
  double count = 0;
  // Read by position: the till, its direct debit, its name.
  for (; !rs->Eof(); rs->MoveNext()) {
    host::Tender tender;
    // The range starts at 1, so its tenth till falls on tender 10.
    tender.TenderID =
        host::CInt(host::Variant(host::FieldConverter::ToNumber(rs->Fields(0)) - base + 1));
    tender.Description = host::FieldConverter::ToText(rs->Fields(2));
    tender.TenderKey = host::FieldConverter::ToText(rs->Fields(0));
    tender.TenderGroup = kTillGroup;
    tender.TenderOption1 = true;
    if (host::FieldConverter::ToBoolean(rs->Fields(1))) {
      tender.TenderKind = kDirectDebitTill;
      tender.TenderOption2 = true;
      tender.TenderOption3 = false;
    } else {
      tender.TenderKind = 0;
      tender.TenderOption3 = true;
    }
    tender.TenderOption4 = true;
    tenders->Save(tender, !tenders->Exists(tender.TenderID));
    ++count;
    if (events_) events_->ProgressCurrent("Tender", count, total);
  }
  host::RecordsetTools::CloseRecordset(rs);
}

void BSOUpgBrevantaLumaroTables::ClearSalesmenParties() {
  LoadStep("UpgradeTables").Run(14, [&] {
    host::DatabaseService& pos = LoadTarget();
    host::SystemManager& system = ModConnectorLumaro::Host().SystemManager();
    for (const char* table : {"UareU_Salesman", "ComissionBySalesman", "AppSalesmansGroups",
                              "SalesmanRoutes", "SalesmanLedgerAccount"}) {
      pos.OpenRecordset("DELETE FROM [" + std::string(table) + "]");
    }
    // The party rows of the salesmen's range.
    const std::string from = host::NumberText(system.PartyIDBase(1, 2));
    const std::string to = host::NumberText(system.PartyIDBase(1, 3));
    for (const char* table :
         {"PartyAddress", "PartyBankAccount", "Telephone", "EmailAddress", "Person",
          "PartyExtraFields", "PartyMessages", "PartyComments", "OtherContact", "Party"}) {
      pos.OpenRecordset("DELETE FROM [" + std::string(table) + "] WHERE [PartyID] > " + from +
                        " AND [PartyID] < " + to);
    }
    // The salesmen the load did not reload kept their mark.
    pos.OpenRecordset("DELETE FROM [Salesman] WHERE [UserAlt]=0");
  });
}

void BSOUpgBrevantaLumaroTables::ClearDocumentsWithoutKey() {
  host::DatabaseService& pos = LoadTarget();
  pos.BeginTrans();
  try {
    // The two dialects delete through a join differently.
    const bool own_engine = pos.DatabaseKind() == 0;
    for (const auto& [table, column] : kDocumentTables) {
      std::string head = own_engine ? "DELETE " + std::string(table) + ".* FROM "
                                    : "DELETE FROM " + std::string(table) + " FROM ";
      pos.OpenRecordset(head + table + " INNER JOIN Documents ON " + table + "." + column +
                        "=Documents.TransDocumentID WHERE Documents.TransDocumentKey = ''");
    }
    pos.OpenRecordset("DELETE FROM [Documents] WHERE [TransDocumentKey]=''");
    pos.CommitTrans();
  } catch (const host::Error&) {
    // Rolled back, and the step ends: no entry is logged.
    pos.RollbackTrans();
  }
}

bool BSOUpgBrevantaLumaroTables::DocumentMatchesLimit(const std::vector<std::string>& patterns,
                                                      const std::string& code) {
  for (const std::string& pattern : patterns) {
    if (host::Like(host::UCase(code), host::UCase(pattern))) return true;
  }
  return false;
}

void BSOUpgBrevantaLumaroTables::Upgrade_Documents() {
  Progress("Documents");
  ClearDocumentsWithoutKey();
  host::Host& host = ModConnectorLumaro::Host();
  std::unique_ptr<host::DocumentService> documents = host.NewDocumentService();
  std::vector<host::DocumentField> fields = documents->DefaultFields();
  for (host::DocumentField& field : fields) field.FieldOption = 15;
  // Kept as it always was: the limit's codes come joined by "," and so
  // make one pattern, which matches nothing when it holds several.
  std::vector<std::string> patterns = {"*"};
  if (!DocumentLimit.empty()) patterns = host::Split(host::Replace(DocumentLimit, "%", "*"), ";");
  host::DatabaseService& source = source_.Get();
  host::RecordsetPtr types = source.OpenRecordset(
      "SELECT * FROM Tlanc WHERE (Cls0='TER' OR Cls0='FAC') AND LEN(TLanc.CLan)<=3 AND "
      "TLanc.CLan LIKE 'T%'");
  host::RecordsetPtr movements = source.OpenRecordset(
      "SELECT CLan, Valor FROM TLPro WHERE Cls='FAC' AND CProp='TMov' AND LEN(CLan)<=3 AND CLan "
      "LIKE 'T%'");
  host::RecordsetPtr properties = source.OpenRecordset(
      "SELECT CLan, Valor FROM TLPro WHERE ((Cls='FAC' AND CProp='PPag') OR (Cls='TER' AND "
      "CProp='E_S')) AND LEN(CLan)<=3 AND CLan LIKE 'T%'");
  std::vector<host::Series> series =
      host.ModuleManager().ConnectorRegistry().SeriesCatalogue().All();
  double total = types->RecordCount();
  double count = 0;
  for (; !types->Eof(); types->MoveNext()) {
    std::string code = SourceText(*types, "CLan");
    if (DocumentMatchesLimit(patterns, code) && !documents->Exists(code)) {
      host::TransDocument document =
          BuildDocument(*types, code, *movements, *properties, *documents);
      for (const host::Series& one : series) {
        document.Series.push_back({one.TransSerial, code, 0, true});
      }
      document.Fields = fields;
      document.DocumentActive = true;
      document.BehaviorClass = documents->BehaviorClass(document.DocumentBehavior);
      document.DocumentDefaults.BehaviorClass = document.BehaviorClass;
      document.DocumentDefaults.Description = document.Description;
      documents->Save(document);
    }
    ++count;
    if (events_) events_->ProgressCurrent("Documents", count, total);
  }
  for (host::RecordsetPtr* rs : {&types, &movements, &properties}) {
    host::RecordsetTools::CloseRecordset(*rs);
  }
  HostContext().CurrentWorkstation().Refresh();
}

host::TransDocument BSOUpgBrevantaLumaroTables::BuildDocument(const host::Recordset& type,
                                                              const std::string& code,
                                                              host::Recordset& movements,
                                                              host::Recordset& properties,
                                                              host::DocumentService& documents) {
  host::TransDocument document;
  document.TransDocumentID = code;
  document.TransDocumentKey = code;
  if (SourceText(type, "Cls0") != "FAC") {  // a "TER" type
    document.TransDocType = 5;
    document.UsesPayment = true;
    std::optional<std::string> entry = FilteredValue(properties, code);
    document.DocumentSign = !entry || *entry == "E" ? "+" : "-";
    document.DocumentBehavior = document.DocumentSign == "-" ? 5002 : 5001;
  } else {
    SetInvoiceBehaviour(document, FilteredValue(movements, code), FilteredValue(properties, code));
  }
  document.Description = SourceText(type, "Descr");
  document.ShortDescription = host::Left(SourceText(type, "Sigla"), 12);
  document.DocumentOrder = documents.NextOrder();
  document.PriceField = "PVP0";
  document.Active = true;
  if (document.UsesPayment) document.TenderMode = "F";
  return document;
}

void BSOUpgBrevantaLumaroTables::SetInvoiceBehaviour(host::TransDocument& document,
                                                     const std::optional<std::string>& movement,
                                                     const std::optional<std::string>& payment) {
  document.TransDocType = 1;
  document.DocumentBehavior = 1001;
  if (movement) {
    const std::string& kind = *movement;
    if (kind == "C" || kind == "N") {
      document.DocumentBehavior = 1005;
    } else if (kind == "D") {
      document.DocumentBehavior = 1004;
      document.IssuesInvoice = true;
    } else if (kind == "P") {
      document.DocumentBehavior = 1042;
    } else {  // "F" and any other
      document.IssuesInvoice = true;
    }
  }
  document.UsesPayment = payment && *payment == "S";
  if (payment && document.DocumentBehavior != 1005) {
    document.IssuesInvoice = !document.UsesPayment;
  }
  document.UsesTender = document.UsesPayment;
  const bool plus = document.DocumentBehavior == 1001 || document.DocumentBehavior == 1004;
  const bool minus = document.DocumentBehavior == 1005;
  if (plus || minus) {
    const std::string sign = plus ? "+" : "-";
    document.AccountSign1 = sign;
    document.AccountSign2 = sign;
    if (document.UsesPayment) {
      document.DocumentSign = sign;
      document.PaymentFlag1 = true;
      document.PaymentFlag2 = true;
      document.PaymentFlag3 = true;
      document.AccountSign3 = sign;
    }
    document.DocumentDefaults.Code1 = plus ? 2 : 3;
    document.DocumentDefaults.Code2 = plus ? 3 : 2;
    document.DocumentDefaults.Code3 = plus ? 3 : 2;
  }
  if (document.DocumentBehavior == 1001 && document.UsesPayment) {
    document.DocumentBehavior = document.DocumentSign == "+" ? 1002 : 1011;
  }
  document.PaymentOption = 0;
  document.AllowsStock = !document.UsesPayment;
  if (document.UsesPayment) document.DocumentDefaults.Code1 = 1;
}

}  // namespace lumaro
