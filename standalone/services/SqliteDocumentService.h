#ifndef LUMARO_STANDALONE_SERVICES_SQLITE_DOCUMENT_SERVICE_H_
#define LUMARO_STANDALONE_SERVICES_SQLITE_DOCUMENT_SERVICE_H_

#include <cstdint>
#include <string_view>
#include <vector>

#include "connector/host/DatabaseService.h"
#include "connector/host/DocumentService.h"
#include "connector/host/SystemContext.h"
#include "standalone/services/EntityRows.h"

namespace standalone {

// The host's document types: the table Documents and the rows that hang on
// a document (its name, series numbers, fields, defaults, and the
// workstations and user groups that offer it).
class SqliteDocumentService : public host::DocumentService {
 public:
  // The sale document of a new POS, whose fields a new document copies.
  static constexpr std::string_view kSaleDocument = "TVD";
  // The fields a new document shows when the sale document has none:
  // 1 to kDefaultFieldCount, each with option 0.
  static constexpr int32_t kDefaultFieldCount = 10;

  SqliteDocumentService(host::DatabaseService& db, host::SystemContext& context)
      : db_(db), context_(context), writer_(db) {}

  bool Exists(std::string_view trans_document_id) override;
  // The greatest DocumentOrder plus 1; 1 when there is no document.
  double NextOrder() override;
  // The fields of every workstation (WorkstationID 0) of the sale document
  // "TVD", by FieldID; fields 1 to 10 with option 0 when it has none.
  std::vector<host::DocumentField> DefaultFields() override;
  // The behaviour itself: the host keeps a document's behaviour number as
  // its class (the factory's TVD is behaviour 1002, class 1002).
  int16_t BehaviorClass(int16_t behavior) override { return behavior; }
  // All or nothing, a document without an id refused (error 5):
  // - its Documents row: inserted, or updated in the columns the document
  //   carries (those it does not, PaymentMode, AccountBehavior and
  //   AccountUsed, keep their values; its BehaviorClass has no column);
  // - its DocumentsName row in the host's language (the context's
  //   settings), in place of the one there;
  // - its DocumentsSeriesNumber rows, under its own id whatever the series'
  //   TransDocID, and its fields and defaults of WorkstationID 0 (from
  //   DocumentDefaults): these replace those it had (a workstation's own
  //   fields and defaults stay);
  // - a ConfWorkstationDocument row for every Workstation and an
  //   AppDocumentsGroups row for every AppGroups row, in place of those it
  //   had.
  void Save(const host::TransDocument& document) override;

 private:
  host::DatabaseService& db_;
  host::SystemContext& context_;
  EntityWriter writer_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SERVICES_SQLITE_DOCUMENT_SERVICE_H_
