#include "settingsui/WorkstationChoice.h"

namespace lumaro {

std::vector<std::string> SplitList(std::string_view text) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  size_t start = 0;
  while (true) {
    size_t comma = text.find(',', start);
    pieces.emplace_back(text.substr(start, comma - start));
    if (comma == std::string_view::npos) break;
    start = comma + 1;
  }
  return pieces;
}

std::string JoinList(const std::vector<std::string>& pieces) {
  std::string text;
  for (size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) text += ',';
    text += pieces[i];
  }
  return text;
}

bool IsInList(const std::vector<std::string>& list, std::string_view value) {
  for (const std::string& element : list) {
    if (element == value) return true;
  }
  return false;
}

std::vector<std::string> UsedWorkstations(const std::vector<std::string>& lists, size_t row) {
  std::vector<std::string> others;
  for (size_t i = 0; i < lists.size(); ++i) {
    if (i != row && !lists[i].empty()) others.push_back(lists[i]);
  }
  return SplitList(JoinList(others));
}

std::string ChosenList(const std::vector<int>& selected, bool confirmed,
                       const std::vector<std::string>& previous) {
  if (!confirmed) return JoinList(previous);
  std::string list;
  for (int number : selected) list += std::to_string(number) + ",";
  if (!list.empty()) list.pop_back();  // the last comma
  return list;
}

}  // namespace lumaro
