#include "standalone/sql/SqlTokens.h"

namespace standalone {
namespace {

// Plain ASCII classes, whatever the locale: a statement's words and
// symbols are ASCII, and a byte of a multi-byte character is a letter.
bool IsAsciiLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

bool IsWordStart(char c) {
  return IsAsciiLetter(c) || c == '_' || c == '@' || c == '$' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool IsWordPart(char c) { return IsWordStart(c) || IsDigit(c); }

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
  return kind == Kind::kWord && SameWord(text, word);
}

size_t NextToken(std::string_view sql, size_t i, SqlToken::Kind& kind) {
  char c = sql[i];
  if (IsSpace(c)) {
    size_t end = i;
    while (end < sql.size() && IsSpace(sql[end])) ++end;
    kind = SqlToken::Kind::kBlank;
    return end;
  }
  if (c == '-' && i + 1 < sql.size() && sql[i + 1] == '-') {
    size_t end = sql.find('\n', i);
    kind = SqlToken::Kind::kBlank;
    return end == std::string_view::npos ? sql.size() : end;
  }
  if (c == '/' && i + 1 < sql.size() && sql[i + 1] == '*') {
    size_t end = sql.find("*/", i + 2);
    kind = SqlToken::Kind::kBlank;
    return end == std::string_view::npos ? sql.size() : end + 2;
  }
  if (c == '\'') {
    kind = SqlToken::Kind::kString;
    return QuotedEnd(sql, i, '\'');
  }
  if (c == '"' || c == '[') {
    kind = SqlToken::Kind::kIdentifier;
    return QuotedEnd(sql, i, c == '"' ? '"' : ']');
  }
  if (IsDigit(c) || (c == '.' && i + 1 < sql.size() && IsDigit(sql[i + 1]))) {
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
      kind = SqlToken::Kind::kWord;
      return end;
    }
    kind = SqlToken::Kind::kNumber;
    return end;
  }
  if (IsWordStart(c)) {
    size_t end = i;
    while (end < sql.size() && IsWordPart(sql[end])) ++end;
    kind = SqlToken::Kind::kWord;
    return end;
  }
  // The two-character symbols: <> <= >= != || ==.
  kind = SqlToken::Kind::kSymbol;
  if (i + 1 < sql.size()) {
    char next = sql[i + 1];
    bool pair = (c == '<' && (next == '>' || next == '=')) || (c == '>' && next == '=') ||
                ((c == '!' || c == '=') && next == '=') || (c == '|' && next == '|');
    if (pair) return i + 2;
  }
  return i + 1;
}

std::vector<SqlToken> TokenizeSql(std::string_view sql) {
  std::vector<SqlToken> tokens;
  SqlToken::Kind kind;
  for (size_t at = 0, end; at < sql.size(); at = end) {
    end = NextToken(sql, at, kind);
    tokens.push_back(SqlToken{kind, std::string(sql.substr(at, end - at))});
  }
  return tokens;
}

std::string JoinTokens(const std::vector<SqlToken>& tokens) {
  std::string text;
  for (const SqlToken& token : tokens) text += token.text;
  return text;
}

std::string IdentifierName(const SqlToken& token) {
  return std::string(IdentifierName(token.kind, token.text));
}

std::string_view IdentifierName(SqlToken::Kind kind, std::string_view text) {
  if (kind == SqlToken::Kind::kIdentifier && text.size() >= 2) {
    return text.substr(1, text.size() - 2);
  }
  return text;
}

}  // namespace standalone
