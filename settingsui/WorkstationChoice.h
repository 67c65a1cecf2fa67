#ifndef LUMARO_SETTINGSUI_WORKSTATION_CHOICE_H_
#define LUMARO_SETTINGSUI_WORKSTATION_CHOICE_H_

// The rules of the choice of POS terminals for an exchange point, apart
// from the form that asks the person (frmWorkstationList): a terminal
// belongs to one exchange point only, and a point's list is the terminals'
// numbers joined with ",".

#include <string>
#include <string_view>
#include <vector>

namespace lumaro {

// `text` split at ",", pieces kept exactly as they stand (blanks
// included); an empty text gives no piece at all.
std::vector<std::string> SplitList(std::string_view text);

// The pieces joined with ",".
std::string JoinList(const std::vector<std::string>& pieces);

// True when an element of `list` is exactly `value` (case and blanks
// count). An empty list gives False.
bool IsInList(const std::vector<std::string>& list, std::string_view value);

// The terminals that the other exchange points have taken: the non-empty
// lists of every row but `row`, joined with "," and split again.
// `lists` holds each row's list, in the order of the grid's rows.
std::vector<std::string> UsedWorkstations(const std::vector<std::string>& lists, size_t row);

// The new list of a point: the numbers of the terminals the person
// selected, in the order the list offered them (ascending), joined with
// ",", when the person confirmed; the previous list, exactly as it came,
// when not. A confirmed choice of nothing is the empty text, and the point
// must then go inactive.
std::string ChosenList(const std::vector<int>& selected, bool confirmed,
                       const std::vector<std::string>& previous);

}  // namespace lumaro

#endif  // LUMARO_SETTINGSUI_WORKSTATION_CHOICE_H_
