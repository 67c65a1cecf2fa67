// The SQLite database service's reading of the connector's SQL: the
// tokenizer, the translation of the SQL Server / Access forms, and the
// taking out of literal values as parameters, on any text.
//
// Beyond crashes, the target checks what these promise:
//  - joining the tokens gives the text back;
//  - the translation never rewrites inside quotes: every text literal and
//    quoted name comes out as it went in, in order (but a [dbo] prefix,
//    which is dropped, and the statements that start with DELETE, which a
//    joined delete rebuilds around its FROM clause, and the statements
//    whose last quote is never closed, which SQLite refuses anyway);
//  - Parameterize keeps every token that is not a value, puts one "?" for
//    each value it takes, in order, and takes a text literal's value as the
//    text between its quotes (a doubled quote read as one);
//  - PrepareForSqlite, which skips the translation when the text holds no
//    form that needs it, gives what the translation followed by
//    Parameterize gives.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "standalone/sql/SqlDialect.h"
#include "standalone/sql/SqlTokens.h"

namespace {

using standalone::ParameterizedSql;
using standalone::SqlToken;

[[noreturn]] void Broken(const char* promise, std::string_view sql) {
  std::fprintf(stderr, "SQL dialect breaks its promise: %s\n  statement: %.*s\n", promise,
               static_cast<int>(sql.size()), sql.data());
  std::abort();
}

// A quoted token closed by its own quote: for 'text' and "name" the last
// quote not doubled, for [name] the first "]".
bool IsClosed(const SqlToken& token) {
  const std::string& text = token.text;
  if (text.size() < 2) return false;
  const char close = text[0] == '[' ? ']' : text[0];
  if (close == ']') return text.find(']') == text.size() - 1;
  size_t i = 1;
  while (i < text.size()) {
    if (text[i] == close) {
      if (i + 1 < text.size() && text[i + 1] == close) {
        i += 2;
        continue;
      }
      return i + 1 == text.size();
    }
    ++i;
  }
  return false;
}

std::string Quoted(const std::string& value) {
  std::string literal = "'";
  for (char c : value) {
    literal += c;
    if (c == '\'') literal += '\'';
  }
  return literal + "'";
}

// Walks the tokens of the statement and of its parameterized text side by
// side: each token is kept, or is a value that became a "?".
void CheckParameters(std::string_view sql, const ParameterizedSql& result) {
  const std::vector<SqlToken> before = standalone::TokenizeSql(sql);
  const std::vector<SqlToken> after = standalone::TokenizeSql(result.text);
  size_t i = 0;
  size_t j = 0;
  size_t value = 0;
  for (; i < before.size() && j < after.size(); ++i, ++j) {
    if (before[i].kind == after[j].kind && before[i].text == after[j].text) continue;
    const bool is_value =
        before[i].kind == SqlToken::Kind::kString || before[i].kind == SqlToken::Kind::kNumber;
    if (!is_value || !after[j].IsSymbol("?")) Broken("every token but the values is kept", sql);
    if (value >= result.values.size()) Broken("one value for each ?", sql);
    const ParameterizedSql::Value& taken = result.values[value++];
    if (before[i].kind == SqlToken::Kind::kString) {
      if (!std::holds_alternative<std::string>(taken)) Broken("a text literal is a text", sql);
      if (IsClosed(before[i]) && Quoted(std::get<std::string>(taken)) != before[i].text) {
        Broken("a text literal's value is the text between its quotes", sql);
      }
    } else if (std::holds_alternative<std::string>(taken)) {
      Broken("a number is a number", sql);
    }
  }
  if (i != before.size() || j != after.size()) Broken("every token but the values is kept", sql);
  if (value != result.values.size()) Broken("one ? for each value", sql);
}

// The first token that is not blank, or nullptr.
const SqlToken* FirstSignificant(const std::vector<SqlToken>& tokens) {
  for (const SqlToken& token : tokens) {
    if (!token.IsBlank()) return &token;
  }
  return nullptr;
}

// The text literals and quoted names, in order; a quoted "dbo" (in any case,
// as the server reads names) right before a "." left out when `drop_dbo`.
std::vector<std::string> QuotedRuns(const std::vector<SqlToken>& tokens, bool drop_dbo) {
  std::vector<std::string> runs;
  for (size_t i = 0; i < tokens.size(); ++i) {
    const SqlToken& token = tokens[i];
    if (token.kind != SqlToken::Kind::kString && token.kind != SqlToken::Kind::kIdentifier)
      continue;
    if (drop_dbo && token.kind == SqlToken::Kind::kIdentifier &&
        standalone::SameWord(standalone::IdentifierName(token), "dbo") && i + 1 < tokens.size() &&
        tokens[i + 1].IsSymbol(".")) {
      continue;
    }
    runs.push_back(token.text);
  }
  return runs;
}

void CheckQuotesKept(std::string_view sql, const std::string& translated) {
  const std::vector<SqlToken> before = standalone::TokenizeSql(sql);
  const SqlToken* first = FirstSignificant(before);
  if (first != nullptr && first->IsWord("DELETE")) return;
  if (!before.empty() &&
      (before.back().kind == SqlToken::Kind::kString ||
       before.back().kind == SqlToken::Kind::kIdentifier) &&
      !IsClosed(before.back())) {
    return;
  }
  if (QuotedRuns(before, true) != QuotedRuns(standalone::TokenizeSql(translated), false)) {
    std::fprintf(stderr, "  translated: %s\n", translated.c_str());
    Broken("the translation keeps every quoted literal and name", sql);
  }
}

bool SameValues(const ParameterizedSql& a, const ParameterizedSql& b) {
  if (a.values.size() != b.values.size()) return false;
  for (size_t i = 0; i < a.values.size(); ++i) {
    if (a.values[i].index() != b.values[i].index()) return false;
    // Two doubles compare by their bits, so that NaN equals itself.
    if (const double* x = std::get_if<double>(&a.values[i])) {
      const double y = std::get<double>(b.values[i]);
      if (!(*x == y || (*x != *x && y != y))) return false;
    } else if (a.values[i] != b.values[i]) {
      return false;
    }
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view sql(reinterpret_cast<const char*>(data), size);

  if (standalone::JoinTokens(standalone::TokenizeSql(sql)) != sql) {
    Broken("joining the tokens gives the text back", sql);
  }

  const std::string translated = standalone::TranslateToSqlite(sql);
  CheckQuotesKept(sql, translated);
  const ParameterizedSql parameterized = standalone::Parameterize(sql);
  CheckParameters(sql, parameterized);

  const ParameterizedSql prepared = standalone::PrepareForSqlite(sql);
  const ParameterizedSql expected = standalone::Parameterize(translated);
  if (prepared.text != expected.text || !SameValues(prepared, expected)) {
    std::fprintf(stderr, "  fast path: %s\n  translated: %s\n", prepared.text.c_str(),
                 expected.text.c_str());
    Broken("PrepareForSqlite is the translation followed by Parameterize", sql);
  }
  return 0;
}
