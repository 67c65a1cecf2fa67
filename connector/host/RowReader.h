#ifndef LUMARO_CONNECTOR_HOST_ROW_READER_H_
#define LUMARO_CONNECTOR_HOST_ROW_READER_H_

#include <memory>
#include <string>

#include "connector/host/FieldConverter.h"
#include "connector/host/Recordset.h"
#include "connector/host/Variant.h"

namespace host {

// One row of a query, read column by column where it stands, without a
// recordset made of it: for a reader that turns each row into its own
// members at once. Valid only while the callback that gets it runs.
//
// Each typed read gives exactly what the FieldConverter gives for the
// field a recordset of the query would hold (Value); a database may take a
// shorter way to it for the forms it stores.
class RowReader {
 public:
  virtual ~RowReader() = default;

  // The query's column names, shared by every row of it (the same object
  // for the rows of one prepared statement).
  virtual const std::shared_ptr<const RecordsetColumns>& Columns() const = 0;
  // The field at `column` (0-based), as a recordset holds it.
  virtual Variant Value(int column) const = 0;

  virtual void TextInto(int column, std::string& text) const {
    text = FieldConverter::ToText(Value(column));
  }
  virtual double Number(int column) const { return FieldConverter::ToNumber(Value(column)); }
  virtual bool Truth(int column) const { return FieldConverter::ToBoolean(Value(column)); }
};

// The current row of a recordset as a RowReader.
class RecordsetRowReader : public RowReader {
 public:
  explicit RecordsetRowReader(const Recordset& recordset) : recordset_(recordset) {}
  const std::shared_ptr<const RecordsetColumns>& Columns() const override {
    return recordset_.Columns();
  }
  Variant Value(int column) const override { return recordset_.Fields(column); }

 private:
  const Recordset& recordset_;
};

}  // namespace host

#endif  // LUMARO_CONNECTOR_HOST_ROW_READER_H_
