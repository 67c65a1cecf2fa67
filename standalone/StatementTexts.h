#ifndef LUMARO_STANDALONE_STATEMENT_TEXTS_H_
#define LUMARO_STANDALONE_STATEMENT_TEXTS_H_

#include <functional>
#include <string>

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

}  // namespace standalone

#endif  // LUMARO_STANDALONE_STATEMENT_TEXTS_H_
