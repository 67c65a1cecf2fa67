#include "connector/host/RecordsetCriteria.h"

#include <cctype>

#include "connector/host/Conversions.h"
#include "connector/host/Error.h"
#include "connector/host/Text.h"

namespace host {
namespace {

constexpr int32_t kBadArguments = 3001;

[[noreturn]] void Malformed(std::string_view text) {
  RaiseWith(kBadArguments,
            "Arguments are of the wrong type, are out of acceptable range, or are in conflict "
            "with one another: " +
                std::string(text));
}

// A small scanner over the criteria text.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : text_(text) {}

  void SkipBlanks() {
    while (pos_ < text_.size() && std::isspace(static_cast<unsigned char>(text_[pos_]))) ++pos_;
  }
  bool AtEnd() {
    SkipBlanks();
    return pos_ >= text_.size();
  }

  std::string Column() {
    SkipBlanks();
    if (pos_ < text_.size() && text_[pos_] == '[') {
      size_t close = text_.find(']', pos_);
      if (close == std::string_view::npos) Malformed(text_);
      std::string name(text_.substr(pos_ + 1, close - pos_ - 1));
      pos_ = close + 1;
      return name;
    }
    size_t start = pos_;
    while (pos_ < text_.size() && (std::isalnum(static_cast<unsigned char>(text_[pos_])) ||
                                   text_[pos_] == '_' || text_[pos_] == '.'))
      ++pos_;
    if (start == pos_) Malformed(text_);
    return std::string(text_.substr(start, pos_ - start));
  }

  std::string Operator() {
    SkipBlanks();
    for (std::string_view op : {"<=", ">=", "<>", "=", "<", ">"}) {
      if (text_.substr(pos_, op.size()) == op) {
        pos_ += op.size();
        return std::string(op);
      }
    }
    if (Keyword("LIKE")) return "LIKE";
    Malformed(text_);
  }

  // A LIKE pattern may stand without quotes ("CFam LIKE 01*"), as the
  // family tree's filters write it: a bare word is then its text.
  Variant Value(bool bare_text = false) {
    SkipBlanks();
    if (pos_ >= text_.size()) Malformed(text_);
    char c = text_[pos_];
    if (c == '\'' || c == '#') {
      std::string value;
      ++pos_;
      while (true) {
        if (pos_ >= text_.size()) Malformed(text_);
        if (text_[pos_] == c) {
          if (c == '\'' && pos_ + 1 < text_.size() && text_[pos_ + 1] == '\'') {
            value += '\'';
            pos_ += 2;
            continue;
          }
          ++pos_;
          break;
        }
        value += text_[pos_++];
      }
      if (c == '#') return Variant(CDate(Variant(value)));
      return Variant(value);
    }
    if (Keyword("NULL")) return Variant::Null();
    size_t start = pos_;
    while (pos_ < text_.size() && !std::isspace(static_cast<unsigned char>(text_[pos_]))) ++pos_;
    std::string number(text_.substr(start, pos_ - start));
    if (bare_text && !number.empty()) return Variant(number);
    try {
      return Variant(ParseNumber(number, "."));
    } catch (const Error&) {
      Malformed(text_);
    }
  }

  // Consumes the keyword if it stands next, as a whole word.
  bool Keyword(std::string_view word) {
    SkipBlanks();
    if (pos_ + word.size() > text_.size()) return false;
    if (!EqualsNoCase(text_.substr(pos_, word.size()), word)) return false;
    size_t after = pos_ + word.size();
    if (after < text_.size() && std::isalnum(static_cast<unsigned char>(text_[after])))
      return false;
    pos_ = after;
    return true;
  }

 private:
  std::string_view text_;
  size_t pos_ = 0;
};

int Compare(double a, double b) { return a < b ? -1 : (a > b ? 1 : 0); }

}  // namespace

RecordsetCriteria::RecordsetCriteria(std::string_view text) {
  Scanner scanner(text);
  groups_.emplace_back();
  while (true) {
    Clause clause;
    clause.column = scanner.Column();
    clause.op = scanner.Operator();
    clause.value = scanner.Value(clause.op == "LIKE");
    groups_.back().push_back(std::move(clause));
    if (scanner.AtEnd()) break;
    if (scanner.Keyword("AND")) continue;
    if (scanner.Keyword("OR")) {
      groups_.emplace_back();
      continue;
    }
    Malformed(text);
  }
}

size_t RecordsetCriteria::ClauseCount() const {
  size_t count = 0;
  for (const auto& group : groups_) count += group.size();
  return count;
}

bool RecordsetCriteria::Matches(
    const std::function<const Variant&(std::string_view)>& field) const {
  for (const auto& group : groups_) {
    bool all = true;
    for (const Clause& clause : group) {
      if (!Test(field(clause.column), clause)) {
        all = false;
        break;
      }
    }
    if (all) return true;
  }
  return false;
}

bool RecordsetCriteria::Test(const Variant& field, const Clause& clause) {
  const std::string& op = clause.op;
  if (clause.value.IsNull() || field.IsNull() || field.IsEmpty()) {
    bool both_null = clause.value.IsNull() && (field.IsNull() || field.IsEmpty());
    if (op == "=") return both_null;
    if (op == "<>") return !both_null;
    return false;
  }
  if (op == "LIKE") {
    std::string pattern = UCase(CStr(clause.value));
    pattern = Replace(Replace(pattern, "%", "*"), "_", "?");
    return Like(UCase(CStr(field)), pattern);
  }
  int order;
  if (field.Type() == VariantType::kDate || clause.value.Type() == VariantType::kDate) {
    order = Compare(CDate(field).serial, CDate(clause.value).serial);
  } else if (field.IsNumeric() && clause.value.Type() == VariantType::kDouble) {
    order = Compare(CDbl(field), clause.value.AsDouble());
  } else if (field.IsNumeric()) {
    order = Compare(CDbl(field), ParseNumber(CStr(clause.value), "."));
  } else {
    std::string a = UCase(CStr(field));
    std::string b = UCase(CStr(clause.value));
    order = a.compare(b) < 0 ? -1 : (a == b ? 0 : 1);
  }
  if (op == "=") return order == 0;
  if (op == "<>") return order != 0;
  if (op == "<") return order < 0;
  if (op == ">") return order > 0;
  if (op == "<=") return order <= 0;
  return order >= 0;  // ">="
}

}  // namespace host
