#include "standalone/sqlite/SqlTokens.h"

#include <cctype>

namespace standalone {
namespace {

bool IsWordStart(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) || c == '_' || c == '@' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsWordPart(char c) { return IsWordStart(c) || std::isdigit(static_cast<unsigned char>(c)); }

bool IsDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }

// The end of a quoted run that starts at `start` with `open` and ends with
// `close`; a doubled closing character stays inside. An unclosed run ends
// with the text.
size_t QuotedEnd(std::string_view sql, size_t start, char close) {
  size_t i = start + 1;
  while (i < sql.size()) {
    if (sql[i] == close) {
      if (close != ']' && i + 1 < sql.size() && sql[i + 1] == close) {
        i += 2;
        continue;
      }
      return i + 1;
    }
    ++i;
  }
  return sql.size();
}

}  // namespace

bool SqlToken::IsWord(std::string_view word) const {
  if (kind != Kind::kWord || text.size() != word.size()) return false;
  for (size_t i = 0; i < word.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(text[i])) !=
        std::toupper(static_cast<unsigned char>(word[i])))
      return false;
  }
  return true;
}

std::vector<SqlToken> TokenizeSql(std::string_view sql) {
  std::vector<SqlToken> tokens;
  size_t i = 0;
  auto push = [&](SqlToken::Kind kind, size_t end) {
    tokens.push_back(SqlToken{kind, std::string(sql.substr(i, end - i))});
    i = end;
  };
  while (i < sql.size()) {
    char c = sql[i];
    if (std::isspace(static_cast<unsigned char>(c))) {
      size_t end = i;
      while (end < sql.size() && std::isspace(static_cast<unsigned char>(sql[end]))) ++end;
      push(SqlToken::Kind::kBlank, end);
    } else if (c == '-' && i + 1 < sql.size() && sql[i + 1] == '-') {
      size_t end = sql.find('\n', i);
      push(SqlToken::Kind::kBlank, end == std::string_view::npos ? sql.size() : end);
    } else if (c == '/' && i + 1 < sql.size() && sql[i + 1] == '*') {
      size_t end = sql.find("*/", i + 2);
      push(SqlToken::Kind::kBlank, end == std::string_view::npos ? sql.size() : end + 2);
    } else if (c == '\'') {
      push(SqlToken::Kind::kString, QuotedEnd(sql, i, '\''));
    } else if (c == '"') {
      push(SqlToken::Kind::kIdentifier, QuotedEnd(sql, i, '"'));
    } else if (c == '[') {
      push(SqlToken::Kind::kIdentifier, QuotedEnd(sql, i, ']'));
    } else if (IsDigit(c) || (c == '.' && i + 1 < sql.size() && IsDigit(sql[i + 1]))) {
      size_t end = i;
      while (end < sql.size() && (IsDigit(sql[end]) || sql[end] == '.')) ++end;
      if (end < sql.size() && (sql[end] == 'e' || sql[end] == 'E')) {
        size_t exp = end + 1;
        if (exp < sql.size() && (sql[exp] == '+' || sql[exp] == '-')) ++exp;
        if (exp < sql.size() && IsDigit(sql[exp])) {
          end = exp;
          while (end < sql.size() && IsDigit(sql[end])) ++end;
        }
      }
      // A number glued to letters ("1st") is a word, not a number.
      if (end < sql.size() && IsWordStart(sql[end])) {
        while (end < sql.size() && IsWordPart(sql[end])) ++end;
        push(SqlToken::Kind::kWord, end);
      } else {
        push(SqlToken::Kind::kNumber, end);
      }
    } else if (IsWordStart(c)) {
      size_t end = i;
      while (end < sql.size() && IsWordPart(sql[end])) ++end;
      push(SqlToken::Kind::kWord, end);
    } else {
      static constexpr std::string_view kTwoCharSymbols[] = {"<>", "<=", ">=", "!=", "||", "=="};
      size_t end = i + 1;
      for (std::string_view symbol : kTwoCharSymbols) {
        if (sql.substr(i, 2) == symbol) end = i + 2;
      }
      push(SqlToken::Kind::kSymbol, end);
    }
  }
  return tokens;
}

std::string JoinTokens(const std::vector<SqlToken>& tokens) {
  std::string text;
  for (const SqlToken& token : tokens) text += token.text;
  return text;
}

std::string IdentifierName(const SqlToken& token) {
  if (token.kind == SqlToken::Kind::kIdentifier && token.text.size() >= 2) {
    return token.text.substr(1, token.text.size() - 2);
  }
  return token.text;
}

}  // namespace standalone
