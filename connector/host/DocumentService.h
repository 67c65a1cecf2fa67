#ifndef LUMARO_CONNECTOR_HOST_DOCUMENT_SERVICE_H_
#define LUMARO_CONNECTOR_HOST_DOCUMENT_SERVICE_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace host {

// A document of the host in one series: the last number it took there.
struct DocumentSeries {
  std::string TransSerial;
  std::string TransDocID;
  int32_t TransDocNumber = 0;
  bool SeriesActive = false;
};

// One field a document shows, and how (FieldOption, the host's bits).
struct DocumentField {
  int32_t FieldID = 0;
  int16_t FieldOption = 0;
};

// What every workstation takes of a document unless told otherwise.
struct DocumentDefaults {
  std::string Description;
  int16_t BehaviorClass = 0;
  int16_t Code1 = 0;
  int16_t Code2 = 0;
  int16_t Code3 = 0;
};

// A document type of the host, whole: its row, its series, its fields and
// its defaults. The meanings of the behaviours, signs, flags and codes are
// the host's.
struct TransDocument {
  std::string TransDocumentID;
  std::string TransDocumentKey;  // the back office's code; empty for the host's own
  int16_t TransDocType = 0;
  int16_t DocumentBehavior = 0;
  std::string Description;
  std::string ShortDescription;
  double DocumentOrder = 0;
  std::string PriceField;
  bool Active = false;
  bool DocumentActive = false;
  bool AllowsStock = false;
  bool UsesPayment = false;
  bool UsesTender = false;
  bool IssuesInvoice = false;
  std::string DocumentSign = "+";
  std::string TenderMode;
  int16_t PaymentOption = 0;
  bool PaymentFlag1 = false;
  bool PaymentFlag2 = false;
  bool PaymentFlag3 = false;
  std::string AccountSign1;
  std::string AccountSign2;
  std::string AccountSign3;
  int16_t BehaviorClass = 0;
  std::vector<DocumentSeries> Series;
  std::vector<DocumentField> Fields;
  host::DocumentDefaults DocumentDefaults;
};

class DocumentService {
 public:
  virtual ~DocumentService() = default;
  virtual bool Exists(std::string_view trans_document_id) = 0;
  // The order a new document takes among the host's: after the last.
  virtual double NextOrder() = 0;
  // The fields a new document shows.
  virtual std::vector<DocumentField> DefaultFields() = 0;
  // The class of behaviour the host gives a document of `behavior`.
  virtual int16_t BehaviorClass(int16_t behavior) = 0;
  // Inserts the document with its series, fields and defaults (those of
  // every workstation), its name in the host's language, and offers it to
  // every workstation and user group; or writes over the one of its id.
  virtual void Save(const TransDocument& document) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_DOCUMENT_SERVICE_H_
