#ifndef LUMARO_STANDALONE_STATEMENT_TEXTS_H_
#define LUMARO_STANDALONE_STATEMENT_TEXTS_H_

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
  explicit StatementTexts(const host::SqlFormat& format) : format_(format) {}

  std::string InsertText(const host::SqlStatement& statement) const override;
  std::string UpdateText(const host::SqlStatement& statement) const override;
  std::string DeleteText(const host::SqlStatement& statement) const override;
  std::string SelectText(const host::SqlStatement& statement) const override;
  std::string CountText(const host::SqlStatement& statement) const override;

 private:
  std::string Value(const host::SqlStatement::Column& column) const;
  std::string Where(const host::SqlStatement& statement) const;

  const host::SqlFormat& format_;
};

}  // namespace standalone

#endif  // LUMARO_STANDALONE_STATEMENT_TEXTS_H_
