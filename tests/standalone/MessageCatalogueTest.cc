#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <string_view>

#include "connector/host/Utf8.h"
#include "standalone/PortugueseMessages.h"

namespace standalone {
namespace {

// The messages that the connector formats with arguments, and how many each
// takes. Every other message is used plain and must hold no placeholder.
const std::map<int32_t, int>& ArgumentCounts() {
  static const auto* const kCounts = new std::map<int32_t, int>{
      {3880045, 1},  // the number of a measure
      {3880109, 1},  // the description of the table being loaded
      {4140035, 1},  // the name of the file that failed
      {4140039, 2},  // current and total
      {2760006, 1},  // table
      {2760027, 1},  // table
      {2760028, 2},  // table and column
      {2760029, 1},  // table
      {2760030, 1},  // table
  };
  return *kCounts;
}

// The numbers of the placeholders in `text`. A "%" that no digit follows
// counts as placeholder 0, which no message may hold.
std::multiset<int> Placeholders(std::string_view text) {
  std::multiset<int> numbers;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') continue;
    int number = 0;
    while (i + 1 < text.size() && text[i + 1] >= '0' && text[i + 1] <= '9') {
      number = number * 10 + (text[++i] - '0');
    }
    numbers.insert(number);
  }
  return numbers;
}

// True when `text` is well-formed UTF-8.
bool IsValidUtf8(std::string_view text) {
  for (size_t pos = 0; pos < text.size();) {
    if (host::utf8::Next(text, pos) < 0) return false;
  }
  return true;
}

TEST(MessageCatalogue, TextsAreUtf8AndHoldExactlyTheirArguments) {
  // The checker itself must tell good text from bad, or the loop below
  // proves nothing.
  ASSERT_TRUE(IsValidUtf8("Configuração"));
  ASSERT_FALSE(IsValidUtf8("Configura\xE7\xE3o"));  // Windows-1252, not UTF-8
  ASSERT_EQ(Placeholders("%1 de %2 (%1), 100%"), (std::multiset<int>{0, 1, 1, 2}));

  const std::map<int32_t, std::string_view>& messages = PortugueseMessages();
  for (const auto& [id, count] : ArgumentCounts()) {
    EXPECT_TRUE(messages.contains(id)) << "message " << id << " is missing";
  }
  for (const auto& [id, text] : messages) {
    SCOPED_TRACE(testing::Message() << "message " << id << ": \"" << text << "\"");
    EXPECT_FALSE(text.empty());
    EXPECT_TRUE(IsValidUtf8(text));

    const auto found = ArgumentCounts().find(id);
    const int count = found == ArgumentCounts().end() ? 0 : found->second;
    std::multiset<int> expected;
    for (int n = 1; n <= count; ++n) expected.insert(n);
    EXPECT_EQ(Placeholders(text), expected);
  }
}

}  // namespace
}  // namespace standalone
