// What the items need before they come: the units of measure the articles
// use, the five rules by which an item is tracked (lot, serial number,
// colour and size), each article's rule, and the lots the back office
// knows.

#include "connector/ModConnectorLumaro.h"
#include "connector/host/Conversions.h"
#include "connector/host/FieldConverter.h"
#include "connector/host/Text.h"
#include "initialload/BSOUpgBrevantaLumaroTables.h"
#include "initialload/LoadStep.h"

namespace lumaro {
namespace {

constexpr int32_t kMeasureName = 3880045;
// A unit code of this length or more is no unit: its articles take the
// POS's default unit.
constexpr size_t kLongestUnitCode = 3;

// The formula of a unit measured by `measures` dimensions; none for 0.
std::optional<std::string> UnitFormula(double measures) {
  if (measures == 0) return std::string();
  if (measures == 1) return std::string("<QNT>*<MED1>");
  if (measures == 2) return std::string("<QNT>*<MED1>*<MED2>");
  if (measures == 3) return std::string("<QNT>*<MED1>*<MED2>*<MED3>");
  return std::nullopt;
}

// Sets a unit setting on the settings of the load and on the host's.
void SetUnitSetting(bool host::SystemSettings::*setting) {
  ModConnectorLumaro::GetSystemSettings().get()->*setting = true;
  HostContext().Settings().get()->*setting = true;
}

// The host's rules by which an item is tracked.
struct Rule {
  const char* id;
  const char* description;
  bool production_date;
  bool expiration_date;
  int16_t control_type;
  double maximum_quantity;
};
constexpr Rule kRules[] = {
    {"CL", "Controla Lotes", true, true, 0, 0},
    {"CCT", "Controla Cores/Tamanho", false, false, 0, 0},
    {"RLV", "Regista Lotes na Venda", true, true, 1, 0},
    {"CNS", "Controla Números de Série", false, false, 0, 1},
    {"RNV", "Regista Nº de Série na Venda", false, false, 1, 1},
};

// The rule of an article's TemLot 1 to 5; none for any other.
const char* RuleOfLotKind(double kind) {
  static constexpr const char* kByKind[] = {"CL", "CNS", "CCT", "RLV", "RNV"};
  if (kind < 1 || kind > 5 || kind != static_cast<int>(kind)) return nullptr;
  return kByKind[static_cast<int>(kind) - 1];
}

}  // namespace

void BSOUpgBrevantaLumaroTables::Upgrade_UnitOfMeasure() {
  LoadStep step("Upgrade_UnitOfMeasure");
  Progress("UnitOfMeasure");
  host::DatabaseService& source = source_.Get();
  host::RecordsetPtr rs;
  // The stock unit and the sale unit of every article, in one column.
  if (!step.Run(1, [&] {
        rs = source.OpenRecordset(
            "SELECT DISTINCT UNID, MAX(NMED) AS NMED FROM Artig  WHERE NMED =0 Group By UNID"
            " UNION "
            "SELECT DISTINCT UNVE AS UNID, MAX(NMED) AS NMED FROM Artig  WHERE NMED =0 Group By "
            "UNVE");
      })) {
    return;
  }
  double total = rs->RecordCount();
  if (total < 1) {
    host::RecordsetTools::CloseRecordset(rs);
    return;
  }
  host::DatabaseService& pos = LoadTarget();
  std::shared_ptr<host::SystemSettings> settings = ModConnectorLumaro::GetSystemSettings();
  step.Run(2, [&] {
    SetUnitSetting(&host::SystemSettings::UseUnitOfMeasureItems);
    pos.OpenRecordset("UPDATE ConfSystem SET UseUnitOfMeasureItems = " +
                      pos.SqlFormat().Boolean(true));
  });
  std::unique_ptr<host::UnitOfMeasureService> units;
  step.Run(3, [&] { units = ModConnectorLumaro::Host().NewUnitOfMeasureService(); });
  bool formula_seen = false;
  int32_t count = 0;
  for (; !rs->Eof(); rs->MoveNext()) {
    std::string raw;
    step.Run(4, [&] { raw = SourceText(*rs, "Unid"); });
    const std::string key = "UnitOfMeasure|" + host::Trim(raw);
    // The length of the code as it stands, blanks included.
    if (host::Len(raw) > kLongestUnitCode) {
      step.Run(5, [&] { Keys().Add(host::Variant(settings->DefaultUnitOfMeasureID), key); });
    } else {
      host::UnitOfMeasure unit;
      unit.UnitOfMeasureID = host::Trim(raw);
      unit.Description = unit.UnitOfMeasureID;
      unit.LanguageID = settings->LanguageID;
      unit.BaseUnitOfMeasureID = settings->DefaultUnitOfMeasureID;
      unit.UnitRatio = 1;
      step.Run(6, [&] {
        double measures = SourceNumber(*rs, "NMED");
        if (std::optional<std::string> formula = UnitFormula(measures)) {
          unit.UnitFormula = *formula;
          formula_seen = formula_seen || measures != 0;
        }
      });
      step.Run(7, [&] {
        if (!units->Exists(unit.UnitOfMeasureID)) units->Save(unit);
      });
      step.Run(8, [&] { Keys().Add(host::Variant(unit.UnitOfMeasureID), key); });
    }
    ++count;
    if (events_) events_->ProgressCurrent("UnitOfMeasure", count, total);
  }
  // Only units of no measure are read, so no formula is ever seen: the
  // branch stays, ready for a wider statement.
  if (formula_seen) {
    step.Run(9, [&] {
      const host::MessageCatalogue& messages = ModConnectorLumaro::Host().UIManager().Messages();
      auto name = [&](int n) {
        return pos.SqlFormat().QuoteText(messages.Format(kMeasureName, {host::Variant(n)}));
      };
      pos.OpenRecordset(
          "UPDATE ConfSystem SET UseUnitWithFormulaItems = " + pos.SqlFormat().Boolean(true) +
          ",  UnitOfMeasureDesc1 = '" + name(1) + "',  UnitOfMeasureDesc2 = '" + name(2) +
          "',  UnitOfMeasureDesc3 = '" + name(3) + "'");
      SetUnitSetting(&host::SystemSettings::UseUnitWithFormulaItems);
    });
  }
  host::RecordsetTools::CloseRecordset(rs);
}

void BSOUpgBrevantaLumaroTables::Create_Properties() {
  LoadStep step("Create_Properties");
  host::SqlStatement statement;
  statement.SetTable("ItemProperty");
  Progress("ItemProperty");
  // The rules are written only when some article has lots.
  bool any = false;
  step.Run(1, [&] {
    any = HasRows(source_.Get(),
                  "SELECT DISTINCT Artig.CArt AS PropertyID, Artig.CArt AS Description, 202 AS "
                  "PropertyKeyType,  1 AS ControlType,  0 AS UseExpirationDate,  0 AS "
                  "UseProductionDate, -1 AS UsePropertyTable,  Artig.TemLot, -1 AS TemLotTab  FROM "
                  "Artig INNER JOIN ArLot ON (ArLot.CArt = Artig.CArt) ");
  });
  if (!any) return;
  statement.SetOperation(2);
  statement.Number("PropertyKeyType", 202);
  statement.Number("ControlMode", 0);
  statement.Boolean("UsePropertyTable", false);
  statement.Number("ExpirationDateControl", 1);
  SetAuditColumns(statement);
  int line = 1;
  for (const Rule& rule : kRules) {
    statement.Text("PropertyID", rule.id);
    statement.Text("Description", rule.description);
    statement.Text("KeyDescription", rule.id);
    statement.Boolean("UseProductionDate", rule.production_date);
    statement.Boolean("UseExpirationDate", rule.expiration_date);
    statement.Number("ControlType", rule.control_type);
    statement.Number("MaximumQuantity", rule.maximum_quantity);
    step.Run(++line, [&] { RunInsertText(statement); });
  }
}

void BSOUpgBrevantaLumaroTables::Initialize_ItemProperty() {
  LoadStep step("Initialize_ItemProperty");
  host::DatabaseService& source = source_.Get();
  host::RecordsetPtr rs;
  if (!step.Run(1, [&] {
        rs = source.OpenRecordset(
            "SELECT DISTINCT Artig.CArt AS PropertyID,  Artig.TemLot,  Artig.TemLotTab  FROM "
            "Artig INNER JOIN ArLot ON (ArLot.CArt = Artig.CArt)  WHERE Artig.TemLot>0 UNION "
            "SELECT DISTINCT Artig.CArt AS PropertyID,  Artig.TemLot,  Artig.TemLotTab  FROM "
            "Artig INNER JOIN ArLoA ON (ArLoA.CArt = Artig.CArt)  WHERE Artig.TemLot>0");
      })) {
    return;
  }
  double total = rs->Eof() ? 0 : rs->RecordCount();
  double count = 0;
  for (; total > 0 && !rs->Eof(); rs->MoveNext()) {
    ++count;
    std::string code;
    step.Run(2, [&] {
      code = SourceText(*rs, "PropertyID");
      if (const char* rule = RuleOfLotKind(SourceNumber(*rs, "TemLot"))) {
        Keys().Add(host::Variant(std::string(rule)), "ItemProperty|" + code);
      }
    });
    WriteLots(step, code);
    if (events_) events_->ProgressCurrent("ItemProperty", count, total);
  }
  host::RecordsetTools::CloseRecordset(rs);
}

void BSOUpgBrevantaLumaroTables::WriteLots(LoadStep& step, const std::string& code) {
  host::DatabaseService& source = source_.Get();
  std::string quoted = source.SqlFormat().QuoteText(code);
  // An article with a table of lots takes them from it, one unit each;
  // one without, from its stock by lot in warehouse 0, with no dates.
  host::RecordsetPtr lots;
  step.Run(3, [&] {
    lots = source.OpenRecordset(
        "SELECT ArLot.CArt, ArLot.CLot, ArLot.Data, ArLot.DatV, 1 AS MaximumQuantity FROM ArLot  "
        "INNER JOIN Artig ON(Artig.CArt=ArLot.CArt)  WHERE Artig.TemLotTab <>0 AND ArLot.CArt='" +
        quoted +
        "' UNION SELECT ArLoA.CArt, ArLoA.CLot, Null AS Data, Null AS DatV, ArLoA.QtdExi AS "
        "MaximumQuantity FROM ArLoA  INNER JOIN Artig ON(Artig.CArt=ArLoA.CArt)  WHERE "
        "Artig.TemLotTab = 0 AND Artig.CArt='" +
        quoted + "'  AND ArLoA.CArm =0 AND Len(ArLoA.CLot)>0 ");
  });
  if (!lots) return;
  host::DatabaseService& pos = LoadTarget();
  const host::SqlFormat& format = pos.SqlFormat();
  host::SystemContext& context = HostContext();
  auto date_or_null = [&](const host::Variant& value) {
    return value.IsNull() ? std::string(", Null")
                          : ", " + format.DateLiteral(host::FieldConverter::ToDate(value));
  };
  for (; !lots->Eof(); lots->MoveNext()) {
    std::string item = SourceTrimmed(*lots, "CArt");
    if (item.empty()) continue;
    step.Run(4, [&] {
      std::string quantity = format.Number(SourceNumber(*lots, "MaximumQuantity"));
      // Taken through warehouse 1: nothing is written when the POS has none.
      pos.OpenRecordset(
          "INSERT INTO StockProperty (ItemID, WarehouseID, PropertyValue1, ProductionDate, "
          "ExpirationDate, PhysicalQty, PhysicalUnits, WorkstationID,SessionID, UserAlt, DtAlt, "
          "HrAlt) SELECT '" +
          format.QuoteText(item) + "', WarehouseID, '" +
          format.QuoteText(SourceText(*lots, "CLot")) + "'" + date_or_null(lots->Fields("Data")) +
          date_or_null(lots->Fields("DatV")) + "," + quantity + ", " + quantity + "," +
          std::to_string(context.CurrentWorkstation().WorkstationID()) + ", " +
          std::to_string(context.CurrentSession()) + ", " + std::to_string(context.CurrentUser()) +
          ", " + format.DateLiteral(host::Today()) + ", " + format.TimeLiteral(host::Now()) +
          " FROM Warehouse WHERE WarehouseID =1");
    });
  }
  host::RecordsetTools::CloseRecordset(lots);
}

}  // namespace lumaro
