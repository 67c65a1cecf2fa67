#ifndef LUMARO_CONNECTOR_HOST_RECORDSET_CRITERIA_H_
#define LUMARO_CONNECTOR_HOST_RECORDSET_CRITERIA_H_

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "connector/host/Variant.h"

namespace host {

// The criteria of a recordset's Filter and Find: clauses
// "Column op value" joined by AND and OR (AND binds first). `op` is =, <>,
// <, >, <=, >= or LIKE (with * or % for any run, _ for one character);
// `value` is 'text', #date#, a number or Null. Text compares without regard
// to case, as ADO does. A malformed criteria raises 3001.
class RecordsetCriteria {
 public:
  explicit RecordsetCriteria(std::string_view text);

  // Whether a row matches; `field` gives a column's value by name and raises
  // 3265 for a name the recordset lacks.
  bool Matches(const std::function<const Variant&(std::string_view)>& field) const;

  size_t ClauseCount() const;

 private:
  struct Clause {
    std::string column;
    std::string op;
    Variant value;
  };
  static bool Test(const Variant& field, const Clause& clause);

  // Disjunction of conjunctions.
  std::vector<std::vector<Clause>> groups_;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_RECORDSET_CRITERIA_H_
