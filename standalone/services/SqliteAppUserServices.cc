#include "standalone/services/SqliteAppUserServices.h"

#include "connector/host/FieldConverter.h"
#include "connector/host/SqlStatement.h"

namespace standalone {
namespace {

using host::FieldConverter;
using host::SqlValue;

// The next id of a table: its greatest plus 1, 1 for an empty table.
int16_t NextID(host::DatabaseService& db, const char* table, const char* column) {
  auto rs = db.Query(std::string("SELECT COALESCE(MAX(") + column + "), 0) + 1 FROM " + table, {});
  return static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields(0)));
}

}  // namespace

std::optional<host::AppGroup> SqliteAppGroupService::FindByName(std::string_view name) {
  auto rs = db_.Query("SELECT AppGroupID, AppGroupName FROM AppGroups WHERE AppGroupName=?",
                      {SqlValue::Text(name)});
  if (rs->Eof()) return std::nullopt;
  host::AppGroup group;
  group.AppGroupID = static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("AppGroupID")));
  group.AppGroupName = FieldConverter::ToText(rs->Fields("AppGroupName"));
  return group;
}

int16_t SqliteAppGroupService::Add(host::AppGroup& group) {
  group.AppGroupID = NextID(db_, "AppGroups", "AppGroupID");
  db_.Query("INSERT INTO AppGroups (AppGroupID, AppGroupName) VALUES (?, ?)",
            {SqlValue::Number(group.AppGroupID), SqlValue::Text(group.AppGroupName)});
  return group.AppGroupID;
}

bool SqliteAppGroupService::Exists(int16_t group_id) {
  return !db_.Query("SELECT 1 FROM AppGroups WHERE AppGroupID=?", {SqlValue::Number(group_id)})
              ->Eof();
}

std::shared_ptr<host::AppUser> SqliteAppUserService::GetByKey(std::string_view key) {
  auto rs = db_.Query("SELECT * FROM AppUsers WHERE AppUserKey=?", {SqlValue::Text(key)});
  if (rs->Eof()) return nullptr;
  auto user = std::make_shared<host::AppUser>();
  user->AppUserID = static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("AppUserID")));
  user->AppUserKey = FieldConverter::ToText(rs->Fields("AppUserKey"));
  user->AppUserName = FieldConverter::ToText(rs->Fields("AppUserName"));
  user->SecurityLevel = static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("SecurityLevel")));
  user->MaximumDiscount = FieldConverter::ToNumber(rs->Fields("MaximumDiscount"));
  user->DefaultWorkstationID =
      static_cast<int32_t>(FieldConverter::ToNumber(rs->Fields("DefaultWorkstationID")));
  user->Active = FieldConverter::ToBoolean(rs->Fields("Active"));
  user->CanChangePrices = FieldConverter::ToBoolean(rs->Fields("CanChangePrices"));
  user->CanVoidDocuments = FieldConverter::ToBoolean(rs->Fields("CanVoidDocuments"));
  for (auto groups = db_.Query("SELECT AppGroupID FROM AppUsersGroups WHERE AppUserID=? ORDER BY "
                               "AppGroupID",
                               {SqlValue::Number(user->AppUserID)});
       !groups->Eof(); groups->MoveNext()) {
    user->Groups.push_back(static_cast<int16_t>(FieldConverter::ToNumber(groups->Fields(0))));
  }
  return user;
}

void SqliteAppUserService::Save(host::AppUser& user) {
  bool is_new = user.AppUserID == 0;
  db_.BeginTrans();
  try {
    if (is_new) user.AppUserID = NextID(db_, "AppUsers", "AppUserID");
    std::vector<SqlValue> values = {SqlValue::Text(user.AppUserKey),
                                    SqlValue::Text(user.AppUserName),
                                    SqlValue::Number(user.SecurityLevel),
                                    SqlValue::Number(user.MaximumDiscount),
                                    SqlValue::Number(user.DefaultWorkstationID),
                                    SqlValue::Boolean(user.Active),
                                    SqlValue::Boolean(user.CanChangePrices),
                                    SqlValue::Boolean(user.CanVoidDocuments),
                                    SqlValue::Number(user.AppUserID)};
    db_.Query(is_new ? "INSERT INTO AppUsers (AppUserKey, AppUserName, SecurityLevel, "
                       "MaximumDiscount, DefaultWorkstationID, Active, CanChangePrices, "
                       "CanVoidDocuments, AppUserID) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"
                     : "UPDATE AppUsers SET AppUserKey=?, AppUserName=?, SecurityLevel=?, "
                       "MaximumDiscount=?, DefaultWorkstationID=?, Active=?, CanChangePrices=?, "
                       "CanVoidDocuments=? WHERE AppUserID=?",
              values);
    db_.Query("DELETE FROM AppUsersGroups WHERE AppUserID=?", {SqlValue::Number(user.AppUserID)});
    for (int16_t group : user.Groups) {
      db_.Query("INSERT INTO AppUsersGroups (AppUserID, AppGroupID) VALUES (?, ?)",
                {SqlValue::Number(user.AppUserID), SqlValue::Number(group)});
    }
    db_.CommitTrans();
  } catch (...) {
    db_.RollbackTrans();
    if (is_new) user.AppUserID = 0;
    throw;
  }
}

}  // namespace standalone
