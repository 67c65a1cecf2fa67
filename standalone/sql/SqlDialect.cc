#include "standalone/sql/SqlDialect.h"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <optional>

#include "standalone/sql/SqlTokens.h"

namespace standalone {
namespace {

using Kind = SqlToken::Kind;
using Tokens = std::vector<SqlToken>;

// Index of the next non-blank token from `i` (inclusive), or tokens.size().
size_t NextSignificant(const Tokens& tokens, size_t i) {
  while (i < tokens.size() && tokens[i].IsBlank()) ++i;
  return i;
}

bool SignificantIs(const Tokens& tokens, size_t i, std::string_view word) {
  size_t j = NextSignificant(tokens, i);
  return j < tokens.size() && tokens[j].IsWord(word);
}

bool SymbolFollows(const Tokens& tokens, size_t i, std::string_view symbol) {
  size_t j = NextSignificant(tokens, i);
  return j < tokens.size() && tokens[j].IsSymbol(symbol);
}

SqlToken Word(std::string text) { return SqlToken{Kind::kWord, std::move(text)}; }

// What a target database names otherwise than the connector's dialect.
struct Target {
  bool postgres = false;
  std::string_view row_id;  // the column that names a row: rowid, ctid
  std::string_view now;     // PostgreSQL: the host's clock in its stored form
};

// A [Name] or "Name" as PostgreSQL reads the host's names: the host's
// tables and columns are made with unquoted names, which it folds to lower
// case; a quoted name keeps its quotes, so that a reserved word stays a name.
SqlToken PostgresIdentifier(const SqlToken& token) {
  std::string name = IdentifierName(token);
  for (char& c : name) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return SqlToken{Kind::kIdentifier, "\"" + name + "\""};
}

// dbo. prefixes, the functions the target lacks or names otherwise, and
// (PostgreSQL) quoted names and the row id.
void RenameFunctions(Tokens& tokens, const Target& target) {
  Tokens out;
  out.reserve(tokens.size());
  for (size_t i = 0; i < tokens.size(); ++i) {
    const SqlToken& token = tokens[i];
    bool is_name = token.kind == Kind::kWord || token.kind == Kind::kIdentifier;
    if (is_name && SameWord(IdentifierName(token), "dbo") && i + 1 < tokens.size() &&
        tokens[i + 1].IsSymbol(".")) {
      ++i;  // drop "dbo" and its "."
      continue;
    }
    if (token.kind == Kind::kWord && SymbolFollows(tokens, i + 1, "(")) {
      if (token.IsWord("Len")) {
        out.push_back(Word("length"));
        continue;
      }
      if (token.IsWord("left") && !target.postgres) {
        out.push_back(Word("lumaro_left"));
        continue;
      }
      if (token.IsWord("GetDate")) {
        if (!target.postgres) {
          out.push_back(Word("lumaro_now"));
          continue;
        }
        // The host's clock as a literal: "GetDate ( )" becomes one value.
        size_t open = NextSignificant(tokens, i + 1);
        size_t close = NextSignificant(tokens, open + 1);
        if (close < tokens.size() && tokens[close].IsSymbol(")")) {
          out.push_back(Word("CAST('" + std::string(target.now) + "' AS TIMESTAMP)"));
          i = close;
          continue;
        }
      }
    }
    if (target.postgres && token.kind == Kind::kIdentifier) {
      out.push_back(PostgresIdentifier(token));
      continue;
    }
    if (target.postgres && token.IsWord("rowid")) {
      out.push_back(Word(std::string(target.row_id)));
      continue;
    }
    out.push_back(token);
  }
  tokens = std::move(out);
}

// The significant tokens of a statement, without a trailing ";".
Tokens TrimStatement(Tokens tokens) {
  while (!tokens.empty() && (tokens.back().IsBlank() || tokens.back().IsSymbol(";"))) {
    tokens.pop_back();
  }
  size_t first = NextSignificant(tokens, 0);
  return Tokens(tokens.begin() + static_cast<long>(first), tokens.end());
}

// "DELETE FROM <table> WHERE rowid IN (SELECT <target>.rowid FROM <from>)",
// with the target's row id.
std::string DeleteThroughRowids(const std::string& table, const std::string& target,
                                const Tokens& from_clause, std::string_view row_id) {
  std::string id(row_id);
  return "DELETE FROM " + table + " WHERE " + id + " IN (SELECT " + target + "." + id + " FROM " +
         JoinTokens(from_clause) + ")";
}

// The two SQL Server forms of a delete across a join. Returns nothing when
// the statement is neither.
std::optional<std::string> TranslateJoinedDelete(const Tokens& all, std::string_view row_id) {
  Tokens tokens = TrimStatement(all);
  if (tokens.empty() || !tokens[0].IsWord("DELETE")) return std::nullopt;
  size_t i = NextSignificant(tokens, 1);
  if (i >= tokens.size()) return std::nullopt;

  if (tokens[i].IsWord("FROM")) {
    // DELETE FROM T FROM T INNER JOIN ...
    size_t table_at = NextSignificant(tokens, i + 1);
    if (table_at >= tokens.size()) return std::nullopt;
    size_t second_from = NextSignificant(tokens, table_at + 1);
    if (second_from >= tokens.size() || !tokens[second_from].IsWord("FROM")) return std::nullopt;
    Tokens rest(tokens.begin() + static_cast<long>(NextSignificant(tokens, second_from + 1)),
                tokens.end());
    return DeleteThroughRowids(tokens[table_at].text, tokens[table_at].text, rest, row_id);
  }

  // DELETE T.* FROM ... or DELETE T FROM ...: T is a table or an alias.
  size_t target_at = i;
  size_t from_at = target_at;
  while (from_at < tokens.size() && !tokens[from_at].IsWord("FROM")) ++from_at;
  if (from_at >= tokens.size()) return std::nullopt;
  const SqlToken& target = tokens[target_at];
  if (target.kind != Kind::kWord && target.kind != Kind::kIdentifier) return std::nullopt;
  Tokens rest(tokens.begin() + static_cast<long>(NextSignificant(tokens, from_at + 1)),
              tokens.end());
  // The table behind an alias: "<table> [AS] <target>" in the FROM clause.
  std::string table = target.text;
  std::string target_name = IdentifierName(target);
  for (size_t k = 0; k < rest.size(); ++k) {
    const SqlToken& token = rest[k];
    if ((token.kind != Kind::kWord && token.kind != Kind::kIdentifier) ||
        IdentifierName(token) != target_name || k == 0)
      continue;
    size_t before = k;
    do {
      --before;
    } while (before > 0 && rest[before].IsBlank());
    if (rest[before].IsWord("AS") && before > 0) {
      do {
        --before;
      } while (before > 0 && rest[before].IsBlank());
    }
    if (rest[before].kind == Kind::kWord || rest[before].kind == Kind::kIdentifier) {
      if (!rest[before].IsWord("JOIN") && !rest[before].IsWord("FROM") &&
          !rest[before].IsWord("ON") && !rest[before].IsWord("AND")) {
        table = rest[before].text;
        break;
      }
    }
  }
  return DeleteThroughRowids(table, target.text, rest, row_id);
}

std::optional<std::string> TranslateTruncate(const Tokens& all) {
  Tokens tokens = TrimStatement(all);
  if (tokens.empty() || !tokens[0].IsWord("TRUNCATE") || !SignificantIs(tokens, 1, "TABLE")) {
    return std::nullopt;
  }
  size_t table_at = NextSignificant(tokens, NextSignificant(tokens, 1) + 1);
  if (table_at >= tokens.size()) return std::nullopt;
  return "DELETE FROM " +
         JoinTokens(Tokens(tokens.begin() + static_cast<long>(table_at), tokens.end()));
}

// Whether the SELECT in [from, end) reads one table in its stored order: a
// FROM of one name, then nothing or a WHERE, and no ORDER BY or GROUP BY.
bool ReadsOneTableUnordered(const Tokens& tokens, size_t from, size_t end) {
  int depth = 0;
  size_t table = tokens.size();
  for (size_t k = from; k < end; ++k) {
    if (tokens[k].IsSymbol("(")) ++depth;
    if (tokens[k].IsSymbol(")")) --depth;
    if (depth != 0) continue;
    if (tokens[k].IsWord("ORDER") || tokens[k].IsWord("GROUP")) return false;
    if (tokens[k].IsWord("FROM")) table = NextSignificant(tokens, k + 1);
  }
  if (table >= end) return false;
  if (tokens[table].kind != Kind::kWord && tokens[table].kind != Kind::kIdentifier) return false;
  size_t after = NextSignificant(tokens, table + 1);
  return after >= end || tokens[after].IsWord("WHERE");
}

// SELECT [DISTINCT|ALL] TOP n ... -> SELECT [DISTINCT|ALL] ... LIMIT n, the
// LIMIT going where that SELECT ends: before the parenthesis that closes its
// subquery, or at the end of the statement. A TOP of one table without an
// ORDER BY takes the table's first rows in the order of its key, as a server
// reads a table by its clustered key: the host's first record is the one of
// the lowest id, not the first of whatever index the planner chose.
void TranslateTop(Tokens& tokens, std::string_view row_id) {
  for (size_t i = 0; i < tokens.size(); ++i) {
    if (!tokens[i].IsWord("SELECT")) continue;
    size_t j = NextSignificant(tokens, i + 1);
    bool distinct = j < tokens.size() && tokens[j].IsWord("DISTINCT");
    if (j < tokens.size() && (tokens[j].IsWord("DISTINCT") || tokens[j].IsWord("ALL"))) {
      j = NextSignificant(tokens, j + 1);
    }
    if (j >= tokens.size() || !tokens[j].IsWord("TOP")) continue;
    size_t n = NextSignificant(tokens, j + 1);
    bool parenthesised = n < tokens.size() && tokens[n].IsSymbol("(");
    if (parenthesised) n = NextSignificant(tokens, n + 1);
    if (n >= tokens.size() || tokens[n].kind != Kind::kNumber) continue;
    std::string count = tokens[n].text;
    size_t last = n;
    if (parenthesised) {
      last = NextSignificant(tokens, n + 1);
      // "TOP (n" without its ")" is no TOP this translation knows: left as
      // it stands, for the database to refuse.
      if (last >= tokens.size() || !tokens[last].IsSymbol(")")) continue;
    }
    // Drop "TOP n" and the blank after it.
    size_t erase_end = last + 1;
    if (erase_end < tokens.size() && tokens[erase_end].IsBlank()) ++erase_end;
    tokens.erase(tokens.begin() + static_cast<long>(j),
                 tokens.begin() + static_cast<long>(erase_end));
    // Find where this SELECT ends.
    int depth = 0;
    size_t end = j;
    for (; end < tokens.size(); ++end) {
      if (tokens[end].IsSymbol("(")) ++depth;
      if (tokens[end].IsSymbol(")")) {
        if (depth == 0) break;
        --depth;
      }
      if (tokens[end].IsSymbol(";") && depth == 0) break;
    }
    // Keep trailing blanks after the LIMIT.
    size_t insert_at = end;
    while (insert_at > j && tokens[insert_at - 1].IsBlank()) --insert_at;
    std::string order = !distinct && ReadsOneTableUnordered(tokens, j, end)
                            ? " ORDER BY " + std::string(row_id)
                            : "";
    tokens.insert(tokens.begin() + static_cast<long>(insert_at),
                  SqlToken{Kind::kBlank, order + " LIMIT " + count});
  }
}

bool IsComparison(Kind kind, std::string_view text) {
  static constexpr std::string_view kComparisons[] = {"=", "==", "<>", "!=", "<", ">", "<=", ">="};
  if (kind != Kind::kSymbol) return false;
  for (std::string_view op : kComparisons) {
    if (text == op) return true;
  }
  return false;
}

std::string UnquoteText(std::string_view literal) {
  std::string value;
  for (size_t i = 1; i + 1 < literal.size(); ++i) {
    value += literal[i];
    if (literal[i] == '\'' && literal[i + 1] == '\'') ++i;
  }
  return value;
}

ParameterizedSql::Value NumberValue(const std::string& text) {
  if (text.find_first_of(".eE") == std::string::npos) {
    errno = 0;
    long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (errno == 0) return static_cast<int64_t>(value);
  }
  return std::strtod(text.c_str(), nullptr);
}

}  // namespace

namespace {

std::string Translate(std::string_view sql, const Target& target) {
  Tokens tokens = TokenizeSql(sql);
  RenameFunctions(tokens, target);
  // PostgreSQL truncates as SQL Server does.
  if (!target.postgres) {
    if (auto text = TranslateTruncate(tokens)) return *text;
  }
  TranslateTop(tokens, target.row_id);
  if (auto text = TranslateJoinedDelete(tokens, target.row_id)) return *text;
  return JoinTokens(tokens);
}

}  // namespace

std::string TranslateToSqlite(std::string_view sql) {
  return Translate(sql, Target{false, "rowid", {}});
}

std::string TranslateToPostgres(std::string_view sql, std::string_view now) {
  return Translate(sql, Target{true, "ctid", now});
}

std::string HostStatementForPostgres(std::string_view sqlite_sql, std::string_view now) {
  Tokens tokens = TokenizeSql(sqlite_sql);
  size_t first = NextSignificant(tokens, 0);
  bool ddl =
      first < tokens.size() && (tokens[first].IsWord("CREATE") || tokens[first].IsWord("ALTER"));
  if (!ddl) {
    // SQLite's bytes X'89AB' are PostgreSQL's decode('89AB', 'hex').
    for (size_t i = 0; i + 1 < tokens.size(); ++i) {
      if (tokens[i].IsWord("X") && tokens[i + 1].kind == Kind::kString) {
        tokens[i] = Word("decode(" + tokens[i + 1].text + ", 'hex')");
        tokens.erase(tokens.begin() + static_cast<long>(i) + 1);
      }
    }
    return TranslateToPostgres(JoinTokens(tokens), now);
  }
  // An INTEGER of SQLite holds 64 bits (party ids pass 2^31); a BIGINT of
  // the host reads as a double, which NUMERIC does too.
  static constexpr std::pair<std::string_view, std::string_view> kTypes[] = {
      {"INTEGER", "BIGINT"},
      {"BIGINT", "NUMERIC(19)"},
      {"DATETIME", "TIMESTAMP(0)"},
      {"BIT", "SMALLINT"},
      {"FLOAT", "DOUBLE PRECISION"},
      {"MONEY", "DOUBLE PRECISION"},
      {"BLOB", "BYTEA"},
      {"IMAGE", "BYTEA"},
  };
  for (SqlToken& token : tokens) {
    if (token.kind == Kind::kIdentifier) token = PostgresIdentifier(token);
    if (token.kind != Kind::kWord) continue;
    for (const auto& [sqlite_type, postgres_type] : kTypes) {
      if (token.IsWord(sqlite_type)) {
        token.text = postgres_type;
        break;  // a type is mapped once: INTEGER's BIGINT is no host BIGINT
      }
    }
  }
  return JoinTokens(tokens);
}

bool IsDataStatement(std::string_view sql) {
  SqlToken::Kind kind;
  for (size_t at = 0, end; at < sql.size(); at = end) {
    end = NextToken(sql, at, kind);
    if (kind == Kind::kBlank) continue;
    std::string_view text = sql.substr(at, end - at);
    return kind == Kind::kWord &&
           (SameWord(text, "SELECT") || SameWord(text, "INSERT") || SameWord(text, "UPDATE") ||
            SameWord(text, "DELETE") || SameWord(text, "WITH"));
  }
  return false;
}

std::vector<std::string> SplitScript(std::string_view script) {
  std::vector<std::string> statements;
  std::string current;
  bool significant = false;
  SqlToken::Kind kind;
  for (size_t at = 0, end; at < script.size(); at = end) {
    end = NextToken(script, at, kind);
    std::string_view text = script.substr(at, end - at);
    if (kind == Kind::kSymbol && text == ";") {
      if (significant) statements.push_back(std::move(current));
      current.clear();
      significant = false;
      continue;
    }
    if (kind != Kind::kBlank) significant = true;
    current.append(text);
  }
  if (significant) statements.push_back(std::move(current));
  return statements;
}

namespace {

// One pass over the text: its values taken out as parameters (for a data
// statement), and whether it holds a form that SQLite lacks.
ParameterizedSql ScanStatement(std::string_view sql, bool& needs_translation) {
  ParameterizedSql result;
  needs_translation = false;
  // The first word decides; only data statements take parameters.
  bool decided = false;
  bool is_dml = false;
  // For each open parenthesis: whether it opens a VALUES or IN list.
  std::vector<bool> list_context;
  // The depth at which VALUES stood: its rows "(...), (...)" are all lists.
  std::optional<size_t> values_depth;
  Kind previous_kind = Kind::kBlank;
  std::string_view previous;
  size_t significant = 0;       // tokens other than blanks before this one
  bool leading_delete = false;  // the statement starts with DELETE
  auto previous_word = [&](std::string_view word) {
    return previous_kind == Kind::kWord && SameWord(previous, word);
  };
  auto previous_symbol = [&](std::string_view symbol) {
    return previous_kind == Kind::kSymbol && previous == symbol;
  };
  result.text.reserve(sql.size());
  // The text is copied in runs, up to each value taken out.
  size_t copied = 0;
  auto take_out = [&](size_t at, size_t end) {
    result.text.append(sql.data() + copied, at - copied);
    result.text += '?';
    copied = end;
  };
  Kind kind;
  for (size_t at = 0, end; at < sql.size(); at = end) {
    end = NextToken(sql, at, kind);
    std::string_view text = sql.substr(at, end - at);
    if (kind == Kind::kBlank) continue;
    if (!decided) {
      decided = true;
      is_dml = kind == Kind::kWord &&
               (SameWord(text, "SELECT") || SameWord(text, "INSERT") || SameWord(text, "UPDATE") ||
                SameWord(text, "DELETE") || SameWord(text, "WITH"));
    }
    if (kind == Kind::kWord &&
        (SameWord(text, "TOP") || SameWord(text, "dbo") || SameWord(text, "TRUNCATE"))) {
      needs_translation = true;
    }
    // A delete across a join needs translating: "DELETE T FROM ..." or
    // "DELETE FROM T FROM ...". A plain "DELETE FROM T ..." is SQLite's own,
    // and scanning it once is enough.
    if (kind == Kind::kWord && SameWord(text, "DELETE")) {
      if (significant == 0) {
        leading_delete = true;
      } else {
        needs_translation = true;
      }
    } else if (leading_delete &&
               ((significant == 1 && !(kind == Kind::kWord && SameWord(text, "FROM"))) ||
                (significant == 3 && kind == Kind::kWord && SameWord(text, "FROM")))) {
      needs_translation = true;
    }
    ++significant;
    // "[dbo]." and "\"dbo\"." are the prefix too.
    if (kind == Kind::kIdentifier && SameWord(IdentifierName(kind, text), "dbo")) {
      needs_translation = true;
    }
    if (kind == Kind::kSymbol && text == "(" &&
        (previous_word("Len") || previous_word("left") || previous_word("GetDate"))) {
      needs_translation = true;
    }
    bool in_list = !list_context.empty() && list_context.back();
    if (is_dml && kind == Kind::kString) {
      result.values.emplace_back(UnquoteText(text));
      take_out(at, end);
    } else if (is_dml && kind == Kind::kNumber && !previous.empty() &&
               (IsComparison(previous_kind, previous) ||
                (in_list && (previous_symbol("(") || previous_symbol(","))))) {
      result.values.push_back(NumberValue(std::string(text)));
      take_out(at, end);
    } else {
      if (kind == Kind::kWord && SameWord(text, "VALUES")) {
        values_depth = list_context.size();
      } else if (kind == Kind::kSymbol && text == "(") {
        bool opens_list = previous_word("VALUES") || previous_word("IN") ||
                          (previous_symbol(",") && values_depth == list_context.size());
        list_context.push_back(opens_list);
      } else if (kind == Kind::kSymbol && text == ")") {
        if (!list_context.empty()) list_context.pop_back();
      }
    }
    previous_kind = kind;
    previous = text;
  }
  result.text.append(sql.data() + copied, sql.size() - copied);
  if (!is_dml) {
    result.text = std::string(sql);
    result.values.clear();
  }
  return result;
}

}  // namespace

ParameterizedSql Parameterize(std::string_view sqlite_sql) {
  bool needs_translation;
  return ScanStatement(sqlite_sql, needs_translation);
}

ParameterizedSql PrepareForSqlite(std::string_view sql) {
  bool needs_translation;
  ParameterizedSql result = ScanStatement(sql, needs_translation);
  if (!needs_translation) return result;
  return Parameterize(TranslateToSqlite(sql));
}

}  // namespace standalone
