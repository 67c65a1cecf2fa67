#include "standalone/PortugueseCatalogue.h"

#include <cctype>

#include "connector/host/FieldConverter.h"
#include "standalone/PortugueseMessages.h"

namespace standalone {

std::string PortugueseCatalogue::Text(int32_t id) const {
  const auto& messages = PortugueseMessages();
  auto it = messages.find(id);
  if (it == messages.end()) return "[Mensagem " + std::to_string(id) + "]";
  return std::string(it->second);
}

std::string PortugueseCatalogue::Format(int32_t id,
                                        const std::vector<host::Variant>& arguments) const {
  std::string text = Text(id);
  std::string out;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 1 < text.size() && std::isdigit(static_cast<unsigned char>(text[i + 1]))) {
      size_t end = i + 1;
      size_t number = 0;
      while (end < text.size() && std::isdigit(static_cast<unsigned char>(text[end]))) {
        number = number * 10 + static_cast<size_t>(text[end] - '0');
        ++end;
      }
      if (number >= 1 && number <= arguments.size()) {
        out += host::FieldConverter::ToText(arguments[number - 1]);
      }
      i = end - 1;
      continue;
    }
    out += text[i];
  }
  return out;
}

}  // namespace standalone
