#ifndef LUMARO_STANDALONE_STATEMENT_TEXTS_H_
#define LUMARO_STANDALONE_STATEMENT_TEXTS_H_

#include <functional>
#include <string>
#include <vector>

#include "connector/host/DatabaseService.h"

namespace standalone {

// Builds the SQL text of a SqlStatement with the literals of one database.
//   InsertText: INSERT INTO [T] ([col], ...) VALUES (value, ...) — the plain
//               columns only; keys name rows, they are not written.
//   UpdateText: UPDATE [T] SET [col]=value, ... WHERE [key]=value AND ...
//   DeleteText: DELETE FROM [T] WHERE [key]=value AND ...
//   SelectText: SELECT [sel], ... (or *) FROM [T] WHERE [key]=value AND ...
//   CountText:  SELECT COUNT(*) AS [Count] FROM [T] WHERE ...
// Without keys the WHERE clause is left out.
class StatementTexts : public host::StatementRunner {
 public:
  // What stands in the text for each value, in the order of the text.
  using ValueText = std::function<std::string(const host::SqlValue&)>;
  enum class Shape { kInsert, kUpdate, kDelete, kSelect, kCount };

  explicit StatementTexts(const host::SqlFormat& format) : format_(format) {}

  // The text of one shape with `value` writing each value: a literal, or a
  // ? marker for a database that binds it.
  static std::string Build(Shape shape, const host::SqlStatement& statement,
                           const ValueText& value);

  std::string InsertText(const host::SqlStatement& statement) const override;
  std::string UpdateText(const host::SqlStatement& statement) const override;
  std::string DeleteText(const host::SqlStatement& statement) const override;
  std::string SelectText(const host::SqlStatement& statement) const override;
  std::string CountText(const host::SqlStatement& statement) const override;

 private:
  std::string Literals(Shape shape, const host::SqlStatement& statement) const;

  const host::SqlFormat& format_;
};

// The texts with a ? marker for each value, kept by their shape: a
// statement of the table, columns and keys of one built before gets that
// text again without building it. A writer sends the same few shapes
// again and again (an item's row, a price row), so comparing the names
// costs far less than writing the text anew.
class MarkerTexts {
 public:
  // The text of `statement` in `shape`, valid until the next call; its
  // values, in the order of their markers, go to `values`.
  const std::string& Text(StatementTexts::Shape shape, const host::SqlStatement& statement,
                          std::vector<const host::SqlValue*>& values);

 private:
  struct Kept {
    StatementTexts::Shape shape;
    std::string table;
    std::vector<std::string> columns;
    std::vector<std::string> keys;
    std::string text;
  };
  static bool Fits(const Kept& kept, StatementTexts::Shape shape,
                   const host::SqlStatement& statement);

  // The most recent first; a few are enough for the shapes in use.
  std::vector<Kept> kept_;
  std::string select_text_;  // the last select's
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_STATEMENT_TEXTS_H_
