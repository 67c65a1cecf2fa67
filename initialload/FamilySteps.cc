// The tree of item families. The back office keeps it flat: a family's code
// begins with its parent's, and each level has its number of characters
// (the parameters CFam1, CFam2, ...). The POS keeps a tree of explicit
// parents under one root.

#include <vector>

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

constexpr int32_t kRootName = 3880041;
constexpr const char* kRootKey = "GeneralFamily";
// The levels read below the first loaded one, each from its own recordset.
constexpr int kLevelsRead = 4;
// The length a level the company does not use asks for: no code has it.
constexpr int kUnusedLevelLength = 20;

// What a family's children take from it.
struct Parent {
  double id = 0;
  std::string name;
  std::string path;
  std::string code;
};

void AddLevelRows(host::Family& family) {
  for (int16_t number : {1, 2, 3}) family.LevelRows.push_back({number, 0});
}

}  // namespace

void BSOUpgBrevantaLumaroTables::Upgrade_Family() {
  LoadStep step("Upgrade_Family");
  Progress("Family");
  std::unique_ptr<host::FamilyService> families;
  if (!step.Run(1, [&] { families = ModConnectorLumaro::Host().NewFamilyService(); })) return;

  // The first loaded level and its length. The levels above it are not
  // loaded: their codes only carry their children's prefix.
  int level = 1;
  int length = 0;
  if (initialize_mode_) {
    level = FamilyLevelLimit;
    for (int i = 1; i <= FamilyLevelLimit; ++i) length += GetFamilyLevelDigits(i);
  } else {
    length = GetFamilyLevelDigits(1);
  }
  std::string clause;
  if (!FamilyLimit.empty()) {
    clause = "Substring(CFam, 1, " + std::to_string(length) + ") IN (" + FamilyLimit + ")";
  }
  host::DatabaseService& source = source_.Get();
  double total = 0;
  step.Run(2, [&] {
    host::RecordsetPtr all =
        source.OpenRecordset("SELECT * FROM FmArt" + (clause.empty() ? "" : " WHERE " + clause));
    total = all->RecordCount();
    host::RecordsetTools::CloseRecordset(all);
  });
  const double max = total + 1;

  // One recordset per level, each read once and narrowed by a filter for
  // each parent, rather than a query per parent.
  std::vector<host::RecordsetPtr> levels(kLevelsRead);
  for (int i = 0; i < kLevelsRead; ++i) {
    if (i > 0) {
      ++level;
      int digits = GetFamilyLevelDigits(level);
      length = digits == 0 ? kUnusedLevelLength : length + digits;
    }
    std::string sql = host::Replace(
        "SELECT * FROM FmArt WHERE Len(CFam) = ORDER BY Len(CFam), CFam", "Len(CFam) =",
        "Len(CFam) =" + std::to_string(length) + (clause.empty() ? "" : " AND " + clause) + " ");
    step.Run(3, [&] { levels[i] = source.OpenRecordset(sql); });
  }
  if (max <= 1) {  // no family at all: no root either
    for (auto& rs : levels) host::RecordsetTools::CloseRecordset(rs);
    return;
  }

  double count = 0;
  auto saved = [&](host::Family& family, int line) {
    step.Run(line, [&] { families->Save(family, family.FamilyID); });
    ++count;
    if (events_) events_->ProgressCurrent("Family", count, max);
  };

  host::Family root;
  step.Run(4, [&] { root.FamilyID = families->NextID(); });
  if (initialize_mode_) root.FamilyKey = kRootKey;
  root.FamilyName = CatalogueText(kRootName);
  root.ParentFamilyName = root.FamilyName;
  root.MaximumDiscount = 100;
  root.FamilyPath = root.FamilyName;
  AddLevelRows(root);
  saved(root, 5);
  step.Run(6, [&] { Keys().Add(host::Variant(root.FamilyID), "Family|"); });

  const host::NameTools& names = ModConnectorLumaro::Host().NameTools();
  // The families of recordset `depth` under `parent`, and theirs below.
  std::function<void(int, const Parent&)> load_level = [&](int depth, const Parent& parent) {
    host::Recordset* rs = levels[depth].get();
    if (rs == nullptr) return;
    if (depth > 0) {
      // A filter the recordset refuses is logged, and the rows stay as
      // they were.
      step.Run(7, [&] {
        rs->SetFilter("");
        rs->SetFilter("CFam LIKE " + parent.code + "*");
      });
      if (rs->RecordCount() > 0) rs->MoveFirst();
    }
    for (; !rs->Eof(); rs->MoveNext()) {
      host::Family family;
      Parent self;
      step.Run(8, [&] { family.FamilyID = families->NextID(); });
      step.Run(9, [&] {
        self.code = SourceText(*rs, "CFam");
        family.FamilyKey = self.code;
      });
      family.ParentFamilyID = parent.id;
      step.Run(10, [&] {
        family.FamilyName = SourceText(*rs, "DESCR");  // not trimmed, nor Sigla
        if (family.FamilyName.empty()) family.FamilyName = SourceText(*rs, "Sigla");
      });
      family.ParentFamilyName = parent.name;
      step.Run(11, [&] {
        family.IsServiceFamily = host::UCase(SourceText(*rs, "TipArt")) == "S";
        family.FamilyItemKind = family.IsServiceFamily ? 1 : 0;
      });
      family.FamilyLevel = static_cast<int16_t>(depth + 1);
      family.MaximumDiscount = 100;
      family.FamilyPath = parent.path + "\\" + family.FamilyName;
      AddLevelRows(family);
      if (family.FamilyName.empty() || names.IsReserved(family.FamilyName)) {
        family.FamilyName += "_";
      }
      // Its children's paths name it as it is saved.
      self.path = parent.path + "\\" + family.FamilyName;
      self.id = family.FamilyID;
      self.name = family.FamilyName;
      step.Run(12,
               [&] { Keys().Add(host::Variant(family.FamilyID), "Family|" + self.code, true); });
      saved(family, 13);
      if (depth + 1 < kLevelsRead) load_level(depth + 1, self);
    }
  };
  load_level(0, Parent{root.FamilyID, root.FamilyName, root.FamilyPath, ""});
  for (auto& rs : levels) host::RecordsetTools::CloseRecordset(rs);
}

}  // namespace lumaro
