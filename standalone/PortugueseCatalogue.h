#ifndef LUMARO_STANDALONE_PORTUGUESE_CATALOGUE_H_
#define LUMARO_STANDALONE_PORTUGUESE_CATALOGUE_H_

#include "connector/host/MessageCatalogue.h"

namespace standalone {

// The host's message catalogue over the Portuguese texts. %1, %2, ... take
// the text of the arguments (as the run time's CStr gives it); a missing
// argument leaves its mark empty. An unknown id gives "[Mensagem N]".
class PortugueseCatalogue : public host::MessageCatalogue {
 public:
  std::string Format(int32_t id, const std::vector<host::Variant>& arguments) const override;
  std::string Text(int32_t id) const override;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_PORTUGUESE_CATALOGUE_H_
