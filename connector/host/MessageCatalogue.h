#ifndef LUMARO_CONNECTOR_HOST_MESSAGE_CATALOGUE_H_
#define LUMARO_CONNECTOR_HOST_MESSAGE_CATALOGUE_H_

#include <cstdint>
#include <string>
#include <vector>

#include "connector/host/Variant.h"

namespace host {

// The host's catalogue of message texts, by number.
class MessageCatalogue {
 public:
  virtual ~MessageCatalogue() = default;
  // The text of message `id` with %1, %2, ... replaced by the arguments'
  // text. An id the catalogue lacks gives a text that names the id.
  virtual std::string Format(int32_t id, const std::vector<Variant>& arguments) const = 0;
  // The text of message `id` as it stands.
  virtual std::string Text(int32_t id) const = 0;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_MESSAGE_CATALOGUE_H_
