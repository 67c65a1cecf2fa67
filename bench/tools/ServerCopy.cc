#include "bench/tools/ServerCopy.h"

#include <stdexcept>
#include <vector>

#include "connector/host/Error.h"
#include "connector/host/FieldConverter.h"
#include "standalone/odbc/OdbcDatabase.h"
#include "standalone/schema/PosSchemaModel.h"
#include "standalone/sqlite/SqliteDatabase.h"

namespace bench {
namespace {

host::SqlValue ValueOf(const host::Variant& value, const std::string& table) {
  switch (value.Type()) {
    case host::VariantType::kEmpty:
    case host::VariantType::kNull:
      return host::SqlValue::Null();
    case host::VariantType::kString:
      return host::SqlValue::Text(value.AsString());
    case host::VariantType::kBoolean:
      return host::SqlValue::Boolean(value.AsBoolean());
    case host::VariantType::kDate:
      return host::SqlValue::DateTime(value.AsDate());
    case host::VariantType::kBytes:
      throw std::runtime_error("the table " + table + " holds bytes, which are not copied");
    default:
      return host::SqlValue::Number(host::FieldConverter::ToNumber(value));
  }
}

}  // namespace

long CopyToServer(const std::string& sqlite_path, const std::string& connection) {
  auto file = standalone::SqliteDatabase::Open(sqlite_path,
                                               standalone::SqliteDatabase::OpenMode::kReadOnly);
  auto server = standalone::OdbcDatabase::Connect(connection);
  long copied = 0;
  server->BeginTrans();
  try {
    for (const host::TableDefinition& table : standalone::PosSchemaModel()) {
      server->OpenRecordset("DELETE FROM [" + table.name + "]");
      host::RecordsetPtr rows = file->OpenRecordset("SELECT * FROM [" + table.name + "]");
      if (rows->Eof()) continue;
      std::string names;
      std::string markers;
      for (int i = 0; i < rows->FieldCount(); ++i) {
        names += (i == 0 ? "[" : ", [") + rows->FieldName(i) + "]";
        markers += i == 0 ? "?" : ", ?";
      }
      const std::string insert =
          "INSERT INTO [" + table.name + "] (" + names + ") VALUES (" + markers + ")";
      for (; !rows->Eof(); rows->MoveNext()) {
        std::vector<host::SqlValue> values;
        for (int i = 0; i < rows->FieldCount(); ++i) {
          values.push_back(ValueOf(rows->Fields(i), table.name));
        }
        server->Query(insert, values);
        ++copied;
      }
    }
    server->CommitTrans();
  } catch (...) {
    server->RollbackTrans();
    throw;
  }
  return copied;
}

}  // namespace bench
