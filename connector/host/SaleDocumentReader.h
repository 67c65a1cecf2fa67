#ifndef LUMARO_CONNECTOR_HOST_SALE_DOCUMENT_READER_H_
#define LUMARO_CONNECTOR_HOST_SALE_DOCUMENT_READER_H_

#include <string>
#include <string_view>

namespace host {

// Reads one sale document of the host.
class SaleDocumentReader {
 public:
  virtual ~SaleDocumentReader() = default;
  // Loads the document; False when it does not exist.
  virtual bool Load(std::string_view trans_serial, std::string_view trans_document,
                    double trans_doc_number) = 0;
  // The text by which the document's party knows it; empty before a
  // successful Load.
  virtual std::string PartyDocumentText() const = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_SALE_DOCUMENT_READER_H_
