#ifndef LUMARO_STANDALONE_PORTUGUESE_MESSAGES_H_
#define LUMARO_STANDALONE_PORTUGUESE_MESSAGES_H_

#include <cstdint>
#include <map>
#include <string_view>

namespace standalone {

// The stand-alone host's message catalogue: a Portuguese text for every
// message id that the connector uses. Texts that take arguments mark them
// %1, %2, ... in order.
const std::map<int32_t, std::string_view>& PortugueseMessages();

}  // namespace standalone

#endif  // LUMARO_STANDALONE_PORTUGUESE_MESSAGES_H_
