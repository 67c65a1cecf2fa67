#ifndef LUMARO_STANDALONE_SQL_SQL_TOKENS_H_
#define LUMARO_STANDALONE_SQL_SQL_TOKENS_H_

#include <string>
#include <string_view>
#include <vector>

#include "connector/host/AsciiNames.h"

namespace standalone {

// One token of an SQL text. Quoted literals, quoted identifiers and comments
// are single tokens, so that nothing inside them is ever rewritten.
struct SqlToken {
  enum class Kind {
    kWord,        // a name or keyword
    kNumber,      // 12, 12.5, 1e3
    kString,      // 'text' (quotes included, '' inside)
    kIdentifier,  // [name] or "name"
    kSymbol,      // punctuation and operators: ( ) , . * = <> <= >= ...
    kBlank,       // white space and comments
  };
  Kind kind;
  std::string text;

  bool IsWord(std::string_view word) const;  // without regard to case
  bool IsSymbol(std::string_view symbol) const { return kind == Kind::kSymbol && text == symbol; }
  bool IsBlank() const { return kind == Kind::kBlank; }
};

// Whether a word's text is `word`, without regard to (ASCII) case.
inline bool SameWord(std::string_view text, std::string_view word) {
  return host::SameAsciiNoCase(text, word);
}

// The token of the SQL text that starts at `start` (< sql.size()): sets
// `kind` and returns where the token ends. Walking from 0 to the end token by
// token gives every token in order, as views into the text.
size_t NextToken(std::string_view sql, size_t start, SqlToken::Kind& kind);

// Splits SQL text into tokens; joining their texts gives the input back.
std::vector<SqlToken> TokenizeSql(std::string_view sql);

std::string JoinTokens(const std::vector<SqlToken>& tokens);

// The name inside an identifier token ([Name] gives Name) or a word.
std::string IdentifierName(const SqlToken& token);
std::string_view IdentifierName(SqlToken::Kind kind, std::string_view text);

}  // namespace standalone

#endif  // LUMARO_STANDALONE_SQL_SQL_TOKENS_H_
