#include "standalone/services/SqliteFamilyService.h"

#include "connector/host/FieldConverter.h"

namespace standalone {

using host::FieldConverter;

double SqliteFamilyService::GetIDFromKey(std::string_view family_key) {
  // The empty key is a key like another: the root that a load without its
  // key leaves is found by it.
  auto rs = db_.OpenRecordset("SELECT TOP 1 FamilyID FROM Family WHERE FamilyKey='" +
                              db_.SqlFormat().QuoteText(family_key) + "' ORDER BY FamilyID");
  return rs->Eof() ? 0 : FieldConverter::ToNumber(rs->Fields(0));
}

bool SqliteFamilyService::Exists(double family_id) {
  return RowExists(db_, "Family", "FamilyID", family_id);
}

std::shared_ptr<host::Family> SqliteFamilyService::Get(double family_id) {
  const std::string id = db_.SqlFormat().Number(family_id);
  auto rs = db_.OpenRecordset("SELECT * FROM Family WHERE FamilyID=" + id);
  if (rs->Eof()) return nullptr;
  auto family = std::make_shared<host::Family>();
  family->FamilyID = FieldConverter::ToNumber(rs->Fields("FamilyID"));
  family->FamilyKey = FieldConverter::ToText(rs->Fields("FamilyKey"));
  family->FamilyName = FieldConverter::ToText(rs->Fields("FamilyName"));
  family->ParentFamilyID = FieldConverter::ToNumber(rs->Fields("ParentFamilyID"));
  family->ParentFamilyName = FieldConverter::ToText(rs->Fields("ParentFamilyName"));
  family->FamilyLevel = static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("FamilyLevel")));
  family->FamilyPath = FieldConverter::ToText(rs->Fields("FamilyPath"));
  family->MaximumDiscount = FieldConverter::ToNumber(rs->Fields("MaximumDiscount"));
  family->IsServiceFamily = FieldConverter::ToBoolean(rs->Fields("IsServiceFamily"));
  family->FamilyItemKind =
      static_cast<int16_t>(FieldConverter::ToNumber(rs->Fields("FamilyItemKind")));
  for (auto levels = db_.OpenRecordset(
           "SELECT LevelNumber, LevelValue FROM FamilyProfitRate WHERE FamilyID=" + id +
           " ORDER BY LevelNumber");
       !levels->Eof(); levels->MoveNext()) {
    family->LevelRows.push_back(
        {static_cast<int16_t>(FieldConverter::ToNumber(levels->Fields("LevelNumber"))),
         FieldConverter::ToNumber(levels->Fields("LevelValue"))});
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
  row.Text("FamilyKey", family.FamilyKey);
  row.Text("FamilyName", family.FamilyName);
  row.Number("ParentFamilyID", family.ParentFamilyID);
  row.Text("ParentFamilyName", family.ParentFamilyName);
  row.Number("FamilyLevel", family.FamilyLevel);
  row.Text("FamilyPath", family.FamilyPath);
  row.Number("MaximumDiscount", family.MaximumDiscount);
  row.Boolean("IsServiceFamily", family.IsServiceFamily);
  row.Number("FamilyItemKind", family.FamilyItemKind);
  bool exists = Exists(family_id);
  writer_.Atomically([&] {
    if (exists) {
      row.KeyNumber("FamilyID", family_id);
      writer_.Update(row);
    } else {
      row.Number("FamilyID", family_id);
      writer_.Insert(row);
    }
    host::SqlStatement levels;
    levels.SetTable("FamilyProfitRate");
    levels.KeyNumber("FamilyID", family_id);
    writer_.Delete(levels);
    for (const host::FamilyLevelRow& level : family.LevelRows) {
      host::SqlStatement insert;
      insert.SetTable("FamilyProfitRate");
      insert.Number("FamilyID", family_id);
      insert.Number("LevelNumber", level.LevelNumber);
      insert.Number("LevelValue", level.LevelValue);
      writer_.Insert(insert);
    }
  });
}

}  // namespace standalone
