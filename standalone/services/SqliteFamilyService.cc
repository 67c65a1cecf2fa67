#include "standalone/services/SqliteFamilyService.h"

#include "connector/host/FieldConverter.h"
#include "standalone/services/EntityColumns.h"

namespace standalone {
namespace {

using host::Family;
using host::FieldConverter;

// The Family row but its id.
const EntityColumns<Family> kFamilyColumns = {
    {"FamilyKey", &Family::FamilyKey},
    {"FamilyName", &Family::FamilyName},
    {"ParentFamilyID", &Family::ParentFamilyID},
    {"ParentFamilyName", &Family::ParentFamilyName},
    {"FamilyLevel", &Family::FamilyLevel},
    {"FamilyPath", &Family::FamilyPath},
    {"MaximumDiscount", &Family::MaximumDiscount},
    {"IsServiceFamily", &Family::IsServiceFamily},
    {"FamilyItemKind", &Family::FamilyItemKind},
};

using host::FamilyLevelRow;
const EntityColumns<FamilyLevelRow> kLevelColumns = {
    {"LevelNumber", &FamilyLevelRow::LevelNumber},
    {"LevelValue", &FamilyLevelRow::LevelValue},
};

}  // namespace

double SqliteFamilyService::GetIDFromKey(std::string_view family_key) {
  // The empty key is a key like another: the root that a load without its
  // key leaves is found by it.
  std::optional<int64_t> counter = db_.ChangeCounter("Family");
  if (std::optional<double> id = ids_.Find(counter, family_key)) return *id;
  auto rs = db_.Query("SELECT TOP 1 FamilyID FROM Family WHERE FamilyKey=? ORDER BY FamilyID",
                      {host::SqlValue::Text(family_key)});
  double id = rs->Eof() ? 0 : FieldConverter::ToNumber(rs->Fields(0));
  ids_.Put(counter, std::string(family_key), id);
  return id;
}

bool SqliteFamilyService::Exists(double family_id) {
  return RowExists(db_, "Family", "FamilyID", family_id);
}

std::shared_ptr<host::Family> SqliteFamilyService::Get(double family_id) {
  const std::vector<host::SqlValue> id = {host::SqlValue::Number(family_id)};
  auto rs = db_.Query("SELECT * FROM Family WHERE FamilyID=?", id);
  if (rs->Eof()) return nullptr;
  auto family = std::make_shared<Family>();
  family->FamilyID = FieldConverter::ToNumber(rs->Fields("FamilyID"));
  kFamilyColumns.Read(*rs, *family);
  for (auto levels = db_.Query(
           "SELECT LevelNumber, LevelValue FROM FamilyProfitRate WHERE FamilyID=? ORDER BY "
           "LevelNumber",
           id);
       !levels->Eof(); levels->MoveNext()) {
    kLevelColumns.Read(*levels, family->LevelRows.emplace_back());
  }
  return family;
}

double SqliteFamilyService::NextID() { return NextId(db_, "Family", "FamilyID"); }

double SqliteFamilyService::GetDefaultFamilyID() {
  return FirstId(db_, "Family", "FamilyID", "FamilyLevel=0");
}

void SqliteFamilyService::Save(const host::Family& family, double family_id) {
  host::SqlStatement row;
  row.SetTable("Family");
  kFamilyColumns.Write(family, row);
  bool exists = Exists(family_id);
  writer_.Atomically([&] {
    if (exists) {
      row.KeyNumber("FamilyID", family_id);
      writer_.Update(std::move(row));
    } else {
      row.Number("FamilyID", family_id);
      writer_.Insert(std::move(row));
    }
    host::SqlStatement levels;
    levels.SetTable("FamilyProfitRate");
    levels.KeyNumber("FamilyID", family_id);
    writer_.Delete(std::move(levels));
    for (const FamilyLevelRow& level : family.LevelRows) {
      host::SqlStatement insert;
      insert.SetTable("FamilyProfitRate");
      insert.Number("FamilyID", family_id);
      kLevelColumns.Write(level, insert);
      writer_.Insert(std::move(insert));
    }
  });
}

}  // namespace standalone
