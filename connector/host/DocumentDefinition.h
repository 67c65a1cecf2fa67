#ifndef LUMARO_CONNECTOR_HOST_DOCUMENT_DEFINITION_H_
#define LUMARO_CONNECTOR_HOST_DOCUMENT_DEFINITION_H_

#include <cstdint>
#include <string>

namespace host {

struct PaymentBehaviour {
  // 1: the document is paid at the till by tenders.
  int16_t PaymentMode = 0;
};

// What the host knows of one document type (a TransDocument).
struct DocumentDefinition {
  std::string TransDocument;
  std::string Description;
  bool AsksPayment = false;
  std::string EntrySign = "+";  // "+" or "-"
  host::PaymentBehaviour PaymentBehaviour;
};

// The document types of the current workstation, by TransDocument.
class DocumentCatalogue {
 public:
  virtual ~DocumentCatalogue() = default;
  // The definition of the document; raises 5 when the workstation does not
  // know it.
  virtual const DocumentDefinition& Item(std::string_view trans_document) = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_DOCUMENT_DEFINITION_H_
